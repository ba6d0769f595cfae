// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "isolated_program.h"
#include "scripted_tool.h"
#include "tool_lines.h"

#include <QDir>
#include <QProcess>

#include <cerrno>
#include <csignal>
#include <memory>
#include <unistd.h>

using namespace tool_lines;

namespace
{

const QString photo = "/p/photo.jpg";
const QByteArray one_tag = "tag: A=1\ntags: 1\n";
const QByteArray quit_request = "-stay_open\nFalse\n";

/// What is printed when a single tag is written to the photo with a tool that didn't start.
QByteArray write_without_tool()
{
    const QByteArray request = "\n/p/photo.jpg\n-overwrite_original_in_place\n-m\n-A=1\n-execute\n";
    return failed_write.repeated(11) + lost_bytes(-11, request.size()) + no_request +
           "result: true\n";
}

/// Sets an environment variable for the programs that are started during its lifetime.
class environment_value
{
public:
    environment_value(const char *name, const QByteArray &value) : name(name)
    {
        qputenv(name, value);
    }
    ~environment_value() { qunsetenv(name); }

private:
    const char *name;
};

bool is_running(qint64 process_id)
{
    return kill(static_cast<pid_t>(process_id), 0) == 0 || errno != ESRCH;
}

}  // namespace

class test_exiftool_lifetime : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void idle_tool_is_told_to_quit();
    void tool_held_by_another_pointer_also_ends_data();
    void tool_held_by_another_pointer_also_ends();
    void slow_exit_is_waited_for();
    void output_at_the_end_is_relayed_data();
    void output_at_the_end_is_relayed();
    void quiet_silences_standard_error_at_the_end();
    void tool_that_stays_is_killed_after_five_seconds();
    void output_before_the_kill_is_relayed();
    void flood_at_the_end_is_relayed();
    void tool_may_end_in_any_way_data();
    void tool_may_end_in_any_way();
    void tool_that_is_gone_is_reported_at_the_end_data();
    void tool_that_is_gone_is_reported_at_the_end();
    void tool_has_the_programs_folder_and_environment();
    void missing_tool_is_reported_on_both_streams();
    void missing_tool_is_reported_in_utf8();
    void missing_tool_isnt_looked_for_elsewhere();
    void missing_tool_has_no_tags();
    void writes_without_a_tool_seem_to_succeed();
    void missing_tool_isnt_tried_again();
    void tool_that_cant_be_run_is_reported_data();
    void tool_that_cant_be_run_is_reported();
    void tool_that_takes_too_long_to_start_is_abandoned();
    void tool_that_never_starts_is_killed();
    void tool_that_ends_immediately_has_started_data();
    void tool_that_ends_immediately_has_started();

private:
    program_result run(const QStringList &commands) const { return folder->run(commands); }

    std::unique_ptr<scripted_tool> tool;
    std::unique_ptr<isolated_program> folder;
};

void test_exiftool_lifetime::init()
{
    tool = std::make_unique<scripted_tool>();
    tool->set_tags("photo.jpg", {"A=1"});
    folder = std::make_unique<isolated_program>(TOOL_SESSION_PROGRAM);
}

void test_exiftool_lifetime::idle_tool_is_told_to_quit()
{
    folder->use_stand_in();
    tool->script("quit", {"touch quit"});
    const program_result result = run({"read", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, one_tag);
    QCOMPARE(result.errors, QByteArray());
    QVERIFY(tool->input().endsWith("-execute\n" + quit_request));
    QVERIFY(tool->has_touched("quit"));
}

void test_exiftool_lifetime::tool_held_by_another_pointer_also_ends_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::newRow("released later") << QStringList{"hold", "read", photo};
    QTest::newRow("never released") << QStringList{"read", photo, "exit"};
}

void test_exiftool_lifetime::tool_held_by_another_pointer_also_ends()
{
    QFETCH(QStringList, commands);
    folder->use_stand_in();
    tool->script("quit", {"hang"});
    const program_result result = run(commands);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, one_tag + killed);
    QCOMPARE(tool->input().count(quit_request), 1);
}

void test_exiftool_lifetime::slow_exit_is_waited_for()
{
    folder->use_stand_in();
    tool->script("quit", {"wait 2000", "touch quit"});
    const program_result result = run({"read", photo});
    QCOMPARE(result.output, one_tag);
    QCOMPARE(result.errors, QByteArray());
    QVERIFY(tool->has_touched("quit"));
}

