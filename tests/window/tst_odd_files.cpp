// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "each.h"
#include "input_events.h"
#include "oddplaces.h"
#include "settingsdata.h"
#include "test_files.h"
#include "window_actions.h"
#include "window_state.h"
#include "windowtest.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

namespace {

constexpr qint64 answerTime = 200; ///< longest time for any file, ms
constexpr int fewestReadings = 200;
constexpr qint64 patience = 20000; ///< longest time until both kinds of readings occurred, ms

/// What one reading of a changing file returned.
enum class Reading {
    Whole,
    Part,
    Wrong ///< content that the file never held
};

/// A file that a thread writes, truncates and removes in a loop during its lifetime.
class RestlessFile
{
public:
    RestlessFile(const QString &path, const QByteArray &bytes)
        : m_writer([this, path, bytes] { write(path, bytes); })
    {
    }
    ~RestlessFile()
    {
        m_done = true;
        m_writer.join();
    }
    Q_DISABLE_COPY(RestlessFile)

private:
    void write(const QString &path, const QByteArray &bytes) const
    {
        for (int round = 0; !m_done; ++round) {
            QFile file(path);
            if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
                file.write(bytes);
                file.flush();
                if (round % 2 == 0)
                    file.resize((round * 7919) % bytes.size());
            }
            if (round % 3 == 0)
                file.remove();
        }
    }

    std::atomic_bool m_done{ false };
    std::thread m_writer;
};

/// Calls \a read until it returned the whole file and a part of it, and often enough. Empty when no
/// reading was wrong.
QString faultOf(const std::function<Reading()> &read)
{
    int whole = 0;
    int part = 0;
    QElapsedTimer timer;
    timer.start();
    while (whole + part < fewestReadings || whole == 0 || part == 0) {
        const Reading reading = read();
        if (reading == Reading::Wrong)
            return QStringLiteral("wrong after %1 readings").arg(whole + part);
        (reading == Reading::Whole ? whole : part) += 1;
        if (timer.elapsed() > patience)
            return QStringLiteral("%1 whole, %2 in part").arg(whole).arg(part);
    }
    return timer.elapsed() > answerTime * (whole + part) ? QStringLiteral("too slow") : QString();
}

/// Linux zeroes the rest of the page before it moves the end of a truncated file, so a concurrent
/// read can return zeros.
bool isOfTheFile(qint8 sample)
{
    return sample == 5 || sample == 0;
}

/// True when \a read is a prefix of \a whole, apart from zeros.
bool isBeginningOf(const QString &read, const char *whole)
{
    const QString text = QString::fromLatin1(whole);
    return read.size() <= text.size()
        && std::equal(read.begin(), read.end(), text.begin(),
                      [](QChar got, QChar written) { return got == written || got.isNull(); });
}

/// The lines of the state about traces and view, which no style sheet changes.
QStringList tracesOf(MainWindow &window)
{
    return stateOf(window).filter(
        QRegularExpression(QStringLiteral("^(rfg_series|range:|cursors:|title:|slots:)")));
}

/// Runs \a check on every odd place.
template <typename Check> void eachPlace(const Check &check)
{
    const OddPlaces places;
    each(places.all(), check);
}

/// True when an ordinary user does \a work in time.
bool isQuick(const std::function<void()> &work)
{
    return fastest([&work] { asOrdinaryUser(work); }) < answerTime;
}

} // namespace

/// Paths that are no regular files or have odd names, and files that change while they are read.
class TestOddFiles : public WindowTest
{
    Q_OBJECT

private:
    /// A window that shows two good traces, slot 1 selected and master.
    MainWindow &openGood()
    {
        MainWindow &window = openOn({ TraceBuilder().samples([](int i) { return i % 50; }),
                                      levelTrace(9).shiftY(4).minstep(2.5F) });
        window.cursorSetup_slot(30);
        return window;
    }

private slots:
    // ---- Traces ----

    void failedLoadChangesNothingOnScreen()
    {
        MainWindow &window = openGood();
        const QStringList before = stateOf(window);
        eachPlace([&](const OddPlace &place) {
            QVERIFY(isQuick([&] { window.add_Selected_RFG(place.path, 1); }));
            QCOMPARE(stateOf(window), before);
            QCOMPARE(probe().rfg_DATA()[1].file_name, QStringLiteral("t2"));
            QVERIFY(QApplication::activeModalWidget() == nullptr);
        });
    }

