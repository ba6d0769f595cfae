// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/exception.h"

#include "qor/fatal.h"
#include "qor/stacktrace.h"

#include <iostream>
#include <utility>

namespace qor
{

exception::exception(std::string reason) : message(std::move(reason))
{
    fatal_text = message + "\n" + stacktrace::trace_text() + "\n";
    std::cerr << fatal_text << std::endl;
    fatal_exit();
}

const char *exception::what() const noexcept
{
    return message.c_str();
}

}  // namespace qor
