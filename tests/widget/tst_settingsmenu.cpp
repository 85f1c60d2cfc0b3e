// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingsfixture.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>

#include <memory>

/// The texts and controls of the dialog. tst_settingsmenu_files tests its file buttons.
class TestSettingsMenu : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f.reset(new SettingsFixture);
    }

    void newDialogSelectsStyleLanguageGeometryAndDials()
    {
        const SettingsMenu &menu = f->menu;
        QCOMPARE(menu.save_load_index, 58);
        QVERIFY(!menu.settings_check_group->exclusive());
        const QList<QCheckBox *> checks = allChecks();
        for (int id = 0; id < 6; ++id) {
            QCOMPARE(menu.settings_check_group->button(id), checks.at(id));
            QCOMPARE(checks.at(id)->isChecked(), id != 0 && id != 2);
        }
        for (const QSpinBox *box : { menu.cursor_accur, menu.param_accur }) {
            QCOMPARE(box->minimum(), 10);
            QCOMPARE(box->maximum(), 1000);
            QCOMPARE(box->singleStep(), 10);
            QVERIFY(box->isAccelerated());
        }
        QCOMPARE(menu.tabs->widget(0), menu.files_widget);
        QCOMPARE(menu.tabs->widget(1), menu.settings_widget);
        // The page of files is empty: the dialog always opens on the other page.
        QCOMPARE(menu.files_widget->layout(), nullptr);
        QVERIFY(menu.files_widget->children().isEmpty());
    }

    void checkBoxesSetTheirBits()
    {
        f->open();
        QTest::mouseClick(f->menu.files_settings_check, Qt::LeftButton, Qt::NoModifier, { 5, 5 });
        QCOMPARE(f->menu.save_load_index, 59);
        const QList<QCheckBox *> checks = allChecks();
        for (QCheckBox *check : checks)
            check->setChecked(false);
        for (int id = 0; id < 6; ++id) {
            checks.at(id)->setChecked(true);
            QCOMPARE(f->menu.save_load_index, 1 << id);
            checks.at(id)->setChecked(false);
        }
        QCOMPARE(f->menu.update_index, 0);
    }

    void controlsAreInTheirOrder()
    {
        f->open();
        const SettingsMenu &menu = f->menu;
        expectOrder({ menu.language_box, menu.dial_accur_box, menu.settings_box }, false);
        expectOrder({ menu.cursor_accur_lbl, menu.param_accur_lbl, menu.accur_lbl }, false);
        expectOrder({ menu.cursor_accur, menu.param_accur, menu.accur_lbl }, false);
        expectOrder({ menu.cursor_accur_lbl, menu.cursor_accur }, true);
        expectOrder({ menu.param_accur_lbl, menu.param_accur }, true);
        expectOrder({ menu.load_settings_button, menu.load_last_button, menu.load_default_button,
                      menu.save_settings_button },
                    false);
        expectOrder({ menu.load_settings_button, menu.settings_check_box }, true);
        QList<QWidget *> checks;
        for (QCheckBox *check : allChecks())
            checks << check;
        expectOrder(checks, false);
        expectOrder({ menu.ok_button, menu.apply_button, menu.cancel_button }, true);
        expectOrder({ menu.tabs, menu.ok_button }, false);
        QVERIFY(menu.language_box->isAncestorOf(menu.language_select));
        QVERIFY(menu.settings_check_box->isAncestorOf(menu.dial_settings_check));
    }

    // tst_texts checks that none of them stays English in a Russian window.
    void everyControlHasItsText()
    {
        const SettingsMenu &menu = f->menu;
        QStringList texts{ menu.tabs->tabText(0), menu.tabs->tabText(1), menu.windowTitle() };
        for (const QGroupBox *box :
             { menu.language_box, menu.dial_accur_box, menu.settings_box, menu.settings_check_box })
            texts << box->title();
        for (const QLabel *label : { menu.cursor_accur_lbl, menu.param_accur_lbl, menu.accur_lbl })
            texts << label->text();
        for (const QPushButton *button : { menu.load_settings_button, menu.save_settings_button,
                                           menu.load_default_button, menu.load_last_button })
            texts << button->text();
        for (const QCheckBox *check : allChecks())
            texts << check->text();
        for (const QPushButton *button : { menu.ok_button, menu.apply_button, menu.cancel_button })
            texts << button->text();
        QCOMPARE(texts.join(QLatin1Char('|')),
                 QStringLiteral("Files|Settings|Settings|Language|Dials speed|Settings||"
                                "Cursor dial speed|Parameter dial speed|"
                                "Defines step number per dial turn|Load...|Save...|Load default|"
                                "Reload starting|Files|Colors|Folders|Language|Window size|Dials|"
                                "OK|Apply|Cancel"));
    }

    void noTextIsClipped()
    {
        f->live.current_CSS_path = QStringLiteral(":/style/style_2.qss");
        f->live.parse_CSS();
        f->menu.setStyleSheet(f->live.current_CSS);
        // The dialog is open when the language changes, so it must grow with its texts.
        f->open();
        for (const char *code : { "en_US", "ru_RU" }) {
            f->live.current_language = QLatin1String(code);
            f->live.setTranslation();
            f->words.setStrings();
            f->menu.retranslateUI();
            QCoreApplication::processEvents();
            const QList<QWidget *> widgets = f->menu.settings_widget->findChildren<QWidget *>();
            int checked = 0;
            for (const QWidget *widget : widgets) {
                if (qobject_cast<const QAbstractButton *>(widget) == nullptr
                    && qobject_cast<const QLabel *>(widget) == nullptr)
                    continue;
                QVERIFY(widget->width() >= widget->sizeHint().width());
                QVERIFY(widget->height() >= widget->sizeHint().height());
                ++checked;
            }
            QVERIFY(checked >= 13);
        }
    }

    void openingFillsTheLanguagesOnce()
    {
        for (int opening = 0; opening < 2; ++opening) {
            f->menu.interfaceUpdate();
            QVERIFY(f->menu.initiated);
            QCOMPARE(f->menu.language_select->count(), 2);
            QCOMPARE(f->menu.language_select->itemText(0), QStringLiteral("English"));
            QCOMPARE(f->menu.language_select->itemText(1), QStringLiteral("Русский"));
        }
        QCOMPARE(f->menu.update_index, 0);
    }

    void noLanguageAndTwentyLanguagesFit()
    {
        for (const int count : { 0, SettingsData::languageCount }) {
            SettingsFixture fixture;
            for (int i = 0; i < SettingsData::languageCount; ++i)
                fixture.live.languageList[i]
                    = { i < count ? i : -1, QString(), QString::number(i) };
            fixture.menu.interfaceUpdate();
            QCOMPARE(fixture.menu.language_select->count(), count);
        }
    }

    void languageBoxDoesNotFollowTheLiveLanguage()
    {
        f->live.current_language = QStringLiteral("ru_RU");
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.language_select->currentText(), QStringLiteral("English"));
        // Filling the box selected its first language, so the section is marked although Apply is
        // disabled.
        QCOMPARE(f->menu.update_index, 8);
        QVERIFY(!f->menu.apply_button->isEnabled());
        f->menu.cursor_accur->setValue(250);
        QVERIFY(f->menu.apply_button->isEnabled());
        SettingsFixture::press(f->menu.apply_button);
        QCOMPARE(f->live.current_language, QStringLiteral("en_US"));
    }

    void revertingUnmarksALanguageButNotASpeed()
    {
        f->open();
        f->menu.language_select->setCurrentIndex(1);
        QCOMPARE(f->menu.update_index, 8);
        QVERIFY(f->menu.apply_button->isEnabled());
        QCOMPARE(f->menu.data_in->current_language, QStringLiteral("ru_RU"));
        QCOMPARE(f->live.current_language, QStringLiteral("en_US"));
        f->menu.language_select->setCurrentIndex(0);
        QCOMPARE(f->menu.update_index, 0);
        QVERIFY(!f->menu.apply_button->isEnabled());
        f->menu.param_accur->setValue(20);
        f->menu.language_select->setCurrentIndex(1);
        QCOMPARE(f->menu.update_index, 40);
        f->menu.language_select->setCurrentIndex(0);
        QCOMPARE(f->menu.update_index, 32);
        QVERIFY(f->menu.apply_button->isEnabled());
        // The section stays marked when the speed is reverted.
        f->menu.param_accur->setValue(100);
        QCOMPARE(f->menu.update_index, 32);
        QVERIFY(f->menu.apply_button->isEnabled());
    }

    void lastOfTwoEqualLanguageNamesIsUsed()
    {
        f->live.languageList[2].id = 2;
        f->live.languageList[2].CODE = QStringLiteral("en_GB");
        f->live.languageList[2].label = QStringLiteral("English");
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.data_in->current_language, QStringLiteral("en_GB"));
    }

    void editedSpeedReachesTheStoreWithApply()
    {
        f->open();
        const QSignalSpy spy(&f->live, &SettingsData::dial_settings_changed);
        for (QSpinBox *box : { f->menu.cursor_accur, f->menu.param_accur }) {
            QCOMPARE(box->value(), 100);
            box->setFocus();
            QTest::keyClick(box, Qt::Key_Up);
            QCOMPARE(box->value(), 110);
            QVERIFY(f->menu.apply_button->isEnabled());
            QCOMPARE(f->menu.update_index, 32);
            f->live.current_CSS_path = QStringLiteral("changed since.qss");
            SettingsFixture::press(f->menu.apply_button);
            QCOMPARE(f->live.current_CSS_path, QStringLiteral("changed since.qss"));
            QCOMPARE(f->live.cursor_dial_speed, 110);
            QCOMPARE(f->live.param_dial_speed, box == f->menu.param_accur ? 110 : 100);
            QVERIFY(!f->menu.apply_button->isEnabled());
            // The section stays marked for every later apply.
            QCOMPARE(f->menu.update_index, 32);
        }
        QCOMPARE(spy.count(), 2);
    }

    void textThatIsNoSpeedIsNotRead()
    {
        f->open();
        QSpinBox *box = f->menu.cursor_accur;
        for (const char *language : { "C", "en_US", "de_DE", "ru_RU" })
            for (const char *text : { "12,5", "12.5", "1.000", "5", "1 0" }) {
                box->setLocale(QLocale(QString::fromLatin1(language)));
                box->selectAll();
                QTest::keyClicks(box, QString::fromLatin1(text));
                QCOMPARE(box->text(), QString::fromLatin1(text));
                QVERIFY(!f->menu.ok_button->isEnabled());
                QVERIFY(!f->menu.apply_button->isEnabled());
                box->selectAll();
                QTest::keyClicks(box, QStringLiteral("125"));
                QVERIFY(f->menu.ok_button->isEnabled());
                QVERIFY(f->menu.apply_button->isEnabled());
            }
    }

    void cancelChangesNothing()
    {
        f->open();
        f->menu.param_accur->setValue(250);
        f->menu.language_select->setCurrentIndex(1);
        SettingsFixture::press(f->menu.cancel_button);
        QVERIFY(!f->menu.isVisible());
        QCOMPARE(f->menu.result(), int(QDialog::Rejected));
        QCOMPARE(f->live.param_dial_speed, 100);
        QCOMPARE(f->live.current_language, QStringLiteral("en_US"));
        QCOMPARE(f->menu.data_in->param_dial_speed, 250);
        f->open();
        QCOMPARE(f->menu.param_accur->value(), 100);
        QCOMPARE(f->menu.data_in->param_dial_speed, 100);
        QCOMPARE(f->menu.update_index, 40);
        QVERIFY(!f->menu.apply_button->isEnabled());
        // The box keeps the last choice.
        QCOMPARE(f->menu.language_select->currentIndex(), 1);
    }

    void okAppliesRemainingChangesAndCloses()
    {
        QSignalSpy spy(&f->live, &SettingsData::dial_settings_changed);
        for (const bool applied : { false, true }) {
            f->open();
            f->menu.param_accur->setValue(applied ? 300 : 250);
            if (applied)
                SettingsFixture::press(f->menu.apply_button);
            spy.clear();
            SettingsFixture::press(f->menu.ok_button);
            QCOMPARE(f->live.param_dial_speed, applied ? 300 : 250);
            QCOMPARE(spy.count(), applied ? 0 : 1);
            QVERIFY(!f->menu.isVisible());
            QCOMPARE(f->menu.result(), int(QDialog::Accepted));
        }
    }

    void speedOutsideTheRangeIsShownClampedAndKept()
    {
        f->live.cursor_dial_speed = 5;
        f->live.param_dial_speed = 5000;
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.cursor_accur->value(), 10);
        QCOMPARE(f->menu.param_accur->value(), 1000);
        QCOMPARE(f->live.cursor_dial_speed, 5);
        QCOMPARE(f->live.param_dial_speed, 5000);
    }

private:
    QList<QCheckBox *> allChecks() const
    {
        return { f->menu.files_settings_check,    f->menu.CSS_settings_check,
                 f->menu.dir_settings_check,      f->menu.lang_settings_check,
                 f->menu.geometry_settings_check, f->menu.dial_settings_check };
    }
    void expectOrder(const QList<QWidget *> &widgets, bool leftToRight) const
    {
        for (int i = 1; i < widgets.size(); ++i) {
            const QPoint before = widgets.at(i - 1)->mapTo(&f->menu, QPoint());
            const QPoint here = widgets.at(i)->mapTo(&f->menu, QPoint());
            QVERIFY(leftToRight ? before.x() < here.x() : before.y() < here.y());
        }
    }

    std::unique_ptr<SettingsFixture> f;
};

QTEST_MAIN(TestSettingsMenu)
#include "tst_settingsmenu.moc"
