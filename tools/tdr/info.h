// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace tdr {

/// What the trace file \a file with \a bytes says, as aligned lines of text. With \a all, also the
/// fields of unknown meaning. A file that is too short for a trace reads as if zeros followed.
QString infoText(const QString &file, const QByteArray &bytes, bool all);

/// The same as an object of JSON. A key is the name of the field and, after an underscore, its
/// unit.
QJsonObject infoJson(const QString &file, const QByteArray &bytes, bool all);

} // namespace tdr
