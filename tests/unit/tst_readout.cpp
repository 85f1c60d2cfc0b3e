// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/readout.h"

#include <QtTest>

#include <limits>

class TestReadout : public QObject
{
    Q_OBJECT

private slots:
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
        QCOMPARE(text(1, std::numeric_limits<double>::quiet_NaN()), QStringLiteral("nan m"));
        QCOMPARE(calc::distanceText(8, 0.125, QStringLiteral("\u043c")),
                 QStringLiteral("1.00 \u043c"));
        QCOMPARE(calc::distanceText(8, 0.125, QString()), QStringLiteral("1.00 "));
    }

    void countsBecomeMetresWithoutRounding()
    {
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

    void scalesHaveNoTrailingZeros()
    {
        QCOMPARE(calc::scaleText(31.25F), QStringLiteral("31.25 m"));
        QCOMPARE(calc::scaleText(62.5F), QStringLiteral("62.5 m"));
        for (const int metres : { 125, 250, 500, 1000, 2000, 4000, 8000 })
            QCOMPARE(calc::scaleText(static_cast<float>(metres)),
                     QStringLiteral("%1 m").arg(metres));
    }

    void generalNotationKeepsSixDigits()
    {
        QCOMPARE(calc::generalText(8000.00003648), QStringLiteral("8000"));
        QCOMPARE(calc::generalText(0.0), QStringLiteral("0"));
        QCOMPARE(calc::generalText(-31.25), QStringLiteral("-31.25"));
        QCOMPARE(calc::generalText(1234567.0), QStringLiteral("1.23457e+06"));
    }

    void theDecimalPointIsTheSameInEveryLanguage()
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

QTEST_APPLESS_MAIN(TestReadout)
#include "tst_readout.moc"
