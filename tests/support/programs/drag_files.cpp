// SPDX-License-Identifier: GPL-3.0-or-later
//
// Drags files with the mouse and drops them at a place on the screen, as from a file manager.
//
// usage: drag_files X Y PATH...
//
// Ends with status 0 if they were accepted, and 1 if not.

#include "drag_source.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    drag_source files(arguments.mid(3));
    files.drag_to(QPoint(arguments.value(1).toInt(), arguments.value(2).toInt()));
    return files.taken ? 0 : 1;
}
