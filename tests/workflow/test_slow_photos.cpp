// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/folder_files.h"
#include "program_test_main.h"
#include "watched_program.h"

#include <algorithm>
#include <memory>

namespace
{

constexpr int photo_count = 20;
constexpr int slow_places[] = {1, 2, 5, 8, 12};

/// The first request of each batch: a load, a fix and an undo in this order.
constexpr int first_read = 1;
constexpr int first_fix = first_read + photo_count;
constexpr int first_undo = first_fix + photo_count;

}  // namespace

/// While the program waits for a photo, the screen shows what has been done. Checked from outside,
/// on a real display with a window manager.
class test_slow_photos : public QObject
{
    Q_OBJECT

private slots:
    void init() { program = std::make_unique<watched_program>(); }
    void screen_is_exact_whenever_the_program_waits();
    void screen_is_exact_after_a_load_inside_another();
    void screen_is_exact_after_a_load_inside_a_fix_data();
    void screen_is_exact_after_a_load_inside_a_fix();
    void screen_is_exact_after_a_load_inside_an_undo();
    void screen_is_exact_when_the_tool_has_died();

private:
    void look(int request, const QImage &progress);

    std::unique_ptr<watched_program> program;
    expected_screens expected;
};

/// Waits until the tool gets that request, checks the screen, and lets the tool answer.
void test_slow_photos::look(int request, const QImage &progress)
{
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(program->waits_at(request), qPrintable(QString("no request %1").arg(request)));
    QVERIFY2(program->shows(expected, progress), qPrintable(QString("at request %1").arg(request)));
    program->tool.let_go(request);
}

void test_slow_photos::screen_is_exact_whenever_the_program_waits()
{
    const QString folder = program->make_photos("photo", photo_count);
    for (const int first_request : {first_read, first_fix, first_undo}) {
        for (const int place : slow_places)
            program->tool.hold(first_request + place - 1);
    }
    program->start("open " + folder + ";click fix;click undo;close");
    QStringList paths = folder_files(folder);
    for (const int place : slow_places) {
        expected.set_photos(paths.mid(0, place - 1));
        look(first_read + place - 1, expected.load_progress(place - 1, photo_count));
    }
    std::sort(paths.begin(), paths.end());
    expected.set_photos(paths);
    for (const int place : slow_places)
        look(first_fix + place - 1, expected.fix_progress(place - 1, photo_count));
    expected.set_photos({});
    expected.set_undo_enabled(true);
    for (const int place : slow_places)
        look(first_undo + place - 1, expected.fix_progress(place - 1, photo_count));
    if (!QTest::currentTestFailed())
        QVERIFY(program->wait_until_ended());
}

void test_slow_photos::screen_is_exact_after_a_load_inside_another()
{
    constexpr int photos_before = 3;
    constexpr int photos_inside = 2;
    const QString folder = program->make_photos("photo", photo_count);
    const QString inner_folder = program->make_photos("inner", photos_inside);
    program->tool.hold(photos_before + photos_inside + 1);
    program->start(
        QString("at load %1 open %2;open %3").arg(photos_before).arg(inner_folder, folder));
    QVERIFY(program->waits_at(photos_before + photos_inside + 1));
    QStringList paths = program->read_paths();
    paths.removeLast();
    std::sort(paths.begin(), paths.end());
    expected.set_undo_enabled(false);
    expected.set_photos(paths);
    QVERIFY(program->shows(expected, expected.load_progress(photos_before, photo_count)));
}

void test_slow_photos::screen_is_exact_after_a_load_inside_a_fix_data()
{
    QTest::addColumn<int>("photos_before");
    QTest::newRow("before the first photo") << 0;
    QTest::newRow("in the middle") << 3;
    QTest::newRow("after the last photo") << photo_count;
}

void test_slow_photos::screen_is_exact_after_a_load_inside_a_fix()
{
    QFETCH(int, photos_before);
    constexpr int photos_inside = 2;
    const QString folder = program->make_photos("photo", photo_count);
    const QString inner_folder = program->make_photos("inner", photos_inside);
    const int held_request = photo_count + photos_before + photos_inside + 1;
    program->tool.hold(held_request);
    program->start(QString("open %1;at fix %2 open %3;click fix")
                       .arg(folder)
                       .arg(photos_before)
                       .arg(inner_folder));
    QVERIFY(program->waits_at(held_request));
    QStringList paths = folder_files(inner_folder) + folder_files(folder);
    std::sort(paths.begin(), paths.end());
    expected.set_undo_enabled(false);
    expected.set_photos(paths);
    QVERIFY(program->shows(expected,
                           expected.fix_progress(photos_before, photo_count + photos_inside)));
}

void test_slow_photos::screen_is_exact_after_a_load_inside_an_undo()
{
    constexpr int photos_before = 3;
    constexpr int photos_inside = 2;
    const QString folder = program->make_photos("photo", photo_count);
    const QString inner_folder = program->make_photos("inner", photos_inside);
    const int held_request = first_undo + photos_before + photos_inside;
    program->tool.hold(held_request);
    program->start(QString("open %1;click fix;at fix %2 open %3;click undo")
                       .arg(folder)
                       .arg(photos_before)
                       .arg(inner_folder));
    QVERIFY(program->waits_at(held_request));
    expected.set_undo_enabled(true);
    expected.set_photos(folder_files(inner_folder));
    QVERIFY(program->shows(expected, expected.fix_progress(photos_before, photo_count)));
}

/// The program then waits forever for the reply to a request that it can't send.
void test_slow_photos::screen_is_exact_when_the_tool_has_died()
{
    constexpr int photos_before = 7;
    const QString folder = program->make_photos("photo", photo_count);
    program->tool.script(QString::number(photos_before), {"answer", "exit 0"});
    program->start("open " + folder);
    QTRY_COMPARE(program->read_paths().size(), photos_before);
    expected.set_undo_enabled(false);
    expected.set_photos(program->read_paths());
    QVERIFY(program->shows(expected, expected.load_progress(photos_before, photo_count)));
}

KELVRA_PROGRAM_TEST_MAIN(test_slow_photos)
#include "test_slow_photos.moc"
