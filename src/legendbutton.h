// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfacebutton.h"

class QAction;
class QMenu;

/// The button of one trace slot, with the slot's context menu and two properties for style sheets.
/// Its signals report requests of the user and change nothing; the window calls the setters, which
/// emit no request.
class LegendButton : public InterfaceButton
{
    Q_OBJECT
    Q_PROPERTY(bool vis READ vis WRITE setVis NOTIFY visChanged)
    Q_PROPERTY(bool mast READ mast WRITE setMast NOTIFY mastChanged)

public:
    /// \a slot counts from 0; the object name and the initial name are "rfg_" and \a slot + 1. The
    /// actions have no texts before the first \c retranslateUI.
    LegendButton(Dictionary *words, char slot);
    ~LegendButton() override;

    /// Names the trace: \c name and the title of the context menu, not the button's own text.
    void setName(const QString &text);

    /// Sets the texts of the five actions from the dictionary.
    void retranslateUI();

    /// Enables or disables all actions but "Load", which an empty slot needs.
    void menuEnable(bool on);

    /// Sets the property \c vis (the trace is shown) and the check mark of the menu. Applies the
    /// style sheets again.
    void setVis(bool on);
    bool vis() const;

    /// Sets the property \c mast (the slot is the master). Disables "Set as Master" for the master
    /// and enables it for any other slot. Applies the style sheets again.
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
    /// \a wanted is the opposite of \c vis.
    void visible_signal(char id, bool wanted);
    void master_signal(char id);
    void contextMenu_signal(char id);
    void visChanged(bool on);
    void mastChanged(bool on);

private:
    void buildMenu();
    void connectActions();
    /// Applies the style sheets again, with the present values of the properties.
    void restyle();
};
