// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settingsdata.h"

#include <QDir>
#include <QtTest>

/// Fails the test function when \a data holds anything but what an empty file makes of it.
inline void expectDefaults(const SettingsData &data)
{
    QCOMPARE(data.current_language, QStringLiteral("en_US"));
    QCOMPARE(data.current_CSS_path, QStringLiteral(":/style/style_2.qss"));
    QCOMPARE(data.last_folder, QDir::currentPath());
    QCOMPARE(data.work_folders, QStringList());
    QCOMPARE(data.read_index, 0);
    QCOMPARE(int(data.master_ID), 0);
    QCOMPARE(data.window_geometry, QByteArray());
    QCOMPARE(data.window_state, QByteArray());
    QCOMPARE(data.cursor_dial_speed, 100);
    QCOMPARE(data.param_dial_speed, 100);
}
