// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/view_range.h"
#include "each.h"

#include <QtTest>

#include <climits>
#include <limits>

using calc::Range;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

namespace QTest {

template <> char *toString(const Range &range)
{
    return qstrdup(QStringLiteral("%1..%2").arg(range.min).arg(range.max).toLatin1().constData());
}

} // namespace QTest

/// The visible part of the axis, the shifts of a trace and the shortening factor.
class TestViewRange : public QObject
{
    Q_OBJECT

private slots:
    void eachScaleDoublesTheView()
    {
        for (int exponent = 0; exponent <= 8; ++exponent) {
            QCOMPARE(calc::clampedScale(exponent), exponent);
            QCOMPARE(calc::visibleCounts(exponent), 250 << exponent);
            // Exact at every scale, and converted back to the scale.
            const float caption = calc::scaleDistance(exponent);
            QCOMPARE(caption, 31.25F * static_cast<float>(1 << exponent));
            QCOMPARE(calc::exponentOfDistance(double{ caption }), exponent);
        }
        for (const int below : { INT_MIN, -3 }) {
            QCOMPARE(calc::clampedScale(below), 0);
            QCOMPARE(calc::visibleCounts(below), 250);
            QCOMPARE(calc::scaleDistance(below), 31.25F);
        }
        for (const int above : { INT_MAX, 12 }) {
            QCOMPARE(calc::clampedScale(above), 8);
            QCOMPARE(calc::visibleCounts(above), 64000);
            QCOMPARE(calc::scaleDistance(above), 8000.0F);
        }
    }

    void otherDistancesGiveTheLowerScale()
    {
        QCOMPARE(calc::exponentOfDistance(100.0), 1);
        QCOMPARE(calc::exponentOfDistance(0.0), INT_MIN);
        QCOMPARE(calc::exponentOfDistance(-1.0), 0);
        QCOMPARE(calc::exponentOfDistance(notANumber), 0);
    }

    void stepOfTheMasterSetsTheScale()
    {
        QCOMPARE(calc::exponentForMinstep(0.3F), -2);
        QCOMPARE(calc::exponentForMinstep(1.0F), 0);
        QCOMPARE(calc::exponentForMinstep(1.25F), 0);
        QCOMPARE(calc::exponentForMinstep(2.5F), 1);
        QCOMPARE(calc::exponentForMinstep(3.7F), 1); // nearly three counts
        QCOMPARE(calc::exponentForMinstep(5.0F), 2);
        QCOMPARE(calc::exponentForMinstep(10.0F), 3);
        QCOMPARE(calc::exponentForMinstep(320.0F), 8);
        QCOMPARE(calc::exponentForMinstep(0.0F), INT_MIN);
        QCOMPARE(calc::exponentForMinstep(-5.0F), 0);
        QCOMPARE(calc::exponentForMinstep(std::numeric_limits<float>::quiet_NaN()), 0);
        QCOMPARE(calc::exponentForMinstep(std::numeric_limits<float>::infinity()), INT_MAX);
    }

    void scrollPastAnEndIsRefused()
    {
        struct Row
        {
            const char *name;
            Range range;
            int step;
            Range expected;
        };
        each<Row>(
            { { "to the right", { 0, 250 }, 1, { 1, 251 } },
              { "to the left", { 10, 260 }, -4, { 6, 256 } },
              { "up to the left end", { 10, 260 }, -10, { 0, 250 } },
              { "past the left end", { 10, 260 }, -11, { 10, 260 } },
              { "at the left end", { 0, 250 }, -1, { 0, 250 } },
              { "up to the right end", { 63749, 63999 }, 1, { 63750, 64000 } },
              { "past the right end by one", { 63749, 63999 }, 2, { 63749, 63999 } },
              { "the widest view", { 0, 64000 }, 256, { 0, 64000 } },
              { "smallest int", { 10, 260 }, INT_MIN, { 10, 260 } },
              { "largest int", { 10, 260 }, INT_MAX, { 10, 260 } },
              { "left of the axis already", { -5, 245 }, 0, { 0, 250 } },
              { "refused left of the axis", { -5, 245 }, -1, { 0, 250 } },
              { "back from the left", { -5, 245 }, 10, { 5, 255 } },
              { "right of the axis", { 100000, 100250 }, -1, { 100000, 100250 } },
              { "back to the start", { 100000, 100250 }, -100000, { 0, 250 } },
              { "wider than an int", { INT_MIN, INT_MAX }, 0, { 0, INT_MAX } } },
            [](const Row &row) { QCOMPARE(calc::scrolled(row.range, row.step), row.expected); });
    }

