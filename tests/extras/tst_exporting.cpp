// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "each.h"
#include "extras/exporting.h"
#include "extras/exporting_picture.h"
#include "extras/exporting_text.h"
#include "extras/extras.h"
#include "oddplaces.h"
#include "settingsdata.h"
#include "test_files.h"
#include "threetracestest.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <sys/stat.h>
#endif

using extras::Format;

namespace {

constexpr Format formats[]
    = { Format::Picture, Format::PaperPicture, Format::Page, Format::Drawing, Format::Table };

QFileDialog &fileDialog(QDialog &dialog)
{
    return static_cast<QFileDialog &>(dialog);
}

/// Chooses the filter of \a format, as a click in the dialog does.
void chooseFormat(QDialog &dialog, Format format)
{
    const QString filter = fileDialog(dialog).nameFilters().at(static_cast<int>(format));
    fileDialog(dialog).selectNameFilter(filter);
    emit fileDialog(dialog).filterSelected(filter);
}

void agree(QDialog &question)
{
    static_cast<QMessageBox &>(question).button(QMessageBox::Yes)->click();
}

} // namespace

/// Copying and saving the content of the window, and the notes about it.
class TestExporting : public WindowTest
{
    Q_OBJECT

private:
    /// Opens a window with one trace and the extras.
    void open()
    {
        openOn({ TraceBuilder().samples([](int i) { return i % 100; }) });
        extras::attach(window());
    }

    /// Presses Ctrl+E, or Ctrl and \a key, and answers the dialog; false when none opened.
    bool exportWith(const std::function<void(QDialog &)> &answer, int key = Qt::Key_E) const
    {
        const auto served = answerDialog(answer);
        press(&window(), key, Qt::ControlModifier);
        return served->served();
    }

    QString path(const char *name) const
    {
        return fixture->path(QString::fromLatin1(name));
    }

    QStringList files() const
    {
        return QFileInfo(path("x")).dir().entryList(QDir::Files | QDir::Hidden);
    }

    /// The note over the plot; empty when there is none.
    QString note() const
    {
        const auto *label = probe().Plot_View()->findChild<QLabel *>();
        return label && label->isVisible() ? label->text() : QString();
    }

private slots:
    void copyPutsPictureAndReadingsOnTheClipboard()
    {
        open();
        QTest::keyClick(&window(), Qt::Key_C, Qt::ControlModifier);
        const QMimeData *data = QGuiApplication::clipboard()->mimeData();
        QVERIFY(data->hasImage());
        QCOMPARE(qvariant_cast<QImage>(data->imageData()),
                 extras::chartPicture(window(), extras::Background::Screen));
        QCOMPARE(data->text(), extras::readings(window()));
        QCOMPARE(note(), QStringLiteral("Picture and readings copied"));
    }

    void dialogOffersFormatsAndANameInTheLanguageOfTheWindow()
    {
        open();
        const QString folder = QFileInfo(path("x")).path();
        window().settings()->last_folder = folder;
        QString proposed;
        QStringList texts;
        const auto look = [&](QDialog &dialog) {
            proposed = fileDialog(dialog).selectedFiles().value(0);
            texts = QStringList(dialog.windowTitle()) + fileDialog(dialog).nameFilters();
            dialog.reject();
        };
        QVERIFY(exportWith(look));
        QCOMPARE(proposed, folder + QStringLiteral("/t1.png"));
        QCOMPARE(
            texts.mid(1),
            (QStringList{ QStringLiteral("PNG picture (*.png)"),
                          QStringLiteral("PNG picture for paper (*.png)"),
                          QStringLiteral("PDF page (*.pdf)"), QStringLiteral("SVG drawing (*.svg)"),
                          QStringLiteral("CSV table (*.csv)") }));
        setLanguage("ru_RU");
        window().remove_Selected_RFG(0);
        QVERIFY(exportWith(look));
        QCOMPARE(proposed, folder + QStringLiteral("/velkor.png"));
        QCOMPARE(texts[0], QStringLiteral("Сохранить как"));
        QCOMPARE(texts[1], QStringLiteral("Рисунок PNG (*.png)"));
        QVERIFY(exportWith([this](QDialog &dialog) {
            chooseFormat(dialog, Format::Table);
            typeFileName(path("a"))(dialog);
        }));
        QCOMPARE(note(),
                 QStringLiteral("Сохранено: Таблица CSV\n")
                     + QDir::toNativeSeparators(path("a.csv")));
    }

