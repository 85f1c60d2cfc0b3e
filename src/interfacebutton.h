// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picturebutton.h"

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QRectF>
#include <QString>

class Dictionary;

/// A button with a picture that is grey while the button is unchecked and coloured while it
/// is checked. Only the coloured picture exists; the grey one is made from it.
class InterfaceButton : public PictureButton
{
    Q_OBJECT

public:
    /// \a words is not owned. The button has no parent; the layout that takes it sets one.
    explicit InterfaceButton(Dictionary *words);

    /// Shows the picture at \a path, a resource path with or without its extension. A picture that
    /// cannot be read leaves the icon unchanged.
    void set_icon(const QString &path);

    /// \a source in Qt's greyscale format, with the same mask.
    QPixmap grayPixmap(const QPixmap &source);

    Dictionary *dict = nullptr; ///< interface words; null in a ParamButton
    QIcon icon; ///< set by \c set_icon; hides QAbstractButton::icon()
    QImage image; ///< unused
    QRectF textRect; ///< unused
    QRectF iconRect; ///< unused
    QString tempText; ///< unused
};
