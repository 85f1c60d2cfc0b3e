// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingsdata.h"
#include "testfiles.h"
#include "windowactions.h"
#include "windowtest.h"

#include <QPushButton>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

void makePipe(const QString &path)
{
#ifdef Q_OS_UNIX
    if (mkfifo(QFile::encodeName(path).constData(), 0600) != 0)
        qFatal("cannot make a pipe");
#else
    Q_UNUSED(path)
#endif
}

QString backupFile()
{
    return WindowFixture::settingsFile().replace(QStringLiteral("current"),
                                                 QStringLiteral("current_old"));
}

} // namespace

class TestBadFiles : public WindowTest
{
    Q_OBJECT

private slots:
    // ---- Trace files ----

    void aRunWithPathsThatCannotBeReadStartsAgain()
    {
        const QString pipe = fixture->path(QStringLiteral("pipe.tdr"));
        makePipe(pipe);
        for (const QString &bad :
             { QString(), fixture->path({}), pipe, fixture->path(QStringLiteral("missing.tdr")) }) {
            fixture->close();
            WindowFixture::writePreviousRun({ bad, bad });
            fixture->open();
            QTest::mouseClick(probe().reset_all_button(), Qt::LeftButton);
            QCOMPARE(probe().rfg_read_index(), 3);
            QCOMPARE(probe().rfg_series()[1]->count(), 499);
            QVERIFY(probe().dist_coef() > 0.0);
        }
    }

    void aFileOfAnyLengthIsTaken()
    {
        MainWindow &window = fixture->open();
        const QByteArray whole = TraceBuilder().samples(-3).bytes();
        const QString path = fixture->path(QStringLiteral("cut.tdr"));
        for (const int size : { 0, 1, 25, 28, 29, 52, 171, 260, 261, 262, 510, 511, 37774 }) {
            writeFile(path, whole.left(size));
            probe().rfg_DATA()[0] = rfg_SHOWN{};
            QVERIFY(window.read_rfg_DATA(path, 0));
            window.add_Selected_RFG(path, 0);
            const auto *series = probe().rfg_series()[0];
            QCOMPARE(series->count(), 499);
            QCOMPARE(series->at(0).y(), size > 261 ? -3.0 : 0.0);
            QCOMPARE(series->at(498).y(), size > 510 ? -3.0 : 0.0);
        }
    }

#ifdef Q_OS_UNIX
    // Only Unix has pipes among the files.
    void aPipeChosenInTheDialogDoesNotHoldTheWindow()
    {
        openOn({ TraceBuilder().samples(5) });
        const QString pipe = fixture->path(QStringLiteral("pipe.tdr"));
        makePipe(pipe);
        QVERIFY(chooseFiles(*fixture, { pipe }));
        QCOMPARE(probe().rfg_read_index(), 1);
        QCOMPARE(probe().rfg_series()[0]->at(0).y(), 5.0);
    }
#endif

    // ---- Settings ----

    void aLastFolderThatIsNoPathOpensTheDialog()
    {
        WindowFixture::writeSettings("[WorkFolders]\nlastFolder=\"\\x0\"\n");
        fixture->open();
        QVERIFY(chooseFiles(*fixture, {}));
    }

    void settingsWithOneWrongByteAreTaken()
    {
        openOn({ TraceBuilder() });
        fixture->close();
        const QByteArray saved = contentOf(WindowFixture::settingsFile());
        QVERIFY(saved.size() > 200);
        for (int at = 3; at < saved.size(); at += 47) {
            QByteArray damaged = saved;
            damaged[at] = static_cast<char>(damaged[at] ^ 0x81);
            WindowFixture::writeSettings(damaged);
            fixture->open();
            QVERIFY2(probe().dist_coef() > 0.0, qPrintable(QString::number(at)));
            QVERIFY2(fixture->window().width() <= 804, qPrintable(QString::number(at)));
        }
    }

    void whatIsNoRegularFileInPlaceOfTheSettingsIsLeftAlone()
    {
        const QString path = WindowFixture::settingsFile();
        QVERIFY(QDir().mkdir(path));
        fixture->open();
        fixture->close();
        QVERIFY(QFileInfo(path).isDir());
        QVERIFY(QDir().rmdir(path));
#ifdef Q_OS_UNIX
        makePipe(path);
        fixture->open();
        fixture->close();
        QVERIFY(!QFileInfo(path).isFile());
        QVERIFY(!QFileInfo::exists(backupFile()));
#endif
    }

    void aBackupThatCannotBeMadeDoesNotStopTheSaving()
    {
        WindowFixture::writeSettings("[Dials]\nparamSpeed=50\n");
        QVERIFY(QDir().mkdir(backupFile()));
        fixture->open();
        probe().settingsData()->param_dial_speed = 70;
        fixture->close();
        QVERIFY(QDir().rmdir(backupFile()));
        QVERIFY(contentOf(WindowFixture::settingsFile()).contains("paramSpeed=70\n"));
    }
};

QTEST_MAIN(TestBadFiles)
#include "tst_bad_files.moc"
