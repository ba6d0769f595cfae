// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "isolated_program.h"
#include "private_home.h"
#include "processes.h"
#include "running_program.h"
#include "scripted_tool.h"

#include <QTemporaryDir>

#include <csignal>
#include <memory>

namespace
{

constexpr int limit_ms = 60000;
constexpr char quit_request[] = "-stay_open\nFalse\n";
constexpr char waiting_line[] = "Warning: Exiftool didn't supply any data in the last 1000 msec.\n";
constexpr char empty_trace[] = "Stacktrace is empty\n\n";

QByteArray report_of(const QByteArray &signal_name)
{
    return "ERROR: received signal " + signal_name + "\n";
}

/// The program's output, without the lines that a slow machine adds.
QByteArray printed_by(const running_program &program)
{
    return QByteArray(program.output).replace(QByteArray(waiting_line), QByteArray());
}

/// The frame of a file-open event is on the stack while its files load.
bool is_trace_of_an_event(const QByteArray &trace)
{
    return trace.startsWith("Printing stacktrace with size 1:\n"
                            "0: orv_toolkit/orv/application_common:24: ") &&
           trace.endsWith("\n\n") && trace.count('\n') == 3;
}

}  // namespace

/// The program as a whole when a batch of three photos is disturbed: by signals, by closing its
/// window, by a request to quit. The tool is the scripted stand-in, so each moment is exact.
class test_disturbed_program : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void signal_after_a_load_makes_the_tool_quit_data();
    void signal_after_a_load_makes_the_tool_quit();
    void signal_between_two_photos_makes_the_tool_quit_data();
    void signal_between_two_photos_makes_the_tool_quit();
    void signal_in_a_request_makes_the_tool_quit_after_it_data();
    void signal_in_a_request_makes_the_tool_quit_after_it();
    void tool_in_a_request_is_not_killed();
    void signal_ends_the_wait_for_a_tool_that_died();
    void tool_that_does_not_quit_after_a_signal_is_killed();
    void batch_finishes_after_the_window_is_closed_data();
    void batch_finishes_after_the_window_is_closed();
    void closed_window_keeps_the_changes_despite_failed_photos();
    void fix_finishes_when_quitting_for_a_new_language();

private:
    /// The steps that start a batch and run `step` after its first photo.
    QString steps_with(const QString &batch, const QString &step) const;
    QString load_step() const { return "open " + photos->path(); }
    QByteArray reads(const QString &names) const;
    QByteArray fixes(const QString &names) const;
    QByteArray undos(const QString &names) const;
    QByteArray writes(const QString &names, const QByteArray &lines) const;
    /// Everything that the tool has received once the batch has reached these photos.
    QByteArray input_of(const QString &batch, const QString &names) const;
    qint64 tool_process() const { return tool->process_ids().value(0); }

    std::unique_ptr<scripted_tool> tool;
    std::unique_ptr<QTemporaryDir> photos;
    std::unique_ptr<isolated_program> folder;
};

