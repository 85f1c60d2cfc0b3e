// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QObject>
#include <QString>
#include <QTranslator>

class SettingsData;

/// The texts of one translation context in the language of the interface, for everything that is
/// attached to the window. The catalogue is never installed in the application, so it costs nothing
/// on a change of language and adds nothing to what the window itself translates.
class Catalogue : public QObject
{
    Q_OBJECT

public:
    /// Reads ":/catalogues/<context>_<language code>". \a settings provides the language at each
    /// call and must outlive the catalogue.
    Catalogue(const SettingsData *settings, QLatin1String context, QObject *parent = nullptr);

    /// The translation of \a source, which is marked with QT_TRANSLATE_NOOP; \a source itself when
    /// there is none.
    QString text(const char *source) const;

private:
    const SettingsData *m_settings;
    const QLatin1String m_context;
    mutable QString m_loadedCode; ///< language of the loaded catalogue; null before the first
    mutable QTranslator m_translator;
};
