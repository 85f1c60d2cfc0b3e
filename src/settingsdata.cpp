// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingsdata.h"

#include "base/constants.h"
#include "base/ini_text.h"
#include "base/program_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTextStream>

#include <algorithm>

namespace {

constexpr qint64 maxStyleSheetBytes = 4 << 20; ///< a larger sheet counts as unreadable
constexpr QLatin1String defaultLanguage = constants::latin1("en_US");
constexpr QLatin1String defaultStyle = constants::latin1(":/style/style_2.qss");
constexpr QLatin1String languageFile = constants::latin1(":/l10n/translation.ini");
constexpr QLatin1String catalogueFolder = constants::latin1(":/l10n");

constexpr QLatin1String keyLanguage = constants::latin1("language");
constexpr QLatin1String keyStyle = constants::latin1("CSS");
constexpr QLatin1String groupPrevFiles = constants::latin1("PrevFiles");
constexpr QLatin1String keyStateIndex = constants::latin1("StateIndex");
constexpr QLatin1String keyMasterId = constants::latin1("MasterId");
constexpr QLatin1String keyFile = constants::latin1("file%1"); ///< counted from 1
constexpr QLatin1String groupWorkFolders = constants::latin1("WorkFolders");
constexpr QLatin1String keyLastFolder = constants::latin1("lastFolder");
constexpr QLatin1String keyWorkFolder = constants::latin1("folder%1"); ///< counted from 1
constexpr QLatin1String groupWindowState = constants::latin1("WindowState");
constexpr QLatin1String keyGeometry = constants::latin1("geometry");
constexpr QLatin1String keyWindowState = constants::latin1("windowState");
constexpr QLatin1String groupDials = constants::latin1("Dials");
constexpr QLatin1String keyCursorSpeed = constants::latin1("cursorSpeed");
constexpr QLatin1String keyParamSpeed = constants::latin1("paramSpeed");
constexpr int maxWorkFolders = 1000; ///< further folders are not read

constexpr int qtCodeLength = 2; ///< the catalogues of Qt are named by language, without country

QStringList readFolders(const IniReader &ini)
{
    QStringList folders;
    for (int i = 1; i <= maxWorkFolders; ++i) {
        const QString folder = ini.value(QString(keyWorkFolder).arg(i)).toString();
        if (folder.isEmpty())
            break;
        folders.append(folder);
    }
    return folders;
}

void writeFolders(IniWriter &ini)
{
    // Three fixed entries, not the list that was loaded. The first is a display name and no path.
    const QString folders[] = { QStandardPaths::displayName(QStandardPaths::DocumentsLocation),
                                QCoreApplication::applicationDirPath(), QDir::currentPath() };
    int number = 0;
    for (const QString &folder : folders)
        ini.setValue(QString(keyWorkFolder).arg(++number), folder);
}

} // namespace

SettingsData::SettingsData(QObject *parent)
    : QObject(parent)
{
    // Queued connections and QSignalSpy look the type up by this name, not as int.
    qRegisterMetaType<state_index>("state_index");
}

bool SettingsData::loadSettings(const QString &file, state_index mask)
{
    IniReader ini(program_files::readRegularFile(file, program_files::maxSettingsBytes));
    if (checkbit(mask, LanguageSection))
        current_language = ini.value(keyLanguage, QString(defaultLanguage)).toString();
    if (checkbit(mask, StyleSection))
        current_CSS_path = ini.value(keyStyle, QString(defaultStyle)).toString();
    ini.beginGroup(groupWorkFolders);
    if (checkbit(mask, FoldersSection)) {
        last_folder = ini.value(keyLastFolder, QDir::currentPath()).toString();
        work_folders = readFolders(ini);
    }
    ini.beginGroup(groupPrevFiles);
    if (checkbit(mask, FilesSection)) {
        read_index = ini.value(keyStateIndex, 0).toInt();
        // The default is slot 1, although a new store has no master.
        master_ID = static_cast<signed char>(ini.value(keyMasterId, 0).toInt());
        for (int slot = 0; slot < constants::slotCount; ++slot)
            if (checkbit(read_index, slot))
                current_files[slot] = ini.value(QString(keyFile).arg(slot + 1)).toString();
    }
    ini.beginGroup(groupWindowState);
    if (checkbit(mask, GeometrySection)) {
        window_geometry = ini.value(keyGeometry).toByteArray();
        window_state = ini.value(keyWindowState).toByteArray();
    }
    ini.beginGroup(groupDials);
    if (checkbit(mask, DialsSection)) {
        cursor_dial_speed = ini.value(keyCursorSpeed, constants::dialSpeed).toInt();
        param_dial_speed = ini.value(keyParamSpeed, constants::dialSpeed).toInt();
    }
    return false;
}

