// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/qt/cell.h"
#include "qor/qt/position.h"

#include <QLayout>

#include <functional>
#include <map>
#include <type_traits>
#include <utility>
#include <vector>

namespace qor::qt
{

/// A grid of rows and columns to which a screen adds its widgets one after another.
///
/// Lines (rows and columns) have a size in pixels, or 0 for automatic: automatic lines share the
/// space that the others leave in the parent widget, whose whole area belongs to the layout. Each
/// widget is in a `cell`, which holds its other settings. Widgets are added with `add` and never
/// removed. Requires: every widget outlives the layout.
class layout : public QLayout
{
    Q_OBJECT

public:
    /// @param wrap          cells per line before the next one starts; 0 for no limit
    /// @param column_major  false: cells follow each other along a row; true: down a column
    layout(QWidget *parent, int wrap, bool column_major);
    layout(int wrap, bool column_major);

    /// Puts the cell at the first free position at or after the cursor; its widget becomes a child
    /// of the layout's parent.
    void add(cell new_cell);

    /// Puts the cell at this position, replacing any cell there. The cursor doesn't move, and the
    /// cell's column width and row height are ignored.
    /// @param skip_fill  true: the rest of the grid isn't filled with empty cells
    void add_at(cell new_cell, int column, int row, bool skip_fill);

    /// Adds a plain widget that takes ownership of `sub_layout` and is laid out by it.
    template <class... Lists>
    void add(QLayout *sub_layout, const property_list &properties = {}, const Lists &...more)
    {
        cell holder(holder_of(sub_layout));
        holder.apply(properties, more...);
        add(holder);
    }

    /// Adds the widget with these properties and returns it.
    /// @param on_click  called on the widget's signal `clicked()`, after `clicked_cell` has been
    ///                  set to its cell; empty for none
    template <class Widget, class... Lists,
              std::enable_if_t<std::is_base_of_v<QWidget, Widget>, int> = 0>
    Widget *add(Widget *widget, std::function<void()> on_click, const property_list &properties,
                const Lists &...more)
    {
        cell new_cell(widget);
        new_cell.apply(properties, more...);
        add(new_cell);
        if (on_click)
            connect_click(widget, std::move(on_click));
        return widget;
    }

    /// The size of a row, for reading or writing; 0 is automatic.
    /// @param index  negative: the row of the cell added last, and if there is none, the program
    ///               ends; past the end: the rows up to this one are created
    int &row_height(int index = -1);

    /// The same for a column.
    int &column_width(int index = -1);

    /// Always ends the program; use `add` instead.
    void addItem(QLayoutItem *item) override;

    Qt::Orientations expandingDirections() const override;

    /// The sums of the fixed column widths and of the fixed row heights.
    QSize minimumSize() const override;

    /// The sum of the row heights as the width and the sum of the column widths as the height; an
    /// automatic line counts as 20. The axes are swapped on purpose.
    QSize sizeHint() const override;

    /// Places all widgets on the parent widget; the rectangle is ignored. Runs at most five times
    /// in a row for the same size of the parent, since fixing the widgets' sizes triggers the next
    /// run.
    void setGeometry(const QRect &rectangle) override;

    /// The cell with this index among those that have a widget or are covered by a span, row by
    /// row; null past the end.
    QLayoutItem *itemAt(int index) const override;

    /// Always null: nothing is ever removed. Requires: `removeWidget` is never called with one of
    /// the widgets; Qt would loop forever.
    QLayoutItem *takeAt(int index) override;
    int count() const override;

    std::map<position, cell> cells;
    std::vector<int> row_heights;  ///< 0 means automatic, also in the next one
    std::vector<int> column_widths;
    int last_column = 0;  ///< with the next one: where the last cell was put
    int last_row = 0;
    int cursor_column = 0;  ///< with the next one: where the next `add` looks first
    int cursor_row = 0;
    int seen_width = -1;  ///< with the next one: the parent's size at the last pass
    int seen_height = -1;
    int repeat_count = 0;  ///< how often the pass was repeated at that size
    bool column_major;
    int wrap;

private:
    struct axis;

    static QWidget *holder_of(QLayout *sub_layout);
    void connect_click(QWidget *widget, std::function<void()> on_click);

    void find_free_position();
    void step_cursor();
    void start_line();

    void adopt(cell &new_cell);
    void store(cell &new_cell, position place);
    void set_last(position place);
    void fill_grid();
    void cover_spans();
    void fill_gaps();

    bool begin_pass(QSize size);

    /// Places widget and background in the grid area that begins at x, y. Returns the room that the
    /// cell takes in its row: the area's width, or 0 for a cell without a widget.
    float place_cell(cell &each, const axis &columns, const axis &rows, float x, float y);
};

}  // namespace qor::qt
