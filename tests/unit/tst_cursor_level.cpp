// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/cursor_level.h"
#include "calc/trace_points.h"

#include <QtTest>

#include <array>
#include <climits>

using calc::TraceRef;

namespace {

constexpr int noLevel = 129;

// Sample i is i - 125: every drawn sample has a value of its own, -125..124.
std::array<qint8, 250> ramp()
{
    std::array<qint8, 250> samples = {};
    for (int i = 0; i < 250; ++i)
        samples[static_cast<std::size_t>(i)] = static_cast<qint8>(i - 125);
    return samples;
}

} // namespace

class TestCursorLevel : public QObject
{
    Q_OBJECT

    const std::array<qint8, 250> m_samples = ramp();

    TraceRef trace(int step, quint32 delay, int scroll, int offset) const
    {
        return { m_samples.data(), step, delay, scroll, offset };
    }

private slots:
    void columnsSnapToTheStepAtTheirLeft_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("expected");
        QTest::newRow("between two samples") << 10 << 4 << 8;
        QTest::newRow("on a sample") << 12 << 4 << 12;
        QTest::newRow("left of the axis") << -5 << 4 << 0;
        QTest::newRow("right of the axis") << 64001 << 4 << 64000;
        QTest::newRow("the end of the axis is no sample") << 70000 << 3 << 63999;
        QTest::newRow("one step is the whole axis") << 63999 << 64000 << 0;
        QTest::newRow("step longer than the axis") << 64000 << INT_MAX << 64000;
        QTest::newRow("step 0 counts as 1") << 10 << 0 << 10;
        QTest::newRow("negative step counts as 1") << 10 << -4 << 10;
        QTest::newRow("smallest int") << INT_MIN << 1 << 0;
        QTest::newRow("largest int") << INT_MAX << 1 << 64000;
    }

    void columnsSnapToTheStepAtTheirLeft()
    {
        QFETCH(int, column);
        QFETCH(int, step);
        QTEST(calc::snapped(column, step), "expected");
    }

    void columnsStayOnTheAxis()
    {
        QCOMPARE(calc::clampedColumn(-1), 0);
        QCOMPARE(calc::clampedColumn(0), 0);
        QCOMPARE(calc::clampedColumn(64000), 64000);
        QCOMPARE(calc::clampedColumn(64001), 64000);
    }

    void theLevelIsOffsetPlusSample_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("step");
        QTest::addColumn<quint32>("delay");
        QTest::addColumn<int>("scroll");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("expected");
        QTest::newRow("first sample") << 0 << 1 << 0U << 0 << 0 << -125;
        QTest::newRow("last sample") << 249 << 1 << 0U << 0 << 0 << 124;
        QTest::newRow("behind the last sample") << 250 << 1 << 0U << 0 << 0 << noLevel;
        QTest::newRow("third sample of four counts") << 8 << 4 << 0U << 0 << 2 << -121;
        QTest::newRow("within a sample") << 11 << 4 << 0U << 0 << 0 << -123;
        QTest::newRow("shifted down") << 0 << 1 << 0U << 0 << -256 << -381;
        QTest::newRow("shifted right") << 13 << 1 << 0U << 10 << 0 << -122;
        QTest::newRow("shifted left") << 13 << 1 << 0U << -10 << 0 << -102;
        QTest::newRow("before the delay") << 4 << 1 << 5U << 0 << 0 << noLevel;
        QTest::newRow("at the delay") << 5 << 1 << 5U << 0 << 0 << -125;
        QTest::newRow("the delay counts samples") << 20 << 4 << 5U << 0 << 0 << -125;
        QTest::newRow("delay as large as it gets")
            << 64000 << 1 << 0xFFFFFFFFU << 0 << 0 << noLevel;
        // 64000 + 2147483648 - 2147547645 = 3: neither the shift nor the delay wraps.
        QTest::newRow("huge shift and huge delay")
            << 64000 << 1 << 2147547645U << INT_MIN << 0 << -122;
        QTest::newRow("offset that would overflow") << 249 << 1 << 0U << 0 << INT_MAX << INT_MAX;
        QTest::newRow("a real level of 129") << 249 << 1 << 0U << 0 << 5 << 129;
        QTest::newRow("step 0 counts as 1") << 3 << 0 << 0U << 0 << 0 << -122;
    }

    void theLevelIsOffsetPlusSample()
    {
        QFETCH(int, column);
        QFETCH(int, step);
        QFETCH(quint32, delay);
        QFETCH(int, scroll);
        QFETCH(int, offset);
        QTEST(calc::levelUnder(column, trace(step, delay, scroll, offset)), "expected");
    }

    void lessThanAStepLeftOfTheTraceStillReadsItsFirstSample()
    {
        const TraceRef shifted = trace(4, 0, 10, 0); // starts at 10
        QCOMPARE(calc::levelUnder(8, shifted), -125);
        QCOMPARE(calc::levelUnder(7, shifted), -125);
        QCOMPARE(calc::levelUnder(6, shifted), noLevel);
        // With a delay the index is negative there, as one expects.
        QCOMPARE(calc::levelUnder(8, trace(4, 1, 6, 0)), noLevel);
    }

    void aCursorReadsTheLevelAtItsSnappedColumn()
    {
        const calc::CursorPoint point = calc::cursorOn(10, trace(4, 0, 0, 1));
        QCOMPARE(point.column, 8);
        QCOMPARE(point.level, -122);

        const calc::CursorPoint left = calc::cursorOn(-5, trace(4, 0, 0, 0));
        QCOMPARE(left.column, 0);
        QCOMPARE(left.level, -125);
    }

    void aCursorOnADifferenceReadsNoLevel_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("masterStep");
        QTest::addColumn<quint32>("masterDelay");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("expected");
        QTest::newRow("own step is nearer the left") << 10 << 3 << 0U << 4 << 8;
        QTest::newRow("the master's step is") << 10 << 4 << 0U << 3 << 8;
        QTest::newRow("the master's delay pulls left") << 10 << 3 << 2U << 4 << 7;
        QTest::newRow("but not below 0") << 10 << 3 << 10U << 4 << 0;
        QTest::newRow("delay as large as it gets") << 64000 << 1 << 0xFFFFFFFFU << 1 << 0;
        QTest::newRow("right of the axis") << 70000 << 1 << 0U << 1 << 64000;
        QTest::newRow("left of the axis") << -70000 << 1 << 0U << 1 << 0;
        QTest::newRow("steps 0 count as 1") << 10 << 0 << 0U << 0 << 10;
    }

    void aCursorOnADifferenceReadsNoLevel()
    {
        QFETCH(int, column);
        QFETCH(int, masterStep);
        QFETCH(quint32, masterDelay);
        QFETCH(int, step);
        const calc::CursorPoint point = calc::cursorOnDifference(
            column, trace(masterStep, masterDelay, 0, 0), trace(step, 0, 0, 0));
        QTEST(point.column, "expected");
        QCOMPARE(point.level, noLevel);
    }
};

QTEST_APPLESS_MAIN(TestCursorLevel)
#include "tst_cursor_level.moc"
