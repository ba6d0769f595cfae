// SPDX-License-Identifier: GPL-3.0-or-later

#include "faulty_batch.h"
#include "program_test_main.h"

#include <sys/sysmacros.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <climits>

namespace
{

const char note_name[] = "user.note";
const QByteArray note = "taken from the tower";

QByteArray note_of(const QString &path)
{
    char value[100] = "";
    const ssize_t size = getxattr(QFile::encodeName(path), note_name, value, sizeof value);
    return QByteArray(value, static_cast<int>(size));
}

bool put_note(const QString &path)
{
    return setxattr(QFile::encodeName(path), note_name, note.constData(),
                    static_cast<std::size_t>(note.size()), 0) == 0;
}

mode_t mode_of(const QString &path)
{
    struct stat status = {};
    return stat(QFile::encodeName(path), &status) == 0 ? status.st_mode & ALLPERMS : 0;
}

timespec file_time_of(const QString &path)
{
    struct stat status = {};
    return stat(QFile::encodeName(path), &status) == 0 ? status.st_mtim : timespec{};
}

void link_to(const QString &target, const QString &path)
{
    if (symlink(QFile::encodeName(target), QFile::encodeName(path)) != 0)
        qFatal("no link at %s", qPrintable(path));
}

bool make_node(const QString &path, mode_t type, dev_t device = 0)
{
    return mknod(QFile::encodeName(path), type | S_IRUSR | S_IWUSR, device) == 0;
}

QByteArray link_text(const QString &path)
{
    char text[PATH_MAX] = "";
    const ssize_t size = readlink(QFile::encodeName(path), text, sizeof text);
    return QByteArray(text, static_cast<int>(size));
}

}  // namespace

/// A photo's properties in the file system, other than its bytes, survive a fix and its undo.
class test_file_links : public QObject
{
    Q_OBJECT

private slots:
    void init() { batch.start(); }
    void cleanup() { batch.end(); }

    void photo_loaded_by_a_link_is_fixed_data();
    void photo_loaded_by_a_link_is_fixed();
    void photo_loaded_by_two_names_is_shifted_once_data();
    void photo_loaded_by_two_names_is_shifted_once();
    void other_name_of_a_photo_shows_the_new_time();
    void linked_folder_gives_its_files();
    void folder_gives_no_special_files();
    void permissions_of_a_photo_are_kept_data();
    void permissions_of_a_photo_are_kept();
    void extended_attributes_are_kept();
    void file_date_is_restored_without_fractions();
    void shift_of_zero_counts_as_a_fix();

private:
    void verify_fix_and_undo_of(const QString &name);

    faulty_batch batch;
};

/// Fixes and undoes a batch with the photo `name`; meanwhile no file appears or disappears.
void test_file_links::verify_fix_and_undo_of(const QString &name)
{
    const QStringList contents = batch.contents();
    const ino_t inode = inode_of(batch.path_of(name));
    for (const bool fixed : {true, false}) {
        QCOMPARE(fixed ? batch.fix() : batch.undo(), QStringList());
        QCOMPARE(batch.dates(name), fixed ? fixed_dates : first_dates);
        QCOMPARE(batch.good_dates(), fixed ? fixed_dates : first_dates);
        QCOMPARE(inode_of(batch.path_of(name)), inode);
        QCOMPARE(batch.contents(), contents);
    }
}

void test_file_links::photo_loaded_by_a_link_is_fixed_data()
{
    QTest::addColumn<QString>("photo");
    QTest::addColumn<QString>("target");  // with a leading slash: relative to the folder
    // clang-format off
    QTest::newRow("in the same folder")    << "target.jpg"     << "target.jpg";
    QTest::newRow("in another folder")     << "sub/target.jpg" << "sub/target.jpg";
    QTest::newRow("by its full path")      << "sub/target.jpg" << "/sub/target.jpg";
    QTest::newRow("by a link to the link") << "sub/target.jpg" << "second";
    // clang-format on
}

void test_file_links::photo_loaded_by_a_link_is_fixed()
{
    QFETCH(QString, photo);
    QFETCH(QString, target);
    batch.put_photo(photo);
    link_to("sub/target.jpg", batch.path_of("second"));
    if (target.startsWith('/'))
        target.prepend(batch.folder->path());
    const QString link = batch.path_of("m.jpg");
    link_to(target, link);
    batch.load({link});
    verify_fix_and_undo_of(photo);
    QCOMPARE(link_text(link), QFile::encodeName(target));
}

void test_file_links::photo_loaded_by_two_names_is_shifted_once_data()
{
    QTest::addColumn<bool>("symbolic");
    QTest::newRow("symbolic link") << true;
    QTest::newRow("hard link") << false;
}

