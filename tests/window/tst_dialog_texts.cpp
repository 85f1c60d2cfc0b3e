// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"
#include "windowtest.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include <functional>

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class TestDialogTexts : public WindowTest
{
    Q_OBJECT

private:
    void speak(const char *code)
    {
        probe().settingsData()->current_language = QString::fromLatin1(code);
        probe().settingsData()->updateSettings(8);
        WindowFixture::settle();
    }
    /// Caption and filters of the next file dialog, which \a open brings up.
    template <typename Opener> QStringList fileDialogTexts(Opener open)
    {
        QStringList texts;
        const auto answer = answerDialog([&texts](QDialog &dialog) {
            if (const auto *files = qobject_cast<QFileDialog *>(&dialog))
                texts = QStringList{ files->windowTitle() } + files->nameFilters();
            dialog.reject();
        });
        open();
        return texts;
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
    void fileDialogsAreTranslated()
    {
        fixture->open();
        speak("ru_RU");
        const MainWindowProbe &p = probe();
        QCOMPARE(fileDialogTexts([&] { p.legend_button()->pressed(); }),
                 (QStringList{ text("Выбор файлов рефлектограммы для загрузки"),
                               text("рфг файлы (*.tdr)") }));
        QCOMPARE(fileDialogTexts([&] { p.selected_rfg()[0]->load_action->trigger(); }),
                 (QStringList{ text("Выбор файла рефлектограммы для загрузки"),
                               text("рфг файлы (*.tdr)") }));
        QCOMPARE(fileDialogTexts([&] { p.settingsMenu()->load_settings_button->pressed(); }),
                 (QStringList{ text("Выбор файла настроек для загрузки"),
                               text("файлы настроек (*.ini)") }));
        QCOMPARE(fileDialogTexts([&] { p.settingsMenu()->save_settings_button->pressed(); }),
                 (QStringList{ text("Сохранить как"), text("файлы настроек (*.ini)") }));
    }

    void qtsOwnWordsStayEnglish()
    {
        fixture->open();
        speak("ru_RU");
        QStringList words;
        const auto answer = answerDialog([&words](QDialog &dialog) {
            if (const auto *box = dialog.findChild<QDialogButtonBox *>())
                words = QStringList{ box->button(QDialogButtonBox::Open)->text(),
                                     box->button(QDialogButtonBox::Cancel)->text() };
            dialog.reject();
        });
        probe().legend_button()->pressed();
        QVERIFY(answer->served());
        words.replaceInStrings(QStringLiteral("&"), QString());
        QCOMPARE(words, (QStringList{ QStringLiteral("Open"), QStringLiteral("Cancel") }));
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

    void entryDialogsAreTranslated()
    {
        openOn(shiftedTraces(1));
        speak("ru_RU");
        QStringList texts;
        const auto answer = answerDialog([&texts](QDialog &dialog) {
            if (const auto *input = qobject_cast<QInputDialog *>(&dialog))
                texts = QStringList{ input->windowTitle(), input->labelText() }
                    + input->comboBoxItems().mid(0, 1);
            dialog.reject();
        });
        QTest::mousePress(probe().scale_button(), Qt::RightButton);
        QVERIFY(answer->served());
        QCOMPARE(texts,
                 (QStringList{ text("Масштаб"), text("Масштаб\nДиапазон : [31.25; 8000]"),
                               text("31.25м") }));
    }
};

QTEST_MAIN(TestDialogTexts)
#include "tst_dialog_texts.moc"
