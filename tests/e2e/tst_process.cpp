// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "programtest.h"
#include "test_files.h"

#include <QFile>
#include <QtTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr QPoint logo(75, 35);
constexpr QRgb linkColour = 0xFF5ADCFF; ///< on the dark ground of the built-in sheet

/// A named pipe whose reading end is open and never read.
class Pipe
{
public:
    explicit Pipe(const QString &path)
        : m_path(path)
    {
        if (mkfifo(qPrintable(path), S_IRWXU) != 0)
            qFatal("cannot make a pipe");
        m_reader = open(qPrintable(path), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    }
    ~Pipe()
    {
        closeReader();
        QFile::remove(m_path);
    }
    Q_DISABLE_COPY(Pipe)

    /// Fills the pipe to the last byte.
    void fill() const
    {
        const int writer = open(qPrintable(m_path), O_WRONLY | O_NONBLOCK);
        const QByteArray page(PIPE_BUF, 'x');
        while (write(writer, page.constData(), static_cast<size_t>(page.size())) > 0) { }
        close(writer);
    }

    void closeReader()
    {
        if (m_reader != -1)
            close(m_reader);
        m_reader = -1;
    }

private:
    QString m_path;
    int m_reader = -1;
};

/// A terminal whose output is never read.
class Terminal
{
public:
    Terminal()
        : m_screenSide(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (grantpt(m_screenSide) != 0 || unlockpt(m_screenSide) != 0)
            qFatal("cannot make a terminal");
    }
    ~Terminal()
    {
        close(m_screenSide);
    }
    Q_DISABLE_COPY(Terminal)

    QString path() const
    {
        return QString::fromLocal8Bit(ptsname(m_screenSide));
    }

private:
    int m_screenSide;
};

} // namespace

/// The real program under signals, closed streams, pipes and terminals.
class TestProcess : public ProgramTest
{
    Q_OBJECT

private:
    void sendSignal(int number)
    {
        QCOMPARE(::kill(static_cast<pid_t>(viewer.processId()), number), 0);
    }

    /// Verifies that the program ended with code 0 and saved its settings.
    void verifySaved()
    {
        verifyThatItEnds();
        QVERIFY(QFile::remove(settingsFile()));
    }

    void closeAndVerifySaved()
    {
        screen->closeWindow(title);
        verifySaved();
    }

private slots:
    void signalCloses()
    {
        struct Row
        {
            const char *name;
            int number;
        };
        each<Row>({ { "SIGTERM", SIGTERM }, { "SIGINT", SIGINT }, { "SIGHUP", SIGHUP } },
                  [this](const Row &row) {
                      start();
                      sendSignal(row.number);
                      verifySaved();
                  });
    }

    void signalClosesAnOpenMenuOrDialog()
    {
        struct Row
        {
            const char *name;
            QPoint place;
            int button;
        };
        each<Row>(
            { { "menu of the chart", QPoint(400, 200), 3 },
              { "settings dialog", QPoint(723, 91), 1 } },
            [this](const Row &row) {
                start();
                screen->moveTo(onScreen(row.place));
                const QImage before = screen->picture();
                screen->click(onScreen(row.place), row.button);
                QVERIFY(screen->waitUntil([&before](const QImage &now) { return now != before; }));
                sendSignal(SIGTERM);
                verifySaved();
            });
    }

    void signalThatIsIgnoredAtTheStartStaysIgnored()
    {
        start(QStringLiteral("trap '' HUP; exec \"$0\""));
        sendSignal(SIGHUP);
        QVERIFY(!viewer.waitForFinished(500));
        closeAndVerifySaved();
    }

    void browserDoesNotInheritTheVariableOfThePlatform()
    {
        // Qt opens links with the program of this name.
        const QString variables = path(QStringLiteral("environment"));
        const QString browser = path(QStringLiteral("xdg-open"));
        writeFile(browser, "#!/bin/sh\nenv >" + QFile::encodeName(variables) + '\n');
        QVERIFY(QFile::setPermissions(browser, QFile::ReadOwner | QFile::ExeOwner));
        start(QStringLiteral("PATH=${0%/*}:$PATH exec \"$0\""));
        screen->click(onScreen(logo));
        QVERIFY(!screen->waitForWindow(QStringLiteral("^About Qt$")).isEmpty());
        QPoint link;
        QVERIFY(screen->waitUntil([&link](const QImage &now) {
            for (int y = 0; y < now.height(); ++y)
                for (int x = 0; x < now.width(); ++x)
                    if (now.pixel(x, y) == linkColour)
                        link = { x, y };
            return !link.isNull();
        }));
        screen->click(link);
        QTRY_VERIFY_WITH_TIMEOUT(contentOf(variables).contains("DISPLAY="), 10000);
        QVERIFY(!contentOf(variables).contains("QT_XCB_GL_INTEGRATION"));
        sendSignal(SIGTERM);
        verifySaved();
    }

    void closedStreamsDoNotAffectTheDisplay()
    {
        start(QStringLiteral("exec \"$0\" 2>&-"));
        closeAndVerifySaved();
    }

    void fullMessagePipeDoesNotBlock()
    {
        const QString fifo = path(QStringLiteral("pipe"));
        const Pipe pipe(fifo);
        pipe.fill();
        start(QStringLiteral("exec \"$0\" 2>") + fifo);
        closeAndVerifySaved();
    }

    void terminalWithoutAReaderDoesNotBlock()
    {
        const Terminal terminal;
        // Qt writes a message for each rule that it does not understand. A terminal keeps 12 kB.
        const QString rules = QString(3000, QLatin1Char('x')) + QLatin1String("=maybe;");
        start(QStringLiteral("QT_LOGGING_RULES='%1' exec \"$0\" 2>%2")
                  .arg(rules.repeated(10), terminal.path()));
        closeAndVerifySaved();
    }

    void settingsAreSavedWithoutAReaderOfMessages()
    {
        const QString fifo = path(QStringLiteral("pipe"));
        Pipe pipe(fifo);
        // The program would inherit an ignored signal from the parent process of this test.
        start(QStringLiteral("exec env --default-signal=PIPE \"$0\" 2>") + fifo);
        pipe.closeReader();
        // Each change of size writes messages.
        screen->resizeWindow(title, QSize(900, 600));
        QCOMPARE(screen->waitForWindow(title).size(), QSize(900, 600));
        closeAndVerifySaved();
    }
};

QTEST_GUILESS_MAIN(TestProcess)
#include "tst_process.moc"
