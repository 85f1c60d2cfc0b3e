// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "extras/exporting.h"
#include "extras/exporting_picture.h"
#include "extras/exporting_text.h"
#include "extras/extras.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "windowactions.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

namespace {

/// A sample at level 20 and the next at -20, all the way: a trace with lines in every column.
TraceBuilder comb()
{
    return TraceBuilder().minstep(5.0F).samples([](int i) { return i % 2 == 0 ? 20 : -20; });
}

/// Lets the dialog of Ctrl+E be answered by \a answer; true when it came up.
bool exportWith(MainWindow &window, std::function<void(QDialog &)> answer)
{
    const auto served = answerDialog(std::move(answer));
    QTest::keyClick(&window, Qt::Key_E, Qt::ControlModifier);
    return served->served();
}

} // namespace

/// What the window shows, on the clipboard and in files.
class TestExporting : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void copyingPutsPictureAndReadingsOnTheClipboard();
    void aRussianKeyboardCopiesToo();
    void theEndingSaysWhatIsSaved();
    void anUnknownEndingGetsThatOfTheFilter();
    void theDialogProposesTheNameOfTheTrace();
    void withoutATraceTheDialogProposesTheProgramsName();
    void theDialogSpeaksTheWindowsLanguage();
    void cancellingSavesNothing();
    void noFileIsOverwrittenUnasked();
    void whoeverAgreesOverwrites();
    void theFolderOfTheTracesStays();
    void whatCannotBeWrittenIsNotReported();
    void aFullDiskLeavesTheFileThatWasThere();
    void anEmptyWindowCanBeSaved();
};

void TestExporting::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestExporting::copyingPutsPictureAndReadingsOnTheClipboard()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data->hasImage());
    QCOMPARE(qvariant_cast<QImage>(data->imageData()), extras::chartPicture(window));
    QCOMPARE(data->text(), extras::readings(window));
}

void TestExporting::aRussianKeyboardCopiesToo()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    QGuiApplication::clipboard()->clear();
    QTest::sendKeyEvent(QTest::Click, &window, Qt::Key(u'С'), QString(QChar(u'С')),
                        Qt::ControlModifier);
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasImage());
    const auto answer = answerDialog(cancelDialog);
    QTest::sendKeyEvent(QTest::Click, &window, Qt::Key(u'У'), QString(QChar(u'У')),
                        Qt::ControlModifier);
    QVERIFY(answer->served());
}

void TestExporting::theEndingSaysWhatIsSaved()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    const QString picture = fixture.path(QStringLiteral("a.png"));
    QVERIFY(exportWith(window, typeFileName(picture)));
    QCOMPARE(QImage(picture), extras::chartPicture(window));
    QCOMPARE(QImage(picture).dotsPerMeterX(), 11811);
    const QString page = fixture.path(QStringLiteral("a.b.PDF"));
    QVERIFY(exportWith(window, typeFileName(page)));
    QVERIFY(contentOf(page).startsWith("%PDF"));
    const QString table = fixture.path(QStringLiteral("a, b's.csv"));
    QVERIFY(exportWith(window, typeFileName(table)));
    QCOMPARE(contentOf(table), extras::table(window));
}

void TestExporting::anUnknownEndingGetsThatOfTheFilter()
{
    QCOMPARE(extras::withKnownEnding(QStringLiteral("/a/b.png"), QStringLiteral("csv")),
             QStringLiteral("/a/b.png"));
    QCOMPARE(extras::withKnownEnding(QStringLiteral("/a/b.CSV"), QStringLiteral("png")),
             QStringLiteral("/a/b.CSV"));
    QCOMPARE(extras::withKnownEnding(QStringLiteral("/a.png/b"), QStringLiteral("csv")),
             QStringLiteral("/a.png/b.csv"));
    QCOMPARE(extras::withKnownEnding(QStringLiteral("/a/b."), QStringLiteral("pdf")),
             QStringLiteral("/a/b.pdf"));
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    // Also that of a trace: no export ever takes the place of one.
    const QByteArray trace = contentOf(fixture.path(QStringLiteral("t1.tdr")));
    std::unique_ptr<DialogAnswer> overwrite;
    QVERIFY(exportWith(window, [&](QDialog &dialog) {
        overwrite = answerDialog([](QDialog &question) {
            static_cast<QMessageBox &>(question).button(QMessageBox::Yes)->click();
        });
        typeFileName(fixture.path(QStringLiteral("t1.tdr")))(dialog);
    }));
    QCOMPARE(contentOf(fixture.path(QStringLiteral("t1.tdr"))), trace);
    QVERIFY(QFileInfo::exists(fixture.path(QStringLiteral("t1.tdr.png"))));
    QVERIFY(exportWith(window, [&](QDialog &dialog) {
        auto &files = static_cast<QFileDialog &>(dialog);
        QCOMPARE(files.nameFilters().size(), 3);
        files.selectNameFilter(files.nameFilters().last());
        emit files.filterSelected(files.nameFilters().last());
        typeFileName(fixture.path(QStringLiteral("plain")))(dialog);
    }));
    QCOMPARE(contentOf(fixture.path(QStringLiteral("plain.csv"))), extras::table(window));
}

void TestExporting::theDialogProposesTheNameOfTheTrace()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    const QString folder = QFileInfo(fixture.path(QStringLiteral("x"))).path();
    window.settings()->last_folder = folder;
    QString proposed;
    QVERIFY(exportWith(window, [&](QDialog &dialog) {
        proposed = static_cast<QFileDialog &>(dialog).selectedFiles().value(0);
        dialog.reject();
    }));
    QCOMPARE(proposed, folder + QStringLiteral("/t1.png"));
}

