// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "popups.h"

#include "dialoganswer.h"
#include "inputevents.h"
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

constexpr int patience = 6; ///< answers that a dialog gets before it is simply closed

/// Numbers as people type them, and as they should not.
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
    // Lists and the like open without a loop of their own and stay.
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
}

int Popups::answers() const
{
    return m_answers;
}

void Popups::wait()
{
    // One shot each: a timer that repeats does not fire while it is being served, and an answer
    // may open the next dialog.
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
    ++m_answers;
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
    if (open.isEmpty() || m_random.percent(20)) {
        menu.close();
        return;
    }
    menu.setActiveAction(m_random.oneOf(open));
    QTest::keyClick(&menu, Qt::Key_Return);
}

void Popups::answerDialog(QDialog &dialog)
{
    if (m_random.percent(10)) {
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
            input::click(m_random.oneOf(buttons));
    }
}

QString Popups::anyOf(const QStringList &paths)
{
    return m_random.oneOf(paths);
}

void Popups::answerFileDialog(QDialog &dialog)
{
    const auto &files = static_cast<QFileDialog &>(dialog);
    if (files.acceptMode() == QFileDialog::AcceptSave) {
        const bool wantsSettings = files.nameFilters().join(QChar()).contains(QLatin1String("ini"));
        const QString name = QStringLiteral("saved%1.%2")
                                 .arg(m_random.below(3))
                                 .arg(QLatin1String(wantsSettings ? "ini" : "csv"));
        typeFileName(m_choices.folder + QLatin1Char('/') + name)(dialog);
    } else if (files.fileMode() == QFileDialog::ExistingFiles) {
        QStringList paths;
        for (int i = m_random.between(1, 8); i > 0; --i)
            paths.append(anyOf(m_choices.traces));
        typeFileNames(paths)(dialog);
    } else {
        const bool wantsTraces = files.nameFilters().join(QChar()).contains(QLatin1String("tdr"));
        typeFileName(anyOf(wantsTraces ? m_choices.traces : m_choices.settings))(dialog);
    }
}

void Popups::answerQuestion(QInputDialog &dialog)
{
    if (dialog.inputMode() == QInputDialog::TextInput) {
        const QStringList items = dialog.comboBoxItems();
        if (!items.isEmpty())
            dialog.setTextValue(anyOf(items));
    } else if (m_random.percent(50)) {
        if (auto *edit = dialog.findChild<QLineEdit *>()) {
            const auto count = static_cast<int>(std::size(typedNumbers));
            edit->selectAll();
            // The edit takes only what its validator lets through, as from the keyboard.
            edit->insert(QLatin1String(typedNumbers[m_random.below(count)]));
        }
    } else if (dialog.inputMode() == QInputDialog::IntInput) {
        dialog.setIntValue(m_random.between(-300, 300));
    } else {
        const double range = dialog.doubleMaximum() - dialog.doubleMinimum();
        dialog.setDoubleValue(dialog.doubleMinimum() + range * m_random.below(1001) / 1000.0);
    }
    QTest::keyClick(&dialog, m_random.percent(90) ? Qt::Key_Return : Qt::Key_Escape);
}

void Popups::answerSettings(SettingsMenu &dialog)
{
    // Some changes, some file buttons, and out by one of the three ways.
    for (int i = m_random.below(4); i > 0; --i)
        changeSettings(dialog);
    QPushButton *const buttons[] = { dialog.ok_button,
                                     dialog.ok_button,
                                     dialog.cancel_button,
                                     dialog.apply_button,
                                     dialog.load_last_button,
                                     dialog.load_default_button,
                                     dialog.load_settings_button,
                                     dialog.save_settings_button };
    input::click(buttons[m_random.below(static_cast<int>(std::size(buttons)))]);
}

void Popups::changeSettings(SettingsMenu &dialog)
{
    switch (m_random.below(4)) {
    case 0:
        dialog.language_select->setCurrentIndex(m_random.below(dialog.language_select->count()));
        break;
    case 1: {
        const auto checks = dialog.findChildren<QCheckBox *>();
        input::click(m_random.oneOf(checks));
        break;
    }
    case 2:
        dialog.cursor_accur->setValue(m_random.between(0, 1100));
        break;
    default:
        dialog.param_accur->setValue(m_random.between(0, 1100));
        break;
    }
}
