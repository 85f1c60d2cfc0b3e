// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "testfiles.h"
#include "viewerrun.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <unistd.h>

namespace {

constexpr int smallDisk = 64 * 1024;

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

/// A file system of 64 KiB, where one may be made.
class SmallDisk
{
public:
    SmallDisk()
        : m_there(mount("tmpfs", qPrintable(m_folder.path()), "tmpfs", 0, "size=64k") == 0)
    {
    }

    ~SmallDisk()
    {
        if (m_there)
            umount2(qPrintable(m_folder.path()), MNT_DETACH);
    }
    Q_DISABLE_COPY(SmallDisk)

    bool isThere() const
    {
        return m_there;
    }

    QString path(const char *name) const
    {
        return m_folder.filePath(QLatin1String(name));
    }

    /// Fills the disk to the last byte.
    void fill() const
    {
        QFile file(path("filler"));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return;
        const QByteArray page(512, 'x');
        for (qint64 written = 0; written < 2 * smallDisk; written += page.size())
            if (file.write(page) != page.size())
                return;
    }

private:
    QTemporaryDir m_folder;
    bool m_there;
};

} // namespace

/// The real program on machines on which saving cannot work, or only just: the settings that were
/// there stay whole or become the new ones, and the program ends as always.
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
    void aCloseSavesAndEndsWithCodeZero()
    {
        ViewerRun viewer;
        checkEnd(viewer.run());
        QVERIFY(viewer.settings() != viewer.oldSettings());
        QCOMPARE(ViewerRun::flawIn(viewer.settings()), QString());
        QCOMPARE(viewer.strays(), QStringList());
        QCOMPARE(contentOf(viewer.path(QStringLiteral("settings_current_old.ini"))),
                 viewer.oldSettings());
        // All six traces were found again.
        QVERIFY(viewer.settings().contains("StateIndex=63\n"));
    }

    void fullDiskLeavesTheOldSettings()
    {
        struct Row
        {
            const char *name;
            bool isLink; ///< the settings file is a link to another folder
            bool isSmallDisk; ///< which is on a disk of its own
        };
        std::vector<Row> rows{ { "limit", false, false }, { "limit behind a link", true, false } };
        // Only root makes file systems.
        if (SmallDisk().isThere())
            rows.push_back({ "64 KiB", true, true });
        each(rows, [](const Row &row) {
            ViewerRun viewer;
            const SmallDisk disk;
            const QString place = row.isLink ? disk.path("settings.ini") : viewer.settingsFile();
            if (row.isLink) {
                QVERIFY(QFile::rename(viewer.settingsFile(), place));
                QVERIFY(QFile::link(place, viewer.settingsFile()));
            }
            if (row.isSmallDisk)
                disk.fill();
            else
                viewer.startBy(withSmallFiles());
            checkEnd(viewer.run());
            QCOMPARE(contentOf(place), viewer.oldSettings());
            QCOMPARE(QFileInfo(viewer.settingsFile()).isSymLink(), row.isLink);
            QCOMPARE(viewer.strays(), QStringList());

            // With space again, the next close saves.
            QFile::remove(disk.path("filler"));
            viewer.startBy({});
            checkEnd(viewer.run());
            QCOMPARE(ViewerRun::flawIn(contentOf(place)), QString());
        });
    }

    void aReadOnlyProgramFolderSendsTheSettingsToTheUsers()
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

    void aUserWithNoPlaceToWriteKeepsTheOldSettings()
    {
        ViewerRun viewer;
        viewer.startBy(asAnybody());
        letAnybodyIn(viewer, {});
        checkEnd(viewer.run());
        QCOMPARE(viewer.settings(), viewer.oldSettings());
        QVERIFY(!QFileInfo::exists(viewer.path(QStringLiteral("config"))));
        letAnybodyIn(viewer, QFileDevice::WriteOwner);
    }

    void settingsThatCannotBeReadStayWhole()
    {
        ViewerRun viewer;
        viewer.startBy(asAnybody());
        const auto nobody = QFileDevice::Permissions();
        QVERIFY(QFile::setPermissions(viewer.settingsFile(), nobody));
        // The folder lets the user make and replace files.
        letAnybodyIn(viewer, static_cast<QFileDevice::Permissions>(0x2222));
        checkEnd(viewer.run());
        QVERIFY(QFile::setPermissions(viewer.settingsFile(),
                                      QFileDevice::ReadOwner | QFileDevice::WriteOwner));
        const QByteArray left = viewer.settings();
        QVERIFY(left == viewer.oldSettings() || ViewerRun::flawIn(left).isEmpty());
    }

    void lockedSettingsDelayNothing()
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

    void aProgramFolderThatIsGoneEndsTheProgramAsAlways()
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

    // The search "failing_calls" tries all of them.
    void aFailingSystemCallDoesNotEndTheProgram()
    {
        constexpr int stride = 20;
        ViewerRun viewer;
        checkEnd(viewer.run());
        const int total = viewer.callsOfLastRun();
        QVERIFY(total > 100);
        for (int call = 1; call <= total; call += stride) {
            viewer.tidy();
            const ViewerRun::Outcome outcome = viewer.run(call);
            checkEnd(outcome);
            const QByteArray left = viewer.settings();
            const QString flaw = left == viewer.oldSettings() ? QString() : ViewerRun::flawIn(left);
            QVERIFY2(flaw.isEmpty(), qPrintable(flaw + QString::fromLatin1(outcome.output)));
        }
    }
};

QTEST_GUILESS_MAIN(TestSaving)
#include "tst_saving.moc"
