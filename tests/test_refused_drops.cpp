// SPDX-License-Identifier: GPL-3.0-or-later

#include "drag_source.h"
#include "folder_files.h"
#include "test_main.h"
#include "watched_program.h"

#include <memory>

namespace
{

constexpr int photo_count = 60;
constexpr int drag_comes_at = 5;
constexpr int drop_comes_at = 40;
constexpr QPoint drop_place(150, 250);  ///< in the main window

}  // namespace

/// A drop during a load: the window system would deliver it although the user's input waits.
class test_refused_drops : public QObject
{
    Q_OBJECT

private slots:
    void drop_during_a_load_is_refused_and_the_next_one_taken();

private:
    void drop_during_the_load();

    watched_program program;
    expected_screens expected;
    std::unique_ptr<drag_source> source;
    QPoint place;  ///< in the drop area, on the screen
};

/// The drag comes over the drop area while the tool is held at a photo, and the drop at a later
/// one.
void test_refused_drops::drop_during_the_load()
{
    QVERIFY(program.waits_at(drag_comes_at));
    bool cursor_refused = false;
    source->drag_to(place, [&] {
        program.tool.let_go(drag_comes_at);
        cursor_refused = program.tool.holds(drop_comes_at) && drag_source::cursor_refuses();
        return cursor_refused;
    });
    QVERIFY(cursor_refused);
    QVERIFY(!source->taken);
    program.tool.let_go(drop_comes_at);
    QVERIFY(program.waits_at(drop_comes_at + 1));
    QStringList loaded = program.read_paths();
    loaded.removeLast();
    expected.set_photos(loaded);
    QVERIFY(program.shows(expected, expected.load_progress(drop_comes_at, photo_count)));
    program.tool.let_go(drop_comes_at + 1);
}

void test_refused_drops::drop_during_a_load_is_refused_and_the_next_one_taken()
{
    const QString loaded_folder = program.make_photos("loaded", photo_count);
    const QString dropped_folder = program.make_photos("dropped", photo_count);
    for (const int photo : {drag_comes_at, drop_comes_at, drop_comes_at + 1})
        program.tool.hold(photo);
    program.start("open " + loaded_folder);
    source = std::make_unique<drag_source>(QStringList{dropped_folder});
    place = place_of(program.main_window()).topLeft() + drop_place;

    drop_during_the_load();
    if (QTest::currentTestFailed())
        return;
    QTRY_COMPARE(program.read_paths(), folder_files(loaded_folder));

    bool cursor_refused = true;
    source->drag_to(place, [&] {
        cursor_refused = drag_source::cursor_refuses();
        return !cursor_refused;
    });
    QVERIFY(!cursor_refused);
    QVERIFY(source->taken);
    QTRY_COMPARE(program.read_paths(), folder_files(loaded_folder) + folder_files(dropped_folder));
}

KELVRA_TEST_MAIN(test_refused_drops)
#include "test_refused_drops.moc"
