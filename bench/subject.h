// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "operations.h"

#include <QVector>
#include <QWidget>

/// A window to measure: the viewer itself or one of its peers. Loaded with the benchmark's traces
/// and shown by its constructor.
class Subject
{
public:
    Subject() = default;
    virtual ~Subject() = default;
    Q_DISABLE_COPY(Subject)

    virtual QWidget &window() = 0;
    /// The plot with everything that belongs to it.
    virtual QWidget &plot() = 0;
    /// The part of the plot on which the traces are painted; its paint events are counted.
    virtual QWidget &canvas() = 0;

    /// Numbers that each operation but loading and styling changes: the view, the shifts, the
    /// selection, the modes, the size, the language. An operation that left them alone was refused.
    virtual QVector<double> state() const = 0;

    /// Brings the window into the state in which \a operation is repeated. Not measured.
    virtual void begin(Operation operation) = 0;
    /// What is measured: the \a number-th time, counted from 0, that the user does it.
    virtual void act(Operation operation, int number) = 0;
    /// Takes back what has to be before \a operation can be done again. Not measured.
    virtual void takeBack(Operation operation) = 0;
    /// Back to the state before \c begin. Not measured.
    virtual void end(Operation operation) = 0;
};

/// The way there and back again: +1 for so many times, then -1 for as many.
constexpr int direction(int number, int turn)
{
    return (number / turn) % 2 == 0 ? 1 : -1;
}
