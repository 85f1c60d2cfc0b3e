// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/view_range.h"
#include "each.h"

#include <QtTest>

#include <climits>
#include <limits>

/// Shifts of a trace and the shortening factor.
class TestShifts : public QObject
{
    Q_OBJECT

private slots:
    void horizontalShiftsAreWholeSamples()
    {
        struct Row
        {
            const char *name;
            int counts;
            int step;
            int expected;
        };
        each<Row>({ { "rounded down", 7, 4, 1 },
                    { "rounded up", -7, 4, -1 },
                    { "less than a sample", -3, 4, 0 },
                    { "whole axis", 64000, 1, 64000 },
                    { "beyond the right end", 100000, 1, 64000 },
                    { "beyond the left end", -100000, 3, -21333 },
                    { "smallest int", INT_MIN, 64000, -1 },
                    { "largest int", INT_MAX, 64000, 1 },
                    { "step beyond the axis", 64000, 80000, 1 },
                    { "step 0 counts as 1", 7, 0, 7 },
                    { "negative step counts as 1", -7, -4, -7 } },
                  [](const Row &row) {
                      QCOMPARE(calc::wholeSamples(row.counts, row.step), row.expected);
                  });
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
        QCOMPARE(calc::clampedKU(0.5), 1.0F);
        QCOMPARE(calc::clampedKU(1.0), 1.0F);
        QCOMPARE(calc::clampedKU(1.5), 1.5F);
        QCOMPARE(calc::clampedKU(10.0), 10.0F);
        QCOMPARE(calc::clampedKU(11.0), 10.0F);
        QCOMPARE(calc::clampedKU(0.0), 1.0F);
        QCOMPARE(calc::clampedKU(-1e300), 1.0F);
        QCOMPARE(calc::clampedKU(1e300), 10.0F);
        QCOMPARE(calc::clampedKU(std::numeric_limits<double>::infinity()), 10.0F);
        QCOMPARE(calc::clampedKU(std::numeric_limits<double>::quiet_NaN()), 1.0F);
    }

    void theDialCountsThousandthsAboveOne()
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

QTEST_APPLESS_MAIN(TestShifts)
#include "tst_shifts.moc"
