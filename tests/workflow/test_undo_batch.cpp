// SPDX-License-Identifier: GPL-3.0-or-later

#include "exif_cache.h"
#include "fake_tool_window.h"
#include "program_test_main.h"

namespace
{

const QStringList candidate_names = {"ExifIFD:DateTimeOriginal", "ExifIFD:CreateDate",
                                     "IFD0:ModifyDate",          "XMP-photoshop:DateCreated",
                                     "IPTC:DateCreated",         "IPTC:TimeCreated",
                                     "System:FileModifyDate",    "System:FileCreateDate"};

QStringList names_of(const QList<undo_entry> &entries)
{
    QStringList names;
    for (const undo_entry &entry : entries)
        names << entry.tag;
    return names;
}

undo_entry entry_of(const QList<undo_entry> &entries, const QString &name)
{
    return entries.value(names_of(entries).indexOf(name));
}

}  // namespace

class test_undo_batch : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void snapshot_has_an_entry_for_each_candidate();
    void snapshot_has_ifd0_instead_of_exif();
    void snapshot_holds_iptc_times_with_date_and_zone_data();
    void snapshot_holds_iptc_times_with_date_and_zone();
    void snapshot_of_a_zone_with_only_a_sign_throws();
    void snapshot_changes_nothing();
    void request_restores_the_old_values();
    void tags_that_were_added_are_removed();
    void ifd0_is_restored_and_exif_not_written();
    void photos_are_sent_in_the_order_of_their_paths();
    void refused_photo_is_skipped();
    void second_click_has_no_effect();
    void memory_survives_clearing_loading_and_abort();
    void list_cache_and_shift_stay();
    void progress_counts_the_photos();
    void button_starts_disabled();
    void values_come_from_the_undo_memory_not_from_the_table();

private:
    QList<undo_entry> snapshot(const QStringList &tags);

    fake_tool_window app;
};

QList<undo_entry> test_undo_batch::snapshot(const QStringList &tags)
{
    app.load_photo("photo.jpg", tags);
    return app.window->capture_undo_entries(app.path_of("photo.jpg"));
}

void test_undo_batch::snapshot_has_an_entry_for_each_candidate()
{
    const QList<undo_entry> entries =
        snapshot({"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00",
                  "IFD0:ModifyDate=2018:08:08 08:08:08", "IPTC:DateCreated=2016:01:01",
                  "ExifIFD:CreateDate=", "System:FileModifyDate=2019:09:09 09:09:09+02:00",
                  "System:FileInodeChangeDate=2020:10:10 10:10:10+02:00",
                  "IFD0:DateTimeOriginal=2001:01:01 01:01:01"});
    QCOMPARE(names_of(entries), candidate_names);
    const QList<QPair<bool, QString>> expected = {{true, "2017:05:03 12:00:00"},
                                                  {true, ""},
                                                  {true, "2018:08:08 08:08:08"},
                                                  {false, ""},
                                                  {true, "2016:01:01"},
                                                  {false, ""},
                                                  {true, "2019:09:09 09:09:09+02:00"},
                                                  {false, ""}};
    for (int i = 0; i < entries.size(); ++i) {
        QCOMPARE(entries[i].existed, expected[i].first);
        QCOMPARE(entries[i].value, expected[i].second);
    }
}

void test_undo_batch::snapshot_has_ifd0_instead_of_exif()
{
    const QList<undo_entry> entries = snapshot({"IFD0:DateTimeOriginal=2017:05:03 12:00:00"});
    QStringList expected = candidate_names.mid(1);
    expected << "IFD0:DateTimeOriginal";
    QCOMPARE(names_of(entries), expected);
    QVERIFY(entries.last().existed);
    QCOMPARE(entries.last().value, QString("2017:05:03 12:00:00"));
}

void test_undo_batch::snapshot_holds_iptc_times_with_date_and_zone_data()
{
    QTest::addColumn<QString>("recording_time");
    QTest::addColumn<QString>("iptc_time");
    QTest::addColumn<QString>("value");
    const QString summer = "2017:05:03 23:00:00";
    const QString winter = "2017:01:03 23:00:00";
    // clang-format off
    QTest::newRow("zone in the east") << summer << "12:34:56+02:00" << "2017:05:03 12:34:56+02:00";
    QTest::newRow("zone in the west") << summer << "12:34:56-05:00" << "2017:05:03 12:34:56-05:00";
    QTest::newRow("minutes in the east are lost")
        << summer << "12:34:56+05:30" << "2017:05:03 12:34:56+05:00";
    QTest::newRow("minutes in the west are lost")
        << summer << "12:34:56-03:30" << "2017:05:03 12:34:56-03:00";
    QTest::newRow("hours under one are lost")
        << summer << "12:34:56-00:30" << "2017:05:03 12:34:56+00:00";
    QTest::newRow("zero") << summer << "12:34:56+00:00" << "2017:05:03 12:34:56+00:00";
    QTest::newRow("no zone: the machine's in summer")
        << summer << "12:34:56" << "2017:05:03 12:34:56+02:00";
    QTest::newRow("no zone: the machine's in winter")
        << winter << "12:34:56" << "2017:01:03 12:34:56+01:00";
    QTest::newRow("recording time without a clock time")
        << "2017:05:03" << "12:34:56+02:00" << "2017:05:03 12:34:56+02:00";
    // clang-format on
}

