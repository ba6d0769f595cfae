// SPDX-License-Identifier: GPL-3.0-or-later

#include "cell_sides.h"
#include "orv/clickable_label.h"
#include "qor/qt/cell.h"
#include "qor/qt/layout.h"
#include "qor/qt/properties.h"
#include "widget_test_main.h"

#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <functional>
#include <type_traits>

using qor::property_list;
using qor::qt::cell;
using qor::qt::clicked_cell;
using qor::qt::layout;
namespace properties = qor::qt::properties;

/// Functions that Qt calls for each object created and destroyed: see qhooks_p.h of Qt 5.
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace
{

constexpr int hook_for_made_objects = 3;
constexpr int hook_for_dying_objects = 4;

/// Counts the kit's click receivers that are created during its lifetime.
class made_lambdas
{
public:
    made_lambdas()
    {
        objects.clear();
        qtHookData[hook_for_made_objects] = reinterpret_cast<quintptr>(&note);
        qtHookData[hook_for_dying_objects] = reinterpret_cast<quintptr>(&forget);
    }

    ~made_lambdas()
    {
        qtHookData[hook_for_made_objects] = 0;
        qtHookData[hook_for_dying_objects] = 0;
    }

    made_lambdas(const made_lambdas &) = delete;
    made_lambdas &operator=(const made_lambdas &) = delete;

    int count() const
    {
        return static_cast<int>(
            std::count_if(objects.begin(), objects.end(), [](const QObject *object) {
                return object->inherits("qor::qt::lambda");
            }));
    }

private:
    static void note(QObject *object) { objects.insert(object); }
    static void forget(QObject *object) { objects.remove(object); }

    static inline QSet<QObject *> objects;
};

/// A button that shows how many receivers its click has.
class open_button : public QPushButton
{
public:
    int click_receivers() const { return receivers("2clicked()"); }
};

/// A window on the screen that is filled by a layout.
struct laid_out_window {
    laid_out_window() { window.resize(300, 200); }

    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    /// Clicks the middle of a widget, through events of the window.
    void click(const QWidget &widget)
    {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(&window, widget.rect().center()));
    }

    QWidget window;
    layout *grid = new layout(&window, 2, false);
};

}  // namespace

class test_layout_adding : public QObject
{
    Q_OBJECT

private slots:
    void size_is_fixed_at_once_and_kept_by_later_passes();
    void hidden_widget_stays_hidden_in_a_shown_window();
    void disabled_widget_gets_no_click();
    void widget_is_added_with_its_properties_and_returned();
    void widget_is_added_with_several_lists();
    void click_runs_the_function();
    void click_runs_the_function_immediately();
    void clicked_cell_is_set_before_the_function_runs();
    void clicked_cell_is_the_stored_one_even_if_it_spans();
    void any_widget_with_a_click_can_be_added();
    void widget_without_a_click_only_causes_a_warning();
    void empty_function_makes_no_connection_and_no_receiver_data();
    void empty_function_makes_no_connection_and_no_receiver();
    void sub_layout_gets_a_holder_with_the_properties();
    void sub_layout_is_added_with_several_lists();
    void sub_layout_needs_no_property_and_no_parent();
};

void test_layout_adding::size_is_fixed_at_once_and_kept_by_later_passes()
{
    laid_out_window screen;
    auto *label = screen.grid->add(new QLabel("text"), {}, {properties::size(40, 50)});
    QCOMPARE(label->minimumSize(), QSize(40, 50));
    QCOMPARE(label->maximumSize(), QSize(40, 50));
    screen.show();
    QTRY_COMPARE(label->x(), (300 - 40) / 2);
    QCOMPARE(label->size(), QSize(40, 50));
    label->setFixedSize(7, 7);
    screen.window.resize(400, 250);
    QTRY_COMPARE(label->x(), (400 - 40) / 2);
    QCOMPARE(label->size(), QSize(40, 50));
    QCOMPARE(label->minimumSize(), QSize(40, 50));
    QCOMPARE(label->maximumSize(), QSize(40, 50));
}

