// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "programtest.h"
#include "tracebuilder.h"

#include <QtTest>

#include <cmath>

namespace {

// Places in the window at its first size of 800 x 500.
constexpr QPoint filesButton(76, 90);
constexpr QRect plot(203, 99, 425, 252);
constexpr QPoint settingsButton(723, 91);
constexpr QRect filesCaption(20, 80, 112, 20);
constexpr QRect distanceReadout(160, 28, 100, 16);
constexpr QRgb firstColour = 0xFF00FF00;
constexpr QRgb secondColour = 0xFF00FFFF;

int count(const QImage &picture, QRgb colour)
{
    int pixels = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            pixels += picture.pixel(x, y) == colour ? 1 : 0;
    return pixels;
}

} // namespace

/// One session of a user with real mouse and key events, and a second start, which restores it.
class TestEndToEnd : public ProgramTest
{
    Q_OBJECT

private:
    QString trace(int number) const
    {
        return path(QStringLiteral("trace %1.tdr").arg(number));
    }

    bool waitForChange(const QRect &area, const QImage &before) const
    {
        return screen->waitUntil(
            [&](const QImage &now) { return now.copy(onScreen(area)) != before; });
    }

    bool waitForBothTraces() const
    {
        return screen->waitUntil([this](const QImage &now) {
            const QImage shown = now.copy(onScreen(plot));
            return count(shown, firstColour) > 100 && count(shown, secondColour) > 50;
        });
    }

    /// Waits for the cursor at \a column of the screen, within three pixels.
    bool waitForCursor(int column) const
    {
        return screen->waitUntil([&](const QImage &now) {
            const int found = cursorColumn(now, onScreen(plot));
            return found >= 0 && std::abs(found - column) <= 3;
        });
    }

    void openTwoFiles()
    {
        // A reflection upwards in the first trace, downwards in the second.
        const auto bump = [](int from, int height) {
            return [=](int i) { return i >= from && i < from + 40 ? height : 0; };
        };
        TraceBuilder().minstep(5.0F).samples(bump(100, 90)).write(trace(1));
        TraceBuilder().minstep(5.0F).samples(bump(150, -90)).write(trace(2));
        const QString dialog = QStringLiteral("Select RFG files to open");
        screen->click(onScreen(filesButton));
        QVERIFY(!screen->waitForWindow(dialog).isEmpty());
        screen->type(QStringLiteral("\"%1\" \"%2\"").arg(trace(1), trace(2)));
        screen->key(QStringLiteral("Return"));
        QVERIFY(screen->waitUntilGone(dialog));
        QVERIFY(waitForBothTraces());
    }

    void moveTheCursor()
    {
        const QImage before = part(distanceReadout);
        const QPoint target = onScreen(QPoint(plot.left() + 200, plot.center().y()));
        screen->drag(onScreen(QPoint(plot.left() + 40, plot.center().y())), target);
        QVERIFY(waitForCursor(target.x()));
        QVERIFY(waitForChange(distanceReadout, before));
#ifdef VELKOR_EXTRAS
        // By ten samples of two pixels.
        screen->key(QStringLiteral("shift+comma"));
        QVERIFY(waitForCursor(target.x() - 20));
#endif
    }

    void switchToRussian()
    {
        const QImage english = part(filesCaption);
        screen->click(onScreen(settingsButton));
        const QRect dialog = screen->waitForWindow(QStringLiteral("^Settings$"));
        QVERIFY(!dialog.isEmpty());
        // The language box is clicked: "OK" has the focus, and the number of back-tabs would depend
        // on the style.
        screen->click(dialog.topLeft() + QPoint(dialog.width() / 3, dialog.height() / 6));
        screen->key(QStringLiteral("Down"));
        screen->key(QStringLiteral("Return"));
        QTest::qWait(300);
        screen->key(QStringLiteral("Return"));
        QVERIFY(screen->waitUntilGone(QStringLiteral("^Settings$")));
        QVERIFY(waitForChange(filesCaption, english));
    }

private slots:
    void sessionIsRestoredAtTheNextStart()
    {
        start();
        QCOMPARE(window.size(), QSize(800, 500));
        QCOMPARE(count(part(plot), firstColour), 0);
        openTwoFiles();
        moveTheCursor();
        switchToRussian();
        const QImage russianFiles = part(filesCaption);
        closeViewer();

        start();
        QVERIFY(waitForBothTraces());
        QCOMPARE(part(filesCaption), russianFiles);
        closeViewer();
    }
};

QTEST_GUILESS_MAIN(TestEndToEnd)
#include "tst_endtoend.moc"
