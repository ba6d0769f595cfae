// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/cell.h"

#include "qor/qt/layout.h"
#include "qor/qt/properties.h"
#include "qor/qt/slide.h"

#include <QWidget>

namespace qor::qt
{

namespace
{

constexpr QSize constant_size(100, 100);

}  // namespace

std::map<QWidget *, cell *> widget_cells;
cell *clicked_cell = nullptr;

cell::cell() : cell(nullptr) {}

cell::cell(QWidget *widget) : background(new QWidget), content(widget) {}

void cell::apply(const property_list &properties)
{
    for (const property *instruction : properties)
        apply_property(*this, *instruction);
}

void cell::set_margin(float all_sides)
{
    margin_left = margin_right = margin_top = margin_bottom = all_sides;
}

void cell::set_padding(float all_sides)
{
    padding_left = padding_right = padding_top = padding_bottom = all_sides;
}

void cell::animate_row_height(int target, float seconds)
{
    slide(window(), {sliding_row(target)}, seconds, repainting::at_each_step);
}

void cell::animate_column_width(int target, float seconds)
{
    slide(window(), {sliding_column(target)}, seconds, repainting::never);
}

void cell::animate_size(int target_width, int target_height, float seconds)
{
    slide(window(), {sliding_column(target_width), sliding_row(target_height)}, seconds,
          repainting::never);
}

QSize cell::sizeHint() const
{
    return constant_size;
}

QSize cell::minimumSize() const
{
    return constant_size;
}

QSize cell::maximumSize() const
{
    return constant_size;
}

Qt::Orientations cell::expandingDirections() const
{
    return Qt::Horizontal | Qt::Vertical;
}

void cell::setGeometry(const QRect &) {}

QRect cell::geometry() const
{
    return {QPoint(0, 0), constant_size};
}

bool cell::isEmpty() const
{
    return !spanned && !content;
}

QWidget *cell::widget()
{
    return content;
}

QWidget *cell::background_widget() const
{
    return background;
}

QWidget &cell::window() const
{
    return *owner->parentWidget()->window();
}

sliding_line cell::sliding_row(int target) const
{
    return {[this]() -> int & { return owner->row_height(row); }, target};
}

sliding_line cell::sliding_column(int target) const
{
    return {[this]() -> int & { return owner->column_width(column); }, target};
}

}  // namespace qor::qt
