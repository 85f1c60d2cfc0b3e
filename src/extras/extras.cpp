// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/extras.h"

#include "extras/keys.h"
#include "mainwindow.h"

#include <QEvent>
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
    {
        window.installEventFilter(this);
        // Its scroll bars have no way to go, and yet it would keep the arrows for them.
        window.parts().Plot_View->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress)
            return keyPressed(m_window, *static_cast<QKeyEvent *>(event), watched != &m_window);
        return QObject::eventFilter(watched, event);
    }

private:
    MainWindow &m_window;
};

} // namespace

void attach(MainWindow &window)
{
    // Owned by the window through the toolkit's parents.
    new Attachment(window);
}

} // namespace extras
