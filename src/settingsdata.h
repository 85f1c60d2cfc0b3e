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

/// One language that the interface can speak.
struct language
{
    int id = -1; ///< place in the list, 0 to 19; -1 marks an unused entry
    QString CODE; ///< locale code such as "en_US"; names the catalogues
    QString label; ///< the language's own name, as the user picks it
};

/// Every setting that outlives a run, and the INI files that hold them.
///
/// Each operation takes a set of sections: bit 0 the open files, 1 the style sheet, 2 the work
/// folders, 3 the language, 4 the window geometry, 5 the dial speeds; 63 is all, other bits mean
/// nothing. No value is checked here: whoever uses one copes with anything a file can hold.
/// The window owns the live store; the settings dialog owns a second one to work on.
class SettingsData : public QObject
{
    Q_OBJECT

public:
    explicit SettingsData(QObject *parent);

    /// Reads the sections of \a mask from the INI file \a file; what the file does not name, and
    /// everything when there is no such regular file, takes its default. Emits nothing. The result
    /// is always false and says nothing.
    bool loadSettings(const QString &file, state_index mask);

    /// Replaces the whole content of \a file by the sections of \a mask; keys of other sections are
    /// gone. Either the new content lies there whole or the old one stays, without a word.
    void saveSettings(const QString &file, state_index mask) const;

    /// Puts the sections of \a mask into effect through the signals below, in the order of bits.
    void updateSettings(state_index mask);

    /// Takes the sections of \a mask, and always the application pointer, from \a from.
    void copy(const SettingsData *from, state_index mask);

    /// Reads the style sheet at \c current_CSS_path, byte by byte as Latin-1, and emits
    /// \c CSS_changed. A sheet that cannot be read, or is unreasonably large, is an empty one.
    void parse_CSS();

    /// Reads the list of languages that comes with the program. Without it the list stays as it is.
    void parse_translations();

    /// Reads a list of languages from the open \a device, one a line: the code, a blank, the name.
    /// An empty line ends the list, and so does the twentieth language. Where the name is missing
    /// the code stands for it; what follows a second blank is ignored.
    void readLanguages(QIODevice &device);

    /// Installs the catalogues of \c current_language and emits \c translation_changed. A language
    /// without catalogues leaves every text in English.
    void setTranslation();

    static constexpr int languageCount = 20; ///< languages that fit

    language languageList[languageCount]; ///< readers stop at the first entry with id -1
    state_index read_index = 0; ///< trace slots that held a file; bits beyond 5 may be set
    signed char master_ID = -1; ///< slot of the master, -1 none; any value when it came from a file
    QStringList work_folders; ///< as read; nothing reads it and no save writes it back
    QString last_folder; ///< where the next dialog that opens traces starts
    QString current_files[constants::slotCount]; ///< full path of each trace slot's file
    QString current_language; ///< code of the language in use
    QString current_CSS_path; ///< path of the style sheet
    QString current_CSS; ///< its text
    QByteArray window_state; ///< as QMainWindow::saveState makes it
    QByteArray window_geometry; ///< as QWidget::saveGeometry makes it
    int param_dial_speed = 100; ///< steps per turn of the parameter dial; unchecked
    int cursor_dial_speed = 100; ///< steps per turn of the cursor dial; unchecked
    QApplication *curAppPointer = nullptr; ///< set once the window stands; carried by every copy
    QTranslator m_translator; ///< the program's own catalogue
    QTranslator qt_translator; ///< the toolkit's catalogue

signals:
    void CSS_changed();
    void translation_changed();
    /// The traces of the slots in \a slotSet wait in \c current_files. The set is not masked.
    void files_to_load(state_index slotSet);
    void window_geometry_loaded();
    void dial_settings_changed();
};
