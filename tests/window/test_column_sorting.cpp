// SPDX-License-Identifier: GPL-3.0-or-later

#include "exif_cache.h"
#include "program_test_main.h"
#include "table_data_model.h"

#include <QRegularExpression>

#include <algorithm>
#include <functional>

namespace
{

using column = table_data_model::column;

const QStringList layout_signals = {"layoutAboutToBeChanged", "layoutChanged"};

QStringList sorted(QStringList texts)
{
    std::sort(texts.begin(), texts.end());
    return texts;
}

}  // namespace

class test_column_sorting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void many_files_sort_by_time();
    void file_without_a_path_sorts_by_its_time();
    void files_sort_by_name_data();
    void files_sort_by_name();
    void names_sort_as_the_locale_does();
    void files_sort_by_recording_time_data();
    void files_sort_by_recording_time();
    void shift_does_not_affect_the_sort_by_recording_time();
    void equal_times_keep_every_file();
    void files_without_a_date_stay_in_the_list_data();
    void files_without_a_date_stay_in_the_list();
    void layout_signals_surround_the_sorting();
    void state_is_stored_after_the_last_signal();
    void empty_list_goes_through_the_same_steps();
    void persistent_indexes_stay_where_they_are();
    void other_columns_sort_nothing_data();
    void other_columns_sort_nothing();
    void other_columns_before_the_first_sort_name_no_column();
    void resort_repeats_the_last_sort_data();
    void resort_repeats_the_last_sort();
    void sort_outlives_clear();

private:
    void use_times(const QMap<QString, QString> &times);
    QStringList log_signals(const std::function<void()> &action);

    std::unique_ptr<table_data_model> model;
};

void test_column_sorting::init()
{
    model = std::make_unique<table_data_model>(nullptr);
}

void test_column_sorting::cleanup()
{
    exif_cache::instance()->records.clear();
}

/// Fills the list with these paths and recording times; an empty text means none.
void test_column_sorting::use_times(const QMap<QString, QString> &times)
{
    model->files = times.keys();
    for (auto file = times.begin(); file != times.end(); ++file) {
        tag_map &record = exif_cache::instance()->records[file.key().toStdString()];
        const QStringList parts = file.value().split(QRegularExpression("[: ]"));
        const char *keys[] = {"rec_year", "rec_month",  "rec_day",
                              "rec_hour", "rec_minute", "rec_second"};
        for (int i = 0; i < parts.size() && parts.size() > 1; ++i)
            record[keys[i]] = parts[i].toStdString();
    }
}

QStringList test_column_sorting::log_signals(const std::function<void()> &action)
{
    QStringList names;
    QObject context;
    connect(model.get(), &QAbstractItemModel::layoutAboutToBeChanged, &context,
            [&names] { names << "layoutAboutToBeChanged"; });
    connect(model.get(), &QAbstractItemModel::layoutChanged, &context,
            [&names] { names << "layoutChanged"; });
    connect(model.get(), &table_data_model::sort_order_override, &context,
            [&names](int column, Qt::SortOrder order) {
                names << QString("sort_order_override %1 %2").arg(column).arg(order);
            });
    action();
    return names;
}

void test_column_sorting::many_files_sort_by_time()
{
    constexpr int count = 400;
    constexpr int scattered = 37;
    QMap<QString, QString> times;
    QStringList expected;
    for (int i = 0; i < count; ++i) {
        const QString path = QString("/p/%1.jpg").arg(i * scattered % count);
        const QTime time = QTime(12, 0).addSecs(i);
        times[path] = "2017:05:03 " + time.toString("hh:mm:ss");
        expected << path;
    }
    use_times(times);
    model->sort(column::recording_time_column, Qt::AscendingOrder);
    QCOMPARE(model->files, expected);
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    std::reverse(expected.begin(), expected.end());
    QCOMPARE(model->files, expected);
}

void test_column_sorting::file_without_a_path_sorts_by_its_time()
{
    use_times({{QString(), "2017:05:03 13:00:00"}, {"/p/a.jpg", "2017:05:03 12:00:00"}});
    model->sort(column::recording_time_column, Qt::AscendingOrder);
    QCOMPARE(model->files, QStringList({"/p/a.jpg", QString()}));
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    QCOMPARE(model->files, QStringList({QString(), "/p/a.jpg"}));
}

