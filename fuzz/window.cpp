// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/tdr_record.h"
#include "cont_dial.h"
#include "fuzzer.h"
#include "hand.h"
#include "legendbutton.h"
#include "mainwindowprobe.h"
#include "parambutton.h"
#include "record_input.h"
#include "settingsdata.h"
#include "window_checks.h"
#include "window_input.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QGraphicsView>
#include <QPushButton>

#include <iterator>
#include <memory>

/// \file
/// One to six records into a whole window without a screen, through what its user does with them.
/// After each thing the window is asked whether it is in order.

namespace {

class Subject
{
public:
    Subject()
        : m_window(std::make_unique<MainWindow>())
        , m_probe(*m_window)
    {
        m_window->show();
        m_window->resize(800, 500);
        fuzz::settle();
    }

    void run(const fuzz::WindowInput &input);

private:
    struct Deed
    {
        void (Subject::*act)(int with);
    };
    static const Deed deeds[];

    void begin(const fuzz::WindowInput &input);
    void load(const fuzz::WindowInput &input);
    void speak(bool russian);
    void check() const;
    void paint();

    void selectTrace(int with);
    void makeMaster(int with);
    void toggleVisibility(int with);
    void clearTrace(int with);
    void resetTrace(int with);
    void loadOne(int with);
    void difference(int with);
    void smooth(int with);
    void zoom(int with);
    void zoomTo(int with);
    void scroll(int with);
    void chooseCursor(int with);
    void dragCursor(int with);
    void pan(int with);
    void wheel(int with);
    void chooseParameter(int with);
    void turnParameter(int with);
    void turnCursor(int with);
    void switchLanguage(int with);
    void resetAll(int with);

