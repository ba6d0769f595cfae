// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Random numbers and texts, the same on every machine for a given seed: the decimal number in the
/// environment variable KELVRA_RANDOM_SEED, or a fixed one if that isn't set.
class random_source
{
public:
    random_source() : seed(chosen_seed()), engine(seed) {}

    std::uint64_t bits() { return engine(); }
    std::size_t below(std::size_t bound) { return engine() % bound; }
    bool once_in(std::size_t times) { return below(times) == 0; }

    template <class Item>
    const Item &one_of(const std::vector<Item> &items)
    {
        return items[below(items.size())];
    }

    /// Up to `most` of the pieces, joined; one text in 20000 is a thousand times as long.
    std::string joined(const std::vector<std::string> &pieces, std::size_t most)
    {
        std::string text;
        const std::size_t count = below(most + 1) * (once_in(20000) ? 1000 : 1);
        for (std::size_t piece = 0; piece < count; ++piece)
            text += one_of(pieces);
        return text;
    }

    /// The text with up to three random errors; one in four stays unchanged.
    std::string damaged(std::string text, const std::vector<std::string> &pieces)
    {
        for (std::size_t faults = below(4); faults > 0; --faults)
            damage(text, pieces);
        return text;
    }

    const std::uint64_t seed;

private:
    static std::uint64_t chosen_seed()
    {
        const char *text = std::getenv("KELVRA_RANDOM_SEED");
        return text != nullptr ? std::strtoull(text, nullptr, 10) : 20170503;
    }

    void damage(std::string &text, const std::vector<std::string> &pieces)
    {
        const std::size_t place = below(text.size() + 1);
        const std::size_t length = 1 + below(4);
        switch (below(7)) {
        case 0:
            text.erase(place, length);
            break;
        case 1:
            text.insert(place, one_of(pieces));
            break;
        case 2:
            text.insert(place, text.substr(place, length));
            break;
        case 3:
            text.insert(place, 1, '\0');
            break;
        case 4:
            text.insert(place, 1, static_cast<char>(0x80 + below(0x80)));
            break;
        case 5:
            text.resize(place);
            break;
        default:
            text.replace(place, length, one_of(pieces));
        }
    }

    std::mt19937_64 engine;
};

/// `bytes` quoted, in ASCII, with other bytes as `\xNN`; very long texts are cut.
inline std::string escaped(std::string_view bytes)
{
    constexpr std::size_t limit = 2000;
    constexpr char digits[] = "0123456789abcdef";
    std::string shown = "\"";
    for (const char byte : bytes.substr(0, limit)) {
        const auto code = static_cast<unsigned char>(byte);
        if (code >= ' ' && code < 0x7f && byte != '\\' && byte != '"')
            shown += byte;
        else
            shown.append("\\x").append(1, digits[code / 16]).append(1, digits[code % 16]);
    }
    shown += '"';
    return bytes.size() <= limit ? shown : shown + "... of " + std::to_string(bytes.size());
}

/// `text` quoted, in ASCII, with other characters as `\uNNNN`; very long texts are cut.
inline std::string escaped(const QString &text)
{
    QString shown;
    for (const QChar letter : text.left(2000)) {
        const ushort code = letter.unicode();
        const bool plain = code >= ' ' && code < 0x7f && code != '\\' && code != '"';
        shown += plain ? QString(letter) : QString("\\u%1").arg(code, 4, 16, QChar('0'));
    }
    return "\"" + shown.toStdString() + "\"";
}

inline std::string escaped(const std::vector<std::string> &texts)
{
    std::string shown = "[";
    for (const std::string &text : texts)
        shown += (shown.size() > 1 ? ", " : "") + escaped(std::string_view(text));
    return shown + "]";
}

inline std::string escaped(const std::map<std::string, std::string> &texts)
{
    std::string shown = "{";
    for (const auto &[name, value] : texts)
        shown += escaped(std::string_view(name)) + ": " + escaped(std::string_view(value)) + " ";
    return shown + "}";
}

#ifdef __SANITIZE_ADDRESS__
constexpr int rounds_in_one = 5;  // allocations are slow there, since each records its stack
#else
constexpr int rounds_in_one = 1;
#endif

/// Feeds many random inputs to a function and compares its results with those of a second
/// implementation. Keeps the first mismatch and counts how often each outcome was reached. A build
/// with the address sanitizer uses a fifth of the inputs and expects a fifth of the outcomes.
class random_trial
{
public:
    /// Calls `round` with the random source up to `times` times, until it returns the description
    /// of a mismatch instead of an empty text.
    template <class Round>
    void repeat(int times, Round &&round)
    {
        for (int index = 0; index < times / rounds_in_one && mismatch.empty(); ++index) {
            mismatch = round(random);
            if (!mismatch.empty())
                mismatch += " (round " + std::to_string(index) + ", seed " +
                            std::to_string(random.seed) + ")";
        }
    }

    void note(const char *outcome) { ++outcomes[outcome]; }
    void note_if(bool reached, const char *outcome)
    {
        if (reached)
            note(outcome);
    }

    /// The mismatch, or else the outcomes that were reached less often than expected; empty if all
    /// is well.
    QByteArray complaint(const std::vector<std::pair<const char *, int>> &expected) const
    {
        std::string message = mismatch;
        for (const auto &[outcome, least] : expected) {
            const auto found = outcomes.find(outcome);
            const int count = found == outcomes.end() ? 0 : found->second;
            if (mismatch.empty() && count < least / rounds_in_one)
                message += std::to_string(count) + " inputs: " + outcome + "; ";
        }
        return QByteArray::fromStdString(message);
    }

private:
    random_source random;
    std::string mismatch;
    std::map<std::string_view, int> outcomes;
};
