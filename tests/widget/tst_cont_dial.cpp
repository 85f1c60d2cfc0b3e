// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"

#include <QSignalSpy>
#include <QtMath>
#include <QtTest>

#include <climits>

namespace {

constexpr int side = 200;

/// Where the mouse stands to show at \a turns of a turn; the dial starts at the bottom and goes
/// clockwise.
QPoint at(double turns)
{
    const double angle = 2.0 * M_PI * turns;
    return { qRound(side / 2.0 - 80.0 * qSin(angle)), qRound(side / 2.0 + 80.0 * qCos(angle)) };
}

/// Presses at \a from and drags to \a to, both in turns, in small steps, and releases.
void drag(Cont_dial &dial, double from, double to)
{
    constexpr double step = 1.0 / 40.0;
    QTest::mousePress(&dial, Qt::LeftButton, Qt::NoModifier, at(from));
    const int steps = qRound(qAbs(to - from) / step);
    for (int i = 1; i <= steps; ++i) {
        const QPoint place = at(from + (to - from) * i / steps);
        QMouseEvent move(QEvent::MouseMove, place, dial.mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&dial, &move);
    }
    QTest::mouseRelease(&dial, Qt::LeftButton, Qt::NoModifier, at(to));
}

} // namespace

class TestContDial : public QObject
{
    Q_OBJECT

private slots:
    void aNewDialHoldsItsInitialValues()
    {
        const Cont_dial dial;
        QCOMPARE(dial.trueValue, 0);
        QCOMPARE(dial.turn_count, 0);
        QCOMPARE(dial.trueMin, 0);
        QCOMPARE(dial.trueMax, 100);
        QCOMPARE(dial.zeroOff, false);
        QCOMPARE(dial.titleText, QString());
        QCOMPARE(dial.ring_color, QColor(Qt::black));
        QVERIFY(dial.icon.isNull());
        QCOMPARE(dial.oldValue, 0);
        QCOMPARE(dial.textRect, QRectF());
        QCOMPARE(dial.radius, 0);
        QCOMPARE(dial.minimum(), 0);
        QCOMPARE(dial.maximum(), 100);
        QCOMPARE(dial.singleStep(), 1);
        QVERIFY(dial.wrapping());
        QVERIFY(dial.notchesVisible());
    }

    void theFirstPageIsTwiceTheLater()
    {
        Cont_dial dial;
        QCOMPARE(dial.pageStep(), 10);
        dial.setAccuracy(100);
        QCOMPARE(dial.pageStep(), 5);
    }

