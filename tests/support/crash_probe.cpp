// Dies in the way that its argument names, so that a test can read the report from outside.
//
// usage: crash_probe signal NUMBER [FRAMES] | exception | assertion | jump | atexit | icon

#include "orv/button_dark.h"
#include "qor/assertion.h"
#include "qor/exception.h"
#include "qor/fatal.h"
#include "qor/trace_scope.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

namespace
{

void raise_below_frames(int number, int frames)
{
    if (frames == 0) {
        qor::stacktrace::instance();
        std::raise(number);
        return;
    }
    const std::string name = "frame_" + std::to_string(frames);
    const qor::trace_scope frame("probe.cpp", frames, name.c_str());
    raise_below_frames(number, frames - 1);
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
    if (way == "signal")
        raise_below_frames(std::stoi(argv[2]), argc > 3 ? std::stoi(argv[3]) : 0);
    else if (way == "exception")
        throw qor::exception("misuse");
    else if (way == "assertion")
        qor::assertion_failed("a == b", "probe.cpp", 7, "int probe()");
    else if (way == "jump")
        survive_by_jump();
    else if (way == "atexit") {
        std::atexit([] { std::cout << "atexit ran" << std::endl; });
        raise_below_frames(SIGTERM, 0);
    } else if (way == "icon")
        paint_icon_on_a_foreign_button(argc, argv);
    return 0;
}
