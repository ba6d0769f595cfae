// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/undo_entry.h"
#include "orv/tag_map.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// What is known about a photo: its tags as the metadata tool reported them (names include their
/// groups), and the record that `exif_cache` derived from them. Both maps are borrowed.
struct photo_tags {
    const tag_map &raw_tags;
    const tag_map &record;
};

/// The names of the date tags that a fix writes if the photo has them, and that an undo writes
/// back. For a photo that keeps its recording time in IFD0, that tag replaces the Exif one.
QStringList candidate_tags(const tag_map &record);

/// The tags that a fix writes, with their values: `new_time` for each date tag that the photo has.
/// The IPTC tags and the file system's dates include the zone if it is known. With `alter_timezone`
/// the IPTC tags are written even if the photo doesn't have them.
/// @param timezone  hours added to the photo's zone
tag_map fix_tags(const photo_tags &photo, const QDateTime &new_time, bool alter_timezone,
                 double timezone);

/// The entries needed to undo a fix: one for each candidate tag, in the same order, with the value
/// as it was read. The tool reports "IPTC:TimeCreated" without a date, but needs date, time and
/// zone to write it. So that value is composed of the recording date, the time, and the photo's
/// zone in whole hours, or the machine's zone if the photo has none. Throws what `to_int` throws
/// for the zone.
QList<undo_entry> undo_entries(const photo_tags &photo);

/// The tags that restore the entries; a tag that didn't exist gets an empty value, which removes
/// it.
tag_map undo_tags(const QList<undo_entry> &entries);

/// Whether `new_time` is before 1972 in local time, which a file system can't store as a file's
/// date.
bool is_before_file_time_limit(const QDateTime &new_time);

/// Whether the photo has an IPTC date or time but no zone; the tool would then use the machine's
/// zone.
bool lacks_zone(const photo_tags &photo);
