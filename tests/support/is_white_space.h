// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// Whether Unicode counts this UTF-16 unit as white space: it has the property White_Space in the
/// file PropList.txt.
inline bool is_white_space(char16_t unit)
{
    return (unit >= 9 && unit <= 13) || unit == 0x20 || unit == 0x85 || unit == 0xa0 ||
           unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200a) || unit == 0x2028 ||
           unit == 0x2029 || unit == 0x202f || unit == 0x205f || unit == 0x3000;
}
