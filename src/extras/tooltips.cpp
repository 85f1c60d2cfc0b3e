// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/tooltips.h"

#include "base/catalogue.h"
#include "base/program_files.h"
#include "calc/readout.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "dictionary.h"
#include "extras/exporting_text.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "parambutton.h"
#include "settingsdata.h"

#include <QButtonGroup>
#include <QDir>
#include <QFileInfo>
#include <QHelpEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QToolTip>

namespace extras {

namespace {

constexpr QLatin1String version = constants::latin1(VELKOR_VERSION);
constexpr int longestLine = 100; ///< characters; a path may have thousands
constexpr int floatDigits = 9; ///< enough to distinguish any two floats
constexpr int factorDigits = 3;

/// Purpose of a control.
struct Explanation
{
    const QWidget *control;
    const char *key; ///< empty for a control without a key
    const char *text;
    bool isTyped = false; ///< a right click asks for a value
};

QVector<Explanation> valueControls(const MainWindowParts &parts)
{
    constexpr auto recorded = QT_TRANSLATE_NOOP("Extras", "Recorded with the trace, read-only");
    return {
        { parts.curA_button, "A", QT_TRANSLATE_NOOP("Extras", "Makes cursor A the active one"),
          true },
        { parts.curB_button, "B", QT_TRANSLATE_NOOP("Extras", "Makes cursor B the active one"),
          true },
        { parts.delta_lbl, "", QT_TRANSLATE_NOOP("Extras", "Distance between the cursors") },
        { parts.date_bar, "", QT_TRANSLATE_NOOP("Extras", "Date and time") },
        { parts.H_offset_button, "X",
          QT_TRANSLATE_NOOP("Extras", "Makes the dial shift the selected trace along the cable"),
          true },
        { parts.V_offset_button, "Y",
          QT_TRANSLATE_NOOP("Extras", "Makes the dial shift the selected trace up or down"), true },
        { parts.KU_button, "K",
          QT_TRANSLATE_NOOP("Extras",
                            "Makes the dial set KU = c/v, the shortening factor of all traces"),
          true },
        { parts.scale_button, "Z", QT_TRANSLATE_NOOP("Extras", "Makes the dial set the scale"),
          true },
        { parts.pulse_width_button, "", recorded },
        { parts.pulse_amplitude_button, "", recorded },
        { parts.impedance_button, "", recorded },
        { parts.average_button, "", recorded },
        { parts.gain_button, "", recorded },
        { parts.reserve_button, "", QT_TRANSLATE_NOOP("Extras", "Not used") },
    };
}

QVector<Explanation> toolControls(const MainWindowParts &parts)
{
    return {
        { parts.logo_lbl, "", QT_TRANSLATE_NOOP("Extras", "Velkor %1; a click tells about Qt") },
        { parts.legend_button, "O",
          QT_TRANSLATE_NOOP("Extras", "Opens trace files in place of the present ones") },
        { parts.settings_button, "Ctrl+,",
          QT_TRANSLATE_NOOP("Extras", "Language, speed of the dials, settings files") },
        { parts.difference_button, "D",
          QT_TRANSLATE_NOOP("Extras", "Draws each trace as its difference from the master") },
        { parts.smooth_button, "S",
          QT_TRANSLATE_NOOP("Extras", "Draws the traces as smooth curves or as steps") },
        { parts.reset_all_button, "Shift+F5",
          QT_TRANSLATE_NOOP("Extras", "Reads all traces again and drops all shifts") },
        { parts.scale_down_button, "Ctrl++", QT_TRANSLATE_NOOP("Extras", "Magnifies") },
        { parts.scale_up_button, "Ctrl+-", QT_TRANSLATE_NOOP("Extras", "Shows more of the cable") },
        { parts.scroll_left_button, "[", QT_TRANSLATE_NOOP("Extras", "Scrolls to the left") },
        { parts.scroll_right_button, "]", QT_TRANSLATE_NOOP("Extras", "Scrolls to the right") },
        { parts.curA_nav_button, "A",
          QT_TRANSLATE_NOOP("Extras", "Makes cursor A the active one") },
        { parts.curB_nav_button, "B",
          QT_TRANSLATE_NOOP("Extras", "Makes cursor B the active one") },
        { parts.param_dial, QT_TRANSLATE_NOOP("Extras", "+ and -"),
          QT_TRANSLATE_NOOP("Extras",
                            "Changes the pressed parameter: drag the knob or turn the wheel") },
        { parts.cursor_dial, QT_TRANSLATE_NOOP("Extras", ", and ."),
          QT_TRANSLATE_NOOP("Extras", "Moves the active cursor: drag the knob or turn the wheel") },
    };
}

/// All digits that \a value has, and no more.
QString precisely(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

/// \a path in as many lines as it needs.
QString folded(QString path)
{
    for (int end = longestLine; end < path.size(); end += longestLine + 1) {
        // Not between the two halves of a surrogate pair.
        if (path.at(end - 1).isHighSurrogate())
            --end;
        path.insert(end, QLatin1Char('\n'));
    }
    return path;
}

/// The lines of a tooltip.
class Facts
{
public:
    explicit Facts(const MainWindow &window)
        : m_window(window)
        , m_parts(window.parts())
        , m_state(window.state())
        , m_texts("Extras", window.settings()->current_language)
    {
    }

    QStringList about(const QWidget *control) const;

private:
    QStringList explanationOf(const QWidget *control) const;
    QStringList ofSlot(int slot) const;
    QStringList ofParameter(int parameter) const;
    QStringList ofVelocity() const;
    QStringList ofScale() const;
    QStringList ofCursor(int cursor) const;
    QStringList distance(int counts) const;
    QString stepsPerTurn(int steps) const;
    QString now(const QString &value) const;

    const MainWindow &m_window;
    const MainWindowParts &m_parts;
    const MainWindowState &m_state;
    Catalogue m_texts;
};

QStringList Facts::about(const QWidget *control) const
{
    QStringList lines = explanationOf(control);
    if (const auto *slot = qobject_cast<const LegendButton *>(control))
        lines += ofSlot(slot->id);
    else if (const auto *parameter = qobject_cast<const ParamButton *>(control))
        lines += ofParameter(parameter->id);
    else if (control == m_parts.param_dial)
        lines += ofParameter(m_parts.down_buttons->checkedId());
    else if (control == m_parts.curA_button)
        lines += ofCursor(MainWindow::CURSOR_A);
    else if (control == m_parts.curB_button)
        lines += ofCursor(MainWindow::CURSOR_B);
    else if (control == m_parts.cursor_dial && m_state.Cur_flag != MainWindow::DELTA)
        lines += ofCursor(m_state.Cur_flag);
    else if (control == m_parts.delta_lbl)
        lines += distance(qAbs(m_state.cursor_A_pos - m_state.cursor_B_pos));
    return lines;
}

QStringList Facts::explanationOf(const QWidget *control) const
{
    const auto key = [this](const QString &name) {
        return m_texts.text(QT_TRANSLATE_NOOP("Extras", "Key: %1")).arg(name);
    };
    if (const auto *slot = qobject_cast<const LegendButton *>(control))
        return { m_texts.text(
                     QT_TRANSLATE_NOOP("Extras", "Selects the trace; right click: its menu")),
                 key(QString::number(slot->id + 1)) };
    const QVector<Explanation> all = valueControls(m_parts) + toolControls(m_parts);
    for (const Explanation &explanation : all) {
        if (explanation.control != control)
            continue;
        QString text = m_texts.text(explanation.text);
        if (control == m_parts.logo_lbl)
            text = text.arg(version);
        QStringList lines{ text };
        if (*explanation.key)
            lines += key(m_texts.text(explanation.key));
        if (explanation.isTyped)
            lines += m_texts.text(QT_TRANSLATE_NOOP("Extras", "Right click: type a value"));
        return lines;
    }
    return {};
}

QStringList Facts::distance(int counts) const
{
    const Dictionary &words = *m_parts.d;
    return { precisely(calc::countsToMetres(counts, m_state.dist_coef)) + QLatin1Char(' ')
                 + words.DIST_SUFFIX_STR,
             precisely(counts * constants::nsPerCount) + QLatin1Char(' ') + words.TIME_SUFFIX_STR };
}

QString Facts::stepsPerTurn(int steps) const
{
    return m_texts.text(QT_TRANSLATE_NOOP("Extras", "Steps per turn of the dial: %1")).arg(steps);
}

QString Facts::now(const QString &value) const
{
    return m_texts.text(QT_TRANSLATE_NOOP("Extras", "Now: %1")).arg(value);
}

QStringList Facts::ofSlot(int slot) const
{
    if (!m_state.isLoaded(slot))
        return { m_texts.text(QT_TRANSLATE_NOOP("Extras", "No trace in this slot")) };
    const QString &path = m_state.rfg_DATA[slot].full_path;
    if (path.isEmpty())
        return { m_texts.text(QT_TRANSLATE_NOOP("Extras", "The file could not be read")) };
    QStringList facts{ folded(QDir::toNativeSeparators(path)) };
    if (program_files::isRegularFile(path))
        facts += m_texts.text(QT_TRANSLATE_NOOP("Extras", "Size: %1 bytes"))
                     .arg(QFileInfo(path).size());
    else
        facts += m_texts.text(QT_TRANSLATE_NOOP("Extras", "The file does not exist any more"));
    const QString measured = measuredOf(m_window, slot);
    facts += measured.isEmpty()
        ? m_texts.text(QT_TRANSLATE_NOOP("Extras", "No date of the measurement in the file"))
        : m_texts.text(QT_TRANSLATE_NOOP("Extras", "Measured: %1")).arg(measured);
    return facts;
}

QStringList Facts::ofParameter(int parameter) const
{
    const QString perTurn = stepsPerTurn(m_window.settings()->param_dial_speed);
    const rfg_SHOWN &trace = m_state.rfg_DATA[m_state.rfg_ID];
    const bool isShift = parameter == MainWindow::V_OFFSET || parameter == MainWindow::H_OFFSET;
    if (isShift && !m_state.isLoaded(m_state.rfg_ID))
        return { m_texts.text(
            QT_TRANSLATE_NOOP("Extras", "Nothing to shift: no trace in this slot")) };
    switch (parameter) {
    case MainWindow::KU:
        return ofVelocity();
    case MainWindow::V_OFFSET:
        return { m_texts
                     .text(QT_TRANSLATE_NOOP("Extras", "From %1 to %2 levels, one level per step"))
                     .arg(-constants::verticalOffsetLimit)
                     .arg(constants::verticalOffsetLimit),
                 perTurn, now(QString::number(trace.offset)) };
    case MainWindow::H_OFFSET:
        return QStringList{ m_texts.text(QT_TRANSLATE_NOOP(
                                "Extras", "In whole samples; one sample per notch of the wheel")),
                            perTurn, now(distance(trace.scroll).join(QLatin1String(" = "))) };
    case MainWindow::SCALE:
        return ofScale();
    default:
        return {};
    }
}

QStringList Facts::ofVelocity() const
{
    const auto atDial = [](int position) { return precisely(calc::kuOfDial(position)); };
    const double ku = double{ m_state.master_params.KU };
    return { m_texts.text(QT_TRANSLATE_NOOP("Extras", "From %1 to %2, %3 per step"))
                 .arg(precisely(double{ m_state.KU_min }), atDial(calc::dialOfKU(m_state.KU_max)),
                      precisely(1 / double{ constants::kuDialUnits })),
             stepsPerTurn(m_window.settings()->param_dial_speed),
             now(QString::number(ku, 'g', floatDigits)),
             m_texts.text(QT_TRANSLATE_NOOP("Extras", "Velocity factor v/c = 1/KU: %1"))
                 .arg(QString::number(1 / ku, 'f', factorDigits)) };
}

QStringList Facts::ofScale() const
{
    const auto caption
        = [](int exponent) { return calc::scaleText(calc::scaleDistance(exponent)); };
    const int visible = calc::visibleCounts(m_state.master_scale);
    return { m_texts
                 .text(QT_TRANSLATE_NOOP("Extras", "From %1 to %2; each step doubles or halves it"))
                 .arg(caption(constants::minScale), caption(constants::maxScale)),
             stepsPerTurn(constants::scaleDialSpeed),
             m_texts.text(QT_TRANSLATE_NOOP("Extras", "In view at this KU: %1"))
                 .arg(distance(visible).join(QLatin1String(" = "))) };
}

QStringList Facts::ofCursor(int cursor) const
{
    const int level
        = cursor == MainWindow::CURSOR_A ? m_state.cursor_A_pos_Y : m_state.cursor_B_pos_Y;
    const bool hasLevel = level != constants::noLevel && m_state.isLoaded(m_state.rfg_ID);
    QStringList facts = distance(m_window.cursorPosition(cursor));
    facts += hasLevel ? m_texts.text(QT_TRANSLATE_NOOP("Extras", "Level: %1")).arg(level)
                      : m_texts.text(QT_TRANSLATE_NOOP("Extras", "No level here"));
    return facts;
}

} // namespace

QString tooltipOf(const MainWindow &window, const QWidget *control)
{
    return control ? Facts(window).about(control).join(QLatin1Char('\n')) : QString();
}

bool showTooltip(MainWindow &window, const QHelpEvent &event)
{
    QWidget *control = window.childAt(event.pos());
    const QString tooltip = tooltipOf(window, control);
    if (tooltip.isEmpty())
        return false;
    // Escaped, because a file may have any name; `pre` adds no line breaks.
    const QString text
        = QStringLiteral("<p style='white-space:pre'>%1</p>").arg(tooltip.toHtmlEscaped());
    QToolTip::setFont(window.font());
    QToolTip::showText(event.globalPos(), text, control, control->rect());
    return true;
}

} // namespace extras
