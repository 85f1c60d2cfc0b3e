// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "inputevents.h"
#include "oddplaces.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "windowactions.h"
#include "windowstate.h"
#include "windowtest.h"

#include <QRegularExpression>
#include <QtTest>

namespace {

constexpr qint64 answerTime = 200; ///< most milliseconds for any file

/// The lines of the state about traces and view, which no style sheet changes.
QStringList tracesOf(MainWindow &window)
{
    return stateOf(window).filter(
        QRegularExpression(QStringLiteral("^(rfg_series|range:|cursors:|title:|slots:)")));
}

} // namespace

class TestOddFiles : public WindowTest
{
    Q_OBJECT

private:
    /// A window that shows two good traces, slot 1 selected and master.
    MainWindow &openGood()
    {
        MainWindow &window = openOn({ TraceBuilder().samples([](int i) { return i % 50; }),
                                      TraceBuilder().samples(9).shiftY(4).minstep(2.5F) });
        window.cursorSetup_slot(30);
        return window;
    }

private slots:
    // ---- Traces ----

    void nothingOnScreenChangesWhateverIsLoadedInstead()
    {
        const OddPlaces places;
        MainWindow &window = openGood();
        const QStringList before = stateOf(window);
        for (const OddPlace &place : places.all()) {
            const qint64 took
                = fastest([&] { asOrdinaryUser([&] { window.add_Selected_RFG(place.path, 1); }); });
            QVERIFY2(took < answerTime, place.kind);
            QVERIFY2(stateOf(window) == before, place.kind);
            QVERIFY2(probe().rfg_DATA()[1].file_name == QLatin1String("t2"), place.kind);
            QVERIFY2(QApplication::activeModalWidget() == nullptr, place.kind);
        }
    }

    void anEmptySlotTurnsIntoOneOfZerosAndNoOtherChanges()
    {
        const OddPlaces places;
        const auto otherSlots = [](MainWindow &window) {
            const QStringList lines = tracesOf(window);
            return lines.filter(QStringLiteral("[0]")) + lines.filter(QStringLiteral("[1]"));
        };
        for (const OddPlace &place : places.all()) {
            MainWindow &window = openGood();
            const QStringList before = otherSlots(window);
            asOrdinaryUser([&] { window.add_Selected_RFG(place.path, 4); });
            QVERIFY2(probe().rfg_read_index() == 19, place.kind);
            QVERIFY2(probe().rfg_DATA()[4].full_path.isEmpty(), place.kind);
            QVERIFY2(probe().rfg_series()[4]->at(498) == QPointF(249.0, 0.0), place.kind);
            QVERIFY2(otherSlots(window) == before, place.kind);
        }
    }

#ifdef Q_OS_LINUX
    // Reading the kernel's messages blocks until there is one.
    void aFileOfSizeZeroIsNotRead()
    {
        MainWindow &window = openGood();
        const QStringList before = tracesOf(window);
        for (const char *path : { "/proc/self/status", "/proc/uptime", "/proc/kmsg" }) {
            const QString file = QString::fromLatin1(path);
            const qint64 took = fastest([&] {
                window.add_Selected_RFG(file, 1);
                window.settings()->loadSettings(file, 63);
                window.settings()->current_CSS_path = file;
                window.settings()->parse_CSS();
            });
            QVERIFY2(took < answerTime, path);
            QVERIFY2(window.settings()->current_CSS.isEmpty(), path);
            QVERIFY2(tracesOf(window) == before, path);
        }
        QVERIFY(!QFileInfo(QStringLiteral("/proc/uptime")).size());
    }
#endif

    void aTraceWithAStrangeNameIsRead()
    {
        struct Row
        {
            const char *name;
            QString shown;
        };
        const QByteArray longest(251, 'n');
        std::vector<Row> rows{ { "кабель 7.tdr", QStringLiteral("кабель 7") },
                               { "\xf0\x9f\x94\x8c.tdr", QString::fromUtf8("\xf0\x9f\x94\x8c") },
                               { "a.b.tdr", QStringLiteral("a") },
                               { ".tdr", QString() },
                               { "%1%2.tdr", QStringLiteral("%1%2") } };
#ifdef Q_OS_UNIX
        rows.push_back({ "a\nb.tdr", QStringLiteral("a\nb") });
        rows.push_back({ "<b>&amp;.tdr", QStringLiteral("<b>&amp;") });
        const QByteArray longestName = longest + ".tdr";
        rows.push_back({ longestName.constData(), QString::fromLatin1(longest) });
#endif
        each<Row>(rows, [this](const Row &row) {
            MainWindow &window = openGood();
            const QString path
                = fixture->trace(QString::fromUtf8(row.name), TraceBuilder().samples(-7));
            window.add_Selected_RFG(path, 0);
            QCOMPARE(probe().rfg_series()[0]->at(0), QPointF(0.0, -7.0));
            QVERIFY(probe().chart_title().text().startsWith(row.shown + QStringLiteral(", /")));
            // And again from the settings of this run.
            fixture->open();
            QCOMPARE(probe().rfg_DATA()[0].full_path, path);
            QCOMPARE(probe().rfg_series()[0]->at(0), QPointF(0.0, -7.0));
        });
    }

