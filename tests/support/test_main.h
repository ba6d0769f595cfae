// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "private_home.h"
#include "program_setup.h"

#include <QApplication>
#include <QtTest>

/// Runs a test class as its program does: under the program's identity, in a private home.
template <class Test>
int run_test(int argc, char **argv)
{
    const private_home home;
    set_identity();
    QApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#define KELVRA_TEST_MAIN(test_class)                                                               \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return run_test<test_class>(argc, argv);                                                   \
    }
