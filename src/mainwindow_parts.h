// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/constants.h"
#include "base/qtcompat.h"
#include "plotview.h"

#include <QGraphicsLineItem>
#include <QGraphicsSimpleTextItem>
#include <QtCharts/QChart>
#include <QtCharts/QLineSeries>
#include <QtCharts/QSplineSeries>
#include <QtCharts/QValueAxis>

class Cont_dial;
class CurArrow;
class DateTime_lbl;
class Dictionary;
class InterfaceButton;
class LegendButton;
class ParamButton;
class SeriesLayer;
class SettingsData;
class SettingsMenu;

class QAction;
class QButtonGroup;
class QGraphicsScene;
class QGroupBox;
class QInputDialog;
class QLabel;
class QMenu;
class QMessageBox;
class QProgressBar;
class QPushButton;
class QSpacerItem;

/// Objects that live as long as the window. Qt's parents own them, except for the two markers and
/// the spacers, which the window deletes.
struct MainWindowParts
{
    // ---- Collaborators ----
    Dictionary *d = nullptr;
    SettingsData *settingsData = nullptr;
    SettingsMenu *settingsMenu = nullptr;

    // ---- Controls ----
    QLabel *logo_lbl = nullptr;
    QButtonGroup *up_buttons = nullptr;
    InterfaceButton *curA_button = nullptr;
    InterfaceButton *curB_button = nullptr;
    QLabel *delta_lbl = nullptr;

    QButtonGroup *down_buttons = nullptr;
    ParamButton *gain_button = nullptr;
    ParamButton *KU_button = nullptr;
    ParamButton *average_button = nullptr;
    ParamButton *V_offset_button = nullptr;
    ParamButton *pulse_width_button = nullptr;
    ParamButton *pulse_amplitude_button = nullptr;
    ParamButton *impedance_button = nullptr;
    ParamButton *H_offset_button = nullptr;
    ParamButton *scale_button = nullptr;
    ParamButton *reserve_button = nullptr;

    QButtonGroup *rfg_buttons = nullptr;
    LegendButton *selected_rfg[constants::slotCount] = {};

    QPushButton *smooth_button = nullptr;
    QPushButton *reset_all_button = nullptr;
    QPushButton *legend_button = nullptr;
    QPushButton *settings_button = nullptr;
    QPushButton *difference_button = nullptr;

    QButtonGroup *scale_nav_group = nullptr;
    QPushButton *scale_up_button = nullptr;
    QPushButton *scale_down_button = nullptr;
    QButtonGroup *scroll_nav_group = nullptr;
    QPushButton *scroll_left_button = nullptr;
    QPushButton *scroll_right_button = nullptr;
    QButtonGroup *cur_nav_group = nullptr;
    QPushButton *curA_nav_button = nullptr;
    QPushButton *curB_nav_button = nullptr;

    QProgressBar *bat_bar = nullptr; ///< in no layout; hidden
    DateTime_lbl *date_bar = nullptr;

    // ---- Layout ----
    QSpacerItem *blank_1 = nullptr; ///< in no layout, so the window deletes the three spacers
    QSpacerItem *blank_2 = nullptr;
    QSpacerItem *blank_3 = nullptr;
    QGroupBox *legend_group = nullptr; ///< in no layout; hidden
    QGroupBox *misc_group = nullptr; ///< in no layout; hidden

    Cont_dial *param_dial = nullptr;
    Cont_dial *cursor_dial = nullptr;

    QMenu *chartMenu = nullptr;
    QAction *curA_action = nullptr;
    QAction *curB_action = nullptr;
    QAction *cur_wheel_action = nullptr;
    QAction *scale_wheel_action = nullptr;

    QInputDialog *input_dialog = nullptr;
    QMessageBox *info_dialog = nullptr;

    // ---- Chart ----
    PlotView *Plot_View = nullptr;
    QGraphicsScene *Plot_Scene = nullptr;
    QtCharts::QChart *Plot_Chart = nullptr;
    SeriesLayer *seriesLayer = nullptr; ///< child item of the chart, paints its series
    QtCharts::QLineSeries *rfg_series[constants::slotCount] = {};
    QtCharts::QSplineSeries *rfg_series_sp[constants::slotCount] = {};
    QtCharts::QLineSeries *cursor_A = nullptr;
    QtCharts::QLineSeries *cursor_B = nullptr;
    QtCharts::QLineSeries *cursor_A_add = nullptr;
    QtCharts::QLineSeries *cursor_B_add = nullptr;
    QtCharts::QLineSeries *axisX = nullptr; ///< line at level 0; always the chart's first series
    QtCharts::QValueAxis *cust_axisX = nullptr; ///< counts
    QtCharts::QValueAxis *cust_axisY = nullptr; ///< sample steps

    // ---- Grid and texts of the chart ----
    QGraphicsSimpleTextItem axis_lbl[constants::gridLines];
    QGraphicsLineItem axis_lines[constants::gridLines];
    QGraphicsSimpleTextItem axis_0_lbl[constants::gridEdges];
    QGraphicsLineItem axis_0_lines[constants::gridEdges];
    QGraphicsSimpleTextItem chart_title;
    QGraphicsSimpleTextItem cursor_step_lbl;
    CurArrow *cur_arrowA = nullptr;
    CurArrow *cur_arrowB = nullptr;
};
