// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

#include <chrono>
#include <functional>

class ViewerSubject;

/// Cost of one operation.
struct Cost
{
    double wholeUs = 0.0; ///< from the event to the end of all painting, microseconds
    /// The same without the time that other controls spent painting, laying out and styling
    /// themselves: the operation's own code, the chart, its painting, and the update of the screen.
    double plotUs = 0.0;
    int plotPaints = 0; ///< paint events of the canvas
};

/// Application object of the benchmark. It sees every event before the receiver does and attributes
/// the time.
class Stopwatch : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    /// Runs \a operation on \a subject and then the event loop, deferred deletes included, until a
    /// pass paints nothing; on xcb also until the server answered a round trip. An operation that
    /// paints nothing ends after half a second with \c plotPaints 0.
    Cost measure(ViewerSubject &subject, const std::function<void()> &operation);

    /// Processes pending events. Not measured.
    void settle();

    bool notify(QObject *receiver, QEvent *event) override;

private:
    using Clock = std::chrono::steady_clock;

    void turn();
    void enter(bool plot);

    const QWidget *m_plot = nullptr; ///< null while nothing is measured
    const QWidget *m_canvas = nullptr;
    int m_plotPaints = 0;
    int m_paints = 0;
    bool m_inPlot = true; ///< the time since m_since belongs to the plot's part
    Clock::time_point m_since;
    Clock::duration m_plotTime{};
};
