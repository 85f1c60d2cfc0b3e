// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"
#include "legendbutton.h"
#include "settingsdata.h"
#include "windowactions.h"
#include "windowstate.h"

#include <QGraphicsScene>
#include <QPushButton>
#include <QtTest>

#include <functional>

using Change = std::function<void(MainWindow &, const MainWindowProbe &)>;
Q_DECLARE_METATYPE(Change)

namespace {

// As many pixels as the toolkit may leave of an antialiased end beside what is painted anew.
constexpr int residue = 16;
constexpr int letterRounding = 64; ///< of 255, for the edges of an outlined letter

/// How many pixels of the screen are not those of the window painted anew.
int stalePixels(MainWindow &window)
{
    const QImage screen = screenOf(window);
    const QRegion letters = lettersOf(window);
    const QImage fresh = freshPictureOf(window);
    if (screen.size() != fresh.size())
        return screen.width() * screen.height();
    int found = 0;
    for (int y = 0; y < fresh.height(); ++y)
        for (int x = 0; x < fresh.width(); ++x) {
            const int distance = apart(screen.pixel(x, y), fresh.pixel(x, y));
            if (distance > letterRounding || (distance > 0 && !letters.contains(QPoint(x, y))))
                ++found;
        }
    return found;
}

} // namespace

/// The view paints the frames of a moving cursor over a picture of what lies under it; nobody may
/// see that.
class TestPlotView : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowFixture> fixture;
    int column = 40; ///< of the active cursor

    MainWindow &window() const
    {
        return fixture->window();
    }
    int framesFromPicture() const
    {
        return fixture->probe().Plot_View()->framesFromPicture();
    }
    void moveCursor()
    {
        column = 40 + (column - 40 + 11) % 150;
        window().cursorSetup_slot(column);
    }
    void stepCursor()
    {
        moveCursor();
        WindowFixture::settle();
    }
    void openOnTraces()
    {
        QVector<TraceBuilder> traces;
        for (int number = 0; number < constants::slotCount; ++number)
            traces.append(TraceBuilder()
                              .samples([number](int i) { return (i * (number + 3)) % 97 - 48; })
                              .shiftY(qint16(number * 6 - 15)));
        openWith(*fixture, traces);
        window().cursorSelect_slot(MainWindow::CURSOR_B);
        window().cursorSetup_slot(90);
        window().cursorSelect_slot(MainWindow::CURSOR_A);
        WindowFixture::settle();
    }
    void moveUntilThePictureIsUsed()
    {
        const int before = framesFromPicture();
        for (int step = 0; step < 10 && framesFromPicture() == before; ++step)
            stepCursor();
        QVERIFY(framesFromPicture() > before);
    }

