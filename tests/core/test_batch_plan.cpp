// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/batch_plan.h"
#include "core_test_main.h"

#include <stdexcept>

namespace
{

const char exif_original[] = "ExifIFD:DateTimeOriginal";
const char exif_created[] = "ExifIFD:CreateDate";
const char ifd0_original[] = "IFD0:DateTimeOriginal";
const char ifd0_modified[] = "IFD0:ModifyDate";
const char xmp_created[] = "XMP-photoshop:DateCreated";
const char iptc_date[] = "IPTC:DateCreated";
const char iptc_time[] = "IPTC:TimeCreated";
const char file_modified[] = "System:FileModifyDate";
const char file_created[] = "System:FileCreateDate";
const char inode_changed[] = "System:FileInodeChangeDate";

const QDateTime new_time(QDate(2017, 5, 3), QTime(12, 30, 0), Qt::LocalTime);

tag_map summer_record()
{
    return {{"rec_year", "2017"}, {"rec_month", "05"}, {"rec_day", "03"}};
}

tag_map with(tag_map tags, const std::string &key, const std::string &value)
{
    tags[key] = value;
    return tags;
}

/// What `fix_tags` writes for one tag; "not written" if it leaves the tag out.
QString written(const tag_map &values, const QString &tag)
{
    const auto found = values.find(tag.toStdString());
    return found == values.end() ? "not written" : QString::fromStdString(found->second);
}

QString tag_line(const undo_entry &entry)
{
    return QString("%1 %2 '%3'").arg(entry.tag, entry.existed ? "had" : "lacked", entry.value);
}

QStringList tag_lines(const QList<undo_entry> &entries)
{
    QStringList lines;
    for (const undo_entry &entry : entries)
        lines << tag_line(entry);
    return lines;
}

QString remembered_iptc_time(const photo_tags &photo)
{
    for (const undo_entry &entry : undo_entries(photo)) {
        if (entry.tag == iptc_time)
            return entry.value;
    }
    return "no entry";
}

}  // namespace

Q_DECLARE_METATYPE(tag_map)

class test_batch_plan : public QObject
{
    Q_OBJECT

private slots:
    void candidates_are_eight_tags();
    void candidates_of_a_photo_dated_in_ifd0_data();
    void candidates_of_a_photo_dated_in_ifd0();
    void fix_writes_each_tag_by_its_kind_data();
    void fix_writes_each_tag_by_its_kind();
    void written_zone_is_the_sum_of_stored_and_entered_data();
    void written_zone_is_the_sum_of_stored_and_entered();
    void nothing_is_written_to_a_photo_without_date_tags();
    void ifd0_date_is_written_instead_of_the_exif_date();
    void inode_date_is_never_written_or_remembered();
    void tags_of_other_names_are_never_written();

    void entries_hold_each_candidate_in_order();
    void entries_of_a_photo_dated_in_ifd0();
    void empty_value_is_remembered_as_existing();
    void iptc_time_is_remembered_with_date_and_zone_data();
    void iptc_time_is_remembered_with_date_and_zone();
    void zone_without_a_number_throws_out_of_the_snapshot();
    void undo_writes_every_entry_back();

    void time_before_1972_is_before_the_limit_data();
    void time_before_1972_is_before_the_limit();
    void photo_lacks_a_zone_only_with_an_iptc_tag_data();
    void photo_lacks_a_zone_only_with_an_iptc_tag();

private:
    void add_fix_rows(const QStringList &tags, const QStringList &expected);
};

void test_batch_plan::candidates_are_eight_tags()
{
    QCOMPARE(candidate_tags({}),
             QStringList({exif_original, exif_created, ifd0_modified, xmp_created, iptc_date,
                          iptc_time, file_modified, file_created}));
}

void test_batch_plan::candidates_of_a_photo_dated_in_ifd0_data()
{
    QTest::addColumn<QString>("flag");
    QTest::newRow("true") << "true";
    QTest::newRow("value doesn't count") << "false";
    QTest::newRow("empty value") << "";
}

void test_batch_plan::candidates_of_a_photo_dated_in_ifd0()
{
    QFETCH(QString, flag);
    QCOMPARE(candidate_tags({{"DateTimeOriginalInIFD0", flag.toStdString()}}),
             QStringList({exif_created, ifd0_modified, xmp_created, iptc_date, iptc_time,
                          file_modified, file_created, ifd0_original}));
}

