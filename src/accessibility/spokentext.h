// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QTranslator>

class SettingsData;

/// The spoken words in the language of the interface. Their catalogue is never installed in the
/// application: it is asked directly, so that a switch of the language costs nothing here and its
/// events stay as they were.
class SpokenLanguage : public QObject
{
    Q_OBJECT

public:
    /// \a settings says which language it is; it is asked anew each time and has to outlive this.
    SpokenLanguage(const SettingsData *settings, QObject *parent);

    /// \a source in that language; itself where the language has no catalogue.
    QString text(const char *source) const;

private:
    const SettingsData *m_settings;
    mutable QString m_loadedCode; ///< of the language in the catalogue; null before the first
    mutable QTranslator m_catalogue;
};
