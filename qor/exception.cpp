// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/exception.h"

#include "qor/fatal.h"
#include "qor/stacktrace.h"

#include <iostream>
#include <string>
#include <utility>

namespace qor
{

namespace
{

void print_and_keep_report(const std::string &message)
{
    const std::string report = message + "\n" + stacktrace::trace_text() + "\n";
    std::cerr << report << std::endl;
    fatal_text = report;
}

}  // namespace

exception::exception(std::string reason) : message(std::move(reason))
{
    print_and_keep_report(message);
    fatal_exit();
}

const char *exception::what() const noexcept
{
    return message.c_str();
}

}  // namespace qor
