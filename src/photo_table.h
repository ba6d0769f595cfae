// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTableView>

/// The view of the photo table: repaints only the new row when one is inserted.
///
/// A plain QTableView lays itself out and paints all of itself for each row, which in a load costs
/// as much time as the metadata tool takes for a photo. What else hangs on the number of rows, such
/// as the step of the scroll bar, follows with the next change of the layout, the sort after a
/// load.
///
/// Without Q_OBJECT on purpose: to Qt and to style sheets it is the QTableView that it replaces.
class photo_table : public QTableView
{
public:
    explicit photo_table(QWidget *parent);

    /// Requires: rows come in at the end alone, and leave all at once.
    void setModel(QAbstractItemModel *model) override;

protected:
    void rowsInserted(const QModelIndex &parent, int first, int last) override;

private:
    void carry_out_layouts();
};
