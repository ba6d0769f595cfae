// SPDX-License-Identifier: GPL-3.0-or-later

#include "captured_output.h"
#include "core_test_main.h"
#include "orv/exiftool.h"
#include "scripted_tool.h"
#include "tool_lines.h"

#include <QDir>
#include <QProcess>
#include <QTextCodec>

#include <type_traits>

using orv::exiftool;
using namespace tool_lines;

namespace
{

constexpr int flood = 1024 * 1024;

QProcess *process()
{
    return exiftool::instance()->findChild<QProcess *>(QString(), Qt::FindDirectChildrenOnly);
}

const QString photo = "/p/photo.jpg";

tag_map read(const QString &path = photo)
{
    return exiftool::instance()->read_tags(path, true, false);
}

/// The tags of the next reply as one text.
QString read_text(const QString &path = photo)
{
    QStringList texts;
    for (const auto &[name, value] : read(path))
        texts << QString::fromStdString(name + "=" + value);
    return texts.join(" ");
}

/// Makes `codec_name` the system's 8-bit encoding.
class local_encoding
{
public:
    explicit local_encoding(const char *codec_name) : before(QTextCodec::codecForLocale())
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec_name));
    }
    ~local_encoding() { QTextCodec::setCodecForLocale(before); }

private:
    QTextCodec *before;
};

}  // namespace

class test_exiftool_process : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void is_one_shared_object();
    void adds_nothing_to_the_meta_object();
    void starts_the_program_beside_its_own();
    void serves_all_requests_with_one_child();
    void reply_ends_with_the_marker_data();
    void reply_ends_with_the_marker();
    void reply_in_single_bytes_is_put_together();
    void big_reply_arrives_whole();
    void big_request_arrives_whole();
    void quick_reply_prints_nothing();
    void slow_reply_causes_warnings();
    void reply_is_awaited_for_ten_seconds();
    void standard_error_is_relayed_data();
    void standard_error_is_relayed();
    void flood_of_standard_error_is_relayed();
    void errors_between_two_requests_are_relayed_data();
    void errors_between_two_requests_are_relayed();
    void output_between_two_requests_belongs_to_the_second_data();
    void output_between_two_requests_belongs_to_the_second();
    void marker_read_between_two_requests_does_no_harm();
    void marker_left_between_two_requests_puts_them_out_of_step();
    void marker_in_a_value_ends_the_reply_where_a_read_ends();
    void standard_error_does_not_affect_the_result();
    void quiet_tool_is_waited_for_in_silence();
    void quiet_hides_a_flood_of_standard_error();
    void quiet_leaves_standard_error_unread();
    void request_is_sent_in_the_local_encoding_data();
    void request_is_sent_in_the_local_encoding();
    void reply_is_utf8_under_any_local_encoding();
    void request_runs_no_event_loop();

private:
    void read_before_more(const QString &action, const QString &reply = "1\\n{ready}\\n");
    void wait_for_more(bool in_event_loop = false);

    scripted_tool tool;
};

void test_exiftool_process::init()
{
    exiftool::instance();
    tool.forget();
}

void test_exiftool_process::cleanup()
{
    exiftool::instance()->set_quiet(false);
}

/// Reads a photo. After the reply the tool runs `action`, but not before the read has returned.
void test_exiftool_process::read_before_more(const QString &action, const QString &reply)
{
    QFile::remove(tool.path() + "/done");
    tool.script("next", {"out -A=" + reply, "await more", action, "touch done"});
    QVERIFY(read_text().startsWith("A=1"));
    tool.touch("more");
}

/// Waits until that action has ended. Its output is then in the process object if an event loop
/// ran, and otherwise still in the pipe: that is why this sleeps instead of running one.
void test_exiftool_process::wait_for_more(bool in_event_loop)
{
    if (in_event_loop)
        QTRY_VERIFY(process()->bytesAvailable() > 0);
    for (int i = 0; i < 6000 && !tool.has_touched("done"); ++i)
        QThread::msleep(5);
    QVERIFY(tool.has_touched("done"));
}

