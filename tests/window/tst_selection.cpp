// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowactions.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

namespace {

QString shortDate(int year, int month, int day)
{
    return QLocale::system().toString(QDate(year, month, day), QLocale::ShortFormat);
}

} // namespace

class TestSelection : public WindowTest
{
    Q_OBJECT

private:
    QString stepText() const
    {
        return probe().cursor_step_lbl().text();
    }

private slots:
    // ---- Texts ----

    void aLoadedSlotWritesItsParameters()
    {
        openOn({ TraceBuilder(),
                 TraceBuilder()
                     .gain(41)
                     .average(32)
                     .pulseWidth(4000000000U)
                     .pulseAmplitude(60000)
                     .impedance(120)
                     .ku(3.0F)
                     .shiftX(8)
                     .shiftY(-20)
                     .date(2023, 11, 30)
                     .time(17, 4, 59) });
        QTest::mouseClick(probe().rfg_buttons()->button(1), Qt::LeftButton);
        QCOMPARE(probe().rfg_ID(), 1);
        QCOMPARE(probe().gain_button()->text(), QStringLiteral("Gain\n41"));
        // The factor of the view, not that of the trace.
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n1.499"));
        QCOMPARE(probe().average_button()->text(), QStringLiteral("Average\n32"));
        QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift\n-20"));
        QCOMPARE(probe().pulse_width_button()->text(), QStringLiteral("Pulse Width\n4000000000ns"));
        QCOMPARE(probe().pulse_amplitude_button()->text(), QStringLiteral("Pulse Amp\n60000V"));
        QCOMPARE(probe().impedance_button()->text(), QStringLiteral("Impedance\n120"));
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift\n1.00 m"));
        QCOMPARE(probe().scale_button()->text(), QStringLiteral("Scale\n31.25 m"));
        const QString folder = QFileInfo(fixture->path(QStringLiteral("x"))).dir().dirName();
        QCOMPARE(probe().chart_title().text(),
                 QStringLiteral("t2, /") + folder + QStringLiteral(", ") + shortDate(2023, 11, 30)
                     + QStringLiteral(" 17:04:59"));
    }

    void anEmptySlotBlanksTheParametersAndTitlesTheChartWithItsName()
    {
        openOn({ TraceBuilder() });
        QTest::mouseClick(probe().rfg_buttons()->button(4), Qt::LeftButton);
        QCOMPARE(probe().rfg_ID(), 4);
        QCOMPARE(probe().chart_title().text(), QStringLiteral("RFG 5"));
        QCOMPARE(probe().gain_button()->text(), QStringLiteral("Gain"));
        QCOMPARE(probe().average_button()->text(), QStringLiteral("Average"));
        QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift"));
        QCOMPARE(probe().pulse_width_button()->text(), QStringLiteral("Pulse Width"));
        QCOMPARE(probe().pulse_amplitude_button()->text(), QStringLiteral("Pulse Amp"));
        QCOMPARE(probe().impedance_button()->text(), QStringLiteral("Impedance"));
        QCOMPARE(probe().H_offset_button()->text(), QStringLiteral("X Shift"));
        // Shortening factor and scale belong to the view.
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n1.499"));
        QCOMPARE(probe().scale_button()->text(), QStringLiteral("Scale\n31.25 m"));
    }

    void aTraceButtonShowsTheDateOrThatItsSlotIsEmpty()
    {
        openOn({ TraceBuilder() });
        const QString date = shortDate(2024, 3, 5);
        QCOMPARE(probe().rfg_buttons()->button(0)->text(), QStringLiteral("RFG 1\n") + date);
        QCOMPARE(probe().selected_rfg()[0]->date, date);
        for (int slot = 1; slot < 6; ++slot) {
            QCOMPARE(probe().rfg_buttons()->button(slot)->text(),
                     QStringLiteral("RFG %1\n(not loaded)").arg(slot + 1));
            QVERIFY(probe().selected_rfg()[slot]->date.isEmpty());
        }
        for (int slot = 0; slot < 6; ++slot) {
            const QString name = QStringLiteral("RFG %1").arg(slot + 1);
            QCOMPARE(probe().selected_rfg()[slot]->name, name);
            QCOMPARE(probe().selected_rfg()[slot]->contextMenu->title(), name);
        }
    }

    void theStepLabelShowsTheStepThatCounts()
    {
        fixture->open();
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.13 m"));
        openOn({ TraceBuilder().minstep(5.0F), TraceBuilder().minstep(10.0F) });
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.50 m"));
        probe().rfg_buttons()->button(1)->click();
        QCOMPARE(stepText(), QStringLiteral("cursor step = 1.00 m"));
        // The master's.
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.50 m"));
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QCOMPARE(stepText(), QStringLiteral("cursor step = 1.00 m"));
        probe().rfg_buttons()->button(3)->click();
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.50 m"));
        // Bounded to one count and to the axis.
        openOn({ TraceBuilder().minstep(1.0F), TraceBuilder().minstep(100000.0F) });
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.13 m"));
        probe().rfg_buttons()->button(1)->click();
        QCOMPARE(stepText(), QStringLiteral("cursor step = 8000.00 m"));
    }

    // ---- Series ----

