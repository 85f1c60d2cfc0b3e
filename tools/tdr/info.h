// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace tdr {

/// The content \a bytes of the trace file \a file, as aligned lines of text. With \a all, also the
/// fields of unknown meaning. Missing bytes of a short file count as 0.
QString infoText(const QString &file, const QByteArray &bytes, bool all);

/// The same as a JSON object. A key is the name of the field and, after an underscore, its unit.
QJsonObject infoJson(const QString &file, const QByteArray &bytes, bool all);

} // namespace tdr
