// SPDX-License-Identifier: GPL-3.0-or-later

#include "faulty_batch.h"
#include "permission_overrides.h"
#include "program_test_main.h"
#include "temporary_volume.h"

#include <QProcess>

namespace
{

/// Does something to the file at a path, or to its surroundings.
using fault = void (*)(const QString &path);

void set_mode(const QString &path, mode_t mode)
{
    if (chmod(QFile::encodeName(path), mode) != 0)
        qFatal("no other rights for %s", qPrintable(path));
}

void make_read_only(const QString &path)
{
    set_mode(path, S_IRUSR);
}

void make_unreadable(const QString &path)
{
    set_mode(path, 0);
}

void make_writable(const QString &path)
{
    set_mode(path, S_IRUSR | S_IWUSR);
}

QString folder_of(const QString &path)
{
    return QFileInfo(path).path();
}

void lock_folder(const QString &path)
{
    set_mode(folder_of(path), S_IRUSR | S_IXUSR);
}

void unlock_folder(const QString &path)
{
    set_mode(folder_of(path), S_IRWXU);
}

/// Where the tool writes the new version of a file before it replaces the old one.
QString temporary_file_of(const QString &path)
{
    return path + "_exiftool_tmp";
}

void leave_temporary_file(const QString &path)
{
    make_file(temporary_file_of(path), "half of a photo");
}

void remove_temporary_file(const QString &path)
{
    QFile::remove(temporary_file_of(path));
}

void leave_temporary_folder(const QString &path)
{
    QDir().mkdir(temporary_file_of(path));
}

void remove_temporary_folder(const QString &path)
{
    QDir().rmdir(temporary_file_of(path));
}

void remove(const QString &path)
{
    QFile::remove(path);
}

void empty(const QString &path)
{
    make_file(path);
}

void overwrite(const QString &path)
{
    make_file(path, "a letter\n");
}

void cut_off(const QString &path)
{
    QFile::resize(path, 100);
}

void make_node(const QString &path, mode_t type)
{
    remove(path);
    if (mknod(QFile::encodeName(path), type | S_IRUSR | S_IWUSR, 0) != 0)
        qFatal("no node at %s", qPrintable(path));
}

void replace_by_socket(const QString &path)
{
    make_node(path, S_IFSOCK);
}

void replace_by_link(const QString &path, const QString &target)
{
    remove(path);
    QFile::link(target, path);
}

void replace_by_dead_link(const QString &path)
{
    replace_by_link(path, path + ".gone");
}

void replace_by_device(const QString &path)
{
    replace_by_link(path, "/dev/null");
}

void replace_by_photo_of_another_format(const QString &path)
{
    if (!QImage(8, 8, QImage::Format_RGB32).save(path, "PNG"))
        qFatal("no photo at %s", qPrintable(path));
}

void replace_by_folder(const QString &path)
{
    remove(path);
    QDir().mkdir(path);
}

/// A pipe in the place of a file, and a writer that opens it as soon as a reader does: some
/// versions of the tool wait for that.
class ending_pipe
{
public:
    explicit ending_pipe(const QString &path)
    {
        make_node(path, S_IFIFO);
        writer.start("sh", {"-c", ": >\"$1\"", "sh", path});
    }
    ~ending_pipe()
    {
        writer.kill();
        writer.waitForFinished();
    }

    ending_pipe(const ending_pipe &) = delete;
    ending_pipe &operator=(const ending_pipe &) = delete;

private:
    QProcess writer;
};

const QString file_date = "System:FileModifyDate=2018:01:02 03:04:05+00:00";
const QString shown_date = "03.05.2017 - 12:00:00  UTC+02:00";
const QStringList shown_dates = {shown_date, shown_date, shown_date};

}  // namespace

Q_DECLARE_METATYPE(fault)

