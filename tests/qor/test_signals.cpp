// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "isolated_program.h"
#include "qor/signal_table.h"
#include "qor/stacktrace.h"

#include <csignal>

using qor::stacktrace;

namespace
{

struct signal_row {
    int number;
    const char *name;
};

// Each system has its own numbers: signal.h of the Microsoft C runtime, and signal(7) on Linux.
// clang-format off
#ifdef Q_OS_WIN
constexpr signal_row named_signals[] = {
    {0, "UNKNOWN"}, {1, "SIGHUP"}, {2, "SIGINT"}, {3, "SIGQUIT"}, {4, "SIGILL"}, {5, "SIGTRAP"},
    {6, "SIGABRT_COMPAT"}, {7, "SIGEMT"}, {8, "SIGFPE"}, {9, "SIGKILL"}, {10, "SIGBUS"},
    {11, "SIGSEGV"}, {12, "SIGSYS"}, {13, "SIGPIPE"}, {14, "SIGALRM"}, {15, "SIGTERM"},
    {16, "UNKNOWN"}, {20, "UNKNOWN"}, {21, "SIGBREAK"}, {22, "SIGABRT"}, {23, "UNKNOWN"}};
constexpr signal_row ending_signals[] = {
    {SIGINT, "SIGINT"}, {SIGILL, "SIGILL"}, {SIGFPE, "SIGFPE"}, {SIGSEGV, "SIGSEGV"},
    {SIGTERM, "SIGTERM"}, {SIGBREAK, "SIGBREAK"}, {SIGABRT, "SIGABRT"}};
#else
constexpr signal_row named_signals[] = {
    {0, "UNKNOWN"}, {SIGHUP, "SIGHUP"}, {SIGINT, "SIGINT"}, {SIGQUIT, "SIGQUIT"},
    {SIGILL, "SIGILL"}, {SIGTRAP, "SIGTRAP"}, {SIGABRT, "SIGABRT"}, {SIGBUS, "SIGBUS"},
    {SIGFPE, "SIGFPE"}, {SIGKILL, "SIGKILL"}, {SIGUSR1, "SIGUSR1"}, {SIGSEGV, "SIGSEGV"},
    {SIGUSR2, "SIGUSR2"}, {SIGPIPE, "SIGPIPE"}, {SIGALRM, "SIGALRM"}, {SIGTERM, "SIGTERM"},
    {SIGCHLD, "SIGCHLD"}, {SIGCONT, "SIGCONT"}, {SIGSTOP, "SIGSTOP"}, {SIGTSTP, "SIGTSTP"},
    {SIGTTIN, "SIGTTIN"}, {SIGTTOU, "SIGTTOU"}, {SIGSYS, "SIGSYS"}, {SIGSTKFLT, "SIGSTKFLT"},
    {SIGURG, "SIGURG"}, {SIGXCPU, "SIGXCPU"}, {SIGXFSZ, "SIGXFSZ"}, {SIGVTALRM, "SIGVTALRM"},
    {SIGPROF, "SIGPROF"}, {SIGWINCH, "SIGWINCH"}, {SIGIO, "SIGIO"}, {SIGPWR, "SIGPWR"}};
constexpr signal_row ending_signals[] = {
    {SIGABRT, "SIGABRT"}, {SIGFPE, "SIGFPE"}, {SIGILL, "SIGILL"}, {SIGINT, "SIGINT"},
    {SIGSEGV, "SIGSEGV"}, {SIGTERM, "SIGTERM"}};
#endif
// clang-format on

program_result raise_in_another_process(int number)
{
    return isolated_program(CRASH_PROBE_PROGRAM).run({"signal", QString::number(number)});
}

/// Records what the signal handler was called with.
class signal_record
{
public:
    signal_record()
    {
        stacktrace::instance().on_signal = [this](int new_number, const char *new_name) {
            number = new_number;
            name = new_name;
        };
    }
    ~signal_record() { stacktrace::instance().on_signal = stacktrace::print_trace_and_exit; }

    int number = -1;
    QByteArray name;
};

}  // namespace

class test_signals : public QObject
{
    Q_OBJECT

private slots:
    void every_signal_of_the_system_has_its_name_data();
    void every_signal_of_the_system_has_its_name();
    void signal_runs_its_callable_data();
    void signal_runs_its_callable();
    void handled_signal_ends_with_a_report_data();
    void handled_signal_ends_with_a_report();
    void other_signal_is_left_to_the_system_data();
    void other_signal_is_left_to_the_system();
};

void test_signals::every_signal_of_the_system_has_its_name_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    for (const signal_row &row : named_signals)
        QTest::addRow("%d %s", row.number, row.name) << row.number << QByteArray(row.name);
}

void test_signals::every_signal_of_the_system_has_its_name()
{
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    const signal_record record;
    stacktrace::signal_handler(number);
    QCOMPARE(record.number, number);
    QCOMPARE(record.name, name);
}

void test_signals::signal_runs_its_callable_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("reported");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("named") << SIGTERM << SIGTERM << QByteArray("SIGTERM");
    QTest::newRow("never installed, but named") << 1 << 1 << QByteArray("SIGHUP");
    QTest::newRow("zero") << 0 << 0 << QByteArray("UNKNOWN");
    QTest::newRow("last below the bound keeps its number") << 184 << 184 << QByteArray("UNKNOWN");
    QTest::newRow("bound is replaced") << 185 << 0 << QByteArray("UNKNOWN");
    QTest::newRow("far above is replaced") << 100000 << 0 << QByteArray("UNKNOWN");
}

void test_signals::signal_runs_its_callable()
{
    QFETCH(int, number);
    const signal_record record;
    stacktrace::signal_handler(number);
    QTEST(record.number, "reported");
    QTEST(record.name, "name");
}

void test_signals::handled_signal_ends_with_a_report_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    for (const signal_row &row : ending_signals)
        QTest::newRow(row.name) << row.number << QByteArray(row.name);
}

void test_signals::handled_signal_ends_with_a_report()
{
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    const program_result result = raise_in_another_process(number);
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.errors, "ERROR: received signal " + name + "\nStacktrace is empty\n\n");
    QCOMPARE(result.output, QByteArray());
}

/// The C runtime of Windows has no other signals: they can't be raised.
void test_signals::other_signal_is_left_to_the_system_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("status");
#ifdef Q_OS_WIN
    QTest::newRow("not raised") << 1 << 0;
#else
    QTest::newRow("SIGHUP") << SIGHUP << -1;
    QTest::newRow("SIGQUIT") << SIGQUIT << -1;
    QTest::newRow("SIGTRAP") << SIGTRAP << -1;
    QTest::newRow("SIGBUS") << SIGBUS << -1;
    QTest::newRow("SIGSYS") << SIGSYS << -1;
    QTest::newRow("SIGPIPE") << SIGPIPE << -1;
    QTest::newRow("SIGALRM") << SIGALRM << -1;
#endif
}

void test_signals::other_signal_is_left_to_the_system()
{
    QFETCH(int, number);
    const program_result result = raise_in_another_process(number);
    QVERIFY(!result.timed_out);
    QTEST(result.status, "status");
    QCOMPARE(result.errors, QByteArray());
}

KELVRA_CORE_TEST_MAIN(test_signals)
#include "test_signals.moc"
