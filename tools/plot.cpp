// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "base/program_files.h"
#include "extras/commands.h"
#include "extras/exporting.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>

#include <cstdio>

/// \file
/// velkor-plot draws traces as the viewer saves them, without a screen. It uses the viewer's
/// settings, such as the language, and does not change them.

namespace {

constexpr QSize windowSize(1280, 800);

/// Reports the reason of a failure and returns the exit status.
int complain(const QString &subject, const QString &reason)
{
    const QString line = QStringLiteral("velkor-plot: %1: %2\n").arg(subject, reason);
    std::fputs(line.toUtf8().constData(), stderr);
    return 2;
}

int draw(const QStringList &files, QString path, bool replace)
{
    QStringList traces;
    for (const QString &file : files) {
        if (!program_files::isRegularFile(file))
            return complain(file, QStringLiteral("is no regular file that can be read"));
        traces.append(QFileInfo(file).absoluteFilePath());
    }
    const QString named = path;
    const extras::Format format = extras::formatFor(path, extras::Format::PaperPicture);
    if (path != named)
        return complain(named, QStringLiteral("needs the suffix .png, .pdf or .svg"));
    if (format == extras::Format::Table)
        return complain(path, QStringLiteral("tables are written by velkor-tdr csv"));
    if (QFileInfo::exists(path) && !replace)
        return complain(path, QStringLiteral("exists; --force replaces it"));

    MainWindow window(nullptr);
    window.resize(windowSize);
    window.settings()->master_ID = 0;
    window.openFiles(traces);
    window.show();
    QApplication::processEvents();
    extras::fitTrace(window);
    const QString reason = extras::saveShown(window, path, format);
    return reason.isEmpty() ? 0 : complain(path, reason);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Drops all messages except fatal ones, such as the viewer's debug messages.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtFatalMsg)
            complain(QStringLiteral("Qt"), text);
    });
    const QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(VELKOR_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Draws one to six reflectograms as the viewer saves them."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption output(
        { QStringLiteral("o"), QStringLiteral("output") },
        QStringLiteral("File to write; .png, .pdf or .svg decides the format."),
        QStringLiteral("FILE"));
    const QCommandLineOption force(QStringLiteral("force"),
                                   QStringLiteral("Replace the file when it exists."));
    parser.addOptions({ output, force });
    parser.addPositionalArgument(QStringLiteral("TRACE..."), QStringLiteral("Trace files."));

    const bool isUnderstood = parser.parse(QApplication::arguments());
    if (isUnderstood && parser.isSet(help))
        parser.showHelp();
    if (isUnderstood && parser.isSet(version))
        parser.showVersion();
    const QStringList files = parser.positionalArguments();
    const bool isComplete
        = !files.isEmpty() && files.size() <= constants::slotCount && parser.isSet(output);
    if (!isUnderstood || !isComplete)
        return complain(QStringLiteral("usage"),
                        isUnderstood ? QStringLiteral("one to six traces and -o FILE are needed")
                                     : parser.errorText());
    return draw(files, parser.value(output), parser.isSet(force));
}
