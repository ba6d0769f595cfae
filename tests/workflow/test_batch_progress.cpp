// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch_progress.h"
#include "orv/exiftool.h"
#include "orv/progress_dialog.h"
#include "painted_part.h"
#include "private_home.h"
#include "program_test_main.h"
#include "scripted_tool.h"

#include <QEventLoop>
#include <QProgressBar>
#include <QTimer>

#include <memory>

namespace
{

constexpr int steps = 5;

/// Records the values that a bar is painted with.
class painted_values : public QObject
{
public:
    explicit painted_values(QProgressBar &bar) : bar(bar) { bar.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && (values.isEmpty() || values.last() != bar.value()))
            values << bar.value();
        return QObject::eventFilter(watched, event);
    }

    QList<int> values;

private:
    QProgressBar &bar;
};

}  // namespace

/// When the steps of a batch are painted.
class test_batch_progress : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void batch_shows_its_dialog_with_no_step_done();
    void batch_without_steps_shows_nothing();
    void step_is_painted_while_the_tool_works();
    void step_is_not_painted_before_the_request();
    void each_step_without_a_request_is_painted();
    void last_step_is_painted_immediately();
    void step_is_painted_before_the_program_waits_for_events();
    void nothing_is_collected_after_the_end();
    void step_accepts_a_new_number_of_steps();
    void more_steps_are_shown_before_the_next_data();
    void more_steps_are_shown_before_the_next();
    void batch_shows_its_dialog_again_data();
    void batch_shows_its_dialog_again();
    void batch_shows_its_dialog_again_with_its_last_number_of_steps();
    void batch_shows_its_dialog_again_after_another_dialog();
    void finished_batch_does_not_show_its_dialog_again();
    void area_that_is_uncovered_late_is_painted_before_the_outer_batch_goes_on();
    void request_after_its_lifetime_does_no_harm();

private:
    orv::progress_dialog *new_dialog() const;
    void ask_tool() { orv::exiftool::instance()->read_tags("/photo.jpg", true, false); }

    scripted_tool tool;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<batch_progress> progress;
    orv::progress_dialog *dialog = nullptr;
    std::unique_ptr<painted_values> painted;
};

void test_batch_progress::init()
{
    window = std::make_unique<QWidget>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    dialog = new_dialog();
    progress = std::make_unique<batch_progress>();
    progress->watch(window.get());
    progress->watch(dialog);
    painted = std::make_unique<painted_values>(*dialog->findChild<QProgressBar *>());
}

void test_batch_progress::cleanup()
{
    painted.reset();
    progress.reset();
    window.reset();
}

/// The window owns it.
orv::progress_dialog *test_batch_progress::new_dialog() const
{
    auto *made = new orv::progress_dialog(window.get());
    made->set_up("Title", "Label", "%v of %m");
    return made;
}

void test_batch_progress::batch_shows_its_dialog_with_no_step_done()
{
    progress->start(dialog, steps);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->maximum(), steps);
    QCOMPARE(painted->values, QList<int>{0});
}

void test_batch_progress::batch_without_steps_shows_nothing()
{
    progress->start(dialog, 0);
    progress->end();
    QVERIFY(!dialog->isVisible());
}

void test_batch_progress::step_is_painted_while_the_tool_works()
{
    progress->start(dialog, steps);
    for (int done = 1; done < steps; ++done) {
        progress->step(done, steps);
        QCoreApplication::processEvents();
        ask_tool();
        QCOMPARE(painted->values.last(), done);
    }
}

void test_batch_progress::step_is_not_painted_before_the_request()
{
    progress->start(dialog, steps);
    progress->step(1, steps);
    QCoreApplication::processEvents();
    QCOMPARE(painted->values, QList<int>{0});
}

void test_batch_progress::each_step_without_a_request_is_painted()
{
    progress->start(dialog, steps);
    for (int done = 1; done <= steps; ++done) {
        progress->step(done, steps);
        QCoreApplication::processEvents();
    }
    progress->end();
    QCOMPARE(painted->values, QList<int>({0, 1, 2, 3, 4, 5}));
}

void test_batch_progress::last_step_is_painted_immediately()
{
    progress->start(dialog, 1);
    progress->step(1, 1);
    QCOMPARE(painted->values, QList<int>({0, 1}));
}

