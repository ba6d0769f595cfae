// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "private_home.h"

#include <QCoreApplication>
#include <QTextCodec>
#include <QtTest>

/// Has no effect except on Windows. There, the C runtime can't read the zone that ctest sets, and
/// Wine takes the computer's; and the code page lacks most characters.
inline void use_zone_and_encoding_of_linux()
{
#ifdef Q_OS_WIN
    qunsetenv("TZ");
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
}

/// Runs a test class in a private home folder, with an application object of this type.
template <class Test, class Application>
int run_test(int argc, char **argv)
{
    use_zone_and_encoding_of_linux();
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
