#include "stand_in_road.h"
#include "test_main.h"

namespace
{

/// An action that clicks only when it is run for the first time, since a batch inside of another
/// comes by the same values.
std::function<void()> click_once_soon(QWidget *widget)
{
    return [widget, clicked = false]() mutable {
        if (!clicked)
            click_soon(widget);
        clicked = true;
    };
}

}  // namespace

/// The events between two rows let the user press anything.
class test_fix_interruptions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { road.end(); }

    void user_input_is_taken_between_two_rows();
    void cleared_list_ends_the_batch();
    void cleared_list_hides_the_progress();
    void progress_is_painted_from_the_start_after_a_batch_that_ended_early();
    void cleared_list_before_the_first_row_leaves_nothing_to_do();
    void second_fix_runs_inside_of_the_first();
    void undo_is_not_to_be_had_meanwhile();
    void dropped_photo_lengthens_the_batch();
    void new_shift_holds_for_the_rows_to_come();
    void fix_during_an_undo_leaves_the_undo_its_photos();

private:
    stand_in_road road;
};

void test_fix_interruptions::init()
{
    road.start();
    for (const char *name : {"a", "b", "c"})
        road.load_dated_photo(name);
    road.tool.forget();
}

void test_fix_interruptions::user_input_is_taken_between_two_rows()
{
    MainWindow &window = *road.window;
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
    MainWindow &window = *road.window;
    progress_watch progress(*window.progress_fix);
    progress.at(1, [&] { click_soon(window.button_reset); });
    click(window.button_fix_time);
    QCOMPARE(road.written_names(), QStringList{"a"});
    QCOMPARE(progress.values, QList<int>({0, 1}));
    QCOMPARE(window.undo_map.keys(), QStringList{road.path_of("a")});
    QVERIFY(window.button_undo->isEnabled());
}

void test_fix_interruptions::cleared_list_hides_the_progress()
{
    MainWindow &window = *road.window;
    progress_watch progress(*window.progress_fix);
    progress.at(1, [&] { click_soon(window.button_reset); });
    click(window.button_fix_time);
    QVERIFY(!window.progress_fix->isVisible());
}

void test_fix_interruptions::progress_is_painted_from_the_start_after_a_batch_that_ended_early()
{
    MainWindow &window = *road.window;
    {
        progress_watch progress(*window.progress_fix);
        progress.at(1, [&] {
            window.progress_fix->setUpdatesEnabled(false);
            click_soon(window.button_reset);
        });
        click(window.button_fix_time);
    }
    road.load_dated_photo("d");
    QList<bool> painted;
    progress_watch progress(*window.progress_fix);
    for (const int value : {0, 1})
        progress.at(value, [&] { painted << window.progress_fix->updatesEnabled(); });
    click(window.button_fix_time);
    QCOMPARE(painted, QList<bool>({true, true}));
}

void test_fix_interruptions::cleared_list_before_the_first_row_leaves_nothing_to_do()
{
    MainWindow &window = *road.window;
    progress_watch progress(*window.progress_fix);
    progress.at(0, [&] { click_soon(window.button_reset); });
    click(window.button_fix_time);
    QCOMPARE(road.written_names(), QStringList());
    QVERIFY(window.undo_map.isEmpty());
    QVERIFY(!window.button_undo->isEnabled());
}

void test_fix_interruptions::second_fix_runs_inside_of_the_first()
{
    MainWindow &window = *road.window;
    progress_watch progress(*window.progress_fix);
    progress.at(1, click_once_soon(window.button_fix_time));
    click(window.button_fix_time);
    QCOMPARE(road.written_names(), QStringList({"a", "a", "b", "c"}));
    QCOMPARE(window.undo_map.size(), 3);
    QVERIFY(window.button_undo->isEnabled());
    QCOMPARE(window.model->rowCount(), 0);
}

void test_fix_interruptions::undo_is_not_to_be_had_meanwhile()
{
    MainWindow &window = *road.window;
    click(window.button_fix_time);
    QVERIFY(window.button_undo->isEnabled());
    road.load_dated_photo("d");
    road.load_dated_photo("e");
    road.tool.forget();
    progress_watch progress(*window.progress_fix);
    progress.at(1, [&] { click_soon(window.button_undo); });
    click(window.button_fix_time);
    QCOMPARE(road.written_names(), QStringList({"d", "e"}));
    QCOMPARE(window.undo_map.size(), 2);
}

void test_fix_interruptions::dropped_photo_lengthens_the_batch()
{
    MainWindow &window = *road.window;
    progress_watch progress(*window.progress_fix);
    progress.at(2, [&] {
        if (!window.model->files.contains(road.path_of("d")))
            road.load_dated_photo("d");
    });
    click(window.button_fix_time);
    QCOMPARE(road.written_names(), QStringList({"a", "b", "c", "d"}));
    QCOMPARE(window.undo_map.size(), 4);
}

void test_fix_interruptions::new_shift_holds_for_the_rows_to_come()
{
    MainWindow &window = *road.window;
    progress_watch progress(*window.progress_fix);
    progress.at(2, [&] { type_shift(window, "hour", "1"); });
    click(window.button_fix_time);
    QStringList times;
    for (const auto &write : road.writes())
        times << write.second.value(0).section('=', 1);
    QCOMPARE(times,
             QStringList({"2017:05:03 12:00:00", "2017:05:03 12:00:00", "2017:05:03 13:00:00"}));
}

void test_fix_interruptions::fix_during_an_undo_leaves_the_undo_its_photos()
{
    MainWindow &window = *road.window;
    click(window.button_fix_time);
    road.load_dated_photo("d");
    road.tool.forget();
    progress_watch progress(*window.progress_fix);
    progress.at(1, click_once_soon(window.button_fix_time));
    click(window.button_undo);
    QCOMPARE(road.written_names(), QStringList({"a", "d", "b", "c"}));
    QVERIFY(window.undo_map.isEmpty());
    QVERIFY(!window.button_undo->isEnabled());
    QVERIFY(!window.progress_fix->isVisible());
}

KELVRA_TEST_MAIN(test_fix_interruptions)
#include "test_fix_interruptions.moc"
