// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "player.h"

#ifdef VELKOR_EXTRAS
#include "extras/extras.h"
#endif
#include "input_events.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "test_files.h"

#include <QAction>
#include <QButtonGroup>
#include <QDir>
#include <QPushButton>
#include <QRandomGenerator>

#include <cmath>
#include <limits>

namespace {

constexpr unsigned noiseSeed = 840;

/// A cable with reflections that are visible at any offset.
int fault(int sample)
{
    return static_cast<int>(100.0 * std::sin(sample / 9.0)) - (sample % 50 == 0 ? 20 : 0);
}

QByteArray noise(int size)
{
    QRandomGenerator random(noiseSeed);
    QByteArray bytes;
    bytes.reserve(size);
    while (bytes.size() < size)
        bytes.append(static_cast<char>(random.bounded(256)));
    return bytes;
}

} // namespace

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

const Choices &Player::choices() const
{
    return m_choices;
}

void Player::chooseFrom(const QStringList &traces)
{
    m_choices.traces = traces;
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
    SettingsData &store = *probe().settingsData();
    if (store.current_language != QLatin1String("en_US")) {
        store.current_language = QStringLiteral("en_US");
        store.setTranslation();
    }
    window().showNormal();
    window().resize(800, 500);
}

void Player::makeTraces()
{
    const auto add = [this](const char *name, const TraceBuilder &trace) {
        m_choices.traces.append(m_fixture.trace(QLatin1String(name), trace));
    };
    const auto addBytes = [this](const char *name, const QByteArray &bytes) {
        m_choices.traces.append(m_fixture.path(QLatin1String(name)));
        writeFile(m_choices.traces.last(), bytes);
    };
    const auto good = [](float minstep) { return TraceBuilder().minstep(minstep).samples(fault); };
    add("fine.tdr", good(1.25F));
    add("double.tdr", good(2.5F).ku(1.7F).shiftY(-20));
    add("five.tdr", good(5.0F).ku(2.0F).delay(30));
    add("odd step.tdr", good(3.75F).shiftX(11).shiftY(129));
    add("wide.tdr", good(320.0F).ku(1.0F));
    add("left.tdr", good(10.0F).shiftX(0xFFFFFFF0U).delay(3));
    add("far.tdr", good(1.25F).delay(5000));
    add("late.tdr", good(40.0F).delay(0xFFFFFFFFU));
    add("slow.tdr", good(0.5F).ku(99.0F));
    add("nothing known.tdr",
        good(std::numeric_limits<float>::quiet_NaN())
            .ku(std::numeric_limits<float>::infinity())
            .shiftX(0x80000000U)
            .shiftY(-32768));
    addBytes("short.tdr", good(5.0F).bytes().left(300));
    addBytes("long.tdr", good(2.5F).bytes() + QByteArray(5000, 'x'));
    addBytes("empty.tdr", QByteArray());
    addBytes("noise.tdr", noise(37775));
    m_choices.traces.append(m_fixture.path(QStringLiteral("missing.tdr")));
    QDir().mkpath(m_fixture.path(QStringLiteral("folder.tdr")));
    m_choices.traces.append(m_fixture.path(QStringLiteral("folder.tdr")));
}

void Player::makeSettings()
{
    m_choices.folder = m_fixture.path(QStringLiteral("saved"));
    QDir().mkpath(m_choices.folder);
    const auto add = [this](const char *name, const QByteArray &bytes) {
        m_choices.settings.append(m_fixture.path(QLatin1String(name)));
        writeFile(m_choices.settings.last(), bytes);
    };
    const QByteArray first = m_choices.traces.at(0).toUtf8();
    const QByteArray second = m_choices.traces.at(2).toUtf8();
    add("two.ini",
        "[General]\nlanguage=ru_RU\nCSS=:/style/"
        "style_1.qss\n[PrevFiles]\nStateIndex=3\nMasterId=1\n"
        "file1="
            + first + "\nfile2=" + second + "\n[Dials]\ncursorSpeed=500\nparamSpeed=20\n");
    add("gap.ini",
        "[General]\nlanguage=en_US\n[PrevFiles]\nStateIndex=40\nMasterId=0\nfile4=" + first
            + "\nfile6=" + second + "\n[Dials]\ncursorSpeed=10\nparamSpeed=1000\n");
    add("wild.ini",
        "[General]\nlanguage=../../x\nCSS=/\n[PrevFiles]\nStateIndex=-1\nMasterId=200\n"
        "[Dials]\ncursorSpeed=-7\nparamSpeed=2147483647\n[WindowState]\ngeometry=x\n");
    add("empty.ini", QByteArray());
    add("noise.ini", noise(5000));
    m_choices.settings.append(m_fixture.path(QStringLiteral("missing.ini")));
    for (int i = 0; i < 3; ++i)
        m_choices.settings.append(m_choices.folder + QStringLiteral("/saved%1.ini").arg(i));

    writeFile(m_fixture.path(QStringLiteral("loud.qss")),
              "QPushButton { color: red; } QWidget { background: #202020; }\n");
    m_choices.sheets
        = QStringList{ QStringLiteral(":/style/style_1.qss"), QStringLiteral(":/style/style_2.qss"),
                       m_fixture.path(QStringLiteral("loud.qss")),
                       m_fixture.path(QStringLiteral("no such sheet.qss")) };
}
