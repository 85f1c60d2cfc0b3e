// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_files.h"
#include "each.h"
#include "settingsdata.h"
#include "test_files.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

/// Settings: loading, saving, copying and applying them. data/settings.txt has the values of keys.
class TestSettingsData : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder.reset(new QTemporaryDir);
        path = folder->filePath(QStringLiteral("a.ini"));
    }

    void missingFileGivesTheDefaults()
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

    void sectionsOfAMaskAreLoadedAsTheyWereSaved()
    {
        // The folder is created.
        path = folder->filePath(QStringLiteral("new/folder/a.ini"));
        filledStore()->saveSettings(path, 63);
        for (const int mask : { 0, 1, 2, 4, 8, 16, 32, 63, 64 }) {
            SettingsData data(nullptr);
            data.loadSettings(path, mask);
            expectSections(data, mask);
            QCOMPARE(data.current_files[1], QString()); // its bit is clear
        }
    }

    void fileAboveTheSizeLimitIsNotRead()
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

    void fileThatWouldExceedTheSizeLimitIsNotSaved()
    {
        writeFile(path, "[General]\nlanguage=former\n");
        SettingsData data(nullptr);
        // Each character takes 4 bytes in the file.
        data.current_language = QString(1024 * 1024, QChar(0xfc));
        data.saveSettings(path, 8);
        QCOMPARE(contentOf(path), QByteArray("[General]\nlanguage=former\n"));
        data.current_language.chop(10);
        data.saveSettings(path, 8);
        SettingsData again(nullptr);
        again.loadSettings(path, 8);
        QVERIFY(again.current_language == data.current_language);
    }

    void changedFileIsReadAgainWithAnyModificationTime()
    {
        SettingsData data(nullptr);
        // Both files have the same size and the same modification time, in the future.
        const QDateTime future = QDateTime::currentDateTime().addDays(1);
        for (const int speed : { 37, 38 }) {
            writeFile(path, "[Dials]\ncursorSpeed=" + QByteArray::number(speed) + '\n');
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(future, QFileDevice::FileModificationTime));
            file.close();
            data.loadSettings(path, 32);
            QCOMPARE(data.cursor_dial_speed, speed);
        }
        data.cursor_dial_speed = 39;
        data.saveSettings(path, 32);
        data.loadSettings(path, 32);
        QCOMPARE(data.cursor_dial_speed, 39);
    }

    void savedFileHoldsTheSectionsOfItsMaskAndNothingElse()
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

    void savedFoldersAreTheLastOneAndThreeFixedOnes()
    {
        SettingsData data(nullptr);
        data.last_folder = QStringLiteral("/traces");
        data.work_folders << QStringLiteral("never written");
        data.saveSettings(path, 4);
        QCOMPARE(contentOf(path).count('='), 4);
        SettingsData again(nullptr);
        again.loadSettings(path, 4);
        QCOMPARE(again.last_folder, QStringLiteral("/traces"));
        // The first entry is a display name, not a path.
        QCOMPARE(again.work_folders,
                 QStringList({ QStandardPaths::displayName(QStandardPaths::DocumentsLocation),
                               QCoreApplication::applicationDirPath(), QDir::currentPath() }));
    }

    void sectionsAreAppliedInTheOrderOfTheirBits()
    {
        SettingsData data(nullptr);
        data.current_CSS_path = QStringLiteral(":/style/style_2.qss");
        QStringList order;
        const auto note = [&order](const char *name) {
            return [&order, name] { order << QLatin1String(name); };
        };
        connect(&data, &SettingsData::dial_settings_changed, this, note("dials"));
        connect(&data, &SettingsData::window_geometry_loaded, this, note("geometry"));
        connect(&data, &SettingsData::translation_changed, this, note("language"));
        connect(&data, &SettingsData::CSS_changed, this, note("style"));
        connect(&data, &SettingsData::files_to_load, this, note("files"));
        struct Row
        {
            const char *name;
            int mask;
        };
        each<Row>({ { "files style language geometry dials", 63 },
                    { "style dials", 32 + 2 },
                    { "", 4 }, // the folders need no action
                    { "", 0 },
                    { "", 64 + 128 } },
                  [&](const Row &row) {
                      order.clear();
                      data.updateSettings(row.mask);
                      QCOMPARE(order.join(QLatin1Char(' ')), QLatin1String(row.name));
                  });
        const QSignalSpy spy(&data, &SettingsData::files_to_load);
        data.read_index = 1000000;
        data.updateSettings(1);
        QCOMPARE(spy.at(0).at(0).toInt(), 1000000); // bits beyond the slots too
    }

    void signalsAreDeclaredInTheirOrder()
    {
        const QMetaObject &meta = SettingsData::staticMetaObject;
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            names << QString::fromLatin1(meta.method(i).name());
        QCOMPARE(names.join(QLatin1Char(' ')),
                 QStringLiteral("CSS_changed translation_changed files_to_load "
                                "window_geometry_loaded dial_settings_changed"));
    }

    void copyTakesTheSectionsOfItsMaskAndTheApplication()
    {
        SettingsData *from = filledStore();
        from->current_CSS = QStringLiteral("text");
        from->languageList[19].id = 19;
        from->languageList[19].CODE = QStringLiteral("xx");
        from->languageList[19].label = QStringLiteral("X");
        // Never dereferenced, so any address will do.
        from->curAppPointer = reinterpret_cast<QApplication *>(from);
        for (const int mask : { 0, 1, 2, 4, 8, 16, 32, 63 }) {
            SettingsData data(nullptr);
            data.copy(from, mask);
            expectSections(data, mask);
            const auto has = [mask](int bit) { return (mask & bit) != 0; };
            QCOMPARE(data.current_files[1] == from->current_files[1], has(1));
            QCOMPARE(data.current_CSS == from->current_CSS, has(2));
            QCOMPARE(data.work_folders == from->work_folders, has(4));
            QCOMPARE(data.languageList[19].id == 19, has(8));
            QCOMPARE(data.languageList[19].CODE == QStringLiteral("xx"), has(8));
            QCOMPARE(data.languageList[19].label == QStringLiteral("X"), has(8));
            QCOMPARE(data.curAppPointer, from->curAppPointer);
        }
    }

    void sheetIsReadAsLatin1UpToFourMegabytes()
    {
        SettingsData data(nullptr);
        data.current_CSS_path = folder->filePath(QStringLiteral("a.qss"));
        QSignalSpy spy(&data, &SettingsData::CSS_changed);
        writeFile(data.current_CSS_path, QByteArray("a\xe9\0z", 4));
        data.parse_CSS();
        QCOMPARE(data.current_CSS, QString::fromUtf16(u"a\u00e9\0z", 4));
        QCOMPARE(spy.count(), 1);
        const QByteArray largest(4 * 1024 * 1024, ' ');
        writeFile(data.current_CSS_path, largest);
        data.parse_CSS();
        QCOMPARE(data.current_CSS.size(), largest.size());
        writeFile(data.current_CSS_path, largest + ' ');
        for (const QString &place : { data.current_CSS_path, folder->path(), QString(),
                                      folder->filePath(QStringLiteral("missing.qss")) }) {
            data.current_CSS = QStringLiteral("the sheet before");
            data.current_CSS_path = place;
            spy.clear();
            data.parse_CSS();
            QCOMPARE(data.current_CSS, QString());
            QCOMPARE(spy.count(), 1);
        }
    }

    void languageIsInstalledAndRemoved()
    {
        // The last code causes no delay: it is truncated for the search.
        const QString endless(1000000, QLatin1Char('_'));
        for (const QString &code : { QStringLiteral("en_US"), QStringLiteral("de_DE"), QString(),
                                     QStringLiteral("../../etc"), endless }) {
            SettingsData data(nullptr);
            const QSignalSpy spy(&data, &SettingsData::translation_changed);
            data.current_language = QStringLiteral("ru_RU");
            data.setTranslation();
            data.setTranslation();
            QCOMPARE(QCoreApplication::translate("Dictionary", "Clear"),
                     QStringLiteral("Отчистить"));
            data.current_language = code;
            QElapsedTimer clock;
            clock.start();
            data.setTranslation();
            QVERIFY(clock.elapsed() < 5000);
            QCOMPARE(QCoreApplication::translate("Dictionary", "Clear"), QStringLiteral("Clear"));
            QCOMPARE(data.current_language, code);
            QCOMPARE(spy.count(), 3);
        }
    }

