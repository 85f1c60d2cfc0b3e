// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/focusframe.h"

#include <QFocusEvent>
#include <QPainter>

namespace {

// White around black: one of the two is seen on any background.
constexpr int lightWidth = 2;
constexpr int darkWidth = 1;

QRect shrunk(const QRect &rect, int by)
{
    return rect.adjusted(by, by, -by, -by);
}

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

} // namespace

FocusFrame::FocusFrame(QWidget *window)
    : QFocusFrame(window)
{
    setAttribute(Qt::WA_NoSystemBackground);
    hide();
    window->installEventFilter(this);
}

void FocusFrame::watch(QWidget *control)
{
    control->installEventFilter(this);
}

bool FocusFrame::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: // a shortcut has no KeyPress
    case QEvent::KeyPress:
        m_isKeyDown = true;
        break;
    case QEvent::KeyRelease:
        m_isKeyDown = false;
        break;
    case QEvent::FocusIn: {
        if (watched == parent())
            break;
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        auto *control = static_cast<QWidget *>(watched);
        // An opening dialog sends FocusIn to its first control before that has the focus.
        if (!control->hasFocus())
            break;
        // When the focused control is disabled, even by the mouse, Qt moves the focus and gives Tab
        // as the reason.
        if (isByKeyboard(reason) && m_isKeyDown)
            surround(control);
        else if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            leave();
        break;
    }
    case QEvent::FocusOut: {
        // The focus returns to the same control from a menu or another window: the frame stays.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            leave();
        break;
    }
    case QEvent::MouseButtonPress:
        m_isKeyDown = false;
        // A synthetic press comes from a key, so the frame stays.
        if (watched == m_control && event->spontaneous())
            leave();
        break;
    case QEvent::Hide:
        if (watched == m_control)
            leave();
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (watched == m_control)
            follow();
        break;
    default:
        break;
    }
    return false;
}

void FocusFrame::surround(QWidget *control)
{
    m_control = control;
    follow();
    show();
    raise();
}

void FocusFrame::follow()
{
    setGeometry(QRect(m_control->mapTo(parentWidget(), QPoint()), m_control->size()));
    // Only the frame is left, so that the control inside is painted as without it.
    setMask(QRegion(rect()) - QRegion(shrunk(rect(), lightWidth + darkWidth)));
}

void FocusFrame::leave()
{
    m_control = nullptr;
    hide();
}

void FocusFrame::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.fillRect(shrunk(rect(), lightWidth), Qt::black);
}
