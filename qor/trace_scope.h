// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/stacktrace.h"

namespace qor
{

/// Keeps a frame on the process-wide stack of source locations while it exists. Created at the
/// start of a function, it pops the frame when the function ends, by return or by exception.
class trace_scope
{
public:
    /// @param file, function  literals: only the pointers are kept
    /// @param line            may be a fixed number by which reports identify the location, as in
    ///                        `orv::application`, even if the actual line differs
    trace_scope(const char *file, int line, const char *function);
    ~trace_scope();

    trace_scope(const trace_scope &) = delete;
    trace_scope &operator=(const trace_scope &) = delete;

private:
    stack_frame frame;
};

}  // namespace qor
