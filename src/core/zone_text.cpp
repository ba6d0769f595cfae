// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/zone_text.h"

#include <algorithm>
#include <cmath>

namespace
{

// The greatest float that fits in a 32-bit int.
constexpr float greatest_hours = 2147483520.0F;

float bounded(float hours)
{
    return std::isnan(hours) ? 0.0F : std::clamp(hours, -greatest_hours, greatest_hours);
}

}  // namespace

QString timezone_text(float hours)
{
    const float cut_hours = bounded(hours);
    const int whole = static_cast<int>(cut_hours);
    const float fraction = cut_hours - static_cast<float>(whole);
    const int minutes = static_cast<int>(std::abs(static_cast<double>(fraction)) * 60.0);
    const QString sign = hours >= 0 ? "+" : "-";
    return QString("%1%2:%3")
        .arg(sign)
        .arg(std::abs(whole), 2, 10, QLatin1Char('0'))
        .arg(minutes, 2, 10, QLatin1Char('0'));
}

float zone_hours(const QString &zone)
{
    if (zone.isEmpty())
        return 0.0F;
    const int hours = zone.midRef(1, 2).toInt();
    const int minutes = zone.midRef(4, 2).toInt();
    const float value = static_cast<float>(minutes) / 60.0F + static_cast<float>(hours);
    return zone.startsWith(QLatin1Char('-')) ? -value : value;
}

float moved_zone_hours(const QString &zone, double added_hours)
{
    return static_cast<float>(static_cast<double>(zone_hours(zone)) + added_hours);
}
