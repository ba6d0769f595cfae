// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "orv/application_common.h"
#include "startup/language_setting.h"
#include "startup/program_setup.h"

int main(int argc, char **argv)
{
    prepare_application();
    orv::application<MainWindow> application(argc, argv);
    install_style();
    install_icons();
    install_translators(language_setting(language_key));

    MainWindow window(nullptr);
    application.main_window = &window;
    window.show();
    return QApplication::exec();
}
