// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "windowfixture.h"

#include <QObject>
#include <QVector>

/// A test whose every function has a window, and a folder for traces, of its own.
class WindowTest : public QObject
{
    Q_OBJECT

protected:
    MainWindow &window() const;
    const MainWindowProbe &probe() const;
    /// What mouse and wheel events on the chart go to.
    QWidget *viewport() const;
    /// Opens the window as after a run that had \a traces open from slot 1 on, slot 1 the master.
    /// The files are "t1.tdr" and so on, in the fixture's folder.
    void openOn(const QVector<TraceBuilder> &traces);

    std::unique_ptr<WindowFixture> fixture;

private slots:
    void init();
    void cleanup();
};
