// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "datetime_lbl.h"

#include <QTimer>
#include <QtTest>

namespace {

QString shown(const QDateTime &moment)
{
    return moment.toString(QStringLiteral("dd.MM.yyyy")) + QStringLiteral("\n ")
        + moment.toString(QStringLiteral("hh:mm:ss"));
}

} // namespace

class TestDateTimeLbl : public QObject
{
    Q_OBJECT

private slots:
    void timeIsShownAtOnce()
    {
        const QDateTime before = QDateTime::currentDateTime();
        const DateTime_lbl label;
        const QDateTime after = QDateTime::currentDateTime();
        QVERIFY2(label.text() == shown(before) || label.text() == shown(after),
                 qPrintable(label.text()));
        QCOMPARE(label.alignment(), Qt::AlignCenter);
    }

    void clockTicksEverySecond()
    {
        DateTime_lbl label;
        const auto timers = label.findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(timers.size(), 1);
        QCOMPARE(timers.first()->interval(), 1000);
        QVERIFY(timers.first()->isActive());
        QVERIFY(!timers.first()->isSingleShot());
        label.setText(QStringLiteral("stopped"));
        QTRY_VERIFY_WITH_TIMEOUT(label.text() != QStringLiteral("stopped"), 3000);
        QVERIFY(label.text().contains(QStringLiteral("\n ")));
    }
};

QTEST_MAIN(TestDateTimeLbl)
#include "tst_datetime_lbl.moc"
