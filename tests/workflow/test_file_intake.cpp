// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"

#include <QFileOpenEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QSettings>
#include <QTableView>

/// Drops and file-open events, and the loading that follows them.
class test_file_intake : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void dropped_files_become_rows();
    void dropped_folder_gives_its_files_of_any_type();
    void table_is_laid_out_after_a_load();
    void drop_without_files_sorts_again();
    void opened_file_becomes_a_row_data();
    void opened_file_becomes_a_row();
    void other_events_are_handled_as_by_any_window();
    void drop_and_file_open_event_keep_the_remembered_folder();
    void file_is_loaded_once();
    void paths_are_case_sensitive();
    void unreadable_file_becomes_a_row_without_a_time();
    void each_file_is_read_by_one_request_in_the_order_of_the_list();
    void progress_counts_the_files();
    void progress_counts_known_files_too();
    void progress_of_an_empty_list_stays_hidden();
    void current_sort_applies_to_new_rows_data();
    void current_sort_applies_to_new_rows();
    void rows_are_sorted_after_the_last_one();
    void user_input_waits_while_files_load();
    void user_input_is_handled_before_the_first_file();

private:
    bool open_by_event(const QString &path);

    fake_tool_window app;
};

bool test_file_intake::open_by_event(const QString &path)
{
    QFileOpenEvent event(path);
    return QCoreApplication::sendEvent(app.window.get(), &event);
}

void test_file_intake::dropped_files_become_rows()
{
    const QStringList paths = {app.make_photo("a.jpg", {}), app.make_photo("b.txt", {})};
    drop_photos(*app.window, paths);
    QCOMPARE(app.window->model->files, paths);
}

void test_file_intake::dropped_folder_gives_its_files_of_any_type()
{
    for (const char *name : {"a.jpg", "b.txt", "c", ".hidden.jpg"})
        app.make_photo(name, {});
    QDir(app.folder->path()).mkdir("inner");
    app.make_photo("inner/d.jpg", {});
    drop_photos(*app.window, {app.folder->path()});
    QCOMPARE(shown_names(*app.window), QStringList({"a.jpg", "b.txt", "c"}));
}

void test_file_intake::table_is_laid_out_after_a_load()
{
    const QTableView &table = *app.window->ui->tableView;
    int photo = 0;
    for (const int rows : {40, 90}) {
        QStringList paths;
        while (photo < rows)
            paths << app.make_photo(QString("%1.jpg").arg(++photo, 3, 10, QLatin1Char('0')), {});
        drop_photos(*app.window, paths);
        QCOMPARE(table.verticalHeader()->count(), rows);
        QScrollBar *bar = table.verticalScrollBar();
        QTRY_COMPARE(bar->maximum(), rows * table.rowHeight(0) - table.viewport()->height());
        bar->setValue(bar->maximum());
        QCOMPARE(table.rowAt(table.viewport()->height() - 1), rows - 1);
    }
}

void test_file_intake::drop_without_files_sorts_again()
{
    app.load_dated_photo("a.jpg");
    app.load_dated_photo("b.jpg");
    app.window->model->files = QStringList({app.path_of("b.jpg"), app.path_of("a.jpg")});
    QMimeData data;
    data.setUrls({QUrl("http://vorrin.example/c.jpg"), QUrl::fromLocalFile("/nowhere/d.jpg")});
    app.tool.forget();
    QVERIFY(drop_on(*app.window->ui->widget_dropper, data));
    QCOMPARE(shown_names(*app.window), QStringList({"a.jpg", "b.jpg"}));
    QCOMPARE(app.tool.input(), QByteArray());
    QCOMPARE(app.window->progress_load->minimum(), 0);
    QCOMPARE(app.window->progress_load->maximum(), 0);
}

void test_file_intake::opened_file_becomes_a_row_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("file") << "a.jpg" << QStringList{"a.jpg"};
    QTest::newRow("file of any type") << "b.txt" << QStringList{"b.txt"};
    QTest::newRow("hidden file on its own") << ".c.jpg" << QStringList{".c.jpg"};
    QTest::newRow("folder") << "" << QStringList{"a.jpg", "b.txt"};
    QTest::newRow("empty folder") << "empty" << QStringList{};
    QTest::newRow("deleted path") << "gone.jpg" << QStringList{};
}

void test_file_intake::opened_file_becomes_a_row()
{
    QFETCH(QString, name);
    QFETCH(QStringList, rows);
    for (const char *existing : {"a.jpg", "b.txt", ".c.jpg"})
        app.make_photo(existing, {});
    QDir(app.folder->path()).mkdir("empty");
    QVERIFY(open_by_event(name.isEmpty() ? app.folder->path() : app.path_of(name)));
    QCOMPARE(shown_names(*app.window), rows);
}

void test_file_intake::other_events_are_handled_as_by_any_window()
{
    QEvent unknown(QEvent::None);
    QVERIFY(!app.window->event(&unknown));
    QEvent known(QEvent::WindowTitleChange);
    QVERIFY(app.window->event(&known));
}

void test_file_intake::drop_and_file_open_event_keep_the_remembered_folder()
{
    const QString before = app.window->last_load_path;
    app.load_dated_photo("a.jpg");
    open_by_event(app.make_photo("b.jpg", {}));
    QCOMPARE(app.window->model->rowCount(), 2);
    QCOMPARE(app.window->last_load_path, before);
    QVERIFY(!QSettings().contains("last_load_path"));
}

void test_file_intake::file_is_loaded_once()
{
    const QString path = app.make_photo("a.jpg", {});
    drop_photos(*app.window, {path, path});
    drop_photos(*app.window, {path});
    open_by_event(path);
    QCOMPARE(app.window->model->files, QStringList{path});
    QCOMPARE(app.tool.requests().size(), 1);
}

