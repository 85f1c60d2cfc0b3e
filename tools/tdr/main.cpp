// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/check.h"
#include "tdr/from_csv.h"
#include "tdr/info.h"
#include "tdr/record.h"
#include "tdr/streams.h"
#include "tdr/table.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>

#include <cmath>
#include <cstdio>

/// \file
/// velkor-tdr: trace files without a window. The first argument names the command.

namespace {

enum ExitCode {
    Done = 0,
    Found = 1, ///< check has findings
    Failed = 2, ///< wrong usage, or a file that cannot be read or written
};

constexpr qint64 tableLimit = 4 << 20; ///< bytes of a table that is read

const QLatin1String jsonOption("json");
const QLatin1String allOption("all");
const QLatin1String outputOption("output");
const QLatin1String forceOption("force");
const QLatin1String stepOption("step");
const QLatin1String kuOption("ku");
const QLatin1String delayOption("delay");
const QLatin1String dateOption("date");

void print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toUtf8().constData(), stream);
}

void complain(const QString &subject, const QString &reason)
{
    print(stderr, QStringLiteral("velkor-tdr: %1: %2\n").arg(tdr::shownName(subject), reason));
}

/// Reads the record files that \a parser names one after another and calls \a use(name, bytes) with
/// each. Those that cannot be read are reported.
template <typename Use> ExitCode eachFile(const QCommandLineParser &parser, Use use)
{
    ExitCode code = Done;
    const QStringList names = parser.positionalArguments();
    for (const QString &name : names) {
        QByteArray bytes;
        QString reason = tdr::readInput(name, tdr::recordBytes, bytes);
        if (reason.isEmpty())
            reason = use(name, bytes);
        if (!reason.isEmpty()) {
            complain(name, reason);
            code = Failed;
        }
    }
    return code;
}

/// The reason why \a bytes are no trace; empty when they are one.
QString shortage(const QByteArray &bytes)
{
    if (bytes.size() >= tdr::traceBytes)
        return {};
    return QStringLiteral("holds %1 bytes, too few for a trace").arg(bytes.size());
}

/// Writes the result of a command, and reports when that is not possible.
ExitCode write(const QString &name, const QByteArray &bytes, bool replace = false)
{
    const QString reason = tdr::writeOutput(name, bytes, replace);
    if (reason.isEmpty())
        return Done;
    complain(name == QLatin1String("-") ? QStringLiteral("standard output") : name, reason);
    return Failed;
}

ExitCode info(const QCommandLineParser &parser)
{
    const bool all = parser.isSet(allOption);
    const bool asJson = parser.isSet(jsonOption);
    QJsonArray objects;
    QStringList texts;
    const ExitCode code = eachFile(parser, [&](const QString &name, const QByteArray &bytes) {
        QString reason = shortage(bytes);
        if (reason.isEmpty() && asJson)
            objects.append(tdr::infoJson(name, bytes, all));
        else if (reason.isEmpty())
            texts.append(tdr::infoText(name, bytes, all));
        return reason;
    });
    const QByteArray output
        = asJson ? QJsonDocument(objects).toJson() : texts.join(QLatin1Char('\n')).toUtf8();
    return std::max(code, write(QStringLiteral("-"), output));
}

ExitCode check(const QCommandLineParser &parser)
{
    QString lines;
    const ExitCode code = eachFile(parser, [&](const QString &name, const QByteArray &bytes) {
        const QStringList findings = tdr::findings(bytes);
        for (const QString &finding : findings)
            lines += QStringLiteral("%1: %2\n").arg(tdr::shownName(name), finding);
        return QString();
    });
    return std::max(
        { code, lines.isEmpty() ? Done : Found, write(QStringLiteral("-"), lines.toUtf8()) });
}

ExitCode csv(const QCommandLineParser &parser)
{
    std::deque<tdr::NamedRecord> records;
    const ExitCode code = eachFile(parser, [&](const QString &name, const QByteArray &bytes) {
        QString reason = shortage(bytes);
        if (reason.isEmpty())
            records.push_back({ name, tdr::recordOf(bytes) });
        return reason;
    });
    if (records.empty())
        return code;
    const QString output
        = parser.isSet(outputOption) ? parser.value(outputOption) : QStringLiteral("-");
    return std::max(
        code,
        write(output, tdr::table(records, calc::decimalsOf(QLocale())), parser.isSet(forceOption)));
}

/// Reads the options of from-csv. Returns the error, empty on success.
QString readDemands(const QCommandLineParser &parser, tdr::Demands &demands)
{
    bool isNumber = true;
    if (parser.isSet(stepOption)) {
        demands.step = parser.value(stepOption).toDouble(&isNumber);
        if (!isNumber || !(*demands.step > 0.0) || !std::isfinite(*demands.step))
            return QStringLiteral("--step: a number of ns above 0 is needed");
    }
    if (parser.isSet(kuOption)) {
        demands.ku = parser.value(kuOption).toDouble(&isNumber);
        if (!isNumber || !(*demands.ku >= 1.0 && *demands.ku <= 10.0))
            return QStringLiteral("--ku: a number from 1 to 10 is needed");
    }
    if (parser.isSet(delayOption)) {
        demands.delay = parser.value(delayOption).toUInt(&isNumber);
        if (!isNumber)
            return QStringLiteral("--delay: a whole number of samples is needed");
    }
    if (parser.isSet(dateOption)) {
        demands.date = QDateTime::fromString(parser.value(dateOption), Qt::ISODate);
        if (!tdr::isStorable(demands.date))
            return QStringLiteral("--date: a date such as 2026-03-12 or 2026-03-12T09:05:30 is "
                                  "needed, 2000 to 2099");
    }
    return {};
}

