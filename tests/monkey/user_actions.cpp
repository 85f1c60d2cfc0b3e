// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "input_events.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "player.h"
#include "settingsdata.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QDropEvent>
#include <QGraphicsView>
#include <QMimeData>
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

/// Eighths of a degree: whole notches, high-resolution wheels, several notches at once.
constexpr int turns[] = { 120, -120, 120, -120, 15, -15, 0, 360, -360, 1 };

constexpr Qt::Key dialKeys[] = { Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                                 Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End };

constexpr Qt::Key controlKeys[]
    = { Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Space, Qt::Key_Return,
        Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,    Qt::Key_Down,  Qt::Key_PageUp,
        Qt::Key_Home, Qt::Key_Escape,  Qt::Key_Menu,  Qt::Key_F10,   Qt::Key_A,
        Qt::Key_End,  Qt::Key_Plus,    Qt::Key_F1,    Qt::Key_F5,    Qt::Key_Delete };

/// Keys of the extras. Those listed more than once are pressed more often: they do more when
/// repeated.
constexpr Qt::Key extraKeys[]
    = { Qt::Key_A,     Qt::Key_B,      Qt::Key_C,        Qt::Key_D,           Qt::Key_E,
        Qt::Key_H,     Qt::Key_K,      Qt::Key_L,        Qt::Key_M,           Qt::Key_N,
        Qt::Key_N,     Qt::Key_O,      Qt::Key_P,        Qt::Key_S,           Qt::Key_W,
        Qt::Key_X,     Qt::Key_Y,      Qt::Key_Z,        Qt::Key_1,           Qt::Key_2,
        Qt::Key_3,     Qt::Key_4,      Qt::Key_5,        Qt::Key_6,           Qt::Key_Comma,
        Qt::Key_Comma, Qt::Key_Period, Qt::Key_Period,   Qt::Key_BracketLeft, Qt::Key_BracketRight,
        Qt::Key_Plus,  Qt::Key_Plus,   Qt::Key_Minus,    Qt::Key_Minus,       Qt::Key_Home,
        Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_F1,          Qt::Key_F2,
        Qt::Key_F5,    Qt::Key_Delete, Qt::Key_Left,     Qt::Key_Right };

const Qt::KeyboardModifiers modifiers[]
    = { Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
        Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier };

/// \a number of an event, scaled to 0 .. \a count - 1.
int scaled(int number, int count)
{
    return number * count / Event::bound;
}

QWidget *plotOf(const Player &player)
{
    return player.probe().Plot_View()->viewport();
}

/// The place for the numbers \a x and \a y of an event: on the plot or up to a tenth beyond its
/// edges, because a drag may leave the plot.
QPoint placeOnPlot(const Player &player, int x, int y)
{
    const QSize size = plotOf(player)->size();
    const auto beyond = [](int number) { return number * 12 / 10 - Event::bound / 10; };
    return { scaled(beyond(x), size.width()), scaled(beyond(y), size.height()) };
}

/// A widget and a place in it.
struct Target
{
    QWidget *widget;
    QPoint position;
};

/// The widget at the place in the window that the first two numbers of \a event select.
Target targetOf(const Player &player, const Event &event)
{
    MainWindow &window = player.window();
    const QPoint position(scaled(event[0], window.width()), scaled(event[1], window.height()));
    QWidget *widget = window.childAt(position);
    if (widget == nullptr)
        widget = &window;
    return { widget, widget->mapFrom(&window, position) };
}

QDial *dialOf(const Player &player, const Event &event)
{
    return event[0] % 2 == 0 ? player.probe().cursor_dial() : player.probe().param_dial();
}

/// One of the widgets of class \a Widget that are visible, enabled and \a suitable; null if none
/// is.
template <typename Widget, typename Suitable>
Widget *oneOf(const Player &player, const Event &event, const Suitable &suitable)
{
    QList<Widget *> found;
    const auto widgets = player.probe().centralWidget()->findChildren<Widget *>();
    for (Widget *widget : widgets)
        if (widget->isVisible() && widget->isEnabled() && suitable(widget))
            found.append(widget);
    return found.isEmpty() ? nullptr : pick(found, event[0]);
}

