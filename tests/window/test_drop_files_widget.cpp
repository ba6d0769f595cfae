// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/folder_files.h"
#include "drop_files_widget.h"
#include "program_test_main.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace
{

QStringList sorted(QStringList texts)
{
    std::sort(texts.begin(), texts.end());
    return texts;
}

void make_file(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", qPrintable(path));
}

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

QUrl local(const QString &path)
{
    return QUrl::fromLocalFile(path);
}

}  // namespace

class test_drop_files_widget : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void drag_is_accepted_only_for_its_uri_list_data();
    void drag_is_accepted_only_for_its_uri_list();
    void accepted_drag_keeps_the_proposed_action();
    void drop_sends_its_files_data();
    void drop_sends_its_files();
    void files_come_in_the_order_of_the_drop();
    void folder_keeps_its_place_in_the_drop();
    void drop_without_local_files_sends_an_empty_list_data();
    void drop_without_local_files_sends_an_empty_list();
    void drop_is_accepted_with_the_proposed_action_data();
    void drop_is_accepted_with_the_proposed_action();
    void widget_has_the_given_parent();

    void folder_gives_its_plain_files_data();
    void folder_gives_its_plain_files();
    void folder_leaves_out_files_that_the_user_may_not_read();
    void missing_folder_gives_nothing();
    void folder_paths_are_absolute();

private:
    QString in_folder(const QString &name) const { return folder->filePath(name); }
    QStringList in_folder(const QStringList &names) const;
    void deliver(QEvent &event) { static_cast<QObject &>(*widget).event(&event); }
    QStringList dropped(const QList<QUrl> &urls);

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<drop_files_widget> widget;
};

/// Makes a folder with everything that a folder can hold.
void test_drop_files_widget::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    QDir(folder->path()).mkpath("album/older/oldest");
    QDir(folder->path()).mkdir("empty");
    for (const char *name : {"single.jpg", "album/a.jpg", "album/b.txt", "album/.hidden.jpg",
                             "album/older/c.jpg", "album/older/oldest/d.jpg"})
        make_file(in_folder(name));
    QVERIFY(QFile::link(in_folder("single.jpg"), in_folder("album/link.jpg")));
    QVERIFY(QFile::link(in_folder("vanished.jpg"), in_folder("album/broken.jpg")));
    QVERIFY(QFile::link(in_folder("album"), in_folder("album_link")));
    QCOMPARE(mkfifo(QFile::encodeName(in_folder("album/pipe.jpg")), S_IRUSR | S_IWUSR), 0);
    widget = std::make_unique<drop_files_widget>(nullptr);
}

QStringList test_drop_files_widget::in_folder(const QStringList &names) const
{
    QStringList paths;
    for (const QString &name : names)
        paths << in_folder(name);
    return paths;
}

/// The files that are sent when these URLs are dropped.
QStringList test_drop_files_widget::dropped(const QList<QUrl> &urls)
{
    QSignalSpy spy(widget.get(), &drop_files_widget::files_dropped);
    QMimeData data;
    data.setUrls(urls);
    QDropEvent event(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    deliver(event);
    if (spy.size() != 1)
        return {QString("%1 signals").arg(spy.size())};
    return spy[0][0].toStringList();
}

void test_drop_files_widget::drag_is_accepted_only_for_its_uri_list_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("taken");
    QTest::newRow("uri list") << "text/uri-list" << true;
    QTest::newRow("text") << "text/plain" << false;
    QTest::newRow("page") << "text/html" << false;
    QTest::newRow("picture") << "image/png" << false;
    QTest::newRow("nothing") << "" << false;
}

void test_drop_files_widget::drag_is_accepted_only_for_its_uri_list()
{
    QFETCH(QString, format);
    QMimeData data;
    if (!format.isEmpty())
        data.setData(format, "file:///photos/a.jpg\r\n");
    QDragEnterEvent event(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    deliver(event);
    QTEST(event.isAccepted(), "taken");
}

void test_drop_files_widget::accepted_drag_keeps_the_proposed_action()
{
    QMimeData data;
    data.setUrls({local(in_folder("vanished.jpg"))});
    QDragEnterEvent event(QPoint(1, 1), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::ShiftModifier);
    event.setDropAction(Qt::CopyAction);
    event.ignore();
    deliver(event);
    QVERIFY(event.isAccepted());
    QCOMPARE(event.dropAction(), event.proposedAction());
}

void test_drop_files_widget::drop_sends_its_files_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("expected");
    const QStringList album = {"album/a.jpg", "album/b.txt", "album/link.jpg"};
    QTest::newRow("file") << QStringList{"single.jpg"} << QStringList{"single.jpg"};
    QTest::newRow("first level of a folder") << QStringList{"album"} << album;
    QTest::newRow("folder with a trailing slash") << QStringList{"album/"} << album;
    QTest::newRow("empty folder") << QStringList{"empty"} << QStringList{};
    QTest::newRow("hidden file on its own")
        << QStringList{"album/.hidden.jpg"} << QStringList{"album/.hidden.jpg"};
    QTest::newRow("link to a file")
        << QStringList{"album/link.jpg"} << QStringList{"album/link.jpg"};
    QTest::newRow("vanished file is left out")
        << QStringList{"vanished.jpg", "single.jpg"} << QStringList{"single.jpg"};
    QTest::newRow("broken link") << QStringList{"album/broken.jpg"} << QStringList{};
    QTest::newRow("pipe") << QStringList{"album/pipe.jpg"} << QStringList{};
    QTest::newRow("same file twice stays twice")
        << QStringList{"single.jpg", "single.jpg"} << QStringList{"single.jpg", "single.jpg"};
}

