// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"
#include "real_tool_window.h"

namespace
{

using tag_values = QMap<QString, QString>;

const QStringList written_tags = {"ExifIFD:DateTimeOriginal",  "IFD0:DateTimeOriginal",
                                  "ExifIFD:CreateDate",        "IFD0:ModifyDate",
                                  "XMP-photoshop:DateCreated", "IPTC:DateCreated",
                                  "IPTC:TimeCreated",          "System:FileModifyDate"};

/// Tags that change whenever a file is rewritten: sizes and positions of blocks, checksums of them,
/// and what the tool derives from other tags.
bool is_derived(const QString &tag)
{
    static const QStringList names = {"System:FileAccessDate",  "System:FileInodeChangeDate",
                                      "System:FileSize",        "IFD0:StripOffsets",
                                      "File:CurrentIPTCDigest", "IPTC:ApplicationRecordVersion"};
    return names.contains(tag) || tag.startsWith("Composite:");
}

tag_values only_written(const tag_values &tags)
{
    tag_values some;
    for (const QString &name : written_tags) {
        if (tags.contains(name))
            some[name] = tags[name];
    }
    return some;
}

tag_values never_written(const tag_values &tags)
{
    tag_values some;
    for (auto tag = tags.begin(); tag != tags.end(); ++tag) {
        if (!written_tags.contains(tag.key()) && !is_derived(tag.key()))
            some[tag.key()] = tag.value();
    }
    return some;
}

/// "Group:Name=Value" each.
tag_values map_of(const QStringList &lines)
{
    tag_values tags;
    for (const QString &line : lines)
        tags[line.section('=', 0, 0)] = line.section('=', 1);
    return tags;
}

tag_values changed(tag_values tags, const QStringList &lines)
{
    const tag_values changes = map_of(lines);
    for (auto change = changes.begin(); change != changes.end(); ++change)
        tags[change.key()] = change.value();
    return tags;
}

const QStringList bystanders = {"IFD0:Make=Vorrin", "IFD0:Artist=Jörg Müller", "ExifIFD:ISO=200",
                                "XMP-dc:Title=Harbour"};
const QString file_date = "System:FileModifyDate=2018:01:02 04:04:05+01:00";

}  // namespace

/// Load, fix and undo of photos in three formats, through the window and the real tool.
class test_round_trip : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void photo_is_fixed_and_restored_data();
    void photo_is_fixed_and_restored();
    void reloaded_photo_shows_the_new_time();
    void deleted_photo_is_reported_data();
    void deleted_photo_is_reported();
    void photo_deleted_after_the_fix_is_skipped();

private:
    void shift_by(const QStringList &entries);

    real_tool_window app;
};

/// @param entries  "unit=text" each
void test_round_trip::shift_by(const QStringList &entries)
{
    for (const QString &entry : entries)
        type_shift(*app.window, entry.section('=', 0, 0), entry.section('=', 1));
}

