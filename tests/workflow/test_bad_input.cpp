// SPDX-License-Identifier: GPL-3.0-or-later

#include "faulty_batch.h"
#include "permission_overrides.h"
#include "program_test_main.h"

namespace
{

/// What an accident does to the bytes of a JPEG file.
using damage = QByteArray (*)(QByteArray jpeg);

int place_of(const QByteArray &bytes, const QByteArray &sought, int from = 0)
{
    const int place = bytes.indexOf(sought, from);
    if (place == -1)
        qFatal("a photo without %s", sought.toHex().constData());
    return place;
}

/// The position of the Exif data, from which its offsets count (Exif 2.3, 4.7.2).
int exif_place(const QByteArray &jpeg)
{
    const QByteArray head("Exif\0\0", 6);
    return place_of(jpeg, head) + head.size();
}

QByteArray replaced(const QByteArray &bytes, int place, const QByteArray &by)
{
    return QByteArray(bytes).replace(place, by.size(), by);
}

/// The position of a tag's value, or of its offset (TIFF 6.0, section 2).
int value_place(const QByteArray &jpeg, const QByteArray &tag)
{
    return place_of(jpeg, tag, exif_place(jpeg)) + 8;
}

const QByteArray far_away = "\x7f\xff\xff\xff";
const QByteArray exif_directory_tag("\x87\x69\0\x04", 4);
const QByteArray recording_time_tag("\x90\x03\0\x02", 4);

QByteArray cut_after_start(QByteArray jpeg)
{
    return jpeg.left(3);
}

QByteArray cut_in_exif(QByteArray jpeg)
{
    return jpeg.left(exif_place(jpeg) + 20);
}

/// Cuts in the frame header (ITU T.81, B.2.2), which is between the Exif block and the picture.
QByteArray cut_in_header(QByteArray jpeg)
{
    return jpeg.left(place_of(jpeg, "\xff\xc0") + 10);
}

QByteArray cut_in_picture(QByteArray jpeg)
{
    return jpeg.left(jpeg.size() - 100);
}

QByteArray without_end_marker(QByteArray jpeg)
{
    return jpeg.left(place_of(jpeg, "\xff\xd9", jpeg.size() - 2));
}

QByteArray with_long_exif_segment(QByteArray jpeg)
{
    return replaced(jpeg, exif_place(jpeg) - 8, "\xff\xff");
}

QByteArray with_short_exif_segment(QByteArray jpeg)
{
    return replaced(jpeg, exif_place(jpeg) - 8, QByteArray("\0\x60", 2));
}

QByteArray with_empty_exif_segment(QByteArray jpeg)
{
    return replaced(jpeg, exif_place(jpeg) - 8, QByteArray(2, '\0'));
}

QByteArray with_long_table_segment(QByteArray jpeg)
{
    return replaced(jpeg, place_of(jpeg, "\xff\xc4") + 2, "\xff\xf0");
}

QByteArray with_far_first_directory(QByteArray jpeg)
{
    return replaced(jpeg, exif_place(jpeg) + 4, far_away);
}

QByteArray with_far_exif_directory(QByteArray jpeg)
{
    return replaced(jpeg, value_place(jpeg, exif_directory_tag), far_away);
}

QByteArray with_far_recording_time(QByteArray jpeg)
{
    return replaced(jpeg, value_place(jpeg, recording_time_tag), far_away);
}

QByteArray with_many_entries(QByteArray jpeg)
{
    return replaced(jpeg, exif_place(jpeg) + 8, "\xff\xff");
}

QByteArray with_noise_after_end(QByteArray jpeg)
{
    return jpeg + QByteArray(1000, '\xa5');
}

}  // namespace

Q_DECLARE_METATYPE(damage)

/// Files that aren't complete photos, or that can't be read, between good photos.
class test_bad_input : public QObject
{
    Q_OBJECT

private slots:
    void init() { batch.start(); }
    void cleanup() { batch.end(); }

