// SPDX-License-Identifier: GPL-3.0-or-later

#include "bracketed_texts.h"
#include "git_folder.h"
#include "program_test_main.h"
#include "shown_report.h"
#include "startup/program_setup.h"

#include <QLocale>
#include <QPushButton>
#include <QRegularExpression>
#include <QSysInfo>

namespace
{

const QString application = "application";

QString version_of(const QString &component)
{
    const auto found = orv::build_components.find(component.toStdString());
    return found == orv::build_components.end() ? QString() : QString::fromStdString(found->second);
}

}  // namespace

class test_build_report : public QObject
{
    Q_OBJECT

private slots:
    void components_are_sorted_by_name();
    void version_has_its_form_data();
    void version_has_its_form();
    void versions_are_those_of_the_source_tree_data();
    void versions_are_those_of_the_source_tree();
    void application_is_the_commit_that_was_built();
    void version_string_is_the_applications();
    void table_has_a_line_for_each_component();
    void report_says_system_abi_compiler_and_components();
    void report_is_a_box_with_one_button();
    void report_needs_no_parent();
    void report_waits_until_it_is_closed_data();
    void report_waits_until_it_is_closed();
    void report_is_the_same_in_every_language();
};

void test_build_report::components_are_sorted_by_name()
{
    QStringList names;
    for (const auto &component : orv::build_components)
        names << QString::fromStdString(component.first);
    QCOMPARE(names, QStringList({"application", "orv_infrastructure", "orv_toolkit", "qor"}));
}

void test_build_report::version_has_its_form_data()
{
    QTest::addColumn<QString>("form");
    QTest::newRow("application") << "v[0-9].*-[0-9]+-g[0-9a-f]{7}";
    for (const char *tree : {"orv_infrastructure", "orv_toolkit", "qor"})
        QTest::newRow(tree) << "[0-9a-f]{7}";
}

void test_build_report::version_has_its_form()
{
    QFETCH(QString, form);
    const QString version = version_of(QTest::currentDataTag());
    QVERIFY2(QRegularExpression("\\A" + form + "\\z").match(version).hasMatch(),
             qPrintable(version));
}

void test_build_report::versions_are_those_of_the_source_tree_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::newRow("orv_infrastructure")
        << QStringList({"cmake", "packaging", "resources", "tools", "CMakeLists.txt",
                        "CMakePresets.json", "bench.sh", "lint.sh", "run.sh", "test.sh"});
    QTest::newRow("orv_toolkit") << QStringList("orv_toolkit");
    QTest::newRow("qor") << QStringList("qor");
}

/// Compared with the commit that was built, since there may be newer ones.
void test_build_report::versions_are_those_of_the_source_tree()
{
    QFETCH(QStringList, paths);
    const git_folder source(SOURCE_FOLDER);
    const QString built_commit = version_of(application).section("-g", -1);
    const QString last_commit =
        source.is_top_of_repository()
            ? source.run(QStringList({"rev-list", "--max-count=1", built_commit, "--"}) + paths)
            : QString("0000000");
    QCOMPARE(version_of(QTest::currentDataTag()), last_commit.left(7));
}

void test_build_report::application_is_the_commit_that_was_built()
{
    const git_folder source(SOURCE_FOLDER);
    const QString version = version_of(application);
    if (!source.is_top_of_repository()) {
        QCOMPARE(version, QString("v%1-0-g0000000").arg(QCoreApplication::applicationVersion()));
        return;
    }
    const QString built_commit = version.section("-g", -1);
    QVERIFY2(source.run({"cat-file", "-t", built_commit}) == "commit", qPrintable(version));
}

void test_build_report::version_string_is_the_applications()
{
    QCOMPARE(QString::fromStdString(orv::version_string()), version_of(application));
}

void test_build_report::table_has_a_line_for_each_component()
{
    const QString expected = QString("Component: application\tVersion: %1\n"
                                     "Component: orv_infrastructure\tVersion: %2\n"
                                     "Component: orv_toolkit\tVersion: %3\n"
                                     "Component: qor\tVersion: %4\n")
                                 .arg(version_of(application), version_of("orv_infrastructure"),
                                      version_of("orv_toolkit"), version_of("qor"));
    QCOMPARE(QString::fromStdString(orv::component_table()), expected);
}

void test_build_report::report_says_system_abi_compiler_and_components()
{
    QString expected = "OS: " + QSysInfo::prettyProductName() + "\n";
    expected += "ABI: " + QSysInfo::buildAbi() + "\n";
    expected += QString("gcc Version: %1.%2.%3\n")
                    .arg(__GNUC__)
                    .arg(__GNUC_MINOR__)
                    .arg(__GNUC_PATCHLEVEL__);
    expected += "\n";
    expected += QString::fromStdString(orv::component_table());
    QCOMPARE(shown_report(), expected);
}

void test_build_report::report_is_a_box_with_one_button()
{
    QWidget parent;
    const when_modal<orv::message_box> answer([&parent](orv::message_box &box) {
        QCOMPARE(box.windowTitle(), QString("Application Information"));
        QCOMPARE(box.icon(), QMessageBox::Information);
        QCOMPARE(box.parentWidget(), &parent);
        QVERIFY(box.isModal());
        QCOMPARE(static_cast<int>(box.standardButtons()), static_cast<int>(QMessageBox::Ok));
        QCOMPARE(box.buttons().size(), 1);
        // The default button of a box for which none was set.
        QCOMPARE(box.defaultButton(), box.button(QMessageBox::Ok));
    });
    orv::show_application_information(&parent);
    QVERIFY(answer.answered());
}

void test_build_report::report_needs_no_parent()
{
    const when_modal<orv::message_box> answer(
        [](orv::message_box &box) { QVERIFY(!box.parentWidget()); });
    orv::show_application_information(nullptr);
    QVERIFY(answer.answered());
}

void test_build_report::report_waits_until_it_is_closed_data()
{
    QTest::addColumn<bool>("by_mouse");
    QTest::addColumn<int>("key");
    QTest::newRow("click on the button") << true << 0;
    QTest::newRow("return key") << false << static_cast<int>(Qt::Key_Return);
    QTest::newRow("escape key") << false << static_cast<int>(Qt::Key_Escape);
}

void test_build_report::report_waits_until_it_is_closed()
{
    QFETCH(bool, by_mouse);
    QFETCH(int, key);
    bool closed = false;
    const when_modal<orv::message_box> answer([&](orv::message_box &box) {
        QCoreApplication::processEvents();
        QVERIFY(box.isVisible());
        if (by_mouse)
            QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
        else
            QTest::keyClick(&box, static_cast<Qt::Key>(key));
        closed = !box.isVisible();
    });
    orv::show_application_information(nullptr);
    QVERIFY(answer.answered());
    QVERIFY(closed);
}

/// The catalogues stay installed, so this test comes last.
void test_build_report::report_is_the_same_in_every_language()
{
    const QString before = shown_report();
    install_translators("de");
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const bracketed_texts translation;
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("[Cancel]"));
    QCOMPARE(shown_report(), before);
    const when_modal<orv::message_box> answer([](orv::message_box &box) {
        QCOMPARE(box.windowTitle(), QString("Application Information"));
    });
    orv::show_application_information(nullptr);
    QVERIFY(answer.answered());
}

KELVRA_PROGRAM_TEST_MAIN(test_build_report)
#include "test_build_report.moc"
