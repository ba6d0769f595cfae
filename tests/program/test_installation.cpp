// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "running_program.h"
#include "sample_photos.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

namespace
{

const QStringList installed_files = {
    "bin/kelvra",
    "lib/kelvra/exiftool.exe",
    "lib/kelvra/kelvra",
    "share/applications/example.vorrin.kelvra.desktop",
    "share/doc/kelvra/CHANGELOG.md",
    "share/doc/kelvra/FreeSans.txt",
    "share/doc/kelvra/GPL-3.txt",
    "share/doc/kelvra/LGPL-3.txt",
    "share/icons/hicolor/128x128/apps/kelvra.png",
    "share/icons/hicolor/16x16/apps/kelvra.png",
    "share/icons/hicolor/24x24/apps/kelvra.png",
    "share/icons/hicolor/256x256/apps/kelvra.png",
    "share/icons/hicolor/32x32/apps/kelvra.png",
    "share/icons/hicolor/48x48/apps/kelvra.png",
    "share/icons/hicolor/64x64/apps/kelvra.png",
    "share/icons/hicolor/scalable/apps/kelvra.svg",
    "share/kelvra/help/introduction_de.webm",
    "share/kelvra/help/introduction_en.webm",
#ifdef HAS_MANUAL
    "share/kelvra/help/manual_de.html",
    "share/kelvra/help/manual_de.pdf",
    "share/kelvra/help/manual_en.html",
    "share/kelvra/help/manual_en.pdf",
#endif
    "share/man/man1/kelvra.1",
    "share/metainfo/example.vorrin.kelvra.metainfo.xml",
};

/// Files and links below a folder.
QStringList files_in(const QString &folder)
{
    QStringList names;
    QDirIterator entries(folder, QDir::Files | QDir::System | QDir::Hidden,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        names << QDir(folder).relativeFilePath(entries.next());
    names.sort();
    return names;
}

/// The target of a link, unresolved.
QString link_text(const QString &path)
{
    QProcess readlink;
    readlink.start("readlink", {path});
    readlink.waitForFinished();
    return QString::fromLocal8Bit(readlink.readAllStandardOutput()).trimmed();
}

bool install(const QString &prefix, const QString &stage = QString())
{
    QProcess cmake;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DESTDIR", stage);
    cmake.setProcessEnvironment(environment);
    cmake.start(CMAKE_PROGRAM, {"--install", BUILD_FOLDER, "--prefix", prefix});
    return cmake.waitForFinished() && cmake.exitStatus() == QProcess::NormalExit &&
           cmake.exitCode() == 0;
}

}  // namespace

/// The result of `cmake --install`.
class test_installation : public QObject
{
    Q_OBJECT

private slots:
    void all_files_are_below_the_prefix();
    void staging_folder_comes_before_the_prefix_data();
    void staging_folder_comes_before_the_prefix();
    void installed_program_finds_its_tool_and_fixes_a_photo();
};

void test_installation::all_files_are_below_the_prefix()
{
    const QTemporaryDir folder;
    QVERIFY(install(folder.filePath("a prefix")));
    QCOMPARE(files_in(folder.filePath("a prefix")), installed_files);
    for (const QString &name : installed_files)
        QVERIFY2(QFileInfo(folder.filePath("a prefix/" + name)).size() > 0, qPrintable(name));
}

void test_installation::staging_folder_comes_before_the_prefix_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("tool");
    QTest::newRow("far from the tool") << "/opt/kelvra" << EXIFTOOL_PROGRAM;
    QTest::newRow("the root itself") << "/" << EXIFTOOL_PROGRAM;
    const QString near_tool = QFileInfo(QFileInfo(EXIFTOOL_PROGRAM).path()).path();
    QTest::newRow("beside the tool") << near_tool << "../../bin/exiftool";
}

void test_installation::staging_folder_comes_before_the_prefix()
{
    QFETCH(QString, prefix);
    QFETCH(QString, tool);
    const QTemporaryDir stage;
    QVERIFY(install(prefix, stage.path()));
    const QString folder = stage.path() + prefix;
    QCOMPARE(link_text(folder + "/bin/kelvra"), QString("../lib/kelvra/kelvra"));
    QCOMPARE(link_text(folder + "/lib/kelvra/exiftool.exe"), tool);
    QVERIFY(QFile::exists(folder + "/lib/kelvra/kelvra"));
    QVERIFY(QFile::exists(folder + "/share/man/man1/kelvra.1"));
}

/// It is started through its link, and from a different place than it was installed to.
void test_installation::installed_program_finds_its_tool_and_fixes_a_photo()
{
    const QTemporaryDir folder;
    QVERIFY(install(folder.filePath("first")));
    QVERIFY(QDir(folder.path()).rename("first", "second"));
    const QString photo = folder.filePath("photo.jpg");
    make_jpeg(photo, {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});

    running_program program(folder.filePath("second/bin/kelvra"),
                            "open " + photo + ";shift hour 1;click fix;close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.errors, QByteArray());
    QCOMPARE(tag_of(photo, "ExifIFD:DateTimeOriginal"), QString("2017:05:03 13:00:00"));
}

KELVRA_CORE_TEST_MAIN(test_installation)
#include "test_installation.moc"
