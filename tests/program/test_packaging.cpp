// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"

#include <QDirIterator>
#include <QRegularExpression>

namespace
{

const QString desktop_entry = "packaging/desktop/example.vorrin.kelvra.desktop";
const QString metainfo = "packaging/desktop/example.vorrin.kelvra.metainfo.xml";

QString text_of(const QString &name)
{
    QFile file(QString(SOURCE_FOLDER) + "/" + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the pattern first captures in the file.
QString captured(const QString &name, const QString &pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    return expression.match(text_of(name)).captured(1);
}

/// The value of a key in the desktop entry; empty unless the key occurs exactly once.
QString entry_value(const QString &key)
{
    const QString line = "\n" + key + "=";
    if (text_of(desktop_entry).count(line) != 1)
        return QString();
    return captured(desktop_entry, "^" + QRegularExpression::escape(key) + "=(.*)$");
}

/// All sources that can hold a comment. Help pages can't: users get them as they are.
QStringList sources()
{
    QStringList names;
    for (const char *folder : {".ci", "bench", "cmake", "docs", "orv_toolkit", "packaging", "qor",
                               "resources", "src", "tests", "tools"}) {
        QDirIterator files(QString(SOURCE_FOLDER) + "/" + folder,
                           {"*.cpp", "*.h", "*.inc", "*.sh", "*.pl", "*.py", "*.cmake", "*.css",
                            "CMakeLists.txt", "*.1", "*.xml", "*.desktop", "*.in", "run", "long"},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            names << files.next().mid(QString(SOURCE_FOLDER).size() + 1);
    }
    names = names.filter(QRegularExpression("(?<!\\.html\\.in)$"));
    return names << QStringList({"CMakeLists.txt", "bench.sh", "lint.sh", "run.sh", "test.sh"});
}

}  // namespace

/// The installed texts that no other program reads in a test.
class test_packaging : public QObject
{
    Q_OBJECT

private slots:
    void entry_starts_the_program_without_arguments();
    void entry_is_in_english_and_german_data();
    void entry_is_in_english_and_german();
    void metainfo_belongs_to_the_entry();
    void documents_name_the_version_data();
    void documents_name_the_version();
    void sources_name_their_licence();
    void licences_are_complete();
};

/// The program takes no files on its command line, so the entry offers it for no file type.
void test_packaging::entry_starts_the_program_without_arguments()
{
    QCOMPARE(entry_value("Exec"), QString("kelvra"));
    QCOMPARE(entry_value("Icon"), QString("kelvra"));
    QCOMPARE(entry_value("Terminal"), QString("false"));
    QVERIFY(!text_of(desktop_entry).contains("MimeType"));
    QVERIFY(!text_of(metainfo).contains("<mediatype>"));
}

void test_packaging::entry_is_in_english_and_german_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"GenericName", "Comment", "Keywords"})
        QTest::newRow(key) << key;
}

void test_packaging::entry_is_in_english_and_german()
{
    QFETCH(QString, key);
    QVERIFY(!entry_value(key).isEmpty());
    QVERIFY(!entry_value(key + "[de]").isEmpty());
    QVERIFY(entry_value(key) != entry_value(key + "[de]"));
}

void test_packaging::metainfo_belongs_to_the_entry()
{
    QCOMPARE(captured(metainfo, "<launchable type=\"desktop-id\">(.*)</launchable>"),
             QFileInfo(desktop_entry).fileName());
    QCOMPARE(captured(metainfo, "<id>(.*)</id>") + ".desktop", QFileInfo(desktop_entry).fileName());
}

void test_packaging::documents_name_the_version_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("pattern");
    // clang-format off
    QTest::newRow("program") << "src/startup/program_setup.cpp"
        << "setApplicationVersion\\(\"(.*)\"\\)";
    QTest::newRow("metainfo") << metainfo << "<release version=\"([^\"]*)\"";
    QTest::newRow("manual page") << "packaging/man/kelvra.1"
        << "^\\.TH KELVRA 1 \\S+ \"Kelvra (.*?)\"";
    QTest::newRow("changes of the package") << "packaging/debian/changelog" << "^kelvra \\((.*)\\)";
    QTest::newRow("changes") << "CHANGELOG.md" << "^## \\[?([0-9.]+)";
    // clang-format on
}

void test_packaging::documents_name_the_version()
{
    QFETCH(QString, name);
    QFETCH(QString, pattern);
    QCOMPARE(captured(name, pattern), QString(PROJECT_VERSION));
}

void test_packaging::sources_name_their_licence()
{
    const QStringList names = sources();
    QVERIFY(names.size() > 300);
    for (const QString &name : names) {
        const QString head = text_of(name).section('\n', 0, 2);
        QVERIFY2(head.contains("SPDX-License-Identifier: "), qPrintable(name));
    }
}

void test_packaging::licences_are_complete()
{
    QVERIFY(text_of("LICENSE").contains("GNU GENERAL PUBLIC LICENSE\n"));
    QVERIFY(text_of("LICENSE").contains("END OF TERMS AND CONDITIONS"));
    const QString lesser = text_of("packaging/licenses/LGPL-3.txt");
    QVERIFY(lesser.contains("GNU LESSER GENERAL PUBLIC LICENSE\n"));
    QVERIFY(lesser.contains("6. Revised Versions of the GNU Lesser General Public License."));
    const QString fonts = text_of("packaging/licenses/FreeSans.txt");
    QVERIFY(fonts.contains("As a special exception, if you create a document"));
    QVERIFY(fonts.contains("GNU FreeFont Authors"));
}

KELVRA_CORE_TEST_MAIN(test_packaging)
#include "test_packaging.moc"
