// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <cstddef>

/// \file
/// The record that the instrument writes as a .tdr file: 37775 bytes, packed, little-endian, with
/// no header, magic number or version. A file is read into these structures without conversion, so
/// the declarations below are the format; the assertions at the end check every offset.
///
/// The viewer reads few of the fields. They are packed: copy one before binding it to a reference.

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the record in memory is the file image");

namespace Protocol_VX840 {

/// IEEE-754 single precision, as the instrument stores it.
using float32_t = float;
static_assert(sizeof(float32_t) == 4, "a stored float has 32 bits");

/// Operating mode of the measuring channel.
enum CH_MODE_t : quint32 {
    CH_OFF = 0,
    CH_ON = 1,
    CH_TDR = 2,
    CH_ARM = 3,
    CH_WAVE = 4,
    CH_MODE_PACK = 0xFFFFFFFF ///< never stored; makes the enum 32 bits wide
};

/// Result of the instrument's own test.
enum CH_STATUS_t : quint32 {
    CH_FAILED = 0,
    CH_PASSED = 1,
    CH_SKIPPED = 2,
    CH_SKIPPED_VOLT = 3,
    CH_FAILED_BREAK = 4,
    CH_PACK = 0xFFFFFFFF ///< never stored; makes the enum 32 bits wide
};

constexpr int fileSamples = 32000; ///< sample bytes in a record; the viewer draws the first 250
constexpr int cursorCount = 3; ///< instrument cursors in a channel record
constexpr int markCount = 32; ///< cable marks in a record

#pragma pack(push, 1)

/// Instrument that wrote the record.
struct DEV_NAME_t
{
    quint16 type;
    quint16 len_samples; ///< samples recorded; the viewer always draws 250
    quint8 bytes_in_sample; ///< ignored: a sample is read as one signed byte
    quint32 sn; ///< serial number
};

/// Versions of the instrument's parts.
struct DEV_VER_t
{
    quint32 altera_version; ///< programmable logic
    quint32 proc_version; ///< processor firmware
};

/// Acquisition parameters of the trace.
struct CH_PARAMS_t
{
    quint8 calibrate;
    quint16 sample_selection;
    float32_t
        sample_minstep; ///< time between samples in ns; divided by 1.25 it is the step in counts
    quint32 delay; ///< index of the first stored sample on the horizontal axis
    float32_t scale;
    quint32 pulse_width; ///< ns
    quint16 pulse_amplitude; ///< V
    quint16 average; ///< number of averages
    quint16 gain;
    quint16 impedance;
    float32_t KU; ///< shortening factor: the speed of light divided by the speed in the cable
    quint32 shiftX; ///< horizontal shift in samples; a negative one is stored in two's complement
    qint16 shiftY; ///< vertical shift in sample steps
    quint8 diff_mode;
    quint8 LF_filter_level;
    qint16 wave_threshold;
    float32_t arm_sync_timeout;
    quint8 arm_trig;
    quint8 mim_num;
    quint32 att_comp_origin;
    quint32 gain_comp_origin;
    quint16 gain_calibr;
    quint32 interval_left;
    quint32 interval_right;
    float32_t curve_Zo;
    float32_t curve_beta;
    quint8 reserve[64];
};

/// Time of the measurement. Hours, minutes and seconds are packed BCD: 0x59 is 59.
struct RTC_TimeTypeDef
{
    quint8 RTC_Hours;
    quint8 RTC_Minutes;
    quint8 RTC_Seconds;
    quint8 RTC_H12; ///< not BCD, not interpreted
};

/// Date of the measurement. Month, day and year are packed BCD; the year counts from 2000.
struct RTC_DateTypeDef
{
    quint8 RTC_WeekDay; ///< not interpreted
    quint8 RTC_Month;
    quint8 RTC_Date; ///< day of the month
    quint8 RTC_Year;
};

/// A cursor of the instrument.
struct CURSOR_t
{
    quint8 state;
    quint16 position_pixel;
    double position_ns;
    quint8 bm_state_active[8]; ///< a bitmap handle of the instrument, opaque on disk
    quint8 bm_state_passive[8]; ///< a bitmap handle of the instrument, opaque on disk
};

/// The measuring channel: parameters, date and result of the measurement.
struct CH_t
{
    quint8 id; ///< channel number
    CH_MODE_t mode;
    CH_PARAMS_t params;
    CH_STATUS_t status;
    float32_t vext; ///< external voltage
    quint32 fault_distance;
    RTC_TimeTypeDef test_time;
    RTC_DateTypeDef test_date;
    quint8 id_cursor; ///< the instrument's active cursor
    CURSOR_t cursor[cursorCount];
};

/// A position along the cable that the instrument's user marked.
struct CABLE_MARK_t
{
    quint8 id;
    quint32 distance_smpl; ///< position in samples
    float32_t KU_left; ///< shortening factor to the left of the mark
    char note[64];
};

/// Other measurements of the same cable.
struct EXT_PARAMS_t
{
    float32_t insulation_resistance;
    float32_t loop_resistance;
    float32_t capacity;
    float32_t breakdown_voltage;
    float32_t measured_cable_length;
    float32_t real_cable_length;
    char note[1024];
    quint8 reserve[64];
};

/// Location of the cable.
struct EXT_SITE_t
{
    quint32 id_site;
    quint32 id_nodeA;
    quint32 id_nodeB;
    quint32 id_cable;
    quint8 id_pair;
    quint8 reserve[2048];
};

/// A whole .tdr file.
struct TDR_FILE_t
{
    DEV_NAME_t name;
    DEV_VER_t ver;
    CH_t ch;
    qint8 samples[fileSamples];
    CABLE_MARK_t mark[markCount];
    EXT_PARAMS_t ext_params;
    EXT_SITE_t ext_nodes;
    quint8 crc; ///< neither computed nor checked
};

#pragma pack(pop)

static_assert(sizeof(CH_MODE_t) == 4);
static_assert(sizeof(CH_STATUS_t) == 4);

static_assert(sizeof(DEV_NAME_t) == 9);
static_assert(offsetof(DEV_NAME_t, type) == 0);
static_assert(offsetof(DEV_NAME_t, len_samples) == 2);
static_assert(offsetof(DEV_NAME_t, bytes_in_sample) == 4);
static_assert(offsetof(DEV_NAME_t, sn) == 5);

static_assert(sizeof(DEV_VER_t) == 8);
static_assert(offsetof(DEV_VER_t, altera_version) == 0);
static_assert(offsetof(DEV_VER_t, proc_version) == 4);

static_assert(sizeof(CH_PARAMS_t) == 137);
static_assert(offsetof(CH_PARAMS_t, calibrate) == 0);
static_assert(offsetof(CH_PARAMS_t, sample_selection) == 1);
static_assert(offsetof(CH_PARAMS_t, sample_minstep) == 3);
static_assert(offsetof(CH_PARAMS_t, delay) == 7);
static_assert(offsetof(CH_PARAMS_t, scale) == 11);
static_assert(offsetof(CH_PARAMS_t, pulse_width) == 15);
static_assert(offsetof(CH_PARAMS_t, pulse_amplitude) == 19);
static_assert(offsetof(CH_PARAMS_t, average) == 21);
static_assert(offsetof(CH_PARAMS_t, gain) == 23);
static_assert(offsetof(CH_PARAMS_t, impedance) == 25);
static_assert(offsetof(CH_PARAMS_t, KU) == 27);
static_assert(offsetof(CH_PARAMS_t, shiftX) == 31);
static_assert(offsetof(CH_PARAMS_t, shiftY) == 35);
static_assert(offsetof(CH_PARAMS_t, diff_mode) == 37);
static_assert(offsetof(CH_PARAMS_t, LF_filter_level) == 38);
static_assert(offsetof(CH_PARAMS_t, wave_threshold) == 39);
static_assert(offsetof(CH_PARAMS_t, arm_sync_timeout) == 41);
static_assert(offsetof(CH_PARAMS_t, arm_trig) == 45);
static_assert(offsetof(CH_PARAMS_t, mim_num) == 46);
static_assert(offsetof(CH_PARAMS_t, att_comp_origin) == 47);
static_assert(offsetof(CH_PARAMS_t, gain_comp_origin) == 51);
static_assert(offsetof(CH_PARAMS_t, gain_calibr) == 55);
static_assert(offsetof(CH_PARAMS_t, interval_left) == 57);
static_assert(offsetof(CH_PARAMS_t, interval_right) == 61);
static_assert(offsetof(CH_PARAMS_t, curve_Zo) == 65);
static_assert(offsetof(CH_PARAMS_t, curve_beta) == 69);
static_assert(offsetof(CH_PARAMS_t, reserve) == 73);

static_assert(sizeof(RTC_TimeTypeDef) == 4);
static_assert(offsetof(RTC_TimeTypeDef, RTC_Hours) == 0);
static_assert(offsetof(RTC_TimeTypeDef, RTC_Minutes) == 1);
static_assert(offsetof(RTC_TimeTypeDef, RTC_Seconds) == 2);
static_assert(offsetof(RTC_TimeTypeDef, RTC_H12) == 3);

static_assert(sizeof(RTC_DateTypeDef) == 4);
static_assert(offsetof(RTC_DateTypeDef, RTC_WeekDay) == 0);
static_assert(offsetof(RTC_DateTypeDef, RTC_Month) == 1);
static_assert(offsetof(RTC_DateTypeDef, RTC_Date) == 2);
static_assert(offsetof(RTC_DateTypeDef, RTC_Year) == 3);

static_assert(sizeof(double) == 8);
static_assert(sizeof(CURSOR_t) == 27);
static_assert(offsetof(CURSOR_t, state) == 0);
static_assert(offsetof(CURSOR_t, position_pixel) == 1);
static_assert(offsetof(CURSOR_t, position_ns) == 3);
static_assert(offsetof(CURSOR_t, bm_state_active) == 11);
static_assert(offsetof(CURSOR_t, bm_state_passive) == 19);

// Offsets of the channel's fields in the file; the channel starts at 17.
static_assert(sizeof(CH_t) == 244);
static_assert(17 + offsetof(CH_t, id) == 17);
static_assert(17 + offsetof(CH_t, mode) == 18);
static_assert(17 + offsetof(CH_t, params) == 22);
static_assert(17 + offsetof(CH_t, status) == 159);
static_assert(17 + offsetof(CH_t, vext) == 163);
static_assert(17 + offsetof(CH_t, fault_distance) == 167);
static_assert(17 + offsetof(CH_t, test_time) == 171);
static_assert(17 + offsetof(CH_t, test_date) == 175);
static_assert(17 + offsetof(CH_t, id_cursor) == 179);
static_assert(17 + offsetof(CH_t, cursor) == 180);

static_assert(sizeof(CABLE_MARK_t) == 73);
static_assert(offsetof(CABLE_MARK_t, id) == 0);
static_assert(offsetof(CABLE_MARK_t, distance_smpl) == 1);
static_assert(offsetof(CABLE_MARK_t, KU_left) == 5);
static_assert(offsetof(CABLE_MARK_t, note) == 9);

static_assert(sizeof(EXT_PARAMS_t) == 1112);
static_assert(offsetof(EXT_PARAMS_t, insulation_resistance) == 0);
static_assert(offsetof(EXT_PARAMS_t, loop_resistance) == 4);
static_assert(offsetof(EXT_PARAMS_t, capacity) == 8);
static_assert(offsetof(EXT_PARAMS_t, breakdown_voltage) == 12);
static_assert(offsetof(EXT_PARAMS_t, measured_cable_length) == 16);
static_assert(offsetof(EXT_PARAMS_t, real_cable_length) == 20);
static_assert(offsetof(EXT_PARAMS_t, note) == 24);
static_assert(offsetof(EXT_PARAMS_t, reserve) == 1048);

static_assert(sizeof(EXT_SITE_t) == 2065);
static_assert(offsetof(EXT_SITE_t, id_site) == 0);
static_assert(offsetof(EXT_SITE_t, id_nodeA) == 4);
static_assert(offsetof(EXT_SITE_t, id_nodeB) == 8);
static_assert(offsetof(EXT_SITE_t, id_cable) == 12);
static_assert(offsetof(EXT_SITE_t, id_pair) == 16);
static_assert(offsetof(EXT_SITE_t, reserve) == 17);

static_assert(sizeof(TDR_FILE_t) == 37775);
static_assert(offsetof(TDR_FILE_t, name) == 0);
static_assert(offsetof(TDR_FILE_t, ver) == 9);
static_assert(offsetof(TDR_FILE_t, ch) == 17);
static_assert(offsetof(TDR_FILE_t, samples) == 261);
static_assert(offsetof(TDR_FILE_t, mark) == 32261);
static_assert(offsetof(TDR_FILE_t, ext_params) == 34597);
static_assert(offsetof(TDR_FILE_t, ext_nodes) == 35709);
static_assert(offsetof(TDR_FILE_t, crc) == 37774);

} // namespace Protocol_VX840
