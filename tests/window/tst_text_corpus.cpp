// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"
#include "file_text.h"
#include "settingsdata.h"
#include "test_files.h"
#include "window_actions.h"

#include <QBuffer>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QtTest>

namespace {

using Values = QMap<QString, QString>;

std::vector<corpus::TextRow> rowsOf(const char *table)
{
    return corpus::textRows(QStringLiteral(VELKOR_TEST_DATA "/") + QLatin1String(table));
}

/// \a text for a table: shortened, with escapes for invisible characters.
QString shown(const QString &text)
{
    if (text.size() > 100)
        return QStringLiteral("%1 characters").arg(text.size());
    QString result;
    for (const QChar c : text) {
        const bool plain
            = c.isLetterOrNumber() || c.isPunct() || c.isSymbol() || c == QLatin1Char(' ');
        const bool latin1 = c.unicode() > 0x7e && c.unicode() < 0x100;
        result += plain && !latin1
            ? QString(c)
            : QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result;
}

/// "a=1; b=2" as values; "nothing" is none.
Values valuesOf(const QString &text)
{
    Values values;
    if (text == QLatin1String("nothing"))
        return values;
    const QStringList words = text.split(QStringLiteral("; "));
    for (const QString &word : words)
        values.insert(word.section(QLatin1Char('='), 0, 0), word.section(QLatin1Char('='), 1));
    return values;
}

QStringList linesOf(const Values &values)
{
    QStringList lines;
    for (auto it = values.begin(); it != values.end(); ++it)
        lines.append(it.key() + QLatin1Char('=') + it.value());
    return lines;
}

QString sheetName(int size)
{
    for (const int style : { 1, 2 })
        if (size == contentOf(QStringLiteral(":/style/style_%1.qss").arg(style)).size())
            return QStringLiteral("STYLE%1").arg(style);
    return QString::number(size);
}

/// The values of a window that started with an empty settings file.
Values defaults()
{
    return valuesOf(QStringLiteral(
        "language=en_US; texts=English; style=:/style/style_2.qss; sheet=STYLE2; last=CWD; "
        "folders=0; mask=0; slots=0; files=; master=0; selected=0; geometry=0; state=0; "
        "cursorSpeed=100; cursorDial=100; paramSpeed=100; paramDial=100; size=800x500"));
}

/// The settings; the path of the good trace is TRACE.
Values valuesIn(const SettingsData &settings, const QString &trace)
{
    const auto path = [&trace](const QString &text) {
        return text == trace ? QStringLiteral("TRACE") : shown(text);
    };
    QStringList files;
    for (int slot = 0; slot < 6; ++slot)
        if ((settings.read_index >> slot & 1) != 0)
            files.append(settings.current_files[slot].isEmpty()
                             ? QStringLiteral("-")
                             : path(settings.current_files[slot]));
    const auto text = [](qint64 number) { return QString::number(number); };
    return {
        { QStringLiteral("language"), shown(settings.current_language) },
        { QStringLiteral("style"), path(settings.current_CSS_path) },
        { QStringLiteral("last"),
          settings.last_folder == QDir::currentPath() ? QStringLiteral("CWD")
                                                      : shown(settings.last_folder) },
        { QStringLiteral("files"), files.join(QLatin1Char(' ')) },
        { QStringLiteral("folders"), text(settings.work_folders.size()) },
        { QStringLiteral("mask"), text(settings.read_index) },
        { QStringLiteral("master"), text(settings.master_ID) },
        { QStringLiteral("geometry"), text(settings.window_geometry.size()) },
        { QStringLiteral("state"), text(settings.window_state.size()) },
        { QStringLiteral("cursorSpeed"), text(settings.cursor_dial_speed) },
        { QStringLiteral("paramSpeed"), text(settings.param_dial_speed) },
    };
}

/// The settings of a window and the values that it shows.
Values valuesIn(const WindowFixture &fixture, const QString &trace)
{
    const MainWindowProbe &probe = fixture.probe();
    const SettingsData &settings = *probe.settingsData();
    const QString smooth = probe.smooth_button()->text();
    Values values = valuesIn(settings, trace);
    values[QStringLiteral("texts")] = smooth == QString::fromUtf8("Сглаживание")
        ? QStringLiteral("Russian")
        : smooth == QLatin1String("Smooth") ? QStringLiteral("English")
                                            : smooth;
    values[QStringLiteral("sheet")] = sheetName(int(settings.current_CSS.size()));
    values[QStringLiteral("slots")] = QString::number(probe.rfg_read_index());
    values[QStringLiteral("selected")] = QString::number(probe.rfg_ID());
    values[QStringLiteral("cursorDial")] = QString::number(probe.cursor_dial()->maximum());
    values[QStringLiteral("paramDial")] = QString::number(probe.param_dial()->maximum());
    values[QStringLiteral("size")]
        = QStringLiteral("%1x%2").arg(fixture.window().width()).arg(fixture.window().height());
    return values;
}

/// The error in the slots that hold the good trace; empty when all show it.
QString faultOfTraces(const WindowFixture &fixture, const QString &trace)
{
    const MainWindowProbe &probe = fixture.probe();
    if (!(probe.dist_coef() > 0.0))
        return QStringLiteral("no distance per count");
    for (int slot = 0; slot < 6; ++slot)
        if ((probe.rfg_read_index() >> slot & 1) != 0
            && probe.settingsData()->current_files[slot] == trace
            && (probe.rfg_series()[slot]->count() != 499
                || probe.rfg_series()[slot]->at(498) != QPointF(249.0, 5.0)))
            return QStringLiteral("slot %1").arg(slot);
    return {};
}

/// Gives the settings of \a row to a window with a good trace, saves them, loads them again and
/// starts a window with them.
void checkSettings(const corpus::TextRow &row)
{
    QString expected = row.expected;
    // The table has these two bytes as one version of Qt reads them.
    expected.replace(QStringLiteral("\\u00c3\\u00bc"), shown(qtcompat::settingsText("\xc3\xbc")));
    Values values = defaults();
    const Values named = valuesOf(expected);
    for (auto it = named.begin(); it != named.end(); ++it) {
        QVERIFY2(values.contains(it.key()), qPrintable(it.key()));
        values.insert(it.key(), it.value());
    }

    WindowFixture fixture;
    openWith(fixture, { TraceBuilder().samples(5) });
    const QString trace = fixture.path(QStringLiteral("t1.tdr"));
    const QByteArray bytes = QByteArray(row.bytes).replace("TRACE", trace.toUtf8());
    const QString file = fixture.path(QStringLiteral("bad.ini"));
    writeFile(file, bytes);
    SettingsData *settings = fixture.window().settings();
    settings->loadSettings(file, 63);
    settings->updateSettings(63);
    QCOMPARE(linesOf(valuesIn(fixture, trace)), linesOf(values));
    QCOMPARE(faultOfTraces(fixture, trace), QString());

    const Values before = valuesIn(*settings, trace);
    settings->saveSettings(file, 63);
    SettingsData again(nullptr);
    again.loadSettings(file, 63);
    Values after = valuesIn(again, trace);
    // Three fixed entries are saved in place of the list.
    after.insert(QStringLiteral("folders"), before.value(QStringLiteral("folders")));
    QCOMPARE(linesOf(after), linesOf(before));

    // Closing the fixture's window first would write its settings over the file.
    WindowFixture::writeSettings(bytes);
    MainWindow started;
    started.show();
    QVERIFY(QTest::qWaitForWindowExposed(&started));
    QCOMPARE(started.size(), QSize(800, 500));
    QCOMPARE(MainWindowProbe(started).rfg_read_index(),
             values.value(QStringLiteral("slots")).toInt());
    QCOMPARE(linesOf(valuesIn(*started.settings(), trace)), linesOf(before));
}

/// Gives the sheet of \a row to a window with a good trace.
void checkSheet(const corpus::TextRow &row)
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { TraceBuilder().samples(5) });
    const QString file = fixture.path(QStringLiteral("bad.qss"));
    writeFile(file, row.bytes);
    window.settings()->current_CSS_path = file;
    window.settings()->parse_CSS();
    const QColor colour = fixture.probe().delta_lbl()->palette().color(QPalette::WindowText);
    const QByteArray kept = window.settings()->current_CSS.toLatin1();
    const QString text = kept == row.bytes ? QStringLiteral("all")
        : kept.isEmpty()                   ? QStringLiteral("none")
                                           : QStringLiteral("another");
    QCOMPARE(QStringLiteral("text=%1; colour=%2").arg(text, colour.name()), row.expected);
    QCOMPARE(fixture.probe().rfg_read_index(), 1);
    QCOMPARE(faultOfTraces(fixture, fixture.path(QStringLiteral("t1.tdr"))), QString());
    QCOMPARE(fixture.probe().m_brush().color(), QColor(11, 12, 13));
    QVERIFY(!window.grab().isNull());
}

