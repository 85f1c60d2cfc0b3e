// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "miscfunc.h"
#include "rfg_shown.h"

#include <cstdio>

int main()
{
    const rfg_SHOWN slot;
    const int slots = setbit(0, 5);
    if (sizeof slot.f_p_840 != 37775 || firstbit(slots) != 5) {
        std::puts("consumer: the core is not what it says");
        return 1;
    }
    std::puts("consumer: the core is linked and works");
    return 0;
}
