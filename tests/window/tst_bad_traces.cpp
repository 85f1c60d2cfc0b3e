// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "parambutton.h"
#include "settingsdata.h"
#include "windowactions.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr int latestStart = std::numeric_limits<int>::max() - 64000;

/// Does everything to the view that makes points, positions and texts anew.
void exercise(const WindowFixture &fixture)
{
    MainWindow &window = fixture.window();
    const MainWindowProbe &probe = fixture.probe();
    for (const int slot : { 0, 1, 5 }) {
        probe.rfg_buttons()->button(slot)->setChecked(true);
        for (const int parameter : { 1, 3, 7, 8 })
            probe.down_buttons()->button(parameter)->setChecked(true);
        for (const int column : { 0, 1, 249, 64000, -5, std::numeric_limits<int>::max() })
            window.cursorSetup_slot(column);
        for (const int shift : { 7, -7, 64001, std::numeric_limits<int>::min() })
            window.H_Offset_change(shift);
        window.V_Offset_change(std::numeric_limits<int>::max());
        window.setMasterID(slot);
    }
    for (const bool on : { true, false }) {
        QTest::mouseClick(probe.difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe.smooth_button(), Qt::LeftButton);
        window.scale_change(on ? 8 : 0);
        window.gotoCursor(MainWindow::CURSOR_A);
        window.plotScroll(on ? 1 : -1);
    }
    window.KU_change(2.0);
    WindowFixture::settle();
    window.grab();
}

