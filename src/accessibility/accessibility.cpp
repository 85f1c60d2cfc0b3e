// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/accessibility.h"

#include "accessibility/focusframe.h"
#include "base/catalogue.h"
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"

#include <QAccessibleWidget>
#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGraphicsSimpleTextItem>
#include <QInputDialog>
#include <QLabel>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>

#include <memory>

namespace {

struct Wording
{
    QWidget *control;
    const char *text;
};

/// Names of the controls that show a picture, or a word that says less than the name.
QVector<Wording> names(const MainWindowParts &parts)
{
    return {
        { parts.logo_lbl, QT_TRANSLATE_NOOP("Accessibility", "Logo") },
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
        { parts.reserve_button, QT_TRANSLATE_NOOP("Accessibility", "Reserved") },
    };
}

/// Descriptions of the controls that show a value. Their accessible name is the text that they
/// show: a name set here would hide the value.
QVector<Wording> descriptions(const MainWindowParts &parts)
{
    return {
        { parts.delta_lbl, QT_TRANSLATE_NOOP("Accessibility", "Distance between the cursors") },
        { parts.date_bar, QT_TRANSLATE_NOOP("Accessibility", "Date and time") },
        { parts.Plot_View, QT_TRANSLATE_NOOP("Accessibility", "Plot") },
        { parts.param_dial, QT_TRANSLATE_NOOP("Accessibility", "Parameter dial") },
        { parts.H_offset_button, QT_TRANSLATE_NOOP("Accessibility", "Horizontal shift") },
        { parts.KU_button, QT_TRANSLATE_NOOP("Accessibility", "Shortening factor") },
        { parts.average_button, QT_TRANSLATE_NOOP("Accessibility", "Averaging") },
        { parts.V_offset_button, QT_TRANSLATE_NOOP("Accessibility", "Vertical shift") },
        { parts.pulse_amplitude_button, QT_TRANSLATE_NOOP("Accessibility", "Pulse amplitude") },
        { parts.cursor_dial, QT_TRANSLATE_NOOP("Accessibility", "Cursor dial") },
    };
}

/// Updates the names and descriptions when the language or the state of a trace changes.
class Wordings : public QObject
{
public:
    explicit Wordings(MainWindow &window)
        : QObject(&window)
        , m_parts(window.parts())
    {
        describeControls();
        connect(m_parts.settingsData, &SettingsData::translation_changed, this,
                &Wordings::describeControls);
        for (LegendButton *button : m_parts.selected_rfg) {
            const auto describe = [this, button] { describeTrace(*button); };
            connect(button, &LegendButton::mastChanged, this, describe);
            connect(button, &LegendButton::visChanged, this, describe);
            // Enabled when the slot is loaded, disabled when it is emptied.
            connect(button->visible_action, &QAction::changed, this, describe);
        }
    }

private:
    void describeControls()
    {
        m_texts
            = std::make_unique<Catalogue>("Accessibility", m_parts.settingsData->current_language);
        const QVector<Wording> named = names(m_parts);
        for (const Wording &wording : named)
            wording.control->setAccessibleName(m_texts->text(wording.text));
        const QVector<Wording> described = descriptions(m_parts);
        for (const Wording &wording : described)
            wording.control->setAccessibleDescription(m_texts->text(wording.text));
        for (LegendButton *button : m_parts.selected_rfg)
            describeTrace(*button);
        // Qt does not use the title of the box around it as its name.
        m_parts.settingsMenu->language_select->setAccessibleName(m_parts.d->LANGUAGE_STR);
    }

    void describeTrace(LegendButton &button) const
    {
        QStringList facts{
            m_texts->text(QT_TRANSLATE_NOOP("Accessibility", "Trace %1")).arg(button.id + 1)
        };
        if (button.mast())
            facts += m_texts->text(QT_TRANSLATE_NOOP("Accessibility", "master"));
        // The menu entry is disabled while the slot is empty.
        if (!button.vis() && button.visible_action->isEnabled())
            facts += m_texts->text(QT_TRANSLATE_NOOP("Accessibility", "hidden"));
        button.setAccessibleDescription(facts.join(QLatin1String(", ")));
    }

