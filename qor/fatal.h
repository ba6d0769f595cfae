// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <csetjmp>
#include <string>

namespace qor
{

/// The report of the misuse that ends the program.
extern std::string fatal_text;

/// Where a harness that wants to survive a fatal report sets its jump; all zero means not set.
/// Nothing in the program sets it.
extern std::jmp_buf fatal_jump;

/// The last step of a fatal report: jumps to `fatal_jump` with the value 1 where it is set;
/// otherwise writes `fatal_text` to standard error and ends the process with the status -1.
[[noreturn]] void fatal_exit();

}  // namespace qor
