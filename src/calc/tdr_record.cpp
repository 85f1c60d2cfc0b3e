// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/tdr_record.h"

#include "base/constants.h"
#include "calc/numeric.h"
#include "miscfunc.h"

#include <cstring>
#include <type_traits>

namespace calc {

using Protocol_VX840::RTC_DateTypeDef;
using Protocol_VX840::RTC_TimeTypeDef;
using Protocol_VX840::TDR_FILE_t;

static_assert(std::is_trivially_copyable_v<TDR_FILE_t>, "the record is filled as raw bytes");

void fillRecord(const char *bytes, qint64 size, TDR_FILE_t &record)
{
    const qint64 filled = qBound(qint64{ 0 }, size, static_cast<qint64>(sizeof record));
    if (filled > 0)
        std::memcpy(&record, bytes, static_cast<std::size_t>(filled));
}

int countsPerSample(float minstep)
{
    return truncated(static_cast<double>(minstep) / constants::nsPerCount);
}

int usableStep(int counts)
{
    return qBound(1, counts, constants::xLength);
}

int initialScroll(quint32 shiftX, int step)
{
    return static_cast<int>(shiftX * static_cast<quint32>(step));
}

QDate measurementDate(const TDR_FILE_t &record)
{
    const RTC_DateTypeDef date = record.ch.test_date;
    return QDate(constants::centuryStart + hexdec(date.RTC_Year), hexdec(date.RTC_Month),
                 hexdec(date.RTC_Date));
}

QTime measurementTime(const TDR_FILE_t &record)
{
    const RTC_TimeTypeDef time = record.ch.test_time;
    return QTime(hexdec(time.RTC_Hours), hexdec(time.RTC_Minutes), hexdec(time.RTC_Seconds));
}

} // namespace calc
