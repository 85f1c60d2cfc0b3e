// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/help.h"

#include "base/constants.h"
#include "base/program_files.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace extras {

namespace {

/// From the folder of the program; the build knows where it installs both.
constexpr QLatin1String manualFolder = constants::latin1(VELKOR_MANUAL_FOLDER);
constexpr int languageLength = 2; ///< the manual knows languages, not countries

} // namespace

QString pageOfKeys(const QString &programFolder, const QString &language)
{
    const QDir manual(QDir(programFolder).filePath(manualFolder));
    for (const QString &folder : { language.left(languageLength), QStringLiteral("en") }) {
        QString page = QDir::cleanPath(manual.filePath(folder + QLatin1String("/keys.html")));
        if (program_files::isRegularFile(page))
            return page;
    }
    return {};
}

void showPageOfKeys(const MainWindow &window)
{
    const QString page
        = pageOfKeys(program_files::programFolder(), window.settings()->current_language);
    if (!page.isEmpty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(page));
}

} // namespace extras
