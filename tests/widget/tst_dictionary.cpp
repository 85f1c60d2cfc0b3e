// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary.h"
#include "settingsdata.h"

#include <QtTest>

namespace {

struct Word
{
    QString Dictionary::*member;
    const char *english;
    const char *russian;
};

/// Every word in the order of the members.
const Word words[] = {
    { &Dictionary::GAIN_STR, "Gain", "Усиление" },
    { &Dictionary::KU_STR, "KU", "КУ" },
    { &Dictionary::AVERAGE_STR, "Average", "Усреднение" },
    { &Dictionary::V_OFFSET_STR, "Y Shift", "Y Сдвиг" },
    { &Dictionary::PULSE_W_STR, "Pulse Width", "Ширина импульса" },
    { &Dictionary::PULSE_A_STR, "Pulse Amp", "Амплитуда" },
    { &Dictionary::IMPEDANCE_STR, "Impedance", "Импеданс" },
    { &Dictionary::H_OFFSET_STR, "X Shift", "X Сдвиг" },
    { &Dictionary::SCALE_STR, "Scale", "Масштаб" },
    { &Dictionary::CURSOR_A_STR, "Cursor A", "Курсор A" },
    { &Dictionary::CURSOR_B_STR, "Cursor B", "Курсор B" },
    { &Dictionary::DELTA_STR, "Δ", "Δ" },
    { &Dictionary::CUR_STEP_STR, "cursor step", "шаг курсора" },
    { &Dictionary::RANGE_STR, "Range", "Диапазон" },
    { &Dictionary::CURSORS_MOVE_STR, "Wheel moves cursors", "Колесо двигает курсоры" },
    { &Dictionary::SCALE_CHG_STR, "Wheel chahges scale", "Колесо меняет масштаб" },
    { &Dictionary::RFG_STR, "RFG", "РФГ" },
    { &Dictionary::EMPTY_STR, "(not loaded)", "(не загружено)" },
    { &Dictionary::PARAMETER_STR, "Parameter", "Параметр" },
    { &Dictionary::FILES_STR, "Files", "Файлы" },
    { &Dictionary::SETTINGS_STR, "Settings", "Настройки" },
    { &Dictionary::NORM_MODE_STR, "Normal Mode", "Нормальный режим" },
    { &Dictionary::DIFF_MODE_STR, "Difference", "Вычитание" },
    { &Dictionary::DIST_SUFFIX_STR, "m", "м" },
    { &Dictionary::TIME_SUFFIX_STR, "ns", "нс" },
    { &Dictionary::VOLTAGE_SUFFIX_STR, "V", "В" },
    { &Dictionary::LOAD_STR, "Load", "Загрузить" },
    { &Dictionary::RESET_STR, "Reset", "Сбросить" },
    { &Dictionary::CLEAR_STR, "Clear", "Отчистить" },
    { &Dictionary::VISIBLE_STR, "set Visible", "Отобразить" },
    { &Dictionary::MASTER_STR, "Set as Master", "Сделать мастером" },
    { &Dictionary::OK_STR, "OK", "ОК" },
    { &Dictionary::CANCEL_STR, "Cancel", "Отмена" },
    { &Dictionary::APPLY_STR, "Apply", "Применить" },
    { &Dictionary::SAVE_STR, "Save", "Сохранить" },
    { &Dictionary::FOLDERS_STR, "Folders", "Папки" },
    { &Dictionary::LANGUAGE_STR, "Language", "Язык" },
};

} // namespace

class TestDictionary : public QObject
{
    Q_OBJECT

private slots:
    void wordsFollowTheLanguageWhenTheyAreSet()
    {
        Dictionary dictionary(nullptr);
        for (const Word &word : words)
            QVERIFY2((dictionary.*word.member).isEmpty(), word.english);
        SettingsData data(nullptr);
        for (const char *language : { "en_US", "ru_RU", "en_US" }) {
            const QString before = dictionary.OK_STR;
            data.current_language = QString::fromLatin1(language);
            data.setTranslation();
            QCOMPARE(dictionary.OK_STR, before);
            dictionary.setStrings();
            for (const Word &word : words)
                QCOMPARE(dictionary.*word.member,
                         QString::fromUtf8(language[0] == 'r' ? word.russian : word.english));
        }
    }
};

QTEST_GUILESS_MAIN(TestDictionary)
#include "tst_dictionary.moc"
