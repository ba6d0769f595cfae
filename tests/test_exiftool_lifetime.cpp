#include "outside_run.h"
#include "scripted_tool.h"
#include "test_main.h"

#include <QDir>
#include <QProcess>

#include <cerrno>
#include <csignal>
#include <memory>
#include <unistd.h>

namespace
{

const QString photo = "/p/photo.jpg";
const QByteArray warning_line = "Warning: Exiftool didn't supply any data in the last 1000 msec.\n";
const QByteArray not_started_line = "Error: Could not start Exiftool...\n";
const QByteArray failed_write_line = "[write_to_proc] proc->write() failed (rc=-1)\n";
const QByteArray not_running_line =
    "Exiftool is not running... It exited with code 0 and status is 0\n";
const QByteArray quit_request = "-stay_open\nFalse\n";
const QByteArray write_request =
    "\n/p/photo.jpg\n-overwrite_original_in_place\n-m\n-A=1\n-execute\n";

QByteArray lost_bytes_line(int written, int wanted)
{
    return "[write_to_proc] Could not write all required data to exiftool pipe. Wrote: " +
           QByteArray::number(written) + ". Wanted: " + QByteArray::number(wanted) + "!\n";
}

/// What a write says and gives on a tool that didn't start.
QByteArray write_without_tool()
{
    return failed_write_line.repeated(11) + lost_bytes_line(-11, write_request.size()) +
           "Uh oh...\nresult: true\n";
}

/// A session that waits for a reply without an end.
class hanging_session
{
public:
    hanging_session(const QString &program, const QStringList &commands)
    {
        process.start(program, commands);
    }
    ~hanging_session()
    {
        process.kill();
        process.waitForFinished();
    }

    /// Whether the session goes on and on with the warning; the text before that is in `said`.
    bool warns_without_an_end()
    {
        constexpr int enough_warnings = 2000;
        QByteArray output;
        while (output.count(warning_line) < enough_warnings && process.waitForReadyRead(30000))
            output += process.readAllStandardOutput();
        said = output.left(output.indexOf(warning_line));
        const QByteArray rest = output.mid(said.size());
        return rest.startsWith(warning_line.repeated(enough_warnings)) &&
               process.state() == QProcess::Running;
    }

    QByteArray said;

private:
    QProcess process;
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
    void idle_tool_is_asked_to_quit();
    void slow_end_is_waited_for();
    void words_at_the_end_are_relayed_data();
    void words_at_the_end_are_relayed();
    void quiet_silences_standard_error_at_the_end();
    void tool_that_stays_is_killed_after_five_seconds();
    void tool_that_is_gone_is_reported_at_the_end();
    void tool_has_the_programs_folder_and_environment();
    void missing_tool_is_reported_on_both_streams();
    void missing_tool_is_reported_in_utf8();
    void missing_tool_isnt_looked_for_elsewhere();
    void missing_tool_has_no_tags();
    void missing_tool_lets_writes_seem_to_succeed();
    void missing_tool_isnt_tried_again();
    void tool_that_cant_be_run_is_reported();
    void dead_tool_leaves_the_request_waiting_data();
    void dead_tool_leaves_the_request_waiting();
    void failed_writes_count_backwards();
    void refused_writes_count_as_nothing();

private:
    outside_result run(const QStringList &commands) const { return folder->run(commands); }

