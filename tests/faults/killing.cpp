// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "killing.h"

#include "base/constants.h"
#include "base/program_files.h"
#include "mainwindow.h"
#include "settingsdata.h"
#include "test_files.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

/// Number of files in the program folder that hold no settings.
int otherFiles()
{
    QStringList names = QDir(program_files::programFolder()).entryList(QDir::Files | QDir::Hidden);
    names.removeAll(constants::settingsFile);
    names.removeAll(constants::settingsBackupFile);
    return static_cast<int>(names.size());
}

/// Settings that differ from those of the round before, in every section.
void change(SettingsData &settings, int round)
{
    settings.cursor_dial_speed = 10 + round;
    settings.param_dial_speed = 1000 + round;
    settings.current_language = round % 2 == 0 ? QStringLiteral("ru_RU") : QStringLiteral("en_US");
    settings.last_folder = QStringLiteral("/").repeated(1 + round * 37 % 3000);
    settings.read_index = round % 64;
    for (int slot = 0; slot < constants::slotCount; ++slot)
        settings.current_files[slot] = QStringLiteral("/traces/%1/%2.tdr").arg(round).arg(slot);
}

/// The settings that closing \a window would write.
QByteArray newSettings(const MainWindow &window)
{
    const QTemporaryDir folder;
    const QString elsewhere = folder.filePath(QStringLiteral("wanted.ini"));
    SettingsData &settings = *window.settings();
    settings.window_geometry = window.saveGeometry();
    settings.window_state = window.saveState(0);
    settings.saveSettings(elsewhere, constants::allSections);
    return contentOf(elsewhere);
}

/// Closes \a window in a copy of this process, which gets SIGKILL after \a microseconds. True when
/// the copy ended before that.
bool endsBeforeKill(MainWindow &window, int microseconds)
{
    const pid_t copy = fork();
    if (copy == 0) {
        window.close();
        _exit(0);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
    ::kill(copy, SIGKILL);
    int status = 0;
    waitpid(copy, &status, 0);
    return WIFEXITED(status);
}

} // namespace

bool killSavingWindows(int kills, unsigned seed)
{
    const QString file = program_files::settingsFile();
    QFile::remove(file);
    QFile::remove(program_files::settingsBackupFile());
    const int before = otherFiles();
    MainWindow window;
    window.show();
    QCoreApplication::processEvents();
    QRandomGenerator random(seed);
    int longest = 50000; // microseconds until a kill
    int killed = 0;
    int faster = 0;
    int old = 0;
    bool well = true;
    for (int round = 0; killed < kills; ++round) {
        change(*window.settings(), round);
        const QByteArray former = contentOf(file);
        const QByteArray wanted = newSettings(window);
        const bool done = endsBeforeKill(window, random.bounded(longest));
        // The range of delays adapts to the duration of a save on this machine.
        longest += done ? -longest / 20 : longest / 20 + 1;
        ++(done ? faster : killed);
        const QByteArray left = contentOf(file);
        old += left == former ? 1 : 0;
        if (left == wanted || (!done && left == former))
            continue;
        std::printf("kill %d: %d bytes, neither the %d old nor the %d new ones\n", round,
                    static_cast<int>(left.size()), static_cast<int>(former.size()),
                    static_cast<int>(wanted.size()));
        well = false;
    }
    const int strays = otherFiles() - before;
    std::printf("%d windows killed while they saved (%d were faster): %d times the old settings, "
                "%d stray files\n",
                killed, faster, old, strays);
    // A kill between the creation of the new file and its renaming leaves one file.
    if (strays > kills) {
        std::printf("that is more than one for each kill\n");
        well = false;
    }
    return well;
}
