// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/string.h"

#include <algorithm>

namespace qor
{

namespace
{

/// Calls `take(start, length)` for each piece of `text` between the separators.
template <class Take>
void for_each_piece(const std::string &text, char separator, int limit, Take take)
{
    std::size_t start = 0;
    int cuts = 0;
    for (std::size_t at = text.find(separator); at != std::string::npos;
         at = text.find(separator, start)) {
        take(start, at - start);
        start = at + 1;
        if (limit > 0 && ++cuts == limit)
            break;
    }
    take(start, text.size() - start);
}

bool is_quote(char character)
{
    return character == '\'' || character == '"';
}

/// Like `substr`, but empty if `start` is past the end.
string part_of(const string &text, std::size_t start, std::size_t length)
{
    return text.substr(std::min(start, text.size()), length);
}

}  // namespace

std::vector<string> string::split(const string &text, char separator, int limit)
{
    std::vector<string> pieces;
    for_each_piece(text, separator, limit, [&](std::size_t start, std::size_t length) {
        pieces.emplace_back(text.substr(start, length));
    });
    return pieces;
}

void string::split(const string &text, char separator, std::function<void(array<char> &)> callback,
                   int limit)
{
    char *const characters = const_cast<char *>(text.data());
    for_each_piece(text, separator, limit, [&](std::size_t start, std::size_t length) {
        array<char> piece(characters + start, static_cast<std::int32_t>(length), false);
        callback(piece);
    });
}

std::vector<string> string::split(const string &text, const string &separator, int limit,
                                  bool quotes, bool keep_empty)
{
    std::vector<string> pieces;
    std::size_t start = 0;
    std::size_t found = text.find_outside_quotes(separator, 0, quotes);
    int cuts = 0;
    while (found != npos) {
        const string piece = part_of(text, start, found - start);
        if ((keep_empty || !piece.empty()) && piece != separator)
            pieces.push_back(piece);
        start = found + separator.size();
        found = text.find_outside_quotes(separator, start, quotes);
        if (limit > 0 && ++cuts == limit)
            break;
    }
    // After a limit, `found` is the last character of the next separator, and the remainder is cut
    // to the length of the text from there on. If there is no next separator, `found` is npos, the
    // length reaches past the end, and nothing is cut.
    pieces.push_back(part_of(text, start, text.size() - found));
    return pieces;
}

std::size_t string::find_outside_quotes(const string &separator, std::size_t from,
                                        bool quotes) const
{
    if (from >= size())
        return npos;
    if (separator.empty())
        return from - 1;
    bool inside_quotes = false;
    std::size_t matched = 0;
    for (std::size_t index = from; index < size(); ++index) {
        const char character = (*this)[index];
        if (quotes && is_quote(character))
            inside_quotes = !inside_quotes;
        if (inside_quotes || character != separator[matched]) {
            matched = 0;
            continue;
        }
        ++matched;
        if (index == size() - 1)
            return npos;
        if (matched == separator.size())
            return index;
    }
    return npos;
}

}  // namespace qor
