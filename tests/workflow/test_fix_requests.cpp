// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"

namespace
{

const QString date_tag = "ExifIFD:DateTimeOriginal=2014:05:01 12:30:00";
const QString new_date = "-ExifIFD:DateTimeOriginal=2014:05:01 12:30:00";

}  // namespace

class test_fix_requests : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void request_names_the_tags_in_byte_order();
    void each_tag_gets_its_text_data();
    void each_tag_gets_its_text();
    void entered_shift_moves_the_clock_time_data();
    void entered_shift_moves_the_clock_time();
    void zero_shift_is_written();
    void name_with_percent_signs_is_sent_unchanged();
    void rows_are_sent_in_the_order_of_the_table();
    void row_without_a_time_is_skipped_data();
    void row_without_a_time_is_skipped();
    void photo_is_read_only_when_loaded();

private:
    fake_tool_window app;
};

void test_fix_requests::request_names_the_tags_in_byte_order()
{
    app.load_photo("all.jpg", {"ExifIFD:DateTimeOriginal=2014:05:01 11:30:00",
                               "ExifIFD:CreateDate=2014:05:01 11:31:00",
                               "ExifIFD:OffsetTime=+01:00", "IFD0:ModifyDate=2015:01:01 00:00:00",
                               "XMP-photoshop:DateCreated=2014:05:01 11:30:00",
                               "IPTC:DateCreated=2014:05:01", "IPTC:TimeCreated=11:30:00+02:00",
                               "System:FileModifyDate=2016:02:29 10:00:00+01:00",
                               "System:FileAccessDate=2016:02:29 10:00:00+01:00",
                               "System:FileInodeChangeDate=2016:02:29 10:00:00+01:00",
                               "System:FileCreateDate=2016:02:29 10:00:00+01:00"});
    type_shift(*app.window, "hour", "1");
    app.tool.forget();
    click(app.window->button_fix_time);
    QCOMPARE(app.tool.input(), "\n" + app.path_of("all.jpg").toUtf8() +
                                   "\n-overwrite_original_in_place\n-m\n"
                                   "-ExifIFD:CreateDate=2014:05:01 12:30:00\n"
                                   "-ExifIFD:DateTimeOriginal=2014:05:01 12:30:00\n"
                                   "-IFD0:ModifyDate=2014:05:01 12:30:00\n"
                                   "-IPTC:DateCreated=2014:05:01 12:30:00+02:00\n"
                                   "-IPTC:TimeCreated=2014:05:01 12:30:00+02:00\n"
                                   "-System:FileCreateDate=2014:05:01 12:30:00+02:00\n"
                                   "-System:FileModifyDate=2014:05:01 12:30:00+02:00\n"
                                   "-XMP-photoshop:DateCreated=2014:05:01 12:30:00\n"
                                   "-execute\n");
}

