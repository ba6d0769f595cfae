// SPDX-License-Identifier: GPL-3.0-or-later

#include "layout_screen.h"
#include "widget_test_main.h"

#include <QPointer>

using qor::qt::cell;

class test_layout_filling : public QObject
{
    Q_OBJECT

private slots:
    void add_at_fills_the_grid_by_default_data();
    void add_at_fills_the_grid_by_default();
    void span_covers_existing_cells();
    void covered_cells_of_a_run_share_a_background();
    void covered_cells_have_their_position();
    void empty_cells_have_their_own_backgrounds();
    void each_fill_makes_its_backgrounds_data();
    void each_fill_makes_its_backgrounds();
};

void test_layout_filling::add_at_fills_the_grid_by_default_data()
{
    QTest::addColumn<bool>("skip_fill");
    QTest::addColumn<QString>("grid");
    QTest::newRow("filled") << false << "a#.|bz#";
    QTest::newRow("left with gaps") << true << "a#-|bz-";
}

// The new cell spans a column that the layout got from an earlier call.
void test_layout_filling::add_at_fills_the_grid_by_default()
{
    QFETCH(bool, skip_fill);
    layout_screen screen(0);
    add_described(*screen.grid, "a2x1* b");
    screen.grid->column_width(2) = 5;
    cell placed = named_cell("z");
    placed.column_span = 2;
    screen.grid->add_at(placed, 1, 1, skip_fill);
    QTEST(drawn(*screen.grid), "grid");
    QCOMPARE(last_of(*screen.grid), QPoint(1, 1));
}

void test_layout_filling::span_covers_existing_cells()
{
    layout_screen screen(0);
    add_described(*screen.grid, "a b c* d e f");
    const QPointer<QWidget> covered = screen.grid->cells.at({1, 1}).content;
    cell wide = named_cell("z");
    wide.column_span = 2;
    wide.row_span = 2;
    screen.grid->add_at(wide, 0, 0, false);
    QCOMPARE(drawn(*screen.grid), QString("z#c|##f"));
    QVERIFY(covered);
    QCOMPARE(covered->parentWidget(), &screen.parent);
}

void test_layout_filling::covered_cells_of_a_run_share_a_background()
{
    layout_screen screen(3);
    add_described(*screen.grid, "a3x2");
    const auto background_at = [&](int column, int row) {
        return screen.grid->cells.at({column, row}).background_widget();
    };
    const QWidget *first_run = background_at(1, 0);
    QVERIFY(first_run);
    QVERIFY(first_run != background_at(0, 0));
    for (const QPoint &place : {QPoint(2, 0), QPoint(0, 1), QPoint(1, 1), QPoint(2, 1)})
        QCOMPARE(background_at(place.x(), place.y()), first_run);

    add_described(*screen.grid, "b2x1");
    const QWidget *second_run = background_at(1, 0);
    QVERIFY(second_run != first_run);
    QCOMPARE(background_at(2, 1), second_run);
    QCOMPARE(background_at(1, 2), second_run);
}

void test_layout_filling::covered_cells_have_their_position()
{
    layout_screen screen(0);
    add_described(*screen.grid, "a b2x3");
    const cell &covered = screen.grid->cells.at({2, 1});
    QVERIFY(covered.spanned);
    QVERIFY(!covered.content);
    QCOMPARE(covered.column, 2);
    QCOMPARE(covered.row, 1);
    QCOMPARE(covered.owner, screen.grid);
    QCOMPARE(covered.column_span, 1);
    QCOMPARE(covered.row_span, 1);
}

void test_layout_filling::empty_cells_have_their_own_backgrounds()
{
    layout_screen screen(0);
    screen.grid->add_at(named_cell("z"), 1, 1, false);
    QCOMPARE(drawn(*screen.grid), QString("--|-z"));
    add_described(*screen.grid, "a");
    QCOMPARE(drawn(*screen.grid), QString("a.|.z"));
    QSet<QWidget *> backgrounds;
    for (const auto &[place, each] : screen.grid->cells) {
        backgrounds.insert(each.background_widget());
        QCOMPARE(each.owner, screen.grid);
        QCOMPARE(each.row, place.row);
        QCOMPARE(each.column, place.column);
        QVERIFY(!each.spanned);
    }
    QCOMPARE(backgrounds.size(), 4);
}

void test_layout_filling::each_fill_makes_its_backgrounds_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("made");
    // Each run makes one background for its covered cells, and one for each existing position.
    QTest::newRow("no lines yet") << "" << 1;
    QTest::newRow("one position") << "a" << 1 + 1;
    QTest::newRow("full lines") << "a b* c d" << 1 + 4;
    QTest::newRow("spans count once") << "a2x2" << 1 + 4;
    QTest::newRow("a gap is another run") << "a* b c" << 1 + 4 + (1 + 4);
    QTest::newRow("the second gap is a run in the run") << "a* b* c d" << 1 + 6 + 2 * (1 + 6);
}

void test_layout_filling::each_fill_makes_its_backgrounds()
{
    QFETCH(QString, before);
    QFETCH(int, made);
    layout_screen screen(0);
    if (!before.isEmpty())
        add_described(*screen.grid, before);
    const cell added = named_cell("z");
    const int widgets = QApplication::allWidgets().size();
    screen.grid->add(added);
    QCOMPARE(QApplication::allWidgets().size() - widgets, made);
}

KELVRA_WIDGET_TEST_MAIN(test_layout_filling)
#include "test_layout_filling.moc"
