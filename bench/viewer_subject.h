// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindowprobe.h"
#include "subject.h"

#include <QStringList>

#include <memory>

/// The viewer's own window, driven by the events that a user causes.
class ViewerSubject : public Subject
{
public:
    /// \a files are loaded into the slots from the first one on.
    ViewerSubject(QSize size, const QStringList &files);
    ~ViewerSubject() override;

    QWidget &window() override;
    QWidget &plot() override;
    QWidget &canvas() override;
    QVector<double> state() const override;
    void begin(Operation operation) override;
    void act(Operation operation, int number) override;
    void takeBack(Operation operation) override;
    void end(Operation operation) override;

private:
    void load();
    void dragBy(int counts);
    void startDrag(Qt::MouseButton button);
    void shiftBy(int number);

    std::unique_ptr<MainWindow> m_window;
    MainWindowProbe m_probe;
    QStringList m_files;
    QSize m_size;
    QPoint m_hand; ///< where a drag has come to
    Qt::MouseButton m_held = Qt::NoButton;
};
