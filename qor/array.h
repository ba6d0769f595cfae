// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <utility>

namespace qor
{

/// A contiguous range of elements that either borrows its memory or owns it.
template <class T>
class array
{
public:
    array() = default;

    /// @param owned  true: `data` comes from `new T[]` and is deleted with the array;
    ///               false: it is borrowed and must outlive the array
    array(T *data, std::int32_t length, bool owned) : data(data), length(length), owned(owned) {}
    ~array()
    {
        if (owned)
            delete[] data;
    }

    array(array &&other) noexcept { swap(other); }
    array &operator=(array &&other) noexcept
    {
        swap(other);
        return *this;
    }

    T *begin() const { return data; }
    T *end() const { return data + length; }
    T &operator[](std::int32_t index) const { return data[index]; }

    T *data = nullptr;
    std::int32_t length = 0;
    bool owned = false;

private:
    void swap(array &other)
    {
        std::swap(data, other.data);
        std::swap(length, other.length);
        std::swap(owned, other.owned);
    }
};

}  // namespace qor
