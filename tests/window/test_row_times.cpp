// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/time_offset.h"
#include "exif_cache.h"
#include "program_test_main.h"
#include "table_data_model.h"

namespace
{

const QString path = "/photos/photo.jpg";
const QString date_time_format = "yyyy:MM:dd hh:mm:ss";

/// Empty for an invalid time.
QString text_of(const QDateTime &time)
{
    return time.toString(date_time_format);
}

tag_map dated(const char *year, const char *month, const char *day)
{
    return {{"rec_year", year}, {"rec_month", month}, {"rec_day", day}};
}

tag_map dated(const char *year, const char *month, const char *day, const char *hour,
              const char *minute, const char *second)
{
    tag_map record = dated(year, month, day);
    record["rec_hour"] = hour;
    record["rec_minute"] = minute;
    record["rec_second"] = second;
    return record;
}

}  // namespace

Q_DECLARE_METATYPE(tag_map)

class test_row_times : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void shift_starts_at_zero();
    void recording_time_is_the_local_time_of_the_record_data();
    void recording_time_is_the_local_time_of_the_record();
    void invalid_time_stays_invalid();
    void zone_never_moves_the_time_data();
    void zone_never_moves_the_time();
    void model_keeps_the_whole_shift();
    void shift_replaces_the_one_before();
    void shift_outlives_the_files();
    void shift_is_never_stored();
    void zone_of_a_row_data();
    void zone_of_a_row();

private:
    void use_record(const tag_map &record);
    void use_shift(const time_offset &offset);

    table_data_model model{nullptr};
};

void test_row_times::init()
{
    use_shift({});
}

void test_row_times::cleanup()
{
    exif_cache::instance()->records.clear();
}

void test_row_times::use_record(const tag_map &record)
{
    exif_cache::instance()->records[path.toStdString()] = record;
}

void test_row_times::use_shift(const time_offset &offset)
{
    model.datetime_offset_changed(offset.year, offset.month, offset.day, offset.hour, offset.minute,
                                  offset.second, offset.alter_timezone, offset.timezone);
}

void test_row_times::shift_starts_at_zero()
{
    const table_data_model fresh(nullptr);
    const QList<int> fresh_units = {fresh.year, fresh.month,  fresh.day,
                                    fresh.hour, fresh.minute, fresh.second};
    QCOMPARE(fresh_units, QList<int>({0, 0, 0, 0, 0, 0}));
    QCOMPARE(fresh.alter_timezone, false);
    QCOMPARE(fresh.timezone, 0.0);
}

void test_row_times::recording_time_is_the_local_time_of_the_record_data()
{
    QTest::addColumn<tag_map>("record");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("date and time") << dated("2017", "05", "03", "12", "34", "56") << "2017:05:03 12:34:56";
    QTest::newRow("date alone is midnight") << dated("2017", "05", "03") << "2017:05:03 00:00:00";
    QTest::newRow("fraction is cut") << dated("2017", "05", "03", "12", "00", "59.99") << "2017:05:03 12:00:59";
    QTest::newRow("zone after the second doesn't count") << dated("2017", "05", "03", "12", "00", "07 +0200") << "2017:05:03 12:00:07";
    QTest::newRow("hour after a space") << dated("2017", "05", "03", " 12", "00", "00") << "2017:05:03 12:00:00";
    QTest::newRow("letters are zero, which no date has") << dated("a", "b", "c") << "";
    QTest::newRow("letters of a time are zero") << dated("2017", "05", "03", "x", "y", "z") << "2017:05:03 00:00:00";
    QTest::newRow("date of zeros") << dated("0000", "00", "00", "00", "00", "00") << "";
    QTest::newRow("day that the month doesn't have") << dated("2017", "02", "29", "12", "00", "00") << "";
    QTest::newRow("time beyond the day falls back to midnight") << dated("2017", "05", "03", "25", "00", "00") << "2017:05:03 00:00:00";
    QTest::newRow("time skipped in spring") << dated("2016", "03", "27", "02", "30", "00") << "";
    QTest::newRow("time that occurs twice in autumn") << dated("2016", "10", "30", "02", "30", "00") << "2016:10:30 02:30:00";
    QTest::newRow("time without a date") << tag_map{{"rec_hour", "12"}, {"rec_minute", "0"}, {"rec_second", "0"}} << "";
    QTest::newRow("no recording time") << tag_map{{"has_data", "true"}} << "";
    QTest::newRow("no record") << tag_map{} << "";
    // clang-format on
}

void test_row_times::recording_time_is_the_local_time_of_the_record()
{
    QFETCH(tag_map, record);
    QFETCH(QString, expected);
    use_record(record);
    const QDateTime time = model.recording_time(path);
    QCOMPARE(text_of(time), expected);
    QCOMPARE(time.isValid(), !expected.isEmpty());
    QCOMPARE(time.timeSpec(), Qt::LocalTime);
}

void test_row_times::invalid_time_stays_invalid()
{
    use_record(dated("0000", "00", "00", "12", "00", "00"));
    use_shift({2017, 5, 3, 0, 0, 0, false, 0.0});
    QVERIFY(!model.new_recording_time(path).isValid());
}

