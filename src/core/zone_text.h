// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The zone as text, such as "+05:30" for 5.5. Minutes are truncated, not rounded. Hours that don't
/// fit in an int are clamped; NaN counts as 0.
QString timezone_text(float hours);

/// The hours of a zone text of the form sign, two digits, colon, two digits. Digits in other places
/// are ignored. An empty text is 0, and so is each part that isn't a number.
float zone_hours(const QString &zone);

/// The hours of `zone` plus `added_hours`, in the precision of `timezone_text`.
float moved_zone_hours(const QString &zone, double added_hours);
