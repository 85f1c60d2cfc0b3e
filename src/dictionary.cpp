// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary.h"

Dictionary::Dictionary(QObject *parent)
    : QObject(parent)
{
}

void Dictionary::setStrings()
{
    GAIN_STR = tr("Gain");
    KU_STR = tr("KU");
    AVERAGE_STR = tr("Average");
    V_OFFSET_STR = tr("Y Shift");
    PULSE_W_STR = tr("Pulse Width");
    PULSE_A_STR = tr("Pulse Amp");
    IMPEDANCE_STR = tr("Impedance");
    H_OFFSET_STR = tr("X Shift");
    SCALE_STR = tr("Scale");
    CURSOR_A_STR = tr("Cursor A");
    CURSOR_B_STR = tr("Cursor B");
    DELTA_STR = tr("Δ");
    CUR_STEP_STR = tr("cursor step");
    RANGE_STR = tr("Range");
    RFG_STR = tr("RFG");
    EMPTY_STR = tr("(not loaded)");
    PARAMETER_STR = tr("Parameter");
    NORM_MODE_STR = tr("Normal Mode");
    DIFF_MODE_STR = tr("Difference");
    DIST_SUFFIX_STR = tr("m");
    TIME_SUFFIX_STR = tr("ns");
    VOLTAGE_SUFFIX_STR = tr("V");
    LOAD_STR = tr("Load");
    RESET_STR = tr("Reset");
    CLEAR_STR = tr("Clear");
    VISIBLE_STR = tr("set Visible");
    MASTER_STR = tr("Set as Master");
    CURSORS_MOVE_STR = tr("Wheel moves cursors");
    // Misspelt on purpose: this spelling is the key in the catalogues.
    SCALE_CHG_STR = tr("Wheel chahges scale");
    FILES_STR = tr("Files");
    SETTINGS_STR = tr("Settings");
    OK_STR = tr("OK");
    APPLY_STR = tr("Apply");
    CANCEL_STR = tr("Cancel");
    LANGUAGE_STR = tr("Language");
    FOLDERS_STR = tr("Folders");
    SAVE_STR = tr("Save");
}