    void theSelectedTraceIsOnTopAndThick()
    {
        openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() });
        for (const int selected : { 1, 0, 2 }) {
            const QColor colour = probe().rfg_series()[selected]->pen().color();
            probe().rfg_buttons()->button(selected)->click();
            const auto order = probe().Plot_Chart()->series();
            for (int slot = 0; slot < 6; ++slot) {
                const double width = slot == selected ? 2.0 : 1.0;
                QCOMPARE(probe().rfg_series()[slot]->pen().widthF(), width);
                QCOMPARE(probe().rfg_series_sp()[slot]->pen().widthF(), width);
                if (slot == selected)
                    continue;
                for (const auto at : { order.indexOf(probe().rfg_series()[slot]),
                                       order.indexOf(probe().rfg_series_sp()[slot]) }) {
                    QVERIFY(at < order.indexOf(probe().rfg_series()[selected]));
                    QVERIFY(at < order.indexOf(probe().rfg_series_sp()[selected]));
                }
            }
            QCOMPARE(probe().rfg_series()[selected]->pen().color(), colour);
        }
    }

    void aNumberOutsideTheSlotsIsIgnored()
    {
        MainWindow &window = openOn({ TraceBuilder(), TraceBuilder() }, 1);
        for (const int id : { -1, 6, 1 << 30 }) {
            window.rfgSelect_slot(id);
            window.setRfgButtonText(id);
            window.RFG_visibleToggle(id, true);
            window.addremove_aux(id, true);
            window.rfgMenuRequested_slot(id);
            window.load_rfg(id);
            window.resetCurrent_slot(id);
            window.remove_Selected_RFG(id);
            window.parse_T_Name(id);
            window.add_Selected_RFG(fixture->path(QStringLiteral("t1.tdr")), id);
            QCOMPARE(probe().rfg_ID(), 1);
            QCOMPARE(probe().rfg_read_index(), 3);
        }
    }

    // ---- Visibility ----

    void aTraceIsHiddenAndShownByItsMenu()
    {
        openOn({ TraceBuilder(), TraceBuilder() });
        QAction *action = probe().selected_rfg()[1]->visible_action;
        QVERIFY(action->isChecked());
        action->trigger();
        QVERIFY(!probe().selected_rfg()[1]->vis());
        QVERIFY(!probe().rfg_series()[1]->isVisible());
        QVERIFY(!action->isChecked());
        QVERIFY(showsHidden(*fixture, 1));
        action->trigger();
        QVERIFY(probe().selected_rfg()[1]->vis());
        QVERIFY(probe().rfg_series()[1]->isVisible());
        QVERIFY(action->isChecked());
        QVERIFY(showsVisible(*fixture, 1, false));
    }

    void aHiddenMasterComesBackWithItsMark()
    {
        openOn({ TraceBuilder(), TraceBuilder() }, 1);
        QAction *action = probe().selected_rfg()[1]->visible_action;
        QVERIFY(showsVisible(*fixture, 1, true));
        action->trigger();
        QVERIFY(showsHidden(*fixture, 1));
        action->trigger();
        QVERIFY(showsVisible(*fixture, 1, true));
        QVERIFY(probe().selected_rfg()[1]->mast());
    }

    void withSmoothingOnTheSplineIsWhatIsHidden()
    {
        MainWindow &window = openOn({ TraceBuilder() });
        QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
        QVERIFY(probe().rfg_series_sp()[0]->isVisible());
        window.RFG_visibleToggle(0, false);
        QVERIFY(!probe().rfg_series_sp()[0]->isVisible());
        QVERIFY(!probe().rfg_series()[0]->isVisible());
        window.RFG_visibleToggle(0, true);
        QVERIFY(probe().rfg_series_sp()[0]->isVisible());
        QVERIFY(!probe().rfg_series()[0]->isVisible());
    }

    void showingASlotInOneStepRepairsTheMaster()
    {
        MainWindow &window = openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() }, 2);
        window.addremove_aux(1, false);
        QVERIFY(!probe().rfg_series()[1]->isVisible());
        QCOMPARE(window.getMasterID(), 2);
        window.addremove_aux(2, false);
        QVERIFY(showsHidden(*fixture, 2));
        QCOMPARE(window.getMasterID(), 0);
        QVERIFY(showsVisible(*fixture, 0, true));
        window.addremove_aux(2, true);
        QVERIFY(showsVisible(*fixture, 2, false));
        QCOMPARE(window.getMasterID(), 0);
        window.addremove_aux(0, true);
        QVERIFY(showsVisible(*fixture, 0, true));
        QCOMPARE(window.getMasterID(), 0);
    }

    // ---- Menu ----

    void theMenuHasTheFontOfTheWindow()
    {
        MainWindow &window = openOn({ TraceBuilder() });
        QFont font;
        const auto answer = answerMenu([&font](const QMenu &menu) { font = menu.font(); });
        emit probe().selected_rfg()[0]->customContextMenuRequested(QPoint(1, 1));
        QVERIFY(answer->served());
        QCOMPARE(font.pointSize(), window.font().pointSize());
    }

    void theLegendTextIsReservedAndEmpty()
    {
        QVERIFY(openOn({ TraceBuilder() }).rfgLegend(0).isEmpty());
    }
};

QTEST_MAIN(TestSelection)
#include "tst_selection.moc"
