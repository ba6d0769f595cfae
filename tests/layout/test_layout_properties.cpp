// SPDX-License-Identifier: GPL-3.0-or-later

#include "cell_sides.h"
#include "qor/qt/cell.h"
#include "qor/qt/properties.h"
#include "widget_test_main.h"

#include <functional>
#include <vector>

using qor::property_list;
using qor::qt::cell;
using writing = std::function<qor::property *()>;
namespace properties = qor::qt::properties;

Q_DECLARE_METATYPE(writing)

namespace
{

/// A widget of 30 by 20 pixels with a style sheet, in a window that is never shown, and its cell.
/// Only a widget that is hidden explicitly counts as hidden here.
struct placed_content {
    placed_content()
    {
        widget->resize(30, 20);
        widget->setStyleSheet("color:blue;");
        placed.background_widget()->setStyleSheet("margin:1px;");
    }

    QWidget window;
    QWidget *widget = new QWidget(&window);
    cell placed = cell(widget);
};

QString text_of(QSize size)
{
    return QString("%1x%2").arg(size.width()).arg(size.height());
}

QMap<QString, QString> fields_of(const cell &shown)
{
    const auto number = [](auto value) { return QString::number(value); };
    return {{"spanned", number(shown.spanned)},
            {"margin_left", number(shown.margin_left)},
            {"margin_right", number(shown.margin_right)},
            {"margin_top", number(shown.margin_top)},
            {"margin_bottom", number(shown.margin_bottom)},
            {"padding_left", number(shown.padding_left)},
            {"padding_right", number(shown.padding_right)},
            {"padding_top", number(shown.padding_top)},
            {"padding_bottom", number(shown.padding_bottom)},
            {"width", number(shown.width)},
            {"height", number(shown.height)},
            {"row_span", number(shown.row_span)},
            {"column_span", number(shown.column_span)},
            {"column_width", number(shown.column_width)},
            {"row_height", number(shown.row_height)},
            {"first_column_width", number(shown.first_column_width)},
            {"shift_x", number(shown.shift_x)},
            {"shift_y", number(shown.shift_y)},
            {"new_line", number(shown.new_line)},
            {"row", number(shown.row)},
            {"column", number(shown.column)}};
}

/// Everything that a property can change: the fields of the cell, its widget and its background.
QMap<QString, QString> state_of(cell &shown)
{
    QMap<QString, QString> state = fields_of(shown);
    if (const QWidget *widget = shown.widget()) {
        state["widget's size"] = text_of(widget->size());
        state["widget's least"] = text_of(widget->minimumSize());
        state["widget's most"] = text_of(widget->maximumSize());
        state["widget's sheet"] = widget->styleSheet();
        state["widget hidden"] = QString::number(widget->isHidden());
        state["widget enabled"] = QString::number(widget->isEnabled());
    }
    if (shown.background_widget())
        state["background's sheet"] = shown.background_widget()->styleSheet();
    return state;
}

/// What changes when these properties are applied, as "name=value", sorted by name.
QStringList effect_of(const property_list &list, cell &target)
{
    const auto before = state_of(target);
    target.apply(list);
    const auto after = state_of(target);
    QStringList changes;
    for (auto it = after.begin(); it != after.end(); ++it) {
        if (before[it.key()] != it.value())
            changes << it.key() + "=" + it.value();
    }
    return changes;
}

QStringList paddings_of(const cell &shown)
{
    QStringList sides;
    for (float side :
         {shown.padding_top, shown.padding_right, shown.padding_bottom, shown.padding_left})
        sides << QString::number(side);
    return sides;
}

}  // namespace

class test_layout_properties : public QObject
{
    Q_OBJECT

private slots:
    void kinds_are_numbered_in_order();
    void kind_changes_nothing_else_data();
    void kind_changes_nothing_else();
    void kind_accepts_negative_and_zero_numbers();
    void last_of_fewer_numbers_is_repeated();
    void one_number_is_for_all_sides_of_the_cell();
    void background_gets_its_sheets_appended();
    void cell_without_a_background_stays_without();
    void keep_uses_the_current_size();
    void later_property_wins();
    void lists_are_joined_in_order();
    void unknown_kind_is_skipped();
    void value_is_kept_until_its_kind_is_set_again();
    void empty_list_changes_nothing();
};

void test_layout_properties::kinds_are_numbered_in_order()
{
    // clang-format off
    const std::vector<qor::property *> kinds = {
        &properties::margin, &properties::margin_top, &properties::margin_bottom,
        &properties::margin_left, &properties::margin_right,
        &properties::padding, &properties::padding_top, &properties::padding_bottom,
        &properties::padding_left, &properties::padding_right,
        &properties::width, &properties::height, &properties::size,
        &properties::style, &properties::background_style, &properties::no_background,
        &properties::row_height, &properties::row_span,
        &properties::column_span, &properties::column_width,
        &properties::hide, &properties::disable,
        &properties::first_column_width, &properties::new_line,
        &properties::shift_x, &properties::shift_y, &properties::shift,
        &properties::keep_size, &properties::keep_full_size};
    // clang-format on
    for (std::size_t i = 0; i < kinds.size(); ++i)
        QCOMPARE(kinds[i]->id, static_cast<int>(i));
    const qor::property first_further;
    const qor::property second_further;
    QVERIFY(first_further.id >= static_cast<int>(kinds.size()));
    QCOMPARE(second_further.id, first_further.id + 1);
}