    void viewIsCentredUnlessAnEndIsNear()
    {
        struct Row
        {
            const char *name;
            int column;
            Range range;
            Range expected;
        };
        each<Row>(
            { { "in the middle", 1000, { 0, 250 }, { 875, 1125 } },
              { "already in view", 200, { 0, 250 }, { 75, 325 } },
              { "left end", 0, { 500, 750 }, { 0, 250 } },
              { "half a view from the left", 125, { 0, 250 }, { 0, 250 } },
              { "one count less", 124, { 0, 250 }, { 0, 250 } },
              { "one count more", 126, { 0, 250 }, { 1, 251 } },
              { "half a view from the right", 63875, { 0, 250 }, { 63750, 64000 } },
              { "one count left of that", 63874, { 0, 250 }, { 63749, 63999 } },
              { "one count right of that", 63876, { 0, 250 }, { 63750, 64000 } },
              { "right end", 64000, { 0, 250 }, { 63750, 64000 } },
              { "whole axis", 40000, { 0, 64000 }, { 0, 64000 } },
              { "odd width", 200, { 0, 251 }, { 74, 325 } },
              { "odd width at the left end", 0, { 7, 258 }, { 0, 251 } },
              { "from beyond the axis", 0, { 2147419647, INT_MAX }, { 0, 64000 } },
              { "all ints", 0, { INT_MIN, INT_MAX }, { INT_MIN, 64000 } } },
            [](const Row &row) { QCOMPARE(calc::centredOn(row.column, row.range), row.expected); });
    }

    void masterIsShownFromItsDelay()
    {
        QCOMPARE(calc::rangeFromDelay(0, 0), (Range{ 0, 250 }));
        QCOMPARE(calc::rangeFromDelay(7, 2), (Range{ 7, 1007 }));
        QCOMPARE(calc::rangeFromDelay(100000, 0), (Range{ 100000, 100250 })); // beyond the axis
        QCOMPARE(calc::rangeFromDelay(2147419647, 8), (Range{ 2147419647, INT_MAX }));
        QCOMPARE(calc::rangeFromDelay(2147419648, 8), (Range{ 2147419647, INT_MAX }));
        QCOMPARE(calc::rangeFromDelay(0xFFFFFFFF, 0), (Range{ 2147419647, 2147419897 }));
        QCOMPARE(calc::rangeFromDelay(0, 30), (Range{ 0, 64000 })); // scale out of range
    }

    void dragScrollsByTheCountsThatItCovers()
    {
        QCOMPARE(calc::panStep(0, 10.0, 500.0F), 5); // half a count per pixel
        QCOMPARE(calc::panStep(3, -3.0, 500.0F), -12);
        QCOMPARE(calc::panStep(0, -1.0, 500.0F), 0); // less than a count
        for (const float width : { 0.0F, -1.0F, static_cast<float>(notANumber) })
            QCOMPARE(calc::panStep(8, 100.0, width), 0);
        QCOMPARE(calc::panStep(8, notANumber, 500.0F), 0);
        QCOMPARE(calc::panStep(8, 1e300, 500.0F), INT_MAX);
    }

    void horizontalShiftsAreWholeSamples()
    {
        QCOMPARE(calc::wholeSamples(7, 4), 1);
        QCOMPARE(calc::wholeSamples(-7, 4), -1);
        QCOMPARE(calc::wholeSamples(-3, 4), 0);
        QCOMPARE(calc::wholeSamples(64000, 1), 64000);
        QCOMPARE(calc::wholeSamples(100000, 1), 64000); // beyond the ends of the axis
        QCOMPARE(calc::wholeSamples(-100000, 3), -21333);
        QCOMPARE(calc::wholeSamples(INT_MIN, 64000), -1);
        QCOMPARE(calc::wholeSamples(INT_MAX, 64000), 1);
        QCOMPARE(calc::wholeSamples(64000, 80000), 1); // a step beyond the axis
        QCOMPARE(calc::wholeSamples(7, 0), 7); // steps below 1 count as 1
        QCOMPARE(calc::wholeSamples(-7, -4), -7);
    }

    void verticalOffsetsStopAt256()
    {
        QCOMPARE(calc::clampedVerticalOffset(300), 256);
        QCOMPARE(calc::clampedVerticalOffset(257), 256);
        QCOMPARE(calc::clampedVerticalOffset(256), 256);
        QCOMPARE(calc::clampedVerticalOffset(129), 129);
        QCOMPARE(calc::clampedVerticalOffset(-256), -256);
        QCOMPARE(calc::clampedVerticalOffset(-257), -256);
        QCOMPARE(calc::clampedVerticalOffset(INT_MIN), -256);
    }

    void shorteningFactorsStayBetweenOneAndTen()
    {
        QCOMPARE(calc::clampedKU(1.0), 1.0F);
        QCOMPARE(calc::clampedKU(1.5), 1.5F);
        QCOMPARE(calc::clampedKU(10.0), 10.0F);
        for (const double low : { 0.5, 0.0, -1e300, notANumber })
            QCOMPARE(calc::clampedKU(low), 1.0F);
        for (const double high : { 11.0, 1e300, infinity })
            QCOMPARE(calc::clampedKU(high), 10.0F);
    }

    void dialCountsThousandthsAboveOne()
    {
        QCOMPARE(calc::dialOfKU(1.0F), 0);
        QCOMPARE(calc::dialOfKU(1.49896229F), 498);
        QCOMPARE(calc::dialOfKU(10.0F), 9000);
        QCOMPARE(calc::dialOfKU(std::numeric_limits<float>::quiet_NaN()), 0);
        QCOMPARE(calc::dialOfKU(std::numeric_limits<float>::infinity()), INT_MAX);
        QCOMPARE(calc::kuOfDial(0), 1.0);
        QCOMPARE(calc::kuOfDial(500), 1.5);
        QCOMPARE(calc::kuOfDial(9000), 10.0);
    }
};

QTEST_APPLESS_MAIN(TestViewRange)
#include "tst_view_range.moc"
