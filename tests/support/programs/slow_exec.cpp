// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes the children of this program wait for KELVRA_EXEC_DELAY milliseconds before they run the
// program that they were started for, as on a drive that doesn't respond. Overrides execv(3) of the
// C library.

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

extern "C" int execv(const char *path, char *const arguments[]) noexcept
{
    if (const char *delay = std::getenv("KELVRA_EXEC_DELAY"))
        std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(delay)));
    return execve(path, arguments, environ);
}