void test_round_trip::photo_is_fixed_and_restored_data()
{
    const QString noon = "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00";
    const QStringList iptc_east = {"IPTC:DateCreated=2017:05:03",
                                   "IPTC:TimeCreated=12:00:00+02:00"};
    const QStringList iptc_half = {"IPTC:DateCreated=2017:05:03",
                                   "IPTC:TimeCreated=12:00:00+05:30"};

    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QStringList>("shift");
    QTest::addColumn<int>("warnings");
    QTest::addColumn<QStringList>("fixed");
    QTest::addColumn<QStringList>("undone");  // if not the original tags
    for (const char *name : {"photo.jpg", "photo.tif", "photo.png"}) {
        const auto row = [name](const char *title) -> QTestData & {
            return QTest::addRow("%s: %s", name, title) << name;
        };
        // clang-format off
        row("an hour later")
            << QStringList{noon, "ExifIFD:CreateDate=2017:05:03 12:00:01",
                           "IFD0:ModifyDate=2017:06:01 08:30:00"}
            << QStringList{"hour=1"} << 0
            << QStringList{"ExifIFD:DateTimeOriginal=2017:05:03 13:00:00",
                           "ExifIFD:CreateDate=2017:05:03 13:00:00",
                           "IFD0:ModifyDate=2017:05:03 13:00:00",
                           "System:FileModifyDate=2017:05:03 13:00:00+02:00"}
            << QStringList{};
        row("a month later, into a shorter one")
            << QStringList{"ExifIFD:DateTimeOriginal=2017:01:31 12:00:00"}
            << QStringList{"month=1"} << 0
            << QStringList{"ExifIFD:DateTimeOriginal=2017:02:28 12:00:00",
                           "System:FileModifyDate=2017:02:28 12:00:00+01:00"}
            << QStringList{};
        row("to before 1972")
            << QStringList{noon} << QStringList{"year=-50"} << 1
            << QStringList{"ExifIFD:DateTimeOriginal=1967:05:03 12:00:00",
                           "System:FileModifyDate=1967:05:03 12:00:00+01:00"}
            << QStringList{};
        row("zone entered, no IPTC tags")
            << QStringList{noon} << QStringList{"hour=1", "timezone=5.5"} << 0
            << QStringList{"ExifIFD:DateTimeOriginal=2017:05:03 13:00:00",
                           "IPTC:DateCreated=2017:05:03", "IPTC:TimeCreated=13:00:00+05:30",
                           "System:FileModifyDate=2017:05:03 09:30:00+02:00"}
            << QStringList{};
        row("zone of the photo")
            << QStringList{noon} + iptc_east << QStringList{"hour=13"} << 0
            << QStringList{"ExifIFD:DateTimeOriginal=2017:05:04 01:00:00",
                           "IPTC:DateCreated=2017:05:04", "IPTC:TimeCreated=01:00:00+02:00",
                           "System:FileModifyDate=2017:05:04 01:00:00+02:00"}
            << QStringList{};
        row("zone with minutes, which the undo loses")
            << QStringList{noon} + iptc_half << QStringList{"hour=1", "timezone=1"} << 0
            << QStringList{"ExifIFD:DateTimeOriginal=2017:05:03 13:00:00",
                           "IPTC:DateCreated=2017:05:03", "IPTC:TimeCreated=13:00:00+06:30",
                           "System:FileModifyDate=2017:05:03 08:30:00+02:00"}
            << QStringList{"IPTC:TimeCreated=12:00:00+05:00"};
        row("recording time in IFD0")
            << QStringList{"IFD0:DateTimeOriginal=2017:05:03 12:00:00"} << QStringList{"hour=1"}
            << 0
            << QStringList{"IFD0:DateTimeOriginal=2017:05:03 13:00:00",
                           "System:FileModifyDate=2017:05:03 13:00:00+02:00"}
            << QStringList{};
        row("XMP")
            << QStringList{noon, "XMP-photoshop:DateCreated=2017:05:03 12:00:00"}
            << QStringList{"hour=1"} << 0
            << QStringList{"ExifIFD:DateTimeOriginal=2017:05:03 13:00:00",
                           "XMP-photoshop:DateCreated=2017:05:03 13:00:00",
                           "System:FileModifyDate=2017:05:03 13:00:00+02:00"}
            << QStringList{};
        // clang-format on
    }
}

