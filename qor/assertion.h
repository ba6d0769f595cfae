// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace qor
{

/// Ends the program because a rule of the kit is broken. The report names the expression and its
/// location, and contains the stack of source locations. It is printed to standard error once
/// (`fatal_exit`).
[[noreturn]] void assertion_failed(const char *expression, const char *file, int line,
                                   const char *function);

}  // namespace qor
