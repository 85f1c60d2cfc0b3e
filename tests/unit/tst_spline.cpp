// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/spline.h"

#include <QtTest>

using Points = QVector<QPointF>;

namespace {

bool isZero(QPointF vector)
{
    return vector.manhattanLength() < 1e-12;
}

} // namespace

/// That the curve is the chart module's, to the pixel, is shown on the window.
class TestSpline : public QObject
{
    Q_OBJECT

private slots:
    void fewerThanTwoKnotsHaveNoControls()
    {
        QCOMPARE(calc::splineControls({}), Points());
        QCOMPARE(calc::splineControls({ { 3.0, 4.0 } }), Points());
    }

    void twoKnotsAreJoinedByALine()
    {
        QCOMPARE(calc::splineControls({ { 0.0, 0.0 }, { 3.0, 9.0 } }),
                 (Points{ { 1.0, 3.0 }, { 2.0, 6.0 } }));
    }

    void knotsOnALineStayOnIt()
    {
        QCOMPARE(calc::splineControls({ { 0.0, 0.0 }, { 3.0, 6.0 }, { 6.0, 12.0 } }),
                 (Points{ { 1.0, 2.0 }, { 2.0, 4.0 }, { 4.0, 8.0 }, { 5.0, 10.0 } }));
    }

    void slopeAndCurvatureAreContinuous()
    {
        const Points knots{ { 0.0, 0.0 }, { 1.0, 5.0 }, { 2.0, -3.0 }, { 3.0, 4.0 }, { 4.0, 4.0 } };
        const Points controls = calc::splineControls(knots);
        QCOMPARE(controls.size(), 8);
        for (int i = 1; i < 4; ++i) {
            const QPointF before = controls[2 * i - 1];
            const QPointF after = controls[2 * i];
            QVERIFY(isZero((after - knots[i]) - (knots[i] - before)));
            QVERIFY(isZero((controls[2 * i - 2] - 2 * before) - (controls[2 * i + 1] - 2 * after)));
        }
        // No curvature at the ends.
        QVERIFY(isZero(knots.first() - 2 * controls[0] + controls[1]));
        QVERIFY(isZero(knots.last() - 2 * controls[7] + controls[6]));
    }
};

QTEST_APPLESS_MAIN(TestSpline)
#include "tst_spline.moc"
