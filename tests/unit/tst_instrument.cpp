// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition.h"
#include "cable.h"
#include "each.h"
#include "fourier.h"
#include "protocol_vx840.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace instrument;

namespace {

/// V, tolerance: without loss an echo is the scaled pulse, but for aliasing below two millionths of
/// its height.
constexpr double exact = 20.0 * 2.0e-6;
constexpr double metresPerSample = 0.125; ///< of fineSettings() on a lossless() cable
constexpr std::size_t shortTrace = 600; ///< samples

Section lossless(double length, double impedance = 120.0)
{
    Section section;
    section.length = length;
    section.impedance = impedance;
    return section;
}

/// 20 V, 20 ns wide, one sample per count, no noise and no launch.
Settings fineSettings()
{
    Settings settings;
    settings.sampleStep = 1.25F;
    settings.pulseWidth = 20;
    settings.launchShare = 0.0;
    settings.noise = 0.0;
    return settings;
}

std::vector<double> fineEchoes(const Cable &cable)
{
    return echoes(cable, fineSettings(), shortTrace);
}

std::size_t highest(const std::vector<double> &values)
{
    const auto place = std::max_element(values.begin(), values.end());
    return static_cast<std::size_t>(std::distance(values.begin(), place));
}

/// Fails unless the echo at \a metres is \a volts high.
void checkLevel(const std::vector<double> &values, double metres, double volts,
                double tolerance = exact)
{
    const double value = values[static_cast<std::size_t>(std::lround(metres / metresPerSample))];
    QVERIFY2(std::abs(value - volts) < tolerance,
             qPrintable(QStringLiteral("%1 V at %2 m").arg(value).arg(metres)));
}

/// Mean product of samples \a distance apart.
double correlation(const std::vector<qint8> &samples, std::size_t distance)
{
    double sum = 0.0;
    for (std::size_t i = distance; i < samples.size(); ++i)
        sum += samples[i] * samples[i - distance];
    return sum / double(samples.size() - distance);
}

} // namespace

/// The parts of the simulated instrument. tst_samples compares whole traces, with losses, launch
/// and averages.
class TestInstrument : public QObject
{
    Q_OBJECT

private slots:
    void onlyPowersOfTwoAreTransformed()
    {
        const std::vector<std::complex<double>> three{ 1.0, 2.0, 3.0 };
        auto values = three;
        inverseTransform(values);
        QVERIFY(values == three);
    }

    void openEndPeaksAtItsEchoTime()
    {
        // Counts are metres x ku / 0.18737028625; a sample is step / 1.25 counts wide.
        struct Row
        {
            const char *name;
            double metres;
            double ku;
            float step;
            quint32 delay;
            std::size_t sample;
        };
        each<Row>({ { "0.125 m a count", 12.5, 1.49896229, 1.25F, 0, 100 },
                    { "two counts a sample", 50.0, 1.49896229, 2.5F, 0, 200 },
                    { "half light speed, count 213.5 / 2", 20.0, 2.0, 2.5F, 0, 107 },
                    { "light speed, count 533.7 / 8", 100.0, 1.0, 10.0F, 0, 67 },
                    { "delayed by 150 of 200", 50.0, 1.49896229, 2.5F, 150, 50 },
                    { "at the terminals", 0.0, 1.49896229, 2.5F, 0, 0 },
                    { "last sample", 1999.9375, 1.49896229, 0.625F, 0, 31999 } },
                  [](const Row &row) {
                      Section section = lossless(row.metres);
                      section.velocityFactor = 1.0 / row.ku;
                      Settings settings = fineSettings();
                      settings.sampleStep = row.step;
                      settings.delay = row.delay;
                      const std::vector<double> values
                          = echoes({ { { section, {} } }, openCircuit }, settings,
                                   std::max(row.sample + 1, shortTrace));
                      QCOMPARE(highest(values), row.sample);
                  });
        // 80 counts through the first section, 160 through the second.
        Section slow = lossless(10.0);
        slow.velocityFactor /= 2.0;
        const Cable cable{ { { lossless(10.0), {} }, { slow, {} } }, openCircuit };
        QCOMPARE(highest(fineEchoes(cable)), std::size_t(240));
    }

