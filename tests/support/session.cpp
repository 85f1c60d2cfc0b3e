// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session.h"

#include "cont_dial.h"
#include "dialoganswer.h"
#include "hand.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowfixture.h"

#include <QAction>
#include <QDebug>
#include <QDialog>
#include <QDir>
#include <QGraphicsView>
#include <QInputDialog>
#include <QMenu>
#include <QPushButton>

#include <algorithm>
#include <iterator>

namespace {

// A session that goes on although nothing opened would compare less than it says.
void expectServed(const DialogAnswer &answer)
{
    if (!answer.served())
        qFatal("no dialog or menu came up");
}

} // namespace

QStringList sessionTraces(const WindowFixture &fixture)
{
    // The title names the folder, so it is called the same each time.
    QDir(fixture.path(QString())).mkdir(QStringLiteral("traces"));
    QStringList paths;
    for (int number = 0; number < constants::slotCount; ++number) {
        const auto echo = [number](int i) {
            const int ramp = (i * (number + 3)) % 97 - 48;
            return i % (40 + 7 * number) < 9 ? 70 - 8 * number : ramp / (number + 1);
        };
        const float step = number < 3 ? 1.25F : number < 5 ? 2.5F : 5.0F;
        paths << fixture.trace(QStringLiteral("traces/trace%1.tdr").arg(number),
                               TraceBuilder()
                                   .samples(echo)
                                   .minstep(step)
                                   .delay(quint32(number % 2 * 12))
                                   .shiftY(qint16(number * 6 - 15))
                                   .ku(1.3F + 0.1F * float(number)));
    }
    return paths;
}

struct Session::Kind
{
    const char *name;
    QString (Session::*act)();
};

// Two ways of loading fill the slots, one empties them: most of a session has several traces.
const Session::Kind Session::kinds[] = {
    { "cursor by wheel", &Session::cursorByWheel },
    { "cursor by dial", &Session::cursorByDial },
    { "cursor by wheel on the dial", &Session::cursorByDialWheel },
    { "cursor by drag", &Session::cursorByDrag },
    { "cursor by click", &Session::cursorByClick },
    { "pan", &Session::pan },
    { "zoom by button", &Session::zoomByButton },
    { "zoom by wheel", &Session::zoomByWheel },
    { "scroll", &Session::scroll },
    { "choose cursor", &Session::chooseCursor },
    { "choose cursor by menu", &Session::chooseCursorByMenu },
    { "choose parameter", &Session::chooseParameter },
    { "turn parameter", &Session::turnParameter },
    { "turn parameter by wheel", &Session::turnParameterWheel },
    { "enter number", &Session::enterNumber },
    { "select trace", &Session::selectTrace },
    { "toggle visibility", &Session::toggleVisibility },
    { "make master", &Session::makeMaster },
    { "reset trace", &Session::resetTrace },
    { "clear trace", &Session::clearTrace },
    { "load one", &Session::loadOne },
    { "load several", &Session::loadSeveral },
    { "load six", &Session::loadSix },
    { "smooth", &Session::smooth },
    { "difference", &Session::difference },
    { "reset all", &Session::resetAll },
    { "resize", &Session::resize },
    { "change language", &Session::changeLanguage },
    { "change style", &Session::changeStyle },
};

Session::Session(MainWindow &window, const QStringList &traces, quint32 seed)
    : m_window(window)
    , m_probe(window)
    , m_traces(traces)
    , m_dice(seed)
{
}

int Session::round()
{
    return static_cast<int>(std::size(kinds));
}

QString Session::act()
{
    if (m_deck.isEmpty()) {
        for (int kind = 0; kind < round(); ++kind)
            m_deck.append(kind);
        std::shuffle(m_deck.begin(), m_deck.end(), m_dice);
    }
    const Kind &kind = kinds[m_deck.takeLast()];
    return QLatin1String(kind.name) + QLatin1Char(' ') + (this->*kind.act)();
}

