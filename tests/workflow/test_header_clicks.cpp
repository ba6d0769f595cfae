// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"

#include <QHeaderView>
#include <QTableView>

namespace
{

using column = table_data_model::column;

QString dated(const char *time)
{
    return QString("ExifIFD:DateTimeOriginal=") + time;
}

/// Counts how often a model's layout changes during its lifetime, by a sort or for another reason.
class layout_count
{
public:
    explicit layout_count(const table_data_model &model)
    {
        QObject::connect(&model, &QAbstractItemModel::layoutChanged, &context, [this] { ++count; });
    }

    int value() const { return count; }

private:
    int count = 0;
    QObject context;
};

}  // namespace

class test_header_clicks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { app.end(); }

    void table_starts_sorted_by_ascending_name();
    void clicks_sort_data();
    void clicks_sort();
    void third_header_is_refused_data();
    void third_header_is_refused();
    void one_click_sorts_once();
    void click_on_an_empty_table_is_remembered();
    void intake_sorts_once_by_the_current_key();
    void reset_keeps_the_sort_for_the_next_files();
    void fix_keeps_the_sort_for_the_next_files();
    void typed_shift_moves_no_row();
    void chosen_format_moves_no_row();
    void fix_follows_the_sorted_order();

private:
    void load_three();
    QPair<int, Qt::SortOrder> indicator() const;

    fake_tool_window app;
    QHeaderView *header = nullptr;
};

void test_header_clicks::init()
{
    app.start();
    header = app.window->ui->tableView->horizontalHeader();
    QVERIFY(header);
}

/// Sorted by name they are a, b, c; by recording time b, c, a.
void test_header_clicks::load_three()
{
    drop_photos(*app.window, {app.make_photo("c.jpg", {dated("2017:01:31 10:00:00")}),
                              app.make_photo("a.jpg", {dated("2018:05:03 12:00:00")}),
                              app.make_photo("b.jpg", {dated("2017:01:30 12:00:00")})});
}

QPair<int, Qt::SortOrder> test_header_clicks::indicator() const
{
    return {header->sortIndicatorSection(), header->sortIndicatorOrder()};
}

void test_header_clicks::table_starts_sorted_by_ascending_name()
{
    QCOMPARE(app.window->model->rowCount(), 0);
    QCOMPARE(app.window->model->sort_column, int{column::name_column});
    QCOMPARE(app.window->model->sort_order, Qt::AscendingOrder);
    QCOMPARE(indicator(), qMakePair(int{column::name_column}, Qt::AscendingOrder));
    load_three();
    QCOMPARE(shown_names(*app.window), QStringList({"a.jpg", "b.jpg", "c.jpg"}));
}

void test_header_clicks::clicks_sort_data()
{
    QTest::addColumn<QList<int>>("clicks");
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::addColumn<QStringList>("names");
    const QStringList by_name = {"a.jpg", "b.jpg", "c.jpg"};
    const QStringList by_name_down = {"c.jpg", "b.jpg", "a.jpg"};
    const QStringList by_time = {"b.jpg", "c.jpg", "a.jpg"};
    const QStringList by_time_down = {"a.jpg", "c.jpg", "b.jpg"};
    // clang-format off
    QTest::newRow("name turns from its first order") << QList<int>{0} << Qt::DescendingOrder << by_name_down;
    QTest::newRow("name turns back") << QList<int>{0, 0} << Qt::AscendingOrder << by_name;
    QTest::newRow("time starts upwards") << QList<int>{1} << Qt::AscendingOrder << by_time;
    QTest::newRow("time clicked again turns") << QList<int>{1, 1} << Qt::DescendingOrder << by_time_down;
    QTest::newRow("time a third time turns back") << QList<int>{1, 1, 1} << Qt::AscendingOrder << by_time;
    QTest::newRow("name after time starts upwards") << QList<int>{1, 1, 0} << Qt::AscendingOrder << by_name;
    QTest::newRow("name twice after time") << QList<int>{1, 0, 0} << Qt::DescendingOrder << by_name_down;
    // clang-format on
}

void test_header_clicks::clicks_sort()
{
    QFETCH(QList<int>, clicks);
    QFETCH(Qt::SortOrder, order);
    load_three();
    for (const int section : clicks)
        click_header(*app.window, section);
    QTEST(shown_names(*app.window), "names");
    QCOMPARE(indicator(), qMakePair(clicks.last(), order));
    QCOMPARE(app.window->model->sort_column, clicks.last());
    QCOMPARE(app.window->model->sort_order, order);
}

void test_header_clicks::third_header_is_refused_data()
{
    QTest::addColumn<QList<int>>("clicks");
    QTest::newRow("name, up") << QList<int>{};
    QTest::newRow("name, down") << QList<int>{0};
    QTest::newRow("time, up") << QList<int>{1};
    QTest::newRow("time, down") << QList<int>{1, 1};
}

