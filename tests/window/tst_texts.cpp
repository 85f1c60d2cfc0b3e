// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "dictionary.h"
#include "each.h"
#include "invariants.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsmenu.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGraphicsScene>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QtTest>

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// Counts the events of one type that an object gets.
class Events : public QObject
{
public:
    Events(QObject *object, QEvent::Type type)
        : m_type(type)
    {
        object->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == m_type)
            ++count;
        return QObject::eventFilter(watched, event);
    }

    int count = 0;

private:
    const QEvent::Type m_type;
};

/// A text of the window and what it must be.
struct Text
{
    const char *name;
    QString actual;
    QString expected;
};

} // namespace

/// Texts of the controls in both languages. tst_dictionary tests the words, tst_settingsmenu the
/// settings dialog, tst_files the file dialogs, tst_trace_corpus captions and title of a trace.
class TestTexts : public WindowTest
{
    Q_OBJECT

private:
    /// Opens the window with \a traces traces, each with every parameter set.
    void open(int traces)
    {
        openOn(shiftedTraces(traces));
        window().cursorSetup_slot(8);
    }
    QString date() const
    {
        return QLocale::system().toString(QDate(2024, 3, 5), QLocale::ShortFormat);
    }

    std::vector<Text> buttonTexts(bool russian) const
    {
        const MainWindowProbe &p = probe();
        const Dictionary &d = *p.d();
        const QDialogButtonBox *box = p.input_dialog()->findChild<QDialogButtonBox *>();
        return {
            { "files", p.legend_button()->text(), d.FILES_STR + text("...") },
            { "settings", p.settings_button()->text(), d.SETTINGS_STR + text("...") },
            { "difference", p.difference_button()->text(), d.DIFF_MODE_STR },
            { "smooth", p.smooth_button()->text(), text(russian ? "Сглаживание" : "Smooth") },
            { "reset", p.reset_all_button()->text(), text(russian ? "Сбросить всё" : "Reset All") },
            { "A", p.curA_nav_button()->text(), text("A") },
            { "B", p.curB_nav_button()->text(), text("B") },
            { "menu A", p.curA_action()->text(), d.CURSOR_A_STR },
            { "menu B", p.curB_action()->text(), d.CURSOR_B_STR },
            { "menu cursors", p.cur_wheel_action()->text(), d.CURSORS_MOVE_STR },
            { "menu scale", p.scale_wheel_action()->text(), d.SCALE_CHG_STR },
            { "OK", box->button(QDialogButtonBox::Ok)->text(), d.OK_STR },
            { "cancel", box->button(QDialogButtonBox::Cancel)->text(), d.CANCEL_STR },
            { "reserve", p.reserve_button()->text(), QString() },
            { "dialog", p.settingsMenu()->windowTitle(), d.SETTINGS_STR },
        };
    }

    std::vector<Text> slotTexts(int loaded, bool russian) const
    {
        const Dictionary &d = *probe().d();
        const QString none = text(russian ? "\n(не загружено)" : "\n(not loaded)");
        std::vector<Text> texts;
        for (int slot = 0; slot < 6; ++slot) {
            const LegendButton *button = probe().selected_rfg()[slot];
            const QString title = text(russian ? "РФГ %1" : "RFG %1").arg(slot + 1);
            const QString below = slot < loaded ? QLatin1Char('\n') + date() : none;
            texts.insert(texts.end(),
                         { { "slot", button->text(), title + below },
                           { "slot's name", button->name, title },
                           { "slot's date", button->date, slot < loaded ? date() : QString() },
                           { "slot's menu", button->contextMenu->title(), title },
                           { "load", button->load_action->text(), d.LOAD_STR },
                           { "reset", button->reset_action->text(), d.RESET_STR },
                           { "clear", button->clear_action->text(), d.CLEAR_STR },
                           { "visible", button->visible_action->text(), d.VISIBLE_STR },
                           { "master", button->master_action->text(), d.MASTER_STR } });
        }
        return texts;
    }

    /// Every text of every object of the window, found by its properties.
    QStringList foundTexts() const
    {
        QStringList found;
        const auto objects = window().findChildren<QObject *>();
        for (const QObject *object : objects) {
            for (const char *name : { "text", "title", "windowTitle", "labelText", "toolTip",
                                      "statusTip", "whatsThis", "placeholderText" })
                found << object->property(name).toString();
            if (const auto *dial = qobject_cast<const Cont_dial *>(object))
                found << dial->titleText;
            if (const auto *tabs = qobject_cast<const QTabWidget *>(object))
                for (int i = 0; i < tabs->count(); ++i)
                    found << tabs->tabText(i);
        }
        const auto items = probe().Plot_Scene()->items();
        for (const QGraphicsItem *item : items)
            if (const auto *label = qgraphicsitem_cast<const QGraphicsSimpleTextItem *>(item))
                found << label->text();
        found.removeAll(QString());
        return found;
    }

