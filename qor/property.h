// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace qor
{

/// One instruction to a cell of a layout, such as a margin: the kind, by number, and in the derived
/// records a value.
///
/// There is one object for each kind (`qor::qt::properties`), and a screen passes its address
/// around. So a value lives until the same kind is written again: a list of properties is used up
/// at once, never kept. For the GUI thread only.
struct property {
    property();
    property(const property &) = delete;
    property &operator=(const property &) = delete;

    const int id;  ///< counted from 0 on in the order of making; means nothing but the kind
};

/// What a screen says about one cell, in the order in which it is applied. Borrowed pointers.
using property_list = std::vector<property *>;

/// A kind with one value.
template <class Value>
struct value_property : property {
    /// Stores the value, and returns this for a list of properties.
    property *operator()(Value new_value)
    {
        value = std::move(new_value);
        return this;
    }

    Value value = Value();
};

/// A kind with `Count` numbers.
template <std::size_t Count>
struct numbers_property : property {
    /// Stores one to `Count` numbers, and returns this. Of fewer the last one is repeated.
    template <class... Numbers>
    property *operator()(int first, Numbers... others)
    {
        const std::array<int, 1 + sizeof...(Numbers)> given = {first, others...};
        static_assert(given.size() <= Count, "more numbers than the kind has");
        for (std::size_t i = 0; i < Count; ++i)
            values[i] = given[std::min(i, given.size() - 1)];
        return this;
    }

    std::array<int, Count> values = {};
};

}  // namespace qor
