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

/// A grid of rows and columns to which a screen hands its widgets one after the other.
///
/// Lines (rows and columns) have a size in pixels, or 0 for automatic: those share what the others
/// leave of the parent widget, which is laid out as a whole. Each widget stands in a `cell` that
/// says the rest. Widgets come in through `add` and never leave: none may die before its layout.
class layout : public QLayout
{
    Q_OBJECT

public:
    /// @param wrap          cells of a line before the next one starts, 0 for no end
    /// @param column_major  false: cells follow each other along a row; true: down a column
    layout(QWidget *parent, int wrap, bool column_major);
    layout(int wrap, bool column_major);

    /// Puts the cell at the first free position from the cursor on; its widget becomes a child of
    /// the layout's parent.
    void add(cell new_cell);

    /// Puts the cell at this position, over what is there. The cursor stays, and the cell's column
    /// width and row height don't count.
    /// @param skip_fill  true: the grid isn't filled up with empty cells
    void add_at(cell new_cell, int column, int row, bool skip_fill);

    /// Adds a plain widget that `sub_layout` lays out and then belongs to.
    template <class... Lists>
    void add(QLayout *sub_layout, const property_list &properties = {}, const Lists &...more)
    {
        cell holder(holder_of(sub_layout));
        holder.apply(properties, more...);
        add(holder);
    }

    /// Adds the widget with these properties, and returns it.
    /// @param on_click  called at the signal `clicked()` of the widget, after `clicked_cell` was
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

    /// The size of a row, to be read or written; 0 is automatic.
    /// @param index  negative: the row of the last cell added, and where there is none the
    ///               program ends; beyond the end: the rows up to this one are made
    int &row_height(int index = -1);

    /// The same for a column.
    int &column_width(int index = -1);

    /// Only ends the program: use `add`.
    void addItem(QLayoutItem *item) override;

    Qt::Orientations expandingDirections() const override;

    /// The sums of the fixed column widths and of the fixed row heights.
    QSize minimumSize() const override;

    /// The row heights' sum as the width and the column widths' sum as the height, each automatic
    /// line as 20: the axes are crossed on purpose.
    QSize sizeHint() const override;

    /// Sets all widgets out on the parent widget, whatever the rectangle. At one and the same size
    /// of the parent at most five times: fixing the widgets' sizes asks for the next time.
    void setGeometry(const QRect &rectangle) override;

    /// The cell of this index among those that are covered or have a widget, row by row; null past
    /// the end.
    QLayoutItem *itemAt(int index) const override;

    /// Always null: nothing leaves a layout. So never call `removeWidget` with one of its widgets:
    /// Qt would try without end.
    QLayoutItem *takeAt(int index) override;
    int count() const override;

    std::map<position, cell> cells;
    std::vector<int> row_heights;  ///< 0 means automatic, also below
    std::vector<int> column_widths;
    int last_column = 0;  ///< with the next one: where the last cell was put
    int last_row = 0;
    int cursor_column = 0;  ///< with the next one: where the next `add` looks first
    int cursor_row = 0;
    int seen_width = -1;  ///< with the next one: the parent's size at the last pass
    int seen_height = -1;
    int repeat_count = 0;  ///< how often the pass ran again at that size
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

    /// Sets widget and background out in a slot that begins at x, y; returns the room that the cell
    /// takes in its row: the slot's width, or nothing for a cell without a widget.
    float place_cell(cell &each, const axis &columns, const axis &rows, float x, float y);
};

}  // namespace qor::qt
