// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/numeric.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "curarrow.h"
#include "dictionary.h"
#include "parambutton.h"

#include <QButtonGroup>
#include <QPushButton>

calc::Range MainWindow::viewRange() const
{
    return { calc::truncated(cust_axisX->min()), calc::truncated(cust_axisX->max()) };
}

void MainWindow::setPlotRange(int min, int max)
{
    cust_axisX->setRange(min, max);
    const auto width = static_cast<float>(Plot_Chart->plotArea().width());
    if (trueWidth != width) {
        const QRectF plot = plotInScene();
        cur_arrowA->setRect(plot);
        cur_arrowB->setRect(plot);
        trueWidth = width;
    }
    scrollfactorX = min;
    setXAxis();
    cur_arrowA->setXRes(max - min);
    cur_arrowB->setXRes(max - min);
    cur_arrowA->moveX(static_cast<float>(qint64{ cursor_A_pos } - min));
    cur_arrowB->moveX(static_cast<float>(qint64{ cursor_B_pos } - min));
    cur_arrowA->vis_state(isCursor_visible(CURSOR_A));
    cur_arrowB->vis_state(isCursor_visible(CURSOR_B));
    scroll_left_button->setEnabled(min != 0);
    scroll_right_button->setEnabled(max != x_length);
}

void MainWindow::plotScroll(int step)
{
    const calc::Range range = calc::scrolled(viewRange(), step);
    setPlotRange(range.min, range.max);
}

void MainWindow::scale_change(int scaleN)
{
    master_scale = calc::clampedScale(scaleN);
    setPlotRange(0, calc::visibleCounts(master_scale));
    showScale();
}

void MainWindow::zoomAtCursor(int scaleN)
{
    // Not scale_change: it would lay out a range that is replaced at once.
    master_scale = calc::clampedScale(scaleN);
    const calc::Range range
        = calc::centredOn(cursorPosition(Cur_flag), { 0, calc::visibleCounts(master_scale) });
    setPlotRange(range.min, range.max);
    showScale();
}

void MainWindow::showScale()
{
    scale_dist = calc::scaleDistance(master_scale);
    // At an end only the button that leads past it is disabled; the other keeps its state.
    if (master_scale == constants::minScale) {
        scale_down_button->setEnabled(false);
    } else if (master_scale == constants::maxScale) {
        scale_up_button->setEnabled(false);
    } else {
        scale_down_button->setEnabled(true);
        scale_up_button->setEnabled(true);
    }
    setCaption(scale_button, d->SCALE_STR, scaleText());
    if (checkedParameter() == SCALE)
        setParamDialText(d->SCALE_STR, scaleText());
}

void MainWindow::H_Offset_change(int value)
{
    rfg_SHOWN &trace = rfg_DATA[rfg_ID];
    const int step = stepOf(rfg_ID);
    const int samples = calc::wholeSamples(value, step);
    // A shift to the left is stored in two's complement, as the instrument does.
    trace.f_p_840.ch.params.shiftX = static_cast<quint32>(samples);
    trace.scroll = samples * step;
    redraw(rfg_ID);
    setCaption(H_offset_button, d->H_OFFSET_STR, count_to_distance(trace.scroll));
    cursors_update();
    if (checkedParameter() == H_OFFSET)
        setParamDialText(d->H_OFFSET_STR, count_to_distance(trace.scroll));
}

void MainWindow::V_Offset_change(int value)
{
    rfg_SHOWN &trace = rfg_DATA[rfg_ID];
    trace.offset = calc::clampedVerticalOffset(value);
    redraw(rfg_ID);
    setCaption(V_offset_button, d->V_OFFSET_STR, QString::number(trace.offset));
    cursors_update();
    // The dial shows levels, in which 129 means "no level": at an offset of 129 its text is empty,
    // while the button shows 129.
    if (checkedParameter() == V_OFFSET)
        setParamDialText(d->V_OFFSET_STR, count_to_level(trace.offset));
}

void MainWindow::KU_change(double ku)
{
    master_params.KU = calc::clampedKU(ku);
    dist_coef = dist_coef_0 / double{ master_params.KU };
    setXAxis();
    updateStepLabel();
    setCaption(KU_button, d->KU_STR, kuText());
    const QString shift = count_to_distance(rfg_DATA[rfg_ID].scroll);
    if (isLoaded(rfg_ID))
        setCaption(H_offset_button, d->H_OFFSET_STR, shift);
    if (checkedParameter() == KU)
        setParamDialText(d->KU_STR, kuText());
    else if (checkedParameter() == H_OFFSET)
        setParamDialText(d->H_OFFSET_STR, shift);
    cursors_update();
}

void MainWindow::plotCorrection()
{
    const double plotWidth = Plot_Chart->plotArea().width();
    if (double{ trueWidth } == plotWidth)
        return;
    // Pixels; x of the plot area in a chart with the usual margins.
    constexpr double plotX = 74.0;
    Plot_Chart->resize(double{ trueWidth } + Plot_Chart->size().width() - plotWidth,
                       Plot_Chart->size().height());
    Plot_Chart->setPos(plotX - Plot_Chart->plotArea().x() + constants::chartPosition,
                       constants::chartPosition);
}

void MainWindow::updateStepLabel()
{
    cursor_step_lbl.setText(d->CUR_STEP_STR + QStringLiteral(" = ")
                            + count_to_distance(cursorStep()));
    // Aligned to the right edge of the plot, which has no size before the first layout.
    if (font_size > 0.0F)
        set_cur_step_lbl();
}

int MainWindow::checkedParameter() const
{
    return down_buttons->checkedId();
}
