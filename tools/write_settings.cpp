// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "settingsdata.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

/// Writes default settings with the traces of the arguments open from slot 1 on, slot 1 the master.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int count = static_cast<int>(arguments.size()) - 2;
    if (count < 1 || count > constants::slotCount) {
        std::fprintf(stderr, "usage: %s FILE TRACE... (1 to 6)\n", argv[0]);
        return EXIT_FAILURE;
    }
    SettingsData settings(nullptr);
    settings.loadSettings(QString(), constants::allSections);
    for (int slot = 0; slot < count; ++slot)
        settings.current_files[slot] = QFileInfo(arguments[slot + 2]).absoluteFilePath();
    settings.read_index = (1 << count) - 1;
    settings.master_ID = 0;
    settings.last_folder = QFileInfo(arguments[2]).absolutePath();
    settings.saveSettings(arguments[1], constants::allSections);
    return QFileInfo::exists(arguments[1]) ? EXIT_SUCCESS : EXIT_FAILURE;
}
