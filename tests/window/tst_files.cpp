// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "legendbutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"
#include "windowactions.h"
#include "windowtest.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QtTest>

#include <functional>

/// Files that are opened. tst_trace_corpus has what each byte of a record does.
class TestFiles : public WindowTest
{
    Q_OBJECT

private:
    double firstLevel(int slot) const
    {
        return probe().rfg_series()[slot]->at(0).y();
    }

    /// Selects \a file in the list of \a dialog and presses F2 and Delete.
    static QString problemAfterDeleting(QFileDialog &dialog, const QString &file)
    {
        dialog.setNameFilter(QStringLiteral("all (*)"));
        dialog.setDirectory(QFileInfo(file).path());
        const QString name = QFileInfo(file).fileName();
        auto *list = dialog.findChild<QListView *>(QStringLiteral("listView"));
        const auto isListed = [&] {
            const QModelIndex folder = list->rootIndex();
            for (int row = 0; row < list->model()->rowCount(folder); ++row)
                if (list->model()->index(row, 0, folder).data().toString() == name)
                    list->setCurrentIndex(list->model()->index(row, 0, folder));
            return list->currentIndex().data().toString() == name;
        };
        if (!QTest::qWaitFor(isListed))
            return QStringLiteral("not listed");
        const auto confirm = answerDialog([](QDialog &question) {
            static_cast<QMessageBox &>(question).button(QMessageBox::Yes)->click();
        });
        QTest::keyClick(list, Qt::Key_F2);
        if (list->findChild<QLineEdit *>() != nullptr)
            return QStringLiteral("can be renamed");
        QTest::keyClick(list, Qt::Key_Delete);
        return confirm->served() ? QStringLiteral("can be deleted") : QString();
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

    void ofMoreThanSixFilesTheFirstSixAreTaken()
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

    void cancellingChangesNothing()
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

    void bothDialogsStartInTheLastFolderAndAreTranslated()
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
            });
        };
        const auto several = verify(QStringLiteral("Выбор файлов рефлектограммы для загрузки"));
        QTest::mousePress(probe().legend_button(), Qt::LeftButton);
        QVERIFY(several->served());
        const auto one = verify(QStringLiteral("Выбор файла рефлектограммы для загрузки"));
        probe().selected_rfg()[2]->load_action->trigger();
        QVERIFY(one->served());
    }

    /// F2 and Delete in Qt's own dialog would rename and delete the files that it lists.
    void noOpeningDialogChangesAFile()
    {
        fixture->open();
        const QString trace = fixture->trace(QStringLiteral("a.tdr"), TraceBuilder());
        probe().settingsData()->last_folder = QFileInfo(trace).path();
        const MainWindowProbe &p = probe();
        const std::function<void()> openers[] = {
            [&] { p.legend_button()->pressed(); },
            [&] { p.selected_rfg()[0]->load_action->trigger(); },
            [&] { p.settingsMenu()->load_settings_button->pressed(); },
        };
        for (const auto &open : openers) {
            QString problem = QStringLiteral("no dialog");
            const auto answer = answerDialog([&](QDialog &dialog) {
                problem = problemAfterDeleting(static_cast<QFileDialog &>(dialog), trace);
                dialog.reject();
            });
            open();
            QCOMPARE(problem, QString());
            QVERIFY(QFileInfo::exists(trace));
        }
    }

    void aSingleLoadFillsItsSlotAndNoOther()
    {
        openOn(levelTraces(2));
        const QString path
            = fixture->trace(QStringLiteral("one.tdr"), levelTrace(77).minstep(5.0F));
        QVERIFY(loadInto(*fixture, 3, path));
        // Neither the selection nor the master moves to it.
        QCOMPARE(slotsText(), QStringLiteral("Vv.v.., selected 0, master 0"));
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(probe().settingsData()->read_index, 0b1011);
        QCOMPARE(probe().settingsData()->current_files[3], path);
        QCOMPARE(probe().settingsData()->last_folder, QFileInfo(path).path());
        QCOMPARE(firstLevel(3), 77.0);
        QCOMPARE(firstLevel(0), 1.0);
    }

    void theFirstSingleLoadBecomesTheMaster()
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
