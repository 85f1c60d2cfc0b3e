// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "legendbutton.h"

#include "base/constants.h"
#include "dictionary.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QStyle>

namespace {

constexpr int sideMargin = 11;
constexpr int minMenuSize = 100;
constexpr QLatin1String loadIcon = constants::latin1("://icons/rest_64/load.png");
constexpr QLatin1String resetIcon = constants::latin1("://icons/rest_64/reset.png");
constexpr QLatin1String disabledResetIcon = constants::latin1("://icons/rest_64/reset_disable.png");
constexpr QLatin1String clearIcon = constants::latin1("://icons/rest_64/clear.png");
constexpr QLatin1String visibleIcon = constants::latin1(":/icons/eye_opened.png");

/// The standard up-arrow icon. All buttons share it, because each call of standardIcon searches the
/// icon themes of the desktop and decodes pictures: six calls took 4 % of the start-up time.
QIcon arrowUp()
{
    static const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_ArrowUp);
    return icon;
}

} // namespace

LegendButton::LegendButton(Dictionary *words, char slot)
    : InterfaceButton(words)
    , id(slot)
    , load_action(new QAction)
    , reset_action(new QAction)
    , clear_action(new QAction)
    , visible_action(new QAction)
    , master_action(new QAction)
{
    setContentsMargins(sideMargin, 0, sideMargin, 0);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setObjectName(QStringLiteral("rfg_%1").arg(id + 1));
    setCheckable(true);
    setMast(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    buildMenu();
    connectActions();
}

LegendButton::~LegendButton()
{
    delete load_action;
    delete reset_action;
    delete clear_action;
    delete visible_action;
    delete master_action;
}

void LegendButton::buildMenu()
{
    contextMenu = new QMenu(this);
    setName(objectName());
    contextMenu->setMinimumSize(minMenuSize, minMenuSize);

    // Qt caches pixmaps by path, so the six menus share one copy of each picture.
    QIcon reset{ QPixmap(resetIcon) };
    reset.addPixmap(QPixmap(disabledResetIcon), QIcon::Disabled);
    load_action->setIcon(QPixmap(loadIcon));
    reset_action->setIcon(reset);
    clear_action->setIcon(QPixmap(clearIcon));
    visible_action->setCheckable(true);
    visible_action->setIcon(QPixmap(visibleIcon));
    visible_action->setIconVisibleInMenu(true);
    master_action->setIcon(arrowUp());

    contextMenu->addAction(load_action);
    contextMenu->addAction(reset_action);
    contextMenu->addAction(clear_action);
    contextMenu->addSeparator();
    contextMenu->addAction(master_action);
    contextMenu->addAction(visible_action);
}

void LegendButton::connectActions()
{
    connect(load_action, &QAction::triggered, this, [this] { emit load_signal(id); });
    connect(reset_action, &QAction::triggered, this, [this] { emit reset_signal(id); });
    connect(clear_action, &QAction::triggered, this, [this] { emit clear_signal(id); });
    connect(master_action, &QAction::triggered, this, [this] { emit master_signal(id); });
    connect(visible_action, &QAction::triggered, this, [this] {
        emit visible_signal(id, !vis());
        // The click toggled the check mark, but only the window changes the visibility.
        visible_action->setChecked(vis());
    });
    connect(this, &QWidget::customContextMenuRequested, this,
            [this] { emit contextMenu_signal(id); });
}

void LegendButton::setName(const QString &text)
{
    name = text;
    contextMenu->setTitle(name);
}

void LegendButton::retranslateUI()
{
    load_action->setText(dict->LOAD_STR);
    reset_action->setText(dict->RESET_STR);
    clear_action->setText(dict->CLEAR_STR);
    visible_action->setText(dict->VISIBLE_STR);
    master_action->setText(dict->MASTER_STR);
}

void LegendButton::menuEnable(bool on)
{
    // On a master this enables "Set as Master" again, until the next setMast.
    master_action->setEnabled(on);
    reset_action->setEnabled(on);
    clear_action->setEnabled(on);
    visible_action->setEnabled(on);
}

void LegendButton::setVis(bool on)
{
    m_visible_st = on;
    visible_action->setChecked(on);
    emit visChanged(on);
    restyle();
}

bool LegendButton::vis() const
{
    return m_visible_st;
}

void LegendButton::setMast(bool on)
{
    m_master_st = on;
    emit mastChanged(on);
    master_action->setEnabled(!on);
    restyle();
}

bool LegendButton::mast() const
{
    return m_master_st;
}

void LegendButton::restyle()
{
    // Property selectors are evaluated when a sheet is set, not when a property changes.
    setStyleSheet(styleSheet());
}
