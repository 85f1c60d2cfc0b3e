// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_files.h"
#include "oddplaces.h"
#include "test_files.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

QString userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                  | QDir::NoDotAndDotDot);
}

#ifdef Q_OS_UNIX
/// Runs \a work while the program's folder is read-only.
void inReadOnlyProgramFolder(const std::function<void()> &work)
{
    constexpr uid_t nobody = 65534;
    const QFile::Permissions readOnly
        = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(program_files::programFolder(), readOnly);
    // Root may write everywhere. The real user id changes the answer of access(); the effective one
    // keeps the rights that the test needs.
    const bool isRoot = geteuid() == 0;
    if (isRoot && setreuid(nobody, 0) != 0)
        qFatal("cannot change the user id");
    work();
    if (isRoot && setreuid(0, 0) != 0)
        qFatal("cannot restore the user id");
    QFile::setPermissions(program_files::programFolder(), readOnly | QFile::WriteOwner);
}
#endif

} // namespace

class TestProgramFiles : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QFile::remove(beside());
        QFile::remove(program_files::settingsBackupFile());
        QDir(userFolder()).removeRecursively();
    }

    void cleanup()
    {
        init();
    }

    void settingsAreBesideTheProgram()
    {
        QCOMPARE(program_files::programFolder(), QCoreApplication::applicationDirPath());
        QCOMPARE(program_files::settingsFile(), beside());
        QCOMPARE(program_files::settingsFileToRead(), beside());
        QCOMPARE(program_files::settingsBackupFile(),
                 beside().replace(QStringLiteral("current"), QStringLiteral("current_old")));
        QVERIFY(!QFileInfo::exists(userFolder()));
    }

#ifdef Q_OS_UNIX
    void settingsOfAnInstalledProgramAreInTheUsersFolder()
    {
        writeFile(beside(), "beside");
        inReadOnlyProgramFolder([] {
            QCOMPARE(program_files::settingsFile(), own());
            QCOMPARE(QFileInfo(program_files::settingsBackupFile()).path(), userFolder());
            // Without a settings file of the user, or with a folder in its place, the other one is
            // read.
            QCOMPARE(program_files::settingsFileToRead(), beside());
            program_files::backUpSettings();
            QVERIFY(!QFileInfo::exists(userFolder()));
            QVERIFY(QDir().mkpath(own()));
            QCOMPARE(program_files::settingsFileToRead(), beside());
            QVERIFY(QDir().rmdir(own()));
            QVERIFY(program_files::replaceFile(own(), "own"));
            QCOMPARE(program_files::settingsFileToRead(), own());
            program_files::backUpSettings();
            QCOMPARE(contentOf(program_files::settingsBackupFile()), QByteArray("own"));
        });
        QFile::remove(beside());
        QVERIFY(QFile::remove(own()));
        inReadOnlyProgramFolder([] { QCOMPARE(program_files::settingsFileToRead(), own()); });
    }

    void onlyARegularSettingsFileIsBackedUp()
    {
        // A copy of this device would be an empty regular file.
        QVERIFY(QFile::link(QStringLiteral("/dev/null"), beside()));
        program_files::backUpSettings();
        QVERIFY(!QFileInfo::exists(program_files::settingsBackupFile()));
    }
#endif

    void backupIsMadeOnceAndOnlyBelowTheSizeLimit()
    {
        constexpr qint64 limit = 4 << 20;
        const QString backup = program_files::settingsBackupFile();
        program_files::backUpSettings();
        QVERIFY(!QFileInfo::exists(backup));
        QFile sparse(beside());
        QVERIFY(sparse.open(QIODevice::WriteOnly));
        QVERIFY(sparse.resize(limit + 1));
        program_files::backUpSettings();
        QVERIFY(!QFileInfo::exists(backup));
        QVERIFY(sparse.resize(limit));
        program_files::backUpSettings();
        QCOMPARE(QFileInfo(backup).size(), limit);
        QVERIFY(sparse.resize(0));
        program_files::backUpSettings();
        QCOMPARE(QFileInfo(backup).size(), limit);
    }

