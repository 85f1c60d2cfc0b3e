// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowtest.h"

#include "windowactions.h"

#include <QGraphicsView>

MainWindow &WindowTest::window() const
{
    return fixture->window();
}

const MainWindowProbe &WindowTest::probe() const
{
    return fixture->probe();
}

QWidget *WindowTest::viewport() const
{
    return probe().Plot_View()->viewport();
}

void WindowTest::openOn(const QVector<TraceBuilder> &traces)
{
    openWith(*fixture, traces);
}

void WindowTest::init()
{
    fixture = std::make_unique<WindowFixture>();
}

void WindowTest::cleanup()
{
    fixture.reset();
}
