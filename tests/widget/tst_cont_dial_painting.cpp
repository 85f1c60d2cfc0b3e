// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"

#include <QtTest>

namespace {

constexpr int side = 200;

} // namespace

class TestContDialPainting : public QObject
{
    Q_OBJECT

private slots:
    void theCaptionIsPaintedAtOnceAndThePictureNever()
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

    void theCaptionStandsInTheMiddle()
    {
        Cont_dial dial;
        show(dial);
        QFont font = dial.font();
        font.setPixelSize(20);
        dial.setFont(font);
        const QImage bare = dial.grab().toImage();
        dial.setText(QStringLiteral("HHHH"));
        const QImage captioned = dial.grab().toImage();
        const QRect changed = differenceOf(bare, captioned);
        QVERIFY(!changed.isEmpty());
        const QPoint off = changed.center() - dial.rect().center();
        QVERIFY2(qAbs(off.x()) <= 2 && qAbs(off.y()) <= 4,
                 qPrintable(QStringLiteral("%1 %2").arg(off.x()).arg(off.y())));
        QVERIFY(changed.width() > 20 && changed.width() < side);
    }

    void theRingLeavesNoMark()
    {
        Cont_dial dial;
        show(dial);
        dial.ring_color = Qt::red;
        const QImage painted = dial.grab().toImage();
        QCOMPARE(dial.radius, 80);
        QDial plain;
        plain.setRange(0, 100);
        plain.setSingleStep(1);
        plain.setPageStep(10);
        plain.setWrapping(true);
        plain.setNotchesVisible(true);
        plain.resize(side, side);
        plain.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plain));
        dial.clearFocus();
        plain.clearFocus();
        QCOMPARE(dial.grab().toImage(), plain.grab().toImage());
    }

    void theCaptionFollowsTheSize()
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
                      dial.resize(row.size);
                      dial.show();
                      QVERIFY(QTest::qWaitForWindowExposed(&dial));
                      QCOMPARE(dial.size(), row.size);
                      QCOMPARE(dial.textRect, row.rect);
                      dial.grab();
                      QCOMPARE(dial.radius, static_cast<int>(row.size.height() / 2.5));
                  });
    }

private:
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

    static void show(Cont_dial &dial)
    {
        dial.resize(side, side);
        dial.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dial));
    }
    static QRect differenceOf(const QImage &a, const QImage &b)
    {
        QRect all;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x) {
                if (a.pixel(x, y) != b.pixel(x, y))
                    all |= QRect(x, y, 1, 1);
            }
        }
        return all;
    }
};

QTEST_MAIN(TestContDialPainting)
#include "tst_cont_dial_painting.moc"
