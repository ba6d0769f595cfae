// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace orv
{

/// The width that a dialog gets for one that would do: 1.2 times that, truncated. In pixels.
inline int dialog_width(int sufficient_width)
{
    return static_cast<int>(sufficient_width * 1.2);
}

}  // namespace orv
