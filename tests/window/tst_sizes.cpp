// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "curarrow.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowactions.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

void resizeTo(const WindowFixture &fixture, int width, int height)
{
    fixture.window().resize(width, height);
    WindowFixture::settle();
}

/// Everything that is derived from the window's size.
struct Sizes
{
    explicit Sizes(const MainWindowProbe &probe)
        : base(probe.font_size())
        , widget(probe.gain_button()->font().pointSize())
        , title(probe.chart_title().font().pointSize())
        , grid(probe.axis_lbl()[19].font().pixelSize())
        , delta(probe.delta_lbl()->font().pointSize())
        , navigation(probe.curB_nav_button()->font().pointSize())
        , slotIcon(probe.selected_rfg()[5]->iconSize().width())
        , parameterIcon(probe.KU_button()->iconSize().width())
        , letter(probe.cur_arrowB()->cur_lbl.font().pointSize())
        , triangle(probe.cur_arrowA()->cur_arrow1.scale())
    {
    }

    float base;
    int widget;
    int title;
    int grid;
    int delta;
    int navigation;
    int slotIcon;
    int parameterIcon;
    int letter;
    double triangle;
};

} // namespace

class TestSizes : public QObject
{
    Q_OBJECT

private slots:
    void fontsAndIconsFollowTheWindow_data()
    {
        QTest::addColumn<QSize>("window");
        QTest::addColumn<double>("base");
        QTest::addColumn<int>("widget");
        QTest::addColumn<int>("title");
        QTest::addColumn<int>("grid");
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("navigation");
        QTest::addColumn<int>("slotIcon");
        QTest::addColumn<int>("parameterIcon");
        QTest::addColumn<int>("letter");
        QTest::newRow("800 x 500")
            << QSize(800, 500) << 9.0 << 9 << 8 << 10 << 18 << 13 << 27 << 18 << 6;
        QTest::newRow("1280 x 720")
            << QSize(1280, 720) << 12.96 << 12 << 11 << 12 << 25 << 19 << 38 << 25 << 9;
        QTest::newRow("1920 x 1080")
            << QSize(1920, 1080) << 19.44 << 19 << 12 << 19 << 38 << 29 << 58 << 38 << 14;
        // 15/16 of 801 is 750.9: whole pixels count.
        QTest::newRow("801 x 900")
            << QSize(801, 900) << 13.5 << 13 << 12 << 13 << 27 << 20 << 40 << 27 << 10;
    }

    void fontsAndIconsFollowTheWindow()
    {
        QFETCH(QSize, window);
        QFETCH(double, base);
        WindowFixture fixture;
        fixture.open();
        resizeTo(fixture, window.width(), window.height());
        QCOMPARE(fixture.window().size(), window);
        const MainWindowProbe &probe = fixture.probe();
        const Sizes sizes(probe);
        QCOMPARE(sizes.base, static_cast<float>(base));
        QTEST(sizes.widget, "widget");
        QTEST(sizes.title, "title");
        QTEST(sizes.grid, "grid");
        QTEST(sizes.delta, "delta");
        QTEST(sizes.navigation, "navigation");
        QTEST(sizes.slotIcon, "slotIcon");
        QTEST(sizes.parameterIcon, "parameterIcon");
        QTEST(sizes.letter, "letter");
        // The same for all of a kind.
        QCOMPARE(probe.cursor_step_lbl().font().pointSize(), sizes.title);
        QCOMPARE(probe.axis_0_lbl()[1].font().pixelSize(), sizes.grid);
        QCOMPARE(probe.scroll_left_button()->iconSize().width(), sizes.slotIcon);
        QCOMPARE(probe.settings_button()->iconSize().width(), sizes.parameterIcon);
    }

    void theChartReachesBeyondItsView()
    {
        WindowFixture fixture;
        fixture.open();
        for (const QSize size : { QSize(800, 500), QSize(1000, 700) }) {
            resizeTo(fixture, size.width(), size.height());
            const MainWindowProbe &probe = fixture.probe();
            const QSize view = probe.Plot_View()->size();
            QCOMPARE(probe.Plot_Chart()->size(), QSizeF(view.width() + 20.5, view.height() + 20.0));
            QCOMPARE(probe.Plot_Chart()->pos(), QPointF(-10.25, -10.25));
            QCOMPARE(double{ probe.trueWidth() }, probe.Plot_Chart()->plotArea().width());
            QVERIFY(probe.trueWidth() > 300.0F);
            QCOMPARE(probe.Plot_Scene()->sceneRect(), probe.Plot_View()->sceneRect());
        }
    }

    void theMarkersFollowThePlot()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder() });
        window.cursorSetup_slot(125);
        resizeTo(fixture, 1280, 720);
        const MainWindowProbe &probe = fixture.probe();
        const QRectF plot
            = probe.Plot_Chart()->mapToScene(probe.Plot_Chart()->plotArea()).boundingRect();
        QCOMPARE(probe.cur_arrowA()->field, plot);
        QVERIFY(qAbs(probe.cur_arrowA()->cur_arrow1.x() - plot.center().x()) < 2.0);
        QCOMPARE(probe.cur_arrowA()->cur_arrow1.y(), plot.top());
        QCOMPARE(probe.cur_arrowA()->cur_arrow2.y(), plot.bottom());
        QVERIFY(qAbs(probe.cur_arrowA()->cur_arrow1.scale() - 12.96 / 9.0) < 1e-5);
    }

    void aHundredTripsToTheLargestSizeAndBackLeaveAllAsItWas()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        resizeTo(fixture, 800, 500);
        const Sizes first(probe);
        for (int trip = 0; trip < 100; ++trip) {
            resizeTo(fixture, 3840, 2160);
            QCOMPARE(probe.font_size(), 38.88F);
            resizeTo(fixture, 800, 500);
        }
        QCOMPARE(fixture.window().size(), QSize(800, 500));
        const Sizes last(probe);
        QCOMPARE(last.base, first.base);
        QCOMPARE(last.widget, first.widget);
        QCOMPARE(last.title, first.title);
        QCOMPARE(last.grid, first.grid);
        QCOMPARE(last.delta, first.delta);
        QCOMPARE(last.navigation, first.navigation);
        QCOMPARE(last.slotIcon, first.slotIcon);
        QCOMPARE(last.parameterIcon, first.parameterIcon);
        QCOMPARE(last.letter, first.letter);
        // A product of two hundred floats.
        QVERIFY2(qAbs(last.triangle - first.triangle) < 1e-4,
                 qPrintable(QString::number(last.triangle)));
    }
};

QTEST_MAIN(TestSizes)
#include "tst_sizes.moc"
