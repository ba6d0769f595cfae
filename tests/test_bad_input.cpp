#include "real_road.h"
#include "test_main.h"

#include <unistd.h>

namespace
{

/// Cut in the frame header (ITU T.81, B.2.2), which stands between the Exif block and the picture.
QByteArray cut_in_header(const QByteArray &jpeg)
{
    return jpeg.left(jpeg.indexOf("\xff\xc0") + 10);
}

QByteArray cut_in_picture(const QByteArray &jpeg)
{
    return jpeg.left(jpeg.size() - 100);
}

bool is_permitted(const QString &path, int mode)
{
    return access(QFile::encodeName(path), mode) == 0;
}

}  // namespace

/// Files that are no whole photos, or that can't be read or written, amid of one good photo.
class test_bad_input : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { road.end(); }

    void file_without_a_time_is_passed_over_data();
    void file_without_a_time_is_passed_over();
    void photo_cut_in_its_header_is_named();
    void photo_cut_in_its_picture_is_fixed();
    void unwritable_photo_is_named();
    void read_only_photo_is_fixed_where_permitted();
    void unreadable_photo_has_a_time_where_permitted();
    void folder_without_photos_gives_its_files();
    void empty_folder_gives_nothing();
    void what_is_no_file_gives_nothing_data();
    void what_is_no_file_gives_nothing();
    void photo_given_twice_is_shifted_once();
    void photo_with_two_names_is_shifted_once();
    void photo_gone_before_its_loading_is_passed_over();

private:
    QString make_bytes(const QString &name, const QByteArray &bytes) const;
    QString cut_photo(const QString &name, QByteArray (*cut)(const QByteArray &)) const;
    QStringList shown_times() const;
    QStringList fix();
    void verify_good_photo_is_fixed() const;

    real_road road;
    QString good;
};

void test_bad_input::init()
{
    road.start();
    good = road.make_dated_photo("good.jpg");
}

QString test_bad_input::make_bytes(const QString &name, const QByteArray &bytes) const
{
    make_file(road.path_of(name), bytes);
    return road.path_of(name);
}

QString test_bad_input::cut_photo(const QString &name, QByteArray (*cut)(const QByteArray &)) const
{
    return make_bytes(name, cut(bytes_of(road.make_dated_photo(name))));
}

QStringList test_bad_input::shown_times() const
{
    return shown_column(*road.window, table_data_model::recording_time_column);
}

/// Fixes all by an hour and keeps what was done. The paths that were named as failed.
QStringList test_bad_input::fix()
{
    type_shift(*road.window, "hour", "1");
    const box_answers answers({box_reply::yes});
    click(road.window->button_fix_time);
    return answers.texts().join('\n').split('\n').filter(road.folder->path());
}

void test_bad_input::verify_good_photo_is_fixed() const
{
    QCOMPARE(road.recording_time("good.jpg"), QString("2017:05:03 13:00:00"));
}

void test_bad_input::file_without_a_time_is_passed_over_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << "bad.jpg" << QByteArray();
    QTest::newRow("text under the name of a photo") << "bad.jpg" << QByteArray("a letter\n");
    QTest::newRow("text with a tag in it")
        << "bad.jpg" << QByteArray("-ExifIFD:DateTimeOriginal=2017\n");
    QTest::newRow("text") << "bad.txt" << QByteArray("a letter\n");
    QTest::newRow("noise") << "bad.tif" << QByteArray(1000, '\xfe');
    QTest::newRow("start of a photo and nothing more") << "bad.jpg" << QByteArray("\xff\xd8\xff");
}

void test_bad_input::file_without_a_time_is_passed_over()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString path = make_bytes(name, bytes);
    drop_photos(*road.window, {path, good});
    QCOMPARE(shown_times(), QStringList({"-", "03.05.2017 - 12:00:00"}));
    QCOMPARE(fix(), QStringList());
    QCOMPARE(bytes_of(path), bytes);
    verify_good_photo_is_fixed();
    click(road.window->button_undo);
    QCOMPARE(bytes_of(path), bytes);
    QCOMPARE(road.names(), QStringList({name, "good.jpg"}));
}

void test_bad_input::photo_cut_in_its_header_is_named()
{
    const QString path = cut_photo("bad.jpg", cut_in_header);
    const QByteArray bytes = bytes_of(path);
    drop_photos(*road.window, {path, good});
    QCOMPARE(shown_times(), QStringList({"03.05.2017 - 12:00:00", "03.05.2017 - 12:00:00"}));
    QCOMPARE(fix(), QStringList{path});
    QCOMPARE(bytes_of(path), bytes);
    verify_good_photo_is_fixed();
    QCOMPARE(road.names(), QStringList({"bad.jpg", "good.jpg"}));
}

void test_bad_input::photo_cut_in_its_picture_is_fixed()
{
    const QString path = cut_photo("bad.jpg", cut_in_picture);
    const QByteArray picture_end = bytes_of(path).right(50);
    drop_photos(*road.window, {path, good});
    QCOMPARE(fix(), QStringList());
    QCOMPARE(road.recording_time("bad.jpg"), QString("2017:05:03 13:00:00"));
    QCOMPARE(bytes_of(path).right(50), picture_end);
    verify_good_photo_is_fixed();
}

