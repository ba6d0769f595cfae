// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <exception>
#include <string>

namespace qor
{

/// Misuse of the kit. Making one prints the message and the stack of source places to standard
/// error and ends the process through `fatal_exit`, so it is never caught, and the report stands
/// on the stream twice.
class exception : public std::exception
{
public:
    /// Doesn't return, but for the jump of a harness (`fatal_jump`).
    explicit exception(std::string reason);

    const char *what() const noexcept override;

private:
    std::string message;
};

}  // namespace qor