void test_row_times::zone_never_moves_the_time_data()
{
    QTest::addColumn<bool>("alter_timezone");
    QTest::addColumn<double>("timezone");
    QTest::newRow("no entry") << false << 0.0;
    QTest::newRow("entry") << true << 3.0;
    QTest::newRow("entry that is no number") << true << 0.0;
    QTest::newRow("hours without an entry") << false << 3.0;
}

void test_row_times::zone_never_moves_the_time()
{
    QFETCH(bool, alter_timezone);
    QFETCH(double, timezone);
    tag_map record = dated("2017", "05", "03", "12", "00", "00");
    record["iptc_timezone"] = "+02:00";
    use_record(record);
    use_shift({0, 0, 0, 1, 0, 0, alter_timezone, timezone});
    QCOMPARE(text_of(model.recording_time(path)), QString("2017:05:03 12:00:00"));
    QCOMPARE(text_of(model.new_recording_time(path)), QString("2017:05:03 13:00:00"));
    QCOMPARE(model.new_recording_time(path).timeSpec(), Qt::LocalTime);
}

void test_row_times::model_keeps_the_whole_shift()
{
    use_shift({1, 2, 3, 4, 5, 6, true, -5.5});
    const QList<int> units = {model.year, model.month,  model.day,
                              model.hour, model.minute, model.second};
    QCOMPARE(units, QList<int>({1, 2, 3, 4, 5, 6}));
    QCOMPARE(model.alter_timezone, true);
    QCOMPARE(model.timezone, -5.5);

    use_record(dated("2017", "05", "03", "12", "34", "56"));
    QCOMPARE(text_of(model.new_recording_time(path)), QString("2018:07:06 16:40:02"));
}

void test_row_times::shift_replaces_the_one_before()
{
    use_record(dated("2017", "05", "03", "12", "00", "00"));
    use_shift({1, 0, 0, 0, 0, 0, false, 0.0});
    use_shift({0, 0, 1, 0, 0, 0, false, 0.0});
    QCOMPARE(text_of(model.new_recording_time(path)), QString("2017:05:04 12:00:00"));
}

void test_row_times::shift_outlives_the_files()
{
    use_shift({0, 0, 0, 1, 0, 0, true, 2.0});
    model.clear();
    use_record(dated("2017", "05", "03", "12", "00", "00"));
    QCOMPARE(text_of(model.new_recording_time(path)), QString("2017:05:03 13:00:00"));
    QCOMPARE(model.zone_text_for(path, true), QString("+02:00"));
}

void test_row_times::shift_is_never_stored()
{
    const tag_map record = dated("2017", "05", "03", "12", "00", "00");
    use_record(record);
    use_shift({1, 2, 3, 4, 5, 6, true, 7.0});
    for (int reading = 0; reading < 2; ++reading)
        QCOMPARE(text_of(model.new_recording_time(path)), QString("2018:07:06 16:05:06"));
    model.zone_text_for(path, true);
    QCOMPARE(exif_cache::instance()->record_copy(path), record);
}

void test_row_times::zone_of_a_row_data()
{
    QTest::addColumn<QString>("zone");
    QTest::addColumn<bool>("apply_offset");
    QTest::addColumn<bool>("alter_timezone");
    QTest::addColumn<double>("timezone");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("stored zone, no entry") << "+02:00" << true << false << 0.0 << "+02:00";
    QTest::newRow("hours without an entry don't count") << "+02:00" << true << false << 3.0 << "+02:00";
    QTest::newRow("old time has the stored zone") << "+02:00" << false << true << 3.0 << "+02:00";
    QTest::newRow("new time has the moved zone") << "+02:00" << true << true << 3.0 << "+05:00";
    QTest::newRow("stored zone isn't normalised") << "+2:00" << true << false << 0.0 << "+2:00";
    QTest::newRow("odd minutes stay in the stored zone") << "+01:01" << true << false << 0.0 << "+01:01";
    QTest::newRow("odd minutes lose one with an entry") << "+01:01" << true << true << 0.0 << "+01:00";
    QTest::newRow("zone without its leading zero counts as none") << "+2:00" << true << true << 3.0 << "+03:00";
    QTest::newRow("no zone, no entry") << "" << true << false << 0.0 << "";
    QTest::newRow("no zone, old time") << "" << false << true << -5.5 << "";
    QTest::newRow("entry is the zone of a photo without one") << "" << true << true << -5.5 << "-05:30";
    QTest::newRow("entry that is no number makes a zone") << "" << true << true << 0.0 << "+00:00";
    // clang-format on
}

void test_row_times::zone_of_a_row()
{
    QFETCH(QString, zone);
    QFETCH(bool, apply_offset);
    QFETCH(bool, alter_timezone);
    QFETCH(double, timezone);
    tag_map record = dated("2017", "05", "03", "12", "00", "00");
    if (!zone.isEmpty())
        record["iptc_timezone"] = zone.toStdString();
    use_record(record);
    use_shift({0, 0, 0, 0, 0, 0, alter_timezone, timezone});
    QTEST(model.zone_text_for(path, apply_offset), "expected");
}

KELVRA_PROGRAM_TEST_MAIN(test_row_times)

#include "test_row_times.moc"
