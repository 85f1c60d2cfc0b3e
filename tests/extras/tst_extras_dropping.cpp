// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "threetraces.h"
#include "windowactions.h"
#include "windowstate.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWindow>
#include <QtTest>

namespace {

/// A drag from another program. What it reports goes the toolkit's own way: through the native
/// window, which finds the widget under the pointer that takes drops.
class Drag
{
public:
    Drag(MainWindow &window, const QList<QUrl> &urls, Qt::DropActions actions = Qt::CopyAction)
        : m_window(window.windowHandle())
        , m_actions(actions)
    {
        m_data.setUrls(urls);
    }

    /// What the pointer says after \a event, which happened at a place: a drop is possible or not.
    bool enter(QPoint at)
    {
        QDragEnterEvent event(at, m_actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
        // The system asks once more at the same place and shows what it hears then.
        return event.isAccepted() && move(at);
    }

    bool move(QPoint at)
    {
        QDragMoveEvent event(at, m_actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
        m_action = event.dropAction();
        return event.isAccepted();
    }

    bool drop(QPoint at)
    {
        QDropEvent event(at, m_actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
        WindowFixture::settle();
        return event.isAccepted();
    }

    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(m_window, &event);
    }

    /// What the other program was told last would be done with its files.
    Qt::DropAction action() const
    {
        return m_action;
    }

private:
    QWindow *m_window;
    QMimeData m_data;
    Qt::DropActions m_actions;
    Qt::DropAction m_action = Qt::IgnoreAction;
};

QList<QUrl> urlsOf(const QStringList &paths)
{
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    return urls;
}

QPoint middleOf(const QWidget *widget)
{
    return widget->mapTo(widget->window(), widget->rect().center());
}

/// \a count traces in the folder of \a fixture, each unlike the others.
QStringList makeTraces(const WindowFixture &fixture, int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths.append(fixture.trace(QStringLiteral("dropped%1.tdr").arg(i),
                                   TraceBuilder().samples(10 * i).delay(quint32(i))));
    return paths;
}

/// What the window and its settings say of the files that are open.
QStringList everythingOf(const WindowFixture &fixture)
{
    QStringList lines = stateOf(fixture.window());
    const SettingsData &settings = *fixture.window().settings();
    lines.append(settings.last_folder);
    lines.append(QString::number(settings.read_index));
    lines.append(QString::number(settings.master_ID));
    for (const QString &file : settings.current_files)
        lines.append(file);
    return lines;
}

} // namespace

class TestExtrasDropping : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void filesReplaceTheSetAsTheFilesButtonDoes_data();
    void filesReplaceTheSetAsTheFilesButtonDoes();
    void oneFileOnASlotGoesThereAsByItsMenu_data();
    void oneFileOnASlotGoesThereAsByItsMenu();
    void everyPlaceOfTheWindowTakesFiles();
    void severalFilesAreRefusedOnASlotAndTakenBesideIt();
    void anythingElseIsRefusedWhileItIsDragged_data();
    void anythingElseIsRefusedWhileItIsDragged();
    void namesMayBeAnyhowWritten_data();
    void namesMayBeAnyhowWritten();
    void theOtherProgramIsNeverToldToDeleteItsFiles_data();
    void theOtherProgramIsNeverToldToDeleteItsFiles();
    void aFileThatGoesBeforeItIsDroppedIsRefused();
    void nothingIsTakenWhileADialogIsOpen();
    void withoutExtrasTheWindowTakesNothing();
};

void TestExtrasDropping::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestExtrasDropping::filesReplaceTheSetAsTheFilesButtonDoes_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one") << 1;
    QTest::newRow("two, fewer than before") << 2;
    QTest::newRow("six") << 6;
}

void TestExtrasDropping::filesReplaceTheSetAsTheFilesButtonDoes()
{
    QFETCH(int, count);
    WindowFixture fixture;
    const QStringList files = makeTraces(fixture, count);
    openThree(fixture);
    QVERIFY(chooseFiles(fixture, files));
    const QStringList expected = everythingOf(fixture);

    MainWindow &window = openThree(fixture);
    const QPoint plot = middleOf(fixture.probe().Plot_View());
    Drag drag(window, urlsOf(files));
    QVERIFY(drag.enter(plot));
    QVERIFY(drag.drop(plot));
    QCOMPARE(everythingOf(fixture), expected);
    QCOMPARE(fixture.probe().rfg_read_index(), (1 << count) - 1);
    QCOMPARE(fixture.probe().rfg_DATA()[count - 1].full_path, files.last());
}

void TestExtrasDropping::oneFileOnASlotGoesThereAsByItsMenu_data()
{
    QTest::addColumn<int>("slot");
    QTest::newRow("a loaded one") << 0;
    QTest::newRow("the master's") << 1;
    QTest::newRow("an empty one") << 5;
}

