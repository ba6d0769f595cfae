// SPDX-License-Identifier: GPL-3.0-or-later
//
// An empty window of the program's size: the least that a start costs with these libraries.

#include <QApplication>
#include <QWidget>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(800, 700);
    window.show();
    return QApplication::exec();
}
