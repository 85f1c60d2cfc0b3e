// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "legendbutton.h"
#include "settingsdata.h"
#include "windowactions.h"

#include <QAction>
#include <QButtonGroup>
#include <QPushButton>
#include <QRandomGenerator>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

/// Paths that are not a readable file of the right length, by what is wrong with them.
QVector<std::pair<const char *, QString>> badPaths(const WindowFixture &fixture)
{
    const auto file = [&](const char *name, const QByteArray &bytes) {
        QFile made(fixture.path(QLatin1String(name)));
        if (!made.open(QIODevice::WriteOnly) || made.write(bytes) != bytes.size())
            qFatal("cannot write %s", name);
        return made.fileName();
    };
    QVector<std::pair<const char *, QString>> paths{
        { "missing", fixture.path(QStringLiteral("missing.tdr")) },
        { "no path at all", QString() },
        { "folder", fixture.path({}) },
        { "empty", file("empty.tdr", {}) },
        { "path with zero bytes", QString(QChar(0)) + QStringLiteral("x.tdr") },
        { "a path of 5000 letters", QString(5000, QLatin1Char('x')) },
    };
#ifdef Q_OS_UNIX
    const QString pipe = fixture.path(QStringLiteral("pipe.tdr"));
    if (mkfifo(QFile::encodeName(pipe).constData(), 0600) != 0)
        qFatal("cannot make a pipe");
    paths.append({ "pipe", pipe });
    paths.append({ "endless device", QStringLiteral("/dev/zero") });
    paths.append({ "empty device", QStringLiteral("/dev/null") });
    paths.append({ "terminal", QStringLiteral("/dev/tty") });
    const QString locked = file("locked.tdr", TraceBuilder().samples(99).bytes());
    QFile::setPermissions(locked, {});
    // Root may read everything.
    if (!QFileInfo(locked).isReadable())
        paths.append({ "not readable", locked });
#endif
    return paths;
}

void makePipe(const QString &path)
{
#ifdef Q_OS_UNIX
    if (mkfifo(QFile::encodeName(path).constData(), 0600) != 0)
        qFatal("cannot make a pipe");
#else
    Q_UNUSED(path)
#endif
}

/// A run with one trace in slot 1, its settings changed by one more line.
void writeRunWith(const WindowFixture &fixture, const QByteArray &section, const QByteArray &line)
{
    fixture.trace(QStringLiteral("t1.tdr"), TraceBuilder().samples(5));
    const QByteArray file = fixture.path(QStringLiteral("t1.tdr")).toUtf8();
    QByteArray text = "[PrevFiles]\nStateIndex=1\nMasterId=0\nfile1=" + file + '\n';
    if (section != "PrevFiles")
        text += '[' + section + "]\n";
    // Of two equal keys the later one holds.
    WindowFixture::writeSettings(text + line + '\n');
}

} // namespace

class TestBadFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    // ---- Trace files ----

    void aTraceOnScreenOutlivesAnyFileThatCannotBeRead()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().samples(5), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        for (const auto &bad : badPaths(fixture)) {
            QVERIFY2(!window.read_rfg_DATA(bad.second, 0) || qstrcmp(bad.first, "empty") == 0,
                     bad.first);
            window.add_Selected_RFG(bad.second, 0);
            QVERIFY2(probe.rfg_series()[0]->count() == 499, bad.first);
            QVERIFY2(probe.rfg_series()[0]->at(498) == QPointF(249.0, 5.0), bad.first);
            QVERIFY2(probe.rfg_read_index() == 3, bad.first);
            QVERIFY2(probe.rfg_series()[0]->isVisible(), bad.first);
            QVERIFY2(QApplication::activeModalWidget() == nullptr, bad.first);
        }
    }

    void anEmptySlotTakesAnyPathAndShowsZeros()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        for (const auto &bad : badPaths(fixture)) {
            window.add_Selected_RFG(bad.second, 3);
            QVERIFY2(probe.rfg_read_index() == 8, bad.first);
            QVERIFY2(probe.rfg_series()[3]->at(0) == QPointF(0.0, 0.0), bad.first);
            QVERIFY2(probe.dist_coef() > 0.0, bad.first);
        }
    }

    void aRunWithSuchPathsStartsAgain()
    {
        WindowFixture fixture;
        for (const auto &bad : badPaths(fixture)) {
            WindowFixture::writePreviousRun({ bad.second, bad.second });
            fixture.open();
            const MainWindowProbe &probe = fixture.probe();
            QVERIFY2(probe.rfg_read_index() == 3, bad.first);
            QVERIFY2(probe.rfg_series()[1]->count() == 499, bad.first);
            QVERIFY2(probe.dist_coef() > 0.0, bad.first);
            QTest::mouseClick(probe.reset_all_button(), Qt::LeftButton);
            QVERIFY2(probe.rfg_read_index() == 3, bad.first);
        }
        fixture.close();
    }

    void aFileOfAnyLengthIsTaken()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const QByteArray whole = TraceBuilder().samples(-3).bytes();
        QFile file(fixture.path(QStringLiteral("cut.tdr")));
        for (const int size : { 0, 1, 25, 28, 29, 52, 171, 260, 261, 262, 510, 511, 37774 }) {
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            QCOMPARE(file.write(whole.left(size)), qint64{ size });
            file.close();
            window.show_AllSelected_RFGs(0);
            fixture.probe().rfg_DATA()[0] = rfg_SHOWN{};
            QVERIFY(window.read_rfg_DATA(file.fileName(), 0));
            window.add_Selected_RFG(file.fileName(), 0);
            const auto *series = fixture.probe().rfg_series()[0];
            QCOMPARE(series->count(), 499);
            QCOMPARE(series->at(0).y(), size > 261 ? -3.0 : 0.0);
            QCOMPARE(series->at(498).y(), size > 510 ? -3.0 : 0.0);
        }
    }

