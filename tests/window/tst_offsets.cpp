// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowactions.h"

#include <QButtonGroup>
#include <QtTest>

#include <limits>

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

quint32 storedShift(const WindowFixture &fixture)
{
    return fixture.probe().rfg_DATA()[0].f_p_840.ch.params.shiftX;
}

} // namespace

class TestOffsets : public QObject
{
    Q_OBJECT

private slots:
    // ---- Horizontal shift ----

    void aHorizontalShiftIsCutToWholeSamples_data()
    {
        QTest::addColumn<float>("minstep");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("samples");
        QTest::addColumn<int>("scroll");
        QTest::newRow("7 by 4") << 5.0F << 7 << 1 << 4;
        QTest::newRow("-7 by 4") << 5.0F << -7 << -1 << -4;
        QTest::newRow("3 by 4") << 5.0F << 3 << 0 << 0;
        QTest::newRow("-3 by 4") << 5.0F << -3 << 0 << 0;
        QTest::newRow("8 by 4") << 5.0F << 8 << 2 << 8;
        QTest::newRow("beyond the axis") << 5.0F << 64001 << 16000 << 64000;
        QTest::newRow("beyond the axis to the left") << 5.0F << -64001 << -16000 << -64000;
        QTest::newRow("largest, by 3") << 3.75F << largest << 21333 << 63999;
        QTest::newRow("smallest, by 3") << 3.75F << smallest << -21333 << -63999;
        QTest::newRow("step 0 counts as 1") << 0.5F << 7 << 7 << 7;
    }

