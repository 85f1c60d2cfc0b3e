// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QPushButton>
#include <QRectF>
#include <QString>

class Dictionary;

/// A push button with a picture that is grey while the button is unchecked and coloured while it
/// is checked. Only the coloured picture exists; the grey one is made from it.
class InterfaceButton : public QPushButton
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
};
