// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/folder_files.h"
#include "drag_source.h"
#include "program_test_main.h"
#include "watched_program.h"
#include "window_actions.h"

#include <memory>

namespace
{

constexpr int photo_count = 60;
constexpr int drag_comes_at = 5;
constexpr int drop_comes_at = 40;
constexpr QPoint drop_place(150, 250);  ///< in the main window

}  // namespace

/// A drop during a load: the window system would deliver it although user input has to wait.
class test_refused_drops : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void drag_that_enters_during_a_load_is_refused();
    void drop_of_a_drag_that_entered_before_a_load_is_refused();

private:
    void start(const QString &steps);
    void drop_again();

    std::unique_ptr<watched_program> program;
    std::unique_ptr<drag_source> source;
    expected_screens expected;
    QString loaded_folder;
    QString dropped_folder;
    QPoint place;  ///< in the drop area, on the screen
};

void test_refused_drops::init()
{
    program = std::make_unique<watched_program>();
    loaded_folder = program->make_photos("loaded", photo_count);
    dropped_folder = program->make_photos("dropped", photo_count);
}

void test_refused_drops::start(const QString &steps)
{
    program->start(steps);
    source = std::make_unique<drag_source>(QStringList{dropped_folder});
    place = place_of(program->main_window()).topLeft() + drop_place;
}

/// Waits for the end of the load, which read nothing else, then drops the files.
void test_refused_drops::drop_again()
{
    QTRY_COMPARE(program->read_paths(), folder_files(loaded_folder));
    source->drag_to(place, [] { return drag_source::cursor_takes(); });
    QVERIFY(source->taken);
    QTRY_COMPARE(program->read_paths(), folder_files(loaded_folder) + folder_files(dropped_folder));
}

/// The drag enters the drop area while the tool is held at one photo, and is released at a later
/// one.
void test_refused_drops::drag_that_enters_during_a_load_is_refused()
{
    for (const int photo : {drag_comes_at, drop_comes_at, drop_comes_at + 1})
        program->tool.hold(photo);
    start("open " + loaded_folder);
    QVERIFY(program->waits_at(drag_comes_at));
    bool cursor_refused = false;
    source->drag_to(place, [&] {
        program->tool.let_go(drag_comes_at);
        cursor_refused = program->tool.holds(drop_comes_at) && drag_source::cursor_refuses();
        return cursor_refused;
    });
    QVERIFY(cursor_refused);
    QVERIFY(!source->taken);

    program->tool.let_go(drop_comes_at);
    QVERIFY(program->waits_at(drop_comes_at + 1));
    QStringList loaded = program->read_paths();
    loaded.removeLast();
    expected.set_photos(loaded);
    QVERIFY(program->shows(expected, expected.load_progress(drop_comes_at, photo_count)));
    program->tool.let_go(drop_comes_at + 1);
    drop_again();
}

/// The source was told that the drop would be accepted, so it drops.
void test_refused_drops::drop_of_a_drag_that_entered_before_a_load_is_refused()
{
    const QString sign = loaded_folder + ".load";
    program->tool.hold(drop_comes_at);
    start("when " + sign + " open " + loaded_folder);
    source->drag_to(place, [&] {
        if (drag_source::cursor_takes())
            make_file(sign);
        return program->tool.holds(drop_comes_at);
    });
    QVERIFY(program->tool.holds(drop_comes_at));
    program->tool.let_go(drop_comes_at);
    drop_again();
}

KELVRA_PROGRAM_TEST_MAIN(test_refused_drops)
#include "test_refused_drops.moc"
