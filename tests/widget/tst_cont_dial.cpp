// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"
#include "input_events.h"

#include <QSignalSpy>
#include <QtTest>

#include <climits>

namespace {

void show(QDial &dial, QSize size = { 200, 200 })
{
    dial.resize(size);
    dial.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dial));
}

/// Turns \a dial by \a turns from the top, half a turn away from the seam.
void drag(Cont_dial &dial, double turns)
{
    input::turnDial(&dial, 0.0, 360.0 * turns, qRound(40.0 * qAbs(turns)));
}

/// The bounding rectangle of all pixels in which \a one and \a other differ.
QRect changedPart(const QImage &one, const QImage &other)
{
    QRect all;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y))
                all |= QRect(x, y, 1, 1);
    return all;
}

class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    int paints = 0;
};

} // namespace

class TestContDial : public QObject
{
    Q_OBJECT

private slots:
    void slotsFollowTheSignal()
    {
        const QMetaObject &meta = Cont_dial::staticMetaObject;
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            names << QString::fromLatin1(meta.method(i).methodSignature());
        QCOMPARE(names.join(QLatin1Char(' ')),
                 QStringLiteral("trueValueChanged(int) trueValue_slot(int) nullifier_slot() "
                                "setAccuracy(int)"));
    }

    // ---- Counting ----

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
                    // Up to 99 steps a page step is half a turn, so passing the middle counts as a
                    // wrap.
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

