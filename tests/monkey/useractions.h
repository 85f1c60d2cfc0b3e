// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

class Player;

/// Sends the window of \a player the input that \a event describes.
void perform(Player &player, const Event &event);
