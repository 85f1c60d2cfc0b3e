// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// Settings as INI text, byte for byte as QSettings would write them to a new file.
///
/// QSettings itself is not let near a file that matters: on a full disk it puts the part that
/// fitted in the place of the old file and reports success, and a stale lock file stops it for half
/// a minute or for ever.
class IniText
{
public:
    /// Values that follow go into the section \a name; empty is the general section.
    void beginGroup(const QString &name);

    /// Sets a key of the present section. Keys are plain ASCII letters and digits.
    void setValue(const QString &key, const QString &value);
    void setValue(const QString &key, int value);
    void setValue(const QString &key, const QByteArray &value);

    /// The text; empty when nothing was set.
    QByteArray bytes() const;

private:
    QString m_group;
    QMap<QString, QMap<QString, QByteArray>> m_sections; ///< escaped values by section and key
};

/// True when the INI text \a ini holds a value that QSettings would take for a serialised object.
/// The viewer never writes one, and decoding one from a stranger can end the program: it allocates
/// whatever size it finds and nests as deep as it is told to.
bool holdsSerialisedObject(const QByteArray &ini);
