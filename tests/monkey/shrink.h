// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <functional>

/// Removes events from \a script as long as \a fails is true of the rest: first large pieces, then
/// smaller ones, then single events. \a fails is called at most \a tries times; if that was enough,
/// each event of the result is needed. \a script must fail.
Script shrunk(Script script, const std::function<bool(const Script &)> &fails, int tries);
