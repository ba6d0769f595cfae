// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/undo_entry.h"
#include "orv/tag_map.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// What is known of a photo: its tags as the metadata tool reported them, the names with their
/// groups, and the record that `exif_cache` derived from them. Both maps are borrowed.
struct photo_tags {
    const tag_map &raw_tags;
    const tag_map &record;
};

/// The names of the date tags that a fix writes where the photo has them, and an undo writes back.
/// A photo that keeps its recording time in IFD0 has that tag in the place of the Exif one.
QStringList candidate_tags(const tag_map &record);

/// The tags that a fix writes and their values: `new_time` for each date tag that the photo has,
/// with the zone for the IPTC tags and the file system's dates when one is known. With
/// `alter_timezone` the IPTC tags are written whether the photo has them or not.
/// @param timezone  hours added to the photo's zone
tag_map fix_tags(const photo_tags &photo, const QDateTime &new_time, bool alter_timezone,
                 double timezone);

/// What an undo of a fix needs: an entry for each candidate tag, in their order, with the value as
/// it was read. The tool reports a bare time for "IPTC:TimeCreated", but takes date, time and zone:
/// that value is put together with the recording date and the whole hours of the photo's zone, or
/// the machine's zone where the photo has none. Throws as `to_int` does for a zone without a
/// number.
QList<undo_entry> undo_entries(const photo_tags &photo);

/// The tags that put the entries back; a tag that didn't exist goes out with an empty value.
tag_map undo_tags(const QList<undo_entry> &entries);

/// Whether a file system can't hold `new_time` as a file's date: before 1972 in local time.
bool is_before_file_time_limit(const QDateTime &new_time);

/// Whether the photo has an IPTC date or time and no zone, so that the tool would use that of the
/// machine.
bool lacks_zone(const photo_tags &photo);
