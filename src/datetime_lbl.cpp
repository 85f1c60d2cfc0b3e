// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "datetime_lbl.h"

#include "base/constants.h"

#include <QDateTime>
#include <QTimer>

DateTime_lbl::DateTime_lbl(QWidget *parent)
    : QLabel(parent)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &DateTime_lbl::showTime);
    timer->start(constants::clockPeriod);
    setAlignment(Qt::AlignCenter);
    // The first timeout comes only after a period.
    showTime();
}

void DateTime_lbl::showTime()
{
    setText(QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy\n hh:mm:ss")));
}
