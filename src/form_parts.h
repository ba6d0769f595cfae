// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

class QGridLayout;

// What the forms are built from.

/// A new child of `parent`. Its object name is the name of the form's field, by which slots are
/// connected.
template <class Widget = QWidget>
Widget *add_widget(QWidget *parent, const QString &name)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(name);
    return widget;
}

/// The new layout of `widget`: a grid with this object name and without margins.
QGridLayout *add_grid(QWidget *widget, const QString &name);

/// The same without spacing between its cells.
QGridLayout *add_tight_grid(QWidget *widget, const QString &name);