void test_exiftool_process::is_one_shared_object()
{
    const std::shared_ptr<exiftool> first = exiftool::instance();
    const std::shared_ptr<exiftool> second = exiftool::instance();
    QCOMPARE(first.get(), second.get());
    QCOMPARE(first.use_count(), 3L);
    QVERIFY(!first->parent());
    QVERIFY(!std::is_copy_constructible_v<exiftool>);
    QVERIFY(!std::is_move_constructible_v<exiftool>);
}

void test_exiftool_process::adds_nothing_to_the_meta_object()
{
    const QMetaObject &meta = exiftool::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("orv::exiftool"));
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void test_exiftool_process::starts_the_program_beside_its_own()
{
    QVERIFY(process());
    read();
    QCOMPARE(process()->program(),
             QCoreApplication::applicationDirPath() + QDir::separator() + "exiftool.exe");
    QCOMPARE(tool.arguments(), QStringList({"-stay_open", "True", "-@", "-", "-common_args",
                                            "-args", "-f", "-sort"}));
    QCOMPARE(process()->openMode(), QIODevice::ReadWrite | QIODevice::Text | QIODevice::Unbuffered);
    QCOMPARE(process()->readChannel(), QProcess::StandardOutput);
    QCOMPARE(process()->workingDirectory(), QString());
}

void test_exiftool_process::serves_all_requests_with_one_child()
{
    for (int i = 0; i < 5; ++i) {
        read();
        exiftool::instance()->write_tags("/p/photo.jpg", {});
    }
    QCOMPARE(tool.requests().size(), 10);
    QCOMPARE(tool.process_ids().size(), 1);
}

// clang-format off
void test_exiftool_process::reply_ends_with_the_marker_data()
{
    QTest::addColumn<QStringList>("script");
    QTest::addColumn<QString>("tags");
    QTest::newRow("marker on a line of its own") << QStringList{"out -A=1\\n{ready}\\n"} << "A=1";
    QTest::newRow("marker without a line end") << QStringList{"out -A=1\\n{ready}"} << "A=1";
    QTest::newRow("marker alone") << QStringList{"out {ready}\\n"} << "";
    QTest::newRow("marker in two pieces") << QStringList{"out -A=1\\n{rea", "wait 200", "out dy}\\n"} << "A=1";
    QTest::newRow("line end comes later") << QStringList{"out -A=1\\n", "wait 100", "out {ready}", "out \\n"} << "A=1";
    QTest::newRow("white space after the marker") << QStringList{"out -A=1\\n{ready} \\t\\r\\n\\n "} << "A=1";
    QTest::newRow("marker in the middle") << QStringList{"out -A=1\\n{ready}\\n-B=2\\n", "wait 200", "out {ready}\\n"} << "A=1 B=2";
    QTest::newRow("text after the marker") << QStringList{"out -A=1\\n{ready} soon\\n", "wait 200", "out -B=2\\n{ready}\\n"} << "A=1 B=2";
    QTest::newRow("marker in a value") << QStringList{"out -A=x{ready}y\\n", "wait 200", "out {ready}\\n"} << "A=x{ready}y";
    QTest::newRow("marker at the end of a value") << QStringList{"out -A=1{ready}\\n"} << "A=1{ready}";
    QTest::newRow("marker in capitals isn't a marker") << QStringList{"out -A=1\\n{READY}\\n", "wait 200", "out {ready}\\n"} << "A=1";
    QTest::newRow("NUL cuts the text") << QStringList{"out -A=1\\n-B=2\\0x\\n-C=3\\n{ready}\\n"} << "A=1 B=2";
    QTest::newRow("NUL after the marker isn't white space")
        << QStringList{"out -A=1\\n{ready}\\0", "wait 200", "out -B=2\\n{ready}\\n"} << "A=1";
    QTest::newRow("line ends of another system") << QStringList{"out -A=1\\r\\n-B=2\\r\\n{ready}\\r\\n"} << "A=1 B=2";
}
// clang-format on

