// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/tag_map.h"

#include <QString>

#include <map>
#include <memory>
#include <string>

/// What the metadata tool said about each loaded photo, keyed by the photo's path in UTF-8.
///
/// A photo is read once, when it is added; the table and the batches work from here. Lives on the
/// GUI thread. All values are text as the file has it.
class exif_cache
{
public:
    /// The one object; it is destroyed at the end of the process.
    static std::shared_ptr<exif_cache> instance();

    /// Has the tool read the file, which blocks until it has answered, and stores its tags and its
    /// record. A file that gives no tags gets a record without a recording time. A recording date
    /// that isn't made of three parts with ":" between them, or a time of that kind, ends the
    /// program.
    void load(const std::string &path);

    /// The record of the file, empty for one that wasn't loaded. Valid until the maps here change.
    const tag_map &record_of(const QString &path) const;

    /// The tags of the file, likewise.
    const tag_map &raw_tags_of(const QString &path) const;

    /// A copy of the record of the file.
    tag_map record_copy(const QString &path) const;

    /// The derived record of each file. The keys: `rec_year`, `rec_month`, `rec_day`, `rec_hour`,
    /// `rec_minute`, `rec_second` (the recording time as it stands in the file, absent where it has
    /// none); `DateTimeOriginalInIFD0` ("true", or absent); `has_iptc_date`, `has_iptc_time`
    /// ("true" or "false"); `iptc_timezone` (sign and hours as in "+02:00", absent without a sign);
    /// `ipct_timezone` (always empty); `has_data` ("true").
    std::map<std::string, tag_map> records;

    /// All tags of each file, the names with their groups.
    std::map<std::string, tag_map> raw_tags;

private:
    void parse_recording_date(const std::string &path, const std::string &value);
    void parse_iptc(const std::string &path, const tag_map &tags);
};
