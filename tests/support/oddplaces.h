// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <vector>

/// A path that cannot be read as a file; \c name states the reason.
struct OddPlace
{
    const char *name;
    QString path;
};

/// A temporary folder of special, locked and oddly named files, and some devices of the system.
class OddPlaces
{
public:
    OddPlaces();
    ~OddPlaces();
    Q_DISABLE_COPY(OddPlaces)

    /// Every place that this system supports. An ordinary user can read none of them; root must use
    /// \c asOrdinaryUser.
    const std::vector<OddPlace> &all() const;
    QString folder() const;

private:
    QString in(const char *name) const;
    QByteArray nameOfBytes() const;
    void addSpecialFiles();
    void addLockedFiles();

    QTemporaryDir m_folder;
    std::vector<OddPlace> m_places;
};

/// Runs \a work with the rights of an ordinary user, also when root runs the test.
void asOrdinaryUser(const std::function<void()> &work);

/// Runs \a work with a file size limit of \a bytes, which has the effect of a full disk. Does not
/// run \a work on systems other than Unix.
void onFullDisk(quint64 bytes, const std::function<void()> &work);

/// The shortest time in milliseconds of up to five runs of \a work: a busy machine delays some
/// runs, a file that blocks delays all.
qint64 fastest(const std::function<void()> &work);
