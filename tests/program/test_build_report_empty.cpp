// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"
#include "shown_report.h"

/// Replaces the build's table: the linker takes from the library only what is missing here.
const std::map<std::string, std::string> orv::build_components;

class test_build_report_empty : public QObject
{
    Q_OBJECT

private slots:
    void report_ends_after_the_compiler();
    void table_and_version_are_empty();
};

void test_build_report_empty::report_ends_after_the_compiler()
{
    const QStringList lines = shown_report().split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY2(lines[0].startsWith("OS: "), qPrintable(lines[0]));
    QVERIFY2(lines[1].startsWith("ABI: "), qPrintable(lines[1]));
    QVERIFY2(lines[2].startsWith("gcc Version: "), qPrintable(lines[2]));
    QCOMPARE(lines.mid(3), QStringList({"", ""}));
}

void test_build_report_empty::table_and_version_are_empty()
{
    QCOMPARE(orv::component_table(), std::string());
    QCOMPARE(orv::version_string(), std::string());
}

KELVRA_PROGRAM_TEST_MAIN(test_build_report_empty)
#include "test_build_report_empty.moc"