void SettingsData::saveSettings(const QString &file, state_index mask) const
{
    IniWriter ini;
    if (checkbit(mask, LanguageSection))
        ini.setValue(keyLanguage, current_language);
    if (checkbit(mask, StyleSection))
        ini.setValue(keyStyle, current_CSS_path);
    if (checkbit(mask, FoldersSection)) {
        ini.beginGroup(groupWorkFolders);
        ini.setValue(keyLastFolder, last_folder);
        writeFolders(ini);
    }
    if (checkbit(mask, FilesSection)) {
        ini.beginGroup(groupPrevFiles);
        ini.setValue(keyStateIndex, read_index);
        ini.setValue(keyMasterId, static_cast<int>(master_ID));
        for (int slot = 0; slot < constants::slotCount; ++slot)
            if (checkbit(read_index, slot))
                ini.setValue(QString(keyFile).arg(slot + 1), current_files[slot]);
    }
    if (checkbit(mask, GeometrySection)) {
        ini.beginGroup(groupWindowState);
        ini.setValue(keyGeometry, window_geometry);
        ini.setValue(keyWindowState, window_state);
    }
    if (checkbit(mask, DialsSection)) {
        ini.beginGroup(groupDials);
        ini.setValue(keyCursorSpeed, cursor_dial_speed);
        ini.setValue(keyParamSpeed, param_dial_speed);
    }
    const QByteArray bytes = ini.bytes();
    // A larger file would not be read again.
    if (bytes.size() <= program_files::maxSettingsBytes)
        program_files::replaceFile(file, bytes);
}

void SettingsData::updateSettings(state_index mask)
{
    if (checkbit(mask, FilesSection))
        emit files_to_load(read_index);
    if (checkbit(mask, StyleSection))
        parse_CSS();
    // The folders need no action.
    if (checkbit(mask, LanguageSection))
        setTranslation();
    if (checkbit(mask, GeometrySection))
        emit window_geometry_loaded();
    if (checkbit(mask, DialsSection))
        emit dial_settings_changed();
}

void SettingsData::copy(const SettingsData *from, state_index mask)
{
    if (checkbit(mask, FilesSection)) {
        read_index = from->read_index;
        master_ID = from->master_ID;
        std::copy(std::begin(from->current_files), std::end(from->current_files),
                  std::begin(current_files));
    }
    if (checkbit(mask, StyleSection)) {
        current_CSS_path = from->current_CSS_path;
        current_CSS = from->current_CSS;
    }
    if (checkbit(mask, FoldersSection)) {
        work_folders = from->work_folders;
        last_folder = from->last_folder;
    }
    if (checkbit(mask, LanguageSection)) {
        std::copy(std::begin(from->languageList), std::end(from->languageList),
                  std::begin(languageList));
        current_language = from->current_language;
    }
    if (checkbit(mask, GeometrySection)) {
        window_state = from->window_state;
        window_geometry = from->window_geometry;
    }
    if (checkbit(mask, DialsSection)) {
        param_dial_speed = from->param_dial_speed;
        cursor_dial_speed = from->cursor_dial_speed;
    }
    curAppPointer = from->curAppPointer;
}

void SettingsData::parse_CSS()
{
    const QByteArray sheet = program_files::readRegularFile(current_CSS_path, maxStyleSheetBytes);
    // The length is passed because a NUL must not end the text.
    current_CSS = QString::fromLatin1(sheet.constData(), sheet.size());
    emit CSS_changed();
}

void SettingsData::parse_translations()
{
    QFile file{ QString(languageFile) };
    if (!program_files::openRegularFile(file))
        return;
    readLanguages(file);
}

void SettingsData::readLanguages(QIODevice &device)
{
    QTextStream lines(&device);
    lines.setAutoDetectUnicode(true);
    for (int i = 0; i < languageCount; ++i) {
        const QString line = lines.readLine();
        // Languages below the empty line have no catalogue yet.
        if (line.isEmpty())
            break;
        const QStringList parts = line.split(QLatin1Char(' '));
        languageList[i].id = i;
        languageList[i].CODE = parts.at(0);
        languageList[i].label = parts.value(1, parts.at(0));
    }
}

void SettingsData::setTranslation()
{
    // Removed first: loading into an installed translator sends LanguageChange, and the window
    // would be painted once more.
    QCoreApplication::removeTranslator(&m_translator);
    QCoreApplication::removeTranslator(&qt_translator);
    // Installed even when loading fails: an empty translator replaces the former language.
    const QString folder = catalogueFolder;
    const QString code = current_language.left(constants::longestLanguageCode);
    (void)m_translator.load(QStringLiteral("Velkor_%1").arg(code), folder);
    QCoreApplication::installTranslator(&m_translator);
    const QString qtCode = code.left(qtCodeLength);
    (void)qt_translator.load(QStringLiteral("qt_%1").arg(qtCode), folder);
    QCoreApplication::installTranslator(&qt_translator);
    emit translation_changed();
}
