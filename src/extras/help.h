// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <QWidget>

class MainWindow;

class QListWidget;
class QTextBrowser;

namespace extras {

/// The manual in a window of its own, beside a list of its chapters.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    /// The manual in the language of the code \a language ("ru_RU"); in English when there is none
    /// in that language. \a back and \a forward are the names of the two buttons.
    HelpWindow(const QString &language, const QString &back, const QString &forward);

    /// Opens the window, above \a dialog unless it is null: a modal dialog blocks all windows
    /// except those above it.
    void open(const QWidget *dialog);
    /// Shows part \a section, from 0, of the chapter on the controls.
    void showControl(int section);

private:
    void readContents(const QUrl &index);
    /// Scrolls to the heading that \a page links to: Qt makes no anchors for headings of Markdown.
    void followAnchor(const QUrl &page);
    void scrollTo(int position);
    void frameTables();
    void fitPictures();

    QListWidget *m_chapters;
    QTextBrowser *m_page;
    QUrl m_controls; ///< chapter on the controls
};

/// Opens the manual, in the language of the interface, at the open dialog, or else at the control
/// of \a window with the focus. Closes an open menu.
void showHelp(MainWindow &window);

} // namespace extras