    void file_without_a_time_is_skipped_data();
    void file_without_a_time_is_skipped();
    void damaged_photo_is_fixed_or_left_unchanged_data();
    void damaged_photo_is_fixed_or_left_unchanged();
    void unreadable_photo_is_skipped();
    void folder_without_photos_gives_its_files();
    void empty_folder_gives_nothing();
    void path_that_is_no_file_gives_nothing_data();
    void path_that_is_no_file_gives_nothing();
    void photo_given_twice_is_shifted_once();
    void photo_deleted_before_loading_is_skipped();

private:
    QString make_bytes(const QString &name, const QByteArray &bytes) const;
    QString shown_time() const;
    void verify_file_is_never_touched(const QString &path, const QStringList &named);

    faulty_batch batch;
};

QString test_bad_input::make_bytes(const QString &name, const QByteArray &bytes) const
{
    make_file(batch.path_of(name), bytes);
    return batch.path_of(name);
}

/// The time shown for the file between the good photos.
QString test_bad_input::shown_time() const
{
    return shown_column(*batch.window, table_data_model::recording_time_column).value(1);
}

/// Verifies that a fix and its undo change only the good photos.
void test_bad_input::verify_file_is_never_touched(const QString &path, const QStringList &named)
{
    const QStringList state = file_state(path);
    const QStringList contents = batch.contents();
    for (const bool fixed : {true, false}) {
        QCOMPARE(fixed ? batch.fix() : batch.undo(), fixed ? named : QStringList());
        QCOMPARE(batch.good_dates(), fixed ? fixed_dates : first_dates);
        QCOMPARE(file_state(path), state);
        QCOMPARE(batch.contents(), contents);
    }
}

void test_bad_input::file_without_a_time_is_skipped_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << "m.jpg" << QByteArray();
    QTest::newRow("text under the name of a photo") << "m.jpg" << QByteArray("a letter\n");
    QTest::newRow("text with a tag in it")
        << "m.jpg" << QByteArray("-ExifIFD:DateTimeOriginal=2017\n");
    QTest::newRow("text") << "m.txt" << QByteArray("a letter\n");
    QTest::newRow("noise") << "m.tif" << QByteArray(1000, '\xfe');
}

void test_bad_input::file_without_a_time_is_skipped()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString path = make_bytes(name, bytes);
    batch.load({path});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", name, "z.png"}));
    QCOMPARE(shown_time(), QString("-"));
    verify_file_is_never_touched(path, {});
}

void test_bad_input::damaged_photo_is_fixed_or_left_unchanged_data()
{
    QTest::addColumn<damage>("happen");
    QTest::addColumn<bool>("has_time");
    QTest::addColumn<bool>("named");  // as failed; only if it has a time
    // clang-format off
    QTest::newRow("cut after its start") << damage(cut_after_start) << false << false;
    QTest::newRow("cut in the Exif block") << damage(cut_in_exif) << false << false;
    QTest::newRow("cut in the header") << damage(cut_in_header) << true << true;
    QTest::newRow("cut in the picture") << damage(cut_in_picture) << true << false;
    QTest::newRow("without end marker") << damage(without_end_marker) << true << false;
    QTest::newRow("Exif segment too long") << damage(with_long_exif_segment) << false << false;
    QTest::newRow("Exif segment too short") << damage(with_short_exif_segment) << false << false;
    QTest::newRow("Exif segment of length zero")
        << damage(with_empty_exif_segment) << false << false;
    QTest::newRow("segment of a table too long") << damage(with_long_table_segment) << true << true;
    QTest::newRow("first directory far away") << damage(with_far_first_directory) << false << false;
    QTest::newRow("Exif directory far away") << damage(with_far_exif_directory) << false << false;
    QTest::newRow("recording time far away") << damage(with_far_recording_time) << false << false;
    QTest::newRow("too many entries") << damage(with_many_entries) << false << false;
    QTest::newRow("noise after the end") << damage(with_noise_after_end) << true << false;
    // clang-format on
}

