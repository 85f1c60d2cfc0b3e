// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/catalogue.h"

#include "base/constants.h"

Catalogue::Catalogue(const char *context, const QString &languageCode)
    : m_context(context)
{
    const QString code = languageCode.left(constants::longestLanguageCode);
    // The result does not matter: without a catalogue the translator is empty.
    (void)m_translator.load(QStringLiteral("%1_%2").arg(QLatin1String(context), code),
                            QStringLiteral(":/catalogues"));
}

QString Catalogue::text(const char *source) const
{
    const QString translated = m_translator.translate(m_context, source);
    return translated.isEmpty() ? QString::fromUtf8(source) : translated;
}
