// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "each.h"
#include "extras/exporting.h"
#include "extras/exporting_picture.h"
#include "extras/exporting_text.h"
#include "extras/extras.h"
#include "savedialog.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "windowtest.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QPointer>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

using extras::Format;

/// Copying and saving what the window shows, and what is said about it.
class TestExporting : public WindowTest
{
    Q_OBJECT

private slots:
    void copyPutsPictureAndReadingsOnTheClipboard();
    void russianLayoutCopiesAndSaves();
    void dialogOffersTheFormatsInOrder();
    void dialogIsTranslated();
    void dialogProposesTheNameOfTheTrace();
    void filterDecidesTheFormat();
    void suffixDecidesTheFormat();
    void existingFileIsReplacedOnlyAfterTheQuestion();
    void cancelSavesNothing();
    void folderOfTheTracesStays();
    void noteDisappears();
    void noteFitsIntoThePlot();
    void failedExportIsReported();
    void fullDiskKeepsTheFormerFile();
    void dialogMayBeDestroyedWhileItIsOpen();
    void emptyWindowCanBeSaved();

private:
    /// Opens a window with one trace and the extras.
    void open();
    /// Presses Ctrl+E and answers the dialog; false when none opened.
    bool exportWith(const std::function<void(QDialog &)> &answer) const;
    QString path(const char *name) const;
    QStringList files() const;
    /// The note over the plot; empty when there is none.
    QString note() const;
    void speakRussian() const;
};

void TestExporting::open()
{
    // A sample at level 20 and the next at -20: lines in every column.
    openOn({ TraceBuilder().minstep(5.0F).samples([](int i) { return i % 2 == 0 ? 20 : -20; }) });
    extras::attach(window());
}

bool TestExporting::exportWith(const std::function<void(QDialog &)> &answer) const
{
    const auto served = answerDialog(answer);
    QTest::keyClick(&window(), Qt::Key_E, Qt::ControlModifier);
    return served->served();
}

QString TestExporting::path(const char *name) const
{
    return fixture->path(QString::fromLatin1(name));
}

QStringList TestExporting::files() const
{
    return QFileInfo(path("x")).dir().entryList(QDir::Files | QDir::Hidden);
}

QString TestExporting::note() const
{
    const auto *label = probe().Plot_View()->findChild<QLabel *>();
    return label && label->isVisible() ? label->text() : QString();
}

void TestExporting::speakRussian() const
{
    window().settings()->current_language = QStringLiteral("ru_RU");
    window().settings()->setTranslation();
    emit window().settings()->translation_changed();
}

void TestExporting::copyPutsPictureAndReadingsOnTheClipboard()
{
    open();
    QTest::keyClick(&window(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data->hasImage());
    QCOMPARE(qvariant_cast<QImage>(data->imageData()),
             extras::chartPicture(window(), extras::Ground::Screen));
    QCOMPARE(data->text(), extras::readings(window()));
    QCOMPARE(note(), QStringLiteral("Picture and readings copied"));
}

void TestExporting::russianLayoutCopiesAndSaves()
{
    open();
    QGuiApplication::clipboard()->clear();
    QTest::sendKeyEvent(QTest::Click, &window(), Qt::Key(u'С'), QString(QChar(u'С')),
                        Qt::ControlModifier);
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasImage());
    const auto answer = answerDialog(cancelDialog);
    QTest::sendKeyEvent(QTest::Click, &window(), Qt::Key(u'У'), QString(QChar(u'У')),
                        Qt::ControlModifier);
    QVERIFY(answer->served());
}

void TestExporting::dialogOffersTheFormatsInOrder()
{
    open();
    QStringList filters;
    QVERIFY(exportWith([&](QDialog &dialog) {
        filters = fileDialog(dialog).nameFilters();
        dialog.reject();
    }));
    QCOMPARE(
        filters,
        (QStringList{ QStringLiteral("PNG picture (*.png)"),
                      QStringLiteral("PNG picture for paper (*.png)"),
                      QStringLiteral("PDF page (*.pdf)"), QStringLiteral("SVG drawing (*.svg)"),
                      QStringLiteral("CSV table (*.csv)") }));
}

void TestExporting::dialogIsTranslated()
{
    open();
    speakRussian();
    QString caption;
    QStringList filters;
    QVERIFY(exportWith([&](QDialog &dialog) {
        caption = dialog.windowTitle();
        filters = fileDialog(dialog).nameFilters();
        chooseFormat(dialog, Format::Table);
        typeFileName(path("a"))(dialog);
    }));
    QCOMPARE(caption, QStringLiteral("Сохранить как"));
    QCOMPARE(filters.constFirst(), QStringLiteral("Рисунок PNG (*.png)"));
    QCOMPARE(note(),
             QStringLiteral("Сохранено: Таблица CSV\n") + QDir::toNativeSeparators(path("a.csv")));
}