    void endsReflectByTheirResistance()
    {
        const std::vector<Span> spans{ { lossless(12.5), {} } };
        const std::vector<double> open = fineEchoes({ spans, openCircuit });
        checkLevel(open, 12.5, 20.0);
        // The echo has half its height at half a width, 10 ns, from its crest.
        checkLevel(open, 11.5, 10.0);
        checkLevel(open, 13.5, 10.0);
        checkLevel(open, 0.0, 0.0);
        checkLevel(fineEchoes({ spans, shortCircuit }), 12.5, -20.0);
        checkLevel(fineEchoes({ spans, 120.0 }), 12.5, 0.0);
        checkLevel(fineEchoes({ {}, openCircuit }), 0.0, 20.0);
        // (360 - 120) / (360 + 120) = 1/2
        checkLevel(fineEchoes({ {}, 360.0 }), 0.0, 10.0);
    }

    void stepOfImpedanceHasMultipleReflections()
    {
        const std::vector<double> values
            = fineEchoes({ { { lossless(20.0), {} }, { lossless(10.0, 60.0), {} } }, openCircuit });
        // (60 - 120) / (60 + 120) = -1/3 at the step. The end returns 1 - 1/9 of the pulse, and a
        // third of that is reflected at the step each time, with its sign.
        checkLevel(values, 20.0, -20.0 / 3.0);
        checkLevel(values, 30.0, 20.0 * 8.0 / 9.0);
        checkLevel(values, 40.0, 20.0 * 8.0 / 27.0);
        checkLevel(values, 50.0, 20.0 * 8.0 / 81.0);
    }

    void jointsReflect()
    {
        const auto measured = [](const Joint &joint, double end) {
            return fineEchoes({ { { lossless(20.0), joint }, { lossless(20.0), {} } }, end });
        };
        // 120 / (120 + 2 x 120) = 1/3; the end is seen twice through 2/3.
        Joint contact;
        contact.seriesResistance = 120.0;
        checkLevel(measured(contact, openCircuit), 20.0, 20.0 / 3.0);
        checkLevel(measured(contact, openCircuit), 40.0, 20.0 * 4.0 / 9.0);
        Joint leak;
        leak.shuntConductance = 1.0 / 120.0;
        checkLevel(measured(leak, openCircuit), 20.0, -20.0 / 3.0);
        checkLevel(measured(leak, openCircuit), 40.0, 20.0 * 4.0 / 9.0);
        // A small capacitance C reflects -C Z / 2 times the slope of the pulse: 0.6 ns here. The
        // bell is steepest, 20 V x 1.4276 / 20 ns, at 0.4247 widths before its crest: -0.857 V. The
        // time constant of 0.6 ns flattens that a little.
        Joint closure;
        closure.shuntCapacitance = 10.0e-12;
        checkLevel(measured(closure, 120.0), 20.0 - 0.875, -0.857, 0.03);
        checkLevel(measured(closure, 120.0), 20.0 + 0.875, 0.857, 0.03);
        // Two cables side by side are half the impedance: -1/3. Two thirds enter the tap, two
        // thirds of their echo leave it, and a third stays, inverted.
        Joint branch;
        branch.tap = { lossless(4.0), lossless(6.0) };
        checkLevel(measured(branch, 120.0), 20.0, -20.0 / 3.0);
        checkLevel(measured(branch, 120.0), 30.0, 20.0 * 4.0 / 9.0);
        checkLevel(measured(branch, 120.0), 40.0, -20.0 * 4.0 / 27.0);
    }

