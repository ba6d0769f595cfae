// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/batch_plan.h"

#include "core/photo_record.h"
#include "core/time_offset.h"
#include "core/to_int.h"
#include "core/zone_text.h"

#include <QTime>
#include <QTimeZone>

#include <algorithm>

namespace
{

const QString iptc_date_tag = "IPTC:DateCreated";
const QString iptc_time_tag = "IPTC:TimeCreated";
const QString inode_date_tag = "System:FileInodeChangeDate";
const QString date_time_format = "yyyy:MM:dd hh:mm:ss";
constexpr int seconds_per_hour = 3600;

bool has(const tag_map &tags, const QString &name)
{
    return tags.count(name.toStdString()) > 0;
}

QString stored_zone(const tag_map &record)
{
    return QString::fromStdString(value_of(record, "iptc_timezone"));
}

bool is_iptc_tag(const QString &tag)
{
    return tag == iptc_date_tag || tag == iptc_time_tag;
}

bool is_file_time_tag(const QString &tag)
{
    static const QStringList file_time_tags = {"System:FileModifyDate", inode_date_tag,
                                               "System:FileCreateDate"};
    return file_time_tags.contains(tag);
}

QTime time_without_zone(const std::string &time)
{
    return QTime::fromString(QString::fromStdString(time.substr(0, zone_start(time))), "hh:mm:ss");
}

QString composed_iptc_time(const photo_tags &photo)
{
    const QDate date(to_int(value_of(photo.record, "rec_year"), 0),
                     to_int(value_of(photo.record, "rec_month"), 0),
                     to_int(value_of(photo.record, "rec_day"), 0));
    const std::string zone = value_of(photo.record, "iptc_timezone");
    // The minutes of the zone are dropped on purpose.
    const int offset_hours = to_int(zone, 0);
    const QTime time = time_without_zone(value_of(photo.raw_tags, iptc_time_tag.toStdString()));
    const QDateTime date_time = zone.empty()
                                    ? QDateTime(date, time, Qt::LocalTime)
                                    : QDateTime(date, time, Qt::OffsetFromUTC,
                                                wrapped_product(offset_hours, seconds_per_hour));
    const auto offset = static_cast<float>(date_time.timeZone().offsetFromUtc(date_time));
    return date_time.toString(date_time_format) + timezone_text(offset / 3600.0F);
}

undo_entry entry_for(const QString &tag, const photo_tags &photo)
{
    const auto found = photo.raw_tags.find(tag.toStdString());
    if (found == photo.raw_tags.end())
        return {tag, false, QString()};
    if (tag == iptc_time_tag)
        return {tag, true, composed_iptc_time(photo)};
    return {tag, true, QString::fromStdString(found->second)};
}

}  // namespace

QStringList candidate_tags(const tag_map &record)
{
    static const QStringList date_tags = {
        exif_recording_tag,          "ExifIFD:CreateDate", "IFD0:ModifyDate",
        "XMP-photoshop:DateCreated", iptc_date_tag,        iptc_time_tag,
        "System:FileModifyDate",     inode_date_tag,       "System:FileCreateDate"};
    QStringList tags = date_tags;
    // The tool reports the inode's date for every file, but nothing can set it.
    tags.removeAll(inode_date_tag);
    if (has(record, "DateTimeOriginalInIFD0")) {
        tags.removeAll(exif_recording_tag);
        tags << ifd0_recording_tag;
    }
    return tags;
}

tag_map fix_tags(const photo_tags &photo, const QDateTime &new_time, bool alter_timezone,
                 double timezone)
{
    const QString zone = stored_zone(photo.record);
    const bool zone_known = alter_timezone || !zone.isEmpty();
    const QString plain_text = new_time.toString(date_time_format);
    const QString zoned_text = plain_text + timezone_text(moved_zone_hours(zone, timezone));

    tag_map values;
    const QStringList candidates = candidate_tags(photo.record);
    for (const QString &tag : candidates) {
        const bool added = is_iptc_tag(tag) && alter_timezone;
        const std::string name = tag.toStdString();
        if (photo.raw_tags.count(name) == 0 && !added)
            continue;
        const bool zoned = zone_known && (is_iptc_tag(tag) || is_file_time_tag(tag));
        values[name] = (zoned ? zoned_text : plain_text).toStdString();
    }
    return values;
}

QList<undo_entry> undo_entries(const photo_tags &photo)
{
    QList<undo_entry> entries;
    const QStringList candidates = candidate_tags(photo.record);
    for (const QString &tag : candidates)
        entries << entry_for(tag, photo);
    return entries;
}

tag_map undo_tags(const QList<undo_entry> &entries)
{
    tag_map values;
    for (const undo_entry &entry : entries)
        values[entry.tag.toStdString()] = entry.value.toStdString();
    return values;
}

bool is_before_file_time_limit(const QDateTime &new_time)
{
    const QDateTime limit(QDate(1972, 1, 1), QTime(0, 0, 0, 0), Qt::LocalTime);
    return new_time.isValid() && new_time < limit;
}

bool lacks_zone(const photo_tags &photo)
{
    return (has(photo.raw_tags, iptc_date_tag) || has(photo.raw_tags, iptc_time_tag)) &&
           stored_zone(photo.record).isEmpty();
}
