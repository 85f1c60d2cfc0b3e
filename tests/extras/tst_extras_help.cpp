// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "each.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "threetracestest.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>
#include <QtTest>

namespace {

/// The open window of the manual; null when there is none.
QTextBrowser *openPage()
{
    QTextBrowser *found = nullptr;
    const auto widgets = QApplication::topLevelWidgets();
    for (const QWidget *widget : widgets)
        if (auto *page = widget->findChild<QTextBrowser *>(); page != nullptr && page->isVisible())
            found = page;
    return found;
}

/// The first heading that is in view.
QString headingInView()
{
    const QTextBrowser &page = *openPage();
    QTextBlock block = page.cursorForPosition(QPoint(20, 2)).block();
    while (block.isValid() && block.blockFormat().headingLevel() == 0)
        block = block.next();
    return block.text();
}

/// Every link of the page \a file, with its text.
QVector<QUrl> linksOf(QTextBrowser &page)
{
    QVector<QUrl> links;
    for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part)
            if (part.fragment().charFormat().isAnchor())
                links.append(page.source().resolved(part.fragment().charFormat().anchorHref()));
    return links;
}

} // namespace

/// The manual in its window.
class TestExtrasHelp : public ThreeTracesTest
{
    Q_OBJECT

private:
    /// Presses F1 while \a control has the focus.
    static void askFor(QWidget *control)
    {
        control->setFocus();
        press(control, Qt::Key_F1);
        QVERIFY(openPage() != nullptr);
        QVERIFY(QTest::qWaitForWindowExposed(openPage()->window()));
    }

    static void closeHelp()
    {
        openPage()->window()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(openPage() == nullptr);
    }

private slots:
    void helpOpensAtTheFocusedControl()
    {
        struct Row
        {
            const char *name; ///< English heading
            const char *russian;
            QWidget *control;
        };
        const MainWindowParts &parts = openThree().parts();
        const std::vector<Row> rows = {
            { "Cursors and readings", "Курсоры и отсчёты", parts.curA_button },
            { "Files and trace slots", "Файлы и ячейки", parts.legend_button },
            { "Files and trace slots", "Файлы и ячейки", parts.selected_rfg[2] },
            { "The chart", "График", parts.Plot_View },
            { "Scale, scrolling, cursor choice", "Масштаб, прокрутка, выбор курсора",
              parts.scroll_right_button },
            { "Parameters", "Параметры", parts.KU_button },
            { "Dials", "Энкодеры", parts.cursor_dial },
            { "Difference", "Вычитание", parts.difference_button },
            { "Smooth", "Сглаживание", parts.smooth_button },
            { "Reset All", "Сбросить всё", parts.reset_all_button },
            { "Settings", "Настройки", parts.settings_button },
        };
        for (const char *language : { "en_US", "ru_RU" }) {
            parts.settingsData->current_language = QLatin1String(language);
            each<Row>(rows, [language](const Row &row) {
                askFor(row.control);
                QCOMPARE(headingInView(),
                         QString::fromUtf8(language[0] == 'e' ? row.name : row.russian));
            });
            closeHelp();
        }
    }

    void languageWithoutAManualGetsTheEnglishOne()
    {
        MainWindow &window = openThree();
        for (const char *code : { "fr_FR", "", ".." }) {
            window.settings()->current_language = QString::fromLatin1(code);
            askFor(window.parts().Plot_View);
            QCOMPARE(headingInView(), QStringLiteral("The chart"));
            closeHelp();
        }
    }

    void helpOpensAndWorksInADialog()
    {
        openThree();
        const MainWindowProbe &probe = this->probe();
        struct Row
        {
            const char *heading;
            QWidget *button;
            int chapter; ///< another one each time: two clicks at one place are a double click
        };
        const Row rows[] = {
            { "Settings", probe.settings_button(), 0 },
            { "Files and trace slots", probe.legend_button(), 1 },
            { "Parameters", probe.V_offset_button(), 2 },
        };
        for (const Row &row : rows) {
            const auto answer = answerDialog([&row](QDialog &dialog) {
                const QScopeGuard close = qScopeGuard([&dialog] { dialog.reject(); });
                QWidget *focused = dialog.focusWidget();
                askFor(focused ? focused : &dialog);
                QCOMPARE(headingInView(), QLatin1String(row.heading));
                // Clicks go to the native window, because a dialog blocks only that.
                QWidget *help = openPage()->window();
                const auto *chapters = help->findChild<QListWidget *>();
                const QListWidgetItem *chapter = chapters->item(row.chapter);
                QTest::mouseClick(
                    help->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                    chapters->viewport()->mapTo(help, chapters->visualItemRect(chapter).center()));
                QCOMPARE(headingInView(), chapter->text());
            });
            const bool isParameter = row.button == probe.V_offset_button();
            QTest::mouseClick(row.button, isParameter ? Qt::RightButton : Qt::LeftButton);
            QVERIFY(answer->served());
        }
        closeHelp();
    }