int Session::below(int bound)
{
    return m_dice.bounded(bound);
}

int Session::between(int low, int high)
{
    return m_dice.bounded(low, high + 1);
}

QPoint Session::somewhereOnPlot()
{
    // A little beyond the plot area on all sides: hands slip.
    const QRect view = m_probe.Plot_View()->viewport()->rect();
    return { below(view.width()), below(view.height()) };
}

QString Session::cursorByWheel()
{
    const int notches = between(-5, 5);
    hand::turnWheel(m_probe.Plot_View()->viewport(), notches);
    return QString::number(notches);
}

QString Session::cursorByDial()
{
    const int degrees = between(-400, 700);
    hand::turnDial(m_probe.cursor_dial(), below(360), degrees, 12);
    return QString::number(degrees);
}

QString Session::cursorByDialWheel()
{
    const int notches = between(-5, 20);
    hand::turnWheel(m_probe.cursor_dial(), notches);
    return QString::number(notches);
}

QString Session::cursorByDrag()
{
    const QPoint from = somewhereOnPlot();
    const QPoint to = somewhereOnPlot();
    hand::drag(m_probe.Plot_View()->viewport(), from, to, Qt::LeftButton, between(1, 4));
    return QStringLiteral("%1 to %2").arg(from.x()).arg(to.x());
}

QString Session::cursorByClick()
{
    const QPoint at = somewhereOnPlot();
    hand::press(m_probe.Plot_View()->viewport(), at);
    hand::release(m_probe.Plot_View()->viewport(), at);
    return QString::number(at.x());
}

QString Session::pan()
{
    const QPoint from = somewhereOnPlot();
    const QPoint to = from + QPoint(between(-120, 120), 0);
    hand::drag(m_probe.Plot_View()->viewport(), from, to, Qt::MiddleButton, between(1, 4));
    return QStringLiteral("%1 to %2").arg(from.x()).arg(to.x());
}

QString Session::zoomByButton()
{
    const bool up = below(3) > 0;
    hand::click(up ? m_probe.scale_up_button() : m_probe.scale_down_button());
    return up ? QStringLiteral("up") : QStringLiteral("down");
}

QString Session::zoomByWheel()
{
    const int notches = between(-2, 2);
    m_probe.scale_wheel_action()->trigger();
    hand::turnWheel(m_probe.Plot_View()->viewport(), notches);
    m_probe.cur_wheel_action()->trigger();
    return QString::number(notches);
}

QString Session::scroll()
{
    const bool right = below(3) > 0;
    for (int i = between(1, 4); i > 0; --i)
        hand::click(right ? m_probe.scroll_right_button() : m_probe.scroll_left_button());
    return right ? QStringLiteral("right") : QStringLiteral("left");
}

QString Session::chooseCursor()
{
    QWidget *const buttons[] = { m_probe.curA_button(), m_probe.curB_button(),
                                 m_probe.curA_nav_button(), m_probe.curB_nav_button() };
    const int which = below(4);
    hand::click(buttons[which]);
    return QString::number(which);
}

QString Session::chooseCursorByMenu()
{
    QAction *const choice = below(2) == 0 ? m_probe.curA_action() : m_probe.curB_action();
    const auto answer = answerMenu([choice](QMenu &) { choice->trigger(); });
    hand::click(m_probe.Plot_View()->viewport(), Qt::RightButton);
    expectServed(*answer);
    return choice->text();
}

QString Session::chooseParameter()
{
    QWidget *const buttons[] = { m_probe.KU_button(), m_probe.V_offset_button(),
                                 m_probe.H_offset_button(), m_probe.scale_button() };
    const int which = below(4);
    hand::click(buttons[which]);
    return QString::number(which);
}

QString Session::turnParameter()
{
    const int degrees = between(-300, 300);
    hand::turnDial(m_probe.param_dial(), below(360), degrees, 6);
    return QString::number(degrees);
}

