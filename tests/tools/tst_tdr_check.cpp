// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "tdr.h"
#include "testfiles.h"
#include "trace_recipe.h"
#include "tracebuilder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

namespace {

TraceBuilder sound()
{
    return TraceBuilder().samples([](int i) { return i % 100; });
}

} // namespace

/// The command check of velkor-tdr, and damaged files in all commands that read records.
class TestTdrCheck : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    /// The damaged files of the tests' tables and of the fuzzer, as names in the folder.
    QStringList damagedFiles() const
    {
        const QDir folder(m_folder.path());
        QStringList names;
        const QDir tables(QStringLiteral(VELKOR_TEST_DATA "/traces"));
        for (const QString &table : tables.entryList(QDir::Files)) {
            const QString text = QString::fromUtf8(contentOf(tables.filePath(table)));
            for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
                if (!line.startsWith(QLatin1Char(' '))) {
                    names.append(QStringLiteral("t%1.tdr").arg(names.size()));
                    corpus::writeTrace(line.section(QLatin1String(": "), 1),
                                       folder.filePath(names.last()));
                }
        }
        const QDir corpus(QStringLiteral(VELKOR_ROOT "/fuzz/corpus/record"));
        for (const QString &name : corpus.entryList(QDir::Files)) {
            names.append(name);
            QFile::copy(corpus.filePath(name), folder.filePath(name));
        }
        return names;
    }

