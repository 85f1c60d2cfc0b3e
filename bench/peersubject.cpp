// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "peersubject.h"

#include "calc/readout.h"
#include "cont_dial.h"
#include "input_events.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

const QString metres = QStringLiteral("m");

/// Clicks \a button without its signals to the window. The button repaints as in the viewer.
void clickUnheard(QAbstractButton *button)
{
    const QSignalBlocker blocker(button);
    input::click(button);
}

/// Repaints \a dial when its caption changes, as the viewer does.
void setCaption(Cont_dial &dial, const QString &caption)
{
    if (dial.titleText == caption)
        return;
    dial.titleText = caption;
    dial.update();
}

} // namespace

PeerSubject::PeerSubject(PeerPlot *plot, QSize size, const QStringList &files)
    : ViewerSubject(size, files)
    , m_plot(*plot)
{
    m_model.load(files);
    m_model.cursors[0] = workload::cursorA;
    m_model.cursors[1] = workload::cursorB;
    m_model.textPoints = m_probe.KU_button()->font().pointSize();
    m_plot.widget->setMinimumSize(m_probe.Plot_View()->minimumSize());
    m_probe.Plot_View()->hide();
    m_probe.centralWidget()->layout()->replaceWidget(m_probe.Plot_View(), m_plot.widget);
    m_plot.widget->show();
    show(true);
}

QWidget &PeerSubject::plot()
{
    return *m_plot.widget;
}

QWidget &PeerSubject::canvas()
{
    return *m_plot.canvas;
}

void PeerSubject::show(bool pointsChanged)
{
    m_plot.show(m_model, pointsChanged);
    const auto distance = [this](int counts) {
        return calc::distanceText(counts, m_model.metresPerCount(), metres);
    };
    InterfaceButton *const buttons[] = { m_probe.curA_button(), m_probe.curB_button() };
    for (int i = 0; i < 2; ++i)
        buttons[i]->setText(
            QStringLiteral("Cursor\n x = %1\n y = %2")
                .arg(distance(m_model.cursors[i]), calc::levelText(m_model.level(i))));
    m_probe.delta_lbl()->setText(QStringLiteral("Δ = ")
                                 + distance(m_model.cursors[1] - m_model.cursors[0]));
    setCaption(*m_probe.cursor_dial(), distance(m_model.cursors[0]));
}

void PeerSubject::showParameter(QAbstractButton *button, double value)
{
    const QString text = QStringLiteral("X\n%1").arg(value);
    button->setText(text);
    setCaption(*m_probe.param_dial(), text);
}

void PeerSubject::set(bool PeerModel::*mode, bool on)
{
    m_model.*mode = on;
    show(true);
}

void PeerSubject::begin(Operation operation)
{
    if (isSmoothed(operation))
        set(&PeerModel::smooth, true);
    else if (operation == Operation::Resize)
        ViewerSubject::begin(operation);
}

void PeerSubject::act(Operation operation, int number)
{
    const int way = workload::direction(number, workload::turn);
    const int pan = workload::panCounts * workload::direction(number, workload::panTurn);
    PeerModel::Trace &selected = m_model.traces[m_model.selected];
    switch (operation) {
    case Operation::CursorStep:
    case Operation::CursorStepSmoothed:
    case Operation::CursorDrag:
        m_model.cursors[0] += way;
        return show(false);
    case Operation::Pan:
    case Operation::PanSmoothed:
        m_model.range = { m_model.range.min + pan, m_model.range.max + pan };
        return m_plot.show(m_model, false);
    case Operation::ZoomStep: {
        const int scale = number % 2 == 0 ? 1 : 0;
        m_model.range = calc::centredOn(m_model.cursors[0], { 0, calc::visibleCounts(scale) });
        showParameter(m_probe.scale_button(), scale);
        return m_plot.show(m_model, false);
    }
    case Operation::VerticalShift:
        selected.offset += way;
        showParameter(m_probe.V_offset_button(), selected.offset);
        return show(true);
    case Operation::HorizontalShift:
        selected.scroll += way;
        showParameter(m_probe.H_offset_button(), selected.scroll);
        return show(true);
    case Operation::ShorteningFactor:
        m_model.ku += way / 1000.0;
        showParameter(m_probe.KU_button(), m_model.ku);
        return show(false);
    case Operation::SelectTrace:
        m_model.selected = (number + 1) % m_files.size();
        for (int id = 0; id < m_probe.down_buttons()->buttons().size(); ++id)
            m_probe.down_buttons()->button(id)->setText(QStringLiteral("X\n%1").arg(number));
        return show(false);
    case Operation::LoadSix:
        m_model.load(m_files);
        for (LegendButton *button : m_probe.selected_rfg())
            button->setVis(true);
        return show(true);
    case Operation::DifferenceOn:
        clickUnheard(m_probe.difference_button());
        return set(&PeerModel::difference, true);
    case Operation::SmoothingOn:
        clickUnheard(m_probe.smooth_button());
        return set(&PeerModel::smooth, true);
    case Operation::Resize:
    case Operation::Language:
    case Operation::StyleSheet:
        return ViewerSubject::act(operation, number);
    }
}

void PeerSubject::takeBack(Operation operation)
{
    if (operation == Operation::DifferenceOn) {
        clickUnheard(m_probe.difference_button());
        set(&PeerModel::difference, false);
    } else if (operation == Operation::SmoothingOn) {
        clickUnheard(m_probe.smooth_button());
        set(&PeerModel::smooth, false);
    }
}

void PeerSubject::end(Operation operation)
{
    if (operation == Operation::Resize)
        ViewerSubject::end(operation);
    if (isSmoothed(operation))
        m_model.smooth = false;
    m_model.range = { 0, constants::drawnSamples };
    m_model.cursors[0] = workload::cursorA;
    show(true);
}
