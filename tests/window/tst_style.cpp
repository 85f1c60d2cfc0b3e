// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingsdata.h"
#include "windowfixture.h"

#include <QDir>
#include <QFile>
#include <QGraphicsScene>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <cstdio>

namespace {

const QByteArray firstSheet = "QLabel { color: rgb(1, 2, 3); }";
const QByteArray secondSheet = "QLabel { color: rgb(200, 100, 50); }";
const QByteArray thirdSheet = "QLabel { color: rgb(9, 8, 7); } QWidget { margin: 0; }";

/// Two edits within a few milliseconds and of equal size are not noticed.
constexpr int betweenEdits = 20;

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the sheet");
    file.close();
    QTest::qSleep(betweenEdits);
}

/// As editors do it that never leave half a file: a new one takes the old one's place.
void replaceByRenaming(const QString &path, const QByteArray &bytes)
{
    const QString fresh = path + QStringLiteral(".new");
    write(fresh, bytes);
    if (std::rename(QFile::encodeName(fresh).constData(), QFile::encodeName(path).constData()) != 0)
        qFatal("cannot rename the sheet");
}

} // namespace

class TestStyle : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowFixture> fixture;
    QString sheet; ///< the watched one

    const MainWindowProbe &probe() const
    {
        return fixture->probe();
    }
    /// Makes the developer's folder with the sheets 1 and 2.
    void makeSheets()
    {
        qputenv("VELKOR_DEV_FOLDER", QFile::encodeName(fixture->path(QString())));
        QDir(fixture->path(QString())).mkpath(QStringLiteral("Velkor/style"));
        sheet = fixture->path(QStringLiteral("Velkor/style/style_2.qss"));
        write(sheet, firstSheet);
        write(fixture->path(QStringLiteral("Velkor/style/style_1.qss")), firstSheet);
    }
    QByteArray look() const
    {
        return fixture->window().styleSheet().toLatin1();
    }
    QByteArray dialogLook() const
    {
        return probe().input_dialog()->styleSheet().toLatin1();
    }

