// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

/// What the benchmarks read from the clock and from the system, and how they report it. A figure is
/// a line "NAME VALUE" on standard output; table.pl compares it with its target.

/// Milliseconds of a clock that never goes back.
double now_ms();

/// Milliseconds of processor time that the threads of this process have used, without its children.
double own_cpu_ms();

/// Resident memory of this process in bytes (proc(5), statm).
double resident_bytes();

/// Prints a figure.
void report(const std::string &name, double value);

/// Prints the reason to standard error and ends the process with status 2.
[[noreturn]] void give_up(const std::string &reason);
