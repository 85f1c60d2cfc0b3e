// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "settingsdata.h"
#include "settingsfixture.h"
#include "windowtest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>

/// The dialog as the settings button opens it, with the live window behind it.
class TestSettingsDialog : public WindowTest
{
    Q_OBJECT

private:
    SettingsMenu *menu() const
    {
        return probe().settingsMenu();
    }
    SettingsData *live() const
    {
        return probe().settingsData();
    }
    /// Presses the settings button, calls \a act while the dialog is open, and closes it if it is
    /// still open then. False when no dialog opened.
    bool inDialog(const std::function<void()> &act)
    {
        const auto answer = answerDialog([&act](QDialog &dialog) {
            const auto closer = qScopeGuard([&dialog] {
                if (dialog.isVisible())
                    dialog.reject();
            });
            act();
        });
        QTest::mousePress(probe().settings_button(), Qt::LeftButton);
        QTest::mouseRelease(probe().settings_button(), Qt::LeftButton);
        return answer->served();
    }

private slots:
    void itOpensUpToDateOnThePageOfSettings()
    {
        fixture->open();
        window().resize(900, 600);
        WindowFixture::settle();
        live()->window_geometry.clear();
        live()->window_state.clear();
        live()->cursor_dial_speed = 250;
        menu()->tabs->setCurrentWidget(menu()->files_widget);
        QVERIFY(inDialog([this] {
            QVERIFY(menu()->isModal());
            QVERIFY(menu()->initiated);
            QCOMPARE(menu()->tabs->currentWidget(), menu()->settings_widget);
            QCOMPARE(live()->window_geometry, window().saveGeometry());
            QCOMPARE(live()->window_state, window().saveState(0));
            QCOMPARE(menu()->cursor_accur->value(), 250);
            QCOMPARE(menu()->language_select->count(), 2);
            QVERIFY(!menu()->apply_button->isEnabled());
        }));
    }

    void whatIsAppliedReachesDialogAndWindowAtOnce()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(250);
            menu()->param_accur->setValue(500);
            menu()->language_select->setCurrentText(QString::fromUtf8("Русский"));
            QCOMPARE(probe().cursor_dial()->maximum(), 100);
            QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
            SettingsFixture::press(menu()->apply_button);
            QVERIFY(!menu()->apply_button->isEnabled());
            QCOMPARE(probe().cursor_dial()->maximum(), 250);
            QCOMPARE(probe().param_dial()->maximum(), 500);
            QCOMPARE(live()->current_language, QStringLiteral("ru_RU"));
            QCOMPARE(probe().smooth_button()->text(), QString::fromUtf8("Сглаживание"));
            QCOMPARE(menu()->apply_button->text(), QString::fromUtf8("Применить"));
            menu()->language_select->setCurrentText(QStringLiteral("English"));
            SettingsFixture::press(menu()->ok_button);
        }));
        QCOMPARE(live()->current_language, QStringLiteral("en_US"));
        QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
    }

    void loadDefaultReachesTheWindowAndSparesTheTraces()
    {
        openOn({ TraceBuilder() });
        live()->cursor_dial_speed = 333;
        live()->current_CSS_path = QStringLiteral("/no/sheet.qss");
        live()->parse_CSS();
        setLanguage("ru_RU");
        probe().rfg_DATA()[0].offset = 9;
        QVERIFY(inDialog([this] { SettingsFixture::press(menu()->load_default_button); }));
        QCOMPARE(probe().cursor_dial()->maximum(), 100);
        QVERIFY(!fixture->window().styleSheet().isEmpty());
        QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
        QCOMPARE(probe().rfg_read_index(), 1);
        QCOMPARE(probe().rfg_DATA()[0].offset, 9);
    }

    void reloadStartingBringsThePreviousTracesBack()
    {
        openOn({ TraceBuilder(), TraceBuilder() });
        fixture->window().remove_Selected_RFG(1);
        probe().rfg_DATA()[0].offset = 9;
        QVERIFY(inDialog([this] { SettingsFixture::press(menu()->load_last_button); }));
        QCOMPARE(probe().rfg_read_index(), 1);
        QVERIFY(inDialog([this] {
            menu()->files_settings_check->click();
            QCOMPARE(menu()->save_load_index, 59);
            SettingsFixture::press(menu()->load_last_button);
        }));
        QCOMPARE(probe().rfg_read_index(), 3);
        QCOMPARE(probe().rfg_DATA()[0].offset, 0);
    }
};

QTEST_MAIN(TestSettingsDialog)
#include "tst_settings_dialog.moc"
