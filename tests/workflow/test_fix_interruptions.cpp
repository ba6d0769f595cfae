// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "opened_urls.h"
#include "orv/dialog_about.h"
#include "pick_languages.h"
#include "program_test_main.h"
#include "report_keys.h"

#include <QFileOpenEvent>
#include <QHeaderView>
#include <QTableView>

namespace
{

/// An action that clicks only the first time it runs, since a batch inside another one passes the
/// same values.
std::function<void()> click_once_soon(QWidget *widget)
{
    return [widget, clicked = false]() mutable {
        if (!clicked)
            click_soon(widget);
        clicked = true;
    };
}

/// Clicks the header of the name column. The first click reverses the order.
void click_name_header(const MainWindow &window)
{
    const QHeaderView *header = window.ui->tableView->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(header->sectionSize(0) / 2, header->height() / 2));
}

}  // namespace

/// Events are processed between two rows, so the user can press anything.
class test_fix_interruptions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { app.end(); }

    void user_input_is_handled_between_two_rows();
    void cleared_list_ends_the_batch();
    void cleared_list_hides_the_progress();
    void cleared_list_before_the_first_row_leaves_nothing_to_do();
    void second_fix_runs_inside_the_first();
    void undo_is_not_available_meanwhile();
    void dropped_photo_lengthens_the_batch();
    void new_shift_applies_to_the_remaining_rows();
    void sorted_rows_are_fixed_in_their_new_order();
    void opened_photo_moves_the_remaining_rows();
    void escape_hides_the_progress_and_nothing_more();
    void commands_run_in_between_data();
    void commands_run_in_between();
    void fix_during_an_undo_leaves_the_undo_its_photos();
    void undo_during_an_undo_writes_all_photos_again();
    void cleared_list_leaves_an_undo_its_photos();
    void dropped_photo_is_loaded_during_an_undo();

private:
    void run_once_at(int value, const std::function<void()> &action, QWidget *button);
    void fix_with(int value, const std::function<void()> &action);
    void undo_with(const std::function<void()> &action);

    fake_tool_window app;
};

void test_fix_interruptions::init()
{
    app.start();
    for (const char *name : {"a", "b", "c"})
        app.load_dated_photo(name);
    app.tool.forget();
}

/// Clicks the button of a batch, and runs `action` once when its progress reaches `value`.
void test_fix_interruptions::run_once_at(int value, const std::function<void()> &action,
                                         QWidget *button)
{
    bool done = false;
    progress_watch progress(*app.window->progress_fix);
    progress.at(value, [&] {
        if (!done)
            QTimer::singleShot(0, app.window.get(), action);
        done = true;
    });
    click(button);
}

void test_fix_interruptions::fix_with(int value, const std::function<void()> &action)
{
    run_once_at(value, action, app.window->button_fix_time);
}

/// Fixes the photos, then undoes that and runs `action` after the first one.
void test_fix_interruptions::undo_with(const std::function<void()> &action)
{
    click(app.window->button_fix_time);
    app.tool.forget();
    run_once_at(1, action, app.window->button_undo);
}

void test_fix_interruptions::user_input_is_handled_between_two_rows()
{
    MainWindow &window = *app.window;
    mouse_watch mouse(window);
    int moves_before_the_third_row = 0;
    progress_watch progress(*window.progress_fix);
    progress.at(1, [&] { mouse.move(); });
    progress.at(2, [&] { moves_before_the_third_row = mouse.moves; });
    click(window.button_fix_time);
    QCOMPARE(moves_before_the_third_row, 1);
}

void test_fix_interruptions::cleared_list_ends_the_batch()
{
    MainWindow &window = *app.window;
    progress_watch progress(*window.progress_fix);
    progress.at(1, [&] { click_soon(window.button_reset); });
    click(window.button_fix_time);
    QCOMPARE(app.written_names(), QStringList{"a"});
    QCOMPARE(progress.values, QList<int>({0, 1}));
    QCOMPARE(window.undo_map.keys(), QStringList{app.path_of("a")});
    QVERIFY(window.button_undo->isEnabled());
}

