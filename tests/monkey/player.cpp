// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "player.h"

#include "cont_dial.h"
#ifdef VELKOR_EXTRAS
#include "extras/extras.h"
#endif
#include "hand.h"
#include "inputevents.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "shares.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGraphicsView>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>
#include <QtTest>

namespace {

constexpr Qt::MouseButton mouseButtons[]
    = { Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::MiddleButton, Qt::RightButton };

const Qt::MouseButtons heldButtons[] = { Qt::NoButton,
                                         Qt::LeftButton,
                                         Qt::LeftButton,
                                         Qt::MiddleButton,
                                         Qt::RightButton,
                                         Qt::LeftButton | Qt::MiddleButton,
                                         Qt::LeftButton | Qt::RightButton };

/// Eighths of a degree: notches, fine wheels, a wheel that does not turn, and a nervous one.
constexpr int turns[] = { 120, -120, 120, -120, 15, -15, 0, 360, -360, 1 };

} // namespace

struct Player::Act
{
    void (Player::*play)(const Event &event);
};

// In the order of the kinds.
const Player::Act Player::acts[Event::KindCount] = {
    { &Player::press },       { &Player::move },          { &Player::release },
    { &Player::drag },        { &Player::click },         { &Player::doubleClick },
    { &Player::wheelOnPlot }, { &Player::wheelAnywhere }, { &Player::turnDial },
    { &Player::dialKey },     { &Player::key },           { &Player::focus },
    { &Player::button },      { &Player::chartMenu },     { &Player::slotMenu },
    { &Player::slotAction },  { &Player::entry },         { &Player::files },
    { &Player::settings },    { &Player::resize },        { &Player::windowState },
    { &Player::drop },        { &Player::language },      { &Player::style },
    { &Player::pointer },     { &Player::settle },        { &Player::reopen },
};

Player::Player()
{
    makeTraces();
    makeSettings();
    open();
}

void Player::open()
{
    MainWindow &window = m_fixture.open();
#ifdef VELKOR_EXTRAS
    extras::attach(window);
#else
    Q_UNUSED(window)
#endif
}

const WindowFixture &Player::fixture() const
{
    return m_fixture;
}

void Player::play(const Event &event)
{
    const Popups popups(m_choices, event.answer);
    (this->*acts[event.kind].play)(event);
}

void Player::comeToRest()
{
    const MainWindowProbe &probe = m_fixture.probe();
    const Popups popups(m_choices, 0);
    for (int slot = 0; slot < constants::slotCount; ++slot)
        probe.selected_rfg()[slot]->clear_action->trigger();
    if (probe.smooth_button()->isChecked())
        hand::click(probe.smooth_button());
    hand::click(probe.reset_all_button());
    SettingsData &settings = *probe.settingsData();
    settings.current_language = constants::defaultLanguage;
    settings.setTranslation();
    m_fixture.window().showNormal();
    m_fixture.window().resize(800, 500);
    WindowFixture::settle();
}

QWidget *Player::plot() const
{
    return m_fixture.probe().Plot_View()->viewport();
}

QPoint Player::onPlot(int x, int y) const
{
    // A tenth beyond the edges on all sides: a held pointer leaves the view.
    const QSize size = plot()->size();
    const auto beyond = [](int number) { return number * 12 / 10 - thousand / 10; };
    return { share(beyond(x), size.width()), share(beyond(y), size.height()) };
}

QPoint Player::inWindow(int x, int y) const
{
    const QSize size = m_fixture.window().size();
    return { share(x, size.width()), share(y, size.height()) };
}

QWidget *Player::widgetAt(QPoint position) const
{
    QWidget *widget = m_fixture.window().childAt(position);
    return widget == nullptr ? &m_fixture.window() : widget;
}

QDial *Player::dial(int which) const
{
    const MainWindowProbe &probe = m_fixture.probe();
    return which % 2 == 0 ? probe.cursor_dial() : probe.param_dial();
}

QList<QAbstractButton *> Player::openButtons() const
{
    // Those that open a dialog have events of their own, and take as long as twenty others.
    const auto opensDialog = [this](const QAbstractButton *button) {
        return button == m_fixture.probe().legend_button()
            || button == m_fixture.probe().settings_button();
    };
    QList<QAbstractButton *> open;
    const auto buttons = m_fixture.probe().centralWidget()->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons)
        if (button->isVisible() && button->isEnabled() && !opensDialog(button))
            open.append(button);
    return open;
}

void Player::press(const Event &event)
{
    const Qt::MouseButton button = pick(mouseButtons, number(event, 2));
    const Qt::MouseButtons held = pick(heldButtons, number(event, 3));
    input::mouse(plot(), QEvent::MouseButtonPress, onPlot(number(event, 0), number(event, 1)),
                 button, held | button);
}

void Player::move(const Event &event)
{
    input::move(plot(), onPlot(number(event, 0), number(event, 1)),
                pick(heldButtons, number(event, 2)));
}

void Player::release(const Event &event)
{
    input::release(plot(), onPlot(number(event, 0), number(event, 1)),
                   pick(mouseButtons, number(event, 2)));
}

void Player::drag(const Event &event)
{
    // The right button brings a menu up, which ends the drag before it begins.
    const Qt::MouseButton button = event.answer % 3 == 0 ? Qt::MiddleButton : Qt::LeftButton;
    hand::drag(plot(), onPlot(number(event, 0), number(event, 1)),
               onPlot(number(event, 2), number(event, 3)), button,
               static_cast<int>(1 + event.answer % 4));
}

