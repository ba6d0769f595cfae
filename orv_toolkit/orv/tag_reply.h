// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/tag_map.h"

#include <QString>

namespace orv
{

/// The tags in the metadata tool's reply to a read with `-args`, one `-Name=Value` line each
/// (exiftool(1), option -args).
///
/// A line without "=" is skipped, such as the end marker or a further line of a value. A value ends
/// at a second "=". Names and values are trimmed. If a name occurs twice, the last one wins.
tag_map parse_tag_reply(const QString &reply);

/// The text that marks the end of a reply; nothing else is on its line.
extern const char ready_text[];

}  // namespace orv
