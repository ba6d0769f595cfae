// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "hanging_session.h"
#include "isolated_program.h"
#include "sample_photos.h"
#include "scripted_tool.h"
#include "tool_version.h"

#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace tool_lines;

namespace
{

const QString photo = "/p/photo.jpg";
const QStringList read_command = {"read", photo};
const QStringList write_command = {"write", photo, "1", "A=1"};
const QByteArray read_request = "-G1\n\n/p/photo.jpg\n-execute\n";
const QByteArray write_request =
    "\n/p/photo.jpg\n-overwrite_original_in_place\n-m\n-A=1\n-execute\n";

constexpr int pipe_size = 65536;

/// Paths of files that don't exist. Joined by line ends they are one path to the program, but one
/// argument each to the tool.
QStringList missing_files()
{
    QStringList paths;
    for (int i = 1; i <= 3000; ++i)
        paths << QString("/no/such/file/%1.jpg").arg(i, 5, 10, QChar('0'));
    return paths;
}

QString make_pipe(const QString &path)
{
    if (mkfifo(QFile::encodeName(path), S_IRUSR | S_IWUSR) != 0)
        qFatal("no pipe at %s", qPrintable(path));
    return path;
}

/// Opens the pipe for writing and closes it again; false if nobody is waiting to read (fifo(7)).
bool end_pipe(const QString &path)
{
    const int file = open(QFile::encodeName(path), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    return file != -1 && close(file) == 0;
}

}  // namespace

/// A tool that fails while the program relies on it, seen from outside the program.
class test_exiftool_faults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void dead_tool_leaves_the_request_waiting_data();
    void dead_tool_leaves_the_request_waiting();
    void output_of_a_dying_tool_is_relayed();
    void tool_that_died_before_leaves_the_request_waiting_data();
    void tool_that_died_before_leaves_the_request_waiting();
    void tool_that_ended_at_its_start_leaves_the_request_waiting_data();
    void tool_that_ended_at_its_start_leaves_the_request_waiting();
    void quiet_hides_that_the_tool_has_died();
    void line_after_the_marker_keeps_the_request_waiting_data();
    void line_after_the_marker_keeps_the_request_waiting();
    void failed_writes_count_backwards_data();
    void failed_writes_count_backwards();
    void refused_writes_count_as_nothing_data();
    void refused_writes_count_as_nothing();
    void failed_part_of_a_request_is_told_before_the_wait_for_its_reply();
    void errors_before_the_first_request_are_relayed_with_it();
    void output_before_the_first_request_belongs_to_its_reply();
    void large_output_of_the_real_tool_doesnt_block_it();
    void large_output_of_the_real_tool_is_hidden_by_quiet();
    void pipe_is_missing_or_waited_for_data();
    void pipe_is_missing_or_waited_for();
    void pipe_for_the_temporary_file_is_reported_or_waited_for();

private:
    void verify_waits_forever(const QStringList &commands, const QByteArray &expected);
    void large_output_of_the_real_tool(const QStringList &commands, const QByteArray &messages);

    std::unique_ptr<scripted_tool> tool;
    std::unique_ptr<isolated_program> folder;
};

void test_exiftool_faults::init()
{
    tool = std::make_unique<scripted_tool>();
    tool->set_tags("photo.jpg", {"A=1"});
    folder = std::make_unique<isolated_program>(TOOL_SESSION_PROGRAM);
}

/// Verifies that a session of these commands prints `expected`, and then nothing but warnings.
void test_exiftool_faults::verify_waits_forever(const QStringList &commands,
                                                const QByteArray &expected)
{
    hanging_session session(folder->program_path(), commands);
    QVERIFY(session.warns_endlessly());
    QCOMPARE(session.printed, expected);
    QCOMPARE(session.errors, QByteArray());
}

void test_exiftool_faults::dead_tool_leaves_the_request_waiting_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QStringList>("script");
    const struct {
        const char *name;
        QStringList script;
    } starts[] = {{"before its reply", {}},
                  {"within its reply", {"out -A=1\\n-B="}},
                  {"within the marker", {"out -A=1\\n{read"}}};
    const struct {
        const char *name;
        QString action;
    } ends[] = {{"exits", "exit 0"},
                {"exits with an error", "exit 3"},
                {"is killed", QString("signal %1").arg(SIGKILL)},
                {"is terminated", QString("signal %1").arg(SIGTERM)}};
    for (const QStringList &commands : {read_command, write_command}) {
        for (const auto &start : starts) {
            for (const auto &end : ends)
                QTest::addRow("%s: %s %s", qPrintable(commands.first()), end.name, start.name)
                    << commands << start.script + QStringList{end.action};
        }
    }
}

