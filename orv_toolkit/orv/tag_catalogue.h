// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <set>
#include <string>
#include <vector>

namespace orv
{

/// Names, without groups, of the tags that the metadata tool reports but can't write back: computed
/// and read-only tags of all the formats that it supports. 8830 names in byte order.
extern const std::vector<std::string> tag_catalogue;

/// Extensions of the files that the tool opens, in lower case and without the dot.
extern const std::set<std::string> supported_extensions;

/// Names, without groups, of the file system's dates.
extern const std::vector<std::string> file_date_tags;

}  // namespace orv
