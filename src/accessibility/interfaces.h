// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAccessibleInterface;
class QObject;
class QString;

/// The interface of \a object for assistive technologies; null when nothing is said of it, and the
/// toolkit then makes one of its own. In the form that QAccessible::installFactory takes; the name
/// of the class says nothing that the object does not.
QAccessibleInterface *spokenInterface(const QString &className, QObject *object);
