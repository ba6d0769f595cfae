// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "qor/string.h"
#include "random_trial.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <set>

using texts = std::vector<std::string>;

namespace
{

constexpr std::size_t none = std::string::npos;

// A second implementation of the splitting: it makes lists of places instead of a single pass.

/// The pieces of `text` between the characters at `places`.
texts cut_at(const std::string &text, const std::vector<std::size_t> &places)
{
    texts pieces;
    std::size_t start = 0;
    for (const std::size_t place : places) {
        pieces.push_back(text.substr(start, place - start));
        start = place + 1;
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

texts cut_at_character(const std::string &text, char separator, int limit)
{
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < text.size(); ++place)
        if (text[place] == separator)
            places.push_back(place);
    if (limit > 0 && places.size() > static_cast<std::size_t>(limit))
        places.resize(static_cast<std::size_t>(limit));
    return cut_at(text, places);
}

/// For each character from `from` on, whether the number of quotes up to and including it is even.
std::vector<bool> outside_quotes(const std::string &text, std::size_t from, bool quotes)
{
    std::vector<bool> outside(text.size(), true);
    bool even = true;
    for (std::size_t place = from; quotes && place < text.size(); ++place) {
        if (text[place] == '\'' || text[place] == '"')
            even = !even;
        outside[place] = even;
    }
    return outside;
}

/// The end of the first run of the separator's characters that is as long as the separator. A run
/// that ends early also consumes the character that ended it.
std::size_t end_of_separator(const std::string &text, const std::string &separator,
                             std::size_t from, bool quotes)
{
    if (from >= text.size())
        return none;
    if (separator.empty())
        return from - 1;
    const std::vector<bool> outside = outside_quotes(text, from, quotes);
    for (std::size_t run = from; run < text.size(); ++run) {
        std::size_t length = 0;
        while (length < separator.size() && run + length < text.size() && outside[run + length] &&
               text[run + length] == separator[length])
            ++length;
        run += length;
        if (length == separator.size())
            return run == text.size() ? none : run - 1;
    }
    return none;
}

/// What `cut_at_separator` returns as the last piece.
std::string remainder(const std::string &text, std::size_t start, std::size_t length)
{
    return start < text.size() ? text.substr(start, length) : std::string();
}

texts cut_at_separator(const std::string &text, const std::string &separator, int limit,
                       bool quotes, bool keep_empty)
{
    texts pieces;
    std::size_t start = 0;
    std::size_t found = end_of_separator(text, separator, 0, quotes);
    for (int cuts = 1; found != none; ++cuts) {
        const std::string piece = text.substr(start, found - start);
        if ((keep_empty || !piece.empty()) && piece != separator)
            pieces.push_back(piece);
        start = found + separator.size();
        found = end_of_separator(text, separator, start, quotes);
        if (cuts == limit) {
            const std::size_t length = found == none ? none : text.size() - found;
            pieces.push_back(remainder(text, start, length));
            return pieces;
        }
    }
    pieces.push_back(remainder(text, start, none));
    return pieces;
}

// Inputs

const texts letters = {"a", "b",  ":",    " ",    "'",    "\"",   "=",
                       ";", "::", "2017", "\xff", "\x80", "aaab", std::string(1, '\0')};
const texts dates = {
    "2017:05:03 12:00:00", "2017:05:03", ":05:03", "2017::05:03", "2017:05:", ":", "",
    "12:00:00+02:00"};
const texts separators = {":",    ":",  ":",  " ",   "a",   "'",    "ab",    "aab",
                          "::",   "a'", "'a", "\"b", "a:b", "abab", "bbbbb", std::string(1, '\0'),
                          "\xff", ""};

std::string random_text(random_source &random)
{
    if (random.once_in(3))
        return random.damaged(random.one_of(dates), letters);
    return random.joined(letters, 16);
}

int random_limit(random_source &random)
{
    static const std::vector<int> limits = {
        0, 0, 1, 1, 2, 3, 5, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    return random.one_of(limits);
}

std::size_t random_start(random_source &random, std::size_t size)
{
    if (random.once_in(50))
        return none - random.below(2);
    return random.once_in(2) ? 0 : random.below(size + 3);
}

texts plain(const std::vector<qor::string> &pieces)
{
    return {pieces.begin(), pieces.end()};
}

texts handed_over(const std::string &text, char separator, int limit)
{
    texts pieces;
    const auto keep = [&](qor::array<char> &piece) {
        pieces.emplace_back(piece.begin(), piece.end());
    };
    qor::string::split(text, separator, keep, limit);
    return pieces;
}

}  // namespace

class test_random_strings : public QObject
{
    Q_OBJECT

private slots:
    void characters_cut_any_text();
    void separators_are_found_in_any_text();
    void separators_cut_any_text();
    void any_texts_are_joined();
};

void test_random_strings::characters_cut_any_text()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const std::string text = random_text(random);
        const std::string cut = random.one_of(letters);
        const int limit = random_limit(random);
        const texts expected = cut_at_character(text, cut[0], limit);
        trial.note_if(text.empty(), "empty text");
        trial.note_if(expected.size() == 1, "not cut");
        trial.note_if(expected.size() > 3, "cut often");
        trial.note_if(expected.back().empty() && !text.empty(), "cut at the end");
        trial.note_if(limit > 0 && expected.back().find(cut[0]) != none, "limit reached");
        const texts actual = plain(qor::string::split(text, cut[0], limit));
        const texts views = handed_over(text, cut[0], limit);
        if (actual == expected && views == expected)
            return {};
        return escaped(std::string_view(text)) + " at " + escaped(std::string_view(cut)) +
               " with limit " + std::to_string(limit) + " gives " + escaped(actual) + " and " +
               escaped(views) + ", not " + escaped(expected);
    });
    const QByteArray complaint = trial.complaint({{"empty text", 10000},
                                                  {"not cut", 100000},
                                                  {"cut often", 50000},
                                                  {"cut at the end", 20000},
                                                  {"limit reached", 50000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_strings::separators_are_found_in_any_text()
{
    random_trial trial;
    trial.repeat(1500000, [&](random_source &random) -> std::string {
        const qor::string text = random_text(random);
        const std::string separator = random.one_of(separators);
        const std::size_t from = random_start(random, text.size());
        const bool quotes = random.once_in(2);
        const std::size_t expected = end_of_separator(text, separator, from, quotes);
        trial.note(from >= text.size() ? "from the end"
                   : separator.empty() ? "empty separator"
                   : expected == none  ? "not found"
                                       : "found");
        trial.note_if(separator.size() > 1 && expected < text.size(), "found a long one");
        trial.note_if(quotes && end_of_separator(text, separator, from, false) != expected,
                      "quotes matter");
        trial.note_if(expected == none && from < text.size() && !separator.empty() &&
                          text.compare(text.size() - std::min(text.size(), separator.size()), none,
                                       separator) == 0,
                      "only at the end");
        const std::size_t actual = text.find_outside_quotes(separator, from, quotes);
        if (actual == expected)
            return {};
        return escaped(std::string_view(separator)) + " in " + escaped(std::string_view(text)) +
               " from " + std::to_string(from) + (quotes ? " outside quotes" : "") + " is at " +
               std::to_string(actual) + ", not " + std::to_string(expected);
    });
    const QByteArray complaint = trial.complaint({{"from the end", 20000},
                                                  {"empty separator", 20000},
                                                  {"not found", 100000},
                                                  {"found", 100000},
                                                  {"found a long one", 20000},
                                                  {"quotes matter", 20000},
                                                  {"only at the end", 10000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_strings::separators_cut_any_text()
{
    random_trial trial;
    trial.repeat(1500000, [&](random_source &random) -> std::string {
        const std::string text = random_text(random);
        const std::string separator = random.one_of(separators);
        const int limit = random_limit(random);
        const bool quotes = random.once_in(2);
        const bool keep_empty = random.once_in(2);
        const texts expected = cut_at_separator(text, separator, limit, quotes, keep_empty);
        trial.note_if(text.empty(), "empty text");
        trial.note_if(expected.size() == 3, "three pieces");
        trial.note_if(separator.size() > 1 && expected.size() > 1, "long separator cuts");
        trial.note_if(expected.back().empty() && !text.empty(), "nothing left");
        trial.note_if(limit > 0 &&
                          expected != cut_at_separator(text, separator, 0, quotes, keep_empty),
                      "limit matters");
        trial.note_if(expected != cut_at_separator(text, separator, limit, quotes, !keep_empty),
                      "empty pieces matter");
        trial.note_if(expected != cut_at_separator(text, separator, limit, !quotes, keep_empty),
                      "quotes matter");
        const texts actual =
            plain(qor::string::split(text, qor::string(separator), limit, quotes, keep_empty));
        if (actual == expected)
            return {};
        return escaped(std::string_view(text)) + " at " + escaped(std::string_view(separator)) +
               " with limit " + std::to_string(limit) + (quotes ? " outside quotes" : "") +
               (keep_empty ? " with empty pieces" : "") + " gives " + escaped(actual) + ", not " +
               escaped(expected);
    });
    const QByteArray complaint = trial.complaint({{"empty text", 10000},
                                                  {"three pieces", 50000},
                                                  {"long separator cuts", 20000},
                                                  {"nothing left", 2000},
                                                  {"limit matters", 20000},
                                                  {"empty pieces matter", 20000},
                                                  {"quotes matter", 20000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_strings::any_texts_are_joined()
{
    random_trial trial;
    trial.repeat(300000, [&](random_source &random) -> std::string {
        std::vector<qor::string> parts;
        for (std::size_t count = random.below(6); count > 0; --count)
            parts.emplace_back(random_text(random));
        const char separator = random.one_of(letters)[0];
        const std::set<std::string> sorted(parts.begin(), parts.end());
        const auto appended = [&](const std::string &before, const std::string &part) {
            return before + separator + part;
        };
        const std::string row =
            std::accumulate(parts.begin(), parts.end(), std::string(), appended);
        const std::string sorted_row =
            std::accumulate(sorted.begin(), sorted.end(), std::string(), appended);
        trial.note(parts.empty() ? "none" : parts.size() == 1 ? "one" : "several");
        trial.note_if(sorted.size() < parts.size(), "same text twice");
        const bool same = qor::string::join(parts, separator) == row.substr(!parts.empty()) &&
                          qor::string::join(sorted, separator) == sorted_row.substr(!parts.empty());
        return same ? std::string() : escaped(plain(parts));
    });
    const QByteArray complaint = trial.complaint(
        {{"none", 10000}, {"one", 10000}, {"several", 100000}, {"same text twice", 1000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

KELVRA_CORE_TEST_MAIN(test_random_strings)
#include "test_random_strings.moc"
