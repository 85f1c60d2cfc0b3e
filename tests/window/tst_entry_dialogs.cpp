// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QInputDialog>
#include <QtTest>

namespace {

/// What an entry dialog shows.
struct Question
{
    QString title;
    QString label;
    QInputDialog::InputMode mode = QInputDialog::TextInput;
    bool modal = false;
    int decimals = 0;
    double min = 0.0;
    double max = 0.0;
    double step = 0.0;
    double value = 0.0;
    QStringList items;
    bool editable = true;
    QString text;
};

Question read(const QInputDialog &dialog)
{
    Question question;
    question.title = dialog.windowTitle();
    question.label = dialog.labelText();
    question.mode = dialog.inputMode();
    question.modal = dialog.isModal();
    if (question.mode == QInputDialog::DoubleInput) {
        question.decimals = dialog.doubleDecimals();
        question.min = dialog.doubleMinimum();
        question.max = dialog.doubleMaximum();
        question.step = dialog.doubleStep();
        question.value = dialog.doubleValue();
    } else if (question.mode == QInputDialog::IntInput) {
        question.min = dialog.intMinimum();
        question.max = dialog.intMaximum();
        question.step = dialog.intStep();
        question.value = dialog.intValue();
    } else {
        question.items = dialog.comboBoxItems();
        question.editable = dialog.isComboBoxEditable();
        question.text = dialog.textValue();
    }
    return question;
}

bool isNear(double left, double right)
{
    return qAbs(left - right) < 1e-9;
}

} // namespace

class TestEntryDialogs : public WindowTest
{
    Q_OBJECT

private:
    Cont_dial *paramDial() const
    {
        return probe().param_dial();
    }
    /// Two traces: four counts to a sample, two samples right, 7 up; and two counts to a sample.
    void openTraces()
    {
        WindowFixture::writePreviousRun(
            { fixture->trace(QStringLiteral("one.tdr"),
                             TraceBuilder().minstep(5.0F).shiftX(2).shiftY(7)),
              fixture->trace(QStringLiteral("two.tdr"), TraceBuilder().minstep(2.5F)) });
        fixture->open();
    }
    /// Right-clicks \a button; \a answer fills in the dialog and closes it.
    Question ask(QWidget *button, const std::function<void(QInputDialog &)> &answer)
    {
        Question question;
        const auto server = answerDialog([&](QDialog &dialog) {
            auto *input = qobject_cast<QInputDialog *>(&dialog);
            if (input == nullptr) {
                dialog.reject();
                return;
            }
            question = read(*input);
            answer(*input);
        });
        QTest::mousePress(button, Qt::RightButton);
        if (!server->served())
            qFatal("no dialog");
        return question;
    }
    Question cancelled(QWidget *button)
    {
        return ask(button, [](QInputDialog &dialog) { dialog.reject(); });
    }
    Question answered(QWidget *button, double value)
    {
        return ask(button, [value](QInputDialog &dialog) {
            if (dialog.inputMode() == QInputDialog::IntInput)
                dialog.setIntValue(int(value));
            else
                dialog.setDoubleValue(value);
            dialog.accept();
        });
    }
    Question chosen(QWidget *button, const QString &item)
    {
        return ask(button, [item](QInputDialog &dialog) {
            dialog.setTextValue(item);
            dialog.accept();
        });
    }
    void verifyNumber(const Question &question, double min, double max, double step, int decimals,
                      double value)
    {
        QCOMPARE(question.mode, QInputDialog::DoubleInput);
        QVERIFY(question.modal);
        QCOMPARE(question.decimals, decimals);
        // The dialog rounds its range to the decimals it shows, and not its step.
        QVERIFY(qAbs(question.min - min) < 0.005);
        QVERIFY(qAbs(question.max - max) < 0.005);
        QVERIFY(isNear(question.step, step));
        QVERIFY(isNear(question.value, value));
    }

private slots:
    void theFactorIsAskedInThousandths()
    {
        openTraces();
        const Question question = answered(probe().KU_button(), 2.125);
        QCOMPARE(question.title, QStringLiteral("KU"));
        QCOMPARE(question.label, QStringLiteral("KU\nRange : [1; 10]"));
        verifyNumber(question, 1.0, 10.0, 0.001, 3, 1.499);
        QCOMPARE(probe().master_params().KU + 0.0F, 2.125F);
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n2.125"));
    }

