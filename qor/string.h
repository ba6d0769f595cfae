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

/// A byte string with the kit's text cutting on top of the standard string.
class string : public std::string
{
public:
    using std::string::string;
    string() = default;
    string(const std::string &text) : std::string(text) {}
    string(std::string &&text) : std::string(std::move(text)) {}

    /// Cuts `text` at each `separator`, at the first `limit` ones only where that is above 0.
    ///
    /// What stands behind the last cut is always the last piece, also if it is empty, so an empty
    /// text gives one empty piece.
    static std::vector<string> split(const string &text, char separator, int limit);

    /// The same cutting, without a copy: each piece goes to `callback` as a view over `text`, to
    /// be read only, valid during the call.
    static void split(const string &text, char separator,
                      std::function<void(array<char> &)> callback, int limit);

    /// Cuts `text` at each `separator`, at the first `limit` ones only where that is above 0.
    ///
    /// A separator that ends on the text's last character doesn't cut. A piece starts behind its
    /// separator's last character plus the separator's length less one, and keeps all characters
    /// of the next separator but the last: made for separators of one character. Pieces equal to
    /// the separator are left out, empty ones too unless `keep_empty`; the remainder is always
    /// the last piece.
    /// @param quotes  a separator between apostrophes or double quotes doesn't cut
    static std::vector<string> split(const string &text, const string &separator, int limit = 0,
                                     bool quotes = false, bool keep_empty = false);

    /// The index of the last character of the first `separator` from `from` on, or `npos`.
    ///
    /// A match that ends on the text's last character is no hit. The search never goes back: a
    /// mismatch inside a started match goes on behind the mismatching character. An empty
    /// separator gives `from - 1`.
    /// @param quotes  characters between apostrophes or double quotes, both alike, don't match
    std::size_t find_outside_quotes(const string &separator, std::size_t from, bool quotes) const;

    /// The elements of a set or a vector of strings in their order, `separator` between them.
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
