// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picturebutton.h"

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QRectF>
#include <QString>
#include <QStyle>

class Dictionary;
class QStyleOptionButton;

/// A button with a picture that is grey while the button is unchecked and coloured while it
/// is checked. Only the coloured picture exists; the grey one is made from it.
///
/// A button that is painted anew as it was, but for its words, takes its ground from a picture. A
/// style sheet has the style draw that ground each time, which is a tenth of a cursor step, and the
/// toolkit remember each under a new name.
class InterfaceButton : public PictureButton
{
    Q_OBJECT

public:
    /// \a words is shared, not owned. Without parent: the layout that takes the button sets one.
    explicit InterfaceButton(Dictionary *words);

    /// Shows the picture at \a path, a resource path with or without its extension. A picture that
    /// cannot be read adds nothing.
    void set_icon(const QString &path);

    /// \a source in the toolkit's own greys, transparent wherever its mask is.
    QPixmap grayPixmap(const QPixmap &source);

    Dictionary *dict = nullptr; ///< the words of the interface; null in a ParamButton
    QIcon icon; ///< what \c set_icon made; hides QAbstractButton::icon()
    QImage image; ///< nothing uses it
    QRectF textRect; ///< nothing uses it
    QRectF iconRect; ///< nothing uses it
    QString tempText; ///< nothing uses it

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// Sees to it that the picture is one of the ground that \a option asks for. False as long as
    /// there is none, because the button was never painted like that before.
    bool takeGround(const QStyleOptionButton &option);

    QPixmap m_ground; ///< null when out of date
    QSize m_groundSize; ///< of the button when it was last painted; empty when out of date
    QStyle::State m_groundState; ///< that goes with the size
};
