// SPDX-License-Identifier: GPL-3.0-or-later

#include "layout_screen.h"
#include "widget_test_main.h"

#include <functional>
#include <limits>
#include <utility>
#include <vector>

using qor::qt::cell;
using lines = std::vector<int>;
Q_DECLARE_METATYPE(lines)

namespace
{

/// What a cell asks for on one axis.
struct side {
    float size = -1;
    float margin_before = -1;
    float margin_after = -1;
    float padding_before = 0;
    float padding_after = 0;
    int shift = 0;
};

/// Start and size of a widget on one axis, in pixels.
struct area {
    int start = 0;
    int size = 0;
};

bool operator==(const area &left, const area &right)
{
    return left.start == right.start && left.size == right.size;
}

char *toString(const area &shown)
{
    return QTest::toString(QString("%1 long from %2").arg(shown.size).arg(shown.start));
}

cell wishes_on(Qt::Orientation axis, const side &wish)
{
    cell made;
    const bool across = axis == Qt::Horizontal;
    (across ? made.width : made.height) = wish.size;
    (across ? made.margin_left : made.margin_top) = wish.margin_before;
    (across ? made.margin_right : made.margin_bottom) = wish.margin_after;
    (across ? made.padding_left : made.padding_top) = wish.padding_before;
    (across ? made.padding_right : made.padding_bottom) = wish.padding_after;
    (across ? made.shift_x : made.shift_y) = wish.shift;
    return made;
}

area area_on(Qt::Orientation axis, const QWidget *widget)
{
    return axis == Qt::Horizontal ? area{widget->x(), widget->width()}
                                  : area{widget->y(), widget->height()};
}

/// A screen whose cells follow each other along `axis`, 40 pixels in the other direction.
struct strip : layout_screen {
    strip(Qt::Orientation axis, int length)
        : layout_screen(axis == Qt::Horizontal ? QSize(length, 40) : QSize(40, length), 0,
                        axis == Qt::Vertical),
          axis(axis)
    {
    }

    void set_lines(const lines &sizes)
    {
        (axis == Qt::Horizontal ? grid->column_widths : grid->row_heights) = sizes;
    }

    area area_of(const QWidget *widget) const { return area_on(axis, widget); }

    Qt::Orientation axis;
};

/// The rule for placing a cell on one axis, restated: the areas of content and background.
QVector<area> by_the_rule(const side &wish, float slot, float slot_start)
{
    float start = 0;
    float size = 0;
    if (wish.size > 0) {
        size = wish.size;
        if (wish.margin_before < 0 && wish.margin_after < 0)
            start = slot * 0.5f - 0.5f * wish.size + slot_start;
        else if (wish.margin_before < 0)
            start = slot - wish.size - wish.margin_after + slot_start;
        else if (wish.margin_after < 0)
            start = wish.margin_before + slot_start;
        else
            start = slot_start;
    } else {
        size = slot;
        start = slot_start;
        if (wish.margin_before >= 0)
            size -= wish.margin_before;
        if (wish.margin_after >= 0)
            size -= wish.margin_after;
        if (wish.margin_before >= 0)
            start += wish.margin_before;
        start += wish.padding_before;
        size -= wish.padding_before + wish.padding_after;
    }
    const auto cut = [](float length) { return int(length); };
    const int content_size = cut(size);
    const int background_size = cut(size + wish.padding_before + wish.padding_after);
    return {{cut(float(wish.shift) + start), content_size < 0 ? 0 : content_size},
            {cut(start - wish.padding_before), background_size < 0 ? 0 : background_size}};
}

/// All combinations of these values.
QVector<side> many_wishes()
{
    QVector<side> wishes;
    for (const float size : {-1.0f, 0.0f, 0.5f, 33.25f, 50.0f, 300.0f}) {
        for (const float margin_before : {-7.0f, 0.0f, 7.5f, 150.0f}) {
            for (const float margin_after : {-7.0f, 0.0f, 12.25f, 150.0f}) {
                for (const float padding_before : {0.0f, 3.5f, 220.0f}) {
                    for (const float padding_after : {0.0f, 5.75f, -20.0f}) {
                        for (const int shift : {0, 9, -70})
                            wishes.append({size, margin_before, margin_after, padding_before,
                                           padding_after, shift});
                    }
                }
            }
        }
    }
    return wishes;
}

void add_axis_rows(const char *name, const std::function<void(QTestData &)> &fill)
{
    for (const Qt::Orientation axis : {Qt::Horizontal, Qt::Vertical}) {
        const char *direction = axis == Qt::Horizontal ? "across" : "down";
        fill(QTest::addRow("%s, %s", name, direction) << axis);
    }
}

}  // namespace

