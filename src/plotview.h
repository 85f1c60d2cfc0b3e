// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QRegion>

/// Scene of the plot. Ignores wheel events: no item handles them, and the default hit test takes
/// 20 % of a cursor step.
class PlotScene : public QGraphicsScene
{
    Q_OBJECT

public:
    using QGraphicsScene::QGraphicsScene;

protected:
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;
};

/// View of the plot. Provides the region that its items have to paint.
class PlotView : public QGraphicsView
{
    Q_OBJECT

public:
    using QGraphicsView::QGraphicsView;

    /// Region of the viewport that the current or the last paint event repaints.
    const QRegion &exposedRegion() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;

private:
    QRegion m_exposed;
};