// clang-format off
void test_layout_properties::kind_changes_nothing_else_data()
{
    QTest::addColumn<writing>("write");
    QTest::addColumn<QStringList>("effect");
    QTest::addColumn<QStringList>("effect_without_widget");
    const auto row = [](const char *name, const writing &write, const QStringList &effect, const QStringList &without_widget) {
        QTest::newRow(name) << write << effect << without_widget;
    };
    const auto field_row = [&](const char *name, const writing &write, const QStringList &effect) {
        row(name, write, effect, effect);
    };
    const auto widget_row = [&](const char *name, const writing &write, const QStringList &effect) {
        row(name, write, effect, {});
    };
    field_row("margin", [] { return properties::margin(1, 2, 3, 4); }, {"margin_bottom=3", "margin_left=4", "margin_right=2", "margin_top=1"});
    field_row("margin_top", [] { return properties::margin_top(5); }, {"margin_top=5"});
    field_row("margin_bottom", [] { return properties::margin_bottom(5); }, {"margin_bottom=5"});
    field_row("margin_left", [] { return properties::margin_left(5); }, {"margin_left=5"});
    field_row("margin_right", [] { return properties::margin_right(5); }, {"margin_right=5"});
    field_row("padding", [] { return properties::padding(1, 2, 3, 4); }, {"padding_bottom=3", "padding_left=4", "padding_right=2", "padding_top=1"});
    field_row("padding_top", [] { return properties::padding_top(5); }, {"padding_top=5"});
    field_row("padding_bottom", [] { return properties::padding_bottom(5); }, {"padding_bottom=5"});
    field_row("padding_left", [] { return properties::padding_left(5); }, {"padding_left=5"});
    field_row("padding_right", [] { return properties::padding_right(5); }, {"padding_right=5"});
    field_row("width", [] { return properties::width(5); }, {"width=5"});
    field_row("height", [] { return properties::height(5); }, {"height=5"});
    row("size", [] { return properties::size(40, 50); }, {"height=50", "widget's least=40x50", "widget's most=40x50", "widget's size=40x50", "width=40"}, {"height=50", "width=40"});
    widget_row("style", [] { return properties::style("color:red;border:none"); }, {"widget's sheet=border:none;color:red;"});
    field_row("background_style", [] { return properties::background_style("padding:2px"); }, {"background's sheet=margin:1px;padding:2px"});
    field_row("no_background", [] { return &properties::no_background; }, {"background's sheet=margin:1px;background-color:none;background-image:none;"});
    field_row("row_height", [] { return properties::row_height(5); }, {"row_height=5"});
    field_row("row_span", [] { return properties::row_span(5); }, {"row_span=5"});
    field_row("column_span", [] { return properties::column_span(5); }, {"column_span=5"});
    field_row("column_width", [] { return properties::column_width(5); }, {"column_width=5"});
    widget_row("hide", [] { return &properties::hide; }, {"widget hidden=1"});
    widget_row("disable", [] { return &properties::disable; }, {"widget enabled=0"});
    field_row("first_column_width", [] { return properties::first_column_width(5); }, {"first_column_width=5"});
    field_row("new_line", [] { return &properties::new_line; }, {"new_line=1"});
    field_row("shift_x", [] { return properties::shift_x(5); }, {"shift_x=5"});
    field_row("shift_y", [] { return properties::shift_y(5); }, {"shift_y=5"});
    field_row("shift", [] { return properties::shift(5, 6); }, {"shift_x=5", "shift_y=6"});
    widget_row("keep_size", [] { return &properties::keep_size; }, {"height=20", "width=30"});
    widget_row("keep_full_size", [] { return &properties::keep_full_size; }, {"first_column_width=30", "height=20", "width=30"});
}
// clang-format on

void test_layout_properties::kind_changes_nothing_else()
{
    QFETCH(writing, write);
    QFETCH(QStringList, effect);
    QFETCH(QStringList, effect_without_widget);
    placed_content content;
    QCOMPARE(effect_of({write()}, content.placed), effect);
    cell without_widget;
    without_widget.background_widget()->setStyleSheet("margin:1px;");
    QCOMPARE(effect_of({write()}, without_widget), effect_without_widget);
    QVERIFY(!without_widget.widget());
}

void test_layout_properties::kind_accepts_negative_and_zero_numbers()
{
    cell target;
    QCOMPARE(effect_of({properties::margin(0, -2, -3, 0)}, target),
             QStringList({"margin_bottom=-3", "margin_left=0", "margin_right=-2", "margin_top=0"}));
    QCOMPARE(effect_of({properties::shift(-5, -6)}, target),
             QStringList({"shift_x=-5", "shift_y=-6"}));
    QCOMPARE(effect_of({properties::column_span(0)}, target), QStringList{"column_span=0"});
}

