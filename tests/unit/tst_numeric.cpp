// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/numeric.h"
#include "calc/readout.h"
#include "miscfunc.h"

#include <QtTest>

#include <climits>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

/// Conversions of numbers: to int, to bit sets, from BCD, and to the texts of the readouts.
class TestNumeric : public QObject
{
    Q_OBJECT

private slots:
    void doublesAreTruncatedTowardsZero()
    {
        QCOMPARE(calc::truncated(0.0), 0);
        QCOMPARE(calc::truncated(2.9), 2);
        QCOMPARE(calc::truncated(-2.9), -2);
        QCOMPARE(calc::truncated(0.999999999), 0);
        QCOMPARE(calc::truncated(-0.999999999), 0);
        QCOMPARE(calc::truncated(2147483647.0), INT_MAX);
        QCOMPARE(calc::truncated(2147483646.9), INT_MAX - 1);
        QCOMPARE(calc::truncated(-2147483647.9), INT_MIN + 1);
        QCOMPARE(calc::truncated(-2147483648.0), INT_MIN);
        for (const double large : { 2147483648.0, 1e300, infinity }) {
            QCOMPARE(calc::truncated(large), INT_MAX);
            QCOMPARE(calc::truncated(-1.0 - large), INT_MIN);
        }
        QCOMPARE(calc::truncated(notANumber), 0);
    }

    void longIntegersSaturate()
    {
        QCOMPARE(calc::saturated(0), 0);
        QCOMPARE(calc::saturated(-7), -7);
        QCOMPARE(calc::saturated(2147483647LL), INT_MAX);
        QCOMPARE(calc::saturated(2147483648LL), INT_MAX);
        QCOMPARE(calc::saturated(-2147483648LL), INT_MIN);
        QCOMPARE(calc::saturated(-2147483649LL), INT_MIN);
        QCOMPARE(calc::saturated(std::numeric_limits<qint64>::max()), INT_MAX);
        QCOMPARE(calc::saturated(std::numeric_limits<qint64>::min()), INT_MIN);
    }

    void bitsAreReadAndWrittenByPosition()
    {
        QVERIFY(checkbit(5, 0));
        QVERIFY(!checkbit(5, 1));
        QVERIFY(checkbit(5, 2));
        QVERIFY(checkbit(-1, 31));
        QVERIFY(checkbit(1, 32)); // positions wrap at 32
        QVERIFY(checkbit(2, 33));
        QCOMPARE(setbit(0, 5), 32);
        QCOMPARE(setbit(0, 32), 1);
        QCOMPARE(setbit(0, 31), INT_MIN);
        QCOMPARE(setbit(0, -1), INT_MIN);
        QCOMPARE(unsetbit(63, 3), 55);
        QCOMPARE(unsetbit(INT_MIN, 31), 0);
        QCOMPARE(switchbit(1, 0), 0);
        QCOMPARE(switchbit(0, 4), 16);
    }

    void firstBitOfAnEmptySetIsOneHundred()
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

    void distancesHaveTwoDecimalsABlankAndTheUnit()
    {
        const auto text = [](int counts, double metresPerCount) {
            return calc::distanceText(counts, metresPerCount, QStringLiteral("m"));
        };
        QCOMPARE(text(0, 0.125), QStringLiteral("0.00 m"));
        QCOMPARE(text(8, 0.125), QStringLiteral("1.00 m"));
        QCOMPARE(text(-4, 0.125), QStringLiteral("-0.50 m"));
        QCOMPARE(text(1, 0.12500000057), QStringLiteral("0.13 m"));
        QCOMPARE(text(64000, 0.125), QStringLiteral("8000.00 m"));
        QCOMPARE(text(64000, 0.0), QStringLiteral("0.00 m")); // no shortening factor yet
        QCOMPARE(text(100, 0.18737028625), QStringLiteral("18.74 m"));
        QCOMPARE(text(1, notANumber), QStringLiteral("nan m"));
        QCOMPARE(calc::distanceText(8, 0.125, QStringLiteral("\u043c")),
                 QStringLiteral("1.00 \u043c"));
        QCOMPARE(calc::distanceText(8, 0.125, QString()), QStringLiteral("1.00 "));
        QCOMPARE(calc::countsToMetres(3, 0.125), 0.375);
        QCOMPARE(calc::countsToMetres(-64000, 0.125), -8000.0);
    }

    void levelsAreIntegersAnd129IsEmpty()
    {
        QVERIFY(calc::levelText(129).isEmpty());
        for (const int level : { 128, 130, -129, 0, -128, 383 })
            QCOMPARE(calc::levelText(level), QString::number(level));
    }

    void shorteningFactorsHaveThreeDecimals()
    {
        QCOMPARE(calc::kuText(1.49896229F), QStringLiteral("1.499"));
        QCOMPARE(calc::kuText(1.0F), QStringLiteral("1.000"));
        QCOMPARE(calc::kuText(10.0F), QStringLiteral("10.000"));
        QCOMPARE(calc::kuText(std::numeric_limits<float>::infinity()), QStringLiteral("inf"));
    }

    void scalesHaveSixDigitsAndNoTrailingZeros()
    {
        QCOMPARE(calc::scaleText(31.25F), QStringLiteral("31.25 m"));
        QCOMPARE(calc::scaleText(62.5F), QStringLiteral("62.5 m"));
        QCOMPARE(calc::scaleText(125.0F), QStringLiteral("125 m"));
        QCOMPARE(calc::scaleText(8000.0F), QStringLiteral("8000 m"));
        QCOMPARE(calc::generalText(8000.00003648), QStringLiteral("8000"));
        QCOMPARE(calc::generalText(0.0), QStringLiteral("0"));
        QCOMPARE(calc::generalText(-31.25), QStringLiteral("-31.25"));
        QCOMPARE(calc::generalText(1234567.0), QStringLiteral("1.23457e+06"));
    }

    void decimalPointIsTheSameInEveryLanguage()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::Russian));
        const QString distance = calc::distanceText(10, 0.125, QStringLiteral("m"));
        const QString ku = calc::kuText(1.5F);
        const QString scale = calc::scaleText(31.25F);
        QLocale::setDefault(before);
        QCOMPARE(distance, QStringLiteral("1.25 m"));
        QCOMPARE(ku, QStringLiteral("1.500"));
        QCOMPARE(scale, QStringLiteral("31.25 m"));
    }
};

QTEST_APPLESS_MAIN(TestNumeric)
#include "tst_numeric.moc"
