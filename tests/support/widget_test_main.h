// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core_test_main.h"

#include <QApplication>

/// Runs a test class of widgets that don't depend on the program.
template <class Test>
int run_widget_test(int argc, char **argv)
{
    return run_test<Test, QApplication>(argc, argv);
}

#define KELVRA_WIDGET_TEST_MAIN(test_class)                                                        \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return run_widget_test<test_class>(argc, argv);                                            \
    }
