// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

namespace style_text {

/// True when \a sheet can be applied: it sets no property of a widget by name, its lengths and
/// numbers are bounded, it takes Qt about two seconds at most, and every file that it names is a
/// file that can be opened and no large picture. A sheet that Qt cannot parse may be acceptable.
/// The limits are listed in docs/reliability.md.
bool isAcceptable(const QString &sheet);

} // namespace style_text
