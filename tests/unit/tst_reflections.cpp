// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "calc/reflections.h"
#include "each.h"
#include "test_traces.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

int converted(double level)
{
    return static_cast<int>(std::clamp(std::round(level), -128.0, 127.0));
}

/// A trace composed of shapes.
class Shape
{
public:
    Shape &bell(double at, double height, double width = 8.0)
    {
        for (int i = 0; i < constants::drawnSamples; ++i)
            m_values[i] += height * std::exp2(-4.0 * (i - at) * (i - at) / (width * width));
        return *this;
    }

    Shape &slope(double perSample)
    {
        for (int i = 0; i < constants::drawnSamples; ++i)
            m_values[i] += perSample * (i - 125);
        return *this;
    }

    Shape &droop(double height, double time)
    {
        for (int i = 0; i < constants::drawnSamples; ++i)
            m_values[i] += height * std::exp(-i / time);
        return *this;
    }

    Shape &step(int place, double height)
    {
        for (int i = place; i < constants::drawnSamples; ++i)
            m_values[i] += height;
        return *this;
    }

    Shape &spike(int place, double height)
    {
        m_values[place] += height;
        return *this;
    }

    /// The levels with white noise of \a deviation steps.
    QVector<int> levels(double deviation = 0.5, double noiseWidth = 0.0, quint64 seed = 1) const
    {
        QVector<int> result = rating::noiseLevels(deviation, noiseWidth, seed);
        for (int i = 0; i < constants::drawnSamples; ++i)
            result[i] = converted(result[i] + m_values[i]);
        return result;
    }

private:
    QVector<double> m_values = QVector<double>(constants::drawnSamples, 0.0);
};

/// Samples of the reflections found in \a levels.
QVector<int> placesIn(const QVector<int> &levels, int start = 0)
{
    QVector<int> samples;
    for (const calc::Echo &echo : calc::findEchoes(levels, start))
        samples.append(echo.sample);
    return samples;
}

} // namespace

class TestReflections : public QObject
{
    Q_OBJECT

private slots:
    void noiseAloneHasNoReflections()
    {
        constexpr int traces = 10;
        for (const double noiseWidth : { 0.0, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0, 10.0 }) {
            int found = 0;
            for (quint64 seed = 1; seed <= traces; ++seed)
                for (const double deviation : { 1.0, 4.0, 20.0 })
                    found += int(placesIn(rating::noiseLevels(deviation, noiseWidth, seed)).size());
            QVERIFY2(found <= 3 * traces / 10, qPrintable(QString::number(noiseWidth)));
        }
    }

    void echoesOfRandomCablesAreFound()
    {
        // docs/reflections.md has figures of many more cables. No echo at 14 dB is 6 standard
        // deviations tall.
        int stops = 0;
        int hits = 0;
        int tall = 0;
        int tallFound = 0;
        quint64 seed = 0;
        for (const double noiseWidth : { 0.0, 1.5, 3.0, 6.0 }) {
            for (const double ratio : { 5.0, 10.0, 20.0, 40.0, 100.0 }) { // 14 to 40 dB
                for (int i = 0; i < 2; ++i) {
                    const rating::TestCable test = rating::randomCable(++seed);
                    const double noise = test.tallest / ratio;
                    const QVector<int> places
                        = placesIn(rating::levelsOf(test, noise, noiseWidth, seed));
                    stops += int(places.size());
                    for (const rating::Echo &echo : test.echoes) {
                        const bool hit = std::any_of(places.begin(), places.end(), [&](int place) {
                            return std::abs(place - echo.place) <= std::max(1.5, echo.width / 3.0);
                        });
                        hits += hit ? 1 : 0;
                        tall += std::abs(echo.height) >= 6.0 * noise ? 1 : 0;
                        tallFound += std::abs(echo.height) >= 6.0 * noise && hit ? 1 : 0;
                    }
                }
            }
        }
        QVERIFY2(hits >= 0.9 * stops, qPrintable(QStringLiteral("%1 of %2").arg(hits).arg(stops)));
        QVERIFY2(tallFound >= 0.85 * tall,
                 qPrintable(QStringLiteral("%1 of %2").arg(tallFound).arg(tall)));
    }

    void reflectionIsAtTheHighestSample()
    {
        constexpr int traces = 60;
        for (const double width : { 2.0, 2.5, 3.0, 4.0, 6.0, 10.0, 16.0, 25.0 }) {
            double sum = 0.0;
            for (int i = 0; i < traces; ++i) {
                const double crest = 110.0 + 0.31 * i;
                const int sign = i % 2 == 0 ? 1 : -1;
                const QVector<int> levels
                    = Shape().bell(crest, 60.0 * sign, width).levels(0.3, 0.0, quint64(i));
                const QVector<calc::Echo> echoes = calc::findEchoes(levels);
                QCOMPARE(echoes.size(), 1);
                const int stop = echoes.front().sample;
                QVERIFY(std::abs(stop - crest) <= 1.0 + width / 12.0);
                QVERIFY(sign * levels[stop] >= sign * levels[stop - 1]);
                QVERIFY(sign * levels[stop] >= sign * levels[stop + 1]);
                QVERIFY(echoes.front().height * sign > 0.0);
                sum += stop - crest;
            }
            QVERIFY2(std::abs(sum / traces) <= 0.1,
                     qPrintable(QStringLiteral("%1 at width %2").arg(sum / traces).arg(width)));
        }
    }