void test_exiftool_faults::dead_tool_leaves_the_request_waiting()
{
    QFETCH(QStringList, commands);
    QFETCH(QStringList, script);
    folder->use_stand_in();
    tool->script("1", script);
    verify_waits_forever(commands, QByteArray());
    QCOMPARE(tool->process_ids().size(), 1);
}

void test_exiftool_faults::output_of_a_dying_tool_is_relayed()
{
    folder->use_stand_in();
    tool->script("1", {"err Can't go on\\n", "exit 2"});
    verify_waits_forever(read_command, standard_error("Can't go on\n"));
}

void test_exiftool_faults::tool_that_died_before_leaves_the_request_waiting_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("commands");
    QTest::newRow("unseen, read") << QStringList() << read_command;
    QTest::newRow("unseen, write") << QStringList() << write_command;
    QTest::newRow("seen, read") << QStringList{"await-tool"} << read_command;
    QTest::newRow("seen, write") << QStringList{"await-tool"} << write_command;
}

/// The reply is complete, so its request ends; the next request finds no tool.
void test_exiftool_faults::tool_that_died_before_leaves_the_request_waiting()
{
    QFETCH(QStringList, before);
    QFETCH(QStringList, commands);
    folder->use_stand_in();
    tool->script("1", {"out -A=1\\n{ready}\\n", "exit 0"});
    verify_waits_forever(read_command + before + commands, "tag: A=1\ntags: 1\n");
    QCOMPARE(tool->input(), read_request);
    QCOMPARE(tool->process_ids().size(), 1);
}

void test_exiftool_faults::tool_that_ended_at_its_start_leaves_the_request_waiting_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<QStringList>("commands");
    for (const QString end : {"exit 0", "exit 3"}) {
        QTest::newRow(qPrintable(end + ", read")) << end << read_command;
        QTest::newRow(qPrintable(end + ", write")) << end << write_command;
    }
}

void test_exiftool_faults::tool_that_ended_at_its_start_leaves_the_request_waiting()
{
    QFETCH(QString, end);
    QFETCH(QStringList, commands);
    write_shell_script(folder->tool_path(), {end});
    verify_waits_forever(commands, QByteArray());
}

void test_exiftool_faults::quiet_hides_that_the_tool_has_died()
{
    folder->use_stand_in();
    tool->script("1", {"err Can't go on\\n", "exit 2"});
    QStringList commands = {"quiet", "on"};
    commands += read_command;
    const program_result result = folder->run(commands, 6000);
    QVERIFY(result.timed_out);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(tool->input(), read_request);
}

void test_exiftool_faults::line_after_the_marker_keeps_the_request_waiting_data()
{
    QTest::addColumn<QString>("reply");
    QTest::newRow("another line") << "-A=1\\n{ready}\\n-B=2\\n";
    QTest::newRow("a single letter") << "-A=1\\n{ready}x";
    QTest::newRow("NUL") << "-A=1\\n{ready}\\0";
}

/// The tool is alive, so there is only one warning a second.
void test_exiftool_faults::line_after_the_marker_keeps_the_request_waiting()
{
    QFETCH(QString, reply);
    folder->use_stand_in();
    tool->script("1", {"out " + reply});
    hanging_session session(folder->program_path(), read_command);
    QVERIFY(session.warns_endlessly(2));
    QCOMPARE(session.printed, QByteArray());
    QCOMPARE(session.errors, QByteArray());
}

void test_exiftool_faults::failed_writes_count_backwards_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("read") << read_command << read_request;
    QTest::newRow("write") << write_command << write_request;
}

void test_exiftool_faults::failed_writes_count_backwards()
{
    QFETCH(QStringList, commands);
    QFETCH(QByteArray, request);
    folder->use_stand_in();
    verify_waits_forever(QStringList{"close"} + commands,
                         failed_write.repeated(11) + lost_bytes(-11, request.size()));
}

void test_exiftool_faults::refused_writes_count_as_nothing_data()
{
    failed_writes_count_backwards_data();
}

void test_exiftool_faults::refused_writes_count_as_nothing()
{
    QFETCH(QStringList, commands);
    QFETCH(QByteArray, request);
    folder->use_stand_in();
    verify_waits_forever(QStringList{"close-write"} + commands, lost_bytes(0, request.size()));
}

/// The tool closes its input after the first request and stays alive.
void test_exiftool_faults::failed_part_of_a_request_is_told_before_the_wait_for_its_reply()
{
    write_shell_script(folder->tool_path(),
                       {"for line in 1 2 3 4; do read -r text; done", "exec <&-",
                        "printf '%s\\n' -A=1 '{ready}'", "sleep 60"});
    hanging_session session(folder->program_path(),
                            QStringList{"tell-sent"} + read_command + read_command);
    QVERIFY(session.warns_endlessly(1));
    QCOMPARE(session.printed, QByteArray("sent\ntag: A=1\ntags: 1\n"
                                         "sent\n"     // the failed part
                                         "sent\n"));  // the end of the first wait
    QCOMPARE(session.errors, QByteArray());
}

