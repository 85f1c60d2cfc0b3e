// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/trace_points.h"

#include <QtTest>

#include <array>
#include <climits>

using calc::TraceRef;
using Samples = std::array<qint8, 250>;

namespace {

template <typename Function> Samples samplesFrom(Function function)
{
    Samples samples = {};
    for (int i = 0; i < 250; ++i)
        samples[static_cast<std::size_t>(i)] = static_cast<qint8>(function(i));
    return samples;
}

} // namespace

class TestTracePoints : public QObject
{
    Q_OBJECT

    // Sample i is i - 125: every sample has a value of its own, -125..124.
    const Samples m_ramp = samplesFrom([](int i) { return i - 125; });
    const Samples m_flat = samplesFrom([](int) { return 0; });

    QVector<QPointF> m_points;

private slots:
    void init()
    {
        m_points.clear();
    }

    void samplesBecomeTreads()
    {
        calc::stepPoints({ m_ramp.data(), 2, 10, 6, -3 }, m_points);
        QCOMPARE(m_points.size(), 499);
        QCOMPARE(m_points[0], QPointF(26, -128)); // 6 + 10 * 2
        QCOMPARE(m_points[1], QPointF(28, -128));
        QCOMPARE(m_points[2], QPointF(28, -127));
        QCOMPARE(m_points[3], QPointF(30, -127));
        QCOMPARE(m_points[496], QPointF(522, 120));
        QCOMPARE(m_points[497], QPointF(524, 120));
        QCOMPARE(m_points[498], QPointF(524, 121)); // 6 + (10 + 249) * 2, without a right end
    }

    void samplesBecomeSplinePoints()
    {
        calc::splinePoints({ m_ramp.data(), 4, 1, -8, 100 }, m_points);
        QCOMPARE(m_points.size(), 250);
        QCOMPARE(m_points[0], QPointF(-4, -25));
        QCOMPARE(m_points[1], QPointF(0, -24));
        QCOMPARE(m_points[249], QPointF(992, 224));
    }

    void smoothingFiltersNothing()
    {
        const Samples spikes = samplesFrom([](int i) { return i % 2 == 0 ? -128 : 127; });
        calc::splinePoints({ spikes.data(), 1, 0, 0, 0 }, m_points);
        for (int i = 0; i < 250; ++i)
            QCOMPARE(m_points[i], QPointF(i, i % 2 == 0 ? -128 : 127));
    }

    void aFlatTraceLiesOnTheBaseLine()
    {
        calc::stepPoints({ m_flat.data(), 1, 0, 0, 0 }, m_points);
        QCOMPARE(m_points.size(), 499);
        for (int i = 0; i < 499; ++i)
            QCOMPARE(m_points[i], QPointF((i + 1) / 2, 0));
    }

