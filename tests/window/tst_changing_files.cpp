// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "settingsdata.h"
#include "windowactions.h"
#include "windowstate.h"
#include "windowtest.h"

#include <QElapsedTimer>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

namespace {

constexpr int fewestReadings = 200;
constexpr qint64 answerTime = 200; ///< most milliseconds per reading, on average
constexpr qint64 patience = 20000; ///< most milliseconds until both kinds of readings occurred

/// What one reading of a changing file returned.
enum class Reading {
    Whole,
    Part,
    Wrong ///< what the file never held
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

} // namespace

/// Files that are removed, truncated or written while the program reads them.
class TestChangingFiles : public WindowTest
{
    Q_OBJECT

private slots:
    void aTraceFillsWhatWasThere()
    {
        MainWindow &window = openOn({ TraceBuilder().samples(7), TraceBuilder().samples(9) });
        const QStringList before = stateOf(window).filter(QStringLiteral("[0]"));
        const QString path = fixture->path(QStringLiteral("changing.tdr"));
        const RestlessFile file(path, TraceBuilder().samples(5).bytes());
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

    void settingsAreWhatTheFileHeldAtSomeMoment()
    {
        MainWindow &window = openOn({ TraceBuilder().samples(7) });
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

    void aSheetIsWhatTheFileHeldAtSomeMoment()
    {
        MainWindow &window = openOn({ TraceBuilder().samples(7) });
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

QTEST_MAIN(TestChangingFiles)
#include "tst_changing_files.moc"
