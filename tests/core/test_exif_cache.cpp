// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "exif_cache.h"
#include "isolated_program.h"
#include "scripted_tool.h"

#include <type_traits>

namespace
{

const QString exif_time = "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00";
const QString ifd0_time = "IFD0:DateTimeOriginal=2018:06:04 13:01:02";

/// The record of a photo without any of the tags.
const tag_map bare_record = {{"has_data", "true"},
                             {"has_iptc_date", "false"},
                             {"has_iptc_time", "false"},
                             {"ipct_timezone", ""}};

tag_map with(tag_map record, const tag_map &more)
{
    for (const auto &[key, value] : more)
        record[key] = value;
    return record;
}

tag_map dated(const char *year, const char *month, const char *day)
{
    return {{"rec_year", year}, {"rec_month", month}, {"rec_day", day}};
}

tag_map timed(const char *hour, const char *minute, const char *second)
{
    return {{"rec_hour", hour}, {"rec_minute", minute}, {"rec_second", second}};
}

const tag_map exif_record = with(dated("2017", "05", "03"), timed("12", "00", "00"));
const tag_map ifd0_record = with(with(dated("2018", "06", "04"), timed("13", "01", "02")),
                                 {{"DateTimeOriginalInIFD0", "true"}});

}  // namespace

Q_DECLARE_METATYPE(tag_map)

class test_exif_cache : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void there_is_one_cache();
    void cache_is_two_plain_maps();
    void recording_time_comes_from_exif_or_else_from_ifd0_data();
    void recording_time_comes_from_exif_or_else_from_ifd0();
    void recording_time_is_split_into_texts_data();
    void recording_time_is_split_into_texts();
    void zone_is_the_end_of_the_iptc_time_data();
    void zone_is_the_end_of_the_iptc_time();
    void parsing_is_silent();
    void date_or_time_without_three_parts_ends_the_program_data();
    void date_or_time_without_three_parts_ends_the_program();
    void tags_are_kept_as_the_tool_gave_them();
    void load_is_one_request();
    void load_again_replaces_the_tags();
    void paths_are_kept_in_utf8();
    void each_file_has_its_own_record();
    void changing_a_copy_does_not_change_the_record();
    void file_that_was_not_loaded_has_an_empty_record();
    void missing_tool_gives_a_record_without_a_time();

private:
    tag_map loaded_record(const QStringList &tags);

    scripted_tool tool;
    const std::shared_ptr<exif_cache> cache = exif_cache::instance();
};

void test_exif_cache::init()
{
    cache->records.clear();
    cache->raw_tags.clear();
}

tag_map test_exif_cache::loaded_record(const QStringList &tags)
{
    tool.set_tags("photo.jpg", tags);
    cache->load("/photos/photo.jpg");
    return cache->records["/photos/photo.jpg"];
}

void test_exif_cache::there_is_one_cache()
{
    QVERIFY(cache);
    QCOMPARE(exif_cache::instance().get(), cache.get());
}

void test_exif_cache::cache_is_two_plain_maps()
{
    static_assert(!std::is_polymorphic_v<exif_cache>);
    static_assert(std::is_same_v<decltype(exif_cache::records), std::map<std::string, tag_map>>);
    static_assert(std::is_same_v<decltype(exif_cache::raw_tags), std::map<std::string, tag_map>>);
    QVERIFY(&cache->records < &cache->raw_tags);
}

