// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

#include <functional>

/// A session bus with the accessibility bus on it, and the eyes of a screen reader: what programs
/// started in its environment say of themselves. Ends the test program when the buses cannot be
/// had, because nothing could be tested then.
class AccessibleTree
{
public:
    /// One thing that a program told of.
    struct Node
    {
        QString role; ///< as the accessibility bus spells it: "push button"
        QString name;
        bool isShown = false;
        bool isFocused = false;
    };

    /// \a environment is what the buses start in; the display in it has to be there.
    explicit AccessibleTree(const QProcessEnvironment &environment);
    ~AccessibleTree();
    Q_DISABLE_COPY(AccessibleTree)

    /// Environment for programs that are to tell of themselves here.
    QProcessEnvironment environment() const;

    /// All that \a program says now, each thing before its children, which are left out when it is
    /// hidden; empty when the program is not there.
    QVector<Node> nodes(const QString &program) const;

    /// Looks until \a looksRight says so; false after ten seconds.
    bool waitUntil(const QString &program,
                   const std::function<bool(const QVector<Node> &)> &looksRight) const;

private:
    QProcess m_bus;
    QProcessEnvironment m_environment;
    QTemporaryDir m_runtimeFolder;
};
