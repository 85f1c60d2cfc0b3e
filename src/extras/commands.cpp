// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/commands.h"

#include "calc/numeric.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "mainwindow.h"

#include <QAction>
#include <QButtonGroup>

#include <algorithm>

namespace extras {

namespace {

/// Scrolls to the active cursor when it is out of view. The wheel over the plot does not scroll,
/// because the user looks at its pointer.
void followCursor(MainWindow &window)
{
    const int cursor = window.state().Cur_flag;
    if (cursor != MainWindow::DELTA && !window.isCursor_visible(cursor))
        window.gotoCursor(cursor);
}

void trigger(QAction *action)
{
    if (action->isEnabled())
        action->trigger();
}

} // namespace

QVector<QPointF> selectedSamples(const MainWindow &window)
{
    const MainWindowState &state = window.state();
    if (!state.isLoaded(state.rfg_ID))
        return {};
    if (state.smooth_rfg_flag)
        return qtcompat::pointsOf(*window.parts().rfg_series_sp[state.rfg_ID]);
    // Each tread of the step form begins with its sample.
    const QVector<QPointF> treads = qtcompat::pointsOf(*window.parts().rfg_series[state.rfg_ID]);
    QVector<QPointF> samples;
    for (int i = 0; i < treads.size(); i += 2)
        samples.append(treads[i]);
    return samples;
}

void placeCursor(MainWindow &window, qint64 column)
{
    window.cursorSetup_slot(calc::saturated(column));
    followCursor(window);
}

void moveCursor(MainWindow &window, int samples)
{
    window.cursorWheel(samples);
    followCursor(window);
}

void moveCursorToEnd(MainWindow &window, bool last)
{
    const MainWindowState &state = window.state();
    const rfg_SHOWN &trace = state.rfg_DATA[state.rfg_ID];
    if (!state.isLoaded(state.rfg_ID)) {
        const QtCharts::QValueAxis *axis = window.parts().cust_axisX;
        placeCursor(window, calc::truncated(last ? axis->max() : axis->min()));
        return;
    }
    const qint64 delay = quint32{ trace.f_p_840.ch.params.delay };
    const qint64 sample = delay + (last ? constants::lastSample : 0);
    placeCursor(window, trace.scroll + sample * state.stepOf(state.rfg_ID));
}

void scroll(MainWindow &window, int steps)
{
    const QtCharts::QValueAxis *axis = window.parts().cust_axisX;
    const int step = steps * calc::truncated(m_pow2(window.state().master_scale));
    // The window refuses a step past an end, so a longer step is cut to reach the end.
    const int toLeft = -std::max(0, calc::truncated(axis->min()));
    const int toRight = std::max(0, constants::xLength - calc::truncated(axis->max()));
    window.plotScroll(std::clamp(step, toLeft, toRight));
}

void fitTrace(MainWindow &window)
{
    const QVector<QPointF> samples = selectedSamples(window);
    if (samples.isEmpty() || samples.last().x() < 0.0 || samples.first().x() > constants::xLength)
        return;
    const int first = std::max(0, calc::truncated(samples.first().x()));
    const int last = std::min(constants::xLength, calc::truncated(samples.last().x()));
    int scale = constants::minScale;
    while (scale < constants::maxScale && calc::visibleCounts(scale) < last - first)
        ++scale;
    window.scale_change(scale);
    const int width = calc::visibleCounts(scale);
    const int left = std::min(first, constants::xLength - width);
    window.setPlotRange(left, left + width);
    const MainWindowParts &parts = window.parts();
    if (parts.down_buttons->checkedId() == MainWindow::SCALE)
        parts.param_dial->trueValue = scale;
}

void showCursor(MainWindow &window)
{
    const int cursor = window.state().Cur_flag;
    if (cursor != MainWindow::DELTA)
        window.gotoCursor(cursor);
}

void choose(MainWindow &window, QAction *LegendButton::*entry)
{
    trigger(window.parts().selected_rfg[window.state().rfg_ID]->*entry);
}

void switchWheel(MainWindow &window)
{
    const MainWindowParts &parts = window.parts();
    trigger(window.state().zoom_wheel_flag ? parts.cur_wheel_action : parts.scale_wheel_action);
}

} // namespace extras
