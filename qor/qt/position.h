// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

namespace qor::qt
{

/// A place in the grid of a layout. Ordered row by row, each from left to right.
struct position {
    std::int32_t column = 0;
    std::int32_t row = 0;

    /// row * 2^32 + column, by which positions are compared.
    std::int64_t rank() const { return row * (std::int64_t(1) << 32) + column; }
};

inline bool operator<(const position &left, const position &right)
{
    return left.rank() < right.rank();
}

}  // namespace qor::qt
