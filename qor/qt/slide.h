// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>

#include <functional>
#include <vector>

class QWidget;

namespace qor::qt
{

/// A row or a column of a layout on its way to another size, in pixels.
struct sliding_line {
    std::function<int &()> size;  ///< where the layout keeps it; asked for anew at each step
    int target;
};

enum class repainting { never, at_each_step };

/// Has the layouts in `window` see changed sizes: resizes it by one pixel in height and back to
/// `size`, and repaints it as asked.
void lay_out_anew(QWidget &window, QSize size, repainting repaints);

/// Moves the lines to their targets, 25 steps a second, and blocks until they are there.
///
/// After each step the window is laid out anew. The steps are truncated to pixels; at the end, or
/// as soon as one line has passed its target, all lines take their targets. If a line has its
/// target at the start, nothing is done to any.
/// @param seconds  0 and less: the lines jump
void slide(QWidget &window, const std::vector<sliding_line> &lines, float seconds,
           repainting repaints);

}  // namespace qor::qt
