// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/fatal.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

namespace qor
{

std::string fatal_text;
std::jmp_buf fatal_jump;

namespace
{

bool jump_is_set()
{
    static const std::jmp_buf unset = {};
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the padding is zero too
    return std::memcmp(&fatal_jump, &unset, sizeof(std::jmp_buf)) != 0;
}

}  // namespace

void fatal_exit()
{
    if (jump_is_set())
        std::longjmp(fatal_jump, 1);
    std::cerr << fatal_text << std::endl;
    std::exit(-1);
}

}  // namespace qor
