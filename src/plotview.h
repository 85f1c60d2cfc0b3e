// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPixmap>
#include <QTransform>

/// The scene of the plot. None of its items wants the wheel, so it does not look for the one that
/// lies under the pointer: that would cost a fifth of a cursor step.
class PlotScene : public QGraphicsScene
{
    Q_OBJECT

public:
    using QGraphicsScene::QGraphicsScene;

protected:
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;
};

/// The view of the plot. It paints as any view does, but for the frames in which nothing but the
/// active cursor moved: for those it keeps a picture of all that lies under that cursor, and paints
/// only what lies above anew, where the cursor was and is. A step then costs a third of a repaint.
///
/// Nothing tells the view by itself that the picture is out of date. Whoever changes anything in
/// the plot but the place of the active cursor calls invalidate().
class PlotView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit PlotView(QWidget *parent = nullptr);

    /// Anything may have changed: the next frames are painted as by any view, and the picture is
    /// made anew when only cursors have moved for a while.
    void invalidate();

    /// The active cursor moved, and nothing else since the last invalidate(). Its two series are
    /// the last ones of \a chart, the others lie under them. Holds for the next frame.
    void cursorMoved(const QGraphicsItem *chart);

    /// How many frames were painted over the picture so far.
    int framesFromPicture() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawItems(QPainter *painter, int count, QGraphicsItem *items[],
                   const QStyleOptionGraphicsItem options[]) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    using Items = QList<QGraphicsItem *>;

    /// Sees to it that the picture is one of all that lies under the cursor. False where there is
    /// no such picture, because nothing of the cursor is in sight.
    bool takePicture();
    int firstAbove(const Items &items) const;
    bool pictureShows(const Items &below) const;
    void makePicture(const Items &below);
    void paintItems(QPainter &painter, const Items &items, QPoint corner) const;
    QTransform transformInWindow() const;

    const QGraphicsItem *m_chart
        = nullptr; ///< of a frame in which only the cursor moved, else null
    int m_framesToWait;
    QPixmap m_picture; ///< of the whole viewport, opaque; null when out of date
    QTransform m_pictureTransform; ///< of the scene in the window, when the picture was made
    Items m_inPicture; ///< only compared: some of them may be gone
    Items m_above; ///< what lies over the picture, while it is painted
    bool m_overPicture = false; ///< while a frame is painted over the picture
    int m_framesFromPicture = 0;
};