    void clippedEchoHasItsReflectionInTheMiddle()
    {
        QCOMPARE(placesIn(Shape().bell(120.0, 900.0).levels()), QVector<int>{ 120 });
        QCOMPARE(placesIn(Shape().bell(120.0, -900.0).levels()), QVector<int>{ 120 });
    }

    void otherShapesHaveNoReflections()
    {
        struct Row
        {
            const char *name;
            QVector<int> levels;
        };
        each<Row>({ { "constant", QVector<int>(constants::drawnSamples, -45) },
                    { "upper limit", QVector<int>(constants::drawnSamples, 127) },
                    { "lower limit", QVector<int>(constants::drawnSamples, -128) },
                    { "edge between the limits", Shape().step(0, -500).step(100, 1000).levels() },
                    { "ramp", Shape().slope(0.4).levels() },
                    { "ramp in coloured noise", Shape().slope(-0.8).levels(4.0, 6.0) },
                    { "clipped ramp", Shape().slope(2.5).levels(4.0) },
                    { "droop", Shape().droop(90.0, 40.0).levels() },
                    { "step", Shape().step(90, 40.0).levels(2.0) },
                    { "launched pulse", Shape().bell(0.0, 120.0).levels() },
                    { "clipped launch", Shape().bell(0.0, 400.0, 20.0).levels(2.0, 3.0) },
                    { "echo cut off at the end", Shape().bell(252.0, 100.0, 12.0).levels() },
                    { "wider than an echo", Shape().bell(125.0, 60.0, 80.0).levels() },
                    { "single sample off", Shape().spike(90, 60.0).levels() },
                    { "noise below one step", Shape().levels(0.2) } },
                  [](const Row &row) { QCOMPARE(placesIn(row.levels), QVector<int>()); });
    }

    void droopInColouredNoiseHasNoReflections()
    {
        // Where it is steep, the baseline follows the noise.
        constexpr int traces = 15;
        int found = 0;
        for (const double time : { 30.0, 50.0 })
            for (quint64 seed = 1; seed <= traces; ++seed)
                found += int(placesIn(Shape().droop(90.0, time).levels(2.0, 6.0, seed)).size());
        QVERIFY2(found <= 2 * traces / 10, qPrintable(QString::number(found)));
    }

    void echoesAreFoundAmongOtherShapes()
    {
        struct Row
        {
            const char *name;
            Shape shape;
            QVector<int> places;
        };
        each<Row>(
            { { "on a ramp", Shape().slope(-0.4).bell(50, 15).bell(200, 15), { 50, 200 } },
              { "behind the launch", Shape().bell(-3, 120, 20).bell(90, 25), { 90 } },
              { "on a droop", Shape().droop(60, 60).bell(80, 20).bell(170, -20), { 80, 170 } },
              { "behind a step", Shape().step(60, 40).bell(150, 20), { 150 } },
              { "beside a spike", Shape().bell(70, 60).spike(120, 100), { 70 } },
              { "two of one sign", Shape().bell(100, 60).bell(118, 60), { 100, 118 } },
              { "wide ones of one sign", Shape().bell(90, 60, 25).bell(132, 50, 25), { 90, 132 } },
              { "a valley between them", Shape().bell(80, 60, 24).bell(138, 60, 24), { 80, 138 } },
              { "a long valley", Shape().bell(70, 60, 20).bell(160, 50, 20), { 70, 160 } },
              { "a longer one", Shape().bell(80, 60, 16).bell(150, 50, 16), { 80, 150 } },
              { "a dip between crests",
                Shape().bell(90, 60).bell(110, -40).bell(130, 60),
                { 90, 110, 130 } },
              { "single samples only",
                Shape().spike(50, 60).spike(90, -60).spike(200, 60),
                { 50, 90, 200 } } },
            [](const Row &row) {
                const QVector<int> found = placesIn(row.shape.levels());
                QCOMPARE(found.size(), row.places.size());
                for (int i = 0; i < found.size(); ++i)
                    QVERIFY(std::abs(found[i] - row.places[i]) <= 1);
            });
    }

