// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "miscfunc.h"

#include <QtTest>

#include <climits>

class TestMiscfunc : public QObject
{
    Q_OBJECT

private slots:
    void bitsAreReadByPosition()
    {
        QVERIFY(checkbit(5, 0));
        QVERIFY(!checkbit(5, 1));
        QVERIFY(checkbit(5, 2));
        QVERIFY(checkbit(-1, 31));
        QVERIFY(checkbit(1, 32));
        QVERIFY(checkbit(2, 33));
    }

    void bitsAreWrittenByPosition()
    {
        QCOMPARE(setbit(0, 5), 32);
        QCOMPARE(setbit(0, 32), 1);
        QCOMPARE(setbit(0, 31), INT_MIN);
        QCOMPARE(setbit(0, -1), INT_MIN);
        QCOMPARE(unsetbit(63, 3), 55);
        QCOMPARE(unsetbit(INT_MIN, 31), 0);
        QCOMPARE(switchbit(1, 0), 0);
        QCOMPARE(switchbit(0, 4), 16);
    }

    void theFirstBitOfAnEmptySetIsOneHundred()
    {
        QCOMPARE(firstbit(0), char(100));
        QCOMPARE(firstbit(48), char(4));
        QCOMPARE(firstbit(1), char(0));
        QCOMPARE(firstbit(INT_MIN), char(31));
    }

    void powersOfTwoWrapTheirExponentAt32()
    {
        QCOMPARE(m_pow2(0), 1.0F);
        QCOMPARE(m_pow2(10), 1024.0F);
        QCOMPARE(m_pow2(-1), 0.5F);
        QCOMPARE(m_pow2(-3), 0.125F);
        QCOMPARE(m_pow2(32), 1.0F);
        QCOMPARE(m_pow2(31), -2147483648.0F); // the sign bit
        QCOMPARE(m_pow2(INT_MIN), 1.0F);
    }

    void signIsMinusOneZeroOrOne()
    {
        QCOMPARE(sign(INT_MIN), -1);
        QCOMPARE(sign(0), 0);
        QCOMPARE(sign(7), 1);
    }

    void bcdDigitsAreNotChecked()
    {
        QCOMPARE(hexdec(0x31), 31);
        QCOMPARE(hexdec(0x00), 0);
        QCOMPARE(hexdec(0x59), 59);
        QCOMPARE(hexdec(0x1A), 20);
        QCOMPARE(hexdec(0xFF), 165);
    }
};

QTEST_APPLESS_MAIN(TestMiscfunc)
#include "tst_miscfunc.moc"
