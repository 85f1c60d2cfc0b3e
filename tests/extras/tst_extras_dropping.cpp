// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/qtcompat.h"
#include "cont_dial.h"
#include "dialoganswer.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "test_files.h"
#include "threetracestest.h"
#include "window_actions.h"
#include "window_state.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QToolTip>
#include <QWindow>
#include <QtTest>

namespace {

/// A drag from another program. Its events go to the native window, which forwards them to the
/// widget under the pointer that accepts drops.
class Drag
{
public:
    Drag(const MainWindow &window, const QList<QUrl> &urls,
         Qt::DropActions actions = Qt::CopyAction)
        : m_window(window.windowHandle())
        , m_data(&m_urls)
        , m_actions(actions)
    {
        m_urls.setUrls(urls);
    }

    Drag(const MainWindow &window, QMimeData &data)
        : m_window(window.windowHandle())
        , m_data(&data)
        , m_actions(Qt::CopyAction)
    {
    }

    /// The action that the pointer shows at \a at; IgnoreAction where no drop is possible.
    Qt::DropAction enter(QPoint at)
    {
        QDragEnterEvent event(at, m_actions, m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
        // The window system sends a move to the same place and shows the answer to that.
        return event.isAccepted() ? move(at) : Qt::IgnoreAction;
    }

    Qt::DropAction move(QPoint at)
    {
        QDragMoveEvent event(at, m_actions, m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    /// Drops where a drop is possible; true when the files are taken.
    bool drop(QPoint at)
    {
        if (enter(at) == Qt::IgnoreAction)
            return false;
        QDropEvent event(at, m_actions, m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
        WindowFixture::settle();
        return event.isAccepted();
    }

    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(m_window, &event);
    }

private:
    QWindow *m_window;
    QMimeData m_urls;
    QMimeData *m_data;
    Qt::DropActions m_actions;
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

/// Writes \a count different traces to the folder of \a fixture.
QStringList makeTraces(const WindowFixture &fixture, int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths.append(fixture.trace(QStringLiteral("dropped%1.tdr").arg(i),
                                   TraceBuilder().samples(10 * i).delay(quint32(i))));
    return paths;
}

/// The state of the window and of the settings that name the open files.
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

/// Files that another program offers, counting how often they are read.
class OfferedFiles : public QMimeData
{
public:
    int reads = 0;

    QStringList formats() const override
    {
        return { QStringLiteral("text/uri-list") };
    }

protected:
    QVariant retrieveData(const QString &format, qtcompat::DataType type) const override
    {
        ++const_cast<OfferedFiles *>(this)->reads;
        return QMimeData::retrieveData(format, type);
    }
};

} // namespace

class TestExtrasDropping : public ThreeTracesTest
{
    Q_OBJECT

private slots:
    void filesFillTheEmptySlotsFromTheFirstOn()
    {
        for (const int count : { 2, 4 }) { // four slots are empty
            const QStringList files = makeTraces(*fixture, count);
            MainWindow &window = openThree();
            window.remove_Selected_RFG(0);
            QStringList expected = files;
            for (const int slot : { 1, 2 })
                expected.insert(slot, probe().rfg_DATA()[slot].full_path);
            Drag drag(window, urlsOf(files));
            QVERIFY(drag.drop(middleOf(probe().Plot_View())));
            QCOMPARE(probe().rfg_read_index(), (1 << expected.size()) - 1);
            for (int slot = 0; slot < expected.size(); ++slot)
                QCOMPARE(probe().rfg_DATA()[slot].full_path, expected[slot]);
            // Nothing else changes.
            QCOMPARE(probe().rfg_ID(), 1);
            QCOMPARE(probe().rfg_master_ID(), 1);
            QCOMPARE(window.settings()->last_folder, QFileInfo(files.last()).path());
        }
    }

    void firstFilesOfAnEmptyWindowAreSelected()
    {
        const QStringList files = makeTraces(*fixture, 2);
        MainWindow &window = openThree();
        for (const int slot : { 0, 1, 2 })
            window.remove_Selected_RFG(slot);
        QTest::mouseClick(probe().selected_rfg()[4], Qt::LeftButton);
        Drag drag(window, urlsOf(files));
        QVERIFY(drag.drop(middleOf(probe().Plot_View())));
        QCOMPARE(probe().rfg_read_index(), 3);
        QCOMPARE(probe().rfg_ID(), 0);
        QCOMPARE(probe().rfg_master_ID(), 0);
        QVERIFY(probe().selected_rfg()[0]->isChecked());
    }

    void moreFilesThanEmptySlotsReplaceTheSetAsByTheFilesButton()
    {
        for (const int count : { 4, 6, 7 }) {
            const QStringList files = makeTraces(*fixture, count);
            openThree();
            QVERIFY(chooseFiles(*fixture, files));
            const QStringList expected = everythingOf(*fixture);
            Drag drag(openThree(), urlsOf(files));
            QVERIFY(drag.drop(middleOf(probe().Plot_View())));
            QCOMPARE(everythingOf(*fixture), expected);
            QCOMPARE(probe().rfg_DATA()[0].full_path, files.first());
        }
    }

    void fileDroppedOnASlotIsLoadedAsByItsMenu()
    {
        // A loaded slot, the slot of the master, an empty slot.
        for (const int slot : { 0, 1, 5 }) {
            const QStringList files = makeTraces(*fixture, 1);
            openThree();
            QVERIFY(loadInto(*fixture, slot, files.first()));
            const QStringList expected = everythingOf(*fixture);
            Drag drag(openThree(), urlsOf(files));
            const QPoint button = middleOf(probe().selected_rfg()[slot]);
            QVERIFY(drag.drop(button));
            QCOMPARE(everythingOf(*fixture), expected);
            QCOMPARE(probe().rfg_DATA()[slot].full_path, files.first());
        }
        // Several files count as dropped on the window.
        const QStringList files = makeTraces(*fixture, 2);
        Drag drag(openThree(), urlsOf(files));
        QVERIFY(drag.drop(middleOf(probe().selected_rfg()[0])));
        QCOMPARE(probe().rfg_read_index(), 31);
        QCOMPARE(probe().rfg_DATA()[3].full_path, files.first());
    }

    void slotUnderTheDragIsHighlighted()
    {
        MainWindow &window = openThree();
        const QList<QUrl> files = urlsOf(makeTraces(*fixture, 1));
        for (LegendButton *slot : { probe().selected_rfg()[0], probe().selected_rfg()[5] }) {
            const QPoint place = middleOf(slot);
            const QImage dark = slot->grab().toImage();
            const auto isLit = [&] { return slot->grab().toImage() != dark; };
            Drag drag(window, files);
            QVERIFY(drag.enter(place));
            QVERIFY(isLit());
            QVERIFY(drag.move(middleOf(probe().Plot_View())));
            QVERIFY(!isLit());
            QVERIFY(drag.move(place));
            QVERIFY(isLit());
            drag.leave();
            QVERIFY(!isLit());
            QVERIFY(drag.drop(place));
            QCOMPARE(slot->styleSheet(), QString());
            // Files that are refused highlight nothing.
            Drag refused(window, files, Qt::MoveAction);
            QVERIFY(!refused.enter(place));
            QCOMPARE(slot->styleSheet(), QString());
        }
    }

    void everyPlaceOfTheWindowTakesFilesAndReadsThemOnTheDrop()
    {
        MainWindow &window = openThree();
        const QWidget *const places[]
            = { probe().logo_lbl(),        probe().curA_button(), probe().delta_lbl(),
                probe().legend_button(),   probe().Plot_View(),   probe().settings_button(),
                probe().scale_up_button(), probe().param_dial(),  probe().gain_button() };
        OfferedFiles files;
        files.setUrls(urlsOf(makeTraces(*fixture, 1)));
        Drag drag(window, files);
        QVERIFY(drag.enter(QPoint(1, 1)));
        for (const QWidget *place : places)
            QVERIFY(drag.move(middleOf(place)));
        QCOMPARE(files.reads, 0);
        QVERIFY(drag.drop(middleOf(places[8])));
        QVERIFY(files.reads > 0);
        QCOMPARE(probe().rfg_read_index(), 15);
    }

    void anythingButTraceFilesIsRefused()
    {
        makeTraces(*fixture, 1);
        writeFile(fixture->path(QStringLiteral("notes.txt")), "notes");
        writeFile(fixture->path(QStringLiteral("atdr")), "notes");
        QVERIFY(QDir().mkdir(fixture->path(QStringLiteral("folder.tdr"))));
        MainWindow &window = openThree();
        const QStringList before = everythingOf(*fixture);
        const QPoint places[]
            = { middleOf(probe().Plot_View()), middleOf(probe().selected_rfg()[2]) };
        for (const char *names :
             { "notes.txt", "dropped0.tdr notes.txt", "atdr", "folder.tdr", "gone.tdr" }) {
            QStringList paths;
            for (const QString &name : QString::fromLatin1(names).split(QLatin1Char(' ')))
                paths.append(fixture->path(name));
            for (const QPoint place : places) {
                Drag drag(window, urlsOf(paths));
                QVERIFY(drag.enter(place));
                QVERIFY2(!drag.drop(place), names);
            }
        }
        Drag elsewhere(window, { QUrl(QStringLiteral("https://example.org/a.tdr")) });
        QVERIFY(!elsewhere.drop(places[0]));
        QMimeData text;
        text.setText(QStringLiteral("a.tdr"));
        Drag noFiles(window, text);
        QVERIFY(!noFiles.enter(places[0]));
        QCOMPARE(everythingOf(*fixture), before);
    }

    void fileNamesMayHoldAnyLetters()
    {
        for (const char *name : { "TRACE.TDR", "кабель №7.tdr", "a b%20.c.tdr" }) {
            const QString path = fixture->trace(QString::fromUtf8(name), TraceBuilder());
            Drag drag(openThree(), urlsOf({ path }));
            QVERIFY(drag.drop(middleOf(probe().Plot_View())));
            QCOMPARE(probe().rfg_DATA()[3].full_path, path);
        }
    }

    void dropNeverMovesFiles()
    {
        MainWindow &window = openThree();
        const QList<QUrl> files = urlsOf(makeTraces(*fixture, 1));
        const QPoint place = middleOf(probe().Plot_View());
        const QPair<Qt::DropActions, Qt::DropAction> rows[]
            = { { Qt::CopyAction, Qt::CopyAction },
                { Qt::MoveAction | Qt::CopyAction, Qt::CopyAction },
                { Qt::MoveAction | Qt::LinkAction, Qt::LinkAction },
                { Qt::MoveAction, Qt::IgnoreAction } };
        for (const auto &row : rows) {
            Drag drag(window, files, row.first);
            QCOMPARE(drag.enter(place), row.second);
            drag.leave();
        }
    }

    void dropIsRefusedWhileADialogIsOpen()
    {
        MainWindow &window = openThree();
        const QPoint plot = middleOf(probe().Plot_View());
        Drag drag(window, urlsOf(makeTraces(*fixture, 1)));
        bool taken = true;
        const auto answer = answerDialog([&](QDialog &dialog) {
            taken = drag.enter(plot);
            cancelDialog(dialog);
        });
        QTest::mouseClick(probe().settings_button(), Qt::LeftButton);
        QVERIFY(answer->served());
        QVERIFY(!taken);
        QCOMPARE(probe().rfg_read_index(), 7);
        QVERIFY(drag.enter(plot));
    }

    void withoutExtrasFilesKeysAndTooltipsDoNothing()
    {
        MainWindow &window = openThree(false);
        const QStringList before = everythingOf(*fixture);
        QVERIFY(!window.acceptDrops());
        Drag drag(window, urlsOf(makeTraces(*fixture, 1)));
        for (const QWidget *place : { static_cast<const QWidget *>(probe().Plot_View()),
                                      static_cast<const QWidget *>(probe().delta_lbl()) }) {
            QVERIFY(!drag.enter(middleOf(place)));
            QVERIFY(!drag.move(middleOf(place)));
            drag.leave();
        }
        for (int key = Qt::Key_Space; key <= Qt::Key_AsciiTilde; ++key)
            for (const Qt::KeyboardModifier modifier :
                 { Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier })
                press(&window, key, modifier);
        for (const int key : { Qt::Key_F1, Qt::Key_F2, Qt::Key_F5, Qt::Key_Delete, Qt::Key_Home })
            press(&window, key);
        QCOMPARE(everythingOf(*fixture), before);
        const auto widgets = window.findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            const QPoint middle = widget->rect().center();
            QHelpEvent help(QEvent::ToolTip, middle, widget->mapToGlobal(middle));
            QCoreApplication::sendEvent(widget, &help);
            QCOMPARE(widget->toolTip(), QString());
            QVERIFY(!QToolTip::isVisible());
        }
    }
};

QTEST_MAIN(TestExtrasDropping)
#include "tst_extras_dropping.moc"
