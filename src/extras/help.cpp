// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/help.h"

#include "base/catalogue.h"
#include "cont_dial.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFontInfo>
#include <QImageReader>
#include <QInputDialog>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

namespace extras {

namespace {

constexpr QSize firstSize(1100, 720);
constexpr int chaptersWidth = 260;
constexpr int languageLength = 2; ///< the manual is per language, not per country
constexpr int pageMargin = 16;
constexpr int cellPadding = 4;
constexpr int widestPicture = 720; ///< as wide as the page when the window opens

/// Parts of the chapter on the controls, in its order.
enum Section {
    Cursors,
    Slots,
    Master,
    Chart,
    Navigation,
    Parameters,
    Dials,
    RightColumn,
    Difference,
    Smooth,
    ResetAll,
    Settings,
};

Section sectionOf(const QWidget *control, const MainWindowParts &parts)
{
    if (qobject_cast<const Cont_dial *>(control))
        return Dials;
    if (qobject_cast<const LegendButton *>(control) || qobject_cast<const QFileDialog *>(control))
        return Slots;
    if (qobject_cast<const ParamButton *>(control))
        return Parameters;
    if (qobject_cast<const InterfaceButton *>(control))
        return Cursors;
    const std::pair<const QWidget *, Section> others[] = {
        { parts.legend_button, Slots },
        { parts.input_dialog, Parameters },
        { parts.difference_button, Difference },
        { parts.smooth_button, Smooth },
        { parts.reset_all_button, ResetAll },
        { parts.settings_button, Settings },
        { parts.settingsMenu, Settings },
        { parts.scale_up_button, Navigation },
        { parts.scale_down_button, Navigation },
        { parts.scroll_left_button, Navigation },
        { parts.scroll_right_button, Navigation },
        { parts.curA_nav_button, Navigation },
        { parts.curB_nav_button, Navigation },
    };
    for (const auto &[other, section] : others)
        if (control == other)
            return section;
    return Chart;
}

/// The anchor that Markdown readers give to a heading: "Reset All" becomes "reset-all".
QString anchorOf(const QString &heading)
{
    QString anchor;
    const QString lower = heading.toLower();
    for (const QChar c : lower)
        if (c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_'))
            anchor += c;
        else if (c == QLatin1Char(' '))
            anchor += QLatin1Char('-');
    return anchor;
}

QVector<QTextBlock> headingsOf(const QTextDocument &page)
{
    QVector<QTextBlock> headings;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        if (block.blockFormat().headingLevel() > 0)
            headings.append(block);
    return headings;
}

} // namespace

HelpWindow::HelpWindow(const QString &language, const QString &back, const QString &forward)
    : m_chapters(new QListWidget)
    , m_page(new QTextBrowser)
{
    setAttribute(Qt::WA_DeleteOnClose);
    // Only the main window keeps the program running.
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(firstSize);
    // The main window sets a font that grows with it on all widgets; a style sheet has precedence.
    setStyleSheet(
        QStringLiteral("* { font-size: %1pt; }").arg(QFontInfo(QApplication::font()).pointSize()));

    auto *bar = new QToolBar;
    const QAction *backward = bar->addAction(style()->standardIcon(QStyle::SP_ArrowBack), back,
                                             m_page, &QTextBrowser::backward);
    const QAction *onward = bar->addAction(style()->standardIcon(QStyle::SP_ArrowForward), forward,
                                           m_page, &QTextBrowser::forward);
    auto *sides = new QSplitter;
    sides->addWidget(m_chapters);
    sides->addWidget(m_page);
    sides->setSizes({ chaptersWidth, firstSize.width() - chaptersWidth });
    sides->setStretchFactor(1, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(bar);
    layout->addWidget(sides);

    connect(m_page, &QTextBrowser::backwardAvailable, backward, &QAction::setEnabled);
    connect(m_page, &QTextBrowser::forwardAvailable, onward, &QAction::setEnabled);
    connect(m_page, &QTextBrowser::sourceChanged, this, &HelpWindow::followAnchor);
    connect(m_chapters, &QListWidget::currentItemChanged, this, [this](QListWidgetItem *chapter) {
        m_page->setSource(chapter->data(Qt::UserRole).toUrl());
    });

    QString folder = QStringLiteral("/docs/manual/%1/").arg(language.left(languageLength));
    if (!QFile::exists(QLatin1Char(':') + folder + QStringLiteral("index.md")))
        folder = QStringLiteral("/docs/manual/en/");
    m_controls = QUrl(QStringLiteral("qrc:") + folder + QStringLiteral("controls.md"));
    readContents(QUrl(QStringLiteral("qrc:") + folder + QStringLiteral("index.md")));
}

void HelpWindow::readContents(const QUrl &index)
{
    m_page->setSource(index);
    const QSignalBlocker blocker(m_chapters);
    const auto add = [this](const QString &title, const QUrl &page) {
        auto *chapter = new QListWidgetItem(title, m_chapters);
        chapter->setData(Qt::UserRole, page);
    };
    add(m_page->document()->firstBlock().text(), index);
    setWindowTitle(m_page->document()->firstBlock().text());
    // The chapters are the numbered list on the first page.
    for (QTextBlock block = m_page->document()->begin(); block.isValid(); block = block.next())
        if (block.textList() != nullptr)
            add(block.text(), index.resolved(block.begin().fragment().charFormat().anchorHref()));
}

void HelpWindow::open(const QWidget *dialog)
{
    winId(); // makes the native window
    QWindow *below = dialog ? dialog->windowHandle() : nullptr;
    if (windowHandle()->transientParent() != below) {
        // Qt determines only on show whether a window is blocked.
        hide();
        windowHandle()->setTransientParent(below);
    }
    show();
    raise();
    activateWindow();
}

void HelpWindow::showControl(int section)
{
    m_page->setSource(m_controls);
    // The first heading is the title of the chapter.
    scrollTo(headingsOf(*m_page->document()).value(section + 1).position());
}

void HelpWindow::followAnchor(const QUrl &page)
{
    frameTables();
    fitPictures();
    for (int row = 0; row < m_chapters->count(); ++row) {
        const QUrl chapter = m_chapters->item(row)->data(Qt::UserRole).toUrl();
        if (chapter.path() == page.path()) {
            const QSignalBlocker blocker(m_chapters);
            m_chapters->setCurrentRow(row);
        }
    }
    const QString anchor = page.fragment(QUrl::FullyDecoded);
    const QVector<QTextBlock> headings = headingsOf(*m_page->document());
    for (const QTextBlock &heading : headings)
        if (anchorOf(heading.text()) == anchor)
            return scrollTo(heading.position());
}

void HelpWindow::scrollTo(int position)
{
    QTextCursor place(m_page->document());
    place.setPosition(position);
    m_page->setTextCursor(place);
    // A request for the size completes the layout, which positions at the end of the page need.
    m_page->document()->documentLayout()->documentSize();
    const QRect at = m_page->cursorRect(place);
    m_page->verticalScrollBar()->setValue(m_page->verticalScrollBar()->value() + at.top());
}

void HelpWindow::frameTables()
{
    QTextDocument &page = *m_page->document();
    page.setDocumentMargin(pageMargin);
    const auto frames = page.rootFrame()->childFrames();
    for (QTextFrame *frame : frames) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (table == nullptr)
            continue;
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(palette().brush(QPalette::Mid));
        format.setCellPadding(cellPadding);
        table->setFormat(format);
    }
}

void HelpWindow::fitPictures()
{
    QTextDocument &page = *m_page->document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            const QUrl file = m_page->source().resolved(format.name());
            if (!format.isValid()
                || QImageReader(QLatin1Char(':') + file.path()).size().width() <= widestPicture)
                continue;
            format.setWidth(widestPicture);
            QTextCursor picture(&page);
            picture.setPosition(part.fragment().position());
            picture.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
            picture.setCharFormat(format);
        }
}

void showHelp(MainWindow &window)
{
    HelpWindow *help = nullptr;
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets)
        if (help == nullptr)
            help = qobject_cast<HelpWindow *>(widget);
    if (help == nullptr) {
        const Catalogue texts("Extras", window.settings()->current_language);
        help = new HelpWindow(window.settings()->current_language,
                              texts.text(QT_TRANSLATE_NOOP("Extras", "Back")),
                              texts.text(QT_TRANSLATE_NOOP("Extras", "Forward")));
        QObject::connect(&window, &QObject::destroyed, help, [help] { delete help; });
    }
    if (QWidget *menu = QApplication::activePopupWidget())
        menu->close();
    const QWidget *dialog = QApplication::activeModalWidget();
    help->open(dialog);
    help->showControl(sectionOf(dialog ? dialog : window.focusWidget(), window.parts()));
}

} // namespace extras
