// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRect>

/// The geometry of a dialog of this size centred over a window. An odd pixel always goes to the
/// same side.
inline QRect centred_place(const QRect &window, QSize dialog)
{
    const auto start = [](int window_first, int window_last, int length) {
        return (window_first + window_last) / 2 - (length - 1) / 2;
    };
    return {QPoint(start(window.left(), window.right(), dialog.width()),
                   start(window.top(), window.bottom(), dialog.height())),
            dialog};
}
