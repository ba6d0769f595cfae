// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/tag_map.h"

#include <QString>

#include <map>
#include <memory>
#include <string>

/// The cache of the metadata tool's answers: the tags of each loaded photo, keyed by the photo's
/// path in UTF-8.
///
/// A photo is read once, when it is added; the table and the batches use the cache. Lives on the
/// GUI thread. All values are text, unchanged from the file.
class exif_cache
{
public:
    /// The only instance; it is destroyed when the process ends.
    static std::shared_ptr<exif_cache> instance();

    /// Reads the file with the tool, blocks until the tool has answered, and stores the tags and
    /// the record. A file without tags gets a record without a recording time. Note: a recording
    /// date or time that doesn't consist of three parts separated by ":" ends the program.
    void load(const std::string &path);

    /// The record of the file; empty if the file isn't loaded. Valid until the cache changes.
    const tag_map &record_of(const QString &path) const;

    /// The tags of the file; empty if it isn't loaded. Valid until the cache changes.
    const tag_map &raw_tags_of(const QString &path) const;

    /// A copy of the record of the file.
    tag_map record_copy(const QString &path) const;

    /// The derived record of each file. The keys: `rec_year`, `rec_month`, `rec_day`, `rec_hour`,
    /// `rec_minute`, `rec_second` (the recording time as in the file; absent if it has none);
    /// `DateTimeOriginalInIFD0` ("true", or absent); `has_iptc_date`, `has_iptc_time` ("true" or
    /// "false"); `iptc_timezone` (such as "+02:00"; absent if the time has no sign);
    /// `ipct_timezone` (always empty); `has_data` ("true").
    std::map<std::string, tag_map> records;

    /// All tags of each file; their names include their groups.
    std::map<std::string, tag_map> raw_tags;

private:
    void parse_recording_date(const std::string &path, const std::string &value);
    void parse_iptc(const std::string &path, const tag_map &tags);
};
