// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sys/types.h>

#include <string>

/// A metadata tool of its own, started as the program starts it and spoken to through plain pipes:
/// the least that a request can take.
class raw_tool
{
public:
    explicit raw_tool(const std::string &program);
    raw_tool(const raw_tool &) = delete;
    raw_tool &operator=(const raw_tool &) = delete;

    /// Has the tool quit, and waits for it.
    ~raw_tool();

    /// Sends a request and reads its whole reply, which is thrown away.
    void answer(const std::string &request);

private:
    void send(const std::string &text) const;

    pid_t process = -1;
    int input = -1;   ///< of the tool
    int output = -1;  ///< likewise
};
