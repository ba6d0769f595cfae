// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/tag_map.h"

#include <QString>

namespace orv
{

/// The tags in a reply of the metadata tool to a read with `-args`, a `-Name=Value` line each
/// (exiftool(1), option -args).
///
/// A line without "=" is skipped, so the end marker and the further lines of a value fall away. A
/// value ends at a second "=". Names and values are trimmed; of two lines with one name the later
/// stands.
tag_map parse_tag_reply(const QString &reply);

/// The text that the reply marks its end with, alone on its last line.
extern const char ready_text[];

}  // namespace orv
