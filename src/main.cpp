#include "MainWindow.h"
#include "language_setting.h"
#include "orv/application_common.h"
#include "program_setup.h"

int main(int argc, char **argv)
{
    name_time_zone();
    set_identity();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    // Nothing here is drawn with OpenGL; its drivers would double the memory.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets, true);
    orv::application<MainWindow> application(argc, argv);
    install_style();
    install_icons();
    install_translators(language_setting("lang"));

    MainWindow window(nullptr);
    application.main_window = &window;
    window.show();
    return QApplication::exec();
}
