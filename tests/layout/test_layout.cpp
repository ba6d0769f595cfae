// SPDX-License-Identifier: GPL-3.0-or-later

#include "layout_screen.h"
#include "qor/qt/properties.h"
#include "widget_test_main.h"

#include <QPointer>

#include <limits>
#include <memory>
#include <optional>
#include <vector>

using qor::qt::cell;
using qor::qt::position;
using qor::qt::widget_cells;
namespace properties = qor::qt::properties;
using lines = std::vector<int>;
Q_DECLARE_METATYPE(lines)

namespace
{

/// Records where the cursor is when the watched widget gets another parent.
class cursor_at_adoption : public QObject
{
public:
    cursor_at_adoption(QWidget &watched, const qor::qt::layout &grid) : grid(grid)
    {
        watched.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ParentChange)
            seen = cursor_of(grid);
        return false;
    }

    const qor::qt::layout &grid;
    std::optional<QPoint> seen;
};

}  // namespace

class test_layout : public QObject
{
    Q_OBJECT

private slots:
    void starts_empty_data();
    void starts_empty();
    void positions_go_row_by_row_data();
    void positions_go_row_by_row();
    void cells_follow_each_other_data();
    void cells_follow_each_other();
    void added_widget_gets_the_layouts_parent();
    void added_widget_loses_its_parent_if_the_layout_has_none();
    void widget_gets_its_parent_before_its_position();
    void stored_cells_keep_their_addresses();
    void cell_without_a_widget_is_not_registered();
    void widget_added_twice_has_two_cells();
    void add_replaces_an_empty_cell();
    void add_sizes_its_lines_data();
    void add_sizes_its_lines();
    void add_at_uses_the_given_position();
    void add_at_replaces_the_old_cell();
    void add_at_keeps_the_line_sizes();
    void add_at_before_the_first_line_makes_none();
    void sub_layout_is_put_into_a_holder();
    void sub_layout_takes_several_lists();
};

void test_layout::starts_empty_data()
{
    QTest::addColumn<bool>("has_parent");
    QTest::addColumn<int>("wrap");
    QTest::addColumn<bool>("column_major");
    QTest::newRow("on a parent") << true << 2 << false;
    QTest::newRow("on a parent, down the columns") << true << 0 << true;
    QTest::newRow("without a parent") << false << 3 << true;
    QTest::newRow("without a parent, along the rows") << false << 1 << false;
}

void test_layout::starts_empty()
{
    QFETCH(bool, has_parent);
    QFETCH(int, wrap);
    QFETCH(bool, column_major);
    QWidget parent;
    const std::unique_ptr<qor::qt::layout> made(
        has_parent ? new qor::qt::layout(&parent, wrap, column_major)
                   : new qor::qt::layout(wrap, column_major));
    QCOMPARE(made->parentWidget(), has_parent ? &parent : nullptr);
    QCOMPARE(parent.layout(), has_parent ? made.get() : nullptr);
    QVERIFY(made->cells.empty());
    QVERIFY(made->row_heights.empty());
    QVERIFY(made->column_widths.empty());
    QCOMPARE(last_of(*made), QPoint(0, 0));
    QCOMPARE(cursor_of(*made), QPoint(0, 0));
    QCOMPARE(made->seen_width, -1);
    QCOMPARE(made->seen_height, -1);
    QCOMPARE(made->repeat_count, 0);
    QCOMPARE(made->column_major, column_major);
    QCOMPARE(made->wrap, wrap);
}

void test_layout::positions_go_row_by_row_data()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    QTest::addColumn<QPoint>("first");
    QTest::addColumn<QPoint>("second");
    QTest::newRow("left before right") << QPoint(1, 0) << QPoint(2, 0);
    QTest::newRow("upper before lower") << QPoint(0, 1) << QPoint(0, 2);
    QTest::newRow("row before column") << QPoint(5, 1) << QPoint(0, 2);
    QTest::newRow("negative column before the first") << QPoint(-1, 0) << QPoint(0, 0);
    QTest::newRow("negative column after the row above") << QPoint(9, 0) << QPoint(-1, 1);
    QTest::newRow("negative row before the first") << QPoint(5, -1) << QPoint(0, 0);
    QTest::newRow("ends of two rows") << QPoint(highest, 0) << QPoint(lowest, 1);
    QTest::newRow("outermost rows") << QPoint(0, lowest) << QPoint(highest, highest);
}

