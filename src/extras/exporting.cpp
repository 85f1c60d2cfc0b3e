// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting.h"

#include "base/catalogue.h"
#include "base/program_files.h"
#include "extras/exporting_picture.h"
#include "extras/exporting_text.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QAccessible>
#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QSaveFile>
#include <QTimer>

#include <iterator>

namespace extras {

namespace {

constexpr int noteTime = 5000; ///< ms
constexpr int noteMargin = 8; ///< pixels around the text, and below the note

QByteArray pngOf(const MainWindow &window, Background background)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const QImage picture = chartPicture(window, background);
    return picture.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}

struct FormatRow
{
    Format format;
    QLatin1String suffix;
    const char *name;
    /// The whole file; empty when there is not enough memory.
    QByteArray (*make)(const MainWindow &window);
};

const FormatRow formats[] = {
    { Format::Picture, QLatin1String("png"), QT_TRANSLATE_NOOP("Extras", "PNG picture"),
      [](const MainWindow &window) { return pngOf(window, Background::Screen); } },
    { Format::PaperPicture, QLatin1String("png"),
      QT_TRANSLATE_NOOP("Extras", "PNG picture for paper"),
      [](const MainWindow &window) { return pngOf(window, Background::White); } },
    { Format::Page, QLatin1String("pdf"), QT_TRANSLATE_NOOP("Extras", "PDF page"), chartPage },
    { Format::Drawing, QLatin1String("svg"), QT_TRANSLATE_NOOP("Extras", "SVG drawing"),
      chartDrawing },
    { Format::Table, QLatin1String("csv"), QT_TRANSLATE_NOOP("Extras", "CSV table"), table },
};

const FormatRow &rowOf(Format format)
{
    return formats[static_cast<int>(format)];
}

/// Filters of the dialog, in the order of the formats.
QStringList filters(const Catalogue &texts)
{
    QStringList lines;
    for (const FormatRow &row : formats)
        lines.append(QStringLiteral("%1 (*.%2)").arg(texts.text(row.name), row.suffix));
    return lines;
}

/// Without a suffix, so that the dialog adds the one of the filter.
QString proposedPath(const MainWindow &window)
{
    const MainWindowState &state = window.state();
    QString name;
    if (state.isLoaded(state.rfg_ID))
        name = state.rfg_DATA[state.rfg_ID].file_name;
    if (name.isEmpty())
        name = QStringLiteral("velkor");
    return QDir(window.settings()->last_folder).filePath(name);
}

/// The reason why \a path cannot be written, from the existing file and folder; empty if it can.
QString obstacle(const QString &path, const Catalogue &texts)
{
    const QFileInfo former(path);
    if (former.isDir())
        return texts.text(QT_TRANSLATE_NOOP("Extras", "a folder has this name"));
    if (former.exists() && !former.isFile())
        return texts.text(QT_TRANSLATE_NOOP("Extras", "this is not a regular file"));
    // Checked because root can write a read-only file.
    constexpr auto anyWriter = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    if (former.exists() && !(former.permissions() & anyWriter))
        return texts.text(QT_TRANSLATE_NOOP("Extras", "the file is read-only"));
    if (!former.dir().exists())
        return texts.text(QT_TRANSLATE_NOOP("Extras", "the folder does not exist"));
    if (!QFileInfo(former.path()).isWritable())
        return texts.text(QT_TRANSLATE_NOOP("Extras", "the folder is read-only"));
    return {};
}

/// Shows \a lines at the lower edge of the plot of \a window for some seconds and removes a former
/// note. A line that is wider than the plot is shortened in the middle. The note takes neither the
/// focus nor the mouse, and screen readers announce it.
void showNote(const MainWindow &window, const QStringList &lines)
{
    const auto name = QStringLiteral("note");
    QWidget *plot = window.parts().Plot_View;
    delete plot->findChild<QLabel *>(name);
    auto *note = new QLabel(plot);
    note->setObjectName(name);
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

/// Saves and shows the outcome in a note.
void saveAndTell(const MainWindow &window, const QString &path, Format format)
{
    const Catalogue texts("Extras", window.settings()->current_language);
    const QString reason = saveShown(window, path, format);
    const QString outcome = reason.isEmpty()
        ? texts.text(QT_TRANSLATE_NOOP("Extras", "%1 saved")).arg(texts.text(rowOf(format).name))
        : texts.text(QT_TRANSLATE_NOOP("Extras", "Not saved: %1")).arg(reason);
    showNote(window, { outcome, QDir::toNativeSeparators(path) });
}

} // namespace

void copyShown(MainWindow &window)
{
    const Catalogue texts("Extras", window.settings()->current_language);
    auto *data = new QMimeData;
    const QImage picture = chartPicture(window, Background::Screen);
    if (!picture.isNull())
        data->setImageData(picture);
    data->setText(readings(window));
    QGuiApplication::clipboard()->setMimeData(data);
    const char *outcome = picture.isNull()
        ? QT_TRANSLATE_NOOP("Extras",
                            "Readings copied as text; there is not enough memory for "
                            "the picture")
        : QT_TRANSLATE_NOOP("Extras", "Picture and readings copied");
    showNote(window, { texts.text(outcome) });
}

void askAndSaveShown(MainWindow &window)
{
    const Catalogue texts("Extras", window.settings()->current_language);
    const QStringList lines = filters(texts);
    // The window, and the dialog with it, can be destroyed while the dialog is open.
    const QPointer<QFileDialog> dialog
        = new QFileDialog(&window, texts.text(QT_TRANSLATE_NOOP("Extras", "Save as")));
    const auto chosenFormat
        = [&] { return formats[qMax(0, lines.indexOf(dialog->selectedNameFilter()))].format; };
    const auto setSuffix = [&] { dialog->setDefaultSuffix(rowOf(chosenFormat()).suffix); };
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(lines);
    const QFileInfo proposed(proposedPath(window));
    dialog->setDirectory(proposed.path());
    dialog->selectFile(proposed.fileName());
    setSuffix();
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, setSuffix);
    while (dialog->exec() == QDialog::Accepted) {
        const QString chosen = dialog->selectedFiles().value(0);
        QString path = chosen;
        const Format format = formatFor(path, chosenFormat());
        if (path == chosen || !QFileInfo::exists(path)) {
            saveAndTell(window, path, format);
            break;
        }
        // The dialog has not asked whether the file with the added suffix may be replaced.
        dialog->selectFile(path);
    }
    delete dialog;
}

