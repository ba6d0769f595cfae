// SPDX-License-Identifier: GPL-3.0-or-later

#include "failed_assertion.h"
#include "german_catalogues.h"
#include "isolated_program.h"
#include "program_test_main.h"
#include "qor/qt/properties.h"
#include "qor/qt/widget_fold.h"

#include <QAbstractEventDispatcher>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <functional>
#include <utility>

using qor::qt::cell;
using qor::qt::widget_fold;
namespace properties = qor::qt::properties;

namespace
{

constexpr int panel_height = 150;
constexpr int row_height = 90;
constexpr int fold_height = 25;

/// A button whose size hint has a given width.
class hinted_button : public QPushButton
{
public:
    explicit hinted_button(int width) : width(width) {}

    QSize sizeHint() const override { return {width, 20}; }

private:
    int width;
};

widget_fold *plain_section()
{
    return new widget_fold("Title", nullptr, 0, fold_height);
}

/// A window with a panel and a button that adds a section to the panel's layout as a new row.
class fold_window
{
public:
    using maker = std::function<widget_fold *()>;

    explicit fold_window(maker make = plain_section) : make(std::move(make))
    {
        top->add(&panel, {}, {properties::row_height(panel_height)});
        outer->add(&making_button, [this] { add_section(); }, {properties::row_height(30)});
        window.resize(400, 300);
        window.show();
    }

    /// Clicks the button that makes a section. Nothing else runs after the click, so the late step
    /// doesn't.
    widget_fold *click_for_section()
    {
        section = nullptr;
        if (QTest::qWaitForWindowExposed(&window))
            QTest::mouseClick(&making_button, Qt::LeftButton);
        return section;
    }

    int &section_row(int index = 1) { return outer->row_height(index); }

    QWidget window;
    qor::qt::layout *top = new qor::qt::layout(&window, 1, false);
    QWidget panel{&window};
    qor::qt::layout *outer = new qor::qt::layout(&panel, 1, false);
    QPushButton making_button{"make", &panel};
    std::function<void(widget_fold &)> after_making;

private:
    void add_section()
    {
        section = make();
        outer->add(section, {}, {properties::row_height(row_height)});
        section->show();
        if (after_making)
            after_making(*section);
    }

    maker make;
    widget_fold *section = nullptr;
};

void click(widget_fold *section)
{
    QTest::mouseClick(section->button, Qt::LeftButton);
}

const cell &content_cell(const widget_fold *section)
{
    return section->main_layout->cells.at({0, 1});
}

/// The interval, in milliseconds, of the timer for the late step; -1 if there is none.
int late_step_interval()
{
    auto *dispatcher = QAbstractEventDispatcher::instance();
    for (QObject *child : dispatcher->children()) {
        const auto timers = dispatcher->registeredTimers(child);
        if (child->inherits("QSingleShotTimer") && timers.size() == 1)
            return timers.first().interval;
    }
    return -1;
}

/// Waits until the late step has run.
bool wait_for_late_step(const widget_fold *section)
{
    return QTest::qWaitFor([&] { return content_cell(section).height != 400; });
}

/// Records a state at each resize of the window.
class watch : public QObject
{
public:
    watch(QWidget &window, std::function<QString()> state) : state(std::move(state))
    {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            seen << state();
        return false;
    }

    QStringList seen;

private:
    std::function<QString()> state;
};

}  // namespace

class test_widget_fold : public QObject
{
    Q_OBJECT

private slots:
    void starts_open();
    void layouts_are_in_the_section();
    void title_is_a_label_if_not_empty_data();
    void title_is_a_label_if_not_empty();
    void makes_its_own_button();
    void button_is_german_with_the_catalogue();
    void late_step_comes_a_millisecond_later();
    void uses_a_given_button();
    void button_column_has_the_buttons_hinted_width_data();
    void button_column_has_the_buttons_hinted_width();
    void is_resized_when_made();
    void content_gets_the_height_of_the_row_later();
    void content_gets_the_height_of_its_own_row_if_clicked_at_once();
    void late_step_ignores_a_deleted_section();
    void click_folds_and_opens_data();
    void click_folds_and_opens();
    void opens_to_the_height_before_the_last_folding();
    void slides_for_the_given_time();
    void reports_the_inverse_of_its_state();
    void given_button_keeps_its_text();
    void each_section_moves_its_own_row();
    void cell_is_never_stored();
    void section_without_a_cell_ends_the_program_data();
    void section_without_a_cell_ends_the_program();
};