void test_column_sorting::files_sort_by_name_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("expected");
    // clang-format off
    QTest::newRow("name") << QStringList{"/p/b.jpg", "/p/c.jpg", "/p/a.jpg"} << QStringList{"/p/a.jpg", "/p/b.jpg", "/p/c.jpg"};
    QTest::newRow("name before folder") << QStringList{"/a/z.jpg", "/z/a.jpg"} << QStringList{"/z/a.jpg", "/a/z.jpg"};
    QTest::newRow("same name by the full path")
        << QStringList{"/c/x.jpg", "/a/x.jpg", "/b/x.jpg"} << QStringList{"/a/x.jpg", "/b/x.jpg", "/c/x.jpg"};
    QTest::newRow("same names among others")
        << QStringList{"/b/x.jpg", "/a/y.jpg", "/a/x.jpg", "/c/w.jpg"}
        << QStringList{"/c/w.jpg", "/a/x.jpg", "/b/x.jpg", "/a/y.jpg"};
    QTest::newRow("digits as characters") << QStringList{"/p/img2.jpg", "/p/img10.jpg"} << QStringList{"/p/img10.jpg", "/p/img2.jpg"};
    QTest::newRow("one file") << QStringList{"/p/a.jpg"} << QStringList{"/p/a.jpg"};
    // clang-format on
}

void test_column_sorting::files_sort_by_name()
{
    QFETCH(QStringList, files);
    QFETCH(QStringList, expected);
    model->files = files;
    model->sort(column::name_column, Qt::AscendingOrder);
    QCOMPARE(model->files, expected);
    model->sort(column::name_column, Qt::DescendingOrder);
    std::reverse(expected.begin(), expected.end());
    QCOMPARE(model->files, expected);
}

void test_column_sorting::names_sort_as_the_locale_does()
{
    QVERIFY(QString::localeAwareCompare("a", "B") < 0);
    const auto paths = [](const QStringList &names) {
        QStringList all;
        for (const QString &name : names)
            all << "/p/" + name;
        return all;
    };
    const QString umlaut = QString::fromUtf8("ä.jpg");
    model->files = paths({"z.jpg", umlaut, "B.jpg", "a.jpg"});
    model->sort(column::name_column, Qt::AscendingOrder);
    QCOMPARE(model->files, paths({"a.jpg", umlaut, "B.jpg", "z.jpg"}));
    model->sort(column::name_column, Qt::DescendingOrder);
    QCOMPARE(model->files, paths({"z.jpg", "B.jpg", umlaut, "a.jpg"}));

    model->files = QStringList{"/B/x.jpg", "/a/x.jpg"};
    model->sort(column::name_column, Qt::AscendingOrder);
    QCOMPARE(model->files, QStringList({"/a/x.jpg", "/B/x.jpg"}));
}

void test_column_sorting::files_sort_by_recording_time_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QStringList>("expected");
    const QStringList a_first = {"/p/a.jpg", "/p/b.jpg"};
    const QStringList b_first = {"/p/b.jpg", "/p/a.jpg"};
    // clang-format off
    QTest::newRow("second") << "2017:05:03 12:00:01" << "2017:05:03 12:00:00" << b_first;
    QTest::newRow("day before hour") << "2017:05:03 23:00:00" << "2017:05:04 01:00:00" << a_first;
    QTest::newRow("month before day") << "2017:06:01 00:00:00" << "2017:05:31 00:00:00" << b_first;
    QTest::newRow("number, not text") << "2017:5:03 12:00:00" << "2017:10:03 12:00:00" << a_first;
    QTest::newRow("date alone is midnight") << "2017:05:03 00:00:01" << "2017:05:03" << b_first;
    QTest::newRow("before 1970") << "1960:01:01 00:00:00" << "1950:01:01 00:00:00" << b_first;
    // clang-format on
}

void test_column_sorting::files_sort_by_recording_time()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QStringList, expected);
    use_times({{"/p/a.jpg", a}, {"/p/b.jpg", b}});
    model->sort(column::recording_time_column, Qt::AscendingOrder);
    QCOMPARE(model->files, expected);
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    std::reverse(expected.begin(), expected.end());
    QCOMPARE(model->files, expected);
}

