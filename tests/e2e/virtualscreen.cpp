// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtualscreen.h"

#include <QElapsedTimer>
#include <QThread>

namespace {

constexpr int patienceMs = 60000; ///< only a failing test waits that long
constexpr int lookAgainMs = 50;

bool waitFor(const std::function<bool()> &happened)
{
    QElapsedTimer timer;
    timer.start();
    while (!happened()) {
        if (timer.hasExpired(patienceMs))
            return false;
        QThread::msleep(lookAgainMs);
    }
    return true;
}

/// The number behind \a key in output made for a shell.
int shellNumber(const QByteArray &output, const char *key)
{
    const auto from = output.indexOf(key) + static_cast<int>(qstrlen(key));
    return output.mid(from, output.indexOf('\n', from) - from).toInt();
}

} // namespace

VirtualScreen::VirtualScreen(QSize size, int dotsPerInch)
{
    // The server chooses a free display and writes its number to standard output. Without -noreset
    // it would start over, and end the window manager, when the last of the other clients leaves.
    QString server = QStringLiteral("-displayfd 1 -screen 0 %1x%2x24 -nolisten tcp -noreset")
                         .arg(size.width())
                         .arg(size.height());
    if (dotsPerInch > 0)
        server += QStringLiteral(" -dpi %1").arg(dotsPerInch);
    m_server.start(QStringLiteral("Xvfb"), server.split(QLatin1Char(' ')));
    if (!m_server.waitForStarted() || !m_server.waitForReadyRead(-1))
        qFatal("no virtual screen: is Xvfb installed?");
    m_display = QLatin1Char(':') + QString::fromLatin1(m_server.readLine().trimmed());

    m_manager.setProcessEnvironment(environment());
    m_manager.start(QStringLiteral("openbox"),
                    { QStringLiteral("--sm-disable"), QStringLiteral("--startup"),
                      QStringLiteral("echo managing") });
    QByteArray output;
    while (!output.contains("managing")) {
        // False only when the window manager has ended; a busy machine may take long.
        if (!m_manager.waitForReadyRead(-1))
            qFatal("no window manager: is openbox installed?");
        output += m_manager.readAllStandardOutput();
    }
}

VirtualScreen::~VirtualScreen()
{
    for (QProcess *process : { &m_manager, &m_server }) {
        process->terminate();
        if (!process->waitForFinished())
            process->kill();
    }
}

void VirtualScreen::setScale(double factor) const
{
    constexpr double unscaledDots = 96.0;
    run(QStringLiteral("xprop -root -f RESOURCE_MANAGER 8s -set RESOURCE_MANAGER"),
        QStringLiteral("Xft.dpi:\t%1\n").arg(unscaledDots * factor));
}

QProcessEnvironment VirtualScreen::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("XAUTHORITY"));
    return environment;
}

QByteArray VirtualScreen::run(const QString &command, const QString &lastArgument) const
{
    QStringList arguments = command.split(QLatin1Char(' '));
    const QString program = arguments.takeFirst();
    if (!lastArgument.isEmpty())
        arguments.append(lastArgument);
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    if (!process.waitForStarted())
        qFatal("%s is not installed", qPrintable(program));
    process.waitForFinished(-1);
    return process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
}

QString VirtualScreen::windowId(const QString &name) const
{
    const QByteArray ids = run(QStringLiteral("xdotool search --onlyvisible --name"), name);
    return QString::fromLatin1(ids).trimmed().section(QLatin1Char('\n'), -1);
}

QRect VirtualScreen::waitForWindow(const QString &name) const
{
    QRect inside;
    waitFor([&] {
        const QString id = windowId(name);
        if (id.isEmpty())
            return false;
        // Move the pointer to the corner of the window and read its position: under a window
        // manager the plain position counts the frame twice.
        const QByteArray size = run(QStringLiteral("xdotool getwindowgeometry --shell"), id);
        const QByteArray corner = run(
            QStringLiteral("xdotool mousemove --window %1 0 0 getmouselocation --shell").arg(id));
        const QRect now(shellNumber(corner, "X="), shellNumber(corner, "Y="),
                        shellNumber(size, "WIDTH="), shellNumber(size, "HEIGHT="));
        // Equal twice: the manager has placed the window.
        const bool settled = !now.isEmpty() && now == inside;
        inside = now;
        return settled;
    });
    return inside;
}

bool VirtualScreen::waitUntilGone(const QString &name) const
{
    return waitFor([&] { return windowId(name).isEmpty(); });
}

void VirtualScreen::closeWindow(const QString &name) const
{
    run(QStringLiteral("wmctrl -i -c 0x%1").arg(windowId(name).toInt(), 0, 16));
}

void VirtualScreen::resizeWindow(const QString &name, QSize size) const
{
    run(QStringLiteral("wmctrl -i -r %1 -e 0,-1,-1,%2,%3")
            .arg(windowId(name))
            .arg(size.width())
            .arg(size.height()));
    waitFor([&] { return waitForWindow(name).size() == size; });
}

void VirtualScreen::moveTo(QPoint at) const
{
    run(QStringLiteral("xdotool mousemove %1 %2").arg(at.x()).arg(at.y()));
}

void VirtualScreen::click(QPoint at, int button) const
{
    run(QStringLiteral("xdotool mousemove %1 %2 click %3").arg(at.x()).arg(at.y()).arg(button));
}

void VirtualScreen::drag(QPoint from, QPoint to) const
{
    constexpr int steps = 10;
    const auto moveTo
        = [](QPoint at) { return QStringLiteral(" mousemove %1 %2").arg(at.x()).arg(at.y()); };
    QString command = QStringLiteral("xdotool") + moveTo(from) + QStringLiteral(" mousedown 1");
    for (int step = 1; step <= steps; ++step)
        command += moveTo(from + (to - from) * step / steps);
    run(command + QStringLiteral(" mouseup 1"));
}

void VirtualScreen::type(const QString &text) const
{
    run(QStringLiteral("xdotool type --delay 5"), text);
}

void VirtualScreen::key(const QString &name) const
{
    run(QStringLiteral("xdotool key"), name);
}

QImage VirtualScreen::picture() const
{
    return QImage::fromData(run(QStringLiteral("import -window root png:-")), "PNG");
}

bool VirtualScreen::waitUntil(const std::function<bool(const QImage &)> &looksRight) const
{
    return waitFor([&] { return looksRight(picture()); });
}
