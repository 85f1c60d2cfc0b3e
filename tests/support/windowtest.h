// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "windowfixture.h"

#include <QObject>
#include <QRectF>
#include <QVector>

/// Base of the window tests. Each test function gets a fixture of its own: a folder for traces, no
/// settings file, and no window until it opens one.
class WindowTest : public QObject
{
    Q_OBJECT

protected:
    MainWindow &window() const;
    const MainWindowProbe &probe() const;
    /// The receiver of mouse and wheel events on the chart.
    QWidget *viewport() const;
    /// Plot area of the chart, in coordinates of the scene.
    QRectF plot() const;
    /// \c openWith on the test's own fixture.
    MainWindow &openOn(const QVector<TraceBuilder> &traces, int master = 0);

    /// The six slots as button, menu and chart show them, one letter each, then the selected slot
    /// and the master: "Vvh..., selected 1, master 0". "v" is visible, "h" hidden, "." empty; the
    /// slot of the master has an upper-case letter or ":". "?" is a slot whose button, menu and
    /// chart contradict each other.
    QString slotsText() const;

    /// Sets the language \a code of the settings, as the settings dialog does.
    void setLanguage(const char *code);

    /// Replaces the fixture by a new one, as before each test function.
    void startOver();

    std::unique_ptr<WindowFixture> fixture;

protected slots:
    void init();
    void cleanup();
};
