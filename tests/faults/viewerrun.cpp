// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "viewerrun.h"

#include "base/constants.h"
#include "tracebuilder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

/// A run that takes longer counts as hanging. Long because of sanitizers and busy machines.
constexpr int patienceMs = 120000;

constexpr QLatin1String programName = constants::latin1("velkor");
constexpr QLatin1String libraryName = constants::latin1("failcalls.so");
constexpr QLatin1String reportName = constants::latin1("calls");

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

ViewerRun::ViewerRun()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    // Copy both: the settings are beside the program, and every user must be able to read the
    // library.
    bring(QStringLiteral(VELKOR_PROGRAM), path(programName));
    bring(QStringLiteral(VELKOR_FAILCALLS), path(libraryName));
    setVariable("QT_QPA_PLATFORM", QStringLiteral("offscreen"));
    setVariable("LD_PRELOAD", path(libraryName));
    // A sanitizer refuses to run after a preloaded library. Other tests detect leaks.
    setVariable("ASAN_OPTIONS", QStringLiteral("verify_asan_link_order=0:detect_leaks=0"));
    setVariable("XDG_CONFIG_HOME", path(QStringLiteral("config")));
    setVariable("XDG_RUNTIME_DIR", path());
    setVariable("LC_ALL", QStringLiteral("C.UTF-8"));
    setVariable("VELKOR_FAIL_REPORT", path(reportName));
    m_old = "[General]\nCSS=:/style/style_2.qss\nlanguage=ru_RU\n\n[Dials]\ncursorSpeed=70\n"
            "paramSpeed=90\n\n[PrevFiles]\nMasterId=2\nStateIndex=63\n";
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        const QString trace = path(QStringLiteral("trace%1.tdr").arg(slot + 1));
        TraceBuilder().minstep(static_cast<float>(slot + 1) * 1.25F).samples(slot).write(trace);
        m_old += "file" + QByteArray::number(slot + 1) + '=' + trace.toLatin1() + '\n';
    }
    tidy();
}

void ViewerRun::tidy()
{
    const QStringList left = strays();
    for (const QString &name : left)
        QFile::remove(path(name));
    QFile::remove(path(constants::settingsBackupFile));
    put(settingsFile(), m_old);
}

ViewerRun::Outcome ViewerRun::run(int failing)
{
    QFile::remove(path(reportName));
    setVariable("VELKOR_FAIL_CALL", QString::number(failing));
    QStringList command = m_command;
    command.append(path(programName));
    QProcess viewer;
    viewer.setProcessEnvironment(m_environment);
    viewer.setProcessChannelMode(QProcess::MergedChannels);
    viewer.setWorkingDirectory(path());
    viewer.setProgram(command.takeFirst());
    viewer.setArguments(command);
    viewer.start(QIODevice::ReadOnly);
    Outcome outcome;
    outcome.ended = viewer.waitForFinished(patienceMs);
    if (!outcome.ended) {
        viewer.kill();
        viewer.waitForFinished();
    }
    outcome.crashed = viewer.exitStatus() != QProcess::NormalExit;
    outcome.code = viewer.exitCode();
    outcome.output = viewer.readAll();
    return outcome;
}

void ViewerRun::startBy(const QStringList &command)
{
    m_command = command;
}

void ViewerRun::setVariable(const char *name, const QString &value)
{
    m_environment.insert(QLatin1String(name), value);
}

int ViewerRun::callsOfLastRun() const
{
    QFile file(path(reportName));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : -1;
}

QString ViewerRun::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString ViewerRun::settingsFile() const
{
    return path(constants::settingsFile);
}

QByteArray ViewerRun::oldSettings() const
{
    return m_old;
}

QByteArray ViewerRun::settings() const
{
    QFile file(settingsFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList ViewerRun::strays() const
{
    const QStringList known{ programName, libraryName, reportName, constants::settingsFile,
                             constants::settingsBackupFile };
    QStringList names = QDir(path()).entryList(QDir::Files | QDir::Hidden);
    const auto isKnown = [&known](const QString &name) {
        return known.contains(name) || name.endsWith(QLatin1String(".tdr"));
    };
    names.erase(std::remove_if(names.begin(), names.end(), isKnown), names.end());
    return names;
}

QString ViewerRun::flawIn(const QByteArray &settings)
{
    if (settings.isEmpty())
        return QStringLiteral("empty or missing");
    if (!settings.endsWith('\n'))
        return QStringLiteral("cut off");
    QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.ini"));
    put(copy, settings);
    const QSettings ini(copy, QSettings::IniFormat);
    QStringList keys
        = QStringLiteral("CSS language Dials/cursorSpeed Dials/paramSpeed PrevFiles/MasterId "
                         "PrevFiles/StateIndex WindowState/geometry WindowState/windowState "
                         "WorkFolders/folder1 WorkFolders/folder2 WorkFolders/folder3 "
                         "WorkFolders/lastFolder")
              .split(QLatin1Char(' '));
    const int mask = ini.value(QStringLiteral("PrevFiles/StateIndex")).toInt();
    for (int slot = 0; slot < constants::slotCount; ++slot)
        if ((mask >> slot & 1) != 0)
            keys.append(QStringLiteral("PrevFiles/file%1").arg(slot + 1));
    for (const QString &key : keys)
        if (!ini.contains(key))
            return key + QStringLiteral(" is missing");
    return {};
}