/// What happens to files between loading, fix and undo. A photo that can't be written stays
/// unharmed, and so do the others.
class test_batch_faults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { batch.end(); }

    void file_that_cannot_be_written_is_reported_data();
    void file_that_cannot_be_written_is_reported();
    void file_that_cannot_be_restored_is_skipped_data();
    void file_that_cannot_be_restored_is_skipped();
    void pipe_in_its_place_is_reported();
    void pipe_in_its_place_is_skipped_by_the_undo();
    void file_is_fixed_once_its_fault_is_repaired_data();
    void file_is_fixed_once_its_fault_is_repaired();
    void photo_on_a_read_only_volume_is_reported();
    void photo_without_room_is_reported_data();
    void photo_without_room_is_reported();
    void photo_without_room_for_its_undo_stays_fixed();
    void photo_with_room_only_beside_itself_is_fixed();
    void other_photo_under_the_name_gets_the_dates_of_the_first();
    void folder_under_the_name_isnt_reported();
    void photos_in_a_folder_under_the_name_get_the_dates_of_the_first();

private:
    void verify_good_photos_are_fixed() { QCOMPARE(batch.good_dates(), fixed_dates); }
    void verify_good_photos_are_restored() { QCOMPARE(batch.good_dates(), first_dates); }
    void verify_fix_only_reports_it();
    void verify_undo_skips_it();
    QString put_grown_photo(int size) const;

    faulty_batch batch;
    QString path;
};

#define MOUNT_OR_SKIP(volume, pages)                                                               \
    const temporary_volume volume(batch.path_of("sub"), pages);                                    \
    if (!volume.is_mounted())                                                                      \
    QSKIP("this machine lets the test mount nothing")

void test_batch_faults::init()
{
    batch.start();
    path = batch.path_of("sub/m.jpg");
}

/// Fixes the photos and undoes that: the faulty file is reported once and never touched.
void test_batch_faults::verify_fix_only_reports_it()
{
    const QStringList state = file_state(path);
    const QStringList contents = batch.contents();
    QCOMPARE(batch.fix(), QStringList{path});
    QCOMPARE(file_state(path), state);
    QCOMPARE(batch.contents(), contents);
    verify_good_photos_are_fixed();
    verify_undo_skips_it();
}

/// Undoes the fix: it affects only the other photos, and there is no message.
void test_batch_faults::verify_undo_skips_it()
{
    const QStringList state = file_state(path);
    const QStringList contents = batch.contents();
    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(file_state(path), state);
    QCOMPARE(batch.contents(), contents);
    verify_good_photos_are_restored();
}

void test_batch_faults::file_that_cannot_be_written_is_reported_data()
{
    QTest::addColumn<fault>("happen");
    QTest::newRow("read-only") << fault(make_read_only);
    QTest::newRow("neither readable nor writable") << fault(make_unreadable);
    QTest::newRow("in a read-only folder") << fault(lock_folder);
    QTest::newRow("temporary file of the tool left over") << fault(leave_temporary_file);
    QTest::newRow("folder in the place of the temporary file") << fault(leave_temporary_folder);
    QTest::newRow("gone") << fault(remove);
    QTest::newRow("empty") << fault(empty);
    QTest::newRow("overwritten by a text") << fault(overwrite);
    QTest::newRow("cut off") << fault(cut_off);
    QTest::newRow("photo of another format in its place")
        << fault(replace_by_photo_of_another_format);
    QTest::newRow("socket in its place") << fault(replace_by_socket);
    QTest::newRow("link to nowhere in its place") << fault(replace_by_dead_link);
    QTest::newRow("link to a device in its place") << fault(replace_by_device);
}

void test_batch_faults::file_that_cannot_be_written_is_reported()
{
    QFETCH(fault, happen);
    batch.put_photo("sub/m.jpg");
    batch.load({path});
    QCOMPARE(shown_column(*batch.window, table_data_model::recording_time_column), shown_dates);
    happen(path);
    verify_fix_only_reports_it();
}

void test_batch_faults::file_that_cannot_be_restored_is_skipped_data()
{
    file_that_cannot_be_written_is_reported_data();
    QTest::newRow("folder in its place") << fault(replace_by_folder);
}

void test_batch_faults::file_that_cannot_be_restored_is_skipped()
{
    QFETCH(fault, happen);
    batch.put_photo("sub/m.jpg");
    batch.load({path});
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.dates("sub/m.jpg"), fixed_dates);
    verify_good_photos_are_fixed();

    happen(path);
    verify_undo_skips_it();
    QVERIFY(!batch.window->button_undo->isEnabled());
}

