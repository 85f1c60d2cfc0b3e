// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindowprobe.h"
#include "operations.h"

#include <QStringList>

#include <memory>

/// A window to measure: the viewer's, driven by the events that a user causes.
class ViewerSubject
{
public:
    /// Shows a window of \a size with \a files in its slots.
    ViewerSubject(QSize size, const QStringList &files);
    virtual ~ViewerSubject();
    Q_DISABLE_COPY(ViewerSubject)

    /// The plot with its axes and texts.
    virtual QWidget &plot();
    /// The widget on which the traces are painted; its paint events are counted.
    virtual QWidget &canvas();

    /// Prepares for repeating \a operation. Not measured.
    virtual void begin(Operation operation);
    /// Does the operation. \a number counts the repetitions from 0. Measured.
    virtual void act(Operation operation, int number);
    /// Undoes what must be undone before the next repetition. Not measured.
    virtual void takeBack(Operation operation);
    /// Restores the state before \c begin. Not measured.
    virtual void end(Operation operation);

protected:
    std::unique_ptr<MainWindow> m_window;
    MainWindowProbe m_probe;
    QStringList m_files;

private:
    void load();
    void startDrag(Qt::MouseButton button);
    void dragBy(int counts);

    QSize m_size;
    QPoint m_pointer; ///< position of the drag
    Qt::MouseButton m_held = Qt::NoButton;
};