void test_exiftool_process::reply_ends_with_the_marker()
{
    QFETCH(QStringList, script);
    tool.script("next", script);
    QTEST(read_text(), "tags");
    QCOMPARE(read_text(), QString());
}

void test_exiftool_process::reply_in_single_bytes_is_put_together()
{
    QStringList script;
    for (const char byte : QByteArray("-A=größer 日\n\n-B=x {ready y\n{ready}\n"))
        script << QString("out \\x%1").arg(static_cast<uchar>(byte), 2, 16, QChar('0')) << "wait 5";
    tool.script("next", script);
    QCOMPARE(read_text(), QString("A=größer 日 B=x {ready y"));
    QCOMPARE(read_text(), QString());
}

void test_exiftool_process::big_reply_arrives_whole()
{
    constexpr int size = 20 * 1024 * 1024;
    tool.script("next", {"out -A=", QString("fill %1").arg(size), "out \\n-B=2\\n{ready}\\n"});
    tag_map tags = read();
    QVERIFY(tags["A"] == std::string(size, 'x'));
    QCOMPARE(tags["B"], std::string("2"));
    QCOMPARE(tags.size(), std::size_t(2));
    QCOMPARE(read_text(), QString());
}

void test_exiftool_process::big_request_arrives_whole()
{
    const std::string value(1000000, 'x');
    const captured_output output;
    QVERIFY(exiftool::instance()->write_tags("/p/photo.jpg", {{"A", value}}));
    QCOMPARE(tool.input(), "\n/p/photo.jpg\n-overwrite_original_in_place\n-m\n-A=" +
                               QByteArray::fromStdString(value) + "\n-execute\n");
    QVERIFY(!output.text().contains("[write_to_proc]"));
}

void test_exiftool_process::quick_reply_prints_nothing()
{
    const captured_output output;
    read();
    exiftool::instance()->write_tags("/p/photo.jpg", {{"A", "1"}});
    QCOMPARE(output.text(), QByteArray());
}

void test_exiftool_process::slow_reply_causes_warnings()
{
    tool.script("next", {"wait 1500", "out -A=1\\n{ready}\\n"});
    const captured_output output;
    QCOMPARE(read_text(), QString("A=1"));
    const int warnings = output.text().count(no_data);
    QVERIFY2(warnings >= 1 && warnings <= 3, output.text());
    QCOMPARE(output.text(), no_data.repeated(warnings));
}

void test_exiftool_process::reply_is_awaited_for_ten_seconds()
{
    tool.script("next", {"out -A=1\\n", "wait 10000", "out -B=2\\n{ready}\\n"});
    const captured_output output;
    QCOMPARE(read_text(), QString("A=1 B=2"));
    const int warnings = output.text().count(no_data);
    QVERIFY2(warnings >= 8 && warnings <= 11, output.text());
    QCOMPARE(output.text(), no_data.repeated(warnings));
}

void test_exiftool_process::standard_error_is_relayed_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("with its line end") << "Error: no\\n" << standard_error("Error: no\n");
    QTest::newRow("without a line end") << "Error" << standard_error("Error");
    QTest::newRow("several lines") << "Error: no\\n\\nno\\n" << standard_error("Error: no\n\nno\n");
    QTest::newRow("in UTF-8") << "größer" << standard_error("größer");
    QTest::newRow("not in UTF-8") << "gr\\xf6\\xdfer"
                                  << standard_error("gr\xef\xbf\xbd\xef\xbf\xbd"
                                                    "er");
    QTest::newRow("up to a NUL") << "Error\\0: no\\n" << standard_error("Error");
    QTest::newRow("apostrophes") << "it's 'no'" << standard_error("it's 'no'");
}

