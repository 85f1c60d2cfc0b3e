// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

#include <chrono>
#include <functional>

class Subject;

/// What one operation took.
struct Cost
{
    double wholeUs = 0.0; ///< from the event until nothing is painted any more, microseconds
    /// The same without what the other controls did meanwhile: painting themselves, laying
    /// themselves out, looking at a style sheet. What is left is the plot's part: the operation's
    /// own code, the chart, its painting, and bringing the picture to the screen.
    double plotUs = 0.0;
    int plotPaints = 0; ///< paint events of the canvas
};

/// The application object of the benchmarks. It sees every event on its way to its receiver, and
/// so knows who was at work when.
class Stopwatch : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    /// What a second is. On a machine that others use as well, only the time that this process was
    /// computing says something; but then the work of a display server is not in it.
    enum Time {
        Passing,
        Computing
    };
    void setTime(Time time);

    /// Does \a operation on \a subject and waits until its last paint event was delivered: the
    /// event loop is turned, and dead objects are deleted, until a whole turn paints nothing; on a
    /// display in another process also until that answered a round trip. An operation that paints
    /// nothing at all is given up after a while, with \c plotPaints 0.
    Cost measure(Subject &subject, const std::function<void()> &operation);

    /// Lets everything happen that waits, unmeasured.
    void settle();

    bool notify(QObject *receiver, QEvent *event) override;

private:
    using Moment = std::chrono::nanoseconds;

    Moment now() const;
    void turn();
    void enter(bool plot);

    const QWidget *m_plot = nullptr; ///< null while nothing is measured
    const QWidget *m_canvas = nullptr;
    int m_plotPaints = 0;
    int m_paints = 0;
    bool m_inPlot = true; ///< whether the plot's part is running
    Moment m_since{}; ///< since when it has been as m_inPlot says
    Moment m_plotTime{};
    Time m_time = Passing;
};
