// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "bytereader.h"
#include "calc/axis_grid.h"
#include "calc/cursor_level.h"
#include "calc/readout.h"
#include "calc/tdr_record.h"
#include "calc/trace_points.h"
#include "calc/view_range.h"
#include "fuzzer.h"
#include "record_input.h"
#include "tdr/check.h"
#include "tdr/info.h"

#include <QJsonDocument>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>

/// \file
/// Passes one or two records through every computation without a widget: points in all four forms,
/// view, grid, cursors, texts. The first record is the trace, the second the master. Some inputs
/// also pass through the commands info and check of velkor-tdr.

using fuzz::expect;
using fuzz::headBytes;
using Protocol_VX840::TDR_FILE_t;

namespace {

constexpr std::size_t preambleBytes = 32;
constexpr std::size_t recordCount = 2;

/// Operations on the records, read from the preamble.
struct Gestures
{
    explicit Gestures(ByteReader &input)
        : way(input.byte())
        , exponent(input.number<qint8>())
        , dial(input.number<qint16>())
        , column(input.number<qint32>())
        , scroll(input.number<qint32>())
        , width(input.number<float>())
        , pixels(input.number<float>())
        , span(input.number<double>())
        , value(input.number<qint32>())
    {
    }

    // Rare, because formatting a number of 300 digits takes as long as everything else.
    bool wild() const
    {
        return way == 255;
    }

    bool longer() const
    {
        return way % 32 == 1;
    }

