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

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QValidator>

namespace {

/// Reads what is typed or pasted into a number box. Point and comma are the decimal separator.
/// Blanks at the ends, between groups of three digits and before the unit are ignored. Every other
/// text stays in the box as it was entered and leaves OK disabled: a box that drops the characters
/// it does not know makes another number of the rest.
class NumberReader : public QValidator
{
public:
    /// \a unit is a pattern of what may follow the number in \a box.
    NumberReader(QAbstractSpinBox *box, const QString &unit)
        : m_box(*box)
        , m_edit(*box->findChild<QLineEdit *>())
        , m_pattern(QStringLiteral(
                        "^([+-]? ?(?:[0-9]{1,3}(?: [0-9]{3})+|[0-9]*)(?:\\.[0-9]*)?)(?: ?%1)?$")
                        .arg(unit))
    {
        m_edit.setValidator(this);
        // It would take blanks out of a text that is not complete.
        box->setKeyboardTracking(false);
        box->installEventFilter(this);
    }

    State validate(QString &input, int &position) const override
    {
        for (QChar &letter : input) {
            if (letter.isDigit())
                letter = QLatin1Char(static_cast<char>('0' + letter.digitValue()));
            else if (letter == QLatin1Char(',') || letter == arabicSeparator)
                letter = QLatin1Char('.');
            else if (letter == minusSign)
                letter = QLatin1Char('-');
        }
        QString plain = plainNumber(input);
        // The box checks range and decimals.
        const bool isNumber = !plain.isEmpty() && m_box.validate(plain, position) == Acceptable;
        return isNumber ? Acceptable : Intermediate;
    }

    /// The box reads its text when it steps, loses the focus or is hidden. It gets the number
    /// before that; a text that is none it would replace by its last number.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::KeyPress:
            return isReadOn(static_cast<QKeyEvent *>(event)->key()) && !settle();
        case QEvent::MouseButtonPress: // on an arrow
        case QEvent::Wheel:
            return !settle();
        case QEvent::FocusOut:
            return !settle() && m_edit.event(event);
        case QEvent::Hide:
            settle();
            break;
        default:
            break;
        }
        return QValidator::eventFilter(watched, event);
    }

private:
    static constexpr QChar minusSign = QChar(0x2212);
    static constexpr QChar arabicSeparator = QChar(0x066B);

    static bool isReadOn(int key)
    {
        return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Up
            || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    }

    /// The number in \a text without blanks and unit; empty when there is none.
    QString plainNumber(const QString &text) const
    {
        return m_pattern.match(text.simplified()).captured(1).remove(QLatin1Char(' '));
    }

    /// Gives the box the number that was entered. False when there is none.
    bool settle()
    {
        if (!m_edit.hasAcceptableInput())
            return false;
        m_box.setProperty("value", plainNumber(m_edit.text()));
        return true;
    }

    QAbstractSpinBox &m_box;
    QLineEdit &m_edit;
    QRegularExpression m_pattern;
};

/// The unit of distances, in Latin and in Russian letters whatever the interface speaks.
QString metre()
{
    return QStringLiteral("[mм]");
}

} // namespace

/// A question for a number: bounds, step, decimals (0 for an integer), the number to begin with and
/// the pattern of a unit that may follow it.
struct MainWindow::NumberQuestion
{
    double min;
    double max;
    double step;
    int decimals;
    double value;
    QString unit;
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
    QAbstractSpinBox *box = nullptr;
    if (question.decimals == 0) {
        input_dialog->setInputMode(QInputDialog::IntInput);
        input_dialog->setIntRange(int(question.min), int(question.max));
        input_dialog->setIntStep(int(question.step));
        input_dialog->setIntValue(int(question.value));
        box = input_dialog->findChild<QSpinBox *>();
    } else {
        input_dialog->setInputMode(QInputDialog::DoubleInput);
        input_dialog->setDoubleDecimals(question.decimals);
        input_dialog->setDoubleRange(question.min, question.max);
        input_dialog->setDoubleStep(question.step);
        input_dialog->setDoubleValue(question.value);
        box = input_dialog->findChild<QDoubleSpinBox *>();
    }
    const NumberReader reader(box, question.unit);
    return isDialogAccepted();
}

bool MainWindow::isDialogAccepted()
{
    // A dialog that was cancelled over a refused text left the button disabled for the next one.
    input_dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->setEnabled(true);
    return input_dialog->exec() == QDialog::Accepted;
}

void MainWindow::enterVelocityFactor()
{
    setDialogTexts(d->KU_STR, calc::generalText(double{ KU_min }),
                   calc::generalText(double{ KU_max }));
    if (!askForNumber({ double{ KU_min },
                        double{ KU_max },
                        constants::kuDialogStep,
                        constants::kuDecimals,
                        double{ master_params.KU },
                        {} }))
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
                        rfg_DATA[rfg_ID].scroll * dist_coef, metre() }))
        return;
    H_Offset_change(calc::truncated(input_dialog->doubleValue() / dist_coef));
    if (checkedParameter() == H_OFFSET)
        param_dial->trueValue = rfg_DATA[rfg_ID].scroll;
}

void MainWindow::enterVerticalOffset()
{
    constexpr int limit = constants::verticalOffsetLimit;
    setDialogTexts(d->V_OFFSET_STR, QString::number(-limit), QString::number(limit));
    if (!askForNumber({ -limit, limit, 1, 0, double(rfg_DATA[rfg_ID].offset), {} }))
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
    if (!isDialogAccepted())
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
                        cursorPosition(which) * dist_coef, metre() }))
        return;
    // Moves the active cursor, whichever button was asked.
    cursorSetup_slot(calc::truncated(input_dialog->doubleValue() / dist_coef));
    if (Cur_flag == which)
        cursor_dial->trueValue = cursorPosition(which);
}
