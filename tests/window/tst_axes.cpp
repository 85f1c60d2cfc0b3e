// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowactions.h"

#include <QGraphicsScene>
#include <QtTest>

namespace {

struct Pair
{
    const QGraphicsLineItem *line;
    const QGraphicsSimpleTextItem *label;
};

QVector<Pair> allPairs(const MainWindowProbe &probe)
{
    QVector<Pair> pairs;
    for (int i = 0; i < 20; ++i)
        pairs.append({ &probe.axis_lines()[i], &probe.axis_lbl()[i] });
    for (int i = 0; i < 2; ++i)
        pairs.append({ &probe.axis_0_lines()[i], &probe.axis_0_lbl()[i] });
    return pairs;
}

/// Interior lines that are shown; they must be the first ones, each with its label.
int interiorLines(const MainWindowProbe &probe)
{
    int count = 0;
    while (count < 20 && probe.axis_lines()[count].isVisible()
           && probe.axis_lbl()[count].isVisible())
        ++count;
    for (int i = count; i < 20; ++i)
        if (probe.axis_lines()[i].isVisible() || probe.axis_lbl()[i].isVisible())
            return -1;
    return count;
}

QString interiorText(const MainWindowProbe &probe, int line)
{
    return probe.axis_lbl()[line].text();
}

bool edgeShown(const MainWindowProbe &probe, int edge)
{
    return probe.axis_0_lines()[edge].isVisible() && probe.axis_0_lbl()[edge].isVisible();
}

} // namespace

class TestAxes : public QObject
{
    Q_OBJECT

private slots:
    // ---- The items ----

