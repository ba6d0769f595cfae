// SPDX-License-Identifier: GPL-3.0-or-later

#include "exif_cache.h"
#include "fake_tool_window.h"
#include "program_test_main.h"

namespace
{

using photo_list = QList<QStringList>;  ///< the tags of each photo

const QString zone_text =
    "%1 files do not have any timezone information set and you have not specified a timezone to "
    "use.\nIf you continue your computers local timezone will be used.\n\nWarning: Adding the "
    "timezone to an image can not be undone.";
const QString early_text =
    "%1 files would be assigned a recording time prior to the 1st of January 1972 00:00:00.\nThe "
    "files system time can't be altered to times before this point.\nIf you continue the files "
    "date/time according to your operating system might not be correct (i.e. displayed as a date "
    "in the future or simply stuck at the 1st of January 1972).\nThe EXIF timestamps can handle "
    "this situation and dates prior to the 1st of January 1972 00:00:00 will be saved correctly.";

QString dated(const char *time)
{
    return QString("ExifIFD:DateTimeOriginal=") + time;
}

const QStringList photo_without_zone = {dated("2017:05:03 12:00:00"),
                                        "IPTC:DateCreated=2017:05:03"};
const QStringList early_photo = {dated("1971:12:31 23:59:59")};
const QStringList early_photo_without_zone = {dated("1971:12:31 23:59:59"),
                                              "IPTC:DateCreated=1971:12:31"};

}  // namespace

Q_DECLARE_METATYPE(photo_list)
Q_DECLARE_METATYPE(box_reply)

class test_fix_warnings : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void photos_with_an_iptc_time_and_no_zone_are_counted_data();
    void photos_with_an_iptc_time_and_no_zone_are_counted();
    void photos_before_1972_are_counted_data();
    void photos_before_1972_are_counted();
    void text_in_the_zone_field_suppresses_both_data();
    void text_in_the_zone_field_suppresses_both();
    void zone_is_asked_about_before_1972();
    void box_offers_to_continue_or_abort();
    void abort_changes_nothing_data();
    void abort_changes_nothing();
    void accepted_warnings_let_the_batch_run();
    void file_time_of_a_photo_before_1972_is_still_written();

private:
    void load(const photo_list &photos);
    QStringList warnings_of_an_aborted_fix();

    fake_tool_window app;
};

void test_fix_warnings::load(const photo_list &photos)
{
    for (int i = 0; i < photos.size(); ++i)
        app.load_photo(QString("photo_%1.jpg").arg(i), photos[i]);
}

QStringList test_fix_warnings::warnings_of_an_aborted_fix()
{
    const box_answers answers({box_reply::no});
    click(app.window->button_fix_time);
    return answers.texts();
}

void test_fix_warnings::photos_with_an_iptc_time_and_no_zone_are_counted_data()
{
    const QString date = dated("2017:05:03 12:00:00");
    const QString iptc_date = "IPTC:DateCreated=2017:05:03";

    QTest::addColumn<photo_list>("photos");
    QTest::addColumn<int>("count");
    // clang-format off
    QTest::newRow("date without a time") << photo_list{{date, iptc_date}} << 1;
    QTest::newRow("time without a date") << photo_list{{date, "IPTC:TimeCreated=12:00:00"}} << 1;
    QTest::newRow("both without a zone")
        << photo_list{{date, iptc_date, "IPTC:TimeCreated=12:00:00"}} << 1;
    QTest::newRow("zone in the east")
        << photo_list{{date, iptc_date, "IPTC:TimeCreated=12:00:00+02:00"}} << 0;
    QTest::newRow("zone in the west") << photo_list{{date, "IPTC:TimeCreated=12:00:00-05:00"}} << 0;
    QTest::newRow("no IPTC tags, whatever else")
        << photo_list{{date, "XMP-photoshop:DateCreated=2017:05:03 12:00:00",
                       "System:FileModifyDate=2017:05:03 12:00:00+02:00"}} << 0;
    QTest::newRow("no recording time") << photo_list{{iptc_date}} << 0;
    QTest::newRow("two of four, not in one run")
        << photo_list{{date, iptc_date}, {date}, {iptc_date}, {date, iptc_date}} << 2;
    QTest::newRow("no photo") << photo_list{} << 0;
    // clang-format on
}

void test_fix_warnings::photos_with_an_iptc_time_and_no_zone_are_counted()
{
    QFETCH(photo_list, photos);
    QFETCH(int, count);
    load(photos);
    const QStringList expected = count == 0 ? QStringList() : QStringList{zone_text.arg(count)};
    QCOMPARE(warnings_of_an_aborted_fix(), expected);
}

void test_fix_warnings::photos_before_1972_are_counted_data()
{
    QTest::addColumn<photo_list>("photos");
    QTest::addColumn<QString>("seconds");
    QTest::addColumn<int>("count");
    // clang-format off
    QTest::newRow("local midnight itself isn't early")
        << photo_list{{dated("1972:01:01 00:00:00")}} << "" << 0;
    QTest::newRow("the second before midnight is early") << photo_list{{dated("1971:12:31 23:59:59")}} << "" << 1;
    QTest::newRow("the new time counts: moved before it")
        << photo_list{{dated("1972:01:01 00:00:00")}} << "-1" << 1;
    QTest::newRow("the new time counts: moved up to it")
        << photo_list{{dated("1971:12:31 23:59:59")}} << "1" << 0;
    QTest::newRow("no recording time")
        << photo_list{{"System:FileModifyDate=1970:01:01 00:00:00"}} << "" << 0;
    QTest::newRow("two of three, not in one run")
        << photo_list{early_photo, {dated("2017:05:03 12:00:00")}, {dated("1904:01:01 00:00:00")}}
        << "" << 2;
    // clang-format on
}