void test_layout::positions_go_row_by_row()
{
    QFETCH(QPoint, first);
    QFETCH(QPoint, second);
    const position one = {first.x(), first.y()};
    const position other = {second.x(), second.y()};
    QVERIFY(one < other);
    QVERIFY(!(other < one));
    QVERIFY(!(one < one));
}

void test_layout::cells_follow_each_other_data()
{
    QTest::addColumn<int>("wrap");
    QTest::addColumn<bool>("column_major");
    QTest::addColumn<QString>("cells");
    QTest::addColumn<QString>("grid");
    QTest::addColumn<QPoint>("last");
    QTest::addColumn<QPoint>("cursor");
    // clang-format off
    QTest::newRow("no wrap: one row")
        << 0 << false << "a b c" << "abc" << QPoint(2, 0) << QPoint(3, 0);
    QTest::newRow("no wrap: one column")
        << 0 << true << "a b c" << "a|b|c" << QPoint(0, 2) << QPoint(0, 3);
    QTest::newRow("wrap 1: list of rows")
        << 1 << false << "a b c" << "a|b|c" << QPoint(0, 2) << QPoint(0, 3);
    QTest::newRow("wrap 1: list of columns")
        << 1 << true << "a b c" << "abc" << QPoint(2, 0) << QPoint(3, 0);
    QTest::newRow("wrap 2 along the rows")
        << 2 << false << "a b c d e" << "ab|cd|e-" << QPoint(0, 2) << QPoint(1, 2);
    QTest::newRow("wrap 2 down the columns")
        << 2 << true << "a b c d e" << "ace|bd-" << QPoint(2, 0) << QPoint(2, 1);
    QTest::newRow("line full: cursor at the next one")
        << 2 << false << "a b" << "ab" << QPoint(1, 0) << QPoint(0, 1);

    QTest::newRow("a cell ends its row")
        << 0 << false << "a b* c d" << "ab|cd" << QPoint(1, 1) << QPoint(2, 1);
    QTest::newRow("a cell ends its column")
        << 0 << true << "a b* c d" << "ac|bd" << QPoint(1, 1) << QPoint(1, 2);
    QTest::newRow("the first cell ends its row")
        << 0 << false << "a* b" << "a|b" << QPoint(0, 1) << QPoint(1, 1);
    QTest::newRow("the last cell of a full row ends one row only")
        << 2 << false << "a b* c" << "ab|c-" << QPoint(0, 1) << QPoint(1, 1);
    QTest::newRow("the last cell of a full column ends one column only")
        << 2 << true << "a b* c" << "ac|b-" << QPoint(1, 0) << QPoint(1, 1);
    QTest::newRow("each cell ends its row")
        << 2 << false << "a* b* c*" << "a|b|c" << QPoint(0, 2) << QPoint(0, 3);

    QTest::newRow("columns added by a later row: missing after that add")
        << 0 << false << "a* b c" << "a-|bc" << QPoint(1, 1) << QPoint(2, 1);
    QTest::newRow("columns added by a later row: filled by the next add")
        << 0 << false << "a* b c d" << "a.-|bcd" << QPoint(2, 1) << QPoint(3, 1);
    QTest::newRow("no line grows: the grid is full")
        << 0 << false << "a b c* d e f" << "abc|def" << QPoint(2, 1) << QPoint(3, 1);

    QTest::newRow("column span fills the row")
        << 2 << false << "a2x1 b" << "a#|b-" << QPoint(0, 1) << QPoint(1, 1);
    QTest::newRow("column span: the cursor skips it")
        << 2 << false << "a2x1" << "a#" << QPoint(0, 0) << QPoint(0, 1);
    QTest::newRow("column span inside the row")
        << 3 << false << "a2x1 b" << "a#b" << QPoint(2, 0) << QPoint(0, 1);
    QTest::newRow("column span beyond the row")
        << 2 << false << "a b2x1 c" << "ab#|c--" << QPoint(0, 1) << QPoint(1, 1);
    QTest::newRow("row span")
        << 2 << false << "a1x2 b c" << "ab|#c" << QPoint(1, 1) << QPoint(0, 2);
    QTest::newRow("row span of several rows")
        << 2 << false << "a1x3 b c d e" << "ab|#c|#d|e-" << QPoint(0, 3) << QPoint(1, 3);
    QTest::newRow("both spans")
        << 3 << false << "a2x2 b c d" << "a#b|##c|d--" << QPoint(0, 2) << QPoint(1, 2);
    QTest::newRow("row span down the columns")
        << 2 << true << "a1x2 b" << "ab|#-" << QPoint(1, 0) << QPoint(1, 1);
    QTest::newRow("column span down the columns")
        << 2 << true << "a2x1 b c" << "a#|bc" << QPoint(1, 1) << QPoint(2, 0);
    QTest::newRow("span at a cell that ends its row")
        << 0 << false << "a2x2* b" << "a#-|##b" << QPoint(2, 1) << QPoint(3, 1);
    QTest::newRow("spans of nothing")
        << 0 << false << "a0x0 b" << "ab" << QPoint(1, 0) << QPoint(2, 0);
    QTest::newRow("negative spans")
        << 0 << false << "a-2x-2 b" << "ab" << QPoint(1, 0) << QPoint(2, 0);
    QTest::newRow("column span of nothing covers no row either")
        << 1 << false << "a0x2 b" << "a|b" << QPoint(0, 1) << QPoint(0, 2);

    QTest::newRow("a cell without widget takes its place")
        << 0 << false << "a _ b" << "a.b" << QPoint(2, 0) << QPoint(3, 0);
    QTest::newRow("a cell without widget spans too")
        << 0 << false << "_2x1 b" << ".#b" << QPoint(2, 0) << QPoint(3, 0);
    QTest::newRow("a cell without widget ends its row")
        << 0 << false << "a _* b" << "a.|b-" << QPoint(0, 1) << QPoint(1, 1);
    // clang-format on
}

