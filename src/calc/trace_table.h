// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/constants.h"
#include "calc/cursor_level.h"
#include "calc/reflections.h"
#include "calc/trace_points.h"
#include "protocol_vx840.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QTime>
#include <QVector>

QT_BEGIN_NAMESPACE
class QLocale;
QT_END_NAMESPACE

/// \file
/// Traces as a table of separated values, for spreadsheets and scripts.

namespace calc {

/// One trace of a table, a column of levels.
struct TableTrace
{
    int slot = 0; ///< 0..5, written as 1..6
    QString file; ///< file name without its folder
    QDate date; ///< of the measurement; left out when invalid
    QTime time; ///< of the measurement; left out when invalid
    Protocol_VX840::CH_PARAMS_t params = {};
    TraceRef trace; ///< samples and shifts
};

/// How numbers with decimals are written.
enum class Decimals {
    Point, ///< 12.5000, columns separated by commas
    Comma, ///< "12,5000", columns separated by semicolons, as spreadsheets of such locales expect
};

/// The form that a spreadsheet reads on a system of \a locale.
Decimals decimalsOf(const QLocale &locale);

/// Content of a table.
struct TraceTable
{
    QVector<TableTrace> traces; ///< in the order of their columns
    int selected = -1; ///< slot of the selected trace; -1 for none
    int master = constants::noMaster; ///< slot of the master, which need not be a column
    /// True: every column but that of \c master holds the master minus the trace.
    bool difference = false;
    TraceRef masterTrace; ///< read in difference mode only
    float ku = constants::startKU; ///< c / v
    double metresPerCount = 0.0; ///< one way, shortening factor included
    QVector<CursorPoint> cursors; ///< A and B, or empty
    QVector<Reflection> reflections; ///< of the selected trace
    Decimals decimals = Decimals::Point;
};

/// Text of \a table: at most 20 comment lines that begin with "# ", one header row, then a row for
/// each place that has a sample. The first columns are the distance in metres, rounded to 0.1 mm,
/// and the echo time in ns; each trace follows with its 250 levels in sample steps, shifts
/// included, or in difference mode with the differences at the samples that it shares with the
/// master. Fields without a sample are empty.
///
/// Traces whose samples lie on the same grid (equal step, starts a whole number of steps apart)
/// share rows. The others follow in rows of their own, so that every column is one unbroken run.
///
/// Header fields are quoted. In comments, control characters, quotes and separators of file names
/// become blanks, so that no spreadsheet splits them or takes a part for a formula. Lines end with
/// a line feed. The text is independent of language and locale.
QString tableText(const TraceTable &table);

/// The same text in UTF-8. A text that is not all ASCII starts with a byte order mark, which
/// spreadsheets need. Any other text has none: it would hide the first comment from simple scripts.
QByteArray tableFile(const TraceTable &table);

} // namespace calc
