// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTranslator>

class MainWindow;

namespace extras {

/// The extras' own texts in the language that \a window speaks at this moment. Made where texts are
/// needed and thrown away after: nothing has to hear of a change of language, and no translator is
/// added to those of the application.
class Texts
{
public:
    explicit Texts(const MainWindow &window);

    /// The translation of \a source, which is marked for the catalogue with
    /// QT_TRANSLATE_NOOP("Extras", ...); \a source itself where there is none.
    QString operator()(const char *source) const;

private:
    QTranslator m_translator;
};

} // namespace extras
