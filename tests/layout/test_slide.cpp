// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/layout.h"
#include "widget_test_main.h"

#include <QDialog>
#include <QElapsedTimer>

#include <limits>

using qor::qt::cell;

namespace
{

constexpr QSize window_size(300, 200);

/// Records what happens to a window: each resize, with the size of the watched content at that
/// time, and each repaint.
class record : public QObject
{
public:
    record(QWidget &window, const QWidget *content) : window(window), content(content)
    {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            seen << entry(window.size(), content->size());
        else if (event->type() == QEvent::Paint)
            seen << "painted";
        return false;
    }

    static QString entry(QSize window, QSize content)
    {
        return QString("window %1x%2, content %3x%4")
            .arg(window.width())
            .arg(window.height())
            .arg(content.width())
            .arg(content.height());
    }

    QStringList seen;

private:
    QWidget &window;
    const QWidget *content;
};

/// The expected record when the layouts are updated with each of these content sizes in turn.
QStringList frames(const QVector<QSize> &contents, bool are_painted)
{
    QStringList entries;
    for (const QSize &content : contents) {
        entries << record::entry(window_size + QSize(0, 1), content);
        entries << record::entry(window_size, content);
        if (are_painted)
            entries << "painted";
    }
    return entries;
}

/// A window with two rows and two columns; the first of each has a fixed size.
struct sliding_window {
    explicit sliding_window(QSize fixed, QWidget *owner = nullptr)
        : window(owner), grid(new qor::qt::layout(&window, 2, false))
    {
        for (int i = 0; i < 4; ++i)
            grid->add(cell(new QWidget));
        grid->column_widths[0] = fixed.width();
        grid->row_heights[0] = fixed.height();
        window.resize(window_size);
    }

    /// Shows the window. Returns true once it is laid out.
    bool show()
    {
        const QSize expected(grid->column_widths[0], grid->row_heights[0]);
        window.show();
        return QTest::qWaitForWindowExposed(&window) &&
               QTest::qWaitFor([&] { return sliding().content->size() == expected; });
    }

    /// The cell in the fixed row and column.
    cell &sliding() { return grid->cells.at({0, 0}); }

    QDialog window;
    qor::qt::layout *grid;
};

struct slide_row {
    const char *name;
    int start;
    int target;
    float seconds;
    QVector<int> sizes;
};

/// The sizes of the line at each frame. There are 25 steps in a second.
const QVector<slide_row> &slides()
{
    static const QVector<slide_row> rows = {
        // clang-format off
        {"down", 100, 40, 0.12f, {80, 60, 40, 40}},
        {"up", 40, 100, 0.12f, {60, 80, 100, 100}},
        {"down in truncated steps", 100, 35, 0.12f, {79, 58, 37, 35}},
        {"up in truncated steps", 35, 100, 0.12f, {56, 77, 98, 100}},
        {"down: no steps, then a jump", 100, 98, 0.12f, {100, 100, 100, 98}},
        {"up: no steps, then a jump", 98, 100, 0.12f, {98, 98, 98, 100}},
        {"a part of a step more is one more", 100, 97, 0.1f, {99, 98, 97, 97}},
        {"down past the target", 100, 50, 0.1f, {80, 60, 50}},
        {"up past the target", 50, 100, 0.1f, {70, 90, 100}},
        {"at least one step", 100, 99, 0.03f, {99, 99}},
        {"the first step passes the target", 100, 40, 0.01f, {40}},
        {"the shortest time", 100, 40, std::numeric_limits<float>::denorm_min(), {40}},
        {"no time", 100, 40, 0, {40}},
        {"negative time", 40, 100, -1, {100}},
        {"already there", 100, 100, 0.12f, {}},
        {"already there, no time", 100, 100, 0, {}},
        // clang-format on
    };
    return rows;
}

}  // namespace

class test_slide : public QObject
{
    Q_OBJECT

private slots:
    void each_step_takes_a_25th_of_a_second();
    void row_slides_to_its_target_data();
    void row_slides_to_its_target();
    void column_slides_unpainted_data();
    void column_slides_unpainted();
    void size_slides_on_both_axes_data();
    void size_slides_on_both_axes();
    void other_lines_stay();
    void automatic_line_starts_at_zero();
    void negative_line_is_the_last();
    void line_beyond_the_end_is_created();
    void target_may_be_automatic();
    void every_slide_ends_at_its_target_data();
    void every_slide_ends_at_its_target();
    void window_keeps_its_size();
    void slides_in_a_nested_layout();
    void moves_the_dialog_and_not_its_owner();
};

/// A slide that doesn't wait between its steps would end immediately. Only a lower limit is
/// checked, so a slow computer can't fail this.
void test_slide::each_step_takes_a_25th_of_a_second()
{
    constexpr int steps = 3;
    constexpr int step_ms = 40;
    sliding_window screen({100, 100});
    QVERIFY(screen.show());
    QElapsedTimer clock;
    clock.start();
    screen.sliding().animate_row_height(40, 0.12F);
    QVERIFY2(clock.elapsed() >= steps * step_ms, qPrintable(QString::number(clock.elapsed())));
}

