// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

/// Interface words that several widgets show, in the installed language. They are empty until the
/// first \c setStrings; a widget that shows a word reads it again after each call.
class Dictionary : public QObject
{
    Q_OBJECT

public:
    explicit Dictionary(QObject *parent);

    /// Reads every word from the installed translators; words without a translation are English.
    void setStrings();

    QString GAIN_STR; ///< parameter name
    QString KU_STR; ///< parameter name (shortening factor)
    QString AVERAGE_STR; ///< parameter name
    QString V_OFFSET_STR; ///< parameter name (vertical offset)
    QString PULSE_W_STR; ///< parameter name
    QString PULSE_A_STR; ///< parameter name
    QString IMPEDANCE_STR; ///< parameter name
    QString H_OFFSET_STR; ///< parameter name (horizontal offset)
    QString SCALE_STR; ///< parameter name
    QString CURSOR_A_STR; ///< cursor name
    QString CURSOR_B_STR; ///< cursor name
    QString DELTA_STR; ///< difference of the two cursors
    QString CUR_STEP_STR; ///< cursor step label
    QString RANGE_STR; ///< range label
    QString CURSORS_MOVE_STR; ///< chart context-menu action
    QString SCALE_CHG_STR; ///< chart context-menu action
    QString RFG_STR; ///< trace (reflectogram)
    QString EMPTY_STR; ///< empty slot
    QString PARAMETER_STR; ///< parameter group; labels no control
    QString FILES_STR; ///< files button, dialog tab
    QString SETTINGS_STR; ///< settings button, dialog tab
    QString NORM_MODE_STR; ///< display mode; labels no control
    QString DIFF_MODE_STR; ///< difference mode
    QString DIST_SUFFIX_STR; ///< distance unit
    QString TIME_SUFFIX_STR; ///< time unit
    QString VOLTAGE_SUFFIX_STR; ///< voltage unit
    QString LOAD_STR; ///< legend menu action
    QString RESET_STR; ///< legend menu action
    QString CLEAR_STR; ///< legend menu action
    QString VISIBLE_STR; ///< legend menu action
    QString MASTER_STR; ///< legend menu action
    QString OK_STR; ///< dialog button
    QString CANCEL_STR; ///< dialog button
    QString APPLY_STR; ///< dialog button
    QString SAVE_STR; ///< settings dialog button
    QString FOLDERS_STR; ///< settings check box
    QString LANGUAGE_STR; ///< settings check box and box title
};
