// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace qor
{

/// One instruction for a cell of a layout, such as a margin: its kind, as a number, and in the
/// derived types a value.
///
/// There is one object for each kind (`qor::qt::properties`), and screens pass its address around.
/// For the GUI thread only. Note: a value lasts only until the same kind is used again. Requires: a
/// list of properties is applied immediately and never kept.
struct property {
    property();
    property(const property &) = delete;
    property &operator=(const property &) = delete;

    const int id;  ///< counts from 0 in the order of construction; identifies the kind
};

/// The properties of one cell, in the order in which they are applied. Borrowed pointers.
using property_list = std::vector<property *>;

/// A kind with one value.
template <class Value>
struct value_property : property {
    /// Stores the value and returns `this` for a list of properties.
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
    /// Stores one to `Count` numbers and returns `this`. If there are fewer, the last one is
    /// repeated.
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
