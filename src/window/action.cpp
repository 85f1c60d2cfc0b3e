// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "mainwindow.h"

#include <QGraphicsLayout>

#include <algorithm>
#include <utility>

QT_CHARTS_USE_NAMESPACE

MainWindow::Action::Action(MainWindow &window, Kind kind)
    : m_window(window)
{
    const bool outermost = m_window.openActions == 0;
    m_window.onlyCursorMoves = kind == CursorMove && (outermost || m_window.onlyCursorMoves);
    ++m_window.openActions;
}

MainWindow::Action::~Action()
{
    if (--m_window.openActions == 0)
        m_window.finishAction();
}

void MainWindow::finishAction()
{
    const bool raised = raisePending();
    // Before the captions: they may bring the plot to the screen as well.
    if (onlyCursorMoves && !raised)
        Plot_View->cursorMoved(Plot_Chart);
    else
        Plot_View->invalidate();
    // Left to the event loop, the chart would lay itself out after the repaint and ask for another.
    Plot_Chart->layout()->activate();
    Cont_dial *const dials[] = { param_dial, cursor_dial };
    for (int i = 0; i < 2; ++i) {
        if (pendingCaptions[i].isNull())
            continue;
        const QString caption = std::exchange(pendingCaptions[i], QString());
        if (caption != dials[i]->titleText)
            dials[i]->setText(caption);
    }
}

bool MainWindow::raisePending()
{
    // As many of the wanted series as stand in place already, once those after them are taken away.
    QList<QAbstractSeries *> order = Plot_Chart->series();
    int inPlace = static_cast<int>(pendingRaises.size());
    const auto standsInPlace = [&] {
        if (inPlace > order.size())
            return false;
        return std::equal(pendingRaises.cbegin(), pendingRaises.cbegin() + inPlace,
                          order.cend() - inPlace);
    };
    while (!standsInPlace()) {
        --inPlace;
        order.removeOne(pendingRaises.at(inPlace));
    }
    for (int i = inPlace; i < pendingRaises.size(); ++i)
        raiseNow(pendingRaises.at(i));
    const bool raised = inPlace < pendingRaises.size();
    pendingRaises.clear();
    return raised;
}

void MainWindow::setDialText(Cont_dial *dial, const QString &text)
{
    if (openActions == 0)
        dial->setText(text);
    else
        pendingCaptions[dial == param_dial ? 0 : 1] = text;
}
