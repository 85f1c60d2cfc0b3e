// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>

#include <utility>

namespace {

constexpr int pollMs = 5;

} // namespace

DialogAnswer::DialogAnswer(std::function<bool()> attempt)
    : m_attempt(std::move(attempt))
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        // Stop first: an answer may run the event loop, which would call the answer again.
        m_timer.stop();
        m_served = m_attempt();
        if (!m_served)
            m_timer.start(pollMs);
    });
    m_timer.start(pollMs);
}

bool DialogAnswer::served() const
{
    return m_served;
}

std::unique_ptr<DialogAnswer> answerDialog(std::function<void(QDialog &)> answer)
{
    // A dialog that is already open does not count.
    const QWidget *known = QApplication::activeModalWidget();
    return std::make_unique<DialogAnswer>([known, answer = std::move(answer)] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == known || !dialog->isVisible())
            return false;
        answer(*dialog);
        return true;
    });
}

std::unique_ptr<DialogAnswer> answerMenu(std::function<void(QMenu &)> answer)
{
    return std::make_unique<DialogAnswer>([answer = std::move(answer)] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr || !menu->isVisible())
            return false;
        answer(*menu);
        menu->close();
        return true;
    });
}

std::function<void(QDialog &)> typeFileName(const QString &path)
{
    return [path](QDialog &dialog) {
        // Only the edit is filled: selecting a file would use a model that another thread fills.
        auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (edit == nullptr) {
            dialog.reject();
            return;
        }
        edit->setText(path);
        dialog.accept();
    };
}

std::function<void(QDialog &)> typeFileNames(const QStringList &paths)
{
    QStringList quoted;
    for (const QString &path : paths)
        quoted.append(QLatin1Char('"') + path + QLatin1Char('"'));
    return typeFileName(quoted.join(QLatin1Char(' ')));
}

void cancelDialog(QDialog &dialog)
{
    dialog.reject();
}