#ifdef Q_OS_UNIX
    // Elsewhere there are no pipes among the files.
    void aPipeChosenInTheDialogDoesNotHoldTheWindow()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder().samples(5) });
        const QString pipe = fixture.path(QStringLiteral("pipe.tdr"));
        makePipe(pipe);
        QVERIFY(chooseFiles(fixture, { pipe }));
        QCOMPARE(fixture.probe().rfg_read_index(), 1);
        QCOMPARE(fixture.probe().rfg_series()[0]->at(0).y(), 5.0);
    }
#endif

    // ---- Settings ----

    void aNumberInTheSettingsMayBeAnything_data()
    {
        QTest::addColumn<QByteArray>("section");
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("loaded");
        QTest::addColumn<int>("master");
        const auto row = [](const char *section, const char *line, int loaded, int master) {
            QTest::newRow(line) << QByteArray(section) << QByteArray(line) << loaded << master;
        };
        row("PrevFiles", "StateIndex=-1", 63, 0);
        row("PrevFiles", "StateIndex=65", 1, 0);
        row("PrevFiles", "StateIndex=64", 0, -1);
        row("PrevFiles", "StateIndex=2147483647", 63, 0);
        row("PrevFiles", "StateIndex=-2147483648", 0, -1);
        row("PrevFiles", "StateIndex=99999999999", 63, 0);
        row("PrevFiles", "StateIndex=many", 0, -1);
        row("PrevFiles", "MasterId=5", 1, 5);
        row("PrevFiles", "MasterId=6", 1, 0);
        row("PrevFiles", "MasterId=-1", 1, 0);
        row("PrevFiles", "MasterId=300", 1, 0);
        row("PrevFiles", "MasterId=257", 1, 1);
        row("PrevFiles", "MasterId=127", 1, 0);
        row("PrevFiles", "MasterId=-128", 1, 0);
        row("PrevFiles", "MasterId=first", 1, 0);
        row("Dials", "paramSpeed=0", 1, 0);
        row("Dials", "paramSpeed=-5", 1, 0);
        row("Dials", "paramSpeed=2147483647", 1, 0);
        row("Dials", "cursorSpeed=-2147483648", 1, 0);
        row("Dials", "cursorSpeed=fast", 1, 0);
        row("WindowState", "geometry=@ByteArray(x)", 1, 0);
        row("WindowState", "windowState=@Size(3 4)", 1, 0);
        row("WorkFolders", "lastFolder=\"\\x0\"", 1, 0);
    }

    void aNumberInTheSettingsMayBeAnything()
    {
        QFETCH(QByteArray, section);
        QFETCH(QByteArray, line);
        QFETCH(int, loaded);
        QFETCH(int, master);
        WindowFixture fixture;
        writeRunWith(fixture, section, line);
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_read_index(), loaded);
        QCOMPARE(probe.rfg_master_ID(), master);
        QCOMPARE(probe.rfg_buttons()->checkedId(), qMax(0, master));
        QVERIFY(probe.param_dial()->maximum() >= 1);
        QVERIFY(probe.cursor_dial()->maximum() >= 1);
        QVERIFY(probe.dist_coef() > 0.0);
        if ((loaded & 1) != 0)
            QCOMPARE(probe.rfg_series()[0]->at(0).y(), 5.0);
        QVERIFY(chooseFiles(fixture, {}));
        window.grab();
    }

    void aMasterOfThreeHundredIsOneOfFortyFour()
    {
        WindowFixture fixture;
        writeRunWith(fixture, "PrevFiles", "MasterId=300\nStateIndex=0");
        fixture.open();
        QCOMPARE(int{ fixture.probe().settingsData()->master_ID }, 44);
    }

    void settingsOfRandomBytesAreTaken()
    {
        WindowFixture fixture;
        for (quint32 seed = 1; seed <= 6; ++seed) {
            QRandomGenerator random(seed);
            QByteArray bytes(3000, Qt::Uninitialized);
            for (char &byte : bytes)
                byte = static_cast<char>(random.bounded(256));
            WindowFixture::writeSettings(bytes);
            fixture.open();
            QCOMPARE(fixture.probe().rfg_read_index(), 0);
            QCOMPARE(fixture.probe().master_scale(), 0);
            QCOMPARE(fixture.window().size(), QSize(800, 500));
        }
    }

    void settingsWithOneWrongByteAreTaken()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder() });
        fixture.close();
        QFile file(WindowFixture::settingsFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray saved = file.readAll();
        file.close();
        QVERIFY(saved.size() > 200);
        for (int at = 3; at < saved.size(); at += 47) {
            QByteArray damaged = saved;
            damaged[at] = static_cast<char>(damaged[at] ^ 0x81);
            WindowFixture::writeSettings(damaged);
            fixture.open();
            QVERIFY2(fixture.probe().dist_coef() > 0.0, qPrintable(QString::number(at)));
            QVERIFY2(fixture.window().width() <= 804, qPrintable(QString::number(at)));
        }
    }

    void aFolderInPlaceOfTheSettingsIsLeftAlone()
    {
        WindowFixture fixture;
        QVERIFY(QDir().mkdir(WindowFixture::settingsFile()));
        fixture.open();
        QCOMPARE(fixture.probe().rfg_read_index(), 0);
        fixture.close();
        QVERIFY(QFileInfo(WindowFixture::settingsFile()).isDir());
        QVERIFY(QDir().rmdir(WindowFixture::settingsFile()));
    }

