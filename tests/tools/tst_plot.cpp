// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "tdr.h"
#include "test_files.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

/// The program velkor-plot.
class TestPlot : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    const QString output = QStringLiteral("-o");

    static Outcome plot(const QStringList &arguments)
    {
        return run(QStringLiteral(VELKOR_PLOT), arguments);
    }

    QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

private slots:
    void initTestCase()
    {
        // The program's settings, which it only reads.
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(path("config")));
    }

    void samplesAreDrawn()
    {
        struct Row
        {
            const char *name;
            QByteArray start;
        };
        each<Row>({ { "all.png", "\x89PNG" }, { "all.pdf", "%PDF" }, { "all.svg", "<?xml" } },
                  [this](const Row &row) {
                      const Outcome outcome = plot(samplePaths() << output << path(row.name));
                      QCOMPARE(outcome.errorLines(), QStringList());
                      QCOMPARE(outcome.code, 0);
                      QVERIFY(contentOf(path(row.name)).startsWith(row.start));
                  });
        QVERIFY(contentOf(path("all.svg")).contains("6-wet-section-close-up.tdr"));
        QVERIFY(QImage(path("all.png")).width() > 2000);
        QVERIFY(!QFile::exists(path("config")));
    }

    void pictureIsOnlyReplacedByForce()
    {
        const QString picture = path("kept.png");
        writeFile(picture, "former");
        const QStringList arguments{ samplePaths()[0], output, picture };
        const Outcome refused = plot(arguments);
        QVERIFY(refused.errors.endsWith("kept.png: exists; --force replaces it\n"));
        QCOMPARE(refused.code, 2);
        QCOMPARE(contentOf(picture), QByteArray("former"));
        QCOMPARE(plot(arguments + wordsOf("--force")).code, 0);
        QVERIFY(!QImage(picture).isNull());
    }

    void wrongOptionsAreAnError()
    {
        const QString picture = path("none.png");
        const QString sample = samplePaths()[0];
        const QStringList seven = samplePaths() << sample << output << picture;
        struct Row
        {
            const char *name;
            QStringList arguments;
            QByteArray error;
        };
        each<Row>({ { "nothing", {}, "usage: one to six traces and -o FILE are needed" },
                    { "no output", { sample }, "usage: one to six traces and -o FILE are needed" },
                    { "seven", seven, "usage: one to six traces and -o FILE are needed" },
                    { "option", { QStringLiteral("--x") }, "usage: Unknown option 'x'." },
                    { "absent", { path("absent"), output, picture }, "is no regular file" },
                    { "suffix", { sample, output, path("a.jpg") }, "needs the suffix .png" },
                    { "table",
                      { sample, output, path("a.csv") },
                      "tables are written by velkor-tdr csv" } },
                  [&](const Row &row) {
                      const Outcome outcome = plot(row.arguments);
                      QVERIFY2(outcome.errors.contains(row.error), outcome.errors.constData());
                      QCOMPARE(outcome.code, 2);
                  });
        QVERIFY(!QFile::exists(picture));
    }
};

QTEST_GUILESS_MAIN(TestPlot)
#include "tst_plot.moc"
