// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace orv
{

/// The width of a dialog in pixels: 1.2 times the width that its content needs, truncated.
inline int dialog_width(int sufficient_width)
{
    return static_cast<int>(sufficient_width * 1.2);
}

}  // namespace orv
