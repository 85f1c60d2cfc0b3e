// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "datetime_lbl.h"

#include <QDateTime>
#include <QTimer>

namespace {

constexpr int clockPeriod = 1000; ///< ms

} // namespace

DateTime_lbl::DateTime_lbl(QWidget *parent)
    : QLabel(parent)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &DateTime_lbl::showTime);
    timer->start(clockPeriod);
    setAlignment(Qt::AlignCenter);
    // The first timeout comes only after a period.
    showTime();
}

void DateTime_lbl::showTime()
{
    setText(QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy\n hh:mm:ss")));
}
