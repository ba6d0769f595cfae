// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <csignal>

namespace qor
{

/// Everything about signals that differs between systems.
///
/// `handled_signals` lists the signals that end a program and that `stacktrace` reports, in the
/// order in which it installs its handler. `signal_names` is indexed by the numbers of the system
/// that the program is built for: `signal.h` of the Microsoft C runtime, signal(7) on Linux. The
/// name is "UNKNOWN" for a number that is no signal, or is one that no program on this system
/// receives.

// clang-format off
#ifdef _WIN32
constexpr int sigabrt_compat = 6;
constexpr int handled_signals[] = {SIGABRT, SIGABRT, sigabrt_compat, SIGBREAK, SIGFPE,
                                   SIGILL,  SIGINT,  SIGSEGV,        SIGTERM};
constexpr const char *signal_names[] = {
    "UNKNOWN", "SIGHUP",  "SIGINT",  "SIGQUIT", "SIGILL",  "SIGTRAP", "SIGABRT_COMPAT", "SIGEMT",
    "SIGFPE",  "SIGKILL", "SIGBUS",  "SIGSEGV", "SIGSYS",  "SIGPIPE", "SIGALRM",        "SIGTERM",
    "UNKNOWN", "UNKNOWN", "UNKNOWN", "UNKNOWN", "UNKNOWN", "SIGBREAK", "SIGABRT"};
#else
constexpr int handled_signals[] = {SIGABRT, SIGFPE, SIGILL, SIGINT, SIGSEGV, SIGTERM};
constexpr const char *signal_names[] = {
    "UNKNOWN",   "SIGHUP",  "SIGINT",   "SIGQUIT", "SIGILL",  "SIGTRAP", "SIGABRT", "SIGBUS",
    "SIGFPE",    "SIGKILL", "SIGUSR1",  "SIGSEGV", "SIGUSR2", "SIGPIPE", "SIGALRM", "SIGTERM",
    "SIGSTKFLT", "SIGCHLD", "SIGCONT",  "SIGSTOP", "SIGTSTP", "SIGTTIN", "SIGTTOU", "SIGURG",
    "SIGXCPU",   "SIGXFSZ", "SIGVTALRM", "SIGPROF", "SIGWINCH", "SIGIO", "SIGPWR",  "SIGSYS"};
#endif
// clang-format on

}  // namespace qor
