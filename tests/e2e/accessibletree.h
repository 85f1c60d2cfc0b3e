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

/// A session bus with the accessibility bus on it, and a client that reads the objects of programs
/// started in its environment. Ends the test program when the buses cannot be started.
class AccessibleTree
{
public:
    /// One object that a program reports.
    struct Node
    {
        QString role; ///< as the accessibility bus spells it: "push button"
        QString name;
        QString description;
        bool isShown = false;
        bool isFocused = false;
    };

    /// Starts the buses in \a environment; its display must exist.
    explicit AccessibleTree(const QProcessEnvironment &environment);
    ~AccessibleTree();
    Q_DISABLE_COPY(AccessibleTree)

    /// Environment for the programs to be read.
    QProcessEnvironment environment() const;

    /// All objects of \a program, parents before children; children of hidden objects are left out.
    /// Empty when the program does not run.
    QVector<Node> nodes(const QString &program) const;

    /// Reads until \a looksRight returns true; false after ten seconds.
    bool waitUntil(const QString &program,
                   const std::function<bool(const QVector<Node> &)> &looksRight) const;

private:
    QProcess m_bus;
    QProcessEnvironment m_environment;
    QTemporaryDir m_runtimeFolder;
};