void test_layout::cells_follow_each_other()
{
    QFETCH(int, wrap);
    QFETCH(bool, column_major);
    QFETCH(QString, cells);
    layout_screen screen(wrap, column_major);
    add_described(*screen.grid, cells);
    QTEST(drawn(*screen.grid), "grid");
    QTEST(last_of(*screen.grid), "last");
    QTEST(cursor_of(*screen.grid), "cursor");
}

void test_layout::added_widget_gets_the_layouts_parent()
{
    layout_screen screen(0);
    QWidget elsewhere;
    add_described(*screen.grid, "a b");
    cell third = named_cell("c");
    third.content->setParent(&elsewhere);
    third.shift_x = 7;
    screen.grid->add(third);

    const cell &stored = screen.grid->cells.at({2, 0});
    QCOMPARE(stored.content, third.content);
    QCOMPARE(stored.content->parentWidget(), &screen.parent);
    QCOMPARE(stored.background_widget(), third.background_widget());
    QVERIFY(!stored.background_widget()->parent());
    QCOMPARE(stored.owner, screen.grid);
    QCOMPARE(stored.column, 2);
    QCOMPARE(stored.row, 0);
    QCOMPARE(stored.shift_x, 7);
    QCOMPARE(widget_cells.at(stored.content), &stored);
    QVERIFY(!third.owner);
    QCOMPARE(third.column, 0);
}

void test_layout::added_widget_loses_its_parent_if_the_layout_has_none()
{
    QWidget elsewhere;
    auto *widget = new QWidget(&elsewhere);
    qor::qt::layout parentless(1, false);
    parentless.add(cell(widget));
    const std::unique_ptr<QWidget> nobodys(widget);
    QVERIFY(!widget->parent());
    QCOMPARE(parentless.cells.at({0, 0}).content, widget);
}

void test_layout::widget_gets_its_parent_before_its_position()
{
    layout_screen screen(0);
    screen.grid->add_at(named_cell("a"), 0, 0, false);
    const cell second = named_cell("b");
    const cursor_at_adoption cursor(*second.content, *screen.grid);
    screen.grid->add(second);
    QCOMPARE(drawn(*screen.grid), QString("ab"));
    QVERIFY(cursor.seen);
    QCOMPARE(*cursor.seen, QPoint(0, 0));
}

