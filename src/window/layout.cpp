// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "base/bundled_picture.h"
#include "base/sharedbevels.h"
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QButtonGroup>
#include <QFrame>
#include <QGraphicsView>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Stretch factors of the regions of the window.
constexpr int sideShare = 14;
constexpr int middleShare = 52;
constexpr int cursorButtonShare = 13;
constexpr int deltaShare = 26;
constexpr int topRowShare = 5;
constexpr int middleRowShare = 33;
constexpr int bottomRowShare = 12;
constexpr int buttonShare = 3;
constexpr int lineShare = 1;
constexpr int navigationShare = 9;

constexpr int minNavigationWidth = 20;
constexpr int minNavigationHeight = 10;
constexpr int scrollRepeatMs = 10;
constexpr int minMenuSize = 100;

constexpr int minWindowWidth = 800;
constexpr int minWindowHeight = 500;
constexpr int minPlotViewWidth = 500;
constexpr int minPlotViewHeight = 310;
constexpr int logoWidth = 140;
constexpr int logoHeight = 50;
constexpr int navigationIconSize = 30;
constexpr QLatin1String windowPicture = constants::latin1("://icons/tdr_btr_64.png");
constexpr QLatin1String logoPicture = constants::latin1("://pix/logo.png");

QFrame *sunkenLine()
{
    auto *line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

/// Icon with one picture for all states.
QIcon plainIcon(QLatin1String name)
{
    return QIcon(bundledPicture(QLatin1String("://icons/rest_64/") + name));
}

/// Sets the icon of a navigation button, with a second picture for the disabled state.
void setNavigationIcon(QPushButton *button, const QString &name)
{
    QIcon icon;
    icon.addPixmap(bundledPicture(QStringLiteral("://icons/%1.png").arg(name)), QIcon::Normal);
    icon.addPixmap(bundledPicture(QStringLiteral("://icons/%1_dis.png").arg(name)),
                   QIcon::Disabled);
    button->setIcon(icon);
    button->setIconSize({ navigationIconSize, navigationIconSize });
}

QLayout *topRow(const MainWindowParts &parts)
{
    parts.logo_lbl->setAlignment(Qt::AlignCenter);
    parts.delta_lbl->setAlignment(Qt::AlignCenter);
    auto *clock = new QVBoxLayout;
    clock->addWidget(parts.date_bar);

    auto *row = new QHBoxLayout;
    row->addWidget(parts.logo_lbl, sideShare);
    row->addWidget(parts.curA_button, cursorButtonShare);
    row->addWidget(parts.delta_lbl, deltaShare);
    row->addWidget(parts.curB_button, cursorButtonShare);
    row->addLayout(clock, sideShare);
    return row;
}

QLayout *leftColumn(const MainWindowParts &parts)
{
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(parts.legend_button, buttonShare);
    column->addWidget(sunkenLine(), lineShare, Qt::AlignVCenter);
    for (LegendButton *button : parts.selected_rfg) {
        column->addWidget(button, buttonShare);
        column->addWidget(sunkenLine(), 0);
    }
    return column;
}

QGridLayout *navigationGrid(const MainWindowParts &parts)
{
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    grid->addWidget(parts.scale_up_button, 0, 0);
    grid->addWidget(parts.scale_down_button, 0, 1);
    grid->addWidget(parts.scroll_left_button, 1, 0);
    grid->addWidget(parts.scroll_right_button, 1, 1);
    grid->addWidget(parts.curA_nav_button, 2, 0);
    grid->addWidget(parts.curB_nav_button, 2, 1);
    return grid;
}

QGridLayout *parameterGrid(const MainWindowParts &parts)
{
    ParamButton *const rows[2][5] = {
        { parts.H_offset_button, parts.KU_button, parts.pulse_width_button, parts.impedance_button,
          parts.average_button },
        { parts.V_offset_button, parts.scale_button, parts.pulse_amplitude_button,
          parts.gain_button, parts.reserve_button },
    };
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 5; ++column)
            grid->addWidget(rows[row][column], row, column);
    for (int column = 0; column < 5; ++column)
        grid->setColumnStretch(column, 1);
    return grid;
}

