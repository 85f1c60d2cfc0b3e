// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Makes the exports that the manual shows:
///
///     velkor-make-exports LANGUAGE FOLDER TRACE...
///
/// opens one to six traces in a window of 1280 x 800, puts cursor A to 38 m and B to 104 m, and
/// saves report.png, paper.png, report.pdf, report.svg and report.csv to FOLDER.

#include "base/constants.h"
#include "base/program_files.h"
#include "extras/exporting.h"
#include "interfacebutton.h"
#include "mainwindow.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QTextStream>

namespace {

constexpr int columnOfA = 304; ///< counts of 0.125 m
constexpr int columnOfB = 832;

void writeSettings(const QString &language, const QStringList &traces)
{
    QFile::remove(program_files::settingsFile());
    QSettings settings(program_files::settingsFile(), QSettings::IniFormat);
    settings.setValue(constants::keyLanguage, language);
    settings.beginGroup(constants::groupPrevFiles);
    settings.setValue(constants::keyStateIndex, (1 << traces.size()) - 1);
    settings.setValue(constants::keyMasterId, 0);
    for (int slot = 0; slot < traces.size(); ++slot)
        settings.setValue(QString(constants::keyFile).arg(slot + 1), traces[slot]);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QStringList traces = arguments.mid(3);
    if (traces.isEmpty() || traces.size() > constants::slotCount) {
        QTextStream(stderr) << "usage: velkor-make-exports LANGUAGE FOLDER TRACE..." << Qt::endl;
        return 2;
    }
    writeSettings(arguments[1], traces);
    MainWindow window;
    window.resize(1280, 800);
    window.show();
    QCoreApplication::processEvents();
    window.parts().curB_button->click();
    window.cursorSetup_slot(columnOfB);
    window.parts().curA_button->click();
    window.cursorSetup_slot(columnOfA);

    using extras::Format;
    const std::pair<const char *, Format> files[] = {
        { "report.png", Format::Picture }, { "paper.png", Format::PaperPicture },
        { "report.pdf", Format::Page },    { "report.svg", Format::Drawing },
        { "report.csv", Format::Table },
    };
    for (const auto &[name, format] : files) {
        const QString path = QDir(arguments[2]).filePath(QLatin1String(name));
        const QString reason = extras::saveShown(window, path, format);
        if (!reason.isEmpty()) {
            QTextStream(stderr) << path << ": " << reason << Qt::endl;
            return 1;
        }
    }
    return 0;
}