    void theSlotsFollowTheSignal()
    {
        const QMetaObject &meta = Cont_dial::staticMetaObject;
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            names << QString::fromLatin1(meta.method(i).methodSignature());
        }
        QCOMPARE(names.join(QLatin1Char(' ')),
                 QStringLiteral("trueValueChanged(int) trueValue_slot(int) nullifier_slot() "
                                "setAccuracy(int)"));
    }

    void movementsAreSummed_data()
    {
        QTest::addColumn<int>("accuracy");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("turns");
        QTest::newRow("forward") << 100 << 10 << 13 << 3 << 0;
        QTest::newRow("backward") << 100 << 13 << 10 << -3 << 0;
        QTest::newRow("nowhere") << 100 << 50 << 50 << 0 << 0;
        QTest::newRow("forward wrap") << 100 << 98 << 2 << 4 << 1;
        QTest::newRow("backward wrap") << 100 << 2 << 98 << -4 << -1;
        QTest::newRow("a fast jump is a movement") << 100 << 50 << 0 << -50 << 0;
        QTest::newRow("last page to first") << 100 << 95 << 5 << 10 << 1;
        QTest::newRow("short of the last page") << 100 << 94 << 5 << -89 << 0;
        QTest::newRow("past the first page") << 100 << 95 << 6 << -89 << 0;
        QTest::newRow("end to start") << 100 << 100 << 0 << 0 << 1;
        QTest::newRow("start to end") << 100 << 0 << 100 << 0 << -1;
        // Up to 99 steps a page is half a turn: passing the middle looks like a wrap as well.
        QTest::newRow("over the middle of 20") << 20 << 10 << 11 << -19 << -1;
        QTest::newRow("back over the middle of 20") << 20 << 11 << 10 << 19 << 1;
        QTest::newRow("both ways cancel out") << 1 << 1 << 0 << -1 << 0;
        QTest::newRow("eight steps") << 8 << 7 << 1 << 2 << 1;
        QTest::newRow("a thousand steps") << 1000 << 960 << 40 << 80 << 1;
    }

    void movementsAreSummed()
    {
        QFETCH(int, accuracy);
        QFETCH(int, from);
        QFETCH(int, to);
        Cont_dial dial;
        dial.setAccuracy(accuracy);
        dial.trueMin = -100000;
        dial.trueMax = 100000;
        dial.trueValue = 500;
        dial.oldValue = from;
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        dial.trueValue_slot(to);
        QTEST(dial.trueValue - 500, "way");
        QTEST(dial.turn_count, "turns");
        QCOMPARE(dial.oldValue, to);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toInt(), dial.trueValue);
    }

    void theClampIsReportedEachTime()
    {
        Cont_dial dial;
        dial.trueMax = 0;
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        for (const int place : { 3, 7, 40, 2 }) {
            dial.trueValue_slot(place);
        }
        QCOMPARE(spy.count(), 4);
        for (const QList<QVariant> &arguments : spy) {
            QCOMPARE(arguments.at(0).toInt(), 0);
        }
    }

    void turnsAreNotCorrectedByTheClamp()
    {
        Cont_dial dial;
        dial.oldValue = 98;
        dial.trueMax = 1;
        dial.trueValue_slot(2);
        QCOMPARE(dial.trueValue, 1);
        QCOMPARE(dial.turn_count, 1);
    }

    void theUpperClampWins()
    {
        Cont_dial dial;
        dial.trueMin = 10;
        dial.trueMax = -10;
        dial.trueValue_slot(1);
        QCOMPARE(dial.trueValue, -10);
    }

    void theEndsOfAnIntAreNotPassed()
    {
        Cont_dial dial;
        dial.trueMin = INT_MIN;
        dial.trueMax = INT_MAX;
        dial.trueValue = INT_MAX;
        dial.trueValue_slot(60);
        QCOMPARE(dial.trueValue, INT_MAX);
        dial.trueValue = INT_MIN;
        dial.trueValue_slot(0);
        QCOMPARE(dial.trueValue, INT_MIN);
    }

    void stepsFollowTheAccuracy_data()
    {
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("travel");
        QTest::addColumn<int>("single");
        QTest::addColumn<int>("page");
        const auto row = [](int steps, int single, int page) {
            QTest::addRow("%d", steps) << steps << qBound(1, steps, 1000000) << single << page;
        };
        row(INT_MIN, 1, 1);
        row(-5, 1, 1);
        row(0, 1, 1);
        row(1, 1, 1);
        row(5, 1, 1);
        row(8, 1, 1);
        row(9, 1, 1);
        row(10, 1, 5);
        row(20, 2, 10);
        row(50, 5, 25);
        row(99, 9, 45);
        row(100, 1, 5);
        row(199, 1, 5);
        row(200, 2, 10);
        row(250, 2, 10);
        row(500, 5, 25);
        row(1000, 10, 50);
        row(999999, 9999, 49995);
        row(1000000, 10000, 50000);
        row(1000001, 10000, 50000);
        row(INT_MAX, 10000, 50000);
    }

    void stepsFollowTheAccuracy()
    {
        QFETCH(int, steps);
        Cont_dial dial;
        dial.trueValue = 77;
        dial.setAccuracy(steps);
        QCOMPARE(dial.minimum(), 0);
        QTEST(dial.maximum(), "travel");
        QTEST(dial.singleStep(), "single");
        QTEST(dial.pageStep(), "page");
        QCOMPARE(dial.trueValue, 77);
    }

    void anAccuracyOfNothingSurvivesWheelAndKeys_data()
    {
        QTest::addColumn<int>("steps");
        QTest::newRow("none") << 0;
        QTest::newRow("negative") << -100;
        QTest::newRow("enormous") << INT_MAX;
    }

    void anAccuracyOfNothingSurvivesWheelAndKeys()
    {
        QFETCH(int, steps);
        Cont_dial dial;
        show(dial);
        dial.setAccuracy(steps);
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        wheel(dial, 120);
        wheel(dial, -240);
        QTest::keyClick(&dial, Qt::Key_Up);
        QTest::keyClick(&dial, Qt::Key_Left);
        QTest::keyClick(&dial, Qt::Key_PageDown);
        QTest::keyClick(&dial, Qt::Key_End);
        QCOMPARE(spy.count(), 0);
        drag(dial, 0.1, 1.3);
        QVERIFY(dial.trueValue >= 0 && dial.trueValue <= 100);
        QVERIFY(!dial.grab().isNull());
    }

    void turningRoundAndRoundCounts_data()
    {
        QTest::addColumn<int>("accuracy");
        QTest::addColumn<double>("turns");
        QTest::newRow("forward") << 100 << 3.0;
        QTest::newRow("backward") << 100 << -3.0;
        QTest::newRow("fine, forward") << 1000 << 2.0;
        QTest::newRow("fine, backward") << 1000 << -2.0;
        QTest::newRow("eight, forward") << 8 << 2.0;
        QTest::newRow("eight, backward") << 8 << -2.0;
    }

    void turningRoundAndRoundCounts()
    {
        QFETCH(int, accuracy);
        QFETCH(double, turns);
        Cont_dial dial;
        show(dial);
        dial.setAccuracy(accuracy);
        dial.trueMin = -100000;
        dial.trueMax = 100000;
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        // From the top, half a turn away from the seam.
        drag(dial, 0.5, 0.5 + turns);
        const int whole = qRound(turns * accuracy);
        QVERIFY2(qAbs(dial.trueValue - whole) <= accuracy / 50 + 1,
                 qPrintable(QString::number(dial.trueValue)));
        QCOMPARE(spy.last().at(0).toInt(), dial.trueValue);
        QCOMPARE(qAbs(dial.turn_count), qRound(qAbs(turns)));
        QCOMPARE(dial.turn_count > 0, turns > 0);
    }

    void theCounterStopsAtItsLimits_data()
    {
        QTest::addColumn<double>("turns");
        QTest::addColumn<int>("end");
        QTest::newRow("upper") << 3.0 << 130;
        QTest::newRow("lower") << -3.0 << -40;
    }

    void theCounterStopsAtItsLimits()
    {
        QFETCH(double, turns);
        QFETCH(int, end);
        Cont_dial dial;
        show(dial);
        dial.setAccuracy(100);
        dial.trueMin = -40;
        dial.trueMax = 130;
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        drag(dial, 0.5, 0.5 + turns);
        QCOMPARE(dial.trueValue, end);
        const auto reports = spy.count();
        QVERIFY(reports > 50);
        for (const QList<QVariant> &arguments : spy) {
            QVERIFY(arguments.at(0).toInt() >= -40 && arguments.at(0).toInt() <= 130);
        }
        // Back: the counter leaves the limit at once, it does not remember the surplus.
        drag(dial, 0.5, 0.5 - turns / 12.0);
        QVERIFY(qAbs(dial.trueValue - (end - qRound(turns * 100 / 12))) <= 3);
    }

    void aPressThatMovesTheRingDoesNotCount()
    {
        Cont_dial dial;
        show(dial);
        dial.trueValue = 40;
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        for (const double place : { 0.2, 0.9, 0.5 }) {
            QTest::mouseClick(&dial, Qt::LeftButton, Qt::NoModifier, at(place));
            QVERIFY(qAbs(dial.value() - qRound(place * 100)) <= 2);
            QCOMPARE(dial.oldValue, dial.value());
        }
        QCOMPARE(dial.trueValue, 40);
        QCOMPARE(spy.count(), 0);
    }

    void wheelAndKeysDoNotCount()
    {
        Cont_dial dial;
        show(dial);
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        wheel(dial, 120);
        QTest::keyClick(&dial, Qt::Key_Up);
        QVERIFY(dial.value() != 0);
        QCOMPARE(dial.trueValue, 0);
        QCOMPARE(spy.count(), 0);
        // Nor afterwards: the next press starts from where the ring stands.
        const int raw = dial.value();
        dial.nullifier_slot();
        QCOMPARE(dial.oldValue, raw);
    }

    void theOwnersWritesAreSilent()
    {
        Cont_dial dial;
        QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        dial.trueValue = 5;
        dial.setValue(50);
        dial.setAccuracy(10);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(dial.trueValue, 5);
    }

private:
    static void show(Cont_dial &dial)
    {
        dial.resize(side, side);
        dial.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dial));
    }
    static void wheel(Cont_dial &dial, int delta)
    {
        const QPointF middle(side / 2.0, side / 2.0);
        QWheelEvent event(middle, dial.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&dial, &event);
    }
};

QTEST_MAIN(TestContDial)
#include "tst_cont_dial.moc"
