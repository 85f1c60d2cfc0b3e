// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/cursor_level.h"
#include "calc/spline.h"
#include "calc/trace_points.h"
#include "each.h"

#include <QtTest>

#include <array>
#include <climits>

using calc::TraceRef;
using Points = QVector<QPointF>;
using Samples = std::array<qint8, 250>;

namespace {

constexpr int noLevel = 129;

template <typename Function> Samples samplesFrom(Function function)
{
    Samples samples = {};
    for (int i = 0; i < 250; ++i)
        samples[static_cast<std::size_t>(i)] = static_cast<qint8>(function(i));
    return samples;
}

} // namespace

/// Points of traces, of differences and of splines, and the level under a cursor.
class TestTracePoints : public QObject
{
    Q_OBJECT

    // Sample i is i - 125: every sample has a value of its own, -125..124.
    const Samples m_ramp = samplesFrom([](int i) { return i - 125; });
    const Samples m_flat = samplesFrom([](int) { return 0; });

    QVector<QPointF> m_points;

    TraceRef ramp(int step, quint32 delay = 0, int scroll = 0, int offset = 0) const
    {
        return { m_ramp.data(), step, delay, scroll, offset };
    }

private slots:
    void init()
    {
        m_points.clear();
    }

    void samplesBecomeSteps()
    {
        calc::stepPoints(ramp(2, 10, 6, -3), m_points);
        QCOMPARE(m_points.size(), 499);
        QCOMPARE(m_points[0], QPointF(26, -128)); // 6 + 10 * 2
        QCOMPARE(m_points[1], QPointF(28, -128));
        QCOMPARE(m_points[2], QPointF(28, -127));
        QCOMPARE(m_points[3], QPointF(30, -127));
        QCOMPARE(m_points[496], QPointF(522, 120));
        QCOMPARE(m_points[497], QPointF(524, 120));
        QCOMPARE(m_points[498], QPointF(524, 121)); // 6 + (10 + 249) * 2, without a right end
    }

    void samplesBecomeSplinePointsWithoutAFilter()
    {
        calc::splinePoints(ramp(4, 1, -8, 100), m_points);
        QCOMPARE(m_points.size(), 250);
        QCOMPARE(m_points[0], QPointF(-4, -25));
        QCOMPARE(m_points[1], QPointF(0, -24));
        QCOMPARE(m_points[249], QPointF(992, 224));
        const Samples spikes = samplesFrom([](int i) { return i % 2 == 0 ? -128 : 127; });
        calc::splinePoints({ spikes.data(), 1, 0, 0, 0 }, m_points);
        for (int i = 0; i < 250; ++i)
            QCOMPARE(m_points[i], QPointF(i, i % 2 == 0 ? -128 : 127));
    }

