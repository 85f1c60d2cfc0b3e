// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_files.h"
#include "dialoganswer.h"
#include "settingsfixture.h"
#include "test_files.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

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
        emitted.clear();
        const SettingsData *live = &f->live;
        connect(live, &SettingsData::CSS_changed, this, [this] { emitted += "style "; });
        connect(live, &SettingsData::translation_changed, this, [this] { emitted += "texts "; });
        connect(live, &SettingsData::window_geometry_loaded, this, [this] { emitted += "place "; });
        connect(live, &SettingsData::dial_settings_changed, this, [this] { emitted += "dials "; });
        connect(live, &SettingsData::files_to_load, this,
                [this](int mask) { emitted += "files " + QByteArray::number(mask) + ' '; });
    }

    void cleanup()
    {
        QFile::remove(program_files::settingsFile());
    }

    void factorySettingsChangeNeitherTracesNorFolders()
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
        QCOMPARE(emitted, QByteArray("style texts place dials "));
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
        QCOMPARE(emitted, QByteArray("dials "));
    }

    void startSettingsRestoreTheTraces()
    {
        // Without start settings the defaults are loaded.
        SettingsFixture::press(f->menu.load_last_button);
        QCOMPARE(f->live.cursor_dial_speed, 100);
        QCOMPARE(f->menu.cursor_accur->value(), 100);
        QVERIFY2(!emitted.contains("files"), emitted.constData());
        writeFile(program_files::settingsFile(),
                  "[PrevFiles]\nStateIndex=5\nMasterId=2\nfile1=one\nfile3=three\n");
        QTest::mouseClick(f->menu.files_settings_check, Qt::LeftButton, Qt::NoModifier, { 5, 5 });
        SettingsFixture::press(f->menu.load_last_button);
        QVERIFY2(emitted.contains("files 5 "), emitted.constData());
        QCOMPARE(f->live.current_files[2], QStringLiteral("three"));
        QCOMPARE(int(f->live.master_ID), 2);
        QCOMPARE(f->live.last_folder, QStringLiteral("/traces"));
    }

    void chosenFileIsLoadedAtOnce()
    {
        writeFile(path, "[Dials]\ncursorSpeed=640\nparamSpeed=5\n");
        answerFileDialog(f->menu.load_settings_button, typeFileName(path));
        QCOMPARE(f->live.cursor_dial_speed, 640);
        QCOMPARE(f->live.param_dial_speed, 5);
        QCOMPARE(emitted.count("dials"), 1);
        QCOMPARE(f->menu.cursor_accur->value(), 640);
        QCOMPARE(f->menu.param_accur->value(), 10);
        QVERIFY(f->menu.isVisible());
    }

    void dialogsHaveTranslatedTexts()
    {
        f->live.current_language = QStringLiteral("ru_RU");
        f->live.setTranslation();
        const auto verify = [this](QPushButton *button, const QString &caption) {
            answerFileDialog(button, [&](QDialog &dialog) {
                const auto closer = qScopeGuard([&dialog] { dialog.reject(); });
                const auto &asked = dynamic_cast<QFileDialog &>(dialog);
                QCOMPARE(asked.windowTitle(), caption);
                QCOMPARE(asked.nameFilters(), { QStringLiteral("файлы настроек (*.ini)") });
                QCOMPARE(asked.directory().absolutePath(), QCoreApplication::applicationDirPath());
                QCOMPARE(asked.testOption(QFileDialog::ReadOnly),
                         button == f->menu.load_settings_button);
                QCOMPARE(asked.parent(), static_cast<QObject *>(&f->menu));
            });
        };
        verify(f->menu.load_settings_button, QStringLiteral("Выбор файла настроек для загрузки"));
        verify(f->menu.save_settings_button, QStringLiteral("Сохранить как"));
    }

    void savedFileHoldsTheTickedSectionsWithoutOpenEdits()
    {
        tickOnly({ f->menu.dial_settings_check, f->menu.CSS_settings_check });
        f->menu.cursor_accur->setValue(900);
        answerFileDialog(f->menu.save_settings_button, typeFileName(path));
        QCOMPARE(
            contentOf(path),
            QByteArray("[General]\nCSS=/my.qss\n\n[Dials]\ncursorSpeed=250\nparamSpeed=500\n"));
        // The edit can still be applied.
        QVERIFY(f->menu.apply_button->isEnabled());
        QCOMPARE(f->menu.cursor_accur->value(), 900);
        // No section ticked: a file without keys.
        tickOnly({});
        const QString empty = folder->filePath(QStringLiteral("empty.ini"));
        answerFileDialog(f->menu.save_settings_button, typeFileName(empty));
        QVERIFY(QFileInfo(empty).isFile());
        QCOMPARE(contentOf(empty), QByteArray());
    }

    void cancelledFileDialogChangesNothing()
    {
        answerFileDialog(f->menu.save_settings_button, cancelDialog);
        QVERIFY(QDir(folder->path()).isEmpty());
        QVERIFY(!QFileInfo::exists(program_files::settingsFile()));
        answerFileDialog(f->menu.load_settings_button, cancelDialog);
        QCOMPARE(f->live.cursor_dial_speed, 250);
        QCOMPARE(emitted, QByteArray());
    }

private:
    void answerFileDialog(QPushButton *button, const std::function<void(QDialog &)> &answer)
    {
        const auto server = answerDialog(answer);
        SettingsFixture::press(button);
        QVERIFY(server->served());
    }
    void tickOnly(const QList<QCheckBox *> &wanted)
    {
        const QList<QCheckBox *> all = f->menu.settings_check_box->findChildren<QCheckBox *>();
        QCOMPARE(all.size(), 6);
        for (QCheckBox *check : all)
            check->setChecked(wanted.contains(check));
    }

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    std::unique_ptr<SettingsFixture> f;
    QByteArray emitted; ///< the signals of the live store, in their order
};

QTEST_MAIN(TestSettingsMenuFiles)
#include "tst_settingsmenu_files.moc"
