// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <exception>
#include <string>

namespace qor
{

/// Misuse of the kit. Note: constructing one prints the message and the stack of source locations
/// to standard error and ends the process through `fatal_exit`. So it is never caught, and the
/// report is printed twice.
class exception : public std::exception
{
public:
    /// Doesn't return, except by the jump of a test harness (`fatal_jump`).
    explicit exception(std::string reason);

    const char *what() const noexcept override;

private:
    std::string message;
};

}  // namespace qor