void Player::click(const Event &event)
{
    const QPoint position = inWindow(number(event, 0), number(event, 1));
    QWidget *widget = widgetAt(position);
    const QPoint inside = widget->mapFrom(&m_fixture.window(), position);
    const Qt::MouseButton button = pick(mouseButtons, number(event, 2));
    hand::press(widget, inside, button);
    hand::release(widget, inside, button);
}

void Player::doubleClick(const Event &event)
{
    const QPoint position = inWindow(number(event, 0), number(event, 1));
    QWidget *widget = widgetAt(position);
    const QPoint inside = widget->mapFrom(&m_fixture.window(), position);
    hand::press(widget, inside);
    hand::release(widget, inside);
    input::mouse(widget, QEvent::MouseButtonDblClick, inside, Qt::LeftButton, Qt::LeftButton);
    hand::release(widget, inside);
}

void Player::wheelOnPlot(const Event &event)
{
    input::wheel(plot(), pick(turns, number(event, 2)));
}

void Player::wheelAnywhere(const Event &event)
{
    input::wheel(widgetAt(inWindow(number(event, 0), number(event, 1))),
                 pick(turns, number(event, 2)));
}

void Player::turnDial(const Event &event)
{
    const int start = share(number(event, 1), 360);
    hand::turnDial(dial(number(event, 0)), start, number(event, 2) - thousand / 2,
                   1 + number(event, 3) % 5);
}

void Player::button(const Event &event)
{
    const auto open = openButtons();
    if (!open.isEmpty())
        hand::click(pick(open, number(event, 0)));
}

void Player::chartMenu(const Event &event)
{
    const QPoint position = onPlot(number(event, 0), number(event, 1));
    input::press(plot(), position, Qt::RightButton);
    input::release(plot(), position, Qt::RightButton);
}

void Player::slotMenu(const Event &event)
{
    LegendButton *button = pick(m_fixture.probe().selected_rfg(), number(event, 0));
    const QPoint middle = button->rect().center();
    QContextMenuEvent wish(QContextMenuEvent::Mouse, middle, button->mapToGlobal(middle));
    QApplication::sendEvent(button, &wish);
}

void Player::slotAction(const Event &event)
{
    const LegendButton &button = *pick(m_fixture.probe().selected_rfg(), number(event, 0));
    // Loading comes seldom: its dialog takes as long as all the others together.
    QAction *const actions[]
        = { button.reset_action,   button.visible_action, button.visible_action,
            button.master_action,  button.master_action,  button.clear_action,
            button.visible_action, button.reset_action,   button.load_action };
    // The menu does not let a disabled one be chosen.
    QAction *action = pick(actions, number(event, 1));
    if (action->isEnabled())
        action->trigger();
}

void Player::entry(const Event &event)
{
    const MainWindowProbe &probe = m_fixture.probe();
    QWidget *const buttons[]
        = { probe.KU_button(),    probe.V_offset_button(), probe.H_offset_button(),
            probe.scale_button(), probe.curA_button(),     probe.curB_button() };
    hand::click(pick(buttons, number(event, 0)), Qt::RightButton);
}

void Player::files(const Event &)
{
    hand::click(m_fixture.probe().legend_button());
}

void Player::settings(const Event &)
{
    hand::click(m_fixture.probe().settings_button());
}

void Player::resize(const Event &event)
{
    m_fixture.window().resize(600 + number(event, 0), 400 + number(event, 1));
}

void Player::windowState(const Event &event)
{
    MainWindow &window = m_fixture.window();
    void (QWidget::*const states[])()
        = { &QWidget::showNormal, &QWidget::showNormal, &QWidget::showMaximized,
            &QWidget::showMinimized, &QWidget::showFullScreen };
    (window.*pick(states, number(event, 0)))();
    WindowFixture::settle();
    // Nobody turns a dial in a window that is not there.
    if (window.isMinimized())
        window.showNormal();
}

void Player::drop(const Event &event)
{
    QMimeData data;
    QList<QUrl> urls;
    for (int i = number(event, 3) / 4 % 8; i >= 0; --i)
        urls.append(QUrl::fromLocalFile(pick(m_choices.traces, number(event, 2) + i)));
    data.setUrls(urls);
    const QPoint position = inWindow(number(event, 0), number(event, 1));
    QWidget *widget = widgetAt(position);
    const QPoint inside = widget->mapFrom(&m_fixture.window(), position);
    QDragEnterEvent enter(inside, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    QDragMoveEvent over(inside, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &over);
    if (number(event, 3) % 4 == 0) {
        QDragLeaveEvent away;
        QApplication::sendEvent(widget, &away);
        return;
    }
    QDropEvent let(inside, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &let);
}

void Player::language(const Event &event)
{
    const QString codes[] = { QStringLiteral("en_US"), QStringLiteral("ru_RU"),
                              QStringLiteral("ru_RU"), QStringLiteral("xx"), QString() };
    SettingsData &settings = *m_fixture.probe().settingsData();
    settings.current_language = pick(codes, number(event, 0));
    settings.setTranslation();
}

void Player::style(const Event &event)
{
    m_fixture.window().CSS_watcher_slot(pick(m_sheets, number(event, 0)));
}

void Player::pointer(const Event &event)
{
    const QPoint position = inWindow(number(event, 0), number(event, 1));
    QWidget *widget = widgetAt(position);
    const QPointF inside = widget->mapFrom(&m_fixture.window(), position);
    QEnterEvent enter(inside, position, widget->mapToGlobal(inside.toPoint()));
    QApplication::sendEvent(widget, &enter);
    input::move(widget, inside.toPoint(), Qt::NoButton);
    if (number(event, 2) % 2 == 0) {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(widget, &leave);
    }
}

void Player::settle(const Event &)
{
    WindowFixture::settle();
}

void Player::reopen(const Event &)
{
    open();
}