void TestExporting::withoutATraceTheDialogProposesTheProgramsName()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    // The last one selected is not proposed once it has gone.
    window.remove_Selected_RFG(0);
    QString proposed;
    QVERIFY(exportWith(window, [&](QDialog &dialog) {
        proposed = static_cast<QFileDialog &>(dialog).selectedFiles().value(0);
        dialog.reject();
    }));
    QCOMPARE(QFileInfo(proposed).fileName(), QStringLiteral("velkor.png"));
}

void TestExporting::theDialogSpeaksTheWindowsLanguage()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    window.settings()->current_language = QStringLiteral("ru_RU");
    QString caption;
    QStringList filters;
    QVERIFY(exportWith(window, [&](QDialog &dialog) {
        caption = dialog.windowTitle();
        filters = static_cast<QFileDialog &>(dialog).nameFilters();
        dialog.reject();
    }));
    QCOMPARE(caption, QStringLiteral("Сохранить то, что показано"));
    QCOMPARE(filters,
             (QStringList{ QStringLiteral("Рисунок, 300 точек на дюйм (*.png)"),
                           QStringLiteral("Масштабируемая страница (*.pdf)"),
                           QStringLiteral("Таблица уровней (*.csv)") }));
}

void TestExporting::cancellingSavesNothing()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    const QDir folder(QFileInfo(fixture.path(QStringLiteral("x"))).path());
    const QStringList before = folder.entryList(QDir::Files | QDir::Hidden);
    QVERIFY(exportWith(window, cancelDialog));
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), before);
}

void TestExporting::noFileIsOverwrittenUnasked()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    const QString path = fixture.path(QStringLiteral("report.v2.png"));
    writeFile(path, "mine");
    // "report.v2" has an ending, though not one of ours. Completed it is the name of a file, and
    // the dialog comes up again with that; whoever cancels then keeps the file.
    QStringList proposed;
    QTimer second;
    QVERIFY(exportWith(window, [&](QDialog &dialog) {
        typeFileName(fixture.path(QStringLiteral("report.v2")))(dialog);
        QObject::connect(&second, &QTimer::timeout, &dialog, [&] {
            if (!dialog.isVisible())
                return;
            proposed = static_cast<QFileDialog &>(dialog).selectedFiles();
            dialog.reject();
        });
        second.start(20);
    }));
    QCOMPARE(proposed, QStringList{ path });
    QCOMPARE(contentOf(path), QByteArray("mine"));
}

void TestExporting::whoeverAgreesOverwrites()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    const QString path = fixture.path(QStringLiteral("report.v2.png"));
    writeFile(path, "mine");
    QTimer second;
    second.setSingleShot(true);
    QTimer question;
    int questions = 0;
    QVERIFY(exportWith(window, [&](QDialog &dialog) {
        typeFileName(fixture.path(QStringLiteral("report.v2")))(dialog);
        QObject::connect(&question, &QTimer::timeout, &dialog, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            ++questions;
            question.stop();
            box->button(QMessageBox::Yes)->click();
        });
        question.start(20);
        QObject::connect(&second, &QTimer::timeout, &dialog, [&dialog] { dialog.accept(); });
        second.start(100);
    }));
    QCOMPARE(questions, 1);
    QVERIFY(!QImage(path).isNull());
}

void TestExporting::theFolderOfTheTracesStays()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    extras::attach(window);
    window.settings()->last_folder = QStringLiteral("/somewhere");
    QVERIFY(exportWith(window, typeFileName(fixture.path(QStringLiteral("a.csv")))));
    QCOMPARE(window.settings()->last_folder, QStringLiteral("/somewhere"));
}

void TestExporting::whatCannotBeWrittenIsNotReported()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("folder.png"))));
    for (const char *name : { "none/a.png", "none/a.pdf", "none/a.csv", "folder.png", "a.txt", "" })
        QVERIFY(!extras::saveShown(window, fixture.path(QString::fromLatin1(name))));
    QVERIFY(!QFileInfo::exists(fixture.path(QStringLiteral("a.txt"))));
    QVERIFY(QFileInfo(fixture.path(QStringLiteral("folder.png"))).isDir());
}

void TestExporting::aFullDiskLeavesTheFileThatWasThere()
{
#ifdef Q_OS_UNIX
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb(), comb().minstep(2.5F) });
    const QDir folder(QFileInfo(fixture.path(QStringLiteral("x"))).path());
    for (const char *ending : { "png", "pdf", "csv" })
        writeFile(fixture.path(QStringLiteral("a.") + QLatin1String(ending)), "mine");
    const QStringList before = folder.entryList(QDir::Files | QDir::Hidden);
    // No file may grow beyond this, which each format does.
    rlimit former = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit tight = { 2000, former.rlim_max };
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
    QVector<bool> saved;
    for (const char *ending : { "png", "pdf", "csv" })
        saved.append(
            extras::saveShown(window, fixture.path(QStringLiteral("a.") + QLatin1String(ending))));
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(saved, (QVector<bool>{ false, false, false }));
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), before);
    for (const char *ending : { "png", "pdf", "csv" })
        QCOMPARE(contentOf(fixture.path(QStringLiteral("a.") + QLatin1String(ending))),
                 QByteArray("mine"));
#endif
}

void TestExporting::anEmptyWindowCanBeSaved()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    for (const char *name : { "a.png", "a.pdf", "a.csv" })
        QVERIFY(extras::saveShown(window, fixture.path(QString::fromLatin1(name))));
    QVERIFY(!QImage(fixture.path(QStringLiteral("a.png"))).isNull());
}

QTEST_MAIN(TestExporting)
#include "tst_exporting.moc"
