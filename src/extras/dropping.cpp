// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/dropping.h"

#include "base/constants.h"
#include "base/program_files.h"
#include "base/qtcompat.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace extras {

namespace {

constexpr QLatin1String suffix = constants::latin1("tdr"); ///< what the dialogs for files show
constexpr int noSlot = -1;

/// What becomes of a file that is only read. Never a move: the other program would delete it.
Qt::DropAction harmlessAction(Qt::DropActions possible)
{
    for (const Qt::DropAction action : { Qt::CopyAction, Qt::LinkAction })
        if (possible.testFlag(action))
            return action;
    return Qt::IgnoreAction;
}

} // namespace

QStringList traceFiles(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    if (urls.size() > constants::slotCount)
        return {};
    QStringList files;
    for (const QUrl &url : urls) {
        const QString path = url.toLocalFile();
        const bool isTrace = QFileInfo(path).suffix().compare(suffix, Qt::CaseInsensitive) == 0;
        if (!url.isLocalFile() || !isTrace || !program_files::isRegularFile(path))
            return {};
        files.append(path);
    }
    return files;
}

void openInSlot(MainWindow &window, const QString &file, int slot)
{
    window.settings()->last_folder = QFileInfo(file).path();
    window.add_Selected_RFG(file, slot);
}

Dropping::Dropping(MainWindow &window)
    : m_window(window)
{
    window.setAcceptDrops(true);
    // A view takes every drag for the items in its scene, none of which wants one.
    QGraphicsView *plot = window.parts().Plot_View;
    plot->setAcceptDrops(false);
    plot->viewport()->setAcceptDrops(false);
}

void Dropping::enter(QDragEnterEvent &event)
{
    m_files = traceFiles(*event.mimeData());
    answer(event);
    // Where files do not fit here but would elsewhere, the moves that follow say no or yes; none
    // would come after a no to this one.
    event.setAccepted(!m_files.isEmpty() && event.dropAction() != Qt::IgnoreAction);
}

void Dropping::move(QDragMoveEvent &event)
{
    answer(event);
}

void Dropping::drop(QDropEvent &event)
{
    // Asked anew: a while has passed.
    m_files = traceFiles(*event.mimeData());
    if (!answer(event))
        return;
    const int slot = slotAt(qtcompat::placeOf(event));
    if (slot == noSlot)
        m_window.openFiles(m_files);
    else
        openInSlot(m_window, m_files.first(), slot);
}

bool Dropping::answer(QDropEvent &event)
{
    const Qt::DropAction action = harmlessAction(event.possibleActions());
    const bool good = action != Qt::IgnoreAction && fits(qtcompat::placeOf(event));
    event.setDropAction(action);
    event.setAccepted(good);
    return good;
}

bool Dropping::fits(QPoint position) const
{
    if (m_files.isEmpty() || QApplication::activeModalWidget())
        return false;
    return m_files.size() == 1 || slotAt(position) == noSlot;
}

int Dropping::slotAt(QPoint position) const
{
    const QWidget *under = m_window.childAt(position);
    for (const LegendButton *button : m_window.parts().selected_rfg)
        if (button == under)
            return button->id;
    return noSlot;
}

} // namespace extras
