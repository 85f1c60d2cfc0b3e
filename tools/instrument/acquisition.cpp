// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition.h"

#include "fourier.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numeric>
#include <random>

namespace instrument {
namespace {

using Complex = std::complex<double>;

constexpr double pi = 3.14159265358979323846;
constexpr double ln2 = 0.69314718055994530942;
constexpr double secondsPerNs = 1.0e-9;

constexpr std::size_t maxWindow = 65536; ///< samples
static_assert(maxWindow > maxDelay + Protocol_VX840::fileSamples, "a record is one window");

constexpr std::size_t maxOversampling = 16;
constexpr double pointsPerPulse = 4.0; ///< less than 1e-6 of the bell is aliased

double sampleStepOf(const Settings &settings)
{
    const auto step = static_cast<double>(settings.sampleStep);
    return step >= 0.1 ? std::min(step, 1000.0) : 0.1;
}

double pulseWidthOf(const Settings &settings)
{
    return static_cast<double>(std::max<quint32>(settings.pulseWidth, 1));
}

/// Computed points per sample: the pulse width determines the time step of the computation.
std::size_t oversampling(const Settings &settings)
{
    std::size_t factor = 1;
    while (factor < maxOversampling
           && sampleStepOf(settings) / static_cast<double>(factor)
               > pulseWidthOf(settings) / pointsPerPulse)
        factor *= 2;
    return factor;
}

/// Period of the computed signal in samples, a power of two. A discrete spectrum has a periodic
/// signal, so the echoes must decay in the part beyond the \a last sample.
std::size_t windowFor(std::size_t last)
{
    std::size_t window = 1;
    while (window < maxWindow && window < 16 * last)
        window *= 2;
    return window;
}

/// Spectrum in seconds of the bell exp(-4 ln2 t^2 / w^2), of height 1 and \a width w at half
/// height; the transform of a bell is a bell.
double pulseSpectrum(double width, double frequency)
{
    const double x = pi * width * frequency;
    return width * std::sqrt(pi / (4.0 * ln2)) * std::exp(-x * x / (4.0 * ln2));
}

/// Noise of standard deviation 1: the sum of twelve uniform numbers, each of variance 1/12. The
/// tails end at 6, and the result does not depend on the standard library.
double unitNoise(std::mt19937_64 &generator)
{
    double sum = -6.0;
    for (int i = 0; i < 12; ++i)
        sum += static_cast<double>(generator() >> 11) * 0x1p-53;
    return sum;
}

/// \a count samples of the receiver's noise, of standard deviation 1.
std::vector<double> receiverNoise(const Settings &settings, std::size_t count)
{
    std::mt19937_64 generator(settings.seed);
    const double width = std::clamp(settings.noiseWidth / sampleStepOf(settings), 0.0, 1000.0);
    const int reach = static_cast<int>(std::ceil(2.0 * width));
    std::vector<double> response;
    double energy = 0.0;
    for (int k = -reach; k <= reach; ++k) {
        response.push_back(k == 0 ? 1.0 : std::exp2(-4.0 * k * k / (width * width)));
        energy += response.back() * response.back();
    }
    std::vector<double> white(count + response.size() - 1);
    for (double &value : white)
        value = unitNoise(generator);
    std::vector<double> noise(count);
    for (std::size_t i = 0; i < count; ++i)
        noise[i] = std::inner_product(response.begin(), response.end(),
                                      white.begin() + static_cast<std::ptrdiff_t>(i), 0.0)
            / std::sqrt(energy);
    return noise;
}

} // namespace

std::vector<double> echoes(const Cable &cable, const Settings &settings, std::size_t count)
{
    if (settings.pulseAmplitude == 0)
        return std::vector<double>(count);
    const std::size_t first = std::min(settings.delay, maxDelay);
    const std::size_t factor = oversampling(settings);
    const std::size_t size = windowFor(first + count) * factor;
    const double timeStep
        = sampleStepOf(settings) * secondsPerNs / static_cast<double>(factor); // seconds
    const double binWidth = 1.0 / (static_cast<double>(size) * timeStep); // Hz
    const double width = pulseWidthOf(settings) * secondsPerNs;
    const double impedance = std::max<int>(settings.impedance, 1);

    std::vector<Complex> values(size);
    for (std::size_t bin = 0; bin <= size / 2; ++bin) {
        // At 0 Hz the line equations divide 0 by 0, so a slightly higher frequency is used.
        const double frequency = binWidth * std::max(static_cast<double>(bin), 1.0e-3);
        const double pulse = pulseSpectrum(width, frequency) * binWidth;
        // From here on the spectrum of the pulse is negligible.
        if (pulse < 1.0e-18)
            break;
        const Complex received
            = pulse * (settings.launchShare + reflection(cable, frequency, impedance));
        values[bin] = received;
        values[(size - bin) % size] = std::conj(received);
    }
    values[0] = values[0].real();
    values[size / 2] = values[size / 2].real();
    inverseTransform(values);

    std::vector<double> volts(count);
    for (std::size_t i = 0; i < volts.size(); ++i)
        volts[i] = settings.pulseAmplitude * values[(first + i) * factor].real();
    return volts;
}

Trace acquire(const Cable &cable, const Settings &settings, std::size_t count)
{
    const double stepsPerVolt = std::pow(10.0, settings.gain / 20.0) / voltsPerStep;
    const double noiseLevel = settings.noise / std::sqrt(std::max<int>(settings.average, 1));
    const std::vector<double> noise = receiverNoise(settings, count);
    const std::vector<double> volts = echoes(cable, settings, count);
    const double droopSamples = settings.droopTime / sampleStepOf(settings);

    Trace trace;
    trace.samples.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double sample = static_cast<double>(i);
        const double baseline = settings.baseline + settings.slope * sample
            + settings.droop * std::exp(-sample / droopSamples);
        const double level = baseline + stepsPerVolt * (volts[i] + noiseLevel * noise[i]);
        constexpr double lowest = std::numeric_limits<qint8>::min();
        constexpr double highest = std::numeric_limits<qint8>::max();
        const double rounded = std::round(level);
        if (rounded < lowest || rounded > highest)
            ++trace.clipped;
        trace.samples.push_back(static_cast<qint8>(std::clamp(rounded, lowest, highest)));
    }
    return trace;
}

} // namespace instrument
