// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Gives this process a private view of the mounted file systems. If the machine refuses, nothing
/// changes, and no volume can be mounted.
/// Requires: called at the start of `main`, before there are threads.
void enter_private_mounts();

/// A small in-memory file system mounted on a folder, visible only to this process and its
/// children.
class temporary_volume
{
public:
    /// @param folder  an empty folder
    temporary_volume(const QString &folder, int pages);
    ~temporary_volume();
    temporary_volume(const temporary_volume &) = delete;
    temporary_volume &operator=(const temporary_volume &) = delete;

    /// False if the machine doesn't let this process mount.
    bool is_mounted() const { return mounted; }

    void make_read_only() const;

    /// Fills the volume with a file "filler" until only this many pages are free.
    void leave_room(int pages) const;

    /// Removes the filler.
    void make_room() const;

    static int page_size();

private:
    QString filler() const { return folder + "/filler"; }

    QString folder;
    bool mounted;
};
