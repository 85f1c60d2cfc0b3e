// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "cont_dial.h"
#include "curarrow.h"
#include "datetime_lbl.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "picturebutton.h"

#include <QAction>
#include <QButtonGroup>
#include <QGraphicsScene>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSpacerItem>

QT_CHARTS_USE_NAMESPACE

void MainWindow::createControls()
{
    centralWidget = new QWidget(this);
    logo_lbl = new QLabel(centralWidget);
    up_buttons = new QButtonGroup(this);
    curA_button = new InterfaceButton(d);
    curB_button = new InterfaceButton(d);
    delta_lbl = new QLabel(centralWidget);

    down_buttons = new QButtonGroup(this);
    gain_button = new ParamButton(d, GAIN);
    KU_button = new ParamButton(d, KU);
    average_button = new ParamButton(d, AVERAGE);
    V_offset_button = new ParamButton(d, V_OFFSET);
    pulse_width_button = new ParamButton(d, PULSE_WIDTH);
    pulse_amplitude_button = new ParamButton(d, PULSE_AMPLITUDE);
    impedance_button = new ParamButton(d, IMPEDANCE);
    H_offset_button = new ParamButton(d, H_OFFSET);
    scale_button = new ParamButton(d, SCALE);
    reserve_button = new ParamButton(d, SCALE + 1);

    rfg_buttons = new QButtonGroup(this);
    smooth_button = new QPushButton(centralWidget);
    reset_all_button = new QPushButton(centralWidget);
    legend_button = new QPushButton(centralWidget);
    settings_button = new PictureButton(centralWidget);
    difference_button = new PictureButton(centralWidget);

    scale_nav_group = new QButtonGroup(this);
    scale_up_button = new QPushButton(centralWidget);
    scale_down_button = new QPushButton(centralWidget);
    scroll_nav_group = new QButtonGroup(this);
    scroll_left_button = new QPushButton(centralWidget);
    scroll_right_button = new QPushButton(centralWidget);
    cur_nav_group = new QButtonGroup(this);
    curA_nav_button = new QPushButton(centralWidget);
    curB_nav_button = new QPushButton(centralWidget);

    bat_bar = new QProgressBar(centralWidget);
    date_bar = new DateTime_lbl(centralWidget);
    blank_1 = new QSpacerItem(0, 0);
    blank_2 = new QSpacerItem(0, 0);
    blank_3 = new QSpacerItem(0, 0);
    legend_group = new QGroupBox(centralWidget);
    misc_group = new QGroupBox(centralWidget);
    // They are in no layout and would appear in the corner of the window.
    bat_bar->hide();
    legend_group->hide();
    misc_group->hide();

    createDialsAndDialogs();
    createChartObjects();
    for (int slot = 0; slot < constants::slotCount; ++slot)
        selected_rfg[slot] = new LegendButton(d, static_cast<char>(slot));
}

void MainWindow::createDialsAndDialogs()
{
    param_dial = new Cont_dial(centralWidget);
    cursor_dial = new Cont_dial(centralWidget);
    chartMenu = new QMenu(this);
    curA_action = new QAction(chartMenu);
    curB_action = new QAction(chartMenu);
    cur_wheel_action = new QAction(chartMenu);
    scale_wheel_action = new QAction(chartMenu);
    input_dialog = new QInputDialog(this);
    // Numbers with a point and Latin digits, as everywhere in the window.
    input_dialog->setLocale(QLocale::c());
    info_dialog = new QMessageBox(this);
}

void MainWindow::createChartObjects()
{
    Plot_View = new PlotView(centralWidget);
    Plot_Scene = new PlotScene(this);
    Plot_Chart = new QChart;
    cursor_A = new QLineSeries(this);
    cursor_B = new QLineSeries(this);
    cursor_A_add = new QLineSeries(this);
    cursor_B_add = new QLineSeries(this);
    axisX = new QLineSeries(this);
    cur_arrowA = new CurArrow(CURSOR_A);
    cur_arrowB = new CurArrow(CURSOR_B);
}
