// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QDial>
#include <QPixmap>
#include <QRectF>
#include <QString>

/// A dial without ends: a wrapping QDial whose turns are summed into one clamped counter.
///
/// Only a hand on the dial counts (drags; not the wheel, not the keys, not the jump of a click).
/// The owner writes the counter and its limits directly; such writes emit nothing.
class Cont_dial : public QDial
{
    Q_OBJECT

public:
    /// Starts with 100 steps a turn, single step 1, page step 10, counter 0 within 0 to 100.
    explicit Cont_dial(QWidget *parent = nullptr);

    /// Sets the caption in the middle of the dial and paints it at once, together with every
    /// repaint that waits in the window: call it last in a chain of changes.
    void setText(const QString &text);

    /// Keeps \a picture in \c icon. Nothing paints it.
    void setIcon(const QPixmap &picture);

    int trueValue = 0; ///< the counter, in steps; the owner may write it at any time
    int turn_count = 0; ///< whole turns, +1 forward, -1 backward; not corrected by the clamp
    int trueMin = 0; ///< lower clamp of \c trueValue
    int trueMax = 100; ///< upper clamp of \c trueValue; wins when it is below \c trueMin
    bool zeroOff = false; ///< the owner's note that the counter starts at 0; not read here
    QString titleText; ///< caption in the middle of the dial
    QColor ring_color = Qt::black; ///< colour of the ring, which is painted without a pen
    QPixmap icon; ///< kept for the owner, never painted
    int oldValue = 0; ///< raw position of the step before
    QRectF textRect; ///< where the caption is drawn; follows the size of the dial
    int radius = 0; ///< of the ring, in pixels; follows the height of the dial

signals:
    /// A hand turned the dial; \a value is the clamped counter, also when the clamp kept it.
    void trueValueChanged(int value);

public slots:
    /// Adds the way from the last raw position to \a value, which a drag brought, to the counter.
    /// A jump from the last page of travel to the first, or back, is a wrap; a faster one is a
    /// plain movement.
    void trueValue_slot(int value);

    /// Takes the present raw position as the start of the next movement.
    void nullifier_slot();

    /// Sets the raw travel of one turn to \a steps, and single and page step to match. Anything
    /// below 1 counts as 1, because a wrapping dial divides by its travel.
    void setAccuracy(int steps);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};