    void filterDecidesTheFormat()
    {
        open();
        struct Row
        {
            const char *name; ///< of the file, with its suffix
            Format format;
            const char *start;
        };
        each<Row>({ { "a.png", Format::Picture, "\x89PNG" },
                    { "b.png", Format::PaperPicture, "\x89PNG" },
                    { "c.pdf", Format::Page, "%PDF" },
                    { "d.svg", Format::Drawing, "<?xml" },
                    { "e.csv", Format::Table, "# Velkor" } },
                  [this](const Row &row) {
                      const QString file = path(row.name);
                      QVERIFY(exportWith([&](QDialog &dialog) {
                          chooseFormat(dialog, row.format);
                          typeFileName(file.chopped(4))(dialog);
                      }));
                      QVERIFY(contentOf(file).startsWith(row.start));
                      QVERIFY(note().endsWith(QDir::toNativeSeparators(file)));
                  });
        QCOMPARE(QImage(path("a.png")), extras::chartPicture(window(), extras::Background::Screen));
        QCOMPARE(QImage(path("b.png")), extras::chartPicture(window(), extras::Background::White));
    }

    void suffixDecidesTheFormat()
    {
        struct Row
        {
            const char *name; ///< as typed
            Format chosen;
            const char *path;
            Format format;
        };
        each<Row>({ { "/a.b/c.PDF", Format::Picture, "/a.b/c.PDF", Format::Page },
                    { "/a.png", Format::PaperPicture, "/a.png", Format::PaperPicture },
                    { "/a.png", Format::Table, "/a.png", Format::Picture },
                    { "/a.png/b", Format::Table, "/a.png/b.csv", Format::Table },
                    { "/a.", Format::Drawing, "/a.svg", Format::Drawing },
                    // No export replaces a trace.
                    { "/a.tdr", Format::Picture, "/a.tdr.png", Format::Picture } },
                  [](const Row &row) {
                      QString path = QString::fromLatin1(row.name);
                      QCOMPARE(extras::formatFor(path, row.chosen), row.format);
                      QCOMPARE(path, QString::fromLatin1(row.path));
                  });
    }

    void existingFileIsReplacedOnlyAfterConfirmation()
    {
        open();
        // "v2" is not the suffix of a format, so ".png" is appended. A file of that name exists,
        // and the dialog has not asked about it, so it opens again.
        const QString report = path("report.v2.png");
        for (const bool replace : { false, true }) {
            writeFile(report, "former");
            bool asked = false;
            QVERIFY(exportWith([&](QDialog &dialog) {
                typeFileName(path("report.v2"))(dialog);
                // The first dialog closes when this answer returns; the second is the same widget.
                QTimer::singleShot(100, &dialog, [&, replace] {
                    const auto question = answerDialog(agree);
                    if (replace)
                        dialog.accept();
                    else
                        dialog.reject();
                    asked = question->served();
                });
            }));
            QCOMPARE(asked, replace);
            QCOMPARE(contentOf(report).startsWith("\x89PNG"), replace);
        }
    }

    void cancelSavesNothing()
    {
        open();
        const QStringList before = files();
        QVERIFY(exportWith(cancelDialog, u'У')); // E on a Russian keyboard
        QCOMPARE(files(), before);
        QCOMPARE(note(), QString());
    }

