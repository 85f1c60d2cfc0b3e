// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "bytereader.h"
#include "calc/tdr_record.h"
#include "fuzzer.h"
#include "invariants.h"
#include "player.h"
#include "record_input.h"
#include "settingsdata.h"

#include <QApplication>
#include <QTemporaryDir>

#include <memory>

/// \file
/// One to six records, loaded into an offscreen window as from the settings of a previous run, and
/// some events of the simulated user. The invariants must hold after each.

namespace {

using fuzz::headBytes;
using Protocol_VX840::TDR_FILE_t;

constexpr int eventCount = 6;
constexpr std::size_t bytesPerEvent = 6;
constexpr std::size_t preambleBytes = 3 + eventCount * bytesPerEvent;
constexpr int slotCount = constants::slotCount;

/// The kinds of events that take no longer than a repaint. The monkey plays the others.
constexpr Event::Kind kinds[]
    = { Event::Button,     Event::SlotAction,  Event::Drag,      Event::Button,
        Event::SlotAction, Event::WheelOnPlot, Event::TurnDial,  Event::Drop,
        Event::Button,     Event::DialKey,     Event::ChartMenu, Event::Language };

/// The bytes of an input.
struct WindowInput
{
    WindowInput(const std::uint8_t *data, std::size_t size)
    {
        ByteReader reader(data, size);
        shortFiles = (reader.byte() & 1) != 0;
        emptySlots = reader.byte();
        master = reader.number<qint8>();
        for (int i = 0; i < eventCount; ++i) {
            // Half of the kinds do nothing: short scripts find more in an hour than long ones.
            const std::uint8_t kind = reader.byte();
            Event event;
            event.kind = kind < 128 ? pick(kinds, kind) : Event::KindCount;
            for (int &number : event.numbers)
                number = reader.byte() * Event::bound / 256;
            event.answer = reader.byte();
            if (event.kind != Event::KindCount)
                script.append(event);
        }
        do {
            heads.append(reader.take(headBytes));
        } while (reader.left() > 0 && heads.size() < slotCount);
    }

    bool shortFiles = false; ///< the files end with the last byte that is interpreted
    int emptySlots = 0; ///< bit set of the slots that stay empty although they have a file
    qint8 master = 0; ///< as in the settings, -128..127
    Script script;
    QVector<QByteArray> heads;
};

class Subject
{
public:
    void run(const WindowInput &input)
    {
        begin();
        load(input);
        check();
        WindowFixture::settle();
        for (const Event &event : input.script) {
            m_player.play(event);
            check();
        }
        WindowFixture::settle();
    }

private:
    void begin();
    void load(const WindowInput &input);

    void check() const
    {
        const QStringList broken = brokenInvariants(m_player.window());
        if (!broken.isEmpty())
            fuzz::fail(qPrintable(broken.first()));
    }

    Player m_player;
    QTemporaryDir m_folder{ fuzz::folderTemplate() };
};

// Resets the window, so an input has the same effect alone and after others. The slots get valid
// records directly: loading them would take as long as the input itself.
void Subject::begin()
{
    m_player.reset();
    m_player.window().KU_change(double{ constants::startKU });
    const MainWindowProbe &probe = m_player.probe();
    probe.cursor_A_pos() = 0;
    probe.cursor_B_pos() = 0;
    for (rfg_SHOWN &trace : probe.rfg_DATA()) {
        calc::fillRecord(reinterpret_cast<const char *>(fuzz::goodHead()), headBytes,
                         trace.f_p_840);
        trace.scroll = 0;
        trace.offset = 0;
    }
}

void Subject::load(const WindowInput &input)
{
    SettingsData &settings = *m_player.window().settings();
    settings.read_index = 0;
    QStringList paths;
    for (int slot = 0; slot < input.heads.size(); ++slot) {
        QByteArray bytes = input.heads[slot];
        // A truncated head stays truncated.
        if (!input.shortFiles && bytes.size() == static_cast<int>(headBytes))
            bytes.append(QByteArray(static_cast<int>(sizeof(TDR_FILE_t) - headBytes), 0));
        paths.append(m_folder.filePath(QStringLiteral("%1.tdr").arg(slot)));
        fuzz::writeFile(paths[slot], bytes);
        settings.current_files[slot] = paths[slot];
        if (!checkbit(input.emptySlots, slot))
            settings.read_index = setbit(settings.read_index, slot);
    }
    settings.master_ID = input.master;
    settings.updateSettings(1); // only the section of the open files
    m_player.chooseFrom(paths);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzz::silenceLog();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never deleted: a fuzzer may exit anywhere, after the destruction of Qt's globals.
    new QApplication(*argc, *argv);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t limit, unsigned seed)
{
    return fuzz::mutateRecords(data, size, limit, preambleBytes, slotCount, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Creating a window takes as long as two inputs, so fifty inputs share a window.
    constexpr int inputsPerWindow = 50;
    static std::unique_ptr<Subject> *subject = new std::unique_ptr<Subject>;
    static int inputs = 0;
    if (inputs++ % inputsPerWindow == 0) {
        subject->reset();
        *subject = std::make_unique<Subject>();
    }
    (*subject)->run(WindowInput(data, size));
    return 0;
}
