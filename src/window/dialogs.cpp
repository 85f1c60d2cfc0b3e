// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/numeric.h"
#include "calc/readout.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "dictionary.h"
#include "interfacebutton.h"
#include "parambutton.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QValidator>

namespace {

constexpr double kuDialogStep = 0.001;

/// Reads the text that is entered in a number box. Point or comma is the decimal separator.
/// Blanks at the ends, between groups of three digits and before the unit are ignored. Any other
/// text stays in the box as it was entered and disables OK. QAbstractSpinBox itself would drop
/// unknown characters and read another number.
class NumberReader : public QValidator
{
public:
    /// \a unit is the pattern of a unit that may follow the number in \a box.
    NumberReader(QAbstractSpinBox *box, const QString &unit)
        : m_box(*box)
        , m_edit(*box->findChild<QLineEdit *>())
        , m_pattern(QStringLiteral(
                        "^([+-]? ?(?:[0-9]{1,3}(?: [0-9]{3})+|[0-9]*)(?:\\.[0-9]*)?)(?: ?%1)?$")
                        .arg(unit))
    {
        m_edit.setValidator(this);
        // Keyboard tracking would remove blanks from an incomplete text.
        box->setKeyboardTracking(false);
        box->installEventFilter(this);
    }

    State validate(QString &input, int &position) const override
    {
        for (QChar &letter : input)
            if (letter.isDigit())
                letter = QLatin1Char(static_cast<char>('0' + letter.digitValue()));
            else if (letter == QLatin1Char(',') || letter == arabicSeparator)
                letter = QLatin1Char('.');
            else if (letter == minusSign)
                letter = QLatin1Char('-');
        QString plain = plainNumber(input);
        // The box checks range and decimals.
        const bool isNumber = !plain.isEmpty() && m_box.validate(plain, position) == Acceptable;
        return isNumber ? Acceptable : Intermediate;
    }

    /// The box reads its text when it steps, loses the focus or is hidden. Its value is set before
    /// that. Events in which the box would replace an invalid text are consumed.
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

    /// Sets the value of the box to the entered number. False when there is none.
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

/// Pattern of the unit of distances: a Latin or a Russian letter, in every language.
QString metre()
{
    return QStringLiteral("[mм]");
}

/// A question for a number: bounds, step, decimals (0 for an integer), the number to begin with and
/// the pattern of a unit that may follow it.
struct NumberQuestion
{
    double min;
    double max;
    double step;
    int decimals;
    double value;
    QString unit;
};

/// One opening of the entry dialog of \a window.
class Entry
{
public:
    explicit Entry(MainWindow &window)
        : m_window(window)
        , m_parts(window.parts())
        , m_state(window.state())
        , m_words(*m_parts.d)
        , m_dialog(*m_parts.input_dialog)
    {
    }

    void ku()
    {
        if (!askForNumber(m_words.KU_STR,
                          { double{ m_state.KU_min },
                            double{ m_state.KU_max },
                            kuDialogStep,
                            calc::kuDecimals,
                            double{ m_state.master_params.KU },
                            {} }))
            return;
        m_window.KU_change(m_dialog.doubleValue());
        // KU itself, although paramSelect_slot sets thousandths. The next turn of the dial starts
        // at this value.
        if (dialSets(MainWindow::KU))
            m_parts.param_dial->trueValue = calc::truncated(m_state.master_params.KU);
    }

    void horizontalOffset()
    {
        const double limit = m_state.x_length * m_state.dist_coef;
        if (!askForNumber(m_words.H_OFFSET_STR,
                          { -limit, limit, m_state.stepOf(m_state.rfg_ID) * m_state.dist_coef,
                            calc::distanceDecimals, trace().scroll * m_state.dist_coef, metre() }))
            return;
        m_window.H_Offset_change(calc::truncated(m_dialog.doubleValue() / m_state.dist_coef));
        if (dialSets(MainWindow::H_OFFSET))
            m_parts.param_dial->trueValue = trace().scroll;
    }

    void verticalOffset()
    {
        constexpr int limit = constants::verticalOffsetLimit;
        if (!askForNumber(m_words.V_OFFSET_STR,
                          { -limit, limit, 1, 0, double(trace().offset), {} }))
            return;
        m_window.V_Offset_change(m_dialog.intValue());
        if (dialSets(MainWindow::V_OFFSET))
            m_parts.param_dial->trueValue = trace().offset;
    }