Q_DECLARE_METATYPE(side)
Q_DECLARE_METATYPE(area)

class test_layout_geometry : public QObject
{
    Q_OBJECT

private slots:
    void content_is_placed_in_its_slot_data();
    void content_is_placed_in_its_slot();
    void every_combination_is_placed_by_the_rule_data();
    void every_combination_is_placed_by_the_rule();
    void automatic_lines_share_the_rest_data();
    void automatic_lines_share_the_rest();
    void positions_are_computed_in_single_precision_data();
    void positions_are_computed_in_single_precision();
    void slot_of_a_span_is_the_sum_data();
    void slot_of_a_span_is_the_sum();
    void position_beyond_an_int_is_clamped();
};

void test_layout_geometry::content_is_placed_in_its_slot_data()
{
    QTest::addColumn<Qt::Orientation>("axis");
    QTest::addColumn<side>("wish");
    QTest::addColumn<area>("content");
    QTest::addColumn<area>("background");
    // The cell's grid area begins at pixel 30 and is 200 pixels long.
    const struct {
        const char *name;
        side wish;
        area content;
        area background;
    } rows[] = {
        // clang-format off
        {"fixed, no margin: centred", {50}, {105, 50}, {105, 50}},
        {"fixed, no margin, odd: half a pixel is cut", {51}, {104, 51}, {104, 51}},
        {"fixed, margin before", {50, 7}, {37, 50}, {37, 50}},
        {"fixed, margin before of nothing", {50, 0}, {30, 50}, {30, 50}},
        {"fixed, margin after: against the end", {50, -1, 7}, {173, 50}, {173, 50}},
        {"fixed, margin after of nothing", {50, -1, 0}, {180, 50}, {180, 50}},
        {"fixed, both margins: at the start", {50, 7, 9}, {30, 50}, {30, 50}},
        {"fixed, both margins of nothing", {50, 0, 0}, {30, 50}, {30, 50}},
        {"fixed, padding widens only the background", {50, -1, -1, 4, 6}, {105, 50}, {101, 60}},
        {"fixed, both margins with padding", {50, 7, 9, 4, 6}, {30, 50}, {26, 60}},
        {"fixed, longer than the slot: centred", {260}, {0, 260}, {0, 260}},
        {"fixed, longer than the slot: over the edge", {270}, {-5, 270}, {-5, 270}},
        {"fixed, longer than the slot: at the end", {260, -1, 0}, {-30, 260}, {-30, 260}},
        {"fixed, a part of a pixel", {0.5f, 0}, {30, 0}, {30, 0}},
        {"fills", {}, {30, 200}, {30, 200}},
        {"fills, size of nothing", {0}, {30, 200}, {30, 200}},
        {"fills, margin before", {-1, 7}, {37, 193}, {37, 193}},
        {"fills, margin after", {-1, -1, 9}, {30, 191}, {30, 191}},
        {"fills, both margins", {-1, 7, 9}, {37, 184}, {37, 184}},
        {"fills, margins of nothing", {-1, 0, 0}, {30, 200}, {30, 200}},
        {"fills, margins below zero aren't set", {-1, -7, -9}, {30, 200}, {30, 200}},
        {"fills, padding", {-1, -1, -1, 4, 6}, {34, 190}, {30, 200}},
        {"fills, margins and padding", {-1, 7, 9, 4, 6}, {41, 174}, {37, 184}},
        {"fills, parts of pixels are cut one by one",
         {-1, 7.5f, 9.75f, 0.75f, 0.5f}, {38, 181}, {37, 182}},
        {"fills, margins longer than the slot", {-1, 150, 60}, {180, 0}, {180, 0}},
        {"fills, padding longer than the slot", {-1, -1, -1, 150, 60}, {180, 0}, {30, 200}},
        {"shift moves only the content", {50, -1, -1, 4, 6, 11}, {116, 50}, {101, 60}},
        {"shift back", {-1, 7, -1, 0, 0, -20}, {17, 193}, {37, 193}},
        {"shift over the edge", {-1, -1, -1, 0, 0, -35}, {-5, 200}, {30, 200}},
        {"shift is added before the cut", {-1, 0.5f, -1, 0, 0, -31}, {0, 199}, {30, 199}},
        // clang-format on
    };
    for (const auto &row : rows)
        add_axis_rows(row.name,
                      [&](QTestData &data) { data << row.wish << row.content << row.background; });
}

