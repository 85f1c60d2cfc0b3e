// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shrink.h"

namespace {

/// \a script without the \a count events from \a first on.
Script without(const Script &script, int first, int count)
{
    Script rest = script;
    rest.remove(first, qMin(count, rest.size() - first));
    return rest;
}

} // namespace

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

    int piece = qMax(1, lengthOf(script) / 2);
    while (tries > 0) {
        bool smaller = false;
        // From the end, because later events depend on earlier ones.
        for (int first = (lengthOf(script) - 1) / piece * piece; first >= 0; first -= piece) {
            const Script rest = without(script, first, piece);
            if (rest.size() < script.size() && stillFails(rest)) {
                script = rest;
                smaller = true;
            }
        }
        if (piece > 1)
            piece = (piece + 1) / 2;
        else if (!smaller)
            break;
    }

    for (int i = 0; i < script.size() && tries > 0; ++i) {
        for (std::size_t place = 0; place < script[i].numbers.size(); ++place) {
            Script simpler = script;
            simpler[i].numbers[place] = 0;
            if (script[i].numbers[place] != 0 && stillFails(simpler))
                script = simpler;
        }
    }
    return script;
}
