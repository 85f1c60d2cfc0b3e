// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfacebutton.h"

class QAction;
class QMenu;

/// Button of one trace slot, with the context menu of the slot and two properties for style sheets.
/// It reports what the user requests by a signal and changes nothing itself; the window calls the
/// setters, none of which emits a request.
class LegendButton : public InterfaceButton
{
    Q_OBJECT
    Q_PROPERTY(bool vis READ vis WRITE setVis NOTIFY visChanged)
    Q_PROPERTY(bool mast READ mast WRITE setMast NOTIFY mastChanged)

public:
    /// \a slot counts from 0; the object name and first name are "rfg_" and \a slot + 1. The
    /// actions get their texts with the first \c retranslateUI.
    LegendButton(Dictionary *words, char slot);
    ~LegendButton() override;

    /// Names the trace: \c name and the title of the context menu, not the button's own text.
    void setName(const QString &text);

    /// Reads the five action texts again.
    void retranslateUI();

    /// Enables or disables everything in the menu but "Load": an empty slot can be loaded.
    void menuEnable(bool on);

    /// Notes whether the trace is shown; the check mark of the menu follows.
    void setVis(bool on);
    bool vis() const;

    /// Notes whether the slot is the master; a master cannot be made master again, so its menu
    /// entry is enabled exactly while \a on is false.
    void setMast(bool on);
    bool mast() const;

    char id = 0; ///< the slot, from 0
    QString name; ///< of the trace
    QString date; ///< of the trace; the window writes and reads it
    QIcon *vis_icon = nullptr; ///< unused
    QMenu *contextMenu = nullptr; ///< the window shows it
    QAction *load_action = nullptr;
    QAction *reset_action = nullptr;
    QAction *clear_action = nullptr;
    QAction *visible_action = nullptr;
    QAction *master_action = nullptr;
    bool m_visible_st = false; ///< the trace is shown
    bool m_master_st = false; ///< the slot is the master

signals:
    void load_signal(char id);
    void reset_signal(char id);
    void clear_signal(char id);
    /// The user asks for the opposite of the present visibility.
    void visible_signal(char id, bool wanted);
    void master_signal(char id);
    void contextMenu_signal(char id);
    void visChanged(bool on);
    void mastChanged(bool on);

private:
    void buildMenu();
    void connectActions();
    /// Lets the style sheets look at the properties again.
    void restyle();
};
