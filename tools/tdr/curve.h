// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVector>

namespace tdr {

/// A measurement from a table.
struct Curve
{
    struct Point
    {
        double place = 0.0; ///< m, or ns of echo time
        double level = 0.0;
    };
    QVector<Point> points; ///< at least two, their places ascending
    bool isTime = false; ///< places are ns

    // From the comments of a table of the viewer; 0 and invalid when it has none.
    double ku = 0.0;
    int levelShift = 0; ///< already part of all levels
    QDateTime date;
};

/// Reads the table \a text into \a curve: two columns, distance or echo time and level, or the
/// table that the viewer exports of one trace. Columns are separated by commas, semicolons,
/// tabulators or blanks; with any separator but commas, numbers may have decimal commas. The line
/// above the first numbers names the unit of the places, m or ns; without such a line they are
/// metres. Lines that begin with # are comments. Returns the error, empty on success.
QString readCurve(const QByteArray &text, Curve &curve);

} // namespace tdr
