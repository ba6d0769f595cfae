// SPDX-License-Identifier: GPL-3.0-or-later

#include "layout_screen.h"
#include "widget_test_main.h"

using qor::qt::cell;

class test_layout_grid : public QObject
{
    Q_OBJECT

private slots:
    void first_column_width_applies_only_to_its_cell();
    void both_axes_are_placed_together();
    void rows_are_placed_below_each_other();
    void empty_cell_takes_no_room_in_its_row();
    void covered_cell_takes_no_room_in_its_row();
    void row_without_a_widget_takes_its_height();
    void cells_before_the_first_line_stay();
    void alignment_has_no_effect();
};

void test_layout_grid::first_column_width_applies_only_to_its_cell()
{
    layout_screen screen(QSize(300, 100));
    cell wide;
    wide.column_span = 2;
    wide.first_column_width = 90;
    const QWidget *spanning = screen.add(wide).content;
    cell next;
    next.new_line = true;
    const QWidget *following = screen.add(next).content;
    const QWidget *below = screen.add().content;
    const QWidget *second_below = screen.add().content;
    cell narrow;
    narrow.first_column_width = -5;
    const QWidget *third_below = screen.add(narrow).content;
    screen.grid->column_widths = {50, 60, 70};
    screen.grid->row_heights = {20, 30};
    screen.pass();
    QCOMPARE(spanning->geometry(), QRect(0, 0, 150, 20));
    QCOMPARE(following->geometry(), QRect(150, 0, 70, 20));
    QCOMPARE(below->geometry(), QRect(0, 20, 50, 30));
    QCOMPARE(second_below->geometry(), QRect(50, 20, 60, 30));
    QCOMPARE(third_below->geometry(), QRect(110, 20, 70, 30));
}

void test_layout_grid::both_axes_are_placed_together()
{
    layout_screen screen(QSize(300, 200));
    cell wishes;
    wishes.width = 100;
    wishes.margin_right = 11;
    wishes.margin_top = 12;
    wishes.padding_left = 1;
    wishes.padding_right = 2;
    wishes.padding_top = 3;
    wishes.padding_bottom = 4;
    wishes.shift_x = 5;
    wishes.shift_y = 6;
    const cell &tested = screen.add(wishes);
    screen.pass();
    QCOMPARE(tested.content->geometry(), QRect(194, 21, 100, 181));
    QCOMPARE(tested.background_widget()->geometry(), QRect(188, 12, 103, 188));
}

void test_layout_grid::rows_are_placed_below_each_other()
{
    layout_screen screen(QSize(301, 201), 2);
    QVector<QWidget *> widgets;
    for (int i = 0; i < 6; ++i)
        widgets << screen.add().content;
    screen.grid->column_widths = {100, 0};
    screen.grid->row_heights = {0, 50, 0};
    screen.pass();
    QCOMPARE(widgets[0]->geometry(), QRect(0, 0, 100, 75));
    QCOMPARE(widgets[1]->geometry(), QRect(100, 0, 201, 75));
    QCOMPARE(widgets[2]->geometry(), QRect(0, 75, 100, 50));
    QCOMPARE(widgets[3]->geometry(), QRect(100, 75, 201, 50));
    QCOMPARE(widgets[4]->geometry(), QRect(0, 125, 100, 75));
    QCOMPARE(widgets[5]->geometry(), QRect(100, 125, 201, 75));
}

void test_layout_grid::empty_cell_takes_no_room_in_its_row()
{
    layout_screen screen(QSize(300, 40));
    screen.add();
    const cell &empty = screen.add_as_is(cell());
    const QWidget *last = screen.add().content;
    screen.grid->column_widths = {50, 60, 70};
    screen.pass();
    QCOMPARE(empty.background_widget()->geometry(), QRect(50, 0, 60, 40));
    QCOMPARE(last->geometry(), QRect(50, 0, 70, 40));
}

void test_layout_grid::covered_cell_takes_no_room_in_its_row()
{
    layout_screen screen(QSize(300, 100), 3);
    cell tall;
    tall.row_span = 2;
    const QWidget *spanning = screen.add(tall).content;
    screen.add();
    screen.add();
    const QWidget *beside = screen.add().content;
    screen.grid->column_widths = {50, 60, 70};
    screen.grid->row_heights = {20, 30};
    screen.pass();
    QVERIFY(screen.grid->cells.at({0, 1}).spanned);
    QCOMPARE(spanning->geometry(), QRect(0, 0, 50, 50));
    QCOMPARE(beside->geometry(), QRect(0, 20, 60, 30));
}

void test_layout_grid::row_without_a_widget_takes_its_height()
{
    layout_screen screen(QSize(300, 100), 1);
    screen.add_as_is(cell());
    const QWidget *second = screen.add().content;
    screen.add_as_is(cell());
    const QWidget *last = screen.add().content;
    screen.grid->row_heights = {0, 20, 30, 0};
    screen.pass();
    QCOMPARE(second->geometry(), QRect(0, 25, 300, 20));
    QCOMPARE(last->geometry(), QRect(0, 75, 300, 25));
}

void test_layout_grid::cells_before_the_first_line_stay()
{
    layout_screen screen(QSize(300, 100));
    screen.add();
    cell outside(new QWidget);
    outside.content->setGeometry(1, 2, 3, 4);
    screen.grid->add_at(outside, -1, 0, true);
    screen.pass();
    QCOMPARE(outside.content->geometry(), QRect(1, 2, 3, 4));
    QVERIFY(!outside.background_widget()->parent());
}

void test_layout_grid::alignment_has_no_effect()
{
    layout_screen screen(QSize(300, 100));
    cell aligned;
    aligned.setAlignment(Qt::AlignRight | Qt::AlignBottom);
    aligned.width = 100;
    const cell &stored = screen.add(aligned);
    screen.pass();
    QCOMPARE(stored.alignment(), Qt::AlignRight | Qt::AlignBottom);
    QCOMPARE(stored.content->geometry(), QRect(100, 0, 100, 100));
}

KELVRA_WIDGET_TEST_MAIN(test_layout_grid)
#include "test_layout_grid.moc"