void test_batch_faults::pipe_in_its_place_is_reported()
{
    batch.load({batch.put_photo("sub/m.jpg")});
    const ending_pipe pipe(path);
    verify_fix_only_reports_it();
}

void test_batch_faults::pipe_in_its_place_is_skipped_by_the_undo()
{
    batch.load({batch.put_photo("sub/m.jpg")});
    QCOMPARE(batch.fix(), QStringList());
    const ending_pipe pipe(path);
    verify_undo_skips_it();
}

void test_batch_faults::file_is_fixed_once_its_fault_is_repaired_data()
{
    QTest::addColumn<fault>("happen");
    QTest::addColumn<fault>("repair");
    QTest::newRow("read-only") << fault(make_read_only) << fault(make_writable);
    QTest::newRow("in a read-only folder") << fault(lock_folder) << fault(unlock_folder);
    QTest::newRow("temporary file of the tool left over")
        << fault(leave_temporary_file) << fault(remove_temporary_file);
    QTest::newRow("folder in the place of the temporary file")
        << fault(leave_temporary_folder) << fault(remove_temporary_folder);
}

/// The undo does nothing to the file, since the fix never wrote it. A second fix does.
void test_batch_faults::file_is_fixed_once_its_fault_is_repaired()
{
    QFETCH(fault, happen);
    QFETCH(fault, repair);
    batch.put_photo("sub/m.jpg");
    happen(path);
    batch.load({path});
    QCOMPARE(shown_column(*batch.window, table_data_model::recording_time_column), shown_dates);
    QCOMPARE(batch.fix(), QStringList{path});
    repair(path);
    const QStringList state = file_state(path);
    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(file_state(path), state);
    verify_good_photos_are_restored();

    batch.load({path});
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.dates("sub/m.jpg"), fixed_dates);
    QCOMPARE(batch.contents(), QStringList({"a.jpg", "sub", "sub/m.jpg", "z.png"}));
}

void test_batch_faults::photo_on_a_read_only_volume_is_reported()
{
    MOUNT_OR_SKIP(volume, 64);
    batch.load({batch.put_photo("sub/m.jpg")});
    volume.make_read_only();
    verify_fix_only_reports_it();
}

/// Puts a photo of exactly `size` bytes.
QString test_batch_faults::put_grown_photo(int size) const
{
    constexpr int segment_head = 4;  // marker and length (ITU T.81, B.2.4.5)
    const QString photo = batch.put_photo("sub/m.jpg");
    const int grown_by = size - bytes_of(photo).size() - segment_head;
    set_tags(photo, {"File:Comment=" + QString(grown_by, 'x'), file_date});
    if (bytes_of(photo).size() != size)
        qFatal("%s has another size than %d", qPrintable(photo), size);
    return photo;
}

void test_batch_faults::photo_without_room_is_reported_data()
{
    QTest::addColumn<int>("pages");
    QTest::newRow("no room") << 0;
    QTest::newRow("room for a part of it") << 1;
}

void test_batch_faults::photo_without_room_is_reported()
{
    QFETCH(int, pages);
    MOUNT_OR_SKIP(volume, 64);
    batch.load({put_grown_photo(5 * temporary_volume::page_size())});
    volume.leave_room(pages);
    verify_fix_only_reports_it();

    volume.make_room();
    batch.load({path});
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.recording_time("sub/m.jpg"), QString("2017:05:03 13:00:00"));
}

void test_batch_faults::photo_without_room_for_its_undo_stays_fixed()
{
    MOUNT_OR_SKIP(volume, 64);
    batch.load({batch.put_photo("sub/m.jpg")});
    QCOMPARE(batch.fix(), QStringList());
    volume.leave_room(0);
    const QStringList state = file_state(path);
    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(file_state(path), state);
    QCOMPARE(batch.dates("sub/m.jpg"), fixed_dates);
    QCOMPARE(batch.contents(), QStringList({"a.jpg", "sub", "sub/filler", "sub/m.jpg", "z.png"}));
    verify_good_photos_are_restored();
}

