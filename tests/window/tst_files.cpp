// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "legendbutton.h"
#include "settingsdata.h"
#include "windowactions.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QFileDialog>
#include <QtTest>

namespace {

TraceBuilder level(int value)
{
    return TraceBuilder().samples(value);
}

/// Properties of a file dialog, read before it was cancelled.
struct Asked
{
    QString title;
    QStringList filters;
    QString folder;
};

std::unique_ptr<DialogAnswer> noteAndCancel(Asked &asked)
{
    return answerDialog([&asked](QDialog &dialog) {
        const auto *files = qobject_cast<QFileDialog *>(&dialog);
        if (files != nullptr)
            asked
                = { files->windowTitle(), files->nameFilters(), files->directory().absolutePath() };
        dialog.reject();
    });
}

QByteArray image(const rfg_SHOWN &trace)
{
    return QByteArray(reinterpret_cast<const char *>(&trace.f_p_840), sizeof trace.f_p_840);
}

} // namespace

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
        QCOMPARE(probe().rfg_read_index(), 63);

        const QStringList chosen{ fixture->trace(QStringLiteral("x.tdr"), level(11)),
                                  fixture->trace(QStringLiteral("y.tdr"), level(12)),
                                  fixture->trace(QStringLiteral("z.tdr"), level(13)) };
        QVERIFY(chooseFiles(*fixture, chosen));
        QCOMPARE(probe().rfg_read_index(), 7);
        QCOMPARE(probe().settingsData()->read_index, 7);
        QCOMPARE(probe().settingsData()->last_folder, QFileInfo(chosen[0]).path());
        for (int slot = 0; slot < 6; ++slot) {
            const bool loaded = slot < 3;
            QCOMPARE(probe().rfg_series()[slot]->isVisible(), loaded);
            QCOMPARE(probe().selected_rfg()[slot]->clear_action->isEnabled(), loaded);
            QVERIFY(loaded ? showsVisible(*fixture, slot, slot == 0) : showsHidden(*fixture, slot));
            QCOMPARE(probe().rfg_DATA()[slot].coef_from_min, 1);
            if (loaded) {
                QCOMPARE(probe().settingsData()->current_files[slot], chosen[slot]);
                QCOMPARE(firstLevel(slot), slot + 11.0);
            }
        }
    }

    void cancellingKeepsAllSixSlots()
    {
        openOn(levelTraces(6), 4);
        QVERIFY(chooseFiles(*fixture, {}));
        QCOMPARE(probe().rfg_read_index(), 63);
        QCOMPARE(probe().rfg_master_ID(), 4);
        for (int slot = 0; slot < 6; ++slot)
            QCOMPARE(firstLevel(slot), slot + 1.0);
    }

    void ofMoreThanSixFilesTheFirstSixAreTaken()
    {
        fixture->open();
        QVERIFY(QDir(fixture->path({})).mkdir(QStringLiteral("near")));
        QVERIFY(QDir(fixture->path({})).mkdir(QStringLiteral("far")));
        QStringList chosen(fixture->trace(QStringLiteral("near/n0.tdr"), level(0)));
        for (int i = 1; i < 6; ++i)
            chosen.append(fixture->trace(QStringLiteral("n%1.tdr").arg(i), level(i)));
        for (int i = 6; i < 9; ++i)
            chosen.append(fixture->trace(QStringLiteral("far/n%1.tdr").arg(i), level(i)));
        QVERIFY(chooseFiles(*fixture, chosen));
        QCOMPARE(probe().rfg_read_index(), 63);
        for (int slot = 0; slot < 6; ++slot) {
            QCOMPARE(probe().settingsData()->current_files[slot], chosen[slot]);
            QCOMPARE(firstLevel(slot), double(slot));
        }
        QCOMPARE(probe().settingsData()->last_folder, QFileInfo(chosen[5]).path());
    }

    void bothDialogsStartInTheLastFolderAndShowTraces()
    {
        fixture->open();
        probe().settingsData()->last_folder = fixture->path({});
        Asked several;
        const auto files = noteAndCancel(several);
        QTest::mouseClick(probe().legend_button(), Qt::LeftButton);
        QVERIFY(files->served());
        QCOMPARE(several.title, QStringLiteral("Select RFG files to open"));
        QCOMPARE(several.filters, QStringList(QStringLiteral("rfg (*.tdr)")));
        QCOMPARE(QDir(several.folder), QDir(fixture->path({})));

        Asked one;
        const auto file = noteAndCancel(one);
        probe().selected_rfg()[2]->load_action->trigger();
        QVERIFY(file->served());
        QCOMPARE(one.title, QStringLiteral("Select RFG file to open"));
        QCOMPARE(one.filters, QStringList(QStringLiteral("rfg (*.tdr)")));
        QCOMPARE(QDir(one.folder), QDir(fixture->path({})));
        QCOMPARE(probe().rfg_read_index(), 0);
    }

    void readingFillsTheSlotFromTheRecord()
    {
        MainWindow &window = fixture->open();
        const TraceBuilder builder = TraceBuilder()
                                         .minstep(-5.0F)
                                         .shiftX(3)
                                         .shiftY(-20)
                                         .date(2024, 12, 31)
                                         .time(23, 59, 8)
                                         .samples([](int i) { return i % 256 - 128; })
                                         .raw(37774, QByteArray(1, '\x5A'));
        QVERIFY(QDir(fixture->path({})).mkdir(QStringLiteral("cable 7")));
        const QString path = fixture->trace(QStringLiteral("cable 7/a.b.tdr"), builder);
        QVERIFY(window.read_rfg_DATA(path, 2));
        const rfg_SHOWN &trace = probe().rfg_DATA()[2];
        QCOMPARE(image(trace), builder.bytes());
        // Both as the file gives them; drawing bounds the step.
        QCOMPARE(trace.coef_from_min, -4);
        QCOMPARE(trace.scroll, -12);
        QCOMPARE(trace.offset, -20);
        QCOMPARE(trace.date, QDate(2024, 12, 31));
        QCOMPARE(trace.time, QTime(23, 59, 8, 0));
        QCOMPARE(trace.full_path, path);
        QCOMPARE(trace.dir_name, QStringLiteral("cable 7"));
        QCOMPARE(trace.file_name, QStringLiteral("a"));
        QCOMPARE(trace.name, QStringLiteral("RFG 3"));
        QCOMPARE(trace.cable_id, 0);
        QVERIFY(trace.location.isEmpty());
        QVERIFY(trace.meta_data.isEmpty());
        // Reading alone loads nothing.
        QCOMPARE(probe().rfg_read_index(), 0);
    }

    void aFileThatCannotBeOpenedLeavesTheSlotUntouched()
    {
        MainWindow &window = openOn({ level(7).minstep(5.0F) });
        const QByteArray before = image(probe().rfg_DATA()[0]);
        QVERIFY(!window.read_rfg_DATA(fixture->path(QStringLiteral("none.tdr")), 0));
        const rfg_SHOWN &trace = probe().rfg_DATA()[0];
        QCOMPARE(image(trace), before);
        QCOMPARE(trace.coef_from_min, 4);
        QCOMPARE(trace.full_path, fixture->path(QStringLiteral("t1.tdr")));
        for (const int id : { -1, 6 })
            QVERIFY(!window.read_rfg_DATA(trace.full_path, id));
    }

    void neitherMagicNorLengthNorCheckByteIsLookedAt()
    {
        const auto wave = [](int i) { return i % 256 - 128; };
        // The header names no samples of 2 bytes, and 32000 of 4; the check byte is wrong.
        openOn({ TraceBuilder().samples(wave).raw(0, QByteArray::fromHex("DEAD000002FFFFFFFF")),
                 TraceBuilder()
                     .samples(wave)
                     .raw(2, QByteArray::fromHex("007D04"))
                     .raw(37774, QByteArray(1, '\xEE')) });
        for (int slot = 0; slot < 2; ++slot) {
            const auto *series = probe().rfg_series()[slot];
            QCOMPARE(series->count(), 499);
            for (int i = 0; i < 250; ++i)
                QCOMPARE(series->at(2 * i), QPointF(i, i - 128.0));
        }
    }

    void aSingleLoadFillsItsSlotAndNoOther()
    {
        openOn(levelTraces(2));
        const QString path = fixture->trace(QStringLiteral("one.tdr"), level(77).minstep(5.0F));
        QVERIFY(loadInto(*fixture, 3, path));
        QCOMPARE(probe().rfg_read_index(), 0b1011);
        QCOMPARE(probe().settingsData()->read_index, 0b1011);
        QCOMPARE(probe().settingsData()->current_files[3], path);
        QCOMPARE(probe().settingsData()->last_folder, QFileInfo(path).path());
        QCOMPARE(firstLevel(3), 77.0);
        QCOMPARE(firstLevel(0), 1.0);
        QVERIFY(probe().rfg_series()[3]->isVisible());
        QVERIFY(probe().selected_rfg()[3]->reset_action->isEnabled());
        // Neither the selection nor the master moves to it.
        QCOMPARE(probe().rfg_ID(), 0);
        QCOMPARE(probe().rfg_master_ID(), 0);
        QCOMPARE(probe().master_scale(), 0);
        QVERIFY(showsVisible(*fixture, 3, false));
    }

    void cancellingASingleLoadChangesNothing()
    {
        openOn(levelTraces(2));
        const QString folder = probe().settingsData()->last_folder;
        QVERIFY(loadInto(*fixture, 1, {}));
        QCOMPARE(probe().rfg_read_index(), 3);
        QCOMPARE(probe().settingsData()->last_folder, folder);
        QCOMPARE(firstLevel(1), 2.0);
    }

    void theFirstSingleLoadBecomesTheMaster()
    {
        fixture->open();
        const QString path = fixture->trace(QStringLiteral("one.tdr"), level(7).minstep(5.0F));
        QVERIFY(loadInto(*fixture, 4, path));
        QCOMPARE(probe().rfg_master_ID(), 4);
        QVERIFY(probe().master_is_set());
        QCOMPARE(probe().master_scale(), 2);
        QVERIFY(showsVisible(*fixture, 4, true));
        // The selected slot is still the empty first one.
        QCOMPARE(probe().rfg_ID(), 0);
    }
};

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