void test_exif_cache::recording_time_comes_from_exif_or_else_from_ifd0_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<tag_map>("expected");
    // clang-format off
    QTest::newRow("exif alone") << QStringList{exif_time} << exif_record;
    QTest::newRow("both, exif wins and sets no flag") << QStringList{exif_time, ifd0_time} << exif_record;
    QTest::newRow("ifd0 alone sets the flag") << QStringList{ifd0_time} << ifd0_record;
    QTest::newRow("empty exif wins over ifd0")
        << QStringList{"ExifIFD:DateTimeOriginal=", ifd0_time} << tag_map{};
    QTest::newRow("empty ifd0 sets the flag alone")
        << QStringList{"IFD0:DateTimeOriginal="} << tag_map{{"DateTimeOriginalInIFD0", "true"}};
    QTest::newRow("creation date is no source")
        << QStringList{"ExifIFD:CreateDate=2017:05:03 12:00:00"} << tag_map{};
    QTest::newRow("file date is no source")
        << QStringList{"System:FileModifyDate=2017:05:03 12:00:00+02:00"} << tag_map{};
    QTest::newRow("xmp date is no source")
        << QStringList{"XMP-photoshop:DateCreated=2017:05:03 12:00:00"} << tag_map{};
    QTest::newRow("same name in another group is no source")
        << QStringList{"Composite:DateTimeOriginal=2017:05:03 12:00:00"} << tag_map{};
    QTest::newRow("no tags at all") << QStringList{} << tag_map{};
    // clang-format on
}

void test_exif_cache::recording_time_comes_from_exif_or_else_from_ifd0()
{
    QFETCH(QStringList, tags);
    QFETCH(tag_map, expected);
    QCOMPARE(loaded_record(tags), with(bare_record, expected));
}

void test_exif_cache::recording_time_is_split_into_texts_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<tag_map>("expected");
    const tag_map day = dated("2017", "05", "03");
    // clang-format off
    QTest::newRow("leading zeros stay") << "0007:05:03 01:02:03" << with(dated("0007", "05", "03"), timed("01", "02", "03"));
    QTest::newRow("date without a time") << "2017:05:03" << day;
    QTest::newRow("zeros count as parts") << "0000:00:00 00:00:00" << with(dated("0000", "00", "00"), timed("00", "00", "00"));
    QTest::newRow("split at the first space only") << "2017:05:03 12:00:00 +0200" << with(day, timed("12", "00", "00 +0200"));
    QTest::newRow("second space belongs to the hour") << "2017:05:03  12:00:00" << with(day, timed(" 12", "00", "00"));
    QTest::newRow("fraction stays with the second") << "2017:05:03 12:00:00.25" << with(day, timed("12", "00", "00.25"));
    QTest::newRow("zone without a colon stays with the second") << "2017:05:03 12:00:00-0500" << with(day, timed("12", "00", "00-0500"));
    QTest::newRow("colon at the end stays") << "2017:05:03 12:00:00:" << with(day, timed("12", "00", "00:"));
    QTest::newRow("double colon splits once") << "2017::05:03 12::00:00" << with(day, timed("12", "00", "00"));
    QTest::newRow("letters are three parts too") << "a:b:c d:e:f" << with(dated("a", "b", "c"), timed("d", "e", "f"));
    QTest::newRow("tab isn't a space") << "2017:05:03\t12" << dated("2017", "05", "03\t12");
    QTest::newRow("empty") << "" << tag_map{};
    // clang-format on
}

void test_exif_cache::recording_time_is_split_into_texts()
{
    QFETCH(QString, value);
    QFETCH(tag_map, expected);
    QCOMPARE(loaded_record({"ExifIFD:DateTimeOriginal=" + value}), with(bare_record, expected));
}

void test_exif_cache::zone_is_the_end_of_the_iptc_time_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<tag_map>("expected");
    const auto time = [](const char *value) {
        return QStringList{QString("IPTC:TimeCreated=") + value};
    };
    const auto zone = [](const char *text) {
        return tag_map{{"has_iptc_time", "true"}, {"iptc_timezone", text}};
    };
    // clang-format off
    QTest::newRow("plus") << time("12:34:56+02:00") << zone("+02:00");
    QTest::newRow("minus") << time("12:34:56-05:00") << zone("-05:00");
    QTest::newRow("no sign, no key") << time("12:34:56") << tag_map{{"has_iptc_time", "true"}};
    QTest::newRow("empty, no key") << time("") << tag_map{{"has_iptc_time", "true"}};
    QTest::newRow("plus before minus") << time("12:34:56+02:00-05:00") << zone("+02:00-05:00");
    QTest::newRow("plus after minus") << time("12:34:56-05:00+02:00") << zone("+02:00");
    QTest::newRow("last of two pluses") << time("12:34:56+01:00+02:00") << zone("+02:00");
    QTest::newRow("last of two minuses, of a date") << time("2017-05-03") << zone("-03");
    QTest::newRow("only a minus") << time("12:34:56-") << zone("-");
    QTest::newRow("hour of one digit") << time("12:34:56+2:00") << zone("+2:00");
    QTest::newRow("date alone, unparsed") << QStringList{"IPTC:DateCreated=nonsense+02:00"} << tag_map{{"has_iptc_date", "true"}};
    QTest::newRow("date and time") << QStringList{"IPTC:DateCreated=2017:05:03", "IPTC:TimeCreated=12:34:56+05:30"}
        << tag_map{{"has_iptc_date", "true"}, {"has_iptc_time", "true"}, {"iptc_timezone", "+05:30"}};
    QTest::newRow("zone of another tag is none") << QStringList{"ExifIFD:OffsetTimeOriginal=+02:00"} << tag_map{};
    // clang-format on
}

