// SPDX-License-Identifier: GPL-3.0-or-later
//
// Dies in the way that its arguments name, so that a test can read the report from outside.
//
// usage: crash_probe signal NUMBER [FRAMES] | exception [FRAMES] | message |
//                    assertion [FRAMES] | uncaught | jump | atexit | icon | layout MISUSE |
//                    fold MISUSE

#include "orv/button_dark.h"
#include "qor/assertion.h"
#include "qor/exception.h"
#include "qor/fatal.h"
#include "qor/qt/layout.h"
#include "qor/qt/widget_fold.h"
#include "qor/trace_scope.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPushButton>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace
{

/// Runs `end` with this many frames on the stack.
void run_below_frames(int frames, const std::function<void()> &end)
{
    if (frames == 0) {
        qor::stacktrace::instance();
        end();
        return;
    }
    const std::string name = "frame_" + std::to_string(frames);
    const qor::trace_scope frame("probe.cpp", frames, name.c_str());
    run_below_frames(frames - 1, end);
}

void paint_icon_on_a_foreign_button(int argc, char **argv)
{
    const QApplication application(argc, argv);
    orv::button_dark dark(nullptr);
    dark.set_icon(":/images/icon_open.png", -1, -1, {}, {});
    QPushButton plain;
    QImage canvas(10, 10, QImage::Format_ARGB32);
    QPainter painter(&canvas);
    dark.paint_callback_ex(painter, &plain);
}

void add_at(qor::qt::layout &grid, int column, int row)
{
    grid.add_at(qor::qt::cell(), column, row, false);
}

void misuse_layout(int argc, char **argv, const std::string &misuse)
{
    using qor::qt::layout;
    const std::map<std::string, std::function<void(layout &)>> misuses = {
        {"addItem", [](layout &grid) { grid.addItem(nullptr); }},
        {"addWidget", [](layout &grid) { grid.addWidget(new QWidget(grid.parentWidget())); }},
        {"row_height", [](layout &grid) { grid.row_height(); }},
        {"column_width", [](layout &grid) { grid.column_width(); }},
        {"negative_row",
         [](layout &grid) {
             add_at(grid, 0, 0);
             add_at(grid, 0, -1);
             grid.row_height();
         }},
        {"negative_column", [](layout &grid) {
             add_at(grid, 0, 0);
             add_at(grid, -1, 0);
             grid.column_width();
         }}};
    const QApplication application(argc, argv);
    QWidget parent;
    misuses.at(misuse)(*new layout(&parent, 1, false));
}

/// The section is in no cell. For a `misuse` not handled here, nothing has been clicked either.
void misuse_fold(int argc, char **argv, const std::string &misuse)
{
    const QApplication application(argc, argv);
    auto *section = new qor::qt::widget_fold("title", nullptr, 0, 20);
    qor::qt::cell without_widget;
    if (misuse == "click")
        section->button->click();
    else if (misuse == "cell_without_widget")
        qor::qt::clicked_cell = &without_widget;
    QApplication::exec();
}

/// Standard error that records what the crash message was when the first byte arrived.
class watched_errors : public std::streambuf
{
protected:
    int_type overflow(int_type byte) override
    {
        if (!is_written)
            message = qor::fatal_text;
        is_written = true;
        return byte;
    }

public:
    bool is_written = false;
    std::string message = "nothing was written";
};

watched_errors errors;

void throw_under_watch()
{
    static std::streambuf *const standard_error = std::cerr.rdbuf(&errors);
    std::atexit([] {
        std::cerr.rdbuf(standard_error);
        std::cout << "crash message at the first byte: " << errors.message << std::endl;
    });
    throw qor::exception("misuse");
}

void survive_by_jump()
{
    if (setjmp(qor::fatal_jump) == 0)
        qor::assertion_failed("never", "probe.cpp", 1, "probe");
    std::cout << "survived: " << qor::fatal_text << std::flush;
}

}  // namespace

int main(int argc, char **argv)
{
    const std::string way = argc > 1 ? argv[1] : "";
    const auto number_at = [&](int index) { return argc > index ? std::stoi(argv[index]) : 0; };
    if (way == "signal")
        run_below_frames(number_at(3), [&] { std::raise(number_at(2)); });
    else if (way == "exception")
        run_below_frames(number_at(2), [] { throw qor::exception("misuse"); });
    else if (way == "message")
        throw_under_watch();
    else if (way == "assertion")
        run_below_frames(number_at(2),
                         [] { qor::assertion_failed("a == b", "probe.cpp", 7, "int probe()"); });
    else if (way == "uncaught")
        run_below_frames(1, [] { throw std::runtime_error("stray"); });
    else if (way == "jump")
        survive_by_jump();
    else if (way == "atexit") {
        std::atexit([] { std::cout << "atexit ran" << std::endl; });
        run_below_frames(0, [] { std::raise(SIGTERM); });
    } else if (way == "icon")
        paint_icon_on_a_foreign_button(argc, argv);
    else if (way == "layout")
        misuse_layout(argc, argv, argv[2]);
    else if (way == "fold")
        misuse_fold(argc, argv, argv[2]);
    return 0;
}
