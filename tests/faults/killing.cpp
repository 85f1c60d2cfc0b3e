// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "killing.h"

#include "base/constants.h"
#include "base/program_files.h"
#include "mainwindow.h"
#include "randomsource.h"
#include "room.h"
#include "settingsdata.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// How many files in \a folder hold no settings; before the first kill the program is the only one.
int straysIn(const QString &folder)
{
    int strays = 0;
    const QStringList all = QDir(folder).entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : all)
        strays += name != constants::settingsFile && name != constants::settingsBackupFile ? 1 : 0;
    return strays;
}

int micros(const QElapsedTimer &clock)
{
    return static_cast<int>(clock.nsecsElapsed() / 1000);
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

class SavingWindow
{
public:
    explicit SavingWindow(unsigned seed)
        : m_random(seed)
    {
        m_window.show();
        QCoreApplication::processEvents();
        // The first process is not killed: it measures how long a save takes.
        QElapsedTimer clock;
        clock.start();
        const pid_t copy = closingCopy();
        int status = 0;
        waitpid(copy, &status, 0);
        m_longest = 2 * micros(clock);
    }

    /// One kill; false when the settings are neither the old nor the new ones.
    bool kill(int round)
    {
        change(*m_window.settings(), round);
        const QByteArray former = contentOf(m_file);
        const QByteArray wanted = newSettings();
        const pid_t copy = closingCopy();
        std::this_thread::sleep_for(std::chrono::microseconds(m_random.below(m_longest)));
        ::kill(copy, SIGKILL);
        int status = 0;
        waitpid(copy, &status, 0);
        const bool done = WIFEXITED(status);
        // The moments cover the whole save on a machine of any speed.
        m_longest = done ? m_longest - m_longest / 20 : m_longest + m_longest / 20 + 1;
        ++(done ? m_finished : m_killed);
        const QByteArray left = contentOf(m_file);
        ++(left == wanted ? m_new : m_old);
        if (left == wanted || (!done && left == former))
            return true;
        std::printf("kill %d: %d bytes, neither the %d old nor the %d new ones\n", round,
                    static_cast<int>(left.size()), static_cast<int>(former.size()),
                    static_cast<int>(wanted.size()));
        return false;
    }

    void tell(int kills, int strays) const
    {
        std::printf("%d windows killed while they saved (%d were faster): %d times the old "
                    "settings, %d times the new ones, %d stray files\n",
                    kills, m_finished, m_old, m_new, strays);
    }

    int finished() const
    {
        return m_finished;
    }

private:
    pid_t closingCopy()
    {
        const pid_t copy = fork();
        if (copy == 0) {
            m_window.close();
            _exit(0);
        }
        return copy;
    }

    /// What closing the window would write.
    QByteArray newSettings() const
    {
        SettingsData &settings = *m_window.settings();
        settings.window_geometry = m_window.saveGeometry();
        settings.window_state = m_window.saveState(0);
        const QString elsewhere = m_folder.filePath(QStringLiteral("wanted.ini"));
        settings.saveSettings(elsewhere, constants::allSections);
        return contentOf(elsewhere);
    }

    RandomSource m_random;
    QTemporaryDir m_folder;
    const QString m_file = program_files::settingsFile();
    MainWindow m_window;
    int m_longest = 0; ///< the latest moment of a kill, microseconds
    int m_finished = 0;
    int m_killed = 0;
    int m_old = 0;
    int m_new = 0;
};

/// Starts the viewer in \a room; true when its windows are up and it is about to close them.
bool startUntilItCloses(const Room &room, QProcess &viewer)
{
    int ends[2];
    if (pipe(ends) != 0)
        qFatal("no pipe");
    room.prepare(viewer);
    QProcessEnvironment environment = viewer.processEnvironment();
    environment.insert(QStringLiteral("VELKOR_CLOSE_SIGNAL"), QString::number(ends[1]));
    viewer.setProcessEnvironment(environment);
    viewer.start(QIODevice::ReadOnly);
    viewer.waitForStarted();
    close(ends[1]);
    char told = 0;
    const bool closing = read(ends[0], &told, 1) == 1;
    close(ends[0]);
    return closing;
}

} // namespace

bool killSavingWindows(int kills, unsigned seed)
{
    QFile::remove(program_files::settingsFile());
    QFile::remove(program_files::settingsBackupFile());
    const QString folder = program_files::programFolder();
    const int before = straysIn(folder);
    SavingWindow window(seed);
    bool well = true;
    int round = 0;
    // A process that ended before the signal does not count.
    for (; round - window.finished() < kills; ++round)
        well = window.kill(round) && well;
    const int strays = straysIn(folder) - before;
    window.tell(kills, strays);
    // A save that is killed between creating the new file and renaming it leaves that file, never
    // two.
    if (strays > kills) {
        std::printf("that is more than one for each kill\n");
        well = false;
    }
    return well;
}

bool killClosingPrograms(int kills, unsigned seed)
{
    Room room(QStringLiteral(VELKOR_PROGRAM), QStringLiteral(VELKOR_FAILCALLS));
    QProcess first;
    QElapsedTimer clock;
    if (!startUntilItCloses(room, first)) {
        std::printf("the viewer does not close\n");
        return false;
    }
    clock.start();
    first.waitForFinished();
    int longest = 2 * micros(clock);
    const QByteArray wanted = room.settings();
    RandomSource random(seed);
    int old = 0;
    int finished = 0;
    bool well = true;
    for (int round = 0; round - finished < kills; ++round) {
        room.tidy();
        QProcess viewer;
        const bool closing = startUntilItCloses(room, viewer);
        std::this_thread::sleep_for(std::chrono::microseconds(random.below(longest)));
        ::kill(static_cast<pid_t>(viewer.processId()), SIGKILL);
        viewer.waitForFinished();
        const bool done = viewer.exitStatus() == QProcess::NormalExit;
        longest = done ? longest - longest / 20 : longest + longest / 20 + 1;
        finished += done ? 1 : 0;
        const QByteArray left = room.settings();
        old += left == room.oldSettings() ? 1 : 0;
        if (closing && (left == wanted || (!done && left == room.oldSettings())))
            continue;
        std::printf("program %d: %d bytes, neither old nor new\n", round,
                    static_cast<int>(left.size()));
        well = false;
    }
    std::printf("%d programs killed while they closed (%d were faster): %d times the old "
                "settings\n",
                kills, finished, old);
    return well;
}
