// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Kills the viewer while it saves and makes system calls fail. The settings must be complete
// afterwards.
#include "failing.h"
#include "killing.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QRandomGenerator>

#include <cstdio>

namespace {

/// Drops the debug messages of the window.
void noMessages(QtMsgType, const QMessageLogContext &, const QString &) { }

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler(noMessages);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption kills(QStringLiteral("kills"),
                                   QStringLiteral("Kills a window while it saves."),
                                   QStringLiteral("N"));
    const QCommandLineOption programKills(QStringLiteral("program-kills"),
                                          QStringLiteral("Kills the viewer while it closes."),
                                          QStringLiteral("N"));
    const QCommandLineOption every(QStringLiteral("every"),
                                   QStringLiteral("Lets every N-th call of a run fail, each in a "
                                                  "run of its own."),
                                   QStringLiteral("N"));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("Of the moments; 0 for a new one."),
                                  QStringLiteral("N"), QStringLiteral("1"));
    parser.addOptions({ kills, programKills, every, seed });
    parser.process(application);
    const auto number
        = [&parser](const QCommandLineOption &option) { return parser.value(option).toInt(); };
    const auto moments = parser.value(seed) == QLatin1String("0")
        ? QRandomGenerator::global()->generate()
        : static_cast<unsigned>(number(seed));
    std::printf("seed %u\n", moments);
    bool well = true;
    if (parser.isSet(kills))
        well = killSavingWindows(number(kills), moments) && well;
    if (parser.isSet(programKills))
        well = killClosingPrograms(number(programKills), moments) && well;
    if (parser.isSet(every))
        well = failCalls(qMax(1, number(every))) && well;
    std::fflush(stdout);
    return well ? 0 : 1;
}