QString Session::turnParameterWheel()
{
    const int notches = between(-8, 8);
    hand::turnWheel(m_probe.param_dial(), notches);
    return QString::number(notches);
}

QString Session::enterNumber()
{
    QWidget *const buttons[]
        = { m_probe.KU_button(), m_probe.V_offset_button(), m_probe.H_offset_button(),
            m_probe.curA_button(), m_probe.curB_button() };
    const int which = below(5);
    const int number = between(1, 20);
    const auto answer = answerDialog([number](QDialog &dialog) {
        auto *input = qobject_cast<QInputDialog *>(&dialog);
        // Setting a value of the other type would change the question.
        if (input->inputMode() == QInputDialog::IntInput)
            input->setIntValue(number);
        else
            input->setDoubleValue(number);
        input->accept();
    });
    hand::click(buttons[which], Qt::RightButton);
    expectServed(*answer);
    return QStringLiteral("%1 on %2").arg(number).arg(which);
}

QString Session::selectTrace()
{
    const int slot = below(constants::slotCount);
    hand::click(m_probe.selected_rfg()[slot]);
    return QString::number(slot);
}

QString Session::toggleVisibility()
{
    const int slot = below(constants::slotCount);
    m_probe.selected_rfg()[slot]->visible_action->trigger();
    return QString::number(slot);
}

QString Session::makeMaster()
{
    const int slot = below(constants::slotCount);
    m_probe.selected_rfg()[slot]->master_action->trigger();
    return QString::number(slot);
}

QString Session::resetTrace()
{
    const int slot = below(constants::slotCount);
    m_probe.selected_rfg()[slot]->reset_action->trigger();
    return QString::number(slot);
}

QString Session::clearTrace()
{
    const int slot = below(constants::slotCount);
    m_probe.selected_rfg()[slot]->clear_action->trigger();
    return QString::number(slot);
}

QString Session::loadOne()
{
    const int slot = below(constants::slotCount);
    const QString file = m_traces[below(static_cast<int>(m_traces.size()))];
    const auto answer = answerDialog(typeFileName(file));
    m_probe.selected_rfg()[slot]->load_action->trigger();
    expectServed(*answer);
    return QString::number(slot);
}

QString Session::loadSeveral()
{
    QStringList files = m_traces;
    std::shuffle(files.begin(), files.end(), m_dice);
    files = files.mid(0, between(3, constants::slotCount));
    const auto answer = answerDialog(typeFileNames(files));
    hand::click(m_probe.legend_button());
    expectServed(*answer);
    return QString::number(files.size());
}

QString Session::loadSix()
{
    SettingsData &settings = *m_probe.settingsData();
    for (int slot = 0; slot < constants::slotCount; ++slot)
        settings.current_files[slot] = m_traces[slot];
    settings.read_index = constants::slotMask;
    settings.master_ID = static_cast<signed char>(below(constants::slotCount));
    settings.updateSettings(1);
    return QString::number(settings.master_ID);
}

QString Session::smooth()
{
    hand::click(m_probe.smooth_button());
    return {};
}

QString Session::difference()
{
    hand::click(m_probe.difference_button());
    return {};
}

QString Session::resetAll()
{
    hand::click(m_probe.reset_all_button());
    return {};
}

QString Session::resize()
{
    const QSize size(between(800, 1300), between(500, 820));
    m_window.resize(size);
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString Session::changeLanguage()
{
    SettingsData &settings = *m_probe.settingsData();
    const bool english = settings.current_language == QLatin1String("en_US");
    settings.current_language = english ? QStringLiteral("ru_RU") : QStringLiteral("en_US");
    settings.setTranslation();
    return settings.current_language;
}

QString Session::changeStyle()
{
    SettingsData &settings = *m_probe.settingsData();
    settings.current_CSS_path = QStringLiteral(":/style/style_%1.qss").arg(between(1, 2));
    settings.parse_CSS();
    return settings.current_CSS_path;
}
