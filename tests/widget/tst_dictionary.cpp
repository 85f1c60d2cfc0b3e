// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary.h"
#include "settingsdata.h"

#include <QtTest>

namespace {

struct Word
{
    const char *name;
    QString Dictionary::*member;
    QString english;
    QString russian;
};

/// Every word in the order of the members.
const Word words[] = {
    { "GAIN_STR", &Dictionary::GAIN_STR, QStringLiteral("Gain"), QStringLiteral("Усиление") },
    { "KU_STR", &Dictionary::KU_STR, QStringLiteral("KU"), QStringLiteral("КУ") },
    { "AVERAGE_STR", &Dictionary::AVERAGE_STR, QStringLiteral("Average"),
      QStringLiteral("Усреднение") },
    { "V_OFFSET_STR", &Dictionary::V_OFFSET_STR, QStringLiteral("Y Shift"),
      QStringLiteral("Y Сдвиг") },
    { "PULSE_W_STR", &Dictionary::PULSE_W_STR, QStringLiteral("Pulse Width"),
      QStringLiteral("Ширина импульса") },
    { "PULSE_A_STR", &Dictionary::PULSE_A_STR, QStringLiteral("Pulse Amp"),
      QStringLiteral("Амплитуда") },
    { "IMPEDANCE_STR", &Dictionary::IMPEDANCE_STR, QStringLiteral("Impedance"),
      QStringLiteral("Импеданс") },
    { "H_OFFSET_STR", &Dictionary::H_OFFSET_STR, QStringLiteral("X Shift"),
      QStringLiteral("X Сдвиг") },
    { "SCALE_STR", &Dictionary::SCALE_STR, QStringLiteral("Scale"), QStringLiteral("Масштаб") },
    { "CURSOR_A_STR", &Dictionary::CURSOR_A_STR, QStringLiteral("Cursor A"),
      QStringLiteral("Курсор A") },
    { "CURSOR_B_STR", &Dictionary::CURSOR_B_STR, QStringLiteral("Cursor B"),
      QStringLiteral("Курсор B") },
    { "DELTA_STR", &Dictionary::DELTA_STR, QStringLiteral("Δ"), QStringLiteral("Δ") },
    { "CUR_STEP_STR", &Dictionary::CUR_STEP_STR, QStringLiteral("cursor step"),
      QStringLiteral("шаг курсора") },
    { "RANGE_STR", &Dictionary::RANGE_STR, QStringLiteral("Range"), QStringLiteral("Диапазон") },
    { "CURSORS_MOVE_STR", &Dictionary::CURSORS_MOVE_STR, QStringLiteral("Wheel moves cursors"),
      QStringLiteral("Колесо двигает курсоры") },
    { "SCALE_CHG_STR", &Dictionary::SCALE_CHG_STR, QStringLiteral("Wheel chahges scale"),
      QStringLiteral("Колесо меняет масштаб") },
    { "RFG_STR", &Dictionary::RFG_STR, QStringLiteral("RFG"), QStringLiteral("РФГ") },
    { "EMPTY_STR", &Dictionary::EMPTY_STR, QStringLiteral("(not loaded)"),
      QStringLiteral("(не загружено)") },
    { "PARAMETER_STR", &Dictionary::PARAMETER_STR, QStringLiteral("Parameter"),
      QStringLiteral("Параметр") },
    { "FILES_STR", &Dictionary::FILES_STR, QStringLiteral("Files"), QStringLiteral("Файлы") },
    { "SETTINGS_STR", &Dictionary::SETTINGS_STR, QStringLiteral("Settings"),
      QStringLiteral("Настройки") },
    { "NORM_MODE_STR", &Dictionary::NORM_MODE_STR, QStringLiteral("Normal Mode"),
      QStringLiteral("Нормальный режим") },
    { "DIFF_MODE_STR", &Dictionary::DIFF_MODE_STR, QStringLiteral("Difference"),
      QStringLiteral("Вычитание") },
    { "DIST_SUFFIX_STR", &Dictionary::DIST_SUFFIX_STR, QStringLiteral("m"), QStringLiteral("м") },
    { "TIME_SUFFIX_STR", &Dictionary::TIME_SUFFIX_STR, QStringLiteral("ns"), QStringLiteral("нс") },
    { "VOLTAGE_SUFFIX_STR", &Dictionary::VOLTAGE_SUFFIX_STR, QStringLiteral("V"),
      QStringLiteral("В") },
    { "LOAD_STR", &Dictionary::LOAD_STR, QStringLiteral("Load"), QStringLiteral("Загрузить") },
    { "RESET_STR", &Dictionary::RESET_STR, QStringLiteral("Reset"), QStringLiteral("Сбросить") },
    { "CLEAR_STR", &Dictionary::CLEAR_STR, QStringLiteral("Clear"), QStringLiteral("Отчистить") },
    { "VISIBLE_STR", &Dictionary::VISIBLE_STR, QStringLiteral("set Visible"),
      QStringLiteral("Отобразить") },
    { "MASTER_STR", &Dictionary::MASTER_STR, QStringLiteral("Set as Master"),
      QStringLiteral("Сделать мастером") },
    { "OK_STR", &Dictionary::OK_STR, QStringLiteral("OK"), QStringLiteral("ОК") },
    { "CANCEL_STR", &Dictionary::CANCEL_STR, QStringLiteral("Cancel"), QStringLiteral("Отмена") },
    { "APPLY_STR", &Dictionary::APPLY_STR, QStringLiteral("Apply"), QStringLiteral("Применить") },
    { "SAVE_STR", &Dictionary::SAVE_STR, QStringLiteral("Save"), QStringLiteral("Сохранить") },
    { "FOLDERS_STR", &Dictionary::FOLDERS_STR, QStringLiteral("Folders"), QStringLiteral("Папки") },
    { "LANGUAGE_STR", &Dictionary::LANGUAGE_STR, QStringLiteral("Language"),
      QStringLiteral("Язык") },
};

} // namespace

