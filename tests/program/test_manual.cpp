// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "file_bytes.h"
#include "sample_photos.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace
{

/// The commands for Debian in the manual of a language.
QStringList shell_commands(const QString &language)
{
    const QByteArray manual =
        bytes_of(QString(SOURCE_FOLDER "/docs/manual/manual_%1.md").arg(language));
    static const QRegularExpression block("^ *```sh\n(.*?)^ *```$",
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    QStringList commands;
    auto blocks = block.globalMatch(QString::fromUtf8(manual));
    while (blocks.hasNext())
        commands << blocks.next().captured(1);
    return commands;
}

/// The only block that contains `text`; empty if there is none, or another one.
QString command_with(const QString &language, const QString &text)
{
    const QStringList found = shell_commands(language).filter(text);
    return found.size() == 1 ? found.first() : QString();
}

/// What the command prints, with `path` in place of the word that stands for a file or folder.
QString output_of(QString command, const QString &path)
{
    static const QRegularExpression placeholder("\\b(FOLDER|ORDNER|PHOTO|FOTO)\\b");
    QProcess shell;
    shell.start("sh", {"-e", "-c", command.replace(placeholder, path)});
    if (!shell.waitForFinished())
        qFatal("the command doesn't end");
    return QString::fromUtf8(shell.readAllStandardOutput());
}

}  // namespace

/// The commands that the manual gives to users.
class test_manual : public QObject
{
    Q_OBJECT

private slots:
    void lists_photos_whose_date_ends_the_program_data();
    void lists_photos_whose_date_ends_the_program();
    void listing_includes_subfolders_and_changes_nothing_data() { add_languages(); }
    void listing_includes_subfolders_and_changes_nothing();
    void listed_photo_can_be_corrected_data() { add_languages(); }
    void listed_photo_can_be_corrected();
    void shows_all_dates_of_a_photo_data() { add_languages(); }
    void shows_all_dates_of_a_photo();
    void both_languages_have_the_same_commands();
    void readme_has_the_same_listing();

private:
    static void add_languages();
};

void test_manual::add_languages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

/// `test_exif_cache` shows which of these dates end the program.
void test_manual::lists_photos_whose_date_ends_the_program_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<bool>("is_listed");
    // clang-format off
    QTest::newRow("date and time")        << "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"    << false;
    QTest::newRow("no date")              << "IFD0:Make=Camera"                                << false;
    QTest::newRow("no time")              << "ExifIFD:DateTimeOriginal=2017:05:03"             << false;
    QTest::newRow("all zeros")            << "ExifIFD:DateTimeOriginal=0000:00:00 00:00:00"    << false;
    QTest::newRow("fractions")            << "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00.5"  << false;
    QTest::newRow("UTC")                  << "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00Z"   << false;
    QTest::newRow("bad date elsewhere")   << "ExifIFD:CreateDate=    :  :     :  :  "          << false;
    QTest::newRow("left blank")           << "ExifIFD:DateTimeOriginal=    :  :     :  :  "    << true;
    QTest::newRow("left blank in IFD0")   << "IFD0:DateTimeOriginal=    :  :     :  :  "       << true;
    QTest::newRow("year")                 << "ExifIFD:DateTimeOriginal=2017"                   << true;
    QTest::newRow("year and month")       << "ExifIFD:DateTimeOriginal=2017:05"                << true;
    QTest::newRow("no seconds")           << "ExifIFD:DateTimeOriginal=2017:05:03 12:00"       << true;
    QTest::newRow("zone")                 << "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00+02:00" << true;
    QTest::newRow("hyphens")              << "ExifIFD:DateTimeOriginal=2017-05-03 12:00:00"    << true;
    // clang-format on
}

void test_manual::lists_photos_whose_date_ends_the_program()
{
    QFETCH(QString, tag);
    QFETCH(bool, is_listed);
    const QTemporaryDir folder;
    const QString photo = folder.filePath("photo.jpg");
    // ExifTool writes the text as it is with "#".
    make_jpeg(photo, {tag.replace("=", "#=")});
    const QString expected = is_listed ? photo + "\n" : QString();
    for (const char *language : {"en", "de"}) {
        const QString command = command_with(language, "-if");
        QCOMPARE(output_of(command, folder.path()), expected);
    }
}

void test_manual::listing_includes_subfolders_and_changes_nothing()
{
    QFETCH(QString, language);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("a folder/Ä"));
    const QString photo = folder.filePath("a folder/Ä/photo.any");
    make_jpeg(photo, {"ExifIFD:DateTimeOriginal#=2017"});
    const QByteArray before = bytes_of(photo);
    QCOMPARE(output_of(command_with(language, "-if"), folder.path()), photo + "\n");
    QCOMPARE(bytes_of(photo), before);
    QCOMPARE(QDir(folder.filePath("a folder/Ä")).entryList(QDir::Files), QStringList("photo.any"));
}

/// The two commands for that are in one block: the second removes what the first has written.
void test_manual::listed_photo_can_be_corrected()
{
    QFETCH(QString, language);
    const QStringList commands =
        command_with(language, "DateTimeOriginal=").split('\n', Qt::SkipEmptyParts);
    QCOMPARE(commands.size(), 2);
    const QTemporaryDir folder;
    const QString photo = folder.filePath("photo.jpg");
    make_jpeg(photo, {"ExifIFD:DateTimeOriginal#=2017"});
    output_of(commands[0], photo);
    QCOMPARE(tag_of(photo, "ExifIFD:DateTimeOriginal"), QString("2026:08:14 15:10:21"));
    output_of(commands[1], photo);
    QCOMPARE(tag_of(photo, "ExifIFD:DateTimeOriginal"), QString());
    QVERIFY(QFile::exists(photo + "_original"));
}

void test_manual::shows_all_dates_of_a_photo()
{
    QFETCH(QString, language);
    const QTemporaryDir folder;
    const QString photo = folder.filePath("photo.jpg");
    make_jpeg(photo, {"IPTC:DateCreated=2017:05:03", "XMP-photoshop:DateCreated=2018:06:04"});
    const QString dates = output_of(command_with(language, "-time:all"), photo);
    QVERIFY2(dates.contains("2017:05:03") && dates.contains("2018:06:04"), qPrintable(dates));
    const QString report = output_of(command_with(language, "-args -f"), photo);
    QVERIFY2(report.contains("-XMP-photoshop:DateCreated=2018:06:04"), qPrintable(report));
}

void test_manual::both_languages_have_the_same_commands()
{
    QCOMPARE(shell_commands("de").size(), shell_commands("en").size());
    QVERIFY(!shell_commands("en").isEmpty());
}

void test_manual::readme_has_the_same_listing()
{
    const QString readme = QString::fromUtf8(bytes_of(SOURCE_FOLDER "/README.md"));
    QVERIFY(readme.simplified().contains(command_with("en", "-if").simplified()));
}

KELVRA_CORE_TEST_MAIN(test_manual)
#include "test_manual.moc"
