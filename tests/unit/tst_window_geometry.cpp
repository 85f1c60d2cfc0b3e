// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window_geometry.h"

#include <QSettings>
#include <QtEndian>
#include <QtTest>

namespace {

QByteArray factoryRecord(const char *key)
{
    return QSettings(QStringLiteral(":/ini/settings_default.ini"), QSettings::IniFormat)
        .value(QLatin1String(key))
        .toByteArray();
}

/// State of a window of 800 x 500 with no docks and no tool bars.
QByteArray savedState()
{
    static const QByteArray record = factoryRecord("WindowState/windowState");
    return record;
}

QByteArray factoryGeometry()
{
    static const QByteArray record = factoryRecord("WindowState/geometry");
    return record;
}

// Offsets of the frame, the normal and the client rectangle: left, top, right, bottom.
constexpr int rectangles[] = { 8, 24, 50 };

/// The factory geometry with one rectangle moved to the corner and resized.
QByteArray resized(int rectangle, qint32 width, qint32 height)
{
    QByteArray record = factoryGeometry();
    const qint32 edges[] = { 0, 0, width - 1, height - 1 };
    char *place = record.data() + rectangle;
    for (const qint32 edge : edges) {
        qToBigEndian(edge, place);
        place += sizeof edge;
    }
    return record;
}

} // namespace

class TestWindowGeometry : public QObject
{
    Q_OBJECT

private slots:
    void damagedByteIsRefusedUnlessItBelongsToTheSize()
    {
        constexpr int sizeBegin = 13;
        constexpr int sizeEnd = 21;
        for (int at = 0; at < savedState().size(); ++at) {
            for (const int mask : { 0x01, 0x10, 0x7F, 0x80, 0xFF }) {
                QByteArray damaged = savedState();
                damaged[at] = static_cast<char>(damaged[at] ^ mask);
                QVERIFY2(window_geometry::isPlausibleState(damaged)
                             == (at >= sizeBegin && at < sizeEnd),
                         qPrintable(QStringLiteral("byte %1 mask %2").arg(at).arg(mask)));
            }
        }
    }

    void recordsOfAnotherLengthAreNotPlausible()
    {
        QVERIFY(window_geometry::isPlausibleState(savedState()));
        for (int size = 0; size < factoryGeometry().size(); ++size)
            QVERIFY2(
                !window_geometry::isPlausibleGeometry(factoryGeometry().left(size), { 1920, 1080 }),
                qPrintable(QString::number(size)));
        for (int size = 0; size < savedState().size(); ++size)
            QVERIFY2(!window_geometry::isPlausibleState(savedState().left(size)),
                     qPrintable(QString::number(size)));
        QVERIFY(!window_geometry::isPlausibleState(savedState() + '\0'));
    }

    void rectangleMayBeFourTimesAsLargeAsTheDesktop()
    {
        QVERIFY(window_geometry::isPlausibleGeometry(factoryGeometry(), { 1920, 1080 }));
        for (const int rectangle : rectangles) {
            const auto isTaken = [rectangle](int width, int height, const QSize &desktop) {
                return window_geometry::isPlausibleGeometry(resized(rectangle, width, height),
                                                            desktop);
            };
            // Saved on a screen that is no longer there.
            QVERIFY(isTaken(3840, 2160, { 1920, 1080 }));
            QVERIFY(isTaken(4000, 2400, { 1000, 600 }));
            QVERIFY(!isTaken(4001, 2400, { 1000, 600 }));
            QVERIFY(!isTaken(4000, 2401, { 1000, 600 }));
            QVERIFY(isTaken(32767, 32767, { 20000, 20000 }));
            QVERIFY(!isTaken(32768, 32767, { 20000, 20000 }));
            QVERIFY(!isTaken(32767, 32768, { 20000, 20000 }));
            QVERIFY(isTaken(1, 1, { 1000, 600 }));
            QVERIFY(!isTaken(0, 1, { 1000, 600 }));
            QVERIFY(!isTaken(1, 0, { 1000, 600 }));
        }
    }

    void hugeOrInvertedRectangleIsNotPlausible()
    {
        for (const int rectangle : rectangles) {
            for (int edge = 0; edge < 4; ++edge) {
                for (const char byte : { '\x7F', '\x80' }) {
                    QByteArray damaged = factoryGeometry();
                    damaged[rectangle + 4 * edge] = byte;
                    QVERIFY2(!window_geometry::isPlausibleGeometry(damaged, { 1920, 1080 }),
                             qPrintable(QStringLiteral("%1 %2").arg(rectangle).arg(edge)));
                }
            }
        }
    }

    void recordsOfOlderQtVersionsArePlausibleAndNoOthers()
    {
        const QSize desktop(1920, 1080);
        const auto ofVersion = [](char version, int size) {
            QByteArray record = factoryGeometry().left(size);
            record[5] = version;
            return record;
        };
        QVERIFY(window_geometry::isPlausibleGeometry(ofVersion(3, 66), desktop));
        // Version 2 lacks the client rectangle, version 1 also the width of the screen.
        QVERIFY(window_geometry::isPlausibleGeometry(ofVersion(2, 50), desktop));
        QVERIFY(!window_geometry::isPlausibleGeometry(ofVersion(2, 49), desktop));
        QVERIFY(window_geometry::isPlausibleGeometry(ofVersion(1, 46), desktop));
        QVERIFY(!window_geometry::isPlausibleGeometry(ofVersion(1, 45), desktop));
        QVERIFY(!window_geometry::isPlausibleGeometry(ofVersion(0, 66), desktop));
        QVERIFY(!window_geometry::isPlausibleGeometry(ofVersion(4, 66), desktop));
        QByteArray other = factoryGeometry();
        other[0] = static_cast<char>(other[0] ^ 1);
        QVERIFY(!window_geometry::isPlausibleGeometry(other, desktop));
    }
};

QTEST_APPLESS_MAIN(TestWindowGeometry)
#include "tst_window_geometry.moc"
