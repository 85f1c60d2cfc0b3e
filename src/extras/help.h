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

    /// Opens the window, above \a dialog unless that is null: a modal dialog blocks all windows but
    /// those above it.
    void open(const QWidget *dialog);
    /// Shows the part with the number \a section, from 0 on, of the chapter on the controls.
    void showControl(int section);

private:
    void readContents(const QUrl &index);
    /// Qt gives the headings of a Markdown page no anchors, so a link to one is followed here.
    void followAnchor(const QUrl &page);
    void scrollTo(int position);
    void frameTables();
    void fitPictures();

    QListWidget *m_chapters;
    QTextBrowser *m_page;
    QUrl m_controls; ///< chapter on the controls
};

/// Opens the manual, in the language of the interface, where it describes the dialog that is open,
/// else the control of \a window that has the focus. Closes an open menu.
void showHelp(MainWindow &window);

} // namespace extras
