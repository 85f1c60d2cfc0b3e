// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "oddplaces.h"

#include "test_files.h"
#include "tracebuilder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <limits>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

OddPlaces::OddPlaces()
{
    QDir(m_folder.path()).mkdir(QStringLiteral("folder.tdr"));
    writeFile(in("good.tdr"), TraceBuilder().samples(99).bytes());
    m_places = {
        { "no path", QString() },
        { "missing", in("missing.tdr") },
        { "folder", in("folder.tdr") },
        { "file as a folder", in("good.tdr/inner.tdr") },
        { "slash at the end", in("good.tdr/") },
        { "zero bytes", in("good.tdr") + QChar(0) + QStringLiteral("x") },
        { "256 letters", in("") + QString(256, QLatin1Char('x')) },
        { "5000 letters", in("") + QString(5000, QLatin1Char('x')) },
        { "lone surrogate", in("") + QChar(0xD800) + QStringLiteral(".tdr") },
    };
#ifdef Q_OS_UNIX
    addSpecialFiles();
    addLockedFiles();
#endif
}

OddPlaces::~OddPlaces()
{
#ifdef Q_OS_UNIX
    // QTemporaryDir cannot remove these two: QString cannot hold the name of the file, and the
    // folder is locked.
    ::unlink(nameOfBytes().constData());
    QFile::setPermissions(in("locked"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
#endif
}

const std::vector<OddPlace> &OddPlaces::all() const
{
    return m_places;
}

QString OddPlaces::folder() const
{
    return m_folder.path();
}

QString OddPlaces::in(const char *name) const
{
    return m_folder.path() + QLatin1Char('/') + QString::fromLatin1(name);
}

QByteArray OddPlaces::nameOfBytes() const
{
    return QFile::encodeName(m_folder.path()) + "/\xff\xfe.tdr";
}

void OddPlaces::addSpecialFiles()
{
#ifdef Q_OS_UNIX
    const auto node = [this](const char *kind, const QByteArray &path, mode_t type) {
        if (::mknod(path.constData(), type | 0644, 0) != 0)
            qFatal("cannot make a %s", kind);
        m_places.push_back({ kind, QFile::decodeName(path) });
    };
    node("pipe", QFile::encodeName(in("pipe.tdr")), S_IFIFO);
    node("socket", QFile::encodeName(in("socket.tdr")), S_IFSOCK);
    // A name that is not valid UTF-8, so QString cannot hold it.
    node("name that is no text", nameOfBytes(), S_IFREG);

    const auto link = [this](const char *kind, const char *target, const char *name) {
        if (::symlink(target, QFile::encodeName(in(name)).constData()) != 0)
            qFatal("cannot make a link");
        m_places.push_back({ kind, in(name) });
    };
    link("dangling link", "nowhere.tdr", "dangling.tdr");
    link("link to itself", "loop.tdr", "loop.tdr");
    link("links to each other", "back.tdr", "forth.tdr");
    link("links to each other, the other one", "forth.tdr", "back.tdr");
    link("link to a pipe", "pipe.tdr", "to_pipe.tdr");
    link("link to a device", "/dev/zero", "to_zero.tdr");
    link("link to a folder", "/", "to_root.tdr");
    for (const char *device : { "/dev/null", "/dev/zero", "/dev/full", "/dev/random", "/dev/tty" })
        m_places.push_back({ device, QString::fromLatin1(device) });
#endif
}

void OddPlaces::addLockedFiles()
{
    const QByteArray trace = TraceBuilder().samples(99).bytes();
    writeFile(in("unreadable.tdr"), trace);
    QFile::setPermissions(in("unreadable.tdr"), {});
    m_places.push_back({ "not readable", in("unreadable.tdr") });
    QDir(m_folder.path()).mkdir(QStringLiteral("locked"));
    writeFile(in("locked/inner.tdr"), trace);
    QFile::setPermissions(in("locked"), {});
    m_places.push_back({ "in a locked folder", in("locked/inner.tdr") });
    // The parent folder is open to an ordinary user; only the modes of these two files deny access.
    QFile::setPermissions(m_folder.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther
                              | QFile::ExeOther);
}

void asOrdinaryUser(const std::function<void()> &work)
{
#ifdef Q_OS_UNIX
    constexpr uid_t nobody = 65534;
    const bool isRoot = geteuid() == 0;
    if (isRoot && seteuid(nobody) != 0)
        qFatal("cannot become an ordinary user");
    work();
    if (isRoot && seteuid(0) != 0)
        qFatal("cannot restore the user id");
#else
    work();
#endif
}

void onFullDisk(quint64 bytes, const std::function<void()> &work)
{
#ifdef Q_OS_UNIX
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit former = {};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit tight = { bytes, former.rlim_max };
    if (setrlimit(RLIMIT_FSIZE, &tight) != 0)
        qFatal("cannot limit the size of files");
    work();
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
#else
    Q_UNUSED(bytes)
    Q_UNUSED(work)
#endif
}

qint64 fastest(const std::function<void()> &work)
{
    qint64 best = std::numeric_limits<qint64>::max();
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = qMin(best, timer.elapsed());
        // Far below every limit, so another run is not needed.
        if (best < 50)
            break;
    }
    return best;
}
