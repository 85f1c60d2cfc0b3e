// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "fuzzer.h"
#include "invariants.h"
#include "settingsdata.h"
#include "test_files.h"
#include "windowfixture.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

/// \file
/// An input is a settings file. Loading, saving and loading it again must give the same settings,
/// and both saves the same bytes. One input in 32 is also applied to a window.

using fuzz::expect;

namespace {

MainWindow *window = nullptr;

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

/// Checks that saving and loading \a store is a fixed point. Overwrites \a path.
void checkSaveAndLoad(const SettingsData &store, const QString &path)
{
    QFile::remove(path);
    store.saveSettings(path, constants::allSections);
    expect(QFile::exists(path), "a save leaves a file");
    const QByteArray first = contentOf(path);
    SettingsData again(nullptr);
    again.loadSettings(path, constants::allSections);
    expectSame(store, again);
    again.saveSettings(path, constants::allSections);
    expect(contentOf(path) == first, "saving what was loaded makes the same file");
}

void apply(const QString &path, const QString &savePath)
{
    // The window is not closed: that would write settings beside the program.
    SettingsData &live = *window->settings();
    for (QString &file : live.current_files)
        file.clear();
    live.loadSettings(path, constants::allSections);
    live.updateSettings(constants::allSections);
    WindowFixture::settle();
    const QStringList broken = brokenInvariants(*window);
    expect(broken.isEmpty(), qPrintable(broken.value(0)));
    checkSaveAndLoad(live, savePath);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzz::silenceLog();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(*argc, *argv);
    window = new MainWindow;
    window->show();
    WindowFixture::settle();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QTemporaryDir folder(fuzz::folderTemplate());
    const QString path = folder.filePath(QStringLiteral("input.ini"));
    const QString savePath = folder.filePath(QStringLiteral("saved.ini"));
    fuzz::writeFile(path, QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    SettingsData store(nullptr);
    store.loadSettings(path, constants::allSections);
    checkSaveAndLoad(store, savePath);
    // Applying settings takes a hundred times as long as reading them.
    if (fuzz::slowPartIsDue(32))
        apply(path, savePath);
    return 0;
}
