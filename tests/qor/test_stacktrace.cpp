// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "isolated_program.h"
#include "qor/exception.h"
#include "qor/stacktrace.h"
#include "qor/trace_scope.h"

#include <csignal>
#include <stdexcept>
#include <type_traits>

using qor::stack_frame;
using qor::stacktrace;
using qor::trace_scope;

namespace
{

program_result die(const QStringList &way)
{
    return isolated_program(CRASH_PROBE_PROGRAM).run(way);
}

}  // namespace

class test_stacktrace : public QObject
{
    Q_OBJECT

private slots:
    void is_one_object();
    void scope_pushes_and_pops();
    void scope_pops_on_an_exception();
    void text_of_an_empty_stack();
    void text_lists_the_newest_frame_first();
    void text_of_given_frames_has_a_signal_line_if_named();
    void prints_by_default();
    void report_has_the_frames_from_the_top();
    void exit_handlers_run_after_a_report();
    void exception_reports_twice_data();
    void exception_reports_twice();
    void exception_prints_before_it_is_the_crash_message();
    void assertion_reports_once_data();
    void assertion_reports_once();
    void uncaught_exception_ends_with_a_report();
    void test_can_survive_by_a_jump();
};

void test_stacktrace::is_one_object()
{
    QCOMPARE(&stacktrace::instance(), &stacktrace::instance());
    QVERIFY(!std::is_copy_constructible_v<stacktrace>);
    QVERIFY(stacktrace::instance().frames.capacity() >= 50);
}

void test_stacktrace::scope_pushes_and_pops()
{
    const auto &frames = stacktrace::instance().frames;
    {
        const trace_scope outer("outer.cpp", 1, "void outer()");
        QCOMPARE(frames.size(), std::size_t(1));
        {
            const trace_scope inner("inner.cpp", 2, "void inner()");
            QCOMPARE(frames.size(), std::size_t(2));
            QCOMPARE(frames.back()->file, "inner.cpp");
            QCOMPARE(frames.back()->line, 2);
            QCOMPARE(frames.back()->function, "void inner()");
        }
        QCOMPARE(frames.size(), std::size_t(1));
        QCOMPARE(frames.back()->function, "void outer()");
    }
    QCOMPARE(frames.size(), std::size_t(0));
}

void test_stacktrace::scope_pops_on_an_exception()
{
    try {
        const trace_scope frame("probe.cpp", 1, "void probe()");
        throw std::runtime_error("stray");
    } catch (const std::runtime_error &) {
        QCOMPARE(stacktrace::instance().frames.size(), std::size_t(0));
        return;
    }
    QFAIL("the exception didn't come through");
}

void test_stacktrace::text_of_an_empty_stack()
{
    QCOMPARE(stacktrace::trace_text(), std::string("Stacktrace is empty\n"));
}

void test_stacktrace::text_lists_the_newest_frame_first()
{
    const trace_scope outer("a/outer.cpp", 10, "void outer(int)");
    const trace_scope inner("inner.cpp", 2, "void inner()");
    QCOMPARE(stacktrace::trace_text(), std::string("Printing stacktrace with size 2:\n"
                                                   "1: inner.cpp:2: void inner()\n"
                                                   "0: a/outer.cpp:10: void outer(int)\n"));
}

void test_stacktrace::text_of_given_frames_has_a_signal_line_if_named()
{
    const stack_frame frame = {"probe.cpp", 7, "int probe()"};
    const std::string body = "Printing stacktrace with size 1:\n0: probe.cpp:7: int probe()\n";
    const std::string head = "ERROR: received signal SIGINT\n";
    QCOMPARE(stacktrace::trace_text({&frame}, nullptr), body);
    QCOMPARE(stacktrace::trace_text({&frame}, "SIGINT"), head + body);
    QCOMPARE(stacktrace::trace_text({}, "SIGINT"), head + "Stacktrace is empty\n");
}

void test_stacktrace::prints_by_default()
{
    using handler = void (*)(int, const char *);
    const auto *target = stacktrace::instance().on_signal.target<handler>();
    QVERIFY(target);
    QVERIFY(*target == stacktrace::print_trace_and_exit);
}

void test_stacktrace::report_has_the_frames_from_the_top()
{
    const program_result result = die({"signal", QString::number(SIGSEGV), "2"});
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.errors, QByteArray("ERROR: received signal SIGSEGV\n"
                                       "Printing stacktrace with size 2:\n"
                                       "1: probe.cpp:1: frame_1\n"
                                       "0: probe.cpp:2: frame_2\n"
                                       "\n"));
}

void test_stacktrace::exit_handlers_run_after_a_report()
{
    const program_result result = die({"atexit"});
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.output, QByteArray("atexit ran\n"));
    QVERIFY(result.errors.startsWith("ERROR: received signal SIGTERM\n"));
}

void test_stacktrace::exception_reports_twice_data()
{
    QTest::addColumn<QString>("frames");
    QTest::addColumn<QByteArray>("trace");
    QTest::newRow("empty stack") << "0" << QByteArray("Stacktrace is empty\n");
    QTest::newRow("one frame") << "1"
                               << QByteArray("Printing stacktrace with size 1:\n"
                                             "0: probe.cpp:1: frame_1\n");
}

void test_stacktrace::exception_reports_twice()
{
    QFETCH(QString, frames);
    QFETCH(QByteArray, trace);
    const program_result result = die({"exception", frames});
    const QByteArray report = "misuse\n" + trace + "\n\n";
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.errors, report + report);
    QCOMPARE(result.output, QByteArray());
}

void test_stacktrace::exception_prints_before_it_is_the_crash_message()
{
    const program_result result = die({"message"});
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.output, QByteArray("crash message at the first byte: \n"));
}

void test_stacktrace::assertion_reports_once_data()
{
    exception_reports_twice_data();
}

void test_stacktrace::assertion_reports_once()
{
    QFETCH(QString, frames);
    QFETCH(QByteArray, trace);
    const program_result result = die({"assertion", frames});
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.errors,
             "assert \"a == b\" failed at probe.cpp:7 in int probe()\n" + trace + "\n\n");
    QCOMPARE(result.output, QByteArray());
}

void test_stacktrace::uncaught_exception_ends_with_a_report()
{
    const program_result result = die({"uncaught"});
    QCOMPARE(result.status, failed_status);
    QVERIFY2(result.errors.contains("ERROR: received signal SIGABRT\n"), result.errors);
}

void test_stacktrace::test_can_survive_by_a_jump()
{
    const program_result result = die({"jump"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output, QByteArray("survived: assert \"never\" failed at probe.cpp:1 in probe\n"
                                       "Stacktrace is empty\n\n"));
}

KELVRA_CORE_TEST_MAIN(test_stacktrace)
#include "test_stacktrace.moc"
