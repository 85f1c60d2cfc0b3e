// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "windowfixture.h"

#include <QObject>
#include <QVector>

/// Base of the window tests. Each test function gets a fixture of its own: a folder for traces, no
/// settings file, and no window until it opens one.
class WindowTest : public QObject
{
    Q_OBJECT

protected:
    MainWindow &window() const;
    const MainWindowProbe &probe() const;
    /// What mouse and wheel events on the chart go to.
    QWidget *viewport() const;
    /// Opens the window as after a run that had \a traces open from slot 1 on, with master \a
    /// master. The files are "t1.tdr" and so on, in the fixture's folder. No traces: an empty
    /// window.
    MainWindow &openOn(const QVector<TraceBuilder> &traces, int master = 0);

    std::unique_ptr<WindowFixture> fixture;

private slots:
    void init();
    void cleanup();
};
