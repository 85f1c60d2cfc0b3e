// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include <QApplication>
#include <QFile>

#include <cstdio>

// The viewer inside another program: its window opens, and what it carries along is there, the
// files that are only made by the build included.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    for (const char *path : { ":/style/style_2.qss", ":/l10n/translation.ini",
                              ":/l10n/Velkor_ru_RU.qm", ":/ini/settings_default.ini" }) {
        if (!QFile::exists(QString::fromLatin1(path))) {
            std::printf("consumer: %s is missing\n", path);
            return 1;
        }
    }
    MainWindow window(nullptr);
    window.show();
    QApplication::processEvents();
    if (window.width() < 800 || window.height() < 500) {
        std::puts("consumer: the window did not open");
        return 1;
    }
    std::puts("consumer: the viewer's window opens in another program");
    return 0;
}
