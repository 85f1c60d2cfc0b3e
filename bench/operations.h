// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What is measured: the things that a user does and waits for.
enum class Operation {
    CursorStep, ///< one sample, by the wheel
    CursorDrag, ///< one move of a drag, a few samples
    Pan, ///< three counts, by the middle button
    ZoomStep, ///< one level, by its button
    VerticalShift, ///< one step of the selected trace
    HorizontalShift, ///< one sample of the selected trace
    VelocityFactor, ///< a thousandth
    SelectTrace, ///< the next of six
    LoadSix, ///< six files
    DifferenceOn,
    SmoothingOn,
    CursorStepSmoothed,
    PanSmoothed,
    Resize, ///< by four pixels
    Language, ///< from one to the other
    StyleSheet, ///< applied again
};

/// An operation's name, and how many bare repaints its part on the plot may take. 0 is no goal.
struct OperationGoal
{
    Operation operation;
    const char *name;
    double goal;
};

constexpr OperationGoal operations[] = {
    { Operation::CursorStep, "cursor step", 0.60 },
    { Operation::CursorDrag, "cursor drag", 0.60 },
    { Operation::Pan, "pan", 3.4 },
    { Operation::ZoomStep, "zoom step", 2.5 },
    { Operation::VerticalShift, "vertical shift", 1.35 },
    { Operation::HorizontalShift, "horizontal shift", 1.35 },
    { Operation::VelocityFactor, "velocity factor", 1.2 },
    { Operation::SelectTrace, "select a trace", 2.1 },
    { Operation::LoadSix, "load six", 2.15 },
    { Operation::DifferenceOn, "difference on", 2.05 },
    { Operation::SmoothingOn, "smoothing on", 2.25 },
    { Operation::CursorStepSmoothed, "cursor step, smoothed", 0.30 },
    { Operation::PanSmoothed, "pan, smoothed", 4.0 },
    { Operation::Resize, "resize by 4 px", 3.2 },
    { Operation::Language, "language switch", 0.0 },
    { Operation::StyleSheet, "apply the style sheet", 0.0 },
};