void test_batch_progress::step_is_painted_before_the_program_waits_for_events()
{
    progress->start(dialog, steps);
    progress->step(1, steps);
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] { QTimer::singleShot(50, &loop, &QEventLoop::quit); });
    loop.exec();
    QCOMPARE(painted->values, QList<int>({0, 1}));
}

void test_batch_progress::nothing_is_collected_after_the_end()
{
    progress->start(dialog, steps);
    progress->step(1, steps);
    progress->end();
    const painted_part painted_window(*window);
    window->update();
    QCoreApplication::processEvents();
    QVERIFY(!painted_window.region.isEmpty());
}

void test_batch_progress::step_accepts_a_new_number_of_steps()
{
    progress->start(dialog, steps);
    progress->step(1, steps + 1);
    QCOMPARE(dialog->maximum(), steps + 1);
    QCOMPARE(dialog->value(), 1);
}

void test_batch_progress::more_steps_are_shown_before_the_next_data()
{
    QTest::addColumn<int>("done");
    QTest::newRow("before the first step") << 0;
    QTest::newRow("in the middle") << 2;
    QTest::newRow("after the last step, which hides the dialog") << steps;
}

void test_batch_progress::more_steps_are_shown_before_the_next()
{
    QFETCH(int, done);
    progress->start(dialog, steps);
    progress->step(done, steps);
    progress->set_steps(steps);
    QCOMPARE(dialog->isVisible(), done < steps);
    progress->set_steps(steps + 2);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->maximum(), steps + 2);
    QCOMPARE(dialog->value(), done);
    QCOMPARE(painted->values.last(), done);
}

void test_batch_progress::batch_shows_its_dialog_again_data()
{
    QTest::addColumn<int>("done");
    QTest::newRow("before the first step") << 0;
    QTest::newRow("in the middle") << 2;
}

void test_batch_progress::batch_shows_its_dialog_again()
{
    QFETCH(int, done);
    progress->start(dialog, steps);
    progress->step(done, steps);
    progress->start(dialog, 2);
    progress->step(1, 2);
    progress->step(2, 2);
    QVERIFY(!dialog->isVisible());
    progress->end();
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->maximum(), steps);
    QCOMPARE(dialog->value(), done);
    QCOMPARE(painted->values.last(), done);
}

void test_batch_progress::batch_shows_its_dialog_again_with_its_last_number_of_steps()
{
    progress->start(dialog, steps);
    progress->step(1, steps + 2);
    progress->start(dialog, 1);
    progress->step(1, 1);
    progress->end();
    QCOMPARE(dialog->maximum(), steps + 2);
}

void test_batch_progress::batch_shows_its_dialog_again_after_another_dialog()
{
    auto *other = new_dialog();
    progress->start(dialog, steps);
    progress->start(other, steps);
    progress->start(dialog, 1);
    progress->step(1, 1);
    progress->end();
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->maximum(), steps);
}

void test_batch_progress::finished_batch_does_not_show_its_dialog_again()
{
    progress->start(dialog, steps);
    progress->step(steps, steps);
    progress->start(dialog, 2);
    progress->step(2, 2);
    progress->end();
    QVERIFY(!dialog->isVisible());
}

/// The window system may take a moment to report what a hidden dialog has uncovered.
void test_batch_progress::area_that_is_uncovered_late_is_painted_before_the_outer_batch_goes_on()
{
    constexpr int report_ms = 5;
    auto *other = new_dialog();
    progress->start(dialog, steps);
    progress->start(other, steps);
    const painted_part painted_window(*window);
    QTimer::singleShot(report_ms, window.get(), [this] { window->update(); });
    progress->end();
    QVERIFY(!painted_window.region.isEmpty());
}

/// The sanitizers notice a use of what is gone.
void test_batch_progress::request_after_its_lifetime_does_no_harm()
{
    progress->start(dialog, steps);
    progress->step(1, steps);
    progress.reset();
    ask_tool();
    QVERIFY(dialog->isVisible());
}

KELVRA_PROGRAM_TEST_MAIN(test_batch_progress)
#include "test_batch_progress.moc"