QLayout *rightColumn(const MainWindowParts &parts)
{
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(parts.settings_button, buttonShare);
    column->addWidget(sunkenLine(), lineShare);
    column->addWidget(parts.difference_button, buttonShare);
    column->addWidget(parts.smooth_button, buttonShare);
    column->addWidget(parts.reset_all_button, buttonShare);
    column->addWidget(sunkenLine(), lineShare);
    column->addLayout(navigationGrid(parts), navigationShare);
    return column;
}

void setUpPlotView(const MainWindowParts &parts)
{
    parts.Plot_View->setScene(parts.Plot_Scene);
    parts.Plot_View->setDragMode(QGraphicsView::NoDrag);
    parts.Plot_View->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    parts.Plot_View->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    parts.Plot_View->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    parts.Plot_View->setRenderHint(QPainter::Antialiasing);
    // Offset by half a pixel, so that view and scene coordinates are equal.
    const QRectF sceneRect(-0.5, -0.5, 400.0, 250.0);
    parts.Plot_Scene->setSceneRect(sceneRect);
    parts.Plot_View->setSceneRect(sceneRect);
    // The scene paints the whole viewport, so the window does not paint under it.
    parts.Plot_View->viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    // Most of the 70 items change together; updating an index takes a tenth of a selection's time.
    parts.Plot_Scene->setItemIndexMethod(QGraphicsScene::NoIndex);
}

void setNamesAndPolicies(const MainWindowParts &parts)
{
    // Style sheets select these three by name. "ScaleDown" lowers the zoom exponent, which
    // magnifies; therefore it has the picture for zooming in.
    parts.delta_lbl->setObjectName(QStringLiteral("delta"));
    parts.scale_up_button->setObjectName(QStringLiteral("ScaleUp"));
    parts.scale_down_button->setObjectName(QStringLiteral("ScaleDown"));

    QWidget *const preferred[]
        = { parts.curA_button,       parts.curB_button,        parts.smooth_button,
            parts.reset_all_button,  parts.legend_button,      parts.settings_button,
            parts.difference_button, parts.scale_up_button,    parts.scale_down_button,
            parts.curA_nav_button,   parts.scroll_left_button, parts.scroll_right_button,
            parts.curB_nav_button };
    for (QWidget *button : preferred)
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    QWidget *const navigation[]
        = { parts.scale_up_button,     parts.scale_down_button, parts.scroll_left_button,
            parts.scroll_right_button, parts.curA_nav_button,   parts.curB_nav_button };
    for (QWidget *button : navigation)
        button->setMinimumSize(minNavigationWidth, minNavigationHeight);
}

void setIcons(const MainWindowParts &parts)
{
    // The size is in device-independent pixels.
    const qreal ratio = qApp->devicePixelRatio();
    QPixmap logo = bundledPicture(logoPicture)
                       .scaled(QSize(logoWidth, logoHeight) * ratio, Qt::KeepAspectRatio,
                               Qt::FastTransformation);
    logo.setDevicePixelRatio(ratio);
    parts.logo_lbl->setPixmap(logo);

    // The bundle spells two picture names "impendance" and "diifference".
    const std::pair<InterfaceButton *, const char *> pictures[] = {
        { parts.gain_button, "gain" },
        { parts.KU_button, "velocity" },
        { parts.average_button, "average" },
        { parts.V_offset_button, "Y" },
        { parts.H_offset_button, "X" },
        { parts.scale_button, "scale" },
        { parts.pulse_width_button, "pulse_width" },
        { parts.pulse_amplitude_button, "amplitude" },
        { parts.impedance_button, "impendance" },
        { parts.curA_button, "cursorA" },
        { parts.curB_button, "cursorB" },
    };
    for (const auto &picture : pictures)
        picture.first->set_icon(QLatin1String("://icons/rest_64/") + QLatin1String(picture.second));

    parts.difference_button->setIcon(plainIcon(QLatin1String("diifference")));
    parts.settings_button->setIcon(plainIcon(QLatin1String("setting")));
    setNavigationIcon(parts.scale_down_button, QStringLiteral("zoom_in"));
    setNavigationIcon(parts.scale_up_button, QStringLiteral("zoom_out"));
    setNavigationIcon(parts.scroll_left_button, QStringLiteral("arrow_left"));
    setNavigationIcon(parts.scroll_right_button, QStringLiteral("arrow_right"));
}

} // namespace

