// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "real_tool_window.h"

/// A batch with faulty files between two good photos.
class faulty_batch : public real_tool_window
{
public:
    faulty_batch();

    /// Opens the window and makes a folder with the two good photos and an empty folder "sub".
    void start();

    /// Works even if a test has removed permissions from "sub".
    void end();

    /// Puts a copy of a good photo, with the same dates, at a path within the folder.
    QString put_photo(const QString &name) const;

    /// Loads `paths` between the good photos.
    void load(const QStringList &paths) const;

    /// Shifts all photos by an hour and keeps the changes. Returns the paths reported as failed.
    QStringList fix() const;

    /// Returns the texts of the boxes that opened; there should be none.
    QStringList undo() const;

    /// "tag=value" for each date tag of the photo, and whether its picture is the original one.
    QStringList dates(const QString &name) const;

    /// The dates of the good photos, if both have the same ones.
    QStringList good_dates() const;

    /// Everything in the folder and its subfolders, including hidden files.
    QStringList contents() const;

private:
    QTemporaryDir originals;
};

/// What `dates` returns for a photo as it was put there, and after it was fixed by an hour.
extern const QStringList first_dates;
extern const QStringList fixed_dates;

/// Everything by which a file could show that it was touched, except its name and its last access
/// time.
QStringList file_state(const QString &path);
