// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "peer_subject.h"

#include "calc/readout.h"
#include "cont_dial.h"
#include "dictionary.h"
#include "mainwindow.h"
#include "parambutton.h"
#include "peer_plot.h"
#include "workload.h"

#include <QCoreApplication>
#include <QLabel>

PeerSubject::PeerSubject(PeerPlot *plot, QSize size, const QStringList &files)
    : m_window(plot)
    , m_files(files)
    , m_size(size)
{
    m_model.cursors[0] = workload::cursorA;
    m_model.cursors[1] = workload::cursorB;
    m_window.resize(size);
    m_window.setWindowFlag(Qt::X11BypassWindowManagerHint);
    m_window.show();
    // Distances are planned for the width that the layout gave the plot.
    QCoreApplication::processEvents();
    m_model.textPoints = m_window.points();
    load();
}

PeerSubject::~PeerSubject() = default;

QWidget &PeerSubject::window()
{
    return m_window;
}

QWidget &PeerSubject::plot()
{
    return *m_window.plot->widget();
}

QWidget &PeerSubject::canvas()
{
    return *m_window.plot->canvas();
}

QVector<double> PeerSubject::state() const
{
    const PeerModel::Trace &trace = m_model.traces[m_model.selected];
    return { double(m_model.range.min),
             double(m_model.range.max),
             double(m_model.cursors[m_model.active]),
             double(trace.offset),
             double(trace.scroll),
             m_model.ku,
             double(m_model.selected),
             double(m_model.difference),
             double(m_model.smooth),
             double(m_window.plot->widget()->width()),
             double(qHash(m_window.words->SETTINGS_STR)) };
}

QString PeerSubject::distance(int counts) const
{
    return calc::distanceText(counts, m_model.metresPerCount(), m_window.words->DIST_SUFFIX_STR);
}

QString PeerSubject::stepText() const
{
    return m_window.words->CUR_STEP_STR + QStringLiteral(" = ") + distance(1);
}

void PeerSubject::showReadouts()
{
    const QString names[] = { m_window.words->CURSOR_A_STR, m_window.words->CURSOR_B_STR };
    for (int cursor = 0; cursor < PeerModel::cursorCount; ++cursor)
        m_window.cursorButtons[cursor]->setText(QStringLiteral("%1\n x = %2\n y = %3")
                                                    .arg(names[cursor],
                                                         distance(m_model.cursors[cursor]),
                                                         calc::levelText(m_model.level(cursor))));
    m_window.delta->setText(m_window.words->DELTA_STR + QStringLiteral(" = ")
                            + distance(qAbs(m_model.cursors[0] - m_model.cursors[1])));
    // Last: it paints at once, together with all that waits.
    m_window.cursorDial->setText(names[m_model.active] + QLatin1Char('\n')
                                 + distance(m_model.cursors[m_model.active]));
}

void PeerSubject::showParameter(int parameter, const QString &value)
{
    m_window.parameterButtons[parameter]->setText(QStringLiteral("X\n") + value);
    m_window.parameterDial->titleText = QStringLiteral("X\n") + value;
    m_window.parameterDial->update();
}

void PeerSubject::moveCursor(int counts)
{
    m_model.cursors[m_model.active] += counts;
    m_window.plot->showModel(m_model, PeerPlot::Cursors, -1);
    showReadouts();
}

void PeerSubject::pan(int counts)
{
    m_model.range.min += counts;
    m_model.range.max += counts;
    m_window.plot->showModel(m_model, PeerPlot::Range, -1);
}

void PeerSubject::zoom(int level)
{
    m_model.range = { 0, constants::drawnSamples << level };
    m_model.range = calc::centredOn(m_model.cursors[m_model.active], m_model.range);
    m_window.plot->showModel(m_model, PeerPlot::Range, -1);
    showParameter(MainWindow::SCALE, calc::scaleText(calc::scaleDistance(level)));
}

void PeerSubject::shift(int samples, int counts)
{
    PeerModel::Trace &trace = m_model.traces[m_model.selected];
    trace.offset += samples;
    trace.scroll += counts;
    m_window.plot->showModel(m_model, PeerPlot::Traces | PeerPlot::Cursors, m_model.selected);
    showParameter(MainWindow::V_OFFSET, QString::number(trace.offset));
    showReadouts();
}

