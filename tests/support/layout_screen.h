// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/qt/layout.h"

#include <QStringList>
#include <QWidget>

#include <vector>

/// A layout of the kit on a parent that only the test shows, so that only the test runs the
/// geometry pass.
struct layout_screen {
    explicit layout_screen(int wrap = 1, bool column_major = false)
        : grid(new qor::qt::layout(&parent, wrap, column_major))
    {
    }

    explicit layout_screen(QSize size, int wrap = 0, bool column_major = false)
        : layout_screen(wrap, column_major)
    {
        parent.resize(size);
    }

    /// Adds a copy of the cell with a new widget. Returns the stored cell.
    qor::qt::cell &add(const qor::qt::cell &wishes = qor::qt::cell())
    {
        qor::qt::cell made = wishes;
        made.content = new QWidget;
        return add_as_is(made);
    }

    qor::qt::cell &add_as_is(const qor::qt::cell &made)
    {
        grid->add(made);
        return grid->cells.at({grid->last_column, grid->last_row});
    }

    /// The rectangle is wrong on purpose.
    void pass() { grid->setGeometry(QRect(9, 9, 9, 9)); }

    QWidget parent;
    qor::qt::layout *grid;
};

/// A cell with a widget of this name. The widget has no parent yet.
inline qor::qt::cell named_cell(const QString &name)
{
    auto *widget = new QWidget;
    widget->setObjectName(name);
    return qor::qt::cell(widget);
}

/// The cell that `text` describes: a letter, the name of its widget, or "_" for none; then its
/// spans, as in "a2x1" for two columns and one row; then "*" if it ends its line.
inline qor::qt::cell described_cell(QString text)
{
    const QString name = text.left(1);
    qor::qt::cell made = name == "_" ? qor::qt::cell() : named_cell(name);
    made.new_line = text.endsWith('*');
    const QStringList spans = text.remove('*').mid(1).split('x');
    if (spans.size() == 2) {
        made.column_span = spans[0].toInt();
        made.row_span = spans[1].toInt();
    }
    return made;
}

/// Adds the cells that `text` describes, separated by spaces.
inline void add_described(qor::qt::layout &grid, const QString &text)
{
    for (const QString &cell : text.split(' '))
        grid.add(described_cell(cell));
}

inline QChar drawn(const qor::qt::layout &grid, qor::qt::position place)
{
    const auto found = grid.cells.find(place);
    if (found == grid.cells.end())
        return '-';
    if (found->second.content)
        return found->second.content->objectName()[0];
    return found->second.spanned ? '#' : '.';
}

/// The rows from the top, separated by bars: the widgets by name, "#" where a span covers the
/// position, "." for an empty cell, "-" where there is no cell.
inline QString drawn(const qor::qt::layout &grid)
{
    QStringList rows;
    for (int row = 0; row < static_cast<int>(grid.row_heights.size()); ++row) {
        QString line;
        for (int column = 0; column < static_cast<int>(grid.column_widths.size()); ++column)
            line += drawn(grid, {column, row});
        rows << line;
    }
    return rows.join('|');
}

/// Column and row of the last cell and of the cursor.
inline QPoint last_of(const qor::qt::layout &grid)
{
    return {grid.last_column, grid.last_row};
}

inline QPoint cursor_of(const qor::qt::layout &grid)
{
    return {grid.cursor_column, grid.cursor_row};
}
