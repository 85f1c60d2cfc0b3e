// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"
#include "parambutton.h"
#include "trace_recipe.h"
#include "window_state.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

QT_CHARTS_USE_NAMESPACE

namespace {

constexpr char goodTrace[] = "samples=7,121,-60";
constexpr char secondTrace[]
    = "minstep=2.5 delay=2 shift_x=3 shift_y=7 ku=2.0 year=0x30 month=0x12 "
      "day=0x31 hours=0x23 minutes=0x59 seconds=0x58 samples=0,1,-20";
constexpr int cursorColumn = 150;

/// A file of the tables: "NAME: RECIPE", then the expected lines with two blanks before each.
struct Row
{
    QByteArray name;
    QString recipe;
    QStringList expected;
};

void addRows(const QString &path, std::vector<Row> &rows)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no table %s", qPrintable(path));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("  ")))
            rows.back().expected.append(line.mid(2));
        else if (!line.isEmpty())
            rows.push_back({ line.section(QLatin1String(": "), 0, 0).toUtf8(),
                             line.section(QLatin1String(": "), 1),
                             {} });
    }
}

QString oneLine(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1Char('|'));
}

QString quoted(const QString &text)
{
    return QLatin1Char('\'') + oneLine(text) + QLatin1Char('\'');
}

QString pointsText(const QXYSeries &series)
{
    const QVector<QPointF> points = qtcompat::pointsOf(series);
    if (points.isEmpty())
        return QStringLiteral("none");
    double low = points[0].y();
    double high = low;
    for (const QPointF &point : points) {
        low = qMin(low, point.y());
        high = qMax(high, point.y());
    }
    const auto text = [](const QPointF &point) {
        return QStringLiteral("(%1, %2)").arg(point.x(), 0, 'f', 0).arg(point.y(), 0, 'f', 0);
    };
    return QStringLiteral("%1 from %2 by %3 to %4 within %5..%6")
        .arg(points.size())
        .arg(text(points[0]), points.size() > 1 ? text(points[1]) : QStringLiteral("nothing"),
             text(points.last()))
        .arg(low)
        .arg(high);
}

QString slotText(const MainWindowProbe &probe, int slot)
{
    const rfg_SHOWN &trace = probe.rfg_DATA()[slot];
    return QStringLiteral("step %1, scroll %2, offset %3, '%4' '%5', %6")
        .arg(trace.coef_from_min)
        .arg(trace.scroll)
        .arg(trace.offset)
        .arg(QLocale::system().toString(trace.date, QLocale::ShortFormat),
             trace.time.toString(Qt::TextDate), pointsText(*probe.rfg_series()[slot]));
}

/// The lines of \a state that a load into slot 2 must not change. The label of the cursor step
/// moves to its corner only when the plot is resized, so its place may differ by a part of a pixel.
QStringList withoutSlotTwo(const QStringList &state)
{
    QStringList lines;
    for (const QString &line : state)
        if (!line.contains(QStringLiteral("[1]")) && !line.contains(QStringLiteral("RFG 2"))
            && !line.startsWith(QStringLiteral("slots: ")))
            lines.append(line.startsWith(QStringLiteral("cursor step: "))
                             ? line.section(QStringLiteral(" at "), 0, 0)
                             : line);
    return lines;
}

QString selectedText(const WindowFixture &fixture)
{
    const MainWindowProbe &probe = fixture.probe();
    const QString &folder = probe.rfg_DATA()[1].dir_name;
    const QString &file = probe.rfg_DATA()[1].file_name;
    QString title = probe.chart_title().text();
    const QString begin = file + QStringLiteral(", /") + folder + QStringLiteral(", ");
    if (folder == QFileInfo(fixture.path(QStringLiteral("x"))).dir().dirName()
        && title.startsWith(begin))
        title.replace(0, begin.size(), QStringLiteral("NAME, /FOLDER, "));
    return QStringLiteral("selected: %1, %2, %3, %4")
        .arg(quoted(title), quoted(probe.rfg_buttons()->button(1)->text()),
             probe.cursor_step_lbl().text(), quoted(probe.curA_button()->text()));
}

QString captions(const MainWindowProbe &probe)
{
    QStringList texts;
    for (const QAbstractButton *button : std::initializer_list<const QAbstractButton *>{
             probe.gain_button(), probe.KU_button(), probe.average_button(),
             probe.V_offset_button(), probe.pulse_width_button(), probe.pulse_amplitude_button(),
             probe.impedance_button(), probe.H_offset_button(), probe.scale_button() })
        texts.append(oneLine(button->text()));
    texts.append(QStringLiteral("dial %1 %2")
                     .arg(probe.param_dial()->trueValue)
                     .arg(quoted(probe.param_dial()->titleText)));
    return QStringLiteral("captions: ") + texts.join(QStringLiteral(", "));
}

QString masterText(const MainWindowProbe &probe)
{
    const auto can = [](const QPushButton *button) {
        return QLatin1String(button->isEnabled() ? "can" : "cannot");
    };
    return QStringLiteral("master: scale %1, range %2..%3, factor %4, %5 m a count, ")
               .arg(probe.master_scale())
               .arg(probe.cust_axisX()->min(), 0, 'f', 0)
               .arg(probe.cust_axisX()->max(), 0, 'f', 0)
               .arg(QString::number(double{ probe.master_params().KU }, 'g', 9),
                    QString::number(probe.dist_coef(), 'g', 15))
        + QStringLiteral("%1, %2, %3, %4, %5, ")
              .arg(oneLine(probe.KU_button()->text()), oneLine(probe.scale_button()->text()),
                   oneLine(probe.H_offset_button()->text()), probe.cursor_step_lbl().text(),
                   quoted(probe.curA_button()->text()))
        + QStringLiteral("left %1, right %2, down %3, up %4")
              .arg(can(probe.scroll_left_button()), can(probe.scroll_right_button()),
                   can(probe.scale_down_button()), can(probe.scale_up_button()));
}

} // namespace