void test_layout_geometry::content_is_placed_in_its_slot()
{
    QFETCH(Qt::Orientation, axis);
    QFETCH(side, wish);
    strip screen(axis, 500);
    screen.add();
    const cell &tested = screen.add(wishes_on(axis, wish));
    screen.set_lines({30, 200});
    screen.pass();
    QTEST(screen.area_of(tested.content), "content");
    QTEST(screen.area_of(tested.background_widget()), "background");
}

void test_layout_geometry::every_combination_is_placed_by_the_rule_data()
{
    QTest::addColumn<Qt::Orientation>("axis");
    QTest::addColumn<int>("length");
    QTest::addColumn<lines>("sizes");
    QTest::addColumn<float>("slot");
    QTest::addColumn<float>("slot_start");
    // The cell under test is in the second line.
    add_axis_rows("fixed slot", [](QTestData &data) {
        data << 500 << lines{30, 200} << 200.0f << 30.0f;
    });
    add_axis_rows("shared slot", [](QTestData &data) {
        data << 301 << lines{100, 0, 0} << 100.5f << 100.0f;
    });
    add_axis_rows("shared slots before", [](QTestData &data) {
        data << 100 << lines{0, 0, 0} << 100.0f / 3.0f << 100.0f / 3.0f;
    });
    add_axis_rows("no room at all", [](QTestData &data) {
        data << 100 << lines{130, 0} << -30.0f << 130.0f;
    });
}

void test_layout_geometry::every_combination_is_placed_by_the_rule()
{
    QFETCH(Qt::Orientation, axis);
    QFETCH(int, length);
    QFETCH(lines, sizes);
    QFETCH(float, slot);
    QFETCH(float, slot_start);
    strip screen(axis, length);
    screen.add();
    screen.add();
    screen.set_lines(sizes);
    cell &tested = screen.grid->cells.at(axis == Qt::Horizontal ? qor::qt::position{1, 0}
                                                                : qor::qt::position{0, 1});
    QWidget *content = tested.content;
    QWidget *background = tested.background_widget();
    for (const side &wish : many_wishes()) {
        cell changed = wishes_on(axis, wish);
        changed.content = content;
        delete std::exchange(changed.background, background);
        changed.row = tested.row;
        changed.column = tested.column;
        tested = changed;
        screen.grid->seen_width = -1;
        screen.pass();
        const QVector<area> expected = by_the_rule(wish, slot, slot_start);
        const QString shown = QString("size %1, margins %2 %3, paddings %4 %5, shift %6")
                                  .arg(double(wish.size))
                                  .arg(double(wish.margin_before))
                                  .arg(double(wish.margin_after))
                                  .arg(double(wish.padding_before))
                                  .arg(double(wish.padding_after))
                                  .arg(wish.shift);
        QVERIFY2(screen.area_of(content) == expected[0], qPrintable(shown));
        QVERIFY2(screen.area_of(background) == expected[1], qPrintable(shown));
    }
}

void test_layout_geometry::automatic_lines_share_the_rest_data()
{
    QTest::addColumn<Qt::Orientation>("axis");
    QTest::addColumn<int>("length");
    QTest::addColumn<lines>("sizes");
    QTest::addColumn<QVector<area>>("areas");
    const struct {
        const char *name;
        int length;
        lines sizes;
        QVector<area> areas;
    } rows[] = {
        // clang-format off
        {"one automatic line", 300, {0}, {{0, 300}}},
        {"fixed lines leave the rest empty", 300, {50, 60}, {{0, 50}, {50, 60}}},
        {"half pixels are cut one by one", 301, {100, 0, 0}, {{0, 100}, {100, 100}, {200, 100}}},
        {"a fixed line between", 301, {0, 100, 0}, {{0, 100}, {100, 100}, {200, 100}}},
        {"a fixed line at the end", 301, {0, 0, 100}, {{0, 100}, {100, 100}, {201, 100}}},
        {"thirds", 200, {0, 0, 0}, {{0, 66}, {66, 66}, {133, 66}}},
        {"thirds add up in single precision", 130, {0, 0, 0, 30}, {{0, 33}, {33, 33}, {66, 33}, {100, 30}}},
        {"sixths add up to less in single precision", 130, {0, 0, 0, 0, 0, 0, 30},
         {{0, 16}, {16, 16}, {33, 16}, {50, 16}, {66, 16}, {83, 16}, {99, 30}}},
        {"nothing left", 100, {100, 0}, {{0, 100}, {100, 0}}},
        {"less than nothing left", 100, {150, 0, 70}, {{0, 150}, {150, 0}, {30, 70}}},
        {"a negative line is fixed", 100, {-20, 0}, {{0, 0}, {-20, 120}}},
        // clang-format on
    };
    for (const auto &row : rows)
        add_axis_rows(row.name,
                      [&](QTestData &data) { data << row.length << row.sizes << row.areas; });
}

