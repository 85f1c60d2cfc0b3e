// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtualscreen.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr QSize windowSize(1280, 800);
constexpr QRect insideOfThePlot(300, 200, 700, 300);
constexpr QRect clockArea(1048, 9, 223, 90);
constexpr int wheelUp = 4;
constexpr int notches = 40;
const QString viewer = QStringLiteral("^Velkor$");

bool isYellow(QRgb colour)
{
    return qRed(colour) > 200 && qGreen(colour) > 200 && qBlue(colour) < 120;
}

/// The last column of the plot in \a window that is yellow from top to bottom, which is the line of
/// the active cursor; -1 without one.
int cursorColumn(const QImage &window)
{
    for (int x = insideOfThePlot.right(); x >= insideOfThePlot.left(); --x) {
        int yellow = 0;
        for (int y = insideOfThePlot.top(); y <= insideOfThePlot.bottom(); ++y)
            yellow += isYellow(window.pixel(x, y)) ? 1 : 0;
        if (yellow > insideOfThePlot.height() * 9 / 10)
            return x;
    }
    return -1;
}

/// True when no pixel differs visibly. Qt rounds the edges of an outlined letter differently from
/// one paint to the next, by a few of 255; a stale line differs by 50 and more.
bool looksLike(const QImage &one, const QImage &other)
{
    constexpr int letterRounding = 16;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            if (qAbs(qRed(a) - qRed(b)) > letterRounding
                || qAbs(qGreen(a) - qGreen(b)) > letterRounding
                || qAbs(qBlue(a) - qBlue(b)) > letterRounding)
                return false;
        }
    return one.size() == other.size();
}

} // namespace

/// What the X server shows of the program after many moves of a cursor, against a program that has
/// just been started and whose cursor was moved there at once.
class TestStalePixels : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    VirtualScreen m_screen{ QSize(1400, 900) };
    QProcess m_viewer;
    QRect m_window;

    QString program() const
    {
        return m_folder.filePath(QStringLiteral("velkor"));
    }
    QPoint inWindow(QPoint at) const
    {
        return m_window.topLeft() + at;
    }
    void start()
    {
        QFile settings(m_folder.filePath(QStringLiteral("settings_current.ini")));
        QVERIFY(settings.open(QIODevice::WriteOnly));
        settings.write("[PrevFiles]\nStateIndex=1\nMasterId=0\nfile1=" VELKOR_SAMPLES_DIR
                       "/1-healthy-pair.tdr\n");
        settings.close();
        m_viewer.setProcessEnvironment(m_screen.environment());
        m_viewer.setProcessChannelMode(QProcess::ForwardedChannels);
        m_viewer.start(program(), QStringList());
        QVERIFY(m_viewer.waitForStarted());
        QVERIFY(!m_screen.waitForWindow(viewer).isEmpty());
        m_screen.resizeWindow(viewer, windowSize);
        m_window = m_screen.waitForWindow(viewer);
        QCOMPARE(m_window.size(), windowSize);
    }
    void close()
    {
        m_screen.closeWindow(viewer);
        QVERIFY(m_viewer.waitForFinished(10000));
        QCOMPARE(m_viewer.exitCode(), 0);
    }
    /// The window without the clock, as soon as two pictures in a row are the same.
    QImage settledPicture() const
    {
        // Where the pointer highlights no button.
        m_screen.moveTo(inWindow(QPoint(windowSize.width() / 2, windowSize.height() - 4)));
        QImage last;
        m_screen.waitUntil([&](const QImage &now) {
            QImage inside = now.copy(m_window).convertToFormat(QImage::Format_RGB32);
            QPainter(&inside).fillRect(clockArea, Qt::black);
            const bool settled = inside == last;
            last = inside;
            return settled;
        });
        return last;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(VELKOR_PROGRAM), program()));
    }

    void cleanupTestCase()
    {
        if (m_viewer.state() != QProcess::NotRunning) {
            m_viewer.kill();
            m_viewer.waitForFinished();
        }
    }

    void aCursorLeavesNothingBehind()
    {
        start();
        const QPoint leftOfTheReflection(insideOfThePlot.left() + 100,
                                         insideOfThePlot.center().y());
        m_screen.click(inWindow(leftOfTheReflection));
        for (int notch = 0; notch < notches; ++notch)
            m_screen.click(inWindow(leftOfTheReflection), wheelUp);
        const QImage moved = settledPicture();
        close();
        const int column = cursorColumn(moved);
        QVERIFY(column > leftOfTheReflection.x());

        start();
        m_screen.click(inWindow(QPoint(column + 1, insideOfThePlot.center().y())));
        const QImage fresh = settledPicture();
        close();
        QCOMPARE(cursorColumn(fresh), column);
        if (looksLike(moved, fresh))
            return;
        const QDir folder(QCoreApplication::applicationDirPath());
        moved.save(folder.filePath(QStringLiteral("moved.png")));
        fresh.save(folder.filePath(QStringLiteral("fresh.png")));
        QFAIL(qPrintable(QStringLiteral("see moved.png and fresh.png in ") + folder.path()));
    }
};

QTEST_GUILESS_MAIN(TestStalePixels)
#include "tst_stale_pixels.moc"
