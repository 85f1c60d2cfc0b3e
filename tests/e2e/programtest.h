// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtualscreen.h"

#include <QObject>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

/// Base of the tests of the real program on an X server of its own. The program is in a folder of
/// its own, where its settings are.
class ProgramTest : public QObject
{
    Q_OBJECT

protected:
    ProgramTest();

    /// Path of \a name in the program's folder.
    QString path(const QString &name) const;
    QString settingsFile() const;

    /// Replaces the screen; programs start on the new one.
    void useScreen(QSize size, int dotsPerInch = 0);

    /// Starts the viewer by a shell's \a script in which $0 is its path. Waits for its window, and
    /// moves the pointer to where no button is highlighted.
    void start(const QString &script = QStringLiteral("exec \"$0\""));
    /// Closes the window as a click on its cross does. The program must end with code 0.
    void closeViewer();
    /// The program must end with code 0 by itself.
    void verifyThatItEnds();

    /// A place in the window, on the screen.
    QPoint onScreen(QPoint place) const;
    QRect onScreen(const QRect &area) const;
    /// What the screen shows of \a area of the window.
    QImage part(const QRect &area) const;
    /// The window with \a clock blackened, as soon as two pictures in a row are equal.
    QImage settledPicture(const QRect &clock) const;

    std::unique_ptr<VirtualScreen> screen;
    QProcessEnvironment environment; ///< of the viewer
    QProcess viewer;
    QRect window; ///< inside of the window on the screen

    /// Title of the window, as a regular expression.
    static const QString title;

private slots:
    void initTestCase();
    void cleanup();

private:
    QTemporaryDir m_folder;
};

/// First column of \a area that is yellow from top to bottom, which is the line of the active
/// cursor; -1 without one.
int cursorColumn(const QImage &picture, const QRect &area);
