// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "settingsdefaults.h"
#include "testfiles.h"

#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Counts every signal of a store.
class Spies
{
public:
    explicit Spies(SettingsData *data)
        : style(data, &SettingsData::CSS_changed)
        , translation(data, &SettingsData::translation_changed)
        , files(data, &SettingsData::files_to_load)
        , geometry(data, &SettingsData::window_geometry_loaded)
        , dials(data, &SettingsData::dial_settings_changed)
    {
    }
    QList<int> counts() const
    {
        QList<int> result;
        for (const QSignalSpy *spy : { &files, &style, &translation, &geometry, &dials })
            result.append(static_cast<int>(spy->count()));
        return result;
    }

    QSignalSpy style;
    QSignalSpy translation;
    QSignalSpy files;
    QSignalSpy geometry;
    QSignalSpy dials;
};

const QList<int> silence{ 0, 0, 0, 0, 0 };

} // namespace

class TestSettingsData : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder.reset(new QTemporaryDir);
        path = folder->filePath(QStringLiteral("a.ini"));
    }

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
        const Spies spies(&data);
        QCOMPARE(data.loadSettings(path, 63), false);
        expectDefaults(data);
        QCOMPARE(data.current_files[2], QStringLiteral("kept"));
        QCOMPARE(spies.counts(), silence);
        QVERIFY(!QFileInfo::exists(path));
    }

    void onlyTheFilesOfSetSlotsAreRead()
    {
        writeFile(path,
                  "[PrevFiles]\nStateIndex=5\nMasterId=2\nfile1=one\nfile2=two\nfile3=three\n");
        SettingsData data(nullptr);
        data.current_files[1] = QStringLiteral("before");
        const Spies spies(&data);
        QCOMPARE(data.loadSettings(path, 1), false);
        QCOMPARE(data.current_files[0], QStringLiteral("one"));
        QCOMPARE(data.current_files[1], QStringLiteral("before"));
        QCOMPARE(data.current_files[2], QStringLiteral("three"));
        QCOMPARE(data.current_language, QString());
        QCOMPARE(spies.counts(), silence);
        data.updateSettings(1);
        QCOMPARE(spies.counts(), QList<int>({ 1, 0, 0, 0, 0 }));
        QCOMPARE(spies.files.at(0).at(0).toInt(), 5);
    }

    void aSetSlotWithoutAFileGetsAnEmptyPath()
    {
        writeFile(path, "[PrevFiles]\nStateIndex=1\n");
        SettingsData data(nullptr);
        data.current_files[0] = QStringLiteral("before");
        data.loadSettings(path, 1);
        QCOMPARE(data.current_files[0], QString());
    }

    void bitsBeyondTheSlotsAreKept()
    {
        writeFile(path, "[PrevFiles]\nStateIndex=1000000\n");
        SettingsData data(nullptr);
        data.loadSettings(path, 1);
        QCOMPARE(data.read_index, 1000000);
        QSignalSpy spy(&data, &SettingsData::files_to_load);
        data.updateSettings(1);
        QCOMPARE(spy.at(0).at(0).toInt(), 1000000);
    }

    void theMasterIsTakenByItsLowEightBits_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("master");
        QTest::newRow("slot") << QByteArray("3") << 3;
        QTest::newRow("none") << QByteArray("-1") << -1;
        QTest::newRow("300") << QByteArray("300") << 44;
        QTest::newRow("200") << QByteArray("200") << -56;
        QTest::newRow("word") << QByteArray("first") << 0;
        QTest::newRow("beyond an int") << QByteArray("99999999999") << -1;
    }

    void theMasterIsTakenByItsLowEightBits()
    {
        QFETCH(QByteArray, text);
        writeFile(path, "[PrevFiles]\nMasterId=" + text + "\n");
        SettingsData data(nullptr);
        data.loadSettings(path, 1);
        QTEST(int(data.master_ID), "master");
    }

    void aMissingMasterIsTheFirstSlotThoughANewStoreHasNone()
    {
        writeFile(path, "[PrevFiles]\nStateIndex=1\nfile1=one\n");
        SettingsData data(nullptr);
        QCOMPARE(int(data.master_ID), -1);
        data.loadSettings(path, 1);
        QCOMPARE(int(data.master_ID), 0);
    }

    void loadingSaysFalseHoweverItWent()
    {
        writeFile(path, "[General]\nlanguage=ru_RU\n");
        SettingsData data(nullptr);
        QCOMPARE(data.loadSettings(path, 8), false);
        QCOMPARE(data.current_language, QStringLiteral("ru_RU"));
        QCOMPARE(data.loadSettings(folder->path(), 8), false);
        QCOMPARE(data.loadSettings(QString(), 0), false);
    }

    void noMasterIsSavedAsMinusOne()
    {
        SettingsData data(nullptr);
        data.saveSettings(path, 1);
        QCOMPARE(contentOf(path), QByteArray("[PrevFiles]\nMasterId=-1\nStateIndex=0\n"));
    }

    void theFirstGapEndsTheFolders_data()
    {
        QTest::addColumn<QByteArray>("section");
        QTest::addColumn<QStringList>("folders");
        QTest::newRow("gap") << QByteArray("folder1=a\nfolder2=b\nfolder4=d\n")
                             << QStringList({ QStringLiteral("a"), QStringLiteral("b") });
        QTest::newRow("first is empty") << QByteArray("folder1=\nfolder2=b\n") << QStringList();
        QTest::newRow("none") << QByteArray() << QStringList();
    }

    void theFirstGapEndsTheFolders()
    {
        QFETCH(QByteArray, section);
        writeFile(path, "[WorkFolders]\n" + section);
        SettingsData data(nullptr);
        data.work_folders << QStringLiteral("old");
        data.loadSettings(path, 4);
        QTEST(data.work_folders, "folders");
    }

    void atMostAThousandFoldersAreRead()
    {
        QByteArray text("[WorkFolders]\n");
        for (int i = 1; i <= 1005; ++i) {
            text += "folder" + QByteArray::number(i) + "=x\n";
        }
        writeFile(path, text);
        SettingsData data(nullptr);
        data.loadSettings(path, 4);
        QCOMPARE(data.work_folders.size(), 1000);
    }

    void savingTheLanguageAloneDropsEverythingElse()
    {
        writeFile(path,
                  "[General]\nCSS=x\nlanguage=de_DE\n\n[Dials]\ncursorSpeed=1\n\n[Mine]\nkey=1\n");
        SettingsData data(nullptr);
        data.current_language = QStringLiteral("ru_RU");
        data.saveSettings(path, 8);
        QCOMPARE(contentOf(path), QByteArray("[General]\nlanguage=ru_RU\n"));
    }

    void savingTheFoldersWritesTheThreeFixedOnes()
    {
        SettingsData data(nullptr);
        data.last_folder = QStringLiteral("/traces");
        data.work_folders << QStringLiteral("never written");
        data.saveSettings(path, 4);
        QSettings ini(path, QSettings::IniFormat);
        QCOMPARE(ini.allKeys(),
                 QStringList({ QStringLiteral("WorkFolders/folder1"),
                               QStringLiteral("WorkFolders/folder2"),
                               QStringLiteral("WorkFolders/folder3"),
                               QStringLiteral("WorkFolders/lastFolder") }));
        ini.beginGroup(QStringLiteral("WorkFolders"));
        QCOMPARE(ini.value(QStringLiteral("lastFolder")).toString(), QStringLiteral("/traces"));
        QCOMPARE(ini.value(QStringLiteral("folder1")).toString(),
                 QStandardPaths::displayName(QStandardPaths::DocumentsLocation));
        QCOMPARE(ini.value(QStringLiteral("folder2")).toString(),
                 QCoreApplication::applicationDirPath());
        QCOMPARE(ini.value(QStringLiteral("folder3")).toString(), QDir::currentPath());
    }

    void savingNothingLeavesAnEmptyFile()
    {
        const SettingsData data(nullptr);
        data.saveSettings(path, 0);
        QVERIFY(QFileInfo(path).isFile());
        QCOMPARE(contentOf(path), QByteArray());
        writeFile(path, "[General]\nlanguage=x\n");
        data.saveSettings(path, 64);
        QCOMPARE(contentOf(path), QByteArray());
    }

    void everythingSavedIsLoadedAgain()
    {
        const SettingsData *saved = filledStore();
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
        QCOMPARE(data.work_folders.size(), 3);
        QCOMPARE(data.window_geometry, saved->window_geometry);
        QCOMPARE(data.window_state, saved->window_state);
        QCOMPARE(data.cursor_dial_speed, saved->cursor_dial_speed);
        QCOMPARE(data.param_dial_speed, saved->param_dial_speed);
    }

    void whatWasJustSavedIsWhatIsLoaded()
    {
        // Same size, same tick of the clock: the toolkit must not answer from memory.
        SettingsData data(nullptr);
        for (int speed = 100; speed < 160; ++speed) {
            data.cursor_dial_speed = speed;
            data.saveSettings(path, 32);
            SettingsData other(nullptr);
            other.loadSettings(path, 32);
            QCOMPARE(other.cursor_dial_speed, speed);
        }
    }

    void sectionsOutsideTheMaskAreNotLoaded_data()
    {
        QTest::addColumn<int>("mask");
        for (int bit = 0; bit < 6; ++bit) {
            QTest::addRow("section %d", bit) << (1 << bit);
        }
        QTest::newRow("none") << 0;
        QTest::newRow("beyond the sections") << 64;
    }

    void sectionsOutsideTheMaskAreNotLoaded()
    {
        QFETCH(int, mask);
        filledStore()->saveSettings(path, 63);
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

    void dialSpeedsPassUnchecked()
    {
        writeFile(path, "[Dials]\ncursorSpeed=0\nparamSpeed=-7\n");
        SettingsData data(nullptr);
        data.loadSettings(path, 32);
        QCOMPARE(data.cursor_dial_speed, 0);
        QCOMPARE(data.param_dial_speed, -7);
    }

    void theFactorySettingsAreRead()
    {
        SettingsData data(nullptr);
        data.loadSettings(constants::defaultSettings, 63);
        QCOMPARE(data.current_language, QStringLiteral("en_US"));
        QCOMPARE(data.current_CSS_path, QString(constants::defaultStyle));
        QCOMPARE(data.read_index, 0);
        QCOMPARE(int(data.master_ID), 0);
        QCOMPARE(data.work_folders, QStringList());
        QCOMPARE(data.cursor_dial_speed, 100);
        QCOMPARE(data.param_dial_speed, 100);
        QCOMPARE(data.window_geometry.size(), 66);
        QCOMPARE(data.window_state.size(), 42);
    }

private:
    SettingsData *filledStore()
    {
        auto *data = new SettingsData(folderOwner());
        data->read_index = 33;
        data->master_ID = 5;
        data->current_files[0] = QStringLiteral("C:\\traces\\new, x=1;.tdr");
        data->current_files[1] = QStringLiteral("its bit is clear");
        data->current_files[5] = QStringLiteral("/трасса/а.tdr");
        data->current_language = QStringLiteral("ru_RU");
        data->current_CSS_path = QStringLiteral("/a b/@style.qss");
        data->last_folder = QStringLiteral("/трасса ");
        data->window_geometry = QByteArray("\x00\x01\xff,;=\"\\)\n", 10);
        data->window_state = QByteArray(300, '\0');
        data->cursor_dial_speed = 250;
        data->param_dial_speed = 1000;
        return data;
    }
    QObject *folderOwner()
    {
        owner.reset(new QObject);
        return owner.data();
    }

    QScopedPointer<QTemporaryDir> folder;
    QScopedPointer<QObject> owner;
    QString path;
};

QTEST_GUILESS_MAIN(TestSettingsData)
#include "tst_settingsdata.moc"
