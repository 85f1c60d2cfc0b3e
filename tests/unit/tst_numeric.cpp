// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/numeric.h"

#include <QtTest>

#include <climits>
#include <limits>

class TestNumeric : public QObject
{
    Q_OBJECT

private slots:
    void doublesLoseTheirFraction_data()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("expected");
        QTest::newRow("zero") << 0.0 << 0;
        QTest::newRow("downwards when positive") << 2.9 << 2;
        QTest::newRow("upwards when negative") << -2.9 << -2;
        QTest::newRow("just below one") << 0.999999999 << 0;
        QTest::newRow("just above minus one") << -0.999999999 << 0;
        QTest::newRow("largest int") << 2147483647.0 << INT_MAX;
        QTest::newRow("a fraction below the largest int") << 2147483646.9 << INT_MAX - 1;
        QTest::newRow("one above the largest int") << 2147483648.0 << INT_MAX;
        QTest::newRow("smallest int") << -2147483648.0 << INT_MIN;
        QTest::newRow("a fraction above the smallest int") << -2147483647.9 << INT_MIN + 1;
        QTest::newRow("one below the smallest int") << -2147483649.0 << INT_MIN;
        QTest::newRow("huge") << 1e300 << INT_MAX;
        QTest::newRow("huge and negative") << -1e300 << INT_MIN;
        QTest::newRow("infinity") << infinity << INT_MAX;
        QTest::newRow("minus infinity") << -infinity << INT_MIN;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
    }

    void doublesLoseTheirFraction()
    {
        QFETCH(double, value);
        QTEST(calc::truncated(value), "expected");
    }

    void floatsFollowTheSameRules()
    {
        QCOMPARE(calc::truncated(12.75F), 12);
        QCOMPARE(calc::truncated(-12.75F), -12);
        QCOMPARE(calc::truncated(1e30F), INT_MAX);
        QCOMPARE(calc::truncated(-1e30F), INT_MIN);
        // The float nearest to the largest int lies one above it.
        QCOMPARE(calc::truncated(2147483647.0F), INT_MAX);
        QCOMPARE(calc::truncated(2147483520.0F), 2147483520);
        QCOMPARE(calc::truncated(std::numeric_limits<float>::quiet_NaN()), 0);
    }

    void longIntegersStopAtTheNearestInt()
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
};

QTEST_APPLESS_MAIN(TestNumeric)
#include "tst_numeric.moc"
