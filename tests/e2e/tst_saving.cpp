// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_files.h"
#include "viewerrun.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

bool isRoot()
{
    return geteuid() == 0;
}

/// Permissions do not restrict root, so the program then runs as the user nobody.
QStringList asAnybody()
{
    if (!isRoot())
        return {};
    return { QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
             QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups") };
}

/// Limits files to 512 bytes, which has the effect of a full disk.
QStringList withSmallFiles()
{
    return { QStringLiteral("sh"), QStringLiteral("-c"),
             QStringLiteral("trap '' XFSZ; ulimit -f 1; exec \"$0\"") };
}

} // namespace

/// The real program when saving fails or has to use another folder: the settings are completely the
/// old or the new ones, and the program ends normally.
class TestSaving : public QObject
{
    Q_OBJECT

private:
    static void checkEnd(const ViewerRun::Outcome &outcome)
    {
        QVERIFY2(outcome.ended, outcome.output.constData());
        QVERIFY2(!outcome.crashed, outcome.output.constData());
        QVERIFY2(outcome.code == 0, outcome.output.constData());
    }

    static void letAnybodyIn(const ViewerRun &viewer, QFileDevice::Permissions more)
    {
        const auto look = QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup
            | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
        QVERIFY(QFile::setPermissions(viewer.path(), look | more));
    }

private slots:
    void closeSavesAndEndsWithCodeZero()
    {
        ViewerRun viewer;
        checkEnd(viewer.run());
        QVERIFY(viewer.settings() != viewer.oldSettings());
        QCOMPARE(ViewerRun::flawIn(viewer.settings()), QString());
        QCOMPARE(viewer.strays(), QStringList());
        QCOMPARE(contentOf(viewer.path(QStringLiteral("settings_current_old.ini"))),
                 viewer.oldSettings());
        // All six traces were loaded again.
        QVERIFY(viewer.settings().contains("StateIndex=63\n"));
    }

    void fullDiskLeavesTheOldSettings()
    {
        ViewerRun viewer;
        viewer.startBy(withSmallFiles());
        checkEnd(viewer.run());
        QCOMPARE(viewer.settings(), viewer.oldSettings());
        QCOMPARE(viewer.strays(), QStringList());
        // With space again, the next close saves.
        viewer.startBy({});
        checkEnd(viewer.run());
        QCOMPARE(ViewerRun::flawIn(viewer.settings()), QString());
    }

    void readOnlyProgramFolderSavesToTheUsersFolder()
    {
        ViewerRun viewer;
        viewer.startBy(asAnybody());
        const QString users = viewer.path(QStringLiteral("config"));
        QVERIFY(QDir().mkpath(users));
        const auto everybody = static_cast<QFileDevice::Permissions>(0x7777);
        QVERIFY(QFile::setPermissions(users, everybody));
        letAnybodyIn(viewer, {});
        checkEnd(viewer.run());
        QCOMPARE(viewer.settings(), viewer.oldSettings());
        const QString saved = users + QStringLiteral("/velkor/settings_current.ini");
        QCOMPARE(ViewerRun::flawIn(contentOf(saved)), QString());
        QVERIFY(contentOf(saved).contains("StateIndex=63\n"));
        letAnybodyIn(viewer, QFileDevice::WriteOwner);
    }

    void userWithNoPlaceToWriteKeepsTheOldSettings()
    {
        ViewerRun viewer;
        viewer.startBy(asAnybody());
        letAnybodyIn(viewer, {});
        checkEnd(viewer.run());
        QCOMPARE(viewer.settings(), viewer.oldSettings());
        QVERIFY(!QFileInfo::exists(viewer.path(QStringLiteral("config"))));
        letAnybodyIn(viewer, QFileDevice::WriteOwner);
    }

    void unreadableSettingsStayUnchanged()
    {
        ViewerRun viewer;
        viewer.startBy(asAnybody());
        const auto nobody = QFileDevice::Permissions();
        QVERIFY(QFile::setPermissions(viewer.settingsFile(), nobody));
        // The folder allows the user to create and replace files.
        letAnybodyIn(viewer, static_cast<QFileDevice::Permissions>(0x2222));
        checkEnd(viewer.run());
        QVERIFY(QFile::setPermissions(viewer.settingsFile(),
                                      QFileDevice::ReadOwner | QFileDevice::WriteOwner));
        const QByteArray left = viewer.settings();
        QVERIFY(left == viewer.oldSettings() || ViewerRun::flawIn(left).isEmpty());
    }

    void lockedSettingsCauseNoDelay()
    {
        ViewerRun viewer;
        checkEnd(viewer.run());
        viewer.tidy();
        const int held = open(qPrintable(viewer.settingsFile()), O_RDWR);
        QVERIFY(held >= 0 && flock(held, LOCK_EX) == 0);
        writeFile(viewer.settingsFile() + QStringLiteral(".lock"), "1\nvelkor\nelsewhere\n");
        QElapsedTimer clock;
        clock.start();
        checkEnd(viewer.run());
        // QSettings waits 30 s for such a lock.
        QVERIFY(clock.elapsed() < 25000);
        close(held);
        QVERIFY(viewer.settings() != viewer.oldSettings());
        QCOMPARE(ViewerRun::flawIn(viewer.settings()), QString());
    }

    void removedProgramFolderDoesNotPreventTheExit()
    {
        ViewerRun viewer;
        const QTemporaryDir users;
        viewer.setVariable("XDG_CONFIG_HOME", users.path());
        viewer.setVariable("VELKOR_BEFORE_CLOSE", QStringLiteral("rm -r ") + viewer.path());
        checkEnd(viewer.run());
        QVERIFY(!QFileInfo::exists(viewer.path()));
        const QString saved = users.filePath(QStringLiteral("velkor/settings_current.ini"));
        QCOMPARE(ViewerRun::flawIn(contentOf(saved)), QString());
    }
};

QTEST_GUILESS_MAIN(TestSaving)
#include "tst_saving.moc"