void test_fix_warnings::photos_before_1972_are_counted()
{
    QFETCH(photo_list, photos);
    QFETCH(QString, seconds);
    QFETCH(int, count);
    load(photos);
    type_shift(*app.window, "second", seconds);
    const QStringList expected = count == 0 ? QStringList() : QStringList{early_text.arg(count)};
    QCOMPARE(warnings_of_an_aborted_fix(), expected);
}

void test_fix_warnings::text_in_the_zone_field_suppresses_both_data()
{
    QTest::addColumn<QString>("zone");
    QTest::newRow("hours") << "2";
    QTest::newRow("zero") << "0";
    QTest::newRow("not a number") << "-";
}

void test_fix_warnings::text_in_the_zone_field_suppresses_both()
{
    QFETCH(QString, zone);
    load({early_photo_without_zone});
    type_shift(*app.window, "timezone", zone);
    QCOMPARE(warnings_of_an_aborted_fix(), QStringList());
    QCOMPARE(app.written_names(), QStringList{"photo_0.jpg"});
}

void test_fix_warnings::zone_is_asked_about_before_1972()
{
    load({early_photo_without_zone, photo_without_zone});
    const box_answers answers({box_reply::yes, box_reply::no});
    click(app.window->button_fix_time);
    QCOMPARE(answers.texts(), QStringList({zone_text.arg(2), early_text.arg(1)}));
}

void test_fix_warnings::box_offers_to_continue_or_abort()
{
    load({early_photo_without_zone});
    const box_answers answers({box_reply::yes, box_reply::no});
    click(app.window->button_fix_time);
    QCOMPARE(answers.boxes.size(), 2);
    for (const seen_box &box : answers.boxes) {
        QCOMPARE(box.title, QString("Continue?"));
        QCOMPARE(box.yes_text, QString("Continue"));
        QCOMPARE(box.no_text, QString("Abort"));
        QCOMPARE(box.button_count, 2);
        QCOMPARE(box.icon, QMessageBox::Question);
        QCOMPARE(box.parent, app.window->centralWidget());
    }
}

void test_fix_warnings::abort_changes_nothing_data()
{
    QTest::addColumn<QStringList>("photo");
    QTest::addColumn<QList<box_reply>>("replies");
    using replies = QList<box_reply>;
    // clang-format off
    QTest::newRow("zone: Abort") << photo_without_zone << replies{box_reply::no};
    QTest::newRow("zone: Escape") << photo_without_zone << replies{box_reply::escape};
    QTest::newRow("zone: window frame") << photo_without_zone << replies{box_reply::frame};
    QTest::newRow("1972: Abort") << early_photo << replies{box_reply::no};
    QTest::newRow("1972: Escape") << early_photo << replies{box_reply::escape};
    QTest::newRow("1972: window frame") << early_photo << replies{box_reply::frame};
    QTest::newRow("1972, the zone accepted")
        << early_photo_without_zone << replies{box_reply::yes, box_reply::no};
    // clang-format on
}

void test_fix_warnings::abort_changes_nothing()
{
    QFETCH(QStringList, photo);
    QFETCH(QList<box_reply>, replies);
    MainWindow &window = *app.window;
    app.fix_dated_photo("before.jpg");
    load({photo});
    type_shift(window, "second", "-5");
    const auto records = exif_cache::instance()->records;
    const auto raw_tags = exif_cache::instance()->raw_tags;
    const auto shift = shift_texts(window);
    const auto rows = window.model->files;
    app.tool.forget();

    const box_answers answers(replies);
    const progress_watch progress(*window.progress_fix);
    click(window.button_fix_time);

    QCOMPARE(answers.boxes.size(), replies.size());
    QCOMPARE(window.model->files, rows);
    QCOMPARE(shift_texts(window), shift);
    QVERIFY(exif_cache::instance()->records == records);
    QVERIFY(exif_cache::instance()->raw_tags == raw_tags);
    QCOMPARE(window.undo_map.keys(), QStringList{app.path_of("before.jpg")});
    QVERIFY(window.button_undo->isEnabled());
    QCOMPARE(progress.values, QList<int>());
    QCOMPARE(app.tool.input(), QByteArray());
}

void test_fix_warnings::accepted_warnings_let_the_batch_run()
{
    load({early_photo_without_zone, photo_without_zone});
    const box_answers answers({box_reply::yes, box_reply::yes});
    click(app.window->button_fix_time);
    QCOMPARE(answers.boxes.size(), 2);
    QCOMPARE(app.written_names(), QStringList({"photo_0.jpg", "photo_1.jpg"}));
}

void test_fix_warnings::file_time_of_a_photo_before_1972_is_still_written()
{
    app.load_photo("old.jpg", {dated("1971:12:31 12:00:00"),
                               "System:FileModifyDate=2017:05:03 12:00:00+02:00"});
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    QCOMPARE(answers.boxes.size(), 1);
    QCOMPARE(app.writes().value(0).second,
             QStringList({"-ExifIFD:DateTimeOriginal=1971:12:31 12:00:00",
                          "-System:FileModifyDate=1971:12:31 12:00:00"}));
}

KELVRA_PROGRAM_TEST_MAIN(test_fix_warnings)
#include "test_fix_warnings.moc"
