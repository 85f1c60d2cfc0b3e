// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/cursor_level.h"
#include "calc/numeric.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "curarrow.h"
#include "dictionary.h"
#include "serieslayer.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QLabel>

QT_CHARTS_USE_NAMESPACE

namespace {

constexpr int cursorPen = 2; ///< width of a cursor's upright line
constexpr int cursorLevelPen = 1; ///< width of a cursor's level line

/// Both series of cursor \a which, the level line before the upright line. None in delta mode.
QVector<QXYSeries *> seriesOf(const MainWindowParts &parts, int which)
{
    if (which == MainWindow::CURSOR_A)
        return { parts.cursor_A_add, parts.cursor_A };
    if (which == MainWindow::CURSOR_B)
        return { parts.cursor_B_add, parts.cursor_B };
    return {};
}

void colourCursors(const MainWindowParts &parts, int active)
{
    const auto colour = [](bool isActive, QLineSeries *line, QLineSeries *level, CurArrow *marker) {
        const QColor ink = isActive ? Qt::yellow : Qt::gray;
        QPen pen(ink, cursorPen);
        line->setPen(pen);
        pen.setWidth(cursorLevelPen);
        pen.setStyle(Qt::DashLine);
        level->setPen(pen);
        marker->setBr_style(isActive ? Qt::SolidPattern : Qt::NoBrush);
        marker->setColor(ink);
    };
    colour(active == MainWindow::CURSOR_A, parts.cursor_A, parts.cursor_A_add, parts.cur_arrowA);
    colour(active == MainWindow::CURSOR_B, parts.cursor_B, parts.cursor_B_add, parts.cur_arrowB);
}

calc::CursorPoint pointUnder(const MainWindow &window, int column)
{
    const MainWindowState &state = window.state();
    const int slot = state.rfg_ID;
    if (!state.isLoaded(slot))
        return { calc::snapped(column, state.stepOf(slot)), constants::noLevel };
    if (state.isDrawnAsDifference(slot))
        return calc::cursorOnDifference(column, window.traceRef(state.rfg_master_ID),
                                        window.traceRef(slot));
    return calc::cursorOn(column, window.traceRef(slot));
}

} // namespace

void MainWindow::cursorSetup_slot(int column)
{
    moveCursor(column);
    seriesLayer->raise(seriesOf(*this, Cur_flag));
}

void MainWindow::moveCursor(int column)
{
    if (Cur_flag == DELTA)
        return;
    const int clamped = calc::clampedColumn(column);
    const calc::CursorPoint point = pointUnder(*this, clamped);
    const bool isA = Cur_flag == CURSOR_A;
    (isA ? cursor_A_pos : cursor_B_pos) = point.column;
    (isA ? cursor_A_pos_Y : cursor_B_pos_Y) = point.level;

    CurArrow *marker = isA ? cur_arrowA : cur_arrowB;
    marker->moveX(static_cast<float>(point.column - cust_axisX->min()));
    marker->vis_state(isCursor_visible(Cur_flag));

    QLineSeries *line = isA ? cursor_A : cursor_B;
    QLineSeries *level = isA ? cursor_A_add : cursor_B_add;
    const double x = point.column;
    const double y = point.level;
    line->replace(QVector<QPointF>{ { x, constants::levelMin }, { x, constants::levelMax } });
    level->replace(QVector<QPointF>{ { 0.0, y }, { double(x_length), y } });

    // The dial keeps the requested column, so that slow turns add up to a sample.
    cursor_dial->trueValue = clamped;
    cursorInfo_update();
}

QVector<QXYSeries *> MainWindow::cursorSeries() const
{
    if (Cur_flag_true == DELTA)
        return {};
    return seriesOf(*this, Cur_flag_true == CURSOR_A ? CURSOR_B : CURSOR_A)
        + seriesOf(*this, Cur_flag_true);
}

void MainWindow::cursorSelect_slot(int mode)
{
    const bool isCursor = mode == CURSOR_A || mode == CURSOR_B;
    Cur_flag = Cur_flag_true = isCursor ? static_cast<CURSOR_MODE>(mode) : DELTA;
    if (QAbstractButton *button = cur_nav_group->button(mode))
        button->setChecked(true);

    QString caption;
    if (isCursor) {
        const bool isA = mode == CURSOR_A;
        (isA ? curA_action : curB_action)->setChecked(true);
        cursor_dial->trueValue = cursorPosition(mode);
        caption = count_to_distance(cursorPosition(mode));
        (isA ? cur_arrowB : cur_arrowA)->group->stackBefore((isA ? cur_arrowA : cur_arrowB)->group);
    } else {
        cursor_dial->ring_color = Qt::black;
    }
    seriesLayer->raise(seriesOf(*this, mode));
    colourCursors(*this, Cur_flag);
    setCursorDialText(caption);
}

void MainWindow::cursorInfo_update()
{
    QString name;
    if (Cur_flag == CURSOR_A)
        name = d->CURSOR_A_STR;
    else if (Cur_flag == CURSOR_B)
        name = d->CURSOR_B_STR;
    const int column = cursorPosition(Cur_flag);
    const int level = Cur_flag == CURSOR_A ? cursor_A_pos_Y
        : Cur_flag == CURSOR_B             ? cursor_B_pos_Y
                                           : 0;
    const QString distance = count_to_distance(column);
    if (QAbstractButton *button = up_buttons->button(Cur_flag))
        button->setText(cursorReadout(name, distance, level));
    delta_lbl->setText(d->DELTA_STR + QStringLiteral(" = ")
                       + count_to_distance(qAbs(cursor_A_pos - cursor_B_pos)));
    if (Cur_flag == Cur_flag_true)
        setCursorDialText(distance);
}

void MainWindow::cursors_update()
{
    Cur_flag_true = Cur_flag;
    if (Cur_flag == DELTA)
        return;
    // The active cursor comes last, so that dial and caption show it.
    const CURSOR_MODE other = Cur_flag == CURSOR_A ? CURSOR_B : CURSOR_A;
    for (const CURSOR_MODE cursor : { other, Cur_flag_true }) {
        Cur_flag = cursor;
        moveCursor(cursorPosition(cursor));
    }
    seriesLayer->raise(cursorSeries());
}

int MainWindow::cursorPosition(int which) const
{
    if (which == CURSOR_A)
        return cursor_A_pos;
    return which == CURSOR_B ? cursor_B_pos : 0;
}

void MainWindow::gotoCursor(int which)
{
    const calc::Range range = calc::centredOn(cursorPosition(which), viewRange());
    setPlotRange(range.min, range.max);
}

bool MainWindow::isCursor_visible(int which) const
{
    const int column = cursorPosition(which);
    return cust_axisX->min() <= column && column <= cust_axisX->max();
}

void MainWindow::setCursorDialText(const QString &text)
{
    if (Cur_flag == CURSOR_A)
        setDialText(cursor_dial, d->CURSOR_A_STR + QLatin1Char('\n') + text);
    else if (Cur_flag == CURSOR_B)
        setDialText(cursor_dial, d->CURSOR_B_STR + QLatin1Char('\n') + text);
    else
        setDialText(cursor_dial, d->DELTA_STR);
}

void MainWindow::set_cur_step_lbl()
{
    const int width = calc::truncated(cursor_step_lbl.boundingRect().width());
    const int margin = calc::truncated(cursor_step_lbl.boundingRect().height()) / 2;
    const QRectF plot = plotInScene();
    cursor_step_lbl.setPos(plot.right() - width - margin, plot.top());
}