    void helpClosesAMenu()
    {
        openThree();
        const auto answer = answerMenu([](QMenu &menu) {
            press(&menu, Qt::Key_F1);
            QVERIFY(!menu.isVisible());
            QVERIFY(openPage() != nullptr);
        });
        window().rfgMenuRequested_slot(0);
        QVERIFY(answer->served());
        closeHelp();
    }

    void contentsAndLinksLeadToTheirHeadings()
    {
        askFor(openThree().parts().Plot_View);
        auto *chapters = openPage()->window()->findChild<QListWidget *>();
        const auto actions = openPage()->window()->findChild<QToolBar *>()->actions();
        QCOMPARE(chapters->count(), 11);
        QCOMPARE(chapters->currentItem()->text(), QStringLiteral("Every control"));
        // Its pictures are wider, and made to fit.
        QCOMPARE(openPage()->horizontalScrollBar()->maximum(), 0);
        chapters->setCurrentRow(9);
        QCOMPARE(headingInView(), QStringLiteral("Keys"));
        actions.at(0)->trigger();
        QCOMPARE(chapters->currentItem()->text(), QStringLiteral("Every control"));
        actions.at(1)->trigger();
        QCOMPARE(headingInView(), QStringLiteral("Keys"));
        QVERIFY(!actions.at(1)->isEnabled());
        // A link to a heading scrolls there.
        for (const auto &[link, heading] :
             { std::pair{ "qrc:/docs/manual/en/controls.md#the-master", "The master" },
               std::pair{ "qrc:/docs/manual/ru/controls.md#вычитание", "Вычитание" } }) {
            openPage()->setSource(QUrl(QString::fromUtf8(link)));
            QCOMPARE(headingInView(), QString::fromUtf8(heading));
        }
        closeHelp();
    }

    void everyLinkAndPictureIsThere()
    {
        QTextBrowser page;
        int links = 0;
        for (const char *language : { "en", "ru" }) {
            const QDir folder(QStringLiteral(":/docs/manual/%1").arg(QLatin1String(language)));
            const auto names = folder.entryList();
            QVERIFY(names.size() >= 9);
            for (const QString &name : names) {
                page.setSource(QUrl(QStringLiteral("qrc") + folder.filePath(name)));
                for (const QUrl &link : linksOf(page)) {
                    QVERIFY2(QFile::exists(QLatin1Char(':') + link.path()),
                             qPrintable(name + QLatin1Char(' ') + link.toString()));
                    ++links;
                }
                for (const QTextFormat &format : page.document()->allFormats())
                    if (format.isImageFormat())
                        QVERIFY2(page.loadResource(QTextDocument::ImageResource,
                                                   format.toImageFormat().name())
                                     .isValid(),
                                 qPrintable(name + format.toImageFormat().name()));
            }
        }
        QVERIFY(links > 40);
    }

    void fontOfTheManualDoesNotGrowWithTheWindow()
    {
        askFor(openThree().parts().Plot_View);
        const QTextBrowser &page = *openPage();
        const qreal before = page.document()->documentLayout()->documentSize().height();
        window().resize(1600, 1000);
        WindowFixture::settle();
        QVERIFY(window().font().pointSize() > QApplication::font().pointSize());
        QCOMPARE(page.document()->documentLayout()->documentSize().height(), before);
        QVERIFY(page.document()->lastBlock().blockFormat().topMargin() > 0.0);
        // Help closes with the window.
        fixture->close();
        QVERIFY(openPage() == nullptr);
    }
};

QTEST_MAIN(TestExtrasHelp)
#include "tst_extras_help.moc"
