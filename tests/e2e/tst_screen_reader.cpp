// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibletree.h"
#include "programtest.h"
#include "test_files.h"
#include "tracebuilder.h"

#include <QtTest>

#include <memory>

namespace {

using Nodes = QVector<AccessibleTree::Node>;

const QString program = QStringLiteral("velkor");
constexpr QPoint plotMiddle(420, 220);

/// The controls as they are read: role, name, description. An ellipsis at the end of a line stands
/// for any text.
const char *const controls[] = {
    "frame: Velkor",
    "graphic: Logo",
    "label: Δ = 0.00 m (Distance between the cursors)",
    "check box: Smooth traces",
    "push button: Reset all",
    "push button: Open trace files",
    "push button: Settings",
    "check box: Difference from the master",
    "push button: Zoom out",
    "push button: Zoom in",
    "push button: Scroll left",
    "push button: Scroll right",
    "radio button: Choose cursor A",
    "radio button: Choose cursor B",
    "dial: X Shift 0.00 m (Parameter dial)",
    "dial: Cursor A 0.00 m (Cursor dial)",
    "chart: …",
    "radio button: Cursor A x = 0.00 m y = 17",
    "radio button: Cursor B x = 0.00 m y = 17",
    "radio button: RFG 1 5 Mar 2024 (Trace 1, master)",
    "radio button: RFG 2 9 Jul 2025 (Trace 2)",
    "radio button: RFG 3 (not loaded) (Trace 3)",
    "radio button: RFG 4 (not loaded) (Trace 4)",
    "radio button: RFG 5 (not loaded) (Trace 5)",
    "radio button: RFG 6 (not loaded) (Trace 6)",
    "radio button: X Shift 0.00 m (Horizontal shift)",
    "radio button: KU 1.500 (Shortening factor)",
    "radio button: Pulse Width …",
    "radio button: Impedance …",
    "radio button: Average …",
    "radio button: Y Shift 0 (Vertical shift)",
    "radio button: Scale 31.25 m",
    "radio button: Pulse Amp 20V (Pulse amplitude)",
    "radio button: Gain …",
    "radio button: Reserved",
};

bool isOnlyThere(const AccessibleTree::Node &node)
{
    return !node.isShown || node.role == QLatin1String("application")
        || node.role == QLatin1String("filler")
        || (node.role == QLatin1String("frame") && node.name.isEmpty());
}

QString textOf(const AccessibleTree::Node &node)
{
    QString text = node.role + QLatin1String(": ") + node.name.simplified();
    if (!node.description.isEmpty())
        text += QStringLiteral(" (%1)").arg(node.description);
    return text;
}

QStringList readOut(const Nodes &nodes)
{
    QStringList lines;
    for (const AccessibleTree::Node &node : nodes)
        if (!isOnlyThere(node))
            lines.append(textOf(node));
    return lines;
}

QString focusedIn(const Nodes &nodes)
{
    for (const AccessibleTree::Node &node : nodes)
        if (node.isFocused)
            return node.description.isEmpty() ? node.name : node.description;
    return {};
}

} // namespace

/// The real program, as a screen reader reads it on the accessibility bus.
class TestScreenReader : public ProgramTest
{
    Q_OBJECT

private:
    std::unique_ptr<AccessibleTree> m_tree;

    void startOnTwoTraces()
    {
        const QString first = path(QStringLiteral("t1.tdr"));
        const QString second = path(QStringLiteral("t2.tdr"));
        TraceBuilder().samples(17).ku(1.5F).write(first);
        TraceBuilder().date(2025, 7, 9).write(second);
        writeFile(settingsFile(),
                  "[PrevFiles]\nStateIndex=3\nMasterId=0\nfile1=" + first.toUtf8()
                      + "\nfile2=" + second.toUtf8() + '\n');
        start();
        screen->moveTo(onScreen(plotMiddle));
    }

    void waitForFocus(const char *name) const
    {
        QString now;
        const bool found = m_tree->waitUntil(program, [&](const Nodes &nodes) {
            now = focusedIn(nodes);
            return now == QString::fromUtf8(name);
        });
        QVERIFY2(found, qPrintable(now));
    }

private slots:
    void init()
    {
        if (m_tree == nullptr)
            m_tree = std::make_unique<AccessibleTree>(screen->environment());
        environment = m_tree->environment();
    }

    void allControlsAreReadOut()
    {
        startOnTwoTraces();
        constexpr int count = static_cast<int>(std::size(controls));
        QStringList lines;
        QVERIFY(m_tree->waitUntil(program, [&](const Nodes &nodes) {
            lines = readOut(nodes);
            return lines.size() > count;
        }));
        // The clock is between the cursor buttons and the dials.
        const auto clock = lines.indexOf(QRegularExpression(
            QStringLiteral("^label: .*\\d\\d:\\d\\d:\\d\\d \\(Date and time\\)$")));
        QVERIFY(clock >= 0);
        lines.removeAt(clock);
        QCOMPARE(static_cast<int>(lines.size()), count);
        for (int i = 0; i < count; ++i) {
            const QString line = QString::fromUtf8(controls[i]);
            const bool matches = line.endsWith(QChar(0x2026))
                ? lines.at(i).startsWith(line.chopped(1)) && lines.at(i).size() >= line.size()
                : lines.at(i) == line;
            QVERIFY2(matches, qPrintable(lines.at(i) + QLatin1String(" / ") + line));
        }
        closeViewer();
    }

    void focusGoesFromThePlotThroughTheWindow()
    {
        startOnTwoTraces();
        waitForFocus("Plot");
        const QImage before = screen->picture();
        screen->key(QStringLiteral("Tab"));
        waitForFocus("Settings");
        // The focus frame is white.
        QVERIFY(screen->waitUntil([&](const QImage &now) {
            int white = 0;
            for (int y = window.top(); y <= window.bottom(); ++y)
                for (int x = window.left(); x <= window.right(); ++x)
                    if (now.pixel(x, y) == qRgb(255, 255, 255)
                        && before.pixel(x, y) != qRgb(255, 255, 255))
                        ++white;
            return white > 500;
        }));
        screen->key(QStringLiteral("shift+Tab"));
        waitForFocus("Plot");
        closeViewer();
    }

    void changedReadingIsReported()
    {
        startOnTwoTraces();
        waitForFocus("Plot");
        // The wheel over the plot moves the cursor.
        screen->click(onScreen(plotMiddle), 4);
        const QRegularExpression moved(
            QStringLiteral("^radio button: Cursor A x = 0\\.[1-9]\\d m y = 17$"));
        QStringList lines;
        QVERIFY2(m_tree->waitUntil(program,
                                   [&](const Nodes &nodes) {
                                       lines = readOut(nodes);
                                       return lines.indexOf(moved) >= 0;
                                   }),
                 qPrintable(lines.join(QLatin1Char('\n'))));
        closeViewer();
    }
};

QTEST_GUILESS_MAIN(TestScreenReader)
#include "tst_screen_reader.moc"
