// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"

#include <QFileOpenEvent>

/// What can happen while files load: before the first file the user can press anything, and between
/// two files the system can open another.
class test_load_interruptions : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void fix_before_the_first_file_leaves_the_new_ones();
    void cleared_list_before_the_first_file_leaves_the_new_ones();
    void opened_file_is_loaded_meanwhile();
    void opened_file_is_loaded_once();
    void list_is_sorted_after_a_load_inside_another();

private:
    QStringList make_photos(const QStringList &names);
    void load_with(const QStringList &names, int value, const std::function<void()> &action);
    void open_soon(const QString &path);

    fake_tool_window app;
};

QStringList test_load_interruptions::make_photos(const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names)
        paths << app.make_photo(name, {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    return paths;
}

/// Drops the photos, and runs `action` once when the progress reaches `value`.
void test_load_interruptions::load_with(const QStringList &names, int value,
                                        const std::function<void()> &action)
{
    bool done = false;
    progress_watch progress(*app.window->progress_load);
    progress.at(value, [&] {
        if (!done) {
            done = true;
            action();
        }
    });
    drop_photos(*app.window, make_photos(names));
}

void test_load_interruptions::open_soon(const QString &path)
{
    QCoreApplication::postEvent(app.window.get(), new QFileOpenEvent(path));
}

void test_load_interruptions::fix_before_the_first_file_leaves_the_new_ones()
{
    app.load_dated_photo("a");
    load_with({"b", "c"}, 0, [&] { click_soon(app.window->button_fix_time); });
    QCOMPARE(app.written_names(), QStringList{"a"});
    QCOMPARE(shown_names(*app.window), QStringList({"b", "c"}));
    QCOMPARE(app.window->undo_map.keys(), QStringList{app.path_of("a")});
    QVERIFY(app.window->button_undo->isEnabled());
}

void test_load_interruptions::cleared_list_before_the_first_file_leaves_the_new_ones()
{
    app.load_dated_photo("a");
    load_with({"b", "c"}, 0, [&] { click_soon(app.window->button_reset); });
    QCOMPARE(shown_names(*app.window), QStringList({"b", "c"}));
    click(app.window->button_fix_time);
    QCOMPARE(app.written_names(), QStringList({"b", "c"}));
}

void test_load_interruptions::opened_file_is_loaded_meanwhile()
{
    const QString other = make_photos({"other"}).first();
    QByteArray expected;
    load_with({"a", "b", "c"}, 1, [&] { open_soon(other); });
    for (const char *name : {"a", "other", "b", "c"})
        expected += "-G1\n\n" + app.path_of(name).toUtf8() + "\n-execute\n";
    QCOMPARE(app.tool.input(), expected);
    QCOMPARE(shown_column(*app.window, table_data_model::recording_time_column),
             QStringList({"03.05.2017 - 12:00:00", "03.05.2017 - 12:00:00", "03.05.2017 - 12:00:00",
                          "03.05.2017 - 12:00:00"}));
}

void test_load_interruptions::opened_file_is_loaded_once()
{
    load_with({"a", "b", "c"}, 1, [&] { open_soon(app.path_of("c")); });
    QCOMPARE(shown_names(*app.window), QStringList({"a", "b", "c"}));
    QCOMPARE(app.tool.requests().size(), 3);
}

void test_load_interruptions::list_is_sorted_after_a_load_inside_another()
{
    const QStringList others = make_photos({"e", "d"});
    load_with({"c", "b", "a"}, 2, [&] {
        for (const QString &other : others)
            open_soon(other);
    });
    QCOMPARE(shown_names(*app.window), QStringList({"a", "b", "c", "d", "e"}));
    QVERIFY(!app.window->progress_load->isVisible());
    const progress_watch progress(*app.window->progress_load);
    app.load_dated_photo("f");
    QCOMPARE(progress.values, QList<int>({0, 1}));
    QCOMPARE(progress.visible, QList<bool>({false, true}));
}

KELVRA_PROGRAM_TEST_MAIN(test_load_interruptions)
#include "test_load_interruptions.moc"
