// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "curarrow.h"

#include <QBrush>
#include <QFont>
#include <QGraphicsScene>
#include <QPen>
#include <QtTest>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>

class TestCurArrow : public QObject
{
    Q_OBJECT

private slots:
    void markerHasTheLetterOfItsCursor()
    {
        QCOMPARE(CurArrow(1).cur_lbl.text(), QStringLiteral("A"));
        QCOMPARE(CurArrow(2).cur_lbl.text(), QStringLiteral("B"));
        QCOMPARE(CurArrow(0).cur_lbl.text(), QString());
        QCOMPARE(CurArrow(3).cur_lbl.text(), QString());
        QCOMPARE(int(CurArrow(2).id), 2);
    }

    void newMarkerIsTwoTrianglesAndALetter()
    {
        const CurArrow marker(1);
        const QPolygonF triangle({ QPointF(-3, 0), QPointF(3, 0), QPointF(0, 12) });
        QCOMPARE(marker.cur_arrow1.polygon(), triangle);
        QCOMPARE(marker.cur_arrow2.polygon(), triangle);
        QCOMPARE(marker.cur_arrow1.scale(), 1.0);
        QCOMPARE(marker.cur_arrow2.scale(), -1.0);
        const QAbstractGraphicsShapeItem *const parts[]
            = { &marker.cur_arrow1, &marker.cur_arrow2, &marker.cur_lbl };
        QCOMPARE(marker.group->childItems().size(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(marker.group->childItems().at(i), parts[i]);
            QCOMPARE(parts[i]->zValue(), 10.0);
            QCOMPARE(parts[i]->pen().style(), Qt::NoPen);
        }
    }

    void brushStyleSetsThePenWidthOfTheLetter()
    {
        for (const Qt::BrushStyle style : { Qt::SolidPattern, Qt::NoBrush }) {
            CurArrow marker(1);
            marker.setColor(Qt::green);
            marker.setBr_style(style);
            QCOMPARE(marker.color, QColor(Qt::green));
            QCOMPARE(marker.cur_lbl.pen(),
                     QPen(QBrush(Qt::green), style == Qt::SolidPattern ? 1.0 : 0.0));
            // The triangles stay filled.
            for (const QBrush &brush :
                 { marker.cur_arrow1.brush(), marker.cur_arrow2.brush(), marker.cur_lbl.brush() })
                QCOMPARE(brush, QBrush(Qt::green, Qt::SolidPattern));
            QCOMPARE(marker.cur_arrow1.pen().style(), Qt::NoPen);
        }
    }

    void markerIsOnTheEdgesOfThePlot()
    {
        CurArrow marker(1);
        marker.setRect(QRectF(30.75, 20, 400, 250));
        QCOMPARE(marker.field, QRectF(30.75, 20, 400, 250));
        QCOMPARE(marker.cur_arrow1.pos(), QPointF(30.75, 20));
        QCOMPARE(marker.cur_arrow2.pos(), QPointF(30.75, 270));
        const qreal height = marker.cur_lbl.boundingRect().height();
        QVERIFY(height > 0);
        QCOMPARE(marker.cur_lbl.pos(), QPointF(30.75, 270 - height));
        QCOMPARE(marker.pos0, 31);
    }

    void firstColumnIsTruncatedTowardsZero()
    {
        const auto firstColumn = [](qreal left) {
            CurArrow marker(1);
            marker.setRect(QRectF(left, 0, 1, 1));
            marker.moveX(1.0F);
            return std::isfinite(marker.pos) ? marker.pos0 : INT_MIN;
        };
        QCOMPARE(firstColumn(10.0), 11);
        QCOMPARE(firstColumn(10.9), 11);
        QCOMPARE(firstColumn(-2.5), -1);
        QCOMPARE(firstColumn(1e300), INT_MAX);
        QCOMPARE(firstColumn(std::numeric_limits<qreal>::quiet_NaN()), 0);
    }

    void markerFollowsItsColumn()
    {
        CurArrow marker(2);
        marker.setRect(QRectF(30, 20, 500, 250));
        marker.setXRes(250);
        QCOMPARE(marker.cur_arrow1.x(), 30.0);
        marker.moveX(100.0F);
        QCOMPARE(marker.pos, 231.0F);
        QCOMPARE(marker.cur_arrow1.pos(), QPointF(231, 20));
        QCOMPARE(marker.cur_arrow2.pos(), QPointF(231, 270));
        marker.moveX(-1.0F);
        QCOMPARE(marker.pos, 29.0F);
    }

    void letterChangesSidesWhereItNoLongerFits()
    {
        CurArrow marker(1);
        marker.setRect(QRectF(0, 0, 500, 250));
        marker.setXRes(500);
        const QRectF letter = marker.cur_lbl.boundingRect();
        const int width = static_cast<int>(letter.width());
        QVERIFY(width > 2);
        // Scene x of the marker is column + 1; the letter fits while 2 w + x - centre < 500.
        const int last = static_cast<int>(std::ceil(500 - 2 * width + letter.center().x() - 1)) - 1;
        for (const int column : { 0, 250, last, last + 1, 500 }) {
            marker.moveX(static_cast<float>(column));
            const qreal centred = static_cast<qreal>(marker.pos) - letter.center().x();
            QCOMPARE(marker.cur_lbl.x(), centred + (column <= last ? width : -width));
            QCOMPARE(marker.cur_lbl.y(), 250 - letter.height());
        }
    }

    void withoutColumnsTheMarkerIsOnTheFirst()
    {
        CurArrow marker(1);
        marker.moveX(5.0F);
        QCOMPARE(marker.pos, 0.0F);
        marker.setRect(QRectF(30, 20, 500, 250));
        marker.moveX(77.0F);
        QCOMPARE(marker.pos, 31.0F);
        QCOMPARE(marker.cur_arrow1.x(), 31.0);
        marker.setXRes(1);
        marker.moveX(std::numeric_limits<float>::infinity());
        QCOMPARE(marker.pos, 31.0F);
        marker.moveX(std::numeric_limits<float>::quiet_NaN());
        QCOMPARE(marker.pos, 31.0F);
    }

    void visibilityDoesNotChangeTheGroup()
    {
        CurArrow marker(1);
        marker.vis_state(false);
        QVERIFY(!marker.cur_arrow1.isVisible() && !marker.cur_arrow2.isVisible());
        QVERIFY(!marker.cur_lbl.isVisible());
        QVERIFY(marker.group->isVisible());
        QCOMPARE(marker.visible, false);
        marker.vis_state(true);
        QVERIFY(marker.cur_arrow1.isVisible() && marker.cur_lbl.isVisible());
        QCOMPARE(marker.visible, false);
    }

    void letterHasThreeQuartersOfTheFontSize()
    {
        const auto points = [](float size) {
            CurArrow marker(1);
            marker.setFont(size);
            return marker.cur_lbl.font().pointSize();
        };
        QCOMPARE(points(12.96F), 9);
        QCOMPARE(points(0.0F), 1);
        QCOMPARE(points(-20.0F), 1);
        QCOMPARE(points(std::numeric_limits<float>::quiet_NaN()), 1);
    }

    void scalesAccumulate()
    {
        CurArrow marker(1);
        for (const qreal expected : { 2.0, 4.0, 8.0 }) {
            marker.setScale(2.0F);
            QCOMPARE(static_cast<qreal>(marker.scale), expected);
            QCOMPARE(marker.cur_arrow1.scale(), expected);
            QCOMPARE(marker.cur_arrow2.scale(), -expected);
            QCOMPARE(marker.cur_lbl.scale(), 1.0);
        }
    }

    void deletedMarkerLeavesItsScene()
    {
        QGraphicsScene scene;
        auto marker = std::make_unique<CurArrow>(1);
        scene.addItem(marker->group);
        QCOMPARE(scene.items().size(), 4);
        marker.reset();
        QCOMPARE(scene.items().size(), 0);
    }
};

QTEST_MAIN(TestCurArrow)
#include "tst_curarrow.moc"
