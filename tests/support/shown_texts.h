// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QList>
#include <QRect>
#include <QString>

class QHeaderView;
class QWidget;

/// A text as shown on the screen.
struct shown_text {
    QString text;  ///< without markup
    QFont font;
    QSize needed;  ///< the space that the text takes in its room, by the metrics of its font
    QRect room;    ///< the space that its widget has for it, in the widget's own pixels
    const QWidget *widget;
};

/// The texts of the visible labels, buttons, combo boxes, input lines and progress bars of a
/// screen, including the screen itself.
QList<shown_text> shown_texts(const QWidget &screen);

/// The texts of the cells in the visible tables and lists of a screen.
QList<shown_text> shown_cells(const QWidget &screen);

/// The titles of a table's columns. Their room ends where the sort arrow begins.
/// @param sorted_section  the column that has the arrow
QList<shown_text> shown_titles(const QHeaderView &header, int sorted_section);
