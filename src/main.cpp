// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    return QApplication::exec();
}
