// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/bundledpicture.h"
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "mainwindow.h"
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

// Stretch factors: the shares of the window that its regions take.
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

QFrame *sunkenLine()
{
    auto *line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

/// Icon of a control that has one picture, whatever its state.
QIcon plainIcon(QLatin1String name)
{
    return QIcon(bundledPicture(QLatin1String("://icons/rest_64/") + name));
}

/// Icon of a navigation button, with the look it has while disabled.
void setNavigationIcon(QPushButton *button, const QString &name)
{
    QIcon icon;
    icon.addPixmap(bundledPicture(QStringLiteral("://icons/%1.png").arg(name)), QIcon::Normal);
    icon.addPixmap(bundledPicture(QStringLiteral("://icons/%1_dis.png").arg(name)),
                   QIcon::Disabled);
    button->setIcon(icon);
    button->setIconSize({ constants::navigationIconSize, constants::navigationIconSize });
}

} // namespace

void MainWindow::setWindowSizes()
{
    setCentralWidget(centralWidget);
    centralWidget->setMinimumSize(constants::minWindowWidth, constants::minWindowHeight);
    Plot_View->setMinimumSize(constants::minPlotViewWidth, constants::minPlotViewHeight);
    resize(constants::minWindowWidth, constants::minWindowHeight);
    chartMenu->setMinimumSize(minMenuSize, minMenuSize);
}

void MainWindow::buildLayouts()
{
    auto *middle = new QHBoxLayout;
    middle->addLayout(leftColumn(), sideShare);
    middle->addWidget(Plot_View, middleShare);
    middle->addLayout(rightColumn(), sideShare);

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(param_dial, sideShare);
    bottom->addLayout(parameterGrid(), middleShare);
    bottom->addWidget(cursor_dial, sideShare);

    auto *window = new QVBoxLayout(centralWidget);
    window->addLayout(topRow(), topRowShare);
    window->addLayout(middle, middleRowShare);
    window->addLayout(bottom, bottomRowShare);
    setUpPlotView();
}

QLayout *MainWindow::topRow()
{
    logo_lbl->setAlignment(Qt::AlignCenter);
    delta_lbl->setAlignment(Qt::AlignCenter);
    auto *clock = new QVBoxLayout;
    clock->addWidget(date_bar);

    auto *row = new QHBoxLayout;
    row->addWidget(logo_lbl, sideShare);
    row->addWidget(curA_button, cursorButtonShare);
    row->addWidget(delta_lbl, deltaShare);
    row->addWidget(curB_button, cursorButtonShare);
    row->addLayout(clock, sideShare);
    return row;
}

QLayout *MainWindow::leftColumn()
{
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(legend_button, buttonShare);
    column->addWidget(sunkenLine(), lineShare, Qt::AlignVCenter);
    for (LegendButton *button : selected_rfg) {
        column->addWidget(button, buttonShare);
        column->addWidget(sunkenLine(), 0);
    }
    return column;
}

QLayout *MainWindow::rightColumn()
{
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(settings_button, buttonShare);
    column->addWidget(sunkenLine(), lineShare);
    column->addWidget(difference_button, buttonShare);
    column->addWidget(smooth_button, buttonShare);
    column->addWidget(reset_all_button, buttonShare);
    column->addWidget(sunkenLine(), lineShare);
    column->addLayout(navigationGrid(), navigationShare);
    return column;
}

QGridLayout *MainWindow::navigationGrid()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    grid->addWidget(scale_up_button, 0, 0);
    grid->addWidget(scale_down_button, 0, 1);
    grid->addWidget(scroll_left_button, 1, 0);
    grid->addWidget(scroll_right_button, 1, 1);
    grid->addWidget(curA_nav_button, 2, 0);
    grid->addWidget(curB_nav_button, 2, 1);
    return grid;
}

