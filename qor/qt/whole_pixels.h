// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace qor::qt
{

/// The count, or the nearest int if it doesn't fit in one.
inline int whole_pixels(std::int64_t count)
{
    using limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(count, limits::min(), limits::max()));
}

/// The length truncated toward zero, or the nearest int if it doesn't fit in one; NaN counts as 0.
inline int whole_pixels(float length)
{
    constexpr float beyond_an_int = 2147483648.0F;
    if (length >= beyond_an_int)
        return std::numeric_limits<int>::max();
    if (length < -beyond_an_int)
        return std::numeric_limits<int>::min();
    return length == length ? static_cast<int>(length) : 0;
}

}  // namespace qor::qt
