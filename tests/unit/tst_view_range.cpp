// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/view_range.h"
#include "each.h"

#include <QtTest>

#include <climits>
#include <limits>

using calc::Range;

namespace QTest {

template <> char *toString(const Range &range)
{
    return qstrdup(QStringLiteral("%1..%2").arg(range.min).arg(range.max).toLatin1().constData());
}

} // namespace QTest

class TestViewRange : public QObject
{
    Q_OBJECT

private slots:
    void eachZoomStepDoublesTheView()
    {
        struct Row
        {
            const char *name;
            int exponent;
            int level;
        };
        each<Row>({ { "smallest int", INT_MIN, 0 },
                    { "below", -3, 0 },
                    { "0", 0, 0 },
                    { "1", 1, 1 },
                    { "2", 2, 2 },
                    { "3", 3, 3 },
                    { "4", 4, 4 },
                    { "5", 5, 5 },
                    { "6", 6, 6 },
                    { "7", 7, 7 },
                    { "8", 8, 8 },
                    { "above", 12, 8 },
                    { "largest int", INT_MAX, 8 } },
                  [](const Row &row) {
                      QCOMPARE(calc::clampedScale(row.exponent), row.level);
                      QCOMPARE(calc::visibleCounts(row.exponent), 250 * (1 << row.level));
                      // Exact at every level, and read back as the level.
                      const float caption = calc::scaleDistance(row.exponent);
                      QCOMPARE(caption, 31.25F * static_cast<float>(1 << row.level));
                      QCOMPARE(calc::exponentOfDistance(double{ caption }), row.level);
                  });
    }

    void otherCaptionsGiveTheLowerZoom()
    {
        QCOMPARE(calc::exponentOfDistance(100.0), 1);
        QCOMPARE(calc::exponentOfDistance(0.0), INT_MIN);
        QCOMPARE(calc::exponentOfDistance(-1.0), 0);
        QCOMPARE(calc::exponentOfDistance(std::numeric_limits<double>::quiet_NaN()), 0);
    }

    void theStepOfTheMasterSetsTheZoom()
    {
        struct Row
        {
            const char *name;
            float minstep;
            int exponent;
        };
        each<Row>(
            { { "0.3 ns", 0.3F, -2 },
              { "1 ns", 1.0F, 0 },
              { "one count", 1.25F, 0 },
              { "two counts", 2.5F, 1 },
              { "nearly three counts", 3.7F, 1 },
              { "four counts", 5.0F, 2 },
              { "eight counts", 10.0F, 3 },
              { "256 counts", 320.0F, 8 },
              { "zero", 0.0F, INT_MIN },
              { "negative", -5.0F, 0 },
              { "not a number", std::numeric_limits<float>::quiet_NaN(), 0 },
              { "infinity", std::numeric_limits<float>::infinity(), INT_MAX } },
            [](const Row &row) { QCOMPARE(calc::exponentForMinstep(row.minstep), row.exponent); });
    }

    void aStepPastAnEndIsRefused()
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

    void theViewIsCentredUnlessAnEndIsNear()
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

    void aMasterIsShownFromItsDelay()
    {
        struct Row
        {
            const char *name;
            quint32 delay;
            int exponent;
            Range expected;
        };
        each<Row>({ { "no delay", 0, 0, { 0, 250 } },
                    { "short delay", 7, 2, { 7, 1007 } },
                    { "beyond the axis", 100000, 0, { 100000, 100250 } },
                    { "last delay that fits", 2147419647, 8, { 2147419647, INT_MAX } },
                    { "first that does not", 2147419648, 8, { 2147419647, INT_MAX } },
                    { "largest", 0xFFFFFFFF, 0, { 2147419647, 2147419897 } },
                    { "zoom out of range", 0, 30, { 0, 64000 } } },
                  [](const Row &row) {
                      QCOMPARE(calc::rangeFromDelay(row.delay, row.exponent), row.expected);
                  });
    }

    void aDragScrollsByTheCountsThatItCovers()
    {
        constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
        struct Row
        {
            const char *name;
            int exponent;
            double pixels;
            float width;
            int expected;
        };
        each<Row>({ { "half a count per pixel", 0, 10.0, 500.0F, 5 },
                    { "to the left, zoomed out", 3, -3.0, 500.0F, -12 },
                    { "less than a count", 0, -1.0, 500.0F, 0 },
                    { "no width yet", 8, 100.0, 0.0F, 0 },
                    { "negative width", 8, 100.0, -1.0F, 0 },
                    { "width is no number", 8, 100.0, static_cast<float>(noNumber), 0 },
                    { "pixels are no number", 8, noNumber, 500.0F, 0 },
                    { "beyond an int", 8, 1e300, 500.0F, INT_MAX } },
                  [](const Row &row) {
                      QCOMPARE(calc::panStep(row.exponent, row.pixels, row.width), row.expected);
                  });
    }
};

QTEST_APPLESS_MAIN(TestViewRange)
#include "tst_view_range.moc"
