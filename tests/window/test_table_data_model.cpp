// SPDX-License-Identifier: GPL-3.0-or-later

#include "exif_cache.h"
#include "program_test_main.h"
#include "scripted_tool.h"
#include "table_data_model.h"

namespace
{

using column = table_data_model::column;

const QString display_format = "dd.MM.yyyy hh:mm:ss";

/// The names of a model's signals, in the order in which they are sent.
class signal_log : public QObject
{
public:
    explicit signal_log(const table_data_model &model)
    {
        using base = QAbstractItemModel;
        note(model, &base::dataChanged, "dataChanged");
        note(model, &base::headerDataChanged, "headerDataChanged");
        note(model, &base::layoutAboutToBeChanged, "layoutAboutToBeChanged");
        note(model, &base::layoutChanged, "layoutChanged");
        note(model, &base::rowsAboutToBeInserted, "rowsAboutToBeInserted");
        note(model, &base::rowsInserted, "rowsInserted");
        note(model, &base::rowsAboutToBeRemoved, "rowsAboutToBeRemoved");
        note(model, &base::rowsRemoved, "rowsRemoved");
        note(model, &base::modelAboutToBeReset, "modelAboutToBeReset");
        note(model, &base::modelReset, "modelReset");
        note(model, &table_data_model::sort_order_override, "sort_order_override");
    }

    QStringList names;

private:
    template <class Signal>
    void note(const table_data_model &model, Signal signal, const QString &name)
    {
        connect(&model, signal, this, [this, name] { names << name; });
    }
};

const QStringList layout_signals = {"layoutAboutToBeChanged", "layoutChanged"};

}  // namespace

class test_table_data_model : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fresh_model_is_empty_and_unsorted();
    void parent_is_ignored_in_counts();
    void cells_cannot_be_edited();

    void file_is_read_when_it_is_added();
    void added_file_is_the_last_row();
    void only_the_list_decides_what_is_listed();
    void file_is_listed_once_data();
    void file_is_listed_once();
    void row_is_announced_around_the_reading();
    void row_is_added_without_signals_unless_requested();
    void file_is_looked_up_in_the_current_list();
    void files_are_added_in_order_and_sorted_once();
    void empty_list_of_files_still_sorts();
    void files_before_the_first_sort_reset_the_header();
    void clear_resets_only_the_rows();

    void cell_by_role_data();
    void cell_by_role();
    void other_roles_and_columns_are_empty();
    void time_cell_text_data();
    void time_cell_text();
    void unreadable_file_shows_dashes();
    void reading_cells_sends_no_request();
    void shift_shows_in_every_row_and_reorders_none();
    void format_shows_in_both_time_columns_and_reorders_no_row();
    void layout_signals_surround_the_change_of_format();
    void layout_signals_surround_the_change_of_shift();
    void layout_signals_name_no_parent_and_no_hint();

private:
    void add(const QString &path, const QStringList &tags);
    QVariant cell(int row, int column, int role = Qt::DisplayRole) const;

    scripted_tool tool;
    std::unique_ptr<table_data_model> model;
};

void test_table_data_model::init()
{
    model = std::make_unique<table_data_model>(nullptr);
    model->datetime_format_changed(display_format);
    tool.forget();
}

void test_table_data_model::cleanup()
{
    exif_cache::instance()->records.clear();
    exif_cache::instance()->raw_tags.clear();
}

void test_table_data_model::add(const QString &path, const QStringList &tags)
{
    tool.set_tags(path.section('/', -1), tags);
    model->add_file(path, true);
}

QVariant test_table_data_model::cell(int row, int column, int role) const
{
    return model->data(model->index(row, column), role);
}

void test_table_data_model::fresh_model_is_empty_and_unsorted()
{
    const table_data_model fresh(nullptr);
    QCOMPARE(fresh.rowCount(), 0);
    QCOMPARE(fresh.columnCount(), 3);
    QCOMPARE(fresh.files, QStringList());
    QCOMPARE(fresh.sort_column, -1);
    QCOMPARE(fresh.sort_order, Qt::AscendingOrder);
    QCOMPARE(fresh.display_format, QString());
    QCOMPARE(fresh.header_font.family(), QString("FreeSansBold"));
    QCOMPARE(fresh.header_font.weight(), 75);
    QCOMPARE(fresh.header_font.pointSize(), 11);
    QVERIFY(!fresh.parent());
}

