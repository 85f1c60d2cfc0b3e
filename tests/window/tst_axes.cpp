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

/// Interior lines that are shown; they must be the first ones, each with its label.
int interiorLines(const MainWindowProbe &probe)
{
    int count = 0;
    while (count < 20 && probe.axis_lines()[count].isVisible()
           && probe.axis_lbl()[count].isVisible())
        ++count;
    for (int i = count; i < 20; ++i)
        if (probe.axis_lines()[i].isVisible() || probe.axis_lbl()[i].isVisible())
            return -1;
    return count;
}

QString interiorText(const MainWindowProbe &probe, int line)
{
    return probe.axis_lbl()[line].text();
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

private:
    double half() const
    {
        return probe().axis_lbl()[0].font().pixelSize() / 2;
    }

private slots:
    void twentyTwoPairsLieInTheSceneUnderTheTraces()
    {
        fixture->open();
        const auto stack = stacked(*probe().Plot_Scene());
        const auto chart = stack.indexOf(probe().Plot_Chart());
        QVERIFY(chart >= 0);
        const auto pairs = allPairs(probe());
        QCOMPARE(pairs.size(), 22);
        for (const Pair &pair : pairs) {
            QCOMPARE(pair.line->scene(), probe().Plot_Scene());
            QCOMPARE(pair.label->scene(), probe().Plot_Scene());
            QCOMPARE(pair.line->zValue(), 0.0);
            const auto at = stack.indexOf(const_cast<QGraphicsLineItem *>(pair.line));
            QVERIFY(at >= 0 && at < chart);
            QCOMPARE(pair.label->brush(), probe().cust_axisX()->labelsBrush());
            QCOMPARE(pair.line->pen(), probe().cust_axisX()->gridLinePen());
        }
    }

    void titleAndStepLabelAreGray()
    {
        fixture->open();
        for (const QGraphicsSimpleTextItem *text :
             { &probe().chart_title(), &probe().cursor_step_lbl() }) {
            QCOMPARE(text->scene(), probe().Plot_Scene());
            QCOMPARE(text->brush(), QBrush(Qt::gray));
        }
        QVERIFY(probe().chart_title().font().bold());
    }

    void theGridOfTheFirstView()
    {
        fixture->open();
        QCOMPARE(interiorLines(probe()), 12);
        for (int i = 0; i < 12; ++i)
            QCOMPARE(interiorText(probe(), i), QString::number(2.5 * (i + 1), 'f', 1));
        QVERIFY(edgeShown(probe(), 0));
        QCOMPARE(probe().axis_0_lbl()[0].text(), QStringLiteral("0.0"));
        QVERIFY(!probe().axis_0_lbl()[1].isVisible());
        QVERIFY(!probe().axis_0_lines()[1].isVisible());
    }

    void linesAreAtTheirDistancesAndLabelsHalfALetterLeftOfThem()
    {
        fixture->open();
        window().scale_change(4);
        QCOMPARE(interiorLines(probe()), 10);
        // Steps of 50 m in a view of 500 m.
        const double step = double{ probe().trueWidth() } / 10;
        for (int i = 0; i < 10; ++i) {
            QVERIFY(qAbs(probe().axis_lines()[i].x() - (i + 1) * step) < 0.001);
            QVERIFY(qAbs(probe().axis_lbl()[i].x()
                         - (double{ probe().plotLeft() } + (i + 1) * step - half()))
                    < 0.001);
        }
        QCOMPARE(probe().axis_0_lines()[0].x(), 0.0);
        QCOMPARE(probe().axis_0_lbl()[0].x(), double{ probe().plotLeft() } - half());
        // A right edge of its own.
        window().setPlotRange(0, 238);
        QVERIFY(edgeShown(probe(), 1));
        QCOMPARE(probe().axis_0_lbl()[1].text(), QStringLiteral("29.8"));
        const double width = double{ probe().trueWidth() };
        QCOMPARE(probe().axis_0_lines()[1].x(), width);
        QCOMPARE(probe().axis_0_lbl()[1].x(), width + double{ probe().plotLeft() } - half());
        // A blank label under a line that is drawn.
        window().setPlotRange(-16, 234);
        QVERIFY(edgeShown(probe(), 0));
        QVERIFY(probe().axis_0_lbl()[0].text().isEmpty());
    }

    void theStepFollowsTheShorteningFactor()
    {
        fixture->open();
        window().KU_change(3.0);
        // 15.614 m across: 1.25 m a step, 12 whole intervals.
        QCOMPARE(interiorText(probe(), 0), QStringLiteral("1.3"));
        QCOMPARE(interiorText(probe(), 1), QStringLiteral("2.5"));
        QCOMPARE(interiorLines(probe()), 12);
    }

    void aPlotOfOnePixelOrNoneHasTheSameLabels()
    {
        fixture->open();
        for (const float width : { 1.0F, 0.0F }) {
            probe().trueWidth() = width;
            window().setXAxis();
            QCOMPARE(interiorLines(probe()), 12);
            QCOMPARE(interiorText(probe(), 11), QStringLiteral("30.0"));
            QVERIFY(probe().axis_lines()[11].x() <= double{ width });
        }
    }

    void withoutAShorteningFactorThereIsNoGrid()
    {
        fixture->open();
        probe().dist_coef() = 0.0;
        window().setXAxis();
        const auto pairs = allPairs(probe());
        for (const Pair &pair : pairs) {
            QVERIFY(!pair.line->isVisible());
            QVERIFY(!pair.label->isVisible());
        }
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
        QCOMPARE(interiorLines(probe()), 12);
    }

    void noLabelIsCutAtTheRightEdgeOfTheView()
    {
        fixture->open();
        bool wasMoved = false;
        for (const QSize size : { QSize(2560, 1440), QSize(1280, 800), QSize(800, 500) }) {
            window().resize(size);
            WindowFixture::settle();
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
            for (int scale = 0; scale <= 8; ++scale) {
                window().scale_change(scale);
                verifyLabels();
            }
            window().setPlotRange(0, 238);
            verifyLabels();
        }
        QVERIFY(wasMoved);
    }

    void theTitleIsAboveThePlot()
    {
        openOn({ TraceBuilder() });
        const QRectF plot
            = probe().Plot_Chart()->mapToScene(probe().Plot_Chart()->plotArea()).boundingRect();
        QCOMPARE(probe().chart_title().x(), plot.left() + 9.0);
        QCOMPARE(probe().chart_title().y(),
                 plot.top() - probe().chart_title().boundingRect().height() - 2.0);
        QCOMPARE(double{ probe().plotLeft() }, double{ static_cast<float>(plot.left()) });
    }
};

QTEST_MAIN(TestAxes)
#include "tst_axes.moc"
