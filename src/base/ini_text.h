// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>
#include <QVector>

/// \file
/// Settings as INI text, in the format of QSettings. QSettings itself is not used: on a full disk
/// it replaces the old file with a truncated one and reports success, a stale lock file blocks it,
/// it returns cached values for a file whose time and size did not change, and it decodes
/// serialised objects of any size.

/// Writes INI text byte for byte as QSettings writes it to a new file.
class IniWriter
{
public:
    /// Order of sections and keys.
    enum Order {
        AsSet, ///< as QSettings does on Windows
        Sorted ///< by name, as it does elsewhere
    };

    /// Values that follow go into the section \a name; empty is the general section. Call it once
    /// for each section.
    void beginGroup(const QString &name);

    /// Appends a key to the current section. Keys consist of ASCII letters and digits.
    void setValue(const QString &key, const QString &value);
    void setValue(const QString &key, int value);
    void setValue(const QString &key, const QByteArray &value);

    /// The text; empty when nothing was set.
    QByteArray bytes(Order order = systemOrder) const;

private:
    struct Entry
    {
        QByteArray section;
        QByteArray key;
        QByteArray value; ///< escaped
    };

#ifdef Q_OS_WIN
    static constexpr Order systemOrder = AsSet;
#else
    static constexpr Order systemOrder = Sorted;
#endif

    QByteArray m_section;
    QVector<Entry> m_entries;
};

/// Reads the values of an INI text as QSettings does.
class IniReader
{
public:
    explicit IniReader(const QByteArray &bytes);

    /// Keys that follow are looked up in the section \a name; empty is the general section.
    void beginGroup(const QString &name);

    /// Value of \a key, a string or a byte array; empty for a list and for a geometric type.
    /// \a fallback when the key is missing or its value is a serialised object.
    QVariant value(const QString &key, const QVariant &fallback = {}) const;

private:
    QString m_section;
    QHash<QString, QString> m_values; ///< by "section/key"
};
