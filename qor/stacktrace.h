// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qor
{

/// A source place; lives on the stack of the function that pushes it.
struct stack_frame {
    const char *file;      ///< source path as the build gave it
    int line;              ///< source line
    const char *function;  ///< the compiler's full function text
};

/// The process-wide stack of source places, printed when the program dies.
///
/// Functions that matter push a frame at their start and pop it at their end (`trace_scope`).
/// Creating the object installs the handler of the signals that end a program. There is no lock:
/// the program has one thread.
class stacktrace
{
public:
    /// The one object, made at the first call. It lives until the end of the process.
    static stacktrace &instance();

    /// The handler installed for SIGABRT, SIGFPE, SIGILL, SIGINT, SIGSEGV and SIGTERM (and the two
    /// more that Windows has). Runs `on_signal` with the number and its name; a number from 185 on
    /// is passed on as 0, one below that without a name of its own gets "UNKNOWN".
    static void signal_handler(int number);

    /// The default of `on_signal`: writes the signal's name (left out for a null `name`) and the
    /// frames to standard error and ends the process with the status -1. The handlers registered
    /// with `atexit` run.
    static void print_trace_and_exit(int number, const char *name);

    /// The frames of the one object as text, a line each, the newest first.
    static std::string trace_text();

    /// The same for any frames, under a line with the signal's name unless `signal_name` is null.
    /// The reports of the kit don't need it.
    static std::string trace_text(const std::vector<const stack_frame *> &frames,
                                  const char *signal_name);

    stacktrace(const stacktrace &) = delete;
    stacktrace &operator=(const stacktrace &) = delete;

    std::vector<const stack_frame *> frames;  ///< oldest first; borrowed from their functions

    /// What the handler runs, with the signal's number and name. Must not be empty.
    std::function<void(int, const char *)> on_signal = print_trace_and_exit;

private:
    stacktrace();
};

}  // namespace qor
