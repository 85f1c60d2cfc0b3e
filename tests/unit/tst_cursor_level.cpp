// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/cursor_level.h"
#include "calc/trace_points.h"

#include <QtTest>

#include <array>
#include <climits>

namespace {

constexpr int noLevel = 129;

/// Sample i of the trace is i - 125: every drawn sample has a value of its own, -125..124.
calc::TraceRef trace(int step, quint32 delay = 0, int scroll = 0, int offset = 0)
{
    static const auto samples = [] {
        std::array<qint8, 250> ramp = {};
        for (int i = 0; i < 250; ++i)
            ramp[static_cast<std::size_t>(i)] = static_cast<qint8>(i - 125);
        return ramp;
    }();
    return { samples.data(), step, delay, scroll, offset };
}

} // namespace

class TestCursorLevel : public QObject
{
    Q_OBJECT

private slots:
    void columnsSnapToTheStepAtTheirLeft()
    {
        QCOMPARE(calc::snapped(10, 4), 8);
        QCOMPARE(calc::snapped(12, 4), 12);
        QCOMPARE(calc::snapped(-5, 4), 0); // left of the axis
        QCOMPARE(calc::snapped(64001, 4), 64000);
        QCOMPARE(calc::snapped(70000, 3), 63999); // the end of the axis is no sample
        QCOMPARE(calc::snapped(63999, 64000), 0);
        QCOMPARE(calc::snapped(64000, INT_MAX), 64000);
        QCOMPARE(calc::snapped(10, 0), 10); // steps below 1 count as 1
        QCOMPARE(calc::snapped(10, -4), 10);
        QCOMPARE(calc::snapped(INT_MIN, 1), 0);
        QCOMPARE(calc::snapped(INT_MAX, 1), 64000);
    }

    void columnsStayOnTheAxis()
    {
        QCOMPARE(calc::clampedColumn(-1), 0);
        QCOMPARE(calc::clampedColumn(0), 0);
        QCOMPARE(calc::clampedColumn(64000), 64000);
        QCOMPARE(calc::clampedColumn(64001), 64000);
    }

    void theLevelIsOffsetPlusSample()
    {
        QCOMPARE(calc::levelUnder(0, trace(1)), -125);
        QCOMPARE(calc::levelUnder(249, trace(1)), 124);
        QCOMPARE(calc::levelUnder(250, trace(1)), noLevel);
        QCOMPARE(calc::levelUnder(8, trace(4, 0, 0, 2)), -121);
        QCOMPARE(calc::levelUnder(11, trace(4)), -123); // within a sample
        QCOMPARE(calc::levelUnder(0, trace(1, 0, 0, -256)), -381);
        QCOMPARE(calc::levelUnder(13, trace(1, 0, 10)), -122);
        QCOMPARE(calc::levelUnder(13, trace(1, 0, -10)), -102);
        QCOMPARE(calc::levelUnder(4, trace(1, 5)), noLevel);
        QCOMPARE(calc::levelUnder(5, trace(1, 5)), -125);
        QCOMPARE(calc::levelUnder(20, trace(4, 5)), -125); // the delay counts samples
        QCOMPARE(calc::levelUnder(64000, trace(1, 0xFFFFFFFFU)), noLevel);
        // 64000 + 2147483648 - 2147547645 = 3: neither the shift nor the delay wraps.
        QCOMPARE(calc::levelUnder(64000, trace(1, 2147547645U, INT_MIN)), -122);
        QCOMPARE(calc::levelUnder(249, trace(1, 0, 0, INT_MAX)), INT_MAX);
        QCOMPARE(calc::levelUnder(249, trace(1, 0, 0, 5)), 129); // a real level of 129
        QCOMPARE(calc::levelUnder(3, trace(0)), -122); // step 0 counts as 1
    }

    void lessThanAStepLeftOfTheTraceReadsItsFirstSample()
    {
        QCOMPARE(calc::levelUnder(7, trace(4, 0, 10)), -125); // starts at 10
        QCOMPARE(calc::levelUnder(6, trace(4, 0, 10)), noLevel);
        // With a delay the index is negative there.
        QCOMPARE(calc::levelUnder(8, trace(4, 1, 6)), noLevel);
    }

    void aCursorReadsTheLevelAtItsSnappedColumn()
    {
        QCOMPARE(calc::cursorOn(10, trace(4, 0, 0, 1)).column, 8);
        QCOMPARE(calc::cursorOn(10, trace(4, 0, 0, 1)).level, -122);
        QCOMPARE(calc::cursorOn(-5, trace(4)).column, 0);
        QCOMPARE(calc::cursorOn(-5, trace(4)).level, -125);
    }

    void aCursorOnADifferenceSnapsToTheLeftmostOfBoth()
    {
        const auto columnOn = [](int column, const calc::TraceRef &master, int step) {
            return calc::cursorOnDifference(column, master, trace(step)).column;
        };
        QCOMPARE(columnOn(10, trace(3), 4), 8); // own step
        QCOMPARE(columnOn(10, trace(4), 3), 8); // the master's step
        QCOMPARE(columnOn(10, trace(3, 2), 4), 7); // the master's delay
        QCOMPARE(columnOn(10, trace(3, 10), 4), 0); // not below 0
        QCOMPARE(columnOn(64000, trace(1, 0xFFFFFFFFU), 1), 0);
        QCOMPARE(columnOn(70000, trace(1), 1), 64000);
        QCOMPARE(columnOn(-70000, trace(1), 1), 0);
        QCOMPARE(columnOn(10, trace(0), 0), 10); // steps 0 count as 1
        QCOMPARE(calc::cursorOnDifference(10, trace(3), trace(4)).level, noLevel);
    }
};

QTEST_APPLESS_MAIN(TestCursorLevel)
#include "tst_cursor_level.moc"