    void aHorizontalShiftIsCutToWholeSamples()
    {
        QFETCH(float, minstep);
        QFETCH(int, value);
        QFETCH(int, samples);
        QFETCH(int, scroll);
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().minstep(minstep) });
        window.H_Offset_change(value);
        const MainWindowProbe &probe = fixture.probe();
        // To the left in two's complement, as the instrument stores it.
        QCOMPARE(storedShift(fixture), static_cast<quint32>(samples));
        QCOMPARE(probe.rfg_DATA()[0].scroll, scroll);
        QCOMPARE(probe.rfg_series()[0]->at(0).x(), double(scroll));
        const QString text = QStringLiteral("X Shift\n") + window.count_to_distance(scroll);
        QCOMPARE(probe.H_offset_button()->text(), text);
        // The horizontal shift is what the dial shows after the start.
        QCOMPARE(probe.param_dial()->titleText, text);
    }

    void aShiftToTheLeftSurvivesTheRecord()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().minstep(5.0F) });
        window.H_Offset_change(-7);
        const quint32 stored = storedShift(fixture);
        QCOMPARE(stored, 0xFFFFFFFFU);
        const QString path = fixture.trace(QStringLiteral("shifted.tdr"),
                                           TraceBuilder().minstep(5.0F).shiftX(stored));
        window.add_Selected_RFG(path, 0);
        QCOMPARE(fixture.probe().rfg_DATA()[0].scroll, -4);
    }

    void theHorizontalShiftMovesTheSelectedTraceOnly()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder(), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        probe.rfg_buttons()->button(1)->click();
        window.H_Offset_change(30);
        QCOMPARE(probe.rfg_DATA()[0].scroll, 0);
        QCOMPARE(probe.rfg_DATA()[1].scroll, 30);
        QCOMPARE(probe.rfg_series()[1]->at(0).x(), 30.0);
        QCOMPARE(probe.rfg_series()[0]->at(0).x(), 0.0);
    }

    void theDialShowsAnotherParameterUnchanged()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        probe.KU_button()->click();
        const QString text = probe.param_dial()->titleText;
        window.H_Offset_change(30);
        window.V_Offset_change(5);
        window.scale_change(3);
        QCOMPARE(probe.param_dial()->titleText, text);
    }

    // ---- Vertical shift ----

    void aVerticalShiftIsClamped_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("offset");
        for (const auto &row : { std::pair<int, int>(300, 256),
                                 { -257, -256 },
                                 { 256, 256 },
                                 { 257, 256 },
                                 { -256, -256 },
                                 { 0, 0 },
                                 { largest, 256 },
                                 { smallest, -256 } })
            QTest::newRow(qPrintable(QString::number(row.first))) << row.first << row.second;
    }

    void aVerticalShiftIsClamped()
    {
        QFETCH(int, value);
        QFETCH(int, offset);
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().samples(3) });
        const MainWindowProbe &probe = fixture.probe();
        probe.V_offset_button()->click();
        window.V_Offset_change(value);
        QCOMPARE(probe.rfg_DATA()[0].offset, offset);
        QCOMPARE(probe.rfg_series()[0]->at(0).y(), offset + 3.0);
        const QString text = QStringLiteral("Y Shift\n%1").arg(offset);
        QCOMPARE(probe.V_offset_button()->text(), text);
        QCOMPARE(probe.param_dial()->titleText, text);
    }

    void aShiftUpdatesTheCursors()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().samples(3) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.cursor_A_pos_Y(), 3);
        window.V_Offset_change(40);
        QCOMPARE(probe.cursor_A_pos_Y(), 43);
        QCOMPARE(probe.cursor_B_pos_Y(), 43);
        // The trace starts right of both cursors now.
        window.H_Offset_change(100);
        QCOMPARE(probe.cursor_A_pos_Y(), 129);
    }

    // ---- Velocity factor ----

    void theVelocityFactorIsClamped_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<float>("factor");
        QTest::addColumn<QString>("text");
        QTest::newRow("0.5") << 0.5 << 1.0F << QStringLiteral("1.000");
        QTest::newRow("11") << 11.0 << 10.0F << QStringLiteral("10.000");
        QTest::newRow("1") << 1.0 << 1.0F << QStringLiteral("1.000");
        QTest::newRow("10") << 10.0 << 10.0F << QStringLiteral("10.000");
        QTest::newRow("1.49896229") << 1.49896229 << 1.49896229F << QStringLiteral("1.499");
        QTest::newRow("negative") << -3.0 << 1.0F << QStringLiteral("1.000");
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 10.0F
                                  << QStringLiteral("10.000");
        QTest::newRow("not a number")
            << std::numeric_limits<double>::quiet_NaN() << 1.0F << QStringLiteral("1.000");
    }

    void theVelocityFactorIsClamped()
    {
        QFETCH(double, value);
        QFETCH(float, factor);
        QFETCH(QString, text);
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        probe.KU_button()->click();
        window.KU_change(value);
        QCOMPARE(probe.master_params().KU + 0.0F, factor);
        QCOMPARE(probe.dist_coef(), 0.18737028625 / double{ factor });
        QCOMPARE(probe.KU_button()->text(), QStringLiteral("KU\n") + text);
        QCOMPARE(probe.param_dial()->titleText, QStringLiteral("KU\n") + text);
    }

    void theStartUpFactorIsKeptInSinglePrecision()
    {
        WindowFixture fixture;
        fixture.open();
        QVERIFY(qAbs(fixture.probe().dist_coef() - 0.12500000057) < 1e-11);
    }

    void everyDistanceFollowsTheVelocityFactor()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().minstep(5.0F).shiftX(10) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.H_offset_button()->text(), QStringLiteral("X Shift\n5.00 m"));
        window.KU_change(1.0);
        // 40 counts of 0.18737 m, and the step of four.
        QCOMPARE(probe.H_offset_button()->text(), QStringLiteral("X Shift\n7.49 m"));
        QCOMPARE(probe.param_dial()->titleText, QStringLiteral("X Shift\n7.49 m"));
        QCOMPARE(probe.cursor_step_lbl().text(), QStringLiteral("cursor step = 0.75 m"));
    }

    void anEmptySelectedSlotKeepsItsBlankShift()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.H_offset_button()->text(), QStringLiteral("X Shift"));
        window.KU_change(2.0);
        QCOMPARE(probe.H_offset_button()->text(), QStringLiteral("X Shift"));
        QCOMPARE(probe.param_dial()->titleText, QStringLiteral("X Shift\n"));
    }

    void theVelocityFactorAloneIsNotCopiedIntoTheRecord()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder() });
        window.KU_change(3.0);
        QCOMPARE(fixture.probe().rfg_DATA()[0].f_p_840.ch.params.KU + 0.0F, 1.49896229F);
    }
};

QTEST_MAIN(TestOffsets)
#include "tst_offsets.moc"
