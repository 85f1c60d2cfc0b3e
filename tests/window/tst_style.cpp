// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/sharedbevels.h"
#include "settingsdata.h"
#include "test_files.h"
#include "windowtest.h"

#include <QDir>
#include <QFile>
#include <QGraphicsScene>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QtTest>

#include <cstdio>
#include <functional>

#ifdef Q_OS_LINUX
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace {

const QByteArray firstSheet = "QLabel { color: rgb(1, 2, 3); }";
const QByteArray secondSheet = "QLabel { color: rgb(200, 100, 50); }";
const QByteArray thirdSheet = "QLabel { color: rgb(9, 8, 7); } QWidget { margin: 0; }";

/// Writes \a bytes and lets 20 ms pass: two changes of equal size within one clock tick of the file
/// system look like one.
void write(const QString &path, const QByteArray &bytes)
{
    writeFile(path, bytes);
    QTest::qSleep(20);
}

/// Replaces the file at \a path by renaming a new one, as many editors save.
void replaceByRenaming(const QString &path, const QByteArray &bytes)
{
    const QString fresh = path + QStringLiteral(".new");
    write(fresh, bytes);
    QCOMPARE(std::rename(QFile::encodeName(fresh).constData(), QFile::encodeName(path).constData()),
             0);
}

/// Called with each path right before Qt watches it.
std::function<void(const QString &)> beforeWatching;

} // namespace

#ifdef Q_OS_LINUX
// Qt calls this function instead of the one of the C library.
extern "C" int inotify_add_watch(int descriptor, const char *path, uint32_t mask) noexcept
{
    if (beforeWatching)
        beforeWatching(QFile::decodeName(path));
    return static_cast<int>(syscall(SYS_inotify_add_watch, descriptor, path, mask));
}
#endif

class TestStyle : public WindowTest
{
    Q_OBJECT

private:
    QString sheet; ///< the watched one

    /// Makes the developer's folder with the sheets 1 and 2, and opens the window.
    void openWithSheets(const QByteArray &settings = {})
    {
        qputenv("VELKOR_DEV_FOLDER", QFile::encodeName(fixture->path(QString())));
        QDir(fixture->path(QString())).mkpath(QStringLiteral("Velkor/style"));
        sheet = fixture->path(QStringLiteral("Velkor/style/style_2.qss"));
        write(sheet, firstSheet);
        write(fixture->path(QStringLiteral("Velkor/style/style_1.qss")), firstSheet);
        WindowFixture::writeSettings(settings);
        fixture->open();
    }
    /// Opens the window with \a text as the user's sheet.
    void openWithSheet(const QByteArray &text)
    {
        const QString path = fixture->path(QStringLiteral("user.qss"));
        write(path, text);
        WindowFixture::writeSettings("[General]\nCSS=" + QFile::encodeName(path) + '\n');
        fixture->open();
    }
    QByteArray look() const
    {
        return window().styleSheet().toLatin1();
    }
    QByteArray dialogLook() const
    {
        return probe().input_dialog()->styleSheet().toLatin1();
    }
    QString currentPath() const
    {
        return probe().settingsData()->current_CSS_path;
    }
    bool isOnlySheetWatched() const
    {
        return probe().CSS_watcher().files() == QStringList{ sheet }
        && probe().CSS_watcher().directories().isEmpty();
    }

private slots:
    void cleanup()
    {
        beforeWatching = nullptr;
        fixture.reset();
        qunsetenv("VELKOR_DEV_FOLDER");
    }

    void sheetStylesWindowAndInputDialogButNoFontSizesAndNoPlot()
    {
        openWithSheet("* { background: red; } " + secondSheet);
        QVERIFY(look().endsWith(secondSheet));
        QCOMPARE(dialogLook(), look());
        QCOMPARE(probe().delta_lbl()->palette().color(QPalette::WindowText), QColor(200, 100, 50));
        QCOMPARE(probe().delta_lbl()->font().pointSize(), 18);
        const QBrush nearBlack(QColor(11, 12, 13, 255), Qt::SolidPattern);
        QCOMPARE(probe().m_brush(), nearBlack);
        QCOMPARE(probe().Plot_Chart()->backgroundBrush(), nearBlack);
        QCOMPARE(probe().Plot_Scene()->backgroundBrush(), nearBlack);
    }

    // tst_style_text tests which sheets are refused.
    void refusedSheetIsStoredAndNotApplied()
    {
        const QByteArray text = "QDial { qproperty-minimum: 100 }";
        openWithSheet(text);
        QCOMPARE(look(), QByteArray());
        QCOMPARE(dialogLook(), QByteArray());
        QCOMPARE(window().settings()->current_CSS.toLatin1(), text);
    }

