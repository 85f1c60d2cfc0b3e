// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/axis_grid.h"

#include <QRandomGenerator>
#include <QtTest>

#include <climits>
#include <cmath>
#include <limits>

using calc::GridPlan;
using calc::Range;

Q_DECLARE_METATYPE(calc::Range)

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr float plotWidth = 500.0F;
const double startUp = calc::metresPerCount(1.49896229F); // a hair above 0.125

bool isHidden(const GridPlan::Line &line)
{
    return !line.visible && line.offset == 0.0 && line.text.isEmpty();
}

// Empty when \a plan holds together for its range, else what is wrong with it.
QString faultOf(const GridPlan &plan, double span, double width)
{
    if (!plan.valid || !(plan.step > 0.0))
        return QStringLiteral("no step");
    const double intervals = span / plan.step;
    if (intervals < 7.0 - 1e-9 || intervals > 20.0 + 1e-9)
        return QStringLiteral("%1 intervals").arg(intervals);
    if (plan.interiorCount < 6 || plan.interiorCount > 20)
        return QStringLiteral("%1 lines").arg(plan.interiorCount);
    const double pixels = plan.step * width / span;
    double before = plan.interior[0].offset - pixels;
    if (before > 1e-6 || before < -pixels - 1e-6)
        return QStringLiteral("the first line stands at %1").arg(plan.interior[0].offset);
    for (int i = 0; i < plan.interiorCount; ++i) {
        const GridPlan::Line &line = plan.interior[i];
        if (!line.visible || line.text.isEmpty())
            return QStringLiteral("line %1 is not drawn").arg(i);
        if (std::fabs(line.offset - before - pixels) > 1e-6)
            return QStringLiteral("line %1 is out of step").arg(i);
        before = line.offset;
    }
    if (before > width + 1e-6)
        return QStringLiteral("the last line stands at %1").arg(before);
    for (int i = plan.interiorCount; i < 20; ++i) {
        if (!isHidden(plan.interior[i]))
            return QStringLiteral("line %1 is drawn").arg(i);
    }
    const bool rightIsFar = width - before > 0.75 * pixels;
    const bool rightIsClear = std::fabs(width - before - 0.75 * pixels) > 1e-6;
    if (rightIsClear && plan.edges[1].visible != rightIsFar)
        return QStringLiteral("right edge");
    return QString();
}

} // namespace

class TestAxisGrid : public QObject
{
    Q_OBJECT

private slots:
    void theLargestStepOfSevenToTwentyIntervalsIsTaken_data()
    {
        QTest::addColumn<double>("span");
        QTest::addColumn<double>("step");
        QTest::newRow("12.5 intervals") << 31.25 << 2.5;
        QTest::newRow("10: lower end of a decade") << 10.0 << 1.25;
        QTest::newRow("17.4: just too short for the next") << 17.4 << 1.25;
        QTest::newRow("17.5: seven intervals suffice") << 17.5 << 2.5;
        QTest::newRow("34.9") << 34.9 << 2.5;
        QTest::newRow("35") << 35.0 << 5.0;
        QTest::newRow("99.9: upper end of a decade") << 99.9 << 5.0;
        QTest::newRow("100") << 100.0 << 12.5;
        QTest::newRow("8000") << 8000.0 << 500.0;
        QTest::newRow("12000") << 12000.0 << 1250.0;
        QTest::newRow("a quarter of a metre") << 0.25 << 0.025;
    }

    void theLargestStepOfSevenToTwentyIntervalsIsTaken()
    {
        QFETCH(double, span);
        QTEST(calc::gridStep(span), "step");
    }

    void thereIsNoStepForNoSpan_data()
    {
        QTest::addColumn<double>("span");
        QTest::newRow("zero") << 0.0;
        QTest::newRow("negative") << -31.25;
        QTest::newRow("not a number") << notANumber;
        QTest::newRow("infinity") << infinity;
        QTest::newRow("minus infinity") << -infinity;
        QTest::newRow("the smallest double") << std::numeric_limits<double>::denorm_min();
    }

    void thereIsNoStepForNoSpan()
    {
        QFETCH(double, span);
        QCOMPARE(calc::gridStep(span), 0.0);
    }

