// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "each.h"
#include "settingsdata.h"
#include "testfiles.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class QApplication;

/// Applying and copying settings, style sheets and languages.
class TestSettingsEffects : public QObject
{
    Q_OBJECT

private slots:
    void sectionsAreAppliedInTheOrderOfTheirBits()
    {
        SettingsData data(nullptr);
        data.current_CSS_path = constants::defaultStyle;
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
    }

    void allBitsOfTheSlotSetAreEmitted()
    {
        SettingsData data(nullptr);
        const QSignalSpy spy(&data, &SettingsData::files_to_load);
        data.read_index = 1000000;
        data.updateSettings(1);
        QCOMPARE(spy.at(0).at(0).toInt(), 1000000);
    }

    void theSignalsStandInTheirOrder()
    {
        const QMetaObject &meta = SettingsData::staticMetaObject;
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            names << QString::fromLatin1(meta.method(i).name());
        QCOMPARE(names.join(QLatin1Char(' ')),
                 QStringLiteral("CSS_changed translation_changed files_to_load "
                                "window_geometry_loaded dial_settings_changed"));
    }

    void aCopyTakesTheSectionsOfItsMask()
    {
        const std::unique_ptr<SettingsData> from = filled();
        for (const int mask : { 0, 1, 2, 4, 8, 16, 32, 63 }) {
            SettingsData data(nullptr);
            data.copy(from.get(), mask);
            const auto has = [mask](int bit) { return (mask & bit) != 0; };
            QCOMPARE(data.read_index == 9 && data.master_ID == 3, has(1));
            QCOMPARE(data.current_files[0] == QStringLiteral("first"), has(1));
            QCOMPARE(data.current_files[5] == QStringLiteral("clear bit, copied too"), has(1));
            QCOMPARE(data.current_CSS_path == QStringLiteral("sheet"), has(2));
            QCOMPARE(data.current_CSS == QStringLiteral("text"), has(2));
            QCOMPARE(data.work_folders == QStringList(QStringLiteral("a")), has(4));
            QCOMPARE(data.last_folder == QStringLiteral("b"), has(4));
            QCOMPARE(data.current_language == QStringLiteral("ru_RU"), has(8));
            QCOMPARE(data.languageList[19].id == 19, has(8));
            QCOMPARE(data.languageList[19].CODE == QStringLiteral("xx"), has(8));
            QCOMPARE(data.languageList[19].label == QStringLiteral("X"), has(8));
            QCOMPARE(data.window_geometry == "g" && data.window_state == "s", has(16));
            QCOMPARE(data.param_dial_speed == 7 && data.cursor_dial_speed == 8, has(32));
        }
    }

    void everyCopyCarriesTheApplication()
    {
        SettingsData from(nullptr);
        // Never looked at: any address does.
        from.curAppPointer = reinterpret_cast<QApplication *>(&from);
        SettingsData data(nullptr);
        data.copy(&from, 0);
        QCOMPARE(data.curAppPointer, from.curAppPointer);
    }

    void aSheetIsReadByteByByte()
    {
        const QTemporaryDir folder;
        SettingsData data(nullptr);
        data.current_CSS_path = folder.filePath(QStringLiteral("a.qss"));
        writeFile(data.current_CSS_path, QByteArray("a\xe9\0z", 4));
        QSignalSpy spy(&data, &SettingsData::CSS_changed);
        data.parse_CSS();
        QCOMPARE(data.current_CSS, QString::fromUtf16(u"a\u00e9\0z", 4));
        QCOMPARE(spy.count(), 1);
    }

    void aSheetThatCannotBeReadIsEmpty()
    {
        const QTemporaryDir folder;
        const QString large = folder.filePath(QStringLiteral("large.qss"));
        writeFile(large, QByteArray(4 * 1024 * 1024 + 1, ' '));
        for (const QString &path : { large, folder.path(), QStringLiteral("/dev/zero"), QString(),
                                     folder.filePath(QStringLiteral("missing.qss")) }) {
            SettingsData data(nullptr);
            data.current_CSS = QStringLiteral("the sheet before");
            data.current_CSS_path = path;
            QSignalSpy spy(&data, &SettingsData::CSS_changed);
            data.parse_CSS();
            QCOMPARE(data.current_CSS, QString());
            QCOMPARE(spy.count(), 1);
        }
    }

    void aSheetOfFourMegabytesIsRead()
    {
        const QTemporaryDir folder;
        SettingsData data(nullptr);
        data.current_CSS_path = folder.filePath(QStringLiteral("a.qss"));
        writeFile(data.current_CSS_path, QByteArray(4 * 1024 * 1024, ' '));
        data.parse_CSS();
        QCOMPARE(data.current_CSS.size(), 4 * 1024 * 1024);
    }

    void twoLanguagesAreOffered()
    {
        SettingsData data(nullptr);
        data.parse_translations();
        QCOMPARE(data.languageList[0].id, 0);
        QCOMPARE(data.languageList[0].CODE, QStringLiteral("en_US"));
        QCOMPARE(data.languageList[0].label, QStringLiteral("English"));
        QCOMPARE(data.languageList[1].id, 1);
        QCOMPARE(data.languageList[1].CODE, QStringLiteral("ru_RU"));
        QCOMPARE(data.languageList[1].label, QStringLiteral("Русский"));
        for (int i = 2; i < SettingsData::languageCount; ++i) {
            QCOMPARE(data.languageList[i].id, -1);
            QVERIFY(data.languageList[i].CODE.isEmpty() && data.languageList[i].label.isEmpty());
        }
    }

    void anEndlessLanguageCodeDelaysNothing()
    {
        SettingsData data(nullptr);
        data.current_language = QString(1000000, QLatin1Char('_'));
        QElapsedTimer clock;
        clock.start();
        data.setTranslation();
        QVERIFY(clock.elapsed() < 5000);
        // Cut for the search only.
        QCOMPARE(data.current_language.size(), 1000000);
    }

    void aLanguageIsInstalledAndRemoved()
    {
        for (const char *code : { "en_US", "de_DE", "", "../../etc" }) {
            SettingsData data(nullptr);
            const QSignalSpy spy(&data, &SettingsData::translation_changed);
            data.current_language = QStringLiteral("ru_RU");
            data.setTranslation();
            data.setTranslation();
            QCOMPARE(QCoreApplication::translate("Dictionary", "Clear"),
                     QStringLiteral("Отчистить"));
            data.current_language = QLatin1String(code);
            data.setTranslation();
            QCOMPARE(QCoreApplication::translate("Dictionary", "Clear"), QStringLiteral("Clear"));
            QCOMPARE(spy.count(), 3);
        }
    }

private:
    static std::unique_ptr<SettingsData> filled()
    {
        auto data = std::make_unique<SettingsData>(nullptr);
        data->read_index = 9;
        data->master_ID = 3;
        data->current_files[0] = QStringLiteral("first");
        data->current_files[5] = QStringLiteral("clear bit, copied too");
        data->current_CSS_path = QStringLiteral("sheet");
        data->current_CSS = QStringLiteral("text");
        data->work_folders << QStringLiteral("a");
        data->last_folder = QStringLiteral("b");
        data->current_language = QStringLiteral("ru_RU");
        data->languageList[19].id = 19;
        data->languageList[19].CODE = QStringLiteral("xx");
        data->languageList[19].label = QStringLiteral("X");
        data->window_geometry = "g";
        data->window_state = "s";
        data->param_dial_speed = 7;
        data->cursor_dial_speed = 8;
        return data;
    }
};

QTEST_GUILESS_MAIN(TestSettingsEffects)
#include "tst_settings_effects.moc"
