// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "input_events.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QtTest>

/// The parameters, set by the dial and by the window's operations. tst_view_range tests the limits
/// of the values.
class TestParams : public WindowTest
{
    Q_OBJECT

private:
    Cont_dial *dial() const
    {
        return probe().param_dial();
    }

    /// Opens a trace of four counts per sample, shifted by two samples and 7 levels.
    void openWithTrace()
    {
        openOn({ TraceBuilder().minstep(5.0F).shiftX(2).shiftY(7) });
    }

    /// Sets the dial as a turn to \a value does.
    void turnTo(int value)
    {
        dial()->trueValue = value;
        emit dial()->trueValueChanged(value);
    }

    /// The values that a parameter button sets on the dial, as one text.
    QString dialState() const
    {
        return QStringLiteral("%1 in %2..%3 of %4%5, '%6'")
            .arg(dial()->trueValue)
            .arg(dial()->trueMin)
            .arg(dial()->trueMax)
            .arg(dial()->maximum())
            .arg(dial()->zeroOff ? QStringLiteral(" from 0") : QString())
            .arg(QString(dial()->titleText).replace(QLatin1Char('\n'), QLatin1Char('|')));
    }

    double recordedKU() const
    {
        return double{ probe().rfg_DATA()[0].f_p_840.ch.params.KU };
    }

private slots:
    void eachParameterSetsUpTheDial()
    {
        openWithTrace();
        input::click(probe().scale_button());
        QCOMPARE(dialState(), QStringLiteral("2 in 0..8 of 8 from 0, 'Scale|125 m'"));
        input::click(probe().V_offset_button());
        QCOMPARE(dialState(), QStringLiteral("7 in -256..256 of 100, 'Y Shift|7'"));
        input::click(probe().H_offset_button());
        QCOMPARE(dialState(), QStringLiteral("8 in -64000..64000 of 100, 'X Shift|1.00 m'"));
        // 498 and not 499: the factor is kept in single precision.
        input::click(probe().KU_button());
        QCOMPARE(dialState(), QStringLiteral("498 in 0..9000 of 100 from 0, 'KU|1.499'"));
        QCOMPARE(dial()->value(), 98);
        // The value of the dial wraps, the true value does not.
        window().V_Offset_change(-256);
        input::click(probe().V_offset_button());
        QCOMPARE(dial()->trueValue, -256);
        QCOMPARE(dial()->value(), 44);
    }

    void scaleKeepsItsOwnSpeed()
    {
        openWithTrace();
        probe().settingsData()->param_dial_speed = 250;
        input::click(probe().scale_button());
        window().setDialSettings();
        QCOMPARE(dial()->maximum(), 8);
        input::click(probe().KU_button());
        QCOMPARE(dial()->maximum(), 250);
        probe().settingsData()->param_dial_speed = 50;
        window().setDialSettings();
        QCOMPARE(dial()->maximum(), 50);
    }

    void readOnlyParameterDoesNotChangeTheDial()
    {
        openWithTrace();
        input::click(probe().scale_button());
        input::click(probe().gain_button());
        QVERIFY(probe().scale_button()->isChecked());
        const QString before = dialState();
        for (const int id : { 0, 2, 4, 5, 6, 9 }) {
            probe().down_buttons()->button(id)->setChecked(true);
            QCOMPARE(probe().down_buttons()->checkedId(), id);
            QCOMPARE(dialState(), before);
        }
        turnTo(5);
        QCOMPARE(probe().master_scale(), 2);
        QCOMPARE(probe().rfg_DATA()[0].offset, 7);
        QCOMPARE(probe().rfg_DATA()[0].scroll, 8);
    }

    void emptySlotHasNoShiftsOnTheDial()
    {
        openOn({});
        input::click(probe().V_offset_button());
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n"));
        turnTo(20);
        QCOMPARE(probe().rfg_DATA()[0].offset, 0);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n"));
        QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift"));
        input::click(probe().H_offset_button());
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n"));
        turnTo(20);
        QCOMPARE(probe().rfg_DATA()[0].scroll, 0);
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift"));
        window().KU_change(2.0);
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n"));
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift"));
    }

