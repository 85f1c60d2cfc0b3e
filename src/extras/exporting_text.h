// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

class MainWindow;

namespace extras {

/// What a reader of the chart wants beside it, in the words and numbers of \a window, a line each:
/// file, time of the test and shifts of every loaded slot, both cursors with their levels, the
/// distance between them, the velocity factor. It ends with a line break.
QString readings(const MainWindow &window);

/// The visible traces within the view as comma-separated values, UTF-8, with a decimal point
/// whatever the language and as many digits as lead back to the same number.
///
/// Lines that begin with # come first and hold all parameters of view, cursors and loaded slots.
/// Then a line of titles and one line for each column of the chart on which a visible trace has a
/// sample: metres, and the level that each of them has there. A trace drawn in steps has the level
/// of a sample up to its next one, as under a cursor; one drawn as a curve has levels at its
/// samples only. Where a trace has none the field is empty.
QByteArray table(const MainWindow &window);

/// \a text in quotes on one line: quotes, backslashes and what is not to be printed are escaped as
/// in C.
QString quoted(const QString &text);

} // namespace extras
