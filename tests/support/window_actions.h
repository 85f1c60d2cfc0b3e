// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "windowfixture.h"

#include <QList>
#include <QVector>

#include <functional>

class QGraphicsItem;
class QGraphicsScene;
class QInputDialog;
class QWidget;

/// \file
/// Actions that several window tests share: open a window on traces, choose files, enter values.

/// Opens the window as after a run that had \a traces open from slot 1 on, with master \a master,
/// and all other settings default. The files are "t1.tdr" and so on, in the fixture's folder. A
/// window that is already open is closed first, so rows of a table can call this one by one. No
/// traces: as at the very first start.
MainWindow &openWith(WindowFixture &fixture, const QVector<TraceBuilder> &traces, int master = 0);

/// Clicks the files button and answers its dialog with \a paths; none cancels. False when no dialog
/// came up.
bool chooseFiles(const WindowFixture &fixture, const QStringList &paths);

/// Triggers "load" in the menu of \a slot and answers its dialog with \a path; an empty one
/// cancels. False when no dialog came up.
bool loadInto(const WindowFixture &fixture, int slot, const QString &path);

/// Right-clicks \a button and calls \a answer with the entry dialog that opens; cancels the dialog
/// if it is still open then. Ends the test program when no such dialog opens.
void answerEntry(QWidget *button, const std::function<void(QInputDialog &)> &answer);

/// All items of \a scene, the lowest one first.
QList<QGraphicsItem *> stacked(QGraphicsScene &scene);
