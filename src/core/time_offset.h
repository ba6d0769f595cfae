// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

/// The shift that the user entered. The zone stands apart: it never moves the clock time.
struct time_offset {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool alter_timezone = false;  ///< something stands in the zone's field
    double timezone = 0.0;        ///< hours to add to the photo's zone
};

/// `time` with years, months, days, hours, minutes and seconds added in this order; an invalid
/// time stays as it is. Years and months clamp to the last day of a month. The seconds of the hours
/// and of the minutes wrap around at 32 bits.
QDateTime shifted_time(const QDateTime &time, const time_offset &offset);

/// `count * unit`, wrapped around at 32 bits.
int wrapped_product(int count, int unit);
