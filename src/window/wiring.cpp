// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/numeric.h"
#include "cont_dial.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"

#include <QAction>
#include <QButtonGroup>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>

namespace {

void connectSettings(const SettingsData *settings, MainWindow *window)
{
    QObject::connect(settings, &SettingsData::files_to_load, window,
                     &MainWindow::show_AllSelected_RFGs);
    QObject::connect(settings, &SettingsData::CSS_changed, window, &MainWindow::set_CSS);
    QObject::connect(settings, &SettingsData::translation_changed, window,
                     &MainWindow::retranslateUi);
    QObject::connect(settings, &SettingsData::window_geometry_loaded, window,
                     &MainWindow::setWindowGeometry);
    QObject::connect(settings, &SettingsData::dial_settings_changed, window,
                     &MainWindow::setDialSettings);
}

void connectLegendButton(const LegendButton *button, MainWindow *window)
{
    QObject::connect(button, &LegendButton::contextMenu_signal, window,
                     &MainWindow::rfgMenuRequested_slot);
    QObject::connect(button, &LegendButton::load_signal, window, &MainWindow::loadSingle_slot);
    QObject::connect(button, &LegendButton::clear_signal, window, &MainWindow::remove_Selected_RFG);
    QObject::connect(button, &LegendButton::reset_signal, window, &MainWindow::resetCurrent_slot);
    QObject::connect(button, &LegendButton::visible_signal, window, &MainWindow::RFG_visibleToggle);
    QObject::connect(button, &LegendButton::master_signal, window, &MainWindow::setMasterID);
}

} // namespace

// Connections are in the order of the window, top to bottom, left to right. The settings are loaded
// after all connections exist, because their signals must reach these slots.
void MainWindow::connectControls()
{
    connect(curA_action, &QAction::triggered, this, [this] { curA_button->setChecked(true); });
    connect(curB_action, &QAction::triggered, this, [this] { curB_button->setChecked(true); });
    connect(scale_wheel_action, &QAction::triggered, this, [this] { zoom_wheel_flag = true; });
    connect(cur_wheel_action, &QAction::triggered, this, [this] { zoom_wheel_flag = false; });

    connect(settings_button, &QPushButton::pressed, this, &MainWindow::openSettings);
    connect(difference_button, SIGNAL(toggled(bool)), this, SLOT(setDiff_flag(bool)));
    connect(reset_all_button, &QPushButton::clicked, this, &MainWindow::reset_slot);
    connect(smooth_button, SIGNAL(toggled(bool)), this, SLOT(setSmoothFlag(bool)));
    connect(cursor_dial, &Cont_dial::trueValueChanged, this, &MainWindow::cursorSetup_slot);
    connect(param_dial, &Cont_dial::trueValueChanged, this, &MainWindow::paramSetup_slot);

    const auto connectSelection = [this](QButtonGroup *group, void (MainWindow::*select)(int)) {
        connect(group, &QButtonGroup::idToggled, this, [this, select](int id, bool checked) {
            if (checked)
                (this->*select)(id);
        });
    };
    connectSelection(up_buttons, &MainWindow::cursorSelect_slot);
    connectSelection(rfg_buttons, &MainWindow::rfgSelect_slot);
    connectSelection(down_buttons, &MainWindow::paramSelect_slot);

    connect(legend_button, &QPushButton::pressed, this, &MainWindow::files_slot);

    // The two pairs of cursor buttons check each other. Checking a checked button emits no signal.
    connect(cur_nav_group, &QButtonGroup::idToggled, this,
            [this](int id, bool checked) { up_buttons->button(id)->setChecked(checked); });
    connect(scale_nav_group, &QButtonGroup::idPressed, this,
            [this](int id) { zoomAtCursor(master_scale + 2 * id - 1); });
    connect(scroll_nav_group, &QButtonGroup::idPressed, this, [this](int id) {
        plotScroll(calc::truncated(double{ m_pow2(master_scale) } * (2 * id - 1)));
    });

    connectSettings(settingsData, this);
    for (const LegendButton *button : selected_rfg)
        connectLegendButton(button, this);
}

void MainWindow::installEventFilters()
{
    QObject *const watched[] = { Plot_View->viewport(), Plot_Scene,   logo_lbl,   legend_button,
                                 curA_button,           curB_button,  KU_button,  V_offset_button,
                                 H_offset_button,       scale_button, param_dial, cursor_dial };
    for (QObject *object : watched)
        object->installEventFilter(this);
}

void MainWindow::openSettings()
{
    storeWindowGeometry();
    settingsMenu->interfaceUpdate();
    settingsMenu->tabs->setCurrentWidget(settingsMenu->settings_widget);
    settingsMenu->exec();
}