void test_exiftool_lifetime::output_at_the_end_is_relayed_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("output") << "out bye\\n" << exit_data("bye\n");
    QTest::newRow("output in UTF-8") << "out tschüß" << exit_data("tschüß");
    QTest::newRow("output up to a NUL") << "out bye\\0bye" << exit_data("bye");
    QTest::newRow("standard error") << "err bye\\n" << standard_error("bye\n");
    QTest::newRow("output in two pieces")
        << "out good\nwait 300\nout bye" << exit_data("good") + exit_data("bye");
    QTest::newRow("marker like any other output") << "out {ready}\\n" << exit_data("{ready}\n");
}

void test_exiftool_lifetime::output_at_the_end_is_relayed()
{
    QFETCH(QString, action);
    QFETCH(QByteArray, line);
    folder->use_stand_in();
    tool->script("quit", {action});
    const program_result result = run({"read", photo});
    QCOMPARE(result.output, one_tag + line);
    QCOMPARE(result.errors, QByteArray());
}

void test_exiftool_lifetime::quiet_silences_standard_error_at_the_end()
{
    folder->use_stand_in();
    tool->script("quit", {"err unheard", "out heard"});
    const program_result result = run({"quiet", "on"});
    QCOMPARE(result.output, exit_data("heard"));
    QCOMPARE(result.errors, QByteArray());
}

/// The program promises these five seconds: a tool that still writes gets all of them. Only a lower
/// limit is checked, so a slow computer can't fail this.
void test_exiftool_lifetime::tool_that_stays_is_killed_after_five_seconds()
{
    folder->use_stand_in();
    tool->script("quit", {"hang"});
    QElapsedTimer clock;
    clock.start();
    const program_result result = run({"read", photo});
    QVERIFY2(clock.elapsed() >= 4900, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, one_tag + killed);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(tool->process_ids().size(), 1);
    QVERIFY(!is_running(tool->process_ids().first()));
}

void test_exiftool_lifetime::output_before_the_kill_is_relayed()
{
    folder->use_stand_in();
    tool->script("quit", {"out half", "hang"});
    const program_result result = run({"quiet", "off"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, exit_data("half") + killed);
    QCOMPARE(result.errors, QByteArray());
}

void test_exiftool_lifetime::flood_at_the_end_is_relayed()
{
    folder->use_stand_in();
    tool->script("quit", {"fill 1000000", "fill_err 1000000"});
    const program_result result = run({"quiet", "off"});
    QCOMPARE(result.status, 0);
    QCOMPARE(relayed_text(result.output), QByteArray(2000000, 'x'));
    QCOMPARE(result.errors, QByteArray());
}

void test_exiftool_lifetime::tool_may_end_in_any_way_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("status 0") << "exit 0";
    QTest::newRow("other status") << "exit 3";
    QTest::newRow("signal") << QString("signal %1").arg(SIGKILL);
}

