// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

class MainWindow;

namespace extras {

/// True when the trace of \a slot is loaded and not hidden.
bool isShown(const MainWindow &window, int slot);

/// File name of the trace of \a slot, on one line.
QString fileOf(const MainWindow &window, int slot);

/// Date and time of the measurement of \a slot, as the window shows them; empty when the file has
/// no date.
QString measuredOf(const MainWindow &window, int slot);

/// Name and value of everything that belongs to the chart as a whole or to the selected trace, in
/// the window's language: cursors, distance between them, velocity, parameters, modes.
QVector<QPair<QString, QString>> factsOf(const MainWindow &window);

/// What \a window shows, as lines of text in its language: all loaded traces, factsOf, and the
/// reflections of the selected trace. Ends with a line break.
QString readings(const MainWindow &window);

/// The visible traces of \a window as calc::tableFile writes them. Decimals are those of the
/// default locale, because a spreadsheet on the same system reads no others.
QByteArray table(const MainWindow &window);

} // namespace extras
