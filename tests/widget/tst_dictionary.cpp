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
};

/// Every word in the order of the members. tst_catalogues has their translations.
const Word words[] = {
    { &Dictionary::GAIN_STR, "Gain" },
    { &Dictionary::KU_STR, "KU" },
    { &Dictionary::AVERAGE_STR, "Average" },
    { &Dictionary::V_OFFSET_STR, "Y Shift" },
    { &Dictionary::PULSE_W_STR, "Pulse Width" },
    { &Dictionary::PULSE_A_STR, "Pulse Amp" },
    { &Dictionary::IMPEDANCE_STR, "Impedance" },
    { &Dictionary::H_OFFSET_STR, "X Shift" },
    { &Dictionary::SCALE_STR, "Scale" },
    { &Dictionary::CURSOR_A_STR, "Cursor A" },
    { &Dictionary::CURSOR_B_STR, "Cursor B" },
    { &Dictionary::DELTA_STR, "Δ" },
    { &Dictionary::CUR_STEP_STR, "cursor step" },
    { &Dictionary::RANGE_STR, "Range" },
    { &Dictionary::CURSORS_MOVE_STR, "Wheel moves cursors" },
    { &Dictionary::SCALE_CHG_STR, "Wheel chahges scale" },
    { &Dictionary::RFG_STR, "RFG" },
    { &Dictionary::EMPTY_STR, "(not loaded)" },
    { &Dictionary::PARAMETER_STR, "Parameter" },
    { &Dictionary::FILES_STR, "Files" },
    { &Dictionary::SETTINGS_STR, "Settings" },
    { &Dictionary::NORM_MODE_STR, "Normal Mode" },
    { &Dictionary::DIFF_MODE_STR, "Difference" },
    { &Dictionary::DIST_SUFFIX_STR, "m" },
    { &Dictionary::TIME_SUFFIX_STR, "ns" },
    { &Dictionary::VOLTAGE_SUFFIX_STR, "V" },
    { &Dictionary::LOAD_STR, "Load" },
    { &Dictionary::RESET_STR, "Reset" },
    { &Dictionary::CLEAR_STR, "Clear" },
    { &Dictionary::VISIBLE_STR, "set Visible" },
    { &Dictionary::MASTER_STR, "Set as Master" },
    { &Dictionary::OK_STR, "OK" },
    { &Dictionary::CANCEL_STR, "Cancel" },
    { &Dictionary::APPLY_STR, "Apply" },
    { &Dictionary::SAVE_STR, "Save" },
    { &Dictionary::FOLDERS_STR, "Folders" },
    { &Dictionary::LANGUAGE_STR, "Language" },
};

} // namespace

class TestDictionary : public QObject
{
    Q_OBJECT

private slots:
    void theWordsFollowTheLanguageWhenTheyAreSet()
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
                         QCoreApplication::translate("Dictionary", word.english));
            QCOMPARE(dictionary.GAIN_STR,
                     language[0] == 'r' ? QStringLiteral("Усиление") : QStringLiteral("Gain"));
        }
    }
};

QTEST_GUILESS_MAIN(TestDictionary)
#include "tst_dictionary.moc"