void test_table_data_model::parent_is_ignored_in_counts()
{
    add("/photos/a.jpg", {});
    add("/photos/b.jpg", {});
    const QModelIndex parent = model->index(0, 0);
    QVERIFY(parent.isValid());
    QCOMPARE(model->rowCount(parent), 2);
    QCOMPARE(model->columnCount(parent), 3);
}

void test_table_data_model::cells_cannot_be_edited()
{
    add("/photos/a.jpg", {});
    for (int i = 0; i < column::column_count; ++i) {
        const QModelIndex index = model->index(0, i);
        QVERIFY(!(model->flags(index) & Qt::ItemIsEditable));
        QVERIFY(!model->setData(index, "b.jpg"));
    }
    QCOMPARE(model->files, QStringList({"/photos/a.jpg"}));
}

void test_table_data_model::file_is_read_when_it_is_added()
{
    add("/photos/a.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    QCOMPARE(tool.input(), QByteArray("-G1\n\n/photos/a.jpg\n-execute\n"));
    QCOMPARE(exif_cache::instance()->record_copy("/photos/a.jpg")["rec_year"], std::string("2017"));
}

void test_table_data_model::added_file_is_the_last_row()
{
    add("/photos/c.jpg", {});
    add("/photos/a.jpg", {});
    model->sort(column::name_column, Qt::AscendingOrder);
    add("/photos/b.jpg", {});
    QCOMPARE(model->files, QStringList({"/photos/a.jpg", "/photos/c.jpg", "/photos/b.jpg"}));
}

void test_table_data_model::only_the_list_decides_what_is_listed()
{
    model->files = QStringList{"/photos/a.jpg", "/photos/b.jpg"};
    model->add_file("/photos/a.jpg", true);
    QCOMPARE(model->rowCount(), 2);
    model->files.clear();
    add("/photos/a.jpg", {});
    QCOMPARE(model->files, QStringList("/photos/a.jpg"));
    model->clear();
    add("/photos/a.jpg", {});
    QCOMPARE(model->files, QStringList("/photos/a.jpg"));
}

void test_table_data_model::file_is_listed_once_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("rows");
    QTest::newRow("same text") << "/photos/a.jpg" << 1;
    QTest::newRow("same file by another text") << "/photos/../photos/a.jpg" << 2;
    QTest::newRow("other case") << "/photos/A.jpg" << 2;
    QTest::newRow("same name in another folder") << "/more/a.jpg" << 2;
}

void test_table_data_model::file_is_listed_once()
{
    QFETCH(QString, path);
    QFETCH(int, rows);
    add("/photos/a.jpg", {});
    tool.forget();
    const signal_log log(*model);
    add(path, {});
    QCOMPARE(model->rowCount(), rows);
    QCOMPARE(log.names.isEmpty(), rows == 1);
    QCOMPARE(tool.requests().size(), rows - 1);
}

void test_table_data_model::row_is_announced_around_the_reading()
{
    add("/photos/a.jpg", {});
    QStringList moments;
    const auto note = [this, &moments](const char *moment) {
        const bool was_read = exif_cache::instance()->raw_tags.count("/photos/b.jpg") > 0;
        moments << QString("%1: %2 rows, %3")
                       .arg(moment)
                       .arg(model->rowCount())
                       .arg(was_read ? "read" : "unread");
    };
    connect(model.get(), &QAbstractItemModel::rowsAboutToBeInserted, this,
            [&note] { note("before"); });
    connect(model.get(), &QAbstractItemModel::rowsInserted, this, [&note] { note("after"); });
    QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
    const signal_log log(*model);
    add("/photos/b.jpg", {});
    QCOMPARE(moments, QStringList({"before: 1 rows, unread", "after: 2 rows, read"}));
    QCOMPARE(log.names, QStringList({"rowsAboutToBeInserted", "rowsInserted"}));
    QCOMPARE(inserted.size(), 1);
    QVERIFY(!inserted[0][0].toModelIndex().isValid());
    QCOMPARE(inserted[0][1].toInt(), 1);
    QCOMPARE(inserted[0][2].toInt(), 1);
}