    void theFirstViewHasTwelveLinesAndNoRightEdge()
    {
        const GridPlan plan = calc::planGrid({ 0, 250 }, 0.125, plotWidth);
        QVERIFY(plan.valid);
        QCOMPARE(plan.step, 2.5);
        QVERIFY(plan.edges[0].visible);
        QCOMPARE(plan.edges[0].offset, 0.0);
        QCOMPARE(plan.edges[0].text, QStringLiteral("0.0"));
        QCOMPARE(plan.interiorCount, 12);
        QCOMPARE(plan.interior[0].text, QStringLiteral("2.5"));
        QCOMPARE(plan.interior[0].offset, 40.0); // 2.5 of 31.25 m on 500 pixels
        QCOMPARE(plan.interior[1].text, QStringLiteral("5.0"));
        QCOMPARE(plan.interior[1].offset, 80.0);
        QCOMPARE(plan.interior[11].text, QStringLiteral("30.0"));
        QCOMPARE(plan.interior[11].offset, 480.0);
        QVERIFY(isHidden(plan.interior[12]));
        QVERIFY(isHidden(plan.interior[19]));
        QVERIFY(isHidden(plan.edges[1]));
    }

    void zoomingOutAtStartUp_data()
    {
        QTest::addColumn<int>("exponent");
        QTest::addColumn<double>("step");
        QTest::addColumn<int>("lines");
        QTest::addColumn<QString>("last");
        QTest::newRow("level 0") << 0 << 2.5 << 12 << QStringLiteral("30.0");
        QTest::newRow("level 1") << 1 << 5.0 << 12 << QStringLiteral("60");
        QTest::newRow("level 2") << 2 << 12.5 << 10 << QStringLiteral("125.0");
        QTest::newRow("level 3") << 3 << 25.0 << 10 << QStringLiteral("250");
        QTest::newRow("level 4") << 4 << 50.0 << 10 << QStringLiteral("500");
        QTest::newRow("level 5") << 5 << 125.0 << 8 << QStringLiteral("1000");
        QTest::newRow("level 6") << 6 << 250.0 << 8 << QStringLiteral("2000");
        QTest::newRow("level 7") << 7 << 500.0 << 8 << QStringLiteral("4000");
        QTest::newRow("level 8") << 8 << 500.0 << 16 << QStringLiteral("8000");
    }

    void zoomingOutAtStartUp()
    {
        QFETCH(int, exponent);
        QFETCH(int, lines);
        const GridPlan plan
            = calc::planGrid({ 0, calc::visibleCounts(exponent) }, startUp, plotWidth);
        QTEST(plan.step, "step");
        QCOMPARE(plan.interiorCount, lines);
        QTEST(plan.interior[lines - 1].text, "last");
        QVERIFY(plan.edges[0].visible);
        // One count is a hair more than 0.125 m, so a line that should be the edge stands before
        // it.
        QVERIFY(isHidden(plan.edges[1]));
        QVERIFY(plan.interior[lines - 1].offset < static_cast<double>(plotWidth));
    }

    void edgesAreDrawnAndLabelledByTheirRules_data()
    {
        // One metre per count and one pixel per metre keep the numbers legible.
        QTest::addColumn<Range>("range");
        QTest::addColumn<bool>("leftShown");
        QTest::addColumn<QString>("leftText");
        QTest::addColumn<bool>("rightShown");
        QTest::addColumn<QString>("rightText");
        const QString none;
        QTest::newRow("integral from 0")
            << Range{ 0, 200 } << true << QStringLiteral("0") << true << QStringLiteral("200");
        QTest::newRow("fractional from a grid value")
            << Range{ 100, 130 } << true << QStringLiteral("100.0") << true << none;
        QTest::newRow("fractional above 100 m is blank but drawn")
            << Range{ 105, 135 } << true << none << true << none;
        QTest::newRow("fractional below 100 m")
            << Range{ 50, 80 } << true << QStringLiteral("50.0") << true << QStringLiteral("80.0");
        QTest::newRow("integral at 1000 m is labelled")
            << Range{ 1000, 1200 } << true << QStringLiteral("1000") << true << none;
        QTest::newRow("integral above 1000 m is blank but drawn")
            << Range{ 1025, 1225 } << true << none << true << none;
        QTest::newRow("just less than 0.3 of a step in")
            << Range{ 7, 207 } << true << QStringLiteral("7") << false << none;
        QTest::newRow("just more than 0.3 of a step in")
            << Range{ 8, 208 } << false << none << false << none;
        QTest::newRow("last line 0.72 of a step before the right edge")
            << Range{ 18, 218 } << false << none << false << none;
        QTest::newRow("last line 0.76 of a step before the right edge")
            << Range{ 19, 219 } << false << none << true << QStringLiteral("219");
        QTest::newRow("negative left edge is blank but drawn")
            << Range{ -50, 150 } << true << none << true << QStringLiteral("150");
        QTest::newRow("negative right edge is blank but drawn")
            << Range{ -300, -100 } << true << none << true << none;
    }

