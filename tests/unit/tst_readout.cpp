// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/readout.h"

#include <QtTest>

#include <limits>

class TestReadout : public QObject
{
    Q_OBJECT

private slots:
    void distancesHaveTwoDecimalsABlankAndTheUnit_data()
    {
        QTest::addColumn<int>("counts");
        QTest::addColumn<double>("metresPerCount");
        QTest::addColumn<QString>("expected");
        QTest::newRow("zero") << 0 << 0.125 << QStringLiteral("0.00 m");
        QTest::newRow("eight counts are a metre") << 8 << 0.125 << QStringLiteral("1.00 m");
        QTest::newRow("to the left") << -4 << 0.125 << QStringLiteral("-0.50 m");
        QTest::newRow("one count at start-up") << 1 << 0.12500000057 << QStringLiteral("0.13 m");
        QTest::newRow("whole axis") << 64000 << 0.125 << QStringLiteral("8000.00 m");
        QTest::newRow("no velocity factor yet") << 64000 << 0.0 << QStringLiteral("0.00 m");
        QTest::newRow("light speed") << 100 << 0.18737028625 << QStringLiteral("18.74 m");
    }

    void distancesHaveTwoDecimalsABlankAndTheUnit()
    {
        QFETCH(int, counts);
        QFETCH(double, metresPerCount);
        QTEST(calc::distanceText(counts, metresPerCount, QStringLiteral("m")), "expected");
    }

    void theUnitIsWhateverTheLanguageHas()
    {
        QCOMPARE(calc::distanceText(8, 0.125, QStringLiteral("\u043c")),
                 QStringLiteral("1.00 \u043c"));
        QCOMPARE(calc::distanceText(8, 0.125, QString()), QStringLiteral("1.00 "));
    }

    void countsBecomeMetresWithoutRounding()
    {
        QCOMPARE(calc::countsToMetres(3, 0.125), 0.375);
        QCOMPARE(calc::countsToMetres(-64000, 0.125), -8000.0);
    }

    void theLevel129IsShownAsNothing()
    {
        QVERIFY(calc::levelText(129).isEmpty());
        QCOMPARE(calc::levelText(128), QStringLiteral("128"));
        QCOMPARE(calc::levelText(130), QStringLiteral("130"));
        QCOMPARE(calc::levelText(-129), QStringLiteral("-129"));
    }

    void levelsArePlainIntegers()
    {
        QCOMPARE(calc::levelText(0), QStringLiteral("0"));
        QCOMPARE(calc::levelText(-128), QStringLiteral("-128"));
        QCOMPARE(calc::levelText(383), QStringLiteral("383"));
    }

    void velocityFactorsHaveThreeDecimals()
    {
        QCOMPARE(calc::kuText(1.49896229F), QStringLiteral("1.499"));
        QCOMPARE(calc::kuText(1.0F), QStringLiteral("1.000"));
        QCOMPARE(calc::kuText(10.0F), QStringLiteral("10.000"));
    }

    void scaleCaptionsAreAsShortAsTheyCanBe_data()
    {
        QTest::addColumn<float>("metres");
        QTest::addColumn<QString>("expected");
        QTest::newRow("level 0") << 31.25F << QStringLiteral("31.25 m");
        QTest::newRow("level 1") << 62.5F << QStringLiteral("62.5 m");
        QTest::newRow("level 2") << 125.0F << QStringLiteral("125 m");
        QTest::newRow("level 3") << 250.0F << QStringLiteral("250 m");
        QTest::newRow("level 4") << 500.0F << QStringLiteral("500 m");
        QTest::newRow("level 5") << 1000.0F << QStringLiteral("1000 m");
        QTest::newRow("level 6") << 2000.0F << QStringLiteral("2000 m");
        QTest::newRow("level 7") << 4000.0F << QStringLiteral("4000 m");
        QTest::newRow("level 8") << 8000.0F << QStringLiteral("8000 m");
    }

    void scaleCaptionsAreAsShortAsTheyCanBe()
    {
        QFETCH(float, metres);
        QTEST(calc::scaleText(metres), "expected");
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

    void nonsenseIsShownRatherThanFatal()
    {
        constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
        QCOMPARE(calc::distanceText(1, notANumber, QStringLiteral("m")), QStringLiteral("nan m"));
        QCOMPARE(calc::kuText(std::numeric_limits<float>::infinity()), QStringLiteral("inf"));
    }
};

QTEST_APPLESS_MAIN(TestReadout)
#include "tst_readout.moc"
