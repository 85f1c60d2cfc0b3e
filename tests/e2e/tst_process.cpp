// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "testfiles.h"
#include "virtualscreen.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString viewer = QStringLiteral("^Velkor$");
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

/// A terminal that shows nothing of what is written to it.
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

/// The real program and what starts, stops and listens to it.
class TestProcess : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    VirtualScreen m_screen;
    QProcess m_viewer;

    QString settingsFile() const
    {
        return m_folder.filePath(QStringLiteral("settings_current.ini"));
    }

    /// Starts the viewer by a \a script in which $0 is its path.
    void start(const QString &script = QStringLiteral("exec \"$0\""))
    {
        QFile::remove(settingsFile());
        m_viewer.setProcessEnvironment(m_screen.environment());
        m_viewer.start(
            QStringLiteral("sh"),
            { QStringLiteral("-c"), script, m_folder.filePath(QStringLiteral("velkor")) });
        QVERIFY(m_viewer.waitForStarted());
        QVERIFY(!m_screen.waitForWindow(viewer).isEmpty());
    }

    /// The window is gone, its settings are saved, and the program ended as it should.
    void checkThatItEnds()
    {
        QVERIFY(m_viewer.waitForFinished(10000));
        QCOMPARE(m_viewer.exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_viewer.exitCode(), 0);
        QVERIFY(QFile::exists(settingsFile()));
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(VELKOR_PROGRAM),
                            m_folder.filePath(QStringLiteral("velkor"))));
    }

    void cleanup()
    {
        m_viewer.kill();
        m_viewer.waitForFinished();
    }

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
                      QCOMPARE(::kill(static_cast<pid_t>(m_viewer.processId()), row.number), 0);
                      checkThatItEnds();
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
                const QPoint corner = m_screen.waitForWindow(viewer).topLeft();
                m_screen.moveTo(corner + row.place);
                const QImage before = m_screen.picture();
                m_screen.click(corner + row.place, row.button);
                QVERIFY(m_screen.waitUntil([&before](const QImage &now) { return now != before; }));
                m_viewer.terminate();
                checkThatItEnds();
            });
    }

    void signalThatIsIgnoredAtTheStartStaysIgnored()
    {
        start(QStringLiteral("trap '' HUP; exec \"$0\""));
        QCOMPARE(::kill(static_cast<pid_t>(m_viewer.processId()), SIGHUP), 0);
        QVERIFY(!m_viewer.waitForFinished(500));
        m_screen.closeWindow(viewer);
        checkThatItEnds();
    }

    void browserDoesNotInheritTheVariableOfThePlatform()
    {
        // Qt opens links with the program of this name.
        const QString environment = m_folder.filePath(QStringLiteral("environment"));
        const QString browser = m_folder.filePath(QStringLiteral("xdg-open"));
        writeFile(browser, "#!/bin/sh\nenv >" + QFile::encodeName(environment) + '\n');
        QVERIFY(QFile::setPermissions(browser, QFile::ReadOwner | QFile::ExeOwner));
        start(QStringLiteral("PATH=${0%/*}:$PATH exec \"$0\""));
        m_screen.click(m_screen.waitForWindow(viewer).topLeft() + logo);
        QVERIFY(!m_screen.waitForWindow(QStringLiteral("^About Qt$")).isEmpty());
        QPoint link;
        QVERIFY(m_screen.waitUntil([&link](const QImage &screen) {
            for (int y = 0; y < screen.height(); ++y)
                for (int x = 0; x < screen.width(); ++x)
                    if (screen.pixel(x, y) == linkColour)
                        link = { x, y };
            return !link.isNull();
        }));
        m_screen.click(link);
        QTRY_VERIFY_WITH_TIMEOUT(contentOf(environment).contains("DISPLAY="), 10000);
        QVERIFY(!contentOf(environment).contains("QT_XCB_GL_INTEGRATION"));
        m_viewer.terminate();
        checkThatItEnds();
    }

    void closedStreamsLeaveTheDisplayAlone()
    {
        start(QStringLiteral("exec \"$0\" 2>&-"));
        m_screen.closeWindow(viewer);
        checkThatItEnds();
    }

    void fullPipeForMessagesBlocksNothing()
    {
        const QString path = m_folder.filePath(QStringLiteral("pipe"));
        const Pipe pipe(path);
        pipe.fill();
        start(QStringLiteral("exec \"$0\" 2>") + path);
        m_screen.closeWindow(viewer);
        checkThatItEnds();
    }

    void terminalThatReadsNoMessagesBlocksNothing()
    {
        const Terminal terminal;
        // Qt writes a message for each rule that it does not understand. A terminal keeps 12 kB.
        const QString rules = QString(3000, QLatin1Char('x')) + QLatin1String("=maybe;");
        start(QStringLiteral("QT_LOGGING_RULES='%1' exec \"$0\" 2>%2")
                  .arg(rules.repeated(10), terminal.path()));
        m_screen.closeWindow(viewer);
        checkThatItEnds();
    }

    void settingsAreSavedWithoutAReaderOfMessages()
    {
        const QString path = m_folder.filePath(QStringLiteral("pipe"));
        Pipe pipe(path);
        // A process that starts this test may ignore the signal, which would be inherited.
        start(QStringLiteral("exec env --default-signal=PIPE \"$0\" 2>") + path);
        pipe.closeReader();
        // Each change of size writes messages.
        m_screen.resizeWindow(viewer, QSize(900, 600));
        QCOMPARE(m_screen.waitForWindow(viewer).size(), QSize(900, 600));
        m_screen.closeWindow(viewer);
        checkThatItEnds();
    }
};

QTEST_GUILESS_MAIN(TestProcess)
#include "tst_process.moc"
