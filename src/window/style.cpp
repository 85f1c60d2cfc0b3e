// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/style_text.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QDir>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QInputDialog>

void MainWindow::set_CSS()
{
    // The store keeps the text as it was read; only what the toolkit would open is looked at here.
    const QString sheet = style_text::withoutPipes(settingsData->current_CSS);
    setStyleSheet(sheet);
    input_dialog->setStyleSheet(sheet);
    // The plot is near-black whatever the sheet says; it comes back so in difference mode too.
    m_brush = QBrush(QColor::fromRgba(constants::normalBackground), Qt::SolidPattern);
    Plot_Chart->setBackgroundBrush(m_brush);
    m_brush.setColor(QColor::fromRgba(constants::normalBackground));
    Plot_Scene->setBackgroundBrush(m_brush);
}

void MainWindow::watchStyleSheet()
{
    connect(&CSS_watcher, &QFileSystemWatcher::fileChanged, this, &MainWindow::CSS_watcher_slot);
    connect(&CSS_watcher, &QFileSystemWatcher::directoryChanged, this,
            &MainWindow::styleFolderChanged);
    const QString folder = qEnvironmentVariable(constants::developerFolderVariable);
    if (folder.isEmpty())
        return;
    const QString sheet = QDir(folder).absoluteFilePath(
        QString(constants::developerStyle).arg(constants::developerStyleNumber));
    if (!QFileInfo(sheet).isFile())
        return;
    watchedStyleSheet = sheet;
    CSS_watcher.addPath(sheet);
}

void MainWindow::CSS_watcher_slot(const QString &path)
{
    if (!QFileInfo(path).isFile()) {
        // An editor that writes a new file has taken the old one away and with it the watch; its
        // folder tells when the new one is there.
        CSS_watcher.addPath(QFileInfo(path).absolutePath());
        // It may have come between the question and the watch, and then the folder stays silent.
        if (!QFileInfo(path).isFile())
            return;
    }
    if (!CSS_watcher.files().contains(path))
        CSS_watcher.addPath(path);
    settingsData->current_CSS_path = path;
    settingsData->parse_CSS();
}

void MainWindow::styleFolderChanged()
{
    if (!QFileInfo(watchedStyleSheet).isFile())
        return;
    CSS_watcher.removePaths(CSS_watcher.directories());
    CSS_watcher_slot(watchedStyleSheet);
}
