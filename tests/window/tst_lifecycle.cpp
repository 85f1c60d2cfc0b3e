// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ini_text.h"
#include "cont_dial.h"
#include "curarrow.h"
#include "settingsdata.h"
#include "testfiles.h"
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

/// What saveGeometry makes of a window without a frame at \a place of a screen 800 pixels wide.
QByteArray geometryOf(const QRect &place)
{
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    const auto putPlace = [&] {
        stream << qint32{ place.left() } << qint32{ place.top() } << qint32{ place.right() }
               << qint32{ place.bottom() };
    };
    stream << quint32{ 0x1d9d0cb } << quint16{ 3 } << quint16{ 0 };
    putPlace();
    putPlace();
    stream << qint32{ 0 } << quint8{ 0 } << quint8{ 0 } << qint32{ 800 };
    putPlace();
    return record;
}

/// Records the modes in which input dialogs are shown during its lifetime.
class InputDialogWatch : public WindowTest
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

class TestLifecycle : public WindowTest
{
    Q_OBJECT

private slots:
    void horizontalShiftAndCursorAAreSelectedWhateverTheSettingsHeld()
    {
        openOn({ TraceBuilder() });
        QCOMPARE(probe().down_buttons()->checkedId(), int(MainWindow::H_OFFSET));
        QCOMPARE(probe().up_buttons()->checkedId(), int(MainWindow::CURSOR_A));
        QCOMPARE(probe().rfg_buttons()->checkedId(), 0);
    }

    void readOnlyParametersCanNeverBePressed()
    {
        fixture->open();
        const QButtonGroup *group = probe().down_buttons();
        for (const int id : { 0, 2, 4, 5, 6, 9 })
            QVERIFY2(!group->button(id)->isEnabled(), qPrintable(QString::number(id)));
        for (const int id : { 1, 3, 7, 8 })
            QVERIFY2(group->button(id)->isEnabled(), qPrintable(QString::number(id)));
    }

    void closingBacksTheFormerSettingsUpOnceAndSaves()
    {
        const QByteArray first = "[Dials]\nparamSpeed=50\ncursorSpeed=60\n";
        WindowFixture::writeSettings(first);
        fixture->open();
        fixture->close();
        QCOMPARE(contentOf(backupFile()), first);
        fixture->open();
        probe().settingsData()->param_dial_speed = 70;
        fixture->close();
        QCOMPARE(contentOf(backupFile()), first);
        QVERIFY(contentOf(WindowFixture::settingsFile()).contains("paramSpeed=70\n"));
    }

    void theFirstCloseHasNothingToBackUp()
    {
        fixture->open();
        fixture->close();
        QVERIFY(QFile::exists(WindowFixture::settingsFile()));
        QVERIFY(!QFile::exists(backupFile()));
    }

    // ---- The new window ----

    void aNewWindowHoldsItsInitialValues()
    {
        QCOMPARE(fixture->open().size(), QSize(800, 500));
        QCOMPARE(probe().rfg_read_index(), 0);
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(probe().rfg_master_ID(), -1);
        QVERIFY(!probe().master_is_set());
        QVERIFY(!probe().smooth_rfg_flag());
        QCOMPARE(probe().x_length(), 64000);
        QCOMPARE(probe().KU_min(), 1.0F);
        QCOMPARE(probe().KU_max(), 10.0F);
        QCOMPARE(probe().rfg_ID(), 0);
        QCOMPARE(probe().Cur_flag(), MainWindow::CURSOR_A);
        QCOMPARE(probe().Cur_flag_true(), MainWindow::CURSOR_A);
        QCOMPARE(probe().cursor_A_pos(), 0);
        QCOMPARE(probe().cursor_B_pos(), 0);
        QCOMPARE(probe().parameter_flag(), MainWindow::V_OFFSET);
        QCOMPARE(probe().diff_flag(), MainWindow::NORMAL);
        QCOMPARE(probe().dist_coef_0(), 0.18737028625);
        QCOMPARE(probe().mp(), 0);
        QCOMPARE(probe().scrollfactorX(), 0);
        QVERIFY(!probe().zoom_wheel_flag());
        QCOMPARE(int{ probe().cur_arrowA()->id }, 1);
        QCOMPARE(int{ probe().cur_arrowB()->id }, 2);
        QCOMPARE(probe().master_params().KU + 0.0F, 1.49896229F);
        QVERIFY(probe().dist_coef() > 0.125 && probe().dist_coef() < 0.125000001);
    }

    void theInputDialogIsOpenedAndRejectedThreeTimesAtStart()
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

    void theSizesAreTwoLinesOfTheDebugLog()
    {
        const MainWindow &window = fixture->open();
        debugLines.clear();
        const QtMessageHandler former = qInstallMessageHandler(noteDebugLine);
        window.reportSizes();
        qInstallMessageHandler(former);
        QCOMPARE(debugLines.size(), 2);
        QVERIFY2(debugLines[0].contains(QStringLiteral("800, 500")), qPrintable(debugLines[0]));
    }

    void theDialsHaveTheirSpeedsFromTheStart()
    {
        WindowFixture::writeSettings("[Dials]\nparamSpeed=50\ncursorSpeed=60\n");
        fixture->open();
        QCOMPARE(probe().param_dial()->maximum(), 50);
        QCOMPARE(probe().cursor_dial()->maximum(), 60);
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

    void theWindowComesBackWithItsFormerSize()
    {
        writeWindowState(geometryOf({ 0, 0, 800, 560 }), {});
        QCOMPARE(fixture->open().size(), QSize(800, 560));
    }

    void aWindowLargerThanTheScreenComesBackInView()
    {
        // The offscreen platform has a screen of 800 x 600 pixels.
        writeWindowState(geometryOf({ 900, 700, 1000, 640 }), {});
        const MainWindow &window = fixture->open();
        QVERIFY(window.height() > 500);
        QVERIFY(window.geometry().intersects({ 0, 0, 800, 600 }));
    }

    void aDamagedGeometryChangesNeitherWindowNorBytes()
    {
        QByteArray geometry = geometryOf({ 0, 0, 800, 560 });
        geometry[32] = '\x7F'; // the right edge of the normal rectangle
        writeWindowState(geometry, {});
        QCOMPARE(fixture->open().size(), QSize(800, 500));
        QCOMPARE(probe().settingsData()->window_geometry, geometry);
    }

    void aDamagedStateNeitherDelaysTheStartNorEndsTheProgram()
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
