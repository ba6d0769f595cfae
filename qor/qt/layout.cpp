// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/layout.h"

#include "qor/assertion.h"
#include "qor/exception.h"
#include "qor/qt/lambda.h"
#include "qor/qt/whole_pixels.h"

#include <QWidget>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>

namespace qor::qt
{

namespace
{

constexpr int hinted_automatic_size = 20;
constexpr int further_passes = 4;

/// The content on one axis: its size, or 0 or less to fill its grid area, and the space around it.
struct extent {
    float size;
    float margin_before;
    float margin_after;
    float padding_before;
    float padding_after;
};

/// Where the content is on one axis.
struct axis_span {
    float start;
    float size;
};

axis_span place_fixed(const extent &content, float slot, float slot_start)
{
    const bool is_bound_before = content.margin_before >= 0;
    const bool is_bound_after = content.margin_after >= 0;
    if (!is_bound_before && !is_bound_after)
        return {slot * 0.5F - 0.5F * content.size + slot_start, content.size};
    if (!is_bound_before)
        return {slot - content.size - content.margin_after + slot_start, content.size};
    if (!is_bound_after)
        return {content.margin_before + slot_start, content.size};
    return {slot_start, content.size};
}

axis_span place_filling(const extent &content, float slot, float slot_start)
{
    axis_span place = {slot_start, slot};
    if (content.margin_before >= 0) {
        place.start += content.margin_before;
        place.size -= content.margin_before;
    }
    if (content.margin_after >= 0)
        place.size -= content.margin_after;
    place.start += content.padding_before;
    place.size -= content.padding_before + content.padding_after;
    return place;
}

axis_span place(const extent &content, float slot, float slot_start)
{
    return content.size > 0 ? place_fixed(content, slot, slot_start)
                            : place_filling(content, slot, slot_start);
}

/// Where the background is on one axis: the content's place plus the padding around it.
axis_span padded(const axis_span &content, const extent &around)
{
    return {content.start - around.padding_before,
            content.size + around.padding_before + around.padding_after};
}

/// Limited so that the other edge of a widget of any size fits in an int, as Qt requires.
int whole_place(float start)
{
    constexpr int farthest = std::numeric_limits<int>::max() - QWIDGETSIZE_MAX;
    return std::min(whole_pixels(start), farthest);
}

void set_area(QWidget &widget, const axis_span &across, const axis_span &down,
              QPoint shift = QPoint())
{
    widget.move(whole_place(static_cast<float>(shift.x()) + across.start),
                whole_place(static_cast<float>(shift.y()) + down.start));
    widget.setFixedSize(std::max(0, whole_pixels(across.size)),
                        std::max(0, whole_pixels(down.size)));
}

int sum_of(const std::vector<int> &lines, int automatic_size)
{
    const auto add = [=](std::int64_t sum, int line) {
        return sum + (line == 0 ? automatic_size : line);
    };
    return whole_pixels(std::accumulate(lines.begin(), lines.end(), std::int64_t(0), add));
}

void grow(std::vector<int> &lines, int last)
{
    if (last >= static_cast<int>(lines.size()))
        lines.resize(static_cast<std::size_t>(last) + 1);
}

int &line_at(std::vector<int> &lines, int index, int last)
{
    if (index < 0 && (lines.empty() || last < 0))
        assertion_failed("!lines.empty() && last >= 0", __FILE__, __LINE__,
                         "int& qor::qt::line_at(std::vector<int>&, int, int)");
    const int asked = index < 0 ? last : index;
    grow(lines, asked);
    return lines[static_cast<std::size_t>(asked)];
}

}  // namespace

/// The lines of one direction during a pass.
struct layout::axis {
    axis(const std::vector<int> &lines, int total) : lines(lines)
    {
        const float free = static_cast<float>(total) - static_cast<float>(sum_of(lines, 0));
        const auto automatic_lines = std::count(lines.begin(), lines.end(), 0);
        if (automatic_lines > 0)
            automatic_size = free / static_cast<float>(automatic_lines);
    }

    /// The size of a line; one past the end is automatic.
    float size_of(int index) const
    {
        const bool is_fixed = index >= 0 && index < count() && lines[std::size_t(index)] != 0;
        return is_fixed ? static_cast<float>(lines[std::size_t(index)]) : automatic_size;
    }

    /// The size of `span` lines from `first` on.
    /// @param first_size  if positive, replaces the size of the first line
    float slot(int first, int span, int first_size) const
    {
        float size = 0;
        for (int i = 0; i < span; ++i)
            size += i == 0 && first_size > 0 ? static_cast<float>(first_size) : size_of(first + i);
        return size;
    }

    int count() const { return static_cast<int>(lines.size()); }