void test_file_intake::paths_are_case_sensitive()
{
    drop_photos(*app.window, {app.make_photo("a.jpg", {}), app.make_photo("A.jpg", {})});
    QCOMPARE(app.window->model->rowCount(), 2);
}

void test_file_intake::unreadable_file_becomes_a_row_without_a_time()
{
    app.tool.script("next", {"out Error: File is empty\\n{ready}\\n"});
    drop_photos(*app.window, {app.make_photo("a.jpg", {})});
    QCOMPARE(shown_column(*app.window, table_data_model::recording_time_column), QStringList{"-"});
    QCOMPARE(shown_column(*app.window, table_data_model::new_recording_time_column),
             QStringList{"-"});
}

void test_file_intake::each_file_is_read_by_one_request_in_the_order_of_the_list()
{
    const QStringList paths = {app.make_photo("c.jpg", {}), app.make_photo("a.jpg", {}),
                               app.make_photo("b.jpg", {})};
    drop_photos(*app.window, paths);
    QByteArray expected;
    for (const QString &path : paths)
        expected += "-G1\n\n" + path.toUtf8() + "\n-execute\n";
    QCOMPARE(app.tool.input(), expected);
}

void test_file_intake::progress_counts_the_files()
{
    const QStringList paths = {app.make_photo("a.jpg", {}), app.make_photo("b.jpg", {}),
                               app.make_photo("c.jpg", {})};
    const orv::progress_dialog &dialog = *app.window->progress_load;
    QVERIFY(!dialog.isVisible());
    const progress_watch progress(dialog);
    drop_photos(*app.window, paths);
    QCOMPARE(progress.values, QList<int>({0, 1, 2, 3}));
    QCOMPARE(progress.minima, QList<int>({0, 0, 0, 0}));
    QCOMPARE(progress.maxima, QList<int>({3, 3, 3, 3}));
    QCOMPARE(progress.labels,
             QStringList({"Loading files", "Loading files", "Loading files", "Loading files"}));
    QCOMPARE(progress.visible, QList<bool>({false, true, true, true}));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.windowTitle(), QString("Please Wait"));
    QCOMPARE(dialog.findChild<QProgressBar *>()->format(), QString("%v of %m"));
    QVERIFY(dialog.findChildren<QPushButton *>().isEmpty());
}

void test_file_intake::progress_counts_known_files_too()
{
    const QString path = app.make_photo("a.jpg", {});
    const progress_watch progress(*app.window->progress_load);
    drop_photos(*app.window, {path, path});
    QCOMPARE(progress.values, QList<int>({0, 1, 2}));
}

void test_file_intake::progress_of_an_empty_list_stays_hidden()
{
    drop_photos(*app.window, {});
    QCoreApplication::processEvents();
    QVERIFY(!app.window->progress_load->isVisible());
}

void test_file_intake::current_sort_applies_to_new_rows_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("clicks");
    QTest::addColumn<QStringList>("rows");
    const int name = table_data_model::name_column;
    const int time = table_data_model::recording_time_column;
    QTest::newRow("name ascending from the start") << name << 0 << QStringList{"a", "b", "c", "d"};
    QTest::newRow("name descending") << name << 1 << QStringList{"d", "c", "b", "a"};
    QTest::newRow("time ascending") << time << 1 << QStringList{"c", "a", "d", "b"};
    QTest::newRow("time descending") << time << 2 << QStringList{"b", "d", "a", "c"};
}

void test_file_intake::current_sort_applies_to_new_rows()
{
    QFETCH(int, column);
    QFETCH(int, clicks);
    QFETCH(QStringList, rows);
    app.load_dated_photo("b", "2017:05:04 00:00:00");
    app.load_dated_photo("a", "2017:05:02 00:00:00");
    for (int i = 0; i < clicks; ++i)
        click_header(*app.window, column);
    const QStringList more = {
        app.make_photo("d", {"ExifIFD:DateTimeOriginal=2017:05:03 00:00:00"}),
        app.make_photo("c", {"ExifIFD:DateTimeOriginal=2017:05:01 00:00:00"})};
    drop_photos(*app.window, more);
    QCOMPARE(shown_names(*app.window), rows);
}

void test_file_intake::rows_are_sorted_after_the_last_one()
{
    QList<QStringList> rows;
    progress_watch progress(*app.window->progress_load);
    progress.at(2, [&] { rows << shown_names(*app.window); });
    drop_photos(*app.window, {app.make_photo("b", {}), app.make_photo("a", {})});
    rows << shown_names(*app.window);
    QCOMPARE(rows, QList<QStringList>({{"b", "a"}, {"a", "b"}}));
}

void test_file_intake::user_input_waits_while_files_load()
{
    mouse_watch mouse(*app.window);
    QList<int> moves;
    progress_watch progress(*app.window->progress_load);
    progress.at(1, [&] { mouse.move(); });
    progress.at(3, [&] { moves << mouse.moves; });
    drop_photos(*app.window,
                {app.make_photo("a", {}), app.make_photo("b", {}), app.make_photo("c", {})});
    moves << mouse.moves;
    QCOMPARE(moves, QList<int>({0, 0}));
    QTRY_COMPARE(mouse.moves, 1);
}

void test_file_intake::user_input_is_handled_before_the_first_file()
{
    mouse_watch mouse(*app.window);
    int moves = 0;
    progress_watch progress(*app.window->progress_load);
    progress.at(0, [&] { mouse.move(); });
    progress.at(1, [&] { moves = mouse.moves; });
    drop_photos(*app.window, {app.make_photo("a", {})});
    QCOMPARE(moves, 1);
}

KELVRA_PROGRAM_TEST_MAIN(test_file_intake)
#include "test_file_intake.moc"
