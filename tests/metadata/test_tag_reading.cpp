// SPDX-License-Identifier: GPL-3.0-or-later

#include "captured_output.h"
#include "core_test_main.h"
#include "orv/exiftool.h"
#include "orv/tag_reply.h"
#include "scripted_tool.h"

using orv::exiftool;
using orv::parse_tag_reply;

namespace
{

QStringList shown(const tag_map &tags)
{
    QStringList texts;
    for (const auto &[name, value] : tags)
        texts << QString::fromStdString("[" + name + "]=[" + value + "]");
    return texts;
}

}  // namespace

class test_tag_reading : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void request_names_the_file_and_nothing_else_data();
    void request_names_the_file_and_nothing_else();
    void reply_is_split_into_tags_data();
    void reply_is_split_into_tags();
    void reply_comes_back_through_the_pipe();
    void names_are_in_byte_order();
    void broken_reply_gives_the_tags_that_it_held();
    void unreadable_file_gives_the_tags_in_the_reply_data();
    void unreadable_file_gives_the_tags_in_the_reply();
    void reading_prints_nothing_by_default();
    void result_is_printed_on_request_data();
    void result_is_printed_on_request();

private:
    scripted_tool tool;
};

void test_tag_reading::init()
{
    exiftool::instance();
    tool.forget();
}

void test_tag_reading::request_names_the_file_and_nothing_else_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("group_names");
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("with groups") << "C:/p/x.jpg" << true
                                 << QByteArray("-G1\n\nC:/p/x.jpg\n-execute\n");
    QTest::newRow("without groups")
        << "C:/p/x.jpg" << false << QByteArray("\nC:/p/x.jpg\n-execute\n");
    QTest::newRow("spaces and quotes aren't escaped")
        << "/my photos/a \"b\" 'c'.jpg" << true
        << QByteArray("-G1\n\n/my photos/a \"b\" 'c'.jpg\n-execute\n");
    QTest::newRow("placeholder in the path")
        << "/p/%1 %2.jpg" << true << QByteArray("-G1\n\n/p/%1 %2.jpg\n-execute\n");
    QTest::newRow("letters beyond ASCII")
        << "/p/größer.jpg" << false << QByteArray("\n/p/größer.jpg\n-execute\n");
    QTest::newRow("leading dash") << "-x.jpg" << true << QByteArray("-G1\n\n-x.jpg\n-execute\n");
    QTest::newRow("line end breaks the framing")
        << "/p/a\nb.jpg" << true << QByteArray("-G1\n\n/p/a\nb.jpg\n-execute\n");
    QTest::newRow("empty path") << "" << true << QByteArray("-G1\n\n\n-execute\n");
}

void test_tag_reading::request_names_the_file_and_nothing_else()
{
    QFETCH(QString, path);
    QFETCH(bool, group_names);
    exiftool::instance()->read_tags(path, group_names, false);
    QTEST(tool.input(), "request");
}

// clang-format off
void test_tag_reading::reply_is_split_into_tags_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QStringList>("tags");
    QTest::newRow("name and value") << "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n{ready}\n"
                                    << QStringList{"[ExifIFD:DateTimeOriginal]=[2017:05:03 12:00:00]"};
    QTest::newRow("value ends at its first equals sign") << "-Comment=a=b=c\n{ready}\n" << QStringList{"[Comment]=[a]"};
    QTest::newRow("value of equals signs is empty") << "-Comment===\n{ready}\n" << QStringList{"[Comment]=[]"};
    QTest::newRow("empty value keeps its name") << "-Comment=\n{ready}\n" << QStringList{"[Comment]=[]"};
    QTest::newRow("missing value is the tool's dash") << "-Comment=-\n{ready}\n" << QStringList{"[Comment]=[-]"};
    QTest::newRow("marker alone") << "{ready}\n" << QStringList();
    QTest::newRow("empty reply") << "" << QStringList();
    QTest::newRow("line without an equals sign") << "Error: no\n-A=1\nmore of A\n{ready}\n" << QStringList{"[A]=[1]"};
    QTest::newRow("further line with an equals sign") << "-A=1\nx=y\n{ready}\n" << QStringList{"[]=[y]", "[A]=[1]"};
    QTest::newRow("marker with more on its line is an ordinary line") << "{ready}=x\n{ready}\n" << QStringList{"[ready}]=[x]"};
    QTest::newRow("spaces around name and value") << "- A B \t= x y \t\n{ready}\n" << QStringList{"[A B]=[x y]"};
    QTest::newRow("carriage return counts as white space") << "-A=1\r\n{ready}\r\n" << QStringList{"[A]=[1]"};
    QTest::newRow("value of spaces") << "-A=   \n{ready}\n" << QStringList{"[A]=[]"};
    QTest::newRow("first character is dropped, whatever it is") << "ABC=1\n{ready}\n" << QStringList{"[BC]=[1]"};
    QTest::newRow("space before the dash") << " -A=1\n{ready}\n" << QStringList{"[-A]=[1]"};
    QTest::newRow("nothing before the equals sign") << "=1\n{ready}\n" << QStringList{"[]=[1]"};
    QTest::newRow("only a dash") << "-=1\n{ready}\n" << QStringList{"[]=[1]"};
    QTest::newRow("later line wins") << "-A=1\n-B=2\n-A=3\n{ready}\n" << QStringList{"[A]=[3]", "[B]=[2]"};
    QTest::newRow("later empty line wins too") << "-A=1\n-A=\n{ready}\n" << QStringList{"[A]=[]"};
    QTest::newRow("names in another case are different") << "-A=1\n-a=2\n{ready}\n" << QStringList{"[A]=[1]", "[a]=[2]"};
    QTest::newRow("empty lines") << "\n\n-A=1\n\n\n-B=2\n\n{ready}\n" << QStringList{"[A]=[1]", "[B]=[2]"};
    QTest::newRow("letters beyond ASCII") << "-A=größer 日\n{ready}\n" << QStringList{"[A]=[größer 日]"};
    QTest::newRow("group and name") << "-XMP-photoshop:DateCreated=2017\n{ready}\n" << QStringList{"[XMP-photoshop:DateCreated]=[2017]"};
}
// clang-format on

