// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sys/types.h>

#include <string>

/// A separate metadata tool, started as the program starts it but used through bare pipes: the
/// least time that a request can take.
class raw_tool
{
public:
    explicit raw_tool(const std::string &program);
    raw_tool(const raw_tool &) = delete;
    raw_tool &operator=(const raw_tool &) = delete;

    /// Makes the tool quit, and waits for it.
    ~raw_tool();

    /// Sends a request, reads its whole reply and discards it.
    void answer(const std::string &request);

private:
    void send(const std::string &text) const;

    pid_t process = -1;
    int input = -1;   ///< the pipe to the tool's standard input
    int output = -1;  ///< the pipe from its standard output
};