void test_layout_properties::last_of_fewer_numbers_is_repeated()
{
    const auto sides_after = [](qor::property *margin, qor::property *padding) {
        cell target;
        target.apply({margin, padding});
        return margins_of(target) + paddings_of(target);
    };
    QCOMPARE(sides_after(properties::margin(1, 2, 3, 4), properties::padding(5, 6, 7, 8)),
             QStringList({"1", "2", "3", "4", "5", "6", "7", "8"}));
    QCOMPARE(sides_after(properties::margin(1, 2, 3), properties::padding(5, 6, 7)),
             QStringList({"1", "2", "3", "3", "5", "6", "7", "7"}));
    QCOMPARE(sides_after(properties::margin(1, 2), properties::padding(5, 6)),
             QStringList({"1", "2", "2", "2", "5", "6", "6", "6"}));
    QCOMPARE(sides_after(properties::margin(1), properties::padding(5)),
             QStringList({"1", "1", "1", "1", "5", "5", "5", "5"}));
}

void test_layout_properties::one_number_is_for_all_sides_of_the_cell()
{
    cell target;
    target.apply({properties::margin(5)});
    QCOMPARE(target.margin_top, 5.f);
    QCOMPARE(target.margin_right, 5.f);
    QCOMPARE(target.margin_bottom, 5.f);
    QCOMPARE(target.margin_left, 5.f);
}

void test_layout_properties::background_gets_its_sheets_appended()
{
    cell target;
    target.apply({properties::background_style("color:red;")});
    target.apply({properties::background_style("color:blue;color:red;")});
    target.apply({&properties::no_background});
    QCOMPARE(target.background_widget()->styleSheet(),
             QString("color:red;color:blue;color:red;"
                     "background-color:none;background-image:none;"));
}

void test_layout_properties::cell_without_a_background_stays_without()
{
    placed_content content;
    delete content.placed.background;
    content.placed.background = nullptr;
    QCOMPARE(effect_of({properties::background_style("color:red;"), &properties::no_background},
                       content.placed),
             QStringList());
}

void test_layout_properties::keep_uses_the_current_size()
{
    placed_content content;
    content.placed.apply({&properties::keep_size});
    content.widget->resize(70, 80);
    QCOMPARE(content.placed.width, 30.f);
    QCOMPARE(content.placed.height, 20.f);
    content.placed.apply({&properties::keep_full_size});
    QCOMPARE(content.placed.width, 70.f);
    QCOMPARE(content.placed.height, 80.f);
    QCOMPARE(content.placed.first_column_width, 70);
}

void test_layout_properties::later_property_wins()
{
    cell target;
    target.apply({properties::margin(1, 2, 3, 4), properties::margin_left(9)});
    QCOMPARE(margins_of(target), QStringList({"1", "2", "3", "9"}));
    target.apply({properties::margin_left(9), properties::margin(1, 2, 3, 4)});
    QCOMPARE(margins_of(target), QStringList({"1", "2", "3", "4"}));
    target.apply({properties::shift(5, 6), properties::shift_x(7)});
    QCOMPARE(target.shift_x, 7);
    QCOMPARE(target.shift_y, 6);
}

void test_layout_properties::lists_are_joined_in_order()
{
    const property_list first = {properties::margin(1, 2, 3, 4), properties::width(5)};
    const property_list second = {properties::margin_left(9)};
    const property_list third = {properties::margin_top(8), properties::height(6)};
    cell forwards;
    forwards.apply(first, second, third);
    QCOMPARE(margins_of(forwards), QStringList({"8", "2", "3", "9"}));
    QCOMPARE(forwards.width, 5.f);
    QCOMPARE(forwards.height, 6.f);
    cell backwards;
    backwards.apply(third, second, first);
    QCOMPARE(margins_of(backwards), QStringList({"1", "2", "3", "4"}));
}

void test_layout_properties::unknown_kind_is_skipped()
{
    qor::property unknown;
    placed_content content;
    QCOMPARE(effect_of({&unknown}, content.placed), QStringList());
    QCOMPARE(effect_of({properties::width(5), &unknown, properties::height(6)}, content.placed),
             QStringList({"height=6", "width=5"}));
}

void test_layout_properties::value_is_kept_until_its_kind_is_set_again()
{
    const property_list list = {properties::margin(1, 2, 3, 4), properties::width(5)};
    cell first;
    cell second;
    first.apply(list);
    second.apply(list);
    QCOMPARE(margins_of(first), margins_of(second));
    properties::margin(9);
    cell third;
    third.apply(list);
    QCOMPARE(margins_of(third), QStringList({"9", "9", "9", "9"}));
    QCOMPARE(third.width, 5.f);
    QCOMPARE(margins_of(first), QStringList({"1", "2", "3", "4"}));
}

void test_layout_properties::empty_list_changes_nothing()
{
    placed_content content;
    QCOMPARE(effect_of({}, content.placed), QStringList());
}

KELVRA_WIDGET_TEST_MAIN(test_layout_properties)
#include "test_layout_properties.moc"
