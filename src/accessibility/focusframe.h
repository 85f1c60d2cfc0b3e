// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFocusFrame>
#include <QPointer>

/// A frame around the control of one window that the keyboard went to. The style sheets say nothing
/// of the focus; this lies over the control, whatever sheet is in force, and only while the focus
/// came by the keyboard: who uses the mouse never sees it. It is Qt's kind of frame in
/// name only, so that assistive technologies are not told of it; that one lies under its control.
class FocusFrame : public QFocusFrame
{
    Q_OBJECT

public:
    explicit FocusFrame(QWidget *window);

    /// Frames \a control, which lies in the window, when the keyboard goes to it.
    void watch(QWidget *control);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void surround(QWidget *control);
    void follow();
    void leave();

    bool m_isKeyDown = false;
    QPointer<QWidget> m_control; ///< the framed one; null while none is
};