/// Empty while the view is one that can be drawn, else what is wrong with it.
QString faultOf(const MainWindowProbe &probe)
{
    if (!(probe.dist_coef() > 0.0) || !std::isfinite(probe.dist_coef()))
        return QStringLiteral("distance per count");
    if (!(probe.cust_axisX()->min() < probe.cust_axisX()->max()))
        return QStringLiteral("range");
    if (probe.master_scale() < 0 || probe.master_scale() > 8)
        return QStringLiteral("scale");
    for (const auto *series : probe.rfg_series()) {
        const auto points = qtcompat::pointsOf(*series);
        for (const QPointF &point : points)
            if (!std::isfinite(point.x()) || std::abs(point.y()) > 33000.0)
                return QStringLiteral("point");
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(TraceBuilder)

class TestBadTraces : public QObject
{
    Q_OBJECT

private slots:
    void aFieldOutOfBoundsIsClamped_data()
    {
        QTest::addColumn<TraceBuilder>("trace");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("scale");
        QTest::addColumn<int>("rangeMin");
        QTest::addColumn<int>("scroll");
        QTest::addColumn<double>("ku");
        QTest::addColumn<double>("firstX");
        constexpr int smallest = std::numeric_limits<int>::min();
        constexpr int largest = std::numeric_limits<int>::max();
        const double usual = double{ 1.49896229F };
        const auto row = [&](const char *name, const TraceBuilder &trace, int step, int scale,
                             int rangeMin, int scroll, double ku, double firstX) {
            QTest::newRow(name) << trace << step << scale << rangeMin << scroll << ku << firstX;
        };
        const auto stepRow = [&](const char *name, float minstep, int step, int scale) {
            row(name, TraceBuilder().minstep(minstep), step, scale, 0, 0, usual, 0.0);
        };
        stepRow("step 0", 0.0F, 0, 0);
        stepRow("step below one count", 0.3F, 0, 0);
        stepRow("step negative", -5.0F, -4, 0);
        stepRow("step negative and huge", -1e30F, smallest, 0);
        stepRow("step beyond the axis", 100000.0F, 80000, 8);
        stepRow("step huge", 1e30F, largest, 8);
        stepRow("step infinite", infinite, largest, 8);
        stepRow("step minus infinite", -infinite, smallest, 0);
        stepRow("step not a number", notANumber, 0, 0);
        stepRow("step subnormal", 1e-44F, 0, 0);

        row("delay 2^31", TraceBuilder().delay(0x80000000U), 1, 0, latestStart, 0, usual,
            2147483648.0);
        row("delay 2^32 - 1", TraceBuilder().delay(0xFFFFFFFFU), 1, 0, latestStart, 0, usual,
            4294967295.0);
        row("delay and step at their most", TraceBuilder().delay(0xFFFFFFFFU).minstep(1e30F),
            largest, 8, latestStart, 0, usual, 4294967295.0 * 64000.0);
        row("shift 2^32 - 1", TraceBuilder().shiftX(0xFFFFFFFFU).minstep(5.0F), 4, 2, 0, -4, usual,
            -4.0);
        row("shift 2^31", TraceBuilder().shiftX(0x80000000U), 1, 0, 0, smallest, usual,
            -2147483648.0);
        row("shift and step wrap", TraceBuilder().shiftX(0x80000000U).minstep(5.0F), 4, 2, 0, 0,
            usual, 0.0);

        const auto kuRow = [&](const char *name, float factor, double ku) {
            row(name, TraceBuilder().ku(factor), 1, 0, 0, 0, ku, 0.0);
        };
        kuRow("factor not a number", notANumber, 1.0);
        kuRow("factor 0", 0.0F, 1.0);
        kuRow("factor negative", -2.0F, 1.0);
        kuRow("factor infinite", infinite, 10.0);
        kuRow("factor minus infinite", -infinite, 1.0);
        kuRow("factor huge", 1e30F, 10.0);
    }

    void aFieldOutOfBoundsIsClamped()
    {
        QFETCH(TraceBuilder, trace);
        QFETCH(int, step);
        QFETCH(int, scale);
        QFETCH(int, rangeMin);
        QFETCH(int, scroll);
        QFETCH(double, ku);
        QFETCH(double, firstX);
        WindowFixture fixture;
        openWith(fixture, { trace, TraceBuilder().samples(5) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_DATA()[0].coef_from_min, step);
        QCOMPARE(probe.rfg_DATA()[0].scroll, scroll);
        QCOMPARE(probe.master_scale(), scale);
        QCOMPARE(probe.scrollfactorX(), rangeMin);
        QCOMPARE(probe.cust_axisX()->max() - probe.cust_axisX()->min(), 250.0 * (1 << scale));
        QCOMPARE(double{ probe.master_params().KU }, ku);
        QCOMPARE(probe.dist_coef(), 0.18737028625 / ku);
        const auto *series = probe.rfg_series()[0];
        QCOMPARE(series->count(), 499);
        QCOMPARE(series->at(0).x(), firstX);
        QCOMPARE(series->at(1).x(), firstX + qBound(1, step, 64000));

        exercise(fixture);
        const QString fault = faultOf(probe);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        QCOMPARE(probe.rfg_read_index(), 3);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void theSameFieldsBesideAGoodMasterDrawNothingWrong_data()
    {
        aFieldOutOfBoundsIsClamped_data();
    }

    void theSameFieldsBesideAGoodMasterDrawNothingWrong()
    {
        QFETCH(TraceBuilder, trace);
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().samples(5), trace });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_series()[0]->at(498), QPointF(249.0, 5.0));
        QTest::mouseClick(probe.difference_button(), Qt::LeftButton);
        window.rfgSelect_slot(1);
        window.cursorSetup_slot(1000);
        QVERIFY(probe.rfg_series()[1]->count() <= 499);
        QCOMPARE(probe.cursor_A_pos_Y(), 129);
        exercise(fixture);
        const QString fault = faultOf(probe);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void bytesThatAreNoDateGiveAnEmptyText()
    {
        WindowFixture fixture;
        // Month 0x1F, day 0xFF; hours 0xAA: nibbles above nine.
        openWith(fixture,
                 { TraceBuilder()
                       .raw(176, QByteArray::fromHex("1FFFFF"))
                       .raw(171, QByteArray::fromHex("AABBCC")) });
        const MainWindowProbe &probe = fixture.probe();
        QVERIFY(!probe.rfg_DATA()[0].date.isValid());
        QVERIFY(!probe.rfg_DATA()[0].time.isValid());
        QCOMPARE(probe.rfg_buttons()->button(0)->text(), QStringLiteral("RFG 1\n"));
        QVERIFY(probe.chart_title().text().startsWith(QStringLiteral("t1, /")));
        QVERIFY(probe.chart_title().text().endsWith(QStringLiteral(",  ")));
    }

    void aNibbleAboveNineMayStillMakeADate()
    {
        WindowFixture fixture;
        // Year 0x1F is 25, month 0x0C is 12, day 0x0A is 10.
        openWith(fixture, { TraceBuilder().raw(176, QByteArray::fromHex("0C0A1F")) });
        QCOMPARE(fixture.probe().rfg_DATA()[0].date, QDate(2025, 12, 10));
    }

    void recordsOfRandomBytesAreTaken_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 4; ++seed)
            QTest::newRow(qPrintable(QString::number(seed))) << seed;
    }

    void recordsOfRandomBytesAreTaken()
    {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        QVector<TraceBuilder> traces;
        for (int slot = 0; slot < 6; ++slot) {
            QByteArray bytes(37775, Qt::Uninitialized);
            for (char &byte : bytes)
                byte = static_cast<char>(random.bounded(256));
            traces.append(TraceBuilder().raw(0, bytes));
        }
        WindowFixture fixture;
        openWith(fixture, traces, static_cast<int>(seed % 6));
        QCOMPARE(fixture.probe().rfg_read_index(), 63);
        exercise(fixture);
        const QString fault = faultOf(fixture.probe());
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void recordsOfOneByteValueAreTaken_data()
    {
        QTest::addColumn<int>("value");
        for (const int value : { 0x00, 0x7F, 0x80, 0xFF })
            QTest::newRow(qPrintable(QString::number(value))) << value;
    }

    void recordsOfOneByteValueAreTaken()
    {
        QFETCH(int, value);
        const auto trace = TraceBuilder().raw(0, QByteArray(37775, static_cast<char>(value)));
        WindowFixture fixture;
        openWith(fixture, { trace, TraceBuilder(), trace });
        exercise(fixture);
        const QString fault = faultOf(fixture.probe());
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
};

QTEST_MAIN(TestBadTraces)
#include "tst_bad_traces.moc"
