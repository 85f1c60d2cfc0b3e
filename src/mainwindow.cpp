// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "base/program_files.h"
#include "base/window_geometry.h"
#include "cont_dial.h"
#include "curarrow.h"
#include "dictionary.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QDebug>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QInputDialog>
#include <QScreen>
#include <QSpacerItem>

namespace {

void primeInputDialog(QInputDialog &dialog)
{
    // Opened and rejected once per mode, so that the layout is settled before the first use.
    for (const auto mode :
         { QInputDialog::DoubleInput, QInputDialog::IntInput, QInputDialog::TextInput }) {
        if (mode == QInputDialog::TextInput)
            dialog.setComboBoxItems({});
        dialog.setInputMode(mode);
        dialog.setAttribute(Qt::WA_DontShowOnScreen);
        dialog.open();
        dialog.reject();
        dialog.setAttribute(Qt::WA_DontShowOnScreen, false);
    }
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
{
    d = new Dictionary(this);
    settingsData = new SettingsData(this);
    settingsMenu = new SettingsMenu(d, settingsData, this);

    createControls();
    setWindowSizes();

    buildLayouts();
    buildChart();
    fillButtonGroups();
    setUpDials();
    buildChartMenu();

    connectControls();
    decorateControls();
    // All members exist from here on, so the event filter and the slots may run.
    installEventFilters();

    interface_init();
    watchStyleSheet();
}

MainWindow::~MainWindow()
{
    // Before the scene: it would delete the groups of the markers and their items, which are
    // members.
    delete cur_arrowA;
    delete cur_arrowB;
    delete blank_1;
    delete blank_2;
    delete blank_3;
}

SettingsData *MainWindow::settings() const
{
    return settingsData;
}

const MainWindowParts &MainWindow::parts() const
{
    return *this;
}

const MainWindowState &MainWindow::state() const
{
    return *this;
}

void MainWindow::reportSizes() const
{
    qDebug() << "window" << size() << "central widget" << centralWidget->size();
    qDebug() << "plot view" << Plot_View->size() << "chart" << Plot_Chart->size();
}

void MainWindow::interface_init()
{
    settingsData->parse_translations();
    // The slots are named before the language is set, and their names contain this word.
    d->RFG_STR = tr("RFG");
    axisCreate();
    primeInputDialog(*input_dialog);

    settingsData->loadSettings(program_files::settingsFileToRead(), constants::allSections);
    settingsData->updateSettings(constants::allSections);
    if (rfg_read_index == 0) {
        KU_change(double{ constants::startKU });
        scale_change(0);
    }

    H_offset_button->setChecked(true);
    selectTrace(rfg_ID);
    up_buttons->button(CURSOR_A)->setChecked(true);

    // The other parameters are read-only.
    const auto parameterButtons = down_buttons->buttons();
    for (QAbstractButton *button : parameterButtons) {
        const int id = down_buttons->id(button);
        button->setEnabled(id == KU || id == V_OFFSET || id == H_OFFSET || id == SCALE);
    }
}

void MainWindow::setWindowGeometry()
{
    const QRect desktop = QGuiApplication::primaryScreen()->virtualGeometry();
    // A corrupt geometry record can make the window so large that memory runs out at every start.
    if (window_geometry::isPlausibleGeometry(settingsData->window_geometry, desktop.size()))
        restoreGeometry(settingsData->window_geometry);
    // A corrupt state record can make restoreState loop over 2^31 tool bars.
    if (window_geometry::isPlausibleState(settingsData->window_state))
        restoreState(settingsData->window_state);
}

void MainWindow::setDialSettings()
{
    cursor_dial->setAccuracy(settingsData->cursor_dial_speed);
    if (checkedParameter() != SCALE)
        param_dial->setAccuracy(settingsData->param_dial_speed);
}

void MainWindow::storeWindowGeometry()
{
    settingsData->window_geometry = saveGeometry();
    settingsData->window_state = saveState(0);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    storeWindowGeometry();
    program_files::backUpSettings();
    settingsData->saveSettings(program_files::settingsFile(), constants::allSections);
    QMainWindow::closeEvent(event);
}
