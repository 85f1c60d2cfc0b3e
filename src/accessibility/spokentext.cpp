// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/spokentext.h"

#include <QAccessible>
#include <QStringList>
#include <QWidget>

#include <utility>

SpokenText::SpokenText(QWidget *control, Reader name, Reader value)
    : QObject(control)
    , m_name(std::move(name))
    , m_value(std::move(value))
{
    // The toolkit made one of its own when the control got its first text, for whoever may listen.
    if (QAccessibleInterface *former = QAccessible::queryAccessibleInterface(control))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(former));
}

QString SpokenText::name() const
{
    return m_name();
}

QString SpokenText::value() const
{
    return m_value ? m_value() : QString();
}

const SpokenText *SpokenText::of(const QObject *object)
{
    return object->findChild<SpokenText *>(QString(), Qt::FindDirectChildrenOnly);
}

QString spokenLines(const QString &text, int first)
{
    QStringList spoken;
    const QStringList lines = text.split(QLatin1Char('\n')).mid(first);
    for (const QString &line : lines) {
        const QString phrase = line.simplified();
        if (!phrase.isEmpty() && !phrase.endsWith(QLatin1Char('=')))
            spoken.append(phrase);
    }
    return spoken.join(QLatin1String(", "));
}
