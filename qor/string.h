// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/array.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace qor
{

/// A standard string of bytes, with the kit's functions that split and join.
class string : public std::string
{
public:
    using std::string::string;
    string() = default;
    string(const std::string &text) : std::string(text) {}
    string(std::string &&text) : std::string(std::move(text)) {}

    /// Splits `text` at each `separator`, or only at the first `limit` ones if that is above 0.
    ///
    /// The text after the last separator is always the last piece, even if it is empty, so an empty
    /// text gives one empty piece.
    static std::vector<string> split(const string &text, char separator, int limit);

    /// Splits in the same way, but without copying: each piece is passed to `callback` as a view of
    /// `text`, which is read-only and valid only during the call.
    static void split(const string &text, char separator,
                      std::function<void(array<char> &)> callback, int limit);

    /// Splits `text` at each `separator`, or only at the first `limit` ones if that is above 0.
    ///
    /// Made for separators of one character: a separator of N characters swallows the N - 1
    /// characters after it, and its own first N - 1 characters stay at the end of the piece before
    /// it. A separator that ends on the text's last character doesn't split. Pieces equal to the
    /// separator are left out, and so are empty ones unless `keep_empty` is true; the remainder is
    /// always the last piece.
    /// @param quotes  a separator between apostrophes or double quotes doesn't split
    static std::vector<string> split(const string &text, const string &separator, int limit = 0,
                                     bool quotes = false, bool keep_empty = false);

    /// The index of the last character of the first `separator` at or after `from`, or `npos`.
    ///
    /// A match that ends on the text's last character doesn't count. The search never goes back:
    /// after a mismatch inside a partial match it continues after the mismatching character. An
    /// empty separator gives `from - 1`.
    /// @param quotes  characters between apostrophes or double quotes don't match; either quote
    ///                ends what the other began
    std::size_t find_outside_quotes(const string &separator, std::size_t from, bool quotes) const;

    /// The elements of a set or a vector of strings in their order, with `separator` between them.
    template <class Strings>
    static string join(const Strings &parts, char separator)
    {
        string joined;
        bool first = true;
        for (const auto &part : parts) {
            if (!first)
                joined += separator;
            joined += part;
            first = false;
        }
        return joined;
    }
};

}  // namespace qor
