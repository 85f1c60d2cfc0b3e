// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "settingsdata.h"
#include "settingsmenu.h"
#include "windowtest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QScopeGuard>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>

namespace {

void press(QPushButton *button)
{
    QTest::mousePress(button, Qt::LeftButton);
}

QString russianName()
{
    return QString::fromUtf8("Русский");
}

} // namespace

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
    /// Presses the settings button, lets \a act use the open dialog and closes what is left open.
    /// False when no dialog came.
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
    QString iniPath() const
    {
        return fixture->path(QStringLiteral("chosen.ini"));
    }

private slots:
    void itOpensOnItsSettingsWithNothingToApply()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            QCOMPARE(menu()->tabs->currentWidget(), menu()->settings_widget);
            QVERIFY(!menu()->apply_button->isEnabled());
            QCOMPARE(menu()->cursor_accur->value(), 100);
            QCOMPARE(menu()->param_accur->value(), 100);
            QCOMPARE(menu()->language_select->count(), 2);
            QCOMPARE(menu()->language_select->itemText(1), russianName());
            QCOMPARE(menu()->save_load_index, 58);
            QVERIFY(menu()->files_widget->children().isEmpty());
        }));
    }

    void everyButtonActsWhenItGoesDown()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(250);
            press(menu()->apply_button);
            QCOMPARE(live()->cursor_dial_speed, 250);
            menu()->cursor_accur->setValue(300);
            press(menu()->ok_button);
            QCOMPARE(live()->cursor_dial_speed, 300);
            QVERIFY(!menu()->isVisible());
        }));
        QCOMPARE(menu()->result(), int(QDialog::Accepted));
        QVERIFY(inDialog([this] {
            press(menu()->cancel_button);
            QVERIFY(!menu()->isVisible());
        }));
        QCOMPARE(menu()->result(), int(QDialog::Rejected));
    }

    void appliedSpeedsReachTheDialsAtOnce()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(250);
            menu()->param_accur->setValue(500);
            QCOMPARE(probe().cursor_dial()->maximum(), 100);
            press(menu()->apply_button);
            QVERIFY(!menu()->apply_button->isEnabled());
            QCOMPARE(probe().cursor_dial()->maximum(), 250);
            QCOMPARE(probe().param_dial()->maximum(), 500);
        }));
    }

    void anAppliedLanguageChangesDialogAndWindowAtOnce()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->language_select->setCurrentText(russianName());
            QVERIFY(menu()->apply_button->isEnabled());
            QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
            press(menu()->apply_button);
            QCOMPARE(live()->current_language, QStringLiteral("ru_RU"));
            QCOMPARE(probe().smooth_button()->text(), QString::fromUtf8("Сглаживание"));
            QCOMPARE(menu()->apply_button->text(), QString::fromUtf8("Применить"));
            menu()->language_select->setCurrentText(QStringLiteral("English"));
            press(menu()->ok_button);
        }));
        QCOMPARE(live()->current_language, QStringLiteral("en_US"));
        QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
    }

    void goingBackToTheLiveLanguageLeavesNothingToApply()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->language_select->setCurrentText(russianName());
            QCOMPARE(menu()->update_index, 8);
            menu()->language_select->setCurrentText(QStringLiteral("English"));
            QCOMPARE(menu()->update_index, 0);
            QVERIFY(!menu()->apply_button->isEnabled());
        }));
    }

    void goingBackToTheLiveSpeedLeavesApplyEnabled()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->param_accur->setValue(110);
            menu()->param_accur->setValue(100);
            QVERIFY(menu()->apply_button->isEnabled());
            press(menu()->apply_button);
            QCOMPARE(live()->param_dial_speed, 100);
            QVERIFY(!menu()->apply_button->isEnabled());
        }));
    }

    void theLanguageBoxNeverFollowsTheLiveLanguage()
    {
        WindowFixture::writeSettings("[General]\nlanguage=ru_RU\n");
        fixture->open();
        QVERIFY(inDialog([this] {
            // It shows the first language, which is marked as an edit that Apply does not offer.
            QCOMPARE(menu()->language_select->currentText(), QStringLiteral("English"));
            QCOMPARE(menu()->update_index, 8);
            QVERIFY(!menu()->apply_button->isEnabled());
            press(menu()->ok_button);
        }));
        QCOMPARE(live()->current_language, QStringLiteral("ru_RU"));
    }

    void theLanguageOfTheBoxGoesThroughWithAnyOtherEdit()
    {
        WindowFixture::writeSettings("[General]\nlanguage=ru_RU\n");
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(150);
            QCOMPARE(menu()->update_index, 40);
            press(menu()->apply_button);
        }));
        QCOMPARE(live()->current_language, QStringLiteral("en_US"));
        QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
    }

    void editedSectionsStayMarked()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(150);
            press(menu()->apply_button);
            QCOMPARE(menu()->update_index, 32);
        }));
        QVERIFY(inDialog([this] { QCOMPARE(menu()->update_index, 32); }));
    }

    void cancelledEditsAreForgotten()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(250);
            menu()->language_select->setCurrentText(russianName());
            press(menu()->cancel_button);
        }));
        QCOMPARE(live()->cursor_dial_speed, 100);
        QCOMPARE(live()->current_language, QStringLiteral("en_US"));
        QCOMPARE(probe().cursor_dial()->maximum(), 100);
        QVERIFY(inDialog([this] {
            QCOMPARE(menu()->cursor_accur->value(), 100);
            QVERIFY(!menu()->apply_button->isEnabled());
            // The box keeps the last choice all the same.
            QCOMPARE(menu()->language_select->currentText(), russianName());
        }));
    }

    void okAfterApplyAppliesNothingMore()
    {
        fixture->open();
        const QSignalSpy spy(live(), &SettingsData::dial_settings_changed);
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(250);
            press(menu()->apply_button);
            press(menu()->ok_button);
        }));
        QCOMPARE(spy.count(), 1);
    }

    void speedsStayWithinTenAndAThousand()
    {
        WindowFixture::writeSettings("[Dials]\nparamSpeed=5\ncursorSpeed=5000\n");
        fixture->open();
        QVERIFY(inDialog([this] {
            QCOMPARE(menu()->param_accur->value(), 10);
            QCOMPARE(menu()->cursor_accur->value(), 1000);
            QTest::keyClick(menu()->param_accur, Qt::Key_Down);
            QCOMPARE(menu()->param_accur->value(), 10);
            QTest::keyClick(menu()->cursor_accur, Qt::Key_Up);
            QCOMPARE(menu()->cursor_accur->value(), 1000);
        }));
        QCOMPARE(live()->param_dial_speed, 5);
    }

    void loadDefaultSparesTracesAndFolders()
    {
        const QStringList traces{ fixture->trace(QStringLiteral("one.tdr"), TraceBuilder()) };
        WindowFixture::writePreviousRun(traces);
        fixture->open();
        live()->last_folder = QStringLiteral("/some/folder");
        live()->cursor_dial_speed = 333;
        live()->current_CSS_path = QStringLiteral("/no/sheet.qss");
        live()->parse_CSS();
        live()->current_language = QStringLiteral("ru_RU");
        live()->updateSettings(8);
        probe().rfg_DATA()[0].offset = 9;
        const QSettings factory(QStringLiteral(":/ini/settings_default.ini"), QSettings::IniFormat);
        QVERIFY(inDialog([this] { press(menu()->load_default_button); }));
        QCOMPARE(live()->cursor_dial_speed,
                 factory.value(QStringLiteral("Dials/cursorSpeed")).toInt());
        QCOMPARE(probe().cursor_dial()->maximum(), live()->cursor_dial_speed);
        QCOMPARE(live()->current_CSS_path, QStringLiteral(":/style/style_2.qss"));
        QVERIFY(!fixture->window().styleSheet().isEmpty());
        QCOMPARE(live()->window_geometry,
                 factory.value(QStringLiteral("WindowState/geometry")).toByteArray());
        QCOMPARE(live()->current_language, factory.value(QStringLiteral("language")).toString());
        QCOMPARE(live()->last_folder, QStringLiteral("/some/folder"));
        QCOMPARE(probe().rfg_read_index(), 1);
        QCOMPARE(probe().rfg_DATA()[0].offset, 9);
    }

    void reloadStartingBringsThePreviousTracesBack()
    {
        const QStringList traces{ fixture->trace(QStringLiteral("one.tdr"), TraceBuilder()),
                                  fixture->trace(QStringLiteral("two.tdr"), TraceBuilder()) };
        WindowFixture::writePreviousRun(traces);
        fixture->open();
        fixture->window().remove_Selected_RFG(1);
        probe().rfg_DATA()[0].offset = 9;
        QVERIFY(inDialog([this] { press(menu()->load_last_button); }));
        QCOMPARE(probe().rfg_read_index(), 1);
        QVERIFY(inDialog([this] {
            menu()->files_settings_check->click();
            QCOMPARE(menu()->save_load_index, 59);
            press(menu()->load_last_button);
        }));
        QCOMPARE(probe().rfg_read_index(), 3);
        QCOMPARE(probe().rfg_DATA()[0].offset, 0);
    }

    void savingWithNoSectionGivesAFileWithoutKeys()
    {
        fixture->open();
        std::unique_ptr<DialogAnswer> file;
        QVERIFY(inDialog([this, &file] {
            for (QCheckBox *box : { menu()->CSS_settings_check, menu()->lang_settings_check,
                                    menu()->geometry_settings_check, menu()->dial_settings_check })
                box->click();
            QCOMPARE(menu()->save_load_index, 0);
            file = answerDialog(typeFileName(iniPath()));
            press(menu()->save_settings_button);
        }));
        QVERIFY(file->served());
        QVERIFY(QFile::exists(iniPath()));
        QVERIFY(QSettings(iniPath(), QSettings::IniFormat).allKeys().isEmpty());
    }

    void savingTakesTheTickedSectionsAndNoOpenEdits()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(250);
            menu()->CSS_settings_check->click();
            menu()->lang_settings_check->click();
            menu()->geometry_settings_check->click();
            const auto file = answerDialog(typeFileName(iniPath()));
            press(menu()->save_settings_button);
            QVERIFY(file->served());
        }));
        const QSettings saved(iniPath(), QSettings::IniFormat);
        QCOMPARE(saved.allKeys(),
                 (QStringList{ QStringLiteral("Dials/cursorSpeed"),
                               QStringLiteral("Dials/paramSpeed") }));
        QCOMPARE(saved.value(QStringLiteral("Dials/cursorSpeed")).toInt(), 100);
    }

    void loadingTakesTheTickedSectionsAtOnce()
    {
        fixture->open();
        QFile file(iniPath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\nlanguage=ru_RU\n[Dials]\nparamSpeed=70\ncursorSpeed=80\n");
        file.close();
        QVERIFY(inDialog([this] {
            menu()->lang_settings_check->click();
            const auto answer = answerDialog(typeFileName(iniPath()));
            press(menu()->load_settings_button);
            QVERIFY(answer->served());
            QCOMPARE(menu()->cursor_accur->value(), 80);
            QCOMPARE(menu()->param_accur->value(), 70);
            press(menu()->cancel_button);
        }));
        QCOMPARE(probe().cursor_dial()->maximum(), 80);
        QCOMPARE(probe().param_dial()->maximum(), 70);
        QCOMPARE(live()->current_language, QStringLiteral("en_US"));
    }

    void aCancelledFileDialogChangesNothing()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            for (QPushButton *button :
                 { menu()->load_settings_button, menu()->save_settings_button }) {
                const auto answer = answerDialog(cancelDialog);
                press(button);
                QVERIFY(answer->served());
            }
        }));
        QCOMPARE(live()->cursor_dial_speed, 100);
        QVERIFY(!QFile::exists(iniPath()));
    }
};

QTEST_MAIN(TestSettingsDialog)
#include "tst_settings_dialog.moc"