void test_drop_files_widget::drop_sends_its_files()
{
    QFETCH(QStringList, names);
    QFETCH(QStringList, expected);
    QList<QUrl> urls;
    for (const QString &name : names)
        urls << local(in_folder(name));
    QCOMPARE(sorted(dropped(urls)), sorted(in_folder(expected)));
}

void test_drop_files_widget::files_come_in_the_order_of_the_drop()
{
    const QStringList names = in_folder(
        QStringList{"album/b.txt", "single.jpg", "album/a.jpg", "album/older/oldest/d.jpg"});
    QList<QUrl> urls;
    for (const QString &name : names)
        urls << local(name);
    QCOMPARE(dropped(urls), names);
}

void test_drop_files_widget::folder_keeps_its_place_in_the_drop()
{
    const QString path = in_folder("album/older");
    const QStringList expected = in_folder(QStringList{
        "single.jpg",
        "album/older/c.jpg",
        "album/a.jpg",
    });
    QCOMPARE(dropped({local(expected[0]), local(path), local(expected[2])}), expected);
}

void test_drop_files_widget::drop_without_local_files_sends_an_empty_list_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::newRow("page") << QList<QUrl>{QUrl("https://photos.example/a.jpg")};
    QTest::newRow("mail") << QList<QUrl>{QUrl("mailto:me@photos.example")};
    QTest::newRow("vanished") << QList<QUrl>{local("/nowhere/vanished.jpg")};
    QTest::newRow("no URLs") << QList<QUrl>{};
}

void test_drop_files_widget::drop_without_local_files_sends_an_empty_list()
{
    QFETCH(QList<QUrl>, urls);
    QCOMPARE(dropped(urls), QStringList());
}

void test_drop_files_widget::drop_is_accepted_with_the_proposed_action_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("files") << "text/uri-list";
    QTest::newRow("text") << "text/plain";
}

void test_drop_files_widget::drop_is_accepted_with_the_proposed_action()
{
    QFETCH(QString, format);
    QSignalSpy spy(widget.get(), &drop_files_widget::files_dropped);
    QMimeData data;
    data.setData(format, QByteArray("file://") + QFile::encodeName(in_folder("vanished.jpg")));
    QDropEvent event(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    deliver(event);
    QVERIFY(event.isAccepted());
    QCOMPARE(event.dropAction(), Qt::CopyAction);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].toStringList(), QStringList());
}

void test_drop_files_widget::widget_has_the_given_parent()
{
    QWidget parent;
    const auto *child = new drop_files_widget(&parent);
    QCOMPARE(child->parentWidget(), &parent);
    QVERIFY(!widget->parentWidget());
}

void test_drop_files_widget::folder_gives_its_plain_files_data()
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

void test_drop_files_widget::folder_gives_its_plain_files()
{
    QFETCH(QString, name);
    QFETCH(QStringList, expected);
    QCOMPARE(sorted(folder_files(in_folder(name))), sorted(in_folder(expected)));
}

void test_drop_files_widget::folder_leaves_out_files_that_the_user_may_not_read()
{
    const QString home = QFileInfo(QDir::tempPath()).path();
    for (const QString &path : {home, QDir::tempPath(), folder->path(), in_folder("album")})
        QCOMPARE(chmod(QFile::encodeName(path), 0755), 0);
    QVERIFY(QFile::setPermissions(in_folder("album/b.txt"), QFile::Permissions()));
    const ordinary_user user;
    QCOMPARE(sorted(folder_files(in_folder("album"))),
             in_folder(QStringList{"album/a.jpg", "album/link.jpg"}));
}

void test_drop_files_widget::missing_folder_gives_nothing()
{
    QCOMPARE(folder_files(in_folder("nowhere")), QStringList());
    QCOMPARE(folder_files(in_folder("single.jpg")), QStringList());
}

void test_drop_files_widget::folder_paths_are_absolute()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(in_folder("album")));
    const QStringList files = folder_files("older");
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(files, in_folder(QStringList{"album/older/c.jpg"}));
}

KELVRA_PROGRAM_TEST_MAIN(test_drop_files_widget)

#include "test_drop_files_widget.moc"
