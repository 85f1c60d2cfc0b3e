// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QStringList>

class LegendButton;
class MainWindow;
class QDropEvent;
class QPoint;

namespace extras {

/// Trace files that are dragged over the window and dropped on it. One file on a slot's button goes
/// into that slot. Otherwise the files fill the empty slots from the first on; more files than
/// empty slots replace all traces, as those of the files button do.
///
/// A drag is checked by its formats only. The files are checked at the drop, because the other
/// program can take any time to send their names.
class Dropping
{
public:
    /// Makes \a window accept drops everywhere.
    explicit Dropping(MainWindow &window);

    /// Handles a QDragEnterEvent or QDragMoveEvent: accepts files while no dialog is open and
    /// highlights the slot under them.
    void drag(QDropEvent &event);
    void leave();
    /// Opens the files of \a event. Refuses them all if one is no trace file.
    void drop(QDropEvent &event);

private:
    bool accept(QDropEvent &event) const;
    LegendButton *slotAt(QPoint position) const;
    void light(LegendButton *slot);
    void open(const QStringList &files);

    MainWindow &m_window;
    QPointer<LegendButton> m_lit;
};

} // namespace extras
