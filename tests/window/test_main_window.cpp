// SPDX-License-Identifier: GPL-3.0-or-later

#include "exif_cache.h"
#include "orv/radio.h"
#include "program_test_main.h"
#include "scripted_tool.h"
#include "when_modal.h"
#include "window_actions.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QPointer>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

#include <algorithm>

namespace
{

const QStringList one_photo = {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"};

}  // namespace

class test_main_window : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void constructor_shows_nothing();
    void keyboard_starts_in_the_year_field();
    void program_font_is_set();
    void window_stays_larger_than_its_minimum();
    void tab_goes_from_the_shift_to_the_formats();
    void table_starts_with_the_stored_format();
    void nothing_is_stored_by_opening_and_closing();
    void model_outlives_the_window();
    void drop_loads_the_photos();
    void format_click_reaches_the_table();
    void typed_shift_reaches_the_table();
    void load_button_opens_the_file_dialog();
    void third_header_restores_the_sorting();
    void clear_empties_table_shift_and_cache();
    void clear_keeps_sorting_and_format();
    void fix_and_undo_buttons_run_their_batches();
    void undo_can_still_run_after_a_clear();
    void undo_stays_as_it_is_while_files_and_formats_change();
    void fix_of_an_empty_list_enables_nothing();
    void other_buttons_stay_enabled();

private:
    template <class Widget>
    Widget *find(const QString &name)
    {
        auto *widget = window->findChild<Widget *>(name);
        if (!widget)
            qFatal("no %s", qPrintable(name));
        return widget;
    }

    void show();
    void drop(const QStringList &names);
    void fix_one_photo();
    QString cell(int row, int column);

    scripted_tool tool;
    QTemporaryDir photos;
    MainWindow *window = nullptr;
};

void test_main_window::init()
{
    clear_settings();
    tool.forget();
    window = new MainWindow(nullptr);
}

void test_main_window::cleanup()
{
    delete window;
    exif_cache::instance()->records.clear();
    exif_cache::instance()->raw_tags.clear();
}

void test_main_window::show()
{
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window));
}

/// Makes the files, each a photo taken at noon on 3 May 2017, and drops them.
void test_main_window::drop(const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names) {
        tool.set_tags(name, one_photo);
        make_file(photos.filePath(name));
        paths << photos.filePath(name);
    }
    drop_photos(*window, paths);
}

void test_main_window::fix_one_photo()
{
    drop({"beach.jpg"});
    type_shift(*window, "timezone", "2");
    click(window->button_fix_time);
}

QString test_main_window::cell(int row, int column)
{
    return window->model->index(row, column).data().toString();
}

void test_main_window::constructor_shows_nothing()
{
    QVERIFY(!window->isVisible());
    QVERIFY(!window->parent());
    QVERIFY(window->undo_map.isEmpty());
    QCOMPARE(tool.input(), QByteArray());
}

void test_main_window::keyboard_starts_in_the_year_field()
{
    show();
    QCOMPARE(QApplication::focusWidget(), shift_field(*window, "year"));
    QTest::keyClicks(QApplication::focusWidget(), "3");
    QCOMPARE(window->model->year, 3);
}

void test_main_window::program_font_is_set()
{
    QCOMPARE(QApplication::font().family(), QString("FreeSans"));
    QCOMPARE(QApplication::font().pointSize(), 9);
}

void test_main_window::window_stays_larger_than_its_minimum()
{
    show();
    window->resize(100, 100);
    QCOMPARE(window->size(), QSize(800, 600));
}

void test_main_window::tab_goes_from_the_shift_to_the_formats()
{
    show();
    QWidget *zone_field = shift_field(*window, "timezone");
    zone_field->setFocus();
    QTest::keyClick(zone_field, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), find<orv::radio>("rb_ddmmyyyy_slash"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), find<orv::radio>("rb_hhmmss"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), shift_field(*window, "year"));
}

void test_main_window::table_starts_with_the_stored_format()
{
    QCOMPARE(window->model->display_format, QString("dd.MM.yyyy - HH:mm:ss"));
    QSettings().setValue("date_format", "MMMM yyyy");
    QSettings().setValue("time_format", "HH:mm");
    const MainWindow other(nullptr);
    QCOMPARE(other.model->display_format, QString("MMMM yyyy - HH:mm"));
}

void test_main_window::nothing_is_stored_by_opening_and_closing()
{
    show();
    type_shift(*window, "year", "1");
    window->close();
    delete window;
    window = nullptr;
    QCOMPARE(QSettings().allKeys(), QStringList());
}

void test_main_window::model_outlives_the_window()
{
    const QPointer<table_data_model> model = window->model;
    delete window;
    window = nullptr;
    QVERIFY(model);
}

void test_main_window::drop_loads_the_photos()
{
    show();
    drop({"b.jpg", "a.jpg"});
    QCOMPARE(window->model->rowCount(), 2);
    QCOMPARE(cell(0, 0), QString("a.jpg"));
    QCOMPARE(cell(1, 0), QString("b.jpg"));
    QCOMPARE(cell(0, 1), QString("03.05.2017 - 12:00:00"));
}

void test_main_window::format_click_reaches_the_table()
{
    show();
    drop({"beach.jpg"});
    auto *button = find<orv::radio>("rb_yyyymmdd_slash");
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, {8, button->height() / 2});
    QCOMPARE(cell(0, 1), QString("2017/05/03 - 12:00:00"));
    QCOMPARE(cell(0, 2), QString("2017/05/03 - 12:00:00"));
}

