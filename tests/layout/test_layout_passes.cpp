// SPDX-License-Identifier: GPL-3.0-or-later

#include "layout_screen.h"
#include "message_collector.h"
#include "widget_test_main.h"

#include <QPointer>

#include <algorithm>

using qor::qt::cell;

namespace
{

/// The names of the widgets among the children of `parent`, from the lowest to the topmost.
QStringList stacked_names(const QWidget &parent)
{
    QStringList names;
    for (const QObject *child : parent.children()) {
        if (child->isWidgetType())
            names << child->objectName();
    }
    return names;
}

constexpr QRect disturbed(5, 6, 1, 1);

/// Puts the widget where no pass would put it, so that the next pass is noticed.
void disturb(QWidget *widget)
{
    widget->setFixedSize(disturbed.size());
    widget->move(disturbed.topLeft());
}

}  // namespace

class test_layout_passes : public QObject
{
    Q_OBJECT

private slots:
    void sizes_are_fixed();
    void negative_size_means_none();
    void background_becomes_a_child_without_being_shown();
    void covered_cells_background_ends_in_the_last_place();
    void content_is_raised_to_the_top();
    void later_changes_of_a_cell_take_effect();
    void one_size_gets_five_passes();
    void another_size_starts_the_count_again_data();
    void another_size_starts_the_count_again();
    void pass_without_a_parent_does_nothing();
    void parent_may_come_after_the_cells();
    void pass_reparents_a_lost_widget();
    void widgets_die_with_the_parent();
    void window_is_laid_out_when_shown_and_resized();
    void window_uses_the_layouts_size_hints();
    void layout_in_a_layout_is_laid_out();
    void passes_end_on_their_own();
};

void test_layout_passes::sizes_are_fixed()
{
    layout_screen screen(QSize(300, 100));
    const cell &stored = screen.add();
    stored.content->setMinimumSize(400, 400);
    screen.pass();
    for (const QWidget *widget : {stored.content, stored.background_widget()}) {
        QCOMPARE(widget->minimumSize(), QSize(300, 100));
        QCOMPARE(widget->maximumSize(), QSize(300, 100));
        QCOMPARE(widget->size(), QSize(300, 100));
    }
}

void test_layout_passes::negative_size_means_none()
{
    layout_screen screen(QSize(100, 100));
    cell narrow;
    narrow.set_margin(80);
    const cell &stored = screen.add(narrow);
    const message_collector qt;
    screen.pass();
    QCOMPARE(stored.content->geometry(), QRect(80, 80, 0, 0));
    QCOMPARE(stored.background_widget()->geometry(), QRect(80, 80, 0, 0));
    QCOMPARE(qt.messages(), QStringList());
}

void test_layout_passes::background_becomes_a_child_without_being_shown()
{
    layout_screen screen(QSize(300, 100));
    screen.parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen.parent));
    const cell &stored = screen.add();
    const cell &empty = screen.add_as_is(cell());
    screen.pass();
    for (const QWidget *background : {stored.background_widget(), empty.background_widget()}) {
        QCOMPARE(background->parentWidget(), &screen.parent);
        QVERIFY(!background->isVisible());
    }
    QCOMPARE(stored.background_widget()->geometry(), QRect(0, 0, 150, 100));
    QCOMPARE(empty.background_widget()->geometry(), QRect(150, 0, 150, 100));
}

void test_layout_passes::covered_cells_background_ends_in_the_last_place()
{
    layout_screen screen(QSize(300, 100));
    cell wide;
    wide.column_span = 3;
    screen.add(wide);
    screen.grid->column_widths = {50, 60, 70};
    screen.pass();
    const QWidget *shared = screen.grid->cells.at({1, 0}).background_widget();
    QCOMPARE(shared, screen.grid->cells.at({2, 0}).background_widget());
    QCOMPARE(shared->parentWidget(), &screen.parent);
    QCOMPARE(shared->geometry(), QRect(180, 0, 70, 100));
}

