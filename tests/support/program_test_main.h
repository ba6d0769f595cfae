// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core_test_main.h"
#include "startup/program_setup.h"

#include <QApplication>

/// The main function of a test that runs under the program's identity.
#define KELVRA_PROGRAM_TEST_MAIN(test_class)                                                       \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        set_identity();                                                                            \
        return run_test<test_class, QApplication>(argc, argv);                                     \
    }
