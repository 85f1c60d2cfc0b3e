// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shrink.h"

Script shrunk(Script script, const std::function<bool(const Script &)> &fails, int tries)
{
    const auto stillFails
        = [&](const Script &candidate) { return tries-- > 0 && fails(candidate); };

    // Most failures need the last events only.
    for (int length = 1; length < script.size(); length *= 4) {
        const Script end = script.mid(script.size() - length);
        if (stillFails(end)) {
            script = end;
            break;
        }
    }

    int piece = qMax(1, static_cast<int>(script.size()) / 2);
    while (tries > 0) {
        bool smaller = false;
        // From the end, because later events depend on earlier ones.
        for (int end = static_cast<int>(script.size()); end > 0; end -= piece) {
            const Script rest = script.mid(0, qMax(0, end - piece)) + script.mid(end);
            if (stillFails(rest)) {
                script = rest;
                smaller = true;
            }
        }
        if (piece > 1)
            piece = (piece + 1) / 2;
        else if (!smaller)
            break;
    }
    return script;
}
