// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "invariants.h"

#include "cont_dial.h"
#include "curarrow.h"
#include "dictionary.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "mainwindowprobe.h"
#include "parambutton.h"

#include <QAction>
#include <QButtonGroup>
#include <QDebug>
#include <QLabel>
#include <QPushButton>

#include <cmath>
#include <cstring>

QT_CHARTS_USE_NAMESPACE

namespace {

// Independent of constants.h, so a wrong constant there is detected.
constexpr int slotTotal = 6;
constexpr int lastCount = 64000;
constexpr int narrowestView = 250;
constexpr int drawn = 250;
constexpr int widestScale = 8;
constexpr int noLevel = 129;
constexpr int levelLimit = 256;
constexpr double metresPerCountInVacuum = 0.18737028625;
constexpr int delayAt = 29;
constexpr int samplesAt = 261;

class Checker
{
public:
    explicit Checker(MainWindow &window)
        : m_window(window)
        , m_probe(window)
    {
    }

    QStringList broken()
    {
        checkNumbers();
        checkRange();
        checkButtons();
        for (int slot = 0; slot < slotTotal; ++slot)
            checkSlot(slot);
        checkMaster();
        checkDials();
        checkCursors();
        checkReadouts();
        checkPlaces();
        return m_broken;
    }

private:
    /// Formats \a found only for a broken condition, because this runs after every event.
    template <typename... Found>
    void expect(bool holds, const char *condition, const Found &...found)
    {
        if (!holds)
            m_broken.append(QLatin1String(condition) + QLatin1Char(':')
                            + (QString() + ... + (QLatin1Char(' ') + text(found))));
    }

    static QString text(double number)
    {
        return QString::number(number, 'g', 12);
    }

    static QString text(const QString &value)
    {
        return QLatin1Char('\'') + QString(value).replace(QLatin1Char('\n'), QLatin1Char('|'))
            + QLatin1Char('\'');
    }

    static QString text(const QWidget *widget)
    {
        QString found;
        QDebug(&found) << widget;
        return found;
    }

    bool loaded(int slot) const
    {
        return (m_probe.rfg_read_index() >> slot & 1) != 0;
    }

    QString distance(int counts) const
    {
        const double metres
            = counts * metresPerCountInVacuum / double{ m_probe.master_params().KU };
        return QString::number(metres, 'f', 2) + QLatin1Char(' ') + m_probe.d()->DIST_SUFFIX_STR;
    }

    void checkNumbers();
    void checkRange();
    void checkButtons();
    void checkSlot(int slot);
    void checkMaster();
    void checkDials();
    void checkCursors();
    void checkReadouts();
    void checkPlaces();
    int levelAt(int column) const;

