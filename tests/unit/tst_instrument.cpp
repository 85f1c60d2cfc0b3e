// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition.h"
#include "cable.h"
#include "protocol_vx840.h"
#include "sample_traces.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace instrument;

namespace {

/// Without loss an echo is the launched bell again, scaled: what is left to err is the arithmetic
/// and the little of the bell that aliases, a millionth of its height.
constexpr double exact = 20.0 * 2.0e-6; // V
constexpr double metresPerSample = 0.125; ///< of fineSettings() on a lossless() cable

Section lossless(double length, double impedance = 120.0)
{
    Section section;
    section.length = length;
    section.impedance = impedance;
    return section;
}

Section lossy(double length, double skinLoss, double dielectricLoss)
{
    Section section = lossless(length);
    section.skinLoss = skinLoss;
    section.dielectricLoss = dielectricLoss;
    return section;
}

/// 20 V, 20 ns wide, one sample per count, no noise and no launch in the way.
Settings fineSettings()
{
    Settings settings;
    settings.sampleStep = 1.25F;
    settings.pulseWidth = 20;
    settings.launchShare = 0.0;
    settings.noise = 0.0;
    return settings;
}

std::size_t highest(const std::vector<double> &values)
{
    const auto place = std::max_element(values.begin(), values.end());
    return static_cast<std::size_t>(std::distance(values.begin(), place));
}

double levelAt(const std::vector<double> &values, double metres)
{
    return values[static_cast<std::size_t>(std::lround(metres / metresPerSample))];
}

double crest(const std::vector<double> &values)
{
    return *std::max_element(values.begin(), values.end());
}

/// Decibels that an open-ended \a section takes from a wave on its way there and back.
double lossOf(const Section &section, double frequency)
{
    const Cable cable{ { { section, {} } }, openCircuit };
    return -20.0 * std::log10(std::abs(reflection(cable, frequency, section.impedance)));
}

/// Standard deviation and mean of the samples.
std::pair<double, double> spread(const std::vector<qint8> &samples)
{
    double sum = 0.0;
    double squares = 0.0;
    for (const qint8 sample : samples) {
        sum += sample;
        squares += sample * sample;
    }
    const auto count = static_cast<double>(samples.size());
    const double mean = sum / count;
    return { std::sqrt(squares / count - mean * mean), mean };
}

} // namespace

class TestInstrument : public QObject
{
    Q_OBJECT

private slots:
    void anOpenEndPeaksAtItsEchoTime_data()
    {
        QTest::addColumn<double>("metres");
        QTest::addColumn<double>("ku");
        QTest::addColumn<float>("step");
        QTest::addColumn<quint32>("delay");
        QTest::addColumn<int>("sample");
        // Counts are metres x ku / 0.18737028625; a sample is step / 1.25 counts wide.
        QTest::newRow("0.125 m a count") << 12.5 << 1.49896229 << 1.25F << 0U << 100;
        QTest::newRow("two counts a sample") << 50.0 << 1.49896229 << 2.5F << 0U << 200;
        QTest::newRow("four counts a sample") << 31.0 << 1.49896229 << 5.0F << 0U << 62;
        QTest::newRow("half light speed, count 213.5 / 2") << 20.0 << 2.0 << 2.5F << 0U << 107;
        QTest::newRow("light speed, count 533.7 / 8") << 100.0 << 1.0 << 10.0F << 0U << 67;
        QTest::newRow("delayed by 150 of 200") << 50.0 << 1.49896229 << 2.5F << 150U << 50;
        QTest::newRow("at the terminals") << 0.0 << 1.49896229 << 2.5F << 0U << 0;
        QTest::newRow("last sample") << 1999.9375 << 1.49896229 << 0.625F << 0U << 31999;
    }

    void anOpenEndPeaksAtItsEchoTime()
    {
        QFETCH(double, metres);
        QFETCH(double, ku);
        QFETCH(float, step);
        QFETCH(quint32, delay);
        QFETCH(int, sample);
        Section section = lossless(metres);
        section.velocityFactor = 1.0 / ku;
        Settings settings = fineSettings();
        settings.sampleStep = step;
        settings.delay = delay;
        const std::vector<double> values = echoes({ { { section, {} } }, openCircuit }, settings);
        QCOMPARE(values.size(), std::size_t(Protocol_VX840::fileSamples));
        QCOMPARE(highest(values), static_cast<std::size_t>(sample));
    }