void test_exif_cache::zone_is_the_end_of_the_iptc_time()
{
    QFETCH(QStringList, tags);
    QFETCH(tag_map, expected);
    QCOMPARE(loaded_record(tags), with(bare_record, expected));
}

void test_exif_cache::parsing_is_silent()
{
    tool.set_tags("empty_date.jpg", {"ExifIFD:DateTimeOriginal="});
    tool.set_tags("odd_date.jpg", {"ExifIFD:DateTimeOriginal=a:b:c"});
    isolated_program session(TOOL_SESSION_PROGRAM);
    session.use_stand_in();
    const program_result result =
        session.run({"load", "/photos/empty_date.jpg", "load", "/photos/odd_date.jpg"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output,
             QByteArray("tag: has_data=true\ntag: has_iptc_date=false\ntag: has_iptc_time=false\n"
                        "tag: ipct_timezone=\ntags: 4\n"
                        "tag: has_data=true\ntag: has_iptc_date=false\ntag: has_iptc_time=false\n"
                        "tag: ipct_timezone=\n"
                        "tag: rec_day=c\ntag: rec_month=b\ntag: rec_year=a\ntags: 7\n"));
}

void test_exif_cache::date_or_time_without_three_parts_ends_the_program_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("check");
    QTest::addColumn<int>("line");
    const QByteArray date_check = "date_parts.size()==3";
    const QByteArray time_check = "time_parts.size()==3";
    // clang-format off
    QTest::newRow("one word") << "yesterday" << date_check << 27;
    QTest::newRow("date with hyphens") << "2017-05-03" << date_check << 27;
    QTest::newRow("date with hyphens and a time") << "2017-05-03 12:00:00" << date_check << 27;
    QTest::newRow("date of two parts") << "2017:05" << date_check << 27;
    QTest::newRow("date of four parts") << "2017:05:03:04" << date_check << 27;
    QTest::newRow("date that ends in a colon") << "2017:05:" << date_check << 27;
    QTest::newRow("date that begins with a colon") << ":05:03" << date_check << 27;
    QTest::newRow("time where the date belongs") << "2017:05:03T12:00:00" << date_check << 27;
    QTest::newRow("left blank by the camera") << ":  :     :  :" << date_check << 27;
    QTest::newRow("time without seconds") << "2017:05:03 12:00" << time_check << 36;
    QTest::newRow("time of one part") << "2017:05:03 noon" << time_check << 36;
    QTest::newRow("zone with a colon") << "2017:05:03 12:00:00+02:00" << time_check << 36;
    QTest::newRow("zone with a colon after a space") << "2017:05:03 12:00:00 +02:00" << time_check << 36;
    QTest::newRow("time that ends in a colon") << "2017:05:03 12:00:" << time_check << 36;
    // clang-format on
}

