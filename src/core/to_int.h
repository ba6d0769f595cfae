// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

/// The first number in a text such as "05" or "+02:00". It begins at the first digit or "-"; the
/// characters before that are skipped.
///
/// A text without a digit or "-" gives `default_value`. Throws `std::invalid_argument` if the
/// number begins with a "-" that isn't followed by a digit, and `std::out_of_range` if it doesn't
/// fit in an int.
int to_int(const std::string &text, int default_value);
