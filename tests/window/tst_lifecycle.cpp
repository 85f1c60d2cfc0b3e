// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "dialoganswer.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowactions.h"

#include <QButtonGroup>
#include <QGraphicsView>
#include <QGroupBox>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

namespace {

QString backupFile()
{
    return WindowFixture::settingsFile().replace(QStringLiteral("current"),
                                                 QStringLiteral("current_old"));
}

void writeWindowState(const QByteArray &geometry, const QByteArray &state)
{
    QSettings settings(WindowFixture::settingsFile(), QSettings::IniFormat);
    settings.setValue(QStringLiteral("WindowState/geometry"), geometry);
    settings.setValue(QStringLiteral("WindowState/windowState"), state);
}

/// Notes in which mode each input dialog comes up, while it lives.
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

QStringList debugLines;

void noteDebugLine(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtDebugMsg)
        debugLines.append(text);
}

} // namespace

class TestLifecycle : public QObject
{
    Q_OBJECT

private slots:
    void firstStartShowsAnEmptyWindow()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(fixture.window().size(), QSize(800, 500));
        QCOMPARE(probe.rfg_read_index(), 0);
        QCOMPARE(probe.master_params().KU + 0.0F, 1.49896229F);
        QCOMPARE(probe.master_scale(), 0);
        QCOMPARE(probe.rfg_master_ID(), -1);
        QVERIFY(!probe.master_is_set());
    }

    void horizontalShiftAndCursorAAreSelectedWhateverTheSettingsHeld()
    {
        WindowFixture fixture;
        const QStringList traces{ fixture.trace(QStringLiteral("one.tdr"), TraceBuilder()) };
        WindowFixture::writePreviousRun(traces);
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.down_buttons()->checkedId(), int(MainWindow::H_OFFSET));
        QCOMPARE(probe.up_buttons()->checkedId(), int(MainWindow::CURSOR_A));
        QCOMPARE(probe.rfg_buttons()->checkedId(), 0);
        QCOMPARE(probe.rfg_read_index(), 1);
        QVERIFY(probe.master_is_set());
    }

    void readOnlyParametersCanNeverBePressed()
    {
        WindowFixture fixture;
        fixture.open();
        const QButtonGroup *group = fixture.probe().down_buttons();
        for (const int id : { 0, 2, 4, 5, 6, 9 })
            QVERIFY2(!group->button(id)->isEnabled(), qPrintable(QString::number(id)));
        for (const int id : { 1, 3, 7, 8 })
            QVERIFY2(group->button(id)->isEnabled(), qPrintable(QString::number(id)));
    }

    void theBackupIsMadeOnceAndNeverRefreshed()
    {
        WindowFixture fixture;
        const QByteArray first = "[Dials]\nparamSpeed=50\ncursorSpeed=60\n";
        WindowFixture::writeSettings(first);
        fixture.open();
        fixture.close();
        QFile backup(backupFile());
        QVERIFY(backup.open(QIODevice::ReadOnly));
        QCOMPARE(backup.readAll(), first);
        backup.close();

        fixture.open();
        fixture.probe().settingsData()->param_dial_speed = 70;
        fixture.close();
        QVERIFY(backup.open(QIODevice::ReadOnly));
        QCOMPARE(backup.readAll(), first);
        const QSettings saved(WindowFixture::settingsFile(), QSettings::IniFormat);
        QCOMPARE(saved.value(QStringLiteral("Dials/paramSpeed")).toInt(), 70);
    }

    void theFirstCloseHasNothingToBackUp()
    {
        WindowFixture fixture;
        fixture.open();
        fixture.close();
        QVERIFY(QFile::exists(WindowFixture::settingsFile()));
        QVERIFY(!QFile::exists(backupFile()));
    }

    // ---- The new window ----

    void aNewWindowHoldsItsInitialValues()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QVERIFY(!probe.smooth_rfg_flag());
        QCOMPARE(probe.x_length(), 64000);
        QCOMPARE(probe.KU_min(), 1.0F);
        QCOMPARE(probe.KU_max(), 10.0F);
        QCOMPARE(probe.rfg_ID(), 0);
        QCOMPARE(probe.Cur_flag(), MainWindow::CURSOR_A);
        QCOMPARE(probe.Cur_flag_true(), MainWindow::CURSOR_A);
        QCOMPARE(probe.cursor_A_pos(), 0);
        QCOMPARE(probe.cursor_B_pos(), 0);
        QCOMPARE(probe.parameter_flag(), MainWindow::V_OFFSET);
        QCOMPARE(probe.diff_flag(), MainWindow::NORMAL);
        QCOMPARE(probe.dist_coef_0(), 0.18737028625);
        QCOMPARE(probe.mp(), 0);
        QCOMPARE(probe.scrollfactorX(), 0);
        QVERIFY(!probe.zoom_wheel_flag());
        QCOMPARE(int{ probe.cur_arrowA()->id }, 1);
        QCOMPARE(int{ probe.cur_arrowB()->id }, 2);
        // The start-up factor as a float makes a count a hair more than an eighth of a metre.
        QVERIFY(probe.dist_coef() > 0.125 && probe.dist_coef() < 0.125000001);
    }

    void theWindowHasItsMinimumSizes()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.centralWidget()->minimumSize(), QSize(800, 500));
        QCOMPARE(probe.Plot_View()->minimumSize(), QSize(500, 310));
        QCOMPARE(probe.chartMenu()->minimumSize(), QSize(100, 100));
    }

    void theInputDialogIsOpenedAndRejectedThreeTimesAtStart()
    {
        WindowFixture fixture;
        InputDialogWatch watch;
        fixture.open();
        const QVector<QInputDialog::InputMode> expected{ QInputDialog::DoubleInput,
                                                         QInputDialog::IntInput,
                                                         QInputDialog::TextInput };
        QCOMPARE(watch.modes, expected);
        QVERIFY(!fixture.probe().input_dialog()->isVisible());
        QVERIFY(fixture.probe().input_dialog()->comboBoxItems().isEmpty());
    }

    void whatHasNoPlaceInTheWindowExistsAndStaysHidden()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        for (const QWidget *widget : { static_cast<QWidget *>(probe.bat_bar()),
                                       static_cast<QWidget *>(probe.legend_group()),
                                       static_cast<QWidget *>(probe.misc_group()),
                                       static_cast<QWidget *>(probe.info_dialog()) }) {
            QVERIFY(widget != nullptr);
            QVERIFY(!widget->isVisible());
        }
        for (const QSpacerItem *spacer : { probe.blank_1(), probe.blank_2(), probe.blank_3() })
            QVERIFY(spacer != nullptr);
    }

    void theSizesGoToTheDebugLogInTwoLines()
    {
        WindowFixture fixture;
        const MainWindow &window = fixture.open();
        debugLines.clear();
        const QtMessageHandler former = qInstallMessageHandler(noteDebugLine);
        window.reportSizes();
        qInstallMessageHandler(former);
        QCOMPARE(debugLines.size(), 2);
        QVERIFY2(debugLines[0].contains(QStringLiteral("800, 500")), qPrintable(debugLines[0]));
    }

    // ---- Dial speeds ----

    void theScaleKeepsItsOwnDialSpeed()
    {
        WindowFixture fixture;
        WindowFixture::writeSettings("[Dials]\nparamSpeed=50\ncursorSpeed=60\n");
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.param_dial()->maximum(), 50);
        QCOMPARE(probe.cursor_dial()->maximum(), 60);
        probe.scale_button()->click();
        QCOMPARE(probe.param_dial()->maximum(), 8);
        probe.settingsData()->param_dial_speed = 200;
        probe.settingsData()->cursor_dial_speed = 300;
        window.setDialSettings();
        QCOMPARE(probe.param_dial()->maximum(), 8);
        QCOMPARE(probe.cursor_dial()->maximum(), 300);
        probe.KU_button()->click();
        QCOMPARE(probe.param_dial()->maximum(), 200);
    }

    // ---- Geometry ----

    void closingStoresGeometryAndState()
    {
        WindowFixture fixture;
        fixture.open();
        fixture.close();
        const QSettings saved(WindowFixture::settingsFile(), QSettings::IniFormat);
        QCOMPARE(saved.value(QStringLiteral("WindowState/geometry")).toByteArray().size(), 66);
        QCOMPARE(saved.value(QStringLiteral("WindowState/windowState")).toByteArray().size(), 42);
    }

    void theWindowComesBackInItsFormerSize()
    {
        WindowFixture fixture;
        // 800 x 560, without a frame: with one it would be wider than the screen of this platform.
        const QByteArray rectangle = QByteArray::fromHex("00000000000000000000031f0000022f");
        writeWindowState(QByteArray::fromHex("01d9d0cb00030000") + rectangle + rectangle
                             + QByteArray::fromHex("00000000000000000320") + rectangle,
                         {});
        QCOMPARE(fixture.open().size(), QSize(800, 560));
    }

    void aDamagedGeometryLeavesTheWindowAndTheBytesAsTheyAre()
    {
        WindowFixture fixture;
        fixture.open();
        fixture.close();
        QByteArray geometry = QSettings(WindowFixture::settingsFile(), QSettings::IniFormat)
                                  .value(QStringLiteral("WindowState/geometry"))
                                  .toByteArray();
        geometry[32] = '\x7F'; // the right edge of the normal rectangle
        writeWindowState(geometry, {});
        QCOMPARE(fixture.open().size(), QSize(800, 500));
        QCOMPARE(fixture.probe().settingsData()->window_geometry, geometry);
    }

    void aDamagedStateNeitherHoldsUpTheStartNorEndsIt_data()
    {
        QTest::addColumn<QByteArray>("state");
        // What the toolkit counts by: two thousand million lines of tool bars.
        QTest::newRow("lines") << QByteArray::fromHex("000000ff00000000fd0000000000000320000001f4"
                                                      "00000004000000040000000800000008fc7f000000");
        // What the toolkit indexes by: a dock at side 0x7f000000.
        QTest::newRow("docks") << QByteArray::fromHex("000000ff00000000fd000000017f000000"
                                                      "0000000100000001fa")
                + QByteArray(40, '\0');
        QTest::newRow("text") << QByteArray("nonsense");
    }

    void aDamagedStateNeitherHoldsUpTheStartNorEndsIt()
    {
        QFETCH(QByteArray, state);
        WindowFixture fixture;
        writeWindowState({}, state);
        QElapsedTimer timer;
        timer.start();
        fixture.open();
        QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(fixture.probe().settingsData()->window_state, state);
    }

    void theSettingsButtonStoresTheGeometryFirst()
    {
        WindowFixture fixture;
        const MainWindow &window = fixture.open();
        const SettingsData *settings = fixture.probe().settingsData();
        QVERIFY(settings->window_geometry.isEmpty());
        const auto answer = answerDialog(cancelDialog);
        QTest::mousePress(fixture.probe().settings_button(), Qt::LeftButton);
        QVERIFY(answer->served());
        QCOMPARE(settings->window_geometry, window.saveGeometry());
        QCOMPARE(settings->window_state, window.saveState(0));
    }
};

QTEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