void test_round_trip::photo_is_fixed_and_restored()
{
    QFETCH(QString, name);
    QFETCH(QStringList, tags);
    QFETCH(QStringList, shift);
    QFETCH(int, warnings);
    QFETCH(QStringList, fixed);
    QFETCH(QStringList, undone);
    const QString path = app.make_photo(name, tags + bystanders);
    const tag_values before = all_tags(path);
    QCOMPARE(only_written(before), map_of(tags + QStringList{file_date}));
    const QByteArray picture = picture_data(path);
    QVERIFY(!picture.isEmpty());
    const ino_t inode = inode_of(path);

    drop_photos(*app.window, {path});
    shift_by(shift);
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    QCOMPARE(answers.boxes.size(), warnings);
    const tag_values after = all_tags(path);
    QCOMPARE(only_written(after), map_of(fixed));
    QCOMPARE(never_written(after), never_written(before));
    QCOMPARE(picture_data(path), picture);
    QCOMPARE(inode_of(path), inode);
    QCOMPARE(app.names(), QStringList{name});

    click(app.window->button_undo);
    const tag_values at_last = all_tags(path);
    QCOMPARE(only_written(at_last), changed(only_written(before), undone));
    QCOMPARE(never_written(at_last), never_written(before));
    QCOMPARE(picture_data(path), picture);
    QCOMPARE(inode_of(path), inode);
    QCOMPARE(app.names(), QStringList{name});
}

void test_round_trip::reloaded_photo_shows_the_new_time()
{
    const auto times = [this] {
        return shown_column(*app.window, table_data_model::recording_time_column);
    };
    const QString path = app.make_dated_photo("photo.jpg");
    drop_photos(*app.window, {path});
    QCOMPARE(times(), QStringList{"03.05.2017 - 12:00:00"});
    type_shift(*app.window, "hour", "1");
    click(app.window->button_fix_time);
    drop_photos(*app.window, {path});
    QCOMPARE(times(), QStringList{"03.05.2017 - 13:00:00"});
    click(app.window->button_undo);
    QCOMPARE(times(), QStringList{"03.05.2017 - 13:00:00"});
    click(app.window->button_reset);
    drop_photos(*app.window, {path});
    QCOMPARE(times(), QStringList{"03.05.2017 - 12:00:00"});
}

void test_round_trip::deleted_photo_is_reported_data()
{
    QTest::addColumn<bool>("kept");
    QTest::newRow("Keep changes") << true;
    QTest::newRow("Undo Changes") << false;
}

void test_round_trip::deleted_photo_is_reported()
{
    QFETCH(bool, kept);
    const QStringList names = {"a.jpg", "b.tif", "c.png"};
    QStringList paths;
    for (const QString &name : names)
        paths << app.make_dated_photo(name);
    drop_photos(*app.window, paths);
    QVERIFY(QFile::remove(paths[1]));
    type_shift(*app.window, "hour", "1");
    const box_answers answers({kept ? box_reply::yes : box_reply::no});
    click(app.window->button_fix_time);
    QCOMPARE(answers.texts(), QStringList{"The following 1 files could not be fixed:\n" + paths[1] +
                                          "\n\n Do you want to keep the changes in the other "
                                          "files"});
    const QString expected = kept ? "2017:05:03 13:00:00" : "2017:05:03 12:00:00";
    QCOMPARE(app.recording_time("a.jpg"), expected);
    QCOMPARE(app.recording_time("c.png"), expected);
    QCOMPARE(app.names(), QStringList({"a.jpg", "c.png"}));
    QCOMPARE(app.window->button_undo->isEnabled(), kept);
}

void test_round_trip::photo_deleted_after_the_fix_is_skipped()
{
    const QStringList paths = {app.make_dated_photo("a.jpg"), app.make_dated_photo("b.jpg")};
    drop_photos(*app.window, paths);
    type_shift(*app.window, "hour", "1");
    click(app.window->button_fix_time);
    QVERIFY(QFile::remove(paths[0]));
    const box_answers answers;
    click(app.window->button_undo);
    QCOMPARE(answers.boxes.size(), 0);
    QCOMPARE(app.recording_time("b.jpg"), QString("2017:05:03 12:00:00"));
    QCOMPARE(app.names(), QStringList{"b.jpg"});
}

KELVRA_PROGRAM_TEST_MAIN(test_round_trip)
#include "test_round_trip.moc"