void test_layout_adding::hidden_widget_stays_hidden_in_a_shown_window()
{
    laid_out_window screen;
    const auto *hidden = screen.grid->add(new QLabel("hidden"), {}, {&properties::hide});
    const auto *plain = screen.grid->add(new QLabel("plain"), {}, {});
    screen.show();
    QVERIFY(plain->isVisible());
    QVERIFY(!hidden->isVisible());
}

void test_layout_adding::disabled_widget_gets_no_click()
{
    int clicks = 0;
    laid_out_window screen;
    const auto count = [&] { ++clicks; };
    const auto *disabled =
        screen.grid->add(new QPushButton("disabled"), count, {&properties::disable});
    screen.show();
    screen.click(*disabled);
    QCOMPARE(clicks, 0);
}

void test_layout_adding::widget_is_added_with_its_properties_and_returned()
{
    laid_out_window screen;
    auto *given = new QPushButton("text");
    auto *returned =
        screen.grid->add<QPushButton>(given, [] {},
                                      {properties::margin(5), properties::column_width(70),
                                       properties::row_height(30), &properties::new_line});
    static_assert(std::is_same_v<decltype(returned), QPushButton *>);
    QCOMPARE(returned, given);
    QCOMPARE(returned->parentWidget(), &screen.window);
    const cell &stored = screen.grid->cells.at({0, 0});
    QCOMPARE(stored.content, returned);
    QCOMPARE(margins_of(stored), QStringList({"5", "5", "5", "5"}));
    QCOMPARE(screen.grid->column_width(), 70);
    QCOMPARE(screen.grid->row_height(), 30);
    auto *next = screen.grid->add(new QLabel("next line"), {}, {});
    static_assert(std::is_same_v<decltype(next), QLabel *>);
    QCOMPARE(screen.grid->cells.at({0, 1}).content, next);
}

void test_layout_adding::widget_is_added_with_several_lists()
{
    const property_list first = {properties::margin(1, 2, 3, 4), properties::width(5)};
    const property_list second = {properties::margin_left(9)};
    const property_list third = {properties::margin_top(8)};
    laid_out_window screen;
    screen.grid->add(new QLabel("text"), {}, first, second, third);
    const cell &stored = screen.grid->cells.at({0, 0});
    QCOMPARE(margins_of(stored), QStringList({"8", "2", "3", "9"}));
    QCOMPARE(stored.width, 5.f);
}

void test_layout_adding::click_runs_the_function()
{
    QStringList clicked;
    laid_out_window screen;
    const auto *left = screen.grid->add(new QPushButton("left"), [&] { clicked << "left"; }, {});
    const auto *right = screen.grid->add(new QPushButton("right"), [&] { clicked << "right"; }, {});
    screen.show();
    QTRY_COMPARE(right->x(), 150);
    screen.click(*right);
    QCOMPARE(clicked, QStringList{"right"});
    screen.click(*left);
    screen.click(*left);
    QCOMPARE(clicked, QStringList({"right", "left", "left"}));
}

void test_layout_adding::click_runs_the_function_immediately()
{
    int clicks = 0;
    laid_out_window screen;
    auto *button = screen.grid->add(new QPushButton("text"), [&] { ++clicks; }, {});
    emit button->clicked();
    QCOMPARE(clicks, 1);
}

void test_layout_adding::clicked_cell_is_set_before_the_function_runs()
{
    const cell *seen = nullptr;
    const auto look = [&] { seen = clicked_cell; };
    laid_out_window screen;
    const auto *left = screen.grid->add(new QPushButton("left"), look, {});
    const auto *right = screen.grid->add(new QPushButton("right"), look, {});
    const auto *without_function = screen.grid->add(new QPushButton("without"), {}, {});
    screen.show();
    QTRY_COMPARE(right->x(), 150);
    screen.click(*right);
    QCOMPARE(seen, &screen.grid->cells.at({1, 0}));
    screen.click(*left);
    QCOMPARE(seen, &screen.grid->cells.at({0, 0}));
    screen.click(*without_function);
    QCOMPARE(clicked_cell, &screen.grid->cells.at({0, 0}));
}