void MainWindow::setWindowSizes()
{
    setCentralWidget(centralWidget);
    centralWidget->setMinimumSize(minWindowWidth, minWindowHeight);
    Plot_View->setMinimumSize(minPlotViewWidth, minPlotViewHeight);
    resize(minWindowWidth, minWindowHeight);
    chartMenu->setMinimumSize(minMenuSize, minMenuSize);
}

void MainWindow::buildLayouts()
{
    auto *middle = new QHBoxLayout;
    middle->addLayout(leftColumn(*this), sideShare);
    middle->addWidget(Plot_View, middleShare);
    middle->addLayout(rightColumn(*this), sideShare);

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(param_dial, sideShare);
    bottom->addLayout(parameterGrid(*this), middleShare);
    bottom->addWidget(cursor_dial, sideShare);

    auto *window = new QVBoxLayout(centralWidget);
    window->addLayout(topRow(*this), topRowShare);
    window->addLayout(middle, middleRowShare);
    window->addLayout(bottom, bottomRowShare);
    setUpPlotView(*this);
}

void MainWindow::fillButtonGroups()
{
    up_buttons->addButton(curA_button, CURSOR_A);
    up_buttons->addButton(curB_button, CURSOR_B);
    curA_button->setCheckable(true);
    curB_button->setCheckable(true);

    ParamButton *const parameters[]
        = { gain_button,      KU_button,          average_button,
            V_offset_button,  pulse_width_button, pulse_amplitude_button,
            impedance_button, H_offset_button,    scale_button,
            reserve_button };
    for (ParamButton *button : parameters)
        down_buttons->addButton(button, button->id);

    for (int slot = 0; slot < constants::slotCount; ++slot)
        rfg_buttons->addButton(selected_rfg[slot], slot);

    scale_nav_group->setExclusive(false);
    scale_nav_group->addButton(scale_down_button, 0);
    scale_nav_group->addButton(scale_up_button, 1);
    scroll_nav_group->setExclusive(false);
    scroll_nav_group->addButton(scroll_left_button, 0);
    scroll_nav_group->addButton(scroll_right_button, 1);
    cur_nav_group->addButton(curA_nav_button, CURSOR_A);
    cur_nav_group->addButton(curB_nav_button, CURSOR_B);
    curA_nav_button->setCheckable(true);
    curB_nav_button->setCheckable(true);

    smooth_button->setCheckable(true);
    difference_button->setCheckable(true);
    for (QPushButton *button : { scroll_left_button, scroll_right_button }) {
        button->setAutoRepeat(true);
        button->setAutoRepeatInterval(scrollRepeatMs);
    }
    scroll_left_button->setEnabled(false);
}

void MainWindow::setUpDials()
{
    param_dial->zeroOff = true;
    param_dial->trueMin = 0;
    param_dial->trueMax = 100;
    param_dial->setAccuracy(constants::dialSpeed);
    cursor_dial->zeroOff = true;
    cursor_dial->trueMin = 0;
    cursor_dial->trueMax = x_length;
    cursor_dial->setAccuracy(constants::dialSpeed);
}

void MainWindow::buildChartMenu()
{
    chartMenu->addAction(curA_action);
    chartMenu->addAction(curB_action);
    chartMenu->addSeparator();
    chartMenu->addAction(cur_wheel_action);
    chartMenu->addAction(scale_wheel_action);
    for (QAction *action : { curA_action, curB_action, cur_wheel_action, scale_wheel_action })
        action->setCheckable(true);

    auto *cursors = new QActionGroup(this);
    cursors->addAction(curA_action);
    cursors->addAction(curB_action);
    auto *wheel = new QActionGroup(this);
    wheel->addAction(cur_wheel_action);
    wheel->addAction(scale_wheel_action);
    curA_action->setChecked(true);
    cur_wheel_action->setChecked(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void MainWindow::decorateControls()
{
    setWindowTitle(QStringLiteral("Velkor"));
    setWindowIcon(QIcon(windowPicture));
    setStyle(SharedBevels::instance());
    setNamesAndPolicies(*this);
    setIcons(*this);
    Plot_View->setMouseTracking(true);
    Plot_View->viewport()->setMouseTracking(true);
}
