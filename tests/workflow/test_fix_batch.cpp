// SPDX-License-Identifier: GPL-3.0-or-later

#include "exif_cache.h"
#include "fake_tool_window.h"
#include "orv/message_box.h"
#include "program_test_main.h"
#include "when_modal.h"

#include <QScreen>

Q_DECLARE_METATYPE(box_reply)

class test_fix_batch : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void finished_batch_empties_the_screen_and_keeps_what_it_wrote_data();
    void finished_batch_empties_the_screen_and_keeps_what_it_wrote();
    void batch_discards_the_undo_memory_of_the_previous_one_data();
    void batch_discards_the_undo_memory_of_the_previous_one();
    void undo_memory_is_discarded_after_the_warnings();
    void failures_are_reported_by_path();
    void changes_are_undone_unless_kept_data();
    void changes_are_undone_unless_kept();
    void answer_to_many_failures_is_visible_and_works_data();
    void answer_to_many_failures_is_visible_and_works();
    void failed_photo_is_not_undone();
    void progress_counts_the_rows();
    void progress_is_hidden_after_an_empty_batch();
    void fix_button_is_never_disabled();
    void unreadable_zone_ends_the_batch_by_an_exception();

private:
    void load_batch(const QStringList &dated, const QStringList &undated,
                    const QStringList &failing);

    QStringList in_folder(const QStringList &names) const;

    fake_tool_window app;
};

QStringList test_fix_batch::in_folder(const QStringList &names) const
{
    QStringList paths;
    for (const QString &name : names)
        paths << app.path_of(name);
    return paths;
}

/// @param failing  those that the tool refuses to write
void test_fix_batch::load_batch(const QStringList &dated, const QStringList &undated,
                                const QStringList &failing)
{
    for (const QString &name : dated)
        app.load_dated_photo(name);
    for (const QString &name : undated)
        app.load_photo(name, {});
    for (const QString &name : failing)
        app.tool.refuse_writes(name);
}

void test_fix_batch::finished_batch_empties_the_screen_and_keeps_what_it_wrote_data()
{
    QTest::addColumn<QStringList>("dated");
    QTest::addColumn<QStringList>("undated");
    QTest::addColumn<QStringList>("failing");
    QTest::addColumn<QList<box_reply>>("replies");
    QTest::addColumn<QStringList>("remembered");
    using names = QStringList;
    using replies = QList<box_reply>;
    // clang-format off
    QTest::newRow("all written")
        << names{"a", "b"} << names{} << names{} << replies{} << names{"a", "b"};
    QTest::newRow("some failed, the others kept")
        << names{"a", "b", "c"} << names{} << names{"b"} << replies{box_reply::yes}
        << names{"a", "c"};
    QTest::newRow("some failed, the others undone")
        << names{"a", "b", "c"} << names{} << names{"b"} << replies{box_reply::no} << names{};
    QTest::newRow("all failed, nothing to keep")
        << names{"a", "b"} << names{} << names{"a", "b"} << replies{box_reply::yes} << names{};
    QTest::newRow("all failed, nothing to undo")
        << names{"a", "b"} << names{} << names{"a", "b"} << replies{box_reply::no} << names{};
    QTest::newRow("empty table") << names{} << names{} << names{} << replies{} << names{};
    QTest::newRow("no row with a time")
        << names{} << names{"a", "b"} << names{} << replies{} << names{};
    QTest::newRow("rows without a time besides")
        << names{"a"} << names{"b"} << names{} << replies{} << names{"a"};
    // clang-format on
}

void test_fix_batch::finished_batch_empties_the_screen_and_keeps_what_it_wrote()
{
    QFETCH(QStringList, dated);
    QFETCH(QStringList, undated);
    QFETCH(QStringList, failing);
    QFETCH(QList<box_reply>, replies);
    QFETCH(QStringList, remembered);
    MainWindow &window = *app.window;
    load_batch(dated, undated, failing);
    for (const char *unit : {"year", "month", "day", "hour", "minute", "second", "timezone"})
        type_shift(window, unit, "1");

    const box_answers answers(replies);
    click(window.button_fix_time);

    QCOMPARE(answers.boxes.size(), replies.size());
    QCOMPARE(window.model->rowCount(), 0);
    QVERIFY(exif_cache::instance()->records.empty());
    QVERIFY(exif_cache::instance()->raw_tags.empty());
    QCOMPARE(shift_texts(window), empty_shift);
    QCOMPARE(window.undo_map.keys(), in_folder(remembered));
    QCOMPARE(window.button_undo->isEnabled(), !remembered.isEmpty());
}

