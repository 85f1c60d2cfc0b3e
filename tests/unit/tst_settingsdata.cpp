// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_files.h"
#include "each.h"
#include "settingsdefaults.h"
#include "testfiles.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

/// Settings files: what is loaded from them and saved to them.
class TestSettingsData : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder.reset(new QTemporaryDir);
        path = folder->filePath(QStringLiteral("a.ini"));
    }

    // ---- Loading ----

    void aNewStoreHoldsItsInitialValues()
    {
        const SettingsData data(nullptr);
        QCOMPARE(data.read_index, 0);
        QCOMPARE(int(data.master_ID), -1);
        QCOMPARE(data.param_dial_speed, 100);
        QCOMPARE(data.cursor_dial_speed, 100);
        QCOMPARE(data.curAppPointer, nullptr);
        QVERIFY(data.last_folder.isEmpty() && data.work_folders.isEmpty());
        QVERIFY(data.current_language.isEmpty() && data.current_CSS_path.isEmpty());
        QVERIFY(data.window_geometry.isEmpty() && data.window_state.isEmpty());
        for (const language &entry : data.languageList) {
            QCOMPARE(entry.id, -1);
            QVERIFY(entry.CODE.isEmpty() && entry.label.isEmpty());
        }
    }

    void aMissingFileGivesTheDefaults()
    {
        SettingsData data(nullptr);
        data.read_index = 7;
        data.window_geometry = "old";
        data.work_folders << QStringLiteral("old");
        data.current_files[2] = QStringLiteral("kept");
        QCOMPARE(data.loadSettings(path, 63), false);
        expectDefaults(data);
        QCOMPARE(data.current_files[2], QStringLiteral("kept"));
        QVERIFY(!QFileInfo::exists(path));
    }

    void onlyTheFilesOfSetSlotsAreReadAndNothingIsEmitted()
    {
        writeFile(path, "[PrevFiles]\nStateIndex=7\nfile1=one\nfile3=three\nfile4=four\n");
        SettingsData data(nullptr);
        const QSignalSpy spy(&data, &SettingsData::files_to_load);
        data.current_files[1] = data.current_files[3] = QStringLiteral("before");
        QCOMPARE(data.loadSettings(path, 1), false);
        QCOMPARE(data.current_files[0], QStringLiteral("one"));
        QCOMPARE(data.current_files[1], QString());
        QCOMPARE(data.current_files[2], QStringLiteral("three"));
        QCOMPARE(data.current_files[3], QStringLiteral("before"));
        QCOMPARE(data.current_language, QString());
        QCOMPARE(spy.count(), 0);
    }

    void numbersAreNotChecked()
    {
        struct Row
        {
            const char *name;
            int state;
            int master;
            int speed;
        };
        each<Row>({ { "", 0, 0, 100 },
                    { "3", 3, 3, 3 },
                    { "-7", -7, -7, -7 },
                    { "300", 300, 44, 300 },
                    { "200", 200, -56, 200 },
                    { "1000000", 1000000, 64, 1000000 },
                    { "99999999999", 1215752191, -1, 1215752191 },
                    { "first", 0, 0, 0 },
                    { "@Variant(x)", 0, 0, 100 } },
                  [this](const Row &row) {
                      const QByteArray value(row.name);
                      const QByteArray is = value.isEmpty() ? "missing=" : "=" + value;
                      writeFile(path,
                                "[PrevFiles]\nStateIndex" + is + "\nMasterId" + is
                                    + "\n[Dials]\ncursorSpeed" + is + "\nparamSpeed" + is + '\n');
                      SettingsData data(nullptr);
                      data.loadSettings(path, 63);
                      QCOMPARE(data.read_index, row.state);
                      QCOMPARE(int(data.master_ID), row.master);
                      QCOMPARE(data.cursor_dial_speed, row.speed);
                      QCOMPARE(data.param_dial_speed, row.speed);
                      QCOMPARE(data.current_language, QStringLiteral("en_US"));
                  });
    }

    void theFirstGapEndsTheFolders()
    {
        struct Row
        {
            const char *name;
            QByteArray section;
            int folders;
        };
        QByteArray many;
        for (int i = 1; i <= 1005; ++i)
            many += "folder" + QByteArray::number(i) + "=x\n";
        each<Row>({ { "gap", "folder1=a\nfolder2=b\nfolder4=d\n", 2 },
                    { "first is empty", "folder1=\nfolder2=b\n", 0 },
                    { "none", "", 0 },
                    { "more than are read", many, 1000 } },
                  [this](const Row &row) {
                      writeFile(path, "[WorkFolders]\n" + row.section);
                      SettingsData data(nullptr);
                      data.work_folders << QStringLiteral("old");
                      data.loadSettings(path, 4);
                      QCOMPARE(data.work_folders.size(), row.folders);
                  });
    }

    void sectionsOutsideTheMaskAreNotLoaded()
    {
        filledStore()->saveSettings(path, 63);
        for (const int mask : { 0, 1, 2, 4, 8, 16, 32, 64 }) {
            SettingsData data(nullptr);
            data.loadSettings(path, mask);
            QCOMPARE(data.read_index != 0, mask == 1);
            QCOMPARE(data.master_ID != -1, mask == 1);
            QCOMPARE(!data.current_CSS_path.isEmpty(), mask == 2);
            QCOMPARE(!data.last_folder.isEmpty(), mask == 4);
            QCOMPARE(!data.work_folders.isEmpty(), mask == 4);
            QCOMPARE(!data.current_language.isEmpty(), mask == 8);
            QCOMPARE(!data.window_geometry.isEmpty(), mask == 16);
            QCOMPARE(!data.window_state.isEmpty(), mask == 16);
            QCOMPARE(data.cursor_dial_speed != 100, mask == 32);
            QCOMPARE(data.param_dial_speed != 100, mask == 32);
        }
    }

    void aFileAboveTheSizeLimitIsNotRead()
    {
        QByteArray text("[Dials]\ncursorSpeed=37\n;");
        text = text.leftJustified(4 * 1024 * 1024, 'x');
        SettingsData data(nullptr);
        writeFile(path, text);
        data.loadSettings(path, 63);
        QCOMPARE(data.cursor_dial_speed, 37);
        writeFile(path, text + 'x');
        data.loadSettings(path, 63);
        expectDefaults(data);
    }

    void aFileThatCouldNotBeReadAgainIsNotSaved()
    {
        writeFile(path, "[General]\nlanguage=former\n");
        SettingsData data(nullptr);
        // 4 bytes each.
        data.current_language = QString(1024 * 1024, QChar(0xfc));
        data.saveSettings(path, 8);
        QCOMPARE(contentOf(path), QByteArray("[General]\nlanguage=former\n"));
        data.current_language.chop(10);
        data.saveSettings(path, 8);
        SettingsData again(nullptr);
        again.loadSettings(path, 8);
        QVERIFY(again.current_language == data.current_language);
    }

    void aChangedFileIsReadAgainWithAnyModificationTime()
    {
        // Of one size, and with one time that lies in the future.
        const QDateTime future = QDateTime::currentDateTime().addDays(1);
        for (const int speed : { 37, 38 }) {
            writeFile(path, "[Dials]\ncursorSpeed=" + QByteArray::number(speed) + '\n');
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(future, QFileDevice::FileModificationTime));
            file.close();
            SettingsData data(nullptr);
            data.loadSettings(path, 32);
            QCOMPARE(data.cursor_dial_speed, speed);
            data.cursor_dial_speed = speed + 2;
            data.saveSettings(path, 32);
            data.loadSettings(path, 32);
            QCOMPARE(data.cursor_dial_speed, speed + 2);
        }
    }

    // ---- Saving ----

    void aSavedFileHoldsTheSectionsOfItsMaskAndNothingElse()
    {
        struct Row
        {
            const char *name;
            int mask;
            QByteArray text;
        };
        each<Row>({ { "files, no master", 1, "[PrevFiles]\nMasterId=-1\nStateIndex=0\n" },
                    { "language", 8, "[General]\nlanguage=ru_RU\n" },
                    { "dials", 32, "[Dials]\ncursorSpeed=100\nparamSpeed=100\n" },
                    { "nothing", 0, "" },
                    { "beyond the sections", 64, "" } },
                  [this](const Row &row) {
                      writeFile(path, "[General]\nCSS=x\n[Dials]\ncursorSpeed=1\n[Mine]\nkey=1\n");
                      SettingsData data(nullptr);
                      data.current_language = QStringLiteral("ru_RU");
                      data.saveSettings(path, row.mask);
                      QCOMPARE(contentOf(path), row.text);
                  });
    }

    void theSavedFoldersAreTheLastOneAndThreeFixedOnes()
    {
        SettingsData data(nullptr);
        data.last_folder = QStringLiteral("/traces");
        data.work_folders << QStringLiteral("never written");
        data.saveSettings(path, 4);
        QCOMPARE(contentOf(path).count('='), 4);
        SettingsData again(nullptr);
        again.loadSettings(path, 4);
        QCOMPARE(again.last_folder, QStringLiteral("/traces"));
        // The first is a name for people and no path.
        QCOMPARE(again.work_folders,
                 QStringList({ QStandardPaths::displayName(QStandardPaths::DocumentsLocation),
                               QCoreApplication::applicationDirPath(), QDir::currentPath() }));
    }

    void everythingSavedIsLoadedAgain()
    {
        const SettingsData *saved = filledStore();
        // The folder is created.
        path = folder->filePath(QStringLiteral("new/folder/a.ini"));
        saved->saveSettings(path, 63);
        SettingsData data(nullptr);
        data.loadSettings(path, 63);
        QCOMPARE(data.read_index, saved->read_index);
        QCOMPARE(data.master_ID, saved->master_ID);
        QCOMPARE(data.current_files[0], saved->current_files[0]);
        QCOMPARE(data.current_files[5], saved->current_files[5]);
        QCOMPARE(data.current_files[1], QString());
        QCOMPARE(data.current_language, saved->current_language);
        QCOMPARE(data.current_CSS_path, saved->current_CSS_path);
        QCOMPARE(data.last_folder, saved->last_folder);
        QCOMPARE(data.window_geometry, saved->window_geometry);
        QCOMPARE(data.window_state, saved->window_state);
        QCOMPARE(data.cursor_dial_speed, saved->cursor_dial_speed);
        QCOMPARE(data.param_dial_speed, saved->param_dial_speed);
    }