    void failedLoadIntoAnEmptySlotGivesZerosOnlyThere()
    {
        const auto otherSlots = [](MainWindow &window) {
            const QStringList lines = tracesOf(window);
            return lines.filter(QStringLiteral("[0]")) + lines.filter(QStringLiteral("[1]"));
        };
        eachPlace([&](const OddPlace &place) {
            MainWindow &window = openGood();
            const QStringList before = otherSlots(window);
            asOrdinaryUser([&] { window.add_Selected_RFG(place.path, 4); });
            QCOMPARE(probe().rfg_read_index(), 19);
            QVERIFY(probe().rfg_DATA()[4].full_path.isEmpty());
            QCOMPARE(probe().rfg_series()[4]->at(498), QPointF(249.0, 0.0));
            QCOMPARE(otherSlots(window), before);
        });
    }

    void windowStartsAfterARunWithUnreadablePaths()
    {
        eachPlace([this](const OddPlace &place) {
            fixture->close();
            WindowFixture::writePreviousRun({ place.path, place.path });
            fixture->open();
            input::click(probe().reset_all_button());
            QCOMPARE(probe().rfg_read_index(), 3);
            QCOMPARE(probe().rfg_series()[1]->count(), 499);
            QVERIFY(probe().dist_coef() > 0.0);
        });
    }

#ifdef Q_OS_LINUX
    // Reading the kernel's messages blocks until there is one.
    void fileOfSizeZeroIsNotRead()
    {
        MainWindow &window = openGood();
        const QStringList before = tracesOf(window);
        each<OddPlace>({ { "status", QStringLiteral("/proc/self/status") },
                         { "time", QStringLiteral("/proc/uptime") },
                         { "messages", QStringLiteral("/proc/kmsg") } },
                       [&](const OddPlace &place) {
                           const qint64 took = fastest([&] {
                               window.add_Selected_RFG(place.path, 1);
                               window.settings()->loadSettings(place.path, 63);
                               window.settings()->current_CSS_path = place.path;
                               window.settings()->parse_CSS();
                           });
                           QVERIFY(took < answerTime);
                           QVERIFY(window.settings()->current_CSS.isEmpty());
                           QCOMPARE(tracesOf(window), before);
                       });
        QVERIFY(!QFileInfo(QStringLiteral("/proc/uptime")).size());
    }
#endif