/// The tool has written the new version beside the photo, but the photo can't grow by a page. The
/// temporary file then takes its place.
void test_batch_faults::photo_with_room_only_beside_itself_is_fixed()
{
    constexpr int pages = 5;
    MOUNT_OR_SKIP(volume, 64);
    batch.load({put_grown_photo(pages * temporary_volume::page_size())});
    volume.leave_room(pages + 1);
    const QStringList contents = batch.contents();
    type_shift(*batch.window, "timezone", "1");
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.dates("sub/m.jpg"),
             QStringList({"ExifIFD:CreateDate=2017:05:03 13:00:00",
                          "ExifIFD:DateTimeOriginal=2017:05:03 13:00:00",
                          "IFD0:ModifyDate=2017:05:03 13:00:00", "IPTC:DateCreated=2017:05:03",
                          "IPTC:TimeCreated=13:00:00+03:00",
                          "System:FileModifyDate=2017:05:03 12:00:00+02:00",
                          "XMP-photoshop:DateCreated=2017:05:03 13:00:00", first_dates.last()}));
    QVERIFY(bytes_of(path).size() > pages * temporary_volume::page_size());
    QCOMPARE(batch.contents(), contents);

    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(batch.dates("sub/m.jpg"), first_dates);
    QCOMPARE(batch.contents(), contents);
}

/// The dates that are written, and those that are restored, are those of the photo that was loaded.
void test_batch_faults::other_photo_under_the_name_gets_the_dates_of_the_first()
{
    batch.load({batch.make_photo("sub/m.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00",
                                               "ExifIFD:CreateDate=2017:05:03 12:00:01"})});
    QVERIFY(QImage(8, 8, QImage::Format_RGB32).save(path, "JPG"));
    set_tags(path, {"ExifIFD:DateTimeOriginal=2010:01:01 01:01:01",
                    "XMP-photoshop:DateCreated=2010:01:01 01:01:01"});
    const QByteArray picture = picture_data(path);

    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.dates("sub/m.jpg").mid(0, 4),
             QStringList({"ExifIFD:CreateDate=2017:05:03 13:00:00",
                          "ExifIFD:DateTimeOriginal=2017:05:03 13:00:00",
                          "System:FileModifyDate=2017:05:03 13:00:00+02:00",
                          "XMP-photoshop:DateCreated=2010:01:01 01:01:01"}));
    QCOMPARE(picture_data(path), picture);
    verify_good_photos_are_fixed();

    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(batch.dates("sub/m.jpg").mid(0, 3),
             QStringList({"ExifIFD:CreateDate=2017:05:03 12:00:01",
                          "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00",
                          "System:FileModifyDate=2018:01:02 04:04:05+01:00"}));
    QVERIFY(tag_of(path, "XMP-photoshop:DateCreated").isEmpty());
    QCOMPARE(picture_data(path), picture);
    verify_good_photos_are_restored();
}

/// Given a folder, the tool processes the files in it, and reports none as not updated.
void test_batch_faults::folder_under_the_name_isnt_reported()
{
    batch.load({batch.put_photo("sub/m.jpg")});
    replace_by_folder(path);
    make_file(path + "/letter.txt", "a letter\n");
    const QStringList contents = batch.contents();
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.contents(), contents);
    verify_good_photos_are_fixed();
    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(bytes_of(path + "/letter.txt"), QByteArray("a letter\n"));
    verify_good_photos_are_restored();
}

void test_batch_faults::photos_in_a_folder_under_the_name_get_the_dates_of_the_first()
{
    batch.load({batch.put_photo("sub/m.jpg")});
    replace_by_folder(path);
    batch.make_photo("sub/m.jpg/inside.jpg", {"ExifIFD:DateTimeOriginal=2010:01:01 01:01:01"});
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.recording_time("sub/m.jpg/inside.jpg"), QString("2017:05:03 13:00:00"));
    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(batch.recording_time("sub/m.jpg/inside.jpg"), QString("2017:05:03 12:00:00"));
}

int main(int argc, char **argv)
{
    enter_private_mounts();
    drop_permission_overrides();
    return run_program_test<test_batch_faults>(argc, argv);
}

#include "test_batch_faults.moc"
