// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Whether the window takes the plain way instead of the cheaper one. Every mechanism that only
/// saves time asks here first, so that a test can replay a session in both forms and compare their
/// pictures. Nothing but such a test and the benchmarks ever wants the plain way: without the build
/// option VELKOR_STRAIGHTFORWARD the answer is a constant, and the plain branches are compiled
/// away.
///
///     if (straightforward::wanted() || !isOnTop(series))
///         raise(series);
///
/// A choice that is made once, while a window is built, is made for that window's whole life: set
/// the switch before the window is created and leave it until it is gone.
namespace straightforward {

#ifdef VELKOR_STRAIGHTFORWARD

constexpr bool isBuiltIn = true;
inline bool wantedNow = false; ///< the switch; false, the cheaper form, when the program starts

inline bool wanted()
{
    return wantedNow;
}

#else

constexpr bool isBuiltIn = false;

constexpr bool wanted()
{
    return false;
}

#endif

} // namespace straightforward
