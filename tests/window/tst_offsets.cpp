// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QtTest>

#include <limits>

class TestOffsets : public WindowTest
{
    Q_OBJECT

private:
    QString dialText() const
    {
        return probe().param_dial()->titleText;
    }

    /// As in the record: to the left in two's complement.
    int storedShift() const
    {
        const quint32 stored = probe().rfg_DATA()[0].f_p_840.ch.params.shiftX;
        return static_cast<int>(stored);
    }

    void verifyHorizontalShift(int value, int samples, int scroll)
    {
        window().H_Offset_change(value);
        QCOMPARE(storedShift(), samples);
        QCOMPARE(probe().rfg_DATA()[0].scroll, scroll);
        QCOMPARE(probe().rfg_series()[0]->at(0).x(), double(scroll));
        const QString text = QStringLiteral("X Shift\n") + window().count_to_distance(scroll);
        QCOMPARE(probe().H_offset_button()->text(), text);
        QCOMPARE(dialText(), text);
    }

private slots:
    void aHorizontalShiftIsTruncatedToWholeSamples()
    {
        openOn({ TraceBuilder().minstep(5.0F) });
        verifyHorizontalShift(7, 1, 4);
        verifyHorizontalShift(-3, 0, 0);
        verifyHorizontalShift(8, 2, 8);
        verifyHorizontalShift(64001, 16000, 64000);
        verifyHorizontalShift(-64001, -16000, -64000);
        verifyHorizontalShift(-7, -1, -4);
        // The record keeps it.
        const QString path = fixture->trace(
            QStringLiteral("shifted.tdr"),
            TraceBuilder().minstep(5.0F).shiftX(static_cast<quint32>(storedShift())));
        window().add_Selected_RFG(path, 0);
        QCOMPARE(probe().rfg_DATA()[0].scroll, -4);

        openOn({ TraceBuilder().minstep(3.75F) });
        verifyHorizontalShift(std::numeric_limits<int>::max(), 21333, 63999);
        verifyHorizontalShift(std::numeric_limits<int>::min(), -21333, -63999);
        openOn({ TraceBuilder().minstep(0.5F) }); // step 0 counts as 1
        verifyHorizontalShift(7, 7, 7);
    }

    void theHorizontalShiftMovesTheSelectedTraceOnly()
    {
        openOn({ TraceBuilder(), TraceBuilder() });
        probe().rfg_buttons()->button(1)->click();
        window().H_Offset_change(30);
        QCOMPARE(probe().rfg_DATA()[0].scroll, 0);
        QCOMPARE(probe().rfg_series()[0]->at(0).x(), 0.0);
        QCOMPARE(probe().rfg_DATA()[1].scroll, 30);
        QCOMPARE(probe().rfg_series()[1]->at(0).x(), 30.0);
    }

    void aVerticalShiftIsClamped()
    {
        openOn({ TraceBuilder().samples(3) });
        probe().V_offset_button()->click();
        for (const int value : { 300, 0, -257, 256, 257, -256, std::numeric_limits<int>::max(),
                                 std::numeric_limits<int>::min() }) {
            const int offset = qBound(-256, value, 256);
            window().V_Offset_change(value);
            QCOMPARE(probe().rfg_DATA()[0].offset, offset);
            QCOMPARE(probe().rfg_series()[0]->at(0).y(), offset + 3.0);
            QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift\n%1").arg(offset));
            QCOMPARE(dialText(), QStringLiteral("Y Shift\n%1").arg(offset));
        }
    }

    void aShiftUpdatesTheCursors()
    {
        openOn({ TraceBuilder().samples(3) });
        QCOMPARE(probe().cursor_A_pos_Y(), 3);
        window().V_Offset_change(40);
        QCOMPARE(probe().cursor_A_pos_Y(), 43);
        QCOMPARE(probe().cursor_B_pos_Y(), 43);
        window().H_Offset_change(100); // the trace starts right of both cursors
        QCOMPARE(probe().cursor_A_pos_Y(), 129);
    }

    void theDialOfAnotherParameterDoesNotChange()
    {
        openOn({ TraceBuilder() });
        probe().KU_button()->click();
        const QString text = dialText();
        window().H_Offset_change(30);
        window().V_Offset_change(5);
        window().scale_change(3);
        QCOMPARE(dialText(), text);
    }

    void theShorteningFactorIsClamped()
    {
        openOn({ TraceBuilder() });
        probe().KU_button()->click();
        const auto verify = [this](double value, float factor, const char *text) {
            window().KU_change(value);
            QCOMPARE(probe().master_params().KU + 0.0F, factor);
            QCOMPARE(probe().dist_coef(), 0.18737028625 / double{ factor });
            QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n") + QLatin1String(text));
            QCOMPARE(dialText(), QStringLiteral("KU\n") + QLatin1String(text));
        };
        verify(11.0, 10.0F, "10.000");
        verify(0.5, 1.0F, "1.000");
        verify(1.49896229, 1.49896229F, "1.499");
        verify(std::numeric_limits<double>::infinity(), 10.0F, "10.000");
        verify(std::numeric_limits<double>::quiet_NaN(), 1.0F, "1.000");
        // The record keeps its own.
        QCOMPARE(probe().rfg_DATA()[0].f_p_840.ch.params.KU + 0.0F, 1.49896229F);
    }

    void theStartUpFactorIsKeptInSinglePrecision()
    {
        openOn({});
        QVERIFY(qAbs(probe().dist_coef() - 0.12500000057) < 1e-11);
    }

    void everyDistanceFollowsTheShorteningFactor()
    {
        openOn({ TraceBuilder().minstep(5.0F).shiftX(10) });
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift\n5.00 m"));
        window().KU_change(1.0);
        // 40 counts of 0.18737 m, and the step of four.
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift\n7.49 m"));
        QCOMPARE(dialText(), QStringLiteral("X Shift\n7.49 m"));
        QCOMPARE(probe().cursor_step_lbl().text(), QStringLiteral("cursor step = 0.75 m"));
    }

    void anEmptySelectedSlotHasNoShift()
    {
        openOn({});
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift"));
        window().KU_change(2.0);
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift"));
        QCOMPARE(dialText(), QStringLiteral("X Shift\n"));
    }
};

QTEST_MAIN(TestOffsets)
#include "tst_offsets.moc"