void test_widget_fold::starts_open()
{
    fold_window screen([] { return new widget_fold("Title", nullptr, 0.25, 33); });
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(section->owns_button);
    QVERIFY(!section->is_folded);
    QCOMPARE(section->fold_height, 33);
    QCOMPARE(section->open_height, 25);
    QVERIFY(!section->parent_cell);
    QCOMPARE(section->seconds, 0.25);
    QVERIFY(section->button);
    QCOMPARE(section->main_layout->wrap, 2);
    QCOMPARE(section->title_layout->wrap, 1);
    QCOMPARE(section->content_layout->wrap, 1);
    for (const qor::qt::layout *each :
         {section->main_layout, section->title_layout, section->content_layout})
        QVERIFY(!each->column_major);
}

void test_widget_fold::layouts_are_in_the_section()
{
    fold_window screen;
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QCOMPARE(section->layout(), section->main_layout);
    auto &cells = section->main_layout->cells;
    QCOMPARE(cells.size(), std::size_t(4));

    const cell &button = cells.at({0, 0});
    QCOMPARE(button.content, section->button);
    QCOMPARE(button.row_height, fold_height);
    QCOMPARE(section->main_layout->row_heights, std::vector<int>({fold_height, 0}));

    const cell &title = cells.at({1, 0});
    QVERIFY(title.content);
    QCOMPARE(title.content->layout(), section->title_layout);
    QCOMPARE(title.content->parentWidget(), section);
    QCOMPARE(title.height, -1.0f);

    const cell &content = cells.at({0, 1});
    QVERIFY(content.content);
    QCOMPARE(content.content->layout(), section->content_layout);
    QCOMPARE(content.content->parentWidget(), section);
    QCOMPARE(content.margin_top, 0.0f);
    QCOMPARE(content.margin_bottom, -1.0f);
    QCOMPARE(content.height, 400.0f);
    QCOMPARE(content.column_span, 2);
    QCOMPARE(section->content_layout->count(), 0);
    QVERIFY(cells.at({1, 1}).spanned);
}

void test_widget_fold::title_is_a_label_if_not_empty_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("with a title") << "Some words" << QStringList("Some words");
    QTest::newRow("without a title") << "" << QStringList();
}

void test_widget_fold::title_is_a_label_if_not_empty()
{
    QFETCH(QString, title);
    fold_window screen([&] { return new widget_fold(title, nullptr, 0, fold_height); });
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QStringList texts;
    for (const auto &[place, each] : section->title_layout->cells) {
        const auto *label = qobject_cast<QLabel *>(each.content);
        QVERIFY(label);
        QCOMPARE(label->parentWidget(), section->title_layout->parentWidget());
        texts << label->text();
    }
    QTEST(texts, "texts");
}

void test_widget_fold::makes_its_own_button()
{
    fold_window screen;
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(section->owns_button);
    QCOMPARE(section->button->text(), QString("fold"));
    QCOMPARE(section->button->metaObject(), &QPushButton::staticMetaObject);
    QCOMPARE(section->button->parentWidget(), section);
    QVERIFY(section->button->icon().isNull());
    const int hinted_width = QPushButton("fold").sizeHint().width();
    QVERIFY(hinted_width > 20);
    QCOMPARE(section->main_layout->column_widths, std::vector<int>({hinted_width - 20, 0}));
}

void test_widget_fold::button_is_german_with_the_catalogue()
{
    const german_catalogues german;
    fold_window screen;
    widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(wait_for_late_step(section));
    QCOMPARE(section->button->text(), QString("Zuklappen"));
    click(section);
    QCOMPARE(section->button->text(), QString("Aufklappen"));
    click(section);
    QCOMPARE(section->button->text(), QString("Zuklappen"));
}

void test_widget_fold::late_step_comes_a_millisecond_later()
{
    fold_window screen;
    int interval = -1;
    screen.after_making = [&interval](widget_fold &) { interval = late_step_interval(); };
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QCOMPARE(interval, 1);
    QVERIFY(wait_for_late_step(section));
}