    void slowSectionsAddTheirOwnTime()
    {
        Section slow = lossless(10.0);
        slow.velocityFactor /= 2.0;
        const Cable cable{ { { lossless(10.0), {} }, { slow, {} } }, openCircuit };
        // 80 counts through the first, 160 through the second.
        QCOMPARE(highest(echoes(cable, fineSettings())), std::size_t(240));
    }

    void anOpenEndReturnsThePulseWhole()
    {
        const std::vector<double> values
            = echoes({ { { lossless(12.5), {} } }, openCircuit }, fineSettings());
        QVERIFY(std::abs(values[100] - 20.0) < exact);
        // Half its height half a width, 10 ns, to either side: a pulse as wide as asked for.
        QVERIFY(std::abs(values[92] - 10.0) < exact);
        QVERIFY(std::abs(values[108] - 10.0) < exact);
        QVERIFY(std::abs(values[0]) < exact);
        QVERIFY(std::abs(values[250]) < exact);
    }

    void aShortInvertsTheEcho()
    {
        const std::vector<Span> spans{ { lossless(30.0), {} } };
        const std::vector<double> open = echoes({ spans, openCircuit }, fineSettings());
        const std::vector<double> closed = echoes({ spans, shortCircuit }, fineSettings());
        for (std::size_t i = 0; i < open.size(); ++i)
            QVERIFY(std::abs(open[i] + closed[i]) < exact);
        QVERIFY(std::abs(levelAt(closed, 30.0) + 20.0) < exact);
    }

    void aMatchedEndReturnsNothing()
    {
        const Cable cable{ { { lossless(30.0), {} } }, 120.0 };
        for (const double value : echoes(cable, fineSettings()))
            QVERIFY(std::abs(value) < exact);
    }

    void aCableOfNothingIsItsEnd()
    {
        QVERIFY(std::abs(echoes({ {}, openCircuit }, fineSettings())[0] - 20.0) < exact);
        QVERIFY(std::abs(echoes({ {}, shortCircuit }, fineSettings())[0] + 20.0) < exact);
        // (360 - 120) / (360 + 120) = 1/2
        QVERIFY(std::abs(echoes({ {}, 360.0 }, fineSettings())[0] - 10.0) < exact);
    }

    void aStepOfImpedanceEchoesAgainAndAgain()
    {
        const Cable cable{ { { lossless(20.0), {} }, { lossless(10.0, 60.0), {} } }, openCircuit };
        const std::vector<double> values = echoes(cable, fineSettings());
        // (60 - 120) / (60 + 120) = -1/3 at the step. What goes on comes back from the end with
        // 1 - 1/9, and a third of it turns round at the step each time, unturned in sign.
        QVERIFY(std::abs(levelAt(values, 20.0) + 20.0 / 3.0) < exact);
        QVERIFY(std::abs(levelAt(values, 30.0) - 20.0 * 8.0 / 9.0) < exact);
        QVERIFY(std::abs(levelAt(values, 40.0) - 20.0 * 8.0 / 27.0) < exact);
        QVERIFY(std::abs(levelAt(values, 50.0) - 20.0 * 8.0 / 81.0) < exact);
    }

    void aPoorContactEchoesUpright()
    {
        Joint joint;
        joint.seriesResistance = 120.0;
        const std::vector<double> values = echoes(
            { { { lossless(20.0), joint }, { lossless(20.0), {} } }, openCircuit }, fineSettings());
        // 120 / (120 + 2 x 120) = 1/3; the end is seen twice through 2/3.
        QVERIFY(std::abs(levelAt(values, 20.0) - 20.0 / 3.0) < exact);
        QVERIFY(std::abs(levelAt(values, 40.0) - 20.0 * 4.0 / 9.0) < exact);
    }

    void aLeakEchoesInverted()
    {
        Joint joint;
        joint.shuntConductance = 1.0 / 120.0;
        const std::vector<double> values = echoes(
            { { { lossless(20.0), joint }, { lossless(20.0), {} } }, openCircuit }, fineSettings());
        QVERIFY(std::abs(levelAt(values, 20.0) + 20.0 / 3.0) < exact);
        QVERIFY(std::abs(levelAt(values, 40.0) - 20.0 * 4.0 / 9.0) < exact);
    }