    quint8 way; ///< selects the optional operations
    qint8 exponent;
    qint16 dial;
    qint32 column;
    qint32 scroll;
    float width;
    float pixels;
    double span;
    qint32 value;
};

// Reads a record as the viewer reads a file: over the former content of the slot.
void readRecord(ByteReader &input, bool longer, TDR_FILE_t &record)
{
    static const char tail[sizeof(TDR_FILE_t) + 1 - headBytes] = {};
    std::memcpy(&record, fuzz::goodHead(), headBytes);
    const QByteArray head = input.take(headBytes);
    const auto size = static_cast<std::size_t>(head.size());
    if (longer && size == headBytes) {
        static char file[sizeof(TDR_FILE_t) + 1];
        std::memcpy(file, head.constData(), size);
        std::memcpy(file + size, tail, sizeof tail);
        calc::fillRecord(file, sizeof file, record);
    } else {
        calc::fillRecord(head.constData(), head.size(), record);
    }
    expect(std::memcmp(&record, head.constData(), size) == 0,
           "a record holds the bytes of its file");
}

calc::TraceRef traceOf(const TDR_FILE_t &record)
{
    const calc::TraceRef trace = calc::traceOf(record);
    expect(trace.step >= 1 && trace.step <= constants::xLength,
           "a step is from one count to the whole axis");
    return trace;
}

// The points of both forms of one curve. One loop without function calls: it runs for every point
// of every execution.
void checkForms(const QVector<QPointF> &steps, const QVector<QPointF> &spline)
{
    expect(steps.size() == qMax(0, 2 * spline.size() - 1),
           "each tread has two ends, the last one has one");
    struct Place
    {
        double x;
        double y;
    };
    static_assert(sizeof(Place) == sizeof(QPointF));
    const auto *tread = reinterpret_cast<const Place *>(steps.constData());
    const auto *sample = reinterpret_cast<const Place *>(spline.constData());
    bool placed = true;
    bool ordered = true;
    bool same = true;
    double last = -std::numeric_limits<double>::max();
    for (int i = 0; i < spline.size(); ++i) {
        placed &= std::abs(sample[i].x) < 1e16 && std::abs(sample[i].y) < 1e6;
        ordered &= sample[i].x >= last;
        same &= tread[2 * i].x == sample[i].x && tread[2 * i].y == sample[i].y;
        last = sample[i].x;
        if (i + 1 < spline.size()) {
            same &= tread[2 * i + 1].y == sample[i].y;
            ordered &= tread[2 * i + 1].x > last;
            last = tread[2 * i + 1].x;
        }
    }
    expect(placed, "points are finite and in range");
    expect(ordered, "points go from left to right");
    expect(same, "both forms go through the same points");
}

void drawPoints(const calc::TraceRef &trace, const calc::TraceRef &master)
{
    static QVector<QPointF> steps;
    static QVector<QPointF> spline;
    calc::stepPoints(trace, steps);
    calc::splinePoints(trace, spline);
    expect(spline.size() == constants::drawnSamples, "all samples are drawn");
    checkForms(steps, spline);
    const double start = double(trace.scroll) + double(trace.delay) * trace.step;
    expect(spline.constFirst() == QPointF(start, double(trace.offset) + trace.samples[0]),
           "a trace starts at its delay, as high as its first sample");

    calc::stepDifference(master, trace, steps);
    calc::splineDifference(master, trace, spline);
    expect(spline.size() <= constants::drawnSamples, "a difference has no more points than traces");
    checkForms(steps, spline);
}

void checkRange(const calc::Range &range, int width)
{
    expect(range.min >= 0 && range.min < range.max,
           "the minimum of a range is from 0 to below its maximum");
    expect(range.max - range.min == width, "moving a view keeps its width");
}

void checkGrid(const calc::GridPlan &plan, const calc::Range &range, double metresPerCount)
{
    const double step = calc::gridStep(range.max * metresPerCount - range.min * metresPerCount);
    expect(step >= 0.0 && std::isfinite(step), "a grid has a step");
    expect(step > 0.0
               || (!plan.edges[0].visible && !plan.edges[1].visible && !plan.interior[0].visible),
           "a grid without a step shows nothing");
    bool visible = true;
    for (const calc::GridPlan::Line &line : plan.interior) {
        expect(visible || !line.visible, "the visible grid lines are the first");
        expect(!line.visible || !line.text.isEmpty(), "a grid line has its text");
        visible = line.visible;
    }
}

void checkPlaces(const calc::GridPlan &plan, float plotWidth)
{
    const bool hasWidth = plotWidth > 0.0F && std::isfinite(plotWidth);
    const double width = hasWidth ? double(plotWidth) : 0.0;
    double last = 0.0;
    for (const calc::GridPlan::Line &line : plan.interior) {
        if (!line.visible)
            break;
        expect(line.offset >= last && line.offset <= width * 1.000001,
               "grid lines are on the plot from left to right");
        last = line.offset;
    }
}

calc::Range view(const TDR_FILE_t &record, const Gestures &gestures)
{
    const auto params = record.ch.params;
    const int exponent = calc::clampedScale(calc::exponentForMinstep(params.sample_minstep));
    const calc::Range own = calc::rangeFromDelay(params.delay, exponent);
    checkRange(own, calc::visibleCounts(exponent));
    checkRange(calc::scrolled(own, gestures.scroll), calc::visibleCounts(exponent));

    const int chosen = calc::clampedScale(gestures.exponent);
    const int width = calc::visibleCounts(chosen);
    checkRange(calc::scrolled({ 0, width }, gestures.scroll), width);
    const calc::Range centred = calc::centredOn(calc::clampedColumn(gestures.column), { 0, width });
    checkRange(centred, width);
    expect(centred.max <= constants::xLength, "a centred view stays on the axis");
    expect(calc::clampedScale(calc::exponentOfDistance(double(calc::scaleDistance(chosen))))
               == chosen,
           "a scale's caption leads back to the scale");
    calc::exponentOfDistance(gestures.span);
    calc::panStep(gestures.exponent, double(gestures.pixels), gestures.width);
    calc::wholeSamples(gestures.value, calc::countsPerSample(params.sample_minstep));
    calc::clampedVerticalOffset(gestures.value);
    return gestures.exponent < 0 ? own : centred;
}

void grid(const calc::Range &range, double metresPerCount, const Gestures &gestures)
{
    expect(metresPerCount > 0.018 && metresPerCount < 0.188, "a count has a length");
    const calc::GridPlan plan = calc::planGrid(range, metresPerCount, gestures.width);
    expect(plan.interior[0].visible, "every view has a grid");
    checkGrid(plan, range, metresPerCount);
    checkPlaces(plan, gestures.width);
    // The window uses no such ranges and counts, but the grid is defined for them.
    if (gestures.wild()) {
        const calc::Range wild{ gestures.scroll, gestures.value };
        checkGrid(calc::planGrid(wild, gestures.span, gestures.width), wild, gestures.span);
    }
}

void checkCursor(const calc::CursorPoint &point)
{
    expect(point.column >= 0 && point.column <= constants::xLength, "a cursor stays on the axis");
}

void cursors(const calc::TraceRef &trace, const calc::TraceRef &master, const Gestures &gestures)
{
    const calc::CursorPoint own = calc::cursorOn(gestures.column, trace);
    checkCursor(own);
    expect(own.column % trace.step == 0, "a cursor is on a whole sample");
    expect(own.level == constants::noLevel || qAbs(own.level - trace.offset) <= 128,
           "a level is that of a sample");
    const calc::CursorPoint other = calc::cursorOnDifference(gestures.column, master, trace);
    checkCursor(other);
    expect(other.level == constants::noLevel, "a difference has no level");
    calc::levelUnder(gestures.column, trace);
}

int lengthOf(const QString &text)
{
    return static_cast<int>(text.size());
}

void texts(const TDR_FILE_t &record, int column, double metresPerCount, const Gestures &gestures)
{
    static const QString suffix = QStringLiteral("m");
    const auto params = record.ch.params;
    int length = lengthOf(calc::distanceText(column, metresPerCount, suffix))
        + lengthOf(calc::kuText(calc::clampedKU(double(params.KU))))
        + lengthOf(calc::scaleText(calc::scaleDistance(gestures.exponent)));
    expect(length < 60, "readouts are short");
    expect(calc::levelText(gestures.value).isEmpty() == (gestures.value == constants::noLevel),
           "129 is the only value without a level text");
    if (gestures.wild()) {
        calc::kuText(params.KU);
        calc::generalText(gestures.span);
        calc::distanceText(gestures.value, gestures.span, suffix);
    }
    const QDate date = calc::measurementDate(record);
    expect(!date.isValid() || date.year() >= constants::centuryStart, "a date is in 2000 or later");
    const QTime time = calc::measurementTime(record);
    expect(!time.isValid() || time.msec() == 0, "a time has whole seconds");
}

void shorteningFactor(const TDR_FILE_t &record, const Gestures &gestures)
{
    const float ku = calc::clampedKU(double(record.ch.params.KU));
    expect(ku >= constants::minKU && ku <= constants::maxKU,
           "a shortening factor is between 1 and 10");
    const int dial = calc::dialOfKU(ku);
    expect(dial >= 0 && dial <= 9000, "a shortening factor has a dial position from 0 to 9000");
    calc::dialOfKU(record.ch.params.KU);
    const float turned = calc::clampedKU(calc::kuOfDial(gestures.dial));
    expect(turned >= constants::minKU && turned <= constants::maxKU,
           "a dial position gives a factor between 1 and 10");
}

/// Checks the reports of velkor-tdr on a file of \a bytes.
void report(const QByteArray &bytes)
{
    const bool hasSize = bytes.size() == static_cast<int>(sizeof(TDR_FILE_t));
    expect(hasSize || !tdr::findings(bytes).isEmpty(), "a file of another size has a finding");
    const QString name = QStringLiteral("a.tdr");
    expect(tdr::infoText(name, bytes, true).contains(QLatin1String("\nunknown\n")),
           "a report is complete");
    const QByteArray json = QJsonDocument(tdr::infoJson(name, bytes, true)).toJson();
    expect(QJsonDocument::fromJson(json).isObject(), "a report is valid JSON");
}

/// Checks \a bytes, and a file of full size that repeats them, so that its marks and notes are not
/// empty.
void reports(const QByteArray &bytes)
{
    constexpr int size = sizeof(TDR_FILE_t);
    report(bytes);
    if (!bytes.isEmpty())
        report(bytes.repeated(size / static_cast<int>(bytes.size()) + 1).left(size));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzz::silenceLog();
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t limit, unsigned seed)
{
    return fuzz::mutateRecords(data, size, limit, preambleBytes, recordCount, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static TDR_FILE_t record;
    static TDR_FILE_t masterRecord;
    ByteReader input(data, qMin(size, preambleBytes));
    const Gestures gestures(input);
    ByteReader records(data + qMin(size, preambleBytes), size - qMin(size, preambleBytes));
    readRecord(records, gestures.longer(), record);
    readRecord(records, gestures.longer(), masterRecord);

    const calc::TraceRef trace = traceOf(record);
    const calc::TraceRef master = traceOf(masterRecord);
    drawPoints(trace, master);
    const calc::Range range = view(record, gestures);
    const double metres
        = constants::distCoef0 / double{ calc::clampedKU(double{ record.ch.params.KU }) };
    grid(range, metres, gestures);
    cursors(trace, master, gestures);
    texts(record, calc::clampedColumn(gestures.column), metres, gestures);
    shorteningFactor(record, gestures);
    if (fuzz::slowPartIsDue(4096))
        reports(ByteReader(data, size).take(size).mid(static_cast<int>(preambleBytes)));
    return 0;
}
