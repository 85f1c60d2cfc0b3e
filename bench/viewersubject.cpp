// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "viewersubject.h"

#include "base/program_files.h"
#include "cont_dial.h"
#include "input_events.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"

#include <QFile>
#include <QGraphicsView>
#include <QPushButton>

#include <cmath>

namespace {

std::unique_ptr<MainWindow> freshWindow()
{
    // Settings left by an earlier run must not be loaded.
    QFile::remove(program_files::settingsFile());
    return std::make_unique<MainWindow>();
}

} // namespace

ViewerSubject::ViewerSubject(QSize size, const QStringList &files)
    : m_window(freshWindow())
    , m_probe(*m_window)
    , m_files(files)
    , m_size(size)
{
    load();
    m_window->resize(size);
    // Bypass the window manager, which would delay a resize.
    m_window->setWindowFlag(Qt::X11BypassWindowManagerHint);
    m_window->show();
    // Both cursors lie on the traces; A is active.
    m_window->cursorSelect_slot(MainWindow::CURSOR_B);
    m_window->cursorSetup_slot(workload::cursorB);
    m_window->cursorSelect_slot(MainWindow::CURSOR_A);
    m_window->cursorSetup_slot(workload::cursorA);
}

ViewerSubject::~ViewerSubject() = default;

QWidget &ViewerSubject::plot()
{
    return *m_probe.Plot_View();
}

QWidget &ViewerSubject::canvas()
{
    return *m_probe.Plot_View()->viewport();
}

void ViewerSubject::load()
{
    SettingsData &settings = *m_probe.settingsData();
    settings.read_index = (1 << m_files.size()) - 1;
    settings.master_ID = 0;
    for (int slot = 0; slot < m_files.size(); ++slot)
        settings.current_files[slot] = m_files[slot];
    settings.updateSettings(1);
}

void ViewerSubject::begin(Operation operation)
{
    if (isSmoothed(operation))
        input::click(m_probe.smooth_button());
    switch (operation) {
    case Operation::CursorDrag:
        startDrag(Qt::LeftButton);
        break;
    case Operation::Pan:
    case Operation::PanSmoothed:
        startDrag(Qt::MiddleButton);
        break;
    case Operation::VerticalShift:
        input::click(m_probe.V_offset_button());
        break;
    case Operation::HorizontalShift:
        input::click(m_probe.H_offset_button());
        break;
    case Operation::ShorteningFactor:
        input::click(m_probe.KU_button());
        break;
    case Operation::Resize:
        m_window->resize(workload::resized(m_size, 1));
        break;
    default:
        break;
    }
}

void ViewerSubject::startDrag(Qt::MouseButton button)
{
    // At the active cursor, so that the press itself hardly moves it.
    const double share = double{ workload::cursorA } / constants::drawnSamples;
    const QRect view = canvas().rect();
    m_pointer = QPoint(static_cast<int>(view.width() * share), view.center().y());
    m_held = button;
    input::press(&canvas(), m_pointer, button);
}

void ViewerSubject::dragBy(int counts)
{
    const double pixels = double{ m_probe.trueWidth() } / constants::drawnSamples * counts;
    m_pointer.rx() += static_cast<int>(counts < 0 ? std::floor(pixels) : std::ceil(pixels));
    input::move(&canvas(), m_pointer, m_held);
}

void ViewerSubject::act(Operation operation, int number)
{
    const int way = workload::direction(number, workload::turn);
    SettingsData &settings = *m_probe.settingsData();
    switch (operation) {
    case Operation::CursorStep:
    case Operation::CursorStepSmoothed:
        input::turnWheel(&canvas(), way);
        break;
    case Operation::CursorDrag:
        dragBy(way * workload::dragCounts);
        break;
    case Operation::Pan:
    case Operation::PanSmoothed:
        // To the right first, which scrolls right: the view starts at the left end.
        dragBy(workload::direction(number, workload::panTurn) * workload::panCounts);
        break;
    case Operation::ZoomStep:
        input::click(number % 2 == 0 ? m_probe.scale_up_button() : m_probe.scale_down_button());
        break;
    case Operation::VerticalShift:
    case Operation::HorizontalShift:
    case Operation::ShorteningFactor:
        input::turnWheel(m_probe.param_dial(), way);
        break;
    case Operation::SelectTrace:
        input::click(m_probe.selected_rfg()[(number + 1) % m_files.size()]);
        break;
    case Operation::LoadSix:
        load();
        break;
    case Operation::DifferenceOn:
        input::click(m_probe.difference_button());
        break;
    case Operation::SmoothingOn:
        input::click(m_probe.smooth_button());
        break;
    case Operation::Resize:
        m_window->resize(workload::resized(m_size, number));
        break;
    case Operation::Language:
        settings.current_language
            = number % 2 == 0 ? QStringLiteral("ru_RU") : QStringLiteral("en_US");
        settings.updateSettings(1 << 3);
        break;
    case Operation::StyleSheet:
        settings.updateSettings(1 << 1);
        break;
    }
}

void ViewerSubject::takeBack(Operation operation)
{
    if (operation == Operation::DifferenceOn)
        input::click(m_probe.difference_button());
    else if (operation == Operation::SmoothingOn)
        input::click(m_probe.smooth_button());
}

void ViewerSubject::end(Operation operation)
{
    if (m_held != Qt::NoButton)
        input::release(&canvas(), m_pointer, m_held);
    m_held = Qt::NoButton;
    if (isSmoothed(operation))
        input::click(m_probe.smooth_button());
    else if (operation == Operation::Resize)
        m_window->resize(m_size);
    else if (operation == Operation::Language)
        act(Operation::Language, 1);
    // The next operation starts from the same view.
    m_window->plotScroll(-m_probe.scrollfactorX());
    m_window->cursorSetup_slot(workload::cursorA);
}
