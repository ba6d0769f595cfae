// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "real_tool_window.h"

/// A batch with files at fault in it, between two photos that are all right.
class faulty_batch : public real_tool_window
{
public:
    faulty_batch();

    /// Opens the window over a folder with the two good photos and an empty folder "sub".
    void start();

    /// Also where a test took rights from "sub".
    void end();

    /// A copy of a good photo, whole and dated as that is, at a path within the folder.
    QString put_photo(const QString &name) const;

    /// Loads `paths` between the good photos.
    void load(const QStringList &paths) const;

    /// Fixes all by an hour and keeps what was done. The paths that were named as failed.
    QStringList fix() const;

    /// The texts of the boxes that came up, which should be none.
    QStringList undo() const;

    /// "tag=value" of each date tag that the photo has, and whether its picture is the first one.
    QStringList dates(const QString &name) const;

    /// The dates of both good photos, if they are the same.
    QStringList good_dates() const;

    /// All that is in the folder and below, hidden or not.
    QStringList contents() const;

private:
    QTemporaryDir originals;
};

/// What `dates` gives of a photo as it was put and as it is when fixed by an hour.
extern const QStringList first_dates;
extern const QStringList fixed_dates;

/// All by which a file could show that it was touched, but for its name and the time of its
/// last access.
QStringList file_state(const QString &path);
