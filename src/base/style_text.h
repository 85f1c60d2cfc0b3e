// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QByteArray;
class QString;

/// \file
/// What is asked of a style sheet's text before the toolkit gets it. The toolkit trusts a sheet: it
/// opens whatever file one names, and spends time on every rule for every control.
namespace style_text {

/// False when \a sheet has more parts (rules, selectors, declarations, escapes, function calls)
/// than anybody would write: the toolkit compares each with each control, and a megabyte of them
/// keeps it busy for half a minute at every start. Counts signs only; the text may be nonsense.
bool isReasonable(const QByteArray &sheet);

/// \a sheet without the names of files that the toolkit must not open: a pipe, a socket or a
/// device, where opening or reading may never return, and a file of no length, which is no picture
/// but may be an endless one of the system's. Such a name in url(...), or anywhere as a whole word
/// when the sheet sets properties (a label's rich text names pictures too), becomes nothing; every
/// other character stays.
QString withoutPipes(const QString &sheet);

} // namespace style_text
