// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "file_text.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "trace_recipe.h"
#include "windowactions.h"
#include "windowstate.h"

#include <QBuffer>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QtTest>

namespace {

using Values = QMap<QString, QString>;

QString table(const char *name)
{
    return QStringLiteral(VELKOR_TEST_DATA "/") + QLatin1String(name);
}

/// \a text for a table: short, and without signs that do not show.
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

/// What a window has of an empty settings file.
Values defaults()
{
    return valuesOf(QStringLiteral(
        "language=en_US; texts=English; style=:/style/style_2.qss; sheet=STYLE2; last=CWD; "
        "folders=0; mask=0; slots=0; files=; master=0; selected=0; geometry=0; state=0; "
        "cursorSpeed=100; cursorDial=100; paramSpeed=100; paramDial=100; size=800x500"));
}

Values valuesIn(const SettingsData &settings, const QString &trace)
{
    Values values;
    const auto path = [&trace](const QString &text) {
        return text == trace ? QStringLiteral("TRACE") : shown(text);
    };
    QStringList files;
    for (int slot = 0; slot < 6; ++slot)
        if ((settings.read_index >> slot & 1) != 0)
            files.append(settings.current_files[slot].isEmpty()
                             ? QStringLiteral("-")
                             : path(settings.current_files[slot]));
    values.insert(QStringLiteral("language"), shown(settings.current_language));
    values.insert(QStringLiteral("style"), path(settings.current_CSS_path));
    values.insert(QStringLiteral("last"),
                  settings.last_folder == QDir::currentPath() ? QStringLiteral("CWD")
                                                              : shown(settings.last_folder));
    values.insert(QStringLiteral("folders"), QString::number(settings.work_folders.size()));
    values.insert(QStringLiteral("mask"), QString::number(settings.read_index));
    values.insert(QStringLiteral("files"), files.join(QLatin1Char(' ')));
    values.insert(QStringLiteral("master"), QString::number(settings.master_ID));
    values.insert(QStringLiteral("geometry"), QString::number(settings.window_geometry.size()));
    values.insert(QStringLiteral("state"), QString::number(settings.window_state.size()));
    values.insert(QStringLiteral("cursorSpeed"), QString::number(settings.cursor_dial_speed));
    values.insert(QStringLiteral("paramSpeed"), QString::number(settings.param_dial_speed));
    return values;
}

Values valuesIn(const WindowFixture &fixture, const QString &trace)
{
    const MainWindowProbe &probe = fixture.probe();
    const SettingsData &settings = *probe.settingsData();
    Values values = valuesIn(settings, trace);
    const QString smooth = probe.smooth_button()->text();
    values.insert(QStringLiteral("texts"),
                  smooth == QString::fromUtf8("Сглаживание") ? QStringLiteral("Russian")
                      : smooth == QLatin1String("Smooth")    ? QStringLiteral("English")
                                                             : smooth);
    values.insert(QStringLiteral("sheet"), sheetName(int(settings.current_CSS.size())));
    values.insert(QStringLiteral("slots"), QString::number(probe.rfg_read_index()));
    values.insert(QStringLiteral("selected"), QString::number(probe.rfg_ID()));
    values.insert(QStringLiteral("cursorDial"), QString::number(probe.cursor_dial()->maximum()));
    values.insert(QStringLiteral("paramDial"), QString::number(probe.param_dial()->maximum()));
    values.insert(
        QStringLiteral("size"),
        QStringLiteral("%1x%2").arg(fixture.window().width()).arg(fixture.window().height()));
    return values;
}

/// Empty when every slot that was given the good trace shows it.
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

void addRows(const char *name)
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const auto rows = corpus::textRows(table(name));
    for (const corpus::TextRow &row : rows)
        QTest::newRow(qPrintable(row.name)) << row.bytes << row.expected;
}

} // namespace

/// Damaged settings, style sheets and language lists, each given to a window with a good trace.
class TestTextCorpus : public QObject
{
    Q_OBJECT

private slots:
    void thereAreEnoughOfThem()
    {
        QVERIFY(corpus::textRows(table("settings.txt")).size()
                    + corpus::textRows(table("sheets.txt")).size()
                    + corpus::textRows(table("languages.txt")).size()
                >= 60);
    }