void PeerSubject::turnFactor(int thousandths)
{
    m_model.ku += thousandths / double{ constants::kuDialUnits };
    m_model.stepText = stepText();
    m_window.plot->showModel(m_model, PeerPlot::Units | PeerPlot::Texts, -1);
    showParameter(MainWindow::KU, QString::number(m_model.ku, 'f', constants::kuDecimals));
    showReadouts();
}

void PeerSubject::select(int slot)
{
    m_model.selected = slot;
    m_model.title = QStringLiteral("trace%1, /traces, 5 Mar 2024 09:05:07").arg(slot + 1);
    m_model.stepText = stepText();
    m_window.plot->showModel(m_model, PeerPlot::Selection | PeerPlot::Texts, -1);
    for (int i = 0; i < m_window.parameterButtons.size(); ++i)
        m_window.parameterButtons[i]->setText(QStringLiteral("X\n%1").arg(slot + i));
    showReadouts();
}

void PeerSubject::load()
{
    m_model.load(m_files);
    m_model.range = { 0, constants::drawnSamples };
    m_model.title = QStringLiteral("trace1, /traces, 5 Mar 2024 09:05:07");
    m_model.stepText = stepText();
    m_window.plot->showModel(m_model, PeerPlot::Everything, -1);
    m_window.retranslate();
    showReadouts();
}

void PeerSubject::setDifference(bool on)
{
    m_model.difference = on;
    m_window.plot->showModel(m_model, PeerPlot::Traces | PeerPlot::Selection, -1);
    showReadouts();
}

void PeerSubject::setSmooth(bool on)
{
    m_model.smooth = on;
    m_window.plot->showModel(m_model, PeerPlot::Traces, -1);
}

void PeerSubject::speak(const QString &language)
{
    if (!m_translator.load(QString(constants::programCatalogue).arg(language),
                           constants::catalogueFolder))
        qFatal("a catalogue is missing");
    QCoreApplication::installTranslator(&m_translator);
    m_window.retranslate();
    m_model.stepText = stepText();
    m_window.plot->showModel(m_model, PeerPlot::Texts, -1);
    showReadouts();
}

void PeerSubject::begin(Operation operation)
{
    if (operation == Operation::CursorStepSmoothed || operation == Operation::PanSmoothed)
        setSmooth(true);
    else if (operation == Operation::Resize)
        m_window.resize(workload::resized(m_size, 1));
}

void PeerSubject::act(Operation operation, int number)
{
    const int way = direction(number, workload::turn);
    switch (operation) {
    case Operation::CursorStep:
    case Operation::CursorStepSmoothed:
    case Operation::CursorDrag:
        moveCursor(way);
        break;
    case Operation::Pan:
    case Operation::PanSmoothed:
        pan(workload::panCounts * direction(number, workload::panTurn));
        break;
    case Operation::ZoomStep:
        zoom(number % 2 == 0 ? 1 : 0);
        break;
    case Operation::VerticalShift:
        shift(way, 0);
        break;
    case Operation::HorizontalShift:
        shift(0, way);
        break;
    case Operation::VelocityFactor:
        turnFactor(way);
        break;
    case Operation::SelectTrace:
        select((number + 1) % m_files.size());
        break;
    case Operation::LoadSix:
        load();
        break;
    case Operation::DifferenceOn:
        setDifference(true);
        break;
    case Operation::SmoothingOn:
        setSmooth(true);
        break;
    case Operation::Resize:
        m_window.resize(workload::resized(m_size, number));
        break;
    case Operation::Language:
        speak(number % 2 == 0 ? QStringLiteral("ru_RU") : QStringLiteral("en_US"));
        break;
    case Operation::StyleSheet:
        m_window.setStyleSheet(m_window.styleSheet());
        break;
    }
}

void PeerSubject::takeBack(Operation operation)
{
    if (operation == Operation::DifferenceOn)
        setDifference(false);
    else if (operation == Operation::SmoothingOn)
        setSmooth(false);
}

void PeerSubject::end(Operation operation)
{
    if (operation == Operation::CursorStepSmoothed || operation == Operation::PanSmoothed)
        setSmooth(false);
    else if (operation == Operation::Resize)
        m_window.resize(m_size);
    else if (operation == Operation::Language)
        speak(QStringLiteral("en_US"));
    m_model.range = { 0, constants::drawnSamples };
    m_model.cursors[m_model.active] = workload::cursorA;
    m_window.plot->showModel(m_model, PeerPlot::Range | PeerPlot::Cursors, -1);
}