void test_layout_adding::clicked_cell_is_the_stored_one_even_if_it_spans()
{
    laid_out_window screen;
    screen.grid->add(new QLabel("above"), {}, {&properties::new_line});
    auto *button = screen.grid->add(new QPushButton("wide"), [] {},
                                    {properties::column_span(2), properties::row_span(2)});
    screen.grid->add(new QLabel("below"), {}, {});
    screen.show();
    screen.click(*button);
    QCOMPARE(clicked_cell, &screen.grid->cells.at({0, 1}));
    QCOMPARE(clicked_cell->widget(), button);
    QCOMPARE(clicked_cell, qor::qt::widget_cells.at(button));
}

void test_layout_adding::any_widget_with_a_click_can_be_added()
{
    int clicks = 0;
    laid_out_window screen;
    const auto *label = screen.grid->add(new orv::clickable_label("label"), [&] { ++clicks; }, {});
    screen.show();
    screen.click(*label);
    QCOMPARE(clicks, 1);
}

void test_layout_adding::widget_without_a_click_only_causes_a_warning()
{
    QTest::ignoreMessage(QtWarningMsg, "QObject::connect: No such signal QLabel::clicked()");
    laid_out_window screen;
    auto *label = screen.grid->add(new QLabel("text"), [] {}, {});
    QCOMPARE(screen.grid->cells.at({0, 0}).content, label);
}

void test_layout_adding::empty_function_makes_no_connection_and_no_receiver_data()
{
    QTest::addColumn<bool>("empty");
    QTest::newRow("empty") << true;
    QTest::newRow("set") << false;
}

void test_layout_adding::empty_function_makes_no_connection_and_no_receiver()
{
    QFETCH(bool, empty);
    const std::function<void()> on_click = empty ? std::function<void()>() : [] {};
    laid_out_window screen;
    auto *button = new open_button;
    const made_lambdas made;
    screen.grid->add(button, on_click, {});
    QCOMPARE(button->click_receivers(), empty ? 0 : 1);
    QCOMPARE(made.count(), empty ? 0 : 1);
    QTest::mouseClick(button, Qt::LeftButton);
}

void test_layout_adding::sub_layout_gets_a_holder_with_the_properties()
{
    laid_out_window screen;
    auto *inner = new layout(1, false);
    const auto *button = inner->add(new QPushButton("inner"), [] {}, {});
    screen.grid->add(inner, {properties::margin(5), properties::row_height(30),
                             properties::style("color:red"), &properties::new_line});
    const cell &stored = screen.grid->cells.at({0, 0});
    QVERIFY(stored.content);
    QCOMPARE(stored.content->metaObject(), &QWidget::staticMetaObject);
    QCOMPARE(stored.content->layout(), inner);
    QCOMPARE(stored.content->parentWidget(), &screen.window);
    QCOMPARE(stored.content->styleSheet(), QString("color:red;"));
    QCOMPARE(margins_of(stored), QStringList({"5", "5", "5", "5"}));
    QCOMPARE(screen.grid->row_height(), 30);
    screen.grid->add(new QLabel("next line"), {}, {});
    QVERIFY(screen.grid->cells.at({0, 1}).content);
    screen.show();
    QTRY_COMPARE(button->parentWidget(), stored.content);
    QTRY_COMPARE(button->mapTo(&screen.window, QPoint(0, 0)), QPoint(5, 5));
}

void test_layout_adding::sub_layout_is_added_with_several_lists()
{
    const property_list first = {properties::margin(1, 2, 3, 4), properties::width(5)};
    const property_list second = {properties::margin_left(9)};
    laid_out_window screen;
    screen.grid->add(new QVBoxLayout, first, second);
    const cell &stored = screen.grid->cells.at({0, 0});
    QCOMPARE(margins_of(stored), QStringList({"1", "2", "3", "9"}));
    QCOMPARE(stored.width, 5.f);
}

void test_layout_adding::sub_layout_needs_no_property_and_no_parent()
{
    QWidget window;
    layout grid(2, false);
    auto *inner = new QVBoxLayout;
    grid.add(inner);
    QWidget *holder = grid.cells.at({0, 0}).widget();
    QVERIFY(holder);
    QCOMPARE(inner->parentWidget(), holder);
    QVERIFY(!holder->parentWidget());
    holder->setParent(&window);
}

KELVRA_WIDGET_TEST_MAIN(test_layout_adding)
#include "test_layout_adding.moc"
