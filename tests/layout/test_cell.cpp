// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/cell.h"
#include "qor/qt/layout.h"
#include "widget_test_main.h"

#include <QPointer>

using qor::qt::cell;

namespace
{

/// A cell in which every field differs from that of a new cell.
cell filled_cell(QWidget *widget, qor::qt::layout *owner)
{
    cell filled(widget);
    filled.setAlignment(Qt::AlignRight | Qt::AlignBottom);
    filled.spanned = true;
    filled.margin_left = 1.5f;
    filled.margin_right = 2.5f;
    filled.margin_top = 3.5f;
    filled.margin_bottom = 4.5f;
    filled.padding_left = 5.5f;
    filled.padding_right = 6.5f;
    filled.padding_top = 7.5f;
    filled.padding_bottom = 8.5f;
    filled.width = 9.5f;
    filled.height = 10.5f;
    filled.row_span = 11;
    filled.column_span = 12;
    filled.column_width = 13;
    filled.row_height = 14;
    filled.first_column_width = 15;
    filled.shift_x = 16;
    filled.shift_y = 17;
    filled.new_line = true;
    filled.row = 18;
    filled.column = 19;
    filled.owner = owner;
    return filled;
}

void compare_fields(const cell &actual, const cell &expected)
{
    QCOMPARE(actual.alignment(), expected.alignment());
    QCOMPARE(actual.spanned, expected.spanned);
    QCOMPARE(actual.background_widget(), expected.background_widget());
    QCOMPARE(actual.content, expected.content);
    QCOMPARE(actual.margin_left, expected.margin_left);
    QCOMPARE(actual.margin_right, expected.margin_right);
    QCOMPARE(actual.margin_top, expected.margin_top);
    QCOMPARE(actual.margin_bottom, expected.margin_bottom);
    QCOMPARE(actual.padding_left, expected.padding_left);
    QCOMPARE(actual.padding_right, expected.padding_right);
    QCOMPARE(actual.padding_top, expected.padding_top);
    QCOMPARE(actual.padding_bottom, expected.padding_bottom);
    QCOMPARE(actual.width, expected.width);
    QCOMPARE(actual.height, expected.height);
    QCOMPARE(actual.row_span, expected.row_span);
    QCOMPARE(actual.column_span, expected.column_span);
    QCOMPARE(actual.column_width, expected.column_width);
    QCOMPARE(actual.row_height, expected.row_height);
    QCOMPARE(actual.first_column_width, expected.first_column_width);
    QCOMPARE(actual.shift_x, expected.shift_x);
    QCOMPARE(actual.shift_y, expected.shift_y);
    QCOMPARE(actual.new_line, expected.new_line);
    QCOMPARE(actual.row, expected.row);
    QCOMPARE(actual.column, expected.column);
    QCOMPARE(actual.owner, expected.owner);
}

}  // namespace

class test_cell : public QObject
{
    Q_OBJECT

private slots:
    void starts_without_any_wish_data();
    void starts_without_any_wish();
    void every_new_cell_has_its_own_background();
    void destructor_deletes_no_widget();
    void copy_has_all_fields_and_the_same_widgets();
    void assignment_replaces_all_fields();
    void copy_is_independent();
    void is_empty_without_widget_and_span_data();
    void is_empty_without_widget_and_span();
    void size_and_geometry_are_constant_data();
    void size_and_geometry_are_constant();
    void ignores_geometry();
    void inherits_everything_else_unchanged();
    void margin_goes_to_all_sides();
    void padding_goes_to_all_sides();
};

void test_cell::starts_without_any_wish_data()
{
    QTest::addColumn<bool>("has_widget");
    QTest::newRow("without a widget") << false;
    QTest::newRow("with a widget") << true;
}

void test_cell::starts_without_any_wish()
{
    QFETCH(bool, has_widget);
    QWidget widget;
    cell fresh = has_widget ? cell(&widget) : cell();
    QCOMPARE(fresh.alignment(), Qt::Alignment());
    QVERIFY(!fresh.spanned);
    QVERIFY(fresh.background_widget());
    QCOMPARE(fresh.background_widget(), fresh.background);
    QCOMPARE(fresh.widget(), has_widget ? &widget : nullptr);
    QCOMPARE(fresh.widget(), fresh.content);
    for (const float margin :
         {fresh.margin_left, fresh.margin_right, fresh.margin_top, fresh.margin_bottom})
        QCOMPARE(margin, -1.0f);
    for (const float padding :
         {fresh.padding_left, fresh.padding_right, fresh.padding_top, fresh.padding_bottom})
        QCOMPARE(padding, 0.0f);
    QCOMPARE(fresh.width, -1.0f);
    QCOMPARE(fresh.height, -1.0f);
    QCOMPARE(fresh.row_span, 1);
    QCOMPARE(fresh.column_span, 1);
    QCOMPARE(fresh.column_width, -1);
    QCOMPARE(fresh.row_height, -1);
    QCOMPARE(fresh.first_column_width, 0);
    QCOMPARE(fresh.shift_x, 0);
    QCOMPARE(fresh.shift_y, 0);
    QVERIFY(!fresh.new_line);
    QCOMPARE(fresh.row, 0);
    QCOMPARE(fresh.column, 0);
    QVERIFY(!fresh.owner);
}