    void edgesAreDrawnAndLabelledByTheirRules()
    {
        QFETCH(Range, range);
        const int span = range.max - range.min;
        const GridPlan plan = calc::planGrid(range, 1.0, static_cast<float>(span));
        QTEST(plan.edges[0].visible, "leftShown");
        QTEST(plan.edges[0].text, "leftText");
        QCOMPARE(plan.edges[0].offset, 0.0);
        QTEST(plan.edges[1].visible, "rightShown");
        QTEST(plan.edges[1].text, "rightText");
        QCOMPARE(plan.edges[1].offset, plan.edges[1].visible ? double(span) : 0.0);
    }

    void linesStandOnRoundValuesWhereverTheViewStarts()
    {
        const GridPlan plan = calc::planGrid({ 7, 207 }, 1.0, 400.0F);
        QCOMPARE(plan.step, 25.0);
        QCOMPARE(plan.interiorCount, 8);
        QCOMPARE(plan.interior[0].text, QStringLiteral("25"));
        QCOMPARE(plan.interior[0].offset, 36.0); // 18 m at two pixels a metre
        QCOMPARE(plan.interior[7].text, QStringLiteral("200"));
        QCOMPARE(plan.interior[7].offset, 386.0);
    }

    void negativeDistancesAreLabelledInside()
    {
        const GridPlan plan = calc::planGrid({ -50, 150 }, 1.0, 200.0F);
        QCOMPARE(plan.interiorCount, 7);
        QCOMPARE(plan.interior[0].text, QStringLiteral("-25"));
        QCOMPARE(plan.interior[0].offset, 25.0);
        QCOMPARE(plan.interior[1].text, QStringLiteral("0"));
        QCOMPARE(plan.interior[6].text, QStringLiteral("125"));
    }

    void noRangeNeedsMoreThanTwentyLines()
    {
        // 19.98 intervals of 5 m, starting just before a grid value: as many as can be.
        const GridPlan plan = calc::planGrid({ 49, 1048 }, 0.1, plotWidth);
        QCOMPARE(plan.step, 5.0);
        QCOMPARE(plan.interiorCount, 20);
        QCOMPARE(plan.interior[0].text, QStringLiteral("5"));
        QCOMPARE(plan.interior[19].text, QStringLiteral("100"));
        QVERIFY(plan.edges[1].visible);
    }

    void theStepDoesNotDependOnTheWidth()
    {
        const GridPlan plan = calc::planGrid({ 0, 250 }, 0.125, 1.0F);
        QCOMPARE(plan.step, 2.5);
        QCOMPARE(plan.interiorCount, 12);
        QCOMPARE(plan.interior[0].offset, 0.08);
        QCOMPARE(plan.interior[11].offset, 0.96);
        QCOMPARE(plan.interior[11].text, QStringLiteral("30.0"));
    }

    void aPlotWithoutWidthHasTextsAndNoOffsets_data()
    {
        QTest::addColumn<float>("width");
        QTest::newRow("not laid out yet") << 0.0F;
        QTest::newRow("negative") << -1.0F;
        QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN();
        QTest::newRow("infinity") << std::numeric_limits<float>::infinity();
    }

    void aPlotWithoutWidthHasTextsAndNoOffsets()
    {
        QFETCH(float, width);
        const GridPlan plan = calc::planGrid({ 0, 200 }, 1.0, width);
        QVERIFY(plan.valid);
        QCOMPARE(plan.interiorCount, 7);
        for (int i = 0; i < 7; ++i) {
            QVERIFY(plan.interior[i].visible);
            QCOMPARE(plan.interior[i].offset, 0.0);
            QCOMPARE(plan.interior[i].text, QString::number(25 * (i + 1)));
        }
        QVERIFY(plan.edges[1].visible);
        QCOMPARE(plan.edges[1].offset, 0.0);
    }

