// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/to_int.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace
{

bool is_number_character(char character)
{
    return (character >= '0' && character <= '9') || character == '-';
}

}  // namespace

int to_int(const std::string &text, int default_value)
{
    const auto begin = std::find_if(text.begin(), text.end(), is_number_character);
    if (begin == text.end())
        return default_value;
    const char *first = text.data() + (begin - text.begin());
    int number = 0;
    if (std::from_chars(first, text.data() + text.size(), number).ec == std::errc())
        return number;
    return std::stoi(std::string(begin, text.end()));  // throws
}
