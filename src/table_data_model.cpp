// SPDX-License-Identifier: GPL-3.0-or-later

#include "table_data_model.h"

#include "core/photo_record.h"
#include "exif_cache.h"
#include "orv/skin_fonts.h"

#include <QFileInfo>
#include <QHash>
#include <QSize>

#include <algorithm>

namespace
{

constexpr int header_height_px = 30;
constexpr int name_width_px = 300;

QString file_name(const QString &path)
{
    return QFileInfo(path).fileName();
}

int compare_by_name(const QString &a, const QString &b)
{
    const QString name_a = file_name(a);
    const QString name_b = file_name(b);
    return name_a == name_b ? QString::localeAwareCompare(a, b)
                            : QString::localeAwareCompare(name_a, name_b);
}

/// The number stored under a key of a record; 0 if the key is missing.
int number(const tag_map &record, const char *key)
{
    return to_int(value_of(record, key), 0);
}

}  // namespace

table_data_model::table_data_model(QObject *parent)
    : QAbstractTableModel(parent), header_font(orv::heading_font())
{
}

int table_data_model::rowCount(const QModelIndex & /*parent*/) const
{
    return files.size();
}

int table_data_model::columnCount(const QModelIndex & /*parent*/) const
{
    return column_count;
}

QVariant table_data_model::data(const QModelIndex &index, int role) const
{
    const QString path = files[index.row()];
    if (role == Qt::DisplayRole)
        return display_text(path, index.column());
    if (role == Qt::UserRole)
        return user_value(path, index.column());
    return {};
}

QVariant table_data_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QVariant base_value = QAbstractTableModel::headerData(section, orientation, role);
    if (orientation != Qt::Horizontal)
        return base_value;
    switch (role) {
    case Qt::DisplayRole:
        return title(section, base_value);
    case Qt::SizeHintRole: {
        QSize size = base_value.toSize();
        size.setHeight(header_height_px);
        if (section == name_column)
            size.setWidth(name_width_px);
        return size;
    }
    case Qt::InitialSortOrderRole:
        return Qt::AscendingOrder;
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::FontRole:
        return header_font;
    default:
        return base_value;
    }
}

void table_data_model::sort(int column, Qt::SortOrder order)
{
    if (column != name_column && column != recording_time_column) {
        emit sort_order_override(sort_column, sort_order);
        return;
    }
    emit layoutAboutToBeChanged();
    if (column == name_column)
        sort_by_name(order);
    else
        sort_by_recording_time(order);
    emit layoutChanged();
    sort_column = column;
    sort_order = order;
}

void table_data_model::add_file(const QString &path, bool notify)
{
    if (files.contains(path))
        return;
    const int row = rowCount();
    if (notify)
        beginInsertRows(QModelIndex(), row, row);
    files << path;
    exif_cache::instance()->load(path.toStdString());
    if (notify)
        endInsertRows();
}

void table_data_model::add_files(const QStringList &paths)
{
    for (const QString &path : paths)
        add_file(path, true);
    resort();
}

void table_data_model::clear()
{
    beginResetModel();
    files.clear();
    endResetModel();
}

void table_data_model::resort()
{
    sort(sort_column, sort_order);
}

QDateTime table_data_model::recording_time(const QString &path) const
{
    const tag_map &record = exif_cache::instance()->record_of(path);
    const QDate date(number(record, "rec_year"), number(record, "rec_month"),
                     number(record, "rec_day"));
    const QTime time(number(record, "rec_hour"), number(record, "rec_minute"),
                     number(record, "rec_second"), 0);
    return {date, time, Qt::LocalTime};
}

QDateTime table_data_model::new_recording_time(const QString &path) const
{
    return shifted_time(recording_time(path),
                        {year, month, day, hour, minute, second, alter_timezone, timezone});
}

QString table_data_model::zone_text_for(const QString &path, bool apply_offset) const
{
    const tag_map &record = exif_cache::instance()->record_of(path);
    const QString zone = QString::fromStdString(value_of(record, "iptc_timezone"));
    if (apply_offset && alter_timezone)
        return timezone_text(moved_zone_hours(zone, timezone));
    return zone;
}

void table_data_model::datetime_format_changed(QString format)
{
    emit layoutAboutToBeChanged();
    display_format = format;
    emit layoutChanged();
}

void table_data_model::datetime_offset_changed(int new_year, int new_month, int new_day,
                                               int new_hour, int new_minute, int new_second,
                                               bool new_alter_timezone, double new_timezone)
{
    emit layoutAboutToBeChanged();
    year = new_year;
    month = new_month;
    day = new_day;
    hour = new_hour;
    minute = new_minute;
    second = new_second;
    alter_timezone = new_alter_timezone;
    timezone = new_timezone;
    emit layoutChanged();
}

QVariant table_data_model::title(int section, const QVariant &base_title) const
{
    switch (section) {
    case name_column:
        return tr("Photos");
    case recording_time_column:
        return tr("Recording Time");
    case new_recording_time_column:
        return tr("New Recording Time");
    default:
        return base_title;
    }
}

QVariant table_data_model::display_text(const QString &path, int column) const
{
    switch (column) {
    case name_column:
        return file_name(path);
    case recording_time_column:
        return time_text(recording_time(path), path, false);
    case new_recording_time_column:
        return time_text(new_recording_time(path), path, true);
    default:
        return {};
    }
}

QVariant table_data_model::user_value(const QString &path, int column) const
{
    switch (column) {
    case name_column:
        return path;
    case recording_time_column:
        return recording_time(path);
    case new_recording_time_column:
        return new_recording_time(path);
    default:
        return {};
    }
}

QString table_data_model::time_text(const QDateTime &time, const QString &path,
                                    bool apply_offset) const
{
    const QString text = time.toString(display_format);
    if (text.isEmpty())
        return "-";
    const QString zone = zone_text_for(path, apply_offset);
    return zone.isEmpty() ? text : text + "  UTC" + zone;
}

void table_data_model::sort_by_name(Qt::SortOrder order)
{
    const bool descending = order == Qt::DescendingOrder;
    std::sort(files.begin(), files.end(), [descending](const QString &a, const QString &b) {
        const int c = compare_by_name(a, b);
        return descending ? c > 0 : c < 0;
    });
}

/// A path is compared with many others, so its time is computed only at the first comparison and
/// kept until the sort ends.
void table_data_model::sort_by_recording_time(Qt::SortOrder order)
{
    const bool descending = order == Qt::DescendingOrder;
    QHash<QString, QDateTime> compared_times;
    const auto time_of = [this, &compared_times](const QString &path) -> QDateTime {
        const auto compared = compared_times.constFind(path);
        if (compared != compared_times.constEnd())
            return *compared;
        return *compared_times.insert(path, recording_time(path));
    };
    std::sort(files.begin(), files.end(),
              [&time_of, descending](const QString &a, const QString &b) {
                  const QDateTime ta = time_of(a);
                  const QDateTime tb = time_of(b);
                  return descending ? tb < ta : ta < tb;
              });
}