    void noteFitsIntoThePlotAndDisappears()
    {
        open();
        window().settings()->last_folder = QStringLiteral("/somewhere");
        const QString name = QString(200, QLatin1Char('x'));
        QVERIFY(exportWith(typeFileName(fixture->path(name + QStringLiteral(".csv")))));
        const auto *label = probe().Plot_View()->findChild<QLabel *>();
        QVERIFY(label);
        QVERIFY(probe().Plot_View()->rect().contains(label->geometry()));
        QVERIFY(label->text().contains(QChar(0x2026)));
        // The folder of the traces stays.
        QCOMPARE(window().settings()->last_folder, QStringLiteral("/somewhere"));
        // A new note replaces the former one.
        press(&window(), u'С', Qt::ControlModifier); // C on a Russian keyboard
        QCOMPARE(probe().Plot_View()->findChildren<QLabel *>().size(), 1);
        QVERIFY(!QApplication::activeModalWidget());
        QTRY_VERIFY_WITH_TIMEOUT(note().isEmpty(), 15000);
    }

    void failedExportIsReported()
    {
        open();
        QVERIFY(QDir().mkpath(path("folder.png")));
        writeFile(path("locked.png"), "former");
        QVERIFY(QFile::setPermissions(path("locked.png"), QFile::ReadOwner));
        struct Row
        {
            const char *name;
            QString reason;
        };
        std::vector<Row> rows{
            { "none/a.png", QStringLiteral("the folder does not exist") },
            { "locked.png", QStringLiteral("the file is read-only") },
        };
#ifdef Q_OS_UNIX
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.png")).constData(), 0600), 0);
        rows.push_back({ "pipe.png", QStringLiteral("this is not a regular file") });
#endif
        each<Row>(rows, [this](const Row &row) {
            QVERIFY(exportWith([&](QDialog &dialog) {
                // The dialog asks whether an existing file may be replaced.
                const auto question = answerDialog(agree);
                typeFileName(path(row.name))(dialog);
            }));
            QCOMPARE(note(),
                     QStringLiteral("Not saved: %1\n%2")
                         .arg(row.reason, QDir::toNativeSeparators(path(row.name))));
        });
        QCOMPARE(contentOf(path("locked.png")), QByteArray("former"));
        QVERIFY(!QFileInfo(path("pipe.png")).isFile());
        // The dialog would open a folder.
        QCOMPARE(extras::saveShown(window(), path("folder.png"), Format::Picture),
                 QStringLiteral("a folder has this name"));
        QVERIFY(QFileInfo(path("folder.png")).isDir());
    }

#ifdef Q_OS_UNIX
    void fullDiskKeepsTheFormerFile()
    {
        open();
        writeFile(path("a"), "former");
        const QStringList before = files();
        // Each format is larger than this.
        onFullDisk(2000, [this] {
            for (const Format format : formats)
                QCOMPARE(extras::saveShown(window(), path("a"), format), qt_error_string(EFBIG));
        });
        QCOMPARE(files(), before);
        QCOMPARE(contentOf(path("a")), QByteArray("former"));
    }
#endif

    void dialogMayBeDestroyedWhileItIsOpen()
    {
        open();
        const QStringList before = files();
        QVERIFY(exportWith([](QDialog &dialog) { delete &dialog; }));
        QVERIFY(exportWith(cancelDialog));
        // And together with its window.
        auto *other = new MainWindow;
        extras::attach(*other);
        other->show();
        const QPointer<MainWindow> watched = other;
        const auto served = answerDialog([&](QDialog &) { delete other; });
        QTest::keyClick(other, Qt::Key_E, Qt::ControlModifier);
        QVERIFY(served->served());
        QVERIFY(watched.isNull());
        QCOMPARE(files(), before);
    }

    void emptyWindowCanBeSaved()
    {
        const MainWindow &window = fixture->open();
        for (const Format format : formats)
            QCOMPARE(extras::saveShown(window, path("a"), format), QString());
        QCOMPARE(extras::readings(window),
                 QStringLiteral("Cursor A: x = 0.00 m\nCursor B: x = 0.00 m\nΔ: 0.00 m\nKU: 1.499\n"
                                "Velocity factor 1/KU: 0.667\nv/2: 100.0 m/µs\n"));
    }
};

QTEST_MAIN(TestExporting)
#include "tst_exporting.moc"