    MainWindow &m_window;
    MainWindowProbe m_probe;
    QStringList m_broken;
};

void Checker::checkNumbers()
{
    const int mask = m_probe.rfg_read_index();
    expect(mask >= 0 && mask < 1 << slotTotal, "the mask has six bits", mask);
    const auto factor = double{ m_probe.master_params().KU };
    expect(factor >= 1.0 && factor <= 10.0, "the shortening factor is 1 to 10", factor);
    expect(std::abs(m_probe.dist_coef() * factor - metresPerCountInVacuum) < 1e-9,
           "metres per count follow the factor", m_probe.dist_coef(), factor);
    for (const int position : { m_probe.cursor_A_pos(), m_probe.cursor_B_pos() })
        expect(position >= 0 && position <= lastCount, "a cursor is on the axis", position);
    expect(m_probe.Cur_flag() == m_probe.Cur_flag_true(), "the user's cursor is the active one");
}

void Checker::checkRange()
{
    const double min = m_probe.cust_axisX()->min();
    const double max = m_probe.cust_axisX()->max();
    const int scale = m_probe.master_scale();
    expect(min >= 0.0, "the range does not begin left of 0", min, max);
    expect(scale >= 0 && scale <= widestScale, "the scale is 0 to 8", scale);
    expect(max - min == double(narrowestView << scale), "the range is as wide as its scale",
           max - min, scale);
    expect(double(m_probe.scrollfactorX()) == min, "the scroll is the range's left end",
           m_probe.scrollfactorX(), min);
    expect(m_probe.cust_axisY()->min() == -128.0 && m_probe.cust_axisY()->max() == 128.0,
           "the levels are -128 to 128");
    expect(m_probe.scroll_left_button()->isEnabled() == (min != 0.0),
           "left is offered unless at the left end", min);
    expect(m_probe.scroll_right_button()->isEnabled() == (max != double(lastCount)),
           "right is offered unless at the right end", max);
    expect(scale != 0 || !m_probe.scale_down_button()->isEnabled(), "nothing is below scale 0");
    expect(scale != widestScale || !m_probe.scale_up_button()->isEnabled(),
           "nothing is above scale 8");
}

void Checker::checkButtons()
{
    const auto oneOf = [this](QButtonGroup *group, int id, const char *condition) {
        int checked = 0;
        const auto buttons = group->buttons();
        for (const QAbstractButton *button : buttons)
            checked += button->isChecked() ? 1 : 0;
        expect(checked == 1 && group->checkedId() == id, condition, checked, group->checkedId(),
               id);
    };
    oneOf(m_probe.rfg_buttons(), m_probe.rfg_ID(), "one trace button is checked");
    oneOf(m_probe.up_buttons(), m_probe.Cur_flag(), "one cursor button is checked");
    oneOf(m_probe.cur_nav_group(), m_probe.Cur_flag(), "one navigation button is checked");
    const int parameter = m_probe.down_buttons()->checkedId();
    const bool settable = parameter == MainWindow::KU || parameter == MainWindow::V_OFFSET
        || parameter == MainWindow::H_OFFSET || parameter == MainWindow::SCALE;
    oneOf(m_probe.down_buttons(), settable ? parameter : -1, "one settable parameter is checked");
    expect(m_probe.smooth_button()->isChecked() == m_probe.smooth_rfg_flag(),
           "the smooth button shows the mode");
    expect(m_probe.difference_button()->isChecked() == (m_probe.diff_flag() == MainWindow::DIFF),
           "the difference button shows the mode");
}

void Checker::checkSlot(int slot)
{
    const LegendButton &button = *m_probe.selected_rfg()[slot];
    const bool full = loaded(slot);
    expect(full || !button.vis(), "an empty slot shows nothing", slot);
    for (const QAction *action :
         { button.reset_action, button.clear_action, button.visible_action })
        expect(action->isEnabled() == full, "the menu of a slot follows its bit", slot);
    expect(button.visible_action->isChecked() == button.vis(),
           "the check mark shows the visibility", slot);
    const QString title = m_probe.d()->RFG_STR + QStringLiteral(" %1\n").arg(slot + 1);
    expect(button.text().startsWith(title), "a button names its slot", button.text(), title);
    expect((button.text() == title + m_probe.d()->EMPTY_STR) == !full,
           "a button says what its bit says", slot, button.text());

    const QXYSeries *form = m_probe.rfg_series()[slot];
    const QXYSeries *other = m_probe.rfg_series_sp()[slot];
    if (m_probe.smooth_rfg_flag())
        std::swap(form, other);
    expect(m_probe.rfg_series()[slot]->count() < 2 * drawn, "a trace has at most 499 points", slot);
    expect(m_probe.rfg_series_sp()[slot]->count() <= drawn, "a spline has at most 250 points",
           slot);
    expect(form->isVisible() == button.vis(), "a trace is on the chart as its button says", slot);
    expect(!full || !other->isVisible(), "a trace is drawn in one form", slot);
}

void Checker::checkMaster()
{
    const int master = m_probe.rfg_master_ID();
    bool marked = false;
    for (int slot = 0; slot < slotTotal; ++slot) {
        if (!m_probe.selected_rfg()[slot]->mast())
            continue;
        marked = true;
        expect(slot == master, "no slot but the master is marked", slot, master);
    }
    expect(marked || !m_probe.master_is_set(), "a master is marked", master);
}

void Checker::checkDials()
{
    const Cont_dial &cursor = *m_probe.cursor_dial();
    expect(cursor.trueValue >= cursor.trueMin && cursor.trueValue <= cursor.trueMax,
           "the cursor dial is within its limits", cursor.trueValue);
    const Cont_dial &dial = *m_probe.param_dial();
    const int parameter = m_probe.down_buttons()->checkedId();
    const rfg_SHOWN &trace = m_probe.rfg_DATA()[m_probe.rfg_ID()];
    // A file may hold any shift; the dial keeps it until it is turned.
    const bool asRead = (parameter == MainWindow::H_OFFSET && dial.trueValue == trace.scroll)
        || (parameter == MainWindow::V_OFFSET && dial.trueValue == trace.offset);
    expect(asRead || (dial.trueValue >= dial.trueMin && dial.trueValue <= dial.trueMax),
           "the parameter dial is within its limits", dial.trueValue, dial.trueMin, dial.trueMax);
    const int limit = parameter == MainWindow::KU ? 9000
        : parameter == MainWindow::V_OFFSET       ? levelLimit
        : parameter == MainWindow::H_OFFSET       ? lastCount
                                                  : widestScale;
    expect(dial.trueMax == limit, "the parameter dial has its parameter's limits", dial.trueMax,
           limit);
}

void Checker::checkCursors()
{
    const double min = m_probe.cust_axisX()->min();
    const double max = m_probe.cust_axisX()->max();
    const auto check = [&](CurArrow *marker, const QLineSeries *line, const QLineSeries *level,
                           int column, int value) {
        const bool seen = column >= min && column <= max;
        expect(marker->cur_arrow1.isVisible() == seen && marker->cur_arrow2.isVisible() == seen,
               "a marker is visible if its cursor is in range", column);
        expect(line->count() == 2 && line->at(0).x() == column && line->at(1).x() == column,
               "a cursor's line is on its column", column);
        expect(level->count() == 2 && level->at(0).y() == value && level->at(1).y() == value,
               "a cursor's level line lies on its level", value);
    };
    check(m_probe.cur_arrowA(), m_probe.cursor_A(), m_probe.cursor_A_add(), m_probe.cursor_A_pos(),
          m_probe.cursor_A_pos_Y());
    check(m_probe.cur_arrowB(), m_probe.cursor_B(), m_probe.cursor_B_add(), m_probe.cursor_B_pos(),
          m_probe.cursor_B_pos_Y());
}

/// Level of the selected trace at \a column from the bytes of its record.
int Checker::levelAt(int column) const
{
    const rfg_SHOWN &trace = m_probe.rfg_DATA()[m_probe.rfg_ID()];
    if (!loaded(m_probe.rfg_ID()) || m_probe.diff_flag() == MainWindow::DIFF)
        return noLevel;
    const auto *bytes = reinterpret_cast<const char *>(&trace.f_p_840);
    quint32 delay = 0;
    std::memcpy(&delay, bytes + delayAt, sizeof delay);
    const int step = qBound(1, trace.coef_from_min, 64000);
    const qint64 sample = (qint64{ column } - trace.scroll) / step - qint64{ delay };
    if (sample < 0 || sample >= drawn)
        return noLevel;
    return trace.offset + static_cast<signed char>(bytes[samplesAt + sample]);
}

void Checker::checkReadouts()
{
    const int a = m_probe.cursor_A_pos();
    const int b = m_probe.cursor_B_pos();
    const auto check = [this](const QPushButton *button, const QString &name, int column,
                              int level) {
        const QString wanted = QStringLiteral("%1\n x = %2\n y = %3")
                                   .arg(name, distance(column),
                                        level == noLevel ? QString() : QString::number(level));
        expect(button->text() == wanted, "a readout says where its cursor is", button->text(),
               wanted);
        if (m_probe.diff_flag() == MainWindow::NORMAL)
            expect(level == levelAt(column), "a level is the record's", level, levelAt(column));
    };
    check(m_probe.curA_button(), m_probe.d()->CURSOR_A_STR, a, m_probe.cursor_A_pos_Y());
    check(m_probe.curB_button(), m_probe.d()->CURSOR_B_STR, b, m_probe.cursor_B_pos_Y());
    const QString between
        = m_probe.d()->DELTA_STR + QStringLiteral(" = ") + distance(std::abs(a - b));
    expect(m_probe.delta_lbl()->text() == between, "the distance between the cursors",
           m_probe.delta_lbl()->text(), between);
    const bool isA = m_probe.Cur_flag() == MainWindow::CURSOR_A;
    const QString caption = (isA ? m_probe.d()->CURSOR_A_STR : m_probe.d()->CURSOR_B_STR)
        + QLatin1Char('\n') + distance(isA ? a : b);
    expect(m_probe.cursor_dial()->titleText == caption, "the cursor dial names its cursor",
           m_probe.cursor_dial()->titleText, caption);
    const QString factor = m_probe.d()->KU_STR + QLatin1Char('\n')
        + QString::number(double{ m_probe.master_params().KU }, 'f', 3);
    expect(m_probe.KU_button()->text() == factor, "the factor's button says the factor",
           m_probe.KU_button()->text(), factor);
    const double metres = (narrowestView << m_probe.master_scale()) / 8.0;
    const QString scale = m_probe.d()->SCALE_STR + QLatin1Char('\n')
        + QString::number(metres, 'g', 6) + QLatin1String(" m");
    expect(m_probe.scale_button()->text() == scale, "the scale's button says the scale",
           m_probe.scale_button()->text(), scale);
}

void Checker::checkPlaces()
{
    const QSize window = m_window.size();
    // A screen smaller than the minimum size clips a maximised window.
    const QSize least = m_window.minimumSize();
    if (window.width() < least.width() || window.height() < least.height())
        return;
    const QWidget *contents = m_probe.centralWidget();
    const auto widgets = contents->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *widget : widgets)
        if (!widget->isWindow() && !widget->isHidden())
            expect(m_window.rect().contains(widget->geometry().translated(contents->pos())),
                   "every widget is inside the window", widget, contents);
}

} // namespace

QStringList brokenInvariants(MainWindow &window)
{
    return Checker(window).broken();
}
