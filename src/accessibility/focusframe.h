// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFocusFrame>
#include <QPointer>

/// Frame around the control that got the focus by keyboard; hidden after a mouse action. The style
/// sheets have no focus style, so it is drawn above the control. The base is QFocusFrame because
/// accessibility ignores that class.
class FocusFrame : public QFocusFrame
{
    Q_OBJECT

public:
    explicit FocusFrame(QWidget *window);

    /// Frames \a control, which is in the window, when it gets the focus by keyboard.
    void watch(QWidget *control);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void surround(QWidget *control);
    void follow();
    void leave();

    bool m_isKeyDown = false;
    QPointer<QWidget> m_control; ///< the framed control, or null
};
