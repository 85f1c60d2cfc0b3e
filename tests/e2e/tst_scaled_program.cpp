// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracebuilder.h"
#include "virtualscreen.h"

#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr QSize windowSize(800, 500);
constexpr QRect clockArea(656, 9, 135, 50);
constexpr QPoint widerButton(690, 272);
constexpr QRect scaleCaption(262, 450, 76, 30);
const QString viewer = QStringLiteral("^Velkor$");

/// Many once the traces, the grid and the texts are there.
int coloursIn(const QImage &picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    return static_cast<int>(colours.size());
}

} // namespace

/// The real program on screens that have more than one pixel for a unit, or seem to.
class TestScaledProgram : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QProcess m_viewer;
    QRect m_window;

    QString program() const
    {
        return m_folder.filePath(QStringLiteral("velkor"));
    }

    void start(const VirtualScreen &screen, const char *variable = nullptr,
               const char *value = nullptr)
    {
        QProcessEnvironment environment = screen.environment();
        if (variable != nullptr)
            environment.insert(QString::fromLatin1(variable), QString::fromLatin1(value));
        m_viewer.setProcessEnvironment(environment);
        m_viewer.setProcessChannelMode(QProcess::ForwardedChannels);
        m_viewer.start(program(), QStringList());
        QVERIFY(m_viewer.waitForStarted());
        m_window = screen.waitForWindow(viewer);
        // The pointer rests where no button lights up under it.
        screen.moveTo(m_window.bottomLeft() + QPoint(m_window.width() / 2, -2));
    }

    void closeAsAUserDoes(const VirtualScreen &screen)
    {
        screen.closeWindow(viewer);
        QVERIFY(m_viewer.waitForFinished(-1));
        QCOMPARE(m_viewer.exitCode(), 0);
    }

    /// The window without the clock, as soon as two pictures in a row are the same.
    QImage settledPicture(const VirtualScreen &screen) const
    {
        QImage last;
        screen.waitUntil([&](const QImage &now) {
            QImage inside = now.copy(m_window).convertToFormat(QImage::Format_RGB32);
            QPainter(&inside).fillRect(clockArea, Qt::black);
            const bool still = coloursIn(inside) > 100 && inside == last;
            last = inside;
            return still;
        });
        return last;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(VELKOR_PROGRAM), program()));
        TraceBuilder()
            .samples([](int i) { return (i * 5) % 97 - 48; })
            .write(m_folder.filePath(QStringLiteral("trace.tdr")));
    }

    void init()
    {
        QFile settings(m_folder.filePath(QStringLiteral("settings_current.ini")));
        QVERIFY(settings.open(QIODevice::WriteOnly));
        settings.write("[PrevFiles]\nStateIndex=1\nMasterId=0\nfile1="
                       + m_folder.filePath(QStringLiteral("trace.tdr")).toUtf8() + '\n');
    }

    void cleanup()
    {
        if (m_viewer.state() != QProcess::NotRunning) {
            m_viewer.kill();
            m_viewer.waitForFinished();
        }
    }

    // 100 dpi, which X servers report by default, and 96 dpi, which is a scale of 1.
    void aScreenWithoutAScaleShowsWhatAnUnscaledProgramDoes_data()
    {
        QTest::addColumn<int>("dotsPerInch");
        QTest::newRow("what the server says") << 0;
        QTest::newRow("exactly 1") << 96;
    }

    void aScreenWithoutAScaleShowsWhatAnUnscaledProgramDoes()
    {
        QFETCH(const int, dotsPerInch);
        // This width is a whole number of millimetres.
        const VirtualScreen screen(QSize(1440, 900), dotsPerInch);
        start(screen, "QT_ENABLE_HIGHDPI_SCALING", "0");
        const QImage unscaled = settledPicture(screen);
        closeAsAUserDoes(screen);
        init();
        start(screen);
        QCOMPARE(m_window.size(), windowSize);
        QCOMPARE(settledPicture(screen), unscaled);
        closeAsAUserDoes(screen);
    }

    void theScaleOfTheScreenIsFollowed_data()
    {
        QTest::addColumn<double>("factor");
        QTest::newRow("1.25") << 1.25;
        QTest::newRow("1.5") << 1.5;
        QTest::newRow("2") << 2.0;
        QTest::newRow("3") << 3.0;
    }

    void theScaleOfTheScreenIsFollowed()
    {
        QFETCH(const double, factor);
        const VirtualScreen screen(QSize(2600, 1700));
        screen.setScale(factor);
        start(screen);
        QCOMPARE(m_window.size(), windowSize * factor);
        // Clicks reach what is shown at their place.
        const QRect caption(m_window.topLeft() + scaleCaption.topLeft() * factor,
                            scaleCaption.size() * factor);
        const QImage before = screen.picture().copy(caption);
        screen.click(m_window.topLeft() + widerButton * factor);
        QVERIFY(screen.waitUntil([&](const QImage &now) { return now.copy(caption) != before; }));
        closeAsAUserDoes(screen);
    }

    void theEnvironmentComesFirst()
    {
        const VirtualScreen screen;
        screen.setScale(1.5);
        start(screen, "QT_SCALE_FACTOR_ROUNDING_POLICY", "Floor");
        QCOMPARE(m_window.size(), windowSize);
        closeAsAUserDoes(screen);
    }
};

QTEST_GUILESS_MAIN(TestScaledProgram)
#include "tst_scaled_program.moc"
