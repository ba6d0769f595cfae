// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/trace_scope.h"

namespace qor
{

trace_scope::trace_scope(const char *file, int line, const char *function)
    : frame{file, line, function}
{
    stacktrace::instance().frames.push_back(&frame);
}

trace_scope::~trace_scope()
{
    stacktrace::instance().frames.pop_back();
}

}  // namespace qor
