// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/time_offset.h"

QDateTime shifted_time(const QDateTime &time, const time_offset &offset)
{
    if (!time.isValid())
        return time;
    return time.addYears(offset.year)
        .addMonths(offset.month)
        .addDays(offset.day)
        .addSecs(wrapped_product(offset.hour, 3600))
        .addSecs(wrapped_product(offset.minute, 60))
        .addSecs(offset.second);
}

int wrapped_product(int count, int unit)
{
    return static_cast<int>(static_cast<unsigned>(count) * static_cast<unsigned>(unit));
}
