// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "tdr.h"
#include "test_files.h"
#include "tracebuilder.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

namespace {

template <typename Number> Number at(const QByteArray &record, int offset)
{
    Number value{};
    std::memcpy(&value, record.constData() + offset, sizeof value);
    return value;
}

constexpr int stepAt = 25;
constexpr int delayAt = 29;
constexpr int kuAt = 49;
constexpr int shiftXAt = 53;

/// Rows "i * step,level(i)" under \a header.
QByteArray tableOf(const QByteArray &header, int rows, double step,
                   const std::function<double(int)> &level)
{
    QByteArray text = header;
    for (int i = 0; i < rows; ++i)
        text += QByteArray::number(i * step) + ',' + QByteArray::number(level(i)) + '\n';
    return text;
}

double countUp(int i)
{
    return i % 100;
}

} // namespace

/// The commands csv and from-csv of velkor-tdr.
class TestTdrTables : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    /// Runs from-csv on \a table with \a options; the record goes to the output.
    static Outcome convert(const QByteArray &table, const QStringList &options = {})
    {
        return tdr("from-csv - -o -", options, table);
    }

private slots:
    void roundTripKeepsTheSamples()
    {
        for (const QString &sample : samplePaths())
            for (const char *locale : { "C.UTF-8", "ru_RU.UTF-8" }) {
                const Outcome table = tdr("csv", { sample }, {}, {}, locale);
                QCOMPARE(table.code, 0);
                const Outcome record = convert(table.output);
                QCOMPARE(record.errorLines(), QStringList());
                const QByteArray former = contentOf(sample);
                QCOMPARE(record.output.size(), 37775);
                QCOMPARE(samplesOf(record.output), samplesOf(former));
                // Date, step and position of the trace are the same as well.
                QCOMPARE(record.output.mid(171, 3), former.mid(171, 3));
                QCOMPARE(record.output.mid(175, 4), former.mid(175, 4));
                QCOMPARE(at<float>(record.output, stepAt), at<float>(former, stepAt));
                QCOMPARE(at<quint32>(record.output, delayAt), at<quint32>(former, delayAt));
                QCOMPARE(record.output.mid(shiftXAt, 6), former.mid(shiftXAt, 6));
                QCOMPARE(tdr("check -", {}, record.output).code, 0);
            }
    }

    void roundTripKeepsExtremeLevels()
    {
        const QByteArray former = TraceBuilder()
                                      .samples([](int i) { return i % 256 - 128; })
                                      .shiftY(-300)
                                      .minstep(3.7F)
                                      .bytes();
        const Outcome record = convert(tdr("csv -", {}, former).output);
        QCOMPARE(samplesOf(record.output), samplesOf(former));
        QCOMPARE(at<float>(record.output, stepAt), 2.5F);
    }

    void unreadableFilesAreLeftOutOfTheTable()
    {
        const Outcome outcome = tdr("csv absent.tdr", { samplePaths()[0] });
        QVERIFY(outcome.errors.startsWith("velkor-tdr: absent.tdr: "));
        QVERIFY(outcome.output.contains("\"trace 1: 1-healthy-pair.tdr\"\n"));
        QCOMPARE(outcome.code, 2);
    }

    void outputIsOnlyReplacedByForce()
    {
        const QString file = path("kept");
        const QByteArray table = tableOf("m,level\n", 250, 0.125, countUp);
        struct Row
        {
            const char *name; ///< the command
            QByteArray input;
        };
        each<Row>({ { "from-csv - -o", table }, { "csv - -o", TraceBuilder().bytes() } },
                  [&](const Row &row) {
                      writeFile(file, "former");
                      const Outcome refused = tdr(row.name, { file }, row.input);
                      QVERIFY(refused.errors.endsWith("kept: exists; --force replaces it\n"));
                      QCOMPARE(refused.code, 2);
                      QCOMPARE(contentOf(file), QByteArray("former"));
                      const QStringList forced{ file, QStringLiteral("--force") };
                      QCOMPARE(tdr(row.name, forced, row.input).code, 0);
                      QVERIFY(contentOf(file).size() > 1000);
                  });
        const Outcome folder
            = convert(table, { QStringLiteral("-o"), m_folder.path(), QStringLiteral("--force") });
        QVERIFY(folder.errors.endsWith(": exists and is no regular file\n"));
        QCOMPARE(folder.code, 2);
    }

    void measurementIsResampled()
    {
        // 100 rows of 3 ns: 250 samples of 1.25 ns reach further than the 297 ns of the rows.
        const Outcome outcome
            = convert(tableOf("time (ns),level\n", 100, 3.0, [](int i) { return i * 0.75; }),
                      wordsOf("--date 2026-03-12T09:05:30"));
        QCOMPARE(outcome.code, 0);
        QCOMPARE(at<float>(outcome.output, stepAt), 1.25F);
        QCOMPARE(outcome.output.mid(171, 3), QByteArray("\x09\x05\x30"));
        QCOMPARE(outcome.output.mid(176, 3), QByteArray("\x03\x12\x26"));
        // Sample 100 is at 125 ns, where the level is 125 / 3 * 0.75 = 31.25.
        QCOMPARE(int{ outcome.output[261 + 100] }, 31);
        QCOMPARE(int{ outcome.output[261 + 249] }, 74);
        QCOMPARE(outcome.errorLines().mid(0, 4),
                 (QStringList{
                     QStringLiteral("velkor-tdr: -: KU taken as 1.49896"),
                     QStringLiteral("velkor-tdr: -: 80 of 100 rows lie on no sample of 1.25 ns"),
                     QStringLiteral("velkor-tdr: -: 218 samples interpolated between two rows"),
                     QStringLiteral("velkor-tdr: -: 12 samples beyond the rows repeat the "
                                    "nearest level") }));
    }

    void optionsOverrideTheTable()
    {
        const Outcome outcome
            = convert(tableOf("m;level\n", 500, 0.0625, countUp).replace(',', ';'),
                      wordsOf("--step 2.6 --ku 1.49896229 --delay 4 --date 2031-01-02"));
        QCOMPARE(at<float>(outcome.output, stepAt), 2.5F);
        QCOMPARE(at<float>(outcome.output, kuAt), 1.49896229F);
        QCOMPARE(at<quint32>(outcome.output, delayAt), 4U);
        // A sample is 0.25 m, four rows; the first is in row 16.
        QCOMPARE(int{ outcome.output[261] }, 16);
        QCOMPARE(int{ outcome.output[262] }, 20);
        QVERIFY(outcome.errors.contains("step rounded from 2.6 ns to 2.5 ns\n"));
        QVERIFY(outcome.errors.contains("16 rows lie outside the samples and are left out\n"));
        QCOMPARE(outcome.output.mid(176, 3), QByteArray("\x01\x02\x31"));
    }

    void levelsAreRoundedAndClipped()
    {
        const Outcome outcome = convert(
            tableOf("m,level\n", 250, 0.125, [](int i) { return i < 3 ? 1000.0 : -0.6; }));
        QCOMPARE(int{ outcome.output[261] }, 127);
        QCOMPARE(int{ outcome.output[264] }, -1);
        const QStringList errors = outcome.errorLines();
        for (const char *remark :
             { "247 levels rounded to whole numbers", "3 levels clipped to -128..127",
               "3 samples are clipped at +-127" })
            QVERIFY2(errors.contains(QStringLiteral("velkor-tdr: -: ") + QLatin1String(remark)),
                     remark);
    }

    void commonFormsOfTablesAreRead()
    {
        struct Row
        {
            const char *name;
            QByteArray table;
        };
        each<Row>({ { "plain", "0 1\n1.25 2\n" },
                    { "comma and blank", "0, 1\n1.25, 2\n" },
                    { "decimal commas", "m level\n0,0 1\n1,25 2\n" },
                    { "comment", "# made by hand\n\n0,1\n1.25,2\n" },
                    { "Windows", "\xEF\xBB\xBFm\tlevel\r\n0\t1\r\n1.25\t2\r\n" },
                    { "comma", "\"m\";\"level\"\n\"0,0\";1\n\"1,25\";2\n" },
                    { "without end", "m,level\n0,1\n1.25,2" } },
                  [](const Row &row) {
                      // Ten samples of 0.125 m for 1.25 m
                      const Outcome outcome = convert(row.table, wordsOf("--step 12.5"));
                      QCOMPARE(samplesOf(outcome.output), "\x01" + QByteArray(249, '\x02'));
                  });
    }

    void unusableTablesAreRefused()
    {
        struct Row
        {
            const char *name;
            QByteArray table;
            QByteArray reason;
        };
        const QByteArray two = tdr("csv", samplePaths().mid(0, 2)).output;
        each<Row>(
            { { "empty", "", "there are not two rows of numbers" },
              { "one row", "0,1\n", "there are not two rows of numbers" },
              { "one column", "0\n1\n", "there is one column" },
              { "two traces", two, "there are 4 columns, more than one trace" },
              { "three columns", "m,a,b\n1,2,3\n", "there are 3 columns, not a distance" },
              { "unit", "feet,level\n1,2\n", "the first column must be named after its unit" },
              { "hole", "0,1\n1,\n", "line 2 does not hold 2 numbers" },
              { "no number", "0,1\n1,inf\n", "line 2 does not hold 2 numbers" },
              { "order", "0,1\n1,1\n1,2\n", "line 3 lies before the line above it" },
              { "far", "ns,level\n90000,1\n90001,1\n", "the first row lies outside the axis" },
              { "record", TraceBuilder().bytes(), "there are not two rows of numbers" } },
            [](const Row &row) {
                const Outcome outcome = convert(row.table);
                QVERIFY2(outcome.errors.startsWith("velkor-tdr: -: " + row.reason),
                         outcome.errors.constData());
                QCOMPARE(outcome.output, QByteArray());
                QCOMPARE(outcome.code, 2);
            });
    }

    void wrongOptionsAreRefused()
    {
        for (const char *option : { "--step 0", "--step inf", "--ku 0.9", "--delay -1",
                                    "--date 12.03.2026", "--date 1999-12-31" }) {
            const QStringList words = wordsOf(option);
            const Outcome outcome = convert("0,1\n1,2\n", words);
            QVERIFY2(outcome.errors.startsWith("velkor-tdr: from-csv: " + words[0].toLatin1()),
                     option);
            QCOMPARE(outcome.code, 2);
        }
        QCOMPARE(tdr("from-csv -", {}, "0,1\n1,2\n").errors,
                 QByteArray("velkor-tdr: from-csv: -o is needed\n"));
    }

