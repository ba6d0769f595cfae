// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "expected_screens.h"
#include "isolated_program.h"
#include "running_program.h"
#include "screen.h"
#include "scripted_tool.h"

#include <QDir>
#include <QImage>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// The program in a process of its own, with a tool that can be held at any photo, and what the
/// screen shows of it meanwhile.
class watched_program
{
public:
    /// A folder of this name with so many photos like the expected ones.
    QString make_photos(const QString &folder, int count);

    /// @param steps  what the program does by itself, see inside_driver.cpp
    void start(const QString &steps);
    bool wait_until_ended() { return program->wait_until_ended(); }

    /// Whether the tool is asked for this request.
    bool waits_at(int request) const;

    /// Whether the screen shows, within a second, the main window like this and a progress dialog
    /// like that over it. Keeps pictures if it doesn't.
    bool shows(expected_screens &expected, const QImage &progress) const;

    /// The paths that the tool was asked to read, in this order.
    QStringList read_paths() const;

    QString main_window() const { return window_with_title("Kelvra"); }

    scripted_tool tool;

private:
    const QTemporaryDir folder;
    std::unique_ptr<isolated_program> run;
    std::unique_ptr<running_program> program;
};