void test_undo_batch::snapshot_holds_iptc_times_with_date_and_zone()
{
    QFETCH(QString, recording_time);
    QFETCH(QString, iptc_time);
    QFETCH(QString, value);
    const undo_entry entry =
        entry_of(snapshot({"ExifIFD:DateTimeOriginal=" + recording_time,
                           "IPTC:DateCreated=1999:12:31", "IPTC:TimeCreated=" + iptc_time}),
                 "IPTC:TimeCreated");
    QVERIFY(entry.existed);
    QCOMPARE(entry.value, value);
}

void test_undo_batch::snapshot_of_a_zone_with_only_a_sign_throws()
{
    QVERIFY_EXCEPTION_THROWN(
        snapshot({"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00", "IPTC:TimeCreated=12:00:00-"}),
        std::invalid_argument);
}

void test_undo_batch::snapshot_changes_nothing()
{
    app.load_dated_photo("photo.jpg");
    const auto records = exif_cache::instance()->records;
    const auto raw_tags = exif_cache::instance()->raw_tags;
    app.tool.forget();
    app.window->capture_undo_entries(app.path_of("photo.jpg"));
    QVERIFY(exif_cache::instance()->records == records);
    QVERIFY(exif_cache::instance()->raw_tags == raw_tags);
    QVERIFY(app.window->undo_map.isEmpty());
    QCOMPARE(app.tool.input(), QByteArray());
}

void test_undo_batch::request_restores_the_old_values()
{
    app.load_photo("100%1.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00",
                                 "XMP-photoshop:DateCreated=2017:05:04 13:00:00",
                                 "IPTC:DateCreated=2017:05:05", "IPTC:TimeCreated=14:00:00+02:00",
                                 "System:FileModifyDate=2017:05:06 15:00:00+02:00",
                                 "System:FileCreateDate=2017:05:07 16:00:00+02:00",
                                 "System:FileInodeChangeDate=2017:05:08 17:00:00+02:00"});
    type_shift(*app.window, "hour", "1");
    click(app.window->button_fix_time);
    app.tool.forget();
    click(app.window->button_undo);
    QCOMPARE(app.tool.input(), "\n" + app.path_of("100%1.jpg").toUtf8() +
                                   "\n-overwrite_original_in_place\n-m\n"
                                   "-ExifIFD:CreateDate=\n"
                                   "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n"
                                   "-IFD0:ModifyDate=\n"
                                   "-IPTC:DateCreated=2017:05:05\n"
                                   "-IPTC:TimeCreated=2017:05:03 14:00:00+02:00\n"
                                   "-System:FileCreateDate=2017:05:07 16:00:00+02:00\n"
                                   "-System:FileModifyDate=2017:05:06 15:00:00+02:00\n"
                                   "-XMP-photoshop:DateCreated=2017:05:04 13:00:00\n"
                                   "-execute\n");
}

void test_undo_batch::tags_that_were_added_are_removed()
{
    app.load_dated_photo("photo.jpg");
    type_shift(*app.window, "timezone", "2");
    click(app.window->button_fix_time);
    QVERIFY(app.writes().last().second.contains("-IPTC:DateCreated=2017:05:03 12:00:00+02:00"));
    QVERIFY(app.writes().last().second.contains("-IPTC:TimeCreated=2017:05:03 12:00:00+02:00"));
    click(app.window->button_undo);
    QVERIFY(app.writes().last().second.contains("-IPTC:DateCreated="));
    QVERIFY(app.writes().last().second.contains("-IPTC:TimeCreated="));
}

void test_undo_batch::ifd0_is_restored_and_exif_not_written()
{
    app.load_photo("photo.jpg", {"IFD0:DateTimeOriginal=2017:05:03 12:00:00"});
    click(app.window->button_fix_time);
    app.tool.forget();
    click(app.window->button_undo);
    QCOMPARE(app.writes().size(), 1);
    QCOMPARE(app.writes().first().second,
             QStringList({"-ExifIFD:CreateDate=", "-IFD0:DateTimeOriginal=2017:05:03 12:00:00",
                          "-IFD0:ModifyDate=", "-IPTC:DateCreated=", "-IPTC:TimeCreated=",
                          "-System:FileCreateDate=", "-System:FileModifyDate=",
                          "-XMP-photoshop:DateCreated="}));
}

