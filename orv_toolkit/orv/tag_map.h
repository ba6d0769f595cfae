// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <map>
#include <string>

namespace orv
{

/// Tag name to value, both UTF-8; in the byte order of the names. A name carries its group
/// ("ExifIFD:DateTimeOriginal") where the caller asked for it.
using tag_map = std::map<std::string, std::string>;

}  // namespace orv

using orv::tag_map;
