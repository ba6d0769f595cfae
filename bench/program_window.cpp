// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_window.h"

#include "orv/lineedit.h"
#include "readings.h"
#include "startup/program_setup.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>

namespace
{

/// Returns `argc` after doing everything that must be done before the application object exists.
int &prepared(int &argc)
{
    prepare_application();
    return argc;
}

}  // namespace

program_window::program_window(int &argc, char **argv) : application(prepared(argc), argv)
{
    install_style();
    install_icons();
    install_translators("en");
    window = new MainWindow(nullptr);
    application.main_window = window;
    window->show();
    window->activateWindow();
    serve_events_for(500);
}

void program_window::enter_shift(const QString &unit, const QString &text)
{
    auto *field = window->findChild<orv::lineedit *>("lineedit_" + unit);
    if (!field)
        give_up("the window has no field for the shift");
    field->setText(text);
}

bool all_have_times(const table_data_model &model, int count)
{
    return model.files.size() == count &&
           std::all_of(model.files.begin(), model.files.end(), [&model](const QString &path) {
               return model.recording_time(path).isValid();
           });
}

void serve_events_for(int time_ms)
{
    QEventLoop loop;
    QTimer::singleShot(time_ms, &loop, &QEventLoop::quit);
    loop.exec();
}
