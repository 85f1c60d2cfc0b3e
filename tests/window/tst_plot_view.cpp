// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "legendbutton.h"
#include "settingsdata.h"
#include "windowactions.h"
#include "windowstate.h"
#include "windowtest.h"

#include <QGraphicsScene>
#include <QOpenGLWidget>
#include <QPushButton>
#include <QtTest>

#include <functional>

using Change = std::function<void(MainWindow &, const MainWindowProbe &)>;
Q_DECLARE_METATYPE(Change)

/// How the view of the plot repaints itself.
class TestPlotView : public WindowTest
{
    Q_OBJECT

private:
    void openOnTraces()
    {
        QVector<TraceBuilder> traces;
        for (int number = 0; number < constants::slotCount; ++number)
            traces.append(TraceBuilder()
                              .samples([number](int i) { return (i * (number + 3)) % 97 - 48; })
                              .shiftY(qint16(number * 6 - 15)));
        openOn(traces);
        window().cursorSelect_slot(MainWindow::CURSOR_B);
        window().cursorSetup_slot(90);
        window().cursorSelect_slot(MainWindow::CURSOR_A);
        window().cursorSetup_slot(40);
        WindowFixture::settle();
    }
    void verifyScreen()
    {
        const QImage screen = screenOf(window());
        const QString difference
            = differenceOf(screen, freshPictureOf(window()), lettersOf(window()));
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

private slots:
    void sceneAndViewHaveOneRectangleBeforeTheFirstResize()
    {
        MainWindow unshown;
        const MainWindowProbe p(unshown);
        QCOMPARE(p.Plot_Scene()->sceneRect(), QRectF(-0.5, -0.5, 400.0, 250.0));
        QCOMPARE(p.Plot_View()->sceneRect(), p.Plot_Scene()->sceneRect());
    }

    void noOpenGLWidgetIsEverShown()
    {
        openOnTraces();
        window().setSmoothFlag(true);
        window().resize(900, 600);
        WindowFixture::settle();
        QVERIFY(probe().axisX()->useOpenGL());
        QVERIFY(window().findChildren<QOpenGLWidget *>().isEmpty());
        const auto all = QApplication::allWidgets();
        for (const QWidget *widget : all)
            QVERIFY(qobject_cast<const QOpenGLWidget *>(widget) == nullptr || !widget->isVisible());
    }

    void aCursorStepRepaintsWhereTheCursorWasAndIs()
    {
        openOnTraces();
        for (const int column : { 41, 43, 42 }) {
            window().cursorSetup_slot(column);
            WindowFixture::settle();
            int area = 0;
            for (const QRect &rect : probe().Plot_View()->exposedRegion())
                area += rect.width() * rect.height();
            const QSize view = probe().Plot_View()->viewport()->size();
            QVERIFY2(area > 0 && area < view.width() * view.height() / 4,
                     qPrintable(QString::number(area)));
        }
    }

    void aCursorOutOfTheViewLeavesNothingBehind()
    {
        openOnTraces();
        window().plotScroll(2000);
        for (const int column : { 50, 2100, 60, 2200, 2190 }) {
            window().cursorSetup_slot(column);
            WindowFixture::settle();
        }
        verifyScreen();
    }

    void noChangeIsStaleWhenTheCursorMovesInTheSameFrame_data()
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
        row("shortening factor", [](W &w, const P &) { w.KU_change(2.5); });
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
        row("no cursor", [](W &w, const P &) { w.cursorSelect_slot(W::DELTA); });
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

    void noChangeIsStaleWhenTheCursorMovesInTheSameFrame()
    {
        QFETCH(const Change, change);
        openOnTraces();
        change(window(), probe());
        window().cursorSetup_slot(51);
        // A repaint can ask for a layout, and that for a repaint.
        for (int turn = 0; turn < 3; ++turn)
            WindowFixture::settle();
        for (const int column : { 62, 73, 71 }) {
            window().cursorSetup_slot(column);
            WindowFixture::settle();
        }
        verifyScreen();
    }
};

QTEST_MAIN(TestPlotView)
#include "tst_plot_view.moc"