void test_exif_cache::date_or_time_without_three_parts_ends_the_program()
{
    QFETCH(QString, value);
    QFETCH(QByteArray, check);
    QFETCH(int, line);
    tool.set_tags("photo.jpg", {"ExifIFD:DateTimeOriginal=" + value});
    isolated_program session(TOOL_SESSION_PROGRAM);
    session.use_stand_in();
    const program_result result = session.run({"load", "/photos/photo.jpg"});

    QCOMPARE(result.status, failed_status);
    QVERIFY2(!result.output.contains("tag:"), result.output);
    const int crash_report = result.errors.indexOf("ERROR: received signal ");
    QVERIFY2(crash_report > 0, result.errors);
    const QByteArray report = result.errors.left(crash_report);
    QCOMPARE(report, "src/exif_cache:" + QByteArray::number(line) +
                         ": void exif_cache::parse_recording_date(const string&, const string&): "
                         "Assertion `" +
                         check + "' failed.\n");
    QVERIFY2(result.errors.endsWith("Stacktrace is empty\n\n"), result.errors);
}

void test_exif_cache::tags_are_kept_as_the_tool_gave_them()
{
    loaded_record({"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00.25", "IPTC:TimeCreated=12:34:56",
                   "File:Comment=", "System:FileName=photo.jpg"});
    const tag_map expected = {{"ExifIFD:DateTimeOriginal", "2017:05:03 12:00:00.25"},
                              {"IPTC:TimeCreated", "12:34:56"},
                              {"File:Comment", ""},
                              {"System:FileName", "photo.jpg"}};
    QCOMPARE(cache->raw_tags["/photos/photo.jpg"], expected);
}

void test_exif_cache::load_is_one_request()
{
    tool.forget();
    loaded_record({exif_time});
    QCOMPARE(tool.input(), QByteArray("-G1\n\n/photos/photo.jpg\n-execute\n"));
}

void test_exif_cache::load_again_replaces_the_tags()
{
    loaded_record({exif_time, "File:Comment=first"});
    loaded_record({"IPTC:DateCreated=2017:05:03"});
    QCOMPARE(cache->raw_tags["/photos/photo.jpg"], (tag_map{{"IPTC:DateCreated", "2017:05:03"}}));
}

void test_exif_cache::paths_are_kept_in_utf8()
{
    const QString path = QString::fromUtf8("/Fotos/Übung – ✓.jpg");
    tool.set_tags(QString::fromUtf8("Übung – ✓.jpg"), {exif_time});
    cache->load(path.toStdString());
    QCOMPARE(cache->records.count("/Fotos/Übung – ✓.jpg"), 1UL);
    QCOMPARE(cache->raw_tags.count("/Fotos/Übung – ✓.jpg"), 1UL);
    QCOMPARE(cache->record_copy(path), with(bare_record, exif_record));
}

void test_exif_cache::each_file_has_its_own_record()
{
    tool.set_tags("a.jpg", {exif_time});
    tool.set_tags("b.jpg", {ifd0_time});
    cache->load("/photos/a.jpg");
    cache->load("/photos/b.jpg");
    QCOMPARE(cache->record_copy("/photos/a.jpg"), with(bare_record, exif_record));
    QCOMPARE(cache->record_copy("/photos/b.jpg"), with(bare_record, ifd0_record));
}

void test_exif_cache::changing_a_copy_does_not_change_the_record()
{
    loaded_record({exif_time});
    auto &&copy = cache->record_copy("/photos/photo.jpg");
    const_cast<tag_map &>(copy)["iptc_timezone"] = "+02:00";
    QCOMPARE(cache->records["/photos/photo.jpg"], with(bare_record, exif_record));
}

void test_exif_cache::file_that_was_not_loaded_has_an_empty_record()
{
    QCOMPARE(cache->record_copy("/photos/unknown.jpg"), tag_map());
}

void test_exif_cache::missing_tool_gives_a_record_without_a_time()
{
    const isolated_program session(TOOL_SESSION_PROGRAM);
    const program_result result = session.run({"load", "/photos/photo.jpg"});
    QCOMPARE(result.status, 0);
    QVERIFY2(result.output.contains(
                 "tag: has_data=true\ntag: has_iptc_date=false\ntag: has_iptc_time=false\n"
                 "tag: ipct_timezone=\ntags: 4\n"),
             result.output);
}

KELVRA_CORE_TEST_MAIN(test_exif_cache)

#include "test_exif_cache.moc"
