// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "parambutton.h"
#include "trace_oracle.h"
#include "trace_rows.h"
#include "windowfixture.h"
#include "windowstate.h"

#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QtTest>

QT_CHARTS_USE_NAMESPACE

namespace {

/// A file of the tables in the tree, with the lines that are expected of it.
struct Row
{
    QString name;
    QString recipe;
    QStringList expected;
};

QVector<Row> rowsOf(const QString &table)
{
    QFile file(QStringLiteral(VELKOR_TEST_DATA "/traces/") + table + QStringLiteral(".txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no table %s", qPrintable(file.fileName()));
    QVector<Row> rows;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QStringLiteral("  ")))
            rows.last().expected.append(line.mid(2));
        else if (!line.isEmpty())
            rows.append({ line.section(QStringLiteral(": "), 0, 0),
                          line.section(QStringLiteral(": "), 1),
                          {} });
    }
    return rows;
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

/// The lines of \a state that a load into slot 2 must leave alone. The label of the cursor's step
/// is put into its corner when the plot is resized, and stands a part of a pixel off it in between.
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

/// The window that the tables were made for.
MainWindow &openGood(WindowFixture &fixture)
{
    corpus::writeTrace(QString::fromLatin1(corpus::goodTrace), fixture.path(QStringLiteral("g")));
    corpus::writeTrace(QString::fromLatin1(corpus::secondTrace), fixture.path(QStringLiteral("s")));
    {
        QSettings settings(WindowFixture::settingsFile(), QSettings::IniFormat);
        settings.beginGroup(constants::groupPrevFiles);
        settings.setValue(constants::keyStateIndex, 5);
        settings.setValue(constants::keyMasterId, 0);
        settings.setValue(QStringLiteral("file1"), fixture.path(QStringLiteral("g")));
        settings.setValue(QStringLiteral("file3"), fixture.path(QStringLiteral("s")));
    }
    MainWindow &window = fixture.open();
    window.cursorSetup_slot(corpus::cursorColumn);
    return window;
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

/// Every damaged trace of the tables, loaded into a window that shows good ones.
class TestTraceCorpus : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowFixture> fixture;
    QStringList state; ///< at first, but for the slot that the rows use

    /// The window as \c openGood left it, with slot 2 empty and its record all zeros. One is enough
    /// for all rows: what a bad trace was good for must not outlast it.
    MainWindow &openAsAtFirst()
    {
        if (!fixture) {
            fixture = std::make_unique<WindowFixture>();
            MainWindow &window = openGood(*fixture);
            // What is made when it is first shown, and then kept, shall be there.
            window.grab();
            fixture->probe().smooth_button()->setChecked(true);
            fixture->probe().smooth_button()->setChecked(false);
            state = withoutSlotTwo(stateOf(window));
            return window;
        }
        MainWindow &window = fixture->window();
        const QString zeros = fixture->path(QStringLiteral("z"));
        corpus::writeTrace(QStringLiteral("fill=00"), zeros);
        window.add_Selected_RFG(zeros, 1);
        window.add_Selected_RFG(fixture->path(QStringLiteral("g")), 0);
        window.add_Selected_RFG(fixture->path(QStringLiteral("s")), 2);
        fixture->probe().rfg_buttons()->button(0)->setChecked(true);
        // A button that is off at one end of the scale stays so on the way to the other end.
        window.scale_change(1);
        window.setMasterID(0);
        window.remove_Selected_RFG(1);
        window.cursorSetup_slot(corpus::cursorColumn);
        WindowFixture::settle();
        return window;
    }

private slots:
    void cleanup()
    {
        // What a failure left behind would fail the next rows as well.
        if (QTest::currentTestFailed())
            fixture.reset();
    }

    void cleanupTestCase()
    {
        fixture.reset();
    }

    void theTablesAreThoseOfTheirMaker()
    {
        int files = 0;
        QSet<QString> names;
        const auto families = corpus::traceFamilies();
        for (const corpus::Family &family : families) {
            QFile file(QStringLiteral(VELKOR_TEST_DATA "/traces/") + family.name
                       + QStringLiteral(".txt"));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(QString::fromUtf8(file.readAll()), corpus::tableOf(family));
            for (const corpus::Recipe &recipe : family.recipes)
                names.insert(recipe.name);
            files += static_cast<int>(family.recipes.size());
        }
        QCOMPARE(names.size(), files);
        QVERIFY(files >= 250);
    }

    void aFileLeavesTheWindowAsItsRowSays_data()
    {
        QTest::addColumn<QString>("recipe");
        QTest::addColumn<QStringList>("expected");
        const auto families = corpus::traceFamilies();
        for (const corpus::Family &family : families) {
            const auto rows = rowsOf(family.name);
            for (const Row &row : rows)
                QTest::newRow(qPrintable(row.name)) << row.recipe << row.expected;
        }
    }

    void aFileLeavesTheWindowAsItsRowSays()
    {
        QFETCH(QString, recipe);
        QFETCH(QStringList, expected);
        QCOMPARE(expected.size(), 7);
        MainWindow &window = openAsAtFirst();
        const MainWindowProbe &probe = fixture->probe();
        QCOMPARE(withoutSlotTwo(stateOf(window)), state);
        const QString path = fixture->path(QStringLiteral("bad.tdr"));
        corpus::writeTrace(recipe, path);

        window.add_Selected_RFG(path, 1);
        QCOMPARE(withoutSlotTwo(stateOf(window)), state);
        QCOMPARE(probe.rfg_read_index(), 7);
        QCOMPARE(probe.rfg_ID(), 0);
        QCOMPARE(probe.rfg_master_ID(), 0);
        QVERIFY(probe.rfg_series()[1]->isVisible());
        QCOMPARE(probe.rfg_DATA()[1].name, QStringLiteral("RFG 2"));
        QCOMPARE(probe.rfg_DATA()[1].full_path, path);
        QCOMPARE(QStringLiteral("beside: ") + slotText(probe, 1), expected[0]);

        probe.rfg_buttons()->button(1)->setChecked(true);
        window.cursorSetup_slot(corpus::cursorColumn);
        QCOMPARE(selectedText(*fixture), expected[1]);
        QCOMPARE(captions(probe), expected[2]);

        probe.difference_button()->setChecked(true);
        QCOMPARE(QStringLiteral("difference: ") + pointsText(*probe.rfg_series()[1]), expected[3]);
        QCOMPARE(probe.cursor_A_pos_Y(), 129);
        probe.difference_button()->setChecked(false);
        QCOMPARE(QStringLiteral("beside: ") + slotText(probe, 1), expected[0]);

        probe.smooth_button()->setChecked(true);
        QCOMPARE(QStringLiteral("smooth: ") + pointsText(*probe.rfg_series_sp()[1]), expected[4]);
        probe.smooth_button()->setChecked(false);

        window.setMasterID(1);
        QCOMPARE(masterText(probe), expected[5]);

        const QString good = slotText(probe, 0);
        window.add_Selected_RFG(path, 2);
        QCOMPARE(QStringLiteral("over: ") + slotText(probe, 2), expected[6]);
        QCOMPARE(slotText(probe, 0), good);
        QCOMPARE(masterText(probe), expected[5]);
        QVERIFY(!window.grab().isNull());
    }
};

QTEST_MAIN(TestTraceCorpus)
#include "tst_trace_corpus.moc"
