// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// Photos made for a test, and an ExifTool of the test's own to look at them: nothing here goes
/// through the program.

/// Small pictures at `path`, with these tags ("ExifIFD:DateTimeOriginal=2017:05:03 12:00:00").
void make_jpeg(const QString &path, const QStringList &tags = QStringList());
void make_png(const QString &path, const QStringList &tags = QStringList());
void make_tiff(const QString &path, const QStringList &tags = QStringList());

/// Writes tags into a file, "Group:Name=Value" each, in place.
void set_tags(const QString &path, const QStringList &tags);

/// All tags of a file, hidden ones of the same name too, by "Group:Name".
QMap<QString, QString> all_tags(const QString &path);

/// One tag of a file, empty if it hasn't got it.
QString tag_of(const QString &path, const QString &name);

/// The picture without its metadata: equal bytes mean an unharmed picture.
QByteArray picture_data(const QString &path);

/// Standard output of an ExifTool run with these arguments, given through an argument file.
QByteArray run_exiftool(const QStringList &arguments);