void test_fix_requests::each_tag_gets_its_text_data()
{
    const QString plain = "2014:05:01 12:30:00";
    const auto iptc_both = [plain](const char *zone) {
        return QStringList{"-IPTC:DateCreated=" + plain + zone,
                           "-IPTC:TimeCreated=" + plain + zone};
    };
    const auto file_times = [plain](const char *zone) {
        return QStringList{"-System:FileCreateDate=" + plain + zone,
                           "-System:FileModifyDate=" + plain + zone};
    };
    const QStringList iptc_without_zone = {"IPTC:DateCreated=2001:01:01",
                                           "IPTC:TimeCreated=01:01:01"};
    const auto iptc_with_zone = [](const char *zone) {
        return QStringList{"IPTC:DateCreated=2001:01:01",
                           QString("IPTC:TimeCreated=01:01:01") + zone};
    };
    const QStringList system_times = {"System:FileModifyDate=2001:01:01 01:01:01+01:00",
                                      "System:FileCreateDate=2001:01:01 01:01:01+01:00"};

    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QString>("zone");
    QTest::addColumn<QStringList>("lines");
    // clang-format off
    QTest::newRow("IPTC, zone of the photo")
        << QStringList{date_tag} + iptc_with_zone("+02:00") << ""
        << QStringList{new_date} + iptc_both("+02:00");
    QTest::newRow("IPTC, zone entered")
        << QStringList{date_tag} + iptc_without_zone << "3"
        << QStringList{new_date} + iptc_both("+03:00");
    QTest::newRow("IPTC, zone of the photo and zone entered add up")
        << QStringList{date_tag} + iptc_with_zone("+02:00") << "3"
        << QStringList{new_date} + iptc_both("+05:00");
    QTest::newRow("IPTC, no zone")
        << QStringList{date_tag} + iptc_without_zone << ""
        << QStringList{new_date} + iptc_both("");
    QTest::newRow("IPTC missing, zone entered")
        << QStringList{date_tag} << "3" << QStringList{new_date} + iptc_both("+03:00");
    QTest::newRow("IPTC missing, no zone entered")
        << QStringList{date_tag} << "" << QStringList{new_date};
    QTest::newRow("IPTC date alone, no zone entered: no time is added")
        << QStringList{date_tag, "IPTC:DateCreated=2001:01:01"} << ""
        << QStringList{new_date, iptc_both("").first()};
    QTest::newRow("IPTC time alone with a zone: no date is added")
        << QStringList{date_tag, "IPTC:TimeCreated=01:01:01-05:00"} << ""
        << QStringList{new_date, iptc_both("-05:00").last()};
    QTest::newRow("IPTC date alone, zone entered: the time is added")
        << QStringList{date_tag, "IPTC:DateCreated=2001:01:01"} << "3"
        << QStringList{new_date} + iptc_both("+03:00");
    QTest::newRow("file times, zone of the photo")
        << QStringList{date_tag, "IPTC:TimeCreated=01:01:01+02:00"} + system_times << ""
        << QStringList{new_date, iptc_both("+02:00").last()} + file_times("+02:00");
    QTest::newRow("file times, half hours in the west entered")
        << QStringList{date_tag} + system_times << "-5.5"
        << QStringList{new_date} + iptc_both("-05:30") + file_times("-05:30");
    QTest::newRow("file times, no zone")
        << QStringList{date_tag} + system_times << ""
        << QStringList{new_date} + file_times("");
    QTest::newRow("file times missing, zone entered")
        << QStringList{date_tag} << "1" << QStringList{new_date} + iptc_both("+01:00");
    QTest::newRow("Exif, IFD0 and XMP have no zone even if one is known")
        << QStringList{date_tag, "ExifIFD:CreateDate=2001:01:01 01:01:01",
                       "IFD0:ModifyDate=2001:01:01 01:01:01",
                       "XMP-photoshop:DateCreated=2001:01:01 01:01:01"} << "2"
        << QStringList{"-ExifIFD:CreateDate=" + plain, new_date, "-IFD0:ModifyDate=" + plain}
               + iptc_both("+02:00") + QStringList{"-XMP-photoshop:DateCreated=" + plain};
    QTest::newRow("IFD0 in place of the Exif directory")
        << QStringList{"IFD0:DateTimeOriginal=2014:05:01 12:30:00"} << ""
        << QStringList{"-IFD0:DateTimeOriginal=" + plain};
    QTest::newRow("IFD0 beside the Exif directory")
        << QStringList{date_tag, "IFD0:DateTimeOriginal=2001:01:01 01:01:01"} << ""
        << QStringList{new_date};
    QTest::newRow("inode date never")
        << QStringList{date_tag, "System:FileInodeChangeDate=2001:01:01 01:01:01+01:00"} << ""
        << QStringList{new_date};
    QTest::newRow("tag with an empty value is there")
        << QStringList{date_tag, "ExifIFD:CreateDate="} << ""
        << QStringList{"-ExifIFD:CreateDate=" + plain, new_date};
    QTest::newRow("tags of other groups don't count")
        << QStringList{date_tag, "XMP-xmp:CreateDate=2001:01:01 01:01:01",
                       "XMP-exif:DateTimeOriginal=2001:01:01 01:01:01"} << ""
        << QStringList{new_date};
    QTest::newRow("zone of the photo comes back in normal form")
        << QStringList{date_tag, "IPTC:TimeCreated=01:01:01+0530"} << ""
        << QStringList{new_date, iptc_both("+05:00").last()};
    QTest::newRow("zone field without a number counts as zero")
        << QStringList{date_tag} << "-" << QStringList{new_date} + iptc_both("+00:00");
    QTest::newRow("zone field without a number keeps the zone of the photo")
        << QStringList{date_tag} + iptc_with_zone("-03:30") << "-"
        << QStringList{new_date} + iptc_both("-03:30");
    // clang-format on
}

void test_fix_requests::each_tag_gets_its_text()
{
    QFETCH(QStringList, tags);
    QFETCH(QString, zone);
    QFETCH(QStringList, lines);
    app.load_photo("photo.jpg", tags);
    type_shift(*app.window, "timezone", zone);
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    QCOMPARE(app.writes().size(), 1);
    QCOMPARE(app.writes().first().second, lines);
}

