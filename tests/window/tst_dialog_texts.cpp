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
#include <QInputDialog>
#include <QPushButton>
#include <QtTest>

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

private slots:
    void fileDialogsSpeakTheLanguage()
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

    void theToolkitsOwnWordsStayEnglish()
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

    void anEntryDialogSpeaksTheLanguage()
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
