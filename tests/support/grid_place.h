// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QGridLayout>
#include <QVector>

/// Row, column, row span and column span of a widget in a grid.
inline QVector<int> place_in(QGridLayout *grid, QWidget *widget)
{
    int row = -1;
    int column = -1;
    int rows = -1;
    int columns = -1;
    grid->getItemPosition(grid->indexOf(widget), &row, &column, &rows, &columns);
    return {row, column, rows, columns};
}
