// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"
#include "shown_report.h"

/// Replaces the build's table: the linker takes from the library only what is missing here.
const std::map<std::string, std::string> orv::build_components = {
    {"ä", "größe %1"}, {"z", "2"}, {"application", "v1-ß-0-gabc"}, {"Z", "1"}};

class test_build_report_utf8 : public QObject
{
    Q_OBJECT

private slots:
    void report_lists_the_components_in_byte_order();
    void version_is_the_applications();
};

void test_build_report_utf8::report_lists_the_components_in_byte_order()
{
    QCOMPARE(shown_report().section("\n\n", 1), QString("Component: Z\tVersion: 1\n"
                                                        "Component: application\tVersion: "
                                                        "v1-ß-0-gabc\n"
                                                        "Component: z\tVersion: 2\n"
                                                        "Component: ä\tVersion: größe %1\n"));
}

void test_build_report_utf8::version_is_the_applications()
{
    QCOMPARE(orv::version_string(), std::string("v1-ß-0-gabc"));
}

KELVRA_PROGRAM_TEST_MAIN(test_build_report_utf8)
#include "test_build_report_utf8.moc"