void test_bad_input::damaged_photo_is_fixed_or_left_unchanged()
{
    QFETCH(damage, happen);
    QFETCH(bool, has_time);
    QFETCH(bool, named);
    const QString path = batch.make_dated_photo("m.jpg");
    const QByteArray bytes = happen(bytes_of(path));
    make_file(path, bytes);
    batch.load({path});
    QCOMPARE(shown_time(), QString(has_time ? "03.05.2017 - 12:00:00" : "-"));
    if (!has_time || named) {
        verify_file_is_never_touched(path, named ? QStringList{path} : QStringList());
        return;
    }
    const QByteArray scan = bytes.mid(place_of(bytes, "\xff\xda"));
    for (const bool fixed : {true, false}) {
        QCOMPARE(fixed ? batch.fix() : batch.undo(), QStringList());
        QCOMPARE(batch.recording_time("m.jpg"), QString("2017:05:03 1%1:00:00").arg(fixed ? 3 : 2));
        QVERIFY(bytes_of(path).endsWith(scan));
        QCOMPARE(batch.good_dates(), fixed ? fixed_dates : first_dates);
        QCOMPARE(batch.contents(), QStringList({"a.jpg", "m.jpg", "sub", "z.png"}));
    }
}

void test_bad_input::unreadable_photo_is_skipped()
{
    const QString path = batch.put_photo("m.jpg");
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    batch.load({path});
    QCOMPARE(shown_time(), QString("-"));
    verify_file_is_never_touched(path, {});

    click(batch.window->button_reset);
    drop_photos(*batch.window, {batch.folder->path()});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", "z.png"}));
}

void test_bad_input::folder_without_photos_gives_its_files()
{
    make_bytes("sub/a.txt", "a letter");
    make_bytes("sub/b", QByteArray());
    drop_photos(*batch.window, {batch.path_of("sub")});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.txt", "b"}));
    QCOMPARE(shown_column(*batch.window, table_data_model::recording_time_column),
             QStringList({"-", "-"}));
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(bytes_of(batch.path_of("sub/a.txt")), QByteArray("a letter"));
    QVERIFY(!batch.window->button_undo->isEnabled());
}

void test_bad_input::empty_folder_gives_nothing()
{
    drop_photos(*batch.window, {batch.path_of("sub")});
    QCOMPARE(batch.window->model->rowCount(), 0);
}

void test_bad_input::path_that_is_no_file_gives_nothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("deleted path") << "gone.jpg";
    QTest::newRow("link to nowhere") << "link.jpg";
    QTest::newRow("pipe") << "pipe.jpg";
}

void test_bad_input::path_that_is_no_file_gives_nothing()
{
    QFETCH(QString, name);
    QVERIFY(QFile::link(batch.path_of("nowhere.jpg"), batch.path_of("link.jpg")));
    QCOMPARE(mkfifo(QFile::encodeName(batch.path_of("pipe.jpg")), S_IRUSR | S_IWUSR), 0);
    batch.load({batch.path_of(name)});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", "z.png"}));
}

void test_bad_input::photo_given_twice_is_shifted_once()
{
    batch.load({batch.path_of("a.jpg")});
    drop_photos(*batch.window, {batch.folder->path()});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", "z.png"}));
    QCOMPARE(batch.fix(), QStringList());
    QCOMPARE(batch.good_dates(), fixed_dates);
}

void test_bad_input::photo_deleted_before_loading_is_skipped()
{
    const QString path = batch.path_of("gone.jpg");
    batch.window->load_files({batch.path_of("a.jpg"), path, batch.path_of("z.png")});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", "gone.jpg", "z.png"}));
    QCOMPARE(shown_time(), QString("-"));
    verify_file_is_never_touched(path, {});
}

int main(int argc, char **argv)
{
    drop_permission_overrides();
    return run_program_test<test_bad_input>(argc, argv);
}

#include "test_bad_input.moc"
