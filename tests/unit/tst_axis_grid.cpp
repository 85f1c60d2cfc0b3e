// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/axis_grid.h"
#include "each.h"

#include <QtTest>

#include <algorithm>
#include <climits>
#include <limits>

using calc::GridPlan;
using calc::Range;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr float plotWidth = 500.0F;

bool isHidden(const GridPlan::Line &line)
{
    return !line.visible && line.offset == 0.0 && line.text.isEmpty();
}

/// Number of visible lines without the two at the edges.
int linesOf(const GridPlan &plan)
{
    return static_cast<int>(std::count_if(std::begin(plan.interior), std::end(plan.interior),
                                          [](const GridPlan::Line &line) { return line.visible; }));
}

} // namespace

class TestAxisGrid : public QObject
{
    Q_OBJECT

private slots:
    void gridStepIsTheLargestWithSevenToTwentyIntervals()
    {
        QCOMPARE(calc::gridStep(31.25), 2.5);
        QCOMPARE(calc::gridStep(10.0), 1.25); // lower end of a decade
        QCOMPARE(calc::gridStep(17.4), 1.25); // just too short for the next step
        QCOMPARE(calc::gridStep(17.5), 2.5);
        QCOMPARE(calc::gridStep(34.9), 2.5);
        QCOMPARE(calc::gridStep(35.0), 5.0);
        QCOMPARE(calc::gridStep(99.9), 5.0); // upper end of a decade
        QCOMPARE(calc::gridStep(100.0), 12.5);
        QCOMPARE(calc::gridStep(8000.0), 500.0);
        QCOMPARE(calc::gridStep(12000.0), 1250.0);
        QCOMPARE(calc::gridStep(0.25), 0.025);
        for (double span = 1.0; span < 10.0; span += 0.001) {
            const double intervals = span / calc::gridStep(span);
            QVERIFY(intervals > 6.999 && intervals < 20.001);
        }
    }

    void invalidSpanHasStepZero()
    {
        for (const double span : { 0.0, -31.25, notANumber, infinity, -infinity,
                                   std::numeric_limits<double>::denorm_min() })
            QCOMPARE(calc::gridStep(span), 0.0);
    }

    void eachScaleHasItsGridAtStartUp()
    {
        struct Row
        {
            const char *name;
            int exponent;
            int lines;
            const char *last;
        };
        each<Row>({ { "level 0", 0, 12, "30.0" },
                    { "level 1", 1, 12, "60" },
                    { "level 2", 2, 10, "125.0" },
                    { "level 3", 3, 10, "250" },
                    { "level 4", 4, 10, "500" },
                    { "level 5", 5, 8, "1000" },
                    { "level 6", 6, 8, "2000" },
                    { "level 7", 7, 8, "4000" },
                    { "level 8", 8, 16, "8000" } },
                  [](const Row &row) {
                      // A little more than 0.125, so a line on the edge is just left of it.
                      const double metres = constants::distCoef0 / double{ 1.49896229F };
                      const GridPlan plan = calc::planGrid({ 0, calc::visibleCounts(row.exponent) },
                                                           metres, plotWidth);
                      QCOMPARE(linesOf(plan), row.lines);
                      const GridPlan::Line &last = plan.interior[row.lines - 1];
                      QCOMPARE(last.text, QLatin1String(row.last));
                      QVERIFY(last.offset < double{ plotWidth });
                      QVERIFY(isHidden(plan.interior[row.lines]));
                      QVERIFY(plan.edges[0].visible);
                      QVERIFY(isHidden(plan.edges[1]));
                  });
    }