    void verify(int loaded, bool russian)
    {
        QCOMPARE(probe().d()->FILES_STR, text(russian ? "Файлы" : "Files"));
        for (const auto &texts : { buttonTexts(russian), slotTexts(loaded, russian) })
            each<Text>(texts, [](const Text &one) { QCOMPARE(one.actual, one.expected); });
        const MainWindowProbe &p = probe();
        const QPair<QAbstractButton *, QString> parameters[]
            = { { p.gain_button(), p.d()->GAIN_STR },
                { p.average_button(), p.d()->AVERAGE_STR },
                { p.V_offset_button(), p.d()->V_OFFSET_STR },
                { p.pulse_width_button(), p.d()->PULSE_W_STR },
                { p.pulse_amplitude_button(), p.d()->PULSE_A_STR },
                { p.impedance_button(), p.d()->IMPEDANCE_STR },
                { p.H_offset_button(), p.d()->H_OFFSET_STR } };
        for (const auto &[button, word] : parameters) {
            QCOMPARE(button->text().section(QLatin1Char('\n'), 0, 0), word);
            QCOMPARE(button->text().contains(QLatin1Char('\n')), loaded > 0);
        }
        // Cursors, shortening factor and scale.
        QCOMPARE(brokenInvariants(window()), QStringList());
    }

private slots:
    void everyTextChangesAtOnceAndBack()
    {
        for (const int loaded : { 0, 1, 6 }) {
            open(loaded);
            const QStringList english = foundTexts();
            verify(loaded, false);
            for (int round = 0; round < 2; ++round) {
                setLanguage("ru_RU");
                verify(loaded, true);
                setLanguage("en_US");
                verify(loaded, false);
                QCOMPARE(foundTexts(), english);
            }
        }
    }

    void languageOfThePreviousRunIsUsedFromTheStart()
    {
        WindowFixture::writeSettings("[General]\nlanguage=ru_RU\n");
        fixture->open();
        window().cursorSetup_slot(8);
        verify(0, true);
    }

    void noEnglishTextStaysInARussianWindow()
    {
        for (const int loaded : { 0, 2 }) {
            open(loaded);
            // The languages are offered by their own names.
            probe().settingsMenu()->interfaceUpdate();
            setLanguage("ru_RU");
            QStringList found = foundTexts();
            QVERIFY(found.size() > 80);
            // Qt's label of a dialog that has not been opened yet.
            found.removeAll(text("Enter a value:"));
            QString remainder;
            for (QString one : found) {
                // The trace's file, folder and date, the letters of cursors and axes, the scale's
                // unit.
                for (const QString &own : { text("t1, /") + probe().rfg_DATA()[0].dir_name, date(),
                                            text("Курсор A"), text("Курсор B"), text(" x = "),
                                            text(" y = "), text("X Сдвиг"), text("Y Сдвиг") })
                    one.remove(own);
                if (one.startsWith(text("Масштаб\n")))
                    one.chop(2);
                if (one == text("A") || one == text("B"))
                    continue;
                if (one.contains(QRegularExpression(QStringLiteral("[A-Za-z]"))))
                    remainder += QLatin1Char('[') + one + QLatin1Char(']');
            }
            QCOMPARE(remainder, QString());
            QCOMPARE(probe().settingsMenu()->language_select->itemText(0), text("English"));
        }
    }

    void languageSwitchChangesTheTitleOfAnEmptySlot()
    {
        open(1);
        QTest::mouseClick(probe().selected_rfg()[3], Qt::LeftButton);
        QCOMPARE(probe().chart_title().text(), text("RFG 4"));
        setLanguage("ru_RU");
        QCOMPARE(probe().chart_title().text(), text("РФГ 4"));
        QCOMPARE(probe().param_dial()->titleText, text("X Сдвиг\n"));
        QCOMPARE(probe().curA_button()->text(), text("Курсор A\n x = 1.00 м\n y = "));
        QCOMPARE(probe().rfg_DATA()[0].name, text("РФГ 1"));
    }

    void languageChangeEventOfTheFilesButtonUpdatesAllTexts()
    {
        open(0);
        probe().smooth_button()->setText(QString());
        QEvent event(QEvent::LanguageChange);
        QApplication::sendEvent(probe().legend_button(), &event);
        QCOMPARE(probe().smooth_button()->text(), text("Smooth"));
        verify(0, false);
    }

    void everySwitchIsAnnouncedAndPaintedOnce()
    {
        open(2);
        WindowFixture::settle();
        Events heard(&window(), QEvent::LanguageChange);
        Events paints(viewport(), QEvent::Paint);
        for (const char *code : { "ru_RU", "ru_RU", "en_US", "ru_RU", "de_DE" }) {
            heard.count = 0;
            paints.count = 0;
            setLanguage(code);
            QCOMPARE(heard.count, 1);
            QCOMPARE(paints.count, 1);
        }
        // An unknown language is English.
        verify(2, false);
    }

    // ---- Dialogs ----

    void qtsOwnWordsStayEnglish()
    {
        fixture->open();
        setLanguage("ru_RU");
        QStringList words;
        const auto answer = answerDialog([&words](QDialog &dialog) {
            if (const auto *box = dialog.findChild<QDialogButtonBox *>())
                words = QStringList{ box->button(QDialogButtonBox::Open)->text(),
                                     box->button(QDialogButtonBox::Cancel)->text() };
            dialog.reject();
        });
        probe().legend_button()->pressed();
        QVERIFY(answer->served());
        words.replaceInStrings(QStringLiteral("&"), QString());
        QCOMPARE(words, (QStringList{ QStringLiteral("Open"), QStringLiteral("Cancel") }));
    }

    void entryDialogsAreTranslated()
    {
        open(1);
        setLanguage("ru_RU");
        QStringList texts;
        answerEntry(probe().scale_button(), [&](QInputDialog &dialog) {
            texts = QStringList{ dialog.windowTitle(), dialog.labelText() }
                + dialog.comboBoxItems().mid(0, 1);
        });
        QCOMPARE(texts,
                 (QStringList{ text("Масштаб"), text("Масштаб\nДиапазон : [31.25; 8000]"),
                               text("31.25м") }));
    }
};

QTEST_MAIN(TestTexts)
#include "tst_texts.moc"
