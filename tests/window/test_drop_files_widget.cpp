// SPDX-License-Identifier: GPL-3.0-or-later

#include "drop_files_widget.h"
#include "program_test_main.h"
#include "sample_folder.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QUrl>

#include <memory>

namespace
{

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

private:
    void deliver(QEvent &event) { static_cast<QObject &>(*widget).event(&event); }
    QStringList dropped(const QList<QUrl> &urls);

    std::unique_ptr<sample_folder> folder;
    std::unique_ptr<drop_files_widget> widget;
};

void test_drop_files_widget::init()
{
    folder = std::make_unique<sample_folder>();
    widget = std::make_unique<drop_files_widget>(nullptr);
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
    data.setUrls({local(folder->path_of("vanished.jpg"))});
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
        urls << local(folder->path_of(name));
    QCOMPARE(sorted(dropped(urls)), sorted(folder->paths_of(expected)));
}

void test_drop_files_widget::files_come_in_the_order_of_the_drop()
{
    const QStringList names =
        folder->paths_of({"album/b.txt", "single.jpg", "album/a.jpg", "album/older/oldest/d.jpg"});
    QList<QUrl> urls;
    for (const QString &name : names)
        urls << local(name);
    QCOMPARE(dropped(urls), names);
}

void test_drop_files_widget::folder_keeps_its_place_in_the_drop()
{
    const QString path = folder->path_of("album/older");
    const QStringList expected = folder->paths_of({
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
    data.setData(format,
                 QByteArray("file://") + QFile::encodeName(folder->path_of("vanished.jpg")));
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

KELVRA_PROGRAM_TEST_MAIN(test_drop_files_widget)

#include "test_drop_files_widget.moc"