void test_exiftool_process::standard_error_is_relayed()
{
    QFETCH(QString, words);
    QFETCH(QByteArray, line);
    tool.script("next", {"err " + words, "out -A=1\\n{ready}\\n"});
    const captured_output output;
    QCOMPARE(read_text(), QString("A=1"));
    QCOMPARE(output.text(), line);
}

void test_exiftool_process::flood_of_standard_error_is_relayed()
{
    tool.script("next", {"out -A=1\\n", QString("fill_err %1").arg(flood), "out {ready}\\n"});
    const captured_output output;
    QCOMPARE(read_text(), QString("A=1"));
    QVERIFY(relayed_text(output.text()) == QByteArray(flood, 'x'));
    QCOMPARE(read_text(), QString());
}

void test_exiftool_process::errors_between_two_requests_are_relayed_data()
{
    QTest::addColumn<bool>("in_event_loop");
    QTest::newRow("by the event loop") << true;
    QTest::newRow("by the next request") << false;
}

void test_exiftool_process::errors_between_two_requests_are_relayed()
{
    QFETCH(bool, in_event_loop);
    const captured_output output;
    read_before_more("err late");
    if (in_event_loop)
        QTRY_COMPARE(output.text(), standard_error("late"));
    else
        wait_for_more();
    tool.set_tags("photo.jpg", {"B=2"});
    QCOMPARE(read_text(), QString("B=2"));
    QCOMPARE(output.text(), standard_error("late"));
    tool.set_tags("photo.jpg", {});
}

void test_exiftool_process::output_between_two_requests_belongs_to_the_second_data()
{
    errors_between_two_requests_are_relayed_data();
}

void test_exiftool_process::output_between_two_requests_belongs_to_the_second()
{
    QFETCH(bool, in_event_loop);
    read_before_more("out -B=2\\n");
    wait_for_more(in_event_loop);
    tool.script("next", {"out -C=3\\n{ready}\\n"});
    QCOMPARE(read_text(), QString("B=2 C=3"));
    QCOMPARE(read_text(), QString());
}

/// Output read by the event loop doesn't end the wait; it becomes part of the next reply.
void test_exiftool_process::marker_read_between_two_requests_does_no_harm()
{
    read_before_more("out -B=2\\n{ready}\\n");
    wait_for_more(true);
    tool.script("next", {"out -C=3\\n{ready}\\n"});
    QCOMPARE(read_text(), QString("B=2 C=3"));
    QCOMPARE(read_text(), QString());
}

/// The marker ends the next request at once. The request's own reply is then taken for the reply to
/// the one after it.
void test_exiftool_process::marker_left_between_two_requests_puts_them_out_of_step()
{
    read_before_more("out -B=2\\n{ready}\\n");
    wait_for_more();
    tool.script("next", {"out -C=3\\n{ready}\\n", "await second"});
    tool.set_tags("d.jpg", {"D=4"});
    tool.set_tags("e.jpg", {"E=5"});
    QCOMPARE(read_text("/p/c.jpg"), QString("B=2"));
    QCOMPARE(read_text("/p/d.jpg"), QString("C=3"));

    tool.touch("second");
    QTRY_VERIFY(process()->bytesAvailable() > 0);
    QCOMPARE(read_text("/p/e.jpg"), QString("D=4 E=5"));
    QCOMPARE(read_text("/p/e.jpg"), QString("E=5"));
}

void test_exiftool_process::marker_in_a_value_ends_the_reply_where_a_read_ends()
{
    read_before_more("out 2\\n-B=2\\n{ready}\\n", "1{ready}");
    wait_for_more(true);
    tool.script("next", {"out -C=3\\n{ready}\\n"});
    QCOMPARE(read_text(), QString("B=2 C=3"));
    QCOMPARE(read_text(), QString());
}

void test_exiftool_process::standard_error_does_not_affect_the_result()
{
    tool.script("next", {"err files weren't updated due to errors\\n{ready}\\n", "wait 200",
                         "out     1 image files updated\\n{ready}\\n"});
    const captured_output output;
    QVERIFY(exiftool::instance()->write_tags("/p/photo.jpg", {{"A", "1"}}));
    QCOMPARE(output.text(), standard_error("files weren't updated due to errors\n{ready}\n"));
}