    void aRunWithPathsThatCannotBeReadStartsAgain()
    {
        const OddPlaces places;
        for (const OddPlace &place : places.all()) {
            fixture->close();
            WindowFixture::writePreviousRun({ place.path, place.path });
            fixture->open();
            input::click(probe().reset_all_button());
            QVERIFY2(probe().rfg_read_index() == 3, place.kind);
            QVERIFY2(probe().rfg_series()[1]->count() == 499, place.kind);
            QVERIFY2(probe().dist_coef() > 0.0, place.kind);
        }
    }

    // ---- Settings ----

    void aLastFolderThatIsNoPathOpensTheDialog()
    {
        WindowFixture::writeSettings("[WorkFolders]\nlastFolder=\"\\x0\"\n");
        fixture->open();
        QVERIFY(chooseFiles(*fixture, {}));
    }

    void settingsFromAnywhereAreDefaultsAndLeaveTheTraces()
    {
        constexpr state_index allButTracesAndFolders = 58;
        const OddPlaces places;
        MainWindow &window = openGood();
        const QStringList before = stateOf(window);
        for (const OddPlace &place : places.all()) {
            SettingsData *settings = window.settings();
            settings->cursor_dial_speed = 37;
            settings->current_language = QStringLiteral("ru_RU");
            settings->current_CSS_path = QStringLiteral("mine.qss");
            const qint64 took = fastest([&] {
                asOrdinaryUser([&] { settings->loadSettings(place.path, allButTracesAndFolders); });
            });
            QVERIFY2(took < answerTime, place.kind);
            settings->updateSettings(allButTracesAndFolders);
            QVERIFY2(settings->cursor_dial_speed == 100, place.kind);
            QVERIFY2(settings->current_language == QLatin1String("en_US"), place.kind);
            QVERIFY2(settings->current_CSS_path == QLatin1String(":/style/style_2.qss"),
                     place.kind);
            QVERIFY2(stateOf(window) == before, place.kind);
        }
    }

    void settingsAreNotWrittenOverSpecialFiles()
    {
        const OddPlaces places;
        const SettingsData settings(nullptr);
        int special = 0;
        for (const OddPlace &place : places.all()) {
            const QFileInfo before(place.path);
            const bool isSpecial = before.exists() && !before.isFile();
            const qint64 took
                = fastest([&] { asOrdinaryUser([&] { settings.saveSettings(place.path, 63); }); });
            QVERIFY2(took < answerTime, place.kind);
            const QFileInfo after(place.path);
            QVERIFY2(!isSpecial || (after.exists() && !after.isFile()), place.kind);
            special += isSpecial ? 1 : 0;
        }
        QVERIFY(special > 0);
    }

    // 255 bytes, the longest name of most file systems. QSaveFile writes under a longer name, which
    // fails here.
    void settingsWithTheLongestNameAreReadAndNeverTorn()
    {
        SettingsData *settings = fixture->open().settings();
        const QString path = fixture->path(QString(251, QLatin1Char('n')) + QStringLiteral(".ini"));
        const QByteArray old("[Dials]\ncursorSpeed=37\nparamSpeed=38\n");
        writeFile(path, old);
        settings->loadSettings(path, 32);
        QCOMPARE(settings->cursor_dial_speed, 37);
        settings->cursor_dial_speed = 39;
        settings->saveSettings(path, 32);
        const QByteArray content = contentOf(path);
        QVERIFY(content == old || content == QByteArray(old).replace("37", "39"));
        QCOMPARE(QDir(fixture->path(QString())).entryList(QDir::Files).size(), 1);
    }

    // ---- Style sheets ----

    void aSheetFromAnywhereIsEmptyAndLeavesTheTraces()
    {
        const OddPlaces places;
        MainWindow &window = openGood();
        const QStringList before = tracesOf(window);
        for (const OddPlace &place : places.all()) {
            SettingsData *settings = window.settings();
            settings->current_CSS_path = place.path;
            asOrdinaryUser([&] { settings->parse_CSS(); });
            QVERIFY2(window.styleSheet().isEmpty(), place.kind);
            // Qt keeps an equal sheet as it is, so only the reading is measured.
            const qint64 took = fastest([&] { asOrdinaryUser([&] { settings->parse_CSS(); }); });
            QVERIFY2(took < answerTime, place.kind);
            QVERIFY2(tracesOf(window) == before, place.kind);
        }
    }

    // Applied unless it names a file that may block: the window opens, and the text is kept.
    void aSheetThatNamesSuchAPlaceDoesNotBlock()
    {
        const OddPlaces places;
        const QString sheet = fixture->path(QStringLiteral("a.qss"));
        for (const OddPlace &place : places.all()) {
            // Qt reads no further than to a NUL.
            if (place.path.contains(QChar(0)))
                continue;
            const QByteArray name = QFile::encodeName(place.path);
            const QByteArray text = "QLabel { color: rgb(1, 2, 3); background-image: url(\"" + name
                + "\") } QPushButton { icon: url('" + name + "') }";
            writeFile(sheet, text);
            QSettings settings(WindowFixture::settingsFile(), QSettings::IniFormat);
            settings.setValue(QStringLiteral("CSS"), sheet);
            settings.sync();
            const MainWindow &window = fixture->open();
            const QFileInfo file(place.path);
            const bool mayBlock = file.exists() && !file.isFile() && !file.isDir();
            QVERIFY2(window.styleSheet().isEmpty() == mayBlock, place.kind);
            QCOMPARE(probe().settingsData()->current_CSS.toLatin1(), text);
        }
    }
};

QTEST_MAIN(TestOddFiles)
#include "tst_odd_files.moc"