    void reflectionHasColumnLevelAndSignOfItsEcho()
    {
        // Wide and narrow echoes of both signs, the last two close together.
        const QVector<int> levels = Shape()
                                        .bell(60, 80, 18.8)
                                        .bell(120, -70, 4.7)
                                        .bell(190, 60, 9.4)
                                        .bell(206, -60, 9.4)
                                        .levels(0.0);
        QVector<QPointF> points;
        for (int i = 0; i < levels.size(); ++i)
            points.append({ 100.0 + 4 * i, 7.0 + levels[i] });
        const QVector<calc::Reflection> list = calc::reflectionList(points, 100.0);
        QCOMPARE(list.size(), 4);
        const int places[] = { 60, 120, 190, 206 };
        const int heights[] = { 80, -70, 60, -60 };
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(list[i].column, 100 + 4 * places[i]);
            QVERIFY(std::abs(list[i].level - 7 - heights[i]) <= 1);
            QCOMPARE(list[i].positive, heights[i] > 0);
        }
        QVERIFY(calc::reflectionList({}, 0.0).isEmpty());
    }

    void shiftsDoNotHideClipping()
    {
        const QVector<int> levels = Shape().step(90, 500.0).levels(2.0);
        for (const int offset : { 0, -45, 30 }) {
            QVector<QPointF> points;
            for (int i = 0; i < levels.size(); ++i)
                points.append({ double(i), double(levels[i] + offset) });
            QVERIFY(calc::reflectionList(points, 0.0, offset).isEmpty());
        }
    }

    void symmetricalConverterClipsOneStepEarlier()
    {
        // Too wide for an echo.
        QVector<int> levels = Shape().step(90, -500.0).step(170, 500.0).levels();
        for (int &level : levels)
            level = std::max(level, -127);
        QCOMPARE(placesIn(levels), QVector<int>());
    }

    void multipleReflectionsAreLeftOut()
    {
        // A pulse that is reflected at 100, 60 and 100 arrives at 140, with a height of at most 100
        // % x 40 % x 100 % = 40.
        const auto cable = [](double late) {
            return Shape().bell(60.0, 40.0).bell(100.0, 100.0).bell(140.0, late).levels();
        };
        QCOMPARE(placesIn(cable(30.0)), (QVector<int>{ 60, 100 }));
        QCOMPARE(placesIn(cable(-30.0)), (QVector<int>{ 60, 100 }));
        QCOMPARE(placesIn(cable(55.0)), (QVector<int>{ 60, 100, 140 }));
        // The second and third round trips between the end of the cable and the instrument.
        const QVector<int> end
            = Shape().bell(80.0, 90.0).bell(160.0, 30.0).bell(240.0, 10.0).levels();
        QCOMPARE(placesIn(end), QVector<int>{ 80 });
        // On a trace that starts later, round trips end at other samples.
        QCOMPARE(placesIn(end, 15), (QVector<int>{ 80, 160 }));
        QCOMPARE(placesIn(Shape().bell(80.0, 90.0).bell(175.0, 30.0).levels(), 15),
                 QVector<int>{ 80 });
    }

    void onlyTheDrawnSamplesAreSearched()
    {
        const QVector<int> levels = Shape().bell(100.0, 60.0).levels();
        QCOMPARE(placesIn(levels + levels), QVector<int>{ 100 });
        const QVector<int> narrow = Shape().bell(2.0, 100.0, 2.0).levels();
        for (int count = 0; count < 5; ++count)
            QCOMPARE(placesIn(narrow.mid(0, count)), QVector<int>());
    }

    void arbitrarySamplesGivePlacesOnTheTrace()
    {
        QVector<QVector<int>> traces(3);
        for (int i = 0; i < 1000; ++i) {
            traces[0].append(i % 2 == 0 ? -128 : 127);
            traces[1].append(i % 7 == 0 ? std::numeric_limits<int>::max()
                                        : std::numeric_limits<int>::min());
            traces[2].append(i % 4 == 0 ? 50 : 0);
        }
        rating::Random random(7);
        for (int length = 5; length < 260; length += 5) {
            QVector<int> bytes;
            while (bytes.size() < length)
                bytes.append(static_cast<int>(random.uniform(-128.0, 128.0)));
            traces.append(bytes);
        }
        for (const QVector<int> &trace : std::as_const(traces)) {
            for (const int start : { 0, 300, std::numeric_limits<int>::max(), -5 }) {
                const QVector<int> found = placesIn(trace, start);
                QVERIFY(std::is_sorted(found.begin(), found.end()));
                for (const int place : found)
                    QVERIFY(place >= 0 && place < std::min<int>(int(trace.size()), 250));
            }
        }
    }

    void nextAndPreviousColumnAreFound()
    {
        const QVector<int> columns = { 40, 80, 120 };
        QCOMPARE(calc::nextColumn(columns, 0), 40);
        QCOMPARE(calc::nextColumn(columns, 40), 80);
        QCOMPARE(calc::nextColumn(columns, 120), -1);
        QCOMPARE(calc::previousColumn(columns, 64000), 120);
        QCOMPARE(calc::previousColumn(columns, 41), 40);
        QCOMPARE(calc::previousColumn(columns, 40), -1);
        QCOMPARE(calc::nextColumn({}, 0), -1);
        QCOMPARE(calc::previousColumn({}, 64000), -1);
    }
};

QTEST_APPLESS_MAIN(TestReflections)
#include "tst_reflections.moc"