void test_table_data_model::row_is_added_without_signals_unless_requested()
{
    const signal_log log(*model);
    tool.set_tags("a.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    model->add_file("/photos/a.jpg", false);
    QCOMPARE(log.names, QStringList());
    QCOMPARE(cell(0, column::recording_time_column).toString(), QString("03.05.2017 12:00:00"));
}

void test_table_data_model::file_is_looked_up_in_the_current_list()
{
    model->add_file("/photos/a.jpg", true);
    model->files = QStringList{"/photos/b.jpg"};
    model->add_file("/photos/b.jpg", true);
    QCOMPARE(model->files, QStringList({"/photos/b.jpg"}));
    model->add_file("/photos/a.jpg", true);
    QCOMPARE(model->files, QStringList({"/photos/b.jpg", "/photos/a.jpg"}));
}

void test_table_data_model::files_are_added_in_order_and_sorted_once()
{
    model->sort(column::name_column, Qt::DescendingOrder);
    const signal_log log(*model);
    model->add_files({"/photos/a.jpg", "/photos/c.jpg", "/photos/b.jpg", "/photos/a.jpg"});
    QCOMPARE(tool.requests(), QList<QByteArray>({"-G1\n\n/photos/a.jpg\n-execute\n",
                                                 "-G1\n\n/photos/c.jpg\n-execute\n",
                                                 "-G1\n\n/photos/b.jpg\n-execute\n"}));
    QCOMPARE(model->files, QStringList({"/photos/c.jpg", "/photos/b.jpg", "/photos/a.jpg"}));
    const QStringList row_signals = {"rowsAboutToBeInserted", "rowsInserted"};
    QCOMPARE(log.names, row_signals + row_signals + row_signals + layout_signals);
}

void test_table_data_model::empty_list_of_files_still_sorts()
{
    model->sort(column::recording_time_column, Qt::AscendingOrder);
    const signal_log log(*model);
    model->add_files({});
    QCOMPARE(log.names, layout_signals);
}

void test_table_data_model::files_before_the_first_sort_reset_the_header()
{
    const signal_log log(*model);
    model->add_files({});
    QCOMPARE(log.names, QStringList({"sort_order_override"}));
}

void test_table_data_model::clear_resets_only_the_rows()
{
    add("/photos/a.jpg", {});
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    model->datetime_offset_changed(1, 2, 3, 4, 5, 6, true, 7.5);
    QStringList rows;
    connect(model.get(), &QAbstractItemModel::modelAboutToBeReset, this,
            [this, &rows] { rows << QString("before: %1").arg(model->rowCount()); });
    connect(model.get(), &QAbstractItemModel::modelReset, this,
            [this, &rows] { rows << QString("after: %1").arg(model->rowCount()); });
    const signal_log log(*model);
    model->clear();
    QCOMPARE(log.names, QStringList({"modelAboutToBeReset", "modelReset"}));
    QCOMPARE(rows, QStringList({"before: 1", "after: 0"}));
    QCOMPARE(model->sort_column, int{column::recording_time_column});
    QCOMPARE(model->sort_order, Qt::DescendingOrder);
    QCOMPARE(model->display_format, display_format);
    QCOMPARE(model->year, 1);
    QCOMPARE(model->timezone, 7.5);
    QCOMPARE(exif_cache::instance()->records.count("/photos/a.jpg"), 1UL);
}

void test_table_data_model::cell_by_role_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("expected");
    const QDateTime time(QDate(2017, 5, 3), QTime(12, 0, 0), Qt::LocalTime);
    const QString display_time = "03.05.2017 12:00:00  UTC+02:00";
    const QString new_display_time = "03.05.2017 13:00:00  UTC+05:00";
    // clang-format off
    QTest::newRow("name") << int{Qt::DisplayRole} << 0 << QVariant("a.b.jpg");
    QTest::newRow("time") << int{Qt::DisplayRole} << 1 << QVariant(display_time);
    QTest::newRow("new time") << int{Qt::DisplayRole} << 2 << QVariant(new_display_time);
    QTest::newRow("path") << 256 << 0 << QVariant("/my photos/a.b.jpg");
    QTest::newRow("time as a value") << 256 << 1 << QVariant(time);
    QTest::newRow("new time as a value") << 256 << 2 << QVariant(time.addSecs(3600));
    // clang-format on
}

