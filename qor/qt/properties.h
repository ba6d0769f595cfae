// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/property.h"

#include <QString>

namespace qor::qt
{

class cell;

/// The kinds of properties that a cell accepts, one object each, and what they do to the cell.
///
/// A kind with a value is called with it, a kind without one is passed by its address:
/// `layout->add(button, on_click, {margin(5), style("color:red"), &new_line})`. All lengths are in
/// pixels.
namespace properties
{

extern numbers_property<4> margin;  ///< top, right, bottom, left: the four margin fields
extern value_property<int> margin_top;
extern value_property<int> margin_bottom;
extern value_property<int> margin_left;
extern value_property<int> margin_right;
extern numbers_property<4> padding;  ///< top, right, bottom, left: the four padding fields
extern value_property<int> padding_top;
extern value_property<int> padding_bottom;
extern value_property<int> padding_left;
extern value_property<int> padding_right;
extern value_property<int> width;
extern value_property<int> height;
extern numbers_property<2> size;                  ///< width, height; fixes the widget's size too
extern value_property<QString> style;             ///< declarations for the widget's style sheet
extern value_property<QString> background_style;  ///< appended to the background's style sheet
extern property no_background;                    ///< removes the background's colour and picture
extern value_property<int> row_height;
extern value_property<int> row_span;
extern value_property<int> column_span;
extern value_property<int> column_width;
extern property hide;
extern property disable;
extern value_property<int> first_column_width;
extern property new_line;
extern value_property<int> shift_x;
extern value_property<int> shift_y;
extern numbers_property<2> shift;  ///< x, y
extern property keep_size;         ///< width and height become the widget's current ones
extern property keep_full_size;    ///< like `keep_size`, and the first column gets the width too

}  // namespace properties

/// Applies a property to `target`. Does nothing if its kind is unknown, or if it concerns the
/// widget and the cell has none.
void apply_property(cell &target, const property &instruction);

}  // namespace qor::qt