    void clampedValueIsReportedEachTimeAndTurnsAreKept()
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
        // The upper limit takes precedence.
        dial.trueMin = 10;
        dial.trueMax = -10;
        dial.trueValue_slot(1);
        QCOMPARE(dial.trueValue, -10);
    }

    void valueSaturatesAtTheEndsOfInt()
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
                    { "8", 8, 1, 1 },
                    { "9", 9, 1, 1 },
                    { "10", 10, 1, 5 },
                    { "20", 20, 2, 10 },
                    { "99", 99, 9, 45 },
                    { "100", 100, 1, 5 },
                    { "199", 199, 1, 5 },
                    { "200", 200, 2, 10 },
                    { "1000", 1000, 10, 50 },
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

    void anyAccuracyIsSafeForWheelKeysAndPaint()
    {
        for (const int steps : { 0, -100, INT_MAX }) {
            Cont_dial dial;
            show(dial);
            dial.setAccuracy(steps);
            const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
            input::wheel(&dial, 120);
            input::wheel(&dial, -240);
            for (const Qt::Key key : { Qt::Key_Up, Qt::Key_Left, Qt::Key_PageDown, Qt::Key_End })
                QTest::keyClick(&dial, key);
            QCOMPARE(spy.count(), 0);
            drag(dial, 1.2);
            QVERIFY(dial.trueValue >= 0 && dial.trueValue <= 100);
            QVERIFY(!dial.grab().isNull());
        }
    }

    void fullTurnsAreCounted()
    {
        for (const int accuracy : { 100, 1000, 8 }) {
            for (const double turns : { 3.0, -3.0 }) {
                Cont_dial dial;
                show(dial);
                dial.setAccuracy(accuracy);
                dial.trueMin = -100000;
                dial.trueMax = 100000;
                const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
                drag(dial, turns);
                const int whole = qRound(turns * accuracy);
                QVERIFY2(qAbs(dial.trueValue - whole) <= accuracy / 50 + 1,
                         qPrintable(QString::number(dial.trueValue)));
                QCOMPARE(spy.last().at(0).toInt(), dial.trueValue);
                QCOMPARE(dial.turn_count, qRound(turns));
            }
        }
    }

    void counterStopsAtItsLimits()
    {
        for (const double turns : { 3.0, -3.0 }) {
            const int end = turns > 0 ? 130 : -40;
            Cont_dial dial;
            show(dial);
            dial.setAccuracy(100);
            dial.trueMin = -40;
            dial.trueMax = 130;
            const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
            drag(dial, turns);
            QCOMPARE(dial.trueValue, end);
            QVERIFY(spy.count() > 50);
            for (const QList<QVariant> &arguments : spy)
                QVERIFY(arguments.at(0).toInt() >= -40 && arguments.at(0).toInt() <= 130);
            // On the way back the counter leaves the limit at once.
            drag(dial, -turns / 12.0);
            QVERIFY(qAbs(dial.trueValue - (end - qRound(turns * 100 / 12))) <= 3);
        }
    }

    void onlyADragChangesTheTrueValue()
    {
        Cont_dial dial;
        show(dial);
        dial.trueValue = 40;
        const QSignalSpy spy(&dial, &Cont_dial::trueValueChanged);
        // A press moves the ring to its place.
        for (const double place : { 0.2, 0.9, 0.5 }) {
            input::turnDial(&dial, 360.0 * (place - 0.5), 0.0, 1);
            QVERIFY(qAbs(dial.value() - qRound(place * 100)) <= 2);
            QCOMPARE(dial.oldValue, dial.value());
        }
        for (const Qt::Key key : { Qt::Key_Up, Qt::Key_PageUp }) {
            const int before = dial.value();
            QTest::keyClick(&dial, key);
            QVERIFY(dial.value() != before);
        }
        const int before = dial.value();
        input::wheel(&dial, 120);
        QVERIFY(dial.value() != before);
        // The next press starts from the raw position.
        dial.nullifier_slot();
        QCOMPARE(dial.oldValue, dial.value());
        dial.setValue(50);
        dial.setAccuracy(10);
        QCOMPARE(dial.trueValue, 40);
        QCOMPARE(spy.count(), 0);
    }

    // ---- Painting ----

    void captionIsRepaintedAtOnceAndThePictureNever()
    {
        Cont_dial dial;
        show(dial);
        PaintCounter counter;
        dial.installEventFilter(&counter);
        dial.setText(QStringLiteral("X Shift\n3.5 m"));
        QCOMPARE(counter.paints, 1);
        QCOMPARE(dial.titleText, QStringLiteral("X Shift\n3.5 m"));
        const QImage before = dial.grab().toImage();
        counter.paints = 0;
        QPixmap picture(50, 50);
        picture.fill(Qt::red);
        dial.setIcon(picture);
        QCoreApplication::processEvents();
        QCOMPARE(counter.paints, 0);
        QCOMPARE(dial.icon.size(), QSize(50, 50));
        QCOMPARE(dial.grab().toImage(), before);
    }

    void captionIsInTheMiddle()
    {
        Cont_dial dial;
        show(dial);
        QFont font = dial.font();
        font.setPixelSize(20);
        dial.setFont(font);
        const QImage bare = dial.grab().toImage();
        dial.setText(QStringLiteral("HHHH"));
        const QRect changed = changedPart(bare, dial.grab().toImage());
        const QPoint off = changed.center() - dial.rect().center();
        QVERIFY2(qAbs(off.x()) <= 2 && qAbs(off.y()) <= 4,
                 qPrintable(QStringLiteral("%1 %2").arg(off.x()).arg(off.y())));
        QVERIFY(changed.width() > 20 && changed.width() < dial.width());
    }

    void ringLeavesNoStalePixels()
    {
        Cont_dial dial;
        show(dial);
        dial.ring_color = Qt::red;
        dial.grab();
        QCOMPARE(dial.radius, 80);
        QDial plain;
        plain.setRange(0, 100);
        plain.setSingleStep(1);
        plain.setPageStep(10);
        plain.setWrapping(true);
        plain.setNotchesVisible(true);
        show(plain);
        dial.clearFocus();
        plain.clearFocus();
        QCOMPARE(dial.grab().toImage(), plain.grab().toImage());
    }

    void captionFollowsTheSize()
    {
        struct Row
        {
            const char *name;
            QSize size;
            QRectF rect;
        };
        each<Row>({ { "square", { 200, 200 }, { -1, 49, 200, 100 } },
                    { "odd", { 101, 75 }, { 0, 19, 101, 37 } },
                    { "flat", { 200, 50 }, { -1, 12, 200, 25 } } },
                  [](const Row &row) {
                      Cont_dial dial;
                      show(dial, row.size);
                      QCOMPARE(dial.size(), row.size);
                      QCOMPARE(dial.textRect, row.rect);
                      dial.grab();
                      QCOMPARE(dial.radius, static_cast<int>(row.size.height() / 2.5));
                  });
    }
};

QTEST_MAIN(TestContDial)
#include "tst_cont_dial.moc"
