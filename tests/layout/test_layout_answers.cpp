// SPDX-License-Identifier: GPL-3.0-or-later

#include "failed_assertion.h"
#include "isolated_program.h"
#include "layout_screen.h"
#include "widget_test_main.h"

#include <QPointer>

#include <limits>
#include <vector>

using qor::qt::widget_cells;
using lines = std::vector<int>;
Q_DECLARE_METATYPE(lines)

namespace
{

constexpr int greatest = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

program_result misuse(const QString &way)
{
    return isolated_program(CRASH_PROBE_PROGRAM).run({"layout", way});
}

}  // namespace

class test_layout_answers : public QObject
{
    Q_OBJECT

private slots:
    void accessors_refer_to_the_entry();
    void negative_index_means_the_last_cell();
    void accessors_grow_the_lines();
    void sizes_are_sums_data();
    void sizes_are_sums();
    void items_are_the_cells_in_use();
    void items_go_row_by_row();
    void no_item_can_be_taken();
    void everything_else_is_as_in_qt();
    void foreign_item_ends_the_program_data();
    void foreign_item_ends_the_program();
    void last_line_of_an_empty_layout_ends_the_program_data();
    void last_line_of_an_empty_layout_ends_the_program();
    void deleting_the_layout_keeps_all_widgets();
};

void test_layout_answers::accessors_refer_to_the_entry()
{
    layout_screen screen(2);
    add_described(*screen.grid, "a b c d");
    screen.grid->row_height(0) = 30;
    screen.grid->row_height(1) = 40;
    screen.grid->column_width(0) = 70;
    screen.grid->column_width(1) = 80;
    QCOMPARE(screen.grid->row_heights, lines({30, 40}));
    QCOMPARE(screen.grid->column_widths, lines({70, 80}));
    QCOMPARE(screen.grid->row_height(1), 40);
    QCOMPARE(screen.grid->column_width(0), 70);
}

void test_layout_answers::negative_index_means_the_last_cell()
{
    layout_screen screen(2);
    add_described(*screen.grid, "a b c");
    screen.grid->row_height() = 40;
    screen.grid->column_width() = 70;
    QCOMPARE(screen.grid->row_heights, lines({0, 40}));
    QCOMPARE(screen.grid->column_widths, lines({70, 0}));
    screen.grid->add_at(named_cell("z"), 1, 0, false);
    screen.grid->row_height(-5) = 30;
    screen.grid->column_width(-1) = 80;
    QCOMPARE(screen.grid->row_heights, lines({30, 40}));
    QCOMPARE(screen.grid->column_widths, lines({70, 80}));
}

void test_layout_answers::accessors_grow_the_lines()
{
    layout_screen screen(2);
    QCOMPARE(screen.grid->row_height(0), 0);
    QCOMPARE(screen.grid->row_heights, lines({0}));
    QCOMPARE(screen.grid->column_widths, lines());
    screen.grid->row_height(2) = 30;
    screen.grid->column_width(3) = 70;
    QCOMPARE(screen.grid->row_heights, lines({0, 0, 30}));
    QCOMPARE(screen.grid->column_widths, lines({0, 0, 0, 70}));
    QCOMPARE(last_of(*screen.grid), QPoint(0, 0));
    QVERIFY(screen.grid->cells.empty());
}

void test_layout_answers::sizes_are_sums_data()
{
    QTest::addColumn<lines>("column_widths");
    QTest::addColumn<lines>("row_heights");
    QTest::addColumn<QSize>("minimum");
    QTest::addColumn<QSize>("hint");
    // clang-format off
    QTest::newRow("no lines") << lines{} << lines{} << QSize(0, 0) << QSize(0, 0);
    QTest::newRow("one automatic line each") << lines{0} << lines{0} << QSize(0, 0) << QSize(20, 20);
    QTest::newRow("one row, two columns") << lines{50, 0} << lines{0}
                                          << QSize(50, 0) << QSize(20, 70);
    QTest::newRow("all fixed") << lines{50, 60} << lines{7, 8, 9}
                               << QSize(110, 24) << QSize(24, 110);
    QTest::newRow("some automatic") << lines{0, 50, 0} << lines{7, 0}
                                    << QSize(50, 7) << QSize(27, 90);
    QTest::newRow("sums beyond an int end at its limits")
        << lines{greatest, 1} << lines{least, -1} << QSize(greatest, least) << QSize(least, greatest);
    QTest::newRow("sum of automatic lines too")
        << lines{greatest, 0} << lines{0, greatest} << QSize(greatest, greatest) << QSize(greatest, greatest);
    // clang-format on
}

void test_layout_answers::sizes_are_sums()
{
    QFETCH(lines, column_widths);
    QFETCH(lines, row_heights);
    layout_screen screen(2);
    screen.grid->column_widths = column_widths;
    screen.grid->row_heights = row_heights;
    QTEST(screen.grid->minimumSize(), "minimum");
    QTEST(screen.grid->sizeHint(), "hint");
}

