#include "zone_text.h"

#include <cmath>
#include <limits>

namespace
{

/// `value` cut toward zero; the nearest int where it doesn't fit, 0 where it is no number.
int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= -std::numeric_limits<int>::max())
        return -std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

}  // namespace

QString timezone_text(float hours)
{
    const int whole = truncated(hours);
    const float fraction = hours - static_cast<float>(whole);
    const int minutes = truncated(std::abs(static_cast<double>(fraction)) * 60.0);
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