void test_exiftool_lifetime::tool_may_end_in_any_way()
{
    QFETCH(QString, end);
    folder->use_stand_in();
    tool->script("quit", {end});
    const program_result result = run({"read", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, one_tag);
    QCOMPARE(result.errors, QByteArray());
}

void test_exiftool_lifetime::tool_that_is_gone_is_reported_at_the_end_data()
{
    tool_may_end_in_any_way_data();
}

void test_exiftool_lifetime::tool_that_is_gone_is_reported_at_the_end()
{
    QFETCH(QString, end);
    folder->use_stand_in();
    tool->script("1", {"out -A=1\\n{ready}\\n", end});
    const program_result result = run({"read", photo, "await-tool"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, one_tag + not_running);
    QCOMPARE(result.errors, QByteArray());
    QVERIFY(!tool->input().contains("-stay_open"));
}

void test_exiftool_lifetime::tool_has_the_programs_folder_and_environment()
{
    write_shell_script(folder->tool_path(), {"pwd > \"$KELVRA_STAND_IN/folder\"", "exec true"});
    run({"quiet", "off", "pause", "0"});
    QFile seen(tool->path() + "/folder");
    QTRY_VERIFY(seen.exists() && seen.size() > 0);
    QVERIFY(seen.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromLocal8Bit(seen.readAll()).trimmed(), QDir::currentPath());
}

void test_exiftool_lifetime::missing_tool_is_reported_on_both_streams()
{
    const program_result result = run({"quiet", "off"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, missing(folder->tool_path()));
    QCOMPARE(result.output, not_started + not_running);
}

void test_exiftool_lifetime::missing_tool_is_reported_in_utf8()
{
    const QTemporaryDir wide(QCoreApplication::applicationDirPath() + "/größer-XXXXXX");
    const QString program = wide.filePath("session");
    QCOMPARE(link(TOOL_SESSION_PROGRAM, QFile::encodeName(program)), 0);
    QProcess process;
    process.start(program, {"quiet", "off"});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardError(), missing(wide.filePath("exiftool.exe")));
    QCOMPARE(process.readAllStandardOutput(), not_started + not_running);
}

void test_exiftool_lifetime::missing_tool_isnt_looked_for_elsewhere()
{
    isolated_program elsewhere(TOOL_SESSION_PROGRAM);
    elsewhere.use_stand_in();
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(QFileInfo(elsewhere.tool_path()).path()) + ":" + path);
    const program_result result = run({"read", photo});
    qputenv("PATH", path);
    QCOMPARE(result.output, not_started + "tags: 0\n" + not_running);
    QCOMPARE(result.errors, missing(folder->tool_path()));
    QCOMPARE(tool->process_ids().size(), 0);
}

void test_exiftool_lifetime::missing_tool_has_no_tags()
{
    const program_result result =
        run({"read", photo, "read-plain", photo, "read-print", photo, "read", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, not_started + "tags: 0\ntags: 0\ntags: 0\n" + not_running);
    QCOMPARE(result.errors, missing(folder->tool_path()));
}

void test_exiftool_lifetime::writes_without_a_tool_seem_to_succeed()
{
    const program_result result = run({"write", photo, "1", "A=1"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, not_started + write_without_tool() + not_running);
    QCOMPARE(result.errors, missing(folder->tool_path()));
}

void test_exiftool_lifetime::missing_tool_isnt_tried_again()
{
    const program_result result = run({"read", photo, "write", photo, "1", "A=1", "read", photo});
    QCOMPARE(result.output,
             not_started + "tags: 0\n" + write_without_tool() + "tags: 0\n" + not_running);
    QCOMPARE(result.errors, missing(folder->tool_path()));
}

void test_exiftool_lifetime::tool_that_cant_be_run_is_reported_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("executable");
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("text") << QByteArray("a letter\n") << true;
    QTest::newRow("noise") << QByteArray(5000, '\xfe') << true;
    QTest::newRow("program cut in its header") << QByteArray("\x7f"
                                                             "ELF\x02\x01\x01")
                                               << true;
    QTest::newRow("interpreter that isn't there") << QByteArray("#!/no/such/program\n") << true;
    QTest::newRow("not executable") << QByteArray("#!/bin/sh\n") << false;
}

void test_exiftool_lifetime::tool_that_cant_be_run_is_reported()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, executable);
    QFile file(folder->tool_path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    file.setPermissions(QFile::ReadOwner | (executable ? QFile::ExeOwner : QFile::Permission()));
    const program_result result = run({"read", photo, "write", photo, "1", "A=1"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, not_started + "tags: 0\n" + write_without_tool() + not_running);
    QCOMPARE(result.errors, QByteArray());
}

void test_exiftool_lifetime::tool_that_takes_too_long_to_start_is_abandoned()
{
    folder->use_stand_in();
    const environment_value delay("KELVRA_EXEC_DELAY", "3500");
    const program_result result = run({"read", photo, "read", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, not_started + "tags: 0\ntags: 0\n");
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(tool->input(), quit_request);
}

void test_exiftool_lifetime::tool_that_never_starts_is_killed()
{
    folder->use_stand_in();
    const environment_value delay("KELVRA_EXEC_DELAY", "100000");
    const program_result result = run({"read", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, not_started + "tags: 0\n" + killed);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(tool->process_ids().size(), 0);
}

void test_exiftool_lifetime::tool_that_ends_immediately_has_started_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QByteArray>("output");
    for (const QString end : {"exit 0", "exit 3"}) {
        // Nothing has checked the tool in between, so it still counts as running.
        QTest::newRow(qPrintable(end + ", not seen"))
            << end << QStringList{"quiet", "off"} << QByteArray();
        QTest::newRow(qPrintable(end + ", seen"))
            << end << QStringList{"await-tool"} << not_running;
    }
}

void test_exiftool_lifetime::tool_that_ends_immediately_has_started()
{
    QFETCH(QString, end);
    QFETCH(QStringList, commands);
    write_shell_script(folder->tool_path(), {end});
    const program_result result = run(commands);
    QCOMPARE(result.status, 0);
    QTEST(result.output, "output");
    QCOMPARE(result.errors, QByteArray());
}

KELVRA_CORE_TEST_MAIN(test_exiftool_lifetime)
#include "test_exiftool_lifetime.moc"
