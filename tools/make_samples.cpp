// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition.h"
#include "record.h"
#include "sample_traces.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>
#include <QTextStream>

#include <cstdio>

namespace {

/// Measures one cable and writes its record to \a folder. Returns the error, empty on success.
QString write(const instrument::SampleTrace &sample, const QDir &folder)
{
    const instrument::Trace trace = instrument::acquire(sample.cable, sample.settings);
    // A clipped trace would show a shape that the cable does not have.
    if (trace.clipped > 0)
        return QStringLiteral("%1 samples are clipped").arg(trace.clipped);

    QSaveFile file(folder.filePath(sample.fileName));
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    file.write(
        instrument::fileBytes(instrument::makeRecord(trace, sample.settings, sample.survey)));
    return file.commit() ? QString() : file.errorString();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measures six described cables with a simulated instrument and writes the sample traces.\n"
        "The same program writes the same bytes every time."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where to write them."));
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(EXIT_FAILURE);

    QTextStream errors(stderr);
    const QDir folder(parser.positionalArguments().constFirst());
    if (!folder.mkpath(QStringLiteral("."))) {
        errors << folder.path() << ": cannot be made\n";
        return EXIT_FAILURE;
    }
    for (const instrument::SampleTrace &sample : instrument::sampleTraces()) {
        const QString failure = write(sample, folder);
        if (!failure.isEmpty()) {
            errors << sample.fileName << ": " << failure << '\n';
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
