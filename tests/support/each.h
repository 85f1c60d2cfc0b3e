// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtTest>

#include <vector>

/// Runs \a check on each of \a rows, in their order. Stops after the first row that fails and names
/// it. \a Row has a member \c name, a string literal or a QByteArray.
///
///     struct Row { const char *name; int counts; QString text; };
///     each<Row>({ { "zero", 0, QStringLiteral("0.00 m") },
///                 { "to the left", -4, QStringLiteral("-0.50 m") } },
///               [](const Row &row) { QCOMPARE(textOf(row.counts), row.text); });
template <typename Row, typename Check> void each(const std::vector<Row> &rows, const Check &check)
{
    for (const Row &row : rows) {
        check(row);
        if (QTest::currentTestFailed()) {
            const QByteArray message = "in row '" + QByteArray(row.name) + '\'';
            QTest::qFail(message.constData(), nullptr, 0);
            return;
        }
    }
}