void test_table_data_model::cell_by_role()
{
    QFETCH(int, role);
    QFETCH(int, column);
    QFETCH(QVariant, expected);
    add("/my photos/a.b.jpg",
        {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00", "IPTC:TimeCreated=12:00:00+02:00"});
    model->datetime_offset_changed(0, 0, 0, 1, 0, 0, true, 3.0);
    const QVariant found = cell(0, column, role);
    QCOMPARE(found, expected);
    QCOMPARE(found.userType(), expected.userType());
}

void test_table_data_model::other_roles_and_columns_are_empty()
{
    add("/photos/a.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    for (const int role :
         QList<int>{Qt::EditRole, Qt::DecorationRole, Qt::ToolTipRole, Qt::ForegroundRole,
                    Qt::TextAlignmentRole, Qt::SizeHintRole, Qt::UserRole + 1}) {
        for (int i = 0; i < column::column_count; ++i)
            QVERIFY2(!cell(0, i, role).isValid(), qPrintable(QString::number(role)));
    }

    /// Makes an index beyond the last column, which no view requests.
    class wide_model : public table_data_model
    {
    public:
        using table_data_model::createIndex;
        using table_data_model::table_data_model;
    };
    wide_model wide(nullptr);
    wide.files << "/photos/a.jpg";
    QVERIFY(!wide.data(wide.createIndex(0, 3), Qt::DisplayRole).isValid());
    QVERIFY(!wide.data(wide.createIndex(0, 3), Qt::UserRole).isValid());
}

void test_table_data_model::time_cell_text_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("zone_entry");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("expected_new");
    const QString date = "ExifIFD:DateTimeOriginal=2014:05:01 12:30:00";
    const QString zone = "IPTC:TimeCreated=12:30:00+02:00";
    const QString shown = "01.05.2014 12:30:00";
    // clang-format off
    QTest::newRow("zone") << QStringList{date, zone} << display_format << ""
        << shown + "  UTC+02:00" << shown + "  UTC+02:00";
    QTest::newRow("zone as it is stored") << QStringList{date, "IPTC:TimeCreated=12:30+1:01"} << display_format << ""
        << shown + "  UTC+1:01" << shown + "  UTC+1:01";
    QTest::newRow("no zone") << QStringList{date} << display_format << "" << shown << shown;
    QTest::newRow("entry moves only the zone of the new time") << QStringList{date, zone} << display_format << "3"
        << shown + "  UTC+02:00" << shown + "  UTC+05:00";
    QTest::newRow("entry is the zone of a photo without one") << QStringList{date} << display_format << "-5.5"
        << shown << shown + "  UTC-05:30";
    QTest::newRow("entry without a date") << QStringList{zone} << display_format << "3" << "-" << "-";
    QTest::newRow("no date") << QStringList{zone} << display_format << "" << "-" << "-";
    QTest::newRow("date of zeros") << QStringList{"ExifIFD:DateTimeOriginal=0000:00:00 00:00:00"} << display_format << "" << "-" << "-";
    QTest::newRow("format without a text") << QStringList{date, zone} << "" << "3" << "-" << "-";
    QTest::newRow("format of words") << QStringList{date, zone} << "'taken'" << "" << "taken  UTC+02:00" << "taken  UTC+02:00";
    // clang-format on
}

void test_table_data_model::time_cell_text()
{
    QFETCH(QStringList, tags);
    QFETCH(QString, format);
    QFETCH(QString, zone_entry);
    model->datetime_format_changed(format);
    model->datetime_offset_changed(0, 0, 0, 0, 0, 0, !zone_entry.isEmpty(), zone_entry.toDouble());
    add("/photos/a.jpg", tags);
    QTEST(cell(0, column::recording_time_column).toString(), "expected");
    QTEST(cell(0, column::new_recording_time_column).toString(), "expected_new");
}

void test_table_data_model::unreadable_file_shows_dashes()
{
    model->add_file("/photos/unknown.jpg", true);
    QCOMPARE(cell(0, column::name_column).toString(), QString("unknown.jpg"));
    QCOMPARE(cell(0, column::recording_time_column).toString(), QString("-"));
    QCOMPARE(cell(0, column::new_recording_time_column).toString(), QString("-"));
    for (const int i : {column::recording_time_column, column::new_recording_time_column}) {
        const QVariant time = cell(0, i, Qt::UserRole);
        QCOMPARE(time.userType(), int{QMetaType::QDateTime});
        QVERIFY(!time.toDateTime().isValid());
    }
}

void test_table_data_model::reading_cells_sends_no_request()
{
    add("/photos/a.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    tool.forget();
    for (int i = 0; i < column::column_count; ++i) {
        QVERIFY(cell(0, i).isValid());
        QVERIFY(cell(0, i, Qt::UserRole).isValid());
    }
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    QCOMPARE(tool.input(), QByteArray());
}

void test_table_data_model::shift_shows_in_every_row_and_reorders_none()
{
    add("/photos/a.jpg", {"ExifIFD:DateTimeOriginal=2017:01:30 12:00:00"});
    add("/photos/b.jpg", {"ExifIFD:DateTimeOriginal=2017:01:31 10:00:00"});
    model->sort(column::recording_time_column, Qt::AscendingOrder);
    model->datetime_offset_changed(0, 1, 0, 0, 0, 0, false, 0.0);
    QCOMPARE(model->files, QStringList({"/photos/a.jpg", "/photos/b.jpg"}));
    QCOMPARE(cell(0, column::new_recording_time_column).toString(), QString("28.02.2017 12:00:00"));
    QCOMPARE(cell(1, column::new_recording_time_column).toString(), QString("28.02.2017 10:00:00"));
    QCOMPARE(cell(0, column::recording_time_column).toString(), QString("30.01.2017 12:00:00"));
}

void test_table_data_model::format_shows_in_both_time_columns_and_reorders_no_row()
{
    add("/photos/a.jpg", {"ExifIFD:DateTimeOriginal=2017:02:01 12:00:00"});
    add("/photos/b.jpg", {"ExifIFD:DateTimeOriginal=2017:01:31 10:00:00"});
    model->sort(column::recording_time_column, Qt::DescendingOrder);
    model->datetime_format_changed("MM/dd/yyyy hh:mm");
    QCOMPARE(model->files, QStringList({"/photos/a.jpg", "/photos/b.jpg"}));
    for (const int i : {column::recording_time_column, column::new_recording_time_column}) {
        QCOMPARE(cell(0, i).toString(), QString("02/01/2017 12:00"));
        QCOMPARE(cell(1, i).toString(), QString("01/31/2017 10:00"));
    }
}

void test_table_data_model::layout_signals_surround_the_change_of_format()
{
    QStringList formats;
    connect(model.get(), &QAbstractItemModel::layoutAboutToBeChanged, this,
            [this, &formats] { formats << "before: " + model->display_format; });
    connect(model.get(), &QAbstractItemModel::layoutChanged, this,
            [this, &formats] { formats << "after: " + model->display_format; });
    const signal_log log(*model);
    model->datetime_format_changed("hh:mm");
    QCOMPARE(formats, QStringList({"before: " + display_format, "after: hh:mm"}));
    QCOMPARE(log.names, layout_signals);
}

void test_table_data_model::layout_signals_surround_the_change_of_shift()
{
    QList<int> days;
    QList<double> zones;
    const auto note = [this, &days, &zones] {
        days << model->day;
        zones << model->timezone;
    };
    connect(model.get(), &QAbstractItemModel::layoutAboutToBeChanged, this, note);
    connect(model.get(), &QAbstractItemModel::layoutChanged, this, note);
    const signal_log log(*model);
    model->datetime_offset_changed(0, 0, 9, 0, 0, 0, true, 2.5);
    QCOMPARE(days, QList<int>({0, 9}));
    QCOMPARE(zones, QList<double>({0.0, 2.5}));
    QCOMPARE(log.names, layout_signals);
}

void test_table_data_model::layout_signals_name_no_parent_and_no_hint()
{
    int signal_count = 0;
    const auto check = [&signal_count](const QList<QPersistentModelIndex> &parents,
                                       QAbstractItemModel::LayoutChangeHint hint) {
        ++signal_count;
        QVERIFY(parents.isEmpty());
        QCOMPARE(hint, QAbstractItemModel::NoLayoutChangeHint);
    };
    connect(model.get(), &QAbstractItemModel::layoutAboutToBeChanged, this, check);
    connect(model.get(), &QAbstractItemModel::layoutChanged, this, check);
    add("/photos/a.jpg", {});
    model->datetime_format_changed("hh:mm");
    model->datetime_offset_changed(1, 0, 0, 0, 0, 0, false, 0.0);
    model->sort(column::name_column, Qt::AscendingOrder);
    QCOMPARE(signal_count, 6);
}

KELVRA_PROGRAM_TEST_MAIN(test_table_data_model)

#include "test_table_data_model.moc"