void test_column_sorting::shift_does_not_affect_the_sort_by_recording_time()
{
    use_times({{"/p/a.jpg", "2017:01:31 10:00:00"}, {"/p/b.jpg", "2017:01:30 12:00:00"}});
    model->datetime_offset_changed(0, 1, 0, 0, 0, 0, false, 0.0);
    QVERIFY(model->new_recording_time("/p/a.jpg") < model->new_recording_time("/p/b.jpg"));
    model->sort(column::recording_time_column, Qt::AscendingOrder);
    QCOMPARE(model->files, QStringList({"/p/b.jpg", "/p/a.jpg"}));
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    QCOMPARE(model->files, QStringList({"/p/a.jpg", "/p/b.jpg"}));
}

void test_column_sorting::equal_times_keep_every_file()
{
    QMap<QString, QString> times;
    for (int i = 0; i < 100; ++i)
        times[QString("/p/%1.jpg").arg(i)] = i % 2 ? "2017:05:03 12:00:00" : "2016:05:03 12:00:00";
    use_times(times);
    const QStringList all = sorted(model->files);
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        model->sort(column::recording_time_column, order);
        QCOMPARE(sorted(model->files), all);
        const bool later_first = order == Qt::DescendingOrder;
        const int later_from = later_first ? 0 : 50;
        for (int row = 0; row < model->files.size(); ++row) {
            const bool is_later = times[model->files[row]].startsWith("2017");
            QCOMPARE(is_later, row >= later_from && row < later_from + 50);
        }
    }
}

void test_column_sorting::files_without_a_date_stay_in_the_list_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::newRow("name, up") << 0 << Qt::AscendingOrder;
    QTest::newRow("name, down") << 0 << Qt::DescendingOrder;
    QTest::newRow("time, up") << 1 << Qt::AscendingOrder;
    QTest::newRow("time, down") << 1 << Qt::DescendingOrder;
}

void test_column_sorting::files_without_a_date_stay_in_the_list()
{
    QFETCH(int, column);
    QFETCH(Qt::SortOrder, order);
    model->datetime_format_changed("yyyy");
    use_times({{"/p/a.jpg", ""}, {"/p/b.jpg", "2017:05:03 12:00:00"}, {"/p/c.jpg", ""}});
    model->sort(column, order);
    QCOMPARE(sorted(model->files), QStringList({"/p/a.jpg", "/p/b.jpg", "/p/c.jpg"}));
    for (int row = 0; row < model->rowCount(); ++row) {
        const QString expected = model->files[row] == "/p/b.jpg" ? "2017" : "-";
        QCOMPARE(model->index(row, column::recording_time_column).data().toString(), expected);
        QCOMPARE(model->index(row, column::new_recording_time_column).data().toString(), expected);
    }
}

void test_column_sorting::layout_signals_surround_the_sorting()
{
    use_times({{"/p/a.jpg", "2018:05:03 12:00:00"}, {"/p/b.jpg", "2017:05:03 12:00:00"}});
    QStringList first_files;
    connect(model.get(), &QAbstractItemModel::layoutAboutToBeChanged, this,
            [this, &first_files] { first_files << model->files.first(); });
    connect(model.get(), &QAbstractItemModel::layoutChanged, this,
            [this, &first_files] { first_files << model->files.first(); });
    QCOMPARE(log_signals([this] { model->sort(column::recording_time_column); }), layout_signals);
    QCOMPARE(first_files, QStringList({"/p/a.jpg", "/p/b.jpg"}));
}

void test_column_sorting::state_is_stored_after_the_last_signal()
{
    model->sort(column::name_column, Qt::AscendingOrder);
    QList<int> columns;
    connect(model.get(), &QAbstractItemModel::layoutChanged, this,
            [this, &columns] { columns << model->sort_column << model->sort_order; });
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    QCOMPARE(columns, QList<int>({column::name_column, Qt::AscendingOrder}));
    QCOMPARE(model->sort_column, int{column::recording_time_column});
    QCOMPARE(model->sort_order, Qt::DescendingOrder);
}

