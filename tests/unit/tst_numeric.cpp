// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/numeric.h"
#include "each.h"

#include <QtTest>

#include <climits>
#include <limits>

class TestNumeric : public QObject
{
    Q_OBJECT

private slots:
    void doublesLoseTheirFraction()
    {
        struct Row
        {
            const char *name;
            double value;
            int expected;
        };
        constexpr double infinity = std::numeric_limits<double>::infinity();
        each<Row>(
            {
                { "zero", 0.0, 0 },
                { "downwards when positive", 2.9, 2 },
                { "upwards when negative", -2.9, -2 },
                { "just below one", 0.999999999, 0 },
                { "just above minus one", -0.999999999, 0 },
                { "largest int", 2147483647.0, INT_MAX },
                { "a fraction below the largest int", 2147483646.9, INT_MAX - 1 },
                { "one above the largest int", 2147483648.0, INT_MAX },
                { "smallest int", -2147483648.0, INT_MIN },
                { "a fraction above the smallest int", -2147483647.9, INT_MIN + 1 },
                { "one below the smallest int", -2147483649.0, INT_MIN },
                { "huge", 1e300, INT_MAX },
                { "huge and negative", -1e300, INT_MIN },
                { "infinity", infinity, INT_MAX },
                { "minus infinity", -infinity, INT_MIN },
                { "not a number", std::numeric_limits<double>::quiet_NaN(), 0 },
            },
            [](const Row &row) { QCOMPARE(calc::truncated(row.value), row.expected); });
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
