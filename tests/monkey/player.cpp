// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "player.h"

#include "cont_dial.h"
#ifdef VELKOR_EXTRAS
#include "extras/extras.h"
#endif
#include "inputevents.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"

#include <QApplication>
#include <QButtonGroup>
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

/// Eighths of a degree: whole notches, high-resolution wheels, several notches at once.
constexpr int turns[] = { 120, -120, 120, -120, 15, -15, 0, 360, -360, 1 };

} // namespace

// In the order of the kinds.
const Player::Action Player::actions[Event::KindCount] = {
    &Player::press,       &Player::move,        &Player::release,     &Player::drag,
    &Player::click,       &Player::doubleClick, &Player::wheelOnPlot, &Player::wheelAnywhere,
    &Player::turnDial,    &Player::dialKey,     &Player::key,         &Player::focus,
    &Player::button,      &Player::chartMenu,   &Player::slotMenu,    &Player::slotAction,
    &Player::entry,       &Player::files,       &Player::settings,    &Player::resize,
    &Player::windowState, &Player::drop,        &Player::language,    &Player::style,
    &Player::pointer,     &Player::settle,      &Player::reopen,
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

MainWindow &Player::window() const
{
    return m_fixture.window();
}

const MainWindowProbe &Player::probe() const
{
    return m_fixture.probe();
}

void Player::chooseFrom(const QStringList &traces)
{
    m_choices.traces = traces;
}

void Player::play(const Event &event)
{
    const Popups popups(m_choices, event.answer);
    (this->*actions[event.kind])(event);
}

void Player::reset()
{
    const Popups popups(m_choices, 0);
    // The master last: each time it is cleared, another trace becomes the master.
    const int master = probe().rfg_master_ID();
    for (int i = 1; i <= constants::slotCount; ++i)
        probe().selected_rfg()[(master + i) % constants::slotCount]->clear_action->trigger();
    if (probe().smooth_button()->isChecked())
        input::click(probe().smooth_button());
    input::click(probe().reset_all_button());
    input::click(probe().rfg_buttons()->button(0));
    input::click(probe().H_offset_button());
    input::click(probe().curA_button());
    probe().cur_wheel_action()->trigger();
    SettingsData &settings = *probe().settingsData();
    if (settings.current_language != QLatin1String(constants::defaultLanguage)) {
        settings.current_language = constants::defaultLanguage;
        settings.setTranslation();
    }
    window().showNormal();
    window().resize(800, 500);
}

QWidget *Player::plot() const
{
    return probe().Plot_View()->viewport();
}

QPoint Player::onPlot(int x, int y) const
{
    // A tenth beyond the edges on all sides: a drag may leave the view.
    const QSize size = plot()->size();
    const auto beyond = [](int number) { return number * 12 / 10 - Event::bound / 10; };
    return { scaled(beyond(x), size.width()), scaled(beyond(y), size.height()) };
}

Player::Target Player::targetAt(int x, int y) const
{
    const QPoint position(scaled(x, window().width()), scaled(y, window().height()));
    QWidget *widget = window().childAt(position);
    if (widget == nullptr)
        widget = &window();
    return { widget, widget->mapFrom(&window(), position) };
}

QDial *Player::dial(int which) const
{
    return which % 2 == 0 ? probe().cursor_dial() : probe().param_dial();
}

QList<QAbstractButton *> Player::openButtons() const
{
    // Those that open a dialog have events of their own and take as long as twenty others.
    const auto opensDialog = [this](const QAbstractButton *button) {
        return button == probe().legend_button() || button == probe().settings_button();
    };
    QList<QAbstractButton *> open;
    const auto buttons = probe().centralWidget()->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons)
        if (button->isVisible() && button->isEnabled() && !opensDialog(button))
            open.append(button);
    return open;
}

void Player::press(const Event &event)
{
    const Qt::MouseButton button = pick(mouseButtons, event[2]);
    const Qt::MouseButtons held = pick(heldButtons, event[3]);
    input::mouse(plot(), QEvent::MouseButtonPress, onPlot(event[0], event[1]), button,
                 held | button);
}

void Player::move(const Event &event)
{
    input::move(plot(), onPlot(event[0], event[1]), pick(heldButtons, event[2]));
}

void Player::release(const Event &event)
{
    input::release(plot(), onPlot(event[0], event[1]), pick(mouseButtons, event[2]));
}

void Player::drag(const Event &event)
{
    // Not the right button: it opens a menu, which ends the drag.
    const Qt::MouseButton button = event.answer % 3 == 0 ? Qt::MiddleButton : Qt::LeftButton;
    input::drag(plot(), onPlot(event[0], event[1]), onPlot(event[2], event[3]), button,
                static_cast<int>(1 + event.answer % 4));
}

