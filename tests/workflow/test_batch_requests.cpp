// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"

#include <stdexcept>

namespace
{

const char exif_time[] = "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00";
const char ifd0_time[] = "IFD0:DateTimeOriginal=2017:05:03 12:00:00";
const char iptc_date[] = "IPTC:DateCreated=2016:04:02";
const char iptc_time[] = "IPTC:TimeCreated=11:10:09";
const char iptc_time_with_zone[] = "IPTC:TimeCreated=11:10:09+02:00";

/// The tags of a photo other than its recording time and the IPTC tags.
const QStringList other_tags = {"ExifIFD:CreateDate=2016:01:01 01:01:01",
                                "IFD0:ModifyDate=2016:02:02 02:02:02",
                                "XMP-photoshop:DateCreated=2016:03:03 03:03:03+01:00",
                                "System:FileModifyDate=2016:04:04 04:04:04+02:00",
                                "System:FileAccessDate=2016:05:05 05:05:05+02:00",
                                "System:FileInodeChangeDate=2016:06:06 06:06:06+02:00",
                                "System:FileCreateDate=2016:07:07 07:07:07+02:00"};

/// Which IPTC tags a photo has, and what the requests contain for them. An empty line means none.
struct iptc_case {
    const char *name;
    QStringList tags;
    const char *zone;          ///< after the clock time of the file's dates
    const char *entered_zone;  ///< the same with 3 hours entered as the zone
    const char *date_line;     ///< of a fix with nothing entered
    const char *time_line;
    const char *undo_date_line;
    const char *undo_time_line;
};

const iptc_case iptc_cases[] = {
    {"no IPTC", {}, "", "+03:00", "", "", "-IPTC:DateCreated=\n", "-IPTC:TimeCreated=\n"},
    {"IPTC date",
     {iptc_date},
     "",
     "+03:00",
     "-IPTC:DateCreated=2017:05:03 13:00:00\n",
     "",
     "-IPTC:DateCreated=2016:04:02\n",
     "-IPTC:TimeCreated=\n"},
    {"IPTC time",
     {iptc_time},
     "",
     "+03:00",
     "",
     "-IPTC:TimeCreated=2017:05:03 13:00:00\n",
     "-IPTC:DateCreated=\n",
     "-IPTC:TimeCreated=2017:05:03 11:10:09+02:00\n"},
    {"IPTC date and time",
     {iptc_date, iptc_time},
     "",
     "+03:00",
     "-IPTC:DateCreated=2017:05:03 13:00:00\n",
     "-IPTC:TimeCreated=2017:05:03 13:00:00\n",
     "-IPTC:DateCreated=2016:04:02\n",
     "-IPTC:TimeCreated=2017:05:03 11:10:09+02:00\n"},
    {"IPTC time with a zone",
     {iptc_time_with_zone},
     "+02:00",
     "+05:00",
     "",
     "-IPTC:TimeCreated=2017:05:03 13:00:00+02:00\n",
     "-IPTC:DateCreated=\n",
     "-IPTC:TimeCreated=2017:05:03 11:10:09+02:00\n"},
    {"IPTC date and time with a zone",
     {iptc_date, iptc_time_with_zone},
     "+02:00",
     "+05:00",
     "-IPTC:DateCreated=2017:05:03 13:00:00+02:00\n",
     "-IPTC:TimeCreated=2017:05:03 13:00:00+02:00\n",
     "-IPTC:DateCreated=2016:04:02\n",
     "-IPTC:TimeCreated=2017:05:03 11:10:09+02:00\n"},
};

QByteArray fixed_iptc(const iptc_case &iptc, bool zone_entered)
{
    if (!zone_entered)
        return QByteArray(iptc.date_line) + iptc.time_line;
    const QByteArray text = QByteArray("2017:05:03 13:00:00") + iptc.entered_zone + "\n";
    return "-IPTC:DateCreated=" + text + "-IPTC:TimeCreated=" + text;
}

QByteArray fix_lines(const iptc_case &iptc, bool in_ifd0, bool has_others, bool zone_entered)
{
    const QByteArray text = "2017:05:03 13:00:00";
    const QByteArray zoned_text = text + (zone_entered ? iptc.entered_zone : iptc.zone) + "\n";
    const auto other = [has_others](const QByteArray &line) {
        return has_others ? line : QByteArray();
    };
    return other("-ExifIFD:CreateDate=" + text + "\n") +
           (in_ifd0 ? "-IFD0:DateTimeOriginal=" : "-ExifIFD:DateTimeOriginal=") + text + "\n" +
           other("-IFD0:ModifyDate=" + text + "\n") + fixed_iptc(iptc, zone_entered) +
           other("-System:FileCreateDate=" + zoned_text) +
           other("-System:FileModifyDate=" + zoned_text) +
           other("-XMP-photoshop:DateCreated=" + text + "\n");
}

QByteArray undo_lines(const iptc_case &iptc, bool in_ifd0, bool has_others)
{
    const auto other = [has_others](const QByteArray &name, const QByteArray &value) {
        return "-" + name + "=" + (has_others ? value : QByteArray()) + "\n";
    };
    return other("ExifIFD:CreateDate", "2016:01:01 01:01:01") +
           (in_ifd0 ? "-IFD0:DateTimeOriginal=" : "-ExifIFD:DateTimeOriginal=") +
           "2017:05:03 12:00:00\n" + other("IFD0:ModifyDate", "2016:02:02 02:02:02") +
           iptc.undo_date_line + iptc.undo_time_line +
           other("System:FileCreateDate", "2016:07:07 07:07:07+02:00") +
           other("System:FileModifyDate", "2016:04:04 04:04:04+02:00") +
           other("XMP-photoshop:DateCreated", "2016:03:03 03:03:03+01:00");
}

}  // namespace

