// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

namespace style_text {

/// True when \a sheet can be applied: it sets no property of a widget by name, its lengths and
/// numbers are bounded, Qt takes at most about two seconds for it, reading its files cannot block,
/// and its pictures are not too large. A sheet that Qt cannot parse may be acceptable. The limits
/// are listed in docs/reliability.md.
bool isAcceptable(const QString &sheet);

} // namespace style_text