    void scale()
    {
        QStringList items;
        for (int exponent = constants::minScale; exponent <= constants::maxScale; ++exponent)
            items << calc::generalText(double{ calc::scaleDistance(exponent) })
                    + m_words.DIST_SUFFIX_STR;
        setDialogTexts(m_words.SCALE_STR, double{ calc::scaleDistance(constants::minScale) },
                       double{ calc::scaleDistance(constants::maxScale) });
        m_dialog.setInputMode(QInputDialog::TextInput);
        m_dialog.setComboBoxEditable(false);
        m_dialog.setComboBoxItems(items);
        m_dialog.setTextValue(items.at(m_state.master_scale));
        if (!isDialogAccepted())
            return;
        QString text = m_dialog.textValue();
        text.chop(m_words.DIST_SUFFIX_STR.length());
        m_window.scale_change(calc::exponentOfDistance(text.toDouble()));
        if (dialSets(MainWindow::SCALE))
            m_parts.param_dial->trueValue = m_state.master_scale;
    }

    void cursor(int which)
    {
        const double limit = m_state.x_length * m_state.dist_coef;
        if (!askForNumber(
                which == MainWindow::CURSOR_A ? m_words.CURSOR_A_STR : m_words.CURSOR_B_STR,
                { 0.0, limit, m_state.cursorStep() * m_state.dist_coef, calc::distanceDecimals,
                  m_window.cursorPosition(which) * m_state.dist_coef, metre() }))
            return;
        // Moves the active cursor even when the button is that of the other cursor.
        m_window.cursorSetup_slot(calc::truncated(m_dialog.doubleValue() / m_state.dist_coef));
        if (m_state.Cur_flag == which)
            m_parts.cursor_dial->trueValue = m_window.cursorPosition(which);
    }

private:
    const rfg_SHOWN &trace() const
    {
        return m_state.rfg_DATA[m_state.rfg_ID];
    }

    bool dialSets(int parameter) const
    {
        return m_parts.down_buttons->checkedId() == parameter;
    }

    void setDialogTexts(const QString &word, double min, double max)
    {
        m_dialog.setWindowTitle(word);
        m_dialog.setLabelText(
            word + QLatin1Char('\n') + m_words.RANGE_STR
            + QStringLiteral(" : [%1; %2]").arg(calc::generalText(min), calc::generalText(max)));
    }

    bool askForNumber(const QString &word, const NumberQuestion &question)
    {
        setDialogTexts(word, question.min, question.max);
        // The order matters: each setter rounds or clamps the values that were set before.
        QAbstractSpinBox *box = nullptr;
        if (question.decimals == 0) {
            m_dialog.setInputMode(QInputDialog::IntInput);
            m_dialog.setIntRange(calc::truncated(question.min), calc::truncated(question.max));
            m_dialog.setIntStep(calc::truncated(question.step));
            m_dialog.setIntValue(calc::truncated(question.value));
            box = m_dialog.findChild<QSpinBox *>();
        } else {
            m_dialog.setInputMode(QInputDialog::DoubleInput);
            m_dialog.setDoubleDecimals(question.decimals);
            m_dialog.setDoubleRange(question.min, question.max);
            m_dialog.setDoubleStep(question.step);
            m_dialog.setDoubleValue(question.value);
            box = m_dialog.findChild<QDoubleSpinBox *>();
        }
        const NumberReader reader(box, question.unit);
        return isDialogAccepted();
    }

    bool isDialogAccepted()
    {
        // The button is still disabled when the last dialog was cancelled with a refused text.
        m_dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->setEnabled(true);
        return m_dialog.exec() == QDialog::Accepted;
    }

    MainWindow &m_window;
    const MainWindowParts &m_parts;
    const MainWindowState &m_state;
    const Dictionary &m_words;
    QInputDialog &m_dialog;
};

} // namespace

void MainWindow::openEntryDialog(const QObject *button)
{
    Entry entry(*this);
    if (button == KU_button)
        entry.ku();
    else if (button == H_offset_button)
        entry.horizontalOffset();
    else if (button == V_offset_button)
        entry.verticalOffset();
    else if (button == scale_button)
        entry.scale();
    else if (button == curA_button)
        entry.cursor(CURSOR_A);
    else if (button == curB_button)
        entry.cursor(CURSOR_B);
}
