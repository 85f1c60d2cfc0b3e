// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/view_range.h"

#include <QtTest>

#include <climits>
#include <limits>

using calc::Range;

Q_DECLARE_METATYPE(calc::Range)

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
    void eachZoomStepDoublesTheView_data()
    {
        QTest::addColumn<int>("exponent");
        QTest::addColumn<int>("counts");
        QTest::addColumn<float>("caption");
        QTest::newRow("far below") << INT_MIN << 250 << 31.25F;
        QTest::newRow("below") << -3 << 250 << 31.25F;
        QTest::newRow("0") << 0 << 250 << 31.25F;
        QTest::newRow("1") << 1 << 500 << 62.5F;
        QTest::newRow("2") << 2 << 1000 << 125.0F;
        QTest::newRow("3") << 3 << 2000 << 250.0F;
        QTest::newRow("4") << 4 << 4000 << 500.0F;
        QTest::newRow("5") << 5 << 8000 << 1000.0F;
        QTest::newRow("6") << 6 << 16000 << 2000.0F;
        QTest::newRow("7") << 7 << 32000 << 4000.0F;
        QTest::newRow("8") << 8 << 64000 << 8000.0F;
        QTest::newRow("above") << 12 << 64000 << 8000.0F;
        QTest::newRow("far above") << INT_MAX << 64000 << 8000.0F;
    }

    void eachZoomStepDoublesTheView()
    {
        QFETCH(int, exponent);
        QTEST(calc::visibleCounts(exponent), "counts");
        // The same single value: the caption is exact at every level.
        QTEST(calc::scaleDistance(exponent), "caption");
    }

    void zoomStaysBetweenItsEnds()
    {
        QCOMPARE(calc::clampedScale(-3), 0);
        QCOMPARE(calc::clampedScale(0), 0);
        QCOMPARE(calc::clampedScale(5), 5);
        QCOMPARE(calc::clampedScale(8), 8);
        QCOMPARE(calc::clampedScale(12), 8);
    }

    void theMastersStepChoosesTheZoom_data()
    {
        QTest::addColumn<float>("minstep");
        QTest::addColumn<int>("exponent");
        QTest::newRow("0.3 ns") << 0.3F << -2;
        QTest::newRow("1 ns") << 1.0F << 0;
        QTest::newRow("one count") << 1.25F << 0;
        QTest::newRow("two counts") << 2.5F << 1;
        QTest::newRow("nearly three counts") << 3.7F << 1;
        QTest::newRow("four counts") << 5.0F << 2;
        QTest::newRow("eight counts") << 10.0F << 3;
        QTest::newRow("256 counts") << 320.0F << 8;
        QTest::newRow("zero") << 0.0F << INT_MIN;
        QTest::newRow("negative") << -5.0F << 0;
        QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN() << 0;
        QTest::newRow("infinity") << std::numeric_limits<float>::infinity() << INT_MAX;
    }

    void theMastersStepChoosesTheZoom()
    {
        QFETCH(float, minstep);
        QTEST(calc::exponentForMinstep(minstep), "exponent");
    }

    void scaleCaptionsGiveTheirZoomBack_data()
    {
        QTest::addColumn<double>("metres");
        QTest::addColumn<int>("exponent");
        QTest::newRow("31.25") << 31.25 << 0;
        QTest::newRow("62.5") << 62.5 << 1;
        QTest::newRow("125") << 125.0 << 2;
        QTest::newRow("250") << 250.0 << 3;
        QTest::newRow("500") << 500.0 << 4;
        QTest::newRow("1000") << 1000.0 << 5;
        QTest::newRow("2000") << 2000.0 << 6;
        QTest::newRow("4000") << 4000.0 << 7;
        QTest::newRow("8000") << 8000.0 << 8;
        QTest::newRow("between two captions") << 100.0 << 1;
        QTest::newRow("zero") << 0.0 << INT_MIN;
        QTest::newRow("negative") << -1.0 << 0;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
    }

    void scaleCaptionsGiveTheirZoomBack()
    {
        QFETCH(double, metres);
        QTEST(calc::exponentOfDistance(metres), "exponent");
    }

    void aStepPastAnEndIsRefusedWhole_data()
    {
        QTest::addColumn<Range>("range");
        QTest::addColumn<int>("step");
        QTest::addColumn<Range>("expected");
        QTest::newRow("to the right") << Range{ 0, 250 } << 1 << Range{ 1, 251 };
        QTest::newRow("to the left") << Range{ 10, 260 } << -4 << Range{ 6, 256 };
        QTest::newRow("up to the left end") << Range{ 10, 260 } << -10 << Range{ 0, 250 };
        QTest::newRow("past the left end") << Range{ 10, 260 } << -11 << Range{ 10, 260 };
        QTest::newRow("at the left end") << Range{ 0, 250 } << -1 << Range{ 0, 250 };
        QTest::newRow("up to the right end") << Range{ 63749, 63999 } << 1 << Range{ 63750, 64000 };
        QTest::newRow("past the right end by one count")
            << Range{ 63749, 63999 } << 2 << Range{ 63749, 63999 };
        QTest::newRow("the widest view does not move")
            << Range{ 0, 64000 } << 256 << Range{ 0, 64000 };
        QTest::newRow("far to the left") << Range{ 10, 260 } << INT_MIN << Range{ 10, 260 };
        QTest::newRow("far to the right") << Range{ 10, 260 } << INT_MAX << Range{ 10, 260 };
        QTest::newRow("left of the axis already") << Range{ -5, 245 } << 0 << Range{ 0, 250 };
        QTest::newRow("refused left of the axis") << Range{ -5, 245 } << -1 << Range{ 0, 250 };
        QTest::newRow("back from the left") << Range{ -5, 245 } << 10 << Range{ 5, 255 };
        QTest::newRow("right of the axis already")
            << Range{ 100000, 100250 } << -1 << Range{ 100000, 100250 };
        QTest::newRow("back to the start in one step")
            << Range{ 100000, 100250 } << -100000 << Range{ 0, 250 };
        QTest::newRow("wider than an int") << Range{ INT_MIN, INT_MAX } << 0 << Range{ 0, INT_MAX };
    }

    void aStepPastAnEndIsRefusedWhole()
    {
        QFETCH(Range, range);
        QFETCH(int, step);
        QTEST(calc::scrolled(range, step), "expected");
    }

    void theViewIsCentredUnlessAnEndIsNear_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<Range>("range");
        QTest::addColumn<Range>("expected");
        QTest::newRow("in the middle") << 1000 << Range{ 0, 250 } << Range{ 875, 1125 };
        QTest::newRow("already in view") << 200 << Range{ 0, 250 } << Range{ 75, 325 };
        QTest::newRow("left end") << 0 << Range{ 500, 750 } << Range{ 0, 250 };
        QTest::newRow("half a view from the left") << 125 << Range{ 0, 250 } << Range{ 0, 250 };
        QTest::newRow("not quite half a view from the left")
            << 124 << Range{ 0, 250 } << Range{ 0, 250 };
        QTest::newRow("one count more") << 126 << Range{ 0, 250 } << Range{ 1, 251 };
        QTest::newRow("half a view from the right")
            << 63875 << Range{ 0, 250 } << Range{ 63750, 64000 };
        QTest::newRow("one count less") << 63874 << Range{ 0, 250 } << Range{ 63749, 63999 };
        QTest::newRow("not quite half a view from the right")
            << 63876 << Range{ 0, 250 } << Range{ 63750, 64000 };
        QTest::newRow("right end") << 64000 << Range{ 0, 250 } << Range{ 63750, 64000 };
        QTest::newRow("whole axis") << 40000 << Range{ 0, 64000 } << Range{ 0, 64000 };
        QTest::newRow("odd width truncates both ends")
            << 200 << Range{ 0, 251 } << Range{ 74, 325 };
        QTest::newRow("odd width at the left end") << 0 << Range{ 7, 258 } << Range{ 0, 251 };
        QTest::newRow("from beyond the axis")
            << 0 << Range{ 2147419647, INT_MAX } << Range{ 0, 64000 };
        QTest::newRow("widest range of ints does not overflow")
            << 0 << Range{ INT_MIN, INT_MAX } << Range{ INT_MIN, 64000 };
    }

    void theViewIsCentredUnlessAnEndIsNear()
    {
        QFETCH(int, column);
        QFETCH(Range, range);
        QTEST(calc::centredOn(column, range), "expected");
    }

    void aMasterIsShownFromItsDelay_data()
    {
        QTest::addColumn<quint32>("delay");
        QTest::addColumn<int>("exponent");
        QTest::addColumn<Range>("expected");
        QTest::newRow("no delay") << 0U << 0 << Range{ 0, 250 };
        QTest::newRow("short delay") << 7U << 2 << Range{ 7, 1007 };
        QTest::newRow("beyond the axis") << 100000U << 0 << Range{ 100000, 100250 };
        QTest::newRow("last delay that fits") << 2147419647U << 8 << Range{ 2147419647, INT_MAX };
        QTest::newRow("first that does not") << 2147419648U << 8 << Range{ 2147419647, INT_MAX };
        QTest::newRow("as large as it gets") << 0xFFFFFFFFU << 0 << Range{ 2147419647, 2147419897 };
        QTest::newRow("zoom out of range") << 0U << 30 << Range{ 0, 64000 };
    }

    void aMasterIsShownFromItsDelay()
    {
        QFETCH(quint32, delay);
        QFETCH(int, exponent);
        QTEST(calc::rangeFromDelay(delay, exponent), "expected");
    }

    void aDragScrollsByAsManyCountsAsItCovers_data()
    {
        QTest::addColumn<int>("exponent");
        QTest::addColumn<double>("pixels");
        QTest::addColumn<float>("width");
        QTest::addColumn<int>("expected");
        QTest::newRow("half a count per pixel") << 0 << 10.0 << 500.0F << 5;
        QTest::newRow("to the left, zoomed out") << 3 << -3.0 << 500.0F << -12;
        QTest::newRow("less than a count") << 0 << -1.0 << 500.0F << 0;
        QTest::newRow("no width yet") << 8 << 100.0 << 0.0F << 0;
        QTest::newRow("negative width") << 8 << 100.0 << -1.0F << 0;
        QTest::newRow("width is no number")
            << 8 << 100.0 << std::numeric_limits<float>::quiet_NaN() << 0;
        QTest::newRow("pixels are no number")
            << 8 << std::numeric_limits<double>::quiet_NaN() << 500.0F << 0;
        QTest::newRow("far too far") << 8 << 1e300 << 500.0F << INT_MAX;
    }

    void aDragScrollsByAsManyCountsAsItCovers()
    {
        QFETCH(int, exponent);
        QFETCH(double, pixels);
        QFETCH(float, width);
        QTEST(calc::panStep(exponent, pixels, width), "expected");
    }
};

QTEST_APPLESS_MAIN(TestViewRange)
#include "tst_view_range.moc"
