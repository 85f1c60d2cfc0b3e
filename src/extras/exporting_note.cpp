// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_note.h"

#include "mainwindow.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTimer>

namespace extras {

namespace {

const auto noteName = QStringLiteral("note");
constexpr int noteTime = 5000; ///< ms
constexpr int noteMargin = 8; ///< pixels around the text, and below the note

} // namespace

void showNote(const MainWindow &window, const QStringList &lines)
{
    QWidget *plot = window.parts().Plot_View;
    delete plot->findChild<QLabel *>(noteName);
    auto *note = new QLabel(plot);
    note->setObjectName(noteName);
    note->setFont(window.parts().legend_button->font());
    note->setTextFormat(Qt::PlainText);
    note->setAlignment(Qt::AlignCenter);
    note->setFrameShape(QFrame::Box);
    note->setMargin(noteMargin);
    note->setAttribute(Qt::WA_TransparentForMouseEvents);
    QStringList fitting;
    for (const QString &line : lines)
        fitting.append(note->fontMetrics().elidedText(line.simplified(), Qt::ElideMiddle,
                                                      plot->width() - 6 * noteMargin));
    note->setText(fitting.join(QLatin1Char('\n')));
    note->adjustSize();
    note->move((plot->width() - note->width()) / 2, plot->height() - note->height() - noteMargin);
    note->show();
    QAccessibleEvent alert(note, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    QTimer::singleShot(noteTime, note, &QObject::deleteLater);
}

} // namespace extras
