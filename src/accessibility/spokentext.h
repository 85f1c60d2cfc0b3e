// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

/// What is said of one control: a child of it, by which its interface for assistive technologies
/// finds it.
class SpokenText : public QObject
{
    Q_OBJECT

public:
    using Reader = std::function<QString()>;

    /// \a name gives what name() returns. \a value reads what the control shows at this moment; an
    /// empty one is for controls that show nothing but their name.
    SpokenText(QWidget *control, Reader name, Reader value);

    /// What the control is for, in few words.
    QString name() const;
    /// What it shows now; may be empty.
    QString value() const;

    /// What is said of \a object; null when nothing is.
    static const SpokenText *of(const QObject *object);

private:
    Reader m_name;
    Reader m_value;
};

/// The lines of \a text from line \a first on, as one phrase: "x = 1.00 m, y = 17". A line that
/// ends in an equals sign says nothing and is left out.
QString spokenLines(const QString &text, int first);
