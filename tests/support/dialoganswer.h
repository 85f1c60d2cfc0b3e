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

    /// True once the answer was given; false means that nothing opened.
    bool served() const;

private:
    std::function<bool()> m_attempt;
    QTimer m_timer;
    bool m_served = false;
};

/// Serves the next modal dialog that is visible with \a answer, which must close it or see to it
/// that something else does. For a dialog opened by a dialog ask again inside \a answer.
///
///     const auto answer = answerDialog(typeFileName(path));
///     QTest::mousePress(button, Qt::LeftButton);
///     QVERIFY(answer->served());
std::unique_ptr<DialogAnswer> answerDialog(std::function<void(QDialog &)> answer);

/// Serves the next popup menu that is visible; it is closed after \a answer.
std::unique_ptr<DialogAnswer> answerMenu(std::function<void(QMenu &)> answer);

/// For a file dialog: types \a path, which need not exist, and accepts.
std::function<void(QDialog &)> typeFileName(const QString &path);

/// For a file dialog that takes several: types all of \a paths and accepts.
std::function<void(QDialog &)> typeFileNames(const QStringList &paths);

/// Closes the dialog with rejection.
void cancelDialog(QDialog &dialog);