private:
    /// Fails unless \a data holds the values of an empty file.
    static void expectDefaults(const SettingsData &data)
    {
        QCOMPARE(data.current_language, QStringLiteral("en_US"));
        QCOMPARE(data.current_CSS_path, QStringLiteral(":/style/style_2.qss"));
        QCOMPARE(data.last_folder, QDir::currentPath());
        QCOMPARE(data.work_folders, QStringList());
        QCOMPARE(data.read_index, 0);
        QCOMPARE(int(data.master_ID), 0);
        QCOMPARE(data.window_geometry, QByteArray());
        QCOMPARE(data.window_state, QByteArray());
        QCOMPARE(data.cursor_dial_speed, 100);
        QCOMPARE(data.param_dial_speed, 100);
    }

    /// Fails unless \a data holds the sections of \a mask of the filled store and no other.
    void expectSections(const SettingsData &data, int mask) const
    {
        const auto has = [mask](int bit) { return (mask & bit) != 0; };
        QCOMPARE(data.read_index == store->read_index, has(1));
        QCOMPARE(data.master_ID == store->master_ID, has(1));
        QCOMPARE(data.current_files[0] == store->current_files[0], has(1));
        QCOMPARE(data.current_files[5] == store->current_files[5], has(1));
        QCOMPARE(data.current_CSS_path == store->current_CSS_path, has(2));
        QCOMPARE(data.last_folder == store->last_folder, has(4));
        QCOMPARE(!data.work_folders.isEmpty(), has(4));
        QCOMPARE(data.current_language == store->current_language, has(8));
        QCOMPARE(data.window_geometry == store->window_geometry, has(16));
        QCOMPARE(data.window_state == store->window_state, has(16));
        QCOMPARE(data.cursor_dial_speed == store->cursor_dial_speed, has(32));
        QCOMPARE(data.param_dial_speed == store->param_dial_speed, has(32));
    }

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
        store->work_folders << QStringLiteral("a");
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