    void settingsLeaveTheWindowAsTheirRowSays_data()
    {
        addRows("settings.txt");
    }

    void settingsLeaveTheWindowAsTheirRowSays()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        // The table has these two bytes as one of the toolkits reads them.
        expected.replace(QStringLiteral("\\u00c3\\u00bc"),
                         shown(qtcompat::settingsText("\xc3\xbc")));
        Values values = defaults();
        const Values named = valuesOf(expected);
        for (auto it = named.begin(); it != named.end(); ++it) {
            QVERIFY2(values.contains(it.key()), qPrintable(it.key()));
            values.insert(it.key(), it.value());
        }

        WindowFixture fixture;
        openWith(fixture, { TraceBuilder().samples(5) });
        const QString trace = fixture.path(QStringLiteral("t1.tdr"));
        bytes.replace("TRACE", trace.toUtf8());
        const QString file = fixture.path(QStringLiteral("bad.ini"));
        writeFile(file, bytes);
        SettingsData *settings = fixture.window().settings();
        settings->loadSettings(file, 63);
        settings->updateSettings(63);
        QCOMPARE(linesOf(valuesIn(fixture, trace)), linesOf(values));
        QCOMPARE(faultOfTraces(fixture, trace), QString());

        // What is saved then is read as what it was.
        const Values before = valuesIn(*settings, trace);
        settings->saveSettings(file, 63);
        SettingsData again(nullptr);
        again.loadSettings(file, 63);
        Values after = valuesIn(again, trace);
        // Three entries that are always the same are saved in place of the list.
        after.insert(QStringLiteral("folders"), before.value(QStringLiteral("folders")));
        QCOMPARE(linesOf(after), linesOf(before));

        // And the same for the file that a window starts with.
        WindowFixture::writeSettings(bytes);
        {
            // Closing would write the settings over the file.
            MainWindow started;
            started.show();
            QVERIFY(QTest::qWaitForWindowExposed(&started));
            QCOMPARE(started.size(), QSize(800, 500));
            QCOMPARE(MainWindowProbe(started).rfg_read_index(),
                     values.value(QStringLiteral("slots")).toInt());
            QCOMPARE(linesOf(valuesIn(*started.settings(), trace)), linesOf(before));
        }
    }

    void aSheetLeavesTheWindowAsItsRowSays_data()
    {
        addRows("sheets.txt");
    }

    void aSheetLeavesTheWindowAsItsRowSays()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().samples(5) });
        const QString trace = fixture.path(QStringLiteral("t1.tdr"));
        const QString file = fixture.path(QStringLiteral("bad.qss"));
        writeFile(file, bytes);
        window.settings()->current_CSS_path = file;
        window.settings()->parse_CSS();
        const QColor colour = fixture.probe().delta_lbl()->palette().color(QPalette::WindowText);
        const QString &kept = window.settings()->current_CSS;
        const QString text = kept == QString::fromLatin1(bytes.constData(), bytes.size())
            ? QStringLiteral("all")
            : kept.isEmpty() ? QStringLiteral("none")
                             : QStringLiteral("another");
        QCOMPARE(QStringLiteral("text=%1; colour=%2").arg(text, colour.name()), expected);
        QCOMPARE(fixture.probe().rfg_read_index(), 1);
        QCOMPARE(faultOfTraces(fixture, trace), QString());
        QCOMPARE(fixture.probe().m_brush().color(), QColor(11, 12, 13));
        QVERIFY(!window.grab().isNull());
    }

    void aLanguageListIsReadAsItsRowSays_data()
    {
        addRows("languages.txt");
    }

    void aLanguageListIsReadAsItsRowSays()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        SettingsData settings(nullptr);
        QBuffer list(&bytes);
        QVERIFY(list.open(QIODevice::ReadOnly));
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
                 expected);
    }
};

QTEST_MAIN(TestTextCorpus)
#include "tst_text_corpus.moc"
