// SPDX-License-Identifier: GPL-3.0-or-later

#include "about_link.h"
#include "german_catalogues.h"
#include "modal_watch.h"
#include "orv/dialog_3rd_part_lib_info.h"
#include "orv/dialog_about.h"
#include "program_test_main.h"
#include "when_modal.h"

#include <QPointer>

namespace
{

/// The entries in the list of libraries as "name: note", in order.
QStringList entries_of(const orv::dialog_3rd_part_lib_info &list)
{
    QStringList entries;
    for (const orv::library_entry &entry : list.libraries)
        entries << entry.name + ": " + entry.note;
    return entries;
}

/// Clicks the link of a dialog that isn't on the screen, and closes the list that opens. Returns
/// the entries of the list.
QStringList entries_after_click(orv::dialog_about &dialog)
{
    QStringList entries;
    const when_modal<orv::dialog_3rd_part_lib_info> answer(
        [&entries](orv::dialog_3rd_part_lib_info &list) { entries = entries_of(list); });
    QTest::mouseClick(link_of(dialog), Qt::LeftButton);
    if (!answer.answered())
        qFatal("no list came up");
    return entries;
}

}  // namespace

class test_dialog_about_libraries : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { add_fonts(); }
    void click_opens_the_list_over_the_dialog();
    void other_buttons_open_nothing_data();
    void other_buttons_open_nothing();
    void click_passes_the_dialog_on();
    void link_without_a_function_does_nothing();
    void list_names_the_tool_where_it_should_data();
    void list_names_the_tool_where_it_should();
    void list_names_the_program_that_uses_the_tool();
    void list_of_the_toolkit_is_german_with_the_catalogue();
    void list_can_be_reopened_and_is_deleted_with_the_dialog();
};

void test_dialog_about_libraries::click_opens_the_list_over_the_dialog()
{
    bool returned = false;
    const when_modal<orv::dialog_about> user([&returned](orv::dialog_about &dialog) {
        const when_modal<orv::dialog_3rd_part_lib_info> answer(
            [&dialog](orv::dialog_3rd_part_lib_info &list) {
                QCOMPARE(list.parentWidget(), &dialog);
                QVERIFY(list.isModal());
                QVERIFY(dialog.isVisible());
                QVERIFY(list.isVisible());
                QTest::keyClick(&list, Qt::Key_Escape);
            });
        QTest::mouseClick(link_of(dialog), Qt::LeftButton);
        QVERIFY(answer.answered());
        returned = dialog.isVisible() && QApplication::activeModalWidget() == &dialog;
    });
    orv::dialog_about(nullptr, true).exec();
    QVERIFY(user.answered());
    QVERIFY(returned);
}

void test_dialog_about_libraries::other_buttons_open_nothing_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("back") << int(Qt::BackButton);
}

void test_dialog_about_libraries::other_buttons_open_nothing()
{
    QFETCH(int, button);
    int calls = 0;
    orv::dialog_about dialog(nullptr, true);
    dialog.third_party_info = [&calls](orv::dialog_about *) { ++calls; };
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const modal_watch dialogs;
    QTest::mouseClick(link_of(dialog), static_cast<Qt::MouseButton>(button));
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
    QCOMPARE(dialogs.classes, QStringList());
    QVERIFY(dialog.isVisible());
}

void test_dialog_about_libraries::click_passes_the_dialog_on()
{
    QList<orv::dialog_about *> calls;
    orv::dialog_about dialog(nullptr, true);
    dialog.third_party_info = [&calls](orv::dialog_about *about) { calls << about; };
    QCOMPARE(calls.size(), 0);
    QTest::mouseClick(link_of(dialog), Qt::LeftButton);
    QCOMPARE(calls, QList<orv::dialog_about *>({&dialog}));
}

void test_dialog_about_libraries::link_without_a_function_does_nothing()
{
    const modal_watch dialogs;
    orv::dialog_about dialog(nullptr, true);
    QVERIFY(dialog.third_party_info);
    dialog.third_party_info = nullptr;
    QTest::mouseClick(link_of(dialog), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(dialogs.classes, QStringList());
}

void test_dialog_about_libraries::list_names_the_tool_where_it_should_data()
{
    QTest::addColumn<bool>("list_metadata_tool");
    QTest::newRow("with the tool") << true;
    QTest::newRow("without it") << false;
}

void test_dialog_about_libraries::list_names_the_tool_where_it_should()
{
    QFETCH(bool, list_metadata_tool);
    orv::dialog_about dialog(nullptr, list_metadata_tool);
    const QStringList entries = entries_after_click(dialog);
    QCOMPARE(entries.size(), list_metadata_tool ? 2 : 1);
    QVERIFY(entries.first().startsWith("Qt 5.6.2: "));
    if (list_metadata_tool) {
        QVERIFY2(entries.last().startsWith("Exiftool: This application uses Exiftool "),
                 qPrintable(entries.last()));
        QCOMPARE(entries.last().count('\n'), 1);
        QVERIFY(entries.last().section('\n', 1).startsWith("https://"));
    }
}

void test_dialog_about_libraries::list_names_the_program_that_uses_the_tool()
{
    orv::dialog_about dialog(nullptr, true);
    const QString by_itself = entries_after_click(dialog).last();
    dialog.third_party_info = [](orv::dialog_about *about) {
        orv::dialog_about::show_libraries(about, "Somebody");
    };
    QCOMPARE(entries_after_click(dialog).last(),
             QString(by_itself).replace("This application", "Somebody"));
}

void test_dialog_about_libraries::list_of_the_toolkit_is_german_with_the_catalogue()
{
    const german_catalogues german;
    orv::dialog_about dialog(nullptr, true);
    const QStringList entries = entries_after_click(dialog);
    QVERIFY2(entries.last().startsWith("Exiftool: Diese Anwendung verwendet Exiftool von "),
             qPrintable(entries.last()));
}

void test_dialog_about_libraries::list_can_be_reopened_and_is_deleted_with_the_dialog()
{
    QList<QPointer<QWidget>> lists;
    {
        orv::dialog_about dialog(nullptr, true);
        for (int time = 0; time < 2; ++time) {
            const when_modal<orv::dialog_3rd_part_lib_info> answer(
                [&lists](orv::dialog_3rd_part_lib_info &list) { lists << &list; });
            QTest::mouseClick(link_of(dialog), Qt::LeftButton);
            QVERIFY(answer.answered());
        }
        QCOMPARE(lists.size(), 2);
        QVERIFY(lists.first() != lists.last());
    }
    for (const QPointer<QWidget> &list : qAsConst(lists))
        QVERIFY(list.isNull());
}

KELVRA_PROGRAM_TEST_MAIN(test_dialog_about_libraries)
#include "test_dialog_about_libraries.moc"
