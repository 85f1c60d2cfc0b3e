// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "programtest.h"
#include "test_files.h"
#include "tracebuilder.h"

#include <QtTest>

namespace {

constexpr QSize windowSize(800, 500);
constexpr QRect clockArea(656, 9, 135, 50);
constexpr QPoint widerButton(690, 272);
constexpr QRect scaleCaption(262, 450, 76, 30);

} // namespace

/// The real program on screens that have, or seem to have, several pixels per unit.
class TestScaledProgram : public ProgramTest
{
    Q_OBJECT

private:
    void startOnATrace(const QString &script = QStringLiteral("exec \"$0\""))
    {
        const QString trace = TraceBuilder()
                                  .samples([](int i) { return (i * 5) % 97 - 48; })
                                  .write(path(QStringLiteral("trace.tdr")));
        writeFile(settingsFile(),
                  "[PrevFiles]\nStateIndex=1\nMasterId=0\nfile1=" + trace.toUtf8() + '\n');
        start(script);
    }

private slots:
    void screenWithoutAScaleShowsTheUnscaledProgram()
    {
        struct Row
        {
            const char *name;
            int dotsPerInch;
        };
        // X servers report 100 dpi by default; 96 dpi is a scale of 1.
        each<Row>({ { "what the server says", 0 }, { "exactly 1", 96 } }, [this](const Row &row) {
            // This width is a whole number of millimetres.
            useScreen(QSize(1440, 900), row.dotsPerInch);
            startOnATrace(QStringLiteral("QT_ENABLE_HIGHDPI_SCALING=0 exec \"$0\""));
            const QImage unscaled = settledPicture(clockArea);
            closeViewer();
            startOnATrace();
            QCOMPARE(window.size(), windowSize);
            QCOMPARE(settledPicture(clockArea), unscaled);
            closeViewer();
        });
    }

    void scaleOfTheScreenIsFollowed()
    {
        struct Row
        {
            const char *name;
            double factor;
        };
        each<Row>({ { "1.25", 1.25 }, { "1.5", 1.5 }, { "2", 2.0 }, { "3", 3.0 } },
                  [this](const Row &row) {
                      useScreen(QSize(2600, 1700));
                      screen->setScale(row.factor);
                      startOnATrace();
                      QCOMPARE(window.size(), windowSize * row.factor);
                      // A click reaches the control that is shown at its place.
                      const QRect caption(scaleCaption.topLeft() * row.factor,
                                          scaleCaption.size() * row.factor);
                      const QImage before = part(caption);
                      screen->click(onScreen(widerButton * row.factor));
                      QVERIFY(screen->waitUntil([&](const QImage &now) {
                          return now.copy(onScreen(caption)) != before;
                      }));
                      closeViewer();
                  });
    }

    void environmentOverridesTheScreen()
    {
        useScreen(QSize(1400, 900));
        screen->setScale(1.5);
        startOnATrace(QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY=Floor exec \"$0\""));
        QCOMPARE(window.size(), windowSize);
        closeViewer();
    }
};

QTEST_GUILESS_MAIN(TestScaledProgram)
#include "tst_scaled_program.moc"