void test_slide::row_slides_to_its_target_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("target");
    QTest::addColumn<float>("seconds");
    QTest::addColumn<QVector<int>>("sizes");
    for (const slide_row &row : slides())
        QTest::newRow(row.name) << row.start << row.target << row.seconds << row.sizes;
}

void test_slide::row_slides_to_its_target()
{
    QFETCH(int, start);
    QFETCH(int, target);
    QFETCH(float, seconds);
    QFETCH(QVector<int>, sizes);
    sliding_window screen({70, start});
    QVERIFY(screen.show());
    const record events(screen.window, screen.sliding().content);
    screen.sliding().animate_row_height(target, seconds);
    QVector<QSize> contents;
    for (const int height : sizes)
        contents << QSize(70, height);
    QCOMPARE(events.seen, frames(contents, true));
    QCOMPARE(screen.grid->row_heights, std::vector<int>({target, 0}));
    QCOMPARE(screen.grid->column_widths, std::vector<int>({70, 0}));
}

void test_slide::column_slides_unpainted_data()
{
    row_slides_to_its_target_data();
}

void test_slide::column_slides_unpainted()
{
    QFETCH(int, start);
    QFETCH(int, target);
    QFETCH(float, seconds);
    QFETCH(QVector<int>, sizes);
    sliding_window screen({start, 70});
    QVERIFY(screen.show());
    const record events(screen.window, screen.sliding().content);
    screen.sliding().animate_column_width(target, seconds);
    QVector<QSize> contents;
    for (const int width : sizes)
        contents << QSize(width, 70);
    QCOMPARE(events.seen, frames(contents, false));
    QCOMPARE(screen.grid->column_widths, std::vector<int>({target, 0}));
    QCOMPARE(screen.grid->row_heights, std::vector<int>({70, 0}));
}

void test_slide::size_slides_on_both_axes_data()
{
    QTest::addColumn<QSize>("start");
    QTest::addColumn<QSize>("target");
    QTest::addColumn<float>("seconds");
    QTest::addColumn<QVector<QSize>>("sizes");
    using sizes = QVector<QSize>;
    // clang-format off
    QTest::newRow("down and up") << QSize(100, 100) << QSize(40, 160) << 0.12f
                                 << sizes{{80, 120}, {60, 140}, {40, 160}, {40, 160}};
    QTest::newRow("up and down") << QSize(100, 100) << QSize(160, 35) << 0.12f
                                 << sizes{{120, 79}, {140, 58}, {160, 37}, {160, 35}};
    QTest::newRow("the column passes") << QSize(100, 100) << QSize(50, 97) << 0.1f
                                       << sizes{{80, 99}, {60, 98}, {50, 97}};
    QTest::newRow("the row passes") << QSize(100, 100) << QSize(97, 50) << 0.1f
                                    << sizes{{99, 80}, {98, 60}, {97, 50}};
    QTest::newRow("the row passes upwards") << QSize(100, 100) << QSize(97, 150) << 0.1f
                                            << sizes{{99, 120}, {98, 140}, {97, 150}};
    QTest::newRow("no steps, then a jump") << QSize(100, 100) << QSize(98, 102) << 0.12f
                                           << sizes{{100, 100}, {100, 100}, {100, 100}, {98, 102}};
    QTest::newRow("no time") << QSize(100, 100) << QSize(40, 160) << 0.0f << sizes{{40, 160}};
    QTest::newRow("both are there") << QSize(100, 100) << QSize(100, 100) << 0.12f << sizes{};
    QTest::newRow("the column is there") << QSize(100, 100) << QSize(100, 40) << 0.12f << sizes{};
    QTest::newRow("the row is there") << QSize(100, 100) << QSize(40, 100) << 0.12f << sizes{};
    QTest::newRow("the column is there, no time")
        << QSize(100, 100) << QSize(100, 40) << 0.0f << sizes{};
    QTest::newRow("the row is there, no time")
        << QSize(100, 100) << QSize(40, 100) << 0.0f << sizes{};
    // clang-format on
}

void test_slide::size_slides_on_both_axes()
{
    QFETCH(QSize, start);
    QFETCH(QSize, target);
    QFETCH(float, seconds);
    QFETCH(QVector<QSize>, sizes);
    sliding_window screen(start);
    QVERIFY(screen.show());
    const record events(screen.window, screen.sliding().content);
    screen.sliding().animate_size(target.width(), target.height(), seconds);
    const QSize end = sizes.isEmpty() ? start : target;
    QCOMPARE(events.seen, frames(sizes, false));
    QCOMPARE(screen.grid->column_widths, std::vector<int>({end.width(), 0}));
    QCOMPARE(screen.grid->row_heights, std::vector<int>({end.height(), 0}));
}

void test_slide::other_lines_stay()
{
    sliding_window screen({70, 60});
    QVERIFY(screen.show());
    screen.grid->row_heights[1] = 50;
    screen.grid->column_widths[1] = 40;
    cell &below = screen.grid->cells.at({1, 1});
    below.animate_row_height(30, 0);
    QCOMPARE(screen.grid->row_heights, std::vector<int>({60, 30}));
    below.animate_column_width(20, 0);
    QCOMPARE(screen.grid->column_widths, std::vector<int>({70, 20}));
}

