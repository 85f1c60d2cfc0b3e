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
/// The pulse is a Gaussian bell, because short pulses of a generator have no corners. Its crest
/// passes the terminals at time zero. So the crest of an echo is at the echo time of its place, and
/// a trace without delay begins with the falling half of the launched pulse.

namespace instrument {

constexpr quint32 maxDelay = 16384; ///< samples; a larger delay is clamped
constexpr double voltsPerStep = 0.25; ///< at a gain of 0 dB

/// Settings of an acquisition. A setting that is recorded has the type of its field in the record.
struct Settings
{
    float sampleStep = 5.0F; ///< ns of echo time between samples, 0.1 to 1000; clamped
    quint32 delay = 0; ///< samples skipped before the first one kept, at most maxDelay
    quint32 pulseWidth = 40; ///< ns at half height; 0 counts as 1
    quint16 pulseAmplitude = 20; ///< V at the terminals of a cable of the instrument's impedance
    quint16 average = 16; ///< shots averaged into a trace; 0 counts as 1
    quint16 gain = 0; ///< dB
    quint16 impedance = 120; ///< ohms of generator and receiver; 0 counts as 1
    float ku = 1.49896229F; ///< KU set by the operator; recorded, without effect on the samples
    /// Share of the launched pulse that reaches the receiver directly. A hybrid circuit reduces it,
    /// so that a faint echo next to the pulse can be seen. With 1, a plain tee, the launched pulse
    /// is as tall as the echo of an open end at the terminals.
    double launchShare = 0.2;
    double noise = 0.5; ///< V, root mean square, of a single shot at the receiver's input
    /// Width in ns at half height of the receiver's Gaussian impulse response, which colours the
    /// noise: neighbouring samples are correlated. 0 or less gives white noise.
    double noiseWidth = 0.0;
    double baseline = 0.0; ///< sample steps: the receiver's vertical position knob
    double slope = 0.0; ///< sample steps per sample by which the baseline rises
    double droop = 0.0; ///< sample steps by which the baseline is too high at the first sample
    double droopTime = 500.0; ///< ns, above 0, in which the droop falls to 1/e
    quint64 seed = 1; ///< equal seeds give equal noise
};

/// The samples of one acquisition.
struct Trace
{
    std::vector<qint8> samples;
    int clipped = 0; ///< number of samples that saturated at -128 or 127
};

/// Measures the first \a count samples of \a cable. The converter saturates when gain and baseline
/// exceed its range, and Trace::clipped counts these samples. Equal arguments give equal samples.
Trace acquire(const Cable &cable, const Settings &settings,
              std::size_t count = Protocol_VX840::fileSamples);

/// The echoes of \a cable in volts at the receiver's input, without noise, gain or rounding:
/// \a count values, the first at \a settings.delay samples.
std::vector<double> echoes(const Cable &cable, const Settings &settings,
                           std::size_t count = Protocol_VX840::fileSamples);

} // namespace instrument
