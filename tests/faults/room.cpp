// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "room.h"

#include "base/constants.h"
#include "tracebuilder.h"

#include <QDir>
#include <QFile>
#include <QSettings>

#include <filesystem>
#include <system_error>

namespace {

/// A run that takes longer counts as hanging. Long because of sanitizers and busy machines.
constexpr int patienceMs = 120000;

constexpr QLatin1String libraryName = constants::latin1("failcalls.so");

void bring(const QString &from, const QString &to)
{
    std::error_code failed;
    std::filesystem::create_hard_link(from.toStdString(), to.toStdString(), failed);
    if (failed)
        std::filesystem::copy_file(from.toStdString(), to.toStdString());
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

Room::Room(const QString &program, const QString &library)
{
    // The settings are beside the program; every user must be able to read the library.
    bring(program, path(QStringLiteral("velkor")));
    bring(library, path(libraryName));
    m_old = "[General]\nCSS=:/style/style_2.qss\nlanguage=ru_RU\n\n[Dials]\ncursorSpeed=70\n"
            "paramSpeed=90\n\n[PrevFiles]\nMasterId=2\nStateIndex=63\n";
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        const QString trace = path(QStringLiteral("trace%1.tdr").arg(slot + 1));
        TraceBuilder().minstep(static_cast<float>(slot + 1) * 1.25F).samples(slot).write(trace);
        m_old += "file" + QByteArray::number(slot + 1) + '=' + trace.toLatin1() + '\n';
    }
    tidy();
}

void Room::tidy()
{
    const QStringList left = strays();
    for (const QString &name : left)
        QFile::remove(path(name));
    QFile::remove(path(constants::settingsBackupFile));
    put(settingsFile(), m_old);
}

void Room::prepare(QProcess &viewer, int failing) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("LD_PRELOAD"), path(libraryName));
    // A sanitizer must be the first library. Other tests look for leaks.
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       QStringLiteral("verify_asan_link_order=0:detect_leaks=0"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("VELKOR_FAIL_CALL"), QString::number(failing));
    environment.insert(QStringLiteral("VELKOR_FAIL_REPORT"), path(QStringLiteral("calls")));
    viewer.setProcessEnvironment(environment);
    viewer.setProcessChannelMode(QProcess::MergedChannels);
    viewer.setWorkingDirectory(m_folder.path());
    QStringList command = m_command;
    command.append(path(QStringLiteral("velkor")));
    viewer.setProgram(command.takeFirst());
    viewer.setArguments(command);
}

Room::Outcome Room::run(int failing)
{
    QFile::remove(path(QStringLiteral("calls")));
    QProcess viewer;
    prepare(viewer, failing);
    viewer.start(QIODevice::ReadOnly);
    return endOf(viewer);
}

void Room::startBy(const QStringList &command)
{
    m_command = command;
}

Room::Outcome Room::endOf(QProcess &viewer)
{
    Outcome outcome;
    outcome.ended = viewer.waitForFinished(patienceMs);
    if (!outcome.ended) {
        viewer.kill();
        viewer.waitForFinished();
    }
    outcome.crashed = viewer.exitStatus() != QProcess::NormalExit;
    outcome.code = viewer.exitCode();
    outcome.said = viewer.readAll();
    return outcome;
}

int Room::callsOfLastRun() const
{
    QFile file(path(QStringLiteral("calls")));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : -1;
}

QString Room::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString Room::settingsFile() const
{
    return path(constants::settingsFile);
}

QByteArray Room::oldSettings() const
{
    return m_old;
}

QByteArray Room::settings() const
{
    QFile file(settingsFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList Room::strays() const
{
    QStringList names;
    const QStringList all = QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : all)
        if (name != QLatin1String("velkor") && name != libraryName && name != QLatin1String("calls")
            && name != constants::settingsFile && name != constants::settingsBackupFile
            && !name.endsWith(QLatin1String(".tdr")))
            names.append(name);
    return names;
}

QString Room::flawIn(const QByteArray &settings)
{
    if (settings.isEmpty())
        return QStringLiteral("empty or missing");
    if (!settings.endsWith('\n'))
        return QStringLiteral("cut off");
    QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.ini"));
    put(copy, settings);
    const QSettings ini(copy, QSettings::IniFormat);
    QStringList keys{ QStringLiteral("CSS"),
                      QStringLiteral("language"),
                      QStringLiteral("Dials/cursorSpeed"),
                      QStringLiteral("Dials/paramSpeed"),
                      QStringLiteral("PrevFiles/MasterId"),
                      QStringLiteral("PrevFiles/StateIndex"),
                      QStringLiteral("WindowState/geometry"),
                      QStringLiteral("WindowState/windowState"),
                      QStringLiteral("WorkFolders/folder1"),
                      QStringLiteral("WorkFolders/folder2"),
                      QStringLiteral("WorkFolders/folder3"),
                      QStringLiteral("WorkFolders/lastFolder") };
    const int mask = ini.value(QStringLiteral("PrevFiles/StateIndex")).toInt();
    for (int slot = 0; slot < constants::slotCount; ++slot)
        if ((mask >> slot & 1) != 0)
            keys.append(QStringLiteral("PrevFiles/file%1").arg(slot + 1));
    for (const QString &key : keys)
        if (!ini.contains(key))
            return key + QStringLiteral(" is missing");
    return {};
}
