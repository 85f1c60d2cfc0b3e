// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/numeric.h"
#include "calc/readout.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "dictionary.h"
#include "interfacebutton.h"
#include "mainwindow.h"
#include "parambutton.h"

#include <QInputDialog>

/// A question for a number: bounds, step, decimals and the number to begin with.
struct MainWindow::NumberQuestion
{
    double min;
    double max;
    double step;
    int decimals;
    double value;
};

void MainWindow::openEntryDialog(const QObject *button)
{
    if (button == KU_button)
        enterVelocityFactor();
    else if (button == H_offset_button)
        enterHorizontalOffset();
    else if (button == V_offset_button)
        enterVerticalOffset();
    else if (button == scale_button)
        enterScale();
    else if (button == curA_button)
        enterCursor(CURSOR_A);
    else if (button == curB_button)
        enterCursor(CURSOR_B);
}

void MainWindow::setDialogTexts(const QString &word, const QString &from, const QString &to)
{
    input_dialog->setWindowTitle(word);
    input_dialog->setLabelText(word + QLatin1Char('\n') + d->RANGE_STR
                               + QStringLiteral(" : [%1; %2]").arg(from, to));
}

bool MainWindow::askForNumber(const NumberQuestion &question)
{
    // In this order: each of them would round or clamp what the ones after it bring.
    input_dialog->setInputMode(QInputDialog::DoubleInput);
    input_dialog->setDoubleDecimals(question.decimals);
    input_dialog->setDoubleRange(question.min, question.max);
    input_dialog->setDoubleStep(question.step);
    input_dialog->setDoubleValue(question.value);
    return input_dialog->exec() == QDialog::Accepted;
}

void MainWindow::enterVelocityFactor()
{
    setDialogTexts(d->KU_STR, calc::generalText(double{ KU_min }),
                   calc::generalText(double{ KU_max }));
    if (!askForNumber({ double{ KU_min }, double{ KU_max }, constants::kuDialogStep,
                        constants::kuDecimals, double{ master_params.KU } }))
        return;
    KU_change(input_dialog->doubleValue());
    // The factor itself, not its thousandths: the dial catches up with the next turn of it.
    if (checkedParameter() == KU)
        param_dial->trueValue = calc::truncated(master_params.KU);
}

void MainWindow::enterHorizontalOffset()
{
    const double limit = x_length * dist_coef;
    setDialogTexts(d->H_OFFSET_STR, calc::generalText(-limit), calc::generalText(limit));
    if (!askForNumber({ -limit, limit, stepOf(rfg_ID) * dist_coef, constants::distanceDecimals,
                        rfg_DATA[rfg_ID].scroll * dist_coef }))
        return;
    H_Offset_change(calc::truncated(input_dialog->doubleValue() / dist_coef));
    if (checkedParameter() == H_OFFSET)
        param_dial->trueValue = rfg_DATA[rfg_ID].scroll;
}

void MainWindow::enterVerticalOffset()
{
    constexpr int limit = constants::verticalOffsetLimit;
    setDialogTexts(d->V_OFFSET_STR, QString::number(-limit), QString::number(limit));
    input_dialog->setInputMode(QInputDialog::IntInput);
    input_dialog->setIntRange(-limit, limit);
    input_dialog->setIntStep(1);
    input_dialog->setIntValue(rfg_DATA[rfg_ID].offset);
    if (input_dialog->exec() != QDialog::Accepted)
        return;
    V_Offset_change(input_dialog->intValue());
    if (checkedParameter() == V_OFFSET)
        param_dial->trueValue = rfg_DATA[rfg_ID].offset;
}

void MainWindow::enterScale()
{
    QStringList items;
    for (int exponent = constants::minScale; exponent <= constants::maxScale; ++exponent)
        items << calc::generalText(double{ calc::scaleDistance(exponent) }) + d->DIST_SUFFIX_STR;
    setDialogTexts(d->SCALE_STR,
                   calc::generalText(double{ calc::scaleDistance(constants::minScale) }),
                   calc::generalText(double{ calc::scaleDistance(constants::maxScale) }));
    input_dialog->setInputMode(QInputDialog::TextInput);
    input_dialog->setComboBoxEditable(false);
    input_dialog->setComboBoxItems(items);
    input_dialog->setTextValue(items.at(master_scale));
    if (input_dialog->exec() != QDialog::Accepted)
        return;
    QString text = input_dialog->textValue();
    text.chop(d->DIST_SUFFIX_STR.length());
    scale_change(calc::exponentOfDistance(text.toDouble()));
    if (checkedParameter() == SCALE)
        param_dial->trueValue = master_scale;
}

void MainWindow::enterCursor(int which)
{
    const double limit = x_length * dist_coef;
    setDialogTexts(which == CURSOR_A ? d->CURSOR_A_STR : d->CURSOR_B_STR, QString::number(0),
                   calc::generalText(limit));
    if (!askForNumber({ 0.0, limit, cursorStep() * dist_coef, constants::distanceDecimals,
                        cursorPosition(which) * dist_coef }))
        return;
    // Moves the active cursor, whichever button was asked.
    cursorSetup_slot(calc::truncated(input_dialog->doubleValue() / dist_coef));
    if (Cur_flag == which)
        cursor_dial->trueValue = cursorPosition(which);
}
