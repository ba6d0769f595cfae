// SPDX-License-Identifier: GPL-3.0-or-later

#include "captured_output.h"
#include "core_test_main.h"
#include "orv/exiftool.h"
#include "orv/tag_catalogue.h"
#include "scripted_tool.h"

#include <initializer_list>

using orv::exiftool;

namespace
{

constexpr char signature[] = "Vorrin - Kelvra";

/// The request that writes these tag lines to C:/p/x.jpg, as sent through the pipe.
QByteArray request_of(const QByteArray &tag_lines)
{
    return "\nC:/p/x.jpg\n-overwrite_original_in_place\n-m\n" + tag_lines + "-execute\n";
}

bool write(const tag_map &tags)
{
    return exiftool::instance()->write_tags("C:/p/x.jpg", tags);
}

tag_map tags_named(const std::initializer_list<const char *> names)
{
    tag_map tags;
    for (const char *name : names)
        tags[name] = "kept";
    return tags;
}

QStringList names_of(const tag_map &tags)
{
    QStringList names;
    for (const auto &tag : tags)
        names << QString::fromStdString(tag.first);
    return names;
}

}  // namespace

Q_DECLARE_METATYPE(tag_map)

class test_tag_writing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void request_lists_the_tags_in_their_order_data();
    void request_lists_the_tags_in_their_order();
    void path_is_sent_unchanged_data();
    void path_is_sent_unchanged();
    void ready_made_lines_are_sent_unchanged();
    void reply_decides_the_result_data();
    void reply_decides_the_result();
    void result_comes_from_its_own_reply();
    void signature_is_added_to_the_tags();
    void stamp_writes_only_the_signature();
    void failed_stamp_is_ignored();
    void catalogue_is_erased_from_the_copy();
    void file_names_are_kept_on_request_data();
    void file_names_are_kept_on_request();
    void tags_with_a_group_stay_in_the_copy();
    void values_stay_in_the_copy();

private:
    scripted_tool tool;
};

/// The signature is made of these names.
void test_tag_writing::initTestCase()
{
    QCoreApplication::setOrganizationName("Vorrin");
    QCoreApplication::setApplicationName("Kelvra");
}

void test_tag_writing::init()
{
    exiftool::instance();
    tool.forget();
}

// clang-format off
void test_tag_writing::request_lists_the_tags_in_their_order_data()
{
    QTest::addColumn<tag_map>("tags");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("two tags") << tag_map{{"B", "2"}, {"A", "1"}} << QByteArray("-A=1\n-B=2\n");
    QTest::newRow("no tags") << tag_map() << QByteArray();
    QTest::newRow("empty value deletes") << tag_map{{"Tag", ""}} << QByteArray("-Tag=\n");
    QTest::newRow("placeholder in a value") << tag_map{{"A", "%1"}} << QByteArray("-A=%1\n");
    QTest::newRow("second placeholder in a value") << tag_map{{"A", "%2 %1 %%"}} << QByteArray("-A=%2 %1 %%\n");
    QTest::newRow("placeholder in a name") << tag_map{{"%2", "x"}} << QByteArray("-%2=x\n");
    QTest::newRow("groups") << tag_map{{"XMP-photoshop:DateCreated", "2017:05:03"}, {"IPTC:DateCreated", "2017:05:04"}}
                            << QByteArray("-IPTC:DateCreated=2017:05:04\n-XMP-photoshop:DateCreated=2017:05:03\n");
    QTest::newRow("capitals before small letters") << tag_map{{"a", "1"}, {"B", "2"}} << QByteArray("-B=2\n-a=1\n");
    QTest::newRow("letters beyond ASCII") << tag_map{{"Größe", "größer"}} << QByteArray("-Größe=größer\n");
    QTest::newRow("equals sign and spaces") << tag_map{{"A", " x = y "}} << QByteArray("-A= x = y \n");
    QTest::newRow("line end breaks the framing") << tag_map{{"A", "x\ny"}} << QByteArray("-A=x\ny\n");
}
// clang-format on

void test_tag_writing::request_lists_the_tags_in_their_order()
{
    QFETCH(tag_map, tags);
    QFETCH(QByteArray, lines);
    QVERIFY(write(tags));
    QCOMPARE(tool.input(), request_of(lines));
}

void test_tag_writing::path_is_sent_unchanged_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("placeholders") << "/p/%1 %2.jpg";
    QTest::newRow("spaces and quotes") << "/my photos/a \"b\" 'c'.jpg";
    QTest::newRow("letters beyond ASCII") << "/p/größer.jpg";
    QTest::newRow("leading dash") << "-x.jpg";
}

void test_tag_writing::path_is_sent_unchanged()
{
    QFETCH(QString, path);
    QVERIFY(exiftool::instance()->write_tags(path, {{"A", "%1"}}));
    QCOMPARE(tool.input(),
             "\n" + path.toUtf8() + "\n-overwrite_original_in_place\n-m\n-A=%1\n-execute\n");
}

