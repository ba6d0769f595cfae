// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qor
{

/// A source location; lives on the stack of the function that pushes it.
struct stack_frame {
    const char *file;      ///< source path as the build gave it
    int line;              ///< source line
    const char *function;  ///< the function's whole signature
};

/// The process-wide stack of source locations, printed when the program dies.
///
/// Functions that matter push a frame at their start and pop it at their end (`trace_scope`). There
/// is no lock: the program has only one thread. Note: creating the object installs the handler of
/// the signals that end a program.
class stacktrace
{
public:
    /// The only instance, created at the first call. It lives until the process ends.
    static stacktrace &instance();

    /// The handler installed for SIGABRT, SIGFPE, SIGILL, SIGINT, SIGSEGV and SIGTERM, and on
    /// Windows for two more. Runs `on_signal` with the number and its name. A number of 185 or more
    /// is passed on as 0; a smaller one without a name gets "UNKNOWN".
    static void signal_handler(int number);

    /// The default of `on_signal`: writes the signal's name (omitted if `name` is null) and the
    /// frames to standard error and ends the process with the status -1. The handlers registered
    /// with `atexit` run.
    static void print_trace_and_exit(int number, const char *name);

    /// The frames of the instance as text, one line each, newest first.
    static std::string trace_text();

    /// The same for any frames, after a line with the signal's name unless `signal_name` is null.
    /// The kit's own reports don't use it.
    static std::string trace_text(const std::vector<const stack_frame *> &frames,
                                  const char *signal_name);

    stacktrace(const stacktrace &) = delete;
    stacktrace &operator=(const stacktrace &) = delete;

    std::vector<const stack_frame *> frames;  ///< oldest first; borrowed from their functions

    /// Called by the handler with the signal's number and name. Requires: it isn't empty.
    std::function<void(int, const char *)> on_signal = print_trace_and_exit;

private:
    stacktrace();
};

}  // namespace qor