void test_slide::automatic_line_starts_at_zero()
{
    sliding_window screen({70, 100});
    QVERIFY(screen.show());
    cell &below = screen.grid->cells.at({0, 1});
    const record events(screen.window, below.content);
    below.animate_row_height(60, 0.12f);
    QCOMPARE(events.seen, frames({{70, 20}, {70, 40}, {70, 60}, {70, 60}}, true));
}

void test_slide::negative_line_is_the_last()
{
    sliding_window screen({70, 60});
    QVERIFY(screen.show());
    cell placeless = screen.sliding();
    placeless.row = -1;
    placeless.column = -3;
    placeless.animate_row_height(50, 0);
    QCOMPARE(screen.grid->row_heights, std::vector<int>({60, 50}));
    placeless.animate_column_width(40, 0);
    QCOMPARE(screen.grid->column_widths, std::vector<int>({70, 40}));
    placeless.animate_size(30, 20, 0);
    QCOMPARE(screen.grid->row_heights, std::vector<int>({60, 20}));
    QCOMPARE(screen.grid->column_widths, std::vector<int>({70, 30}));
}

void test_slide::line_beyond_the_end_is_created()
{
    sliding_window screen({70, 60});
    QVERIFY(screen.show());
    cell outside = screen.sliding();
    outside.row = 3;
    outside.column = 2;
    outside.animate_row_height(30, 0);
    QCOMPARE(screen.grid->row_heights, std::vector<int>({60, 0, 0, 30}));
    outside.animate_column_width(20, 0);
    QCOMPARE(screen.grid->column_widths, std::vector<int>({70, 0, 20}));
}

void test_slide::target_may_be_automatic()
{
    sliding_window screen({70, 60});
    QVERIFY(screen.show());
    const record events(screen.window, screen.sliding().content);
    screen.sliding().animate_row_height(0, 0);
    QCOMPARE(screen.grid->row_heights, std::vector<int>({0, 0}));
    QCOMPARE(events.seen, frames({{70, 100}}, true));
}

void test_slide::every_slide_ends_at_its_target_data()
{
    constexpr int greatest = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("target");
    QTest::newRow("from the greatest to nothing") << greatest << 0;
    QTest::newRow("from nothing to the least") << 0 << least;
    QTest::newRow("from the greatest to the least") << greatest << least;
    QTest::newRow("from the least to the greatest") << least << greatest;
}

/// The window isn't shown, since on a screen it couldn't become this large.
void test_slide::every_slide_ends_at_its_target()
{
    QFETCH(int, start);
    QFETCH(int, target);
    for (const float seconds : {0.1f, std::numeric_limits<float>::denorm_min()}) {
        sliding_window screen({70, start});
        screen.sliding().animate_row_height(target, seconds);
        QCOMPARE(screen.grid->row_heights, std::vector<int>({target, 0}));
    }
}

void test_slide::window_keeps_its_size()
{
    sliding_window screen({70, 60});
    QVERIFY(screen.show());
    screen.window.resize(411, 233);
    const record events(screen.window, screen.sliding().content);
    screen.sliding().animate_size(50, 40, 0.04f);
    QCOMPARE(screen.window.size(), QSize(411, 233));
    const QStringList frame = {record::entry({411, 234}, {50, 40}),
                               record::entry({411, 233}, {50, 40})};
    QCOMPARE(events.seen, frame + frame);
}

void test_slide::slides_in_a_nested_layout()
{
    sliding_window screen({70, 60});
    auto *inner = new qor::qt::layout(1, false);
    inner->add(cell(new QWidget));
    inner->add(cell(new QWidget));
    inner->row_height(0) = 80;
    screen.grid->add(inner);
    screen.grid->row_heights = {60, 10, 0};  // one pixel of window width is one of the holder's
    QVERIFY(screen.show());
    cell &sliding = inner->cells.at({0, 0});
    QTRY_COMPARE(sliding.content->size(), QSize(70, 80));
    const record events(screen.window, sliding.content);
    sliding.animate_row_height(20, 0.12f);
    QCOMPARE(events.seen, frames({{70, 60}, {70, 40}, {70, 20}, {70, 20}}, true));
    QCOMPARE(inner->row_heights, std::vector<int>({20, 0}));
    QCOMPARE(screen.grid->row_heights[0], 60);
}

void test_slide::moves_the_dialog_and_not_its_owner()
{
    QWidget owner;
    owner.resize(500, 400);
    owner.show();
    QVERIFY(QTest::qWaitForWindowExposed(&owner));
    sliding_window screen({70, 100}, &owner);
    QVERIFY(screen.show());
    const record owner_events(owner, &owner);
    const record events(screen.window, screen.sliding().content);
    screen.sliding().animate_row_height(40, 0);
    QCOMPARE(events.seen, frames({{70, 40}}, true));
    QCOMPARE(owner_events.seen, QStringList());
}

KELVRA_WIDGET_TEST_MAIN(test_slide)
#include "test_slide.moc"
