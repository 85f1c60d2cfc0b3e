// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "input_events.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "window_actions.h"
#include "window_state.h"
#include "windowtest.h"

#include <QInputDialog>
#include <QtTest>

namespace {

/// Title and label of \a dialog, its value, range and step.
QString questionOf(const QInputDialog &dialog)
{
    const auto number = [](double value) { return QString::number(value, 'g', 9); };
    QString value;
    if (dialog.inputMode() == QInputDialog::DoubleInput)
        value = QStringLiteral("%1 in %2..%3 by %4, %5 decimals")
                    .arg(number(dialog.doubleValue()), number(dialog.doubleMinimum()),
                         number(dialog.doubleMaximum()), number(dialog.doubleStep()))
                    .arg(dialog.doubleDecimals());
    else if (dialog.inputMode() == QInputDialog::IntInput)
        value = QStringLiteral("%1 in %2..%3 by %4")
                    .arg(dialog.intValue())
                    .arg(dialog.intMinimum())
                    .arg(dialog.intMaximum())
                    .arg(dialog.intStep());
    else
        value = dialog.textValue() + QStringLiteral(" of ")
            + dialog.comboBoxItems().join(QLatin1Char(' '))
            + QLatin1String(dialog.isComboBoxEditable() ? ", editable" : "");
    return dialog.windowTitle() + QLatin1Char('|') + dialog.labelText() + QLatin1Char('|') + value
        + QLatin1String(dialog.isModal() ? "" : ", not modal");
}

} // namespace

/// The dialogs that a right click opens. tst_typed_numbers tests the texts that can be typed into
/// them.
class TestEntryDialogs : public WindowTest
{
    Q_OBJECT

private:
    /// Opens a trace of four counts per sample, shifted two samples right and 7 levels up, and a
    /// trace of two counts per sample.
    void openTraces()
    {
        openOn({ TraceBuilder().minstep(5.0F).shiftX(2).shiftY(7), TraceBuilder().minstep(2.5F) });
    }
    /// Right-clicks \a button; \a answer fills in the dialog and closes it. Returns \c questionOf
    /// the dialog.
    QString ask(QWidget *button, const std::function<void(QInputDialog &)> &answer)
    {
        QString question;
        answerEntry(button, [&](QInputDialog &dialog) {
            question = questionOf(dialog);
            answer(dialog);
        });
        return question;
    }
    QString answered(QWidget *button, const QVariant &value)
    {
        return ask(button, [value](QInputDialog &dialog) {
            if (dialog.inputMode() == QInputDialog::IntInput)
                dialog.setIntValue(value.toInt());
            else if (dialog.inputMode() == QInputDialog::DoubleInput)
                dialog.setDoubleValue(value.toDouble());
            else
                dialog.setTextValue(value.toString());
            dialog.accept();
        });
    }
    /// The step of the dialog of \a button, which is cancelled.
    QString stepOf(QWidget *button)
    {
        return ask(button, [](QInputDialog &) {})
            .section(QStringLiteral(" by "), 1)
            .section(QLatin1Char(','), 0, 0);
    }

private slots:
    void factorIsEnteredInThousandthsAndSetsTheDialToItsIntegerPart()
    {
        openTraces();
        QCOMPARE(answered(probe().KU_button(), 2.125),
                 QStringLiteral("KU|KU\nRange : [1; 10]|1.499 in 1..10 by 0.001, 3 decimals"));
        QCOMPARE(probe().master_params().KU + 0.0F, 2.125F);
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n2.125"));
        input::click(probe().KU_button());
        answered(probe().KU_button(), 7.9);
        QCOMPARE(probe().param_dial()->trueValue, 7);
        input::click(probe().H_offset_button());
        answered(probe().KU_button(), 3.0);
        QCOMPARE(probe().param_dial()->trueValue, 8);
    }

    void horizontalShiftIsEnteredInMetres()
    {
        openTraces();
        QCOMPARE(answered(probe().H_offset_button(), 3.6),
                 QStringLiteral("X Shift|X Shift\nRange : [-8000; 8000]|"
                                "1 in -8000..8000 by 0.500000002, 2 decimals"));
        // 3.6 m are 28.8 counts: seven samples of four.
        QCOMPARE(probe().rfg_DATA()[0].scroll, 28);
        QCOMPARE(probe().param_dial()->trueValue, 28);
        input::click(probe().scale_button());
        answered(probe().H_offset_button(), -0.6);
        QCOMPARE(probe().rfg_DATA()[0].scroll, -4);
        QCOMPARE(probe().param_dial()->trueValue, probe().master_scale());
    }

    void verticalShiftIsEnteredInSampleSteps()
    {
        openTraces();
        QCOMPARE(answered(probe().V_offset_button(), -100),
                 QStringLiteral("Y Shift|Y Shift\nRange : [-256; 256]|7 in -256..256 by 1"));
        QCOMPARE(probe().rfg_DATA()[0].offset, -100);
        QCOMPARE(probe().param_dial()->trueValue, 8);
        input::click(probe().V_offset_button());
        answered(probe().V_offset_button(), 256);
        QCOMPARE(probe().param_dial()->trueValue, 256);
    }

    void shiftsOfAnEmptySlotCanBeEntered()
    {
        fixture->open();
        answered(probe().V_offset_button(), 12);
        QCOMPARE(probe().rfg_DATA()[0].offset, 12);
        QCOMPARE(answered(probe().H_offset_button(), 10.0),
                 QStringLiteral("X Shift|X Shift\nRange : [-8000; 8000]|"
                                "0 in -8000..8000 by 0.125000001, 2 decimals"));
        QCOMPARE(probe().rfg_DATA()[0].scroll, 79);
    }

