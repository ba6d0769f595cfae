// SPDX-License-Identifier: GPL-3.0-or-later

#include "painted_part.h"
#include "photo_table.h"
#include "program_test_main.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QStringListModel>

#include <memory>

namespace
{

constexpr int short_list = 3;
constexpr int long_list = 2000;

/// A timer's event can post an update, so one pass isn't enough.
void handle_events()
{
    for (int pass = 0; pass < 3; ++pass)
        QCoreApplication::processEvents();
}

}  // namespace

/// What is painted of the table when its rows change.
class test_photo_table : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { table.reset(); }

    void new_row_is_painted_alone();
    void new_row_can_be_scrolled_to();
    void new_row_of_a_long_list_leaves_the_scroll_bar_unpainted();
    void sort_leaves_the_header_unpainted();
    void emptied_list_is_painted_empty();
    void emptied_list_can_be_filled_again();
    void table_can_be_painted_while_a_row_is_inserted();

private:
    void list(int count);
    void add_row();

    QStringListModel model;
    std::unique_ptr<photo_table> table;
};

void test_photo_table::init()
{
    model.setStringList({});
    table = std::make_unique<photo_table>(nullptr);
    table->setModel(&model);
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->show();
    QVERIFY(QTest::qWaitForWindowExposed(table.get()));
}

/// Adds this many rows, sorts them as a load does at its end, and scrolls to the last.
void test_photo_table::list(int count)
{
    model.insertRows(0, count);
    model.sort(0);
    handle_events();
    table->scrollToBottom();
    handle_events();
}

void test_photo_table::add_row()
{
    model.insertRow(model.rowCount());
    handle_events();
}

void test_photo_table::new_row_is_painted_alone()
{
    list(short_list);
    const painted_part painted(*table->viewport());
    add_row();
    const QRect row(0, table->rowViewportPosition(short_list), table->viewport()->width(),
                    table->rowHeight(short_list));
    QCOMPARE(painted.region, QRegion(row));
}

void test_photo_table::new_row_can_be_scrolled_to()
{
    list(long_list);
    const int hidden_before = table->verticalScrollBar()->maximum();
    add_row();
    QCOMPARE(table->verticalScrollBar()->maximum(), hidden_before + table->rowHeight(long_list));
}

void test_photo_table::new_row_of_a_long_list_leaves_the_scroll_bar_unpainted()
{
    list(long_list);
    const painted_part painted(*table->verticalScrollBar());
    add_row();
    QCOMPARE(painted.region, QRegion());
}

void test_photo_table::sort_leaves_the_header_unpainted()
{
    list(short_list);
    const painted_part rows(*table->viewport());
    const painted_part header(*table->horizontalHeader()->viewport());
    model.sort(0, Qt::DescendingOrder);
    handle_events();
    QCOMPARE(rows.region, QRegion(table->viewport()->rect()));
    QCOMPARE(header.region, QRegion());
}

void test_photo_table::emptied_list_is_painted_empty()
{
    list(long_list);
    const painted_part painted(*table->viewport());
    model.setStringList({});
    handle_events();
    QCOMPARE(painted.region, QRegion(table->viewport()->rect()));
    QCOMPARE(table->verticalScrollBar()->maximum(), 0);
}

void test_photo_table::emptied_list_can_be_filled_again()
{
    list(long_list);
    model.setStringList({});
    for (int row = 0; row < short_list; ++row)
        add_row();
    QCOMPARE(table->verticalScrollBar()->maximum(), 0);
    QCOMPARE(table->rowViewportPosition(0), 0);
    QCOMPARE(table->rowAt(0), 0);
}

/// The model reports the row to the first listener while the table doesn't know of it yet.
void test_photo_table::table_can_be_painted_while_a_row_is_inserted()
{
    const QObject first_listener;
    connect(&model, &QAbstractItemModel::rowsInserted, &first_listener, [this] { table->grab(); });
    table = std::make_unique<photo_table>(nullptr);
    table->setModel(&model);
    model.insertRow(0);
    model.sort(0);
    model.insertRow(1);
    QCOMPARE(table->verticalHeader()->count(), model.rowCount());
    QCOMPARE(table->verticalHeader()->length(), 2 * table->rowHeight(0));
}

KELVRA_PROGRAM_TEST_MAIN(test_photo_table)
#include "test_photo_table.moc"
