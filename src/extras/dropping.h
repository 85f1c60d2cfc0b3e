// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QStringList>
#include <Qt>

class MainWindow;
class QDragEnterEvent;
class QDragMoveEvent;
class QDropEvent;
class QMimeData;

namespace extras {

/// Trace files that are dragged over the window and dropped on it. Up to six replace the set, as
/// those of the files button do; one on a slot's button goes into that slot. Whatever else is
/// dragged is refused where it is, so that the pointer says so before it is dropped.
class Dropping
{
public:
    /// Makes \a window accept drops, all over.
    explicit Dropping(MainWindow &window);

    /// What the window is told while something is dragged over it and in the end dropped.
    void enter(QDragEnterEvent &event);
    void move(QDragMoveEvent &event);
    void drop(QDropEvent &event);

private:
    bool fits(QPoint position) const;
    int slotAt(QPoint position) const;
    bool answer(QDropEvent &event);

    MainWindow &m_window;
    QStringList m_files; ///< being dragged; empty when there is anything else among them
};

/// The paths of the one to six trace files in \a data, in its order; empty when it holds anything
/// else: more of them, other files, folders, devices, files that are not there, addresses of other
/// machines, no files at all.
QStringList traceFiles(const QMimeData &data);

/// Loads \a file into the slot \a slot, 0 to 5, as the slot's menu does.
void openInSlot(MainWindow &window, const QString &file, int slot);

} // namespace extras
