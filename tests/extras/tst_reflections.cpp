// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition.h"
#include "base/constants.h"
#include "calc/reflections.h"
#include "protocol_vx840.h"
#include "sample_traces.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

using Protocol_VX840::TDR_FILE_t;

namespace {

constexpr int sampleFiles = 6;

QString fileName(int number)
{
    return instrument::sampleTraces()[static_cast<std::size_t>(number - 1)].fileName;
}

TDR_FILE_t recordOf(int number)
{
    TDR_FILE_t record = {};
    QFile file(QDir(QStringLiteral(VELKOR_SAMPLES_DIR)).filePath(fileName(number)));
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (bytes.size() == int(sizeof record))
        std::memcpy(&record, bytes.constData(), sizeof record);
    return record;
}

QVector<int> levelsOf(const TDR_FILE_t &record)
{
    QVector<int> levels;
    for (int i = 0; i < constants::drawnSamples; ++i)
        levels.append(record.samples[i]);
    return levels;
}

/// What samples/README.md says of each trace: the metres at which the screen shows its faults. The
/// echoes of echoes it names for the fourth are no faults.
QVector<double> faultsOf(int number)
{
    const QVector<double> faults[] = {
        { 38.0, 104.0 },      { 38.0, 71.5 },  { 52.0, 68.0, 88.0, 116.0 },
        { 26.0, 40.0, 80.0 }, { 88.0, 203.0 }, { 52.0, 68.0, 88.0 },
    };
    return faults[number - 1];
}

double metresOf(const TDR_FILE_t &record, int sample)
{
    const auto shift = static_cast<qint32>(record.ch.params.shiftX);
    const int step = static_cast<int>(double(record.ch.params.sample_minstep) / 1.25);
    return (double(shift) + double(record.ch.params.delay) + sample) * step * constants::distCoef0
        / double(record.ch.params.KU);
}

/// Empty when \a found are the documented faults of the sample, each within a quarter of the pulse,
/// and nothing else; otherwise what is wrong.
QString verdict(int number, const TDR_FILE_t &record, const QVector<int> &found)
{
    const double pulse = record.ch.params.pulse_width / constants::nsPerCount * constants::distCoef0
        / double(record.ch.params.KU);
    const QVector<double> faults = faultsOf(number);
    QStringList metres;
    bool good = found.size() == faults.size();
    for (int i = 0; i < found.size(); ++i) {
        const double place = metresOf(record, found[i]);
        metres.append(QString::number(place));
        good = good && std::abs(place - faults[i]) <= pulse / 4.0;
    }
    return good ? QString() : QStringLiteral("found at ") + metres.join(QStringLiteral(", "));
}

/// Noise of standard deviation 1, the same on every system.
class Noise
{
public:
    explicit Noise(quint64 seed)
        : m_generator(seed)
    {
    }

    double operator()()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
            sum += static_cast<double>(m_generator() >> 11) * 0x1p-53;
        return sum;
    }

private:
    std::mt19937_64 m_generator;
};

int converted(double level)
{
    return static_cast<int>(std::clamp(std::round(level), -128.0, 127.0));
}

/// A quiet trace on which bells are drawn.
class Picture
{
public:
    Picture &bell(double at, double height, double width = 8.0)
    {
        for (int i = 0; i < constants::drawnSamples; ++i)
            m_values[i] += height * std::exp2(-4.0 * (i - at) * (i - at) / (width * width));
        return *this;
    }

    Picture &slope(double perSample)
    {
        for (int i = 0; i < constants::drawnSamples; ++i)
            m_values[i] += perSample * i;
        return *this;
    }

    QVector<int> levels(double noise = 0.0, quint64 seed = 1) const
    {
        Noise unit(seed);
        QVector<int> result;
        for (const double value : m_values)
            result.append(converted(value + noise * unit()));
        return result;
    }

private:
    QVector<double> m_values = QVector<double>(constants::drawnSamples, 0.0);
};

QVector<int> noiseAlone(double deviation, quint64 seed, double middle = 0.4)
{
    Noise unit(seed);
    QVector<int> levels;
    for (int i = 0; i < constants::drawnSamples; ++i)
        levels.append(converted(middle + deviation * unit()));
    return levels;
}

} // namespace

class TestReflections : public QObject
{
    Q_OBJECT

private slots:
    void theSamplesShowTheirFaultsAndNothingElse_data()
    {
        QTest::addColumn<int>("number");
        for (int number = 1; number <= sampleFiles; ++number)
            QTest::addRow("%d", number) << number;
    }

