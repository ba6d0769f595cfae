// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Gives this process a view of its own on the mounted file systems. Call it at the start of
/// `main`, before there are threads. Where the machine refuses, nothing is changed, and no volume
/// can be mounted.
void enter_private_mounts();

/// A small file system in memory over a folder, seen by this process and its children alone.
class temporary_volume
{
public:
    /// @param folder  an empty folder
    temporary_volume(const QString &folder, int pages);
    ~temporary_volume();
    temporary_volume(const temporary_volume &) = delete;
    temporary_volume &operator=(const temporary_volume &) = delete;

    /// False where the machine doesn't let this process mount.
    bool is_mounted() const { return mounted; }

    void make_read_only() const;

    /// Fills the volume up to so many pages, by a file "filler".
    void leave_room(int pages) const;

    /// Takes the filler away again.
    void make_room() const;

    static int page_size();

private:
    QString filler() const { return folder + "/filler"; }

    QString folder;
    bool mounted;
};
