// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/tooltips.h"

#include "base/catalogue.h"
#include "base/program_files.h"
#include "calc/readout.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "dictionary.h"
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
#include <QToolTip>

namespace extras {

namespace {

constexpr int longestLine = 100; ///< characters; a path may have thousands
constexpr int floatDigits = 9; ///< that tell any two numbers of single precision apart

/// All digits that a number has, and no more.
QString precisely(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

/// \a path in as many lines as it needs.
QString folded(QString path)
{
    for (int end = longestLine; end < path.size(); end += longestLine + 1) {
        // A rare letter is two units, which stay together.
        if (path.at(end - 1).isHighSurrogate())
            --end;
        path.insert(end, QLatin1Char('\n'));
    }
    return path;
}

/// Puts the facts about one control together.
class Facts
{
public:
    explicit Facts(const MainWindow &window)
        : m_window(window)
        , m_state(window.state())
        , m_texts(window.settings(), QLatin1String("Extras"))
    {
    }

    QString ofSlot(int slot) const;
    QString ofParameter(int parameter) const;
    QString ofCursor(int cursor) const;
    QString ofDelta() const;

private:
    QString ofVelocityFactor() const;
    QString ofVerticalShift() const;
    QString ofHorizontalShift() const;
    QString ofScale() const;
    QString distance(int counts) const;
    QString stepsPerTurn(int steps) const;
    QString now(const QString &value) const;

    static QString lines(const QStringList &facts)
    {
        return facts.join(QLatin1Char('\n'));
    }

    const MainWindow &m_window;
    const MainWindowState &m_state;
    Catalogue m_texts;
};

QString Facts::distance(int counts) const
{
    const Dictionary &words = *m_window.parts().d;
    return QStringLiteral("%1 %2\n%3 %4")
        .arg(precisely(calc::countsToMetres(counts, m_state.dist_coef)), words.DIST_SUFFIX_STR,
             precisely(counts * constants::nsPerCount), words.TIME_SUFFIX_STR);
}

QString Facts::stepsPerTurn(int steps) const
{
    return m_texts.text(QT_TRANSLATE_NOOP("Extras", "Steps in a turn of the dial: %1")).arg(steps);
}

QString Facts::now(const QString &value) const
{
    return m_texts.text(QT_TRANSLATE_NOOP("Extras", "Now: %1")).arg(value);
}

QString Facts::ofSlot(int slot) const
{
    if (!m_state.isLoaded(slot))
        return m_texts.text(QT_TRANSLATE_NOOP("Extras", "No trace in this slot"));
    const rfg_SHOWN &trace = m_state.rfg_DATA[slot];
    const QString &path = trace.full_path;
    QStringList facts;
    if (path.isEmpty())
        return m_texts.text(QT_TRANSLATE_NOOP("Extras", "The file could not be read"));
    facts.append(folded(QDir::toNativeSeparators(path)));
    if (program_files::isRegularFile(path))
        facts.append(m_texts.text(QT_TRANSLATE_NOOP("Extras", "Size: %1 bytes"))
                         .arg(QFileInfo(path).size()));
    else
        facts.append(m_texts.text(QT_TRANSLATE_NOOP("Extras", "The file is not there any more")));
    if (trace.date.isValid())
        facts.append(m_texts.text(QT_TRANSLATE_NOOP("Extras", "Date of test: %1"))
                         .arg(QLocale::system().toString(trace.date, QLocale::ShortFormat)
                              + QLatin1Char(' ') + trace.time.toString(Qt::TextDate)));
    else
        facts.append(m_texts.text(QT_TRANSLATE_NOOP("Extras", "No date of test in the file")));
    return lines(facts);
}

QString Facts::ofParameter(int parameter) const
{
    const bool needsTrace = parameter == MainWindow::V_OFFSET || parameter == MainWindow::H_OFFSET;
    if (needsTrace && !m_state.isLoaded(m_state.rfg_ID))
        return m_texts.text(QT_TRANSLATE_NOOP("Extras", "Nothing to shift: no trace in this slot"));
    switch (parameter) {
    case MainWindow::KU:
        return ofVelocityFactor();
    case MainWindow::V_OFFSET:
        return ofVerticalShift();
    case MainWindow::H_OFFSET:
        return ofHorizontalShift();
    case MainWindow::SCALE:
        return ofScale();
    case MainWindow::GAIN:
    case MainWindow::AVERAGE:
    case MainWindow::PULSE_WIDTH:
    case MainWindow::PULSE_AMPLITUDE:
    case MainWindow::IMPEDANCE:
        return m_texts.text(
            QT_TRANSLATE_NOOP("Extras", "Recorded with the trace; the dial leaves it as it is"));
    default:
        return {};
    }
}

QString Facts::ofVelocityFactor() const
{
    const auto factor = [](int position) { return precisely(calc::kuOfDial(position)); };
    const QString range
        = m_texts
              .text(QT_TRANSLATE_NOOP("Extras",
                                      "The dial sets the velocity factor from %1 to %2,\n"
                                      "by %3 a step, for all traces"))
              .arg(precisely(double{ m_state.KU_min }), factor(calc::dialOfKU(m_state.KU_max)),
                   precisely(1 / double{ constants::kuDialUnits }));
    const double factorNow = double{ m_state.master_params.KU };
    return lines({ range, stepsPerTurn(m_window.settings()->param_dial_speed),
                   now(QString::number(factorNow, 'g', floatDigits)) });
}

QString Facts::ofVerticalShift() const
{
    const QString range
        = m_texts
              .text(QT_TRANSLATE_NOOP("Extras",
                                      "The dial shifts the selected trace up or down,\n"
                                      "from %1 to %2 levels, one a step"))
              .arg(-constants::verticalOffsetLimit)
              .arg(constants::verticalOffsetLimit);
    return lines({ range, stepsPerTurn(m_window.settings()->param_dial_speed),
                   now(QString::number(m_state.rfg_DATA[m_state.rfg_ID].offset)) });
}

QString Facts::ofHorizontalShift() const
{
    const QString range = m_texts.text(
        QT_TRANSLATE_NOOP("Extras",
                          "The dial shifts the selected trace along the cable,\n"
                          "in whole samples; the wheel over it by one sample a notch"));
    return lines({ range, stepsPerTurn(m_window.settings()->param_dial_speed),
                   now(distance(m_state.rfg_DATA[m_state.rfg_ID].scroll)) });
}

QString Facts::ofScale() const
{
    const auto caption
        = [](int exponent) { return calc::scaleText(calc::scaleDistance(exponent)); };
    const QString range
        = m_texts
              .text(QT_TRANSLATE_NOOP("Extras",
                                      "The dial sets the scale from %1 to %2;\n"
                                      "each step shows twice as much or half of it"))
              .arg(caption(constants::minScale), caption(constants::maxScale));
    const int visible = calc::visibleCounts(m_state.master_scale);
    return lines({ range, stepsPerTurn(constants::scaleDialSpeed),
                   m_texts.text(QT_TRANSLATE_NOOP("Extras", "In view at this velocity factor: %1"))
                       .arg(distance(visible)) });
}

QString Facts::ofCursor(int cursor) const
{
    const bool isA = cursor == MainWindow::CURSOR_A;
    const int level = isA ? m_state.cursor_A_pos_Y : m_state.cursor_B_pos_Y;
    const QString height = level == constants::noLevel || !m_state.isLoaded(m_state.rfg_ID)
        ? m_texts.text(QT_TRANSLATE_NOOP("Extras", "No level here"))
        : m_texts.text(QT_TRANSLATE_NOOP("Extras", "Level: %1")).arg(level);
    return lines({ distance(isA ? m_state.cursor_A_pos : m_state.cursor_B_pos), height });
}

QString Facts::ofDelta() const
{
    return distance(qAbs(m_state.cursor_A_pos - m_state.cursor_B_pos));
}

} // namespace

QString factsAbout(const MainWindow &window, const QWidget *control)
{
    const MainWindowParts &parts = window.parts();
    const Facts facts(window);
    for (const LegendButton *button : parts.selected_rfg)
        if (button == control)
            return facts.ofSlot(button->id);
    if (const auto *button = qobject_cast<const ParamButton *>(control))
        return facts.ofParameter(button->id);
    if (control == parts.param_dial)
        return facts.ofParameter(parts.down_buttons->checkedId());
    if (control == parts.curA_button)
        return facts.ofCursor(MainWindow::CURSOR_A);
    if (control == parts.curB_button)
        return facts.ofCursor(MainWindow::CURSOR_B);
    const int active = window.state().Cur_flag;
    if (control == parts.cursor_dial && active != MainWindow::DELTA)
        return facts.ofCursor(active);
    if (control == parts.delta_lbl)
        return facts.ofDelta();
    return {};
}

bool showTooltip(MainWindow &window, const QHelpEvent &event)
{
    QWidget *control = window.childAt(event.pos());
    const QString facts = factsAbout(window, control);
    if (facts.isEmpty())
        return false;
    // As it stands, whatever a file is called: no tags, no other line ends than these.
    const QString text
        = QStringLiteral("<p style='white-space:pre'>%1</p>").arg(facts.toHtmlEscaped());
    QToolTip::showText(event.globalPos(), text, control, control->rect());
    return true;
}

} // namespace extras