#ifdef Q_OS_UNIX
    void aPlaceThatIsNoRegularFileIsNeitherReadNorWritten()
    {
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        for (const QString &place : { path, folder->path(), QString() }) {
            SettingsData data(nullptr);
            data.loadSettings(place, 63);
            expectDefaults(data);
            data.saveSettings(place, 63);
        }
        QVERIFY(!QFileInfo(path).isFile());
        QCOMPARE(QDir(folder->path()).entryList(QDir::System | QDir::Files).size(), 1);
    }

    void aLockFileBlocksNothing()
    {
        QVERIFY(QDir().mkdir(path + QStringLiteral(".lock")));
        SettingsData data(nullptr);
        data.saveSettings(path, 32);
        QCOMPARE(contentOf(path), QByteArray("[Dials]\ncursorSpeed=100\nparamSpeed=100\n"));
    }
#endif

private:
    SettingsData *filledStore()
    {
        store.reset(new SettingsData(nullptr));
        store->read_index = 33;
        store->master_ID = 5;
        store->current_files[0] = QStringLiteral("C:\\traces\\new, x=1;.tdr");
        store->current_files[1] = QStringLiteral("its bit is clear");
        store->current_files[5] = QStringLiteral("/трасса,@DateTime(а).tdr");
        store->current_language = QStringLiteral("ru_RU");
        store->current_CSS_path = QStringLiteral("/a b/@style.qss");
        store->last_folder = QStringLiteral("/трасса ");
        store->window_geometry = QByteArray("\x00\x01\xff,;=\"\\)\n", 10);
        store->window_state = QByteArray(300, '\0');
        store->cursor_dial_speed = 250;
        store->param_dial_speed = 1000;
        return store.data();
    }

    QScopedPointer<QTemporaryDir> folder;
    QScopedPointer<SettingsData> store;
    QString path;
};

QTEST_GUILESS_MAIN(TestSettingsData)
#include "tst_settingsdata.moc"
