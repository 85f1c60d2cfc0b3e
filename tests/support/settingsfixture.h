// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary.h"
#include "settingsdata.h"
#include "settingsmenu.h"

#include <QAbstractButton>
#include <QTabWidget>
#include <QtTest>

/// A settings dialog with the live store and the words that the window would give it.
struct SettingsFixture
{
    SettingsFixture()
        : words(nullptr)
        , live(nullptr)
        , menu(&words, &live, nullptr)
    {
        live.parse_translations();
        live.current_language = QStringLiteral("en_US");
        words.setStrings();
        menu.retranslateUI();
    }

    /// Updates the dialog from the live store and shows its second page, as the window does.
    void open()
    {
        menu.interfaceUpdate();
        menu.tabs->setCurrentWidget(menu.settings_widget);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
    }

    /// Presses \a button with the mouse without a release: the dialog acts on the press.
    static void press(QAbstractButton *button)
    {
        QTest::mousePress(button, Qt::LeftButton);
    }

    Dictionary words;
    SettingsData live;
    SettingsMenu menu;
};
