// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTranslator>

/// The texts of one translation context in one language, for accessibility and extras. The
/// catalogue is never installed in the application, so it takes no time on a change of language and
/// does not affect the texts of the window.
class Catalogue
{
public:
    /// Reads ":/catalogues/<context>_<languageCode>". Without such a file all texts are English.
    Catalogue(const char *context, const QString &languageCode);

    /// The translation of \a source, which is marked with QT_TRANSLATE_NOOP; \a source itself when
    /// there is none.
    QString text(const char *source) const;

private:
    const char *m_context;
    QTranslator m_translator;
};