    void sharedBevelsLookLikeQtsOwn()
    {
        const auto pictures = [this] {
            QVector<QImage> images;
            for (auto *button : window().findChildren<QPushButton *>())
                images.append(button->grab().toImage());
            return images;
        };
        openOn({ TraceBuilder() });
        const QVector<QImage> shared = pictures();
        QVERIFY(shared.size() > 20);
        window().setStyle(QApplication::style());
        QCOMPARE(pictures(), shared);

        MainWindow other;
        other.setStyleSheet({});
        QCOMPARE(other.style(), SharedBevels::instance());
    }

    void withoutADeveloperSheetNothingIsWatched()
    {
        for (const char *folder : { "", "/nowhere/at/all", "/" }) {
            qputenv("VELKOR_DEV_FOLDER", folder);
            fixture->open();
            QVERIFY2(probe().CSS_watcher().files().isEmpty(), folder);
            QVERIFY2(probe().CSS_watcher().directories().isEmpty(), folder);
        }
    }

    void savedSheetIsAppliedAndBecomesTheCurrentOne()
    {
        const QString chosen = fixture->path(QStringLiteral("Velkor/style/style_1.qss"));
        openWithSheets("[General]\nCSS=" + QFile::encodeName(chosen) + '\n');
        QCOMPARE(look(), firstSheet);
        write(chosen, thirdSheet);
        QTest::qWait(50);
        QCOMPARE(look(), firstSheet);
        for (const QByteArray &text : { secondSheet, thirdSheet }) {
            write(sheet, text);
            QTRY_COMPARE(look(), text);
            QCOMPARE(dialogLook(), text);
            QCOMPARE(currentPath(), sheet);
        }
        fixture->close();
        const QSettings saved(WindowFixture::settingsFile(), QSettings::IniFormat);
        QCOMPARE(saved.value(QStringLiteral("CSS")).toString(), sheet);
    }

    void sheetReplacedByRenamingStaysWatched()
    {
        openWithSheets();
        QVERIFY(isOnlySheetWatched());
        QVERIFY(look() != firstSheet); // not applied at start
        for (const QByteArray &text : { secondSheet, thirdSheet, firstSheet }) {
            replaceByRenaming(sheet, text);
            QTRY_COMPARE(look(), text);
            QVERIFY(isOnlySheetWatched());
        }
        write(sheet, secondSheet);
        QTRY_COMPARE(look(), secondSheet);
    }

    void deletedSheetIsEmptyUntilItIsBack()
    {
        openWithSheets();
        for (const QByteArray &text : { thirdSheet, firstSheet }) {
            QVERIFY(QFile::remove(sheet));
            QTRY_COMPARE(look(), QByteArray());
            QCOMPARE(currentPath(), sheet);
            QVERIFY(probe().CSS_watcher().files().isEmpty());
            // Other changes in its folder do not restore it.
            window().CSS_watcher_slot(QStringLiteral(":/style/style_1.qss"));
            write(sheet + QLatin1Char('~'), secondSheet);
            QTest::qWait(30);
            QCOMPARE(currentPath(), QStringLiteral(":/style/style_1.qss"));
            write(sheet, text);
            QTRY_COMPARE(look(), text);
            QVERIFY(isOnlySheetWatched());
        }
        write(sheet, secondSheet);
        QTRY_COMPARE(look(), secondSheet);
    }

#ifdef Q_OS_LINUX
    void sheetThatComesBackWhileItIsWatchedAgainIsApplied()
    {
        openWithSheets();
        for (const QString &watched : { QFileInfo(sheet).path(), sheet }) {
            QVERIFY(QFile::remove(sheet));
            beforeWatching = [&](const QString &path) {
                if (path == watched)
                    writeFile(sheet, secondSheet);
            };
            if (watched == sheet)
                writeFile(sheet, firstSheet);
            QTRY_COMPARE(look(), secondSheet);
            QTRY_VERIFY(isOnlySheetWatched());
            beforeWatching = nullptr;
            write(sheet, thirdSheet);
            QTRY_COMPARE(look(), thirdSheet);
        }
    }
#endif

    void anyPathBecomesTheCurrentSheetAndIsNotWatched()
    {
        openWithSheets();
        const QString other = fixture->path(QStringLiteral("Velkor/style/style_1.qss"));
        const QString missing = fixture->path(QStringLiteral("missing.qss"));
        for (const QString &path : { other, missing, fixture->path(QString()) }) {
            window().CSS_watcher_slot(path);
            QCOMPARE(currentPath(), path);
            QCOMPARE(look(), path == other ? firstSheet : QByteArray());
            QVERIFY(isOnlySheetWatched());
        }
    }
};

QTEST_MAIN(TestStyle)
#include "tst_style.moc"
