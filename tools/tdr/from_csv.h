// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QStringList>

#include <optional>

namespace tdr {

/// Options of the user for a record. Values that are not set are taken from the measurement.
struct Demands
{
    std::optional<double> step; ///< ns above 0
    std::optional<double> ku; ///< 1 to 10
    std::optional<quint32> delay; ///< samples
    QDateTime date; ///< 2000 to 2099
};

/// A record made of a table.
struct Conversion
{
    QByteArray record; ///< 37775 bytes, or none
    QStringList remarks; ///< values that were assumed, rounded, clipped or left out
    QString failure; ///< the reason when there is no record, otherwise empty
};

/// True when the date of a record can hold \a moment.
bool isStorable(const QDateTime &moment);

/// Makes a record of the table \a text, which readCurve describes: 250 samples at a step that is a
/// multiple of 1.25 ns, linearly interpolated. Without a demanded step, uses the shortest one at
/// which the samples are as long as the rows; up to half a step at either end can be lost.
Conversion fromCsv(const QByteArray &text, const Demands &demands);

} // namespace tdr
