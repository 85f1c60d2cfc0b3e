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

namespace {

void createCursorRow(MainWindowParts &parts, QWidget *window, QWidget *area)
{
    parts.logo_lbl = new QLabel(area);
    parts.up_buttons = new QButtonGroup(window);
    parts.curA_button = new InterfaceButton(parts.d);
    parts.curB_button = new InterfaceButton(parts.d);
    parts.delta_lbl = new QLabel(area);
}

void createParameterRow(MainWindowParts &parts, QWidget *window)
{
    parts.down_buttons = new QButtonGroup(window);
    parts.gain_button = new ParamButton(parts.d, MainWindow::GAIN);
    parts.KU_button = new ParamButton(parts.d, MainWindow::KU);
    parts.average_button = new ParamButton(parts.d, MainWindow::AVERAGE);
    parts.V_offset_button = new ParamButton(parts.d, MainWindow::V_OFFSET);
    parts.pulse_width_button = new ParamButton(parts.d, MainWindow::PULSE_WIDTH);
    parts.pulse_amplitude_button = new ParamButton(parts.d, MainWindow::PULSE_AMPLITUDE);
    parts.impedance_button = new ParamButton(parts.d, MainWindow::IMPEDANCE);
    parts.H_offset_button = new ParamButton(parts.d, MainWindow::H_OFFSET);
    parts.scale_button = new ParamButton(parts.d, MainWindow::SCALE);
    parts.reserve_button = new ParamButton(parts.d, MainWindow::SCALE + 1);
}

void createTraceAndMiscButtons(MainWindowParts &parts, QWidget *window, QWidget *area)
{
    parts.rfg_buttons = new QButtonGroup(window);
    parts.smooth_button = new QPushButton(area);
    parts.reset_all_button = new QPushButton(area);
    parts.legend_button = new QPushButton(area);
    parts.settings_button = new PictureButton(area);
    parts.difference_button = new PictureButton(area);
}

void createNavigation(MainWindowParts &parts, QWidget *window, QWidget *area)
{
    parts.scale_nav_group = new QButtonGroup(window);
    parts.scale_up_button = new QPushButton(area);
    parts.scale_down_button = new QPushButton(area);
    parts.scroll_nav_group = new QButtonGroup(window);
    parts.scroll_left_button = new QPushButton(area);
    parts.scroll_right_button = new QPushButton(area);
    parts.cur_nav_group = new QButtonGroup(window);
    parts.curA_nav_button = new QPushButton(area);
    parts.curB_nav_button = new QPushButton(area);
}

void createStatusAndBoxes(MainWindowParts &parts, QWidget *area)
{
    parts.bat_bar = new QProgressBar(area);
    parts.date_bar = new DateTime_lbl(area);
    parts.blank_1 = new QSpacerItem(0, 0);
    parts.blank_2 = new QSpacerItem(0, 0);
    parts.blank_3 = new QSpacerItem(0, 0);
    parts.legend_group = new QGroupBox(area);
    parts.misc_group = new QGroupBox(area);
    // They are in no layout; shown, they would lie in the corner of the window.
    parts.bat_bar->hide();
    parts.legend_group->hide();
    parts.misc_group->hide();
}

void createDialsAndDialogs(MainWindowParts &parts, QWidget *window, QWidget *area)
{
    parts.param_dial = new Cont_dial(area);
    parts.cursor_dial = new Cont_dial(area);
    parts.chartMenu = new QMenu(window);
    parts.curA_action = new QAction(parts.chartMenu);
    parts.curB_action = new QAction(parts.chartMenu);
    parts.cur_wheel_action = new QAction(parts.chartMenu);
    parts.scale_wheel_action = new QAction(parts.chartMenu);
    parts.input_dialog = new QInputDialog(window);
    // Numbers with a point and Latin digits, as everywhere in the window.
    parts.input_dialog->setLocale(QLocale::c());
    parts.info_dialog = new QMessageBox(window);
}

void createChartObjects(MainWindowParts &parts, QWidget *window, QWidget *area)
{
    parts.Plot_View = new PlotView(area);
    parts.Plot_Scene = new PlotScene(window);
    parts.Plot_Chart = new QChart;
    parts.cursor_A = new QLineSeries(window);
    parts.cursor_B = new QLineSeries(window);
    parts.cursor_A_add = new QLineSeries(window);
    parts.cursor_B_add = new QLineSeries(window);
    parts.axisX = new QLineSeries(window);
    parts.cur_arrowA = new CurArrow(MainWindow::CURSOR_A);
    parts.cur_arrowB = new CurArrow(MainWindow::CURSOR_B);
}

} // namespace

void MainWindow::createControls()
{
    centralWidget = new QWidget(this);
    createCursorRow(*this, this, centralWidget);
    createParameterRow(*this, this);
    createTraceAndMiscButtons(*this, this, centralWidget);
    createNavigation(*this, this, centralWidget);
    createStatusAndBoxes(*this, centralWidget);
    createDialsAndDialogs(*this, this, centralWidget);
    createChartObjects(*this, this, centralWidget);
    for (int slot = 0; slot < constants::slotCount; ++slot)
        selected_rfg[slot] = new LegendButton(d, static_cast<char>(slot));
}
