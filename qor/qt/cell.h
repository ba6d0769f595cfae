// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/property.h"

#include <QLayoutItem>
#include <QRect>
#include <QSize>

#include <map>

class QWidget;

namespace qor::qt
{

class layout;
struct sliding_line;

/// What a `qor::qt::layout` keeps for one position of its grid: the widget, its placement in its
/// area of the grid, and a plain widget as its background.
///
/// A value: created on the stack, filled in and copied into the layout. After that only the copy
/// matters (`layout::cells`). Lengths are in pixels.
class cell : public QLayoutItem
{
public:
    /// A cell without a widget.
    cell();

    /// @param widget  the content; borrowed, like the background: a cell deletes neither
    explicit cell(QWidget *widget);

    /// Applies the properties from first to last; a later one overrides an earlier one. Unknown
    /// kinds are skipped. Further lists are applied after the first.
    void apply(const property_list &properties);
    template <class... Lists>
    void apply(const property_list &properties, const Lists &...more)
    {
        apply(properties);
        apply(more...);
    }

    /// Sets the margin of all sides.
    void set_margin(float all_sides);

    /// Sets the padding of all sides.
    void set_padding(float all_sides);

    /// Slides the height of this cell's row to `target`, in 25 steps per second, and blocks until
    /// it is there. Each step resizes the window by one pixel and back, so that the layouts in it
    /// apply the new sizes.
    ///
    /// The size of a step is truncated to pixels: if there are fewer pixels than steps, the row
    /// waits, then jumps at the end. If the row has that height already, nothing is done.
    /// @param seconds  0 or less: the height jumps
    void animate_row_height(int target, float seconds);

    /// The same for the column's width, without repainting the window at each step.
    void animate_column_width(int target, float seconds);

    /// Slides both together, without repainting. If either is at its target already, neither
    /// changes; as soon as either has passed its target, both jump to theirs.
    void animate_size(int target_width, int target_height, float seconds);

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    Qt::Orientations expandingDirections() const override;
    void setGeometry(const QRect &rectangle) override;
    QRect geometry() const override;
    bool isEmpty() const override;
    QWidget *widget() override;
    /// Returns `background`, as `widget` returns `content`.
    QWidget *background_widget() const;

    bool spanned = false;        ///< covered by the span of another cell
    QWidget *background;         ///< behind the content; child of the parent once laid out
    QWidget *content = nullptr;  ///< what `widget` returns
    float margin_left = -1;      ///< negative: this side isn't set; the same for the next three
    float margin_right = -1;
    float margin_top = -1;
    float margin_bottom = -1;
    float padding_left = 0;  ///< between the background's edge and the content
    float padding_right = 0;
    float padding_top = 0;
    float padding_bottom = 0;
    float width = -1;  ///< of the content; if not positive, it fills its area
    float height = -1;
    int row_span = 1;
    int column_span = 1;
    int column_width = -1;       ///< if positive, `layout::add` gives it to the whole column
    int row_height = -1;         ///< if positive, `layout::add` gives it to the whole row
    int first_column_width = 0;  ///< if positive, the first column's width for this cell only
    int shift_x = 0;             ///< moves the content, not the background
    int shift_y = 0;
    bool new_line = false;  ///< the next cell starts a new line
    int row = 0;            ///< set by the layout, like the next two
    int column = 0;
    qor::qt::layout *owner = nullptr;  ///< the layout that contains the cell

private:
    QWidget &window() const;
    sliding_line sliding_row(int target) const;
    sliding_line sliding_column(int target) const;
};

/// The cell of each widget that was ever added to a layout. Note: the entries of a destroyed layout
/// stay, with invalid pointers.
extern std::map<QWidget *, cell *> widget_cells;

/// The cell whose click function ran last; null before the first click.
extern cell *clicked_cell;

}  // namespace qor::qt