/// Adds a row for each tag and each combination of presence, stored zone (+02:00) and entered zone
/// (3 hours).
/// @param expected  the values for: no zone, entered zone, stored zone, both zones; then the same
///                  for a photo that has the tag
void test_batch_plan::add_fix_rows(const QStringList &tags, const QStringList &expected)
{
    for (const QString &tag : tags) {
        for (int combination = 0; combination < expected.size(); ++combination) {
            const bool present = combination & 4;
            const bool zone_stored = combination & 2;
            const bool zone_entered = combination & 1;
            const QString name = QString("%1 %2, %3, %4")
                                     .arg(tag, present ? "present" : "missing",
                                          zone_stored ? "zone stored" : "no zone stored",
                                          zone_entered ? "zone entered" : "no zone entered");
            QTest::newRow(qPrintable(name))
                << tag << present << zone_stored << zone_entered << expected[combination];
        }
    }
}

void test_batch_plan::fix_writes_each_tag_by_its_kind_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<bool>("present");
    QTest::addColumn<bool>("zone_stored");
    QTest::addColumn<bool>("zone_entered");
    QTest::addColumn<QString>("expected");
    const QString no = "not written";
    const QString plain = "2017:05:03 12:30:00";
    const QString kept = plain + "+02:00";
    const QString entered = plain + "+03:00";
    const QString moved = plain + "+05:00";
    add_fix_rows({iptc_date, iptc_time}, {no, entered, no, moved, plain, entered, kept, moved});
    add_fix_rows({file_modified, file_created}, {no, no, no, no, plain, entered, kept, moved});
    add_fix_rows({exif_original, ifd0_original, exif_created, ifd0_modified, xmp_created},
                 {no, no, no, no, plain, plain, plain, plain});
}

void test_batch_plan::fix_writes_each_tag_by_its_kind()
{
    QFETCH(QString, tag);
    QFETCH(bool, present);
    QFETCH(bool, zone_stored);
    QFETCH(bool, zone_entered);
    tag_map raw_tags;
    tag_map record = summer_record();
    if (tag == ifd0_original)
        record["DateTimeOriginalInIFD0"] = "true";
    if (zone_stored)
        record["iptc_timezone"] = "+02:00";
    if (present)
        raw_tags[tag.toStdString()] = "2001:01:01 01:01:01";
    const tag_map values =
        fix_tags({raw_tags, record}, new_time, zone_entered, zone_entered ? 3.0 : 0.0);
    QTEST(written(values, tag), "expected");
}

void test_batch_plan::written_zone_is_the_sum_of_stored_and_entered_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("zone_entered");
    QTest::addColumn<double>("entry");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("moved zone") << "+02:00" << true << 3.0 << "2017:05:03 12:30:00+05:00";
    QTest::newRow("only an entry") << "" << true << -5.5 << "2017:05:03 12:30:00-05:30";
    QTest::newRow("entry that is no number") << "" << true << 0.0 << "2017:05:03 12:30:00+00:00";
    QTest::newRow("zone alone, in normal form") << "+02:00 (summer)" << false << 0.0 << "2017:05:03 12:30:00+02:00";
    QTest::newRow("odd minutes lose one") << "+01:01" << false << 0.0 << "2017:05:03 12:30:00+01:00";
    QTest::newRow("minutes are cut in single precision") << "" << true << 2.1 << "2017:05:03 12:30:00+02:05";
    QTest::newRow("zone without its leading zero") << "+2:00" << false << 0.0 << "2017:05:03 12:30:00+00:00";
    QTest::newRow("neither") << "" << false << 0.0 << "2017:05:03 12:30:00";
    // clang-format on
}

void test_batch_plan::written_zone_is_the_sum_of_stored_and_entered()
{
    QFETCH(QString, stored);
    QFETCH(bool, zone_entered);
    QFETCH(double, entry);
    const photo_tags photo{{{iptc_date, ""}, {iptc_time, ""}, {file_modified, ""}},
                           with(summer_record(), "iptc_timezone", stored.toStdString())};
    const tag_map values = fix_tags(photo, new_time, zone_entered, entry);
    QTEST(written(values, iptc_date), "expected");
    QTEST(written(values, iptc_time), "expected");
    QTEST(written(values, file_modified), "expected");
}

void test_batch_plan::nothing_is_written_to_a_photo_without_date_tags()
{
    QCOMPARE(fix_tags({{}, summer_record()}, new_time, false, 0.0), tag_map());
}

void test_batch_plan::ifd0_date_is_written_instead_of_the_exif_date()
{
    const photo_tags photo{{{ifd0_original, "2001:01:01 01:01:01"}, {exif_original, ""}},
                           with(summer_record(), "DateTimeOriginalInIFD0", "true")};
    QCOMPARE(fix_tags(photo, new_time, false, 0.0),
             (tag_map{{ifd0_original, "2017:05:03 12:30:00"}}));

    const photo_tags exif_photo{photo.raw_tags, summer_record()};
    QCOMPARE(fix_tags(exif_photo, new_time, false, 0.0),
             (tag_map{{exif_original, "2017:05:03 12:30:00"}}));
}

