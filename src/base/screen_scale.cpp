// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/screen_scale.h"

#include "base/qtcompat.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// No desktop offers a smaller step than 6.25 %, and servers that have no size to tell say 100 dots
/// to the inch, which is 4.2 % off.
constexpr double accidentalShare = 0.05;
/// The scale comes out of a division.
constexpr double exactShare = 1e-6;

/// The factor by which the user has everything enlarged, whatever the screen says; 1 for none.
double wantedFactor()
{
    bool isNumber = false;
    const double factor = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble(&isNumber);
    return isNumber && factor > 0.0 ? factor : 1.0;
}

/// Whether all screens are so near to the wanted factor that they mean it, and not all are exact.
bool isAccident()
{
    for (const char *variable : { "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_USE_PHYSICAL_DPI",
                                  "QT_ENABLE_HIGHDPI_SCALING" })
        if (qEnvironmentVariableIsSet(variable))
            return false;
    const double wanted = wantedFactor();
    const auto screens = QGuiApplication::screens();
    const auto allWithin = [&](double share) {
        return std::all_of(screens.begin(), screens.end(), [&](const QScreen *screen) {
            return std::abs(screen->devicePixelRatio() / wanted - 1.0) < share;
        });
    };
    return allWithin(accidentalShare) && !allWithin(exactShare);
}

} // namespace

std::unique_ptr<QApplication> screen_scale::makeApplication(int &argc, char **argv)
{
    qtcompat::followScaleOfScreen();
    if (!qEnvironmentVariableIsSet("QT_SCALE_FACTOR_ROUNDING_POLICY"))
        QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
            Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    // A copy: the application takes out of them what it understands.
    const std::vector<char *> arguments(argv, argv + argc);
    auto application = std::make_unique<QApplication>(argc, argv);
    if (!isAccident())
        return application;
    application.reset();
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    std::copy(arguments.begin(), arguments.end(), argv);
    argc = static_cast<int>(arguments.size());
    return std::make_unique<QApplication>(argc, argv);
}
