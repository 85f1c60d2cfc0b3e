// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_files.h"
#include "dialoganswer.h"
#include "settingsfixture.h"
#include "testfiles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

QFileDialog &fileDialog(QDialog &dialog)
{
    return dynamic_cast<QFileDialog &>(dialog);
}

} // namespace

/// The buttons of the settings dialog that read and write files.
class TestSettingsMenuFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    void init()
    {
        QFile::remove(program_files::settingsFile());
        folder.reset(new QTemporaryDir);
        path = folder->filePath(QStringLiteral("a.ini"));
        f.reset(new SettingsFixture);
        f->live.read_index = 3;
        f->live.last_folder = QStringLiteral("/traces");
        f->live.current_CSS_path = QStringLiteral("/my.qss");
        f->live.cursor_dial_speed = 250;
        f->live.param_dial_speed = 500;
        f->open();
        files.reset(new QSignalSpy(&f->live, &SettingsData::files_to_load));
        dials.reset(new QSignalSpy(&f->live, &SettingsData::dial_settings_changed));
        geometry.reset(new QSignalSpy(&f->live, &SettingsData::window_geometry_loaded));
        style.reset(new QSignalSpy(&f->live, &SettingsData::CSS_changed));
        translation.reset(new QSignalSpy(&f->live, &SettingsData::translation_changed));
    }

    void cleanup()
    {
        QFile::remove(program_files::settingsFile());
    }

    void theFactorySettingsTouchNeitherTracesNorFolders()
    {
        SettingsFixture::press(f->menu.load_default_button);
        QCOMPARE(f->live.current_CSS_path, QStringLiteral(":/style/style_2.qss"));
        QVERIFY(!f->live.current_CSS.isEmpty());
        QCOMPARE(f->live.current_language, QStringLiteral("en_US"));
        QCOMPARE(f->live.cursor_dial_speed, 100);
        QCOMPARE(f->live.param_dial_speed, 100);
        QCOMPARE(f->live.window_geometry.size(), 66);
        QCOMPARE(f->live.read_index, 3);
        QCOMPARE(f->live.last_folder, QStringLiteral("/traces"));
        QCOMPARE(files->count(), 0);
        QCOMPARE(style->count(), 1);
        QCOMPARE(translation->count(), 1);
        QCOMPARE(geometry->count(), 1);
        QCOMPARE(dials->count(), 1);
        // The dialog shows what was loaded.
        QCOMPARE(f->menu.cursor_accur->value(), 100);
        QCOMPARE(f->menu.data_in->param_dial_speed, 100);
        QVERIFY(!f->menu.apply_button->isEnabled());
    }

    void onlyTickedSectionsAreLoaded()
    {
        tickOnly({ f->menu.dial_settings_check });
        SettingsFixture::press(f->menu.load_default_button);
        QCOMPARE(f->live.cursor_dial_speed, 100);
        QCOMPARE(f->live.current_CSS_path, QStringLiteral("/my.qss"));
        QCOMPARE(style->count() + translation->count() + geometry->count() + files->count(), 0);
        QCOMPARE(dials->count(), 1);
    }

    void theStartingSettingsBringTheTracesBack()
    {
        writeFile(program_files::settingsFile(),
                  "[PrevFiles]\nStateIndex=5\nMasterId=2\nfile1=one\nfile3=three\n");
        QTest::mouseClick(f->menu.files_settings_check, Qt::LeftButton, Qt::NoModifier, { 5, 5 });
        SettingsFixture::press(f->menu.load_last_button);
        QCOMPARE(files->count(), 1);
        QCOMPARE(files->at(0).at(0).toInt(), 5);
        QCOMPARE(f->live.current_files[2], QStringLiteral("three"));
        QCOMPARE(int(f->live.master_ID), 2);
        QCOMPARE(f->live.last_folder, QStringLiteral("/traces"));
    }

    void withoutStartingSettingsTheDefaultsAreLoaded()
    {
        SettingsFixture::press(f->menu.load_last_button);
        QCOMPARE(f->live.cursor_dial_speed, 100);
        QCOMPARE(f->menu.cursor_accur->value(), 100);
        QCOMPARE(files->count(), 0);
    }

    void aChosenFileIsLoadedAtOnce()
    {
        writeFile(path, "[Dials]\ncursorSpeed=640\nparamSpeed=5\n");
        const auto answer = answerDialog(typeFileName(path));
        SettingsFixture::press(f->menu.load_settings_button);
        QVERIFY(answer->served());
        QCOMPARE(f->live.cursor_dial_speed, 640);
        QCOMPARE(f->live.param_dial_speed, 5);
        QCOMPARE(dials->count(), 1);
        QCOMPARE(f->menu.cursor_accur->value(), 640);
        QCOMPARE(f->menu.param_accur->value(), 10);
        QVERIFY(f->menu.isVisible());
    }

    void theDialogsAskInTheirWords_data()
    {
        QTest::addColumn<bool>("load");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("filter");
        const QString english = QStringLiteral("en_US");
        const QString russian = QStringLiteral("ru_RU");
        const QString filter = QStringLiteral("settings (*.ini)");
        const QString translated = QStringLiteral("файлы настроек (*.ini)");
        QTest::newRow("load") << true << english << QStringLiteral("Select settings file to load")
                              << filter;
        QTest::newRow("save") << false << english << QStringLiteral("Save as") << filter;
        QTest::newRow("load, Russian")
            << true << russian << QStringLiteral("Выбор файла настроек для загрузки") << translated;
        QTest::newRow("save, Russian")
            << false << russian << QStringLiteral("Сохранить как") << translated;
    }

    void theDialogsAskInTheirWords()
    {
        QFETCH(bool, load);
        QFETCH(QString, code);
        f->live.current_language = code;
        f->live.setTranslation();
        QString caption;
        QStringList filters;
        QString start;
        const QObject *parent = nullptr;
        const auto answer = answerDialog([&](QDialog &dialog) {
            caption = dialog.windowTitle();
            filters = fileDialog(dialog).nameFilters();
            start = fileDialog(dialog).directory().absolutePath();
            parent = dialog.parent();
            dialog.reject();
        });
        SettingsFixture::press(load ? f->menu.load_settings_button : f->menu.save_settings_button);
        QVERIFY(answer->served());
        QTEST(caption, "caption");
        QTEST(filters.join(QLatin1Char('|')), "filter");
        QCOMPARE(start, QCoreApplication::applicationDirPath());
        QCOMPARE(parent, static_cast<QObject *>(&f->menu));
    }

    void aCancelledLoadChangesNothing()
    {
        const auto answer = answerDialog(cancelDialog);
        SettingsFixture::press(f->menu.load_settings_button);
        QVERIFY(answer->served());
        QCOMPARE(f->live.cursor_dial_speed, 250);
        QCOMPARE(dials->count() + style->count() + translation->count(), 0);
    }

    void aSavedFileHoldsTheTickedSections()
    {
        tickOnly({ f->menu.dial_settings_check, f->menu.CSS_settings_check });
        const auto answer = answerDialog(typeFileName(path));
        SettingsFixture::press(f->menu.save_settings_button);
        QVERIFY(answer->served());
        QCOMPARE(
            contentOf(path),
            QByteArray("[General]\nCSS=/my.qss\n\n[Dials]\ncursorSpeed=250\nparamSpeed=500\n"));
    }

    void editsThatWereNotAppliedAreNotSaved()
    {
        tickOnly({ f->menu.dial_settings_check });
        f->menu.cursor_accur->setValue(900);
        const auto answer = answerDialog(typeFileName(path));
        SettingsFixture::press(f->menu.save_settings_button);
        QVERIFY(answer->served());
        QCOMPARE(contentOf(path), QByteArray("[Dials]\ncursorSpeed=250\nparamSpeed=500\n"));
        // The edit still waits.
        QVERIFY(f->menu.apply_button->isEnabled());
        QCOMPARE(f->menu.cursor_accur->value(), 900);
    }

    void nothingTickedSavesAFileWithoutKeys()
    {
        tickOnly({});
        const auto answer = answerDialog(typeFileName(path));
        SettingsFixture::press(f->menu.save_settings_button);
        QVERIFY(answer->served());
        QVERIFY(QFileInfo(path).isFile());
        QCOMPARE(contentOf(path), QByteArray());
    }

    void aCancelledSaveWritesNothing()
    {
        const auto answer = answerDialog(cancelDialog);
        SettingsFixture::press(f->menu.save_settings_button);
        QVERIFY(answer->served());
        QVERIFY(QDir(folder->path()).isEmpty());
        QVERIFY(!QFileInfo::exists(program_files::settingsFile()));
    }

    void whatIsSavedIsLoadedAgain()
    {
        auto answer = answerDialog(typeFileName(path));
        SettingsFixture::press(f->menu.save_settings_button);
        QVERIFY(answer->served());
        f->live.cursor_dial_speed = 20;
        f->live.current_CSS_path.clear();
        answer = answerDialog(typeFileName(path));
        SettingsFixture::press(f->menu.load_settings_button);
        QVERIFY(answer->served());
        QCOMPARE(f->live.cursor_dial_speed, 250);
        QCOMPARE(f->live.current_CSS_path, QStringLiteral("/my.qss"));
    }

private:
    void tickOnly(const QList<QCheckBox *> &wanted)
    {
        const QList<QCheckBox *> all = f->menu.settings_check_box->findChildren<QCheckBox *>();
        QCOMPARE(all.size(), 6);
        for (QCheckBox *check : all) {
            check->setChecked(wanted.contains(check));
        }
    }

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    std::unique_ptr<SettingsFixture> f;
    std::unique_ptr<QSignalSpy> files;
    std::unique_ptr<QSignalSpy> dials;
    std::unique_ptr<QSignalSpy> geometry;
    std::unique_ptr<QSignalSpy> style;
    std::unique_ptr<QSignalSpy> translation;
};

QTEST_MAIN(TestSettingsMenuFiles)
#include "tst_settingsmenu_files.moc"
