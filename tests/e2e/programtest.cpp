// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "programtest.h"

#include <QFile>
#include <QPainter>
#include <QSet>
#include <QtTest>

namespace {

/// More than 100 once the traces, the grid and the texts are painted.
int coloursIn(const QImage &picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    return static_cast<int>(colours.size());
}

bool isYellow(QRgb colour)
{
    return qRed(colour) > 200 && qGreen(colour) > 200 && qBlue(colour) < 120;
}

} // namespace

const QString ProgramTest::title = QStringLiteral("^Velkor$");

ProgramTest::ProgramTest()
{
    useScreen(QSize(1400, 900));
}

QString ProgramTest::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString ProgramTest::settingsFile() const
{
    return path(QStringLiteral("settings_current.ini"));
}

void ProgramTest::useScreen(QSize size, int dotsPerInch)
{
    screen = std::make_unique<VirtualScreen>(size, dotsPerInch);
    environment = screen->environment();
}

void ProgramTest::start(const QString &script)
{
    viewer.setProcessEnvironment(environment);
    viewer.setProcessChannelMode(QProcess::ForwardedChannels);
    viewer.start(QStringLiteral("sh"),
                 { QStringLiteral("-c"), script, path(QStringLiteral("velkor")) });
    QVERIFY(viewer.waitForStarted());
    window = screen->waitForWindow(title);
    QVERIFY(!window.isEmpty());
    screen->moveTo(window.bottomLeft() + QPoint(window.width() / 2, -3));
}

void ProgramTest::closeViewer()
{
    screen->closeWindow(title);
    verifyThatItEnds();
}

void ProgramTest::verifyThatItEnds()
{
    QVERIFY(viewer.waitForFinished(60000));
    QCOMPARE(viewer.exitStatus(), QProcess::NormalExit);
    QCOMPARE(viewer.exitCode(), 0);
}

QPoint ProgramTest::onScreen(QPoint place) const
{
    return window.topLeft() + place;
}

QRect ProgramTest::onScreen(const QRect &area) const
{
    return area.translated(window.topLeft());
}

QImage ProgramTest::part(const QRect &area) const
{
    return screen->picture().copy(onScreen(area));
}

QImage ProgramTest::settledPicture(const QRect &clock) const
{
    QImage last;
    screen->waitUntil([&](const QImage &now) {
        QImage inside = now.copy(window).convertToFormat(QImage::Format_RGB32);
        QPainter(&inside).fillRect(clock, Qt::black);
        const bool settled = coloursIn(inside) > 100 && inside == last;
        last = inside;
        return settled;
    });
    return last;
}

void ProgramTest::initTestCase()
{
    QVERIFY(QFile::copy(QStringLiteral(VELKOR_PROGRAM), path(QStringLiteral("velkor"))));
}

void ProgramTest::cleanup()
{
    if (QTest::currentTestFailed())
        screen->picture().save(QStringLiteral("failed.png"));
    viewer.kill();
    viewer.waitForFinished();
}

int cursorColumn(const QImage &picture, const QRect &area)
{
    for (int x = area.left(); x <= area.right(); ++x) {
        int yellow = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
            yellow += isYellow(picture.pixel(x, y)) ? 1 : 0;
        if (yellow > area.height() * 9 / 10)
            return x;
    }
    return -1;
}