    void aClosuresCapacitanceDipsThenRises()
    {
        Joint joint;
        joint.shuntCapacitance = 10.0e-12;
        const std::vector<double> values = echoes(
            { { { lossless(20.0), joint }, { lossless(20.0), {} } }, 120.0 }, fineSettings());
        // A small capacitance C echoes -C Z / 2 times the slope of the pulse: 0.6 ns here. The bell
        // is steepest, 20 V x 1.4276 / 20 ns, at 0.4247 widths before its crest: -0.857 V. The
        // closure's own time constant of 0.6 ns flattens that a little.
        QVERIFY(std::abs(levelAt(values, 20.0 - 0.875) + 0.857) < 0.03);
        QVERIFY(std::abs(levelAt(values, 20.0 + 0.875) - 0.857) < 0.03);
    }

    void aBridgedTapIsSeenTwice()
    {
        Joint joint;
        joint.tap = { lossless(4.0), lossless(6.0) };
        const std::vector<double> values = echoes(
            { { { lossless(20.0), joint }, { lossless(20.0), {} } }, 120.0 }, fineSettings());
        // Two cables side by side are half the impedance: -1/3. Two thirds enter the tap, two
        // thirds of their echo leave towards the instrument, and a third stays, inverted.
        QVERIFY(std::abs(levelAt(values, 20.0) + 20.0 / 3.0) < exact);
        QVERIFY(std::abs(levelAt(values, 30.0) - 20.0 * 4.0 / 9.0) < exact);
        QVERIFY(std::abs(levelAt(values, 40.0) + 20.0 * 4.0 / 27.0) < exact);
    }

    void attenuationFallsOffWithDistance()
    {
        double before = 20.0;
        for (const double metres : { 10.0, 20.0, 40.0, 80.0, 160.0, 320.0 }) {
            const Cable cable{ { { lossy(metres, 1.0, 0.08), {} } }, openCircuit };
            const double height = crest(echoes(cable, fineSettings()));
            QVERIFY2(height < 0.95 * before, qPrintable(QString::number(metres)));
            QVERIFY(height > 0.0);
            before = height;
        }
    }

    void attenuationGrowsWithFrequency()
    {
        // Skin effect: 1 dB / 100 m at 1 MHz is 2 dB there and back, doubled by each four times the
        // frequency. It also turns the impedance by a little, which returns up to half a percent of
        // the wave at once: beside what is left at 25 dB that is under 0.3 dB.
        const Section skin = lossy(100.0, 1.0, 0.0);
        QVERIFY(std::abs(lossOf(skin, 10.0e6) - 6.325) < 0.3);
        QVERIFY(std::abs(lossOf(skin, 40.0e6) - 12.649) < 0.3);
        QVERIFY(std::abs(lossOf(skin, 160.0e6) - 25.298) < 0.3);
        // Dielectric: in proportion to the frequency, and here the impedance hardly turns.
        const Section dielectric = lossy(100.0, 0.0, 0.1);
        QVERIFY(std::abs(lossOf(dielectric, 1.0e6) - 0.2) < 0.02);
        QVERIFY(std::abs(lossOf(dielectric, 10.0e6) - 2.0) < 0.02);
        QVERIFY(std::abs(lossOf(dielectric, 50.0e6) - 10.0) < 0.1);
    }

    void aLossyCableKeepsItsVelocityFactor()
    {
        // The crest of a pulse is worn and leans back on its way. A quarter of the pulse's width is
        // what a reader of the trace can tell: 5 ns of 20.
        for (const double metres : { 25.0, 50.0, 100.0 }) {
            const Cable cable{ { { lossy(metres, 1.0, 0.08), {} } }, openCircuit };
            const auto sample = static_cast<double>(highest(echoes(cable, fineSettings())));
            QVERIFY(std::abs(sample - metres / metresPerSample) <= 4.0);
        }
    }

    void noCableReturnsMoreThanItGets()
    {
        for (const SampleTrace &sample : sampleTraces()) {
            for (const double frequency :
                 { 1.0, 1.0e3, 1.0e5, 1.0e6, 3.3e6, 1.0e7, 3.7e7, 1.0e9 }) {
                for (const double impedance : { 25.0, 75.0, 120.0, 600.0 }) {
                    const double share = std::abs(reflection(sample.cable, frequency, impedance));
                    QVERIFY(share <= 1.0 + 1.0e-9); // false for NaN too
                }
            }
        }
    }