QGridLayout *MainWindow::parameterGrid()
{
    ParamButton *const rows[2][5] = {
        { H_offset_button, KU_button, pulse_width_button, impedance_button, average_button },
        { V_offset_button, scale_button, pulse_amplitude_button, gain_button, reserve_button },
    };
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 5; ++column)
            grid->addWidget(rows[row][column], row, column);
    return grid;
}

void MainWindow::setUpPlotView()
{
    Plot_View->setScene(Plot_Scene);
    Plot_View->setDragMode(QGraphicsView::NoDrag);
    Plot_View->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Plot_View->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Plot_View->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Plot_View->setRenderHint(QPainter::Antialiasing);
    // Half a pixel off, so that view and scene coordinates are the same numbers.
    const QRectF sceneRect(-0.5, -0.5, 400.0, 250.0);
    Plot_Scene->setSceneRect(sceneRect);
    Plot_View->setSceneRect(sceneRect);
    // The scene paints the whole viewport: the window need not paint anything below it.
    Plot_View->viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    // Most of the 70 items change together: updating an index takes a tenth of a selection.
    Plot_Scene->setItemIndexMethod(QGraphicsScene::NoIndex);
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
    setNamesAndPolicies();
    setIcons();
    Plot_View->setMouseTracking(true);
    Plot_View->viewport()->setMouseTracking(true);
}

void MainWindow::setNamesAndPolicies()
{
    // Style sheets address these three by name. "ScaleDown" lowers the zoom exponent, which shows
    // fewer metres and so magnifies: that is why it carries the picture for zooming in.
    delta_lbl->setObjectName(QStringLiteral("delta"));
    scale_up_button->setObjectName(QStringLiteral("ScaleUp"));
    scale_down_button->setObjectName(QStringLiteral("ScaleDown"));

    QWidget *const preferred[]
        = { curA_button,       curB_button,     smooth_button,      reset_all_button,
            legend_button,     settings_button, difference_button,  scale_up_button,
            scale_down_button, curA_nav_button, scroll_left_button, scroll_right_button,
            curB_nav_button };
    for (QWidget *button : preferred)
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    QWidget *const navigation[] = { scale_up_button,     scale_down_button, scroll_left_button,
                                    scroll_right_button, curA_nav_button,   curB_nav_button };
    for (QWidget *button : navigation)
        button->setMinimumSize(minNavigationWidth, minNavigationHeight);
}

void MainWindow::setIcons()
{
    setWindowTitle(QStringLiteral("Velkor"));
    setWindowIcon(QIcon(constants::windowIcon));
    // In the pixels that the screen has for that many units.
    const qreal ratio = qApp->devicePixelRatio();
    QPixmap logo = bundledPicture(constants::logoPicture)
                       .scaled(QSize(constants::logoWidth, constants::logoHeight) * ratio,
                               Qt::KeepAspectRatio, Qt::FastTransformation);
    logo.setDevicePixelRatio(ratio);
    logo_lbl->setPixmap(logo);

    // The bundle spells two of the pictures "impendance" and "diifference".
    const std::pair<InterfaceButton *, const char *> pictures[] = {
        { gain_button, "gain" },
        { KU_button, "velocity" },
        { average_button, "average" },
        { V_offset_button, "Y" },
        { H_offset_button, "X" },
        { scale_button, "scale" },
        { pulse_width_button, "pulse_width" },
        { pulse_amplitude_button, "amplitude" },
        { impedance_button, "impendance" },
        { curA_button, "cursorA" },
        { curB_button, "cursorB" },
    };
    for (const auto &picture : pictures)
        picture.first->set_icon(QLatin1String("://icons/rest_64/") + QLatin1String(picture.second));

    difference_button->setIcon(plainIcon(QLatin1String("diifference")));
    settings_button->setIcon(plainIcon(QLatin1String("setting")));
    setNavigationIcon(scale_down_button, QStringLiteral("zoom_in"));
    setNavigationIcon(scale_up_button, QStringLiteral("zoom_out"));
    setNavigationIcon(scroll_left_button, QStringLiteral("arrow_left"));
    setNavigationIcon(scroll_right_button, QStringLiteral("arrow_right"));
}
