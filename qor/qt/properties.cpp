// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/properties.h"

#include "qor/qt/cell.h"
#include "qor/qt/stylesheet.h"

#include <QWidget>

#include <array>
#include <cstddef>
#include <functional>
#include <map>

namespace qor::qt
{

namespace properties
{

numbers_property<4> margin;
value_property<int> margin_top;
value_property<int> margin_bottom;
value_property<int> margin_left;
value_property<int> margin_right;
numbers_property<4> padding;
value_property<int> padding_top;
value_property<int> padding_bottom;
value_property<int> padding_left;
value_property<int> padding_right;
value_property<int> width;
value_property<int> height;
numbers_property<2> size;
value_property<QString> style;
value_property<QString> background_style;
property no_background;
value_property<int> row_height;
value_property<int> row_span;
value_property<int> column_span;
value_property<int> column_width;
property hide;
property disable;
value_property<int> first_column_width;
property new_line;
value_property<int> shift_x;
value_property<int> shift_y;
numbers_property<2> shift;
property keep_size;
property keep_full_size;

}  // namespace properties

namespace
{

using effect = std::function<void(cell &, const property &)>;

constexpr char no_background_sheet[] = "background-color:none;background-image:none;";

/// The property as its own type. Requires: it is a `Kind`.
template <class Kind>
const Kind &as(const property &instruction)
{
    return static_cast<const Kind &>(instruction);
}

/// Stores the value in a field.
template <class Field>
effect set(Field cell::*field)
{
    return [field](cell &target, const property &instruction) {
        target.*field = static_cast<Field>(as<value_property<int>>(instruction).value);
    };
}

/// Stores the numbers in as many fields.
template <class Field, std::size_t Count>
effect set_all(std::array<Field cell::*, Count> fields)
{
    return [fields](cell &target, const property &instruction) {
        const auto &values = as<numbers_property<Count>>(instruction).values;
        for (std::size_t i = 0; i < Count; ++i)
            target.*fields[i] = static_cast<Field>(values[i]);
    };
}

/// An effect that is skipped for a cell without a widget.
effect with_widget(void (*change)(cell &, QWidget &, const property &))
{
    return [change](cell &target, const property &instruction) {
        if (target.widget())
            change(target, *target.widget(), instruction);
    };
}

void set_size(cell &target, const property &instruction)
{
    const auto &values = as<numbers_property<2>>(instruction).values;
    target.width = static_cast<float>(values[0]);
    target.height = static_cast<float>(values[1]);
    if (target.widget())
        target.widget()->setFixedSize(values[0], values[1]);
}

void add_style(cell &, QWidget &widget, const property &instruction)
{
    stylesheet(widget.styleSheet() + as<value_property<QString>>(instruction).value)
        .apply_to(&widget);
}

void append_to_background(cell &target, const QString &sheet)
{
    if (target.background_widget())
        target.background_widget()->setStyleSheet(target.background_widget()->styleSheet() + sheet);
}

void add_background_style(cell &target, const property &instruction)
{
    append_to_background(target, as<value_property<QString>>(instruction).value);
}

void clear_background(cell &target, const property &)
{
    append_to_background(target, no_background_sheet);
}

void hide_widget(cell &, QWidget &widget, const property &)
{
    widget.setVisible(false);
}

void disable_widget(cell &, QWidget &widget, const property &)
{
    widget.setEnabled(false);
}

void start_new_line(cell &target, const property &)
{
    target.new_line = true;
}

void keep_present_size(cell &target, QWidget &widget, const property &)
{
    target.width = static_cast<float>(widget.width());
    target.height = static_cast<float>(widget.height());
}

void keep_present_size_and_column(cell &target, QWidget &widget, const property &instruction)
{
    keep_present_size(target, widget, instruction);
    target.first_column_width = widget.width();
}

using sides = std::array<float cell::*, 4>;
constexpr sides margins = {&cell::margin_top, &cell::margin_right, &cell::margin_bottom,
                           &cell::margin_left};
constexpr sides paddings = {&cell::padding_top, &cell::padding_right, &cell::padding_bottom,
                            &cell::padding_left};
constexpr std::array<int cell::*, 2> shifts = {&cell::shift_x, &cell::shift_y};

const std::map<int, effect> &effects()
{
    static const std::map<int, effect> by_id = {
        {properties::margin.id, set_all(margins)},
        {properties::margin_top.id, set(&cell::margin_top)},
        {properties::margin_bottom.id, set(&cell::margin_bottom)},
        {properties::margin_left.id, set(&cell::margin_left)},
        {properties::margin_right.id, set(&cell::margin_right)},
        {properties::padding.id, set_all(paddings)},
        {properties::padding_top.id, set(&cell::padding_top)},
        {properties::padding_bottom.id, set(&cell::padding_bottom)},
        {properties::padding_left.id, set(&cell::padding_left)},
        {properties::padding_right.id, set(&cell::padding_right)},
        {properties::width.id, set(&cell::width)},
        {properties::height.id, set(&cell::height)},
        {properties::size.id, set_size},
        {properties::style.id, with_widget(add_style)},
        {properties::background_style.id, add_background_style},
        {properties::no_background.id, clear_background},
        {properties::row_height.id, set(&cell::row_height)},
        {properties::row_span.id, set(&cell::row_span)},
        {properties::column_span.id, set(&cell::column_span)},
        {properties::column_width.id, set(&cell::column_width)},
        {properties::hide.id, with_widget(hide_widget)},
        {properties::disable.id, with_widget(disable_widget)},
        {properties::first_column_width.id, set(&cell::first_column_width)},
        {properties::new_line.id, start_new_line},
        {properties::shift_x.id, set(&cell::shift_x)},
        {properties::shift_y.id, set(&cell::shift_y)},
        {properties::shift.id, set_all(shifts)},
        {properties::keep_size.id, with_widget(keep_present_size)},
        {properties::keep_full_size.id, with_widget(keep_present_size_and_column)},
    };
    return by_id;
}

}  // namespace

void apply_property(cell &target, const property &instruction)
{
    const auto found = effects().find(instruction.id);
    if (found != effects().end())
        found->second(target, instruction);
}

}  // namespace qor::qt
