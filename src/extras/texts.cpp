// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/texts.h"

#include "base/constants.h"
#include "mainwindow.h"
#include "settingsdata.h"

namespace extras {

namespace {

constexpr QLatin1String catalogueFolder = constants::latin1(":/extras/l10n");
constexpr QLatin1String catalogue = constants::latin1("Velkor_extras_%1");
constexpr int longestCode = 64; ///< the toolkit takes for ever over longer ones

} // namespace

Texts::Texts(const MainWindow &window)
{
    // As the window's own catalogues are found; a language without one leaves English.
    const QString code = window.settings()->current_language.left(longestCode);
    (void)m_translator.load(QString(catalogue).arg(code), catalogueFolder);
}

QString Texts::operator()(const char *source) const
{
    const QString translation = m_translator.translate("Extras", source);
    return translation.isEmpty() ? QString::fromUtf8(source) : translation;
}

} // namespace extras