void test_fix_interruptions::cleared_list_hides_the_progress()
{
    MainWindow &window = *app.window;
    progress_watch progress(*window.progress_fix);
    progress.at(1, [&] { click_soon(window.button_reset); });
    click(window.button_fix_time);
    QVERIFY(!window.progress_fix->isVisible());
}

void test_fix_interruptions::cleared_list_before_the_first_row_leaves_nothing_to_do()
{
    MainWindow &window = *app.window;
    progress_watch progress(*window.progress_fix);
    progress.at(0, [&] { click_soon(window.button_reset); });
    click(window.button_fix_time);
    QCOMPARE(app.written_names(), QStringList());
    QVERIFY(window.undo_map.isEmpty());
    QVERIFY(!window.button_undo->isEnabled());
}

void test_fix_interruptions::second_fix_runs_inside_the_first()
{
    MainWindow &window = *app.window;
    progress_watch progress(*window.progress_fix);
    progress.at(1, click_once_soon(window.button_fix_time));
    click(window.button_fix_time);
    QCOMPARE(app.written_names(), QStringList({"a", "a", "b", "c"}));
    QCOMPARE(window.undo_map.size(), 3);
    QVERIFY(window.button_undo->isEnabled());
    QCOMPARE(window.model->rowCount(), 0);
}

void test_fix_interruptions::undo_is_not_available_meanwhile()
{
    MainWindow &window = *app.window;
    click(window.button_fix_time);
    QVERIFY(window.button_undo->isEnabled());
    app.load_dated_photo("d");
    app.load_dated_photo("e");
    app.tool.forget();
    progress_watch progress(*window.progress_fix);
    progress.at(1, [&] { click_soon(window.button_undo); });
    click(window.button_fix_time);
    QCOMPARE(app.written_names(), QStringList({"d", "e"}));
    QCOMPARE(window.undo_map.size(), 2);
}

void test_fix_interruptions::dropped_photo_lengthens_the_batch()
{
    MainWindow &window = *app.window;
    progress_watch progress(*window.progress_fix);
    progress.at(2, [&] {
        if (!window.model->files.contains(app.path_of("d")))
            app.load_dated_photo("d");
    });
    click(window.button_fix_time);
    QCOMPARE(app.written_names(), QStringList({"a", "b", "c", "d"}));
    QCOMPARE(window.undo_map.size(), 4);
}

void test_fix_interruptions::new_shift_applies_to_the_remaining_rows()
{
    MainWindow &window = *app.window;
    progress_watch progress(*window.progress_fix);
    progress.at(2, [&] { type_shift(window, "hour", "1"); });
    click(window.button_fix_time);
    QStringList times;
    for (const auto &write : app.writes())
        times << write.second.value(0).section('=', 1);
    QCOMPARE(times,
             QStringList({"2017:05:03 12:00:00", "2017:05:03 12:00:00", "2017:05:03 13:00:00"}));
}

void test_fix_interruptions::sorted_rows_are_fixed_in_their_new_order()
{
    fix_with(1, [this] { click_name_header(*app.window); });
    QCOMPARE(app.written_names(), QStringList({"a", "b", "a"}));
    QCOMPARE(app.writes()[2], app.writes()[0]);
    QCOMPARE(app.window->undo_map.keys(), QStringList({app.path_of("a"), app.path_of("b")}));
    QCOMPARE(app.window->model->rowCount(), 0);
}

