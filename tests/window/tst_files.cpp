// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "legendbutton.h"
#include "settingsdata.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QAction>
#include <QFileDialog>
#include <QPushButton>
#include <QScopeGuard>
#include <QtTest>

/// Opening of files. tst_trace_corpus tests the effect of each byte of a record.
class TestFiles : public WindowTest
{
    Q_OBJECT

private:
    double firstLevel(int slot) const
    {
        return probe().rfg_series()[slot]->at(0).y();
    }

private slots:
    void threeChosenFilesFillTheFirstSlotsAndEmptyTheOthers()
    {
        openOn(levelTraces(6));
        const QStringList chosen{ fixture->trace(QStringLiteral("x.tdr"), levelTrace(11)),
                                  fixture->trace(QStringLiteral("y.tdr"), levelTrace(12)),
                                  fixture->trace(QStringLiteral("z.tdr"), levelTrace(13)) };
        QVERIFY(chooseFiles(*fixture, chosen));
        QCOMPARE(slotsText(), QStringLiteral("Vvv..., selected 0, master 0"));
        QCOMPARE(probe().settingsData()->read_index, 7);
        QCOMPARE(probe().settingsData()->last_folder, QFileInfo(chosen[0]).path());
        for (int slot = 0; slot < 6; ++slot)
            QCOMPARE(probe().rfg_DATA()[slot].coef_from_min, 1);
        for (int slot = 0; slot < 3; ++slot) {
            QCOMPARE(probe().settingsData()->current_files[slot], chosen[slot]);
            QCOMPARE(firstLevel(slot), slot + 11.0);
        }
    }

    void firstSixOfMoreFilesAreOpened()
    {
        fixture->open();
        QVERIFY(QDir(fixture->path({})).mkdir(QStringLiteral("near")));
        QVERIFY(QDir(fixture->path({})).mkdir(QStringLiteral("far")));
        QStringList chosen(fixture->trace(QStringLiteral("near/n0.tdr"), levelTrace(0)));
        for (int i = 1; i < 6; ++i)
            chosen.append(fixture->trace(QStringLiteral("n%1.tdr").arg(i), levelTrace(i)));
        for (int i = 6; i < 9; ++i)
            chosen.append(fixture->trace(QStringLiteral("far/n%1.tdr").arg(i), levelTrace(i)));
        QVERIFY(chooseFiles(*fixture, chosen));
        QCOMPARE(probe().rfg_read_index(), 63);
        for (int slot = 0; slot < 6; ++slot) {
            QCOMPARE(probe().settingsData()->current_files[slot], chosen[slot]);
            QCOMPARE(firstLevel(slot), double(slot));
        }
        QCOMPARE(probe().settingsData()->last_folder, QFileInfo(chosen[5]).path());
    }

    void cancelledFileDialogChangesNothing()
    {
        openOn(levelTraces(6), 4);
        const QString folder = probe().settingsData()->last_folder;
        QVERIFY(chooseFiles(*fixture, {}));
        QVERIFY(loadInto(*fixture, 1, {}));
        QCOMPARE(slotsText(), QStringLiteral("vvvvVv, selected 4, master 4"));
        QCOMPARE(probe().settingsData()->last_folder, folder);
        for (int slot = 0; slot < 6; ++slot)
            QCOMPARE(firstLevel(slot), slot + 1.0);
    }

    void bothDialogsStartInTheLastFolderReadOnlyAndTranslated()
    {
        fixture->open();
        setLanguage("ru_RU");
        probe().settingsData()->last_folder = fixture->path({});
        const auto verify = [this](const QString &title) {
            return answerDialog([this, title](QDialog &dialog) {
                const auto closer = qScopeGuard([&dialog] { dialog.reject(); });
                const auto &files = dynamic_cast<QFileDialog &>(dialog);
                QCOMPARE(files.windowTitle(), title);
                QCOMPARE(files.nameFilters(), QStringList(QStringLiteral("рфг файлы (*.tdr)")));
                QCOMPARE(files.directory(), QDir(fixture->path({})));
                // F2 and Delete would rename and delete the files that the dialog lists.
                QVERIFY(files.testOption(QFileDialog::ReadOnly));
            });
        };
        const auto several = verify(QStringLiteral("Выбор файлов рефлектограммы для загрузки"));
        QTest::mousePress(probe().legend_button(), Qt::LeftButton);
        QVERIFY(several->served());
        const auto one = verify(QStringLiteral("Выбор файла рефлектограммы для загрузки"));
        probe().selected_rfg()[2]->load_action->trigger();
        QVERIFY(one->served());
    }

    void singleLoadFillsItsSlotAndNoOther()
    {
        openOn(levelTraces(2));
        const QString path
            = fixture->trace(QStringLiteral("one.tdr"), levelTrace(77).minstep(5.0F));
        QVERIFY(loadInto(*fixture, 3, path));
        // Selection and master do not change.
        QCOMPARE(slotsText(), QStringLiteral("Vv.v.., selected 0, master 0"));
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(probe().settingsData()->read_index, 0b1011);
        QCOMPARE(probe().settingsData()->current_files[3], path);
        QCOMPARE(probe().settingsData()->last_folder, QFileInfo(path).path());
        QCOMPARE(firstLevel(3), 77.0);
        QCOMPARE(firstLevel(0), 1.0);
    }

    void firstSingleLoadBecomesTheMaster()
    {
        fixture->open();
        const QString path = fixture->trace(QStringLiteral("one.tdr"), levelTrace(7).minstep(5.0F));
        QVERIFY(loadInto(*fixture, 4, path));
        // The selected slot is still the empty first one.
        QCOMPARE(slotsText(), QStringLiteral("....V., selected 0, master 4"));
        QCOMPARE(probe().master_scale(), 2);
    }
};

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