    void positionsDoNotWrap_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<quint32>("delay");
        QTest::addColumn<int>("scroll");
        QTest::addColumn<double>("first");
        QTest::addColumn<double>("last");
        QTest::newRow("shift to the left") << 1 << 0U << -4 << -4.0 << 245.0;
        QTest::newRow("smallest shift") << 1 << 0U << INT_MIN << -2147483648.0 << -2147483399.0;
        QTest::newRow("largest shift") << 1 << 0U << INT_MAX << 2147483647.0 << 2147483896.0;
        QTest::newRow("largest delay") << 1 << 0xFFFFFFFFU << 0 << 4294967295.0 << 4294967544.0;
        QTest::newRow("largest delay and step")
            << 64000 << 0xFFFFFFFFU << 0 << 274877906880000.0 << 274877922816000.0;
        QTest::newRow("step 0 counts as 1") << 0 << 3U << 0 << 3.0 << 252.0;
        QTest::newRow("negative step counts as 1") << INT_MIN << 3U << 0 << 3.0 << 252.0;
        QTest::newRow("step beyond the axis counts as the axis")
            << INT_MAX << 1U << 0 << 64000.0 << 16000000.0;
    }

    void positionsDoNotWrap()
    {
        QFETCH(int, step);
        QFETCH(quint32, delay);
        QFETCH(int, scroll);
        QFETCH(double, first);
        QFETCH(double, last);
        const TraceRef trace = { m_ramp.data(), step, delay, scroll, 0 };
        calc::splinePoints(trace, m_points);
        QCOMPARE(m_points.first(), QPointF(first, -125));
        QCOMPARE(m_points.last(), QPointF(last, 124));
        calc::stepPoints(trace, m_points);
        QCOMPARE(m_points.first(), QPointF(first, -125));
        QCOMPARE(m_points.last(), QPointF(last, 124));
    }

    void levelsDoNotWrap()
    {
        const Samples high = samplesFrom([](int) { return 127; });
        calc::splinePoints({ high.data(), 1, 0, 0, INT_MAX }, m_points);
        QCOMPARE(m_points[0].y(), 2147483774.0);
        const Samples low = samplesFrom([](int) { return -128; });
        calc::splineDifference({ high.data(), 1, 0, 0, INT_MAX }, { low.data(), 1, 0, 0, INT_MIN },
                               m_points);
        QCOMPARE(m_points[0].y(), 4294967550.0); // 2^32 - 1 + 255
    }

    void identicalTracesDifferByNothing_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<quint32>("delay");
        QTest::addColumn<int>("scroll");
        QTest::newRow("plain") << 1 << 0U << 0;
        QTest::newRow("delayed") << 4 << 17U << 0;
        QTest::newRow("shifted left") << 4 << 17U << -32;
        QTest::newRow("largest delay and step") << 64000 << 0xFFFFFFFFU << INT_MIN;
    }

    void identicalTracesDifferByNothing()
    {
        QFETCH(int, step);
        QFETCH(quint32, delay);
        QFETCH(int, scroll);
        const TraceRef trace = { m_ramp.data(), step, delay, scroll, 5 };
        QVector<QPointF> normal;
        calc::stepPoints(trace, normal);
        calc::stepDifference(trace, trace, m_points);
        QCOMPARE(m_points.size(), 499);
        for (int i = 0; i < 499; ++i)
            QCOMPARE(m_points[i], QPointF(normal[i].x(), 0));
        calc::splineDifference(trace, trace, m_points);
        QCOMPARE(m_points.size(), 250);
    }

    void aTraceRaisedByTenDiffersByMinusTen()
    {
        calc::splineDifference({ m_ramp.data(), 1, 0, 0, 0 }, { m_ramp.data(), 1, 0, 0, 10 },
                               m_points);
        QCOMPARE(m_points.size(), 250);
        for (const QPointF &point : qAsConst(m_points))
            QCOMPARE(point.y(), -10.0);
        calc::stepDifference({ m_ramp.data(), 1, 0, 0, 10 }, { m_ramp.data(), 1, 0, 0, 0 },
                             m_points);
        QCOMPARE(m_points.size(), 499);
        for (const QPointF &point : qAsConst(m_points))
            QCOMPARE(point.y(), 10.0);
    }

    void gridsThatMeetNowAndThenGiveAPointAtEachMeeting()
    {
        // Samples stand at 0, 2, .. 498 and at 0, 3, .. 747; they meet at the 84 multiples of 6.
        const Samples thirds = samplesFrom([](int i) { return i / 3; });
        const Samples halves = samplesFrom([](int i) { return -(i / 2); });
        const TraceRef master = { thirds.data(), 2, 0, 0, 7 };
        const TraceRef trace = { halves.data(), 3, 0, 0, 3 };

        calc::splineDifference(master, trace, m_points);
        QCOMPARE(m_points.size(), 84);
        for (int m = 0; m < 84; ++m)
            QCOMPARE(m_points[m], QPointF(6 * m, (7 + m) - (3 - m)));

        calc::stepDifference(master, trace, m_points);
        QCOMPARE(m_points.size(), 167);
        QCOMPARE(m_points[0], QPointF(0, 4));
        QCOMPARE(m_points[1], QPointF(3, 4)); // as wide as the wider step
        QCOMPARE(m_points[2], QPointF(6, 6));
        QCOMPARE(m_points[166], QPointF(498, 170));

        // The other way round the meetings are the same, the treads as wide, the sign turned.
        calc::stepDifference(trace, master, m_points);
        QCOMPARE(m_points.size(), 167);
        QCOMPARE(m_points[1], QPointF(3, -4));
        QCOMPARE(m_points[166], QPointF(498, -170));
    }

    void meetingsDependOnWhereTheTracesStand_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<quint32>("delay");
        QTest::addColumn<int>("scroll");
        QTest::addColumn<int>("meetings");
        QTest::addColumn<double>("first");
        // The master stands at 0, 4, .. 996.
        QTest::newRow("half a sample off") << 4 << 0U << 2 << 0 << 0.0;
        QTest::newRow("one count off") << 4 << 0U << -1 << 0 << 0.0;
        QTest::newRow("right of the master's start") << 4 << 0U << 8 << 248 << 8.0;
        QTest::newRow("left of the master's start") << 4 << 0U << -8 << 248 << 0.0;
        QTest::newRow("delayed") << 4 << 100U << 0 << 150 << 400.0;
        QTest::newRow("delayed and shifted back") << 4 << 100U << -400 << 250 << 0.0;
        QTest::newRow("only the last samples meet") << 4 << 249U << 0 << 1 << 996.0;
        QTest::newRow("all to the right") << 4 << 250U << 0 << 0 << 0.0;
        QTest::newRow("all to the left") << 4 << 0U << -1000 << 0 << 0.0;
        QTest::newRow("finer grid") << 1 << 0U << 0 << 63 << 0.0;
        QTest::newRow("coarser grid that starts later") << 8 << 0U << 4 << 125 << 4.0;
        QTest::newRow("delay as large as it gets") << 4 << 0xFFFFFFFFU << 0 << 0 << 0.0;
        QTest::newRow("unsigned delay is no shift to the left")
            << 1 << 0xFFFFFFFCU << 0 << 0 << 0.0;
    }

    void meetingsDependOnWhereTheTracesStand()
    {
        QFETCH(int, step);
        QFETCH(quint32, delay);
        QFETCH(int, scroll);
        QFETCH(int, meetings);
        QFETCH(double, first);
        const TraceRef master = { m_flat.data(), 4, 0, 0, 0 };
        const TraceRef trace = { m_flat.data(), step, delay, scroll, 0 };
        calc::splineDifference(master, trace, m_points);
        QCOMPARE(m_points.size(), meetings);
        if (meetings > 0)
            QCOMPARE(m_points.first(), QPointF(first, 0));
        calc::stepDifference(master, trace, m_points);
        QCOMPARE(m_points.size(), qMax(0, 2 * meetings - 1));
    }

    void theSampleUnderAMeetingIsTheTracesOwn()
    {
        // The trace starts at 8, so the master's third sample stands above the trace's first.
        calc::splineDifference({ m_ramp.data(), 4, 0, 0, 0 }, { m_ramp.data(), 4, 2, 0, 0 },
                               m_points);
        QCOMPARE(m_points.size(), 248);
        QCOMPARE(m_points[0], QPointF(8, -123 - -125));
        QCOMPARE(m_points[247], QPointF(996, 124 - 122));
    }

    void theBufferKeepsItsCapacity()
    {
        const TraceRef master = { m_ramp.data(), 4, 0, 0, 0 };
        const TraceRef apart = { m_ramp.data(), 4, 0, 1, 0 };
        calc::stepPoints(master, m_points);
        const auto capacity = m_points.capacity();
        const QPointF *const place = m_points.constData();
        QVERIFY(capacity >= 500);
        calc::stepDifference(master, apart, m_points);
        QCOMPARE(m_points.size(), 0);
        calc::splinePoints(master, m_points);
        calc::splineDifference(master, apart, m_points);
        calc::stepPoints(master, m_points);
        QCOMPARE(m_points.capacity(), capacity);
        QCOMPARE(m_points.constData(), place);
    }

    void aCopyTakenByASeriesKeepsItsPoints()
    {
        calc::stepPoints({ m_ramp.data(), 1, 0, 0, 0 }, m_points);
        const QVector<QPointF> copy = m_points;
        calc::stepPoints({ m_ramp.data(), 1, 0, 1000, 0 }, m_points);
        QCOMPARE(copy[0], QPointF(0, -125));
        QCOMPARE(m_points[0], QPointF(1000, -125));
    }
};

QTEST_APPLESS_MAIN(TestTracePoints)
#include "tst_trace_points.moc"
