// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/constants.h"
#include "miscfunc.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTranslator>

class QApplication;
class QIODevice;

/// One language of the interface.
struct language
{
    int id = -1; ///< position in the list, 0 to 19; -1 for an unused entry
    QString CODE; ///< locale code such as "en_US"; names the catalogues
    QString label; ///< name of the language in the language itself
};

/// All persistent settings, and the INI files that hold them.
///
/// Each operation takes a set of sections: bit 0 the open files, 1 the style sheet, 2 the work
/// folders, 3 the language, 4 the window geometry, 5 the dial speeds. 63 is all; other bits are
/// ignored. Values are not checked here: code that uses a value bounds it.
/// The window owns the live store, the settings dialog a working copy.
class SettingsData : public QObject
{
    Q_OBJECT

public:
    /// Parts of the settings, each a bit of a mask.
    enum Section {
        FilesSection,
        StyleSection,
        FoldersSection,
        LanguageSection,
        GeometrySection,
        DialsSection
    };

    explicit SettingsData(QObject *parent);

    /// Reads the sections of \a mask from the INI file \a file. A missing key gives its default. So
    /// does every key when \a file is no regular file, cannot be read or is larger than
    /// program_files::maxSettingsBytes. Emits no signal. Always returns false.
    bool loadSettings(const QString &file, state_index mask);

    /// Replaces the whole content of \a file by the sections of \a mask; all other keys are lost.
    /// On failure the former file stays as it is and no error is reported.
    void saveSettings(const QString &file, state_index mask) const;

    /// Applies the sections of \a mask, in the order of bits, by the signals below.
    void updateSettings(state_index mask);

    /// Copies the sections of \a mask, and always the application pointer, from \a from.
    void copy(const SettingsData *from, state_index mask);

    /// Reads the style sheet at \c current_CSS_path, byte by byte as Latin-1, and emits
    /// \c CSS_changed. A sheet that cannot be read or has more than 4 MiB counts as empty.
    void parse_CSS();

    /// Reads the list of languages from the resources.
    void parse_translations();

    /// Reads a list of languages from the open \a device, one per line: the code, a blank, the
    /// label. The list ends at an empty line or after 20 languages. The code is the default of the
    /// label; text after a second blank is ignored.
    void readLanguages(QIODevice &device);

    /// Installs the catalogues of \c current_language and emits \c translation_changed. Without
    /// catalogues all texts are English.
    void setTranslation();

    static constexpr int languageCount = 20; ///< entries of the list

    language languageList[languageCount]; ///< readers stop at the first entry with id -1
    state_index read_index = 0; ///< trace slots that held a file; bits beyond 5 may be set
    signed char master_ID = -1; ///< slot of the master, -1 for none; any value after loading
    QStringList work_folders; ///< as loaded; neither used nor saved
    QString last_folder; ///< folder in which the dialogs for traces start
    QString current_files[constants::slotCount]; ///< full path of each trace slot's file
    QString current_language; ///< code of the language in use
    QString current_CSS_path; ///< path of the style sheet
    QString current_CSS; ///< its text
    QByteArray window_state; ///< as QMainWindow::saveState makes it
    QByteArray window_geometry; ///< as QWidget::saveGeometry makes it
    int param_dial_speed = 100; ///< steps per turn of the parameter dial; unchecked
    int cursor_dial_speed = 100; ///< steps per turn of the cursor dial; unchecked
    QApplication *curAppPointer = nullptr; ///< set after the window is constructed
    QTranslator m_translator; ///< the program's own catalogue
    QTranslator qt_translator; ///< the catalogue of Qt's texts

signals:
    void CSS_changed();
    void translation_changed();
    /// Load the slots of \a slotSet, which may have bits beyond slot 5, from \c current_files.
    void files_to_load(state_index slotSet);
    void window_geometry_loaded();
    void dial_settings_changed();
};
