// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "extras/exporting.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

inline QFileDialog &fileDialog(QDialog &dialog)
{
    return static_cast<QFileDialog &>(dialog);
}

/// Chooses the filter of \a format, as a click in the dialog does.
inline void chooseFormat(QDialog &dialog, extras::Format format)
{
    const QString filter = fileDialog(dialog).nameFilters().at(static_cast<int>(format));
    fileDialog(dialog).selectNameFilter(filter);
    emit fileDialog(dialog).filterSelected(filter);
}

inline void agree(QDialog &question)
{
    static_cast<QMessageBox &>(question).button(QMessageBox::Yes)->click();
}