void test_widget_fold::uses_a_given_button()
{
    QWidget elsewhere;
    auto *button = new QPushButton("Words", &elsewhere);
    fold_window screen([&] { return new widget_fold("Title", button, 0, fold_height); });
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(!section->owns_button);
    QCOMPARE(section->button, button);
    QCOMPARE(button->text(), QString("Words"));
    QCOMPARE(button->parentWidget(), section);
    QCOMPARE(section->findChildren<QPushButton *>(), QList<QPushButton *>({button}));
}

void test_widget_fold::button_column_has_the_buttons_hinted_width_data()
{
    QTest::addColumn<int>("hint");
    QTest::addColumn<int>("width");
    QTest::newRow("less 20") << 100 << 80;
    QTest::newRow("less 20, even below zero") << 15 << -5;
    QTest::newRow("less 20: automatic") << 20 << 0;
    QTest::newRow("no hint: the height when folded") << 0 << fold_height;
}

void test_widget_fold::button_column_has_the_buttons_hinted_width()
{
    QFETCH(int, hint);
    fold_window screen(
        [&] { return new widget_fold("", new hinted_button(hint), 0, fold_height); });
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QTEST(section->main_layout->column_widths[0], "width");
    QCOMPARE(section->main_layout->column_widths[1], 0);
}

// A new section has no parent, so the window that is resized is the section itself.
void test_widget_fold::is_resized_when_made()
{
    const QSize untouched = QWidget().size();
    QVERIFY(!QWidget().testAttribute(Qt::WA_Resized));
    QSize size;
    bool was_resized = false;
    fold_window screen([&] {
        widget_fold *section = plain_section();
        size = section->size();
        was_resized = section->testAttribute(Qt::WA_Resized);
        return section;
    });
    QVERIFY(screen.click_for_section());
    QVERIFY(was_resized);
    QCOMPARE(size, untouched);
}

// The cell around the clicked widget is that of the panel.
void test_widget_fold::content_gets_the_height_of_the_row_later()
{
    fold_window screen;
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QCOMPARE(content_cell(section).height, 400.0f);
    QTRY_COMPARE(content_cell(section).height, float(panel_height));
    QCOMPARE(content_cell(section).margin_top, 0.0f);
    QCOMPARE(screen.section_row(), row_height);
    QCOMPARE(screen.top->row_height(0), panel_height);
}

void test_widget_fold::content_gets_the_height_of_its_own_row_if_clicked_at_once()
{
    fold_window screen;
    screen.after_making = [](widget_fold &section) { section.button->click(); };
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(section->is_folded);
    QTRY_COMPARE(content_cell(section).height, float(fold_height));
}

void test_widget_fold::late_step_ignores_a_deleted_section()
{
    fold_window screen;
    QPointer<widget_fold> deleted;
    screen.after_making = [&](widget_fold &section) {
        deleted = new widget_fold("", nullptr, 0, section.fold_height);
        delete deleted;
    };
    const widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(!deleted);
    // Of two timers that are due at the same time, the older one fires first.
    bool both_ran = false;
    QTimer::singleShot(1, [&] { both_ran = true; });
    QTRY_VERIFY(both_ran);
    QVERIFY(wait_for_late_step(section));
}

void test_widget_fold::click_folds_and_opens_data()
{
    QTest::addColumn<int>("height");
    QTest::newRow("higher than folded") << row_height;
    QTest::newRow("lower than folded") << 10;
    QTest::newRow("as high as folded") << fold_height;
    QTest::newRow("automatic") << 0;
}

void test_widget_fold::click_folds_and_opens()
{
    QFETCH(int, height);
    fold_window screen;
    widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(wait_for_late_step(section));
    screen.section_row() = height;
    for (int i = 0; i < 2; ++i) {
        click(section);
        QVERIFY(section->is_folded);
        QCOMPARE(section->open_height, height);
        QCOMPARE(section->button->text(), QString("unfold"));
        QCOMPARE(screen.outer->row_heights, std::vector<int>({30, fold_height}));

        click(section);
        QVERIFY(!section->is_folded);
        QCOMPARE(section->open_height, height);
        QCOMPARE(section->button->text(), QString("fold"));
        QCOMPARE(screen.outer->row_heights, std::vector<int>({30, height}));
    }
    QCOMPARE(screen.top->row_height(0), panel_height);
}