#ifdef Q_OS_UNIX
    void onlyRegularFilesAreReadAndReplaced()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const QString link = folder.filePath(QStringLiteral("link"));
        QVERIFY(QFile::link(pipe, link));
        const QString inner = folder.filePath(QStringLiteral("folder"));
        QVERIFY(QDir().mkdir(inner));
        for (const QString &path : { pipe, link, inner, QStringLiteral("/dev/zero"),
                                     folder.filePath(QStringLiteral("missing")), QString() }) {
            QFile file(path);
            QVERIFY2(!program_files::openRegularFile(file), qPrintable(path));
            QCOMPARE(program_files::readRegularFile(path, 10), QByteArray());
        }
        for (const QString &path : { pipe, inner, QString(), QStringLiteral(":/ini/new.ini"),
                                     pipe + QStringLiteral("/a.ini") }) {
            QVERIFY2(!program_files::replaceFile(path, "new"), qPrintable(path));
        }
        QCOMPARE(entriesOf(folder.path()),
                 QStringList(
                     { QStringLiteral("folder"), QStringLiteral("link"), QStringLiteral("pipe") }));
        QVERIFY(!QFileInfo(pipe).isFile());
        QVERIFY(QFileInfo(inner).isDir());
    }

    void fullDiskLeavesTheOldFile()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ini"));
        writeFile(path, "old");
        bool replaced = true;
        onFullDisk(8192, [&] {
            // Fails in write() and, from the buffer, in flush().
            replaced = program_files::replaceFile(path, QByteArray(200000, 'x'))
                || program_files::replaceFile(path, QByteArray(9000, 'x'));
        });
        QVERIFY(!replaced);
        QCOMPARE(contentOf(path), QByteArray("old"));
        QCOMPARE(entriesOf(folder.path()), QStringList(QStringLiteral("a.ini")));
    }

    void linkIsFollowedAndKept()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("real.ini"));
        const QString link = folder.filePath(QStringLiteral("link.ini"));
        writeFile(path, "old");
        QVERIFY(QFile::link(path, link));
        QVERIFY(program_files::replaceFile(link, "new"));
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(!QFileInfo(path).isSymLink());
        QCOMPARE(contentOf(path), QByteArray("new"));
    }
#endif

    void fileIsReadCompletelyOrNotAtAll()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a"));
        writeFile(path, "12345");
        QCOMPARE(program_files::readRegularFile(path, 5), QByteArray("12345"));
        QCOMPARE(program_files::readRegularFile(path, 4), QByteArray());
        // Larger than one read.
        const QByteArray large = QByteArray("0123456789").repeated(20000);
        writeFile(path, large);
        QCOMPARE(program_files::readRegularFile(path, large.size()), large);
        QCOMPARE(program_files::readRegularFile(path, 64 << 20), large);
        QCOMPARE(program_files::readRegularFile(path, large.size() - 1), QByteArray());
    }

    void fileIsReplacedCompletelyAndItsFolderCreated()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("new/folder/a.ini"));
        QVERIFY(program_files::replaceFile(path, "a longer first text"));
        QVERIFY(program_files::replaceFile(path, "second"));
        QCOMPARE(contentOf(path), QByteArray("second"));
        QVERIFY(program_files::replaceFile(path, QByteArray()));
        QCOMPARE(contentOf(path), QByteArray());
        QCOMPARE(entriesOf(QFileInfo(path).path()), QStringList(QStringLiteral("a.ini")));
    }

private:
    static QString beside()
    {
        return QCoreApplication::applicationDirPath() + QDir::separator()
            + QStringLiteral("settings_current.ini");
    }
    static QString own()
    {
        return userFolder() + QStringLiteral("/settings_current.ini");
    }
};

QTEST_GUILESS_MAIN(TestProgramFiles)
#include "tst_program_files.moc"
