// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cable.h"

#include <algorithm>
#include <cmath>

namespace instrument {
namespace {

using Complex = std::complex<double>;

constexpr double pi = 3.14159265358979323846;
constexpr double decibelsPerNeper = 8.685889638065037;

/// Voltage and current at one point of the cable, up to a common factor: only their ratio counts.
/// Unlike an impedance or an admittance the pair has a finite value at an open end and at a short.
struct Port
{
    Complex voltage;
    Complex current;
};

/// The port at the near end of \a section with \a load at its far end.
///
/// The telegrapher's equations, dV/dx = -(R + jwL) I and dI/dx = -(G + jwC) V, give
///     V(0) = cosh(g l) V(l) + Zc sinh(g l) I(l)
///     I(0) = sinh(g l) / Zc V(l) + cosh(g l) I(l)
/// with g = sqrt((R + jwL)(G + jwC)) and Zc = (R + jwL) / g. R and G follow from the two losses:
/// - skin effect, a sqrt(f) nepers per metre: R = 2 Z0 a sqrt(f), and since a current in the skin
///   lags by an eighth of a turn, a reactance of the same size, which delays by a sqrt(f) radians;
/// - dielectric, b f nepers per metre: G = 2 b f / Z0.
/// L and C follow from the impedance, Z0 = sqrt(L / C), and from the delay per metre, sqrt(LC): the
/// delay of the velocity factor minus the group delay of the skin effect at velocityFrequency.
Port throughSection(const Section &section, double frequency, const Port &load)
{
    const double omega = 2.0 * pi * frequency;
    const double a = section.skinLoss / 100.0 / decibelsPerNeper / std::sqrt(1.0e6);
    const double b = section.dielectricLoss / 100.0 / decibelsPerNeper / 1.0e6;
    const double groupDelay = 1.0 / (lightSpeed * section.velocityFactor);
    const double skinDelay = a / (4.0 * pi * std::sqrt(velocityFrequency));
    const double delay = std::max(groupDelay - skinDelay, 1.0 / lightSpeed);

    const double skin = 2.0 * section.impedance * a * std::sqrt(frequency);
    const Complex series(skin, skin + omega * delay * section.impedance);
    const Complex shunt(2.0 * b * frequency / section.impedance, omega * delay / section.impedance);
    const Complex propagation = std::sqrt(series * shunt);
    const Complex characteristic = series / propagation;

    // cosh and sinh, both divided by the growing half exp(g l), which overflows on long cables.
    const Complex thereAndBack = std::exp(-2.0 * propagation * section.length);
    const Complex cosine = 0.5 * (1.0 + thereAndBack);
    const Complex sine = 0.5 * (1.0 - thereAndBack);
    return { cosine * load.voltage + characteristic * sine * load.current,
             sine / characteristic * load.voltage + cosine * load.current };
}

Port throughJoint(const Joint &joint, double frequency, const Port &load)
{
    const Complex shunt(joint.shuntConductance, 2.0 * pi * frequency * joint.shuntCapacitance);
    Port port{ load.voltage, load.current + shunt * load.voltage };
    if (!joint.tap.empty()) {
        Port branch{ 1.0, 0.0 };
        for (auto section = joint.tap.rbegin(); section != joint.tap.rend(); ++section)
            branch = throughSection(*section, frequency, branch);
        // In parallel, the voltages are equal and the currents add. The pair is multiplied by the
        // branch's voltage, not divided by it: the branch can be a short at this frequency.
        port = { port.voltage * branch.voltage,
                 port.current * branch.voltage + port.voltage * branch.current };
    }
    port.voltage += joint.seriesResistance * port.current;
    return port;
}

} // namespace

std::complex<double> reflection(const Cable &cable, double frequency, double sourceImpedance)
{
    Port port{ 1.0, 0.0 };
    if (std::isfinite(cable.endResistance))
        port = { cable.endResistance, 1.0 };
    for (auto span = cable.spans.rbegin(); span != cable.spans.rend(); ++span) {
        port = throughJoint(span->joint, frequency, port);
        port = throughSection(span->section, frequency, port);
    }
    const Complex drop = sourceImpedance * port.current;
    return (port.voltage - drop) / (port.voltage + drop);
}

} // namespace instrument