void checkLanguages(const corpus::TextRow &row)
{
    QByteArray bytes = row.bytes;
    QBuffer list(&bytes);
    QVERIFY(list.open(QIODevice::ReadOnly));
    SettingsData settings(nullptr);
    settings.readLanguages(list);
    QStringList entries;
    for (int i = 0; i < SettingsData::languageCount; ++i) {
        const language &entry = settings.languageList[i];
        if (entry.id < 0)
            break;
        QCOMPARE(entry.id, i);
        entries.append(shown(entry.CODE) + QLatin1Char('=') + shown(entry.label));
    }
    QCOMPARE(entries.isEmpty() ? QStringLiteral("nothing") : entries.join(QStringLiteral(", ")),
             row.expected);
}

} // namespace

/// Damaged settings, style sheets and language lists.
class TestTextCorpus : public QObject
{
    Q_OBJECT

private slots:
    void tablesHaveAllTheirRows()
    {
        QVERIFY(rowsOf("settings.txt").size() >= 93);
        QVERIFY(rowsOf("sheets.txt").size() >= 22);
        QVERIFY(rowsOf("languages.txt").size() >= 19);
    }

    void settingsGiveTheValuesOfTheirRow()
    {
        each(rowsOf("settings.txt"), checkSettings);
    }

    void sheetGivesTheColourOfItsRow()
    {
        each(rowsOf("sheets.txt"), checkSheet);
    }

    void languageListGivesTheEntriesOfItsRow()
    {
        each(rowsOf("languages.txt"), checkLanguages);
    }
};

QTEST_MAIN(TestTextCorpus)
#include "tst_text_corpus.moc"
