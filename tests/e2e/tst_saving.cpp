// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "room.h"
#include "testfiles.h"

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

const QString program = QStringLiteral(VELKOR_PROGRAM);
const QString library = QStringLiteral(VELKOR_FAILCALLS);

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
QStringList withLittleRoom()
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
    static void checkEnd(const Room::Outcome &outcome)
    {
        QVERIFY2(outcome.ended, outcome.said.constData());
        QVERIFY2(!outcome.crashed, outcome.said.constData());
        QVERIFY2(outcome.code == 0, outcome.said.constData());
    }

    static void letAnybodyIn(const Room &room, QFileDevice::Permissions more)
    {
        const auto look = QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup
            | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
        QVERIFY(QFile::setPermissions(room.path(QString()), look | more));
    }

private slots:
    void aCloseSavesAndEndsWithCodeZero()
    {
        Room room(program, library);
        checkEnd(room.run());
        QVERIFY(room.settings() != room.oldSettings());
        QCOMPARE(Room::flawIn(room.settings()), QString());
        QCOMPARE(room.strays(), QStringList());
        QCOMPARE(contentOf(room.path(QStringLiteral("settings_current_old.ini"))),
                 room.oldSettings());
        // All six traces were found again.
        QVERIFY(room.settings().contains("StateIndex=63\n"));
    }

    void aDiskWithoutRoomLeavesTheOldSettings()
    {
        Room room(program, library);
        room.startBy(withLittleRoom());
        checkEnd(room.run());
        QCOMPARE(room.settings(), room.oldSettings());
        QCOMPARE(room.strays(), QStringList());
        room.startBy({});
        checkEnd(room.run());
        QCOMPARE(Room::flawIn(room.settings()), QString());
    }

    void aFullSmallDiskLeavesTheOldSettings_data()
    {
        QTest::addColumn<QStringList>("command");
        const SmallDisk disk;
        // Only root makes file systems. Others have the row that needs none.
        if (disk.isThere())
            QTest::newRow("64 KiB") << QStringList();
        QTest::newRow("limit") << withLittleRoom();
    }

    void aFullSmallDiskLeavesTheOldSettings()
    {
        QFETCH(QStringList, command);
        const SmallDisk disk;
        Room room(program, library);
        room.startBy(command);
        // The program is larger than the disk, so a link leads there.
        const QString place = disk.path("settings.ini");
        writeFile(place, room.oldSettings());
        QVERIFY(QFile::remove(room.settingsFile()));
        QVERIFY(QFile::link(place, room.settingsFile()));
        if (command.isEmpty())
            disk.fill();
        checkEnd(room.run());
        QCOMPARE(contentOf(place), room.oldSettings());
        QVERIFY(QFileInfo(room.settingsFile()).isSymLink());

        // With room again, the next close saves.
        QFile::remove(disk.path("filler"));
        room.startBy({});
        checkEnd(room.run());
        QCOMPARE(Room::flawIn(contentOf(place)), QString());
    }

    void aReadOnlyProgramFolderSendsTheSettingsToTheUsers()
    {
        Room room(program, library);
        room.startBy(asAnybody());
        const QString users = room.path(QStringLiteral("config"));
        QVERIFY(QDir().mkpath(users));
        const auto everybody = static_cast<QFileDevice::Permissions>(0x7777);
        QVERIFY(QFile::setPermissions(users, everybody));
        letAnybodyIn(room, {});
        checkEnd(room.run());
        QCOMPARE(room.settings(), room.oldSettings());
        const QString saved = users + QStringLiteral("/velkor/settings_current.ini");
        QCOMPARE(Room::flawIn(contentOf(saved)), QString());
        QVERIFY(contentOf(saved).contains("StateIndex=63\n"));
        letAnybodyIn(room, QFileDevice::WriteOwner);
    }

    void aUserWithNoPlaceToWriteKeepsTheOldSettings()
    {
        Room room(program, library);
        room.startBy(asAnybody());
        letAnybodyIn(room, {});
        checkEnd(room.run());
        QCOMPARE(room.settings(), room.oldSettings());
        QVERIFY(!QFileInfo::exists(room.path(QStringLiteral("config"))));
        letAnybodyIn(room, QFileDevice::WriteOwner);
    }

    void settingsThatCannotBeReadStayWhole()
    {
        Room room(program, library);
        room.startBy(asAnybody());
        const auto nobody = QFileDevice::Permissions();
        QVERIFY(QFile::setPermissions(room.settingsFile(), nobody));
        // The folder lets the user make and replace files.
        letAnybodyIn(room, static_cast<QFileDevice::Permissions>(0x2222));
        checkEnd(room.run());
        QVERIFY(QFile::setPermissions(room.settingsFile(),
                                      QFileDevice::ReadOwner | QFileDevice::WriteOwner));
        const QByteArray left = room.settings();
        QVERIFY(left == room.oldSettings() || Room::flawIn(left).isEmpty());
    }

    void lockedSettingsDelayNothing()
    {
        Room room(program, library);
        checkEnd(room.run());
        room.tidy();
        const int held = open(qPrintable(room.settingsFile()), O_RDWR);
        QVERIFY(held >= 0 && flock(held, LOCK_EX) == 0);
        writeFile(room.settingsFile() + QStringLiteral(".lock"), "1\nvelkor\nelsewhere\n");
        QElapsedTimer clock;
        clock.start();
        checkEnd(room.run());
        // QSettings waits 30 s for such a lock.
        QVERIFY(clock.elapsed() < 25000);
        close(held);
        QVERIFY(room.settings() != room.oldSettings());
        QCOMPARE(Room::flawIn(room.settings()), QString());
    }

    void aProgramFolderThatIsGoneEndsTheProgramAsAlways()
    {
        Room room(program, library);
        const QTemporaryDir users;
        int up[2];
        int go[2];
        QVERIFY(pipe(up) == 0 && pipe(go) == 0);
        QProcess viewer;
        room.prepare(viewer);
        QProcessEnvironment environment = viewer.processEnvironment();
        environment.insert(QStringLiteral("VELKOR_CLOSE_SIGNAL"), QString::number(up[1]));
        environment.insert(QStringLiteral("VELKOR_CLOSE_WAIT"), QString::number(go[0]));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), users.path());
        viewer.setProcessEnvironment(environment);
        viewer.start(QIODevice::ReadOnly);
        QVERIFY(viewer.waitForStarted());
        close(up[1]);
        char told = 0;
        QCOMPARE(read(up[0], &told, 1), ssize_t(1));
        QVERIFY(QDir(room.path(QString())).removeRecursively());
        QCOMPARE(write(go[1], "g", 1), ssize_t(1));
        checkEnd(Room::endOf(viewer));
        for (const int end : { up[0], go[0], go[1] })
            close(end);
        const QString saved = users.filePath(QStringLiteral("velkor/settings_current.ini"));
        QCOMPARE(Room::flawIn(contentOf(saved)), QString());
    }

    void aFailingSystemCallDoesNotEndTheProgram_data()
    {
        QTest::addColumn<int>("first");
        for (const int first : { 1, 11, 21 })
            QTest::addRow("from the %dth on", first) << first;
    }

    void aFailingSystemCallDoesNotEndTheProgram()
    {
        QFETCH(int, first);
        constexpr int stride = 60;
        Room room(program, library);
        checkEnd(room.run());
        const int total = room.callsOfLastRun();
        QVERIFY(total > 100);
        for (int call = first; call <= total; call += stride) {
            room.tidy();
            const Room::Outcome outcome = room.run(call);
            checkEnd(outcome);
            const QByteArray left = room.settings();
            const QString flaw = left == room.oldSettings() ? QString() : Room::flawIn(left);
            QVERIFY2(flaw.isEmpty(), qPrintable(flaw + QString::fromLatin1(outcome.said)));
        }
    }
};

QTEST_GUILESS_MAIN(TestSaving)
#include "tst_saving.moc"
