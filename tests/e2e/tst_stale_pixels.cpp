// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"
#include "programtest.h"
#include "test_files.h"

#include <QtTest>

namespace {

constexpr QSize windowSize(1280, 800);
constexpr QRect insideOfThePlot(300, 200, 700, 300);
constexpr QRect clockArea(1048, 9, 223, 90);
constexpr int wheelUp = 4;
constexpr int notches = 40;

/// True when all pixels are equal, but for the letter beside the cursor at \a column: Qt rounds the
/// edges of an outlined letter differently from one paint to the next, by a few of 255.
bool areEqual(const QImage &one, const QImage &other, int column)
{
    constexpr int letterReach = 20;
    constexpr int letterRounding = 16;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const int allowed = qAbs(x - column) <= letterReach ? letterRounding : 0;
            if (apart(one.pixel(x, y), other.pixel(x, y)) > allowed)
                return false;
        }
    return one.size() == other.size();
}

} // namespace

/// Compares the screen after many moves of a cursor with the screen of a new program whose cursor
/// was moved to the same place at once.
class TestStalePixels : public ProgramTest
{
    Q_OBJECT

private:
    void startOnATrace()
    {
        writeFile(settingsFile(),
                  "[PrevFiles]\nStateIndex=1\nMasterId=0\nfile1=" VELKOR_SAMPLES_DIR
                  "/1-healthy-pair.tdr\n");
        start();
        screen->resizeWindow(title, windowSize);
        window = screen->waitForWindow(title);
        QCOMPARE(window.size(), windowSize);
    }

    /// Closes the viewer after a picture of its window.
    QImage lastPicture()
    {
        // At this place the pointer highlights no button.
        screen->moveTo(onScreen(QPoint(windowSize.width() / 2, windowSize.height() - 4)));
        const QImage picture = settledPicture(clockArea);
        closeViewer();
        return picture;
    }

private slots:
    void cursorLeavesNoStalePixels()
    {
        startOnATrace();
        const QPoint leftOfTheReflection(insideOfThePlot.left() + 100,
                                         insideOfThePlot.center().y());
        screen->click(onScreen(leftOfTheReflection));
        for (int notch = 0; notch < notches; ++notch)
            screen->click(onScreen(leftOfTheReflection), wheelUp);
        const QImage moved = lastPicture();
        const int column = cursorColumn(moved, insideOfThePlot);
        QVERIFY(column > leftOfTheReflection.x());

        startOnATrace();
        screen->click(onScreen(QPoint(column + 2, insideOfThePlot.center().y())));
        const QImage fresh = lastPicture();
        QCOMPARE(cursorColumn(fresh, insideOfThePlot), column);
        if (areEqual(moved, fresh, column))
            return;
        moved.save(QStringLiteral("moved.png"));
        fresh.save(QStringLiteral("fresh.png"));
        QFAIL(qPrintable(QStringLiteral("see moved.png and fresh.png in ") + QDir::currentPath()));
    }
};

QTEST_GUILESS_MAIN(TestStalePixels)
#include "tst_stale_pixels.moc"
