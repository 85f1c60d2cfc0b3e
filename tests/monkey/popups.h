// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QRandomGenerator>
#include <QStringList>

class QDialog;
class QInputDialog;
class QMenu;
class QWidget;
class SettingsMenu;

/// Choices for the dialogs and menus of the monkey.
struct Choices
{
    QStringList traces; ///< paths, some of them good
    QStringList settings; ///< paths of settings files, some of them good
    QStringList sheets; ///< paths of style sheets, some of them good
    QString folder; ///< where files may be written
};

/// Answers every modal dialog and every menu that opens during its lifetime, nested ones included.
/// Closes a dialog that is still open after several answers. The answers depend on \a seed alone.
class Popups : public QObject
{
    Q_OBJECT

public:
    Popups(const Choices &choices, unsigned seed);
    ~Popups() override;
    Q_DISABLE_COPY(Popups)

private:
    void wait();
    void answerOne();
    void answerMenu(QMenu &menu);
    void answerDialog(QDialog &dialog);
    void answerFileDialog(QDialog &dialog);
    void answerQuestion(QInputDialog &dialog);
    void answerSettings(SettingsMenu &dialog);
    void changeSettings(SettingsMenu &dialog);
    bool percent(int share);
    template <typename List> auto oneOf(const List &choices);

    const Choices &m_choices;
    QRandomGenerator m_random;
    QPointer<QWidget> m_last; ///< the dialog or menu that was answered last
    int m_again = 0; ///< number of answers to it in a row
};
