// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/to_int.h"
#include "core/zone_text.h"
#include "core_test_main.h"
#include "is_white_space.h"
#include "random_trial.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

using texts = std::vector<std::string>;

namespace
{

// A second implementation of `to_int`: it keeps the digits as text, so no number type can overflow.

struct number {
    enum { none, value, no_digits, too_great } kind = none;
    std::string digits;  ///< with the sign, without leading zeros
};

bool is_digit(char byte)
{
    return byte >= '0' && byte <= '9';
}

number first_number(const std::string &text)
{
    std::size_t place = 0;
    while (place < text.size() && !is_digit(text[place]) && text[place] != '-')
        ++place;
    if (place == text.size())
        return {};
    const bool negative = text[place] == '-';
    place += negative ? 1 : 0;
    std::size_t end = place;
    while (end < text.size() && is_digit(text[end]))
        ++end;
    if (end == place)
        return {number::no_digits, {}};
    while (place + 1 < end && text[place] == '0')
        ++place;
    const std::string digits = text.substr(place, end - place);
    const std::string limit = negative ? "2147483648" : "2147483647";
    if (digits.size() > limit.size() || (digits.size() == limit.size() && digits > limit))
        return {number::too_great, {}};
    return {number::value, negative && digits != "0" ? "-" + digits : digits};
}

std::string thrown_or_read(const std::string &text, int default_value)
{
    try {
        return std::to_string(to_int(text, default_value));
    } catch (const std::invalid_argument &error) {
        return std::string("invalid ") + error.what();
    } catch (const std::out_of_range &error) {
        return std::string("out of range ") + error.what();
    }
}

std::string expected_number(const number &found, int default_value)
{
    switch (found.kind) {
    case number::value:
        return found.digits;
    case number::no_digits:
        return "invalid stoi";
    case number::too_great:
        return "out of range stoi";
    default:
        return std::to_string(default_value);
    }
}

// A second implementation of the zone's hours: each part is read from the one or two characters
// that make a number, and the arithmetic is in double precision, rounded after each step.

int digit_of(QChar letter)
{
    return QString("0123456789").indexOf(letter);
}

/// The number that the one or two characters at `place` form, 0 if they form none.
int number_at(const QString &zone, int place)
{
    QString part = zone.mid(place, 2);
    while (!part.isEmpty() && is_white_space(part[0].unicode()))
        part.remove(0, 1);
    while (!part.isEmpty() && is_white_space(part[part.size() - 1].unicode()))
        part.chop(1);
    if (part.isEmpty())
        return 0;
    const int last = digit_of(part[part.size() - 1]);
    if (part.size() == 1 || last < 0)
        return qMax(last, 0);
    if (part[0] == '-' || part[0] == QChar(0x2212))
        return -last;
    const int tens = part[0] == '+' ? 0 : digit_of(part[0]);
    return tens < 0 ? 0 : 10 * tens + last;
}

float rounded(double value)
{
    return static_cast<float>(value);
}

float hours_of(const QString &zone)
{
    if (zone.isEmpty())
        return 0;
    const double part_of_an_hour = rounded(number_at(zone, 4) / 60.0);
    const float hours = rounded(part_of_an_hour + number_at(zone, 1));
    return zone[0] == '-' ? -hours : hours;
}

// A second implementation of the zone's text: a float is a whole number of fractions of an hour, so
// all arithmetic is on integers.

std::string two_digits(qint64 count)
{
    return (count < 10 ? "0" : "") + std::to_string(count);
}

/// Requires: the hours fit into an int.
std::string text_of(float hours)
{
    int exponent = 0;
    const float fraction = std::frexp(std::fabs(hours), &exponent);
    const auto mantissa = static_cast<qint64>(std::ldexp(fraction, 24));  // below 2^24, exact
    const int shift = 24 - exponent;
    qint64 whole = 0;
    qint64 minutes = 0;
    if (shift <= 0) {
        whole = mantissa * (qint64{1} << -shift);
    } else if (shift < 32) {
        whole = mantissa >> shift;
        minutes = ((mantissa - (whole << shift)) * 60) >> shift;
    }
    return (hours >= 0 ? "+" : "-") + two_digits(whole) + ":" + two_digits(minutes);
}

// Inputs

const texts number_pieces = {
    "-",  "+", ":", " ",    ".",    "0",  "00", "1",  "2", "59",
    "30", "a", "x", "\xff", "\xb2", "\t", "--", "- ", "7", std::string(1, '\0')};
const texts numbers = {"2014",
                       "+02:00",
                       "-05:30",
                       "00.25",
                       "00 +0200",
                       "2147483647",
                       "2147483648",
                       "-2147483648",
                       "-2147483649",
                       "00000000002147483647",
                       "9223372036854775807",
                       "9223372036854775808",
                       "-9223372036854775809",
                       "99999999999999999999999",
                       "-",
                       ""};
const texts zone_pieces = {"+",        "-",
                           ":",        "0",
                           "1",        "5",
                           "9",        " ",
                           ".",        ",",
                           "x",        "Z",
                           "\t",       "12",
                           "e",        "--",
                           "\xc2\xa0", "\xe2\x88\x92",
                           "\xd9\xa3", "\xe3\x80\x80",
                           "\xff"};
const texts zones = {"+02:00", "-05:30", "+05:45", "-00:30", "+2:00",  "Z",
                     "+0530",  "02:00",  "+14:00", "-12:00", "+02:-5", "+-2:+7"};

QString random_zone(random_source &random)
{
    const std::string bytes = random.once_in(4) ? random.joined(zone_pieces, 8)
                                                : random.damaged(random.one_of(zones), zone_pieces);
    return QString::fromUtf8(bytes.data(), int(bytes.size()));
}

float float_of_bits(std::uint32_t bits)
{
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

float random_hours(random_source &random)
{
    const int count = static_cast<int>(random.below(20000)) - 10000;
    switch (random.below(6)) {
    case 0:
        return static_cast<float>(count) / 4;
    case 1:
        return static_cast<float>(count) / 60;
    case 2:
        return static_cast<float>(count) / 10;
    case 3:
        return std::nextafter(static_cast<float>(count), random.once_in(2) ? 1e9F : -1e9F);
    case 4:
        return std::nextafter(static_cast<float>(count) / 60, random.once_in(2) ? 1e9F : -1e9F);
    default:
        return float_of_bits(static_cast<std::uint32_t>(random.bits()));
    }
}

bool fits_an_int(float hours)
{
    return std::fabs(hours) < 2147483648.0F;  // also false for NaN
}

}  // namespace

class test_random_zones : public QObject
{
    Q_OBJECT

private slots:
    void any_text_is_read_as_a_number();
    void any_zone_becomes_hours();
    void any_hours_become_a_zone();
    void any_hours_are_added_to_any_zone();
};

void test_random_zones::any_text_is_read_as_a_number()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const std::string text = random.once_in(2)
                                     ? random.joined(number_pieces, 9)
                                     : random.damaged(random.one_of(numbers), number_pieces);
        const int default_value = static_cast<int>(random.bits());
        const number found = first_number(text);
        static const char *const kinds[] = {"default", "number", "without digits", "too great"};
        trial.note(kinds[found.kind]);
        trial.note_if(found.kind == number::value && found.digits[0] == '-', "negative number");
        trial.note_if(found.digits.size() > 9, "number near the limit");
        const std::string expected = expected_number(found, default_value);
        const std::string actual = thrown_or_read(text, default_value);
        return actual == expected ? std::string()
                                  : escaped(std::string_view(text)) + " is read as " + actual +
                                        ", not " + expected;
    });
    const QByteArray complaint = trial.complaint({{"default", 50000},
                                                  {"number", 200000},
                                                  {"negative number", 50000},
                                                  {"number near the limit", 20000},
                                                  {"without digits", 50000},
                                                  {"too great", 50000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_zones::any_zone_becomes_hours()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const QString zone = random_zone(random);
        const float expected = hours_of(zone);
        trial.note(zone.isEmpty() ? "empty"
                   : expected < 0 ? "west"
                   : expected > 0 ? "east"
                                  : "zero");
        trial.note_if(expected != std::trunc(expected), "minutes");
        trial.note_if(number_at(zone, 4) < 0 || number_at(zone, 1) < 0, "sign inside a part");
        const float actual = zone_hours(zone);
        return actual == expected ? std::string()
                                  : escaped(zone) + " is " + std::to_string(actual) +
                                        " hours, not " + std::to_string(expected);
    });
    const QByteArray complaint = trial.complaint({{"empty", 10000},
                                                  {"west", 100000},
                                                  {"east", 100000},
                                                  {"zero", 100000},
                                                  {"minutes", 100000},
                                                  {"sign inside a part", 20000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_zones::any_hours_become_a_zone()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const float hours = random_hours(random);
        const bool fits = fits_an_int(hours);
        const std::string actual = timezone_text(hours).toStdString();
        const std::string expected = fits ? text_of(hours) : actual;
        trial.note(!fits ? "beyond an int" : hours < 0 ? "west" : "east");
        trial.note_if(fits && hours != 0 && std::fabs(hours) < 1e-9F, "next to nothing");
        trial.note_if(fits && std::fabs(hours) > 1e8F, "very many hours");
        trial.note_if(fits && expected.substr(expected.size() - 2) == "59",
                      "minute before the hour");
        return actual == expected
                   ? std::string()
                   : std::to_string(hours) + " hours are " + actual + ", not " + expected;
    });
    const QByteArray complaint = trial.complaint({{"west", 300000},
                                                  {"east", 300000},
                                                  {"beyond an int", 20000},
                                                  {"next to nothing", 20000},
                                                  {"very many hours", 1000},
                                                  {"minute before the hour", 50000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_zones::any_hours_are_added_to_any_zone()
{
    random_trial trial;
    trial.repeat(500000, [&](random_source &random) -> std::string {
        const QString zone = random_zone(random);
        const double added = random_hours(random) * (random.once_in(2) ? 1.1 : 1.0);
        const float expected = rounded(static_cast<double>(hours_of(zone)) + added);
        const float actual = moved_zone_hours(zone, added);
        const bool same = actual == expected || (std::isnan(actual) && std::isnan(expected));
        trial.note(fits_an_int(expected) ? "zone" : "beyond an int");
        trial.note_if(expected != hours_of(zone), "moved");
        trial.note_if(fits_an_int(expected) &&
                          text_of(expected) != text_of(std::nextafter(expected, 2e9F)),
                      "next to the next minute");
        return same ? std::string()
                    : escaped(zone) + " and " + std::to_string(added) + " make " +
                          std::to_string(actual) + ", not " + std::to_string(expected);
    });
    const QByteArray complaint = trial.complaint({{"zone", 300000},
                                                  {"moved", 300000},
                                                  {"beyond an int", 10000},
                                                  {"next to the next minute", 1000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

KELVRA_CORE_TEST_MAIN(test_random_zones)
#include "test_random_zones.moc"
