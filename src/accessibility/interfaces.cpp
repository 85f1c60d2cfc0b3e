// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/interfaces.h"

#include "cont_dial.h"

#include <QAccessibleWidget>
#include <QGraphicsSimpleTextItem>

namespace {

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

} // namespace

void accessibility::installDialInterface(Cont_dial *dial)
{
    install(new DialInterface(dial));
}

void accessibility::installPlotInterface(QWidget *plot, const QGraphicsSimpleTextItem &title,
                                         const QGraphicsSimpleTextItem &step)
{
    install(new PlotInterface(plot, title, step));
}
