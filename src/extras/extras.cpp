// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/extras.h"

#include "extras/dropping.h"
#include "extras/keys.h"
#include "extras/tooltips.h"
#include "mainwindow.h"

#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QKeyEvent>

namespace extras {

namespace {

/// Sees what the window's controls have left over: the toolkit hands keys, drags and the wish for a
/// tooltip from the control on to the window when the control has no use for them.
class Attachment : public QObject
{
public:
    explicit Attachment(MainWindow &window)
        : QObject(&window)
        , m_window(window)
        , m_dropping(window)
    {
        window.installEventFilter(this);
        // Its scroll bars have no way to go, and yet it would keep the arrows for them.
        window.parts().Plot_View->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool onPlot = watched != &m_window;
        if (event->type() == QEvent::KeyPress)
            return keyPressed(m_window, *static_cast<QKeyEvent *>(event), onPlot);
        return onPlot ? QObject::eventFilter(watched, event) : windowEvent(event);
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
    // Owned by the window through the toolkit's parents.
    new Attachment(window);
}

} // namespace extras
