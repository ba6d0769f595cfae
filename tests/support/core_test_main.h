// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "private_home.h"

#include <QCoreApplication>
#include <QtTest>

/// Runs a test class in a private home folder, with an application object of this type.
template <class Test, class Application>
int run_test(int argc, char **argv)
{
    const private_home home;
    Application application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// For tests that need no window.
#define KELVRA_CORE_TEST_MAIN(test_class)                                                          \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return run_test<test_class, QCoreApplication>(argc, argv);                                 \
    }
