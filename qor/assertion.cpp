// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/assertion.h"

#include "qor/fatal.h"
#include "qor/stacktrace.h"

#include <string>

namespace qor
{

namespace
{

std::string report(const char *expression, const char *file, int line, const char *function)
{
    const std::string place = std::string(file) + ":" + std::to_string(line) + " in " + function;
    return std::string("assert \"") + expression + "\" failed at " + place + "\n" +
           stacktrace::trace_text() + "\n";
}

}  // namespace

void assertion_failed(const char *expression, const char *file, int line, const char *function)
{
    // No object with a destructor may be alive here: the exit may be a jump.
    fatal_text = report(expression, file, line, function);
    fatal_exit();
}

}  // namespace qor
