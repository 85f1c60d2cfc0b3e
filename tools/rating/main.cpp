// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/reflections.h"
#include "test_traces.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <utility>

/// \file
/// Prints the tables of docs/reflections.md: what the reflection finder finds on simulated traces.

namespace {

using rating::Echo;
using rating::Random;
using rating::TestCable;

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

/// \a part of \a whole, or a dash when \a whole is 0.
QString share(int part, int whole)
{
    return whole == 0 ? QStringLiteral("-") : number(double(part) / whole, 3);
}

/// Samples at which the finder stops.
QVector<int> stopsOn(const QVector<int> &levels)
{
    const QVector<calc::Echo> echoes = calc::findEchoes(levels);
    QVector<int> stops;
    for (const calc::Echo &echo : echoes)
        stops.append(echo.sample);
    return stops;
}

/// Levels without noise, as a function of the sample.
using Shape = std::function<double(int)>;

double bell(double x, double width)
{
    return std::exp2(-4.0 * x * x / width / width);
}

/// Levels of \a shape with noise of \a deviation steps, correlated over \a noiseWidth samples.
QVector<int> levelsOf(const Shape &shape, double deviation, double noiseWidth, quint64 seed)
{
    QVector<int> levels = rating::noiseLevels(deviation, noiseWidth, seed);
    for (int i = 0; i < levels.size(); ++i)
        levels[i] = static_cast<int>(std::clamp(std::round(levels[i] + shape(i)), -128.0, 127.0));
    return levels;
}

// ---- Noise alone ----

void printNoise(int traces, quint64 seed)
{
    out() << "## Noise alone\n\nReflections found per trace, " << traces << " traces each.\n\n"
          << "| noise, steps | 0 | 1 | 1.5 | 2 | 3 | 4 | 6 | 8 | 10 |\n"
          << "|---|---|---|---|---|---|---|---|---|---|\n";
    for (const double deviation : { 1.0, 4.0, 20.0 }) {
        out() << "| " << deviation;
        for (const double width : { 0.0, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0, 10.0 }) {
            int found = 0;
            for (int i = 0; i < traces; ++i)
                found += static_cast<int>(
                    stopsOn(rating::noiseLevels(deviation, width, seed++)).size());
            out() << " | " << number(double(found) / traces, 3);
        }
        out() << " |\n";
    }
    out() << '\n';
}

// ---- Cables ----

struct Score
{
    int stops = 0;
    int hits = 0; ///< stops at an echo
    int tall = 0; ///< echoes of 6 standard deviations of the noise
    int tallFound = 0;
    int clear = 0; ///< echoes of 6 standard deviations of the noise behind the matched filter
    int clearFound = 0;
};

/// Samples by which a stop may miss the crest of an echo.
double tolerance(const Echo &echo)
{
    return std::max(1.5, echo.width / 3.0);
}

void addTrace(Score &score, const TestCable &test, double deviation, double noiseWidth,
              quint64 seed)
{
    const QVector<int> stops = stopsOn(rating::levelsOf(test, deviation, noiseWidth, seed));
    const double matched = deviation * rating::matchedNoise(noiseWidth, test.pulseWidth);
    const auto near
        = [](const Echo &echo, int stop) { return std::abs(stop - echo.place) <= tolerance(echo); };
    for (const Echo &echo : test.echoes) {
        const bool found
            = std::any_of(stops.begin(), stops.end(), [&](int stop) { return near(echo, stop); });
        const bool tall = std::abs(echo.height) >= 6.0 * deviation;
        const bool clear = std::abs(echo.height) >= 6.0 * matched;
        score.tall += tall ? 1 : 0;
        score.tallFound += tall && found ? 1 : 0;
        score.clear += clear ? 1 : 0;
        score.clearFound += clear && found ? 1 : 0;
    }
    score.stops += static_cast<int>(stops.size());
    for (const int stop : stops)
        score.hits += std::any_of(test.echoes.begin(), test.echoes.end(),
                                  [&](const Echo &echo) { return near(echo, stop); })
            ? 1
            : 0;
}

void printCables(int traces, quint64 seed)
{
    out() << "## Cables\n\n"
          << traces << " random cables each.\n\n"
          << "| noise FWHM | SNR, dB | precision | recall, 6 sd of the noise | echoes "
             "| recall, 6 sd behind the filter | echoes |\n|---|---|---|---|---|---|---|\n";
    for (const double noiseWidth : { 0.0, 1.5, 3.0, 6.0 }) {
        for (const double decibels : { 14.0, 20.0, 26.0, 32.0, 40.0 }) {
            Score score;
            for (int i = 0; i < traces; ++i, ++seed) {
                const TestCable test = rating::randomCable(seed);
                const double deviation = test.tallest * std::pow(10.0, -decibels / 20.0);
                addTrace(score, test, deviation, noiseWidth, seed);
            }
            out() << "| " << noiseWidth << " | " << decibels << " | "
                  << share(score.hits, score.stops) << " | " << share(score.tallFound, score.tall)
                  << " | " << score.tall << " | " << share(score.clearFound, score.clear) << " | "
                  << score.clear << " |\n";
            out().flush();
        }
    }
    out() << '\n';
}

// ---- Crests ----

void printCrests(int traces, quint64 seed)
{
    out() << "## Crests\n\nMean distance in samples of the stop from the crest, and how often the "
             "stop is the\nsample nearest to the crest, for an echo of 60 steps; "
          << traces << " traces each.\n\n| width, samples | no noise | | noise of 0.5 steps | "
          << "| noise of 1.5 steps | |\n|---|---|---|---|---|---|---|\n";
    for (const double width : { 2.0, 3.0, 4.0, 6.0, 8.0, 12.0, 16.0, 20.0, 25.0 }) {
        out() << "| " << width;
        for (const double deviation : { 0.0, 0.5, 1.5 }) {
            double sum = 0.0;
            int found = 0;
            int exact = 0;
            for (int i = 0; i < traces; ++i, ++seed) {
                Random random(seed);
                const double crest = random.uniform(100.0, 150.0);
                const double height = random.chance(0.5) ? 60.0 : -60.0;
                const auto echo = [=](int k) { return height * bell(k - crest, width); };
                const QVector<int> stops = stopsOn(levelsOf(echo, deviation, 0.0, seed));
                if (stops.size() != 1)
                    continue;
                ++found;
                sum += stops.front() - crest;
                exact += std::abs(stops.front() - crest) <= 0.5 ? 1 : 0;
            }
            out() << " | " << number(sum / std::max(found, 1), 2) << " | "
                  << number(100.0 * exact / traces, 0) << " %";
        }
        out() << " |\n";
    }
    out() << '\n';
}

// ---- Special traces ----

struct Special
{
    const char *name;
    int reflections; ///< number to be found
    Shape (*shape)(Random &random);
};

Shape wideEchoes(Random &random)
{
    const double width = random.uniform(10.0, 25.0);
    const double first = random.uniform(40.0, 60.0);
    const double second = first + random.uniform(1.3, 6.0) * width;
    const double height
        = random.chance(0.5) ? random.uniform(30.0, 80.0) : -random.uniform(30.0, 80.0);
    const double other = height * random.uniform(0.5, 1.0);
    return [=](int i) { return height * bell(i - first, width) + other * bell(i - second, width); };
}

Shape spikeBesideEchoes(Random &random)
{
    const int place = static_cast<int>(random.uniform(100.0, 150.0));
    const double height = random.uniform(20.0, 100.0);
    return [=](int i) {
        return 60.0 * bell(i - 70, 8.0) - 50.0 * bell(i - 180, 8.0) + (i == place ? height : 0.0);
    };
}

Shape roundTrips(Random &random)
{
    const double end = random.uniform(40.0, 80.0);
    const double width = random.uniform(4.0, 12.0);
    const double mismatch = random.uniform(-0.4, 0.4);
    return [=](int i) {
        return 80.0
            * (bell(i - end, width) + mismatch * bell(i - 2.0 * end, width)
               + mismatch * mismatch * bell(i - 3.0 * end, width));
    };
}

const Special specials[] = {
    { "ramp", 0,
      [](Random &random) -> Shape {
          const double slope = random.uniform(-1.0, 1.0);
          return [=](int i) { return slope * (i - 125); };
      } },
    { "ramp clipped at both ends", 0,
      [](Random &random) -> Shape {
          const double slope = random.uniform(1.2, 6.0);
          return [=](int i) { return slope * (i - 125); };
      } },
    { "droop", 0,
      [](Random &random) -> Shape {
          const double height = random.uniform(-100.0, 100.0);
          const double time = random.uniform(10.0, 120.0);
          return [=](int i) { return height * std::exp(-i / time); };
      } },
    { "step of the baseline", 0,
      [](Random &random) -> Shape {
          const double height = random.uniform(-80.0, 80.0);
          const double place = random.uniform(20.0, 230.0);
          return [=](int i) { return i < place ? 0.0 : height; };
      } },
    { "clipped launch", 0,
      [](Random &random) -> Shape {
          const double width = random.uniform(2.0, 25.0);
          return [=](int i) { return 400.0 * bell(i, width); };
      } },
    { "single sample off", 0,
      [](Random &random) -> Shape {
          const int place = static_cast<int>(random.uniform(20.0, 230.0));
          const double height = random.uniform(-100.0, 100.0);
          return [=](int i) { return i == place ? height : 0.0; };
      } },
    { "single sample off, two echoes", 2, spikeBesideEchoes },
    { "two wide echoes of one sign", 2, wideEchoes },
    { "end of the cable, seen three times", 1, roundTrips },
};

void printSpecials(int traces, quint64 seed)
{
    out() << "## Special traces\n\nReflections found per trace with noise of 2 steps, " << traces
          << " traces each.\n\n| trace | there | noise FWHM 0 | 3 | 6 |\n|---|---|---|---|---|\n";
    for (const Special &special : specials) {
        out() << "| " << special.name << " | " << special.reflections;
        for (const double noiseWidth : { 0.0, 3.0, 6.0 }) {
            int found = 0;
            for (int i = 0; i < traces; ++i, ++seed) {
                Random random(seed);
                const Shape shape = special.shape(random);
                found += static_cast<int>(stopsOn(levelsOf(shape, 2.0, noiseWidth, seed)).size());
            }
            out() << " | " << number(double(found) / traces, 2);
        }
        out() << " |\n";
    }
    out() << '\n';
}

void printTime(quint64 seed)
{
    QVector<QVector<int>> traces;
    for (int i = 0; i < 100; ++i, ++seed) {
        const TestCable test = rating::randomCable(seed);
        traces.append(rating::levelsOf(test, test.tallest / 20.0, 0.0, seed));
    }
    const std::clock_t before = std::clock();
    int found = 0;
    for (const QVector<int> &levels : std::as_const(traces))
        found += static_cast<int>(stopsOn(levels).size());
    const double seconds = double(std::clock() - before) / CLOCKS_PER_SEC;
    const double each = 1000.0 * seconds / double(traces.size());
    out() << "A search takes " << number(each, 2) << " ms of computing time (" << found
          << " reflections in " << traces.size() << " traces).\n";
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Rates the reflection finder on simulated traces. The seeds are fixed."));
    parser.addHelpOption();
    const QCommandLineOption tuning(QStringLiteral("tuning"),
                                    QStringLiteral("Use the seeds that are meant for tuning."));
    const QCommandLineOption count(QStringLiteral("traces"),
                                   QStringLiteral("Traces per figure, 400 by default."),
                                   QStringLiteral("number"), QStringLiteral("400"));
    parser.addOptions({ tuning, count });
    parser.process(application);
    const quint64 seed = parser.isSet(tuning) ? 1 : 1000000;
    const int traces = std::max(parser.value(count).toInt(), 1);
    printNoise(traces, seed);
    printCables(traces, seed);
    printCrests(10 * traces, seed);
    printSpecials(traces, seed);
    printTime(seed);
    return EXIT_SUCCESS;
}