class test_batch_requests : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void photo_is_read_fixed_and_undone_with_these_bytes_data();
    void photo_is_read_fixed_and_undone_with_these_bytes();
    void photo_without_a_date_is_only_read();
    void names_and_values_are_sent_in_utf8();
    void zone_without_a_number_throws_out_of_the_fix();

private:
    QByteArray write_request(const QString &name, const QByteArray &lines) const;

    fake_tool_window app;
};

QByteArray test_batch_requests::write_request(const QString &name, const QByteArray &lines) const
{
    return "\n" + app.path_of(name).toUtf8() + "\n-overwrite_original_in_place\n-m\n" + lines +
           "-execute\n";
}

void test_batch_requests::photo_is_read_fixed_and_undone_with_these_bytes_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<bool>("zone_entered");
    QTest::addColumn<int>("questions");
    QTest::addColumn<QByteArray>("fix");
    QTest::addColumn<QByteArray>("undo");
    for (const iptc_case &iptc : iptc_cases) {
        for (int combination = 0; combination < 8; ++combination) {
            const bool in_ifd0 = combination & 4;
            const bool has_others = combination & 2;
            const bool zone_entered = combination & 1;
            const bool asks = !iptc.tags.isEmpty() && *iptc.zone == '\0' && !zone_entered;
            const QString name = QString("%1, dated in %2, %3, %4")
                                     .arg(iptc.name, in_ifd0 ? "IFD0" : "Exif",
                                          has_others ? "all other tags" : "no other tags",
                                          zone_entered ? "zone entered" : "no zone entered");
            QTest::newRow(qPrintable(name))
                << QStringList{in_ifd0 ? ifd0_time : exif_time} + iptc.tags +
                       (has_others ? other_tags : QStringList())
                << zone_entered << int{asks} << fix_lines(iptc, in_ifd0, has_others, zone_entered)
                << undo_lines(iptc, in_ifd0, has_others);
        }
    }
}

void test_batch_requests::photo_is_read_fixed_and_undone_with_these_bytes()
{
    QFETCH(QStringList, tags);
    QFETCH(bool, zone_entered);
    QFETCH(int, questions);
    QFETCH(QByteArray, fix);
    QFETCH(QByteArray, undo);
    app.load_photo("photo.jpg", tags);
    QCOMPARE(app.tool.input(), "-G1\n\n" + app.path_of("photo.jpg").toUtf8() + "\n-execute\n");

    app.tool.forget();
    type_shift(*app.window, "hour", "1");
    if (zone_entered)
        type_shift(*app.window, "timezone", "3");
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    QCOMPARE(answers.boxes.size(), questions);
    QCOMPARE(app.tool.input(), write_request("photo.jpg", fix));

    app.tool.forget();
    click(app.window->button_undo);
    QCOMPARE(app.tool.input(), write_request("photo.jpg", undo));
}

void test_batch_requests::photo_without_a_date_is_only_read()
{
    app.load_photo("photo.jpg", QStringList{iptc_date, iptc_time} + other_tags);
    app.tool.forget();
    type_shift(*app.window, "timezone", "3");
    click(app.window->button_fix_time);
    click(app.window->button_undo);
    QCOMPARE(app.tool.input(), QByteArray());
}

void test_batch_requests::names_and_values_are_sent_in_utf8()
{
    const QString name = QString::fromUtf8("März – 100 %1.jpg");
    app.load_photo(name, {exif_time, "XMP-photoshop:DateCreated=3. März %2"});
    app.tool.forget();
    click(app.window->button_fix_time);
    click(app.window->button_undo);
    const QByteArray fix = "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n"
                           "-XMP-photoshop:DateCreated=2017:05:03 12:00:00\n";
    const QByteArray undo = "-ExifIFD:CreateDate=\n"
                            "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n"
                            "-IFD0:ModifyDate=\n"
                            "-IPTC:DateCreated=\n"
                            "-IPTC:TimeCreated=\n"
                            "-System:FileCreateDate=\n"
                            "-System:FileModifyDate=\n"
                            "-XMP-photoshop:DateCreated=3. März %2\n";
    QCOMPARE(app.tool.requests(),
             QList<QByteArray>({write_request(name, fix), write_request(name, undo)}));
}

void test_batch_requests::zone_without_a_number_throws_out_of_the_fix()
{
    app.load_photo("photo.jpg", {exif_time, "IPTC:TimeCreated=11:10:09-"});
    app.tool.forget();
    QVERIFY_EXCEPTION_THROWN(app.window->on_button_fix_time_clicked(), std::invalid_argument);
    QCOMPARE(app.tool.input(), QByteArray());
}

KELVRA_PROGRAM_TEST_MAIN(test_batch_requests)

#include "test_batch_requests.moc"
