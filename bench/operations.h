// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

/// User operations that are measured.
enum class Operation {
    CursorStep,
    CursorDrag,
    Pan,
    ZoomStep,
    VerticalShift,
    HorizontalShift,
    ShorteningFactor,
    SelectTrace,
    LoadSix,
    DifferenceOn,
    SmoothingOn,
    CursorStepSmoothed,
    PanSmoothed,
    Resize,
    Language,
    StyleSheet
};

struct OperationGoal
{
    Operation operation;
    const char *name;
    double goal; ///< largest ratio of the plot's part to the bare painter's; 0: the viewer alone
    bool ahead = false; ///< must also take less than Qwt and QCustomPlot
};

constexpr OperationGoal operations[] = {
    { Operation::CursorStep, "cursor step", 0.60, true }, // one sample, by the wheel
    { Operation::CursorDrag, "cursor drag", 0.60, true }, // one mouse move
    { Operation::Pan, "pan", 1.7 }, // three counts, by the middle button
    { Operation::ZoomStep, "zoom step", 1.8 }, // one level, by its button
    { Operation::VerticalShift, "vertical shift", 1.1 }, // one level, by the dial
    { Operation::HorizontalShift, "horizontal shift", 1.1 }, // one sample, by the dial
    { Operation::ShorteningFactor, "KU", 1.1 }, // a thousandth, by the dial
    { Operation::SelectTrace, "select a trace", 1.7 }, // the next of six
    { Operation::LoadSix, "load six", 1.5 },
    { Operation::DifferenceOn, "difference on", 1.2 },
    { Operation::SmoothingOn, "smoothing on", 1.6 },
    { Operation::CursorStepSmoothed, "cursor step, smoothed", 0.60, true },
    { Operation::PanSmoothed, "pan, smoothed", 1.8 },
    { Operation::Resize, "resize by 4 px", 1.7 },
    { Operation::Language, "language switch", 0.0 },
    { Operation::StyleSheet, "apply the style sheet", 0.0 },
};

/// The curves are shown while \a operation is repeated.
constexpr bool isSmoothed(Operation operation)
{
    return operation == Operation::CursorStepSmoothed || operation == Operation::PanSmoothed;
}

/// Workload of all subjects; positions and widths in counts.
namespace workload {

constexpr int cursorA = 150; ///< right of the middle, so that zooming in has to scroll to it
constexpr int cursorB = 200;
constexpr int turn = 40; ///< operations in one direction, followed by as many back
constexpr int panTurn = 20; ///< the same for pans
constexpr int panCounts = 3; ///< of one pan
constexpr int dragCounts = 2; ///< of one move of a drag
constexpr int resizePixels = 4; ///< wider and higher
/// Added while resizing, so that the plot is above its minimum size and changes with the window.
constexpr int resizeRoom = 60;

/// +1 for \a length operations, then -1 for as many, and so on.
constexpr int direction(int number, int length)
{
    return (number / length) % 2 == 0 ? 1 : -1;
}

/// Size for resize number \a number of a window of \a size: larger, and back.
constexpr QSize resized(QSize size, int number)
{
    const int more = resizeRoom + (number % 2 == 0 ? resizePixels : 0);
    return { size.width() + more, size.height() + more };
}

} // namespace workload