void test_fix_batch::batch_discards_the_undo_memory_of_the_previous_one_data()
{
    QTest::addColumn<QStringList>("dated");
    QTest::addColumn<QStringList>("undated");
    QTest::addColumn<QStringList>("failing");
    using names = QStringList;
    QTest::newRow("nothing to do") << names{} << names{} << names{};
    QTest::newRow("no row with a time") << names{} << names{"a"} << names{};
    QTest::newRow("all fail") << names{"a"} << names{} << names{"a"};
}

void test_fix_batch::batch_discards_the_undo_memory_of_the_previous_one()
{
    QFETCH(QStringList, dated);
    QFETCH(QStringList, undated);
    QFETCH(QStringList, failing);
    app.fix_dated_photo("before");
    QVERIFY(app.window->button_undo->isEnabled());
    load_batch(dated, undated, failing);
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    QVERIFY(app.window->undo_map.isEmpty());
    QVERIFY(!app.window->button_undo->isEnabled());
}

void test_fix_batch::undo_memory_is_discarded_after_the_warnings()
{
    MainWindow &window = *app.window;
    app.fix_dated_photo("before");
    app.load_dated_photo("a");
    QList<bool> enabled;
    QList<int> remembered;
    progress_watch progress(*window.progress_fix);
    for (const int value : {0, 1}) {
        progress.at(value, [&] {
            enabled << window.button_undo->isEnabled();
            remembered << window.undo_map.size();
        });
    }
    click(window.button_fix_time);
    QCOMPARE(enabled, QList<bool>({false, false}));
    QCOMPARE(remembered, QList<int>({0, 1}));
    QCOMPARE(window.undo_map.keys(), in_folder({"a"}));
}

void test_fix_batch::failures_are_reported_by_path()
{
    const QStringList names = {"100%1.jpg", "b.jpg", "c %2 %n.jpg", "d.jpg"};
    for (const QString &name : names)
        app.load_dated_photo(name);
    for (const QString &name : {names[0], names[2]})
        app.tool.refuse_writes(name);
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);

    QCOMPARE(app.written_names(), names);
    QCOMPARE(answers.boxes.size(), 1);
    const seen_box &box = answers.boxes.first();
    QCOMPARE(box.title, QString("Continue?"));
    QCOMPARE(box.text, "The following 2 files could not be fixed:\n" + app.path_of("100%1.jpg") +
                           "\n" + app.path_of("c %2 %n.jpg") +
                           "\n\n Do you want to keep the changes in the other files");
    QCOMPARE(box.yes_text, QString("Keep changes"));
    QCOMPARE(box.no_text, QString("Undo Changes"));
    QCOMPARE(box.button_count, 2);
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.parent, app.window->centralWidget());
}

void test_fix_batch::changes_are_undone_unless_kept_data()
{
    QTest::addColumn<box_reply>("reply");
    QTest::addColumn<bool>("undone");
    QTest::newRow("Keep changes") << box_reply::yes << false;
    QTest::newRow("Undo Changes") << box_reply::no << true;
    QTest::newRow("Escape") << box_reply::escape << true;
    QTest::newRow("window frame") << box_reply::frame << true;
}

void test_fix_batch::changes_are_undone_unless_kept()
{
    QFETCH(box_reply, reply);
    QFETCH(bool, undone);
    for (const char *name : {"a", "b", "c"})
        app.load_dated_photo(name);
    app.tool.refuse_writes("b");
    type_shift(*app.window, "hour", "1");
    const box_answers answers({reply});
    click(app.window->button_fix_time);

    QCOMPARE(answers.boxes.size(), 1);
    QStringList expected = {"a", "b", "c"};
    if (undone)
        expected << "a"
                 << "c";
    QCOMPARE(app.written_names(), expected);
    QCOMPARE(app.window->undo_map.keys(), undone ? QStringList() : in_folder({"a", "c"}));
    QCOMPARE(app.window->button_undo->isEnabled(), !undone);
    if (undone)
        QVERIFY(
            app.writes().last().second.contains("-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"));
}

void test_fix_batch::answer_to_many_failures_is_visible_and_works_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("clicked_button");
    QTest::addColumn<bool>("undone");
    using keys = QList<int>;
    const int none = QMessageBox::NoButton;
    QTest::newRow("Return") << keys{Qt::Key_Return} << none << false;
    QTest::newRow("Return at the last name") << keys{Qt::Key_End, Qt::Key_Return} << none << false;
    QTest::newRow("Tab and Space")
        << keys{Qt::Key_Down, Qt::Key_Tab, Qt::Key_Space} << none << true;
    QTest::newRow("Escape") << keys{Qt::Key_PageDown, Qt::Key_Escape} << none << true;
    QTest::newRow("Keep changes") << keys{} << int{QMessageBox::Yes} << false;
    QTest::newRow("Undo Changes") << keys{Qt::Key_End} << int{QMessageBox::No} << true;
}