private slots:
    void samplesAreSound()
    {
        const Outcome outcome = tdr(QStringList{ QStringLiteral("check") } + samplePaths());
        QCOMPARE(outcome.lines(), QStringList());
        QCOMPARE(outcome.errorLines(), QStringList());
        QCOMPARE(outcome.code, 0);
    }

    void findingsAreNamed()
    {
        struct Row
        {
            const char *name;
            QByteArray bytes;
            QString finding;
        };
        const float none = std::numeric_limits<float>::quiet_NaN();
        const float endless = std::numeric_limits<float>::infinity();
        const auto text = [](const char *finding) { return QString::fromLatin1(finding); };
        const QString noDate = text("year, month and day %1 are no BCD date");
        each<Row>(
            {
                { "empty", {}, text("size is 0 bytes instead of 37775: the trace is cut off") },
                { "cut in the trace", sound().bytes().left(510),
                  text("size is 510 bytes instead of 37775: the trace is cut off") },
                { "cut behind the trace", sound().bytes().left(37774),
                  text("size is 37774 bytes instead of 37775") },
                { "longer", sound().bytes() + 'x', text("size is more than 37775 bytes") },
                { "step", sound().minstep(3.7F).bytes(),
                  text("sampling step 3.7 ns is no multiple of 1.25 ns: every distance is wrong") },
                { "no step", sound().minstep(0.0F).bytes(),
                  text("sampling step 0 ns is not above 0") },
                { "negative step", sound().minstep(-5.0F).bytes(),
                  text("sampling step -5 ns is not above 0") },
                { "NaN", sound().minstep(none).bytes(),
                  text("sampling step nan ns is not above 0") },
                { "low KU", sound().ku(0.99F).bytes(), text("KU 0.99 is not between 1 and 10") },
                { "high KU", sound().ku(10.5F).bytes(), text("KU 10.5 is not between 1 and 10") },
                { "no KU", sound().ku(none).bytes(), text("KU nan is not between 1 and 10") },
                { "infinite KU", sound().ku(endless).bytes(),
                  text("KU inf is not between 1 and 10") },
                { "February", sound().date(2026, 2, 30).bytes(), noDate.arg(text("26 02 30")) },
                { "no BCD", sound().raw(178, "\x1A").bytes(), noDate.arg(text("1a 03 05")) },
                { "time", sound().time(24, 0, 0).bytes(),
                  text("hours, minutes and seconds 24 00 00 are no BCD time") },
                { "width", sound().raw(4, "\x02").bytes(),
                  text("bytes_in_sample is 2 instead of 1") },
                { "clipped", sound().sample(7, 127).sample(8, -127).sample(9, -128).bytes(),
                  text("3 samples are clipped at +-127") },
                { "equal", sound().samples(9).bytes(), text("all samples are equal") },
                { "beyond", sound().delay(63800).bytes(),
                  text("49 samples lie beyond the end of the axis") },
            },
            [](const Row &row) {
                const Outcome outcome
                    = tdr({ QStringLiteral("check"), QStringLiteral("-") }, row.bytes);
                QCOMPARE(outcome.lines(), { QStringLiteral("-: ") + row.finding });
                QCOMPARE(outcome.code, 1);
            });
        const Outcome longStep = tdr({ QStringLiteral("check"), QStringLiteral("-") },
                                     sound().minstep(100000.0F).bytes());
        QCOMPARE(longStep.lines().constFirst(),
                 text("-: sampling step 100000 ns is longer than the axis"));
    }

    void everyDamagedFileIsReadToItsEnd()
    {
        const QStringList names = damagedFiles();
        QVERIFY(names.size() > 390);
        const QString folder = m_folder.path();
        const Outcome check = tdr(QStringList{ QStringLiteral("check") } + names, {}, folder);
        QCOMPARE(check.code, 1);
        QCOMPARE(check.errorLines(), QStringList());
        QVERIFY(check.output.contains("\nempty: size is 0 bytes"));

        // In parts: a table of traces that share no distances has a row for every sample of each.
        for (int first = 0; first < names.size(); first += 40) {
            const QStringList part = names.mid(first, 40);
            const Outcome info = tdr(
                QStringList{ QStringLiteral("info"), QStringLiteral("--json") } + part, {}, folder);
            const Outcome csv = tdr(QStringList{ QStringLiteral("csv") } + part, {}, folder);
            const QJsonArray reports = QJsonDocument::fromJson(info.output).array();
            const QStringList errors = info.errorLines();
            QCOMPARE(reports.size() + errors.size(), part.size());
            for (const QString &error : errors)
                QVERIFY(error.endsWith(QLatin1String(" bytes, too few for a trace")));
            QCOMPARE(csv.output.count("\"trace "), reports.size());
            QCOMPARE(csv.errorLines(), errors);
            QCOMPARE(info.code, errors.isEmpty() ? 0 : 2);
            QCOMPARE(csv.code, info.code);
        }
    }

    void unreadableFilesAreNamed()
    {
        const Outcome outcome
            = tdr({ QStringLiteral("check"), QStringLiteral("/dev/zero"), QStringLiteral("."),
                    QStringLiteral("absent.tdr"), samplePaths().constFirst() });
        QCOMPARE(outcome.errorLines(),
                 (QStringList{
                     QStringLiteral("velkor-tdr: /dev/zero: neither a regular file nor a pipe"),
                     QStringLiteral("velkor-tdr: .: is a folder"),
                     QStringLiteral("velkor-tdr: absent.tdr: No such file or directory") }));
        QCOMPARE(outcome.code, 2);
    }

    void wrongUseIsAnError()
    {
        struct Row
        {
            const char *name;
            QStringList arguments;
            QByteArray error;
        };
        each<Row>(
            { { "nothing", {}, "Usage: velkor-tdr COMMAND" },
              { "no command", { QStringLiteral("plan") }, "velkor-tdr: plan: no such command" },
              { "no file", { QStringLiteral("info") }, "velkor-tdr: info: no file is named" },
              { "no option",
                { QStringLiteral("info"), QStringLiteral("--force"), QStringLiteral("-") },
                "velkor-tdr: info: Unknown option 'force'" } },
            [](const Row &row) {
                const Outcome outcome = tdr(row.arguments);
                QVERIFY(outcome.errors.startsWith(row.error));
                QCOMPARE(outcome.output, QByteArray());
                QCOMPARE(outcome.code, 2);
            });
    }

    void everyFindingIsOneLine()
    {
        const Outcome outcome = tdr({ QStringLiteral("check"), QStringLiteral("-") });
        QCOMPARE(outcome.lines().size(), 1);
#ifndef Q_OS_WIN
        const QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("two\nlines.tdr"));
        writeFile(name, {});
        QCOMPARE(tdr({ QStringLiteral("check"), name }).lines().size(), 1);
#endif
    }

    void helpAndVersionGoToTheOutput()
    {
        for (const char *option : { "--help", "-h" }) {
            const Outcome outcome = tdr({ QString::fromLatin1(option) });
            QVERIFY(outcome.output.contains("\n  from-csv   "));
            QCOMPARE(outcome.code, 0);
        }
        const Outcome command = tdr({ QStringLiteral("csv"), QStringLiteral("--help") });
        QVERIFY(command.output.startsWith("Usage: velkor-tdr csv [OPTION...] FILE...\n"));
        QVERIFY(command.output.contains("--force"));
        QCOMPARE(command.code, 0);
        QCOMPARE(tdr({ QStringLiteral("--version") }).output, "velkor-tdr " VELKOR_VERSION "\n");
    }
};

QTEST_GUILESS_MAIN(TestTdrCheck)
#include "tst_tdr_check.moc"