ExitCode fromCsv(const QCommandLineParser &parser)
{
    const QString input = parser.positionalArguments().constFirst();
    const QString output = parser.value(outputOption);
    tdr::Demands demands;
    QString wrong = readDemands(parser, demands);
    if (parser.positionalArguments().size() > 1)
        wrong = QStringLiteral("one file at a time");
    if (output.isEmpty())
        wrong = QStringLiteral("-o is needed");
    if (!wrong.isEmpty()) {
        complain(QStringLiteral("from-csv"), wrong);
        return Failed;
    }
    QByteArray text;
    QString reason = tdr::readInput(input, tableLimit, text);
    if (reason.isEmpty() && text.size() > tableLimit)
        reason = QStringLiteral("is larger than %1 MiB").arg(tableLimit >> 20);
    tdr::Conversion result;
    if (reason.isEmpty()) {
        result = tdr::fromCsv(text, demands);
        reason = result.failure;
    }
    if (!reason.isEmpty()) {
        complain(input, reason);
        return Failed;
    }
    for (const QString &remark : std::as_const(result.remarks))
        complain(input, remark);
    return write(output, result.record, parser.isSet(forceOption));
}

struct Command
{
    QString name;
    QString summary;
    QString arguments;
    QStringList options;
    ExitCode (*run)(const QCommandLineParser &parser);
};

QVector<Command> commands()
{
    return {
        { QStringLiteral("info"),
          QStringLiteral("Tells what is in trace files."),
          QStringLiteral("FILE..."),
          { jsonOption, allOption },
          info },
        { QStringLiteral("check"),
          QStringLiteral("Tells what is wrong with trace files, one line for each finding."),
          QStringLiteral("FILE..."),
          {},
          check },
        { QStringLiteral("csv"),
          QStringLiteral("Writes the samples of trace files as one table."),
          QStringLiteral("FILE..."),
          { outputOption, forceOption },
          csv },
        { QStringLiteral("from-csv"),
          QStringLiteral("Makes a trace file of a table of distance or echo time and level."),
          QStringLiteral("FILE"),
          { outputOption, forceOption, stepOption, kuOption, delayOption, dateOption },
          fromCsv },
    };
}

/// All options of all commands.
QVector<QCommandLineOption> options()
{
    const auto option
        = [](const QStringList &names, const char *description, const char *value = "") {
              return QCommandLineOption(names, QString::fromLatin1(description),
                                        QString::fromLatin1(value));
          };
    return {
        option({ jsonOption }, "Write an array of JSON objects."),
        option({ allOption }, "Also the fields of unknown meaning, in hexadecimal digits."),
        option({ outputOption, QStringLiteral("o") }, "File to write; - is standard output.",
               "FILE"),
        option({ forceOption }, "Replace the file when it exists."),
        option({ stepOption }, "Sampling step, rounded to a multiple of 1.25 ns.", "NS"),
        option({ kuOption }, "Shortening factor c/v, 1 to 10.", "KU"),
        option({ delayOption }, "Index of the first sample on the distance axis.", "N"),
        option({ dateOption }, "Date of the measurement.", "ISO"),
    };
}

QString overview()
{
    QString text = QStringLiteral("Usage: velkor-tdr COMMAND [OPTION...] FILE...\n\n"
                                  "Works on reflectograms in .tdr files without a window.\n"
                                  "FILE may be -, which is standard input.\n\nCommands:\n");
    const QVector<Command> all = commands();
    for (const Command &command : all)
        text += QStringLiteral("  %1 %2\n").arg(command.name, -10).arg(command.summary);
    return text
        + QStringLiteral("\n'velkor-tdr COMMAND --help' lists the options of a command.\n\n"
                         "Exit status: 0 done, 1 check has findings, 2 wrong usage or a file that\n"
                         "cannot be read or written.\n");
}

ExitCode run(const Command &command, QStringList arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(command.summary);
    const QVector<QCommandLineOption> all = options();
    for (const QCommandLineOption &option : all)
        if (command.options.contains(option.names().constFirst()))
            parser.addOption(option);
    const QCommandLineOption help({ QStringLiteral("h"), QStringLiteral("help") },
                                  QStringLiteral("Show this help."));
    parser.addOption(help);

    arguments.removeAt(1);
    const bool isUnderstood = parser.parse(arguments);
    if (isUnderstood && parser.isSet(help)) {
        // The parser's own line has the options before the command.
        print(stdout,
              QStringLiteral("Usage: velkor-tdr %1 [OPTION...] %2\n")
                      .arg(command.name, command.arguments)
                  + parser.helpText().section(QLatin1Char('\n'), 1));
        return Done;
    }
    if (!isUnderstood || parser.positionalArguments().isEmpty()) {
        complain(command.name,
                 isUnderstood ? QStringLiteral("no file is named") : parser.errorText());
        return Failed;
    }
    return command.run(parser);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    tdr::makeStreamsBinary();
    const QStringList arguments = QCoreApplication::arguments();
    const QString first = arguments.value(1);
    const QVector<Command> all = commands();
    for (const Command &command : all)
        if (first == command.name)
            return run(command, arguments);
    if (first == QLatin1String("--version") || first == QLatin1String("-v")) {
        print(stdout, QStringLiteral("velkor-tdr " VELKOR_VERSION "\n"));
        return Done;
    }
    if (first == QLatin1String("--help") || first == QLatin1String("-h")) {
        print(stdout, overview());
        return Done;
    }
    if (first.isEmpty())
        print(stderr, overview());
    else
        complain(first, QStringLiteral("no such command; see velkor-tdr --help"));
    return Failed;
}
