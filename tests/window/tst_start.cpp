// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowfixture.h"

#include <QButtonGroup>
#include <QtTest>

class TestStart : public QObject
{
    Q_OBJECT

private slots:
    void firstStartShowsAnEmptyWindow()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(fixture.window().size(), QSize(800, 500));
        QCOMPARE(probe.rfg_read_index(), 0);
        QCOMPARE(probe.master_params().KU + 0.0F, 1.49896229F);
        QCOMPARE(probe.master_scale(), 0);
        QCOMPARE(probe.rfg_master_ID(), -1);
        QVERIFY(!probe.master_is_set());
    }

    void horizontalShiftAndCursorAAreSelectedWhateverTheSettingsHeld()
    {
        WindowFixture fixture;
        const QStringList traces{ fixture.trace(QStringLiteral("one.tdr"), TraceBuilder()) };
        WindowFixture::writePreviousRun(traces);
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.down_buttons()->checkedId(), int(MainWindow::H_OFFSET));
        QCOMPARE(probe.up_buttons()->checkedId(), int(MainWindow::CURSOR_A));
        QCOMPARE(probe.rfg_buttons()->checkedId(), 0);
        QCOMPARE(probe.rfg_read_index(), 1);
        QVERIFY(probe.master_is_set());
    }

    void readOnlyParametersCanNeverBePressed()
    {
        WindowFixture fixture;
        fixture.open();
        const QButtonGroup *group = fixture.probe().down_buttons();
        for (const int id : { 0, 2, 4, 5, 6, 9 })
            QVERIFY2(!group->button(id)->isEnabled(), qPrintable(QString::number(id)));
        for (const int id : { 1, 3, 7, 8 })
            QVERIFY2(group->button(id)->isEnabled(), qPrintable(QString::number(id)));
    }

    void theBackupIsMadeOnceAndNeverRefreshed()
    {
        WindowFixture fixture;
        const QByteArray first = "[Dials]\nparamSpeed=50\ncursorSpeed=60\n";
        WindowFixture::writeSettings(first);
        fixture.open();
        fixture.close();
        QFile backup(WindowFixture::settingsFile().replace(QStringLiteral("current"),
                                                           QStringLiteral("current_old")));
        QVERIFY(backup.open(QIODevice::ReadOnly));
        QCOMPARE(backup.readAll(), first);
        backup.close();

        fixture.open();
        fixture.probe().settingsData()->param_dial_speed = 70;
        fixture.close();
        QVERIFY(backup.open(QIODevice::ReadOnly));
        QCOMPARE(backup.readAll(), first);
        const QSettings saved(WindowFixture::settingsFile(), QSettings::IniFormat);
        QCOMPARE(saved.value(QStringLiteral("Dials/paramSpeed")).toInt(), 70);
    }

    void theFirstCloseHasNothingToBackUp()
    {
        WindowFixture fixture;
        fixture.open();
        fixture.close();
        QVERIFY(QFile::exists(WindowFixture::settingsFile()));
        QVERIFY(!QFile::exists(WindowFixture::settingsFile().replace(
            QStringLiteral("current"), QStringLiteral("current_old"))));
    }
};

QTEST_MAIN(TestStart)
#include "tst_start.moc"
