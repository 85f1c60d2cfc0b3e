// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition.h"

#include <QVector>

#include <random>
#include <vector>

/// \file
/// Random cables measured by the simulated instrument, with the reflections that should be found.

namespace rating {

/// Random numbers that are the same with every standard library.
class Random
{
public:
    explicit Random(quint64 seed);
    double uniform(double from, double to);
    /// A number whose logarithm is uniformly distributed.
    double logUniform(double from, double to);
    bool chance(double probability);

private:
    std::mt19937_64 m_generator;
};

/// The first echo of one place on a cable. Multiple reflections are no echoes in this sense.
struct Echo
{
    double place = 0.0; ///< of its crest, in samples
    double height = 0.0; ///< V at the receiver's input, negative for a dip
    double width = 0.0; ///< samples at half height
};

/// A cable, an instrument set up for it, and the echoes to be found.
struct TestCable
{
    instrument::Cable cable;
    instrument::Settings settings; ///< no noise; at this gain the tallest echo has 80 to 100 steps
    double pulseWidth = 0.0; ///< samples at half height
    std::vector<Echo> echoes;
    double tallest = 0.0; ///< V, of the echoes
};

/// A cable of one to five places that reflect: bad contacts, leaks, changes of impedance, and in
/// most cases an end. The pulse is 2 to 25 samples wide; the instrument may be mismatched; the
/// baseline has an offset, a slope and a droop. The same \a seed gives the same cable.
TestCable randomCable(quint64 seed);

constexpr std::size_t traceLength = 250; ///< samples

/// The levels that the instrument records with noise of \a deviation volts, which is correlated
/// over \a noiseWidth samples: the width of the receiver's response at half height.
QVector<int> levelsOf(const TestCable &cable, double deviation, double noiseWidth, quint64 seed);

/// The same without a cable: only noise of \a deviation sample steps.
QVector<int> noiseLevels(double deviation, double noiseWidth, quint64 seed);

/// Standard deviation of noise of \a noiseWidth samples behind the filter matched to a Gaussian
/// pulse of \a pulseWidth samples, as a multiple of its standard deviation before the filter. The
/// filter leaves the height of the pulse as it is.
double matchedNoise(double noiseWidth, double pulseWidth);

} // namespace rating
