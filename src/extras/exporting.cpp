// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting.h"

#include "base/catalogue.h"
#include "extras/exporting_picture.h"
#include "extras/exporting_text.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QSaveFile>

namespace extras {

namespace {

bool writeAll(QIODevice &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size();
}

bool savePicture(const MainWindow &window, QIODevice &file)
{
    // By way of memory, where no write fails: the toolkit loses some when one does.
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return chartPicture(window).save(&buffer, "PNG") && writeAll(file, buffer.data());
}

bool saveTable(const MainWindow &window, QIODevice &file)
{
    return writeAll(file, table(window));
}

struct Format
{
    QLatin1String ending;
    const char *description;
    bool (*save)(const MainWindow &window, QIODevice &file);
};

const Format formats[] = {
    { QLatin1String("png"), QT_TRANSLATE_NOOP("Extras", "Picture, 300 dpi"), savePicture },
    { QLatin1String("pdf"), QT_TRANSLATE_NOOP("Extras", "Scalable page"), writeChartPdf },
    { QLatin1String("csv"), QT_TRANSLATE_NOOP("Extras", "Table of the levels"), saveTable },
};

const Format *formatOf(const QString &path)
{
    const QString ending = QFileInfo(path).suffix();
    for (const Format &format : formats)
        if (ending.compare(format.ending, Qt::CaseInsensitive) == 0)
            return &format;
    return nullptr;
}

/// The filter lines of the dialog, in the order of the formats.
QStringList filters(const Catalogue &texts)
{
    QStringList lines;
    for (const Format &format : formats)
        lines.append(
            QStringLiteral("%1 (*.%2)").arg(texts.text(format.description), format.ending));
    return lines;
}

QString proposedPath(const MainWindow &window)
{
    const MainWindowState &state = window.state();
    QString name;
    if (state.isLoaded(state.rfg_ID))
        name = state.rfg_DATA[state.rfg_ID].file_name;
    if (name.isEmpty())
        name = QStringLiteral("velkor");
    return QDir(window.settings()->last_folder)
        .filePath(name + QLatin1Char('.') + formats[0].ending);
}

} // namespace

void copyShown(MainWindow &window)
{
    auto *data = new QMimeData;
    const QImage picture = chartPicture(window);
    if (!picture.isNull())
        data->setImageData(picture);
    data->setText(readings(window));
    QGuiApplication::clipboard()->setMimeData(data);
}

void askAndSaveShown(MainWindow &window)
{
    const Catalogue texts(window.settings(), QLatin1String("Extras"));
    const QStringList lines = filters(texts);
    // Guarded, because the window may be gone when the dialog returns, and the dialog with it.
    const QPointer<QFileDialog> dialog
        = new QFileDialog(&window, texts.text(QT_TRANSLATE_NOOP("Extras", "Save what is shown")));
    const auto chosenEnding = [&lines, dialog] {
        const auto line = qMax(0, lines.indexOf(dialog->selectedNameFilter()));
        return QString(formats[line].ending);
    };
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(lines);
    const QFileInfo proposed(proposedPath(window));
    dialog->setDirectory(proposed.path());
    dialog->selectFile(proposed.fileName());
    dialog->setDefaultSuffix(chosenEnding());
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog,
                     [&] { dialog->setDefaultSuffix(chosenEnding()); });
    while (dialog->exec() == QDialog::Accepted) {
        const QString chosen = dialog->selectedFiles().value(0);
        const QString path = withKnownEnding(chosen, chosenEnding());
        if (path == chosen || !QFileInfo::exists(path)) {
            saveShown(window, path);
            break;
        }
        // The dialog has not asked whether this file may be overwritten. Now it will.
        dialog->selectFile(path);
    }
    delete dialog;
}

bool saveShown(const MainWindow &window, const QString &path)
{
    const Format *format = formatOf(path);
    const QFileInfo former(path);
    if (!format || (former.exists() && !former.isFile()))
        return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // What was written so far is thrown away with the file. Flushed here, because the toolkit does
    // not look at what becomes of the last bytes when it commits.
    if (!format->save(window, file) || !file.flush())
        file.cancelWriting();
    return file.commit();
}

QString withKnownEnding(const QString &path, const QString &ending)
{
    if (formatOf(path))
        return path;
    return path + (path.endsWith(QLatin1Char('.')) ? QString() : QStringLiteral(".")) + ending;
}

} // namespace extras
