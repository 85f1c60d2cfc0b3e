// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/fields.h"

#include "calc/tdr_record.h"
#include "calc/view_range.h"
#include "tdr/record.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tdr {

namespace {

using namespace Protocol_VX840;

constexpr int floatDigits = 7; ///< significant digits that a float holds
constexpr double distanceUnits = 10000.0; ///< in a metre; distances are rounded to 0.1 mm

// ---- Values ----

/// \a value rounded to the seven digits of a float: 18.3, not 18.299999237060547.
double decimal(float value)
{
    return QString::number(double{ value }, 'g', floatDigits).toDouble();
}

double metres(double value)
{
    return std::round(value * distanceUnits) / distanceUnits;
}

/// A text of the record up to its first zero byte. The instrument's encoding is not known: valid
/// UTF-8 is taken as it is; unprintable characters and the bytes of other encodings become escapes.
template <std::size_t size> QJsonValue text(const char (&field)[size])
{
    const QByteArray bytes(field, static_cast<int>(qstrnlen(field, size)));
    const QString decoded = QString::fromUtf8(bytes);
    const bool isUtf8 = decoded.toUtf8() == bytes;
    const QString letters = isUtf8 ? decoded : QString::fromLatin1(bytes);
    QString shown;
    for (const QChar letter : letters) {
        if ((letter.isPrint() || letter.isSurrogate()) && (isUtf8 || letter.unicode() < 0x80))
            shown += letter;
        else
            shown += QStringLiteral("\\x%1").arg(letter.unicode(), 2, 16, QLatin1Char('0'));
    }
    return shown;
}

/// The name at index \a value of \a names, or the digits of \a value when there is none.
template <std::size_t size> QJsonValue choice(quint32 value, const char *const (&names)[size])
{
    return value < size ? QString::fromLatin1(names[value]) : QString::number(value);
}

class Fields
{
public:
    Fields &add(const char *name, const QJsonValue &value, const char *unit = "")
    {
        m_fields.append({ QString::fromLatin1(name), value, QString::fromLatin1(unit) });
        return *this;
    }
    Fields &add(const char *name, double value, const char *unit = "")
    {
        return add(name, std::isfinite(value) ? QJsonValue(value) : QJsonValue(), unit);
    }
    Section section(const char *name) const
    {
        return { QString::fromLatin1(name), false, { m_fields } };
    }
    operator QVector<Field>() const
    {
        return m_fields;
    }

private:
    QVector<Field> m_fields;
};

// ---- Sections ----

Section instrument(const TDR_FILE_t &record)
{
    return Fields()
        .add("type", record.name.type)
        .add("sn", record.name.sn)
        .add("len_samples", record.name.len_samples)
        .add("bytes_in_sample", record.name.bytes_in_sample)
        .add("altera_version", record.ver.altera_version)
        .add("proc_version", record.ver.proc_version)
        .section("instrument");
}

Section test(const TDR_FILE_t &record)
{
    static const char *const modes[] = { "off", "on", "TDR", "ARM", "wave" };
    static const char *const results[]
        = { "failed", "passed", "skipped", "skipped for voltage", "failed by a break" };
    const auto iso = [](const auto &value) {
        return value.isValid() ? QJsonValue(value.toString(Qt::ISODate)) : QJsonValue();
    };
    return Fields()
        .add("date", iso(calc::measurementDate(record)))
        .add("time", iso(calc::measurementTime(record)))
        .add("id", record.ch.id)
        .add("mode", choice(record.ch.mode, modes))
        .add("status", choice(record.ch.status, results))
        .add("vext", decimal(record.ch.vext))
        .add("fault_distance", record.ch.fault_distance)
        .add("id_cursor", record.ch.id_cursor)
        .section("test");
}

Section parameters(const TDR_FILE_t &record)
{
    const CH_PARAMS_t params = record.ch.params;
    return Fields()
        .add("sample_minstep", decimal(params.sample_minstep), "ns")
        .add("delay", params.delay, "samples")
        .add("pulse_width", params.pulse_width, "ns")
        .add("pulse_amplitude", params.pulse_amplitude, "V")
        .add("average", params.average)
        .add("gain", params.gain)
        .add("impedance", params.impedance)
        .add("KU", decimal(params.KU))
        .add("shiftX", static_cast<qint32>(params.shiftX), "samples")
        .add("shiftY", params.shiftY, "levels")
        .section("parameters");
}

Section cursors(const TDR_FILE_t &record)
{
    Section section{ QStringLiteral("cursors"), true, {} };
    for (int i = 0; i < cursorCount; ++i) {
        const CURSOR_t cursor = record.ch.cursor[i];
        section.entries.append(Fields()
                                   .add("state", cursor.state)
                                   .add("position_pixel", cursor.position_pixel)
                                   .add("position", cursor.position_ns, "ns"));
    }
    return section;
}

/// The marks that are not all zeros.
Section marks(const TDR_FILE_t &record)
{
    Section section{ QStringLiteral("marks"), true, {} };
    const auto isSet = [](const CABLE_MARK_t &mark) {
        const auto *bytes = reinterpret_cast<const char *>(&mark);
        return std::any_of(bytes, bytes + sizeof mark, [](char byte) { return byte != 0; });
    };
    for (const CABLE_MARK_t &mark : record.mark)
        if (isSet(mark))
            section.entries.append(Fields()
                                       .add("id", mark.id)
                                       .add("distance", mark.distance_smpl, "samples")
                                       .add("KU_left", decimal(mark.KU_left))
                                       .add("note", text(mark.note)));
    return section;
}

Section cable(const TDR_FILE_t &record)
{
    const EXT_PARAMS_t &params = record.ext_params;
    const EXT_SITE_t &site = record.ext_nodes;
    return Fields()
        .add("note", text(params.note))
        .add("insulation_resistance", decimal(params.insulation_resistance))
        .add("loop_resistance", decimal(params.loop_resistance))
        .add("capacity", decimal(params.capacity))
        .add("breakdown_voltage", decimal(params.breakdown_voltage))
        .add("measured_cable_length", decimal(params.measured_cable_length))
        .add("real_cable_length", decimal(params.real_cable_length))
        .add("id_site", site.id_site)
        .add("id_nodeA", site.id_nodeA)
        .add("id_nodeB", site.id_nodeB)
        .add("id_cable", site.id_cable)
        .add("id_pair", site.id_pair)
        .section("cable");
}

/// The samples that are drawn.
Section samples(const TDR_FILE_t &record)
{
    const qint8 *first = record.samples;
    const qint8 *last = first + constants::drawnSamples;
    double sum = 0.0;
    double squares = 0.0;
    for (const qint8 *level = first; level != last; ++level) {
        sum += *level;
        squares += *level * *level;
    }
    const double mean = sum / constants::drawnSamples;
    const double variance = squares / constants::drawnSamples - mean * mean;
    return Fields()
        .add("drawn", constants::drawnSamples)
        .add("lowest", *std::min_element(first, last), "levels")
        .add("highest", *std::max_element(first, last), "levels")
        .add("mean", mean, "levels")
        .add("deviation", std::sqrt(std::max(0.0, variance)), "levels")
        .add("clipped", clippedSamples(record))
        .section("samples");
}

/// The extent of the trace at the stored KU, shifts included, as the viewer draws it.
Section range(const calc::TraceRef &trace, double metresPerCount)
{
    QVector<QPointF> points;
    calc::splinePoints(trace, points);
    const double from = points.constFirst().x();
    const double to = points.constLast().x();
    return Fields()
        .add("from", metres(from * metresPerCount), "m")
        .add("to", metres(to * metresPerCount), "m")
        .add("step", metres(trace.step * metresPerCount), "m")
        .add("time_from", from * constants::nsPerCount, "ns")
        .add("time_to", to * constants::nsPerCount, "ns")
        .section("range");
}

Section reflections(const calc::TraceRef &trace, double metresPerCount)
{
    Section section{ QStringLiteral("reflections"), true, {} };
    const QVector<calc::Reflection> list = reflectionsOf(trace);
    for (const calc::Reflection &reflection : list) {
        const auto column = static_cast<double>(reflection.column);
        section.entries.append(
            Fields()
                .add("distance", metres(column * metresPerCount), "m")
                .add("time", column * constants::nsPerCount, "ns")
                .add("level", reflection.level)
                .add("sign", QLatin1String(reflection.positive ? "positive" : "negative")));
    }
    return section;
}

/// Place of a field in the file, as docs/file-format.md gives it.
struct Place
{
    const char *name;
    int offset;
    int size;
};

constexpr Place unknownFields[] = {
    { "calibrate", 22, 1 },
    { "sample_selection", 23, 2 },
    { "scale", 33, 4 },
    { "diff_mode", 59, 1 },
    { "LF_filter_level", 60, 1 },
    { "wave_threshold", 61, 2 },
    { "arm_sync_timeout", 63, 4 },
    { "arm_trig", 67, 1 },
    { "mim_num", 68, 1 },
    { "att_comp_origin", 69, 4 },
    { "gain_comp_origin", 73, 4 },
    { "gain_calibr", 77, 2 },
    { "interval_left", 79, 4 },
    { "interval_right", 83, 4 },
    { "curve_Zo", 87, 4 },
    { "curve_beta", 91, 4 },
    { "params_reserve", 95, 64 },
    { "RTC_H12", 174, 1 },
    { "RTC_WeekDay", 175, 1 },
    { "cursor_1_bm_state", 191, 16 },
    { "cursor_2_bm_state", 218, 16 },
    { "cursor_3_bm_state", 245, 16 },
    { "ext_params_reserve", 35645, 64 },
    { "ext_nodes_reserve", 35726, 2048 },
    { "crc", 37774, 1 },
};

Section unknown(const TDR_FILE_t &record)
{
    const auto *bytes = reinterpret_cast<const char *>(&record);
    Fields fields;
    for (const Place &place : unknownFields)
        fields.add(place.name,
                   QString::fromLatin1(QByteArray(bytes + place.offset, place.size).toHex()));
    return fields.section("unknown");
}

} // namespace

QVector<Section> sectionsOf(const QByteArray &bytes, bool all)
{
    const TDR_FILE_t record = recordOf(bytes);
    const calc::TraceRef trace = calc::traceOf(record);
    const double metresPerCount = calc::metresPerCount(record.ch.params.KU);
    QVector<Section> sections{
        instrument(record), test(record),  parameters(record), cursors(record),
        marks(record),      cable(record), samples(record),    range(trace, metresPerCount),
    };
    sections.append(reflections(trace, metresPerCount));
    if (all)
        sections.append(unknown(record));
    return sections;
}

} // namespace tdr