void TestExtrasDropping::oneFileOnASlotGoesThereAsByItsMenu()
{
    QFETCH(int, slot);
    WindowFixture fixture;
    const QStringList files = makeTraces(fixture, 1);
    openThree(fixture);
    QVERIFY(loadInto(fixture, slot, files.first()));
    const QStringList expected = everythingOf(fixture);

    MainWindow &window = openThree(fixture);
    const QPoint button = middleOf(fixture.probe().selected_rfg()[slot]);
    Drag drag(window, urlsOf(files));
    QVERIFY(drag.enter(QPoint(3, 3)));
    QVERIFY(drag.move(button));
    QVERIFY(drag.drop(button));
    QCOMPARE(everythingOf(fixture), expected);
    QCOMPARE(fixture.probe().rfg_DATA()[slot].full_path, files.first());
    QCOMPARE(fixture.probe().rfg_read_index(), 7 | 1 << slot);
}

void TestExtrasDropping::everyPlaceOfTheWindowTakesFiles()
{
    WindowFixture fixture;
    const QList<QUrl> files = urlsOf(makeTraces(fixture, 2));
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    const QWidget *const places[]
        = { probe.logo_lbl(),        probe.curA_button(), probe.delta_lbl(),
            probe.legend_button(),   probe.Plot_View(),   probe.settings_button(),
            probe.scale_up_button(), probe.param_dial(),  probe.gain_button() };
    Drag drag(window, files);
    QVERIFY(drag.enter(QPoint(1, 1)));
    for (const QWidget *place : places)
        QVERIFY(drag.move(middleOf(place)));
    drag.leave();
    QCOMPARE(probe.rfg_read_index(), 7);
    QVERIFY(drag.enter(middleOf(probe.gain_button())));
    QVERIFY(drag.drop(middleOf(probe.gain_button())));
    QCOMPARE(probe.rfg_read_index(), 3);
}

void TestExtrasDropping::severalFilesAreRefusedOnASlotAndTakenBesideIt()
{
    WindowFixture fixture;
    const QList<QUrl> files = urlsOf(makeTraces(fixture, 2));
    MainWindow &window = openThree(fixture);
    const QPoint button = middleOf(fixture.probe().selected_rfg()[4]);
    const QPoint plot = middleOf(fixture.probe().Plot_View());
    const QStringList before = everythingOf(fixture);
    Drag drag(window, files);
    QVERIFY(!drag.enter(button));
    QVERIFY(drag.move(plot));
    QVERIFY(!drag.move(button));
    QVERIFY(!drag.drop(button));
    QCOMPARE(everythingOf(fixture), before);
    QVERIFY(drag.enter(plot));
    QVERIFY(drag.drop(plot));
    QCOMPARE(fixture.probe().rfg_read_index(), 3);
}

void TestExtrasDropping::anythingElseIsRefusedWhileItIsDragged_data()
{
    QTest::addColumn<QStringList>("names");
    const auto t = [](int count) {
        QStringList names;
        for (int i = 0; i < count; ++i)
            names.append(QStringLiteral("dropped%1.tdr").arg(i));
        return names;
    };
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("seven traces") << t(7);
    QTest::newRow("a text") << QStringList{ QStringLiteral("notes.txt") };
    QTest::newRow("a trace and a text") << t(1) + QStringList{ QStringLiteral("notes.txt") };
    QTest::newRow("a name that only ends alike") << QStringList{ QStringLiteral("atdr") };
    QTest::newRow("a folder") << QStringList{ QStringLiteral("folder.tdr") };
    QTest::newRow("a file that is not there") << QStringList{ QStringLiteral("gone.tdr") };
    QTest::newRow("a trace elsewhere")
        << QStringList{ QStringLiteral("https://example.org/a.tdr") };
}

void TestExtrasDropping::anythingElseIsRefusedWhileItIsDragged()
{
    QFETCH(QStringList, names);
    WindowFixture fixture;
    makeTraces(fixture, 7);
    writeFile(fixture.path(QStringLiteral("notes.txt")), "notes");
    writeFile(fixture.path(QStringLiteral("atdr")), "notes");
    QVERIFY(QDir().mkdir(fixture.path(QStringLiteral("folder.tdr"))));
    MainWindow &window = openThree(fixture);
    QList<QUrl> urls;
    for (const QString &name : names)
        urls.append(name.contains(QLatin1String("://")) ? QUrl(name)
                                                        : QUrl::fromLocalFile(fixture.path(name)));
    const QStringList before = everythingOf(fixture);
    const MainWindowProbe &probe = fixture.probe();
    Drag drag(window, urls);
    for (const QWidget *place : { static_cast<const QWidget *>(probe.Plot_View()),
                                  static_cast<const QWidget *>(probe.selected_rfg()[2]),
                                  static_cast<const QWidget *>(probe.delta_lbl()) }) {
        QVERIFY(!drag.enter(middleOf(place)));
        QVERIFY(!drag.move(middleOf(place)));
        QVERIFY(!drag.drop(middleOf(place)));
        drag.leave();
    }
    QCOMPARE(everythingOf(fixture), before);
}

