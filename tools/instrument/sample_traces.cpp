// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample_traces.h"

namespace instrument {
namespace {

constexpr double coaxKU = 1.51515; ///< KU of solid polyethylene

/// A pair of 0.5 mm copper wires in polyethylene: 120 ohms, one count per 0.125 m.
Section pairOf(double length)
{
    Section section;
    section.length = length;
    section.skinLoss = 1.0;
    section.dielectricLoss = 0.08;
    return section;
}

/// The same pair with water in its sheath: water raises the capacitance, so impedance and speed
/// fall by the same factor, and it conducts.
Section wetPairOf(double length)
{
    Section section = pairOf(length);
    section.impedance *= 0.75;
    section.velocityFactor *= 0.75;
    section.dielectricLoss = 0.3;
    return section;
}

Section coaxOf(double length)
{
    Section section;
    section.length = length;
    section.impedance = 75.0;
    section.velocityFactor = 1.0 / coaxKU;
    section.skinLoss = 0.7;
    section.dielectricLoss = 0.01;
    return section;
}

Joint series(double ohms)
{
    Joint joint;
    joint.seriesResistance = ohms;
    return joint;
}

Joint shunt(double ohms)
{
    Joint joint;
    joint.shuntConductance = 1.0 / ohms;
    return joint;
}

QDateTime at(int month, int day, int hour, int minute)
{
    return QDateTime(QDate(2026, month, day), QTime(hour, minute, 30), Qt::UTC);
}

SampleTrace healthyPair()
{
    SampleTrace trace;
    trace.fileName = QStringLiteral("1-healthy-pair.tdr");
    trace.cable.spans = { { pairOf(38.0), series(25.0) }, { pairOf(66.0), {} } };
    trace.settings.gain = 4;
    trace.settings.seed = 11;
    trace.survey.time = at(3, 12, 9, 5);
    trace.survey.cableLength = 104.0;
    trace.survey.insulationResistance = 5000.0;
    trace.survey.loopResistance = 18.3;
    trace.survey.capacity = 4.3;
    trace.survey.marks = { { 38.0, "joint" }, { 104.0, "open end" } };
    trace.survey.note = "Pair 4, before the flood";
    trace.survey.cable = 12;
    trace.survey.pair = 4;
    return trace;
}

SampleTrace shortedPair()
{
    SampleTrace trace = healthyPair();
    trace.fileName = QStringLiteral("2-same-pair-shorted.tdr");
    trace.cable.spans
        = { { pairOf(38.0), series(25.0) }, { pairOf(33.5), shunt(6.0) }, { pairOf(32.5), {} } };
    trace.settings.seed = 12;
    trace.survey.time = at(6, 29, 14, 40);
    trace.survey.status = Protocol_VX840::CH_FAILED;
    trace.survey.faultDistance = 71.5;
    trace.survey.insulationResistance = 0.0;
    trace.survey.loopResistance = 18.6;
    trace.survey.marks = { { 38.0, "joint" }, { 71.5, "short" } };
    trace.survey.note = "Pair 4, after the flood";
    return trace;
}

Cable wetCable()
{
    Cable cable;
    cable.spans = { { pairOf(52.0), {} },
                    { wetPairOf(12.0), {} },
                    { pairOf(20.0), series(30.0) },
                    { pairOf(28.0), {} } };
    cable.endResistance = 240.0;
    return cable;
}

SampleTrace wetPair()
{
    SampleTrace trace;
    trace.fileName = QStringLiteral("3-wet-section.tdr");
    trace.cable = wetCable();
    trace.settings.gain = 6;
    trace.settings.baseline = 40.0;
    trace.settings.seed = 13;
    trace.survey.time = at(6, 29, 15, 10);
    trace.survey.status = Protocol_VX840::CH_FAILED;
    trace.survey.faultDistance = 52.0;
    trace.survey.cableLength = 112.0;
    trace.survey.insulationResistance = 0.4;
    trace.survey.loopResistance = 21.5;
    trace.survey.capacity = 5.1;
    trace.survey.marks = { { 52.0, "water from here" } };
    trace.survey.note = "Pair 7 of the same cable route";
    trace.survey.cable = 12;
    trace.survey.pair = 7;
    return trace;
}

SampleTrace bridgedTap()
{
    SampleTrace trace;
    trace.fileName = QStringLiteral("4-bridged-tap-saved-shifts.tdr");
    Joint tap;
    tap.tap = { pairOf(14.0) };
    trace.cable.spans = { { pairOf(10.0), {} }, { pairOf(26.0), tap }, { pairOf(54.0), {} } };
    trace.settings.gain = 3;
    trace.settings.seed = 14;
    trace.survey.time = at(7, 2, 11, 20);
    trace.survey.shiftX = -20;
    trace.survey.shiftY = -45;
    trace.survey.cableLength = 80.0;
    trace.survey.insulationResistance = 2000.0;
    trace.survey.loopResistance = 15.8;
    trace.survey.capacity = 4.3;
    trace.survey.marks = { { 36.0, "tap" }, { 90.0, "open end" } };
    trace.survey.note = "Through a 10 m test lead; the saved shift puts its far end on 0";
    trace.survey.cable = 15;
    trace.survey.pair = 1;
    return trace;
}

SampleTrace longCoax()
{
    SampleTrace trace;
    trace.fileName = QStringLiteral("5-long-coax.tdr");
    trace.cable.spans = { { coaxOf(88.0), series(60.0) }, { coaxOf(115.0), {} } };
    trace.cable.endResistance = shortCircuit;
    trace.settings.sampleStep = 10.0F;
    trace.settings.pulseWidth = 80;
    trace.settings.average = 4;
    trace.settings.impedance = 75;
    trace.settings.ku = static_cast<float>(coaxKU);
    trace.settings.baseline = -80.0;
    trace.settings.seed = 15;
    trace.survey.time = at(8, 18, 8, 55);
    trace.survey.status = Protocol_VX840::CH_FAILED;
    trace.survey.faultDistance = 203.0;
    trace.survey.cableLength = 203.0;
    trace.survey.loopResistance = 31.0;
    trace.survey.capacity = 13.7;
    trace.survey.marks = { { 88.0, "corroded splice" }, { 203.0, "shorted end" } };
    trace.survey.note = "Coaxial feeder, far end shorted for the test";
    trace.survey.cable = 31;
    return trace;
}

SampleTrace closeUp()
{
    SampleTrace trace = wetPair();
    trace.fileName = QStringLiteral("6-wet-section-close-up.tdr");
    trace.settings.sampleStep = 2.5F;
    trace.settings.delay = 168;
    trace.settings.pulseWidth = 20;
    trace.settings.average = 64;
    trace.settings.gain = 12;
    trace.settings.baseline = 80.0;
    trace.settings.seed = 16;
    trace.survey.time = at(6, 29, 15, 20);
    trace.survey.note = "As before, shorter pulse, from 42 m on";
    return trace;
}

} // namespace

std::vector<SampleTrace> sampleTraces()
{
    return { healthyPair(), shortedPair(), wetPair(), bridgedTap(), longCoax(), closeUp() };
}

} // namespace instrument
