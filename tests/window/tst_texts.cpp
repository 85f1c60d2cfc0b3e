// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"
#include "windowtest.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGraphicsScene>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QtTest>

namespace {

/// One text of the window and what it must be in both languages.
struct Text
{
    QString actual;
    QString english;
    QString russian;
};

using Texts = QVector<Text>;

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// How often an object gets an event of one type.
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

} // namespace

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
    void speak(const char *code)
    {
        probe().settingsData()->current_language = QString::fromLatin1(code);
        probe().settingsData()->updateSettings(8);
        WindowFixture::settle();
    }
    QString date() const
    {
        return QLocale::system().toString(QDate(2024, 3, 5), QLocale::ShortFormat);
    }

    Texts buttonTexts() const
    {
        const MainWindowProbe &p = probe();
        const QDialogButtonBox *box = p.input_dialog()->findChild<QDialogButtonBox *>();
        return {
            { p.legend_button()->text(), text("Files..."), text("Файлы...") },
            { p.settings_button()->text(), text("Settings..."), text("Настройки...") },
            { p.difference_button()->text(), text("Difference"), text("Вычитание") },
            { p.smooth_button()->text(), text("Smooth"), text("Сглаживание") },
            { p.reset_all_button()->text(), text("Reset All"), text("Сбросить всё") },
            { p.curA_nav_button()->text(), text("A"), text("A") },
            { p.curB_nav_button()->text(), text("B"), text("B") },
            { p.curA_action()->text(), text("Cursor A"), text("Курсор A") },
            { p.curB_action()->text(), text("Cursor B"), text("Курсор B") },
            { p.cur_wheel_action()->text(), text("Wheel moves cursors"),
              text("Колесо двигает курсоры") },
            { p.scale_wheel_action()->text(), text("Wheel chahges scale"),
              text("Колесо меняет масштаб") },
            { box->button(QDialogButtonBox::Ok)->text(), text("OK"), text("ОК") },
            { box->button(QDialogButtonBox::Cancel)->text(), text("Cancel"), text("Отмена") },
            { p.reserve_button()->text(), QString(), QString() },
        };
    }

    Texts traceTexts(int loaded) const
    {
        Texts texts;
        for (int slot = 0; slot < 6; ++slot) {
            const LegendButton *button = probe().selected_rfg()[slot];
            const QString number = QString::number(slot + 1);
            const QString below = QLatin1Char('\n') + date();
            texts << Text{ button->text(),
                           text("RFG ") + number + (slot < loaded ? below : text("\n(not loaded)")),
                           text("РФГ ") + number
                               + (slot < loaded ? below : text("\n(не загружено)")) }
                  << Text{ button->contextMenu->title(), text("RFG ") + number,
                           text("РФГ ") + number }
                  << Text{ button->load_action->text(), text("Load"), text("Загрузить") }
                  << Text{ button->reset_action->text(), text("Reset"), text("Сбросить") }
                  << Text{ button->clear_action->text(), text("Clear"), text("Отчистить") }
                  << Text{ button->visible_action->text(), text("set Visible"), text("Отобразить") }
                  << Text{ button->master_action->text(), text("Set as Master"),
                           text("Сделать мастером") };
        }
        return texts;
    }

    /// Texts that hold numbers, with the first trace selected.
    Texts loadedReadouts() const
    {
        const MainWindowProbe &p = probe();
        const QString title
            = text("t1, /") + p.rfg_DATA()[0].dir_name + text(", ") + date() + text(" 09:05:07");
        return {
            { p.curA_button()->text(), text("Cursor A\n x = 1.00 m\n y = 7"),
              text("Курсор A\n x = 1.00 м\n y = 7") },
            { p.curB_button()->text(), text("Cursor B\n x = 0.00 m\n y = "),
              text("Курсор B\n x = 0.00 м\n y = ") },
            { p.delta_lbl()->text(), text("Δ = 1.00 m"), text("Δ = 1.00 м") },
            { p.gain_button()->text(), text("Gain\n30"), text("Усиление\n30") },
            { p.KU_button()->text(), text("KU\n1.499"), text("КУ\n1.499") },
            { p.average_button()->text(), text("Average\n16"), text("Усреднение\n16") },
            { p.V_offset_button()->text(), text("Y Shift\n7"), text("Y Сдвиг\n7") },
            { p.pulse_width_button()->text(), text("Pulse Width\n100ns"),
              text("Ширина импульса\n100нс") },
            { p.pulse_amplitude_button()->text(), text("Pulse Amp\n20V"), text("Амплитуда\n20В") },
            { p.impedance_button()->text(), text("Impedance\n75"), text("Импеданс\n75") },
            { p.H_offset_button()->text(), text("X Shift\n1.00 m"), text("X Сдвиг\n1.00 м") },
            { p.scale_button()->text(), text("Scale\n125 m"), text("Масштаб\n125 m") },
            { p.param_dial()->titleText, text("X Shift\n1.00 m"), text("X Сдвиг\n1.00 м") },
            { p.cursor_dial()->titleText, text("Cursor A\n1.00 m"), text("Курсор A\n1.00 м") },
            { p.chart_title().text(), title, title },
            { p.cursor_step_lbl().text(), text("cursor step = 0.50 m"),
              text("шаг курсора = 0.50 м") },
        };
    }

    /// The same without any trace.
    Texts emptyReadouts() const
    {
        const MainWindowProbe &p = probe();
        return {
            { p.curA_button()->text(), text("Cursor A\n x = 1.00 m\n y = "),
              text("Курсор A\n x = 1.00 м\n y = ") },
            { p.curB_button()->text(), text("Cursor B\n x = 0.00 m\n y = "),
              text("Курсор B\n x = 0.00 м\n y = ") },
            { p.delta_lbl()->text(), text("Δ = 1.00 m"), text("Δ = 1.00 м") },
            { p.gain_button()->text(), text("Gain"), text("Усиление") },
            { p.KU_button()->text(), text("KU\n1.499"), text("КУ\n1.499") },
            { p.average_button()->text(), text("Average"), text("Усреднение") },
            { p.V_offset_button()->text(), text("Y Shift"), text("Y Сдвиг") },
            { p.pulse_width_button()->text(), text("Pulse Width"), text("Ширина импульса") },
            { p.pulse_amplitude_button()->text(), text("Pulse Amp"), text("Амплитуда") },
            { p.impedance_button()->text(), text("Impedance"), text("Импеданс") },
            { p.H_offset_button()->text(), text("X Shift"), text("X Сдвиг") },
            { p.scale_button()->text(), text("Scale\n31.25 m"), text("Масштаб\n31.25 m") },
            { p.param_dial()->titleText, text("X Shift\n"), text("X Сдвиг\n") },
            { p.cursor_dial()->titleText, text("Cursor A\n1.00 m"), text("Курсор A\n1.00 м") },
            { p.chart_title().text(), text("RFG 1"), text("РФГ 1") },
            { p.cursor_step_lbl().text(), text("cursor step = 0.13 m"),
              text("шаг курсора = 0.13 м") },
        };
    }

    Texts settingsTexts() const
    {
        const SettingsMenu *m = probe().settingsMenu();
        return {
            { m->windowTitle(), text("Settings"), text("Настройки") },
            { m->tabs->tabText(0), text("Files"), text("Файлы") },
            { m->tabs->tabText(1), text("Settings"), text("Настройки") },
            { m->language_box->title(), text("Language"), text("Язык") },
            { m->dial_accur_box->title(), text("Dials speed"), text("Скорость энкодеров") },
            { m->settings_box->title(), text("Settings"), text("Настройки") },
            { m->settings_check_box->title(), QString(), QString() },
            { m->cursor_accur_lbl->text(), text("Cursor dial speed"),
              text("Скорость энкодера курсоров") },
            { m->param_accur_lbl->text(), text("Parameter dial speed"),
              text("Скорость энкодера параметров") },
            { m->accur_lbl->text(), text("Defines step number per dial turn"),
              text("Определяет количество шагов за оборот энкодера") },
            { m->load_settings_button->text(), text("Load..."), text("Загрузить...") },
            { m->save_settings_button->text(), text("Save..."), text("Сохранить...") },
            { m->load_default_button->text(), text("Load default"), text("По умолчанию") },
            { m->load_last_button->text(), text("Reload starting"), text("Загрузить стартовые") },
            { m->files_settings_check->text(), text("Files"), text("Файлы") },
            { m->CSS_settings_check->text(), text("Colors"), text("Цвета") },
            { m->dir_settings_check->text(), text("Folders"), text("Папки") },
            { m->lang_settings_check->text(), text("Language"), text("Язык") },
            { m->geometry_settings_check->text(), text("Window size"), text("Размер окна") },
            { m->dial_settings_check->text(), text("Dials"), text("Энкодеры") },
            { m->ok_button->text(), text("OK"), text("ОК") },
            { m->cancel_button->text(), text("Cancel"), text("Отмена") },
            { m->apply_button->text(), text("Apply"), text("Применить") },
        };
    }

    Texts allTexts(int loaded) const
    {
        return buttonTexts() + traceTexts(loaded) + settingsTexts()
            + (loaded > 0 ? loadedReadouts() : emptyReadouts());
    }

    /// Every text that any object of the window holds, found without knowing the window.
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
        const Texts texts = allTexts(loaded);
        for (const Text &each : texts)
            QCOMPARE(each.actual, russian ? each.russian : each.english);
    }