    void aRangeWithoutDistanceHidesEverything_data()
    {
        QTest::addColumn<Range>("range");
        QTest::addColumn<double>("metresPerCount");
        QTest::newRow("no velocity factor yet") << Range{ 0, 250 } << 0.0;
        QTest::newRow("empty") << Range{ 250, 250 } << 0.125;
        QTest::newRow("reversed") << Range{ 250, 0 } << 0.125;
        QTest::newRow("not a number") << Range{ 0, 250 } << notANumber;
        QTest::newRow("infinite") << Range{ 1, 250 } << infinity;
        QTest::newRow("infinite from 0") << Range{ 0, 250 } << infinity;
        QTest::newRow("negative metres") << Range{ 0, 250 } << -0.125;
        QTest::newRow("overflow") << Range{ INT_MIN, INT_MAX } << 1e300;
    }

    void aRangeWithoutDistanceHidesEverything()
    {
        QFETCH(Range, range);
        QFETCH(double, metresPerCount);
        const GridPlan plan = calc::planGrid(range, metresPerCount, plotWidth);
        QVERIFY(!plan.valid);
        QCOMPARE(plan.interiorCount, 0);
        for (const GridPlan::Line &line : plan.edges)
            QVERIFY(isHidden(line));
        for (const GridPlan::Line &line : plan.interior)
            QVERIFY(isHidden(line));
    }

    void everyViewGetsAGridThatHoldsTogether_data()
    {
        QTest::addColumn<int>("exponent");
        for (int exponent = 0; exponent <= 8; ++exponent)
            QTest::newRow(qPrintable(QStringLiteral("level %1").arg(exponent))) << exponent;
    }

    void everyViewGetsAGridThatHoldsTogether()
    {
        QFETCH(int, exponent);
        const int width = calc::visibleCounts(exponent);
        // All velocity factors of the dial in steps of 0.045, and views all over the axis.
        for (int dial = 0; dial <= 9000; dial += 45) {
            const double metres = calc::metresPerCount(calc::clampedKU(calc::kuOfDial(dial)));
            for (int min = 0; min <= 64000 - width; min += 1009) {
                const Range range = { min, min + width };
                const GridPlan plan = calc::planGrid(range, metres, plotWidth);
                const QString fault = faultOf(plan, range.max * metres - min * metres, 500.0);
                QVERIFY2(fault.isEmpty(),
                         qPrintable(QStringLiteral("%1 from %2, %3 m per count")
                                        .arg(fault)
                                        .arg(min)
                                        .arg(metres, 0, 'g', 17)));
            }
        }
    }

    void anyOtherRangeHoldsTogetherToo()
    {
        QRandomGenerator random(20240305);
        for (int round = 0; round < 50000; ++round) {
            const int min = random.bounded(-64000, 128000);
            const Range range = { min, min + random.bounded(1, 64001) };
            const double metres = 0.0187 + 0.17 * random.generateDouble();
            const GridPlan plan = calc::planGrid(range, metres, plotWidth);
            const QString fault = faultOf(plan, range.max * metres - range.min * metres, 500.0);
            QVERIFY2(fault.isEmpty(),
                     qPrintable(QStringLiteral("%1: %2..%3, %4 m per count")
                                    .arg(fault)
                                    .arg(range.min)
                                    .arg(range.max)
                                    .arg(metres, 0, 'g', 17)));
        }
    }

    void extremeRangesAreDefined()
    {
        for (const int min : { INT_MIN, -1, 0, INT_MAX - 1 }) {
            for (const int max : { INT_MIN + 1, 0, 1, INT_MAX }) {
                for (const double metres : { 1e-320, 1e-300, 0.125, 1e250, 1e300 }) {
                    const GridPlan plan = calc::planGrid({ min, max }, metres, plotWidth);
                    QVERIFY(plan.interiorCount >= 0 && plan.interiorCount <= 20);
                    QCOMPARE(plan.valid, plan.step > 0.0);
                }
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestAxisGrid)
#include "tst_axis_grid.moc"
