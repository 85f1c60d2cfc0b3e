// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window_geometry.h"

#include <QDataStream>

namespace window_geometry {
namespace {

constexpr quint32 geometryMagic = 0x1D9D0CB;
constexpr quint16 newestVersion = 3;

/// A window may be larger than the present desktop: the screen that it was on may be gone, and
/// restoreGeometry brings it into view.
constexpr int largestDesktops = 4;
constexpr int largestSide = 32767; ///< pixels; the largest window of X11

struct Edges
{
    qint32 left = 0;
    qint32 top = 0;
    qint32 right = 0;
    qint32 bottom = 0;
};

QDataStream &operator>>(QDataStream &stream, Edges &edges)
{
    return stream >> edges.left >> edges.top >> edges.right >> edges.bottom;
}

bool fits(const Edges &edges, const QSize &largest)
{
    // In 64 bits: the edges of a damaged record can be 2^32 apart.
    const qint64 width = qint64{ edges.right } - edges.left + 1;
    const qint64 height = qint64{ edges.bottom } - edges.top + 1;
    return width > 0 && height > 0 && width <= largest.width() && height <= largest.height();
}

} // namespace

bool isPlausibleGeometry(const QByteArray &record, const QSize &desktop)
{
    QDataStream stream(record);
    const QSize largest = (largestDesktops * desktop).boundedTo({ largestSide, largestSide });
    quint32 magic = 0;
    quint16 major = 0;
    quint16 minor = 0;
    Edges frame;
    Edges normal;
    stream >> magic >> major >> minor >> frame >> normal;
    if (stream.status() != QDataStream::Ok || magic != geometryMagic || major < 1
        || major > newestVersion || !fits(frame, largest) || !fits(normal, largest))
        return false;
    qint32 screen = 0;
    quint8 maximized = 0;
    quint8 fullScreen = 0;
    stream >> screen >> maximized >> fullScreen;
    if (major >= 2) {
        qint32 screenWidth = 0;
        stream >> screenWidth;
    }
    Edges client = normal;
    if (major >= 3)
        stream >> client;
    return stream.status() == QDataStream::Ok && fits(client, largest);
}

bool isPlausibleState(const QByteArray &record)
{
    QByteArray expected = QByteArray::fromHex("000000ff 00000000 fd 00000000"
                                              "00000000 00000000"
                                              "00000004 00000004 00000008 00000008 fc 00000000");
    // The size of the central widget may differ: the layout sets it.
    constexpr int sizeAt = 13;
    constexpr int sizeBytes = 8;
    expected.replace(sizeAt, sizeBytes, record.mid(sizeAt, sizeBytes));
    return record == expected;
}

} // namespace window_geometry
