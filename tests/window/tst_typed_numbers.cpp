// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "input_events.h"
#include "parambutton.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

#include <limits>

namespace {

constexpr double refused = std::numeric_limits<double>::quiet_NaN();

/// A text that is entered into a dialog, and the number that the dialog reads.
struct Entry
{
    const char *text;
    double number;
};

const Entry cursorEntries[] = {
    { "71.5", 71.5 },
    { "71,5", 71.5 },
    { "71,5 m", 71.5 },
    { "71,5 м", 71.5 },
    { "  71.5m ", 71.5 },
    { "+71,", 71.0 },
    { ",5", 0.5 },
    { "1234.5", 1234.5 },
    { "1 234,5", 1234.5 },
    { "1  234", 1234.0 },
    { "1\u00A0234,5\u00A0м", 1234.5 },
    { "٧١٫٥", 71.5 },
    // A group separator, or three decimals where the dialog has two.
    { "1,234", refused },
    { "1.234", refused },
    { "1,234.5", refused },
    { "1.234,5", refused },
    { "1.234.5", refused },
    { "1'234", refused },
    { "71 5", refused },
    { "12 34", refused },
    { "71,5 72", refused },
    { "71,5 km", refused },
    { "71,5 mm", refused },
    { "71²", refused },
    { "7e2", refused },
    { "0x10", refused },
    { "nan", refused },
    { "-71,5", refused },
    { "9000", refused },
    { ",", refused },
    { "", refused },
};

const Entry shiftEntries[] = {
    { "-3,5", -3.5 },
    { "\u2212 3.5 m", -3.5 },
    { "-9000", refused },
    { "--3", refused },
};

const Entry factorEntries[] = {
    { "1.52", 1.52 },  { "1,525", 1.525 },    { " 1,52 ", 1.52 }, { "10", 10.0 },
    { "15", refused }, { "1,5255", refused }, { "0,5", refused }, { "1,52 m", refused },
};

const Entry levelEntries[] = {
    { "-12", -12.0 },   { " 7 ", 7.0 },      { "256", 256.0 },
    { "300", refused }, { "12,5", refused }, { "7 m", refused },
};

using Enter = void (*)(QWidget *box, const QString &text);

void type(QWidget *box, const QString &text)
{
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, box, Qt::Key_unknown, letter, Qt::NoModifier);
}

void paste(QWidget *box, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keySequence(box, QKeySequence::Paste);
}

bool isUsable(const QInputDialog &dialog)
{
    return dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled();
}

} // namespace

/// Numbers that are typed or pasted into the entry dialogs.
class TestTypedNumbers : public WindowTest
{
    Q_OBJECT

private:
    /// Enters \a entry into \a dialog, then presses Enter. If that does nothing, steps in every way
    /// and presses Tab. Returns the difference from the expectation; empty if there is none.
    static QString problemWith(QInputDialog &dialog, const Entry &entry, Enter enter)
    {
        auto *box = static_cast<QAbstractSpinBox *>(dialog.focusWidget());
        if (!QRegularExpression(QStringLiteral("^-?[0-9]+(\\.[0-9]+)?$"))
                 .match(box->text())
                 .hasMatch())
            return QStringLiteral("opens with ") + box->text();
        QTest::keyClick(box, Qt::Key_Delete);
        enter(box, QString::fromUtf8(entry.text));
        const QString entered = box->text();
        if (isUsable(dialog) == qIsNaN(entry.number))
            return QStringLiteral("wrong state of OK");
        QTest::keyClick(box, Qt::Key_Return);
        if (dialog.isVisible() != qIsNaN(entry.number))
            return QStringLiteral("wrong effect of Enter");
        if (!dialog.isVisible()) {
            const bool isInt = dialog.inputMode() == QInputDialog::IntInput;
            const double number = isInt ? dialog.intValue() : dialog.doubleValue();
            return number == entry.number ? QString() : QString::number(number);
        }
        QTest::keyClick(box, Qt::Key_Up);
        input::wheel(box, 120);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 6, 6)); // the upper arrow
        QTest::keyClick(box, Qt::Key_Tab);
        if (box->hasFocus() || isUsable(dialog) || box->text() != entered)
            return QStringLiteral("does not stay as it was entered");
        return {};
    }
    template <typename Entries> void verify(QWidget *button, const Entries &entries)
    {
        for (const Entry &entry : entries)
            for (const Enter enter : { type, paste })
                answerEntry(button, [&](QInputDialog &dialog) {
                    const QString problem = problemWith(dialog, entry, enter);
                    QVERIFY2(
                        problem.isEmpty(),
                        qPrintable(QString::fromUtf8(entry.text) + QStringLiteral(": ") + problem));
                });
    }

private slots:
    void numberIsReadEquallyInEveryLocale()
    {
        struct Row
        {
            const char *name;
        };
        const QLocale former;
        each<Row>({ { "C" }, { "en_US" }, { "de_DE" }, { "ru_RU" }, { "ar_EG" } },
                  [this](const Row &row) {
                      QLocale::setDefault(QLocale(QLatin1String(row.name)));
                      openOn({ TraceBuilder() });
                      window().cursorSetup_slot(12000);
                      verify(probe().curA_button(), cursorEntries);
                      verify(probe().H_offset_button(), shiftEntries);
                      verify(probe().KU_button(), factorEntries);
                      verify(probe().V_offset_button(), levelEntries);
                  });
        QLocale::setDefault(former);
    }

    void arrowsStepFromTheNumberThatWasTyped()
    {
        openOn({ TraceBuilder() });
        answerEntry(probe().KU_button(), [](QInputDialog &dialog) {
            QWidget *box = dialog.focusWidget();
            type(box, QStringLiteral("2,5"));
            QTest::keyClick(box, Qt::Key_Up);
            QCOMPARE(dialog.doubleValue(), 2.501);
            type(box, QStringLiteral("3,5"));
            input::wheel(box, -120);
            QCOMPARE(dialog.doubleValue(), 3.499);
        });
    }

    void shortcutOfOkAcceptsTheEditedText()
    {
        openOn({ TraceBuilder() });
        answerEntry(probe().curA_button(), [](QInputDialog &dialog) {
            type(dialog.focusWidget(), QStringLiteral("12,6 m")); // truncated to whole samples
            dialog.accept();
        });
        QCOMPARE(probe().curA_button()->text().section(QLatin1Char('\n'), 1, 1),
                 QStringLiteral(" x = 12.50 m"));
    }

    void nextDialogIsUsableAfterARefusedText()
    {
        openOn({ TraceBuilder() });
        answerEntry(probe().V_offset_button(), [](QInputDialog &) {});
        for (QWidget *button : QVector<QWidget *>{ probe().V_offset_button(),
                                                   probe().scale_button(), probe().KU_button() }) {
            answerEntry(probe().KU_button(), [](QInputDialog &dialog) {
                paste(dialog.focusWidget(), QStringLiteral("1.2.3"));
                QVERIFY(!isUsable(dialog));
            });
            answerEntry(button, [](QInputDialog &dialog) { QVERIFY(isUsable(dialog)); });
        }
    }
};

QTEST_MAIN(TestTypedNumbers)
#include "tst_typed_numbers.moc"