void test_layout_passes::content_is_raised_to_the_top()
{
    layout_screen screen(QSize(300, 100), 2, true);
    for (const char *name : {"a", "b", "c", "d"}) {
        const cell &stored = screen.add();
        stored.content->setObjectName(name);
        stored.background_widget()->setObjectName(QString("behind ") + name);
    }
    auto *stranger = new QWidget(&screen.parent);
    stranger->setObjectName("stranger");
    screen.pass();
    QCOMPARE(stacked_names(screen.parent), QStringList({"stranger", "behind a", "a", "behind c",
                                                        "c", "behind b", "b", "behind d", "d"}));
    stranger->raise();
    screen.pass();
    QCOMPARE(stacked_names(screen.parent),
             QStringList(
                 {"behind a", "behind c", "behind b", "behind d", "stranger", "a", "c", "b", "d"}));
}

void test_layout_passes::later_changes_of_a_cell_take_effect()
{
    layout_screen screen(QSize(300, 100));
    cell &stored = screen.add();
    screen.pass();
    QCOMPARE(stored.content->geometry(), QRect(0, 0, 300, 100));
    stored.width = 100;
    stored.margin_top = 10;
    screen.pass();
    QCOMPARE(stored.content->geometry(), QRect(100, 10, 100, 90));
}

void test_layout_passes::one_size_gets_five_passes()
{
    layout_screen screen(QSize(300, 100));
    QWidget *content = screen.add().content;
    for (int i = 0; i < 5; ++i) {
        disturb(content);
        screen.pass();
        QCOMPARE(content->geometry(), QRect(0, 0, 300, 100));
        QCOMPARE(screen.grid->repeat_count, i);
        QCOMPARE(screen.grid->seen_width, 300);
        QCOMPARE(screen.grid->seen_height, 100);
    }
    for (int i = 0; i < 3; ++i) {
        disturb(content);
        screen.pass();
        QCOMPARE(content->geometry(), disturbed);
        QCOMPARE(screen.grid->repeat_count, 4);
    }
}

void test_layout_passes::another_size_starts_the_count_again_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("another width") << QSize(301, 100);
    QTest::newRow("another height") << QSize(300, 99);
    QTest::newRow("both") << QSize(400, 400);
}

void test_layout_passes::another_size_starts_the_count_again()
{
    QFETCH(QSize, size);
    layout_screen screen(QSize(300, 100));
    QWidget *content = screen.add().content;
    for (int i = 0; i < 6; ++i)
        screen.pass();
    for (const QSize &next : {size, QSize(300, 100)}) {
        screen.parent.resize(next);
        for (int i = 0; i < 6; ++i) {
            disturb(content);
            screen.pass();
            QCOMPARE(content->geometry(), i < 5 ? QRect(QPoint(0, 0), next) : disturbed);
            QCOMPARE(screen.grid->repeat_count, std::min(i, 4));
            QCOMPARE(QSize(screen.grid->seen_width, screen.grid->seen_height), next);
        }
    }
}

void test_layout_passes::pass_without_a_parent_does_nothing()
{
    qor::qt::layout parentless(1, false);
    QWidget content;
    const QRect before = content.geometry();
    const cell added(&content);
    parentless.add(added);
    parentless.setGeometry(QRect(0, 0, 300, 100));
    QCOMPARE(parentless.seen_width, -1);
    QCOMPARE(parentless.repeat_count, 0);
    QCOMPARE(content.geometry(), before);
    QVERIFY(!added.background_widget()->parent());
}

void test_layout_passes::parent_may_come_after_the_cells()
{
    QWidget parent;
    parent.resize(300, 100);
    auto *grid = new qor::qt::layout(1, false);
    const cell added(new QWidget);
    grid->add(added);
    QVERIFY(!added.content->parent());
    parent.setLayout(grid);
    grid->setGeometry({});
    QCOMPARE(added.content->parentWidget(), &parent);
    QCOMPARE(added.content->geometry(), QRect(0, 0, 300, 100));
    QCOMPARE(added.background_widget()->parentWidget(), &parent);
    QCOMPARE(added.background_widget()->geometry(), QRect(0, 0, 300, 100));
}

