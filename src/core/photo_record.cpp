// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/photo_record.h"

const std::string &value_of(const tag_map &tags, const std::string &key)
{
    static const std::string no_value;
    const auto found = tags.find(key);
    return found == tags.end() ? no_value : found->second;
}

std::size_t zone_start(const std::string &time)
{
    const std::size_t plus = time.rfind('+');
    return plus == std::string::npos ? time.rfind('-') : plus;
}
