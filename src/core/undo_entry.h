// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The saved state of one tag of a file.
struct undo_entry {
    QString tag;           ///< with its group, such as "IPTC:DateCreated"
    bool existed = false;  ///< the file had the tag when it was read
    QString value;         ///< to write back; empty if the tag didn't exist, which removes it
};
