// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded library (LD_PRELOAD): counts the program's calls of open, read, write, rename, fsync
// and stat, makes one of them fail, and closes the program's windows once they are open.
//
//     VELKOR_FAIL_CALL=N      the N-th call fails, counted from 1; 0 lets all succeed
//     VELKOR_FAIL_REPORT=F    the number of calls is written to the file F at the end
//     VELKOR_BEFORE_CLOSE=C   the shell runs the command C before the windows are closed
//
// Calls are counted from the construction of QApplication on, because Qt aborts without a platform
// plugin. Calls of all libraries count. Reads and writes count on regular files only: on pipes and
// event counters they belong to the event loop.
#include <QApplication>
#include <QTimer>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool counting = false;
long calls = 0;
long failing = 0;

/// Calls the system directly, so the call is not counted.
void put(int descriptor, const char *text)
{
    syscall(SYS_write, descriptor, text, std::strlen(text));
}

/// True when this call is the one that fails; \a error is what it fails with.
bool fails(const char *what, const char *path, int error)
{
    if (!counting || ++calls != failing)
        return false;
    char line[600];
    std::snprintf(line, sizeof line, "failed call %ld: %s %s\n", calls, what,
                  path == nullptr ? "" : path);
    put(STDERR_FILENO, line);
    errno = error;
    return true;
}

bool isRegular(int descriptor)
{
    struct stat status;
    return syscall(SYS_fstat, descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

template <typename Function> Function next(Function, const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void report()
{
    counting = false;
    if (const char *path = std::getenv("VELKOR_FAIL_REPORT")) {
        char line[32];
        std::snprintf(line, sizeof line, "%ld\n", calls);
        const long file = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (file >= 0)
            put(static_cast<int>(file), line);
    }
}

void closeWindows()
{
    const char *command = std::getenv("VELKOR_BEFORE_CLOSE");
    if (command != nullptr && std::system(command) != 0)
        std::abort();
    QApplication::closeAllWindows();
}

void begin()
{
    // Calls of child processes do not count.
    unsetenv("LD_PRELOAD");
    if (const char *number = std::getenv("VELKOR_FAIL_CALL"))
        failing = std::atol(number);
    std::atexit(report);
    counting = true;
    // The window is open when the event loop runs.
    QTimer::singleShot(0, [] { QTimer::singleShot(0, closeWindows); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)

extern "C" {

int open(const char *path, int flags, ...)
{
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE) {
        va_list arguments;
        va_start(arguments, flags);
        mode = static_cast<mode_t>(va_arg(arguments, unsigned));
        va_end(arguments);
    }
    static const auto real = next(&open, "open64");
    return fails("open", path, EIO) ? -1 : real(path, flags, mode);
}

int open64(const char *path, int flags, ...) __attribute__((alias("open")));

FILE *fopen(const char *path, const char *mode)
{
    static const auto real = next(&fopen, "fopen");
    return fails("open", path, EIO) ? nullptr : real(path, mode);
}

ssize_t read(int descriptor, void *buffer, size_t size)
{
    static const auto real = next(&read, "read");
    return counting && isRegular(descriptor) && fails("read", nullptr, EIO)
        ? -1
        : real(descriptor, buffer, size);
}

ssize_t write(int descriptor, const void *buffer, size_t size)
{
    static const auto real = next(&write, "write");
    return counting && isRegular(descriptor) && fails("write", nullptr, ENOSPC)
        ? -1
        : real(descriptor, buffer, size);
}

ssize_t sendfile(int to, int from, off_t *offset, size_t count);
ssize_t sendfile(int to, int from, off_t *offset, size_t count)
{
    static const auto real = next(&sendfile, "sendfile");
    return fails("write", "sendfile", ENOSPC) ? -1 : real(to, from, offset, count);
}

int rename(const char *from, const char *to) noexcept
{
    static const auto real = next(&rename, "rename");
    return fails("rename", to, EIO) ? -1 : real(from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    static const auto real = next(&renameat2, "renameat2");
    return fails("rename", to, EIO) ? -1 : real(fromFolder, from, toFolder, to, flags);
}

int link(const char *from, const char *to) noexcept
{
    static const auto real = next(&link, "link");
    return fails("rename", to, EIO) ? -1 : real(from, to);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    static const auto real = next(&linkat, "linkat");
    return fails("rename", to, EIO) ? -1 : real(fromFolder, from, toFolder, to, flags);
}

int fdatasync(int descriptor)
{
    static const auto real = next(&fdatasync, "fdatasync");
    return fails("fsync", nullptr, EIO) ? -1 : real(descriptor);
}

int stat(const char *path, struct stat *status) noexcept
{
    static const auto real = next(&stat, "stat");
    return fails("stat", path, EIO) ? -1 : real(path, status);
}

int stat64(const char *path, struct stat64 *status) noexcept
{
    static const auto real = next(&stat64, "stat64");
    return fails("stat", path, EIO) ? -1 : real(path, status);
}

int lstat64(const char *path, struct stat64 *status) noexcept
{
    static const auto real = next(&lstat64, "lstat64");
    return fails("stat", path, EIO) ? -1 : real(path, status);
}

int fstat(int descriptor, struct stat *status) noexcept
{
    static const auto real = next(&fstat, "fstat");
    return fails("stat", nullptr, EIO) ? -1 : real(descriptor, status);
}

int fstat64(int descriptor, struct stat64 *status) noexcept
{
    static const auto real = next(&fstat64, "fstat64");
    return fails("stat", nullptr, EIO) ? -1 : real(descriptor, status);
}

int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept
{
    static const auto real = next(&statx, "statx");
    return fails("stat", path, EIO) ? -1 : real(folder, path, flags, mask, status);
}

} // extern "C"
