// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/tag_catalogue.h"

#include <QCryptographicHash>
#include <QtTest>

#include <algorithm>
#include <string>
#include <type_traits>

using orv::file_date_tags;
using orv::supported_extensions;
using orv::tag_catalogue;

namespace
{

bool is_listed(const std::string &name)
{
    return std::find(tag_catalogue.begin(), tag_catalogue.end(), name) != tag_catalogue.end();
}

bool is_ascii(const std::string &text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7f'; });
}

}  // namespace

class test_tag_catalogue : public QObject
{
    Q_OBJECT

private slots:
    void lists_are_constant();
    void names_are_in_byte_order_without_duplicates();
    void names_run_from_the_first_to_the_last();
    void names_are_bare_and_ascii();
    void names_match_their_checksum();
    void reported_only_tags_are_listed_data();
    void reported_only_tags_are_listed();
    void written_tags_are_not_listed_data();
    void written_tags_are_not_listed();
    void families_are_complete_data();
    void families_are_complete();
    void extensions_are_the_supported_ones();
    void extensions_are_in_lower_case_without_a_dot();
    void file_dates_are_in_order();
};

void test_tag_catalogue::lists_are_constant()
{
    QVERIFY((std::is_same_v<decltype(tag_catalogue), const std::vector<std::string>>));
    QVERIFY((std::is_same_v<decltype(supported_extensions), const std::set<std::string>>));
    QVERIFY((std::is_same_v<decltype(file_date_tags), const std::vector<std::string>>));
}

void test_tag_catalogue::names_are_in_byte_order_without_duplicates()
{
    QCOMPARE(tag_catalogue.size(), std::size_t(8830));
    const auto out_of_order =
        std::adjacent_find(tag_catalogue.begin(), tag_catalogue.end(), std::greater_equal<>());
    const bool is_ordered = out_of_order == tag_catalogue.end();
    QVERIFY2(is_ordered, is_ordered ? "" : out_of_order->c_str());
}

void test_tag_catalogue::names_run_from_the_first_to_the_last()
{
    QCOMPARE(tag_catalogue.front(), std::string("A100DataOffset"));
    QCOMPARE(tag_catalogue.back(), std::string("iTunesU"));
}

void test_tag_catalogue::names_are_bare_and_ascii()
{
    for (const std::string &name : tag_catalogue) {
        QVERIFY2(!name.empty() && is_ascii(name), name.c_str());
        QVERIFY2(name.find(':') == std::string::npos, name.c_str());
    }
}

void test_tag_catalogue::names_match_their_checksum()
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const std::string &name : tag_catalogue)
        hash.addData(QByteArray::fromStdString(name + "\n"));
    QCOMPARE(hash.result().toHex(),
             QByteArray("ea4d7174d2dcbaecab828d48e4e6e3209e1605e7f1ce13fe65c321d8da19a2cf"));
}

void test_tag_catalogue::reported_only_tags_are_listed_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"A100DataOffset", "iTunesU", "ExifToolVersion", "FileSize", "FileType",
                             "FileTypeExtension", "MIMEType", "Megapixels", "Aperture",
                             "ShutterSpeed", "FileAccessDate", "FileInodeChangeDate",
                             "R2ABlueCtbl00", "R2D65BlueCtbl00", "R2TL84BlueCtbl00"})
        QTest::newRow(name) << name;
}

void test_tag_catalogue::reported_only_tags_are_listed()
{
    QFETCH(QString, name);
    QVERIFY(is_listed(name.toStdString()));
}

void test_tag_catalogue::written_tags_are_not_listed_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"DateTimeOriginal", "CreateDate", "Software", "CreatorTool", "FileName", "Directory",
          "FileCreateDate", "FileModifyDate", "ModifyDate", "DateCreated", "TimeCreated",
          "DigitalCreationDate", "DigitalCreationTime", "MetadataDate"})
        QTest::newRow(name) << name;
}

void test_tag_catalogue::written_tags_are_not_listed()
{
    QFETCH(QString, name);
    QVERIFY(!is_listed(name.toStdString()));
}

void test_tag_catalogue::families_are_complete_data()
{
    QTest::addColumn<QString>("head");
    QTest::addColumn<int>("count");
    QTest::newRow("R2A") << "R2A" << 229;
    QTest::newRow("R2D") << "R2D" << 229;
    QTest::newRow("R2T") << "R2T" << 229;
    QTest::newRow("ASF") << "ASF" << 106;
    QTest::newRow("AFT") << "AFT" << 101;
    QTest::newRow("MDItem") << "MDItem" << 77;
}

void test_tag_catalogue::families_are_complete()
{
    QFETCH(QString, head);
    const std::string start = head.toStdString();
    const auto members =
        std::count_if(tag_catalogue.begin(), tag_catalogue.end(), [&](const std::string &name) {
            return name.compare(0, start.size(), start) == 0;
        });
    QTEST(static_cast<int>(members), "count");
}

void test_tag_catalogue::extensions_are_the_supported_ones()
{
    const QString expected =
        "3g2 3gp 3gp2 3gpp aax ai ait apng arw ciff cr2 crw cs1 dcp dng dr4 dvb eps eps2 eps3 "
        "epsf erf exif exv f4a f4b f4p f4v fff flif gif hdp icc icm iiq ind indd indt inx j2k jng "
        "jp2 jpe jpeg jpf jpg jpm jpx jxr m4a m4b m4p m4v mef mie mng mos mov mp4 mpo mqv mrw nef "
        "nrw orf pbm pdf pef pgm png ppm ps ps2 ps3 psb psd psdt qt raf raw rw2 rwl sr2 srw thm "
        "tif tiff vrd wdp x3f xmp";
    QStringList listed;
    for (const std::string &extension : supported_extensions)
        listed << QString::fromStdString(extension);
    QCOMPARE(listed, expected.split(' '));
    QCOMPARE(supported_extensions.size(), std::size_t(91));
}

void test_tag_catalogue::extensions_are_in_lower_case_without_a_dot()
{
    QCOMPARE(supported_extensions.count("jpg"), std::size_t(1));
    QCOMPARE(supported_extensions.count("JPG"), std::size_t(0));
    for (const std::string &extension : supported_extensions) {
        const QString text = QString::fromStdString(extension);
        QVERIFY2(text == text.toLower() && !text.contains('.'), extension.c_str());
    }
}

void test_tag_catalogue::file_dates_are_in_order()
{
    QCOMPARE(file_date_tags,
             std::vector<std::string>({"FileAccessDate", "FileCreateDate", "FileModifyDate"}));
}

QTEST_APPLESS_MAIN(test_tag_catalogue)
#include "test_tag_catalogue.moc"
