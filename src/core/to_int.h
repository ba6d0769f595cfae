// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

/// The first number in a text such as "05" or "+02:00": all but digits and "-" counts as blank.
///
/// A text without any of these gives `default_value`. One that starts with a "-" and no digit
/// behind it throws `std::invalid_argument`, a number that an int doesn't hold
/// `std::out_of_range`.
int to_int(const std::string &text, int default_value);
