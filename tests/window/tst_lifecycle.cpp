// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ini_text.h"
#include "cont_dial.h"
#include "settingsdata.h"
#include "test_files.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QInputDialog>
#include <QtTest>

namespace {

QString backupFile()
{
    return WindowFixture::settingsFile().replace(QStringLiteral("current"),
                                                 QStringLiteral("current_old"));
}

void writeWindowState(const QByteArray &geometry, const QByteArray &state)
{
    IniWriter ini;
    ini.beginGroup(QStringLiteral("WindowState"));
    ini.setValue(QStringLiteral("geometry"), geometry);
    ini.setValue(QStringLiteral("windowState"), state);
    WindowFixture::writeSettings(ini.bytes());
}

/// The geometry record that Qt saves for a window without a frame at \a place on a screen 800
/// pixels wide.
QByteArray geometryOf(const QRect &place)
{
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    stream << quint32{ 0x1D9D0CB } << quint16{ 3 } << quint16{ 0 } << place << place << qint32{ 0 }
           << quint8{ 0 } << quint8{ 0 } << qint32{ 800 } << place;
    return record;
}

/// Records the modes in which input dialogs are shown during its lifetime.
class InputDialogWatch : public QObject
{
public:
    InputDialogWatch()
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *dialog = qobject_cast<QInputDialog *>(watched);
        if (dialog != nullptr && event->type() == QEvent::Show)
            modes.append(dialog->inputMode());
        return QObject::eventFilter(watched, event);
    }

    QVector<QInputDialog::InputMode> modes;
};

} // namespace

class TestLifecycle : public WindowTest
{
    Q_OBJECT

private slots:
    void closingBacksUpTheFormerSettingsOnceAndSaves()
    {
        fixture->open();
        fixture->close();
        QVERIFY(QFile::exists(WindowFixture::settingsFile()));
        QVERIFY(!QFile::exists(backupFile()));
        const QByteArray first = "[Dials]\nparamSpeed=50\ncursorSpeed=60\n";
        WindowFixture::writeSettings(first);
        fixture->open();
        QCOMPARE(probe().param_dial()->maximum(), 50);
        QCOMPARE(probe().cursor_dial()->maximum(), 60);
        probe().settingsData()->param_dial_speed = 70;
        fixture->close();
        QCOMPARE(contentOf(backupFile()), first);
        QVERIFY(contentOf(WindowFixture::settingsFile()).contains("paramSpeed=70\n"));
        // A backup that cannot be made does not stop the saving.
        QVERIFY(QFile::remove(backupFile()));
        QVERIFY(QDir().mkdir(backupFile()));
        fixture->open();
        probe().settingsData()->param_dial_speed = 80;
        fixture->close();
        QVERIFY(QDir().rmdir(backupFile()));
        QVERIFY(contentOf(WindowFixture::settingsFile()).contains("paramSpeed=80\n"));
    }

    // 255 bytes, the longest name of most file systems. QSaveFile writes under a longer name, which
    // fails here.
    void settingsWithTheLongestNameAreReadAndNeverPartlyWritten()
    {
        SettingsData *settings = fixture->open().settings();
        const QString path = fixture->path(QString(251, QLatin1Char('n')) + QStringLiteral(".ini"));
        const QByteArray old("[Dials]\ncursorSpeed=37\nparamSpeed=38\n");
        writeFile(path, old);
        settings->loadSettings(path, 32);
        QCOMPARE(settings->cursor_dial_speed, 37);
        settings->cursor_dial_speed = 39;
        settings->saveSettings(path, 32);
        const QByteArray content = contentOf(path);
        QVERIFY(content == old || content == QByteArray(old).replace("37", "39"));
        QCOMPARE(QDir(fixture->path(QString())).entryList(QDir::Files).size(), 1);
    }

    // ---- The new window ----