void press(Player &player, const Event &event)
{
    const Qt::MouseButton button = pick(mouseButtons, event[2]);
    input::mouse(plotOf(player), QEvent::MouseButtonPress, placeOnPlot(player, event[0], event[1]),
                 button, pick(heldButtons, event[3]) | button);
}

void move(Player &player, const Event &event)
{
    input::move(plotOf(player), placeOnPlot(player, event[0], event[1]),
                pick(heldButtons, event[2]));
}

void release(Player &player, const Event &event)
{
    input::release(plotOf(player), placeOnPlot(player, event[0], event[1]),
                   pick(mouseButtons, event[2]));
}

void drag(Player &player, const Event &event)
{
    // Not the right button: it opens a menu, which ends the drag.
    const Qt::MouseButton button = event.answer % 3 == 0 ? Qt::MiddleButton : Qt::LeftButton;
    input::drag(plotOf(player), placeOnPlot(player, event[0], event[1]),
                placeOnPlot(player, event[2], event[3]), button,
                static_cast<int>(1 + event.answer % 4));
}

void click(Player &player, const Event &event)
{
    const auto [widget, position] = targetOf(player, event);
    input::clickAt(widget, position, pick(mouseButtons, event[2]));
}

void doubleClick(Player &player, const Event &event)
{
    const auto [widget, position] = targetOf(player, event);
    input::clickAt(widget, position);
    input::mouse(widget, QEvent::MouseButtonDblClick, position, Qt::LeftButton, Qt::LeftButton);
    input::release(widget, position);
}

void wheelOnPlot(Player &player, const Event &event)
{
    input::wheel(plotOf(player), pick(turns, event[2]));
}

void wheelAnywhere(Player &player, const Event &event)
{
    input::wheel(targetOf(player, event).widget, pick(turns, event[2]));
}

void turnDial(Player &player, const Event &event)
{
    const int degrees = event[2] - Event::bound / 2;
    input::turnDial(dialOf(player, event), scaled(event[1], 360), degrees, 1 + event[3] % 5);
}

void dialKey(Player &player, const Event &event)
{
    QTest::keyClick(dialOf(player, event), pick(dialKeys, event[1]));
}

void key(Player &player, const Event &event)
{
    QWidget *focused = QApplication::focusWidget();
    if (focused == nullptr)
        focused = &player.window();
    const bool extra = event[2] >= Event::bound / 2;
    QTest::keyClick(focused, extra ? pick(extraKeys, event[0]) : pick(controlKeys, event[0]),
                    pick(modifiers, event[1]));
}

void focus(Player &player, const Event &event)
{
    const auto takesFocus = [](QWidget *widget) { return widget->focusPolicy() != Qt::NoFocus; };
    if (auto *widget = oneOf<QWidget>(player, event, takesFocus))
        widget->setFocus(Qt::TabFocusReason);
}

void button(Player &player, const Event &event)
{
    // Buttons that open a dialog have events of their own: each takes as long as twenty others.
    const MainWindowProbe &probe = player.probe();
    const auto opensNone = [&probe](QAbstractButton *candidate) {
        return candidate != probe.legend_button() && candidate != probe.settings_button();
    };
    if (auto *chosen = oneOf<QAbstractButton>(player, event, opensNone))
        input::click(chosen);
}

void chartMenu(Player &player, const Event &event)
{
    input::clickAt(plotOf(player), placeOnPlot(player, event[0], event[1]), Qt::RightButton);
}

void slotMenu(Player &player, const Event &event)
{
    LegendButton *slot = pick(player.probe().selected_rfg(), event[0]);
    const QPoint middle = slot->rect().center();
    QContextMenuEvent request(QContextMenuEvent::Mouse, middle, slot->mapToGlobal(middle));
    QApplication::sendEvent(slot, &request);
}

