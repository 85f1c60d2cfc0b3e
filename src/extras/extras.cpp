// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/extras.h"

#include "cont_dial.h"
#include "extras/dropping.h"
#include "extras/keys.h"
#include "extras/tooltips.h"
#include "mainwindow.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QKeyEvent>

namespace extras {

namespace {

/// Filters the events that the controls do not use: Qt passes keys, drags and tooltip requests on
/// to the window, the dialog or the menu that they are in.
class Attachment : public QObject
{
public:
    explicit Attachment(MainWindow &window)
        : QObject(&window)
        , m_window(window)
        , m_dropping(window)
    {
        // On the application, because dialogs and menus are created later.
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress)
            return hasKeys(watched)
                && keyPressed(m_window, *static_cast<QKeyEvent *>(event), watched);
        return watched == &m_window && windowEvent(event);
    }

private:
    /// True for the window, for the controls that use the arrow keys themselves, and for every
    /// widget while a dialog or a menu is open: some of its controls accept every key.
    bool hasKeys(const QObject *receiver) const
    {
        const MainWindowParts &parts = m_window.parts();
        return receiver == &m_window || receiver == parts.Plot_View || receiver == parts.param_dial
            || receiver == parts.cursor_dial || (receiver->isWidgetType() && isBlocked());
    }

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
