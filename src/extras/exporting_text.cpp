// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_text.h"

#include "base/catalogue.h"
#include "calc/readout.h"
#include "calc/trace_table.h"
#include "dictionary.h"
#include "extras/reflection_steps.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

namespace extras {

namespace {

QString pointText(const MainWindow &window, int column, int level)
{
    QString text = QStringLiteral("x = ") + window.count_to_distance(column);
    if (level != constants::noLevel)
        text += QStringLiteral(", y = ") + window.count_to_level(level);
    return text;
}

} // namespace

bool isShown(const MainWindow &window, int slot)
{
    return window.state().isLoaded(slot) && window.parts().selected_rfg[slot]->vis();
}

QString fileOf(const MainWindow &window, int slot)
{
    return QFileInfo(window.state().rfg_DATA[slot].full_path).fileName().simplified();
}

QString measuredOf(const MainWindow &window, int slot)
{
    const rfg_SHOWN &trace = window.state().rfg_DATA[slot];
    if (!trace.date.isValid())
        return {};
    return QLocale::system().toString(trace.date, QLocale::ShortFormat) + QLatin1Char(' ')
        + trace.time.toString(Qt::TextDate);
}

QVector<QPair<QString, QString>> factsOf(const MainWindow &window)
{
    const MainWindowState &state = window.state();
    const MainWindowParts &parts = window.parts();
    const Dictionary &words = *parts.d;
    const Catalogue texts("Extras", window.settings()->current_language);
    const float ku = state.master_params.KU;
    const double halfSpeed = state.dist_coef / constants::nsPerCount * 1000.0;
    QVector<QPair<QString, QString>> facts{
        { words.CURSOR_A_STR, pointText(window, state.cursor_A_pos, state.cursor_A_pos_Y) },
        { words.CURSOR_B_STR, pointText(window, state.cursor_B_pos, state.cursor_B_pos_Y) },
        { words.DELTA_STR,
          window.count_to_distance(qAbs(state.cursor_A_pos - state.cursor_B_pos)) },
        { words.KU_STR, calc::kuText(ku) },
        { texts.text(QT_TRANSLATE_NOOP("Extras", "Velocity factor 1/KU")),
          calc::kuText(1.0F / ku) },
        { QStringLiteral("v/2"),
          texts.text(QT_TRANSLATE_NOOP("Extras", "%1 m/µs")).arg(halfSpeed, 0, 'f', 1) },
    };
    if (state.drawsDifferences())
        facts.append({ parts.difference_button->text(),
                       texts.text(QT_TRANSLATE_NOOP("Extras", "%1 minus each"))
                           .arg(window.slotTitle(state.rfg_master_ID)) });
    if (state.smooth_rfg_flag)
        facts.append(
            { parts.smooth_button->text(), texts.text(QT_TRANSLATE_NOOP("Extras", "on")) });
    if (state.isLoaded(state.rfg_ID)) {
        const auto params = state.rfg_DATA[state.rfg_ID].f_p_840.ch.params;
        facts += {
            { texts.text(QT_TRANSLATE_NOOP("Extras", "Selected")), window.slotTitle(state.rfg_ID) },
            { words.PULSE_W_STR,
              QString::number(quint32{ params.pulse_width }) + QLatin1Char(' ')
                  + words.TIME_SUFFIX_STR },
            { words.PULSE_A_STR,
              QString::number(int{ params.pulse_amplitude }) + QLatin1Char(' ')
                  + words.VOLTAGE_SUFFIX_STR },
            { words.IMPEDANCE_STR,
              texts.text(QT_TRANSLATE_NOOP("Extras", "%1 Ω")).arg(int{ params.impedance }) },
            { words.GAIN_STR, QString::number(int{ params.gain }) },
            { words.AVERAGE_STR, QString::number(int{ params.average }) },
        };
    }
    return facts;
}

QString readings(const MainWindow &window)
{
    const MainWindowState &state = window.state();
    const Dictionary &words = *window.parts().d;
    const Catalogue texts("Extras", window.settings()->current_language);
    QStringList lines;
    const auto add = [&lines](const QString &name, const QString &value) {
        lines.append(name + QStringLiteral(": ") + value);
    };
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        if (!state.isLoaded(slot))
            continue;
        const rfg_SHOWN &trace = state.rfg_DATA[slot];
        QStringList facts{
            fileOf(window, slot), measuredOf(window, slot),
            words.H_OFFSET_STR + QStringLiteral(" = ") + window.count_to_distance(trace.scroll),
            words.V_OFFSET_STR + QStringLiteral(" = ") + QString::number(trace.offset)
        };
        facts.removeAll(QString());
        add(window.slotTitle(slot), facts.join(QStringLiteral(", ")));
    }
    const auto facts = factsOf(window);
    for (const auto &[name, value] : facts)
        add(name, value);
    const QVector<calc::Reflection> reflections = reflectionsOf(window);
    for (int i = 0; i < reflections.size(); ++i) {
        const int column = reflections[i].column;
        add(texts.text(QT_TRANSLATE_NOOP("Extras", "Reflection %1")).arg(i + 1),
            QStringLiteral("x = %1, t = %2 %3, y = %4, %5")
                .arg(window.count_to_distance(column),
                     QString::number(column * constants::nsPerCount, 'f', 2), words.TIME_SUFFIX_STR,
                     window.count_to_level(reflections[i].level),
                     QString(reflections[i].positive ? u'+' : u'−')));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QByteArray table(const MainWindow &window)
{
    const MainWindowState &state = window.state();
    calc::TraceTable table;
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        if (!isShown(window, slot))
            continue;
        const rfg_SHOWN &trace = state.rfg_DATA[slot];
        table.traces.append({ slot, fileOf(window, slot), trace.date, trace.time,
                              trace.f_p_840.ch.params, window.traceRef(slot) });
    }
    table.selected = state.rfg_ID;
    if (state.masterExists()) {
        table.master = state.rfg_master_ID;
        table.masterTrace = window.traceRef(state.rfg_master_ID);
    }
    table.difference = state.drawsDifferences();
    table.ku = state.master_params.KU;
    table.metresPerCount = state.dist_coef;
    table.cursors = { { state.cursor_A_pos, state.cursor_A_pos_Y },
                      { state.cursor_B_pos, state.cursor_B_pos_Y } };
    table.reflections = reflectionsOf(window);
    table.decimals = calc::decimalsOf(QLocale());
    return calc::tableFile(table);
}

} // namespace extras
