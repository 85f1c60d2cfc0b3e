// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class MainWindow;

namespace extras {

/// The manual's page of keys for a program in the folder \a programFolder, in the language of the
/// code \a language ("ru_RU") or else in English; empty when it is not installed.
QString pageOfKeys(const QString &programFolder, const QString &language);

/// Shows the page of keys in the user's browser when it is installed.
void showPageOfKeys(const MainWindow &window);

} // namespace extras