    // One metre per count and one pixel per metre.
    void edgesAreDrawnAndLabelledByTheirRules()
    {
        struct Row
        {
            const char *name;
            Range range;
            bool leftShown;
            const char *leftText;
            bool rightShown;
            const char *rightText;
        };
        each<Row>({ { "integral from 0", { 0, 200 }, true, "0", true, "200" },
                    { "fractional from a grid value", { 100, 130 }, true, "100.0", true, "" },
                    { "fractional above 100 m has no text", { 105, 135 }, true, "", true, "" },
                    { "fractional below 100 m", { 50, 80 }, true, "50.0", true, "80.0" },
                    { "integral at 1000 m has its text", { 1000, 1200 }, true, "1000", true, "" },
                    { "integral above 1000 m has no text", { 1025, 1225 }, true, "", true, "" },
                    { "less than 0.3 of a step off", { 7, 207 }, true, "7", false, "" },
                    { "more than 0.3 of a step off", { 8, 208 }, false, "", false, "" },
                    { "last line 0.72 of a step before", { 18, 218 }, false, "", false, "" },
                    { "last line 0.76 of a step before", { 19, 219 }, false, "", true, "219" },
                    { "negative left edge has no text", { -50, 150 }, true, "", true, "150" },
                    { "negative right edge has none", { -300, -100 }, true, "", true, "" } },
                  [](const Row &row) {
                      const int span = row.range.max - row.range.min;
                      const GridPlan plan
                          = calc::planGrid(row.range, 1.0, static_cast<float>(span));
                      QCOMPARE(plan.edges[0].visible, row.leftShown);
                      QCOMPARE(plan.edges[0].text, QLatin1String(row.leftText));
                      QCOMPARE(plan.edges[0].offset, 0.0);
                      QCOMPARE(plan.edges[1].visible, row.rightShown);
                      QCOMPARE(plan.edges[1].text, QLatin1String(row.rightText));
                      QCOMPARE(plan.edges[1].offset, row.rightShown ? double(span) : 0.0);
                  });
    }

    void linesAreOnRoundValuesWhereverTheViewStarts()
    {
        const GridPlan plan = calc::planGrid({ 7, 207 }, 1.0, 400.0F);
        QCOMPARE(linesOf(plan), 8);
        QCOMPARE(plan.interior[0].text, QStringLiteral("25"));
        QCOMPARE(plan.interior[0].offset, 36.0); // 18 m at two pixels a metre
        QCOMPARE(plan.interior[7].text, QStringLiteral("200"));
        QCOMPARE(plan.interior[7].offset, 386.0);

        const GridPlan negative = calc::planGrid({ -50, 150 }, 1.0, 200.0F);
        QCOMPARE(linesOf(negative), 7);
        QCOMPARE(negative.interior[0].text, QStringLiteral("-25"));
        QCOMPARE(negative.interior[0].offset, 25.0);
        QCOMPARE(negative.interior[1].text, QStringLiteral("0"));
    }

    // 19.98 intervals of 5 m that start just before a grid value.
    void noRangeHasMoreThanTwentyLines()
    {
        const GridPlan plan = calc::planGrid({ 49, 1048 }, 0.1, plotWidth);
        QCOMPARE(linesOf(plan), 20);
        QCOMPARE(plan.interior[0].text, QStringLiteral("5"));
        QCOMPARE(plan.interior[19].text, QStringLiteral("100"));
        QVERIFY(plan.edges[1].visible);
    }

    void plotWithoutWidthHasLabelsWithoutOffsets()
    {
        for (const float width :
             { 0.0F, -1.0F, static_cast<float>(notANumber), static_cast<float>(infinity) }) {
            const GridPlan plan = calc::planGrid({ 0, 200 }, 1.0, width);
            QCOMPARE(linesOf(plan), 7);
            for (int i = 0; i < 7; ++i) {
                QVERIFY(plan.interior[i].visible);
                QCOMPARE(plan.interior[i].offset, 0.0);
                QCOMPARE(plan.interior[i].text, QString::number(25 * (i + 1)));
            }
            QVERIFY(plan.edges[1].visible);
            QCOMPARE(plan.edges[1].offset, 0.0);
        }
    }

    void rangeWithoutDistanceHidesEverything()
    {
        struct Row
        {
            const char *name;
            Range range;
            double metresPerCount;
        };
        each<Row>(
            { { "no shortening factor yet", { 0, 250 }, 0.0 },
              { "empty", { 250, 250 }, 0.125 },
              { "reversed", { 250, 0 }, 0.125 },
              { "not a number", { 0, 250 }, notANumber },
              { "infinite", { 1, 250 }, infinity },
              { "infinite from 0", { 0, 250 }, infinity },
              { "negative metres", { 0, 250 }, -0.125 },
              { "overflow", { INT_MIN, INT_MAX }, 1e300 } },
            [](const Row &row) {
                const GridPlan plan = calc::planGrid(row.range, row.metresPerCount, plotWidth);
                QVERIFY(std::all_of(std::begin(plan.edges), std::end(plan.edges), isHidden));
                QVERIFY(std::all_of(std::begin(plan.interior), std::end(plan.interior), isHidden));
            });
    }
};

QTEST_APPLESS_MAIN(TestAxisGrid)
#include "tst_axis_grid.moc"
