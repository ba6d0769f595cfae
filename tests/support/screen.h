// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QString>
#include <QStringList>

#include <functional>

/// What an X display shows, whichever program painted it, and the mouse and keyboard of its user.
/// For tests that run under on_screen.sh beside the program under test.

/// Runs xdotool(1) and returns what it prints, without the line end; empty if it fails.
QString xdotool(const QStringList &arguments);

void move_mouse(QPoint place);

/// The id of the window with exactly this title, waiting a few seconds for it; empty if there is
/// none.
QString window_with_title(const QString &title);

/// Where the window's contents are on the screen, without the frame.
QRect place_of(const QString &window);

/// The same with the frame, or slightly more.
QRect with_frame(const QRect &place);

/// The pixels of this part of the screen.
QImage picture_of(const QRect &place);

/// Whether both have the same pixels outside `hidden`, which is relative to their top left corner.
bool same_pixels(QImage seen, QImage expected, const QRegion &hidden = QRegion());

/// Saves the whole screen and the expected picture beside the test program, as seen.png and
/// expected.png, so that a failure can be examined.
void keep_pictures(const QImage &expected);

/// Whether the condition becomes true within a second. Processes events meanwhile.
bool within_a_second(const std::function<bool()> &condition);
