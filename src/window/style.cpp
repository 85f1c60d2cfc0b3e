// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "base/style_text.h"
#include "settingsdata.h"

#include <QDir>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QInputDialog>

namespace {

constexpr QLatin1String developerStyle = constants::latin1("Velkor/style/style_%1.qss");
constexpr int developerStyleNumber = 2; ///< the only sheet that is ever watched

} // namespace

void MainWindow::set_CSS()
{
    const QString &text = settingsData->current_CSS;
    const QString sheet = style_text::isAcceptable(text) ? text : QString();
    setStyleSheet(sheet);
    input_dialog->setStyleSheet(sheet);
    // Near-black with every sheet, even in difference mode until that is set again.
    m_brush = QBrush(QColor::fromRgba(constants::normalBackground), Qt::SolidPattern);
    Plot_Chart->setBackgroundBrush(m_brush);
    Plot_Scene->setBackgroundBrush(m_brush);
}

void MainWindow::watchStyleSheet()
{
    connect(&CSS_watcher, &QFileSystemWatcher::fileChanged, this, &MainWindow::CSS_watcher_slot);
    connect(&CSS_watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (QFileInfo(watchedStyleSheet).isFile())
            CSS_watcher_slot(watchedStyleSheet);
    });
    const QString folder = qEnvironmentVariable(constants::developerFolderVariable);
    if (folder.isEmpty())
        return;
    const QString sheet
        = QDir(folder).absoluteFilePath(QString(developerStyle).arg(developerStyleNumber));
    if (!QFileInfo(sheet).isFile())
        return;
    watchedStyleSheet = sheet;
    CSS_watcher.addPath(sheet);
}

void MainWindow::CSS_watcher_slot(const QString &path)
{
    if (path == watchedStyleSheet && !CSS_watcher.files().contains(path)) {
        // The order matters: watch the folder, then the file, then read the file. A file that
        // returns at any moment is either read here or reported again.
        const QString folder = QFileInfo(path).path();
        CSS_watcher.addPath(folder);
        if (QFileInfo(path).isFile() && CSS_watcher.addPath(path))
            CSS_watcher.removePath(folder);
    }
    settingsData->current_CSS_path = path;
    settingsData->parse_CSS();
}