void test_layout::stored_cells_keep_their_addresses()
{
    layout_screen screen(3);
    add_described(*screen.grid, "a b");
    const cell *first = &screen.grid->cells.at({0, 0});
    add_described(*screen.grid, "c d2x2 e f");
    QCOMPARE(&screen.grid->cells.at({0, 0}), first);
    for (const auto &[place, each] : screen.grid->cells) {
        if (each.content)
            QCOMPARE(widget_cells.at(each.content), &each);
    }
}

void test_layout::cell_without_a_widget_is_not_registered()
{
    layout_screen screen(2);
    const std::size_t registered = widget_cells.size();
    add_described(*screen.grid, "_2x2 _");
    QCOMPARE(widget_cells.size(), registered);
    QCOMPARE(widget_cells.count(nullptr), std::size_t(0));
}

void test_layout::widget_added_twice_has_two_cells()
{
    layout_screen screen(0);
    const cell twice = named_cell("a");
    screen.grid->add(twice);
    screen.grid->add(twice);
    QCOMPARE(drawn(*screen.grid), QString("aa"));
    QCOMPARE(screen.grid->count(), 2);
    QCOMPARE(widget_cells.at(twice.content), &screen.grid->cells.at({1, 0}));
}

void test_layout::add_replaces_an_empty_cell()
{
    layout_screen screen(0);
    screen.grid->add_at(named_cell("z"), 1, 1, false);
    screen.grid->add_at(named_cell("y"), 1, 0, false);
    QCOMPARE(drawn(*screen.grid), QString(".y|.z"));
    const QWidget *replaced = screen.grid->cells.at({0, 0}).background_widget();
    const cell added = named_cell("a");
    screen.grid->add(added);
    QCOMPARE(drawn(*screen.grid), QString("ay|.z"));
    QCOMPARE(screen.grid->cells.at({0, 0}).background_widget(), added.background_widget());
    QVERIFY(added.background_widget() != replaced);
}

void test_layout::add_sizes_its_lines_data()
{
    QTest::addColumn<QVector<QSize>>("sizes");
    QTest::addColumn<lines>("column_widths");
    QTest::addColumn<lines>("row_heights");
    using sizes = QVector<QSize>;
    // clang-format off
    QTest::newRow("not set") << sizes{{-1, -1}} << lines{0} << lines{0};
    QTest::newRow("nothing") << sizes{{0, 0}} << lines{0} << lines{0};
    QTest::newRow("width alone") << sizes{{70, -1}} << lines{70} << lines{0};
    QTest::newRow("height alone") << sizes{{-1, 30}} << lines{0} << lines{30};
    QTest::newRow("one line each") << sizes{{70, 30}, {80, -1}, {-1, 40}}
                                 << lines{70, 80} << lines{30, 40};
    QTest::newRow("a later cell of the line wins") << sizes{{70, 30}, {80, 31}, {71, 40}}
                                                   << lines{71, 80} << lines{31, 40};
    QTest::newRow("a later cell without a wish doesn't") << sizes{{70, 30}, {-1, 0}, {0, -1}}
                                                         << lines{70, 0} << lines{30, 0};
    // clang-format on
}

void test_layout::add_sizes_its_lines()
{
    QFETCH(QVector<QSize>, sizes);
    layout_screen screen(2);
    for (const QSize &size : sizes) {
        cell sized = named_cell("a");
        sized.column_width = size.width();
        sized.row_height = size.height();
        screen.grid->add(sized);
    }
    QTEST(screen.grid->column_widths, "column_widths");
    QTEST(screen.grid->row_heights, "row_heights");
}

