// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>
#include <QVector>

/// \file
/// A record as names and values, to be printed in any form. Names are those of the fields in the
/// description of the format.

namespace tdr {

struct Field
{
    QString name;
    QJsonValue value; ///< null for NaN, infinities and invalid dates
    QString unit; ///< empty for none, or when it is not known
};

struct Section
{
    QString name;
    bool isList = false; ///< true: any number of entries; false: one
    QVector<QVector<Field>> entries;
};

/// The fields of the trace file with the content \a bytes, and values computed from its samples.
/// With \a all, also the fields of unknown meaning, in hexadecimal digits.
QVector<Section> sectionsOf(const QByteArray &bytes, bool all);

} // namespace tdr
