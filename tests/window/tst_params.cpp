// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QtTest>

namespace {

void click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

/// What a parameter button makes of the dial.
struct DialState
{
    bool zeroOff;
    int min;
    int max;
    int value;
    int travel;
    QString caption;

    explicit DialState(const Cont_dial *dial)
        : zeroOff(dial->zeroOff)
        , min(dial->trueMin)
        , max(dial->trueMax)
        , value(dial->trueValue)
        , travel(dial->maximum())
        , caption(dial->titleText)
    {
    }

    bool operator==(const DialState &other) const
    {
        return zeroOff == other.zeroOff && min == other.min && max == other.max
            && value == other.value && travel == other.travel && caption == other.caption;
    }
};

} // namespace

class TestParams : public WindowTest
{
    Q_OBJECT

private:
    Cont_dial *dial() const
    {
        return probe().param_dial();
    }
    /// Opens the window on one trace of four counts to a sample, shifted by two samples and 7
    /// steps.
    void openWithTrace()
    {
        WindowFixture::writePreviousRun({ fixture->trace(
            QStringLiteral("one.tdr"), TraceBuilder().minstep(5.0F).shiftX(2).shiftY(7)) });
        fixture->open();
    }
    /// As if a hand had turned the dial to \a value.
    void turnTo(int value)
    {
        dial()->trueValue = value;
        emit dial()->trueValueChanged(value);
    }

private slots:
    void theStartUpFactorStandsAt498AndNot499()
    {
        fixture->open();
        click(probe().KU_button());
        QVERIFY(dial()->zeroOff);
        QCOMPARE(dial()->trueMin, 0);
        QCOMPARE(dial()->trueMax, 9000);
        QCOMPARE(dial()->trueValue, 498);
        QCOMPARE(dial()->maximum(), 100);
        QCOMPARE(dial()->value(), 498 % 100);
        QCOMPARE(dial()->titleText, QStringLiteral("KU\n1.499"));
    }

    void theVerticalShiftGivesTheDialBothSigns()
    {
        openWithTrace();
        click(probe().V_offset_button());
        QVERIFY(!dial()->zeroOff);
        QCOMPARE(dial()->trueMin, -256);
        QCOMPARE(dial()->trueMax, 256);
        QCOMPARE(dial()->trueValue, 7);
        QCOMPARE(dial()->value(), 7);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n7"));
    }

    void theHorizontalShiftGivesTheDialTheWholeAxis()
    {
        openWithTrace();
        click(probe().scale_button());
        click(probe().H_offset_button());
        QVERIFY(!dial()->zeroOff);
        QCOMPARE(dial()->trueMin, -64000);
        QCOMPARE(dial()->trueMax, 64000);
        QCOMPARE(dial()->trueValue, 8);
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n1.00 m"));
    }

    void theScaleKeepsItsOwnSpeed()
    {
        openWithTrace();
        probe().settingsData()->param_dial_speed = 250;
        click(probe().scale_button());
        QVERIFY(dial()->zeroOff);
        QCOMPARE(dial()->trueMin, 0);
        QCOMPARE(dial()->trueMax, 8);
        QCOMPARE(dial()->trueValue, 2);
        QCOMPARE(dial()->maximum(), 8);
        QCOMPARE(dial()->titleText, QStringLiteral("Scale\n125 m"));
        window().setDialSettings();
        QCOMPARE(dial()->maximum(), 8);
        click(probe().KU_button());
        QCOMPARE(dial()->maximum(), 250);
        probe().settingsData()->param_dial_speed = 50;
        window().setDialSettings();
        QCOMPARE(dial()->maximum(), 50);
    }

    void onlyTrueValueIsTheTruthOnAWrappingDial()
    {
        openWithTrace();
        window().V_Offset_change(-256);
        click(probe().V_offset_button());
        QCOMPARE(dial()->trueValue, -256);
        QCOMPARE(dial()->value(), 44);
    }

    void aReadOnlyParameterCannotBeClicked()
    {
        openWithTrace();
        click(probe().scale_button());
        click(probe().gain_button());
        QVERIFY(probe().scale_button()->isChecked());
        QVERIFY(!probe().gain_button()->isChecked());
    }

    void checkingGainAfterScaleLeavesTheDialAsItWas()
    {
        openWithTrace();
        click(probe().scale_button());
        const DialState before(dial());
        for (const int id : { 0, 2, 4, 5, 6, 9 }) {
            probe().down_buttons()->button(id)->setChecked(true);
            QCOMPARE(probe().down_buttons()->checkedId(), id);
            QVERIFY(DialState(dial()) == before);
        }
    }

    void aTurnUnderAReadOnlyParameterDoesNothing()
    {
        openWithTrace();
        click(probe().scale_button());
        probe().gain_button()->setChecked(true);
        turnTo(5);
        QCOMPARE(probe().master_scale(), 2);
        QCOMPARE(probe().rfg_DATA()[0].offset, 7);
        QCOMPARE(probe().rfg_DATA()[0].scroll, 8);
    }

