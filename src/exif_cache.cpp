// SPDX-License-Identifier: GPL-3.0-or-later

#include "exif_cache.h"

#include "core/photo_record.h"
#include "orv/exiftool.h"
#include "qor/stacktrace.h"
#include "qor/string.h"

#include <cstdlib>
#include <iostream>

namespace
{

const tag_map &entry_of(const std::map<std::string, tag_map> &files, const QString &path)
{
    static const tag_map no_tags;
    const auto found = files.find(path.toStdString());
    return found == files.end() ? no_tags : found->second;
}

/// Ends the program in every build type unless there are three parts: continuing would shift a
/// wrong time. The message looks like that of a failed assert(), and is followed by the crash
/// report.
void require_three_parts(const std::vector<qor::string> &parts, const char *check, int line)
{
    if (parts.size() == 3)
        return;
    std::cerr << "src/exif_cache:" << line
              << ": void exif_cache::parse_recording_date(const string&, const string&): "
                 "Assertion `"
              << check << "' failed." << std::endl;
    qor::stacktrace::instance();
    std::abort();
}

/// Not reached at present: splitting a text that isn't empty gives at least one part.
void report_unparsed(const std::string &path, const std::string &value,
                     const std::vector<qor::string> &parts)
{
    std::cout << "Error[" << path << "]: Can't parse exif recording date/time... " << value << "{";
    const char *separator = "";
    for (const qor::string &part : parts) {
        std::cout << separator << "'" << part << "'";
        separator = ", ";
    }
    std::cout << "}" << std::endl;
}

}  // namespace

std::shared_ptr<exif_cache> exif_cache::instance()
{
    static const std::shared_ptr<exif_cache> cache = std::make_shared<exif_cache>();
    return cache;
}

void exif_cache::load(const std::string &path)
{
    tag_map &tags = raw_tags[path];
    tags = orv::exiftool::instance()->read_tags(QString::fromStdString(path), true, false);

    std::string value;
    if (const auto exif = tags.find(exif_recording_tag); exif != tags.end()) {
        value = exif->second;
    } else if (const auto ifd0 = tags.find(ifd0_recording_tag); ifd0 != tags.end()) {
        value = ifd0->second;
        records[path]["DateTimeOriginalInIFD0"] = "true";
    }
    parse_recording_date(path, value);
    parse_iptc(path, tags);
    records[path]["has_data"] = "true";
}

const tag_map &exif_cache::record_of(const QString &path) const
{
    return entry_of(records, path);
}

const tag_map &exif_cache::raw_tags_of(const QString &path) const
{
    return entry_of(raw_tags, path);
}

tag_map exif_cache::record_copy(const QString &path) const
{
    return record_of(path);
}

void exif_cache::parse_recording_date(const std::string &path, const std::string &value)
{
    const std::vector<qor::string> parts = qor::string::split(value, ' ', 1);
    if (value.empty())
        return;
    if (parts.empty()) {
        report_unparsed(path, value, parts);
        return;
    }
    const std::vector<qor::string> date_parts = qor::string::split(parts[0], ":");
    require_three_parts(date_parts, "date_parts.size()==3", 27);
    tag_map &record = records[path];
    record["rec_year"] = date_parts[0];
    record["rec_month"] = date_parts[1];
    record["rec_day"] = date_parts[2];
    if (parts.size() < 2)
        return;
    const std::vector<qor::string> time_parts = qor::string::split(parts[1], ":");
    require_three_parts(time_parts, "time_parts.size()==3", 36);
    record["rec_hour"] = time_parts[0];
    record["rec_minute"] = time_parts[1];
    record["rec_second"] = time_parts[2];
}

void exif_cache::parse_iptc(const std::string &path, const tag_map &tags)
{
    tag_map &record = records[path];
    record["has_iptc_date"] = tags.count("IPTC:DateCreated") > 0 ? "true" : "false";
    record["has_iptc_time"] = "false";
    // The key is spelled differently from `iptc_timezone` on purpose: that one is absent if the
    // time has no sign.
    record["ipct_timezone"] = "";
    const auto time = tags.find("IPTC:TimeCreated");
    if (time == tags.end())
        return;
    record["has_iptc_time"] = "true";
    const std::size_t zone = zone_start(time->second);
    if (zone != std::string::npos)
        record["iptc_timezone"] = time->second.substr(zone);
}
