// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core_test_main.h"

#include <QApplication>

/// The main function of a test of widgets that know nothing of the program.
#define KELVRA_WIDGET_TEST_MAIN(test_class)                                                        \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return run_test<test_class, QApplication>(argc, argv);                                     \
    }
