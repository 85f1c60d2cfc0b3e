// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/accessibility.h"

#include "accessibility/focusframe.h"
#include "accessibility/interfaces.h"
#include "accessibility/spokentext.h"
#include "base/catalogue.h"
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QInputDialog>
#include <QLabel>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>

namespace {

struct Named
{
    QAbstractButton *button;
    const char *name;
};

/// Buttons whose caption, if any, is a word for what they do.
QVector<Named> plainButtons(const MainWindowParts &parts)
{
    return {
        { parts.legend_button, QT_TRANSLATE_NOOP("Accessibility", "Open trace files") },
        { parts.settings_button, QT_TRANSLATE_NOOP("Accessibility", "Settings") },
        { parts.difference_button,
          QT_TRANSLATE_NOOP("Accessibility", "Difference from the master") },
        { parts.smooth_button, QT_TRANSLATE_NOOP("Accessibility", "Smooth traces") },
        { parts.reset_all_button, QT_TRANSLATE_NOOP("Accessibility", "Reset all") },
        { parts.scale_up_button, QT_TRANSLATE_NOOP("Accessibility", "Zoom out") },
        { parts.scale_down_button, QT_TRANSLATE_NOOP("Accessibility", "Zoom in") },
        { parts.scroll_left_button, QT_TRANSLATE_NOOP("Accessibility", "Scroll left") },
        { parts.scroll_right_button, QT_TRANSLATE_NOOP("Accessibility", "Scroll right") },
        { parts.curA_nav_button, QT_TRANSLATE_NOOP("Accessibility", "Choose cursor A") },
        { parts.curB_nav_button, QT_TRANSLATE_NOOP("Accessibility", "Choose cursor B") },
    };
}

/// Buttons that show a value from the second line of their caption on.
QVector<Named> readings(const MainWindowParts &parts)
{
    return {
        { parts.curA_button, QT_TRANSLATE_NOOP("Accessibility", "Cursor A") },
        { parts.curB_button, QT_TRANSLATE_NOOP("Accessibility", "Cursor B") },
        { parts.H_offset_button, QT_TRANSLATE_NOOP("Accessibility", "Horizontal shift") },
        { parts.KU_button, QT_TRANSLATE_NOOP("Accessibility", "Velocity factor") },
        { parts.pulse_width_button, QT_TRANSLATE_NOOP("Accessibility", "Pulse width") },
        { parts.impedance_button, QT_TRANSLATE_NOOP("Accessibility", "Impedance") },
        { parts.average_button, QT_TRANSLATE_NOOP("Accessibility", "Averaging") },
        { parts.V_offset_button, QT_TRANSLATE_NOOP("Accessibility", "Vertical shift") },
        { parts.scale_button, QT_TRANSLATE_NOOP("Accessibility", "Scale") },
        { parts.pulse_amplitude_button, QT_TRANSLATE_NOOP("Accessibility", "Pulse amplitude") },
        { parts.gain_button, QT_TRANSLATE_NOOP("Accessibility", "Gain") },
        { parts.reserve_button, QT_TRANSLATE_NOOP("Accessibility", "Reserved") },
    };
}

void speakOf(QWidget *control, const Catalogue *language, const char *name,
             const SpokenText::Reader &value = {})
{
    new SpokenText(
        control, [language, name] { return language->text(name); }, value);
}

void speakOfButtons(const MainWindowParts &parts, const Catalogue *language)
{
    const QVector<Named> plain = plainButtons(parts);
    for (const Named &one : plain)
        speakOf(one.button, language, one.name);
    const QVector<Named> withReadings = readings(parts);
    for (const Named &reading : withReadings) {
        const QAbstractButton *button = reading.button;
        speakOf(reading.button, language, reading.name,
                [button] { return spokenLines(button->text(), 1); });
    }
}

void speakOfTraces(const MainWindowParts &parts, const Catalogue *language)
{
    for (LegendButton *button : parts.selected_rfg) {
        const auto name = [button, language] {
            return language->text(QT_TRANSLATE_NOOP("Accessibility", "Trace %1"))
                .arg(button->id + 1);
        };
        const auto value = [button, language] {
            QStringList facts{ spokenLines(button->text(), 1) };
            if (button->mast())
                facts += language->text(QT_TRANSLATE_NOOP("Accessibility", "master"));
            // An empty slot is never shown; that goes without saying.
            if (!button->vis() && button->visible_action->isEnabled())
                facts += language->text(QT_TRANSLATE_NOOP("Accessibility", "hidden"));
            facts.removeAll(QString());
            return facts.join(QLatin1String(", "));
        };
        new SpokenText(button, name, value);
    }
}

void speakOfDials(const MainWindowParts &parts, const Catalogue *language)
{
    const auto caption
        = [](const Cont_dial *dial) { return [dial] { return spokenLines(dial->titleText, 0); }; };
    speakOf(parts.param_dial, language, QT_TRANSLATE_NOOP("Accessibility", "Parameter dial"),
            caption(parts.param_dial));
    speakOf(parts.cursor_dial, language, QT_TRANSLATE_NOOP("Accessibility", "Cursor dial"),
            caption(parts.cursor_dial));
    // What buttons and labels show, the toolkit reports by itself.
    for (Cont_dial *dial : { parts.param_dial, parts.cursor_dial })
        QObject::connect(dial, &Cont_dial::trueValueChanged, dial, [dial](int value) {
            QAccessibleValueChangeEvent event(dial, value);
            QAccessible::updateAccessibility(&event);
        });
}

void speakOfReadouts(const MainWindowParts &parts, const Catalogue *language)
{
    const QLabel *distance = parts.delta_lbl;
    speakOf(parts.delta_lbl, language,
            QT_TRANSLATE_NOOP("Accessibility", "Distance between the cursors"),
            [distance] { return distance->text().section(QLatin1Char('='), 1).simplified(); });
    const QLabel *clock = parts.date_bar;
    speakOf(parts.date_bar, language, QT_TRANSLATE_NOOP("Accessibility", "Date and time"),
            [clock] { return spokenLines(clock->text(), 0); });
    speakOf(parts.logo_lbl, language, QT_TRANSLATE_NOOP("Accessibility", "Logo"));
    const QGraphicsSimpleTextItem *title = &parts.chart_title;
    const QGraphicsSimpleTextItem *step = &parts.cursor_step_lbl;
    speakOf(parts.Plot_View, language, QT_TRANSLATE_NOOP("Accessibility", "Plot"), [title, step] {
        return spokenLines(title->text() + QLatin1Char('\n') + step->text(), 0);
    });
}

/// Row by row, from left to right.
QVector<QWidget *> windowOrder(const MainWindowParts &parts)
{
    QVector<QWidget *> order{ parts.curA_button, parts.curB_button, parts.legend_button };
    for (LegendButton *button : parts.selected_rfg)
        order += button;
    order += { parts.Plot_View,           parts.settings_button,
               parts.difference_button,   parts.smooth_button,
               parts.reset_all_button,    parts.scale_up_button,
               parts.scale_down_button,   parts.scroll_left_button,
               parts.scroll_right_button, parts.curA_nav_button,
               parts.curB_nav_button,     parts.param_dial,
               parts.H_offset_button,     parts.KU_button,
               parts.pulse_width_button,  parts.impedance_button,
               parts.average_button,      parts.V_offset_button,
               parts.scale_button,        parts.pulse_amplitude_button,
               parts.gain_button,         parts.reserve_button,
               parts.cursor_dial };
    return order;
}

QVector<QWidget *> dialogOrder(const SettingsMenu &dialog)
{
    return { dialog.tabs->tabBar(),
             dialog.language_select,
             dialog.cursor_accur,
             dialog.param_accur,
             dialog.load_settings_button,
             dialog.load_last_button,
             dialog.load_default_button,
             dialog.save_settings_button,
             dialog.files_settings_check,
             dialog.CSS_settings_check,
             dialog.dir_settings_check,
             dialog.lang_settings_check,
             dialog.geometry_settings_check,
             dialog.dial_settings_check,
             dialog.ok_button,
             dialog.apply_button,
             dialog.cancel_button };
}

void leadFocus(QWidget *window, const QVector<QWidget *> &order)
{
    auto *frame = new FocusFrame(window);
    for (QWidget *control : order)
        frame->watch(control);
    // Each right behind the first, from the last on: the toolkit does not put a control behind the
    // one at the very end.
    for (auto i = order.size() - 1; i > 0; --i)
        QWidget::setTabOrder(order.first(), order.at(i));
}

void nameDialogBoxes(SettingsMenu &dialog, const SettingsData *settings)
{
    dialog.cursor_accur_lbl->setBuddy(dialog.cursor_accur);
    dialog.param_accur_lbl->setBuddy(dialog.param_accur);
    // Its name stands on the frame around it, which the toolkit does not take for a label.
    QComboBox *box = dialog.language_select;
    const Dictionary *words = dialog.dict;
    const auto name = [box, words] { box->setAccessibleName(words->LANGUAGE_STR); };
    QObject::connect(settings, &SettingsData::translation_changed, box, name);
    name();
}

/// Names the editors of the dialog in which values are typed, each time that it opens. It has one
/// label for its three kinds of editor, and the toolkit makes that the label of the first alone.
class EditorNames : public QObject
{
public:
    explicit EditorNames(QInputDialog *dialog)
        : QObject(dialog)
        , m_dialog(*dialog)
    {
        dialog->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            name();
        return QObject::eventFilter(watched, event);
    }

private:
    void name()
    {
        auto *label = m_dialog.findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        const auto widgets
            = m_dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *editor : widgets) {
            if (!qobject_cast<QAbstractSpinBox *>(editor) && !qobject_cast<QComboBox *>(editor))
                continue;
            editor->setAccessibleName(spokenLines(m_dialog.labelText(), 0));
            // Of a list the toolkit takes what is chosen for the name, and asks for its label.
            if (label != nullptr && !editor->isHidden())
                label->setBuddy(editor);
        }
    }

    const QInputDialog &m_dialog;
};

} // namespace

void accessibility::attach(MainWindow &window)
{
    const MainWindowParts &parts = window.parts();
    QAccessible::installFactory(spokenInterface);
    const auto *language
        = new Catalogue(parts.settingsData, QLatin1String("Accessibility"), &window);
    speakOfButtons(parts, language);
    speakOfTraces(parts, language);
    speakOfDials(parts, language);
    speakOfReadouts(parts, language);
    nameDialogBoxes(*parts.settingsMenu, parts.settingsData);
    new EditorNames(parts.input_dialog);
    leadFocus(&window, windowOrder(parts));
    // Where the cursors are; not at the button that happens to be the first.
    parts.Plot_View->setFocus();
    leadFocus(parts.settingsMenu, dialogOrder(*parts.settingsMenu));
    // Enter stays what it was; else the first button in the new order would answer it.
    parts.settingsMenu->ok_button->setDefault(true);
    parts.settingsMenu->ok_button->setFocus();
}
