// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <QApplication>
#include <QSocketNotifier>

#include <climits>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// Both ends of the connection from the signal handler to the event loop. A signal handler may call
/// write() and few other functions.
int signalEnd = -1;
int loopEnd = -1;

extern "C" void passOnSignal(int)
{
    const int error = errno;
    const char any = 0;
    // If the buffer is full, an earlier signal is still pending, which is enough.
    [[maybe_unused]] const ssize_t written = write(signalEnd, &any, sizeof any);
    errno = error;
}

/// File descriptor for diagnostics.
int diagnostics = STDERR_FILENO;

void writeIfPossible(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QByteArray line = qFormatLogMessage(type, context, message).toLocal8Bit() + '\n';
    pollfd place = { diagnostics, POLLOUT, 0 };
    if (poll(&place, 1, 0) != 1 || (place.revents & POLLOUT) == 0)
        return;
    // POSIX: a pipe that is ready takes up to PIPE_BUF bytes without blocking.
    const auto length = static_cast<size_t>(qMin<qint64>(line.size(), PIPE_BUF));
    [[maybe_unused]] const ssize_t written = write(diagnostics, line.constData(), length);
}

void closeAllWindows()
{
    char any = 0;
    while (read(loopEnd, &any, sizeof any) > 0) { }
    QApplication::closeAllWindows();
}

} // namespace

void process::guardStandardStreams()
{
    // open() returns the lowest number that is free.
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor)
        if (fcntl(descriptor, F_GETFD) == -1 && open("/dev/null", O_RDWR) == -1)
            break;
    // A terminal that is ready may still block within a line. O_NONBLOCK on standard error itself
    // would affect all programs that share it.
    if (const char *terminal = ttyname(STDERR_FILENO)) {
        const int own = open(terminal, O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (own != -1)
            diagnostics = own;
    }
    std::signal(SIGPIPE, SIG_IGN);
    qInstallMessageHandler(writeIfPossible);
}

void process::closeWindowsOnSignals(QObject *parent)
{
    int ends[2] = {};
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
        return;
    for (const int end : ends) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    signalEnd = ends[0];
    loopEnd = ends[1];
    const auto *notifier = new QSocketNotifier(loopEnd, QSocketNotifier::Read, parent);
    QObject::connect(notifier, &QSocketNotifier::activated, parent, closeAllWindows);
    for (const int number : { SIGTERM, SIGINT, SIGHUP }) {
        struct sigaction action = {};
        if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action.sa_handler = passOnSignal;
        action.sa_flags = SA_RESTART;
        sigaction(number, &action, nullptr);
    }
}

#else

void process::guardStandardStreams() { }

void process::closeWindowsOnSignals(QObject *) { }

#endif