    void gainAndBaselinePlaceTheSamples()
    {
        const Cable cable{ { { lossless(12.5), {} } }, openCircuit };
        Settings settings = fineSettings();
        const Trace plain = acquire(cable, settings);
        QCOMPARE(int(plain.samples[100]), 80); // 20 V in steps of 0.25 V
        QCOMPARE(int(plain.samples[92]), 40);
        QCOMPARE(plain.clipped, 0);
        settings.pulseAmplitude = 2;
        settings.gain = 20; // ten times
        settings.baseline = -100.0;
        const Trace amplified = acquire(cable, settings);
        QCOMPARE(int(amplified.samples[100]), -20);
        QCOMPARE(int(amplified.samples[0]), -100);
        QCOMPARE(amplified.clipped, 0);
    }

    void theLaunchIsHeldDown()
    {
        Settings settings = fineSettings();
        settings.launchShare = 0.2;
        const std::vector<double> values = echoes({ { { lossless(30.0), {} } }, 120.0 }, settings);
        QVERIFY(std::abs(values[0] - 4.0) < exact);
        QVERIFY(std::abs(values[8] - 2.0) < exact);
    }

    void tooMuchGainClipsAndSaysSo()
    {
        const std::vector<Span> spans{ { lossless(12.5), {} } };
        Settings settings = fineSettings();
        settings.gain = 6; // 80 becomes 159.6
        const Trace up = acquire({ spans, openCircuit }, settings);
        QCOMPARE(int(up.samples[100]), 127);
        // 127.5 / 159.6 of a bell of 16 samples is 4.56 samples from its crest: four on each side.
        QCOMPARE(up.clipped, 9);
        const Trace down = acquire({ spans, shortCircuit }, settings);
        QCOMPARE(int(down.samples[100]), -128);
        QVERIFY(down.clipped > 0);
    }

    void averagingDividesTheNoiseByItsRoot()
    {
        Settings settings = fineSettings();
        settings.pulseAmplitude = 0;
        settings.noise = 6.0; // 24 steps: no clipping within five times, rounding does not count
        settings.average = 1;
        const auto [once, meanOnce] = spread(acquire({}, settings).samples);
        settings.average = 16;
        settings.seed = 2;
        const auto [often, meanOften] = spread(acquire({}, settings).samples);
        // 32000 samples know their spread to 0.4 %.
        QVERIFY(std::abs(once - 24.0) < 24.0 * 0.02);
        QVERIFY(std::abs(often - 6.0) < 6.0 * 0.02);
        QVERIFY(std::abs(meanOnce) < 5.0 * 24.0 / std::sqrt(32000.0));
        QVERIFY(std::abs(meanOften) < 5.0 * 6.0 / std::sqrt(32000.0));
    }

    void noiseIsTheSameForTheSameSeed()
    {
        const Cable cable{ { { lossless(12.5), {} } }, openCircuit };
        Settings settings;
        const Trace first = acquire(cable, settings);
        QCOMPARE(first.samples, acquire(cable, settings).samples);
        settings.seed = 2;
        QVERIFY(first.samples != acquire(cable, settings).samples);
    }

    void strangeSettingsStillMeasure_data()
    {
        QTest::addColumn<float>("step");
        QTest::addColumn<quint32>("width");
        QTest::addColumn<quint32>("delay");
        QTest::newRow("no step") << 0.0F << 40U << 0U;
        QTest::newRow("step no number") << std::numeric_limits<float>::quiet_NaN() << 40U << 0U;
        QTest::newRow("step without end") << std::numeric_limits<float>::infinity() << 4000U << 0U;
        QTest::newRow("no width") << 1.25F << 0U << 0U;
        QTest::newRow("widest") << 5.0F << 0xFFFFFFFFU << 0U;
        QTest::newRow("latest") << 5.0F << 40U << 0xFFFFFFFFU;
    }

    void strangeSettingsStillMeasure()
    {
        QFETCH(float, step);
        QFETCH(quint32, width);
        QFETCH(quint32, delay);
        Settings settings;
        settings.sampleStep = step;
        settings.pulseWidth = width;
        settings.delay = delay;
        settings.average = 0;
        settings.impedance = 0;
        const std::vector<double> values
            = echoes({ { { lossless(50.0), {} } }, openCircuit }, settings);
        QCOMPARE(values.size(), std::size_t(Protocol_VX840::fileSamples));
        for (const double value : values)
            QVERIFY(std::isfinite(value));
        QCOMPARE(acquire({}, settings).samples.size(), values.size());
    }
};

QTEST_APPLESS_MAIN(TestInstrument)
#include "tst_instrument.moc"