/// A folder in the place of the tool's temporary file, which holds for the superuser too.
void test_bad_input::unwritable_photo_is_named()
{
    const QString path = road.make_dated_photo("bad.jpg");
    const QByteArray bytes = bytes_of(path);
    QVERIFY(QDir(road.folder->path()).mkdir("bad.jpg_exiftool_tmp"));
    drop_photos(*road.window, {path, good});
    QCOMPARE(fix(), QStringList{path});
    QCOMPARE(bytes_of(path), bytes);
    verify_good_photo_is_fixed();
    QCOMPARE(road.names(), QStringList({"bad.jpg", "bad.jpg_exiftool_tmp", "good.jpg"}));
}

void test_bad_input::read_only_photo_is_fixed_where_permitted()
{
    const QString path = road.make_dated_photo("bad.jpg");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    const bool permitted = is_permitted(path, W_OK);
    drop_photos(*road.window, {path, good});
    QCOMPARE(shown_times(), QStringList({"03.05.2017 - 12:00:00", "03.05.2017 - 12:00:00"}));
    QCOMPARE(fix(), permitted ? QStringList() : QStringList{path});
    QCOMPARE(road.recording_time("bad.jpg"),
             QString(permitted ? "2017:05:03 13:00:00" : "2017:05:03 12:00:00"));
    QCOMPARE(static_cast<int>(QFile::permissions(path) & (QFile::WriteOwner | QFile::WriteUser)),
             static_cast<int>(permitted ? QFile::WriteUser : QFile::Permission()));
    verify_good_photo_is_fixed();
}

void test_bad_input::unreadable_photo_has_a_time_where_permitted()
{
    const QString path = road.make_dated_photo("bad.jpg");
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    const bool permitted = is_permitted(path, R_OK);
    drop_photos(*road.window, {path, good});
    QCOMPARE(shown_times(),
             QStringList({permitted ? "03.05.2017 - 12:00:00" : "-", "03.05.2017 - 12:00:00"}));
    QCOMPARE(fix(), QStringList());
    verify_good_photo_is_fixed();

    drop_photos(*road.window, {road.folder->path()});
    QCOMPARE(shown_names(*road.window),
             permitted ? QStringList({"bad.jpg", "good.jpg"}) : QStringList{"good.jpg"});
}

void test_bad_input::folder_without_photos_gives_its_files()
{
    QVERIFY(QFile::remove(good));
    make_bytes("a.txt", "a letter");
    make_bytes("b", QByteArray());
    drop_photos(*road.window, {road.folder->path()});
    QCOMPARE(shown_names(*road.window), QStringList({"a.txt", "b"}));
    QCOMPARE(shown_times(), QStringList({"-", "-"}));
    QCOMPARE(fix(), QStringList());
    QCOMPARE(bytes_of(road.path_of("a.txt")), QByteArray("a letter"));
    QVERIFY(!road.window->button_undo->isEnabled());
}

void test_bad_input::empty_folder_gives_nothing()
{
    QVERIFY(QFile::remove(good));
    drop_photos(*road.window, {road.folder->path()});
    QCOMPARE(road.window->model->rowCount(), 0);
}

void test_bad_input::what_is_no_file_gives_nothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("path that has gone") << "gone.jpg";
    QTest::newRow("link to nowhere") << "link.jpg";
    QTest::newRow("pipe") << "pipe.jpg";
}

void test_bad_input::what_is_no_file_gives_nothing()
{
    QFETCH(QString, name);
    QVERIFY(QFile::link(road.path_of("nowhere.jpg"), road.path_of("link.jpg")));
    QCOMPARE(mkfifo(QFile::encodeName(road.path_of("pipe.jpg")), S_IRUSR | S_IWUSR), 0);
    drop_photos(*road.window, {road.path_of(name), good});
    QCOMPARE(shown_names(*road.window), QStringList{"good.jpg"});
}

void test_bad_input::photo_given_twice_is_shifted_once()
{
    drop_photos(*road.window, {good, good});
    drop_photos(*road.window, {road.folder->path()});
    QCOMPARE(shown_names(*road.window), QStringList{"good.jpg"});
    QCOMPARE(fix(), QStringList());
    verify_good_photo_is_fixed();
}

void test_bad_input::photo_with_two_names_is_shifted_once()
{
    QCOMPARE(link(QFile::encodeName(good), QFile::encodeName(road.path_of("other.jpg"))), 0);
    drop_photos(*road.window, {road.folder->path()});
    QCOMPARE(shown_names(*road.window), QStringList({"good.jpg", "other.jpg"}));
    QCOMPARE(fix(), QStringList());
    QCOMPARE(inode_of(good), inode_of(road.path_of("other.jpg")));
    verify_good_photo_is_fixed();
    click(road.window->button_undo);
    QCOMPARE(road.recording_time("good.jpg"), QString("2017:05:03 12:00:00"));
}

void test_bad_input::photo_gone_before_its_loading_is_passed_over()
{
    road.window->load_files({road.path_of("gone.jpg"), good});
    QCOMPARE(shown_names(*road.window), QStringList({"gone.jpg", "good.jpg"}));
    QCOMPARE(shown_times(), QStringList({"-", "03.05.2017 - 12:00:00"}));
    QCOMPARE(fix(), QStringList());
    verify_good_photo_is_fixed();
    QCOMPARE(road.names(), QStringList{"good.jpg"});
}

KELVRA_TEST_MAIN(test_bad_input)
#include "test_bad_input.moc"
