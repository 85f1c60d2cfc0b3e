// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "curarrow.h"
#include "each.h"
#include "input_events.h"
#include "legendbutton.h"
#include "player.h"
#include "serieslayer.h"
#include "settingsdata.h"
#include "window_state.h"
#include "windowtest.h"

#include <QGraphicsScene>
#include <QOpenGLWidget>
#include <QPushButton>
#include <QtTest>

#include <functional>
#include <initializer_list>

using QtCharts::QAbstractSeries;

namespace {

constexpr int runLength = 60; ///< events without a grab between them
constexpr int moves = 60;
constexpr int stateCount = 6; ///< of the window in which the layer is compared, see setState

using W = MainWindow;
using P = MainWindowProbe;

/// A change that repaints more of the plot than a cursor step.
struct Change
{
    const char *name;
    void (*change)(W &window, const P &probe);
};

const std::vector<Change> changes{
    { "pan", [](W &w, const P &) { w.plotScroll(20); } },
    { "zoom", [](W &w, const P &) { w.scale_change(2); } },
    { "go to a cursor", [](W &w, const P &) { w.gotoCursor(W::CURSOR_B); } },
    { "horizontal shift", [](W &w, const P &) { w.H_Offset_change(16); } },
    { "vertical shift", [](W &w, const P &) { w.V_Offset_change(30); } },
    { "shortening factor", [](W &w, const P &) { w.KU_change(2.5); } },
    { "distances",
      [](W &w, const P &p) {
          p.dist_coef() *= 3.0;
          w.setXAxis();
      } },
    { "parameter dial", [](W &w, const P &) { w.paramSetup_slot(7); } },
    { "parameter", [](W &w, const P &) { w.paramSelect_slot(W::KU); } },
    { "select", [](W &w, const P &) { w.rfgSelect_slot(2); } },
    { "thick pen",
      [](W &w, const P &p) {
          p.rfg_ID() = 4;
          w.seriaIsSelected();
      } },
    { "no cursor", [](W &w, const P &) { w.cursorSelect_slot(W::DELTA); } },
    { "hide", [](W &w, const P &) { w.RFG_visibleToggle(1, false); } },
    { "hide and clear", [](W &w, const P &) { w.addremove_aux(1, false); } },
    { "master", [](W &w, const P &) { w.setMasterID(2); } },
    { "smooth", [](W &w, const P &p) { p.smooth_button()->click(), w.update(); } },
    { "difference", [](W &w, const P &p) { p.difference_button()->click(), w.update(); } },
    { "points",
      [](W &w, const P &p) {
          p.rfg_DATA()[2].offset += 20;
          w.load_rfg(2);
      } },
    { "raise", [](W &w, const P &p) { w.seriesUp(p.rfg_series()[1]); } },
    { "load", [](W &w, const P &p) { w.add_Selected_RFG(p.settingsData()->current_files[4], 0); } },
    { "load six", [](W &w, const P &) { w.show_AllSelected_RFGs(63); } },
    { "load three", [](W &w, const P &) { w.show_AllSelected_RFGs(7); } },
    { "clear", [](W &w, const P &) { w.remove_Selected_RFG(0); } },
    { "reset a trace", [](W &w, const P &) { w.resetCurrent_slot(3); } },
    { "reset all", [](W &w, const P &) { w.reset_slot(); } },
    { "active cursor", [](W &w, const P &) { w.cursorSelect_slot(W::CURSOR_B); } },
    { "both cursors", [](W &w, const P &) { w.cursors_update(); } },
    { "texts", [](W &w, const P &) { w.retranslateUi(); } },
    { "language",
      [](W &, const P &p) {
          p.settingsData()->current_language = QStringLiteral("ru_RU");
          p.settingsData()->updateSettings(1 << 3);
      } },
    { "background",
      [](W &w, const P &p) {
          p.Plot_Scene()->setBackgroundBrush(Qt::darkGreen);
          w.set_CSS();
      } },
    { "style sheet",
      [](W &w, const P &p) {
          p.settingsData()->current_CSS = QStringLiteral("QGraphicsView { border: 5px solid red }");
          w.set_CSS();
      } },
    { "grid",
      [](W &w, const P &p) {
          const QRectF plot = p.Plot_Chart()->plotArea();
          w.axisSetup(plot, plot.adjusted(0, 0, 0, 40));
      } },
    { "plot width",
      [](W &w, const P &p) {
          p.trueWidth() -= 30.0F;
          w.plotCorrection();
      } },
    { "window size", [](W &w, const P &) { w.resize(w.width() + 40, w.height() + 30); } },
    { "font",
      [](W &, const P &p) {
          QFont font = p.Plot_View()->font();
          font.setItalic(!font.italic());
          p.Plot_View()->setFont(font);
      } },
    { "palette",
      [](W &, const P &p) {
          QPalette palette;
          palette.setColor(QPalette::Base, Qt::darkRed);
          p.Plot_View()->setPalette(palette);
      } },
    { "viewport's palette",
      [](W &, const P &p) {
          QPalette palette;
          palette.setColor(QPalette::Base, Qt::darkRed);
          p.Plot_View()->viewport()->setPalette(palette);
      } },
};

/// Six traces of different steps, delays and shifts, so only some pairs have common columns.
QVector<TraceBuilder> unlikeTraces()
{
    QVector<TraceBuilder> traces;
    for (int number = 0; number < 6; ++number) {
        const auto echo = [number](int i) {
            const int ramp = (i * (number + 3)) % 97 - 48;
            return i % (40 + 7 * number) < 9 ? 70 - 8 * number : ramp / (number + 1);
        };
        const float step = number < 3 ? 1.25F : number < 5 ? 2.5F : 5.0F;
        traces.append(TraceBuilder()
                          .samples(echo)
                          .minstep(step)
                          .delay(quint32(number % 2 * 12))
                          .shiftY(qint16(number * 6 - 15))
                          .ku(1.3F + 0.1F * float(number)));
    }
    return traces;
}

/// Number of events after which the layer is compared, for each seed and scale. The environment
/// variable VELKOR_ACTIONS sets another number.
int comparedActions()
{
    const int wanted = qEnvironmentVariableIntValue("VELKOR_ACTIONS");
    return wanted >= stateCount ? wanted : 60;
}

QImage plotAt(const MainWindowProbe &probe, double scale)
{
    QWidget *viewport = probe.Plot_View()->viewport();
    QImage picture((QSizeF(viewport->size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::black);
    viewport->render(&picture);
    return picture;
}

void setMarks(const MainWindowProbe &probe, bool on)
{
    const auto all = probe.Plot_Chart()->series();
    for (QAbstractSeries *series : all) {
        if (series->type() != QAbstractSeries::SeriesTypeSpline) {
            series->setUseOpenGL(on);
            continue;
        }
        // The module keeps painting the curve that a spline had when it was marked.
        auto *spline = static_cast<MarkableSpline *>(series);
        const QVector<QPointF> points = qtcompat::pointsOf(*spline);
        spline->replace(QVector<QPointF>());
        spline->mark(on);
        spline->replace(points);
    }
}

/// The plot as the chart module paints it.
QImage modulePlotAt(const MainWindowProbe &probe, double scale)
{
    setMarks(probe, false);
    QImage picture = plotAt(probe, scale);
    setMarks(probe, true);
    return picture;
}

/// How the plot that the layer paints differs from the module's; empty if it does not.
QString differenceFromModule(const MainWindowProbe &probe, double scale)
{
    for (CurArrow *marker : { probe.cur_arrowA(), probe.cur_arrowB() })
        marker->cur_lbl.setOpacity(0.0);
    const QImage layer = plotAt(probe, scale);
    return differenceOf(layer, modulePlotAt(probe, scale));
}

/// Loads \a traces and sets one of the states: English or Russian; normal, difference or smoothed.
void setState(Player &player, const QStringList &traces, int state)
{
    player.reset();
    player.window().openFiles(traces);
    SettingsData &settings = *player.probe().settingsData();
    settings.current_language = state % 2 == 0 ? QStringLiteral("en_US") : QStringLiteral("ru_RU");
    settings.setTranslation();
    if (state / 2 % 3 == 1)
        input::click(player.probe().difference_button());
    if (state / 2 % 3 == 2)
        input::click(player.probe().smooth_button());
}

} // namespace

/// Compares the plot on the screen with a repainted window and with the painting of the chart
/// module. A grab repaints a window and hides stale pixels, so no test grabs before its end.
class TestSamePictures : public WindowTest
{
    Q_OBJECT

private:
    /// Opens the window with both cursors in the view.
    void openOnTraces()
    {
        openOn(unlikeTraces());
        window().cursorSelect_slot(MainWindow::CURSOR_B);
        window().cursorSetup_slot(90);
        window().cursorSelect_slot(MainWindow::CURSOR_A);
        window().cursorSetup_slot(40);
        WindowFixture::settle();
    }
    void moveCursorTo(std::initializer_list<int> columns)
    {
        for (const int column : columns) {
            window().cursorSetup_slot(column);
            WindowFixture::settle();
        }
    }
    /// A place in the plot that depends on \a number.
    QPoint place(int number) const
    {
        const QRect area = probe().Plot_Chart()->plotArea().toRect();
        return area.topLeft() + QPoint(number * 97 % area.width(), number * 61 % area.height());
    }

private slots:
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

    void cursorStepRepaintsOldAndNewPlaceOnly()
    {
        openOnTraces();
        for (const int column : { 41, 43, 42 }) {
            moveCursorTo({ column });
            int area = 0;
            for (const QRect &rect : probe().Plot_View()->exposedRegion())
                area += rect.width() * rect.height();
            const QSize view = viewport()->size();
            QVERIFY2(area > 0 && area < view.width() * view.height() / 4,
                     qPrintable(QString::number(area)));
        }
    }

    void nothingIsStaleAfterARunOfEvents()
    {
        for (unsigned seed = 1; seed <= 8; ++seed) {
            Player player;
            const Script script = randomScript(seed, runLength);
            for (const Event &event : script) {
                player.play(event);
                WindowFixture::settle();
            }
            QCOMPARE(staleOf(player.window()), QString());
        }
    }

    void nothingIsStaleAfterInputInAnySize()
    {
        struct Row
        {
            const char *name;
            std::function<void(int)> act; ///< called with the numbers from 0 on
            int times = moves;
        };
        each<Row>(
            { { "clicks", [this](int number) { input::clickAt(viewport(), place(number)); } },
              { "wheel",
                [this](int number) { input::turnWheel(viewport(), number % 20 < 13 ? 1 : -1); } },
              { "drag",
                [this](int number) {
                    if (number == 0)
                        input::press(viewport(), place(0));
                    else
                        input::move(viewport(), place(number), Qt::LeftButton);
                } },
              // An immediate repaint between the two moves makes the scene forget the old place of
              // the cursor.
              { "two moves during a repaint",
                [this](int) {
                    viewport()->update(QRect(350, 100, 40, 40));
                    window().cursorSetup_slot(251);
                    window().cursorSetup_slot(59);
                },
                1 } },
            [this](const Row &row) {
                for (const QSize size :
                     { QSize(800, 500), QSize(1000, 640), QSize(1280, 800), QSize(1900, 1000) }) {
                    openOn(unlikeTraces()).resize(size);
                    WindowFixture::settle();
                    for (int number = 0; number < row.times; ++number) {
                        row.act(number);
                        WindowFixture::settle();
                    }
                    input::release(viewport(), place(moves));
                    QCOMPARE(staleOf(window()), QString());
                }
            });
    }

    void cursorOutsideTheViewLeavesNoStalePixels()
    {
        openOnTraces();
        window().plotScroll(2000);
        moveCursorTo({ 50, 2100, 60, 2200, 2190 });
        QCOMPARE(staleOf(window()), QString());
    }

    void noChangeIsStaleWhenTheCursorMovesInTheSameFrame()
    {
        each(changes, [this](const Change &row) {
            openOnTraces();
            row.change(window(), probe());
            window().cursorSetup_slot(51);
            // A repaint can request a layout, and a layout a repaint.
            for (int turn = 0; turn < 3; ++turn)
                WindowFixture::settle();
            moveCursorTo({ 62, 73, 71 });
            QCOMPARE(staleOf(window()), QString());
        });
    }

    void layerPaintsWhatTheChartModulePaints()
    {
        QStringList traces;
        const auto unlike = unlikeTraces();
        for (int i = 0; i < unlike.size(); ++i)
            traces.append(fixture->trace(QStringLiteral("u%1.tdr").arg(i), unlike[i]));
        for (const unsigned seed : { 1U, 2U })
            for (const double scale : { 1.0, 1.5, 2.0 }) {
                Player player;
                player.chooseFrom(traces);
                const Script script = randomScript(seed, comparedActions());
                for (int i = 0; i < script.size(); ++i) {
                    // The script has equal parts, one per state. Events may change the state
                    if (i % (comparedActions() / stateCount) == 0)
                        setState(player, traces, i / (comparedActions() / stateCount));
                    player.play(script[i]);
                    WindowFixture::settle();
                    const QString difference = differenceFromModule(player.probe(), scale);
                    QVERIFY2(difference.isEmpty(),
                             qPrintable(QStringLiteral("seed %1, scale %2, event %3, %4: ")
                                            .arg(seed)
                                            .arg(scale)
                                            .arg(i)
                                            .arg(QString::fromLatin1(lineOf(script[i])))
                                        + difference));
                }
            }
    }

    void comparisonDetectsADifference()
    {
        QImage one(4, 3, QImage::Format_RGB32);
        one.fill(Qt::black);
        QImage other = one;
        QCOMPARE(differenceOf(one, other), QString());
        other.setPixel(2, 1, qRgb(0, 9, 0));
        QVERIFY(differenceOf(one, other)
                    .startsWith(QLatin1String("1 pixels differ by up to 9 within 2,1 1x1")));
        QCOMPARE(differenceOf(one, other, QRect(2, 1, 1, 1)), QString());
    }
};

QTEST_MAIN(TestSamePictures)
#include "tst_same_pictures.moc"
