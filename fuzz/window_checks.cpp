// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "window_checks.h"

#include "base/constants.h"
#include "calc/readout.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "dictionary.h"
#include "fuzzer.h"
#include "legendbutton.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QLabel>
#include <QtCharts/QValueAxis>

#include <algorithm>
#include <cmath>

using fuzz::expect;

namespace {

void checkView(const MainWindowProbe &window)
{
    const double min = window.cust_axisX()->min();
    const double max = window.cust_axisX()->max();
    expect(std::isfinite(min) && std::isfinite(max), "the axis has ends");
    expect(min >= 0.0 && min < max, "the axis has its ends in order");
    const int scale = window.master_scale();
    expect(scale >= constants::minScale && scale <= constants::maxScale, "the zoom is one of nine");
    expect(max - min == double(calc::visibleCounts(scale)), "the view is as wide as its zoom says");
    expect(double(window.scrollfactorX()) == min, "the window knows where its view begins");
    expect(window.dist_coef() > 0.0187 && window.dist_coef() < 0.1874, "a count has a length");
}

int checkedButtons(const QButtonGroup *group)
{
    const QList<QAbstractButton *> buttons = group->buttons();
    return static_cast<int>(
        std::count_if(buttons.begin(), buttons.end(),
                      [](const QAbstractButton *button) { return button->isChecked(); }));
}

void checkButtons(const MainWindowProbe &window)
{
    expect(checkedButtons(window.rfg_buttons()) == 1, "one trace is selected");
    expect(window.rfg_buttons()->checkedId() == window.rfg_ID(),
           "the checked button is that of the selected trace");
    expect(checkedButtons(window.up_buttons()) == 1, "one cursor is active");
    expect(window.up_buttons()->checkedId() == window.Cur_flag(),
           "the checked button is that of the active cursor");
    expect(checkedButtons(window.down_buttons()) == 1, "one parameter is on the dial");
    int masters = 0;
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        const LegendButton *button = window.selected_rfg()[slot];
        masters += button->mast() ? 1 : 0;
        expect(!button->mast() || slot == window.rfg_master_ID(), "the master alone has its mark");
        const bool loaded = checkbit(window.rfg_read_index(), slot);
        expect(loaded || !button->vis(), "an empty slot shows nothing");
    }
    expect(masters <= 1, "there is one master at most");
}

void checkCursors(const MainWindowProbe &window)
{
    const int a = window.cursor_A_pos();
    const int b = window.cursor_B_pos();
    expect(a >= 0 && a <= constants::xLength, "cursor A is on the axis");
    expect(b >= 0 && b <= constants::xLength, "cursor B is on the axis");
    const auto distance = [&](int counts) {
        return calc::distanceText(counts, window.dist_coef(), window.d()->DIST_SUFFIX_STR);
    };
    expect(window.delta_lbl()->text().endsWith(distance(std::abs(a - b))),
           "the distance between the cursors is what is written");
    expect(window.curA_button()->text().contains(distance(a)), "A's place is what is written");
    expect(window.curB_button()->text().contains(distance(b)), "B's place is what is written");
    const Cont_dial *dial = window.cursor_dial();
    expect(dial->trueValue >= 0 && dial->trueValue <= constants::xLength,
           "the cursor dial is on the axis");
}

void checkTraces(const MainWindowProbe &window)
{
    expect((window.rfg_read_index() & ~constants::slotMask) == 0, "there are six slots");
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        const int steps = window.rfg_series()[slot]->count();
        const int spline = window.rfg_series_sp()[slot]->count();
        expect(steps < constants::stepPointCount, "a trace has at most 499 points");
        expect(spline <= constants::drawnSamples, "a spline has at most 250 points");
        const LegendButton *button = window.selected_rfg()[slot];
        const bool step = window.rfg_series()[slot]->isVisible();
        const bool smooth = window.rfg_series_sp()[slot]->isVisible();
        if (checkbit(window.rfg_read_index(), slot))
            expect((window.smooth_rfg_flag() ? smooth : step) == button->vis(),
                   "a trace is shown when its button says so");
    }
}

} // namespace

void fuzz::checkWindow(const MainWindowProbe &window)
{
    checkView(window);
    checkButtons(window);
    checkCursors(window);
    checkTraces(window);
}