void test_fix_requests::entered_shift_moves_the_clock_time_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("time");
    // clang-format off
    QTest::newRow("year")                       << "year"     << "1"   << "2017:02:28 23:59:30";
    QTest::newRow("month")                      << "month"    << "-1"  << "2016:01:29 23:59:30";
    QTest::newRow("day")                        << "day"      << "1"   << "2016:03:01 23:59:30";
    QTest::newRow("hour")                       << "hour"     << "-24" << "2016:02:28 23:59:30";
    QTest::newRow("minute")                     << "minute"   << "1"   << "2016:03:01 00:00:30";
    QTest::newRow("second")                     << "second"   << "45"  << "2016:03:01 00:00:15";
    QTest::newRow("zone doesn't move the time") << "timezone" << "3"   << "2016:02:29 23:59:30";
    // clang-format on
}

void test_fix_requests::entered_shift_moves_the_clock_time()
{
    QFETCH(QString, unit);
    QFETCH(QString, entry);
    QFETCH(QString, time);
    app.load_dated_photo("photo.jpg", "2016:02:29 23:59:30");
    type_shift(*app.window, unit, entry);
    click(app.window->button_fix_time);
    QCOMPARE(app.writes().value(0).second.value(0), "-ExifIFD:DateTimeOriginal=" + time);
}

void test_fix_requests::zero_shift_is_written()
{
    app.load_photo("photo.jpg", {date_tag, "IFD0:ModifyDate=2018:08:08 08:08:08"});
    click(app.window->button_fix_time);
    QCOMPARE(app.writes().value(0).second,
             QStringList({new_date, "-IFD0:ModifyDate=2014:05:01 12:30:00"}));
}

void test_fix_requests::name_with_percent_signs_is_sent_unchanged()
{
    app.load_dated_photo("100%1 %2.jpg");
    app.tool.forget();
    click(app.window->button_fix_time);
    QCOMPARE(app.tool.input(), "\n" + app.path_of("100%1 %2.jpg").toUtf8() +
                                   "\n-overwrite_original_in_place\n-m\n"
                                   "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n-execute\n");
}

void test_fix_requests::rows_are_sent_in_the_order_of_the_table()
{
    app.load_dated_photo("c.jpg");
    app.load_dated_photo("a.jpg");
    app.load_dated_photo("b.jpg");
    app.window->model->sort(table_data_model::name_column, Qt::DescendingOrder);
    click(app.window->button_fix_time);
    QCOMPARE(app.written_names(), QStringList({"c.jpg", "b.jpg", "a.jpg"}));
}

void test_fix_requests::row_without_a_time_is_skipped_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::newRow("no tags") << QStringList{};
    QTest::newRow("other dates alone")
        << QStringList{"ExifIFD:CreateDate=2017:05:03 12:00:00", "IPTC:DateCreated=2017:05:03"};
    QTest::newRow("empty recording time") << QStringList{"ExifIFD:DateTimeOriginal="};
    QTest::newRow("zeros") << QStringList{"ExifIFD:DateTimeOriginal=0000:00:00 00:00:00"};
    QTest::newRow("not a calendar day")
        << QStringList{"ExifIFD:DateTimeOriginal=2017:02:30 12:00:00"};
}

void test_fix_requests::row_without_a_time_is_skipped()
{
    QFETCH(QStringList, tags);
    app.load_dated_photo("a.jpg");
    app.load_photo("b.jpg", tags);
    app.load_dated_photo("c.jpg");
    QCOMPARE(shown_column(*app.window, table_data_model::new_recording_time_column)[1],
             QString("-"));
    const box_answers answers;
    const progress_watch progress(*app.window->progress_fix);
    click(app.window->button_fix_time);
    QCOMPARE(app.written_names(), QStringList({"a.jpg", "c.jpg"}));
    QCOMPARE(answers.boxes.size(), 0);
    QCOMPARE(progress.values, QList<int>({0, 1, 2, 3}));
    QCOMPARE(app.window->undo_map.keys(),
             QStringList({app.path_of("a.jpg"), app.path_of("c.jpg")}));
}

void test_fix_requests::photo_is_read_only_when_loaded()
{
    app.load_dated_photo("a.jpg");
    app.load_dated_photo("b.jpg");
    click(app.window->button_fix_time);
    QCOMPARE(app.tool.requests().size(), 4);
    QCOMPARE(app.written_names().size(), 2);
}

KELVRA_PROGRAM_TEST_MAIN(test_fix_requests)
#include "test_fix_requests.moc"