class TestDictionary : public QObject
{
    Q_OBJECT

private slots:
    void theWordsAreMembersInTheirOrder()
    {
        const Dictionary dictionary(nullptr);
        QCOMPARE(int(std::size(words)), 37);
        for (std::size_t i = 1; i < std::size(words); ++i) {
            QVERIFY2(&(dictionary.*words[i].member) == &(dictionary.*words[i - 1].member) + 1,
                     words[i].name);
        }
    }

    void everythingIsEmptyAtFirst()
    {
        QObject owner;
        const auto *dictionary = new Dictionary(&owner);
        for (const Word &word : words) {
            QVERIFY2((dictionary->*word.member).isEmpty(), word.name);
        }
    }

    void englishIsTheSource()
    {
        Dictionary dictionary(nullptr);
        dictionary.setStrings();
        for (const Word &word : words) {
            QCOMPARE(dictionary.*word.member, word.english);
        }
    }

    void theMisspeltTextsAreKept()
    {
        Dictionary dictionary(nullptr);
        SettingsData data(nullptr);
        dictionary.setStrings();
        QCOMPARE(dictionary.SCALE_CHG_STR, QStringLiteral("Wheel chahges scale"));
        data.current_language = QStringLiteral("ru_RU");
        data.setTranslation();
        dictionary.setStrings();
        QCOMPARE(dictionary.SCALE_CHG_STR, QStringLiteral("Колесо меняет масштаб"));
        QCOMPARE(dictionary.CLEAR_STR, QStringLiteral("Отчистить"));
    }

    void russianComesAndGoes()
    {
        Dictionary dictionary(nullptr);
        SettingsData data(nullptr);
        data.current_language = QStringLiteral("ru_RU");
        data.setTranslation();
        // The widgets read the words again when they are told to, not by themselves.
        QCOMPARE(dictionary.OK_STR, QString());
        dictionary.setStrings();
        for (const Word &word : words) {
            QCOMPARE(dictionary.*word.member, word.russian);
        }
        data.current_language = QStringLiteral("en_US");
        data.setTranslation();
        dictionary.setStrings();
        for (const Word &word : words) {
            QCOMPARE(dictionary.*word.member, word.english);
        }
    }
};

QTEST_GUILESS_MAIN(TestDictionary)
#include "tst_dictionary.moc"
