// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "popups.h"

#include "dialoganswer.h"
#include "input_events.h"
#include "settingsmenu.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QtTest>

namespace {

constexpr int patience = 6; ///< answers to a dialog before it is closed

/// Valid and invalid numbers.
const char *const typedNumbers[] = {
    "0",      "1",     "-1",   "1.5",  "2.000", "10",  "9.999",      "-256", "256",  "257",
    "129",    "0.125", "1e3",  "1e99", "-1e99", "nan", "inf",        "",     "abc",  "1,5",
    "999999", "0.001", "-0.0", "007",  "3.",    ".5",  "2147483648", "+4",   " 12 ", "--2",
};

} // namespace

Popups::Popups(const Choices &choices, unsigned seed)
    : m_choices(choices)
    , m_random(seed)
{
    wait();
}

Popups::~Popups()
{
    // Lists of combo boxes, for example, open without an event loop of their own and stay open.
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
}

bool Popups::percent(int share)
{
    return m_random.bounded(100) < share;
}

template <typename List> auto Popups::oneOf(const List &choices)
{
    return choices[m_random.bounded(static_cast<int>(std::size(choices)))];
}

void Popups::wait()
{
    // Single shots: a repeating timer does not fire during its own slot, and an answer may open the
    // next dialog.
    QTimer::singleShot(0, this, &Popups::answerOne);
}

void Popups::answerOne()
{
    QWidget *popup = QApplication::activePopupWidget();
    if (popup == nullptr)
        popup = QApplication::activeModalWidget();
    wait();
    if (popup == nullptr || !popup->isVisible())
        return;
    m_again = popup == m_last ? m_again + 1 : 0;
    m_last = popup;
    auto *dialog = qobject_cast<QDialog *>(popup);
    if (auto *menu = qobject_cast<QMenu *>(popup); menu != nullptr && m_again == 0)
        answerMenu(*menu);
    else if (dialog != nullptr && m_again < patience)
        answerDialog(*dialog);
    else if (dialog != nullptr)
        dialog->reject();
    else
        popup->close();
}

void Popups::answerMenu(QMenu &menu)
{
    QList<QAction *> open;
    const auto actions = menu.actions();
    for (QAction *action : actions)
        if (action->isEnabled() && !action->isSeparator())
            open.append(action);
    if (open.isEmpty() || percent(20)) {
        menu.close();
        return;
    }
    menu.setActiveAction(oneOf(open));
    QTest::keyClick(&menu, Qt::Key_Return);
}

void Popups::answerDialog(QDialog &dialog)
{
    if (percent(10)) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        return;
    }
    if (auto *settings = qobject_cast<SettingsMenu *>(&dialog)) {
        answerSettings(*settings);
    } else if (auto *question = qobject_cast<QInputDialog *>(&dialog)) {
        answerQuestion(*question);
    } else if (qobject_cast<QFileDialog *>(&dialog) != nullptr) {
        answerFileDialog(dialog);
    } else {
        const auto buttons = dialog.findChildren<QPushButton *>();
        if (buttons.isEmpty())
            dialog.reject();
        else
            input::click(oneOf(buttons));
    }
}

void Popups::answerFileDialog(QDialog &dialog)
{
    const auto &files = static_cast<QFileDialog &>(dialog);
    if (files.acceptMode() == QFileDialog::AcceptSave) {
        const bool wantsSettings = files.nameFilters().join(QChar()).contains(QLatin1String("ini"));
        const QString name = QStringLiteral("saved%1.%2")
                                 .arg(m_random.bounded(3))
                                 .arg(QLatin1String(wantsSettings ? "ini" : "csv"));
        typeFileName(m_choices.folder + QLatin1Char('/') + name)(dialog);
    } else if (files.fileMode() == QFileDialog::ExistingFiles) {
        QStringList paths;
        for (int i = m_random.bounded(1, 9); i > 0; --i)
            paths.append(oneOf(m_choices.traces));
        typeFileNames(paths)(dialog);
    } else {
        const bool wantsTraces = files.nameFilters().join(QChar()).contains(QLatin1String("tdr"));
        typeFileName(oneOf(wantsTraces ? m_choices.traces : m_choices.settings))(dialog);
    }
}

void Popups::answerQuestion(QInputDialog &dialog)
{
    if (dialog.inputMode() == QInputDialog::TextInput) {
        const QStringList items = dialog.comboBoxItems();
        if (!items.isEmpty())
            dialog.setTextValue(oneOf(items));
    } else if (percent(50)) {
        if (auto *edit = dialog.findChild<QLineEdit *>()) {
            edit->selectAll();
            // The validator applies, as to input from the keyboard.
            edit->insert(QLatin1String(oneOf(typedNumbers)));
        }
    } else if (dialog.inputMode() == QInputDialog::IntInput) {
        dialog.setIntValue(m_random.bounded(-300, 301));
    } else {
        const double range = dialog.doubleMaximum() - dialog.doubleMinimum();
        dialog.setDoubleValue(dialog.doubleMinimum() + range * m_random.bounded(1001) / 1000.0);
    }
    QTest::keyClick(&dialog, percent(90) ? Qt::Key_Return : Qt::Key_Escape);
}

void Popups::answerSettings(SettingsMenu &dialog)
{
    // Up to three changes, then one button.
    for (int i = m_random.bounded(4); i > 0; --i)
        changeSettings(dialog);
    QPushButton *const buttons[] = { dialog.ok_button,
                                     dialog.ok_button,
                                     dialog.cancel_button,
                                     dialog.apply_button,
                                     dialog.load_last_button,
                                     dialog.load_default_button,
                                     dialog.load_settings_button,
                                     dialog.save_settings_button };
    input::click(oneOf(buttons));
}

void Popups::changeSettings(SettingsMenu &dialog)
{
    switch (m_random.bounded(4)) {
    case 0:
        dialog.language_select->setCurrentIndex(m_random.bounded(dialog.language_select->count()));
        break;
    case 1: {
        const auto checks = dialog.findChildren<QCheckBox *>();
        input::click(oneOf(checks));
        break;
    }
    case 2:
        dialog.cursor_accur->setValue(m_random.bounded(0, 1101));
        break;
    default:
        dialog.param_accur->setValue(m_random.bounded(0, 1101));
        break;
    }
}