void test_widget_fold::opens_to_the_height_before_the_last_folding()
{
    fold_window screen;
    widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(wait_for_late_step(section));
    click(section);
    screen.section_row() = 44;
    click(section);
    QCOMPARE(screen.section_row(), row_height);
    screen.section_row() = 70;
    click(section);
    QCOMPARE(section->open_height, 70);
    click(section);
    QCOMPARE(screen.section_row(), 70);
}

void test_widget_fold::slides_for_the_given_time()
{
    fold_window screen([] { return new widget_fold("Title", nullptr, 0.12, 30); });
    widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(wait_for_late_step(section));
    watch slide(screen.window, [&] {
        return QString("%1 %2").arg(screen.section_row()).arg(section->button->text());
    });
    click(section);
    QCOMPARE(slide.seen, QStringList({"70 unfold", "70 unfold", "50 unfold", "50 unfold",
                                      "30 unfold", "30 unfold", "30 unfold", "30 unfold"}));
    slide.seen.clear();
    click(section);
    QCOMPARE(slide.seen, QStringList({"50 fold", "50 fold", "70 fold", "70 fold", "90 fold",
                                      "90 fold", "90 fold", "90 fold"}));
}

void test_widget_fold::reports_the_inverse_of_its_state()
{
    fold_window screen;
    widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(wait_for_late_step(section));
    QStringList reported;
    connect(section, &widget_fold::folded, this, [&](bool closed) {
        reported << QString("%1 at %2").arg(closed ? "true" : "false").arg(screen.section_row());
    });
    click(section);
    QCOMPARE(reported, QStringList({"false at 25"}));
    click(section);
    QCOMPARE(reported, QStringList({"false at 25", "true at 90"}));
}

void test_widget_fold::given_button_keeps_its_text()
{
    fold_window screen(
        [] { return new widget_fold("Title", new QPushButton("Words"), 0, fold_height); });
    widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(wait_for_late_step(section));
    for (const int height : {fold_height, row_height, fold_height, row_height}) {
        click(section);
        QCOMPARE(screen.section_row(), height);
        QCOMPARE(section->button->text(), QString("Words"));
    }
}

void test_widget_fold::each_section_moves_its_own_row()
{
    fold_window screen;
    widget_fold *first = screen.click_for_section();
    QVERIFY(first);
    widget_fold *second = screen.click_for_section();
    QVERIFY(second);
    QVERIFY(wait_for_late_step(first));
    QVERIFY(wait_for_late_step(second));
    click(second);
    QCOMPARE(screen.outer->row_heights, std::vector<int>({30, row_height, fold_height}));
    click(first);
    QCOMPARE(screen.outer->row_heights, std::vector<int>({30, fold_height, fold_height}));
    click(second);
    QCOMPARE(screen.outer->row_heights, std::vector<int>({30, fold_height, row_height}));
}

void test_widget_fold::cell_is_never_stored()
{
    fold_window screen;
    widget_fold *section = screen.click_for_section();
    QVERIFY(section);
    QVERIFY(wait_for_late_step(section));
    QVERIFY(!section->parent_cell);
    click(section);
    QVERIFY(!section->parent_cell);
    QCOMPARE(qor::qt::clicked_cell, &section->main_layout->cells.at({0, 0}));
}

void test_widget_fold::section_without_a_cell_ends_the_program_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("late step, nothing was clicked yet") << "late";
    QTest::newRow("late step, the clicked cell has lost its widget") << "cell_without_widget";
    QTest::newRow("click") << "click";
}

void test_widget_fold::section_without_a_cell_ends_the_program()
{
    QFETCH(QString, way);
    check_failed_assertion(isolated_program(CRASH_PROBE_PROGRAM).run({"fold", way}),
                           "found != widget_cells.end()", "widget_fold.cpp",
                           "qor::qt::cell& qor::qt::cell_around_clicked_widget()");
}

KELVRA_PROGRAM_TEST_MAIN(test_widget_fold)
#include "test_widget_fold.moc"
