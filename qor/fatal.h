// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <csetjmp>
#include <string>

namespace qor
{

/// The report of the misuse that ends the program.
extern std::string fatal_text;

/// Set by a test harness that has to survive a fatal report; all zero means not set. The program
/// itself never sets it.
extern std::jmp_buf fatal_jump;

/// The last step of a fatal report: jumps to `fatal_jump` with the value 1 if it is set; otherwise
/// writes `fatal_text` to standard error and ends the process with the status -1.
[[noreturn]] void fatal_exit();

}  // namespace qor