#ifdef Q_OS_UNIX
    // Elsewhere there are no pipes among the files.
    void aPipeInPlaceOfTheSettingsDoesNotHoldTheWindow()
    {
        WindowFixture fixture;
        makePipe(WindowFixture::settingsFile());
        fixture.open();
        QCOMPARE(fixture.probe().rfg_read_index(), 0);
        fixture.close();
        QVERIFY(!QFileInfo(WindowFixture::settingsFile()).isFile());
        QVERIFY(!QFileInfo::exists(WindowFixture::settingsFile().replace(
            QStringLiteral("current"), QStringLiteral("current_old"))));
    }
#endif

    void aStyleSheetThatIsNoFileIsAnEmptyOne()
    {
        WindowFixture fixture;
        for (const auto &bad : badPaths(fixture)) {
            QSettings settings(WindowFixture::settingsFile(), QSettings::IniFormat);
            settings.setValue(QStringLiteral("CSS"), bad.second);
            settings.sync();
            fixture.open();
            QVERIFY2(fixture.window().styleSheet().isEmpty(), bad.first);
            fixture.close();
        }
    }

    void aBackupThatCannotBeMadeDoesNotStopTheSaving()
    {
        WindowFixture fixture;
        const QString backup = WindowFixture::settingsFile().replace(QStringLiteral("current"),
                                                                     QStringLiteral("current_old"));
        WindowFixture::writeSettings("[Dials]\nparamSpeed=50\n");
        QVERIFY(QDir().mkdir(backup));
        fixture.open();
        fixture.probe().settingsData()->param_dial_speed = 70;
        fixture.close();
        QVERIFY(QDir().rmdir(backup));
        const QSettings saved(WindowFixture::settingsFile(), QSettings::IniFormat);
        QCOMPARE(saved.value(QStringLiteral("Dials/paramSpeed")).toInt(), 70);
    }
};

QTEST_MAIN(TestBadFiles)
#include "tst_bad_files.moc"
