// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "fuzzer.h"
#include "invariants.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// \file
/// The bytes of a settings file: loaded, saved and loaded again they must say the same, and the
/// second save must be the first one. A part of the inputs is also applied to a whole window.

using fuzz::expect;

namespace {

MainWindow *window = nullptr;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    expect(file.open(QIODevice::ReadOnly), "a save leaves a file");
    return file.readAll();
}

// A name of its own for each file: the toolkit remembers what a file held when it last read it.
QString freshName(const QTemporaryDir &folder)
{
    static int number = 0;
    return folder.filePath(QStringLiteral("%1.ini").arg(++number));
}

void expectSame(const SettingsData &a, const SettingsData &b)
{
    expect(a.current_language == b.current_language, "the language survives");
    expect(a.current_CSS_path == b.current_CSS_path, "the style sheet's path survives");
    expect(a.last_folder == b.last_folder, "the last folder survives");
    expect(a.read_index == b.read_index, "the set of open files survives");
    expect(a.master_ID == b.master_ID, "the master survives");
    for (int slot = 0; slot < constants::slotCount; ++slot)
        expect(a.current_files[slot] == b.current_files[slot], "the paths of traces survive");
    expect(a.window_geometry == b.window_geometry, "the window's geometry survives");
    expect(a.window_state == b.window_state, "the window's state survives");
    expect(a.cursor_dial_speed == b.cursor_dial_speed, "the cursor dial's speed survives");
    expect(a.param_dial_speed == b.param_dial_speed, "the parameter dial's speed survives");
}

/// What \a store saves, after it was found to be a fixed point.
QByteArray savedAndLoaded(const SettingsData &store, const QTemporaryDir &folder)
{
    const QString first = freshName(folder);
    store.saveSettings(first, constants::allSections);
    SettingsData again(nullptr);
    again.loadSettings(first, constants::allSections);
    expectSame(store, again);
    const QString second = freshName(folder);
    again.saveSettings(second, constants::allSections);
    const QByteArray bytes = contentOf(first);
    expect(contentOf(second) == bytes, "saving what was loaded makes the same file");
    QFile::remove(first);
    QFile::remove(second);
    return bytes;
}

void apply(const QString &path, const QTemporaryDir &folder)
{
    // Closing is left to the exit: it would write beside the program.
    SettingsData &live = *window->settings();
    for (QString &file : live.current_files)
        file.clear();
    live.loadSettings(path, constants::allSections);
    live.updateSettings(constants::allSections);
    fuzz::settle();
    const QStringList broken = brokenInvariants(*window);
    expect(broken.isEmpty(), qPrintable(broken.value(0)));
    savedAndLoaded(live, folder);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzz::silenceLog();
    fuzz::runOffscreen();
    new QApplication(*argc, *argv);
    window = new MainWindow;
    window->show();
    fuzz::settle();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QTemporaryDir folder(fuzz::folderTemplate());
    const QString path = freshName(folder);
    fuzz::writeFile(path, QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    SettingsData store(nullptr);
    store.loadSettings(path, constants::allSections);
    savedAndLoaded(store, folder);
    // To apply settings takes a hundred times as long as to read them.
    if (fuzz::isOneOf(8, data, size))
        apply(path, folder);
    QFile::remove(path);
    return 0;
}