    const std::vector<int> &lines;
    float automatic_size = 0;
};

layout::layout(QWidget *parent, int wrap, bool column_major)
    : QLayout(parent), column_major(column_major), wrap(wrap)
{
}

layout::layout(int wrap, bool column_major) : layout(nullptr, wrap, column_major) {}

void layout::add(cell new_cell)
{
    adopt(new_cell);
    find_free_position();
    const position place = {cursor_column, cursor_row};
    store(new_cell, place);
    fill_grid();
    set_last(place);
    if (new_cell.column_width > 0)
        column_width() = new_cell.column_width;
    if (new_cell.row_height > 0)
        row_height() = new_cell.row_height;
    if (new_cell.new_line)
        start_line();
    else
        step_cursor();
    find_free_position();
}

void layout::add_at(cell new_cell, int column, int row, bool skip_fill)
{
    const position place = {column, row};
    adopt(new_cell);
    store(new_cell, place);
    if (!skip_fill)
        fill_grid();
    set_last(place);
}

int &layout::row_height(int index)
{
    return line_at(row_heights, index, last_row);
}

int &layout::column_width(int index)
{
    return line_at(column_widths, index, last_column);
}

void layout::addItem(QLayoutItem *)
{
    throw exception("This layout works different. Use add() instead.");
}

Qt::Orientations layout::expandingDirections() const
{
    return Qt::Horizontal | Qt::Vertical;
}

QSize layout::minimumSize() const
{
    return {sum_of(column_widths, 0), sum_of(row_heights, 0)};
}

QSize layout::sizeHint() const
{
    return {sum_of(row_heights, hinted_automatic_size),
            sum_of(column_widths, hinted_automatic_size)};
}

void layout::setGeometry(const QRect &)
{
    const QWidget *parent = parentWidget();
    if (!parent || !begin_pass(parent->size()))
        return;
    const axis columns(column_widths, parent->width());
    const axis rows(row_heights, parent->height());
    float y = 0;
    for (int row = 0; row < rows.count(); ++row) {
        float x = 0;
        for (int column = 0; column < columns.count(); ++column) {
            const auto found = cells.find({column, row});
            if (found != cells.end())
                x += place_cell(found->second, columns, rows, x, y);
        }
        y += rows.size_of(row);
    }
}

QLayoutItem *layout::itemAt(int index) const
{
    if (index < 0)
        return nullptr;
    for (const auto &[place, each] : cells) {
        if (!each.isEmpty() && index-- == 0)
            return const_cast<cell *>(&each);  // Qt wants items that aren't const
    }
    return nullptr;
}

QLayoutItem *layout::takeAt(int)
{
    return nullptr;
}

int layout::count() const
{
    return static_cast<int>(std::count_if(
        cells.begin(), cells.end(), [](const auto &entry) { return !entry.second.isEmpty(); }));
}

QWidget *layout::holder_of(QLayout *sub_layout)
{
    auto *holder = new QWidget;
    holder->setLayout(sub_layout);
    return holder;
}

void layout::connect_click(QWidget *widget, std::function<void()> on_click)
{
    cell *stored = &cells.at({last_column, last_row});
    auto *receiver = new lambda([stored, on_click = std::move(on_click)] {
        clicked_cell = stored;
        on_click();
    });
    connect(widget, "2clicked()", receiver, "1call()");
}

void layout::find_free_position()
{
    const auto is_taken = [this] {
        const auto found = cells.find({cursor_column, cursor_row});
        return found != cells.end() && !found->second.isEmpty();
    };
    while (is_taken())
        step_cursor();
}

void layout::step_cursor()
{
    int &along = column_major ? cursor_row : cursor_column;
    ++along;
    if (wrap != 0 && along >= wrap)
        start_line();
}

void layout::start_line()
{
    int &along = column_major ? cursor_row : cursor_column;
    int &across = column_major ? cursor_column : cursor_row;
    ++across;
    along = 0;
}

void layout::adopt(cell &new_cell)
{
    if (new_cell.widget())
        new_cell.widget()->setParent(parentWidget());
    new_cell.owner = this;
}

void layout::store(cell &new_cell, position place)
{
    new_cell.column = place.column;
    new_cell.row = place.row;
    cell &stored = cells.insert_or_assign(place, new_cell).first->second;
    if (stored.widget())
        widget_cells[stored.widget()] = &stored;
}

void layout::set_last(position place)
{
    last_column = place.column;
    last_row = place.row;
    grow(column_widths, last_column);
    grow(row_heights, last_row);
}

void layout::fill_grid()
{
    cover_spans();
    fill_gaps();
}

void layout::cover_spans()
{
    cell covered;
    covered.spanned = true;
    for (const auto &[place, each] : cells) {
        for (int i = 0; i < each.column_span; ++i) {
            for (int j = 0; j < each.row_span; ++j) {
                if (i != 0 || j != 0)
                    add_at(covered, place.column + i, place.row + j, true);
            }
        }
    }
}

void layout::fill_gaps()
{
    for (int column = 0; column < static_cast<int>(column_widths.size()); ++column) {
        for (int row = 0; row < static_cast<int>(row_heights.size()); ++row) {
            const cell empty;
            if (cells.find({column, row}) == cells.end())
                add_at(empty, column, row, false);
        }
    }
}

bool layout::begin_pass(QSize size)
{
    const bool is_repeated = size == QSize(seen_width, seen_height);
    if (is_repeated && repeat_count >= further_passes)
        return false;
    repeat_count = is_repeated ? repeat_count + 1 : 0;
    seen_width = size.width();
    seen_height = size.height();
    return true;
}

float layout::place_cell(cell &each, const axis &columns, const axis &rows, float x, float y)
{
    const extent across = {each.width, each.margin_left, each.margin_right, each.padding_left,
                           each.padding_right};
    const extent down = {each.height, each.margin_top, each.margin_bottom, each.padding_top,
                         each.padding_bottom};
    const float slot_width = columns.slot(each.column, each.column_span, each.first_column_width);
    const float slot_height = rows.slot(each.row, each.row_span, 0);
    const axis_span across_place = place(across, slot_width, x);
    const axis_span down_place = place(down, slot_height, y);

    QWidget *content = each.widget();
    if (content)
        set_area(*content, across_place, down_place, {each.shift_x, each.shift_y});
    if (each.background_widget()) {
        set_area(*each.background_widget(), padded(across_place, across), padded(down_place, down));
        each.background_widget()->setParent(parentWidget());
    }
    if (!content)
        return 0;
    content->setParent(parentWidget());
    content->raise();
    return slot_width;
}

}  // namespace qor::qt
