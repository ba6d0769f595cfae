#include "qor/assertion.h"

#include "qor/fatal.h"
#include "qor/stacktrace.h"

#include <string>

namespace qor
{

void assertion_failed(const char *expression, const char *file, int line, const char *function)
{
    const std::string place = std::string(file) + ":" + std::to_string(line) + " in " + function;
    fatal_text = std::string("assert \"") + expression + "\" failed at " + place + "\n" +
                 stacktrace::trace_text() + "\n";
    fatal_exit();
}

}  // namespace qor
