// SPDX-License-Identifier: GPL-3.0-or-later

#include "raw_tool.h"

#include "readings.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>

namespace
{

constexpr char reply_end[] = "{ready}\n";
constexpr std::size_t reply_end_size = sizeof reply_end - 1;

[[noreturn]] void become_tool(const char *program, int input, int output)
{
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    execl(program, program, "-stay_open", "True", "-@", "-", "-common_args", "-args", "-f", "-sort",
          static_cast<char *>(nullptr));
    _exit(127);
}

}  // namespace

raw_tool::raw_tool(const std::string &program)
{
    int to_tool[2];
    int from_tool[2];
    if (pipe2(to_tool, O_CLOEXEC) != 0 || pipe2(from_tool, O_CLOEXEC) != 0)
        give_up("no pipes");
    process = fork();
    if (process == 0)
        become_tool(program.c_str(), to_tool[0], from_tool[1]);
    close(to_tool[0]);
    close(from_tool[1]);
    input = to_tool[1];
    output = from_tool[0];
}

raw_tool::~raw_tool()
{
    send("-stay_open\nFalse\n");
    close(input);
    waitpid(process, nullptr, 0);
    close(output);
}

void raw_tool::answer(const std::string &request)
{
    send(request);
    std::string tail;
    char buffer[65536];
    while (tail != reply_end) {
        const ssize_t count = read(output, buffer, sizeof buffer);
        if (count <= 0)
            give_up("the tool has gone");
        tail.append(buffer, static_cast<std::size_t>(count));
        if (tail.size() > reply_end_size)
            tail.erase(0, tail.size() - reply_end_size);
    }
}

void raw_tool::send(const std::string &text) const
{
    if (write(input, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        give_up("the tool takes no requests");
}
