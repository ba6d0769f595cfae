// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace orv
{

/// A library that the program uses, as `dialog_3rd_part_lib_info` lists it.
struct library_entry {
    QString name;              ///< shown in bold
    QString note;              ///< shown below the name; may have several lines
    QString license_resource;  ///< path of a text in UTF-8 to show below; empty for none
    int width = 0;             ///< pixels, like the next one; set when the entry is laid out
    int height = 0;
};

}  // namespace orv
