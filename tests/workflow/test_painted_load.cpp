// SPDX-License-Identifier: GPL-3.0-or-later

#include "drag_source.h"
#include "program_test_main.h"
#include "watched_program.h"

#include <QLabel>
#include <QSettings>

#include <algorithm>
#include <functional>
#include <memory>

namespace
{

constexpr int old_count = 3;
constexpr int new_count = 300;

constexpr int title_height_px = 16;
constexpr QPoint drop_place(150, 250);  ///< in the main window

/// What a user does while files load.
using disturbance = std::function<void(const QString &window)>;

void do_nothing(const QString & /*window*/) {}

void resize_window(const QString &window)
{
    xdotool({"windowsize", "--sync", window, "950", "650"});
}

/// Double-clicks the title bar, which makes the window manager maximise the window.
void maximise_window(const QString &window)
{
    const QRect before = place_of(window);
    move_mouse(QPoint(before.center().x(), before.top() - title_height_px / 2));
    xdotool({"click", "--repeat", "2", "--delay", "50", "1"});
    QTRY_VERIFY(place_of(window).size() != before.size());
}

void move_another_window_across(const QString &window)
{
    const QRect place = place_of(window);
    QLabel other("another window");
    other.setWindowTitle("Other");
    other.setFixedSize(300, 300);
    other.show();
    const QString id = window_with_title("Other");
    QVERIFY(!id.isEmpty());
    for (int x = place.left(); x < place.right(); x += 100)
        xdotool(
            {"windowmove", "--sync", id, QString::number(x), QString::number(place.top() + 300)});
    other.hide();
    QTRY_VERIFY(xdotool({"search", "--onlyvisible", "--name", "^Other$"}).isEmpty());
}

void minimise_and_restore_window(const QString &window)
{
    xdotool({"windowminimize", "--sync", window});
    xdotool({"windowactivate", "--sync", window});
    QVERIFY(!window_with_title("Kelvra").isEmpty());
    QVERIFY(!window_with_title("Please Wait").isEmpty());
}

const QList<QPair<int, disturbance>> disturbances = {
    {20, do_nothing},
    {50, resize_window},
    {100, maximise_window},
    {150, move_another_window_across},
    {200, minimise_and_restore_window},
};

}  // namespace

/// The window is always painted while files load, however the load began: the rows that were there,
/// the new rows, and the header. What a user does to the window meanwhile is painted by the next
/// photo.
class test_painted_load : public QObject
{
    Q_OBJECT

private slots:
    void window_is_painted_all_the_time_data();
    void window_is_painted_all_the_time();

private:
    void start(const QString &way);
    void look_at(int place);

    std::unique_ptr<watched_program> program;
    std::unique_ptr<drag_source> source;
    expected_screens expected;
};

/// Starts the program with the old photos in it, and starts loading the new ones.
void test_painted_load::start(const QString &way)
{
    const QString new_folder = program->make_photos("new", new_count);
    QString steps = "open " + program->make_photos("old", old_count);
    if (way == "file-open event")
        steps += ";open " + new_folder;
    if (way == "file dialog")
        steps += QString(";choose %1;click load").arg(new_count);
    QSettings().setValue("last_load_path", new_folder);
    QSettings().sync();
    program->start(steps);
    if (way == "drop") {
        QVERIFY(!program->main_window().isEmpty());
        source = std::make_unique<drag_source>(QStringList{new_folder});
        source->drag_to(place_of(program->main_window()).topLeft() + drop_place);
    }
}

/// Checks the screen while the tool is held at this photo of the load.
void test_painted_load::look_at(int place)
{
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(program->waits_at(old_count + place), qPrintable(QString("no photo %1").arg(place)));
    QStringList paths = program->read_paths();
    paths.removeLast();
    std::sort(paths.begin(), paths.begin() + old_count);
    expected.set_photos(paths);
    const QImage progress = expected.load_progress(place - 1, new_count);
    QVERIFY2(program->shows(expected, progress), qPrintable(QString("at photo %1").arg(place)));
}

void test_painted_load::window_is_painted_all_the_time_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"file dialog", "drop", "file-open event"})
        QTest::newRow(way) << way;
}

void test_painted_load::window_is_painted_all_the_time()
{
    QFETCH(QString, way);
    program = std::make_unique<watched_program>();
    for (const auto &[place, disturb] : disturbances) {
        program->tool.hold(old_count + place);
        program->tool.hold(old_count + place + 1);
    }
    start(way);
    for (const auto &[place, disturb] : disturbances) {
        look_at(place);
        disturb(program->main_window());
        program->tool.let_go(old_count + place);
        look_at(place + 1);
        program->tool.let_go(old_count + place + 1);
    }
}

KELVRA_PROGRAM_TEST_MAIN(test_painted_load)
#include "test_painted_load.moc"
