// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "interfacebutton.h"

#include "base/bundled_picture.h"

#include <QBitmap>

InterfaceButton::InterfaceButton(Dictionary *words)
    : dict(words)
{
}

void InterfaceButton::set_icon(const QString &path)
{
    const QPixmap picture = bundledPicture(path);
    icon.addPixmap(picture, QIcon::Active, QIcon::On);
    icon.addPixmap(grayPixmap(picture), QIcon::Normal, QIcon::Off);
    setIcon(icon);
}

QPixmap InterfaceButton::grayPixmap(const QPixmap &source)
{
    QPixmap gray = QPixmap::fromImage(source.toImage().convertToFormat(QImage::Format_Grayscale8));
    gray.setMask(source.mask());
    return gray;
}
