// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// Photos made for a test, and separate ExifTool runs to look at them: nothing here goes through
/// the program.

/// Makes a small picture at `path` with tags such as
/// "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00".
void make_jpeg(const QString &path, const QStringList &tags = QStringList());
void make_png(const QString &path, const QStringList &tags = QStringList());
void make_tiff(const QString &path, const QStringList &tags = QStringList());

/// Writes tags into a file in place, each given as "Group:Name=Value".
void set_tags(const QString &path, const QStringList &tags);

/// All tags of a file by "Group:Name", including those hidden by another of the same name.
QMap<QString, QString> all_tags(const QString &path);

/// One tag of a file; empty if the file doesn't have it.
QString tag_of(const QString &path, const QString &name);

/// The picture without its metadata. Equal bytes mean that the picture is unharmed.
QByteArray picture_data(const QString &path);

/// Standard output of ExifTool, run with these arguments through an argument file.
QByteArray run_exiftool(const QStringList &arguments);
