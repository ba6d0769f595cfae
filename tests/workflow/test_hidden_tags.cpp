// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"
#include "real_tool_window.h"

namespace
{

const QString noon = "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00";
const QString xmp_date_tag = "XMP-photoshop:DateCreated";
const QString iptc_date_tag = "IPTC:DateCreated";
const QString exif_date_tag = "ExifIFD:DateTimeOriginal";
const QString ifd0_date_tag = "IFD0:DateTimeOriginal";

/// The names of the tags that the tool reports when it isn't asked for duplicates.
QStringList shown_tags(const QString &path)
{
    QStringList names;
    const QList<QByteArray> lines = run_exiftool({"-sort", "-args", "-f", "-G1", path}).split('\n');
    for (const QByteArray &line : lines)
        names << QString::fromUtf8(line.mid(1, line.indexOf('=') - 1));
    return names;
}

}  // namespace

/// Of several tags with one name the tool reports one. A fix and its undo don't know the others.
class test_hidden_tags : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void xmp_date_hides_the_iptc_date();
    void iptc_date_hidden_by_xmp_survives_a_fix_but_not_the_undo();
    void iptc_date_hidden_by_xmp_is_written_with_an_entered_zone();
    void ifd0_time_hides_the_exif_time();
    void exif_time_hidden_by_ifd0_is_removed_by_the_tool();

private:
    QString make_photo_with_two_creation_dates();
    QString make_photo_with_two_recording_times();
    QString value(const QString &tag) const { return tag_of(app.path_of("photo.jpg"), tag); }

    real_tool_window app;
};

QString test_hidden_tags::make_photo_with_two_creation_dates()
{
    return app.make_photo(
        "photo.jpg", {noon, xmp_date_tag + "=2016:01:01 01:01:01", iptc_date_tag + "=2015:02:02"});
}

QString test_hidden_tags::make_photo_with_two_recording_times()
{
    return app.make_photo("photo.jpg", {noon, ifd0_date_tag + "=2010:01:01 01:01:01"});
}

void test_hidden_tags::xmp_date_hides_the_iptc_date()
{
    const QString path = make_photo_with_two_creation_dates();
    QCOMPARE(value(iptc_date_tag), QString("2015:02:02"));
    QVERIFY(shown_tags(path).contains(xmp_date_tag));
    QVERIFY(!shown_tags(path).contains(iptc_date_tag));
}

void test_hidden_tags::iptc_date_hidden_by_xmp_survives_a_fix_but_not_the_undo()
{
    drop_photos(*app.window, {make_photo_with_two_creation_dates()});
    type_shift(*app.window, "hour", "1");
    const box_answers answers;
    click(app.window->button_fix_time);
    QCOMPARE(answers.boxes.size(), 0);
    QCOMPARE(value(xmp_date_tag), QString("2017:05:03 13:00:00"));
    QCOMPARE(value(iptc_date_tag), QString("2015:02:02"));

    click(app.window->button_undo);
    QCOMPARE(value(xmp_date_tag), QString("2016:01:01 01:01:01"));
    QCOMPARE(value(iptc_date_tag), QString());
}

void test_hidden_tags::iptc_date_hidden_by_xmp_is_written_with_an_entered_zone()
{
    drop_photos(*app.window, {make_photo_with_two_creation_dates()});
    type_shift(*app.window, "timezone", "1");
    click(app.window->button_fix_time);
    QCOMPARE(value(iptc_date_tag), QString("2017:05:03"));
    click(app.window->button_undo);
    QCOMPARE(value(iptc_date_tag), QString());
}

void test_hidden_tags::ifd0_time_hides_the_exif_time()
{
    const QString path = make_photo_with_two_recording_times();
    QCOMPARE(value(exif_date_tag), QString("2017:05:03 12:00:00"));
    QVERIFY(shown_tags(path).contains(ifd0_date_tag));
    QVERIFY(!shown_tags(path).contains(exif_date_tag));
}

/// The tool itself removes the tag from one directory when it writes it to the other.
void test_hidden_tags::exif_time_hidden_by_ifd0_is_removed_by_the_tool()
{
    drop_photos(*app.window, {make_photo_with_two_recording_times()});
    type_shift(*app.window, "hour", "1");
    click(app.window->button_fix_time);
    QCOMPARE(value(ifd0_date_tag), QString("2010:01:01 02:01:01"));
    QCOMPARE(value(exif_date_tag), QString());

    click(app.window->button_undo);
    QCOMPARE(value(ifd0_date_tag), QString("2010:01:01 01:01:01"));
    QCOMPARE(value(exif_date_tag), QString());
}

KELVRA_PROGRAM_TEST_MAIN(test_hidden_tags)
#include "test_hidden_tags.moc"
