// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The zone as text, such as "+05:30" for 5.5. Minutes are cut off, not rounded; hours
/// beyond an int count as the greatest that it holds, what is no number as 0.
QString timezone_text(float hours);

/// The hours of a zone text of the form sign, two digits, colon, two digits. Digits elsewhere are
/// not looked for: an empty text is 0, and so is each part that isn't a number at its place.
float zone_hours(const QString &zone);

/// The hours of `zone` with `added_hours` on top, in the precision that `timezone_text` cuts at.
float moved_zone_hours(const QString &zone, double added_hours);
