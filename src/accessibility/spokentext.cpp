// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/spokentext.h"

#include "base/constants.h"
#include "settingsdata.h"

namespace {

constexpr QLatin1String catalogueName = constants::latin1("Velkor_spoken_%1");
constexpr QLatin1String catalogueFolder = constants::latin1(":/spoken");
/// The toolkit shortens a name that it does not find, piece by piece: a damaged one would take
/// long.
constexpr int longestCode = 64;

} // namespace

SpokenLanguage::SpokenLanguage(const SettingsData *settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
{
}

QString SpokenLanguage::text(const char *source) const
{
    const QString code = m_settings->current_language.left(longestCode);
    if (m_loadedCode.isNull() || m_loadedCode != code) {
        // Whatever it says: a language without a catalogue empties the translator.
        (void)m_catalogue.load(QString(catalogueName).arg(code), catalogueFolder);
        m_loadedCode = code.isNull() ? QLatin1String("") : code;
    }
    const QString translated = m_catalogue.translate("Accessibility", source);
    return translated.isEmpty() ? QString::fromUtf8(source) : translated;
}