    std::unique_ptr<MainWindow> m_window;
    MainWindowProbe m_probe;
    fuzz::TraceFolder m_folder;
    bool m_sweeps = false;
};

const Subject::Deed Subject::deeds[] = {
    { &Subject::selectTrace },     { &Subject::makeMaster },    { &Subject::toggleVisibility },
    { &Subject::clearTrace },      { &Subject::resetTrace },    { &Subject::loadOne },
    { &Subject::difference },      { &Subject::smooth },        { &Subject::zoom },
    { &Subject::zoomTo },          { &Subject::scroll },        { &Subject::chooseCursor },
    { &Subject::dragCursor },      { &Subject::pan },           { &Subject::wheel },
    { &Subject::chooseParameter }, { &Subject::turnParameter }, { &Subject::turnCursor },
    { &Subject::switchLanguage },  { &Subject::resetAll },
};

// As the menu would, which offers no more than it may.
void choose(QAction *action)
{
    if (action->isEnabled())
        action->trigger();
}

void Subject::check() const
{
    fuzz::checkWindow(m_probe);
}

void Subject::paint()
{
    m_probe.Plot_View()->viewport()->repaint();
}

void Subject::run(const fuzz::WindowInput &input)
{
    m_sweeps = input.sweeps;
    begin(input);
    load(input);
    check();
    paint();
    for (const fuzz::Step &step : input.steps) {
        // Half of the kinds do nothing: few steps well mixed find more in an hour than many.
        if (step.kind >= 128)
            continue;
        (this->*deeds[step.kind % std::size(deeds)].act)(step.with);
        check();
    }
    fuzz::settle();
}

// The window as it was, so that an input does the same whatever came before it. Six good records
// lie in the slots, put there by hand: loaded, they would take as long as those of the input.
void Subject::begin(const fuzz::WindowInput &input)
{
    m_probe.rfg_read_index() = 0;
    for (rfg_SHOWN &trace : m_probe.rfg_DATA()) {
        calc::fillRecord(reinterpret_cast<const char *>(fuzz::goodHead()), fuzz::headBytes,
                         trace.f_p_840);
        trace.scroll = 0;
        trace.offset = 0;
    }
    m_probe.master_params() = {};
    m_probe.zoom_wheel_flag() = false;
    m_probe.cursor_A_pos() = 0;
    m_probe.cursor_B_pos() = 0;
    // No slot is loaded, so that neither draws.
    m_probe.difference_button()->setChecked(false);
    m_probe.smooth_button()->setChecked(false);
    m_probe.H_offset_button()->setChecked(true);
    m_probe.curA_button()->setChecked(true);
    m_probe.scale_up_button()->setEnabled(true);
    m_probe.scale_down_button()->setEnabled(true);
    speak(input.russian);
}

void Subject::load(const fuzz::WindowInput &input)
{
    m_folder.fill(input.heads, input.shortFiles);
    SettingsData &settings = *m_window->settings();
    settings.read_index = 0;
    for (int slot = 0; slot < input.heads.size(); ++slot) {
        settings.current_files[slot] = m_folder.file(slot);
        if (!checkbit(input.sparse, slot))
            settings.read_index = setbit(settings.read_index, slot);
    }
    settings.master_ID = static_cast<signed char>(input.master);
    settings.updateSettings(1); // the open files alone
}

void Subject::speak(bool russian)
{
    SettingsData &settings = *m_window->settings();
    const QString code = russian ? QStringLiteral("ru_RU") : QStringLiteral("en_US");
    if (settings.current_language == code)
        return;
    settings.current_language = code;
    settings.setTranslation();
}

void Subject::selectTrace(int with)
{
    hand::click(m_probe.rfg_buttons()->button(with % constants::slotCount));
}

void Subject::makeMaster(int with)
{
    choose(m_probe.selected_rfg()[with % constants::slotCount]->master_action);
}

void Subject::toggleVisibility(int with)
{
    choose(m_probe.selected_rfg()[with % constants::slotCount]->visible_action);
}

void Subject::clearTrace(int with)
{
    choose(m_probe.selected_rfg()[with % constants::slotCount]->clear_action);
}

void Subject::resetTrace(int with)
{
    choose(m_probe.selected_rfg()[with % constants::slotCount]->reset_action);
}

void Subject::loadOne(int with)
{
    m_window->add_Selected_RFG(m_folder.file(with / constants::slotCount),
                               with % constants::slotCount);
    paint();
}

void Subject::difference(int)
{
    hand::click(m_probe.difference_button());
    paint();
}

void Subject::smooth(int)
{
    hand::click(m_probe.smooth_button());
    paint();
}

void Subject::zoom(int with)
{
    hand::click(with % 2 == 0 ? m_probe.scale_up_button() : m_probe.scale_down_button());
}

void Subject::zoomTo(int with)
{
    m_window->scale_change(with % 9);
    paint();
    // Through all nine takes as long as three loads, so few of those that want it get it.
    if (with < 240 || !m_sweeps)
        return;
    for (int exponent = constants::minScale; exponent <= constants::maxScale; ++exponent) {
        m_window->scale_change(exponent);
        check();
    }
}

void Subject::scroll(int with)
{
    QPushButton *button
        = with % 2 == 0 ? m_probe.scroll_right_button() : m_probe.scroll_left_button();
    for (int i = 0; i <= with / 64; ++i)
        hand::click(button);
}

void Subject::chooseCursor(int with)
{
    hand::click(with % 2 == 0 ? m_probe.curA_button() : m_probe.curB_button());
}

void Subject::dragCursor(int with)
{
    QWidget *plot = m_probe.Plot_View()->viewport();
    const QPoint from(plot->width() * (with % 16) / 15, plot->height() / 2);
    const QPoint to(plot->width() * (with / 16) / 15, plot->height() / 3);
    hand::drag(plot, from, to, Qt::LeftButton, 5);
    paint();
}

void Subject::pan(int with)
{
    QWidget *plot = m_probe.Plot_View()->viewport();
    const QPoint middle = plot->rect().center();
    hand::drag(plot, middle, middle + QPoint(with - 128, 0), Qt::MiddleButton, 2);
    paint();
}

void Subject::wheel(int with)
{
    m_probe.zoom_wheel_flag() = with >= 128;
    hand::turnWheel(m_probe.Plot_View()->viewport(), with % 16 - 8);
}

void Subject::chooseParameter(int with)
{
    QAbstractButton *const buttons[] = { m_probe.KU_button(), m_probe.V_offset_button(),
                                         m_probe.H_offset_button(), m_probe.scale_button() };
    hand::click(buttons[with % 4]);
}

void Subject::turnParameter(int with)
{
    hand::turnDial(m_probe.param_dial(), 90, 3.0 * (with - 128), 3);
}

void Subject::turnCursor(int with)
{
    hand::turnDial(m_probe.cursor_dial(), 90, 3.0 * (with - 128), 3);
    hand::turnWheel(m_probe.cursor_dial(), with % 16 - 8);
}

void Subject::switchLanguage(int)
{
    speak(m_window->settings()->current_language == QLatin1String("en_US"));
}

void Subject::resetAll(int)
{
    hand::click(m_probe.reset_all_button());
}

Subject *subject = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzz::silenceLog();
    fuzz::runOffscreen();
    // Neither is ever deleted: a fuzzer ends wherever it is, and the toolkit is gone by then.
    new QApplication(*argc, *argv);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t limit, unsigned seed)
{
    return fuzz::mutateRecords(data, size, limit, fuzz::windowPreamble, fuzz::windowRecords, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // A window lasts for fifty inputs: making one takes as long as two of them. Each begins with
    // the window set back, so that it does the same alone as after others.
    constexpr int inputsPerWindow = 50;
    static int inputs = 0;
    if (inputs++ % inputsPerWindow == 0) {
        delete subject;
        subject = new Subject;
    }
    subject->run(fuzz::WindowInput(data, size));
    return 0;
}