    const MainWindowParts &m_parts;
    std::unique_ptr<Catalogue> m_texts; ///< in the present language
};

/// Accessible dial. Its value is the counter; Qt's own interface has the position of the knob. Its
/// name is the text shown, as for a button. Setting the value works like a turn by the user, limits
/// included.
class DialInterface : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit DialInterface(Cont_dial *dial)
        : QAccessibleWidget(dial, QAccessible::Dial)
        , m_dial(*dial)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_dial.titleText : QAccessibleWidget::text(kind);
    }
    QVariant currentValue() const override
    {
        return m_dial.trueValue;
    }
    QVariant minimumValue() const override
    {
        return m_dial.trueMin;
    }
    QVariant maximumValue() const override
    {
        return m_dial.trueMax;
    }
    QVariant minimumStepSize() const override
    {
        return 1;
    }
    void setCurrentValue(const QVariant &value) override
    {
        m_dial.trueValue = qMin(qMax(value.toInt(), m_dial.trueMin), m_dial.trueMax);
        emit m_dial.trueValueChanged(m_dial.trueValue);
        QAccessibleValueChangeEvent event(&m_dial, m_dial.trueValue);
        QAccessible::updateAccessibility(&event);
    }

private:
    Cont_dial &m_dial;
};

/// Accessible plot: a chart without children, named by its two texts, which must outlive the plot.
/// Qt's own interface of a graphics view is a scroll area.
class PlotInterface : public QAccessibleWidget
{
public:
    PlotInterface(QWidget *plot, const QGraphicsSimpleTextItem &title,
                  const QGraphicsSimpleTextItem &step)
        : QAccessibleWidget(plot, QAccessible::Chart)
        , m_title(title)
        , m_step(step)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name)
            return QAccessibleWidget::text(kind);
        return m_title.text() + QLatin1Char('\n') + m_step.text();
    }
    int childCount() const override
    {
        return 0;
    }
    QAccessibleInterface *child(int index) const override
    {
        Q_UNUSED(index)
        return nullptr;
    }

private:
    const QGraphicsSimpleTextItem &m_title;
    const QGraphicsSimpleTextItem &m_step;
};

/// Makes \a own the interface of its object. Qt may have made and cached another one already.
void install(QAccessibleInterface *own)
{
    if (QAccessibleInterface *cached = QAccessible::queryAccessibleInterface(own->object()))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(cached));
    QAccessible::registerAccessibleInterface(own);
}

/// Qt reports a button as a radio button only if it is autoExclusive. Inside a group this property
/// has no other effect.
void markRadioButtons(const MainWindowParts &parts)
{
    for (const QButtonGroup *group :
         { parts.up_buttons, parts.down_buttons, parts.rfg_buttons, parts.cur_nav_group }) {
        const auto buttons = group->buttons();
        for (QAbstractButton *button : buttons)
            button->setAutoExclusive(true);
    }
}

/// Focus order of the window: row by row, from left to right.
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
    // Each control is put after the first one, from the last to the second: Qt does not put a
    // control after the last one of the window.
    for (auto i = order.size() - 1; i > 0; --i)
        QWidget::setTabOrder(order.first(), order.at(i));
}

/// Makes the label of the entry dialog the label of the editor in use, each time the dialog opens.
/// The dialog has three editors; Qt binds the label to the first.
class EntryLabel : public QObject
{
public:
    explicit EntryLabel(QInputDialog *dialog)
        : QObject(dialog)
    {
        dialog->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            label(*watched);
        return false;
    }

private:
    static void label(const QObject &dialog)
    {
        auto *label = dialog.findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        const auto widgets = dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *editor : widgets) {
            const bool isEditor
                = qobject_cast<QAbstractSpinBox *>(editor) || qobject_cast<QComboBox *>(editor);
            if (isEditor && !editor->isHidden())
                label->setBuddy(editor);
        }
    }
};

} // namespace

void accessibility::attach(MainWindow &window)
{
    const MainWindowParts &parts = window.parts();
    new Wordings(window);
    markRadioButtons(parts);
    install(new DialInterface(parts.param_dial));
    install(new DialInterface(parts.cursor_dial));
    install(new PlotInterface(parts.Plot_View, parts.chart_title, parts.cursor_step_lbl));

    SettingsMenu &dialog = *parts.settingsMenu;
    dialog.cursor_accur_lbl->setBuddy(dialog.cursor_accur);
    dialog.param_accur_lbl->setBuddy(dialog.param_accur);
    new EntryLabel(parts.input_dialog);

    leadFocus(&window, windowOrder(parts));
    parts.Plot_View->setFocus();
    leadFocus(&dialog, dialogOrder(dialog));
    // Otherwise the first button in the new order becomes the default button, which Enter presses.
    dialog.ok_button->setDefault(true);
    dialog.ok_button->setFocus();
}
