// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

/// What the benchmarks read from the clock and from the system, and how they hand it on. A figure
/// is a line "NAME VALUE" on standard output; the targets are those of the table that is made of
/// them.

/// Milliseconds of a clock that only goes forward.
double now_ms();

/// Milliseconds of processor time that the threads of this process have used, its children not
/// counted.
double own_cpu_ms();

/// Bytes of this process that lie in memory (proc(5), statm).
double resident_bytes();

void report(const std::string &name, double value);

/// Says on standard error what is wrong and ends the process with status 2.
[[noreturn]] void give_up(const std::string &reason);