void test_column_sorting::empty_list_goes_through_the_same_steps()
{
    QCOMPARE(log_signals([this] { model->sort(column::name_column, Qt::DescendingOrder); }),
             layout_signals);
    QCOMPARE(model->sort_column, int{column::name_column});
    QCOMPARE(model->sort_order, Qt::DescendingOrder);
}

void test_column_sorting::persistent_indexes_stay_where_they_are()
{
    model->files = QStringList{"/p/b.jpg", "/p/a.jpg"};
    const QPersistentModelIndex first(model->index(0, 0));
    model->sort(column::name_column, Qt::AscendingOrder);
    QCOMPARE(first.row(), 0);
    QCOMPARE(first.data().toString(), QString("a.jpg"));
}

void test_column_sorting::other_columns_sort_nothing_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("new recording time") << int{column::new_recording_time_column};
    QTest::newRow("none") << -1;
    QTest::newRow("beyond the last") << 3;
    QTest::newRow("far below") << -17;
}

void test_column_sorting::other_columns_sort_nothing()
{
    QFETCH(int, column);
    use_times({{"/p/a.jpg", "2018:05:03 12:00:00"}, {"/p/b.jpg", "2017:05:03 12:00:00"}});
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    const QStringList before = {"/p/b.jpg", "/p/a.jpg"};
    model->files = before;
    QCOMPARE(log_signals([this, column] { model->sort(column, Qt::AscendingOrder); }),
             QStringList({"sort_order_override 1 1"}));
    QCOMPARE(model->files, before);
    QCOMPARE(model->sort_column, int{column::recording_time_column});
    QCOMPARE(model->sort_order, Qt::DescendingOrder);
}

void test_column_sorting::other_columns_before_the_first_sort_name_no_column()
{
    QCOMPARE(log_signals(
                 [this] { model->sort(column::new_recording_time_column, Qt::DescendingOrder); }),
             QStringList({"sort_order_override -1 0"}));
    QCOMPARE(model->sort_column, -1);
}

void test_column_sorting::resort_repeats_the_last_sort_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::addColumn<QStringList>("expected");
    // clang-format off
    QTest::newRow("name, up") << 0 << Qt::AscendingOrder << QStringList{"/p/a.jpg", "/p/b.jpg", "/p/c.jpg"};
    QTest::newRow("name, down") << 0 << Qt::DescendingOrder << QStringList{"/p/c.jpg", "/p/b.jpg", "/p/a.jpg"};
    QTest::newRow("time, up") << 1 << Qt::AscendingOrder << QStringList{"/p/c.jpg", "/p/a.jpg", "/p/b.jpg"};
    QTest::newRow("time, down") << 1 << Qt::DescendingOrder << QStringList{"/p/b.jpg", "/p/a.jpg", "/p/c.jpg"};
    // clang-format on
}

void test_column_sorting::resort_repeats_the_last_sort()
{
    QFETCH(int, column);
    QFETCH(Qt::SortOrder, order);
    model->sort(column, order);
    use_times({{"/p/a.jpg", "2017:01:01 00:00:00"},
               {"/p/b.jpg", "2018:01:01 00:00:00"},
               {"/p/c.jpg", "2016:01:01 00:00:00"}});
    model->files = QStringList{"/p/b.jpg", "/p/c.jpg", "/p/a.jpg"};
    QCOMPARE(log_signals([this] { model->resort(); }), layout_signals);
    QTEST(model->files, "expected");
    QCOMPARE(model->sort_column, column);
    QCOMPARE(model->sort_order, order);
}

void test_column_sorting::sort_outlives_clear()
{
    model->files = QStringList{"/p/a.jpg"};
    model->sort(column::name_column, Qt::DescendingOrder);
    model->clear();
    model->files = QStringList{"/p/a.jpg", "/p/b.jpg"};
    model->resort();
    QCOMPARE(model->files, QStringList({"/p/b.jpg", "/p/a.jpg"}));
}

/// Runs in a locale that doesn't order names by their character codes.
int main(int argc, char **argv)
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    return run_program_test<test_column_sorting>(argc, argv);
}

#include "test_column_sorting.moc"