private slots:
    void init()
    {
        qunsetenv("VELKOR_DEV_FOLDER");
        fixture = std::make_unique<WindowFixture>();
    }

    void cleanup()
    {
        fixture.reset();
        qunsetenv("VELKOR_DEV_FOLDER");
    }

    void theBuiltInSheetIsTheDefault()
    {
        fixture->open();
        QFile builtIn(QStringLiteral(":/style/style_2.qss"));
        QVERIFY(builtIn.open(QIODevice::ReadOnly));
        const QByteArray text = builtIn.readAll();
        QVERIFY(!text.isEmpty());
        QCOMPARE(look(), text);
        QCOMPARE(dialogLook(), text);
        QCOMPARE(probe().settingsData()->current_CSS_path, QStringLiteral(":/style/style_2.qss"));
    }

    void theSheetStylesWindowAndDialogApart()
    {
        fixture->open();
        probe().settingsData()->current_CSS = QString::fromLatin1(secondSheet);
        fixture->window().set_CSS();
        QCOMPARE(look(), secondSheet);
        QCOMPARE(dialogLook(), secondSheet);
        QCOMPARE(probe().delta_lbl()->palette().color(QPalette::WindowText), QColor(200, 100, 50));
    }

    void thePlotIsNearBlackWhateverTheSheetSays()
    {
        fixture->open();
        probe().settingsData()->current_CSS = QStringLiteral("* { background: red; }");
        fixture->window().set_CSS();
        const QBrush nearBlack(QColor(11, 12, 13, 255), Qt::SolidPattern);
        QCOMPARE(probe().m_brush(), nearBlack);
        QCOMPARE(probe().Plot_Chart()->backgroundBrush(), nearBlack);
        QCOMPARE(probe().Plot_Scene()->backgroundBrush(), nearBlack);
    }

    void aNewSheetDarkensThePlotInDifferenceModeToo()
    {
        fixture->open();
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QCOMPARE(probe().Plot_Scene()->backgroundBrush().color(), QColor(40, 40, 60));
        fixture->window().set_CSS();
        QCOMPARE(probe().Plot_Scene()->backgroundBrush().color(), QColor(11, 12, 13));
        QCOMPARE(int(probe().diff_flag()), int(MainWindow::DIFF));
    }

    void fontsSetByTheWindowSurviveANewSheet()
    {
        fixture->open();
        const int points = probe().delta_lbl()->font().pointSize();
        probe().settingsData()->current_CSS = QString::fromLatin1(secondSheet);
        fixture->window().set_CSS();
        WindowFixture::settle();
        QCOMPARE(probe().delta_lbl()->font().pointSize(), points);
        QCOMPARE(points, 18);
    }

    void aSheetThatCannotBeReadIsEmpty()
    {
        WindowFixture::writeSettings("[General]\nCSS=/nowhere/at/all.qss\n");
        fixture->open();
        QCOMPARE(look(), QByteArray());
        QCOMPARE(probe().settingsData()->current_CSS_path, QStringLiteral("/nowhere/at/all.qss"));
    }

    void withoutADeveloperFolderNothingIsWatched_data()
    {
        QTest::addColumn<QByteArray>("folder");
        QTest::newRow("unset") << QByteArray();
        QTest::newRow("no such folder") << QByteArray("/nowhere/at/all");
        QTest::newRow("a folder without the sheet") << QByteArray("/");
    }

    void withoutADeveloperFolderNothingIsWatched()
    {
        QFETCH(const QByteArray, folder);
        if (!folder.isNull())
            qputenv("VELKOR_DEV_FOLDER", folder);
        fixture->open();
        QVERIFY(probe().CSS_watcher().files().isEmpty());
        QVERIFY(probe().CSS_watcher().directories().isEmpty());
    }

    void onlyTheSecondSheetIsWatchedAndNotAppliedAtStart()
    {
        makeSheets();
        fixture->open();
        QCOMPARE(probe().CSS_watcher().files(), QStringList{ sheet });
        QVERIFY(probe().CSS_watcher().directories().isEmpty());
        QVERIFY(look() != firstSheet);
    }

    void aSavedSheetIsAppliedAtOnceAndKept()
    {
        makeSheets();
        fixture->open();
        write(sheet, secondSheet);
        QTRY_COMPARE(look(), secondSheet);
        QCOMPARE(dialogLook(), secondSheet);
        QCOMPARE(probe().settingsData()->current_CSS_path, sheet);
        write(sheet, thirdSheet);
        QTRY_COMPARE(look(), thirdSheet);
        fixture->close();
        const QSettings saved(WindowFixture::settingsFile(), QSettings::IniFormat);
        QCOMPARE(saved.value(QStringLiteral("CSS")).toString(), sheet);
    }

    void theWatchedSheetTakesOverFromTheChosenOne()
    {
        makeSheets();
        const QString chosen = fixture->path(QStringLiteral("Velkor/style/style_1.qss"));
        WindowFixture::writeSettings("[General]\nCSS=" + chosen.toLatin1() + "\n");
        fixture->open();
        QCOMPARE(look(), firstSheet);
        write(chosen, thirdSheet);
        QTest::qWait(50);
        QCOMPARE(look(), firstSheet);
        write(sheet, secondSheet);
        QTRY_COMPARE(look(), secondSheet);
        QCOMPARE(probe().settingsData()->current_CSS_path, sheet);
    }

    void aSheetReplacedByRenamingStaysWatched()
    {
        makeSheets();
        fixture->open();
        for (const QByteArray &text : { secondSheet, thirdSheet, firstSheet }) {
            replaceByRenaming(sheet, text);
            QTRY_COMPARE(look(), text);
            QTRY_COMPARE(probe().CSS_watcher().files(), QStringList{ sheet });
        }
        write(sheet, secondSheet);
        QTRY_COMPARE(look(), secondSheet);
    }

    void aSheetDeletedAndWrittenAgainStaysWatched()
    {
        makeSheets();
        fixture->open();
        write(sheet, secondSheet);
        QTRY_COMPARE(look(), secondSheet);
        for (const QByteArray &text : { thirdSheet, firstSheet }) {
            const QByteArray before = look();
            QVERIFY(QFile::remove(sheet));
            QTRY_VERIFY(probe().CSS_watcher().files().isEmpty());
            // Something else that happens in its folder.
            write(sheet + QStringLiteral("~"), secondSheet);
            QTest::qWait(30);
            QCOMPARE(look(), before);
            write(sheet, text);
            QTRY_COMPARE(look(), text);
            QCOMPARE(probe().CSS_watcher().files(), QStringList{ sheet });
            QVERIFY(probe().CSS_watcher().directories().isEmpty());
        }
        write(sheet, secondSheet);
        QTRY_COMPARE(look(), secondSheet);
    }

    void aSheetThatIsAwayChangesNothing()
    {
        makeSheets();
        fixture->open();
        const QByteArray before = look();
        const QString path = probe().settingsData()->current_CSS_path;
        fixture->window().CSS_watcher_slot(fixture->path(QStringLiteral("missing.qss")));
        QCOMPARE(look(), before);
        QCOMPARE(probe().settingsData()->current_CSS_path, path);
    }
};

QTEST_MAIN(TestStyle)
#include "tst_style.moc"