    void theSamplesShowTheirFaultsAndNothingElse()
    {
        QFETCH(int, number);
        const TDR_FILE_t record = recordOf(number);
        const QString wrong = verdict(number, record, calc::reflections(levelsOf(record)));
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void otherShotsAndOtherGainsShowTheSame_data()
    {
        theSamplesShowTheirFaultsAndNothingElse_data();
    }

    /// The same cables measured again: noise is never the same twice, and the operator may have
    /// chosen another gain. Some of the tallest echoes are then cut off by the converter.
    void otherShotsAndOtherGainsShowTheSame()
    {
        QFETCH(int, number);
        const TDR_FILE_t record = recordOf(number);
        const instrument::SampleTrace sample
            = instrument::sampleTraces()[static_cast<std::size_t>(number - 1)];
        const std::vector<double> volts = instrument::echoes(sample.cable, sample.settings);
        const double noise = sample.settings.noise / std::sqrt(double(sample.settings.average));
        for (const double gain : { -3.0, 0.0, 3.0, 6.0, 12.0 }) {
            const double stepsPerVolt
                = std::pow(10.0, (sample.settings.gain + gain) / 20.0) / instrument::voltsPerStep;
            for (quint64 seed = 100; seed < 120; ++seed) {
                Noise unit(seed);
                QVector<int> levels;
                for (std::size_t i = 0; i < constants::drawnSamples; ++i)
                    levels.append(converted(sample.settings.baseline
                                            + stepsPerVolt * (volts[i] + noise * unit())));
                const QString wrong = verdict(number, record, calc::reflections(levels));
                QVERIFY2(
                    wrong.isEmpty(),
                    qPrintable(QStringLiteral("%1 dB, seed %2: ").arg(gain).arg(seed) + wrong));
            }
        }
    }

    void noiseAloneTurnsNowhere()
    {
        for (const double deviation : { 0.1, 0.3, 0.5, 1.0, 3.0, 10.0, 40.0, 100.0, 1000.0 })
            for (quint64 seed = 1; seed <= 60; ++seed)
                QCOMPARE(calc::reflections(noiseAlone(deviation, seed)), QVector<int>());
    }

    void flatAndSaturatedTracesTurnNowhere()
    {
        for (const int level : { -128, -127, -45, 0, 1, 126, 127 })
            QCOMPARE(calc::reflections(QVector<int>(constants::drawnSamples, level)),
                     QVector<int>());
        // Held at the upper bound, then at the lower one: an edge, not an echo.
        QVector<int> edge(constants::drawnSamples, 127);
        std::fill(edge.begin() + 100, edge.end(), -128);
        QCOMPARE(calc::reflections(edge), QVector<int>());
    }

    void garbageGivesPlacesOnTheTrace()
    {
        QVector<QVector<int>> traces;
        QVector<int> alternating;
        QVector<int> waves;
        QVector<int> extremes;
        for (int i = 0; i < 1000; ++i) {
            alternating.append(i % 2 == 0 ? -128 : 127);
            waves.append(converted(127.0 * std::sin(i / 3.0)));
            extremes.append(i % 7 == 0 ? std::numeric_limits<int>::max()
                                       : std::numeric_limits<int>::min());
        }
        traces << alternating << waves << extremes;
        std::mt19937 generator(7);
        for (int i = 0; i < 50; ++i) {
            QVector<int> bytes;
            for (int k = 0; k < constants::drawnSamples; ++k)
                bytes.append(static_cast<int>(generator() % 256) - 128);
            traces << bytes;
        }
        for (const QVector<int> &trace : qAsConst(traces)) {
            const QVector<int> found = calc::reflections(trace);
            QVERIFY(std::is_sorted(found.begin(), found.end()));
            for (const int place : found)
                QVERIFY(place >= 0 && place < constants::drawnSamples);
        }
        QVERIFY(!calc::reflections(waves).isEmpty());
    }

    void shortTracesTurnNowhere()
    {
        const QVector<int> bell = Picture().bell(2.0, 100.0, 2.0).levels();
        for (int count = 0; count < 5; ++count)
            QCOMPARE(calc::reflections(bell.mid(0, count)), QVector<int>());
        QCOMPARE(calc::reflections(bell.mid(0, 250)), QVector<int>{ 2 });
    }

    void onlyTheDrawnSamplesAreLookedAt()
    {
        QVector<int> levels = Picture().bell(100.0, 60.0).levels();
        levels += Picture().bell(100.0, 90.0).levels();
        QCOMPARE(calc::reflections(levels), QVector<int>{ 100 });
    }

    void aBellTurnsAtItsCrest_data()
    {
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("width");
        for (const double height : { -100.0, -20.0, -6.0, 6.0, 20.0, 100.0 })
            for (const double width : { 3.0, 5.0, 8.0, 16.0, 40.0 })
                QTest::addRow("%g high, %g wide", height, width) << height << width;
    }

    void aBellTurnsAtItsCrest()
    {
        QFETCH(double, height);
        QFETCH(double, width);
        const QVector<int> found
            = calc::reflections(Picture().bell(120.0, height, width).levels(0.3));
        QCOMPARE(found.size(), 1);
        QVERIFY2(std::abs(found.constFirst() - 120) <= 1 + width / 8.0,
                 qPrintable(QString::number(found.constFirst())));
    }

    void aTopThatWasCutOffTurnsInItsMiddle()
    {
        QCOMPARE(calc::reflections(Picture().bell(120.0, 900.0).levels()), QVector<int>{ 120 });
        QCOMPARE(calc::reflections(Picture().bell(120.0, -900.0).levels()), QVector<int>{ 120 });
    }

    void heightAndSignOfTheTraceDoNotMatter()
    {
        const QVector<int> plain
            = Picture().bell(60.0, 30.0).bell(140.0, -40.0).bell(190.0, 20.0).levels(0.8);
        const QVector<int> places = calc::reflections(plain);
        QCOMPARE(places.size(), 3);
        QVector<int> shifted = plain;
        QVector<int> mirrored = plain;
        for (int i = 0; i < plain.size(); ++i) {
            shifted[i] += 256;
            mirrored[i] = -plain[i];
        }
        QCOMPARE(calc::reflections(shifted), places);
        QCOMPARE(calc::reflections(mirrored), places);
    }

    void theValleyBetweenTwoEchoesIsNone()
    {
        const QVector<int> found
            = calc::reflections(Picture().bell(100.0, 60.0).bell(118.0, 60.0).levels(0.5));
        QCOMPARE(found, (QVector<int>{ 100, 118 }));
    }

    void theLaunchedPulseIsNone()
    {
        QCOMPARE(calc::reflections(Picture().bell(0.0, 120.0).levels(0.5)), QVector<int>());
        QCOMPARE(calc::reflections(Picture().bell(-3.0, 120.0, 20.0).bell(90.0, 25.0).levels(0.5)),
                 QVector<int>{ 90 });
    }

    void whatIsCutOffAtTheEndHasNotTurned()
    {
        QCOMPARE(calc::reflections(Picture().bell(252.0, 100.0, 12.0).levels(0.5)), QVector<int>());
    }

    void aSlopingLineIsQuiet()
    {
        QCOMPARE(calc::reflections(Picture().slope(0.4).levels(0.5)), QVector<int>());
        const QVector<int> found = calc::reflections(
            Picture().slope(-0.4).bell(50.0, 15.0).bell(200.0, 15.0).levels(0.5));
        QCOMPARE(found, (QVector<int>{ 50, 200 }));
    }

    void anEchoOfEchoesIsNone()
    {
        // Thrown back at 100, forward at 60 and back at 100 again: 140, at most 40 x 100 x 100 of
        // shares of 100.
        const auto cable = [](double late) {
            return Picture().bell(60.0, 40.0).bell(100.0, 100.0).bell(140.0, late).levels(0.5);
        };
        QCOMPARE(calc::reflections(cable(30.0)), (QVector<int>{ 60, 100 }));
        QCOMPARE(calc::reflections(cable(-30.0)), (QVector<int>{ 60, 100 }));
        // Nothing on the way can make it taller: a place on the cable.
        QCOMPARE(calc::reflections(cable(55.0)), (QVector<int>{ 60, 100, 140 }));
    }

    void anEchoElsewhereIsAPlace()
    {
        const QVector<int> found = calc::reflections(
            Picture().bell(60.0, 40.0).bell(100.0, 100.0).bell(150.0, 30.0).levels(0.5));
        QCOMPARE(found, (QVector<int>{ 60, 100, 150 }));
    }

    void noiseIsMeasuredBesideEchoes()
    {
        for (const double deviation : { 0.6, 1.0, 2.5, 8.0, 20.0 }) {
            double sum = 0.0;
            for (quint64 seed = 1; seed <= 20; ++seed)
                sum += calc::noiseOf(Picture().bell(60.0, 90.0).levels(deviation, seed));
            QVERIFY2(std::abs(sum / 20.0 / deviation - 1.0) < 0.25,
                     qPrintable(QString::number(sum / 20.0)));
        }
        QCOMPARE(calc::noiseOf({}), 0.0);
        QCOMPARE(calc::noiseOf({ 5, 90 }), 0.0);
    }

    void theNextAndThePreviousColumn()
    {
        const QVector<int> columns = { 40, 80, 120 };
        QCOMPARE(calc::nextColumn(columns, 0), 40);
        QCOMPARE(calc::nextColumn(columns, 40), 80);
        QCOMPARE(calc::nextColumn(columns, 119), 120);
        QCOMPARE(calc::nextColumn(columns, 120), -1);
        QCOMPARE(calc::previousColumn(columns, 64000), 120);
        QCOMPARE(calc::previousColumn(columns, 120), 80);
        QCOMPARE(calc::previousColumn(columns, 41), 40);
        QCOMPARE(calc::previousColumn(columns, 40), -1);
        QCOMPARE(calc::nextColumn({}, 0), -1);
        QCOMPARE(calc::previousColumn({}, 64000), -1);
    }
};

QTEST_APPLESS_MAIN(TestReflections)
#include "tst_reflections.moc"