void TestExporting::dialogProposesTheNameOfTheTrace()
{
    open();
    const QString folder = QFileInfo(path("x")).path();
    window().settings()->last_folder = folder;
    QString proposed;
    const auto look = [&](QDialog &dialog) {
        proposed = fileDialog(dialog).selectedFiles().value(0);
        dialog.reject();
    };
    QVERIFY(exportWith(look));
    QCOMPARE(proposed, folder + QStringLiteral("/t1.png"));
    window().remove_Selected_RFG(0);
    QVERIFY(exportWith(look));
    QCOMPARE(proposed, folder + QStringLiteral("/velkor.png"));
}

void TestExporting::filterDecidesTheFormat()
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
    QCOMPARE(QImage(path("a.png")), extras::chartPicture(window(), extras::Ground::Screen));
    QCOMPARE(QImage(path("b.png")), extras::chartPicture(window(), extras::Ground::White));
}

void TestExporting::suffixDecidesTheFormat()
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
                // No export takes the place of a trace.
                { "/a.tdr", Format::Picture, "/a.tdr.png", Format::Picture } },
              [](const Row &row) {
                  QString path = QString::fromLatin1(row.name);
                  QCOMPARE(extras::formatFor(path, row.chosen), row.format);
                  QCOMPARE(path, QString::fromLatin1(row.path));
              });
}

void TestExporting::existingFileIsReplacedOnlyAfterTheQuestion()
{
    open();
    // "report.v2" has a suffix that is none of ours. With ours it is the name of a file, and the
    // dialog, which has not asked about that one, opens again.
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

void TestExporting::cancelSavesNothing()
{
    open();
    const QStringList before = files();
    QVERIFY(exportWith(cancelDialog));
    QCOMPARE(files(), before);
    QCOMPARE(note(), QString());
}

void TestExporting::folderOfTheTracesStays()
{
    open();
    window().settings()->last_folder = QStringLiteral("/somewhere");
    QVERIFY(exportWith(typeFileName(path("a.csv"))));
    QCOMPARE(window().settings()->last_folder, QStringLiteral("/somewhere"));
}

void TestExporting::noteDisappears()
{
    open();
    QVERIFY(exportWith(typeFileName(path("a.csv"))));
    QTest::keyClick(&window(), Qt::Key_C, Qt::ControlModifier);
    // The later note replaces the former one.
    QCOMPARE(probe().Plot_View()->findChildren<QLabel *>().size(), 1);
    QVERIFY(!QApplication::activeModalWidget());
    QTRY_VERIFY_WITH_TIMEOUT(note().isEmpty(), 15000);
}

void TestExporting::noteFitsIntoThePlot()
{
    open();
    const QString name = QString(200, QLatin1Char('x'));
    QVERIFY(exportWith(typeFileName(fixture->path(name + QStringLiteral(".csv")))));
    const auto *label = probe().Plot_View()->findChild<QLabel *>();
    QVERIFY(label);
    QVERIFY(probe().Plot_View()->rect().contains(label->geometry()));
    QVERIFY(label->text().contains(QChar(0x2026)));
}

void TestExporting::failedExportIsReported()
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
#ifdef Q_OS_UNIX
    struct stat pipe = {};
    QCOMPARE(::stat(QFile::encodeName(path("pipe.png")).constData(), &pipe), 0);
    QVERIFY(S_ISFIFO(pipe.st_mode));
#endif
    // The dialog would open a folder.
    QCOMPARE(extras::saveShown(window(), path("folder.png"), Format::Picture),
             QStringLiteral("a folder has this name"));
    QVERIFY(QFileInfo(path("folder.png")).isDir());
}

void TestExporting::fullDiskKeepsTheFormerFile()
{
    open();
#ifdef Q_OS_UNIX
    const std::pair<const char *, Format> formats[] = {
        { "a.png", Format::Picture }, { "b.png", Format::PaperPicture }, { "c.pdf", Format::Page },
        { "d.svg", Format::Drawing }, { "e.csv", Format::Table },
    };
    for (const auto &[name, format] : formats)
        writeFile(path(name), "former");
    const QStringList before = files();
    // No file may grow beyond this, which each format does.
    rlimit former = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit tight = { 2000, former.rlim_max };
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
    QStringList reasons;
    for (const auto &[name, format] : formats)
        reasons.append(extras::saveShown(window(), path(name), format));
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(reasons, QStringList(QVector<QString>(5, qt_error_string(EFBIG)).toList()));
    QCOMPARE(files(), before);
    for (const auto &[name, format] : formats)
        QCOMPARE(contentOf(path(name)), QByteArray("former"));
#endif
}

void TestExporting::dialogMayBeDestroyedWhileItIsOpen()
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

void TestExporting::emptyWindowCanBeSaved()
{
    open();
    window().remove_Selected_RFG(0);
    for (const Format format :
         { Format::Picture, Format::PaperPicture, Format::Page, Format::Drawing, Format::Table })
        QCOMPARE(extras::saveShown(window(), path("a"), format), QString());
}

QTEST_MAIN(TestExporting)
#include "tst_exporting.moc"