/// Every damaged trace of the tables in tests/data/traces, loaded beside good ones. The window is
/// as after a run with \c goodTrace in slot 1, the master, and \c secondTrace in slot 3; cursor A
/// is at column 150. A row has seven lines:
///   beside      loaded into the empty slot 2
///   selected    slot 2 selected, the cursor at its column again
///   captions    the parameter buttons and the dial
///   difference  with the difference mode on
///   smooth      with smoothing on
///   master      slot 2 made the master
///   over        loaded into slot 3, over the trace there
class TestTraceCorpus : public WindowTest
{
    Q_OBJECT

private:
    QStringList state; ///< of the window at first, without slot 2

    /// Opens the window. It serves all rows: no effect of a file may outlast it.
    void open()
    {
        const QString good = fixture->path(QStringLiteral("g"));
        const QString second = fixture->path(QStringLiteral("s"));
        corpus::writeTrace(QLatin1String(goodTrace), good);
        corpus::writeTrace(QLatin1String(secondTrace), second);
        WindowFixture::writePreviousRun({ good, QString(), second });
        MainWindow &window = fixture->open();
        window.cursorSetup_slot(cursorColumn);
        // Creates the objects that are created on first use.
        window.grab();
        probe().smooth_button()->setChecked(true);
        probe().smooth_button()->setChecked(false);
        state = withoutSlotTwo(stateOf(window));
    }

    /// Sets the window back to its first state, with zeros in the record of slot 2.
    void reset()
    {
        MainWindow &window = fixture->window();
        const QString zeros = fixture->path(QStringLiteral("z"));
        corpus::writeTrace(QStringLiteral("fill=00"), zeros);
        window.add_Selected_RFG(zeros, 1);
        window.add_Selected_RFG(fixture->path(QStringLiteral("g")), 0);
        window.add_Selected_RFG(fixture->path(QStringLiteral("s")), 2);
        probe().rfg_buttons()->button(0)->setChecked(true);
        // A zoom button that is disabled at one end of the scale stays disabled after a jump to the
        // other end.
        window.scale_change(1);
        window.setMasterID(0);
        window.remove_Selected_RFG(1);
        window.cursorSetup_slot(cursorColumn);
        WindowFixture::settle();
    }

    void check(const Row &row)
    {
        QCOMPARE(row.expected.size(), 7);
        MainWindow &window = fixture->window();
        const MainWindowProbe &probe = fixture->probe();
        QCOMPARE(withoutSlotTwo(stateOf(window)), state);
        const QString path = fixture->path(QStringLiteral("bad.tdr"));
        corpus::writeTrace(row.recipe, path);

        window.add_Selected_RFG(path, 1);
        QCOMPARE(withoutSlotTwo(stateOf(window)), state);
        QCOMPARE(probe.rfg_read_index(), 7);
        QCOMPARE(probe.rfg_ID(), 0);
        QCOMPARE(probe.rfg_master_ID(), 0);
        QVERIFY(probe.rfg_series()[1]->isVisible());
        QCOMPARE(probe.rfg_DATA()[1].name, QStringLiteral("RFG 2"));
        QCOMPARE(probe.rfg_DATA()[1].full_path, path);
        QCOMPARE(QStringLiteral("beside: ") + slotText(probe, 1), row.expected[0]);

        probe.rfg_buttons()->button(1)->setChecked(true);
        window.cursorSetup_slot(cursorColumn);
        QCOMPARE(selectedText(*fixture), row.expected[1]);
        QCOMPARE(captions(probe), row.expected[2]);

        probe.difference_button()->setChecked(true);
        QCOMPARE(QStringLiteral("difference: ") + pointsText(*probe.rfg_series()[1]),
                 row.expected[3]);
        QCOMPARE(probe.cursor_A_pos_Y(), 129);
        probe.difference_button()->setChecked(false);
        QCOMPARE(QStringLiteral("beside: ") + slotText(probe, 1), row.expected[0]);

        probe.smooth_button()->setChecked(true);
        QCOMPARE(QStringLiteral("smooth: ") + pointsText(*probe.rfg_series_sp()[1]),
                 row.expected[4]);
        probe.smooth_button()->setChecked(false);

        window.setMasterID(1);
        QCOMPARE(masterText(probe), row.expected[5]);

        const QString good = slotText(probe, 0);
        window.add_Selected_RFG(path, 2);
        QCOMPARE(QStringLiteral("over: ") + slotText(probe, 2), row.expected[6]);
        QCOMPARE(slotText(probe, 0), good);
        QCOMPARE(masterText(probe), row.expected[5]);
        QVERIFY(!window.grab().isNull());
    }

private slots:
    void eachFileLeavesTheWindowAsItsRowSays()
    {
        std::vector<Row> rows;
        const QDir tables(QStringLiteral(VELKOR_TEST_DATA "/traces"));
        const auto files = tables.entryInfoList(QDir::Files);
        for (const QFileInfo &file : files)
            addRows(file.filePath(), rows);
        QVERIFY(rows.size() >= 391);
        open();
        each(rows, [this](const Row &row) {
            check(row);
            reset();
        });
    }
};

QTEST_MAIN(TestTraceCorpus)
#include "tst_trace_corpus.moc"
