// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace qor
{

/// Ends the program over a broken rule of the kit: the report names the expression and its place
/// and holds the stack of source places; it stands on standard error once (`fatal_exit`).
[[noreturn]] void assertion_failed(const char *expression, const char *file, int line,
                                   const char *function);

}  // namespace qor
