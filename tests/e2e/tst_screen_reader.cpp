// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibletree.h"
#include "tracebuilder.h"
#include "virtualscreen.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

using Nodes = QVector<AccessibleTree::Node>;

const QString viewer = QStringLiteral("^Velkor$");
const QString program = QStringLiteral("velkor");
constexpr QPoint plotMiddle(420, 220);

/// What is read of the window, control by control: role, name, description. Where a line ends in an
/// ellipsis any text may follow.
const char *const english[] = {
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

const char *const russian[] = {
    "frame: Velkor",
    "graphic: Логотип",
    "label: Δ = 0.00 м (Расстояние между курсорами)",
    "check box: Сглаживание рефлектограмм",
    "push button: Сбросить всё",
    "push button: Открыть файлы рефлектограмм",
    "push button: Настройки",
    "check box: Разность с мастером",
    "push button: Уменьшить",
    "push button: Увеличить",
    "push button: Прокрутить влево",
    "push button: Прокрутить вправо",
    "radio button: Выбрать курсор A",
    "radio button: Выбрать курсор B",
    "dial: X Сдвиг 0.00 м (Энкодер параметров)",
    "dial: Курсор A 0.00 м (Энкодер курсоров)",
    "chart: …",
    "radio button: Курсор A x = 0.00 м y = 17",
    "radio button: Курсор B x = 0.00 м y = 17",
    "radio button: РФГ 1 5 Mar 2024 (Рефлектограмма 1, мастер)",
    "radio button: РФГ 2 9 Jul 2025 (Рефлектограмма 2)",
    "radio button: РФГ 3 …",
    "radio button: РФГ 4 …",
    "radio button: РФГ 5 …",
    "radio button: РФГ 6 …",
    "radio button: X Сдвиг 0.00 м (Горизонтальный сдвиг)",
    "radio button: КУ 1.500 (Коэффициент укорочения)",
    "radio button: Ширина импульса …",
    "radio button: Импеданс …",
    "radio button: Усреднение …",
    "radio button: Y Сдвиг 0 (Вертикальный сдвиг)",
    "radio button: Масштаб 31.25 m",
    "radio button: Амплитуда 20В (Амплитуда импульса)",
    "radio button: Усиление …",
    "radio button: Резерв",
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
class TestScreenReader : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    VirtualScreen m_screen;
    std::unique_ptr<AccessibleTree> m_tree;
    QProcess m_viewer;
    QRect m_window;

    QString inFolder(const char *name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    void start(const char *language)
    {
        QFile settings(inFolder("settings_current.ini"));
        QVERIFY(settings.open(QIODevice::WriteOnly));
        settings.write(QByteArray("[General]\nlanguage=") + language
                       + "\n[PrevFiles]\nStateIndex=3\nMasterId=0\nfile1="
                       + inFolder("t1.tdr").toUtf8() + "\nfile2=" + inFolder("t2.tdr").toUtf8()
                       + '\n');
        settings.close();
        m_viewer.setProcessEnvironment(m_tree->environment());
        m_viewer.setProcessChannelMode(QProcess::ForwardedChannels);
        m_viewer.start(inFolder("velkor"), QStringList());
        QVERIFY(m_viewer.waitForStarted());
        m_window = m_screen.waitForWindow(viewer);
        QVERIFY(!m_window.isEmpty());
        m_screen.moveTo(m_window.topLeft() + plotMiddle);
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
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(VELKOR_PROGRAM), inFolder("velkor")));
        TraceBuilder().samples([](int) { return 17; }).ku(1.5F).write(inFolder("t1.tdr"));
        TraceBuilder().date(2025, 7, 9).write(inFolder("t2.tdr"));
        m_tree = std::make_unique<AccessibleTree>(m_screen.environment());
    }

    void cleanup()
    {
        if (m_viewer.state() == QProcess::NotRunning)
            return;
        m_screen.closeWindow(viewer);
        if (!m_viewer.waitForFinished(10000))
            m_viewer.kill();
        QCOMPARE(m_viewer.exitStatus(), QProcess::NormalExit);
    }

    void cleanupTestCase()
    {
        m_tree.reset();
    }

    void theWholeWindowIsReadOut_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QStringList>("expected");
        const auto list = [](const auto &lines) {
            QStringList texts;
            for (const char *line : lines)
                texts.append(QString::fromUtf8(line));
            return texts;
        };
        QTest::newRow("English") << "en_US" << list(english);
        QTest::newRow("Russian") << "ru_RU" << list(russian);
    }

    void theWholeWindowIsReadOut()
    {
        QFETCH(const QString, language);
        QFETCH(const QStringList, expected);
        start(qPrintable(language));
        QStringList heard;
        QVERIFY(m_tree->waitUntil(program, [&](const Nodes &nodes) {
            heard = readOut(nodes);
            return heard.size() > expected.size();
        }));
        // The clock is between the cursor buttons and the dials.
        const auto clock = heard.indexOf(QRegularExpression(
            QStringLiteral("^label: .*\\d\\d:\\d\\d:\\d\\d \\((Date and time|Дата и время)\\)$")));
        QVERIFY(clock >= 0);
        heard.removeAt(clock);
        QCOMPARE(heard.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            const QString line = expected.at(i);
            const bool matches = line.endsWith(QChar(0x2026))
                ? heard.at(i).startsWith(line.chopped(1)) && heard.at(i).size() >= line.size()
                : heard.at(i) == line;
            QVERIFY2(matches, qPrintable(heard.at(i) + QLatin1String(" / ") + line));
        }
    }

    void theKeyboardGoesFromThePlotThroughTheWindow()
    {
        start("en_US");
        waitForFocus("Plot");
        const QImage before = m_screen.picture();
        m_screen.key(QStringLiteral("Tab"));
        waitForFocus("Settings");
        // The focus frame is white.
        QVERIFY(m_screen.waitUntil([&](const QImage &screen) {
            int white = 0;
            for (int y = m_window.top(); y <= m_window.bottom(); ++y)
                for (int x = m_window.left(); x <= m_window.right(); ++x)
                    if (screen.pixel(x, y) == qRgb(255, 255, 255)
                        && before.pixel(x, y) != qRgb(255, 255, 255))
                        ++white;
            return white > 500;
        }));
        m_screen.key(QStringLiteral("shift+Tab"));
        waitForFocus("Plot");
    }

    void aChangedReadingIsReported()
    {
        start("en_US");
        waitForFocus("Plot");
        // The wheel over the plot moves the cursor.
        m_screen.click(m_window.topLeft() + plotMiddle, 4);
        const QRegularExpression moved(
            QStringLiteral("^radio button: Cursor A x = 0\\.[1-9]\\d m y = 17$"));
        QStringList heard;
        QVERIFY2(m_tree->waitUntil(program,
                                   [&](const Nodes &nodes) {
                                       heard = readOut(nodes);
                                       return heard.indexOf(moved) >= 0;
                                   }),
                 qPrintable(heard.join(QLatin1Char('\n'))));
    }
};

QTEST_GUILESS_MAIN(TestScreenReader)
#include "tst_screen_reader.moc"