    void newWindowHoldsItsInitialValues()
    {
        fixture->open();
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(probe().rfg_master_ID(), -1);
        QVERIFY(!probe().master_is_set());
        QVERIFY(!probe().smooth_rfg_flag());
        QCOMPARE(probe().diff_flag(), MainWindow::NORMAL);
        QCOMPARE(probe().Cur_flag(), MainWindow::CURSOR_A);
        QCOMPARE(probe().cursor_A_pos(), 0);
        QCOMPARE(probe().cursor_B_pos(), 0);
        QCOMPARE(probe().parameter_flag(), MainWindow::V_OFFSET);
        QVERIFY(!probe().zoom_wheel_flag());
        QCOMPARE(probe().master_params().KU + 0.0F, 1.49896229F);
        QVERIFY(qAbs(probe().dist_coef() - 0.12500000057) < 1e-11); // in single precision
        const QButtonGroup *parameters = probe().down_buttons();
        QCOMPARE(parameters->checkedId(), int(MainWindow::H_OFFSET));
        // The other parameters are read-only.
        for (int id = 0; id < 10; ++id)
            QCOMPARE(parameters->button(id)->isEnabled(),
                     (QVector<int>{ MainWindow::KU, MainWindow::V_OFFSET, MainWindow::H_OFFSET,
                                    MainWindow::SCALE }
                          .contains(id)));
    }

    void inputDialogIsOpenedAndRejectedThreeTimesAtStart()
    {
        InputDialogWatch watch;
        fixture->open();
        const QVector<QInputDialog::InputMode> expected{ QInputDialog::DoubleInput,
                                                         QInputDialog::IntInput,
                                                         QInputDialog::TextInput };
        QCOMPARE(watch.modes, expected);
        QVERIFY(!probe().input_dialog()->isVisible());
        QVERIFY(probe().input_dialog()->comboBoxItems().isEmpty());
    }

    // ---- Geometry ----

    void closingStoresGeometryAndState()
    {
        MainWindow &window = fixture->open();
        const QByteArray geometry = window.saveGeometry();
        const QByteArray state = window.saveState(0);
        fixture->close();
        fixture->open();
        QCOMPARE(probe().settingsData()->window_geometry, geometry);
        QCOMPARE(probe().settingsData()->window_state, state);
    }

    void windowIsRestoredToItsFormerSize()
    {
        writeWindowState(geometryOf({ 0, 0, 800, 560 }), {});
        QCOMPARE(fixture->open().size(), QSize(800, 560));
        probe().settingsData()->window_geometry = geometryOf({ 0, 0, 800, 520 });
        emit probe().settingsData()->window_geometry_loaded();
        QCOMPARE(window().height(), 520);
    }

    void windowLargerThanTheScreenIsRestoredInView()
    {
        // The offscreen platform has a screen of 800 x 600 pixels.
        writeWindowState(geometryOf({ 900, 700, 1000, 640 }), {});
        const MainWindow &window = fixture->open();
        QVERIFY(window.height() > 500);
        QVERIFY(window.geometry().intersects({ 0, 0, 800, 600 }));
    }

    void damagedGeometryChangesNeitherWindowNorBytes()
    {
        QByteArray geometry = geometryOf({ 0, 0, 800, 560 });
        geometry[32] = '\x7F'; // the right edge of the normal rectangle
        writeWindowState(geometry, {});
        QCOMPARE(fixture->open().size(), QSize(800, 500));
        QCOMPARE(probe().settingsData()->window_geometry, geometry);
    }

    void damagedStateNeitherDelaysTheStartNorEndsTheProgram()
    {
        const QByteArray states[]
            = { // 2^31 lines of tool bars.
                QByteArray::fromHex("000000ff00000000fd0000000000000320000001f4"
                                    "00000004000000040000000800000008fc7f000000"),
                // A dock on side 0x7f000000.
                QByteArray::fromHex("000000ff00000000fd000000017f0000000000000100000001fa")
                    + QByteArray(40, '\0'),
                "nonsense"
              };
        for (const QByteArray &state : states) {
            fixture->close();
            writeWindowState({}, state);
            QElapsedTimer timer;
            timer.start();
            fixture->open();
            QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
            QCOMPARE(probe().settingsData()->window_state, state);
        }
    }
};

QTEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
