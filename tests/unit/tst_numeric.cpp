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
    void doublesAreTruncatedTowardsZero()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        QCOMPARE(calc::truncated(0.0), 0);
        QCOMPARE(calc::truncated(2.9), 2);
        QCOMPARE(calc::truncated(-2.9), -2);
        QCOMPARE(calc::truncated(0.999999999), 0);
        QCOMPARE(calc::truncated(-0.999999999), 0);
        QCOMPARE(calc::truncated(2147483647.0), INT_MAX);
        QCOMPARE(calc::truncated(2147483646.9), INT_MAX - 1);
        QCOMPARE(calc::truncated(2147483648.0), INT_MAX);
        QCOMPARE(calc::truncated(-2147483648.0), INT_MIN);
        QCOMPARE(calc::truncated(-2147483647.9), INT_MIN + 1);
        QCOMPARE(calc::truncated(-2147483649.0), INT_MIN);
        QCOMPARE(calc::truncated(1e300), INT_MAX);
        QCOMPARE(calc::truncated(-1e300), INT_MIN);
        QCOMPARE(calc::truncated(infinity), INT_MAX);
        QCOMPARE(calc::truncated(-infinity), INT_MIN);
        QCOMPARE(calc::truncated(std::numeric_limits<double>::quiet_NaN()), 0);
    }

    void floatsFollowTheSameRules()
    {
        QCOMPARE(calc::truncated(12.75F), 12);
        QCOMPARE(calc::truncated(-12.75F), -12);
        QCOMPARE(calc::truncated(1e30F), INT_MAX);
        QCOMPARE(calc::truncated(-1e30F), INT_MIN);
        // The float nearest to the largest int is one above it.
        QCOMPARE(calc::truncated(2147483647.0F), INT_MAX);
        QCOMPARE(calc::truncated(2147483520.0F), 2147483520);
        QCOMPARE(calc::truncated(std::numeric_limits<float>::quiet_NaN()), 0);
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
};

QTEST_APPLESS_MAIN(TestNumeric)
#include "tst_numeric.moc"
