// SPDX-License-Identifier: GPL-3.0-or-later

#include "stand_in_road.h"
#include "test_main.h"

#include <QFileOpenEvent>

/// What happens while files load: before the first one the user can press anything, and between two
/// of them the system can open a file.
class test_load_interruptions : public QObject
{
    Q_OBJECT

private slots:
    void init() { road.start(); }
    void cleanup() { road.end(); }

    void fix_before_the_first_file_leaves_the_new_ones();
    void cleared_list_before_the_first_file_leaves_the_new_ones();
    void opened_file_is_loaded_meanwhile();
    void opened_file_is_loaded_once();
    void list_is_sorted_after_a_load_inside_of_another();

private:
    QStringList make_photos(const QStringList &names);
    void load_with(const QStringList &names, int value, const std::function<void()> &action);
    void open_soon(const QString &path);

    stand_in_road road;
};

QStringList test_load_interruptions::make_photos(const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names)
        paths << road.make_photo(name, {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    return paths;
}

/// Drops the photos, with something that happens once when so many of them are there.
void test_load_interruptions::load_with(const QStringList &names, int value,
                                        const std::function<void()> &action)
{
    bool done = false;
    progress_watch progress(*road.window->progress_load);
    progress.at(value, [&] {
        if (!done) {
            done = true;
            action();
        }
    });
    drop_photos(*road.window, make_photos(names));
}

void test_load_interruptions::open_soon(const QString &path)
{
    QCoreApplication::postEvent(road.window.get(), new QFileOpenEvent(path));
}

void test_load_interruptions::fix_before_the_first_file_leaves_the_new_ones()
{
    road.load_dated_photo("a");
    load_with({"b", "c"}, 0, [&] { click_soon(road.window->button_fix_time); });
    QCOMPARE(road.written_names(), QStringList{"a"});
    QCOMPARE(shown_names(*road.window), QStringList({"b", "c"}));
    QCOMPARE(road.window->undo_map.keys(), QStringList{road.path_of("a")});
    QVERIFY(road.window->button_undo->isEnabled());
}

void test_load_interruptions::cleared_list_before_the_first_file_leaves_the_new_ones()
{
    road.load_dated_photo("a");
    load_with({"b", "c"}, 0, [&] { click_soon(road.window->button_reset); });
    QCOMPARE(shown_names(*road.window), QStringList({"b", "c"}));
    click(road.window->button_fix_time);
    QCOMPARE(road.written_names(), QStringList({"b", "c"}));
}

void test_load_interruptions::opened_file_is_loaded_meanwhile()
{
    const QString other = make_photos({"other"}).first();
    QByteArray expected;
    load_with({"a", "b", "c"}, 1, [&] { open_soon(other); });
    for (const char *name : {"a", "other", "b", "c"})
        expected += "-G1\n\n" + road.path_of(name).toUtf8() + "\n-execute\n";
    QCOMPARE(road.tool.input(), expected);
    QCOMPARE(shown_column(*road.window, table_data_model::recording_time_column),
             QStringList({"03.05.2017 - 12:00:00", "03.05.2017 - 12:00:00", "03.05.2017 - 12:00:00",
                          "03.05.2017 - 12:00:00"}));
}

void test_load_interruptions::opened_file_is_loaded_once()
{
    load_with({"a", "b", "c"}, 1, [&] { open_soon(road.path_of("c")); });
    QCOMPARE(shown_names(*road.window), QStringList({"a", "b", "c"}));
    QCOMPARE(road.tool.requests().size(), 3);
}

void test_load_interruptions::list_is_sorted_after_a_load_inside_of_another()
{
    const QStringList others = make_photos({"e", "d"});
    load_with({"c", "b", "a"}, 2, [&] {
        for (const QString &other : others)
            open_soon(other);
    });
    QCOMPARE(shown_names(*road.window), QStringList({"a", "b", "c", "d", "e"}));
    QVERIFY(!road.window->progress_load->isVisible());
    const progress_watch progress(*road.window->progress_load);
    road.load_dated_photo("f");
    QCOMPARE(progress.values, QList<int>({0, 1}));
    QCOMPARE(progress.visible, QList<bool>({false, true}));
}

KELVRA_TEST_MAIN(test_load_interruptions)
#include "test_load_interruptions.moc"
