// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "miscfunc.h"

#include <QDialog>
#include <QString>

class Dictionary;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTabWidget;
class SettingsData;

/// The settings dialog. Language and dial speeds are edited in a working copy; "OK" and "Apply"
/// copy them to the live store. The file buttons act at once, on the ticked sections of the live
/// store.
class SettingsMenu : public QDialog
{
    Q_OBJECT

public:
    /// \a words and \a store, the live one, are shared, not owned. The dialog has no texts before
    /// the first \c retranslateUI.
    SettingsMenu(Dictionary *words, SettingsData *store, QWidget *parent);

    /// Sets every text in the language that is installed.
    void retranslateUI();

    /// Copies the live store to the dialog and makes its tabs readable with the present style
    /// sheet. The window calls it before it shows the dialog. Edits that were not applied are
    /// dropped, but their sections stay marked in \c update_index.
    void interfaceUpdate();

    /// Fills the language box from the live store, once.
    void interfaceInit();

    Dictionary *dict = nullptr;
    SettingsData *data_ex = nullptr; ///< the live store
    SettingsData *data_in = nullptr; ///< the working copy, a child of the dialog
    QTabWidget *tabs = nullptr;
    QWidget *files_widget = nullptr; ///< the first page; stays empty
    QWidget *settings_widget = nullptr; ///< the page that is shown
    QGroupBox *settings_box = nullptr;
    QGroupBox *dial_accur_box = nullptr;
    QGroupBox *language_box = nullptr;
    QGroupBox *settings_check_box = nullptr;
    QPushButton *ok_button = nullptr;
    QPushButton *cancel_button = nullptr;
    QPushButton *apply_button = nullptr; ///< enabled while an edit is not applied
    QComboBox *language_select = nullptr;
    QPushButton *load_default_button = nullptr;
    QPushButton *load_last_button = nullptr;
    QPushButton *load_settings_button = nullptr;
    QPushButton *save_settings_button = nullptr;
    QButtonGroup *settings_check_group = nullptr; ///< ids are the section bits
    QCheckBox *files_settings_check = nullptr;
    QCheckBox *CSS_settings_check = nullptr;
    QCheckBox *dir_settings_check = nullptr;
    QCheckBox *lang_settings_check = nullptr;
    QCheckBox *geometry_settings_check = nullptr;
    QCheckBox *dial_settings_check = nullptr;
    QLabel *param_accur_lbl = nullptr;
    QLabel *cursor_accur_lbl = nullptr;
    QLabel *accur_lbl = nullptr;
    QSpinBox *param_accur = nullptr; ///< 10 to 1000 steps per turn
    QSpinBox *cursor_accur = nullptr; ///< 10 to 1000 steps per turn
    state_index update_index = 0; ///< sections edited here and still to be applied
    state_index save_load_index = 0; ///< sections ticked for the file buttons
    bool initiated = false; ///< the language box is filled

private:
    void createControls();
    void connectControls();
    void layOut();
    /// Reads \a file into the live store, section by section as ticked, and applies it.
    void loadIntoLiveStore(const QString &file);
    void applyEdits();

    void sectionToggled_slot(int id, bool checked);
    void languageChosen_slot(const QString &text);
    /// Sets one of the two speeds of the working copy.
    void setSpeed(int SettingsData::*member, int speed);
    void loadFile_slot();
    void saveFile_slot();
    void ok_slot();
    void apply_slot();
};