QString saveShown(const MainWindow &window, const QString &path, Format format)
{
    const Catalogue texts("Extras", window.settings()->current_language);
    QString inTheWay = obstacle(path, texts);
    if (!inTheWay.isEmpty())
        return inTheWay;
    // Made in memory: Qt's writers of pictures and pages ignore a write error.
    const QByteArray bytes = rowOf(format).make(window);
    if (bytes.isEmpty())
        return texts.text(QT_TRANSLATE_NOOP("Extras", "there is not enough memory"));
    QSaveFile file(path);
    if (program_files::replaceFile(file, bytes))
        return {};
    return file.error() == QFileDevice::ResourceError
        ? texts.text(QT_TRANSLATE_NOOP("Extras", "the disk is full"))
        : file.errorString();
}

Format formatFor(QString &path, Format chosen)
{
    const QString suffix = QFileInfo(path).suffix();
    const auto fits = [&suffix](const FormatRow &row) {
        return suffix.compare(row.suffix, Qt::CaseInsensitive) == 0;
    };
    if (fits(rowOf(chosen)))
        return chosen;
    for (const FormatRow &row : formats)
        if (fits(row))
            return row.format;
    if (!path.endsWith(QLatin1Char('.')))
        path += QLatin1Char('.');
    path += rowOf(chosen).suffix;
    return chosen;
}

} // namespace extras
