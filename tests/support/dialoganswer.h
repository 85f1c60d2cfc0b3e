// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>

class QDialog;
class QMenu;

/// Waits for the next modal dialog or menu and answers it from a timer, because its event loop
/// blocks the test. The destructor ends the wait.
class DialogAnswer
{
public:
    explicit DialogAnswer(std::function<bool()> attempt);
    Q_DISABLE_COPY(DialogAnswer)

    /// True after the answer; false when nothing has opened yet.
    bool served() const;

private:
    std::function<bool()> m_attempt;
    QTimer m_timer;
    bool m_served = false;
};

/// Calls \a answer with the next visible modal dialog. \a answer must close the dialog or make
/// something else close it. For a nested dialog, call answerDialog again inside \a answer.
///
///     const auto answer = answerDialog(typeFileName(path));
///     QTest::mousePress(button, Qt::LeftButton);
///     QVERIFY(answer->served());
std::unique_ptr<DialogAnswer> answerDialog(std::function<void(QDialog &)> answer);

/// Calls \a answer with the next visible popup menu, then closes the menu.
std::unique_ptr<DialogAnswer> answerMenu(std::function<void(QMenu &)> answer);

/// For a file dialog: types \a path, which need not exist, and accepts.
std::function<void(QDialog &)> typeFileName(const QString &path);

/// For a file dialog that takes several files: types all of \a paths and accepts.
std::function<void(QDialog &)> typeFileNames(const QStringList &paths);

/// Rejects the dialog.
void cancelDialog(QDialog &dialog);
