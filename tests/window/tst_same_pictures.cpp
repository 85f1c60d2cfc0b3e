// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "curarrow.h"
#include "each.h"
#include "inputevents.h"
#include "player.h"
#include "serieslayer.h"
#include "settingsdata.h"
#include "windowstate.h"
#include "windowtest.h"

using QtCharts::QAbstractSeries;

namespace {

constexpr int runLength = 60; ///< events without a grab between them
constexpr int moves = 60;
constexpr int stateCount = 6; ///< of the window in which the layer is compared, see setState

/// Six traces of unlike steps, delays and shifts, so that grids have common columns in some pairs
/// only.
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

/// How many events the layer is compared after, for each seed and scale. The environment variable
/// VELKOR_ACTIONS asks for more.
int comparedActions()
{
    const int wanted = qEnvironmentVariableIntValue("VELKOR_ACTIONS");
    return wanted >= stateCount ? wanted : 60;
}

/// Compares what the screen shows of \a window with a new picture of it.
void verifyScreen(MainWindow &window)
{
    const QImage screen = screenOf(window);
    const QString difference = differenceOf(screen, freshPictureOf(window), lettersOf(window));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
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
    const QImage picture = plotAt(probe, scale);
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

/// The plot on the screen is that of a window painted again, and that which the chart module would
/// paint itself. A grab repaints a window and hides what is stale, so no test grabs before its end.
class TestSamePictures : public WindowTest
{
    Q_OBJECT

private:
    /// A place in the plot, another one for each \a number.
    QPoint place(int number) const
    {
        const QRect plot = probe().Plot_Chart()->plotArea().toRect();
        return plot.topLeft() + QPoint(number * 97 % plot.width(), number * 61 % plot.height());
    }

    /// Opens the window in several sizes, calls \a act, and looks for what is stale.
    template <typename Act> void verifyAfter(const Act &act)
    {
        struct Row
        {
            const char *name;
            QSize size;
        };
        each<Row>({ { "800 x 500", { 800, 500 } },
                    { "1000 x 640", { 1000, 640 } },
                    { "1280 x 800", { 1280, 800 } },
                    { "1900 x 1000", { 1900, 1000 } } },
                  [&](const Row &row) {
                      openOn(unlikeTraces()).resize(row.size);
                      WindowFixture::settle();
                      act();
                      WindowFixture::settle();
                      verifyScreen(window());
                  });
    }

private slots:
    void nothingIsStaleAfterARunOfEvents()
    {
        for (unsigned seed = 1; seed <= 8; ++seed) {
            Player player;
            const Script script = randomScript(seed, runLength);
            for (const Event &event : script) {
                player.play(event);
                WindowFixture::settle();
            }
            verifyScreen(player.window());
        }
    }

    void nothingIsStaleAfterClicks()
    {
        verifyAfter([this] {
            for (int number = 0; number < moves; ++number) {
                input::clickAt(viewport(), place(number));
                WindowFixture::settle();
            }
        });
    }

    void nothingIsStaleAfterTurnsOfTheWheel()
    {
        verifyAfter([this] {
            for (int number = 0; number < moves; ++number) {
                input::turnWheel(viewport(), number % 20 < 13 ? 1 : -1);
                WindowFixture::settle();
            }
        });
    }

    void nothingIsStaleAfterADrag()
    {
        verifyAfter([this] {
            input::press(viewport(), place(0));
            for (int number = 1; number <= moves; ++number) {
                input::move(viewport(), place(number), Qt::LeftButton);
                WindowFixture::settle();
            }
            input::release(viewport(), place(moves));
        });
    }

    // Anything that repaints the window at once between the two moves makes the scene forget where
    // the cursor was.
    void aPendingRepaintOfThePlotLosesNoCursor()
    {
        verifyAfter([this] {
            viewport()->update(QRect(350, 100, 40, 40));
            window().cursorSetup_slot(251);
            window().cursorSetup_slot(59);
        });
    }

    void theLayerPaintsWhatTheChartModulePaints()
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
                    // Each state for an equal part of the script, whatever the events change in it
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

    void aDifferenceIsFound()
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
