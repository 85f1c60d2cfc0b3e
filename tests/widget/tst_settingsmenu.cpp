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

/// What the dialog shows and edits; its file buttons have tests of their own.
class TestSettingsMenu : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f.reset(new SettingsFixture);
    }

    void aNewDialogTouchesStyleLanguageGeometryAndDials()
    {
        const SettingsMenu &menu = f->menu;
        QCOMPARE(menu.save_load_index, 58);
        QCOMPARE(menu.update_index, 0);
        QCOMPARE(menu.initiated, false);
        QCOMPARE(menu.data_ex, &f->live);
        QCOMPARE(menu.dict, &f->words);
        QCOMPARE(menu.data_in->parent(), static_cast<const QObject *>(&menu));
        QVERIFY(!menu.settings_check_group->exclusive());
        const QList<QCheckBox *> checks = allChecks();
        for (int id = 0; id < 6; ++id) {
            QCOMPARE(menu.settings_check_group->button(id), checks.at(id));
            QCOMPARE(checks.at(id)->isChecked(), id != 0 && id != 2);
        }
    }

    void ticksGoToTheirBits()
    {
        f->open();
        QTest::mouseClick(f->menu.files_settings_check, Qt::LeftButton, Qt::NoModifier, { 5, 5 });
        QCOMPARE(f->menu.save_load_index, 59);
        for (QCheckBox *check : allChecks()) {
            check->setChecked(false);
        }
        QCOMPARE(f->menu.save_load_index, 0);
        const QList<QCheckBox *> checks = allChecks();
        for (int id = 0; id < 6; ++id) {
            checks.at(id)->setChecked(true);
            QCOMPARE(f->menu.save_load_index, 1 << id);
            checks.at(id)->setChecked(false);
        }
        QCOMPARE(f->menu.update_index, 0);
    }

    void thePagesHaveTheirOrder()
    {
        const SettingsMenu &menu = f->menu;
        QCOMPARE(menu.tabs->count(), 2);
        QCOMPARE(menu.tabs->widget(0), menu.files_widget);
        QCOMPARE(menu.tabs->widget(1), menu.settings_widget);
        QCOMPARE(menu.tabs->tabText(0), QStringLiteral("Files"));
        QCOMPARE(menu.tabs->tabText(1), QStringLiteral("Settings"));
        // Kept empty: the dialog is always opened on the other one.
        QCOMPARE(menu.files_widget->layout(), nullptr);
        QVERIFY(menu.files_widget->children().isEmpty());
    }

    void theControlsStandFromTopToBottom()
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
        for (QCheckBox *check : allChecks()) {
            checks << check;
        }
        expectOrder(checks, false);
        expectOrder({ menu.ok_button, menu.apply_button, menu.cancel_button }, true);
        expectOrder({ menu.tabs, menu.ok_button }, false);
        QVERIFY(menu.language_box->isAncestorOf(menu.language_select));
        QVERIFY(menu.settings_check_box->isAncestorOf(menu.dial_settings_check));
    }

    void speedsGoFromTenToAThousand()
    {
        for (const QSpinBox *box : { f->menu.cursor_accur, f->menu.param_accur }) {
            QCOMPARE(box->minimum(), 10);
            QCOMPARE(box->maximum(), 1000);
            QCOMPARE(box->singleStep(), 10);
            QVERIFY(box->isAccelerated());
        }
        f->menu.cursor_accur->setValue(5);
        QCOMPARE(f->menu.cursor_accur->value(), 10);
        f->menu.cursor_accur->setValue(5000);
        QCOMPARE(f->menu.cursor_accur->value(), 1000);
    }

    void textsAreInTheInstalledLanguage_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("texts");
        QTest::newRow("English") << QStringLiteral("en_US")
                                 << QStringLiteral("Settings|Language|Dials speed|Settings||"
                                                   "Cursor dial speed|Parameter dial speed|"
                                                   "Defines step number per dial turn|Load...|"
                                                   "Save...|Load default|Reload starting|Files|"
                                                   "Colors|Folders|Language|Window size|Dials|OK|"
                                                   "Apply|Cancel");
        QTest::newRow("Russian")
            << QStringLiteral("ru_RU")
            << QStringLiteral("Настройки|Язык|Скорость энкодеров|Настройки||"
                              "Скорость энкодера курсоров|Скорость энкодера параметров|"
                              "Определяет количество шагов за оборот энкодера|Загрузить...|"
                              "Сохранить...|По умолчанию|Загрузить стартовые|Файлы|Цвета|Папки|"
                              "Язык|Размер окна|Энкодеры|ОК|Применить|Отмена");
    }

    void textsAreInTheInstalledLanguage()
    {
        QFETCH(QString, code);
        f->live.current_language = code;
        f->live.setTranslation();
        f->words.setStrings();
        f->menu.retranslateUI();
        const SettingsMenu &menu = f->menu;
        const QStringList texts{
            menu.windowTitle(),
            menu.language_box->title(),
            menu.dial_accur_box->title(),
            menu.settings_box->title(),
            menu.settings_check_box->title(),
            menu.cursor_accur_lbl->text(),
            menu.param_accur_lbl->text(),
            menu.accur_lbl->text(),
            menu.load_settings_button->text(),
            menu.save_settings_button->text(),
            menu.load_default_button->text(),
            menu.load_last_button->text(),
            menu.files_settings_check->text(),
            menu.CSS_settings_check->text(),
            menu.dir_settings_check->text(),
            menu.lang_settings_check->text(),
            menu.geometry_settings_check->text(),
            menu.dial_settings_check->text(),
            menu.ok_button->text(),
            menu.apply_button->text(),
            menu.cancel_button->text(),
        };
        QTEST(texts.join(QLatin1Char('|')), "texts");
    }

    void theConstructorSetsNoTexts()
    {
        const SettingsMenu bare(&f->words, &f->live, nullptr);
        QCOMPARE(bare.windowTitle(), QString());
        QCOMPARE(bare.ok_button->text(), QString());
        QCOMPARE(bare.tabs->tabText(1), QString());
    }

    void noTextIsCut_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("English") << QStringLiteral("en_US");
        QTest::newRow("Russian") << QStringLiteral("ru_RU");
    }

    void noTextIsCut()
    {
        QFETCH(QString, code);
        f->live.current_CSS_path = QStringLiteral(":/style/style_2.qss");
        f->live.parse_CSS();
        f->menu.setStyleSheet(f->live.current_CSS);
        // Open already when the language changes: the dialog must grow with its texts.
        f->open();
        f->live.current_language = code;
        f->live.setTranslation();
        f->words.setStrings();
        f->menu.retranslateUI();
        QCoreApplication::processEvents();
        const QList<QWidget *> widgets = f->menu.settings_widget->findChildren<QWidget *>();
        int checked = 0;
        for (const QWidget *widget : widgets) {
            if (qobject_cast<const QAbstractButton *>(widget) != nullptr
                || qobject_cast<const QLabel *>(widget) != nullptr) {
                QVERIFY(widget->width() >= widget->sizeHint().width());
                QVERIFY(widget->height() >= widget->sizeHint().height());
                ++checked;
            }
        }
        QVERIFY(checked >= 13);
    }

    void openingFillsTheLanguagesOnce()
    {
        f->menu.interfaceUpdate();
        QVERIFY(f->menu.initiated);
        QCOMPARE(f->menu.language_select->count(), 2);
        QCOMPARE(f->menu.language_select->itemText(0), QStringLiteral("English"));
        QCOMPARE(f->menu.language_select->itemText(1), QStringLiteral("Русский"));
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.language_select->count(), 2);
        QCOMPARE(f->menu.update_index, 0);
    }

    void noLanguagesAndAllLanguagesFit()
    {
        for (language &entry : f->live.languageList) {
            entry = language();
        }
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.language_select->count(), 0);
        SettingsFixture full;
        for (int i = 0; i < SettingsData::languageCount; ++i) {
            full.live.languageList[i].id = i;
            full.live.languageList[i].label = QString::number(i);
        }
        full.menu.interfaceUpdate();
        QCOMPARE(full.menu.language_select->count(), 20);
    }

    void theLanguageBoxDoesNotFollowTheLiveLanguage()
    {
        f->live.current_language = QStringLiteral("ru_RU");
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.language_select->currentText(), QStringLiteral("English"));
        // Filling the box chose its first language: marked, though nothing can be applied yet.
        QCOMPARE(f->menu.update_index, 8);
        QVERIFY(!f->menu.apply_button->isEnabled());
        f->menu.cursor_accur->setValue(250);
        QVERIFY(f->menu.apply_button->isEnabled());
        SettingsFixture::press(f->menu.apply_button);
        QCOMPARE(f->live.current_language, QStringLiteral("en_US"));
    }

    void choosingALanguageMarksItAndGoingBackDoesNot()
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
    }

    void theLastOfTwoEqualNamesCounts()
    {
        f->live.languageList[2].id = 2;
        f->live.languageList[2].CODE = QStringLiteral("en_GB");
        f->live.languageList[2].label = QStringLiteral("English");
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.data_in->current_language, QStringLiteral("en_GB"));
    }

    void applyingSwitchesTheLanguage()
    {
        f->open();
        f->menu.language_select->setCurrentIndex(1);
        QSignalSpy spy(&f->live, &SettingsData::translation_changed);
        SettingsFixture::press(f->menu.apply_button);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(f->live.current_language, QStringLiteral("ru_RU"));
        QVERIFY(!f->menu.apply_button->isEnabled());
        QVERIFY(f->menu.isVisible());
    }

    void anEditedSpeedReachesTheStoreWithApply_data()
    {
        QTest::addColumn<bool>("cursor");
        QTest::newRow("cursor dial") << true;
        QTest::newRow("parameter dial") << false;
    }

    void anEditedSpeedReachesTheStoreWithApply()
    {
        QFETCH(bool, cursor);
        f->open();
        QSpinBox *box = cursor ? f->menu.cursor_accur : f->menu.param_accur;
        QCOMPARE(box->value(), 100);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(box->value(), 110);
        QVERIFY(f->menu.apply_button->isEnabled());
        QCOMPARE(f->menu.update_index, 32);
        QSignalSpy spy(&f->live, &SettingsData::dial_settings_changed);
        SettingsFixture::press(f->menu.apply_button);
        QCOMPARE(f->live.cursor_dial_speed, cursor ? 110 : 100);
        QCOMPARE(f->live.param_dial_speed, cursor ? 100 : 110);
        QCOMPARE(spy.count(), 1);
        QVERIFY(!f->menu.apply_button->isEnabled());
        // Marked for good: the section goes along with every later apply.
        QCOMPARE(f->menu.update_index, 32);
    }

    void goingBackToTheLiveSpeedLeavesApplyEnabled()
    {
        f->open();
        f->menu.cursor_accur->setValue(110);
        f->menu.cursor_accur->setValue(100);
        QVERIFY(f->menu.apply_button->isEnabled());
        QCOMPARE(f->menu.update_index, 32);
        SettingsFixture::press(f->menu.apply_button);
        QCOMPARE(f->live.cursor_dial_speed, 100);
    }

    void cancelChangesNothing()
    {
        f->open();
        f->menu.param_accur->setValue(250);
        SettingsFixture::press(f->menu.cancel_button);
        QVERIFY(!f->menu.isVisible());
        QCOMPARE(f->menu.result(), int(QDialog::Rejected));
        QCOMPARE(f->live.param_dial_speed, 100);
        QCOMPARE(f->menu.data_in->param_dial_speed, 250);
        f->open();
        QCOMPARE(f->menu.param_accur->value(), 100);
        QCOMPARE(f->menu.data_in->param_dial_speed, 100);
        QCOMPARE(f->menu.update_index, 32);
        QVERIFY(!f->menu.apply_button->isEnabled());
    }

    void okAppliesAndCloses()
    {
        f->open();
        f->menu.param_accur->setValue(250);
        QSignalSpy spy(&f->live, &SettingsData::dial_settings_changed);
        SettingsFixture::press(f->menu.ok_button);
        QCOMPARE(f->live.param_dial_speed, 250);
        QCOMPARE(spy.count(), 1);
        QVERIFY(!f->menu.isVisible());
        QCOMPARE(f->menu.result(), int(QDialog::Accepted));
    }

    void okAfterApplyAppliesNothingMore()
    {
        f->open();
        f->menu.param_accur->setValue(250);
        SettingsFixture::press(f->menu.apply_button);
        QSignalSpy spy(&f->live, &SettingsData::dial_settings_changed);
        SettingsFixture::press(f->menu.ok_button);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(f->menu.result(), int(QDialog::Accepted));
    }

    void aSpeedOfFiveIsShownAsTen()
    {
        f->live.cursor_dial_speed = 5;
        f->menu.interfaceUpdate();
        QCOMPARE(f->menu.cursor_accur->value(), 10);
        QCOMPARE(f->live.cursor_dial_speed, 5);
        QVERIFY(!f->menu.apply_button->isEnabled());
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
