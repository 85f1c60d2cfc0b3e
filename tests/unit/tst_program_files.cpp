// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_files.h"
#include "testfiles.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
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
/// Takes the right to write the program's folder away for as long as it lives.
class ReadOnlyProgramFolder
{
public:
    ReadOnlyProgramFolder()
    {
        QFile::setPermissions(program_files::programFolder(),
                              QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther
                                  | QFile::ExeOther);
        // The administrator may write everywhere; being asked for another user's rights changes
        // that without giving up the rights that the test needs.
        if (geteuid() == 0) {
            m_asRoot = setreuid(nobody, 0) == 0;
        }
    }
    ~ReadOnlyProgramFolder()
    {
        if (m_asRoot && setreuid(0, 0) != 0) {
            qFatal("the test cannot become itself again");
        }
        QFile::setPermissions(program_files::programFolder(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                  | QFile::ReadOther | QFile::ExeOther);
    }
    Q_DISABLE_COPY(ReadOnlyProgramFolder)

private:
    static constexpr uid_t nobody = 65534;
    bool m_asRoot = false;
};
#endif

} // namespace

class TestProgramFiles : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QFile::remove(beside());
        QDir(userFolder()).removeRecursively();
    }

    void cleanup()
    {
        init();
    }

    void settingsLieBesideTheProgram()
    {
        QCOMPARE(program_files::programFolder(), QCoreApplication::applicationDirPath());
        QCOMPARE(program_files::settingsFile(), beside());
        QCOMPARE(program_files::settingsFileToRead(), beside());
        QCOMPARE(QFileInfo(program_files::settingsBackupFile()).fileName(),
                 QStringLiteral("settings_current_old.ini"));
        QCOMPARE(QFileInfo(program_files::settingsBackupFile()).path(), QFileInfo(beside()).path());
        QVERIFY(!QFileInfo::exists(userFolder()));
    }

#ifdef Q_OS_UNIX
    void anInstalledProgramWritesToTheUsersFolder()
    {
        const ReadOnlyProgramFolder readOnly;
        QCOMPARE(program_files::settingsFile(), own());
        QCOMPARE(QFileInfo(program_files::settingsBackupFile()).path(), userFolder());
        QVERIFY(QFileInfo(userFolder()).isDir());
    }

    void readingMakesNoFolder()
    {
        const ReadOnlyProgramFolder readOnly;
        QCOMPARE(program_files::settingsFileToRead(), own());
        QVERIFY(!QFileInfo::exists(userFolder()));
    }

    void theFileBesideAnInstalledProgramCountsUntilTheUserHasOne()
    {
        writeFile(beside(), "[General]\n");
        const ReadOnlyProgramFolder readOnly;
        QCOMPARE(program_files::settingsFileToRead(), beside());
        writeFile(program_files::settingsFile(), "[General]\n");
        QCOMPARE(program_files::settingsFileToRead(), own());
    }

    void aFolderInPlaceOfTheUsersFileDoesNotCount()
    {
        writeFile(beside(), "[General]\n");
        const ReadOnlyProgramFolder readOnly;
        QVERIFY(QDir().mkpath(own()));
        QCOMPARE(program_files::settingsFileToRead(), beside());
    }

    void onlyRegularFilesAreOpened()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const QString link = folder.filePath(QStringLiteral("link"));
        QVERIFY(QFile::link(pipe, link));
        for (const QString &path : { pipe, link, folder.path(), QStringLiteral("/dev/zero"),
                                     folder.filePath(QStringLiteral("missing")), QString() }) {
            QFile file(path);
            QVERIFY2(!program_files::openRegularFile(file), qPrintable(path));
            QCOMPARE(program_files::readRegularFile(path, 10), QByteArray());
        }
    }

    void aFullDiskLeavesTheOldFile_data()
    {
        QTest::addColumn<int>("size");
        QTest::newRow("all at once") << 200000;
        QTest::newRow("held back until the end") << 9000;
    }

    void aFullDiskLeavesTheOldFile()
    {
        QFETCH(int, size);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ini"));
        writeFile(path, "old");
        // No disk is filled here: the largest size that a file may reach stands in for it.
        const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit former{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &former), 0);
        rlimit tight = former;
        tight.rlim_cur = 8192;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        const bool replaced = program_files::replaceFile(path, QByteArray(size, 'x'));
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &former), 0);
        std::signal(SIGXFSZ, formerHandler);
        QVERIFY(!replaced);
        QCOMPARE(contentOf(path), QByteArray("old"));
        QCOMPARE(entriesOf(folder.path()), QStringList(QStringLiteral("a.ini")));
    }

    void aLinkIsFollowedAndStays()
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

    void aPlaceThatIsNoRegularFileIsLeftAlone()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const QString inner = folder.filePath(QStringLiteral("folder"));
        QVERIFY(QDir().mkdir(inner));
        for (const QString &path : { pipe, inner, QString(), QStringLiteral(":/ini/new.ini"),
                                     folder.filePath(QStringLiteral("missing/a.ini")) }) {
            QVERIFY2(!program_files::replaceFile(path, "new"), qPrintable(path));
        }
        QCOMPARE(entriesOf(folder.path()),
                 QStringList({ QStringLiteral("folder"), QStringLiteral("pipe") }));
        QVERIFY(!QFileInfo(pipe).isFile());
        QVERIFY(QFileInfo(inner).isDir());
    }
#endif

    void aFileIsReadUpToItsLimitAndNotBeyond()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a"));
        writeFile(path, "12345");
        QCOMPARE(program_files::readRegularFile(path, 5), QByteArray("12345"));
        QCOMPARE(program_files::readRegularFile(path, 4), QByteArray());
        // More than is read at a time.
        const QByteArray large = QByteArray("0123456789").repeated(20000);
        writeFile(path, large);
        QCOMPARE(program_files::readRegularFile(path, large.size()), large);
        QCOMPARE(program_files::readRegularFile(path, 64 << 20), large);
        QCOMPARE(program_files::readRegularFile(path, large.size() - 1), QByteArray());
    }

    void aFileIsReplacedWhole()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ini"));
        QVERIFY(program_files::replaceFile(path, "a longer first text"));
        QVERIFY(program_files::replaceFile(path, "second"));
        QCOMPARE(contentOf(path), QByteArray("second"));
        QVERIFY(program_files::replaceFile(path, QByteArray()));
        QCOMPARE(contentOf(path), QByteArray());
        QCOMPARE(entriesOf(folder.path()), QStringList(QStringLiteral("a.ini")));
    }

    void eachReplacementIsNewerThanTheFileBefore()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ini"));
        QVERIFY(program_files::replaceFile(path, "0"));
        for (int i = 1; i < 20; ++i) {
            const QDateTime before = QFileInfo(path).lastModified();
            QVERIFY(program_files::replaceFile(path, QByteArray::number(i)));
            QVERIFY(QFileInfo(path).lastModified() > before);
        }
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
