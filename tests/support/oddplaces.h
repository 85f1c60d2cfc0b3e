// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <QVector>

#include <functional>

/// A path that leads to no file that can be read, by what is wrong with it.
struct OddPlace
{
    const char *kind;
    QString path;
};

/// A folder full of what an open dialog never offers, and the system's own curiosities. Lasts as
/// long as this object.
class OddPlaces
{
public:
    OddPlaces();
    ~OddPlaces();
    Q_DISABLE_COPY(OddPlaces)

    /// Every place that this system can have. An ordinary user cannot read any of them; who runs as
    /// root must ask within \c asOrdinaryUser.
    const QVector<OddPlace> &all() const;
    QString folder() const;

private:
    QString in(const char *name) const;
    QByteArray nameOfBytes() const;
    void addSpecialFiles();
    void addLockedFiles();

    QTemporaryDir m_folder;
    QVector<OddPlace> m_places;
    int m_socket = -1;
};

/// Does \a work with an ordinary user's rights, whoever runs the test.
void asOrdinaryUser(const std::function<void()> &work);

/// Milliseconds that \a work takes at its best of five times: a machine that is busy with something
/// else may hold one up, a file that blocks holds up all.
qint64 fastest(const std::function<void()> &work);