void test_main_window::typed_shift_reaches_the_table()
{
    show();
    drop({"beach.jpg"});
    const QStringList fields = {"year", "month", "day", "hour", "minute", "second"};
    for (int i = 0; i < fields.size(); ++i)
        type_shift(*window, fields[i], QString::number(i + 1));
    type_shift(*window, "timezone", "-3.5");
    QCOMPARE(cell(0, 1), QString("03.05.2017 - 12:00:00"));
    QCOMPARE(cell(0, 2), QString("06.07.2018 - 16:05:06  UTC-03:30"));
    const table_data_model *model = window->model;
    QCOMPARE((QList<int>{model->year, model->month, model->day, model->hour, model->minute,
                         model->second}),
             QList<int>({1, 2, 3, 4, 5, 6}));
    QVERIFY(model->alter_timezone);
    QCOMPARE(model->timezone, -3.5);
}

void test_main_window::load_button_opens_the_file_dialog()
{
    show();
    when_modal<QFileDialog> answer([](QFileDialog &dialog) { dialog.reject(); });
    click(window->button_load_images);
    QVERIFY(answer.answered());
    QCOMPARE(window->model->rowCount(), 0);
}

void test_main_window::third_header_restores_the_sorting()
{
    show();
    const QHeaderView *header = window->ui->tableView->horizontalHeader();
    click_header(*window, 0);
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
    click_header(*window, 2);
    QCOMPARE(header->sortIndicatorSection(), 0);
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
    click_header(*window, 1);
    QCOMPARE(header->sortIndicatorSection(), 1);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    QCOMPARE(window->model->sort_column, 1);
}

void test_main_window::clear_empties_table_shift_and_cache()
{
    show();
    drop({"a.jpg", "b.jpg"});
    type_shift(*window, "year", "4");
    type_shift(*window, "timezone", "2");
    QVERIFY(!exif_cache::instance()->records.empty());
    click(window->button_reset);
    QCOMPARE(window->model->rowCount(), 0);
    for (const orv::lineedit *field : window->findChildren<orv::lineedit *>())
        QCOMPARE(field->text(), QString());
    QCOMPARE(window->model->year, 0);
    QVERIFY(!window->model->alter_timezone);
    QVERIFY(exif_cache::instance()->records.empty());
    QVERIFY(exif_cache::instance()->raw_tags.empty());
}

void test_main_window::clear_keeps_sorting_and_format()
{
    show();
    window->ui->tableView->horizontalHeader()->setSortIndicator(1, Qt::DescendingOrder);
    const QString format = window->model->display_format;
    drop({"a.jpg"});
    click(window->button_reset);
    QCOMPARE(window->model->sort_column, 1);
    QCOMPARE(window->model->sort_order, Qt::DescendingOrder);
    QCOMPARE(window->ui->tableView->horizontalHeader()->sortIndicatorSection(), 1);
    QCOMPARE(window->model->display_format, format);
}

void test_main_window::fix_and_undo_buttons_run_their_batches()
{
    show();
    fix_one_photo();
    QCOMPARE(window->undo_map.keys(), QStringList(photos.filePath("beach.jpg")));
    QVERIFY(window->button_undo->isEnabled());
    QCOMPARE(window->model->rowCount(), 0);
    QCOMPARE(shift_field(*window, "timezone")->text(), QString());
    const int requests_of_the_fix = tool.requests().size();
    click(window->button_undo);
    QVERIFY(tool.requests().size() > requests_of_the_fix);
    QVERIFY(window->undo_map.isEmpty());
    QVERIFY(!window->button_undo->isEnabled());
}

void test_main_window::undo_can_still_run_after_a_clear()
{
    show();
    fix_one_photo();
    click(window->button_reset);
    QVERIFY(window->button_undo->isEnabled());
    QCOMPARE(window->undo_map.size(), 1);
}

void test_main_window::undo_stays_as_it_is_while_files_and_formats_change()
{
    show();
    drop({"a.jpg"});
    find<orv::radio>("rb_hhmm")->click();
    QVERIFY(!window->button_undo->isEnabled());
    fix_one_photo();
    QVERIFY(window->button_undo->isEnabled());
    drop({"b.jpg"});
    find<orv::radio>("rb_hhmmss")->click();
    QVERIFY(window->button_undo->isEnabled());
}

void test_main_window::fix_of_an_empty_list_enables_nothing()
{
    show();
    click(window->button_fix_time);
    QVERIFY(!window->button_undo->isEnabled());
    QCOMPARE(tool.requests().size(), 0);
}

void test_main_window::other_buttons_stay_enabled()
{
    show();
    const QList<orv::button_dark *> buttons = {window->button_fix_time,    window->button_settings,
                                               window->button_help,        window->button_about,
                                               window->button_load_images, window->button_reset};
    const auto all_enabled = [&buttons] {
        return std::all_of(buttons.begin(), buttons.end(),
                           [](const QWidget *button) { return button->isEnabled(); });
    };
    QVERIFY(all_enabled());
    fix_one_photo();
    QVERIFY(all_enabled());
    click(window->button_undo);
    QVERIFY(all_enabled());
}

KELVRA_PROGRAM_TEST_MAIN(test_main_window)
#include "test_main_window.moc"