    void positionsDoNotWrap()
    {
        struct Row
        {
            const char *name;
            int step;
            quint32 delay;
            int scroll;
            double first;
            double last;
        };
        each<Row>({ { "shift to the left", 1, 0, -4, -4.0, 245.0 },
                    { "smallest shift", 1, 0, INT_MIN, -2147483648.0, -2147483399.0 },
                    { "largest shift", 1, 0, INT_MAX, 2147483647.0, 2147483896.0 },
                    { "largest delay", 1, 0xFFFFFFFFU, 0, 4294967295.0, 4294967544.0 },
                    { "largest delay and step", 64000, 0xFFFFFFFFU, 0, 274877906880000.0,
                      274877922816000.0 },
                    { "step 0 counts as 1", 0, 3, 0, 3.0, 252.0 },
                    { "negative step counts as 1", INT_MIN, 3, 0, 3.0, 252.0 },
                    { "step beyond the axis", INT_MAX, 1, 0, 64000.0, 16000000.0 } },
                  [this](const Row &row) {
                      const TraceRef trace = ramp(row.step, row.delay, row.scroll);
                      for (const auto &points : { calc::splinePoints, calc::stepPoints }) {
                          points(trace, m_points);
                          QCOMPARE(m_points.first(), QPointF(row.first, -125));
                          QCOMPARE(m_points.last(), QPointF(row.last, 124));
                      }
                  });
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

    void differenceHasAPointAtEachCommonColumn()
    {
        // Samples at 0, 2, .. 498 and at 0, 3, .. 747 have the 84 multiples of 6 in common.
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

        // With the roles exchanged only the sign changes.
        calc::stepDifference(trace, master, m_points);
        QCOMPARE(m_points.size(), 167);
        QCOMPARE(m_points[1], QPointF(3, -4));
        QCOMPARE(m_points[166], QPointF(498, -170));
    }

    // The master's samples are at 0, 4, .. 996.
    void commonColumnsDependOnTheGrids()
    {
        struct Row
        {
            const char *name;
            int step;
            quint32 delay;
            int scroll;
            int common;
            double first;
        };
        each<Row>({ { "half a sample off", 4, 0, 2, 0, 0.0 },
                    { "one count off", 4, 0, -1, 0, 0.0 },
                    { "starts right of the master", 4, 0, 8, 248, 8.0 },
                    { "starts left of the master", 4, 0, -8, 248, 0.0 },
                    { "delayed", 4, 100, 0, 150, 400.0 },
                    { "delayed and shifted back", 4, 100, -400, 250, 0.0 },
                    { "only the last sample", 4, 249, 0, 1, 996.0 },
                    { "all to the right", 4, 250, 0, 0, 0.0 },
                    { "all to the left", 4, 0, -1000, 0, 0.0 },
                    { "finer grid", 1, 0, 0, 63, 0.0 },
                    { "coarser grid that starts later", 8, 0, 4, 125, 4.0 },
                    { "largest delay", 4, 0xFFFFFFFFU, 0, 0, 0.0 },
                    { "the delay is unsigned", 1, 0xFFFFFFFCU, 0, 0, 0.0 } },
                  [this](const Row &row) {
                      const TraceRef master = { m_flat.data(), 4, 0, 0, 0 };
                      const TraceRef trace = { m_flat.data(), row.step, row.delay, row.scroll, 0 };
                      calc::splineDifference(master, trace, m_points);
                      QCOMPARE(m_points.size(), row.common);
                      if (row.common > 0)
                          QCOMPARE(m_points.first(), QPointF(row.first, 0));
                      calc::stepDifference(master, trace, m_points);
                      QCOMPARE(m_points.size(), qMax(0, 2 * row.common - 1));
                  });
    }

    void bufferKeepsItsCapacity()
    {
        const TraceRef master = ramp(4);
        const TraceRef apart = ramp(4, 0, 1);
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

    void columnsSnapToTheStepAtTheirLeftAndStayOnTheAxis()
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
        QCOMPARE(calc::clampedColumn(-1), 0);
        QCOMPARE(calc::clampedColumn(0), 0);
        QCOMPARE(calc::clampedColumn(64000), 64000);
        QCOMPARE(calc::clampedColumn(64001), 64000);
    }

    void levelIsOffsetPlusSample()
    {
        QCOMPARE(calc::levelUnder(0, ramp(1)), -125);
        QCOMPARE(calc::levelUnder(249, ramp(1)), 124);
        QCOMPARE(calc::levelUnder(250, ramp(1)), noLevel);
        QCOMPARE(calc::levelUnder(8, ramp(4, 0, 0, 2)), -121);
        QCOMPARE(calc::levelUnder(11, ramp(4)), -123); // within a sample
        QCOMPARE(calc::levelUnder(0, ramp(1, 0, 0, -256)), -381);
        QCOMPARE(calc::levelUnder(13, ramp(1, 0, 10)), -122);
        QCOMPARE(calc::levelUnder(13, ramp(1, 0, -10)), -102);
        QCOMPARE(calc::levelUnder(4, ramp(1, 5)), noLevel);
        QCOMPARE(calc::levelUnder(5, ramp(1, 5)), -125);
        QCOMPARE(calc::levelUnder(20, ramp(4, 5)), -125); // the delay counts samples
        QCOMPARE(calc::levelUnder(64000, ramp(1, 0xFFFFFFFFU)), noLevel);
        // 64000 + 2147483648 - 2147547645 = 3: neither the shift nor the delay wraps.
        QCOMPARE(calc::levelUnder(64000, ramp(1, 2147547645U, INT_MIN)), -122);
        QCOMPARE(calc::levelUnder(249, ramp(1, 0, 0, INT_MAX)), INT_MAX);
        QCOMPARE(calc::levelUnder(249, ramp(1, 0, 0, 5)), 129); // a real level of 129
        QCOMPARE(calc::levelUnder(3, ramp(0)), -122); // step 0 counts as 1
    }

    void lessThanOneStepLeftOfTheTraceIsItsFirstSample()
    {
        QCOMPARE(calc::levelUnder(7, ramp(4, 0, 10)), -125); // starts at 10
        QCOMPARE(calc::levelUnder(6, ramp(4, 0, 10)), noLevel);
        // With a delay the index is negative there.
        QCOMPARE(calc::levelUnder(8, ramp(4, 1, 6)), noLevel);
    }

    void cursorReadsTheLevelAtItsSnappedColumn()
    {
        QCOMPARE(calc::cursorOn(10, ramp(4, 0, 0, 1)).column, 8);
        QCOMPARE(calc::cursorOn(10, ramp(4, 0, 0, 1)).level, -122);
        QCOMPARE(calc::cursorOn(-5, ramp(4)).column, 0);
        QCOMPARE(calc::cursorOn(-5, ramp(4)).level, -125);
    }

    void cursorOnADifferenceSnapsToTheLeftColumnOfBothTraces()
    {
        const auto columnOn = [this](int column, const TraceRef &master, int step) {
            return calc::cursorOnDifference(column, master, ramp(step)).column;
        };
        QCOMPARE(columnOn(10, ramp(3), 4), 8); // own step
        QCOMPARE(columnOn(10, ramp(4), 3), 8); // the master's step
        QCOMPARE(columnOn(10, ramp(3, 2), 4), 7); // the master's delay
        QCOMPARE(columnOn(10, ramp(3, 10), 4), 0); // not below 0
        QCOMPARE(columnOn(64000, ramp(1, 0xFFFFFFFFU), 1), 0);
        QCOMPARE(columnOn(70000, ramp(1), 1), 64000);
        QCOMPARE(columnOn(-70000, ramp(1), 1), 0);
        QCOMPARE(columnOn(10, ramp(0), 0), 10); // steps 0 count as 1
        QCOMPARE(calc::cursorOnDifference(10, ramp(3), ramp(4)).level, noLevel);
    }

    // tst_same_pictures compares the curve with that of the chart module, pixel by pixel.
    void splineKnotsOnALineStayOnIt()
    {
        QCOMPARE(calc::splineControls({}), Points());
        QCOMPARE(calc::splineControls({ { 3.0, 4.0 } }), Points());
        QCOMPARE(calc::splineControls({ { 0.0, 0.0 }, { 3.0, 9.0 } }),
                 (Points{ { 1.0, 3.0 }, { 2.0, 6.0 } }));
        QCOMPARE(calc::splineControls({ { 0.0, 0.0 }, { 3.0, 6.0 }, { 6.0, 12.0 } }),
                 (Points{ { 1.0, 2.0 }, { 2.0, 4.0 }, { 4.0, 8.0 }, { 5.0, 10.0 } }));
    }
};

QTEST_APPLESS_MAIN(TestTracePoints)
#include "tst_trace_points.moc"
