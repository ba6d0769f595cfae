// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTableView>

/// The view of the photo table. When a row is inserted, only that row is repainted.
///
/// A plain QTableView redoes its whole layout and repaints completely for each row; during a load
/// that costs as much time as the metadata tool takes for a photo. Everything else that depends on
/// the number of rows, such as the step of the scroll bar, is updated at the next layout change,
/// which is the sort after a load.
///
/// It has no Q_OBJECT on purpose: to Qt and to style sheets it is the QTableView that it replaces.
class photo_table : public QTableView
{
public:
    explicit photo_table(QWidget *parent);

    /// Requires: the model adds rows only at the end, and removes them only all at once.
    void setModel(QAbstractItemModel *model) override;

protected:
    void rowsInserted(const QModelIndex &parent, int first, int last) override;

private:
    void carry_out_layouts();
};
