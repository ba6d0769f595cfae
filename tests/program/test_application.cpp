// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/application_common.h"
#include "private_home.h"
#include "qor/stacktrace.h"
#include "startup/program_setup.h"

#include <QFileOpenEvent>
#include <QMainWindow>
#include <QtTest>

#include <csignal>
#include <memory>
#include <optional>
#include <stdexcept>
#include <type_traits>

namespace
{

using handler = void (*)(int);

/// Stands in for the main window and records the events that it gets.
class recording_window : public QMainWindow
{
public:
    bool event(QEvent *e) override
    {
        types << e->type();
        depths << qor::stacktrace::instance().frames.size();
        if (const auto *open_event = dynamic_cast<QFileOpenEvent *>(e))
            files << open_event->file();
        if (throws && e->type() == QEvent::User)
            throw std::runtime_error("stray");
        return answer ? *answer : QMainWindow::event(e);
    }

    void forget()
    {
        types.clear();
        depths.clear();
        files.clear();
    }

    QList<QEvent::Type> types;
    QList<std::size_t> depths;
    QStringList files;
    std::optional<bool> answer;
    bool throws = false;
};

using tested_application = orv::application<recording_window>;

tested_application *application = nullptr;
handler handler_before = SIG_ERR;
handler handler_behind = SIG_ERR;

bool send_file_open(const QString &path)
{
    QFileOpenEvent event(path);
    return QCoreApplication::sendEvent(qApp, &event);
}

/// The handler of SIGTERM, which the test framework hasn't replaced yet.
handler current_handler()
{
    const handler current = std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGTERM, current);
    return current;
}

}  // namespace

class test_application : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void its_first_frame_installs_the_signal_handlers();
    void has_no_window_at_the_start();
    void visible_window_gets_the_event();
    void hidden_window_gets_nothing();
    void window_that_was_hidden_again_gets_nothing();
    void missing_window_does_no_harm();
    void every_event_reaches_a_visible_window();
    void answer_of_the_window_is_ignored_data();
    void answer_of_the_window_is_ignored();
    void window_comes_before_the_application();
    void exception_pops_the_frame_and_goes_on();

private:
    std::unique_ptr<recording_window> window;
};

void test_application::init()
{
    window = std::make_unique<recording_window>();
    application->main_window = window.get();
}

void test_application::cleanup()
{
    application->main_window = nullptr;
    window.reset();
}

void test_application::its_first_frame_installs_the_signal_handlers()
{
    QVERIFY(handler_before == SIG_DFL);
    QVERIFY(handler_behind == qor::stacktrace::signal_handler);
}

void test_application::has_no_window_at_the_start()
{
    QVERIFY((std::is_base_of_v<QApplication, tested_application>));
    QVERIFY(std::has_virtual_destructor_v<tested_application>);
    QVERIFY(!property("window at start").toBool());
}

void test_application::visible_window_gets_the_event()
{
    window->show();
    window->forget();
    send_file_open("/photos/a.jpg");
    QCOMPARE(window->types, QList<QEvent::Type>({QEvent::FileOpen}));
    QCOMPARE(window->files, QStringList("/photos/a.jpg"));
    QCOMPARE(window->depths, QList<std::size_t>({1}));
}

void test_application::hidden_window_gets_nothing()
{
    window->forget();
    send_file_open("/photos/a.jpg");
    QCOMPARE(window->types, QList<QEvent::Type>());
}

void test_application::window_that_was_hidden_again_gets_nothing()
{
    window->show();
    window->hide();
    window->forget();
    send_file_open("/photos/a.jpg");
    QCOMPARE(window->types, QList<QEvent::Type>());
}

void test_application::missing_window_does_no_harm()
{
    application->main_window = nullptr;
    window->show();
    window->forget();
    QVERIFY(!send_file_open("/photos/a.jpg"));
    QCOMPARE(window->types, QList<QEvent::Type>());
}

void test_application::every_event_reaches_a_visible_window()
{
    window->show();
    window->forget();
    for (const QEvent::Type type : {QEvent::User, QEvent::LanguageChange}) {
        QEvent event(type);
        QCoreApplication::sendEvent(qApp, &event);
    }
    QCOMPARE(window->types, QList<QEvent::Type>({QEvent::User, QEvent::LanguageChange}));
}

void test_application::answer_of_the_window_is_ignored_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("windows_answer");
    QTest::addColumn<bool>("applications_answer");
    QTest::newRow("the application knows it, the window doesn't")
        << int(QEvent::User) << false << true;
    QTest::newRow("the window knows it, the application doesn't")
        << int(QEvent::Polish) << true << false;
}

void test_application::answer_of_the_window_is_ignored()
{
    QFETCH(int, type);
    QFETCH(bool, windows_answer);
    window->show();
    window->forget();
    window->answer = windows_answer;
    QEvent event(static_cast<QEvent::Type>(type));
    QTEST(application->event(&event), "applications_answer");
    QCOMPARE(window->types.size(), 1);
}

void test_application::window_comes_before_the_application()
{
    window->show();
    window->forget();
    window->answer = true;
    int seen_by_the_window = 0;
    QMetaObject::invokeMethod(
        qApp, [&] { seen_by_the_window = window->types.size(); }, Qt::QueuedConnection);
    QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall);
    QCOMPARE(seen_by_the_window, 1);
}

void test_application::exception_pops_the_frame_and_goes_on()
{
    window->show();
    window->throws = true;
    QEvent event(QEvent::User);
    QVERIFY_EXCEPTION_THROWN(application->event(&event), std::runtime_error);
    QCOMPARE(qor::stacktrace::instance().frames.size(), std::size_t(0));
}

int main(int argc, char **argv)
{
    const private_home home;
    set_identity();
    handler_before = current_handler();
    tested_application the_application(argc, argv);
    handler_behind = current_handler();
    application = &the_application;
    test_application test;
    test.setProperty("window at start", application->main_window != nullptr);
    return QTest::qExec(&test, argc, argv);
}

#include "test_application.moc"
