// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <limits>
#include <vector>

/// \file
/// Model of a cable: uniform sections, the joints between them, and an end.
///
/// The model is linear, so it is solved once per frequency, from the end back to the instrument.
/// The result includes all multiple reflections.

namespace instrument {

constexpr double lightSpeed = 299792458.0; ///< m/s

/// Frequency in Hz at which Section::velocityFactor is the group velocity. The skin effect makes
/// lower frequencies slower. With this frequency, the crests of pulses 20 to 80 ns wide have the
/// speed of the velocity factor over 100 m of the cables in samples/; those of shorter pulses are
/// slightly faster, those of longer pulses slower.
constexpr double velocityFrequency = 3.0e6;

/// A uniform stretch of cable.
struct Section
{
    double length = 0.0; ///< m, 0 or more
    double impedance = 120.0; ///< ohms above 0, at frequencies where losses do not change it
    double velocityFactor = 1.0 / 1.49896229; ///< speed of a pulse over that of light, above 0 to 1
    double skinLoss = 0.0; ///< dB per 100 m at 1 MHz; grows with the root of the frequency
    double dielectricLoss = 0.0; ///< dB per 100 m at 1 MHz; grows with the frequency
};

/// A joint at the far end of a section; the default one has no effect.
struct Joint
{
    double seriesResistance = 0.0; ///< ohms in the loop: a corroded contact
    double shuntConductance = 0.0; ///< siemens across the pair: a leak, or a short within the cable
    double shuntCapacitance = 0.0; ///< farads across the pair: a splice closure
    std::vector<Section> tap; ///< a bridged tap, left open at its own far end; empty for none
};

/// A section and the joint behind it.
struct Span
{
    Section section;
    Joint joint;
};

constexpr double openCircuit = std::numeric_limits<double>::infinity(); ///< as Cable::endResistance
constexpr double shortCircuit = 0.0; ///< as Cable::endResistance

/// A cable from the instrument's terminals outward.
struct Cable
{
    std::vector<Span> spans; ///< if empty, the end is at the terminals
    double endResistance = openCircuit; ///< ohms, 0 or more
};

/// Reflection coefficient of \a cable at \a frequency (Hz, above 0) for a source of
/// \a sourceImpedance ohms (above 0). Its magnitude is at most 1, because a cable is passive.
std::complex<double> reflection(const Cable &cable, double frequency, double sourceImpedance);

} // namespace instrument
