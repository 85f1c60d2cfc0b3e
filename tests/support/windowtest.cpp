// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowtest.h"

#include "legendbutton.h"
#include "settingsdata.h"
#include "window_actions.h"

#include <QAction>
#include <QGraphicsView>

namespace {

/// True when \a button, of \a slot, has the picture of its own state: hidden, visible or master.
bool hasPictureOfState(const LegendButton &button, int slot)
{
    QString path = QStringLiteral("://icons/canal_64/Canal_Disabled");
    if (button.vis())
        path = QStringLiteral("://icons/canal_64/canal_%1").arg(slot + 1)
            + QLatin1String(button.mast() ? "M" : "");
    const QPixmap wanted(path);
    const QPixmap shown = button.QAbstractButton::icon().pixmap(wanted.size());
    return !wanted.isNull() && shown.toImage() == wanted.toImage();
}

} // namespace

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

QString WindowTest::slotsText() const
{
    QString text;
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        const LegendButton &button = *probe().selected_rfg()[slot];
        const bool isLoaded = (probe().rfg_read_index() >> slot & 1) != 0;
        const bool isSmooth = probe().smooth_rfg_flag();
        const bool isPicture = hasPictureOfState(button, slot);
        const bool isChart = probe().rfg_series()[slot]->isVisible() == (button.vis() && !isSmooth)
            && probe().rfg_series_sp()[slot]->isVisible() == (button.vis() && isSmooth);
        bool isMenu = button.load_action->isEnabled()
            && button.master_action->isEnabled() == (isLoaded && !button.mast())
            && button.visible_action->isChecked() == button.vis();
        for (const QAction *action :
             { button.reset_action, button.clear_action, button.visible_action })
            isMenu = isMenu && action->isEnabled() == isLoaded;
        const char *const letters = button.mast() ? ":HV" : ".hv";
        text += isPicture && isChart && isMenu && (isLoaded || !button.vis())
            ? QLatin1Char(letters[int(isLoaded) + int(button.vis())])
            : QLatin1Char('?');
    }
    text += QStringLiteral(", selected %1").arg(probe().rfg_ID());
    return text
        + (probe().master_is_set() ? QStringLiteral(", master %1").arg(probe().rfg_master_ID())
                                   : QString());
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
