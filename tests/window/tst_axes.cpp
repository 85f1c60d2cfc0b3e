// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowactions.h"
#include "windowtest.h"

#include <QGraphicsScene>
#include <QtTest>

namespace {

struct Pair
{
    const QGraphicsLineItem *line;
    const QGraphicsSimpleTextItem *label;
};

QVector<Pair> allPairs(const MainWindowProbe &probe)
{
    QVector<Pair> pairs;
    for (int i = 0; i < 20; ++i)
        pairs.append({ &probe.axis_lines()[i], &probe.axis_lbl()[i] });
    for (int i = 0; i < 2; ++i)
        pairs.append({ &probe.axis_0_lines()[i], &probe.axis_0_lbl()[i] });
    return pairs;
}

/// Texts of the interior lines that are shown; they must be the first ones, each with its label.
QStringList interior(const MainWindowProbe &probe)
{
    QStringList texts;
    bool isBehindTheLast = false;
    for (int i = 0; i < 20; ++i) {
        const bool isShown = probe.axis_lines()[i].isVisible();
        if (isShown != probe.axis_lbl()[i].isVisible() || (isShown && isBehindTheLast))
            return { QStringLiteral("line %1").arg(i) };
        isBehindTheLast = !isShown;
        if (isShown)
            texts.append(probe.axis_lbl()[i].text());
    }
    return texts;
}

bool edgeShown(const MainWindowProbe &probe, int edge)
{
    return probe.axis_0_lines()[edge].isVisible() && probe.axis_0_lbl()[edge].isVisible();
}

} // namespace

/// The grid and its labels in the window. Which lines there are and what they say is tested with
/// calc::planGrid.
class TestAxes : public WindowTest
{
    Q_OBJECT

private slots:
    void gridAndTitleLieInTheSceneUnderTheTraces()
    {
        fixture->open();
        const auto stack = stacked(*probe().Plot_Scene());
        const auto chart = stack.indexOf(probe().Plot_Chart());
        QVERIFY(chart >= 0);
        const auto pairs = allPairs(probe());
        for (const Pair &pair : pairs) {
            QCOMPARE(pair.line->scene(), probe().Plot_Scene());
            QCOMPARE(pair.label->scene(), probe().Plot_Scene());
            QCOMPARE(pair.line->zValue(), 0.0);
            const auto at = stack.indexOf(const_cast<QGraphicsLineItem *>(pair.line));
            QVERIFY(at >= 0 && at < chart);
            QCOMPARE(pair.label->brush(), probe().cust_axisX()->labelsBrush());
            QCOMPARE(pair.line->pen(), probe().cust_axisX()->gridLinePen());
        }
        for (const QGraphicsSimpleTextItem *text :
             { &probe().chart_title(), &probe().cursor_step_lbl() }) {
            QCOMPARE(text->scene(), probe().Plot_Scene());
            QCOMPARE(text->brush(), QBrush(Qt::gray));
        }
        QVERIFY(probe().chart_title().font().bold());
    }

    void theGridFollowsTheShorteningFactor()
    {
        fixture->open();
        QStringList texts;
        for (int i = 1; i <= 12; ++i)
            texts.append(QString::number(2.5 * i, 'f', 1));
        QCOMPARE(interior(probe()), texts);
        QVERIFY(edgeShown(probe(), 0));
        QCOMPARE(probe().axis_0_lbl()[0].text(), QStringLiteral("0.0"));
        QVERIFY(!probe().axis_0_lbl()[1].isVisible());
        QVERIFY(!probe().axis_0_lines()[1].isVisible());
        // 15.614 m across: 1.25 m a step, 12 whole intervals.
        window().KU_change(3.0);
        QCOMPARE(interior(probe()).size(), 12);
        QCOMPARE(interior(probe()).mid(0, 2),
                 (QStringList{ QStringLiteral("1.3"), QStringLiteral("2.5") }));
    }

    void linesAreAtTheirDistancesAndLabelsHalfALetterLeftOfThem()
    {
        fixture->open();
        window().scale_change(4);
        QCOMPARE(interior(probe()).size(), 10);
        // Steps of 50 m in a view of 500 m.
        const auto width = [this] { return double{ probe().trueWidth() }; };
        const auto left = [this] {
            return double{ probe().plotLeft() } - probe().axis_lbl()[0].font().pixelSize() / 2;
        };
        for (int i = 0; i < 10; ++i) {
            const double place = (i + 1) * width() / 10;
            QVERIFY(qAbs(probe().axis_lines()[i].x() - place) < 0.001);
            QVERIFY(qAbs(probe().axis_lbl()[i].x() - left() - place) < 0.001);
        }
        QCOMPARE(probe().axis_0_lines()[0].x(), 0.0);
        QCOMPARE(probe().axis_0_lbl()[0].x(), left());
        // A right edge of its own.
        window().setPlotRange(0, 238);
        QVERIFY(edgeShown(probe(), 1));
        QCOMPARE(probe().axis_0_lbl()[1].text(), QStringLiteral("29.8"));
        QCOMPARE(probe().axis_0_lines()[1].x(), width());
        QCOMPARE(probe().axis_0_lbl()[1].x(), width() + left());
        // A blank label under a line that is drawn.
        window().setPlotRange(-16, 234);
        QVERIFY(edgeShown(probe(), 0));
        QVERIFY(probe().axis_0_lbl()[0].text().isEmpty());
    }

    void layingOutPutsLabelsInTheMiddleOfTheBandUnderThePlot()
    {
        fixture->open();
        QCOMPARE(probe().axis_lbl()[0].font().pixelSize(), 10);
        window().axisSetup(QRectF(74.5, 50.0, 400.0, 200.0), QRectF(0.0, 0.0, 500.0, 300.0));
        QCOMPARE(probe().plotLeft(), 74.5F);
        const auto pairs = allPairs(probe());
        for (const Pair &pair : pairs) {
            QCOMPARE(pair.line->line(), QLineF(74.5, 250.0, 74.5, 50.0));
            // 250 + (300 - 250) / 2 - 10 / 2.
            QCOMPARE(pair.label->y(), 270.0);
        }
        QCOMPARE(interior(probe()).size(), 12);
    }

    void noLabelIsCutAtTheRightEdgeOfTheView()
    {
        fixture->open();
        bool wasMoved = false;
        const auto verifyLabels = [&] {
            const auto pairs = allPairs(probe());
            for (const Pair &pair : pairs) {
                if (!pair.label->isVisible())
                    continue;
                const double right = pair.label->sceneBoundingRect().right();
                QVERIFY(right < viewport()->width() + 0.001);
                // Its own position stays, and it moves no farther than it must.
                const bool isMoved = !pair.label->transform().isIdentity();
                QVERIFY(!isMoved || right > viewport()->width() - 0.001);
                wasMoved = wasMoved || isMoved;
            }
        };
        for (const QSize size : { QSize(2560, 1440), QSize(1280, 800), QSize(800, 500) }) {
            window().resize(size);
            WindowFixture::settle();
            for (int scale = 0; scale <= 8; ++scale) {
                window().scale_change(scale);
                verifyLabels();
            }
            window().setPlotRange(0, 238);
            verifyLabels();
        }
        QVERIFY(wasMoved);
    }
};

QTEST_MAIN(TestAxes)
#include "tst_axes.moc"
