// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"

#include <QSignalSpy>
#include <QtMath>
#include <QtTest>

#include <climits>

namespace {

constexpr int side = 200;

/// Place of the mouse on the rim of the dial after \a turns from its start at the bottom,
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
        QCOMPARE(dial.pageStep(), 10); // 5 after setAccuracy(100)
        QVERIFY(dial.wrapping());
        QVERIFY(dial.notchesVisible());
    }

    void theSlotsFollowTheSignal()
    {
        const QMetaObject &meta = Cont_dial::staticMetaObject;
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            names << QString::fromLatin1(meta.method(i).methodSignature());
        QCOMPARE(names.join(QLatin1Char(' ')),
                 QStringLiteral("trueValueChanged(int) trueValue_slot(int) nullifier_slot() "
                                "setAccuracy(int)"));
    }

    void movementsAreSummed()
    {
        struct Row
        {
            const char *name;
            int accuracy;
            int from;
            int to;
            int way;
            int turns;
        };
        each<Row>({ { "forward", 100, 10, 13, 3, 0 },
                    { "backward", 100, 13, 10, -3, 0 },
                    { "nowhere", 100, 50, 50, 0, 0 },
                    { "forward wrap", 100, 98, 2, 4, 1 },
                    { "backward wrap", 100, 2, 98, -4, -1 },
                    { "a fast jump is a movement", 100, 50, 0, -50, 0 },
                    { "last page to first", 100, 95, 5, 10, 1 },
                    { "short of the last page", 100, 94, 5, -89, 0 },
                    { "past the first page", 100, 95, 6, -89, 0 },
                    { "end to start", 100, 100, 0, 0, 1 },
                    { "start to end", 100, 0, 100, 0, -1 },
                    // Up to 99 steps a page is half a turn: passing the middle looks like a wrap.
                    { "over the middle of 20", 20, 10, 11, -19, -1 },
                    { "back over the middle of 20", 20, 11, 10, 19, 1 },
                    { "both ways cancel out", 1, 1, 0, -1, 0 },
                    { "eight steps", 8, 7, 1, 2, 1 },
                    { "a thousand steps", 1000, 960, 40, 80, 1 } },
                  [](const Row &row) {
                      Cont_dial dial;
                      dial.setAccuracy(row.accuracy);
                      dial.trueMin = -100000;
                      dial.trueMax = 100000;
                      dial.trueValue = 500;
                      dial.oldValue = row.from;
                      const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
                      dial.trueValue_slot(row.to);
                      QCOMPARE(dial.trueValue - 500, row.way);
                      QCOMPARE(dial.turn_count, row.turns);
                      QCOMPARE(dial.oldValue, row.to);
                      QCOMPARE(spy.count(), 1);
                      QCOMPARE(spy.at(0).at(0).toInt(), dial.trueValue);
                  });
    }

    void theClampIsReportedEachTimeAndCorrectsNoTurns()
    {
        Cont_dial dial;
        dial.trueMax = 0;
        dial.oldValue = 98;
        const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        for (const int place : { 2, 7, 40, 3 })
            dial.trueValue_slot(place);
        QCOMPARE(dial.turn_count, 1);
        QCOMPARE(spy.count(), 4);
        for (const QList<QVariant> &arguments : spy)
            QCOMPARE(arguments.at(0).toInt(), 0);
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

    void stepsFollowTheAccuracy()
    {
        struct Row
        {
            const char *name;
            int steps;
            int single;
            int page;
        };
        each<Row>({ { "smallest int", INT_MIN, 1, 1 },
                    { "-5", -5, 1, 1 },
                    { "0", 0, 1, 1 },
                    { "1", 1, 1, 1 },
                    { "5", 5, 1, 1 },
                    { "8", 8, 1, 1 },
                    { "9", 9, 1, 1 },
                    { "10", 10, 1, 5 },
                    { "20", 20, 2, 10 },
                    { "50", 50, 5, 25 },
                    { "99", 99, 9, 45 },
                    { "100", 100, 1, 5 },
                    { "199", 199, 1, 5 },
                    { "200", 200, 2, 10 },
                    { "250", 250, 2, 10 },
                    { "500", 500, 5, 25 },
                    { "1000", 1000, 10, 50 },
                    { "2000000", 2000000, 20000, 100000 },
                    { "largest int", INT_MAX, 21474836, 107374180 } },
                  [](const Row &row) {
                      Cont_dial dial;
                      dial.trueValue = 77;
                      dial.setAccuracy(row.steps);
                      QCOMPARE(dial.minimum(), 0);
                      QCOMPARE(dial.maximum(), qMax(1, row.steps));
                      QCOMPARE(dial.singleStep(), row.single);
                      QCOMPARE(dial.pageStep(), row.page);
                      QCOMPARE(dial.trueValue, 77);
                  });
    }

    void anyAccuracySurvivesWheelKeysAndPaint()
    {
        for (const int steps : { 0, -100, INT_MAX }) {
            Cont_dial dial;
            show(dial);
            dial.setAccuracy(steps);
            const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
            wheel(dial, 120);
            wheel(dial, -240);
            for (const Qt::Key key : { Qt::Key_Up, Qt::Key_Left, Qt::Key_PageDown, Qt::Key_End })
                QTest::keyClick(&dial, key);
            QCOMPARE(spy.count(), 0);
            drag(dial, 0.1, 1.3);
            QVERIFY(dial.trueValue >= 0 && dial.trueValue <= 100);
            QVERIFY(!dial.grab().isNull());
        }
    }

    void turningRoundAndRoundCounts()
    {
        for (const int accuracy : { 100, 1000, 8 }) {
            for (const double turns : { 3.0, -3.0 }) {
                Cont_dial dial;
                show(dial);
                dial.setAccuracy(accuracy);
                dial.trueMin = -100000;
                dial.trueMax = 100000;
                const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
                // From the top, half a turn away from the seam.
                drag(dial, 0.5, 0.5 + turns);
                const int whole = qRound(turns * accuracy);
                QVERIFY2(qAbs(dial.trueValue - whole) <= accuracy / 50 + 1,
                         qPrintable(QString::number(dial.trueValue)));
                QCOMPARE(spy.last().at(0).toInt(), dial.trueValue);
                QCOMPARE(dial.turn_count, qRound(turns));
            }
        }
    }

    void theCounterStopsAtItsLimits()
    {
        for (const double turns : { 3.0, -3.0 }) {
            const int end = turns > 0 ? 130 : -40;
            Cont_dial dial;
            show(dial);
            dial.setAccuracy(100);
            dial.trueMin = -40;
            dial.trueMax = 130;
            const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
            drag(dial, 0.5, 0.5 + turns);
            QCOMPARE(dial.trueValue, end);
            QVERIFY(spy.count() > 50);
            for (const QList<QVariant> &arguments : spy)
                QVERIFY(arguments.at(0).toInt() >= -40 && arguments.at(0).toInt() <= 130);
            // On the way back the counter leaves the limit at once.
            drag(dial, 0.5, 0.5 - turns / 12.0);
            QVERIFY(qAbs(dial.trueValue - (end - qRound(turns * 100 / 12))) <= 3);
        }
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
        const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        wheel(dial, 120);
        QTest::keyClick(&dial, Qt::Key_Up);
        QVERIFY(dial.value() != 0);
        QCOMPARE(dial.trueValue, 0);
        QCOMPARE(spy.count(), 0);
        // The next press starts from the raw position.
        dial.nullifier_slot();
        QCOMPARE(dial.oldValue, dial.value());
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