#ifdef Q_OS_UNIX
    void pipelinesWork()
    {
        struct Row
        {
            const char *name;
            const char *script; ///< $0 is velkor-tdr
            QByteArray output;
        };
        const QString head = QStringLiteral("set -o pipefail; cd " VELKOR_SAMPLES_DIR "; ");
        each<Row>(
            { { "whole", "cat 1*.tdr | $0 csv - | $0 from-csv - -o - | $0 check -; echo $?",
                "0\n" },
              { "slow", "(head -c 999 1*.tdr; sleep 1; tail -c +1000 1*.tdr) | $0 check -; echo $?",
                "0\n" },
              { "endless", "yes | $0 check - | head -n 1", "-: size is more than 37775 bytes\n" },
              { "endless table", "yes | $0 from-csv - -o - 2>&1",
                "velkor-tdr: -: is larger than 4 MiB\n" },
              { "reader gone", "$0 csv *.tdr | head -c 8", "# Velkor" },
              { "closed output", "$0 csv 1*.tdr 2>/dev/null >&-; echo $?", "2\n" },
              { "full disk", "$0 csv 1*.tdr 2>&1 >/dev/full",
                "velkor-tdr: standard output: No space left on device\n" },
              { "named pipe", "$0 check <(cat 1*.tdr); echo $?", "0\n" } },
            [&](const Row &row) {
                QProcess shell;
                shell.start(QStringLiteral("bash"),
                            { QStringLiteral("-c"), head + QLatin1String(row.script),
                              QStringLiteral(VELKOR_TDR) });
                QVERIFY(shell.waitForFinished(60000));
                QCOMPARE(shell.readAllStandardOutput(), row.output);
            });
    }
#endif
};

QTEST_GUILESS_MAIN(TestTdrTables)
#include "tst_tdr_tables.moc"