void test_file_links::photo_loaded_by_two_names_is_shifted_once()
{
    QFETCH(bool, symbolic);
    const QString photo = batch.put_photo("m.jpg");
    const QString other = batch.path_of("n.jpg");
    if (symbolic)
        link_to("m.jpg", other);
    else
        QCOMPARE(link(QFile::encodeName(photo), QFile::encodeName(other)), 0);
    drop_photos(*batch.window, {batch.folder->path()});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", "m.jpg", "n.jpg", "z.png"}));
    verify_fix_and_undo_of("m.jpg");
    QCOMPARE(inode_of(other), inode_of(photo));
    QCOMPARE(QFileInfo(other).isSymLink(), symbolic);
}

void test_file_links::other_name_of_a_photo_shows_the_new_time()
{
    const QString other = batch.path_of("sub/other.jpg");
    const QString photo = batch.put_photo("m.jpg");
    QCOMPARE(link(QFile::encodeName(photo), QFile::encodeName(other)), 0);
    batch.load({photo});
    verify_fix_and_undo_of("sub/other.jpg");
    QCOMPARE(inode_of(photo), inode_of(other));
}

void test_file_links::linked_folder_gives_its_files()
{
    const QString photo = batch.put_photo("sub/m.jpg");
    link_to("sub", batch.path_of("linked"));
    batch.load({batch.path_of("linked")});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", "m.jpg", "z.png"}));
    verify_fix_and_undo_of("sub/m.jpg");
}

void test_file_links::folder_gives_no_special_files()
{
    QVERIFY(make_node(batch.path_of("pipe.jpg"), S_IFIFO));
    QVERIFY(make_node(batch.path_of("socket.jpg"), S_IFSOCK));
    make_node(batch.path_of("device.jpg"), S_IFCHR, makedev(1, 5));  // if permitted
    link_to("/dev/zero", batch.path_of("to_device.jpg"));
    link_to("pipe.jpg", batch.path_of("to_pipe.jpg"));
    link_to("to_itself.jpg", batch.path_of("to_itself.jpg"));
    link_to("nowhere.jpg", batch.path_of("to_nowhere.jpg"));
    link_to("sub", batch.path_of("to_folder.jpg"));
    drop_photos(*batch.window, {batch.folder->path()});
    QCOMPARE(shown_names(*batch.window), QStringList({"a.jpg", "z.png"}));
    verify_fix_and_undo_of("a.jpg");
}

void test_file_links::permissions_of_a_photo_are_kept_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0600, 0640, 0664, 0666, 0755})
        QTest::addRow("%o", static_cast<unsigned>(mode)) << mode;
}

void test_file_links::permissions_of_a_photo_are_kept()
{
    QFETCH(int, mode);
    const QString photo = batch.put_photo("m.jpg");
    QCOMPARE(chmod(QFile::encodeName(photo), static_cast<mode_t>(mode)), 0);
    batch.load({photo});
    verify_fix_and_undo_of("m.jpg");
    QCOMPARE(static_cast<int>(mode_of(photo)), mode);
}

void test_file_links::extended_attributes_are_kept()
{
    const QString photo = batch.put_photo("m.jpg");
    if (!put_note(photo) && errno == ENOTSUP)
        QSKIP("this file system has no extended attributes");
    QCOMPARE(note_of(photo), note);
    batch.load({photo});
    verify_fix_and_undo_of("m.jpg");
    QCOMPARE(note_of(photo), note);
}

void test_file_links::file_date_is_restored_without_fractions()
{
    const QString photo = batch.put_photo("m.jpg");
    const timespec first = file_time_of(photo);
    QVERIFY(first.tv_nsec != 0);
    batch.load({photo});
    verify_fix_and_undo_of("m.jpg");
    QCOMPARE(file_time_of(photo).tv_sec, first.tv_sec);
    QCOMPARE(file_time_of(photo).tv_nsec, 0L);
}

/// Every date gets the recording time, as always. The second fix has nothing left to change.
void test_file_links::shift_of_zero_counts_as_a_fix()
{
    QStringList dates;
    for (const QString &date : fixed_dates)
        dates << QString(date).replace("13:00:00", "12:00:00");
    for (int times = 0; times < 2; ++times) {
        batch.load({});
        const box_answers answers;
        click(batch.window->button_fix_time);
        QCOMPARE(answers.texts(), QStringList());
        QCOMPARE(batch.good_dates(), dates);
        QVERIFY(batch.window->button_undo->isEnabled());
    }
    QCOMPARE(batch.undo(), QStringList());
    QCOMPARE(batch.good_dates(), dates);
    QCOMPARE(batch.contents(), QStringList({"a.jpg", "sub", "z.png"}));
}

KELVRA_PROGRAM_TEST_MAIN(test_file_links)
#include "test_file_links.moc"