void Player::click(const Event &event)
{
    const Target target = targetAt(event[0], event[1]);
    input::clickAt(target.widget, target.position, pick(mouseButtons, event[2]));
}

void Player::doubleClick(const Event &event)
{
    const Target target = targetAt(event[0], event[1]);
    input::clickAt(target.widget, target.position);
    input::mouse(target.widget, QEvent::MouseButtonDblClick, target.position, Qt::LeftButton,
                 Qt::LeftButton);
    input::release(target.widget, target.position);
}

void Player::wheelOnPlot(const Event &event)
{
    input::wheel(plot(), pick(turns, event[2]));
}

void Player::wheelAnywhere(const Event &event)
{
    input::wheel(targetAt(event[0], event[1]).widget, pick(turns, event[2]));
}

void Player::turnDial(const Event &event)
{
    const int start = scaled(event[1], 360);
    input::turnDial(dial(event[0]), start, event[2] - Event::bound / 2, 1 + event[3] % 5);
}

void Player::button(const Event &event)
{
    const auto open = openButtons();
    if (!open.isEmpty())
        input::click(pick(open, event[0]));
}

void Player::chartMenu(const Event &event)
{
    input::clickAt(plot(), onPlot(event[0], event[1]), Qt::RightButton);
}

void Player::slotMenu(const Event &event)
{
    LegendButton *button = pick(probe().selected_rfg(), event[0]);
    const QPoint middle = button->rect().center();
    QContextMenuEvent request(QContextMenuEvent::Mouse, middle, button->mapToGlobal(middle));
    QApplication::sendEvent(button, &request);
}

void Player::slotAction(const Event &event)
{
    const LegendButton &button = *pick(probe().selected_rfg(), event[0]);
    // Loading is rare: its dialog takes as long as all the others together.
    QAction *const choices[]
        = { button.reset_action,   button.visible_action, button.visible_action,
            button.master_action,  button.master_action,  button.clear_action,
            button.visible_action, button.reset_action,   button.load_action };
    QAction *action = pick(choices, event[1]);
    if (action->isEnabled())
        action->trigger();
}

void Player::entry(const Event &event)
{
    QWidget *const buttons[]
        = { probe().KU_button(),    probe().V_offset_button(), probe().H_offset_button(),
            probe().scale_button(), probe().curA_button(),     probe().curB_button() };
    input::click(pick(buttons, event[0]), Qt::RightButton);
}

void Player::files(const Event &)
{
    input::click(probe().legend_button());
}

void Player::settings(const Event &)
{
    input::click(probe().settings_button());
}

void Player::resize(const Event &event)
{
    window().resize(600 + event[0], 400 + event[1]);
}

void Player::windowState(const Event &event)
{
    MainWindow &window = m_fixture.window();
    void (QWidget::*const states[])()
        = { &QWidget::showNormal, &QWidget::showNormal, &QWidget::showMaximized,
            &QWidget::showMinimized, &QWidget::showFullScreen };
    (window.*pick(states, event[0]))();
    WindowFixture::settle();
    // A minimised window gets no input.
    if (window.isMinimized())
        window.showNormal();
}

void Player::drop(const Event &event)
{
    QMimeData data;
    QList<QUrl> urls;
    for (int i = event[3] / 4 % 8; i >= 0; --i)
        urls.append(QUrl::fromLocalFile(pick(m_choices.traces, event[2] + i)));
    data.setUrls(urls);
    const auto [widget, position] = targetAt(event[0], event[1]);
    QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    QDragMoveEvent over(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &over);
    if (event[3] % 4 == 0) {
        QDragLeaveEvent away;
        QApplication::sendEvent(widget, &away);
        return;
    }
    QDropEvent let(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &let);
}

void Player::language(const Event &event)
{
    const QString codes[] = { QStringLiteral("en_US"), QStringLiteral("ru_RU"),
                              QStringLiteral("ru_RU"), QStringLiteral("xx"), QString() };
    SettingsData &settings = *probe().settingsData();
    settings.current_language = pick(codes, event[0]);
    settings.setTranslation();
}

void Player::style(const Event &event)
{
    window().CSS_watcher_slot(pick(m_sheets, event[0]));
}

void Player::pointer(const Event &event)
{
    const auto [widget, position] = targetAt(event[0], event[1]);
    QEnterEvent enter(position, widget->mapTo(&window(), position), widget->mapToGlobal(position));
    QApplication::sendEvent(widget, &enter);
    input::move(widget, position, Qt::NoButton);
    if (event[2] % 2 == 0) {
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
