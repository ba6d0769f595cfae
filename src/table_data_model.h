// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/time_offset.h"
#include "core/to_int.h"
#include "core/zone_text.h"

#include <QAbstractTableModel>
#include <QDateTime>
#include <QFont>
#include <QString>
#include <QStringList>

/// The model of the photo table: one row for each loaded file, with its name, its recording time,
/// and the recording time that the entered shift would give.
///
/// Lives on the GUI thread. The model holds only the paths. Every value is computed on request from
/// `exif_cache` and the shift, so a new shift or format costs only two layout signals.
/// `Qt::UserRole` gives a row's path and its two times, which are invalid if the file has none.
class table_data_model : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum column { name_column, recording_time_column, new_recording_time_column, column_count };

    explicit table_data_model(QObject *parent);

    /// The number of files, for any parent.
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /// Sorts by name, or by the recording time without the shift; photos with equal times are in no
    /// particular order. For any other column it sorts nothing, and resets the header to the
    /// current sort column.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// Appends a file, unless the exact text of its path is already in the list, and reads it with
    /// the metadata tool; blocks until the tool has answered. Doesn't sort.
    /// @param notify  send the signals of an inserted row
    void add_file(const QString &path, bool notify);

    /// Adds all the files, then sorts.
    void add_files(const QStringList &paths);

    /// Clears the list; sort order, format, shift and `exif_cache` stay unchanged.
    void clear();

    /// Sorts again by the current column and order.
    void resort();

    /// The recording time of a loaded file, as a local time; invalid if it has none.
    QDateTime recording_time(const QString &path) const;

    /// `recording_time` plus the shift.
    QDateTime new_recording_time(const QString &path) const;

    /// The zone of a loaded file as the file has it; empty if it has none. With `apply_offset`, a
    /// zone in the shift is added.
    QString zone_text_for(const QString &path, bool apply_offset) const;

    QStringList files;                              ///< full paths, in the order of the rows
    Qt::SortOrder sort_order = Qt::AscendingOrder;  ///< of the last sort carried out
    int sort_column = -1;    ///< of the last sort carried out; -1 before the first
    QString display_format;  ///< for QDateTime::toString
    QFont header_font;

    int year = 0;  ///< the shift, like the next seven: see `time_offset`
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    double timezone = 0.0;
    bool alter_timezone = false;

signals:
    /// Sent when the header has to show this column and order again.
    void sort_order_override(int column, Qt::SortOrder order);

public slots:
    /// Shows all times in this format, for QDateTime::toString.
    void datetime_format_changed(QString format);
    /// Applies a new shift, whose parts are those of `time_offset`.
    void datetime_offset_changed(int year, int month, int day, int hour, int minute, int second,
                                 bool alter_timezone, double timezone);

private:
    QVariant title(int section, const QVariant &base_title) const;
    QVariant display_text(const QString &path, int column) const;
    QVariant user_value(const QString &path, int column) const;
    QString time_text(const QDateTime &time, const QString &path, bool apply_offset) const;
    void sort_by_name(Qt::SortOrder order);
    void sort_by_recording_time(Qt::SortOrder order);
};