    void twentyTwoPairsLieInTheSceneUnderTheTraces()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        const auto stack = stacked(*probe.Plot_Scene());
        const auto chart = stack.indexOf(probe.Plot_Chart());
        QVERIFY(chart >= 0);
        const auto pairs = allPairs(probe);
        QCOMPARE(pairs.size(), 22);
        for (const Pair &pair : pairs) {
            QCOMPARE(pair.line->scene(), probe.Plot_Scene());
            QCOMPARE(pair.label->scene(), probe.Plot_Scene());
            QCOMPARE(pair.line->zValue(), 0.0);
            const auto at = stack.indexOf(const_cast<QGraphicsLineItem *>(pair.line));
            QVERIFY(at >= 0 && at < chart);
            QCOMPARE(pair.label->brush(), probe.cust_axisX()->labelsBrush());
            QCOMPARE(pair.line->pen(), probe.cust_axisX()->gridLinePen());
        }
    }

    void titleAndStepLabelAreGray()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        for (const QGraphicsSimpleTextItem *text :
             { &probe.chart_title(), &probe.cursor_step_lbl() }) {
            QCOMPARE(text->scene(), probe.Plot_Scene());
            QCOMPARE(text->brush(), QBrush(Qt::gray));
        }
        QVERIFY(probe.chart_title().font().bold());
    }

    // ---- The step ----

    void theWorkedExample()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(interiorLines(probe), 12);
        const QStringList expected{ QStringLiteral("2.5"),  QStringLiteral("5.0"),
                                    QStringLiteral("7.5"),  QStringLiteral("10.0"),
                                    QStringLiteral("12.5"), QStringLiteral("15.0"),
                                    QStringLiteral("17.5"), QStringLiteral("20.0"),
                                    QStringLiteral("22.5"), QStringLiteral("25.0"),
                                    QStringLiteral("27.5"), QStringLiteral("30.0") };
        for (int i = 0; i < 12; ++i)
            QCOMPARE(interiorText(probe, i), expected[i]);
        QVERIFY(edgeShown(probe, 0));
        QCOMPARE(probe.axis_0_lbl()[0].text(), QStringLiteral("0.0"));
        QVERIFY(!edgeShown(probe, 1));
        QVERIFY(!probe.axis_0_lines()[1].isVisible());
    }

    void everyScaleHasItsGrid_data()
    {
        QTest::addColumn<double>("step");
        QTest::addColumn<int>("lines");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("zero");
        const auto row
            = [](const char *level, double step, int lines, const char *last, const char *zero) {
                  QTest::newRow(level) << step << lines << QString(QLatin1String(last))
                                       << QString(QLatin1String(zero));
              };
        row("0", 2.5, 12, "30.0", "0.0");
        row("1", 5.0, 12, "60", "0");
        row("2", 12.5, 10, "125.0", "0.0");
        row("3", 25.0, 10, "250", "0");
        row("4", 50.0, 10, "500", "0");
        row("5", 125.0, 8, "1000", "0");
        row("6", 250.0, 8, "2000", "0");
        row("7", 500.0, 8, "4000", "0");
        row("8", 500.0, 16, "8000", "0");
    }

    void everyScaleHasItsGrid()
    {
        QFETCH(double, step);
        QFETCH(int, lines);
        QFETCH(QString, last);
        QFETCH(QString, zero);
        const int level = QString::fromLatin1(QTest::currentDataTag()).toInt();
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        window.scale_change(level);
        QCOMPARE(interiorLines(probe), lines);
        QCOMPARE(interiorText(probe, lines - 1), last);
        QVERIFY(edgeShown(probe, 0));
        QCOMPARE(probe.axis_0_lbl()[0].text(), zero);
        QVERIFY(!edgeShown(probe, 1));
        // The first line stands one step from the edge; the view is 31.25 * 2^level metres wide.
        const double width = double{ probe.trueWidth() };
        const double first = step / (31.25 * (1 << level)) * width;
        QVERIFY(qAbs(probe.axis_lines()[0].x() - first) < 0.001);
        QVERIFY(qAbs(probe.axis_lines()[lines - 1].x() - lines * first) < 0.001);
        const int half = probe.axis_lbl()[0].font().pixelSize() / 2;
        QVERIFY(qAbs(probe.axis_lbl()[0].x() - (double{ probe.plotLeft() } + first - half))
                < 0.001);
        QCOMPARE(probe.axis_0_lines()[0].x(), 0.0);
        QCOMPARE(probe.axis_0_lbl()[0].x(), double{ probe.plotLeft() } - half);
    }

    void theStepFollowsTheVelocityFactor()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        window.KU_change(3.0);
        // 15.614 m across: 1.25 m a step, 12 whole intervals.
        QCOMPARE(interiorText(fixture.probe(), 0), QStringLiteral("1.3"));
        QCOMPARE(interiorText(fixture.probe(), 1), QStringLiteral("2.5"));
        QCOMPARE(interiorLines(fixture.probe()), 12);
    }

    void aPlotOfOnePixelHasTheSameStep()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        probe.trueWidth() = 1.0F;
        window.setXAxis();
        QCOMPARE(interiorLines(probe), 12);
        QCOMPARE(interiorText(probe, 11), QStringLiteral("30.0"));
        QVERIFY(probe.axis_lines()[11].x() < 1.0);
    }

    void aPlotWithoutWidthHasTextsAndNoOffsets()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        probe.trueWidth() = 0.0F;
        window.setXAxis();
        QCOMPARE(interiorText(probe, 11), QStringLiteral("30.0"));
        QCOMPARE(probe.axis_lines()[11].x(), 0.0);
    }

    void withoutAVelocityFactorThereIsNoGrid()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        probe.dist_coef() = 0.0;
        window.setXAxis();
        const auto pairs = allPairs(probe);
        for (const Pair &pair : pairs) {
            QVERIFY(!pair.line->isVisible());
            QVERIFY(!pair.label->isVisible());
        }
    }

    // ---- The edges ----

    void anEdge_data()
    {
        QTest::addColumn<int>("min");
        QTest::addColumn<int>("max");
        QTest::addColumn<int>("edge");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, int min, int max, int edge, bool shown,
                            const char *text) {
            QTest::newRow(name) << min << max << edge << shown << QString(QLatin1String(text));
        };
        // One count is 0.125 m; 250 counts have steps of 2.5 m.
        row("left, on a grid value", 20, 270, 0, true, "2.5");
        row("left, just under 0.3 of a step", 25, 275, 0, true, "3.1");
        row("left, at 0.4 of a step", 28, 278, 0, false, "");
        row("left, at 100 m", 800, 1050, 0, true, "");
        row("left, below 100 m", 780, 1030, 0, true, "97.5");
        row("left, negative", -16, 234, 0, true, "");
        row("left, negative and far from the grid", -8, 242, 0, false, "");
        // 0.9 of a step beyond the last interior line, and 0.5.
        row("right, far from the last line", 0, 238, 1, true, "29.8");
        row("right, near the last line", 0, 250, 1, false, "");
        row("right, beyond 100 m", 780, 1018, 1, true, "");
        // 32000 counts have steps of 500 m.
        row("left, at 1500 m", 12000, 44000, 0, true, "");
        row("left, at 500 m", 4000, 36000, 0, true, "500");
    }

    void anEdge()
    {
        QFETCH(int, min);
        QFETCH(int, max);
        QFETCH(int, edge);
        QFETCH(bool, shown);
        QFETCH(QString, text);
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        window.setPlotRange(min, max);
        QCOMPARE(probe.axis_0_lines()[edge].isVisible(), shown);
        QCOMPARE(probe.axis_0_lbl()[edge].isVisible(), shown);
        if (!shown)
            return;
        QCOMPARE(probe.axis_0_lbl()[edge].text(), text);
        const double width = edge == 0 ? 0.0 : double{ probe.trueWidth() };
        const int half = probe.axis_lbl()[0].font().pixelSize() / 2;
        QCOMPARE(probe.axis_0_lines()[edge].x(), width);
        QCOMPARE(probe.axis_0_lbl()[edge].x(), width + double{ probe.plotLeft() } - half);
    }

    void labelsOfLargeAndNegativeDistancesAreBlankWhileTheirLineIsDrawn()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        for (const auto &range :
             { std::pair<int, int>(12000, 44000), { 800, 1050 }, { -16, 234 } }) {
            window.setPlotRange(range.first, range.second);
            QVERIFY(probe.axis_0_lines()[0].isVisible());
            QVERIFY(probe.axis_0_lbl()[0].text().isEmpty());
        }
    }

    // ---- Geometry ----

    void layingOutPutsLabelsInTheMiddleOfTheBandUnderThePlot()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.axis_lbl()[0].font().pixelSize(), 10);
        window.axisSetup(QRectF(74.5, 50.0, 400.0, 200.0), QRectF(0.0, 0.0, 500.0, 300.0));
        QCOMPARE(probe.plotLeft(), 74.5F);
        const auto pairs = allPairs(probe);
        for (const Pair &pair : pairs) {
            QCOMPARE(pair.line->line(), QLineF(74.5, 250.0, 74.5, 50.0));
            // 250 + (300 - 250) / 2 - 10 / 2.
            QCOMPARE(pair.label->y(), 270.0);
        }
        // And the range is labelled anew.
        QCOMPARE(interiorLines(probe), 12);
    }

    void theTitleStandsAboveThePlot()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        const QRectF plot
            = probe.Plot_Chart()->mapToScene(probe.Plot_Chart()->plotArea()).boundingRect();
        QCOMPARE(probe.chart_title().x(), plot.left() + 9.0);
        QCOMPARE(probe.chart_title().y(),
                 plot.top() - probe.chart_title().boundingRect().height() - 2.0);
        QCOMPARE(double{ probe.plotLeft() }, double{ static_cast<float>(plot.left()) });
    }
};

QTEST_MAIN(TestAxes)
#include "tst_axes.moc"
