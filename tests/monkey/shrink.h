// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <functional>

/// Takes events out of \a script as long as \a fails holds of the rest: first large pieces, then
/// smaller ones, then single events; at last numbers become 0 where they do not matter. Each single
/// event of the result is needed, unless \a tries ran out before: so often \a fails is asked at
/// most. \a script must fail.
Script shrunk(Script script, const std::function<bool(const Script &)> &fails, int tries);