void test_disturbed_program::init()
{
    clear_settings();
    tool = std::make_unique<scripted_tool>();
    tool->script("quit", {"touch quit"});
    photos = std::make_unique<QTemporaryDir>();
    for (const char *name : {"a", "b", "c"}) {
        tool->set_tags(name, {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
        QFile file(photos->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    folder = std::make_unique<isolated_program>(KELVRA_PROGRAM);
    folder->use_stand_in();
}

QString test_disturbed_program::steps_with(const QString &batch, const QString &step) const
{
    if (batch == "load")
        return "at load 1 " + step + ";" + load_step();
    if (batch == "fix")
        return load_step() + ";at fix 1 " + step + ";click fix";
    return load_step() + ";click fix;at fix 1 " + step + ";click undo";
}

QByteArray test_disturbed_program::reads(const QString &names) const
{
    QByteArray requests;
    for (const QChar &name : names)
        requests += "-G1\n\n" + photos->filePath(name).toUtf8() + "\n-execute\n";
    return requests;
}

QByteArray test_disturbed_program::writes(const QString &names, const QByteArray &lines) const
{
    QByteArray requests;
    for (const QChar &name : names)
        requests += "\n" + photos->filePath(name).toUtf8() +
                    "\n-overwrite_original_in_place\n-m\n" + lines + "-execute\n";
    return requests;
}

QByteArray test_disturbed_program::fixes(const QString &names) const
{
    return writes(names, "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n");
}

QByteArray test_disturbed_program::undos(const QString &names) const
{
    return writes(names, "-ExifIFD:CreateDate=\n"
                         "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n"
                         "-IFD0:ModifyDate=\n"
                         "-IPTC:DateCreated=\n"
                         "-IPTC:TimeCreated=\n"
                         "-System:FileCreateDate=\n"
                         "-System:FileModifyDate=\n"
                         "-XMP-photoshop:DateCreated=\n");
}

QByteArray test_disturbed_program::input_of(const QString &batch, const QString &names) const
{
    if (batch == "load")
        return reads(names);
    return reads("abc") + (batch == "fix" ? fixes(names) : fixes("abc") + undos(names));
}

void test_disturbed_program::signal_after_a_load_makes_the_tool_quit_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("SIGTERM") << SIGTERM << QByteArray("SIGTERM");
    QTest::newRow("SIGINT") << SIGINT << QByteArray("SIGINT");
    QTest::newRow("SIGSEGV") << SIGSEGV << QByteArray("SIGSEGV");
    QTest::newRow("SIGABRT") << SIGABRT << QByteArray("SIGABRT");
}

void test_disturbed_program::signal_after_a_load_makes_the_tool_quit()
{
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    running_program program(folder->program_path(), load_step() + ";rows");
    QVERIFY(program.wait_until_printed("rows: 3"));
    QVERIFY(program.wait_until_asleep());
    program.receive(number);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QCOMPARE(program.errors, report_of(name) + empty_trace);
    QCOMPARE(printed_by(program), QByteArray("shown\nrows: 3\n"));
    QCOMPARE(tool->input(), reads("abc") + quit_request);
    QVERIFY(tool->has_touched("quit"));
    QVERIFY(has_ended(tool_process()));
}

void test_disturbed_program::signal_between_two_photos_makes_the_tool_quit_data()
{
    QTest::addColumn<QString>("batch");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    const struct {
        int number;
        const char *name;
    } signal_rows[] = {{SIGTERM, "SIGTERM"}, {SIGINT, "SIGINT"}, {SIGSEGV, "SIGSEGV"}};
    for (const auto &row : signal_rows) {
        for (const char *batch : {"load", "fix", "undo"})
            QTest::addRow("%s in a %s", row.name, batch)
                << batch << row.number << QByteArray(row.name);
    }
}

void test_disturbed_program::signal_between_two_photos_makes_the_tool_quit()
{
    QFETCH(QString, batch);
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    running_program program(folder->program_path(),
                            steps_with(batch, "raise " + QString::number(number)));
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QVERIFY(program.errors.startsWith(report_of(name)));
    const QByteArray trace = program.errors.mid(report_of(name).size());
    QVERIFY2(batch == "load" ? is_trace_of_an_event(trace) : trace == empty_trace, trace);
    QCOMPARE(tool->input(), input_of(batch, "a") + quit_request);
    QVERIFY(tool->has_touched("quit"));
    QVERIFY(has_ended(tool_process()));
}

void test_disturbed_program::signal_in_a_request_makes_the_tool_quit_after_it_data()
{
    QTest::addColumn<QString>("batch");
    QTest::addColumn<QString>("request");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    // clang-format off
    QTest::newRow("load")         << "load" << "2" << SIGTERM << QByteArray("SIGTERM");
    QTest::newRow("fix, SIGTERM") << "fix"  << "5" << SIGTERM << QByteArray("SIGTERM");
    QTest::newRow("fix, SIGINT")  << "fix"  << "5" << SIGINT  << QByteArray("SIGINT");
    QTest::newRow("fix, SIGSEGV") << "fix"  << "5" << SIGSEGV << QByteArray("SIGSEGV");
    QTest::newRow("undo")         << "undo" << "8" << SIGTERM << QByteArray("SIGTERM");
    // clang-format on
}

void test_disturbed_program::signal_in_a_request_makes_the_tool_quit_after_it()
{
    QFETCH(QString, batch);
    QFETCH(QString, request);
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    tool->script(request, {"touch asked", "await answer", "out {ready}\\n"});
    running_program program(folder->program_path(), steps_with(batch, "rows"));
    QTRY_VERIFY_WITH_TIMEOUT(tool->has_touched("asked"), limit_ms);
    QVERIFY(program.wait_until_asleep());
    program.receive(number);
    tool->touch("answer");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QVERIFY(program.errors.startsWith(report_of(name)));
    QCOMPARE(tool->input(), input_of(batch, "ab") + quit_request);
    QVERIFY(tool->has_touched("quit"));
    QTRY_VERIFY_WITH_TIMEOUT(has_ended(tool_process()), limit_ms);
}

/// However long the request takes: the tool may be writing a photo.
void test_disturbed_program::tool_in_a_request_is_not_killed()
{
    tool->script("5", {"touch asked", "await answer", "touch answered"});
    running_program program(folder->program_path(), steps_with("fix", "rows"));
    QTRY_VERIFY_WITH_TIMEOUT(tool->has_touched("asked"), limit_ms);
    QVERIFY(program.wait_until_asleep());
    program.receive(SIGTERM);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QCOMPARE(program.errors, report_of("SIGTERM") + empty_trace);
    QVERIFY(!has_ended(tool_process()));

    tool->touch("answer");
    QTRY_VERIFY_WITH_TIMEOUT(tool->has_touched("answered"), limit_ms);
    QTRY_VERIFY_WITH_TIMEOUT(has_ended(tool_process()), limit_ms);
}

/// Such a wait fills the output with warnings, so the program blocks when nobody reads them.
void test_disturbed_program::signal_ends_the_wait_for_a_tool_that_died()
{
    tool->script("5", {"touch asked", "exit 3"});
    running_program program(folder->program_path(), steps_with("fix", "rows"));
    QTRY_VERIFY_WITH_TIMEOUT(tool->has_touched("asked"), limit_ms);
    QTRY_VERIFY_WITH_TIMEOUT(has_ended(tool_process()), limit_ms);
    QVERIFY(program.wait_until_asleep());
    program.receive(SIGTERM);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QCOMPARE(program.errors, report_of("SIGTERM") + empty_trace);
}

void test_disturbed_program::tool_that_does_not_quit_after_a_signal_is_killed()
{
    tool->script("quit", {"hang"});
    running_program program(folder->program_path(), load_step() + ";rows");
    QVERIFY(program.wait_until_printed("rows: 3"));
    QVERIFY(program.wait_until_asleep());
    program.receive(SIGTERM);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QCOMPARE(printed_by(program),
             QByteArray("shown\nrows: 3\nExiftool didn't quit in time. Killing it.\n"));
    QTRY_VERIFY_WITH_TIMEOUT(has_ended(tool_process()), limit_ms);
}

void test_disturbed_program::batch_finishes_after_the_window_is_closed_data()
{
    QTest::addColumn<QString>("batch");
    for (const char *batch : {"load", "fix", "undo"})
        QTest::newRow(batch) << batch;
}

void test_disturbed_program::batch_finishes_after_the_window_is_closed()
{
    QFETCH(QString, batch);
    running_program program(folder->program_path(), steps_with(batch, "close"));
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.errors, QByteArray());
    QCOMPARE(printed_by(program), QByteArray("shown\n"));
    QCOMPARE(tool->input(), input_of(batch, "abc") + quit_request);
    QVERIFY(tool->has_touched("quit"));
}

void test_disturbed_program::closed_window_keeps_the_changes_despite_failed_photos()
{
    tool->refuse_writes("b");
    running_program program(folder->program_path(), steps_with("fix", "close"));
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(tool->input(), input_of("fix", "abc") + quit_request);
}

void test_disturbed_program::fix_finishes_when_quitting_for_a_new_language()
{
    running_program program(folder->program_path(), steps_with("fix", "settings de No"));
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(printed_by(program), QByteArray("shown\nquestion: Application language changed\n"));
    QCOMPARE(tool->input(), input_of("fix", "abc") + quit_request);
    QVERIFY(tool->has_touched("quit"));
}

KELVRA_CORE_TEST_MAIN(test_disturbed_program)
#include "test_disturbed_program.moc"