    void traceWithAnOddNameIsRead()
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
            // Read again from the settings of this run.
            fixture->open();
            QCOMPARE(probe().rfg_DATA()[0].full_path, path);
            QCOMPARE(probe().rfg_series()[0]->at(0), QPointF(0.0, -7.0));
        });
    }

    // ---- Settings ----

    void fileDialogOpensWithAnInvalidLastFolder()
    {
        WindowFixture::writeSettings("[WorkFolders]\nlastFolder=\"\\x0\"\n");
        fixture->open();
        QVERIFY(chooseFiles(*fixture, {}));
    }

    void unreadableSettingsAreDefaultsAndKeepTheTraces()
    {
        constexpr state_index allButTracesAndFolders = 58;
        MainWindow &window = openGood();
        const QStringList before = stateOf(window);
        eachPlace([&](const OddPlace &place) {
            SettingsData *settings = window.settings();
            settings->cursor_dial_speed = 37;
            settings->current_language = QStringLiteral("ru_RU");
            settings->current_CSS_path = QStringLiteral("mine.qss");
            QVERIFY(isQuick([&] { settings->loadSettings(place.path, allButTracesAndFolders); }));
            settings->updateSettings(allButTracesAndFolders);
            QCOMPARE(settings->cursor_dial_speed, 100);
            QCOMPARE(settings->current_language, QStringLiteral("en_US"));
            QCOMPARE(settings->current_CSS_path, QStringLiteral(":/style/style_2.qss"));
            QCOMPARE(stateOf(window), before);
        });
    }

    // ---- Style sheets ----

    void unreadableSheetIsEmptyAndKeepsTheTraces()
    {
        MainWindow &window = openGood();
        const QStringList before = tracesOf(window);
        eachPlace([&](const OddPlace &place) {
            SettingsData *settings = window.settings();
            settings->current_CSS_path = place.path;
            asOrdinaryUser([&] { settings->parse_CSS(); });
            QVERIFY(window.styleSheet().isEmpty());
            // Qt keeps an equal sheet as it is, so only the reading is measured.
            QVERIFY(isQuick([&] { settings->parse_CSS(); }));
            QCOMPARE(tracesOf(window), before);
        });
    }

    // A sheet that names a file that may block is not applied. The window opens, and the text is
    // kept.
    void sheetThatNamesAnOddPlaceDoesNotBlock()
    {
        const QString sheet = fixture->path(QStringLiteral("a.qss"));
        eachPlace([&](const OddPlace &place) {
            // Qt stops at a NUL.
            if (place.path.contains(QChar(0)))
                return;
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
            QCOMPARE(window.styleSheet().isEmpty(), mayBlock);
            QCOMPARE(probe().settingsData()->current_CSS.toLatin1(), text);
        });
    }

    // ---- Files that are removed, truncated or written while the program reads them ----

    void changingTraceReplacesTheSamplesThatWereRead()
    {
        MainWindow &window = openOn({ levelTrace(7), levelTrace(9) });
        const QStringList before = stateOf(window).filter(QStringLiteral("[0]"));
        const QString path = fixture->path(QStringLiteral("changing.tdr"));
        const RestlessFile file(path, levelTrace(5).bytes());
        QCOMPARE(faultOf([&] {
                     auto &record = probe().rfg_DATA()[1].f_p_840;
                     // Shows where a short reading ended.
                     std::fill_n(record.samples, 32000, qint8{ 9 });
                     window.add_Selected_RFG(path, 1);
                     const qint8 *begin = record.samples;
                     const qint8 *end = begin + 32000;
                     const qint8 *rest = std::find_if_not(begin, end, isOfTheFile);
                     if (!std::all_of(rest, end, [](int s) { return s == 9; }))
                         return Reading::Wrong;
                     return std::count(begin, end, 5) == 32000 ? Reading::Whole : Reading::Part;
                 }),
                 QString());
        QCOMPARE(stateOf(window).filter(QStringLiteral("[0]")), before);
    }

    void changingSettingsAreReadAsOfOneMoment()
    {
        MainWindow &window = openOn({ levelTrace(7) });
        const QStringList before = stateOf(window);
        SettingsData *settings = window.settings();
        const QString path = fixture->path(QStringLiteral("changing.ini"));
        const RestlessFile file(path,
                                "[General]\nlanguage=ru_RU\nCSS=mine.qss\n"
                                "[Dials]\ncursorSpeed=37\nparamSpeed=38\n");
        const QVector<int> cursorSpeeds{ constants::dialSpeed, 0, 3, 37 };
        const QVector<int> paramSpeeds{ constants::dialSpeed, 0, 3, 38 };
        QCOMPARE(faultOf([&] {
                     settings->loadSettings(path, 63);
                     const QString language = settings->current_language;
                     const QString sheet = settings->current_CSS_path;
                     const bool isRight
                         = (language == QLatin1String("en_US") || isBeginningOf(language, "ru_RU"))
                         && (sheet == QLatin1String(":/style/style_2.qss")
                             || isBeginningOf(sheet, "mine.qss"))
                         && cursorSpeeds.contains(settings->cursor_dial_speed)
                         && paramSpeeds.contains(settings->param_dial_speed)
                         && settings->read_index == 0;
                     if (!isRight)
                         return Reading::Wrong;
                     return settings->param_dial_speed == 38 ? Reading::Whole : Reading::Part;
                 }),
                 QString());
        QCOMPARE(stateOf(window), before);
    }

    void changingSheetIsReadAsOfOneMoment()
    {
        MainWindow &window = openOn({ levelTrace(7) });
        const QStringList before = stateOf(window).filter(QStringLiteral("rfg_series"));
        SettingsData *settings = window.settings();
        settings->current_CSS_path = fixture->path(QStringLiteral("changing.qss"));
        const QByteArray sheet = QByteArray("QLabel { color: rgb(1, 2, 3) }\n").repeated(40);
        const RestlessFile file(settings->current_CSS_path, sheet);
        QCOMPARE(faultOf([&] {
                     settings->parse_CSS();
                     const QString shown = window.styleSheet();
                     if (!isBeginningOf(shown, sheet.constData()))
                         return Reading::Wrong;
                     return shown.size() == sheet.size() ? Reading::Whole : Reading::Part;
                 }),
                 QString());
        QCOMPARE(stateOf(window).filter(QStringLiteral("rfg_series")), before);
    }
};

QTEST_MAIN(TestOddFiles)
#include "tst_odd_files.moc"
