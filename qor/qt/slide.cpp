// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/slide.h"

#include "qor/qt/whole_pixels.h"

#include <QSize>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <thread>

namespace qor::qt
{

namespace
{

constexpr float steps_per_second = 25;
constexpr float microseconds_per_second = 1000000;

/// How far a line has to change: positive when it shrinks.
struct size_change {
    const sliding_line &line;
    std::int64_t delta;

    bool has_passed() const
    {
        const int size = line.size();
        return delta > 0 ? size < line.target : size > line.target;
    }
};

std::vector<size_change> changes_of(const std::vector<sliding_line> &lines)
{
    std::vector<size_change> changes;
    changes.reserve(lines.size());
    for (const sliding_line &line : lines)
        changes.push_back({line, std::int64_t(line.size()) - line.target});
    return changes;
}

/// In pixels: at most one more than the whole way, however short the time is.
int step_of(std::int64_t delta, float seconds)
{
    const float limit = std::abs(static_cast<float>(delta)) + 1;
    const float step = static_cast<float>(delta) / seconds / steps_per_second;
    return whole_pixels(std::clamp(step, -limit, limit));
}

void wait_for_next_step(float seconds)
{
    const float pause = seconds / (seconds * steps_per_second) * microseconds_per_second;
    std::this_thread::sleep_for(std::chrono::microseconds(static_cast<int>(pause)));
}

void move_in_steps(QWidget &window, QSize size, const std::vector<size_change> &changes,
                   float seconds, repainting repaints)
{
    int steps = 0;
    do {
        for (const size_change &each : changes)
            each.line.size() =
                whole_pixels(each.line.size() - std::int64_t(step_of(each.delta, seconds)));
        if (std::any_of(changes.begin(), changes.end(), std::mem_fn(&size_change::has_passed)))
            return;
        lay_out_anew(window, size, repaints);
        wait_for_next_step(seconds);
        ++steps;
    } while (static_cast<float>(steps) < seconds * steps_per_second);
}

}  // namespace

void lay_out_anew(QWidget &window, QSize size, repainting repaints)
{
    window.resize(size.width(), size.height() + 1);
    window.resize(size);
    if (repaints == repainting::at_each_step)
        window.repaint();
}

void slide(QWidget &window, const std::vector<sliding_line> &lines, float seconds,
           repainting repaints)
{
    const QSize size = window.size();
    const std::vector<size_change> changes = changes_of(lines);
    if (std::any_of(changes.begin(), changes.end(),
                    [](const size_change &each) { return each.delta == 0; }))
        return;
    if (seconds > 0 && seconds * steps_per_second > 0)
        move_in_steps(window, size, changes, seconds, repaints);
    for (const sliding_line &line : lines)
        line.size() = line.target;
    lay_out_anew(window, size, repaints);
}

}  // namespace qor::qt
