// SPDX-License-Identifier: GPL-3.0-or-later

#include "expected_screens.h"
#include "folder_files.h"
#include "outside_run.h"
#include "running_program.h"
#include "screen.h"
#include "scripted_tool.h"
#include "test_main.h"
#include "window_road.h"

#include <algorithm>

namespace
{

constexpr int photo_count = 20;
constexpr int slow_places[] = {1, 2, 5, 8, 12};

/// The first request of a batch, when a load, a fix and an undo follow one another.
constexpr int first_read = 1;
constexpr int first_fix = first_read + photo_count;
constexpr int first_undo = first_fix + photo_count;

constexpr QSize window_size(800, 700);

/// Whether the window and, over it, the progress of a batch look like this.
bool screen_shows(const QImage &main_window, const QImage &progress)
{
    const QString window = window_with_title("Kelvra");
    const QString dialog = window_with_title("Please Wait");
    if (window.isEmpty() || dialog.isEmpty())
        return false;
    const QRect window_place = place_of(window);
    const QRect dialog_place = place_of(dialog);
    const QRect hidden = with_frame(dialog_place).translated(-window_place.topLeft());
    return same_pixels(picture_of(window_place), main_window, hidden) &&
           same_pixels(picture_of(dialog_place), progress);
}

}  // namespace

/// While the program waits for a photo, the screen shows what is done: seen from outside, on a real
/// display with a window manager.
class test_slow_photos : public QObject
{
    Q_OBJECT

private slots:
    void screen_is_exact_whenever_the_program_waits();

private:
    void look(int request, const QImage &main_window, const QImage &progress);

    scripted_tool tool;
};

/// Waits until the tool is asked for that request, looks at the screen, and lets the tool answer.
void test_slow_photos::look(int request, const QImage &main_window, const QImage &progress)
{
    if (QTest::currentTestFailed())
        return;
    QTRY_VERIFY2(tool.holds(request), qPrintable(QString("request %1 didn't come").arg(request)));
    const bool is_exact = within_a_second([&] { return screen_shows(main_window, progress); });
    if (!is_exact)
        keep_pictures(main_window);
    QVERIFY2(is_exact, qPrintable(QString("wrong at request %1").arg(request)));
    tool.let_go(request);
}

void test_slow_photos::screen_is_exact_whenever_the_program_waits()
{
    const QTemporaryDir folder;
    for (int photo = 0; photo < photo_count; ++photo) {
        const QString name = QString("IMG_%1.JPG").arg(photo, 2, 10, QLatin1Char('0'));
        make_file(folder.filePath(name));
        tool.set_tags(name, dated_tags);
    }
    for (const int first_request : {first_read, first_fix, first_undo}) {
        for (const int place : slow_places)
            tool.hold(first_request + place - 1);
    }
    outside_run run(KELVRA_PROGRAM);
    run.use_stand_in();
    running_program program(run.program_path(),
                            "open " + folder.path() + ";click fix;click undo;close");
    expected_screens expected;
    QStringList paths = folder_files(folder.path());
    for (const int place : slow_places) {
        expected.set_photos(paths.mid(0, place - 1));
        look(first_read + place - 1, expected.main_window(window_size),
             expected.load_progress(place - 1, photo_count));
    }
    std::sort(paths.begin(), paths.end());
    expected.set_photos(paths);
    for (const int place : slow_places)
        look(first_fix + place - 1, expected.main_window(window_size),
             expected.fix_progress(place - 1, photo_count));
    expected.set_photos({});
    expected.set_undo_enabled(true);
    for (const int place : slow_places)
        look(first_undo + place - 1, expected.main_window(window_size),
             expected.fix_progress(place - 1, photo_count));
    QVERIFY(program.wait_until_ended());
}

KELVRA_TEST_MAIN(test_slow_photos)
#include "test_slow_photos.moc"
