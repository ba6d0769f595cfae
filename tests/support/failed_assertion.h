// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "isolated_program.h"

#include <QtTest>

/// Checks that an assertion of the kit ended the program, with its report and nothing else.
/// @param source  the file name of the source
inline void check_failed_assertion(const program_result &result, const QByteArray &condition,
                                   const QByteArray &source, const QByteArray &function)
{
    QCOMPARE(result.status, failed_status);
    QVERIFY2(result.errors.startsWith("assert \"" + condition + "\" failed at "), result.errors);
    QVERIFY2(result.errors.contains(source + ":"), result.errors);
    QVERIFY2(result.errors.endsWith(" in " + function + "\nStacktrace is empty\n\n\n"),
             result.errors);
    QCOMPARE(result.output, QByteArray());
}
