// SPDX-License-Identifier: GPL-3.0-or-later
//
// Measures what many photos cost in the real window. The metadata tool next to this program answers
// immediately.
//
// usage: rows COUNT TIMES   only the load, several times
//        rows COUNT all     a load, then typing, sorting, idling and memory

#include "exif_cache.h"
#include "main_window_form.h"
#include "orv/lineedit.h"
#include "program_window.h"
#include "readings.h"
#include "table_data_model.h"

#include <QTableView>
#include <QtTest>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

constexpr int key_presses = 20;
constexpr int idle_ms = 5000;
constexpr double kilobyte = 1000.0;
constexpr double megabyte = 1000.0 * kilobyte;

/// Notices when a widget is painted.
class paint_watch : public QObject
{
public:
    explicit paint_watch(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

    bool painted = false;
};

/// File names like those of a camera, in no order.
QStringList paths_of(int count)
{
    constexpr int scattered = 7919;
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths << QString("/home/user/Pictures/2017 Summer trip/camera/IMG_%1.JPG")
                     .arg(i * scattered % count, 5, 10, QLatin1Char('0'));
    return paths;
}

/// The bytes that the tags of all photos take in the nodes of their maps: the nodes, plus the
/// characters of texts that don't fit into the string objects.
double node_bytes()
{
    constexpr std::size_t links_and_colour = 4 * sizeof(void *);
    constexpr std::size_t characters_inside = 15;
    const auto text_bytes = [](const std::string &text) {
        return text.size() > characters_inside ? text.size() + 1 : 0;
    };
    std::size_t bytes = 0;
    for (const auto &[path, tags] : exif_cache::instance()->raw_tags) {
        for (const auto &tag : tags)
            bytes += links_and_colour + sizeof tag + text_bytes(tag.first) + text_bytes(tag.second);
    }
    return static_cast<double>(bytes);
}

/// The time from a key press to the end of the painting that follows: the slowest of many.
double slowest_key_ms(MainWindow &window)
{
    auto *field = window.findChild<orv::lineedit *>("lineedit_hour");
    field->setFocus();
    if (!field->hasFocus())
        give_up("the keys don't reach the field");
    paint_watch table(*window.ui->tableView->viewport());
    double slowest = 0.0;
    for (int press = 0; press < key_presses; ++press) {
        serve_events_for(30);
        table.painted = false;
        const double start = now_ms();
        QTest::keyClick(window.windowHandle(), press % 2 == 0 ? Qt::Key_5 : Qt::Key_Backspace);
        while (!table.painted)
            QCoreApplication::processEvents();
        slowest = std::max(slowest, now_ms() - start);
    }
    return slowest;
}

double sort_ms(table_data_model &model, int column, Qt::SortOrder order)
{
    const double start = now_ms();
    model.sort(column, order);
    return now_ms() - start;
}

double idle_ms_per_s()
{
    serve_events_for(1000);
    if (!QApplication::focusWidget())
        give_up("no caret blinks");
    const double before = own_cpu_ms();
    serve_events_for(idle_ms);
    return (own_cpu_ms() - before) * 1000.0 / idle_ms;
}

double load_ms(MainWindow &window, int count)
{
    const QStringList paths = paths_of(count);
    const double start = now_ms();
    window.load_files(paths);
    const double end = now_ms();
    if (!all_have_times(*window.model, count))
        give_up("not every photo has a row with its time");
    return (end - start) / count;
}

/// The mean of several loads, each into an empty list.
double mean_load_ms(MainWindow &window, int count, int times)
{
    double sum = 0.0;
    for (int i = 0; i < times; ++i) {
        sum += load_ms(window, count);
        window.on_button_reset_clicked();
    }
    return sum / times;
}

/// Does what happens once in a process: the tool starts, the progress dialog is created.
void warm_up(MainWindow &window)
{
    window.resize(1920, 1080);
    window.load_files({"/first.jpg"});
    window.on_button_reset_clicked();
    serve_events_for(500);
}

void measure_all(MainWindow &window, int count)
{
    const double before = resident_bytes();
    report("load_ms", load_ms(window, count));
    serve_events_for(500);
    const double loaded = resident_bytes();
    report("photo_kb", (loaded - before) / count / kilobyte);
    report("photo_nodes_kb", node_bytes() / count / kilobyte);
    report("caret_idle_ms_per_s", idle_ms_per_s());
    report("key_ms", slowest_key_ms(window));
    report("sort_by_time_ms",
           sort_ms(*window.model, table_data_model::recording_time_column, Qt::AscendingOrder));
    report("sort_by_name_ms",
           sort_ms(*window.model, table_data_model::name_column, Qt::AscendingOrder));
    window.on_button_reset_clicked();
    serve_events_for(500);
    report("empty_mb", before / megabyte);
    report("reset_mb", resident_bytes() / megabyte);
}

}  // namespace

int main(int argc, char **argv)
{
    program_window program(argc, argv);
    const QStringList arguments = program.application.arguments();
    const int count = arguments.value(1).toInt();
    const int times = arguments.value(2).toInt();
    if (count < 1 || (times < 1 && arguments.value(2) != "all"))
        give_up("usage: rows COUNT TIMES|all");
    warm_up(*program.window);
    if (times < 1)
        measure_all(*program.window, count);
    else
        report("load_ms", mean_load_ms(*program.window, count, times));
}
