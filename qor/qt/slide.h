// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>

#include <functional>
#include <vector>

class QWidget;

namespace qor::qt
{

/// A row or a column of a layout that is moving to another size, in pixels.
struct sliding_line {
    std::function<int &()> size;  ///< where the layout keeps it; called again at each step
    int target;
};

enum class repainting { never, at_each_step };

/// Makes the layouts in `window` apply changed sizes: resizes the window by one pixel in height and
/// back to `size`, and repaints it if `repaints` says so.
void lay_out_anew(QWidget &window, QSize size, repainting repaints);

/// Moves the lines to their targets, in 25 steps per second, and blocks until they are there.
///
/// After each step the window is laid out again. The steps are truncated to pixels; at the end, or
/// as soon as one line has passed its target, all lines jump to their targets. If any line is at
/// its target at the start, nothing is done.
/// @param seconds  0 or less: the lines jump
void slide(QWidget &window, const std::vector<sliding_line> &lines, float seconds,
           repainting repaints);

}  // namespace qor::qt
