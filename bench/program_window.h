// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "MainWindow.h"
#include "orv/application_common.h"
#include "table_data_model.h"

#include <QString>
#include <QStringList>

/// The program's window on the screen, set up as the program does it. The settings are those of the
/// environment.
class program_window
{
public:
    program_window(int &argc, char **argv);

    /// Puts a shift into the window's field of this unit ("hour").
    void enter_shift(const QString &unit, const QString &text);

    orv::application<MainWindow> application;
    MainWindow *window = nullptr;  ///< lives to the end of the process
};

/// Whether the table has so many rows, each with a recording time.
bool all_have_times(const table_data_model &model, int count);

/// Serves the events that come within this time.
void serve_events_for(int time_ms);