void test_layout_answers::items_are_the_cells_in_use()
{
    layout_screen screen(0);
    QCOMPARE(screen.grid->count(), 0);
    QVERIFY(!screen.grid->itemAt(0));
    add_described(*screen.grid, "a _ b2x1* _ c");
    QCOMPARE(drawn(*screen.grid), QString("a.b#|.c.."));
    QCOMPARE(screen.grid->count(), 4);
    const QVector<QPoint> in_use = {{0, 0}, {2, 0}, {3, 0}, {1, 1}};
    for (int i = 0; i < in_use.size(); ++i)
        QCOMPARE(screen.grid->itemAt(i), &screen.grid->cells.at({in_use[i].x(), in_use[i].y()}));
    QVERIFY(!screen.grid->itemAt(-1));
    QVERIFY(!screen.grid->itemAt(4));
    QVERIFY(!screen.grid->itemAt(greatest));
    QVERIFY(!screen.grid->itemAt(least));
}

void test_layout_answers::items_go_row_by_row()
{
    layout_screen screen(2, true);
    add_described(*screen.grid, "a b c d");
    QString names;
    for (int i = 0; i < screen.grid->count(); ++i)
        names += screen.grid->itemAt(i)->widget()->objectName();
    QCOMPARE(names, QString("acbd"));
}

void test_layout_answers::no_item_can_be_taken()
{
    layout_screen screen(2);
    QVERIFY(!screen.grid->takeAt(0));
    add_described(*screen.grid, "a b2x2 c");
    const int count = screen.grid->count();
    for (int i = -1; i <= count; ++i)
        QVERIFY(!screen.grid->takeAt(i));
    QCOMPARE(screen.grid->count(), count);
    QCOMPARE(drawn(*screen.grid), QString("ab#|c##"));
}

void test_layout_answers::everything_else_is_as_in_qt()
{
    layout_screen screen(2);
    QVERIFY(screen.grid->isEmpty());
    add_described(*screen.grid, "a _ b");
    QWidget stranger;
    QCOMPARE(screen.grid->expandingDirections(), Qt::Horizontal | Qt::Vertical);
    QCOMPARE(static_cast<int>(screen.grid->expandingDirections()), 3);
    QCOMPARE(screen.grid->maximumSize(), QSize(QLAYOUTSIZE_MAX, QLAYOUTSIZE_MAX));
    QCOMPARE(screen.grid->indexOf(screen.grid->cells.at({0, 1}).content), 1);
    QCOMPARE(screen.grid->indexOf(&stranger), -1);
    QCOMPARE(static_cast<QLayoutItem *>(screen.grid)->layout(), screen.grid);
    QVERIFY(!screen.grid->isEmpty());
    QVERIFY(!screen.grid->hasHeightForWidth());
    QVERIFY(!screen.grid->replaceWidget(screen.grid->cells.at({0, 0}).content, &stranger));
    QCOMPARE(drawn(*screen.grid), QString("a.|b-"));
}

void test_layout_answers::foreign_item_ends_the_program_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("no item") << "addItem";
    QTest::newRow("a widget, by Qt's own app") << "addWidget";
}

void test_layout_answers::foreign_item_ends_the_program()
{
    QFETCH(QString, way);
    const program_result result = misuse(way);
    const QByteArray report = "This layout works different. Use add() instead.\n"
                              "Stacktrace is empty\n\n\n";
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.errors, report + report);
    QCOMPARE(result.output, QByteArray());
}

void test_layout_answers::last_line_of_an_empty_layout_ends_the_program_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("row") << "row_height";
    QTest::newRow("column") << "column_width";
    QTest::newRow("last cell before the first row") << "negative_row";
    QTest::newRow("last cell before the first column") << "negative_column";
}

void test_layout_answers::last_line_of_an_empty_layout_ends_the_program()
{
    QFETCH(QString, way);
    check_failed_assertion(misuse(way), "!lines.empty() && last >= 0", "layout.cpp",
                           "int& qor::qt::line_at(std::vector<int>&, int, int)");
}

void test_layout_answers::deleting_the_layout_keeps_all_widgets()
{
    layout_screen screen(0);
    add_described(*screen.grid, "a b2x1");
    QWidget *first = screen.grid->cells.at({0, 0}).content;
    QList<QPointer<QWidget>> widgets;
    for (const auto &[place, each] : screen.grid->cells)
        widgets << each.content << each.background_widget();
    widgets.removeAll(nullptr);
    QCOMPARE(widgets.size(), 5);
    const std::size_t registered = widget_cells.size();

    delete screen.grid;
    QVERIFY(!screen.parent.layout());
    for (const QPointer<QWidget> &widget : widgets)
        QVERIFY(widget);
    QCOMPARE(first->parentWidget(), &screen.parent);
    QCOMPARE(widget_cells.size(), registered);
    QCOMPARE(widget_cells.count(first), std::size_t(1));
}

KELVRA_WIDGET_TEST_MAIN(test_layout_answers)
#include "test_layout_answers.moc"