void test_exiftool_faults::errors_before_the_first_request_are_relayed_with_it()
{
    folder->use_stand_in();
    tool->script("start", {"err hello\\n"});
    const program_result result = folder->run(read_command);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, standard_error("hello\n") + "tag: A=1\ntags: 1\n");
    QCOMPARE(result.errors, QByteArray());
}

void test_exiftool_faults::output_before_the_first_request_belongs_to_its_reply()
{
    folder->use_stand_in();
    tool->script("start", {"out -B=2\\n"});
    const program_result result = folder->run(read_command + read_command);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QByteArray("tag: A=1\ntag: B=2\ntags: 2\ntag: A=1\ntags: 1\n"));
    QCOMPARE(result.errors, QByteArray());
}

/// The session asks the tool for so many missing files that its messages don't fit into a pipe, and
/// then makes it write a photo.
void test_exiftool_faults::large_output_of_the_real_tool(const QStringList &commands,
                                                         const QByteArray &messages)
{
    folder->use_real_tool();
    const QTemporaryDir photos;
    const QString path = photos.filePath("a.jpg");
    make_jpeg(path);
    const program_result result =
        folder->run(commands + QStringList{"read", missing_files().join('\n'), "write", path, "1",
                                           "IFD0:Artist=me"});
    QCOMPARE(result.status, 0);
    const QByteArray results = "tags: 0\nresult: true\n";
    QVERIFY2(result.output.endsWith(results), result.output.right(1000));
    QCOMPARE(relayed_text(result.output.chopped(results.size())), messages);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(tag_of(path, "IFD0:Artist"), QString("me"));
}

void test_exiftool_faults::large_output_of_the_real_tool_doesnt_block_it()
{
    QByteArray messages;
    for (const QString &path : missing_files())
        messages += "Error: File not found - " + path.toUtf8() + "\n";
    QVERIFY(messages.size() > pipe_size);
    large_output_of_the_real_tool({}, messages);
}

void test_exiftool_faults::large_output_of_the_real_tool_is_hidden_by_quiet()
{
    large_output_of_the_real_tool({"quiet", "on"}, QByteArray());
}

void test_exiftool_faults::pipe_is_missing_or_waited_for_data()
{
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("result_if_missing");
    QTest::addColumn<QByteArray>("result_if_opened");
    const QByteArray failed = "result: false\n";
    // clang-format off
    QTest::newRow("read") << "read" << "pipe.jpg" << QByteArray("tags: 0\n")
        << QByteArray("tag: ExifTool:Error=File is empty\n");
    QTest::newRow("write") << "write" << "pipe.jpg" << failed << failed;
    QTest::newRow("write to its folder") << "write" << "" << failed << failed;
    // clang-format on
}

/// An older tool reports the pipe as missing. A newer one waits until the other end is opened, and
/// the request waits with it.
void test_exiftool_faults::pipe_is_missing_or_waited_for()
{
    QFETCH(QString, verb);
    QFETCH(QString, path);
    QFETCH(QByteArray, result_if_missing);
    QFETCH(QByteArray, result_if_opened);
    folder->use_real_tool();
    const QTemporaryDir photos;
    const QString pipe = make_pipe(photos.filePath("pipe.jpg"));
    QStringList commands = {verb, photos.filePath(path)};
    if (verb == "write")
        commands += {"1", "IFD0:Artist=me"};
    hanging_session session(folder->program_path(), commands);
    if (tool_opens_pipes()) {
        QVERIFY(session.warns_endlessly(2));
        QTRY_VERIFY(end_pipe(pipe));
    }
    QVERIFY(session.ends());
    QVERIFY2(session.printed.contains(tool_opens_pipes() ? result_if_opened : result_if_missing),
             session.printed);
}

/// Here it is the older tool that waits, and the newer one doesn't open the pipe.
void test_exiftool_faults::pipe_for_the_temporary_file_is_reported_or_waited_for()
{
    folder->use_real_tool();
    const QTemporaryDir photos;
    const QString path = photos.filePath("a.jpg");
    make_jpeg(path);
    make_pipe(path + "_exiftool_tmp");
    hanging_session session(folder->program_path(), {"write", path, "1", "IFD0:Artist=me"});
    if (tool_opens_pipes()) {
        QVERIFY(session.ends());
        QVERIFY2(session.printed.contains("result: false\n"), session.printed);
    } else {
        QVERIFY(session.warns_endlessly(2));
    }
    QCOMPARE(tag_of(path, "IFD0:Artist"), QString());
}

KELVRA_CORE_TEST_MAIN(test_exiftool_faults)
#include "test_exiftool_faults.moc"
