// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QString>
#include <QStringList>

#include <functional>

/// What an X display shows, whoever painted it, and a user's hands on it. For tests that run under
/// on_screen.sh, beside the program that they look at.

/// Runs xdotool(1) and returns what it prints, without the line end; empty if it fails.
QString xdotool(const QStringList &arguments);

void move_mouse(QPoint place);

/// The id of the window on the screen with exactly this title, once it is there within a few
/// seconds; empty if it isn't.
QString window_with_title(const QString &title);

/// Where the window's contents are on the screen, without the frame around them.
QRect place_of(const QString &window);

/// The same with the frame, or somewhat more.
QRect with_frame(const QRect &place);

/// The pixels of the screen.
QImage picture_of(const QRect &place);

/// Whether the two have the same pixels outside of `hidden`, which is counted from their top left
/// corner.
bool same_pixels(QImage seen, QImage expected, const QRegion &hidden = QRegion());

/// Keeps the whole screen and what was expected of it beside the test program, as seen.png and
/// expected.png, for whoever looks into a failure.
void keep_pictures(const QImage &expected);

/// Whether the condition comes true within a second. Serves events meanwhile.
bool within_a_second(const std::function<bool()> &condition);
