// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

namespace qor::qt
{

/// A position in the grid of a layout. Positions are ordered by row, then from left to right.
struct position {
    std::int32_t column = 0;
    std::int32_t row = 0;

    /// The number by which positions are compared: row * 2^32 + column.
    std::int64_t rank() const { return row * (std::int64_t(1) << 32) + column; }
};

inline bool operator<(const position &left, const position &right)
{
    return left.rank() < right.rank();
}

}  // namespace qor::qt
