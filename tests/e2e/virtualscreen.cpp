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
    QStringList arguments{ QStringLiteral("-displayfd"),
                           QStringLiteral("1"),
                           QStringLiteral("-screen"),
                           QStringLiteral("0"),
                           QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height()),
                           QStringLiteral("-nolisten"),
                           QStringLiteral("tcp"),
                           QStringLiteral("-noreset") };
    if (dotsPerInch > 0)
        arguments << QStringLiteral("-dpi") << QString::number(dotsPerInch);
    m_server.start(QStringLiteral("Xvfb"), arguments);
    if (!m_server.waitForStarted() || !m_server.waitForReadyRead(-1))
        qFatal("no virtual screen: is Xvfb installed?");
    m_display = QLatin1Char(':') + QString::fromLatin1(m_server.readLine().trimmed());

    m_manager.setProcessEnvironment(environment());
    m_manager.start(QStringLiteral("openbox"),
                    { QStringLiteral("--sm-disable"), QStringLiteral("--startup"),
                      QStringLiteral("echo managing") });
    QByteArray output;
    while (!output.contains("managing")) {
        // False when it has ended, however long that takes on a busy machine.
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
    run(QStringLiteral("xprop"),
        { QStringLiteral("-root"), QStringLiteral("-f"), QStringLiteral("RESOURCE_MANAGER"),
          QStringLiteral("8s"), QStringLiteral("-set"), QStringLiteral("RESOURCE_MANAGER"),
          QStringLiteral("Xft.dpi:\t%1\n").arg(unscaledDots * factor) });
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

QByteArray VirtualScreen::run(const QString &program, const QStringList &arguments) const
{
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
    const QByteArray ids = run(QStringLiteral("xdotool"),
                               { QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                 QStringLiteral("--name"), name });
    return QString::fromLatin1(ids).trimmed().section(QLatin1Char('\n'), -1);
}

QRect VirtualScreen::waitForWindow(const QString &name) const
{
    QRect inside;
    waitFor([&] {
        const QString id = windowId(name);
        if (id.isEmpty())
            return false;
        // The pointer is sent into the window's corner and asked where it is: under a window
        // manager the plain position counts the frame twice.
        const QByteArray size
            = run(QStringLiteral("xdotool"),
                  { QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), id });
        const QByteArray corner = run(
            QStringLiteral("xdotool"),
            { QStringLiteral("mousemove"), QStringLiteral("--window"), id, QStringLiteral("0"),
              QStringLiteral("0"), QStringLiteral("getmouselocation"), QStringLiteral("--shell") });
        const QRect now(shellNumber(corner, "X="), shellNumber(corner, "Y="),
                        shellNumber(size, "WIDTH="), shellNumber(size, "HEIGHT="));
        // Twice the same: the manager has put the window where it stays.
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
    const int id = windowId(name).toInt();
    run(QStringLiteral("wmctrl"),
        { QStringLiteral("-i"), QStringLiteral("-c"), QStringLiteral("0x%1").arg(id, 0, 16) });
}

void VirtualScreen::resizeWindow(const QString &name, QSize size) const
{
    run(QStringLiteral("wmctrl"),
        { QStringLiteral("-i"), QStringLiteral("-r"), windowId(name), QStringLiteral("-e"),
          QStringLiteral("0,-1,-1,%1,%2").arg(size.width()).arg(size.height()) });
    waitFor([&] { return waitForWindow(name).size() == size; });
}

void VirtualScreen::moveTo(QPoint at) const
{
    run(QStringLiteral("xdotool"),
        { QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()) });
}

void VirtualScreen::click(QPoint at, int button) const
{
    run(QStringLiteral("xdotool"),
        { QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()),
          QStringLiteral("click"), QString::number(button) });
}

void VirtualScreen::drag(QPoint from, QPoint to, int button) const
{
    constexpr int steps = 10;
    QStringList arguments{ QStringLiteral("mousemove"), QString::number(from.x()),
                           QString::number(from.y()), QStringLiteral("mousedown"),
                           QString::number(button) };
    for (int step = 1; step <= steps; ++step) {
        const QPoint at = from + (to - from) * step / steps;
        arguments << QStringLiteral("mousemove") << QString::number(at.x())
                  << QString::number(at.y());
    }
    run(QStringLiteral("xdotool"),
        arguments << QStringLiteral("mouseup") << QString::number(button));
}

void VirtualScreen::type(const QString &text) const
{
    run(QStringLiteral("xdotool"),
        { QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("5"), text });
}

void VirtualScreen::key(const QString &name) const
{
    run(QStringLiteral("xdotool"), { QStringLiteral("key"), name });
}

QImage VirtualScreen::picture() const
{
    return QImage::fromData(
        run(QStringLiteral("import"),
            { QStringLiteral("-window"), QStringLiteral("root"), QStringLiteral("png:-") }),
        "PNG");
}

bool VirtualScreen::waitUntil(const std::function<bool(const QImage &)> &looksRight) const
{
    return waitFor([&] { return looksRight(picture()); });
}
