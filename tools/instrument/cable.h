// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <limits>
#include <vector>

/// \file
/// A cable as a pulse sees it: uniform sections, what is spliced in between them, and an end.
///
/// Everything is linear, so the cable is solved once per frequency, from its end back to the
/// instrument. Every echo of an echo is in the result; none is counted by hand.

namespace instrument {

constexpr double lightSpeed = 299792458.0; ///< m/s

/// Frequency at which Section::velocityFactor holds as the speed of a group of waves, Hz. Skin
/// effect slows the low frequencies, so a velocity factor without a frequency would be half a
/// statement. With this one the crests of pulses 20 to 80 ns wide keep time with it over 100 m of
/// the cables in samples/; shorter ones run ahead of it a little and longer ones fall behind.
constexpr double velocityFrequency = 3.0e6;

/// A uniform stretch of cable.
struct Section
{
    double length = 0.0; ///< m, 0 or more
    double impedance = 120.0; ///< ohms above 0, at frequencies where losses no longer turn it
    double velocityFactor = 1.0 / 1.49896229; ///< speed of a pulse over that of light, above 0 to 1
    double skinLoss = 0.0; ///< dB per 100 m at 1 MHz; grows with the root of the frequency
    double dielectricLoss = 0.0; ///< dB per 100 m at 1 MHz; grows with the frequency
};

/// What sits at the far end of a section: nothing by default.
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
    std::vector<Span> spans; ///< none: the end stands at the terminals
    double endResistance = openCircuit; ///< ohms, 0 or more
};

/// Share of a wave of \a frequency (Hz, above 0) that \a cable throws back into a source of
/// \a sourceImpedance ohms (above 0), as amplitude and phase. Never above 1 in magnitude: a cable
/// has no source of its own.
std::complex<double> reflection(const Cable &cable, double frequency, double sourceImpedance);

} // namespace instrument
