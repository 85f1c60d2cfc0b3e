// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "footprint.h"

#include <QDir>
#include <QFile>

#include <malloc.h>
#include <unistd.h>

#ifndef __has_feature
#define __has_feature(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
// Its header comes with one of the compilers only.
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#define VELKOR_SANITIZED_HEAP
#endif

namespace {

qint64 heapInUse()
{
#ifdef VELKOR_SANITIZED_HEAP
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
#endif
}

} // namespace

Footprint Footprint::taken()
{
    Footprint footprint;
    footprint.heap = heapInUse();
#ifndef VELKOR_SANITIZED_HEAP
    QFile pages(QStringLiteral("/proc/self/statm"));
    if (pages.open(QIODevice::ReadOnly))
        footprint.resident
            = pages.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
#endif
    const QDir open(QStringLiteral("/proc/self/fd"));
    footprint.descriptors = static_cast<int>(
        open.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
    return footprint;
}