    void theDialogOfTheFactorSetsTheDialToItsWholePart()
    {
        openTraces();
        QTest::mouseClick(probe().KU_button(), Qt::LeftButton);
        answered(probe().KU_button(), 7.9);
        QCOMPARE(paramDial()->trueValue, 7);
        QTest::mouseClick(probe().H_offset_button(), Qt::LeftButton);
        answered(probe().KU_button(), 3.0);
        QCOMPARE(paramDial()->trueValue, 8);
    }

    void theHorizontalShiftIsAskedInMetres()
    {
        openTraces();
        const Question question = answered(probe().H_offset_button(), 3.6);
        QCOMPARE(question.title, QStringLiteral("X Shift"));
        QCOMPARE(question.label, QStringLiteral("X Shift\nRange : [-8000; 8000]"));
        verifyNumber(question, -8000.0, 8000.0, 4 * probe().dist_coef(), 2, 1.0);
        // 3.6 m are 28.8 counts: seven samples of four.
        QCOMPARE(probe().rfg_DATA()[0].scroll, 28);
        QCOMPARE(paramDial()->trueValue, 28);
        QTest::mouseClick(probe().scale_button(), Qt::LeftButton);
        answered(probe().H_offset_button(), -0.6);
        QCOMPARE(probe().rfg_DATA()[0].scroll, -4);
        QCOMPARE(paramDial()->trueValue, probe().master_scale());
    }

    void anUnchangedValueMayMoveByOneSample()
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

    void theVerticalShiftIsAskedInSampleSteps()
    {
        openTraces();
        const Question question = answered(probe().V_offset_button(), -100);
        QCOMPARE(question.title, QStringLiteral("Y Shift"));
        QCOMPARE(question.label, QStringLiteral("Y Shift\nRange : [-256; 256]"));
        QCOMPARE(question.mode, QInputDialog::IntInput);
        QVERIFY(question.modal);
        QCOMPARE(question.min, -256.0);
        QCOMPARE(question.max, 256.0);
        QCOMPARE(question.step, 1.0);
        QCOMPARE(question.value, 7.0);
        QCOMPARE(probe().rfg_DATA()[0].offset, -100);
        QCOMPARE(paramDial()->trueValue, 8);
        QTest::mouseClick(probe().V_offset_button(), Qt::LeftButton);
        answered(probe().V_offset_button(), 256);
        QCOMPARE(paramDial()->trueValue, 256);
    }

    void shiftsOfAnEmptySlotCanBeEntered()
    {
        fixture->open();
        answered(probe().V_offset_button(), 12);
        QCOMPARE(probe().rfg_DATA()[0].offset, 12);
        const Question question = answered(probe().H_offset_button(), 10.0);
        verifyNumber(question, -8000.0, 8000.0, probe().dist_coef(), 2, 0.0);
        QCOMPARE(probe().rfg_DATA()[0].scroll, 79);
    }

    void theScaleIsChosenFromNine()
    {
        openTraces();
        const QStringList items
            = QStringLiteral("31.25m 62.5m 125m 250m 500m 1000m 2000m 4000m 8000m")
                  .split(QLatin1Char(' '));
        for (int exponent = 0; exponent < 9; ++exponent) {
            window().scale_change(2);
            const Question question = chosen(probe().scale_button(), items[exponent]);
            QCOMPARE(question.title, QStringLiteral("Scale"));
            QCOMPARE(question.label, QStringLiteral("Scale\nRange : [31.25; 8000]"));
            QCOMPARE(question.mode, QInputDialog::TextInput);
            QVERIFY(question.modal);
            QVERIFY(!question.editable);
            QCOMPARE(question.items, items);
            QCOMPARE(question.text, QStringLiteral("125m"));
            QCOMPARE(probe().master_scale(), exponent);
            QCOMPARE(paramDial()->trueValue, 8);
        }
        QTest::mouseClick(probe().scale_button(), Qt::LeftButton);
        chosen(probe().scale_button(), QStringLiteral("500m"));
        QCOMPARE(paramDial()->trueValue, 4);
        QCOMPARE(probe().scrollfactorX(), 0);
    }