void test_batch_plan::inode_date_is_never_written_or_remembered()
{
    const photo_tags photo{{{inode_changed, "2017:05:03 12:00:00+02:00"}}, summer_record()};
    QCOMPARE(written(fix_tags(photo, new_time, false, 0.0), inode_changed), QString("not written"));
    QCOMPARE(written(fix_tags(photo, new_time, true, 3.0), inode_changed), QString("not written"));
    QVERIFY(undo_tags(undo_entries(photo)).count(inode_changed) == 0);
}

void test_batch_plan::tags_of_other_names_are_never_written()
{
    const photo_tags photo{{{"IFD1:ModifyDate", "2017:05:03 12:00:00"},
                            {"System:FileAccessDate", "2017:05:03 12:00:00+02:00"},
                            {"IPTC:DigitalCreationDate", "2017:05:03"},
                            {"XMP-xmp:CreateDate", "2017:05:03 12:00:00"},
                            {"iptc:datecreated", "2017:05:03"}},
                           summer_record()};
    QCOMPARE(fix_tags(photo, new_time, false, 0.0), tag_map());
}

void test_batch_plan::entries_hold_each_candidate_in_order()
{
    const photo_tags photo{{{exif_original, "2017:05:03 12:00:00.25"},
                            {xmp_created, "2017:05:03 12:00:00+01:00"},
                            {iptc_date, "2016:04:02"},
                            {iptc_time, "11:10:09+02:00"},
                            {file_created, "2017:05:04 08:00:00+02:00"},
                            {inode_changed, "2017:05:05 08:00:00+02:00"}},
                           with(summer_record(), "iptc_timezone", "+02:00")};
    QCOMPARE(tag_lines(undo_entries(photo)),
             QStringList({"ExifIFD:DateTimeOriginal had '2017:05:03 12:00:00.25'",
                          "ExifIFD:CreateDate lacked ''", "IFD0:ModifyDate lacked ''",
                          "XMP-photoshop:DateCreated had '2017:05:03 12:00:00+01:00'",
                          "IPTC:DateCreated had '2016:04:02'",
                          "IPTC:TimeCreated had '2017:05:03 11:10:09+02:00'",
                          "System:FileModifyDate lacked ''",
                          "System:FileCreateDate had '2017:05:04 08:00:00+02:00'"}));
}

void test_batch_plan::entries_of_a_photo_dated_in_ifd0()
{
    const photo_tags photo{{{ifd0_original, "2017:05:03 12:00:00"}},
                           with(summer_record(), "DateTimeOriginalInIFD0", "true")};
    QCOMPARE(tag_lines(undo_entries(photo)),
             QStringList({"ExifIFD:CreateDate lacked ''", "IFD0:ModifyDate lacked ''",
                          "XMP-photoshop:DateCreated lacked ''", "IPTC:DateCreated lacked ''",
                          "IPTC:TimeCreated lacked ''", "System:FileModifyDate lacked ''",
                          "System:FileCreateDate lacked ''",
                          "IFD0:DateTimeOriginal had '2017:05:03 12:00:00'"}));
}

void test_batch_plan::empty_value_is_remembered_as_existing()
{
    const photo_tags photo{{{exif_created, ""}}, summer_record()};
    QCOMPARE(tag_line(undo_entries(photo)[1]), QString("ExifIFD:CreateDate had ''"));
}

void test_batch_plan::iptc_time_is_remembered_with_date_and_zone_data()
{
    QTest::addColumn<QString>("reported");
    QTest::addColumn<QString>("zone");
    QTest::addColumn<QString>("month");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("whole hours") << "12:34:56+02:00" << "+02:00" << "05" << "2017:05:03 12:34:56+02:00";
    QTest::newRow("minutes of the zone are lost") << "12:34:56+05:30" << "+05:30" << "05" << "2017:05:03 12:34:56+05:00";
    QTest::newRow("negative zone") << "12:34:56-05:00" << "-05:00" << "05" << "2017:05:03 12:34:56-05:00";
    QTest::newRow("minutes of a negative zone are lost") << "12:34:56-05:30" << "-05:30" << "05" << "2017:05:03 12:34:56-05:00";
    QTest::newRow("zone of minutes alone") << "12:34:56-00:30" << "-00:30" << "05" << "2017:05:03 12:34:56+00:00";
    QTest::newRow("zone without a number is Greenwich") << "12:34:56+" << "+" << "05" << "2017:05:03 12:34:56+00:00";
    QTest::newRow("one digit is an hour here") << "12:34:56+2:00" << "+2:00" << "05" << "2017:05:03 12:34:56+02:00";
    QTest::newRow("no zone, summer") << "12:34:56" << "" << "05" << "2017:05:03 12:34:56+02:00";
    QTest::newRow("no zone, winter") << "12:34:56" << "" << "01" << "2017:01:03 12:34:56+01:00";
    QTest::newRow("zone isn't that of the season") << "12:34:56+01:00" << "+01:00" << "05" << "2017:05:03 12:34:56+01:00";
    QTest::newRow("time of another form is midnight") << "123456+02:00" << "+02:00" << "05" << "2017:05:03 00:00:00+02:00";
    QTest::newRow("empty time is midnight") << "" << "" << "05" << "2017:05:03 00:00:00+02:00";
    QTest::newRow("date instead of a time") << "2017-05-03" << "-03" << "05" << "2017:05:03 00:00:00-03:00";
    QTest::newRow("plus is searched for before the minus") << "12:34:56+02:00-05:00" << "+02:00-05:00" << "05" << "2017:05:03 12:34:56+02:00";
    // clang-format on
}

