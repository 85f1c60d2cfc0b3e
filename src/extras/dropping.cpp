// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/dropping.h"

#include "base/constants.h"
#include "base/program_files.h"
#include "base/qtcompat.h"
#include "legendbutton.h"
#include "mainwindow.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace extras {

namespace {

constexpr QLatin1String traceSuffix = constants::latin1("tdr");
constexpr QLatin1String litStyle
    = constants::latin1("LegendButton { background: rgb(50, 95, 120); }");

/// The paths of the trace files in \a data; empty when it holds anything else: other files,
/// folders, devices, missing files, addresses of other machines.
QStringList traceFiles(const QMimeData &data)
{
    QStringList files;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls) {
        const QString path = url.toLocalFile();
        const bool isTrace
            = QFileInfo(path).suffix().compare(traceSuffix, Qt::CaseInsensitive) == 0;
        if (!url.isLocalFile() || !isTrace || !program_files::isRegularFile(path))
            return {};
        files.append(path);
    }
    return files;
}

} // namespace

Dropping::Dropping(MainWindow &window)
    : m_window(window)
{
    window.setAcceptDrops(true);
    // A graphics view accepts every drag for the items in its scene. Here no item takes drops.
    QGraphicsView *plot = window.parts().Plot_View;
    plot->setAcceptDrops(false);
    plot->viewport()->setAcceptDrops(false);
}

void Dropping::drag(QDropEvent &event)
{
    light(accept(event) ? slotAt(qtcompat::placeOf(event)) : nullptr);
}

void Dropping::leave()
{
    light(nullptr);
}

void Dropping::drop(QDropEvent &event)
{
    light(nullptr);
    if (!accept(event))
        return;
    const QStringList files = traceFiles(*event.mimeData());
    event.setAccepted(!files.isEmpty());
    if (files.isEmpty())
        return;
    const LegendButton *slot = slotAt(qtcompat::placeOf(event));
    if (slot != nullptr && files.size() == 1)
        m_window.openFile(files.first(), slot->id);
    else
        open(files);
}

bool Dropping::accept(QDropEvent &event) const
{
    // Never a move: the other program would delete the file.
    const Qt::DropActions possible = event.possibleActions();
    const Qt::DropAction action = possible.testFlag(Qt::CopyAction) ? Qt::CopyAction
        : possible.testFlag(Qt::LinkAction)                         ? Qt::LinkAction
                                                                    : Qt::IgnoreAction;
    event.setDropAction(action);
    event.setAccepted(action != Qt::IgnoreAction && event.mimeData()->hasUrls()
                      && QApplication::activeModalWidget() == nullptr);
    return event.isAccepted();
}

LegendButton *Dropping::slotAt(QPoint position) const
{
    return qobject_cast<LegendButton *>(m_window.childAt(position));
}

void Dropping::light(LegendButton *slot)
{
    if (m_lit == slot)
        return;
    if (m_lit)
        m_lit->setStyleSheet(QString());
    m_lit = slot;
    if (slot)
        slot->setStyleSheet(litStyle);
}

void Dropping::open(const QStringList &files)
{
    QVector<LegendButton *> empty;
    for (LegendButton *slot : m_window.parts().selected_rfg)
        if (!m_window.state().isLoaded(slot->id))
            empty.append(slot);
    if (files.size() > empty.size()) {
        m_window.openFiles(files);
        return;
    }
    for (int i = 0; i < files.size(); ++i)
        m_window.openFile(files.at(i), empty.at(i)->id);
    if (!m_window.state().isLoaded(m_window.state().rfg_ID))
        empty.first()->click();
}

} // namespace extras