    void dialCopiesTheFactorIntoTheRecord()
    {
        for (const bool empty : { true, false }) {
            if (empty)
                openOn({});
            else
                openWithTrace();
            input::click(probe().KU_button());
            turnTo(1000);
            QCOMPARE(double{ probe().master_params().KU }, 2.0);
            QCOMPARE(recordedKU(), 2.0);
            QCOMPARE(probe().dist_coef(), 0.18737028625 / 2.0);
            QCOMPARE(dial()->titleText, QStringLiteral("KU\n2.000"));
        }
    }

    void turnOfTheDialChangesTheSelectedParameter()
    {
        openWithTrace();
        input::click(probe().H_offset_button());
        turnTo(-7);
        QCOMPARE(probe().rfg_DATA()[0].scroll, -4);
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n-0.50 m"));
        input::click(probe().scale_button());
        turnTo(8);
        QCOMPARE(probe().master_scale(), 8);
        QCOMPARE(dial()->titleText, QStringLiteral("Scale\n8000 m"));
        input::click(probe().V_offset_button());
        turnTo(-30);
        QCOMPARE(probe().rfg_DATA()[0].offset, -30);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n-30"));
        // The dial shows no level 129; the button does.
        turnTo(129);
        QCOMPARE(probe().rfg_DATA()[0].offset, 129);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n"));
        QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift\n129"));
        input::click(probe().KU_button());
        input::click(probe().V_offset_button());
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n"));
        turnTo(130);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n130"));
    }

    // ---- Operations without the dial ----

    void horizontalShiftIsTruncatedToWholeSamples()
    {
        openOn({ TraceBuilder(), TraceBuilder().minstep(5.0F) });
        input::click(probe().selected_rfg()[1]);
        window().H_Offset_change(-7);
        const rfg_SHOWN &trace = probe().rfg_DATA()[1];
        QCOMPARE(trace.scroll, -4);
        // In two's complement.
        QCOMPARE(quint32{ trace.f_p_840.ch.params.shiftX }, 0xFFFFFFFFU);
        QCOMPARE(probe().rfg_series()[1]->at(0).x(), -4.0);
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift\n-0.50 m"));
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n-0.50 m"));
        QCOMPARE(probe().rfg_DATA()[0].scroll, 0);
        QCOMPARE(probe().rfg_series()[0]->at(0).x(), 0.0);
    }

    void verticalShiftIsClampedAndUpdatesTheCursors()
    {
        openOn({ levelTrace(3) });
        input::click(probe().V_offset_button());
        for (const int value : { 300, 0, -257, 40 }) {
            const int offset = qBound(-256, value, 256);
            window().V_Offset_change(value);
            QCOMPARE(probe().rfg_DATA()[0].offset, offset);
            QCOMPARE(probe().rfg_series()[0]->at(0).y(), offset + 3.0);
            QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift\n%1").arg(offset));
            QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n%1").arg(offset));
            QCOMPARE(probe().cursor_A_pos_Y(), offset + 3);
            QCOMPARE(probe().cursor_B_pos_Y(), offset + 3);
        }
        window().H_Offset_change(100); // the trace starts right of both cursors
        QCOMPARE(probe().cursor_A_pos_Y(), 129);
    }

    void dialOfAnotherParameterDoesNotChange()
    {
        openOn({ TraceBuilder() });
        input::click(probe().KU_button());
        const QString before = dialState();
        window().H_Offset_change(30);
        window().V_Offset_change(5);
        window().scale_change(3);
        QCOMPARE(dialState(), before);
    }

    void everyDistanceFollowsTheShorteningFactor()
    {
        openOn({ TraceBuilder().minstep(5.0F).shiftX(10) });
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift\n5.00 m"));
        window().KU_change(0.5);
        // 40 counts of 0.18737 m, and the cursor step of four counts.
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift\n7.49 m"));
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n7.49 m"));
        QCOMPARE(probe().cursor_step_lbl().text(), QStringLiteral("cursor step = 0.75 m"));
        input::click(probe().KU_button());
        window().KU_change(11.0);
        QCOMPARE(double{ probe().master_params().KU }, 10.0);
        QCOMPARE(probe().dist_coef(), 0.018737028625);
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n10.000"));
        QCOMPARE(dial()->titleText, QStringLiteral("KU\n10.000"));
        // The record keeps its own factor.
        QCOMPARE(float(recordedKU()), 1.49896229F);
    }
};

QTEST_MAIN(TestParams)
#include "tst_params.moc"
