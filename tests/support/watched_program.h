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

/// The program in a separate process, with a tool that can be held at any photo, and checks of what
/// the screen shows meanwhile.
class watched_program
{
public:
    /// Makes a folder of this name with `count` photos like the expected ones. Returns its path.
    QString make_photos(const QString &folder, int count);

    /// @param steps  what the program does on its own, see inside_driver.cpp
    void start(const QString &steps);
    bool wait_until_ended() { return program->wait_until_ended(); }

    /// Waits for the tool to be held at this request; false if it takes too long.
    bool waits_at(int request) const;

    /// Whether the screen shows, within a second, the expected main window with this progress
    /// dialog over it. Saves pictures if it doesn't.
    bool shows(expected_screens &expected, const QImage &progress) const;

    /// The paths that the tool was asked to read, in order.
    QStringList read_paths() const;

    QString main_window() const { return window_with_title("Kelvra"); }

    scripted_tool tool;

private:
    const QTemporaryDir folder;
    std::unique_ptr<isolated_program> run;
    std::unique_ptr<running_program> program;
};
