// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "fake_tool_window.h"
#include "german_catalogues.h"

#include <functional>
#include <memory>
#include <vector>

/// What a test does with a screen while it shows.
using screen_visit = std::function<void(QWidget &screen)>;

/// A screen of the program and how a user opens it.
struct program_screen {
    const char *name;

    /// Opens the screen from a new window, passes it to `visit` and closes it again. What is passed
    /// is the widget that the screen is about: a window, or a button in its state.
    void (*open)(fake_tool_window &app, const screen_visit &visit);
};

/// All screens of the program.
extern const std::vector<program_screen> program_screens;

/// Adds a row for each screen in each language, with the columns "language" ("en" or "de") and
/// "screen".
/// @param left_out  the name of a screen to skip, may be empty
void add_screen_rows(const QString &left_out = QString());

/// Like its `open`, for a screen that must appear: it is visible and painted when it is passed on.
void open_screen(const program_screen &screen, fake_tool_window &app, const screen_visit &visit);

/// Runs the program in one of its languages, with a new window, for its lifetime.
class language_run
{
public:
    /// @param language  "en" or "de"
    language_run(fake_tool_window &app, const QString &language);
    ~language_run() { app.end(); }

    language_run(const language_run &) = delete;
    language_run &operator=(const language_run &) = delete;

private:
    fake_tool_window &app;
    std::unique_ptr<german_catalogues> catalogues;
};

Q_DECLARE_METATYPE(program_screen)
