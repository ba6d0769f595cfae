// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core_test_main.h"
#include "startup/program_setup.h"

#include <QApplication>

/// Runs a test class with the program's identity.
template <class Test>
int run_program_test(int argc, char **argv)
{
    set_identity();
    return run_test<Test, QApplication>(argc, argv);
}

#define KELVRA_PROGRAM_TEST_MAIN(test_class)                                                       \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return run_program_test<test_class>(argc, argv);                                           \
    }
