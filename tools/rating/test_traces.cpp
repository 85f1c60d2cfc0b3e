// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_traces.h"

#include <algorithm>
#include <cmath>

namespace rating {
namespace {

using instrument::Cable;
using instrument::Section;
using instrument::Settings;
using instrument::Span;

constexpr double metresPerSample = 0.5; ///< of a pair in polyethylene at 5 ns per sample
constexpr double impedance = 120.0; ///< ohms of the instrument
constexpr double fullHeight = 100.0; ///< sample steps of the tallest echo at most

/// Impedance behind a place of reflection coefficient \a share in a line of \a before ohms.
double impedanceBehind(double before, double share)
{
    return before * (1.0 + share) / (1.0 - share);
}

/// Places in samples, ascending, at least \a distance apart.
std::vector<double> randomPlaces(Random &random, double width)
{
    const double distance = 1.6 * width + 2.0;
    const int count = static_cast<int>(random.uniform(1.0, 6.0));
    std::vector<double> places;
    for (int attempt = 0; attempt < 20 * count; ++attempt) {
        const double place = random.uniform(2.0 * width + 3.0, 250.0 - 1.5 * width);
        const auto near = [=](double other) { return std::abs(other - place) < distance; };
        if (static_cast<int>(places.size()) < count
            && std::none_of(places.begin(), places.end(), near))
            places.push_back(place);
    }
    std::sort(places.begin(), places.end());
    return places;
}

/// The echo of an open end behind \a spans without any other reflection: the launched pulse after
/// the losses.
Echo pulseThrough(std::vector<Span> spans, Settings settings)
{
    for (Span &span : spans)
        span = { span.section, {} };
    for (Span &span : spans)
        span.section.impedance = impedance;
    settings.launchShare = 0.0;
    const std::vector<double> volts
        = instrument::echoes({ spans, instrument::openCircuit }, settings, 2 * traceLength);
    const auto crest = std::max_element(volts.begin() + 1, volts.end() - 1);
    const auto wide = std::count_if(volts.begin(), volts.end(),
                                    [crest](double value) { return value > *crest / 2.0; });
    const double before = *(crest - 1);
    const double behind = *(crest + 1);
    // The vertex of the parabola through the three highest samples.
    const double offset = (behind - before) / (2.0 * (2.0 * *crest - before - behind));
    return { static_cast<double>(crest - volts.begin()) + offset, *crest,
             static_cast<double>(wide) };
}

/// Adds a place with reflection coefficient \a share behind the last span of \a cable. Returns the
/// impedance of the section behind it. \a passed gets the share of a pulse that passes it twice,
/// there and back.
double addPlace(Cable &cable, Random &random, double share, double &passed)
{
    Span &span = cable.spans.back();
    const double before = span.section.impedance;
    passed = (1.0 - std::abs(share)) * (1.0 - std::abs(share));
    if (random.chance(0.5)) {
        passed = 1.0 - share * share;
        return impedanceBehind(before, share);
    }
    const double size = 2.0 * std::abs(share) / (1.0 - std::abs(share));
    if (share > 0.0)
        span.joint.seriesResistance = size * before;
    else
        span.joint.shuntConductance = size / before;
    return before;
}

/// Sets the tallest echo and the gain at which it has at most the full height.
void setGain(TestCable &test)
{
    for (const Echo &echo : test.echoes)
        test.tallest = std::max(test.tallest, std::abs(echo.height));
    const double steps = test.tallest / instrument::voltsPerStep;
    test.settings.gain = static_cast<quint16>(20.0 * std::log10(fullHeight / steps));
}

} // namespace

Random::Random(quint64 seed)
    : m_generator(seed)
{
}

double Random::uniform(double from, double to)
{
    return from + (to - from) * static_cast<double>(m_generator() >> 11) * 0x1p-53;
}

double Random::logUniform(double from, double to)
{
    return std::exp(uniform(std::log(from), std::log(to)));
}

bool Random::chance(double probability)
{
    return uniform(0.0, 1.0) < probability;
}

TestCable randomCable(quint64 seed)
{
    Random random(seed);
    TestCable test;
    Settings &settings = test.settings;
    settings.average = 1;
    settings.noise = 0.0;
    settings.pulseWidth = static_cast<quint32>(random.logUniform(10.0, 126.0)); // ns
    test.pulseWidth = settings.pulseWidth / double(settings.sampleStep);
    settings.launchShare = random.uniform(0.1, 0.8);
    settings.baseline = random.uniform(-20.0, 20.0);
    settings.slope = random.uniform(-0.08, 0.08);
    settings.droop = random.uniform(-20.0, 20.0);
    settings.droopTime = random.uniform(100.0, 500.0);

    const std::vector<double> places = randomPlaces(random, test.pulseWidth);
    const double mismatch = random.chance(0.5) ? random.uniform(-0.3, 0.3) : 0.0;
    Section section;
    section.impedance = impedanceBehind(impedance, mismatch);
    section.skinLoss = random.uniform(0.0, 1.0);
    section.dielectricLoss = random.uniform(0.0, 0.08);
    const bool hasEnd = random.chance(0.7);
    double passed = 1.0 - mismatch * mismatch;
    double before = 0.0;
    for (const double place : places) {
        section.length = (place - before) * metresPerSample;
        before = place;
        test.cable.spans.push_back({ section, {} });
        const bool isEnd = hasEnd && place == places.back();
        const double size = isEnd ? random.uniform(0.7, 0.999) : random.logUniform(0.05, 0.6);
        const double share = random.chance(0.5) ? size : -size;
        Echo echo = pulseThrough(test.cable.spans, settings);
        echo.height *= passed * share;
        test.echoes.push_back(echo);
        double through = 0.0;
        if (isEnd)
            section.impedance = impedanceBehind(section.impedance, share);
        else
            section.impedance = addPlace(test.cable, random, share, through);
        passed *= through;
    }
    test.cable.endResistance = section.impedance;
    setGain(test);
    return test;
}

QVector<int> levelsOf(const TestCable &cable, double deviation, double noiseWidth, quint64 seed)
{
    Settings settings = cable.settings;
    settings.noise = deviation;
    settings.noiseWidth = noiseWidth * double(settings.sampleStep);
    settings.seed = seed;
    const instrument::Trace trace = instrument::acquire(cable.cable, settings, traceLength);
    return QVector<int>(trace.samples.begin(), trace.samples.end());
}

QVector<int> noiseLevels(double deviation, double noiseWidth, quint64 seed)
{
    TestCable none;
    none.settings.pulseAmplitude = 0;
    none.settings.average = 1;
    none.settings.baseline = 0.4; // not a whole step
    return levelsOf(none, deviation * instrument::voltsPerStep, noiseWidth, seed);
}

double matchedNoise(double noiseWidth, double pulseWidth)
{
    const int reach = static_cast<int>(std::ceil(2.0 * pulseWidth));
    const auto bell
        = [](double x, double width) { return std::exp2(-4.0 * x * x / width / width); };
    double gain = 0.0; // of the filter for the crest of the pulse
    double variance = 0.0;
    for (int i = -reach; i <= reach; ++i) {
        gain += bell(i, pulseWidth) * bell(i, pulseWidth);
        for (int k = -reach; k <= reach; ++k) {
            // A response of that width makes a correlation wider by the root of 2.
            const double correlation = i == k ? 1.0
                : noiseWidth > 0.0            ? bell(i - k, noiseWidth * std::sqrt(2.0))
                                              : 0.0;
            variance += bell(i, pulseWidth) * bell(k, pulseWidth) * correlation;
        }
    }
    return std::sqrt(variance) / gain;
}

} // namespace rating