void test_exiftool_process::quiet_tool_is_waited_for_in_silence()
{
    exiftool::instance()->set_quiet(true);
    tool.script("next", {"wait 1500", "out -A=1\\n{ready}\\n"});
    const captured_output output;
    QCOMPARE(read_text(), QString("A=1"));
    QCOMPARE(output.text(), QByteArray());
}

/// The pipe is emptied anyway; otherwise the tool would block.
void test_exiftool_process::quiet_hides_a_flood_of_standard_error()
{
    exiftool::instance()->set_quiet(true);
    tool.script("next", {QString("fill_err %1").arg(flood), "out -A=1\\n{ready}\\n"});
    const captured_output output;
    QCOMPARE(read_text(), QString("A=1"));
    QCOMPARE(read_text(), QString());
    QCOMPARE(output.text(), QByteArray());
    QVERIFY(process()->readAllStandardError() == QByteArray(flood, 'x'));
}

void test_exiftool_process::quiet_leaves_standard_error_unread()
{
    exiftool::instance()->set_quiet(true);
    tool.script("next", {"err first ", "out {ready}\\n"});
    read();
    exiftool::instance()->set_quiet(false);
    tool.script("next", {"err second", "out {ready}\\n"});
    const captured_output output;
    read();
    QCOMPARE(output.text(), standard_error("first second"));
}

void test_exiftool_process::request_is_sent_in_the_local_encoding_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << "/p/ü.jpg" << QByteArray("/p/\xc3\xbc.jpg");
    QTest::newRow("Latin-1") << QByteArray("ISO-8859-1") << "/p/ü.jpg" << QByteArray("/p/\xfc.jpg");
    QTest::newRow("text outside Latin-1 is damaged")
        << QByteArray("ISO-8859-1") << "/p/日.jpg" << QByteArray("/p/?.jpg");
    QTest::newRow("outside the basic plane")
        << QByteArray("UTF-8") << "/p/\U0001F4F7.jpg" << QByteArray("/p/\xf0\x9f\x93\xb7.jpg");
    QTest::newRow("name on the disk that isn't UTF-8 is damaged")
        << QByteArray("UTF-8") << QFile::decodeName("/p/\xfc.jpg")
        << QByteArray("/p/\xef\xbf\xbd.jpg");
    QTest::newRow("half a character is damaged")
        << QByteArray("UTF-8") << "/p/" + QString(QChar(0xd83d)) + ".jpg" << QByteArray("/p/?.jpg");
}

void test_exiftool_process::request_is_sent_in_the_local_encoding()
{
    QFETCH(QByteArray, encoding);
    QFETCH(QString, path);
    QFETCH(QByteArray, sent);
    const local_encoding local(encoding.constData());
    read(path);
    QCOMPARE(tool.input(), "-G1\n\n" + sent + "\n-execute\n");

    tool.forget();
    exiftool::instance()->write_tags("x", {{"A", path.toStdString()}});
    QCOMPARE(tool.input(), "\nx\n-overwrite_original_in_place\n-m\n-A=" + sent + "\n-execute\n");
}

void test_exiftool_process::reply_is_utf8_under_any_local_encoding()
{
    const local_encoding local("ISO-8859-1");
    tool.script("next", {"out -A=größer 日\\n{ready}\\n"});
    QCOMPARE(read_text(), QString("A=größer 日"));
}

void test_exiftool_process::request_runs_no_event_loop()
{
    bool served = false;
    QTimer::singleShot(0, this, [&] { served = true; });
    tool.script("next", {"wait 300", "out {ready}\\n"});
    read();
    QVERIFY(!served);
    QTRY_VERIFY(served);
}

KELVRA_CORE_TEST_MAIN(test_exiftool_process)
#include "test_exiftool_process.moc"