void test_tag_writing::ready_made_lines_are_sent_unchanged()
{
    QVERIFY(exiftool::instance()->execute_write("C:/p/x.jpg", "-B=%1\n-A+=x\n"));
    QCOMPARE(tool.input(), request_of("-B=%1\n-A+=x\n"));
}

// clang-format off
void test_tag_writing::reply_decides_the_result_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("result");
    QTest::newRow("updated") << "    1 image files updated\\n" << true;
    QTest::newRow("no message") << "" << true;
    QTest::newRow("unchanged") << "    0 image files updated\\n    1 image files unchanged\\n" << true;
    QTest::newRow("with warnings") << "Warning: [minor] Entries in IFD0 were out of sequence\\n    1 image files updated\\n" << true;
    QTest::newRow("some other error") << "Error: File not found - x.jpg\\n" << true;
    QTest::newRow("failed") << "    0 image files updated\\n    1 files weren't updated due to errors\\n" << false;
    QTest::newRow("count doesn't matter") << "    0 files weren't updated due to errors\\n" << false;
    QTest::newRow("failure without a count") << "files weren't updated due to errors\\n" << false;
    QTest::newRow("failure in the middle of a line") << "xfiles weren't updated due to errorsx\\n" << false;
    QTest::newRow("failure in the first line") << "1 files weren't updated due to errors\\n    1 image files updated\\n" << false;
    QTest::newRow("failure on the marker's line") << "files weren't updated due to errors" << false;
    QTest::newRow("other case") << "1 Files weren't updated due to errors\\n" << true;
    QTest::newRow("cut off") << "1 files weren't updated due to error\\n" << true;
    QTest::newRow("text after a NUL isn't read") << "x\\0files weren't updated due to errors\\n" << true;
}
// clang-format on

void test_tag_writing::reply_decides_the_result()
{
    QFETCH(QString, reply);
    tool.script("next", {"out " + reply + "{ready}\\n"});
    QTEST(write({{"A", "1"}}), "result");
}

void test_tag_writing::result_comes_from_its_own_reply()
{
    tool.refuse_writes("refused.jpg");
    QVERIFY(!exiftool::instance()->write_tags("/p/refused.jpg", {{"A", "1"}}));
    QVERIFY(exiftool::instance()->write_tags("/p/taken.jpg", {{"A", "1"}}));
}

void test_tag_writing::signature_is_added_to_the_tags()
{
    tag_map tags = {{"Software", "other"}, {"Artist", "me"}};
    exiftool::instance()->add_software_tags(tags);
    QCOMPARE(tags,
             tag_map({{"Artist", "me"}, {"CreatorTool", signature}, {"Software", signature}}));
}

void test_tag_writing::stamp_writes_only_the_signature()
{
    exiftool::instance()->stamp_software("C:/p/x.jpg");
    QCOMPARE(tool.input(), request_of("-CreatorTool=Vorrin - Kelvra\n-Software=Vorrin - Kelvra\n"));
}

void test_tag_writing::failed_stamp_is_ignored()
{
    tool.refuse_writes("x.jpg");
    const captured_output output;
    exiftool::instance()->stamp_software("C:/p/x.jpg");
    QCOMPARE(output.text(), QByteArray());
    QFile::remove(tool.path() + "/failing/x.jpg");
}

void test_tag_writing::catalogue_is_erased_from_the_copy()
{
    tag_map tags = tags_named({"Artist", "DateTimeOriginal"});
    for (const std::string &name : orv::tag_catalogue)
        tags[name] = "erased";
    QCOMPARE(names_of(exiftool::instance()->copyable_tags(tags, true)),
             QStringList({"Artist", "DateTimeOriginal"}));
    QCOMPARE(tags.size(), orv::tag_catalogue.size() + 2);
}

void test_tag_writing::file_names_are_kept_on_request_data()
{
    QTest::addColumn<bool>("keep_file_names");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("kept") << true << QStringList{"Artist", "Directory", "FileName"};
    QTest::newRow("not kept") << false << QStringList{"Artist"};
}

void test_tag_writing::file_names_are_kept_on_request()
{
    QFETCH(bool, keep_file_names);
    const tag_map tags = tags_named({"Artist", "Directory", "FileName", "FileSize"});
    QTEST(names_of(exiftool::instance()->copyable_tags(tags, keep_file_names)), "names");
}

void test_tag_writing::tags_with_a_group_stay_in_the_copy()
{
    const tag_map tags = tags_named({"System:FileName", "System:FileSize", "filesize"});
    QCOMPARE(exiftool::instance()->copyable_tags(tags, false), tags);
}

void test_tag_writing::values_stay_in_the_copy()
{
    const tag_map tags = {{"Artist", "größer"}, {"Software", ""}};
    QCOMPARE(exiftool::instance()->copyable_tags(tags, false), tags);
    QCOMPARE(exiftool::instance()->copyable_tags({}, false), tag_map());
}

KELVRA_CORE_TEST_MAIN(test_tag_writing)
#include "test_tag_writing.moc"
