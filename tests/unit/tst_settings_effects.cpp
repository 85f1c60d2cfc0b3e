// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "settingsdata.h"
#include "testfiles.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class QApplication;

/// What a store does beyond its files: applying, copying, sheets and languages.
class TestSettingsEffects : public QObject
{
    Q_OBJECT

private slots:
    void sectionsAreAppliedInTheOrderOfTheirBits()
    {
        SettingsData data(nullptr);
        data.current_CSS_path = constants::defaultStyle;
        QStringList order;
        connect(&data, &SettingsData::dial_settings_changed, this,
                [&] { order << QStringLiteral("dials"); });
        connect(&data, &SettingsData::window_geometry_loaded, this,
                [&] { order << QStringLiteral("geometry"); });
        connect(&data, &SettingsData::translation_changed, this,
                [&] { order << QStringLiteral("language"); });
        connect(&data, &SettingsData::CSS_changed, this, [&] { order << QStringLiteral("style"); });
        connect(&data, &SettingsData::files_to_load, this,
                [&] { order << QStringLiteral("files"); });
        data.updateSettings(63);
        QCOMPARE(order.join(QLatin1Char(' ')),
                 QStringLiteral("files style language geometry dials"));
        order.clear();
        data.updateSettings(32 + 2);
        QCOMPARE(order.join(QLatin1Char(' ')), QStringLiteral("style dials"));
    }

    void theFoldersNeedNoAction_data()
    {
        QTest::addColumn<int>("mask");
        QTest::newRow("folders") << 4;
        QTest::newRow("nothing") << 0;
        QTest::newRow("beyond the sections") << 64 + 128;
    }

    void theFoldersNeedNoAction()
    {
        QFETCH(int, mask);
        SettingsData data(nullptr);
        int signalCount = 0;
        const auto count = [&signalCount] { ++signalCount; };
        connect(&data, &SettingsData::CSS_changed, this, count);
        connect(&data, &SettingsData::translation_changed, this, count);
        connect(&data, &SettingsData::files_to_load, this, count);
        connect(&data, &SettingsData::window_geometry_loaded, this, count);
        connect(&data, &SettingsData::dial_settings_changed, this, count);
        data.updateSettings(mask);
        QCOMPARE(signalCount, 0);
    }

    void theSignalsStandInTheirOrder()
    {
        const QMetaObject &meta = SettingsData::staticMetaObject;
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            names << QString::fromLatin1(meta.method(i).name());
        }
        QCOMPARE(names.join(QLatin1Char(' ')),
                 QStringLiteral("CSS_changed translation_changed files_to_load "
                                "window_geometry_loaded dial_settings_changed"));
    }

    void aCopyTakesTheSectionsOfItsMask_data()
    {
        QTest::addColumn<int>("mask");
        for (int bit = 0; bit < 6; ++bit) {
            QTest::addRow("section %d", bit) << (1 << bit);
        }
        QTest::newRow("none") << 0;
        QTest::newRow("all") << 63;
    }

    void aCopyTakesTheSectionsOfItsMask()
    {
        QFETCH(int, mask);
        const std::unique_ptr<SettingsData> from = filled();
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

    void aListOfLanguagesIsRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("languages");
        const QStringList five{ QStringLiteral("en_US|English"), QStringLiteral("ru_RU|Русский"),
                                QStringLiteral("es_ES|Español"), QStringLiteral("fr_FR|Français"),
                                QStringLiteral("de_DE|Deutsch") };
        QTest::newRow("the dormant three behind no empty line")
            << QStringLiteral("en_US English\r\nru_RU Русский\r\nes_ES Español\r\n"
                              "fr_FR Français\r\nde_DE Deutsch\r\n")
            << five;
        QTest::newRow("an empty line ends the list")
            << QStringLiteral("en_US English\r\n\r\nde_DE Deutsch\r\n")
            << QStringList(five.mid(0, 1));
        QTest::newRow("a line without a blank")
            << QStringLiteral("en_US") << QStringList{ QStringLiteral("en_US|en_US") };
        QTest::newRow("a third part is ignored")
            << QStringLiteral("en_US English (US)") << QStringList(five.mid(0, 1));
        QTest::newRow("empty parts count")
            << QStringLiteral("en_US  English") << QStringList{ QStringLiteral("en_US|") };
        QTest::newRow("nothing") << QString() << QStringList();
        QStringList twenty;
        for (int i = 0; i < 20; ++i) {
            twenty << QStringLiteral("c%1|n%1").arg(i);
        }
        const QString lines
            = twenty.join(QLatin1Char('\n')).replace(QLatin1Char('|'), QLatin1Char(' '));
        QTest::newRow("twenty") << lines << twenty;
        QTest::newRow("more than fit") << lines + QStringLiteral("\nc20 n20\nc21 n21") << twenty;
    }

    void aListOfLanguagesIsRead()
    {
        QFETCH(QString, text);
        // UTF-16, the high byte first, behind the mark that says so.
        QByteArray bytes("\xFE\xFF");
        for (const QChar character : qAsConst(text)) {
            bytes += static_cast<char>(character.row());
            bytes += static_cast<char>(character.cell());
        }
        QBuffer device(&bytes);
        QVERIFY(device.open(QIODevice::ReadOnly));
        SettingsData data(nullptr);
        data.readLanguages(device);
        QStringList found;
        for (const language &entry : data.languageList) {
            if (entry.id == -1) {
                break;
            }
            QCOMPARE(entry.id, found.size());
            found << entry.CODE + QLatin1Char('|') + entry.label;
        }
        QTEST(found, "languages");
    }

    void anEndlessLanguageCodeHoldsNothingUp()
    {
        SettingsData data(nullptr);
        QSignalSpy spy(&data, &SettingsData::translation_changed);
        data.current_language = QString(1000000, QLatin1Char('_'));
        QElapsedTimer clock;
        clock.start();
        data.setTranslation();
        QVERIFY(clock.elapsed() < 5000);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(QCoreApplication::translate("Dictionary", "Clear"), QStringLiteral("Clear"));
        // Cut for the search only: the settings keep what they were given.
        QCOMPARE(data.current_language.size(), 1000000);
    }

    void aLanguageIsInstalledAndTakenBack_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("source language") << QStringLiteral("en_US");
        QTest::newRow("no catalogues") << QStringLiteral("de_DE");
        QTest::newRow("none") << QString();
        QTest::newRow("a path") << QStringLiteral("../../etc");
    }

    void aLanguageIsInstalledAndTakenBack()
    {
        QFETCH(QString, code);
        SettingsData data(nullptr);
        QSignalSpy spy(&data, &SettingsData::translation_changed);
        data.current_language = QStringLiteral("ru_RU");
        data.setTranslation();
        data.setTranslation();
        QCOMPARE(QCoreApplication::translate("Dictionary", "Clear"), QStringLiteral("Отчистить"));
        data.current_language = code;
        data.setTranslation();
        QCOMPARE(QCoreApplication::translate("Dictionary", "Clear"), QStringLiteral("Clear"));
        QCOMPARE(spy.count(), 3);
        // The application pointer is null here, as it is while the window is built.
        QCOMPARE(data.curAppPointer, nullptr);
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
