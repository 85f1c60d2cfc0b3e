// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

/// A label with the local date and, below it, the time; updated every second.
class DateTime_lbl : public QLabel
{
    Q_OBJECT

public:
    explicit DateTime_lbl(QWidget *parent = nullptr);

public slots:
    /// Shows the current date and time. The line with the time starts with a blank.
    void showTime();
};