void test_layout::add_at_uses_the_given_position()
{
    layout_screen screen(2);
    add_described(*screen.grid, "a");
    QWidget elsewhere;
    const cell placed = named_cell("z");
    placed.content->setParent(&elsewhere);
    screen.grid->add_at(placed, 3, 2, true);

    const cell &stored = screen.grid->cells.at({3, 2});
    QCOMPARE(stored.content, placed.content);
    QCOMPARE(stored.content->parentWidget(), &screen.parent);
    QCOMPARE(stored.owner, screen.grid);
    QCOMPARE(stored.column, 3);
    QCOMPARE(stored.row, 2);
    QCOMPARE(widget_cells.at(placed.content), &stored);
    QCOMPARE(last_of(*screen.grid), QPoint(3, 2));
    QCOMPARE(cursor_of(*screen.grid), QPoint(1, 0));
    QCOMPARE(screen.grid->column_widths, lines({0, 0, 0, 0}));
    QCOMPARE(screen.grid->row_heights, lines({0, 0, 0}));
}

void test_layout::add_at_replaces_the_old_cell()
{
    layout_screen screen(0);
    add_described(*screen.grid, "a b c");
    const QPointer<QWidget> replaced = screen.grid->cells.at({1, 0}).content;
    screen.grid->add_at(named_cell("z"), 1, 0, false);
    QCOMPARE(drawn(*screen.grid), QString("azc"));
    QCOMPARE(screen.grid->count(), 3);
    QCOMPARE(last_of(*screen.grid), QPoint(1, 0));
    QCOMPARE(cursor_of(*screen.grid), QPoint(3, 0));
    QVERIFY(replaced);
    QCOMPARE(replaced->parentWidget(), &screen.parent);
}

void test_layout::add_at_keeps_the_line_sizes()
{
    layout_screen screen(0);
    cell sized = named_cell("a");
    sized.column_width = 70;
    sized.row_height = 30;
    sized.new_line = true;
    screen.grid->add_at(sized, 0, 0, false);
    QCOMPARE(screen.grid->column_widths, lines({0}));
    QCOMPARE(screen.grid->row_heights, lines({0}));
    QCOMPARE(cursor_of(*screen.grid), QPoint(0, 0));
}

void test_layout::add_at_before_the_first_line_makes_none()
{
    layout_screen screen(0);
    add_described(*screen.grid, "a");
    screen.grid->add_at(named_cell("z"), -1, -2, false);
    QCOMPARE(screen.grid->cells.at({-1, -2}).content->objectName(), QString("z"));
    QCOMPARE(screen.grid->cells.at({-1, -2}).row, -2);
    QCOMPARE(last_of(*screen.grid), QPoint(-1, -2));
    QCOMPARE(drawn(*screen.grid), QString("a"));
    QCOMPARE(screen.grid->count(), 2);
}

void test_layout::sub_layout_is_put_into_a_holder()
{
    layout_screen screen(0);
    auto *inner = new qor::qt::layout(1, false);
    add_described(*screen.grid, "a");
    screen.grid->add(
        inner, {properties::row_height(30), properties::column_width(70), properties::shift_x(5)});
    const cell &holder = screen.grid->cells.at({1, 0});
    QVERIFY(holder.content);
    QCOMPARE(holder.content->layout(), inner);
    QCOMPARE(holder.content->metaObject(), &QWidget::staticMetaObject);
    QCOMPARE(holder.content->parentWidget(), &screen.parent);
    QCOMPARE(inner->parentWidget(), holder.content);
    QCOMPARE(holder.shift_x, 5);
    QCOMPARE(screen.grid->column_widths, lines({0, 70}));
    QCOMPARE(screen.grid->row_heights, lines({30}));
    QCOMPARE(widget_cells.at(holder.content), &holder);
    QCOMPARE(cursor_of(*screen.grid), QPoint(2, 0));
}

void test_layout::sub_layout_takes_several_lists()
{
    layout_screen screen(2);
    screen.grid->add(new qor::qt::layout(1, false));
    const qor::property_list narrower = {properties::width(30)};
    screen.grid->add(new QHBoxLayout, {properties::size(50, 20)}, narrower);
    const cell &plain = screen.grid->cells.at({0, 0});
    QVERIFY(plain.content);
    QCOMPARE(plain.width, -1.0f);
    const cell &with_properties = screen.grid->cells.at({1, 0});
    QCOMPARE(with_properties.width, 30.0f);
    QCOMPARE(with_properties.height, 20.0f);
}

KELVRA_WIDGET_TEST_MAIN(test_layout)
#include "test_layout.moc"
