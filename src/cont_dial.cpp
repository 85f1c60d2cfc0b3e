// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"

#include "base/constants.h"
#include "calc/numeric.h"

#include <QPainter>

namespace {

constexpr double ringShare = 2.5; ///< height of the dial in radii of the ring
constexpr double captionShare = 0.5; ///< height of the caption as a share of the dial's
constexpr int fineTravel = 100; ///< from this travel on, a single step is a hundredth of a turn
constexpr int coarseTravel = 9; ///< above this travel, a single step is a tenth of a turn
constexpr int startPages = 10; ///< pages in a turn until the first setAccuracy
constexpr int stepsPerPage = 5;

int singleStepOf(int steps)
{
    if (steps >= fineTravel)
        return steps / fineTravel;
    return steps > coarseTravel ? steps / 10 : 1;
}

} // namespace

Cont_dial::Cont_dial(QWidget *parent)
    : QDial(parent)
{
    setRange(0, constants::dialSpeed);
    setSingleStep(maximum() / fineTravel);
    // Twice the page step of setAccuracy(100), on purpose: until the first setAccuracy the wrap
    // window is a tenth of a turn.
    setPageStep(maximum() / startPages);
    setWrapping(true);
    setNotchesVisible(true);
    connect(this, SIGNAL(sliderMoved(int)), this, SLOT(trueValue_slot(int)));
    connect(this, SIGNAL(sliderPressed()), this, SLOT(nullifier_slot()));
    connect(this, SIGNAL(sliderReleased()), this, SLOT(nullifier_slot()));
}

void Cont_dial::setText(const QString &text)
{
    titleText = text;
    repaint();
}

void Cont_dial::setIcon(const QPixmap &picture)
{
    icon = picture;
}

void Cont_dial::trueValue_slot(int value)
{
    const qint64 travel = maximum();
    const qint64 page = pageStep();
    qint64 sum = trueValue;
    if (oldValue >= travel - page && value <= page) {
        sum += travel;
        ++turn_count;
    }
    // On a very short dial one movement can be a wrap in both directions; they cancel out.
    if (oldValue <= page && value >= travel - page) {
        sum -= travel;
        --turn_count;
    }
    sum += qint64(value) - oldValue;
    if (sum < trueMin)
        sum = trueMin;
    if (sum > trueMax)
        sum = trueMax;
    trueValue = static_cast<int>(sum);
    oldValue = value;
    emit trueValueChanged(trueValue);
}

void Cont_dial::nullifier_slot()
{
    oldValue = value();
}

void Cont_dial::setAccuracy(int steps)
{
    const int travel = qMax(1, steps);
    setRange(0, travel);
    const int single = singleStepOf(travel);
    setSingleStep(single);
    setPageStep(travel / 10 >= single ? stepsPerPage * single : single);
}

void Cont_dial::paintEvent(QPaintEvent *event)
{
    QDial::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawText(textRect, Qt::AlignCenter, titleText);
    // The ring is invisible, on purpose.
    painter.setPen(Qt::NoPen);
    radius = calc::truncated(rect().height() / ringShare);
    painter.drawEllipse(rect().center() + QPoint(0, 1), radius, radius);
}

void Cont_dial::resizeEvent(QResizeEvent *event)
{
    // QDial::resizeEvent only repaints, and a resize repaints anyway.
    Q_UNUSED(event)
    const int captionHeight = calc::truncated(height() * captionShare);
    const QPoint corner = rect().center() - QPoint(width() / 2, captionHeight / 2);
    textRect = QRect(corner, QSize(width(), captionHeight));
}