    std::unique_ptr<scripted_tool> tool;
    std::unique_ptr<outside_run> folder;
};

void test_exiftool_lifetime::init()
{
    tool = std::make_unique<scripted_tool>();
    tool->set_tags("photo.jpg", {"A=1"});
    folder = std::make_unique<outside_run>(TOOL_SESSION_PROGRAM);
}

void test_exiftool_lifetime::idle_tool_is_asked_to_quit()
{
    folder->use_stand_in();
    tool->script("quit", {"touch quit"});
    const outside_result result = run({"read", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QByteArray("tag: A=1\ntags: 1\n"));
    QCOMPARE(result.errors, QByteArray());
    QVERIFY(tool->input().endsWith("-execute\n" + quit_request));
    QVERIFY(tool->has_touched("quit"));
}

void test_exiftool_lifetime::slow_end_is_waited_for()
{
    folder->use_stand_in();
    tool->script("quit", {"wait 2000", "touch quit"});
    const outside_result result = run({"read", photo});
    QCOMPARE(result.output, QByteArray("tag: A=1\ntags: 1\n"));
    QVERIFY(tool->has_touched("quit"));
}

void test_exiftool_lifetime::words_at_the_end_are_relayed_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("output") << "out bye\\n" << QByteArray("[exiftool2] exit data: 'bye\n'\n");
    QTest::newRow("output in UTF-8")
        << "out tschüß" << QByteArray("[exiftool2] exit data: 'tschüß'\n");
    QTest::newRow("output up to a NUL")
        << "out bye\\0bye" << QByteArray("[exiftool2] exit data: 'bye'\n");
    QTest::newRow("standard error") << "err bye\\n" << QByteArray("[exiftool cerr] 'bye\n'\n");
}

void test_exiftool_lifetime::words_at_the_end_are_relayed()
{
    QFETCH(QString, action);
    QFETCH(QByteArray, line);
    folder->use_stand_in();
    tool->script("quit", {action});
    const outside_result result = run({"read", photo});
    QCOMPARE(result.output, "tag: A=1\ntags: 1\n" + line);
    QCOMPARE(result.errors, QByteArray());
}

void test_exiftool_lifetime::quiet_silences_standard_error_at_the_end()
{
    folder->use_stand_in();
    tool->script("quit", {"err unheard", "out heard"});
    const outside_result result = run({"quiet", "on"});
    QCOMPARE(result.output, QByteArray("[exiftool2] exit data: 'heard'\n"));
}

void test_exiftool_lifetime::tool_that_stays_is_killed_after_five_seconds()
{
    folder->use_stand_in();
    tool->script("quit", {"hang"});
    QElapsedTimer clock;
    clock.start();
    const outside_result result = run({"read", photo});
    QVERIFY2(clock.elapsed() >= 4900, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output,
             QByteArray("tag: A=1\ntags: 1\nExiftool didn't quit in time. Killing it.\n"));
    QCOMPARE(tool->process_ids().size(), 1);
    QVERIFY(!is_running(tool->process_ids().first()));
}

void test_exiftool_lifetime::tool_that_is_gone_is_reported_at_the_end()
{
    folder->use_stand_in();
    const outside_result result = run({"read", photo, "kill-tool"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, "tag: A=1\ntags: 1\n" + not_running_line);
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
    const outside_result result = run({"quiet", "off"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors,
             "Exiftool executable " + folder->tool_path().toUtf8() + " does not exist...\n");
    QCOMPARE(result.output, not_started_line + not_running_line);
}

void test_exiftool_lifetime::missing_tool_is_reported_in_utf8()
{
    const QTemporaryDir wide(QCoreApplication::applicationDirPath() + "/größer-XXXXXX");
    const QString program = wide.filePath("session");
    QCOMPARE(link(TOOL_SESSION_PROGRAM, QFile::encodeName(program)), 0);
    QProcess process;
    process.start(program, {"quiet", "off"});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardError(), "Exiftool executable " +
                                                 wide.filePath("exiftool.exe").toUtf8() +
                                                 " does not exist...\n");
}

void test_exiftool_lifetime::missing_tool_isnt_looked_for_elsewhere()
{
    outside_run elsewhere(TOOL_SESSION_PROGRAM);
    elsewhere.use_stand_in();
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(QFileInfo(elsewhere.tool_path()).path()) + ":" + path);
    const outside_result result = run({"read", photo});
    qputenv("PATH", path);
    QCOMPARE(result.output, not_started_line + "tags: 0\n" + not_running_line);
    QCOMPARE(tool->process_ids().size(), 0);
}

void test_exiftool_lifetime::missing_tool_has_no_tags()
{
    const outside_result result = run({"read", photo, "read-plain", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, not_started_line + "tags: 0\ntags: 0\n" + not_running_line);
}

void test_exiftool_lifetime::missing_tool_lets_writes_seem_to_succeed()
{
    const outside_result result = run({"write", photo, "1", "A=1"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, not_started_line + write_without_tool() + not_running_line);
}

void test_exiftool_lifetime::missing_tool_isnt_tried_again()
{
    const outside_result result = run({"read", photo, "write", photo, "1", "A=1", "read", photo});
    QCOMPARE(result.output, not_started_line + "tags: 0\n" + write_without_tool() + "tags: 0\n" +
                                not_running_line);
    QCOMPARE(result.errors.count("Exiftool executable"), 1);
}

void test_exiftool_lifetime::tool_that_cant_be_run_is_reported()
{
    QFile plain(folder->tool_path());
    QVERIFY(plain.open(QIODevice::WriteOnly));
    plain.close();
    const outside_result result = run({"read", photo});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output, not_started_line + "tags: 0\n" + not_running_line);
}

void test_exiftool_lifetime::dead_tool_leaves_the_request_waiting_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::newRow("read") << QStringList{"read", photo};
    QTest::newRow("write") << QStringList{"write", photo, "1", "A=1"};
}

void test_exiftool_lifetime::dead_tool_leaves_the_request_waiting()
{
    QFETCH(QStringList, commands);
    folder->use_stand_in();
    tool->script("1", {"out -A=1\\n", "exit 3"});
    hanging_session session(folder->program_path(), commands);
    QVERIFY(session.warns_without_an_end());
    QCOMPARE(session.said, QByteArray());
    QCOMPARE(tool->process_ids().size(), 1);
}

void test_exiftool_lifetime::failed_writes_count_backwards()
{
    folder->use_stand_in();
    hanging_session session(folder->program_path(), {"close", "write", photo, "1", "A=1"});
    QVERIFY(session.warns_without_an_end());
    QCOMPARE(session.said,
             failed_write_line.repeated(11) + lost_bytes_line(-11, write_request.size()));
}

void test_exiftool_lifetime::refused_writes_count_as_nothing()
{
    folder->use_stand_in();
    hanging_session session(folder->program_path(), {"close-write", "write", photo, "1", "A=1"});
    QVERIFY(session.warns_without_an_end());
    QCOMPARE(session.said, lost_bytes_line(0, write_request.size()));
}

KELVRA_TEST_MAIN(test_exiftool_lifetime)
#include "test_exiftool_lifetime.moc"