void test_tag_reading::reply_is_split_into_tags()
{
    QFETCH(QString, reply);
    QTEST(shown(parse_tag_reply(reply)), "tags");
}

void test_tag_reading::reply_comes_back_through_the_pipe()
{
    tool.script("next", {"out -IFD0:Artist= größer \\n-Comment=a=b\\n-Empty=\\n{ready}\\n"});
    QCOMPARE(shown(exiftool::instance()->read_tags("/p/x.jpg", true, false)),
             QStringList({"[Comment]=[a]", "[Empty]=[]", "[IFD0:Artist]=[größer]"}));
}

void test_tag_reading::names_are_in_byte_order()
{
    const tag_map tags = parse_tag_reply("-b=1\n-B=1\n-ä=1\n-a=1\n-ab=1\n-A:b=1\n");
    QCOMPARE(shown(tags),
             QStringList({"[A:b]=[1]", "[B]=[1]", "[a]=[1]", "[ab]=[1]", "[b]=[1]", "[ä]=[1]"}));
}

void test_tag_reading::broken_reply_gives_the_tags_that_it_held()
{
    tool.script("next", {"err Error: half a file\\n", "out -A=1\\n{ready}\\n"});
    const captured_output output;
    QCOMPARE(shown(exiftool::instance()->read_tags("/p/x.jpg", true, false)),
             QStringList("[A]=[1]"));
    QCOMPARE(output.text(), QByteArray("[exiftool cerr] 'Error: half a file\n'\n"));
}

/// The messages are the tool's own.
void test_tag_reading::unreadable_file_gives_the_tags_in_the_reply_data()
{
    QTest::addColumn<QStringList>("answer");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("missing")
        << QStringList{"err Error: File not found - /p/x.jpg\\n", "out {ready}\\n"} << QStringList()
        << QByteArray("[exiftool cerr] 'Error: File not found - /p/x.jpg\n'\n");
    QTest::newRow("folder")
        << QStringList{"out     1 directories scanned\\n    0 image files read\\n{ready}\\n"}
        << QStringList() << QByteArray();
    QTest::newRow("empty")
        << QStringList{"out -ExifTool:Error=File is empty\\n-System:FileName=x.jpg\\n{ready}\\n"}
        << QStringList{"[ExifTool:Error]=[File is empty]", "[System:FileName]=[x.jpg]"}
        << QByteArray();
}

void test_tag_reading::unreadable_file_gives_the_tags_in_the_reply()
{
    QFETCH(QStringList, answer);
    tool.script("next", answer);
    const captured_output output;
    QTEST(shown(exiftool::instance()->read_tags("/p/x.jpg", true, false)), "tags");
    QTEST(output.text(), "said");
}

void test_tag_reading::reading_prints_nothing_by_default()
{
    tool.set_tags("x.jpg", {"A=1"});
    const captured_output output;
    QCOMPARE(exiftool::instance()->read_tags("/p/x.jpg", true, false).size(), std::size_t(1));
    QCOMPARE(output.text(), QByteArray());
}

void test_tag_reading::result_is_printed_on_request_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QByteArray>("printed");
    QTest::newRow("no tags") << "/p/none.jpg" << QStringList() << QByteArray("/p/none.jpg {}\n");
    QTest::newRow("one tag") << "/p/one.jpg" << QStringList{"A=1"}
                             << QByteArray("/p/one.jpg {{'A','1'}}\n");
    QTest::newRow("several tags") << "/p/größer.jpg" << QStringList{"B=2", "A=ü", "C="}
                                  << QByteArray(
                                         "/p/größer.jpg {{'A','ü'}, \n{'B','2'}, \n{'C',''}}\n");
}

void test_tag_reading::result_is_printed_on_request()
{
    QFETCH(QString, path);
    QFETCH(QStringList, tags);
    tool.set_tags(path.section('/', -1), tags);
    const captured_output output;
    const tag_map result = exiftool::instance()->read_tags(path, true, true);
    QCOMPARE(result.size(), static_cast<std::size_t>(tags.size()));
    QTEST(output.text(), "printed");
}

KELVRA_CORE_TEST_MAIN(test_tag_reading)
#include "test_tag_reading.moc"