/// Uses the platform's events, which a button outside the screen would not get.
void test_fix_batch::answer_to_many_failures_is_visible_and_works()
{
    QFETCH(QList<int>, keys);
    QFETCH(int, clicked_button);
    QFETCH(bool, undone);
    app.load_dated_photo("written.jpg");
    for (int number = 0; number < 100; ++number) {
        const QString name = QString("%1.jpg").arg(number);
        app.load_dated_photo(name);
        app.tool.refuse_writes(name);
    }
    const when_modal<orv::message_box> user([&](orv::message_box &box) {
        QVERIFY(QTest::qWaitForWindowActive(&box));
        QVERIFY(box.screen()->availableGeometry().contains(box.frameGeometry()));
        for (const int key : keys)
            QTest::keyClick(box.windowHandle(), static_cast<Qt::Key>(key));
        if (const auto *button =
                box.button(static_cast<QMessageBox::StandardButton>(clicked_button)))
            QTest::mouseClick(box.windowHandle(), Qt::LeftButton, {},
                              button->mapTo(&box, button->rect().center()));
        QVERIFY(!box.isVisible());
    });
    click(app.window->button_fix_time);

    QVERIFY(user.answered());
    QCOMPARE(app.window->undo_map.keys(), undone ? QStringList() : in_folder({"written.jpg"}));
    QCOMPARE(app.written_names().count("written.jpg"), undone ? 2 : 1);
}

void test_fix_batch::failed_photo_is_not_undone()
{
    for (const char *name : {"a", "b"})
        app.load_dated_photo(name);
    app.tool.refuse_writes("a");
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    app.tool.forget();
    click(app.window->button_undo);
    QCOMPARE(app.written_names(), QStringList{"b"});
}

void test_fix_batch::progress_counts_the_rows()
{
    for (const char *name : {"a", "b", "c"})
        app.load_dated_photo(name);
    app.tool.refuse_writes("b");
    const orv::progress_dialog &dialog = *app.window->progress_fix;
    const progress_watch progress(dialog);
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    QCOMPARE(progress.values, QList<int>({0, 1, 2, 3}));
    QCOMPARE(progress.minima, QList<int>({0, 0, 0, 0}));
    QCOMPARE(progress.maxima, QList<int>({3, 3, 3, 3}));
    QCOMPARE(progress.labels,
             QStringList({"Fixing time", "Fixing time", "Fixing time", "Fixing time"}));
    QCOMPARE(progress.visible, QList<bool>({false, true, true, true}));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.windowTitle(), QString("Please Wait"));
    QCOMPARE(dialog.findChild<QProgressBar *>()->format(), QString("%v of %m"));
}

void test_fix_batch::progress_is_hidden_after_an_empty_batch()
{
    click(app.window->button_fix_time);
    QCoreApplication::processEvents();
    QCOMPARE(app.window->progress_fix->maximum(), 0);
    QVERIFY(!app.window->progress_fix->isVisible());
}

void test_fix_batch::fix_button_is_never_disabled()
{
    MainWindow &window = *app.window;
    QList<bool> enabled = {window.button_fix_time->isEnabled()};
    app.load_dated_photo("a");
    progress_watch progress(*window.progress_fix);
    for (const int value : {0, 1})
        progress.at(value, [&] { enabled << window.button_fix_time->isEnabled(); });
    click(window.button_fix_time);
    enabled << window.button_fix_time->isEnabled();
    QCOMPARE(enabled, QList<bool>({true, true, true, true}));
}

void test_fix_batch::unreadable_zone_ends_the_batch_by_an_exception()
{
    app.load_dated_photo("a");
    app.load_photo("b",
                   {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00", "IPTC:TimeCreated=12:00:00-"});
    app.load_dated_photo("c");
    QVERIFY_EXCEPTION_THROWN(app.window->on_button_fix_time_clicked(), std::invalid_argument);
    QCOMPARE(app.written_names(), QStringList{"a"});
    QCOMPARE(app.window->undo_map.keys(), in_folder({"a"}));
    QCOMPARE(app.window->model->rowCount(), 3);
}

KELVRA_PROGRAM_TEST_MAIN(test_fix_batch)
#include "test_fix_batch.moc"
