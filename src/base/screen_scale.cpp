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

constexpr auto factorVariable = "QT_SCALE_FACTOR";
/// A smaller factor gives a window of a few pixels; a larger one makes Qt run out of memory.
constexpr double minFactor = 0.1;
constexpr double maxFactor = 10.0;
/// Greatest accidental error. Desktops offer steps of 6.25 % and more; X servers that do not know
/// the size of the screen report 100 dpi, 4.2 % too much.
constexpr double accidentalShare = 0.05;
/// Rounding error of the division that gives the scale.
constexpr double exactShare = 1e-6;

/// The factor in QT_SCALE_FACTOR; 1 without one. A factor that is not in 0.1 to 10 is removed.
double wantedFactor()
{
    bool isNumber = false;
    const double factor = qEnvironmentVariable(factorVariable).toDouble(&isNumber);
    if (isNumber && factor >= minFactor && factor <= maxFactor)
        return factor;
    qunsetenv(factorVariable);
    return 1.0;
}

/// True when no variable sets the scale, the scale of every screen is within 5 % of \a wanted, and
/// at least one is not exact.
bool isAccident(double wanted)
{
    for (const char *variable : { "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_USE_PHYSICAL_DPI",
                                  "QT_ENABLE_HIGHDPI_SCALING" })
        if (qEnvironmentVariableIsSet(variable))
            return false;
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
    const double wanted = wantedFactor();
    if (!qEnvironmentVariableIsSet("QT_SCALE_FACTOR_ROUNDING_POLICY"))
        QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
            Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    // A copy, because QApplication removes the arguments that it understands.
    const std::vector<char *> arguments(argv, argv + argc);
    auto application = std::make_unique<QApplication>(argc, argv);
    if (!isAccident(wanted))
        return application;
    application.reset();
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    std::copy(arguments.begin(), arguments.end(), argv);
    argc = static_cast<int>(arguments.size());
    return std::make_unique<QApplication>(argc, argv);
}
