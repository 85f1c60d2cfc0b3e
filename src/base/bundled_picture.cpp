// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/bundled_picture.h"

#include "base/constants.h"

#include <QGuiApplication>

namespace {

constexpr QLatin1String sharpFolder = constants::latin1(":/sharp");
constexpr QLatin1String sharpMark = constants::latin1("@2x");
constexpr QLatin1String ending = constants::latin1(".png");

} // namespace

QPixmap bundledPicture(const QString &path)
{
    if (qApp->devicePixelRatio() > 1.0) {
        QString name = path.mid(1);
        if (name.endsWith(ending))
            name.chop(ending.size());
        const QPixmap sharp(sharpFolder + name + sharpMark);
        if (!sharp.isNull())
            return sharp;
    }
    return QPixmap(path);
}
