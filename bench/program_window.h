// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "MainWindow.h"
#include "orv/application_common.h"
#include "table_data_model.h"

#include <QString>
#include <QStringList>

/// The program's window on the screen, set up as in the program. The settings are those of the
/// current environment.
class program_window
{
public:
    program_window(int &argc, char **argv);

    /// Enters a shift in the window's field for this unit, such as "hour".
    void enter_shift(const QString &unit, const QString &text);

    orv::application<MainWindow> application;
    MainWindow *window = nullptr;  ///< lives until the process ends
};

/// Whether the table has `count` rows, each with a recording time.
bool all_have_times(const table_data_model &model, int count);

/// Processes events for this long.
void serve_events_for(int time_ms);
