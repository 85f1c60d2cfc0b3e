// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRect>
#include <QSize>
#include <QString>

#include <functional>

/// An X server in memory with a window manager, and mouse and keys for it. Ends the test program if
/// either does not start.
class VirtualScreen
{
public:
    /// A screen of \a size pixels; \a dotsPerInch is the resolution that it reports, 0 for the
    /// default of the server.
    explicit VirtualScreen(QSize size, int dotsPerInch = 0);
    ~VirtualScreen();
    Q_DISABLE_COPY(VirtualScreen)

    /// Sets the scale of the screen in the resource that desktops use for it.
    void setScale(double factor) const;

    /// Environment for programs that are to open on this screen.
    QProcessEnvironment environment() const;

    /// Waits for a visible window whose name matches the regular expression \a name; its inside on
    /// the screen, or an empty rectangle after a minute.
    QRect waitForWindow(const QString &name) const;
    /// Waits until no visible window matches \a name; false after a minute.
    bool waitUntilGone(const QString &name) const;
    /// Asks the window manager to close the window, as a click on its cross does.
    void closeWindow(const QString &name) const;

    /// Gives the window \a size pixels and waits until it has them.
    void resizeWindow(const QString &name, QSize size) const;

    void moveTo(QPoint at) const;
    void click(QPoint at, int button = 1) const;
    /// Presses the left button at \a from, moves to \a to in steps, releases.
    void drag(QPoint from, QPoint to) const;
    void type(const QString &text) const;
    void key(const QString &name) const;

    /// The current content of the screen.
    QImage picture() const;
    /// Waits until \a looksRight is true of the screen; false after a minute.
    bool waitUntil(const std::function<bool(const QImage &)> &looksRight) const;

private:
    /// Standard output of \a command, whose words end at blanks; nothing if it fails.
    QByteArray run(const QString &command, const QString &lastArgument = QString()) const;
    QString windowId(const QString &name) const;

    QProcess m_server;
    QProcess m_manager;
    QString m_display;
};
