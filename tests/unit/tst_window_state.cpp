// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window_geometry.h"

#include <QtEndian>
#include <QtTest>

namespace {

// Of a window 800 x 500 with no docks and no tool bars.
QByteArray savedState()
{
    return QByteArray::fromHex("000000ff00000000fd0000000000000320000001f4"
                               "00000004000000040000000800000008fc00000000");
}

QByteArray factoryGeometry()
{
    return QByteArray::fromHex("01d9d0cb0003000000000228000000e500000557000002fe0000023000000103"
                               "0000054f000002f6000000000000000007800000023000000103"
                               "0000054f000002f6");
}

} // namespace

class TestWindowState : public QObject
{
    Q_OBJECT

private slots:
    void aSavedStateIsPlausible()
    {
        QCOMPARE(savedState().size(), 42);
        QVERIFY(calc::isPlausibleState(savedState()));
    }

    void anyDamagedByteButThoseOfTheSizeIsNoticed()
    {
        constexpr int sizeBegin = 13;
        constexpr int sizeEnd = 21;
        for (int at = 0; at < savedState().size(); ++at) {
            for (const int mask : { 0x01, 0x10, 0x7F, 0x80, 0xFF }) {
                QByteArray damaged = savedState();
                damaged[at] = static_cast<char>(damaged[at] ^ mask);
                QVERIFY2(calc::isPlausibleState(damaged) == (at >= sizeBegin && at < sizeEnd),
                         qPrintable(QStringLiteral("byte %1 mask %2").arg(at).arg(mask)));
            }
        }
    }

    void aStateOfAnotherLengthIsNotPlausible()
    {
        QVERIFY(!calc::isPlausibleState(QByteArray()));
        for (int size = 0; size < savedState().size(); ++size)
            QVERIFY2(!calc::isPlausibleState(savedState().left(size)),
                     qPrintable(QString::number(size)));
        QVERIFY(!calc::isPlausibleState(savedState() + '\0'));
    }

    void aStateWithDocksIsNotPlausible()
    {
        // One dock on side 0x7F000000, which the toolkit would take as an index.
        QVERIFY(!calc::isPlausibleState(QByteArray::fromHex("000000ff00000000fd000000017f000000"
                                                            "0000000100000001fa")
                                        + QByteArray(40, '\0')));
    }

    void theFactoryGeometryFitsItsScreenAndNoSmallerOne()
    {
        QCOMPARE(factoryGeometry().size(), 66);
        QVERIFY(calc::isPlausibleGeometry(factoryGeometry(), { 1920, 1080 }));
        // The inside must fit; the frame of 816 x 538 may overhang.
        QVERIFY(calc::isPlausibleGeometry(factoryGeometry(), { 800, 500 }));
        QVERIFY(!calc::isPlausibleGeometry(factoryGeometry(), { 799, 500 }));
        QVERIFY(!calc::isPlausibleGeometry(factoryGeometry(), { 800, 499 }));
        QByteArray wideFrame = factoryGeometry();
        const auto setFrameWidth = [&wideFrame](qint32 width) {
            constexpr int frameLeft = 552;
            qToBigEndian(frameLeft + width - 1, wideFrame.data() + 16);
        };
        setFrameWidth(800 + 64);
        QVERIFY(calc::isPlausibleGeometry(wideFrame, { 800, 500 }));
        setFrameWidth(800 + 65);
        QVERIFY(!calc::isPlausibleGeometry(wideFrame, { 800, 500 }));
    }

    void aHugeOrTurnedRectangleIsNotPlausible()
    {
        // Frame, normal and client rectangle: four edges each.
        for (const int rectangle : { 8, 24, 50 }) {
            for (int edge = 0; edge < 4; ++edge) {
                for (const char byte : { '\x7F', '\x80' }) {
                    QByteArray damaged = factoryGeometry();
                    damaged[rectangle + 4 * edge] = byte;
                    QVERIFY2(!calc::isPlausibleGeometry(damaged, { 1920, 1080 }),
                             qPrintable(QStringLiteral("%1 %2").arg(rectangle).arg(edge)));
                }
            }
        }
    }

    void theFormsOfOlderToolkitsArePlausibleAndNoOthers()
    {
        const QSize desktop(1920, 1080);
        const auto ofVersion = [](char version, int size) {
            QByteArray record = factoryGeometry().left(size);
            record[5] = version;
            return record;
        };
        QVERIFY(calc::isPlausibleGeometry(ofVersion(3, 66), desktop));
        // Without the inside of the window, and before that without the width of the screen.
        QVERIFY(calc::isPlausibleGeometry(ofVersion(2, 50), desktop));
        QVERIFY(!calc::isPlausibleGeometry(ofVersion(2, 49), desktop));
        QVERIFY(calc::isPlausibleGeometry(ofVersion(1, 46), desktop));
        QVERIFY(!calc::isPlausibleGeometry(ofVersion(1, 45), desktop));
        QVERIFY(!calc::isPlausibleGeometry(ofVersion(0, 66), desktop));
        QVERIFY(!calc::isPlausibleGeometry(ofVersion(4, 66), desktop));
        QByteArray other = factoryGeometry();
        other[0] = static_cast<char>(other[0] ^ 1);
        QVERIFY(!calc::isPlausibleGeometry(other, desktop));
    }

    void aCutGeometryIsNotPlausible()
    {
        for (int size = 0; size < factoryGeometry().size(); ++size)
            QVERIFY2(!calc::isPlausibleGeometry(factoryGeometry().left(size), { 1920, 1080 }),
                     qPrintable(QString::number(size)));
    }
};

QTEST_APPLESS_MAIN(TestWindowState)
#include "tst_window_state.moc"
