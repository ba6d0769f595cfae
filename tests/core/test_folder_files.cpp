// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/folder_files.h"

#include "core_test_main.h"
#include "sample_folder.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace
{

/// While it exists, a superuser's process has only an ordinary user's right to read.
class ordinary_user
{
public:
    ordinary_user() { change_to(nobody); }
    ~ordinary_user() { change_to(superuser); }

private:
    static constexpr uid_t superuser = 0;
    static constexpr uid_t nobody = 65534;

    // The real id decides what a user may read (access(2)).
    static void change_to(uid_t real_id)
    {
        constexpr uid_t unchanged = static_cast<uid_t>(-1);
        if (geteuid() == superuser && setreuid(real_id, unchanged) != 0)
            qFatal("can't change the user");
    }
};

}  // namespace

class test_folder_files : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder = std::make_unique<sample_folder>(); }

    void folder_gives_its_plain_files_data();
    void folder_gives_its_plain_files();
    void folder_leaves_out_files_that_the_user_may_not_read();
    void missing_folder_gives_nothing();
    void folder_paths_are_absolute();

private:
    std::unique_ptr<sample_folder> folder;
};

void test_folder_files::folder_gives_its_plain_files_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("one level, without hidden and system files")
        << "album" << QStringList{"album/a.jpg", "album/b.txt", "album/link.jpg"};
    QTest::newRow("trailing slash")
        << "album/" << QStringList{"album/a.jpg", "album/b.txt", "album/link.jpg"};
    QTest::newRow("link keeps its name")
        << "album_link"
        << QStringList{"album_link/a.jpg", "album_link/b.txt", "album_link/link.jpg"};
    QTest::newRow("empty") << "empty" << QStringList{};
}

void test_folder_files::folder_gives_its_plain_files()
{
    QFETCH(QString, name);
    QFETCH(QStringList, expected);
    QCOMPARE(sorted(folder_files(folder->path_of(name))), sorted(folder->paths_of(expected)));
}

void test_folder_files::folder_leaves_out_files_that_the_user_may_not_read()
{
    const QString home = QFileInfo(QDir::tempPath()).path();
    for (const QString &path : {home, QDir::tempPath(), folder->path(), folder->path_of("album")})
        QCOMPARE(chmod(QFile::encodeName(path), 0755), 0);
    QVERIFY(QFile::setPermissions(folder->path_of("album/b.txt"), QFile::Permissions()));
    const ordinary_user user;
    QCOMPARE(sorted(folder_files(folder->path_of("album"))),
             folder->paths_of({"album/a.jpg", "album/link.jpg"}));
}

void test_folder_files::missing_folder_gives_nothing()
{
    QCOMPARE(folder_files(folder->path_of("nowhere")), QStringList());
    QCOMPARE(folder_files(folder->path_of("single.jpg")), QStringList());
}

void test_folder_files::folder_paths_are_absolute()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path_of("album")));
    const QStringList files = folder_files("older");
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(files, folder->paths_of({"album/older/c.jpg"}));
}

KELVRA_CORE_TEST_MAIN(test_folder_files)
#include "test_folder_files.moc"
