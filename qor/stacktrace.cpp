// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/stacktrace.h"

#include "qor/signal_table.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <iterator>

namespace qor
{

namespace
{

constexpr std::size_t reserved_frames = 50;
constexpr int first_number_reported_as_zero = 185;

const char *name_of(int number)
{
    const bool has_name = number >= 0 && static_cast<std::size_t>(number) < std::size(signal_names);
    return signal_names[has_name ? number : 0];
}

std::string frame_line(std::size_t index, const stack_frame &frame)
{
    return std::to_string(index) + ": " + frame.file + ":" + std::to_string(frame.line) + ": " +
           frame.function + "\n";
}

std::string frames_text(const std::vector<const stack_frame *> &frames)
{
    if (frames.empty())
        return "Stacktrace is empty\n";
    std::string text = "Printing stacktrace with size " + std::to_string(frames.size()) + ":\n";
    for (std::size_t index = frames.size(); index-- > 0;)
        text += frame_line(index, *frames[index]);
    return text;
}

std::string signal_line(const char *signal_name)
{
    return signal_name ? std::string("ERROR: received signal ") + signal_name + "\n" : "";
}

}  // namespace

stacktrace &stacktrace::instance()
{
    static stacktrace trace;
    return trace;
}

void stacktrace::signal_handler(int number)
{
    if (number >= first_number_reported_as_zero)
        number = 0;
    instance().on_signal(number, name_of(number));
}

void stacktrace::print_trace_and_exit(int /*number*/, const char *name)
{
    std::cerr << signal_line(name) + trace_text() << std::endl;
    std::exit(-1);
}

std::string stacktrace::trace_text()
{
    return frames_text(instance().frames);
}

std::string stacktrace::trace_text(const std::vector<const stack_frame *> &frames,
                                   const char *signal_name)
{
    return signal_line(signal_name) + frames_text(frames);
}

stacktrace::stacktrace()
{
    frames.reserve(reserved_frames);
    for (const int number : handled_signals)
        std::signal(number, signal_handler);
}

}  // namespace qor
