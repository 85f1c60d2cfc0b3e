// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/interfaces.h"

#include "accessibility/spokentext.h"
#include "cont_dial.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QButtonGroup>
#include <QLabel>

namespace {

class SpokenControl : public QAccessibleWidget
{
public:
    SpokenControl(QWidget *control, QAccessible::Role role)
        : QAccessibleWidget(control, role)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const SpokenText *spoken = SpokenText::of(object());
        if (spoken == nullptr)
            return QAccessibleWidget::text(kind);
        if (kind == QAccessible::Value)
            return spoken->value();
        if (kind != QAccessible::Name)
            return QAccessibleWidget::text(kind);
        // With the value in it: that is what a screen reader says of any control, what not every
        // desktop has another place for, and what the toolkit reports as changed by itself.
        const QString value = spoken->value();
        return value.isEmpty() ? spoken->name() : spoken->name() + QLatin1String(": ") + value;
    }
};

/// One of several, or on and off, or just pressed.
QAccessible::Role roleOf(const QAbstractButton &button)
{
    if (!button.isCheckable())
        return QAccessible::Button;
    const QButtonGroup *group = button.group();
    return group != nullptr && group->exclusive() ? QAccessible::RadioButton
                                                  : QAccessible::CheckBox;
}

/// A button as the toolkit describes one, but for its name.
class SpokenButton : public SpokenControl
{
public:
    explicit SpokenButton(QAbstractButton *button)
        : SpokenControl(button, roleOf(*button))
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = SpokenControl::state();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        state.hasPopup = hasMenu();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (button()->isEnabled()) {
            names.append(button()->isCheckable() ? toggleAction() : pressAction());
            if (hasMenu())
                names.append(showMenuAction());
        }
        return names + SpokenControl::actionNames();
    }

    void doAction(const QString &name) override
    {
        // Later: a dialog or a menu would not let the assistive technology have its answer.
        if (name == pressAction() || name == toggleAction()) {
            if (button()->isEnabled())
                QMetaObject::invokeMethod(button(), &QAbstractButton::click, Qt::QueuedConnection);
        } else if (name == showMenuAction()) {
            QAbstractButton *const owner = button();
            QMetaObject::invokeMethod(
                owner, [owner] { emit owner->customContextMenuRequested(QPoint()); },
                Qt::QueuedConnection);
        } else {
            SpokenControl::doAction(name);
        }
    }

private:
    QAbstractButton *button() const
    {
        return static_cast<QAbstractButton *>(object());
    }
    bool hasMenu() const
    {
        return button()->contextMenuPolicy() == Qt::CustomContextMenu;
    }
};

/// A dial with the counter that its owner reads, not the place of the knob.
class SpokenDial : public SpokenControl, public QAccessibleValueInterface
{
public:
    explicit SpokenDial(Cont_dial *dial)
        : SpokenControl(dial, QAccessible::Dial)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return SpokenControl::interface_cast(type);
    }

    QVariant currentValue() const override
    {
        return dial()->trueValue;
    }
    QVariant minimumValue() const override
    {
        return dial()->trueMin;
    }
    QVariant maximumValue() const override
    {
        return dial()->trueMax;
    }
    QVariant minimumStepSize() const override
    {
        return 1;
    }
    void setCurrentValue(const QVariant &value) override
    {
        // As a hand's turn to that value: clamped likewise, and reported.
        const int wanted = qMin(qMax(value.toInt(), dial()->trueMin), dial()->trueMax);
        dial()->trueValue = wanted;
        emit dial()->trueValueChanged(wanted);
    }

private:
    Cont_dial *dial() const
    {
        return static_cast<Cont_dial *>(object());
    }
};

/// The plot as one thing: what it consists of says nothing by itself.
class SpokenPlot : public SpokenControl
{
public:
    explicit SpokenPlot(QWidget *plot)
        : SpokenControl(plot, QAccessible::Chart)
    {
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
};

} // namespace

QAccessibleInterface *spokenInterface(const QString &className, QObject *object)
{
    Q_UNUSED(className)
    auto *control = qobject_cast<QWidget *>(object);
    if (control == nullptr || SpokenText::of(control) == nullptr)
        return nullptr;
    if (auto *dial = qobject_cast<Cont_dial *>(control))
        return new SpokenDial(dial);
    if (auto *button = qobject_cast<QAbstractButton *>(control))
        return new SpokenButton(button);
    if (qobject_cast<QLabel *>(control) != nullptr)
        return new SpokenControl(control, QAccessible::StaticText);
    return new SpokenPlot(control);
}