void test_cell::every_new_cell_has_its_own_background()
{
    QWidget widget;
    const cell with_widget(&widget);
    const cell empty;
    QVERIFY(empty.background_widget());
    QVERIFY(with_widget.background_widget() != empty.background_widget());
    for (const QWidget *background : {with_widget.background_widget(), empty.background_widget()}) {
        QVERIFY(!background->parent());
        QVERIFY(background->isHidden());
        QCOMPARE(background->metaObject(), &QWidget::staticMetaObject);
    }
}

void test_cell::destructor_deletes_no_widget()
{
    QWidget widget;
    QPointer<QWidget> content = &widget;
    QPointer<QWidget> background;
    {
        const cell short_lived(&widget);
        background = short_lived.background_widget();
    }
    QVERIFY(content);
    QVERIFY(background);
}

void test_cell::copy_has_all_fields_and_the_same_widgets()
{
    QWidget widget;
    qor::qt::layout owner(1, false);
    const cell original = filled_cell(&widget, &owner);
    const cell copy = original;
    compare_fields(copy, original);
    QCOMPARE(copy.shift_y, 17);
    QCOMPARE(copy.content, &widget);
    QCOMPARE(copy.owner, &owner);
}

void test_cell::assignment_replaces_all_fields()
{
    QWidget widget;
    qor::qt::layout owner(1, false);
    const cell original = filled_cell(&widget, &owner);
    cell copy;
    copy = original;
    compare_fields(copy, original);
}

void test_cell::copy_is_independent()
{
    const cell original;
    cell copy = original;
    copy.shift_x = 3;
    copy.content = copy.background_widget();
    QCOMPARE(original.shift_x, 0);
    QVERIFY(!original.content);
}

void test_cell::is_empty_without_widget_and_span_data()
{
    QTest::addColumn<bool>("has_widget");
    QTest::addColumn<bool>("is_spanned");
    QTest::addColumn<bool>("expected");
    QTest::newRow("neither") << false << false << true;
    QTest::newRow("widget") << true << false << false;
    QTest::newRow("spanned") << false << true << false;
    QTest::newRow("both") << true << true << false;
}

void test_cell::is_empty_without_widget_and_span()
{
    QFETCH(bool, has_widget);
    QFETCH(bool, is_spanned);
    QWidget widget;
    cell tested = has_widget ? cell(&widget) : cell();
    tested.spanned = is_spanned;
    QTEST(tested.isEmpty(), "expected");
}

void test_cell::size_and_geometry_are_constant_data()
{
    QTest::addColumn<bool>("is_filled");
    QTest::newRow("fresh") << false;
    QTest::newRow("every field set") << true;
}

void test_cell::size_and_geometry_are_constant()
{
    QFETCH(bool, is_filled);
    QWidget widget;
    widget.setFixedSize(7, 8);
    const cell tested = is_filled ? filled_cell(&widget, nullptr) : cell();
    QCOMPARE(tested.sizeHint(), QSize(100, 100));
    QCOMPARE(tested.minimumSize(), QSize(100, 100));
    QCOMPARE(tested.maximumSize(), QSize(100, 100));
    QCOMPARE(tested.expandingDirections(), Qt::Horizontal | Qt::Vertical);
    QCOMPARE(static_cast<int>(tested.expandingDirections()), 3);
    QCOMPARE(tested.geometry(), QRect(0, 0, 100, 100));
}

void test_cell::ignores_geometry()
{
    QWidget widget;
    widget.setGeometry(1, 2, 3, 4);
    cell tested(&widget);
    tested.background_widget()->setGeometry(5, 6, 7, 8);
    tested.setGeometry(QRect(10, 20, 30, 40));
    QCOMPARE(tested.geometry(), QRect(0, 0, 100, 100));
    QCOMPARE(widget.geometry(), QRect(1, 2, 3, 4));
    QCOMPARE(tested.background_widget()->geometry(), QRect(5, 6, 7, 8));
}

void test_cell::inherits_everything_else_unchanged()
{
    QWidget widget;
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed, QSizePolicy::PushButton);
    policy.setHeightForWidth(true);
    widget.setSizePolicy(policy);
    cell tested(&widget);
    tested.invalidate();
    QVERIFY(!tested.hasHeightForWidth());
    QCOMPARE(tested.heightForWidth(50), -1);
    QCOMPARE(tested.minimumHeightForWidth(50), -1);
    QVERIFY(!tested.layout());
    QVERIFY(!tested.spacerItem());
    QCOMPARE(tested.controlTypes(), QSizePolicy::ControlTypes(QSizePolicy::DefaultType));
}

void test_cell::margin_goes_to_all_sides()
{
    cell tested;
    tested.set_margin(2.5f);
    for (const float margin :
         {tested.margin_left, tested.margin_right, tested.margin_top, tested.margin_bottom})
        QCOMPARE(margin, 2.5f);
    for (const float padding :
         {tested.padding_left, tested.padding_right, tested.padding_top, tested.padding_bottom})
        QCOMPARE(padding, 0.0f);
}

void test_cell::padding_goes_to_all_sides()
{
    cell tested;
    tested.set_padding(2.5f);
    for (const float padding :
         {tested.padding_left, tested.padding_right, tested.padding_top, tested.padding_bottom})
        QCOMPARE(padding, 2.5f);
    for (const float margin :
         {tested.margin_left, tested.margin_right, tested.margin_top, tested.margin_bottom})
        QCOMPARE(margin, -1.0f);
}

KELVRA_WIDGET_TEST_MAIN(test_cell)
#include "test_cell.moc"
