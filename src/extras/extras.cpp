// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/extras.h"

#include "cont_dial.h"
#include "extras/dropping.h"
#include "extras/keys.h"
#include "extras/tooltips.h"
#include "mainwindow.h"

#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QKeyEvent>

namespace extras {

namespace {

/// Filters the events that the controls of the window do not use: Qt passes keys, drags and tooltip
/// requests on to the window.
class Attachment : public QObject
{
public:
    explicit Attachment(MainWindow &window)
        : QObject(&window)
        , m_window(window)
        , m_dropping(window)
    {
        window.installEventFilter(this);
        // The plot and the dials use the arrow keys themselves.
        const MainWindowParts &parts = window.parts();
        for (QObject *control :
             { static_cast<QObject *>(parts.Plot_View), static_cast<QObject *>(parts.param_dial),
               static_cast<QObject *>(parts.cursor_dial) })
            control->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress)
            return keyPressed(m_window, *static_cast<QKeyEvent *>(event), watched);
        return watched == &m_window ? windowEvent(event) : QObject::eventFilter(watched, event);
    }

private:
    bool windowEvent(QEvent *event)
    {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            m_dropping.drag(*static_cast<QDropEvent *>(event));
            return true;
        case QEvent::DragLeave:
            m_dropping.leave();
            return true;
        case QEvent::Drop:
            m_dropping.drop(*static_cast<QDropEvent *>(event));
            return true;
        case QEvent::ToolTip:
            return showTooltip(m_window, *static_cast<QHelpEvent *>(event));
        default:
            return false;
        }
    }

    MainWindow &m_window;
    Dropping m_dropping;
};

} // namespace

void attach(MainWindow &window)
{
    // Owned by the window.
    new Attachment(window);
}

} // namespace extras