void test_fix_interruptions::opened_photo_moves_the_remaining_rows()
{
    const QString first = app.make_photo("0", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    fix_with(1, [&] {
        QFileOpenEvent event(first);
        QCoreApplication::sendEvent(app.window.get(), &event);
    });
    QCOMPARE(app.written_names(), QStringList({"a", "a", "b", "c"}));
    QCOMPARE(app.window->undo_map.size(), 3);
    QCOMPARE(app.window->model->rowCount(), 0);
    QVERIFY(!app.window->progress_load->isVisible());
    QVERIFY(!app.window->progress_fix->isVisible());
}

void test_fix_interruptions::escape_hides_the_progress_and_nothing_more()
{
    orv::progress_dialog &dialog = *app.window->progress_fix;
    const progress_watch progress(dialog);
    fix_with(1, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QCOMPARE(app.written_names(), QStringList({"a", "b", "c"}));
    QCOMPARE(progress.values, QList<int>({0, 1, 2, 3}));
    QCOMPARE(progress.visible, QList<bool>({false, true, false, false}));
    QCOMPARE(app.window->undo_map.size(), 3);

    const progress_watch next_progress(dialog);
    click(app.window->button_undo);
    QCOMPARE(next_progress.visible, QList<bool>({false, true, true, true}));
}

void test_fix_interruptions::commands_run_in_between_data()
{
    QTest::addColumn<QString>("command");
    for (const char *command : {"report", "about", "help", "settings"})
        QTest::newRow(command) << command;
}

void test_fix_interruptions::commands_run_in_between()
{
    QFETCH(QString, command);
    MainWindow &window = *app.window;
    const opened_urls addresses;
    int written_before = 0;
    int seen = 0;
    const std::map<QString, std::function<void()>> commands = {
        {"report", [&] { seen += !report_of_keys(&window).text.isEmpty(); }},
        {"about",
         [&] {
             const when_modal<orv::dialog_about> user([](orv::dialog_about &) {});
             click(window.button_about);
             seen += user.answered();
         }},
        {"help",
         [&] {
             click(window.button_help);
             seen += addresses.urls.size();
         }},
        {"settings",
         [&] {
             const box_answers answers({box_reply::yes});
             pick_languages(window, {german_row});
             seen += answers.boxes.size();
         }},
    };
    fix_with(1, [&] {
        written_before = app.written_names().size();
        commands.at(command)();
    });
    QCOMPARE(seen, 1);
    QCOMPARE(written_before, 1);
    QCOMPARE(app.written_names(), QStringList({"a", "b", "c"}));
    QCOMPARE(window.undo_map.size(), 3);
    QVERIFY(!window.progress_fix->isVisible());
}

void test_fix_interruptions::fix_during_an_undo_leaves_the_undo_its_photos()
{
    MainWindow &window = *app.window;
    click(window.button_fix_time);
    app.load_dated_photo("d");
    app.tool.forget();
    progress_watch progress(*window.progress_fix);
    progress.at(1, click_once_soon(window.button_fix_time));
    click(window.button_undo);
    QCOMPARE(app.written_names(), QStringList({"a", "d", "b", "c"}));
    QVERIFY(window.undo_map.isEmpty());
    QVERIFY(!window.button_undo->isEnabled());
    QVERIFY(!window.progress_fix->isVisible());
}

void test_fix_interruptions::undo_during_an_undo_writes_all_photos_again()
{
    undo_with([this] { click(app.window->button_undo); });
    QCOMPARE(app.written_names(), QStringList({"a", "a", "b", "c", "b", "c"}));
    QVERIFY(app.window->undo_map.isEmpty());
    QVERIFY(!app.window->button_undo->isEnabled());
}

void test_fix_interruptions::cleared_list_leaves_an_undo_its_photos()
{
    undo_with([this] { click(app.window->button_reset); });
    QCOMPARE(app.written_names(), QStringList({"a", "b", "c"}));
}

void test_fix_interruptions::dropped_photo_is_loaded_during_an_undo()
{
    undo_with([this] { app.load_dated_photo("d"); });
    QCOMPARE(app.written_names(), QStringList({"a", "b", "c"}));
    QCOMPARE(shown_names(*app.window), QStringList{"d"});
    QVERIFY(!app.window->progress_fix->isVisible());
    QVERIFY(!app.window->progress_load->isVisible());
}

KELVRA_PROGRAM_TEST_MAIN(test_fix_interruptions)
#include "test_fix_interruptions.moc"
