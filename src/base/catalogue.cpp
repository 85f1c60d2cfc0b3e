// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/catalogue.h"

#include "base/constants.h"
#include "settingsdata.h"

namespace {

constexpr QLatin1String catalogueFolder = constants::latin1(":/catalogues");

} // namespace

Catalogue::Catalogue(const SettingsData *settings, QLatin1String context, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_context(context)
{
}

QString Catalogue::text(const char *source) const
{
    const QString code = m_settings->current_language.left(constants::longestLanguageCode);
    if (m_loadedCode.isNull() || m_loadedCode != code) {
        // The result does not matter: a language without a catalogue empties the translator.
        (void)m_translator.load(QStringLiteral("%1_%2").arg(m_context, code), catalogueFolder);
        m_loadedCode = code.isNull() ? QLatin1String("") : code;
    }
    const QString translated = m_translator.translate(m_context.data(), source);
    return translated.isEmpty() ? QString::fromUtf8(source) : translated;
}