    void aCursorIsAskedInMetres()
    {
        openTraces();
        window().cursorSetup_slot(40);
        const Question question = answered(probe().curA_button(), 10.3);
        QCOMPARE(question.title, QStringLiteral("Cursor A"));
        QCOMPARE(question.label, QStringLiteral("Cursor A\nRange : [0; 8000]"));
        verifyNumber(question, 0.0, 8000.0, 4 * probe().dist_coef(), 2, 5.0);
        // 82.4 counts: the cursor snaps to a sample, the dial is set to the cursor.
        QCOMPARE(probe().cursor_A_pos(), 80);
        QCOMPARE(probe().cursor_dial()->trueValue, 80);
        QTest::mouseClick(probe().curB_button(), Qt::LeftButton);
        const Question other = answered(probe().curB_button(), 20.1);
        QCOMPARE(other.title, QStringLiteral("Cursor B"));
        QCOMPARE(other.label, QStringLiteral("Cursor B\nRange : [0; 8000]"));
        verifyNumber(other, 0.0, 8000.0, 4 * probe().dist_coef(), 2, 0.0);
        QCOMPARE(probe().cursor_B_pos(), 160);
        QCOMPARE(probe().cursor_dial()->trueValue, 160);
        QCOMPARE(probe().cursor_A_pos(), 80);
    }

    void theDialogOfCursorAMovesTheActiveCursor()
    {
        openTraces();
        window().cursorSetup_slot(40);
        QTest::mouseClick(probe().curB_button(), Qt::LeftButton);
        const Question question = answered(probe().curA_button(), 20.1);
        QVERIFY(isNear(question.value, 5.0));
        QCOMPARE(probe().cursor_A_pos(), 40);
        QCOMPARE(probe().cursor_B_pos(), 160);
        // The dialog of the other cursor leaves the typed column on the dial.
        QCOMPARE(probe().cursor_dial()->trueValue, 160);
        answered(probe().curA_button(), 20.3);
        QCOMPARE(probe().cursor_B_pos(), 160);
        QCOMPARE(probe().cursor_dial()->trueValue, 162);
    }

    void theCursorsStepIsThatOfTheTraceThatDecides()
    {
        fixture->open();
        QVERIFY(isNear(cancelled(probe().curA_button()).step, probe().dist_coef()));
        // Closed first: closing writes the settings that the next window reads.
        fixture->close();
        openTraces();
        const double count = probe().dist_coef();
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
        QVERIFY(isNear(cancelled(probe().curA_button()).step, 2 * count));
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QVERIFY(isNear(cancelled(probe().curA_button()).step, 4 * count));
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe().selected_rfg()[3], Qt::LeftButton);
        QVERIFY(isNear(cancelled(probe().curB_button()).step, 4 * count));
    }

    void cancellingChangesNothing()
    {
        openTraces();
        window().cursorSetup_slot(40);
        window().cursorSelect_slot(2);
        window().cursorSetup_slot(80);
        const MainWindowProbe &p = probe();
        for (QWidget *button :
             { static_cast<QWidget *>(p.KU_button()), static_cast<QWidget *>(p.H_offset_button()),
               static_cast<QWidget *>(p.V_offset_button()),
               static_cast<QWidget *>(p.scale_button()), static_cast<QWidget *>(p.curA_button()),
               static_cast<QWidget *>(p.curB_button()) }) {
            ask(button, [](QInputDialog &dialog) {
                if (dialog.inputMode() == QInputDialog::DoubleInput)
                    dialog.setDoubleValue(3.0);
                else if (dialog.inputMode() == QInputDialog::IntInput)
                    dialog.setIntValue(3);
                else
                    dialog.setTextValue(dialog.comboBoxItems().first());
                dialog.reject();
            });
            QCOMPARE(p.master_params().KU + 0.0F, 1.49896229F);
            QCOMPARE(p.rfg_DATA()[0].scroll, 8);
            QCOMPARE(p.rfg_DATA()[0].offset, 7);
            QCOMPARE(p.master_scale(), 2);
            QCOMPARE(p.cursor_A_pos(), 40);
            QCOMPARE(p.cursor_B_pos(), 80);
            QCOMPARE(p.param_dial()->trueValue, 8);
            QCOMPARE(p.cursor_dial()->trueValue, 80);
        }
    }

    void otherButtonsAndOtherPressesAskNothing()
    {
        openTraces();
        const auto answer = answerDialog(cancelDialog);
        for (QWidget *widget : { static_cast<QWidget *>(probe().gain_button()),
                                 static_cast<QWidget *>(probe().legend_button()),
                                 static_cast<QWidget *>(probe().param_dial()),
                                 static_cast<QWidget *>(probe().cursor_dial()) })
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