void test_header_clicks::third_header_is_refused()
{
    QFETCH(QList<int>, clicks);
    load_three();
    for (const int section : clicks)
        click_header(*app.window, section);
    const QStringList names = shown_names(*app.window);
    const auto shown = indicator();
    for (int repeat = 0; repeat < 3; ++repeat) {
        const layout_count sorted(*app.window->model);
        QSignalSpy refused(app.window->model, &table_data_model::sort_order_override);
        click_header(*app.window, column::new_recording_time_column);
        QCOMPARE(refused.size(), 1);
        QCOMPARE(sorted.value(), 1);
        QCOMPARE(shown_names(*app.window), names);
        QCOMPARE(indicator(), shown);
        QCOMPARE(app.window->model->sort_column, shown.first);
        QCOMPARE(app.window->model->sort_order, shown.second);
    }
}

void test_header_clicks::one_click_sorts_once()
{
    load_three();
    const layout_count sorted(*app.window->model);
    QSignalSpy refused(app.window->model, &table_data_model::sort_order_override);
    click_header(*app.window, column::recording_time_column);
    QCOMPARE(sorted.value(), 1);
    QCOMPARE(refused.size(), 0);
}

void test_header_clicks::click_on_an_empty_table_is_remembered()
{
    click_header(*app.window, column::recording_time_column);
    click_header(*app.window, column::recording_time_column);
    load_three();
    QCOMPARE(shown_names(*app.window), QStringList({"a.jpg", "c.jpg", "b.jpg"}));
}

void test_header_clicks::intake_sorts_once_by_the_current_key()
{
    load_three();
    click_header(*app.window, column::recording_time_column);
    click_header(*app.window, column::recording_time_column);
    const layout_count sorted(*app.window->model);
    drop_photos(*app.window, {app.make_photo("d.jpg", {dated("2017:06:01 00:00:00")}),
                              app.make_photo("e.jpg", {dated("2019:06:01 00:00:00")})});
    QCOMPARE(sorted.value(), 1);
    QCOMPARE(shown_names(*app.window), QStringList({"e.jpg", "a.jpg", "d.jpg", "c.jpg", "b.jpg"}));
}

void test_header_clicks::reset_keeps_the_sort_for_the_next_files()
{
    load_three();
    click_header(*app.window, column::recording_time_column);
    click_header(*app.window, column::recording_time_column);
    click(app.window->button_reset);
    QCOMPARE(app.window->model->rowCount(), 0);
    QCOMPARE(indicator(), qMakePair(int{column::recording_time_column}, Qt::DescendingOrder));
    load_three();
    QCOMPARE(shown_names(*app.window), QStringList({"a.jpg", "c.jpg", "b.jpg"}));
}

void test_header_clicks::fix_keeps_the_sort_for_the_next_files()
{
    load_three();
    click_header(*app.window, column::name_column);
    click(app.window->button_fix_time);
    QCOMPARE(app.window->model->rowCount(), 0);
    QCOMPARE(indicator(), qMakePair(int{column::name_column}, Qt::DescendingOrder));
    load_three();
    QCOMPARE(shown_names(*app.window), QStringList({"c.jpg", "b.jpg", "a.jpg"}));
}

void test_header_clicks::typed_shift_moves_no_row()
{
    load_three();
    click_header(*app.window, column::recording_time_column);
    type_shift(*app.window, "month", "1");
    QCOMPARE(shown_names(*app.window), QStringList({"b.jpg", "c.jpg", "a.jpg"}));
    QCOMPARE(
        shown_column(*app.window, column::new_recording_time_column),
        QStringList({"28.02.2017 - 12:00:00", "28.02.2017 - 10:00:00", "03.06.2018 - 12:00:00"}));
    type_shift(*app.window, "timezone", "3");
    QCOMPARE(shown_names(*app.window), QStringList({"b.jpg", "c.jpg", "a.jpg"}));
    QCOMPARE(shown_column(*app.window, column::new_recording_time_column),
             QStringList({"28.02.2017 - 12:00:00  UTC+03:00", "28.02.2017 - 10:00:00  UTC+03:00",
                          "03.06.2018 - 12:00:00  UTC+03:00"}));
    QCOMPARE(
        shown_column(*app.window, column::recording_time_column),
        QStringList({"30.01.2017 - 12:00:00", "31.01.2017 - 10:00:00", "03.05.2018 - 12:00:00"}));
}

void test_header_clicks::chosen_format_moves_no_row()
{
    load_three();
    click_header(*app.window, column::recording_time_column);
    auto *format = app.window->findChild<QAbstractButton *>("rb_mmddyyyy_slash");
    QVERIFY(format);
    click(format);
    QCOMPARE(shown_names(*app.window), QStringList({"b.jpg", "c.jpg", "a.jpg"}));
    for (const int i : {column::recording_time_column, column::new_recording_time_column})
        QCOMPARE(shown_column(*app.window, i),
                 QStringList(
                     {"01/30/2017 - 12:00:00", "01/31/2017 - 10:00:00", "05/03/2018 - 12:00:00"}));
}

void test_header_clicks::fix_follows_the_sorted_order()
{
    load_three();
    click_header(*app.window, column::recording_time_column);
    app.tool.forget();
    click(app.window->button_fix_time);
    QCOMPARE(app.written_names(), QStringList({"b.jpg", "c.jpg", "a.jpg"}));
}

KELVRA_PROGRAM_TEST_MAIN(test_header_clicks)

#include "test_header_clicks.moc"
