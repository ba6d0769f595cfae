// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

/// The shift that the user entered. The zone is separate: it never changes the clock time.
struct time_offset {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool alter_timezone = false;  ///< the zone field isn't empty
    double timezone = 0.0;        ///< hours to add to the photo's zone
};

/// `time` with years, months, days, hours, minutes and seconds added in this order; an invalid time
/// is returned unchanged. After years or months are added, the day is clamped to the last one of
/// the month. Hours and minutes are converted to seconds, each to a 32-bit number that wraps
/// around.
QDateTime shifted_time(const QDateTime &time, const time_offset &offset);

/// `count * unit` as a 32-bit number that wraps around.
int wrapped_product(int count, int unit);