void TestExtrasDropping::namesMayBeAnyhowWritten_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("upper case") << QStringLiteral("TRACE.TDR");
    QTest::newRow("Russian") << QString::fromUtf8("кабель №7.tdr");
    QTest::newRow("blanks, dots and per cent") << QStringLiteral("a b%20.c.tdr");
}

void TestExtrasDropping::namesMayBeAnyhowWritten()
{
    QFETCH(QString, name);
    WindowFixture fixture;
    const QString path = fixture.trace(name, TraceBuilder().samples(33));
    MainWindow &window = openThree(fixture);
    const QPoint plot = middleOf(fixture.probe().Plot_View());
    Drag drag(window, urlsOf({ path }));
    QVERIFY(drag.enter(plot));
    QVERIFY(drag.drop(plot));
    QCOMPARE(fixture.probe().rfg_DATA()[0].full_path, path);
    QCOMPARE(fixture.probe().rfg_read_index(), 1);
}

void TestExtrasDropping::theOtherProgramIsNeverToldToDeleteItsFiles_data()
{
    QTest::addColumn<int>("offered");
    QTest::addColumn<int>("taken");
    QTest::newRow("copy") << int(Qt::CopyAction) << int(Qt::CopyAction);
    QTest::newRow("move or copy") << int(Qt::MoveAction | Qt::CopyAction) << int(Qt::CopyAction);
    QTest::newRow("move or link") << int(Qt::MoveAction | Qt::LinkAction) << int(Qt::LinkAction);
    QTest::newRow("move alone") << int(Qt::MoveAction) << int(Qt::IgnoreAction);
}

void TestExtrasDropping::theOtherProgramIsNeverToldToDeleteItsFiles()
{
    QFETCH(int, offered);
    QFETCH(int, taken);
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    Drag drag(window, urlsOf(makeTraces(fixture, 1)), Qt::DropActions(offered));
    const bool good = drag.enter(middleOf(fixture.probe().Plot_View()));
    QCOMPARE(good, taken != Qt::IgnoreAction);
    QCOMPARE(int(good ? drag.action() : Qt::IgnoreAction), taken);
}

void TestExtrasDropping::aFileThatGoesBeforeItIsDroppedIsRefused()
{
    WindowFixture fixture;
    const QStringList files = makeTraces(fixture, 1);
    MainWindow &window = openThree(fixture);
    const QStringList before = everythingOf(fixture);
    const QPoint plot = middleOf(fixture.probe().Plot_View());
    Drag drag(window, urlsOf(files));
    QVERIFY(drag.enter(plot));
    QVERIFY(QFile::remove(files.first()));
    QVERIFY(!drag.drop(plot));
    QCOMPARE(everythingOf(fixture), before);
}

void TestExtrasDropping::nothingIsTakenWhileADialogIsOpen()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const QPoint plot = middleOf(fixture.probe().Plot_View());
    Drag drag(window, urlsOf(makeTraces(fixture, 1)));
    bool taken = true;
    const auto answer = answerDialog([&](QDialog &dialog) {
        taken = drag.enter(plot) || drag.drop(plot);
        cancelDialog(dialog);
    });
    QTest::mouseClick(fixture.probe().settings_button(), Qt::LeftButton);
    QVERIFY(answer->served());
    QVERIFY(!taken);
    QCOMPARE(fixture.probe().rfg_read_index(), 7);
    QVERIFY(drag.enter(plot));
}

void TestExtrasDropping::withoutExtrasTheWindowTakesNothing()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture, false);
    QVERIFY(!window.acceptDrops());
    Drag drag(window, urlsOf(makeTraces(fixture, 1)));
    for (const QWidget *place : { static_cast<const QWidget *>(fixture.probe().Plot_View()),
                                  static_cast<const QWidget *>(fixture.probe().delta_lbl()) }) {
        QVERIFY(!drag.enter(middleOf(place)));
        QVERIFY(!drag.move(middleOf(place)));
        drag.leave();
    }
    QCOMPARE(fixture.probe().rfg_read_index(), 7);
}

QTEST_MAIN(TestExtrasDropping)
#include "tst_extras_dropping.moc"