void slotAction(Player &player, const Event &event)
{
    const LegendButton &slot = *pick(player.probe().selected_rfg(), event[0]);
    // Loading is rare: its dialog takes as long as all the others together.
    QAction *const choices[] = { slot.reset_action,   slot.visible_action, slot.visible_action,
                                 slot.master_action,  slot.master_action,  slot.clear_action,
                                 slot.visible_action, slot.reset_action,   slot.load_action };
    QAction *action = pick(choices, event[1]);
    if (action->isEnabled())
        action->trigger();
}

void entry(Player &player, const Event &event)
{
    const MainWindowProbe &probe = player.probe();
    QWidget *const buttons[]
        = { probe.KU_button(),    probe.V_offset_button(), probe.H_offset_button(),
            probe.scale_button(), probe.curA_button(),     probe.curB_button() };
    input::click(pick(buttons, event[0]), Qt::RightButton);
}

void files(Player &player, const Event &)
{
    input::click(player.probe().legend_button());
}

void settings(Player &player, const Event &)
{
    input::click(player.probe().settings_button());
}

void resize(Player &player, const Event &event)
{
    player.window().resize(600 + event[0], 400 + event[1]);
}

void windowState(Player &player, const Event &event)
{
    MainWindow &window = player.window();
    void (QWidget::*const states[])()
        = { &QWidget::showNormal, &QWidget::showNormal, &QWidget::showMaximized,
            &QWidget::showMinimized, &QWidget::showFullScreen };
    (window.*pick(states, event[0]))();
    WindowFixture::settle();
    // A minimised window gets no input.
    if (window.isMinimized())
        window.showNormal();
}

void drop(Player &player, const Event &event)
{
    QMimeData data;
    QList<QUrl> urls;
    for (int i = event[3] / 4 % 8; i >= 0; --i)
        urls.append(QUrl::fromLocalFile(pick(player.choices().traces, event[2] + i)));
    data.setUrls(urls);
    const auto [widget, position] = targetOf(player, event);
    QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent over(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDragLeaveEvent away;
    QDropEvent let(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QEvent *const last = event[3] % 4 == 0 ? static_cast<QEvent *>(&away) : &let;
    for (QEvent *part : { static_cast<QEvent *>(&enter), static_cast<QEvent *>(&over), last })
        QApplication::sendEvent(widget, part);
}

void language(Player &player, const Event &event)
{
    const QString codes[] = { QStringLiteral("en_US"), QStringLiteral("ru_RU"),
                              QStringLiteral("ru_RU"), QStringLiteral("xx"), QString() };
    SettingsData &store = *player.probe().settingsData();
    store.current_language = pick(codes, event[0]);
    store.setTranslation();
}

void style(Player &player, const Event &event)
{
    player.window().CSS_watcher_slot(pick(player.choices().sheets, event[0]));
}

void pointer(Player &player, const Event &event)
{
    // Qt delivers the resulting events, such as hover events, when the event loop runs next.
    const auto [widget, position] = targetOf(player, event);
    QCursor::setPos(widget->mapToGlobal(position));
}

void settle(Player &, const Event &)
{
    WindowFixture::settle();
}

void reopen(Player &player, const Event &)
{
    player.open();
}

using Action = void (*)(Player &player, const Event &event);

// In the order of the kinds.
constexpr Action actions[] = {
    press,         move,       release, drag,    click,    doubleClick, wheelOnPlot,
    wheelAnywhere, turnDial,   dialKey, key,     focus,    button,      chartMenu,
    slotMenu,      slotAction, entry,   files,   settings, resize,      windowState,
    drop,          language,   style,   pointer, settle,   reopen,
};
static_assert(std::size(actions) == Event::KindCount, "one function a kind");

} // namespace

void Player::play(const Event &event)
{
    const Popups popups(m_choices, event.answer);
    actions[event.kind](*this, event);
}
