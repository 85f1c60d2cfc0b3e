// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cable.h"
#include "protocol_vx840.h"

#include <QtGlobal>

#include <vector>

/// \file
/// The measuring half of the simulated instrument: launch a pulse, sum the echoes, sample them.
///
/// The pulse is a Gaussian bell, since no short pulse leaves a generator with corners. Time zero is
/// the moment its crest passes the terminals: the crest of an echo then stands at the echo time of
/// the place it comes from, and a trace without delay begins with the falling half of the launch.

namespace instrument {

constexpr quint32 maxDelay = 16384; ///< samples; a later start is taken as this
constexpr double voltsPerStep = 0.25; ///< of one sample step at a gain of 0 dB

/// How a trace is taken. The numbers that a record holds are as wide as the record has them.
struct Settings
{
    float sampleStep = 5.0F; ///< ns of echo time between samples, 0.1 to 1000; clamped
    quint32 delay = 0; ///< samples skipped before the first one kept, at most maxDelay
    quint32 pulseWidth = 40; ///< ns at half height; 0 is taken as 1
    quint16 pulseAmplitude = 20; ///< V at the terminals of a cable of the instrument's impedance
    quint16 average = 16; ///< shots averaged into a trace; 0 is taken as 1
    quint16 gain = 0; ///< dB
    quint16 impedance = 120; ///< ohms of generator and receiver; 0 is taken as 1
    float ku = 1.49896229F; ///< KU as the operator set it: light over pulse. Recorded,
                            ///< it has no part in the measurement
    /// Share of the launched pulse that reaches the receiver directly. A hybrid circuit holds it
    /// down, as on any instrument that must show a faint echo next to its own pulse; 1 is a plain
    /// tee, where the launch is as tall as the echo of an open end at the terminals.
    double launchShare = 0.2;
    double noise = 0.5; ///< V, root mean square, of a single shot at the receiver's input
    /// Width in ns at half height of the receiver's Gaussian impulse response, which colours the
    /// noise: neighbouring samples are correlated. 0 or less gives white noise.
    double noiseWidth = 0.0;
    double baseline = 0.0; ///< sample steps: the receiver's vertical position knob
    double slope = 0.0; ///< sample steps per sample by which the baseline rises
    double droop = 0.0; ///< sample steps by which the baseline is too high at the first sample
    double droopTime = 500.0; ///< ns, above 0, in which the droop falls to 1/e
    quint64 seed = 1; ///< the noise is always the same for the same seed
};

/// The samples of one acquisition.
struct Trace
{
    std::vector<qint8> samples;
    int clipped = 0; ///< how many went beyond the converter and were held at -128 or 127
};

/// Measures \a cable; only the first \a count samples. The converter saturates when gain and
/// baseline exceed its range, and Trace::clipped counts the samples. Equal arguments give equal
/// samples.
Trace acquire(const Cable &cable, const Settings &settings,
              std::size_t count = Protocol_VX840::fileSamples);

/// The echoes of \a cable in volts at the receiver's input, without noise, gain or rounding:
/// \a count values, the first at \a settings.delay samples.
std::vector<double> echoes(const Cable &cable, const Settings &settings,
                           std::size_t count = Protocol_VX840::fileSamples);

} // namespace instrument