void test_layout_passes::pass_reparents_a_lost_widget()
{
    layout_screen screen(QSize(300, 100));
    QWidget elsewhere;
    const cell &stored = screen.add();
    screen.pass();
    stored.content->setParent(&elsewhere);
    stored.background_widget()->setParent(&elsewhere);
    QCOMPARE(screen.grid->count(), 1);
    QCOMPARE(screen.grid->indexOf(stored.content), 0);
    screen.pass();
    QCOMPARE(stored.content->parentWidget(), &screen.parent);
    QCOMPARE(stored.background_widget()->parentWidget(), &screen.parent);
    QCOMPARE(stored.content->geometry(), QRect(0, 0, 300, 100));
}

void test_layout_passes::widgets_die_with_the_parent()
{
    QList<QPointer<QWidget>> widgets;
    {
        layout_screen screen(QSize(300, 100));
        const cell &stored = screen.add();
        screen.pass();
        widgets << stored.content << stored.background_widget();
    }
    for (const QPointer<QWidget> &widget : widgets)
        QVERIFY(!widget);
}

void test_layout_passes::window_is_laid_out_when_shown_and_resized()
{
    layout_screen screen(QSize(301, 200), 2);
    QVector<QWidget *> widgets;
    for (int i = 0; i < 3; ++i)
        widgets << screen.add().content;
    screen.grid->column_widths = {100, 0};
    screen.grid->row_heights = {0, 40};
    screen.parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen.parent));
    QTRY_COMPARE(widgets[1]->geometry(), QRect(100, 0, 201, 160));
    QCOMPARE(widgets[0]->geometry(), QRect(0, 0, 100, 160));
    QCOMPARE(widgets[2]->geometry(), QRect(0, 160, 100, 40));
    for (const QWidget *widget : widgets)
        QVERIFY(widget->isVisible());
    screen.parent.resize(401, 300);
    QTRY_COMPARE(widgets[1]->geometry(), QRect(100, 0, 301, 260));
    QCOMPARE(widgets[0]->geometry(), QRect(0, 0, 100, 260));
    QCOMPARE(widgets[2]->geometry(), QRect(0, 260, 100, 40));
}

void test_layout_passes::window_uses_the_layouts_size_hints()
{
    layout_screen screen(QSize(300, 200), 2);
    screen.add();
    screen.add();
    screen.grid->column_widths = {150, 0};
    QCOMPARE(screen.parent.sizeHint(), QSize(20, 170));
    QCOMPARE(screen.parent.minimumSizeHint(), QSize(150, 0));
    screen.parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen.parent));
    QTRY_COMPARE(screen.parent.minimumSize(), QSize(150, 0));
    screen.parent.resize(50, 50);
    QCOMPARE(screen.parent.size(), QSize(150, 50));
}

void test_layout_passes::layout_in_a_layout_is_laid_out()
{
    layout_screen screen(QSize(300, 100));
    screen.add();
    auto *inner = new qor::qt::layout(1, false);
    const cell first(new QWidget);
    const cell second(new QWidget);
    inner->add(first);
    inner->add(second);
    screen.grid->add(inner);
    screen.parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen.parent));
    QWidget *holder = inner->parentWidget();
    QTRY_COMPARE(holder->geometry(), QRect(150, 0, 150, 100));
    QTRY_COMPARE(first.content->geometry(), QRect(0, 0, 150, 50));
    QTRY_COMPARE(second.content->geometry(), QRect(0, 50, 150, 50));
    QCOMPARE(second.content->parentWidget(), holder);
    QVERIFY(second.content->isVisible());
}

// Each pass fixes sizes, which makes Qt request the next pass.
void test_layout_passes::passes_end_on_their_own()
{
    layout_screen screen(QSize(300, 100));
    QWidget *content = screen.add().content;
    screen.parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen.parent));
    for (int i = 0; i < 10; ++i) {
        disturb(content);
        QCoreApplication::processEvents();
    }
    QCOMPARE(screen.grid->repeat_count, 4);
    QCOMPARE(content->geometry(), disturbed);
    screen.parent.resize(301, 100);
    QTRY_COMPARE(content->geometry(), QRect(0, 0, 301, 100));
}

KELVRA_WIDGET_TEST_MAIN(test_layout_passes)
#include "test_layout_passes.moc"