private slots:
    void init()
    {
        fixture = std::make_unique<WindowFixture>();
        column = 40;
    }

    void cleanup()
    {
        fixture.reset();
    }

    void everyStepAfterTheSecondIsPaintedOverThePicture()
    {
        openOnTraces();
        moveUntilThePictureIsUsed();
        const int before = framesFromPicture();
        for (int step = 1; step <= 20; ++step) {
            stepCursor();
            QCOMPARE(framesFromPicture(), before + step);
            const int stale = stalePixels(window());
            QVERIFY2(stale <= residue, qPrintable(QString::number(stale)));
        }
    }

    void twoFramesAfterAChangeArePaintedInFull()
    {
        openOnTraces();
        moveUntilThePictureIsUsed();
        const int before = framesFromPicture();
        fixture->probe().Plot_View()->invalidate();
        stepCursor();
        stepCursor();
        QCOMPARE(framesFromPicture(), before);
        stepCursor();
        QCOMPARE(framesFromPicture(), before + 1);
    }

    void aFrameThatNobodyAnnouncedIsPaintedInFull()
    {
        openOnTraces();
        moveUntilThePictureIsUsed();
        const int before = framesFromPicture();
        fixture->probe().Plot_View()->viewport()->update();
        WindowFixture::settle();
        QCOMPARE(framesFromPicture(), before);
    }

    void theOtherCursorIsPaintedAsWell()
    {
        openOnTraces();
        moveUntilThePictureIsUsed();
        window().cursorSelect_slot(MainWindow::CURSOR_B);
        moveUntilThePictureIsUsed();
        QVERIFY(stalePixels(window()) <= residue);
        window().cursorSelect_slot(MainWindow::DELTA);
        window().rfgSelect_slot(3);
        window().cursorSelect_slot(MainWindow::CURSOR_A);
        moveUntilThePictureIsUsed();
        QVERIFY(stalePixels(window()) <= residue);
    }

    void aCursorOutOfSightDisturbsNothing()
    {
        openOnTraces();
        window().plotScroll(2000);
        WindowFixture::settle();
        for (int step = 0; step < 6; ++step) {
            stepCursor();
            QVERIFY(stalePixels(window()) <= residue);
        }
        QVERIFY(framesFromPicture() > 0);
    }

    void noChangeIsPaintedOverTheFormerPicture_data()
    {
        QTest::addColumn<Change>("change");
        const auto row = [](const char *name, Change change) { QTest::newRow(name) << change; };
        using W = MainWindow;
        using P = MainWindowProbe;
        row("pan", [](W &w, const P &) { w.plotScroll(20); });
        row("zoom", [](W &w, const P &) { w.scale_change(2); });
        row("go to a cursor", [](W &w, const P &) { w.gotoCursor(W::CURSOR_B); });
        row("horizontal shift", [](W &w, const P &) { w.H_Offset_change(16); });
        row("vertical shift", [](W &w, const P &) { w.V_Offset_change(30); });
        row("velocity factor", [](W &w, const P &) { w.KU_change(2.5); });
        row("distances", [](W &w, const P &p) {
            p.dist_coef() *= 3.0;
            w.setXAxis();
        });
        row("parameter dial", [](W &w, const P &) { w.paramSetup_slot(7); });
        row("parameter", [](W &w, const P &) { w.paramSelect_slot(W::KU); });
        row("select", [](W &w, const P &) { w.rfgSelect_slot(2); });
        row("thick pen", [](W &w, const P &p) {
            p.rfg_ID() = 4;
            w.seriaIsSelected();
        });
        row("hide", [](W &w, const P &) { w.RFG_visibleToggle(1, false); });
        row("hide and clear", [](W &w, const P &) { w.addremove_aux(1, false); });
        row("master", [](W &w, const P &) { w.setMasterID(2); });
        row("smooth", [](W &w, const P &p) { p.smooth_button()->click(), w.update(); });
        row("difference", [](W &w, const P &p) { p.difference_button()->click(), w.update(); });
        row("points", [](W &w, const P &p) {
            p.rfg_DATA()[2].offset += 20;
            w.load_rfg(2);
        });
        row("raise", [](W &w, const P &p) { w.seriesUp(p.rfg_series()[1]); });
        row("load",
            [](W &w, const P &p) { w.add_Selected_RFG(p.settingsData()->current_files[4], 0); });
        row("load six", [](W &w, const P &) { w.show_AllSelected_RFGs(constants::slotMask); });
        row("load three", [](W &w, const P &) { w.show_AllSelected_RFGs(7); });
        row("clear", [](W &w, const P &) { w.remove_Selected_RFG(0); });
        row("reset a trace", [](W &w, const P &) { w.resetCurrent_slot(3); });
        row("reset all", [](W &w, const P &) { w.reset_slot(); });
        row("active cursor", [](W &w, const P &) { w.cursorSelect_slot(W::CURSOR_B); });
        row("both cursors", [](W &w, const P &) { w.cursors_update(); });
        row("texts", [](W &w, const P &) { w.retranslateUi(); });
        row("language", [](W &, const P &p) {
            p.settingsData()->current_language = QStringLiteral("ru_RU");
            p.settingsData()->updateSettings(1 << 3);
        });
        row("background", [](W &w, const P &p) {
            p.Plot_Scene()->setBackgroundBrush(Qt::darkGreen);
            w.set_CSS();
        });
        row("style sheet", [](W &w, const P &p) {
            p.settingsData()->current_CSS
                = QStringLiteral("QGraphicsView { border: 5px solid red }");
            w.set_CSS();
        });
        row("grid", [](W &w, const P &p) {
            const QRectF plot = p.Plot_Chart()->plotArea();
            w.axisSetup(plot, plot.adjusted(0, 0, 0, 40));
        });
        row("plot width", [](W &w, const P &p) {
            p.trueWidth() -= 30.0F;
            w.plotCorrection();
        });
        row("window size", [](W &w, const P &) { w.resize(w.width() + 40, w.height() + 30); });
        row("font", [](W &, const P &p) {
            QFont font = p.Plot_View()->font();
            font.setItalic(!font.italic());
            p.Plot_View()->setFont(font);
        });
        row("palette", [](W &, const P &p) {
            QPalette palette;
            palette.setColor(QPalette::Base, Qt::darkRed);
            p.Plot_View()->setPalette(palette);
        });
        row("viewport's palette", [](W &, const P &p) {
            QPalette palette;
            palette.setColor(QPalette::Base, Qt::darkRed);
            p.Plot_View()->viewport()->setPalette(palette);
        });
    }

    void noChangeIsPaintedOverTheFormerPicture()
    {
        QFETCH(const Change, change);
        openOnTraces();
        moveUntilThePictureIsUsed();
        // The cursor moves before the change could be painted, so that both come in one frame.
        const int before = framesFromPicture();
        change(window(), fixture->probe());
        moveCursor();
        WindowFixture::settle();
        QCOMPARE(framesFromPicture(), before);
        for (int step = 0; step < 4; ++step) {
            for (int i = 0; i < 3; ++i)
                WindowFixture::settle();
            const int stale = stalePixels(window());
            QVERIFY2(stale <= residue, qPrintable(QString::number(stale)));
            stepCursor();
        }
        QVERIFY(framesFromPicture() > before);
    }
};

QTEST_MAIN(TestPlotView)
#include "tst_plot_view.moc"
