// SPDX-License-Identifier: GPL-3.0-or-later

#include "photo_table.h"

#include "steady_scroll_bar.h"

#include <QHeaderView>

photo_table::photo_table(QWidget *parent) : QTableView(parent)
{
    setVerticalScrollBar(new steady_scroll_bar(Qt::Vertical));
    // The base class would redo its whole layout; `rowsInserted` does what a new row needs.
    disconnect(verticalHeader(), &QHeaderView::sectionCountChanged, this, nullptr);
    connect(verticalHeader(), &QHeaderView::sectionCountChanged, this, [this](int before, int now) {
        if (now < before)
            scheduleDelayedItemsLayout();
    });
}

void photo_table::setModel(QAbstractItemModel *model)
{
    QTableView::setModel(model);
    connect(model, &QAbstractItemModel::rowsAboutToBeInserted, this,
            &photo_table::carry_out_layouts);
    // A layout change only affects rows, so the header of the columns needn't be repainted.
    disconnect(model, &QAbstractItemModel::layoutAboutToBeChanged, horizontalHeader(), nullptr);
    disconnect(model, &QAbstractItemModel::layoutChanged, horizontalHeader(), nullptr);
}

void photo_table::rowsInserted(const QModelIndex &parent, int first, int last)
{
    QTableView::rowsInserted(parent, first, last);
    verticalScrollBar()->setRange(0, verticalHeader()->length() - viewport()->height());
    const int top = rowViewportPosition(first);
    const int bottom = rowViewportPosition(last) + rowHeight(last);
    viewport()->update(0, top, viewport()->width(), bottom - top);
}

/// The table can be painted while a row is being inserted. A layout postponed until then would
/// count the row, and the end of the insertion would count it again.
void photo_table::carry_out_layouts()
{
    executeDelayedItemsLayout();
    verticalHeader()->visualIndexAt(0);  // lays out the header too, as any query of a position does
}