void test_batch_plan::iptc_time_is_remembered_with_date_and_zone()
{
    QFETCH(QString, reported);
    QFETCH(QString, zone);
    QFETCH(QString, month);
    // The value gets the recording date, not this IPTC date.
    const tag_map raw_tags = {{iptc_time, reported.toStdString()}, {iptc_date, "2001:09:11"}};
    tag_map record = with(summer_record(), "rec_month", month.toStdString());
    if (!zone.isEmpty())
        record["iptc_timezone"] = zone.toStdString();
    QTEST(remembered_iptc_time({raw_tags, record}), "expected");
}

void test_batch_plan::zone_without_a_number_throws_out_of_the_snapshot()
{
    const photo_tags photo{{{iptc_time, "12:34:56-"}}, with(summer_record(), "iptc_timezone", "-")};
    QVERIFY_EXCEPTION_THROWN(undo_entries(photo), std::invalid_argument);
}

void test_batch_plan::undo_writes_every_entry_back()
{
    const QList<undo_entry> entries = {{iptc_time, true, "2017:05:03 12:34:56+02:00"},
                                       {iptc_date, false, ""},
                                       {exif_created, true, QString::fromUtf8("3. März")}};
    QCOMPARE(undo_tags(entries), (tag_map{{iptc_time, "2017:05:03 12:34:56+02:00"},
                                          {iptc_date, ""},
                                          {exif_created, "3. März"}}));
    QCOMPARE(undo_tags({}), tag_map());
}

void test_batch_plan::time_before_1972_is_before_the_limit_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<bool>("expected");
    const QDateTime limit(QDate(1972, 1, 1), QTime(0, 0, 0), Qt::LocalTime);
    QTest::newRow("second before") << limit.addSecs(-1) << true;
    QTest::newRow("millisecond before") << limit.addMSecs(-1) << true;
    QTest::newRow("limit itself") << limit << false;
    QTest::newRow("after the local midnight, before that of Greenwich")
        << limit.addSecs(1) << false;
    QTest::newRow("long before") << QDateTime(QDate(1900, 6, 1), QTime(12, 0)) << true;
    QTest::newRow("today's photo") << new_time << false;
    QTest::newRow("no time") << QDateTime() << false;
    QTest::newRow("invalid date long ago") << QDateTime(QDate(1970, 0, 1), QTime(12, 0)) << false;
}

void test_batch_plan::time_before_1972_is_before_the_limit()
{
    QFETCH(QDateTime, time);
    QTEST(is_before_file_time_limit(time), "expected");
}

void test_batch_plan::photo_lacks_a_zone_only_with_an_iptc_tag_data()
{
    QTest::addColumn<tag_map>("raw_tags");
    QTest::addColumn<tag_map>("record");
    QTest::addColumn<bool>("expected");
    const tag_map other_tags = {{exif_original, "2017:05:03 12:00:00"},
                                {file_modified, "2017:05:03 12:00:00+02:00"}};
    // clang-format off
    QTest::newRow("date alone") << tag_map{{iptc_date, "2017:05:03"}} << tag_map{} << true;
    QTest::newRow("time alone") << tag_map{{iptc_time, "12:00:00"}} << tag_map{} << true;
    QTest::newRow("empty values count") << tag_map{{iptc_date, ""}} << tag_map{} << true;
    QTest::newRow("empty zone is none") << tag_map{{iptc_date, ""}} << tag_map{{"iptc_timezone", ""}} << true;
    QTest::newRow("zone") << tag_map{{iptc_date, ""}, {iptc_time, ""}} << tag_map{{"iptc_timezone", "+00:00"}} << false;
    QTest::newRow("other tags are never counted") << other_tags << tag_map{} << false;
    QTest::newRow("no tags") << tag_map{} << tag_map{} << false;
    // clang-format on
}

void test_batch_plan::photo_lacks_a_zone_only_with_an_iptc_tag()
{
    QFETCH(tag_map, raw_tags);
    QFETCH(tag_map, record);
    QTEST(lacks_zone({raw_tags, record}), "expected");
}

KELVRA_CORE_TEST_MAIN(test_batch_plan)

#include "test_batch_plan.moc"