void test_layout_geometry::automatic_lines_share_the_rest()
{
    QFETCH(Qt::Orientation, axis);
    QFETCH(int, length);
    QFETCH(lines, sizes);
    strip screen(axis, length);
    QVector<QWidget *> widgets;
    for (std::size_t i = 0; i < sizes.size(); ++i)
        widgets << screen.add().content;
    screen.set_lines(sizes);
    screen.pass();
    QVector<area> areas;
    for (const QWidget *widget : widgets) {
        areas << screen.area_of(widget);
        const Qt::Orientation other = axis == Qt::Horizontal ? Qt::Vertical : Qt::Horizontal;
        QCOMPARE(area_on(other, widget), area({0, 40}));
    }
    QTEST(areas, "areas");
}

void test_layout_geometry::positions_are_computed_in_single_precision_data()
{
    QTest::addColumn<Qt::Orientation>("axis");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("tested");
    QTest::addColumn<side>("wish");
    QTest::addColumn<area>("expected");
    // In exact arithmetic these would begin one pixel later.
    add_axis_rows("centred in the middle third", [](QTestData &data) {
        data << 3 << 1 << side{36} << area{31, 36};
    });
    add_axis_rows("at the end of the last third", [](QTestData &data) {
        data << 3 << 2 << side{33, -1, 3} << area{63, 33};
    });
}

void test_layout_geometry::positions_are_computed_in_single_precision()
{
    QFETCH(Qt::Orientation, axis);
    QFETCH(int, count);
    QFETCH(int, tested);
    QFETCH(side, wish);
    strip screen(axis, 100);
    QVector<QWidget *> widgets;
    for (int i = 0; i < count; ++i)
        widgets << screen.add(i == tested ? wishes_on(axis, wish) : cell()).content;
    screen.pass();
    QTEST(screen.area_of(widgets[tested]), "expected");
}

void test_layout_geometry::slot_of_a_span_is_the_sum_data()
{
    QTest::addColumn<Qt::Orientation>("axis");
    QTest::addColumn<int>("length");
    QTest::addColumn<lines>("sizes");
    QTest::addColumn<int>("span");
    QTest::addColumn<area>("expected");
    const struct {
        const char *name;
        int length;
        lines sizes;
        int span;
        area expected;
    } rows[] = {
        // clang-format off
        {"one line", 300, {30, 50, 60}, 1, {30, 50}},
        {"two fixed lines", 300, {30, 50, 60}, 2, {30, 110}},
        {"fixed and automatic", 300, {30, 50, 0, 70}, 3, {30, 270}},
        {"half pixels add up", 301, {100, 0, 0}, 2, {100, 201}},
        {"no line", 300, {30, 50, 60}, 0, {30, 0}},
        {"less than no line", 300, {30, 50, 60}, -1, {30, 0}},
        {"beyond the lines: automatic ones", 300, {30, 0}, 2, {30, 540}},
        {"beyond fixed lines: nothing", 300, {30, 50}, 3, {30, 50}},
        {"sixths add up to less in single precision", 130, {30, 0, 0, 0, 0, 0, 0}, 6, {30, 99}},
        // clang-format on
    };
    for (const auto &row : rows)
        add_axis_rows(row.name, [&](QTestData &data) {
            data << row.length << row.sizes << row.span << row.expected;
        });
}

void test_layout_geometry::slot_of_a_span_is_the_sum()
{
    QFETCH(Qt::Orientation, axis);
    QFETCH(int, length);
    QFETCH(lines, sizes);
    QFETCH(int, span);
    strip screen(axis, length);
    screen.add();
    cell &tested = screen.add();
    (axis == Qt::Horizontal ? tested.column_span : tested.row_span) = span;
    screen.set_lines(sizes);
    screen.pass();
    QTEST(screen.area_of(tested.content), "expected");
}

void test_layout_geometry::position_beyond_an_int_is_clamped()
{
    layout_screen screen(QSize(300, 200), 2);
    const cell far_right = screen.add(wishes_on(Qt::Horizontal, {50, 3e9f}));
    const cell far_left = screen.add(wishes_on(Qt::Horizontal, {50, -1, 3e9f}));
    screen.pass();
    QCOMPARE(far_right.content->x(), std::numeric_limits<int>::max() - QWIDGETSIZE_MAX);
    QCOMPARE(far_left.content->x(), std::numeric_limits<int>::min());
    QCOMPARE(far_right.content->width(), 50);
}

KELVRA_WIDGET_TEST_MAIN(test_layout_geometry)
#include "test_layout_geometry.moc"