private slots:
    void everyTextChangesAtOnceAndBack_data()
    {
        QTest::addColumn<int>("loaded");
        QTest::newRow("no trace") << 0;
        QTest::newRow("one trace") << 1;
        QTest::newRow("six traces") << 6;
    }

    void everyTextChangesAtOnceAndBack()
    {
        QFETCH(const int, loaded);
        open(loaded);
        verify(loaded, false);
        for (int round = 0; round < 2; ++round) {
            speak("ru_RU");
            verify(loaded, true);
            speak("en_US");
            verify(loaded, false);
        }
    }

    void theLanguageOfThePreviousRunIsThereFromTheStart()
    {
        WindowFixture::writeSettings("[General]\nlanguage=ru_RU\n");
        fixture->open();
        window().cursorSetup_slot(8);
        verify(0, true);
    }

    void nothingEnglishStaysInARussianWindow_data()
    {
        QTest::addColumn<int>("loaded");
        QTest::newRow("no trace") << 0;
        QTest::newRow("two traces") << 2;
    }

    void nothingEnglishStaysInARussianWindow()
    {
        QFETCH(const int, loaded);
        open(loaded);
        // The languages are offered by their own names.
        probe().settingsMenu()->interfaceUpdate();
        speak("ru_RU");
        QStringList found = foundTexts();
        QVERIFY(found.size() > 80);
        // The toolkit's own label of a dialog that has not asked anything yet; nobody sees it.
        found.removeAll(text("Enter a value:"));
        QString remainder;
        for (QString each : found) {
            // The trace's file, folder and date, the letters of cursors and axes, the scale's unit.
            for (const QString &own : { text("t1, /") + probe().rfg_DATA()[0].dir_name, date(),
                                        text("Курсор A"), text("Курсор B"), text(" x = "),
                                        text(" y = "), text("X Сдвиг"), text("Y Сдвиг") })
                each.remove(own);
            if (each.startsWith(text("Масштаб\n")))
                each.chop(2);
            if (each == text("A") || each == text("B"))
                continue;
            if (each.contains(QRegularExpression(QStringLiteral("[A-Za-z]"))))
                remainder += QLatin1Char('[') + each + QLatin1Char(']');
        }
        QCOMPARE(remainder, QString());
        QCOMPARE(probe().settingsMenu()->language_select->itemText(0), text("English"));
    }

    void anEmptySlotBesideLoadedOnesChangesItsTitleToo()
    {
        open(1);
        QTest::mouseClick(probe().selected_rfg()[3], Qt::LeftButton);
        QCOMPARE(probe().chart_title().text(), text("RFG 4"));
        speak("ru_RU");
        QCOMPARE(probe().chart_title().text(), text("РФГ 4"));
        QCOMPARE(probe().param_dial()->titleText, text("X Сдвиг\n"));
        QCOMPARE(probe().curA_button()->text(), text("Курсор A\n x = 1.00 м\n y = "));
        QCOMPARE(probe().rfg_DATA()[0].name, text("РФГ 1"));
    }

    void aLanguageChangeOfTheFilesButtonAloneIsEnough()
    {
        open(0);
        probe().smooth_button()->setText(QString());
        QEvent event(QEvent::LanguageChange);
        QApplication::sendEvent(probe().legend_button(), &event);
        QCOMPARE(probe().smooth_button()->text(), text("Smooth"));
        verify(0, false);
    }

    void everySwitchIsAnnouncedOnce()
    {
        open(1);
        Events heard(&window(), QEvent::LanguageChange);
        for (const char *code : { "ru_RU", "ru_RU", "en_US", "ru_RU" }) {
            heard.count = 0;
            speak(code);
            QCOMPARE(heard.count, 1);
        }
    }

    void aLanguageSwitchPaintsThePlotOnce()
    {
        open(2);
        WindowFixture::settle();
        Events paints(probe().Plot_View()->viewport(), QEvent::Paint);
        for (const char *code : { "ru_RU", "en_US" }) {
            paints.count = 0;
            speak(code);
            QCOMPARE(paints.count, 1);
        }
    }

    void anUnknownLanguageIsEnglish()
    {
        open(1);
        speak("ru_RU");
        speak("de_DE");
        verify(1, false);
    }

    void wordsThatLabelNoControlAreTranslatedAllTheSame()
    {
        open(0);
        speak("ru_RU");
        QCOMPARE(probe().d()->PARAMETER_STR, text("Параметр"));
        QCOMPARE(probe().d()->NORM_MODE_STR, text("Нормальный режим"));
        const QStringList found = foundTexts();
        QVERIFY(!found.contains(text("Параметр")));
        QVERIFY(!found.contains(text("Нормальный режим")));
    }
};

QTEST_MAIN(TestTexts)
#include "tst_texts.moc"
