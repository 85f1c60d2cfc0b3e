// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "curarrow.h"
#include "hand.h"
#include "serieslayer.h"
#include "session.h"
#include "windowfixture.h"
#include "windowstate.h"

#include <QtTest>

using QtCharts::QAbstractSeries;

namespace {

constexpr int runLength = 40; ///< actions without a grab between them
constexpr int moves = 60;

/// How many actions the layer is compared after, for each seed and scale. The environment variable
/// VELKOR_ACTIONS asks for more.
int comparedActions()
{
    const int wanted = qEnvironmentVariableIntValue("VELKOR_ACTIONS");
    return wanted > 0 ? wanted : Session::round();
}

} // namespace

/// The plot on the screen is that of a window painted again, and that which the chart module would
/// paint itself. A grab repaints a window and hides what is stale, so no test grabs before its end.
class TestSamePictures : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowFixture> fixture;

    const MainWindowProbe &probe() const
    {
        return fixture->probe();
    }
    QWidget *viewport() const
    {
        return probe().Plot_View()->viewport();
    }
    void openOn(QSize size)
    {
        WindowFixture::writePreviousRun(sessionTraces(*fixture));
        fixture->open().resize(size);
        WindowFixture::settle();
    }
    /// A place in the plot, another one for each \a number.
    QPoint place(int number) const
    {
        const QRect plot = probe().Plot_Chart()->plotArea().toRect();
        return plot.topLeft() + QPoint(number * 97 % plot.width(), number * 61 % plot.height());
    }
    void verifyScreen() const
    {
        const QImage screen = screenOf(fixture->window());
        const QString difference
            = differenceOf(screen, freshPictureOf(fixture->window()), lettersOf(fixture->window()));
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
    QImage plotAt(double scale) const
    {
        QImage picture((QSizeF(viewport()->size()) * scale).toSize(), QImage::Format_RGB32);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::black);
        viewport()->render(&picture);
        return picture;
    }
    /// The plot as the chart module paints it.
    QImage modulePlotAt(double scale) const
    {
        setMarks(false);
        const QImage picture = plotAt(scale);
        setMarks(true);
        return picture;
    }
    void setMarks(bool on) const
    {
        const auto all = probe().Plot_Chart()->series();
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
    static void addSizes()
    {
        QTest::addColumn<QSize>("size");
        for (const QSize size :
             { QSize(800, 500), QSize(1000, 640), QSize(1280, 800), QSize(1900, 1000) })
            QTest::addRow("%d x %d", size.width(), size.height()) << size;
    }

private slots:
    void init()
    {
        fixture = std::make_unique<WindowFixture>();
    }

    void cleanup()
    {
        fixture.reset();
    }

    void nothingIsStaleAfterARunOfActions_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 8; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void nothingIsStaleAfterARunOfActions()
    {
        QFETCH(const quint32, seed);
        Session session(fixture->open(), sessionTraces(*fixture), seed);
        for (int action = 0; action < runLength; ++action) {
            session.act();
            WindowFixture::settle();
        }
        verifyScreen();
    }

    void nothingIsStaleAfterClicks_data()
    {
        addSizes();
    }

    void nothingIsStaleAfterClicks()
    {
        QFETCH(const QSize, size);
        openOn(size);
        for (int number = 0; number < moves; ++number) {
            hand::press(viewport(), place(number));
            hand::release(viewport(), place(number));
            WindowFixture::settle();
        }
        verifyScreen();
    }

    void nothingIsStaleAfterTurnsOfTheWheel_data()
    {
        addSizes();
    }

    void nothingIsStaleAfterTurnsOfTheWheel()
    {
        QFETCH(const QSize, size);
        openOn(size);
        for (int number = 0; number < moves; ++number) {
            hand::turnWheel(viewport(), number % 20 < 13 ? 1 : -1);
            WindowFixture::settle();
        }
        verifyScreen();
    }

    void nothingIsStaleAfterADrag_data()
    {
        addSizes();
    }

    void nothingIsStaleAfterADrag()
    {
        QFETCH(const QSize, size);
        openOn(size);
        hand::press(viewport(), place(0));
        for (int number = 1; number <= moves; ++number) {
            hand::move(viewport(), place(number), Qt::LeftButton);
            WindowFixture::settle();
        }
        hand::release(viewport(), place(moves));
        WindowFixture::settle();
        verifyScreen();
    }

    void aPendingRepaintOfThePlotLosesNoCursor_data()
    {
        addSizes();
    }

    // Anything that repaints the window at once between the two moves makes the scene forget where
    // the cursor was.
    void aPendingRepaintOfThePlotLosesNoCursor()
    {
        QFETCH(const QSize, size);
        openOn(size);
        viewport()->update(QRect(350, 100, 40, 40));
        fixture->window().cursorSetup_slot(251);
        fixture->window().cursorSetup_slot(59);
        WindowFixture::settle();
        verifyScreen();
    }

    void theLayerPaintsWhatTheChartModulePaints_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<double>("scale");
        for (const quint32 seed : { 1U, 2U })
            for (const double scale : { 1.0, 1.5, 2.0 })
                QTest::addRow("seed %u, scale %g", seed, scale) << seed << scale;
    }

    void theLayerPaintsWhatTheChartModulePaints()
    {
        QFETCH(const quint32, seed);
        QFETCH(const double, scale);
        Session session(fixture->open(), sessionTraces(*fixture), seed);
        for (CurArrow *marker : { probe().cur_arrowA(), probe().cur_arrowB() })
            marker->cur_lbl.setOpacity(0.0);
        for (int number = 0; number < comparedActions(); ++number) {
            const QString action = session.act();
            WindowFixture::settle();
            const QImage layer = plotAt(scale);
            const QString difference = differenceOf(layer, modulePlotAt(scale));
            QVERIFY2(
                difference.isEmpty(),
                qPrintable(QStringLiteral("action %1, %2: ").arg(number).arg(action) + difference));
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