    void amplitudeGainBaselineSlopeAndDroopMoveTheLevels()
    {
        Settings settings = fineSettings();
        settings.pulseAmplitude = 2;
        settings.gain = 20; // ten times: 80 steps of 0.25 V
        settings.baseline = -100.0;
        settings.slope = 0.1;
        settings.droop = 50.0;
        settings.droopTime = 125.0; // 100 samples
        const Trace trace
            = acquire({ { { lossless(12.5), {} } }, openCircuit }, settings, shortTrace);
        QCOMPARE(int(trace.samples[0]), -50);
        QCOMPARE(int(trace.samples[100]), 8); // -100 + 80 + 10 + 50 / e
        QCOMPARE(int(trace.samples[200]), -73); // -100 + 20 + 50 / e^2
        QCOMPARE(trace.clipped, 0);
    }

    void tooMuchGainClips()
    {
        const std::vector<Span> spans{ { lossless(12.5), {} } };
        Settings settings = fineSettings();
        settings.gain = 6; // 80 becomes 159.6
        const Trace up = acquire({ spans, openCircuit }, settings, shortTrace);
        QCOMPARE(int(up.samples[100]), 127);
        // A bell of 16 samples has 127.5 / 159.6 of its height 4.56 samples from its crest: four on
        // each side.
        QCOMPARE(up.clipped, 9);
        const Trace down = acquire({ spans, shortCircuit }, settings, shortTrace);
        QCOMPARE(int(down.samples[100]), -128);
        QVERIFY(down.clipped > 0);
    }

    void receiverBandwidthCorrelatesTheNoise()
    {
        // 24 steps of noise and nothing else: no clipping, and negligible rounding. The standard
        // deviation of 32000 samples is exact to 0.4 %.
        Settings settings = fineSettings();
        settings.pulseAmplitude = 0;
        settings.noise = 6.0;
        settings.average = 1;
        const std::vector<qint8> white = acquire({}, settings).samples;
        QVERIFY(std::abs(std::sqrt(correlation(white, 0)) / 24.0 - 1.0) < 0.02);
        QVERIFY(std::abs(correlation(white, 1)) < 0.03 * correlation(white, 0));
        settings.noiseWidth = 5.0; // 4 samples
        const std::vector<qint8> coloured = acquire({}, settings).samples;
        QVERIFY(std::abs(std::sqrt(correlation(coloured, 0)) / 24.0 - 1.0) < 0.03);
        // A response of 4 samples makes a correlation wider by the root of 2: half at 2.83 samples.
        QVERIFY(std::abs(correlation(coloured, 2) / correlation(coloured, 0) - 0.707) < 0.03);
        QVERIFY(std::abs(correlation(coloured, 4) / correlation(coloured, 0) - 0.25) < 0.03);
        QVERIFY(std::abs(correlation(coloured, 12)) < 0.03 * correlation(coloured, 0));
    }

    void invalidSettingsAreClamped()
    {
        struct Row
        {
            const char *name;
            float step;
            quint32 width;
            quint32 delay;
        };
        each<Row>({ { "no step", 0.0F, 40, 0 },
                    { "step is NaN", std::numeric_limits<float>::quiet_NaN(), 40, 0 },
                    { "infinite step", std::numeric_limits<float>::infinity(), 4000, 0 },
                    { "no width", 1.25F, 0, 0 },
                    { "greatest width", 5.0F, 0xFFFFFFFFU, 0 },
                    { "greatest delay", 5.0F, 40, 0xFFFFFFFFU } },
                  [](const Row &row) {
                      Settings settings;
                      settings.sampleStep = row.step;
                      settings.pulseWidth = row.width;
                      settings.delay = row.delay;
                      settings.average = 0;
                      settings.impedance = 0;
                      const std::vector<double> values
                          = echoes({ { { lossless(50.0), {} } }, openCircuit }, settings);
                      QCOMPARE(values.size(), std::size_t(Protocol_VX840::fileSamples));
                      QVERIFY(std::all_of(values.begin(), values.end(),
                                          [](double value) { return std::isfinite(value); }));
                  });
    }
};

QTEST_APPLESS_MAIN(TestInstrument)
#include "tst_instrument.moc"
