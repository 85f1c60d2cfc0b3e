// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowtest.h"

#include "settingsdata.h"
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

QRectF WindowTest::plot() const
{
    return probe().Plot_Chart()->mapToScene(probe().Plot_Chart()->plotArea()).boundingRect();
}

MainWindow &WindowTest::openOn(const QVector<TraceBuilder> &traces, int master)
{
    return openWith(*fixture, traces, master);
}

void WindowTest::setLanguage(const char *code)
{
    window().settings()->current_language = QString::fromLatin1(code);
    window().settings()->updateSettings(1 << SettingsData::LanguageSection);
    WindowFixture::settle();
}

void WindowTest::startOver()
{
    fixture = std::make_unique<WindowFixture>();
}

void WindowTest::init()
{
    startOver();
}

void WindowTest::cleanup()
{
    fixture.reset();
}