void test_undo_batch::photos_are_sent_in_the_order_of_their_paths()
{
    for (const char *name : {"b.jpg", "B.jpg", "a.jpg", "ä.jpg"})
        app.load_dated_photo(name);
    app.window->model->sort(table_data_model::name_column, Qt::DescendingOrder);
    click(app.window->button_fix_time);
    app.tool.forget();
    click(app.window->button_undo);
    QCOMPARE(app.written_names(), QStringList({"B.jpg", "a.jpg", "b.jpg", "ä.jpg"}));
}

void test_undo_batch::refused_photo_is_skipped()
{
    for (const char *name : {"a.jpg", "b.jpg"})
        app.load_dated_photo(name);
    click(app.window->button_fix_time);
    app.tool.refuse_writes("a.jpg");
    app.tool.forget();
    const box_answers answers;
    click(app.window->button_undo);
    QCOMPARE(app.written_names(), QStringList({"a.jpg", "b.jpg"}));
    QCOMPARE(answers.boxes.size(), 0);
    QVERIFY(app.window->undo_map.isEmpty());
    QVERIFY(!app.window->button_undo->isEnabled());
}

void test_undo_batch::second_click_has_no_effect()
{
    app.fix_dated_photo("a.jpg");
    click(app.window->button_undo);
    app.tool.forget();
    QVERIFY(!app.window->button_undo->isEnabled());
    click(app.window->button_undo);
    QCOMPARE(app.tool.input(), QByteArray());
}

void test_undo_batch::memory_survives_clearing_loading_and_abort()
{
    MainWindow &window = *app.window;
    app.fix_dated_photo("a.jpg");
    const QStringList remembered = {app.path_of("a.jpg")};
    const auto is_remembered = [&] {
        return window.undo_map.keys() == remembered && window.button_undo->isEnabled();
    };

    click(window.button_reset);
    QVERIFY(is_remembered());
    app.load_dated_photo("old.jpg", "1960:01:01 12:00:00");
    QVERIFY(is_remembered());
    const box_answers answers({box_reply::no});
    click(window.button_fix_time);
    QCOMPARE(answers.boxes.size(), 1);
    QVERIFY(is_remembered());

    app.tool.forget();
    click(window.button_undo);
    QCOMPARE(app.written_names(), QStringList{"a.jpg"});
}

void test_undo_batch::list_cache_and_shift_stay()
{
    MainWindow &window = *app.window;
    app.fix_dated_photo("a.jpg");
    app.load_dated_photo("a.jpg", "2020:01:01 00:00:00");
    type_shift(window, "hour", "7");
    const QStringList shown = shown_column(window, table_data_model::new_recording_time_column);
    const auto records = exif_cache::instance()->records;
    app.tool.forget();
    click(window.button_undo);
    QCOMPARE(app.tool.requests().size(), 1);
    QCOMPARE(shown_names(window), QStringList{"a.jpg"});
    QCOMPARE(shown_column(window, table_data_model::new_recording_time_column), shown);
    QVERIFY(exif_cache::instance()->records == records);
    QCOMPARE(shift_texts(window), QStringList({"", "", "", "7", "", "", ""}));
}

void test_undo_batch::progress_counts_the_photos()
{
    for (const char *name : {"a.jpg", "b.jpg"})
        app.load_dated_photo(name);
    app.load_photo("undated.jpg", {});
    click(app.window->button_fix_time);
    const progress_watch progress(*app.window->progress_fix);
    click(app.window->button_undo);
    QCOMPARE(progress.values, QList<int>({0, 1, 2}));
    QCOMPARE(progress.minima, QList<int>({0, 0, 0}));
    QCOMPARE(progress.maxima, QList<int>({2, 2, 2}));
    QCOMPARE(progress.labels, QStringList({"Fixing time", "Fixing time", "Fixing time"}));
    QCOMPARE(progress.visible, QList<bool>({false, true, true}));
    QVERIFY(!app.window->progress_fix->isVisible());
}

void test_undo_batch::button_starts_disabled()
{
    QVERIFY(!app.window->button_undo->isEnabled());
    QVERIFY(app.window->undo_map.isEmpty());
}

void test_undo_batch::values_come_from_the_undo_memory_not_from_the_table()
{
    app.fix_dated_photo("a.jpg");
    app.load_dated_photo("a.jpg", "2020:01:01 00:00:00");
    click(app.window->button_undo);
    QVERIFY(app.writes().last().second.contains("-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"));
}

KELVRA_PROGRAM_TEST_MAIN(test_undo_batch)
#include "test_undo_batch.moc"
