// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <map>
#include <string>

namespace orv
{

/// Maps tag names to values, both in UTF-8, in the byte order of the names. A name includes its
/// group ("ExifIFD:DateTimeOriginal") if the caller requested it.
using tag_map = std::map<std::string, std::string>;

}  // namespace orv

using orv::tag_map;