    void anEmptySlotShowsTheTitleAlone_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("caption");
        QTest::newRow("vertical shift") << 3 << QStringLiteral("Y Shift\n");
        QTest::newRow("horizontal shift") << 7 << QStringLiteral("X Shift\n");
        QTest::newRow("velocity factor of the view") << 1 << QStringLiteral("KU\n1.499");
        QTest::newRow("scale of the view") << 8 << QStringLiteral("Scale\n31.25 m");
    }

    void anEmptySlotShowsTheTitleAlone()
    {
        QFETCH(const int, id);
        QFETCH(const QString, caption);
        fixture->open();
        click(probe().scale_button());
        click(probe().down_buttons()->button(id));
        QCOMPARE(dial()->titleText, caption);
    }

    void turningShiftsOfAnEmptySlotChangesNothing()
    {
        fixture->open();
        click(probe().V_offset_button());
        turnTo(20);
        QCOMPARE(probe().rfg_DATA()[0].offset, 0);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n"));
        QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift"));
        click(probe().H_offset_button());
        turnTo(20);
        QCOMPARE(probe().rfg_DATA()[0].scroll, 0);
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift"));
    }

    void theFactorOfAnEmptySlotIsTheViewsAndIsCopiedIntoItsRecord()
    {
        fixture->open();
        click(probe().KU_button());
        turnTo(1000);
        QCOMPARE(probe().master_params().KU + 0.0F, 2.0F);
        QCOMPARE(probe().rfg_DATA()[0].f_p_840.ch.params.KU + 0.0F, 2.0F);
        QCOMPARE(probe().dist_coef(), 0.18737028625 / 2.0);
        QCOMPARE(dial()->titleText, QStringLiteral("KU\n2.000"));
    }

    void changingTheFactorWithoutTheDialDoesNotCopyIt()
    {
        openWithTrace();
        window().KU_change(3.0);
        QCOMPARE(probe().master_params().KU + 0.0F, 3.0F);
        QCOMPARE(probe().rfg_DATA()[0].f_p_840.ch.params.KU + 0.0F, 1.49896229F);
    }

    void theEndsOfTheFactorsDialAreOneAndTen()
    {
        openWithTrace();
        click(probe().KU_button());
        turnTo(9000);
        QCOMPARE(probe().master_params().KU + 0.0F, 10.0F);
        QCOMPARE(probe().rfg_DATA()[0].f_p_840.ch.params.KU + 0.0F, 10.0F);
        turnTo(0);
        QCOMPARE(probe().master_params().KU + 0.0F, 1.0F);
    }

    void eachDialParameterReachesItsOperation()
    {
        openWithTrace();
        click(probe().V_offset_button());
        turnTo(-30);
        QCOMPARE(probe().rfg_DATA()[0].offset, -30);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n-30"));
        click(probe().H_offset_button());
        turnTo(-7);
        QCOMPARE(probe().rfg_DATA()[0].scroll, -4);
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n-0.50 m"));
        click(probe().scale_button());
        turnTo(8);
        QCOMPARE(probe().master_scale(), 8);
        QCOMPARE(dial()->titleText, QStringLiteral("Scale\n8000 m"));
    }

    void anOffsetOf129IsNothingOnTheDialAnd129OnTheButton()
    {
        openWithTrace();
        click(probe().V_offset_button());
        turnTo(129);
        QCOMPARE(probe().rfg_DATA()[0].offset, 129);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n"));
        QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift\n129"));
        click(probe().KU_button());
        click(probe().V_offset_button());
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n"));
        turnTo(130);
        QCOMPARE(dial()->titleText, QStringLiteral("Y Shift\n130"));
    }

    void anotherTraceBringsItsOwnShiftsToTheDial()
    {
        WindowFixture::writePreviousRun(
            { fixture->trace(QStringLiteral("one.tdr"), TraceBuilder().shiftX(5)),
              fixture->trace(QStringLiteral("two.tdr"), TraceBuilder().shiftX(9)) });
        fixture->open();
        QCOMPARE(dial()->trueValue, 5);
        click(probe().selected_rfg()[1]);
        QCOMPARE(dial()->trueValue, 9);
        click(probe().selected_rfg()[3]);
        QCOMPARE(dial()->trueValue, 0);
        QCOMPARE(dial()->titleText, QStringLiteral("X Shift\n"));
    }

    void theDialTurnedByHandReachesTheTrace()
    {
        openWithTrace();
        click(probe().V_offset_button());
        input::turn(dial(), 360);
        QCOMPARE(dial()->trueValue, 107);
        QCOMPARE(probe().rfg_DATA()[0].offset, 107);
        input::turn(dial(), -720);
        QCOMPARE(probe().rfg_DATA()[0].offset, -93);
    }

    void aFactorTurnedByHandMovesInThousandths()
    {
        fixture->open();
        click(probe().KU_button());
        input::turn(dial(), 360);
        QCOMPARE(dial()->trueValue, 598);
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n1.598"));
    }

    void aDialWithoutSpeedSurvivesWheelKeysAndHand_data()
    {
        QTest::addColumn<int>("speed");
        QTest::newRow("none") << 0;
        QTest::newRow("negative") << -5;
        QTest::newRow("smallest number") << std::numeric_limits<int>::min();
    }

    void aDialWithoutSpeedSurvivesWheelKeysAndHand()
    {
        QFETCH(const int, speed);
        WindowFixture::writeSettings(
            QStringLiteral("[Dials]\nparamSpeed=%1\ncursorSpeed=%1\n").arg(speed).toLatin1());
        fixture->open();
        QCOMPARE(probe().settingsData()->param_dial_speed, speed);
        QCOMPARE(probe().settingsData()->cursor_dial_speed, speed);
        for (const int id : { 1, 3, 7, 8 }) {
            click(probe().down_buttons()->button(id));
            for (Cont_dial *each : { dial(), probe().cursor_dial() }) {
                input::wheel(each, 120);
                input::wheel(each, -120);
                QTest::keyClick(each, Qt::Key_Right);
                QTest::keyClick(each, Qt::Key_Left);
                QTest::keyClick(each, Qt::Key_PageUp);
                input::turn(each, 360);
            }
            QCOMPARE(dial()->maximum(), id == 8 ? 8 : 1);
        }
        QCOMPARE(probe().cursor_dial()->maximum(), 1);
    }
};

QTEST_MAIN(TestParams)
#include "tst_params.moc"
