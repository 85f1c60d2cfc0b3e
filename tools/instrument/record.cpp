// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "record.h"

#include "base/constants.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

namespace instrument {
namespace {

using namespace Protocol_VX840;

constexpr quint16 deviceType = 840;
constexpr quint32 serialNumber = 2600117;
constexpr quint32 logicVersion = 0x00010204; ///< 1.2.4
constexpr quint32 firmwareVersion = 0x00030105; ///< 3.1.5
constexpr double centimetresPerMetre = 100.0;

/// \a value rounded and clamped to the range of quint32; NaN gives 0.
quint32 toUnsigned(double value)
{
    if (!(value > 0.0))
        return 0;
    constexpr double highest = std::numeric_limits<quint32>::max();
    return static_cast<quint32>(std::min(std::round(value), highest));
}

/// Echo time in ns of \a distance metres by the operator's KU.
double echoTimeOf(double distance, const Settings &settings)
{
    const double counts = distance * static_cast<double>(settings.ku) / constants::distCoef0;
    return counts * constants::nsPerCount;
}

/// \a value, clamped to 0..99, as packed BCD.
quint8 toBcd(int value)
{
    const int held = std::clamp(value, 0, 99);
    return static_cast<quint8>(held / 10 * 16 + held % 10);
}

/// Copies \a text to \a field, truncated so that at least the last byte stays 0.
template <std::size_t size> void writeText(char (&field)[size], const QByteArray &text)
{
    std::memcpy(field, text.constData(), std::min(static_cast<std::size_t>(text.size()), size - 1));
}

void writeParameters(CH_PARAMS_t &params, const Settings &settings, const Survey &survey)
{
    const double metres = constants::drawnSamples * static_cast<double>(settings.sampleStep)
        / constants::nsPerCount * constants::distCoef0 / static_cast<double>(settings.ku);
    params.calibrate = 1;
    params.sample_minstep = settings.sampleStep;
    params.delay = std::min(settings.delay, maxDelay);
    params.scale = static_cast<float>(metres);
    params.pulse_width = settings.pulseWidth;
    params.pulse_amplitude = settings.pulseAmplitude;
    params.average = settings.average;
    params.gain = settings.gain;
    params.impedance = settings.impedance;
    params.KU = settings.ku;
    params.shiftX = static_cast<quint32>(survey.shiftX);
    params.shiftY = survey.shiftY;
    params.interval_right = constants::lastSample;
    params.curve_Zo = settings.impedance;
}

void writeDate(CH_t &channel, const QDateTime &time)
{
    const QTime clock = time.time();
    channel.test_time.RTC_Hours = toBcd(clock.hour());
    channel.test_time.RTC_Minutes = toBcd(clock.minute());
    channel.test_time.RTC_Seconds = toBcd(clock.second());
    const QDate date = time.date();
    channel.test_date.RTC_WeekDay = static_cast<quint8>(date.dayOfWeek());
    channel.test_date.RTC_Month = toBcd(date.month());
    channel.test_date.RTC_Date = toBcd(date.day());
    channel.test_date.RTC_Year = toBcd(date.year() - constants::centuryStart);
}

/// The instrument's own cursors: the first at the terminals, the second at the fault or the end,
/// the third unused.
void writeCursors(CH_t &channel, const Settings &settings, const Survey &survey)
{
    const double place = survey.faultDistance > 0.0 ? survey.faultDistance : survey.cableLength;
    channel.id_cursor = 1;
    channel.cursor[0].state = 1;
    channel.cursor[1].state = 1;
    channel.cursor[1].position_ns = echoTimeOf(place, settings);
    const double pixel = echoTimeOf(place, settings) / static_cast<double>(settings.sampleStep);
    channel.cursor[1].position_pixel
        = static_cast<quint16>(std::min(toUnsigned(pixel), quint32(constants::lastSample)));
}

void writeMarks(TDR_FILE_t &record, const Settings &settings, const Survey &survey)
{
    const std::size_t count = std::min<std::size_t>(survey.marks.size(), markCount);
    for (std::size_t i = 0; i < count; ++i) {
        const Mark &mark = survey.marks[i];
        CABLE_MARK_t &target = record.mark[i];
        target.id = static_cast<quint8>(i + 1);
        target.distance_smpl = toUnsigned(echoTimeOf(mark.distance, settings)
                                          / static_cast<double>(settings.sampleStep));
        target.KU_left = settings.ku;
        writeText(target.note, mark.note);
    }
}

} // namespace

TDR_FILE_t makeRecord(const Trace &trace, const Settings &settings, const Survey &survey)
{
    TDR_FILE_t record = {};
    const std::size_t count = std::min<std::size_t>(trace.samples.size(), fileSamples);
    record.name.type = deviceType;
    record.name.len_samples = static_cast<quint16>(count);
    record.name.bytes_in_sample = sizeof(record.samples[0]);
    record.name.sn = serialNumber;
    record.ver.altera_version = logicVersion;
    record.ver.proc_version = firmwareVersion;

    record.ch.id = 1;
    record.ch.mode = CH_TDR;
    writeParameters(record.ch.params, settings, survey);
    record.ch.status = survey.status;
    record.ch.fault_distance = toUnsigned(survey.faultDistance * centimetresPerMetre);
    writeDate(record.ch, survey.time);
    writeCursors(record.ch, settings, survey);
    std::copy_n(trace.samples.begin(), count, record.samples);
    writeMarks(record, settings, survey);

    record.ext_params.insulation_resistance = static_cast<float>(survey.insulationResistance);
    record.ext_params.loop_resistance = static_cast<float>(survey.loopResistance);
    record.ext_params.capacity = static_cast<float>(survey.capacity);
    record.ext_params.measured_cable_length = static_cast<float>(survey.cableLength);
    record.ext_params.real_cable_length = static_cast<float>(survey.cableLength);
    writeText(record.ext_params.note, survey.note);
    record.ext_nodes.id_site = 1;
    record.ext_nodes.id_nodeA = 1;
    record.ext_nodes.id_nodeB = 2;
    record.ext_nodes.id_cable = survey.cable;
    record.ext_nodes.id_pair = survey.pair;
    record.crc = checkByte(record);
    return record;
}

quint8 checkByte(const TDR_FILE_t &record)
{
    static_assert(std::is_trivially_copyable_v<TDR_FILE_t>, "the record is its bytes");
    const auto *bytes = reinterpret_cast<const quint8 *>(&record);
    unsigned int sum = 0;
    for (std::size_t i = 0; i < offsetof(TDR_FILE_t, crc); ++i)
        sum += bytes[i];
    return static_cast<quint8>(0U - sum);
}

QByteArray fileBytes(const TDR_FILE_t &record)
{
    return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
}

} // namespace instrument