    void scaleIsChosenFromNineValues()
    {
        openTraces();
        const QString items = QStringLiteral("31.25m 62.5m 125m 250m 500m 1000m 2000m 4000m 8000m");
        for (int exponent = 0; exponent < 9; ++exponent) {
            window().scale_change(2);
            QCOMPARE(answered(probe().scale_button(),
                              items.section(QLatin1Char(' '), exponent, exponent)),
                     QStringLiteral("Scale|Scale\nRange : [31.25; 8000]|125m of ") + items);
            QCOMPARE(probe().master_scale(), exponent);
            QCOMPARE(probe().param_dial()->trueValue, 8);
        }
        input::click(probe().scale_button());
        answered(probe().scale_button(), QStringLiteral("500m"));
        QCOMPARE(probe().param_dial()->trueValue, 4);
        QCOMPARE(probe().scrollfactorX(), 0);
    }

    void cursorIsEnteredInMetres()
    {
        openTraces();
        window().cursorSetup_slot(40);
        const QString range = QStringLiteral(
            "|Cursor %1\nRange : [0; 8000]|%2 in 0..8000 by 0.500000002, 2 decimals");
        QCOMPARE(answered(probe().curA_button(), 10.3),
                 QStringLiteral("Cursor A") + range.arg(QStringLiteral("A"), QStringLiteral("5")));
        // 82.4 counts: the cursor snaps to a sample, the dial is set to the cursor.
        QCOMPARE(probe().cursor_A_pos(), 80);
        QCOMPARE(probe().cursor_dial()->trueValue, 80);
        input::click(probe().curB_button());
        QCOMPARE(answered(probe().curB_button(), 20.1),
                 QStringLiteral("Cursor B") + range.arg(QStringLiteral("B"), QStringLiteral("0")));
        QCOMPARE(probe().cursor_B_pos(), 160);
        QCOMPARE(probe().cursor_dial()->trueValue, 160);
        QCOMPARE(probe().cursor_A_pos(), 80);
        // The dialog of A moves the active cursor and leaves the typed column on the dial.
        QCOMPARE(answered(probe().curA_button(), 30.1),
                 QStringLiteral("Cursor A") + range.arg(QStringLiteral("A"), QStringLiteral("10")));
        QCOMPARE(probe().cursor_A_pos(), 80);
        QCOMPARE(probe().cursor_B_pos(), 240);
        QCOMPARE(probe().cursor_dial()->trueValue, 240);
        answered(probe().curA_button(), 30.3);
        QCOMPARE(probe().cursor_B_pos(), 240);
        QCOMPARE(probe().cursor_dial()->trueValue, 242);
    }

    void unchangedValueMayMoveByOneSample()
    {
        openTraces();
        const auto accept = [](QInputDialog &dialog) { dialog.accept(); };
        // 0.125 m a count is slightly more in single precision: 1.00 m are not quite 8 counts.
        ask(probe().H_offset_button(), accept);
        QCOMPARE(probe().rfg_DATA()[0].scroll, 4);
        window().cursorSetup_slot(40);
        ask(probe().curA_button(), accept);
        QCOMPARE(probe().cursor_A_pos(), 36);
        QCOMPARE(probe().cursor_dial()->trueValue, 36);
    }

    void cursorDialogHasTheStepOfTheCursor()
    {
        const QString oneCount = QStringLiteral("0.125000001");
        const QString two = QStringLiteral("0.250000001");
        const QString four = QStringLiteral("0.500000002");
        fixture->open();
        QCOMPARE(stepOf(probe().curA_button()), oneCount);
        openTraces();
        input::click(probe().selected_rfg()[1]);
        QCOMPARE(stepOf(probe().curA_button()), two);
        input::click(probe().difference_button());
        QCOMPARE(stepOf(probe().curA_button()), four);
        input::click(probe().difference_button());
        input::click(probe().selected_rfg()[3]);
        QCOMPARE(stepOf(probe().curB_button()), four);
    }

    void cancellingChangesNothing()
    {
        openTraces();
        window().cursorSetup_slot(40);
        window().cursorSelect_slot(2);
        window().cursorSetup_slot(80);
        const MainWindowProbe &p = probe();
        const auto values = [this] {
            return stateOf(window()).filter(
                QRegularExpression(QStringLiteral("^(rfg_series|range|grid|cursors|dial)")));
        };
        const QStringList before = values();
        for (QWidget *button :
             QVector<QWidget *>{ p.KU_button(), p.H_offset_button(), p.V_offset_button(),
                                 p.scale_button(), p.curA_button(), p.curB_button() }) {
            ask(button, [](QInputDialog &dialog) {
                if (dialog.inputMode() == QInputDialog::DoubleInput)
                    dialog.setDoubleValue(3.0);
                else if (dialog.inputMode() == QInputDialog::IntInput)
                    dialog.setIntValue(3);
                else
                    dialog.setTextValue(dialog.comboBoxItems().first());
            });
            QCOMPARE(values(), before);
        }
    }

    void otherButtonsAndPressesOpenNoDialog()
    {
        openTraces();
        const auto answer = answerDialog(cancelDialog);
        for (QWidget *widget : QVector<QWidget *>{ probe().gain_button(), probe().legend_button(),
                                                   probe().param_dial(), probe().cursor_dial() })
            input::press(widget, QPoint(5, 5), Qt::RightButton);
        input::press(probe().KU_button(), QPoint(5, 5), Qt::MiddleButton);
        input::mouse(probe().KU_button(), QEvent::MouseButtonPress, QPoint(5, 5), Qt::RightButton,
                     Qt::LeftButton | Qt::RightButton);
        QTest::qWait(30);
        QVERIFY(!answer->served());
        QVERIFY(!probe().input_dialog()->isVisible());
    }
};

QTEST_MAIN(TestEntryDialogs)
#include "tst_entry_dialogs.moc"
