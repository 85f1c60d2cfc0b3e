// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QDial>
#include <QPixmap>
#include <QRectF>
#include <QString>

/// Endless dial: a wrapping QDial whose turns are summed into one clamped counter.
///
/// Only drags change the counter; wheel, keys and the jump of a click do not. The owner writes the
/// counter and its limits directly; this emits no signal.
class Cont_dial : public QDial
{
    Q_OBJECT

public:
    /// 100 steps per turn, single step 1, page step 10, counter 0 within 0 to 100.
    explicit Cont_dial(QWidget *parent = nullptr);

    /// Sets the caption and repaints at once, together with all pending repaints of the window:
    /// call it last in a chain of changes.
    void setText(const QString &text);

    /// Stores \a picture in \c icon, which is never painted.
    void setIcon(const QPixmap &picture);

    int trueValue = 0; ///< the counter, in steps
    int turn_count = 0; ///< whole turns, +1 forward, -1 backward; not corrected by the clamp
    int trueMin = 0; ///< lower clamp of \c trueValue
    int trueMax = 100; ///< upper clamp of \c trueValue; wins when it is below \c trueMin
    bool zeroOff = false; ///< flag of the owner: the counter starts at 0; not read here
    QString titleText; ///< caption in the middle of the dial
    QColor ring_color = Qt::black; ///< colour of the ring, which is painted without a pen
    QPixmap icon; ///< never painted
    int oldValue = 0; ///< raw position before the current movement
    QRectF textRect; ///< rectangle of the caption; set on resize
    int radius = 0; ///< radius of the ring in pixels; set on paint

signals:
    /// The user turned the dial; \a value is the clamped counter, also when it did not change.
    void trueValueChanged(int value);

public slots:
    /// Adds the difference between the raw position \a value and the last one to the counter. A
    /// jump from the last page of travel to the first, or back, counts as a wrap.
    void trueValue_slot(int value);

    /// Sets \c oldValue to the current raw position.
    void nullifier_slot();

    /// Sets the raw travel of one turn to \a steps, and single and page step to match. Anything
    /// below 1 counts as 1, because a wrapping dial divides by its travel.
    void setAccuracy(int steps);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};
