// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "modal_watch.h"
#include "opened_urls.h"
#include "pick_languages.h"
#include "program_test_main.h"

#include <QProcess>
#include <QResource>
#include <QSettings>
#include <QTextCodec>

namespace
{

QString help_path(const QString &language)
{
    return QDir::tempPath() + "/kelvra_help_" + language + ".html";
}

QUrl help_url(const QString &language)
{
    return QUrl("file:///" + help_path(language), QUrl::TolerantMode);
}

/// Sets the encoding of the system's texts for its lifetime.
class locale_codec
{
public:
    explicit locale_codec(const char *name) : before(QTextCodec::codecForLocale())
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
    }

    ~locale_codec() { QTextCodec::setCodecForLocale(before); }

    locale_codec(const locale_codec &) = delete;
    locale_codec &operator=(const locale_codec &) = delete;

private:
    QTextCodec *before;
};

/// Adds a file to the resources for its lifetime.
class extra_resource
{
public:
    extra_resource(const QString &path, const QByteArray &bytes)
    {
        make_file(folder.filePath("content"), bytes);
        make_file(folder.filePath("list.qrc"), "<RCC><qresource><file alias=\"" + path.toUtf8() +
                                                   "\">content</file></qresource></RCC>");
        const int status =
            QProcess::execute(RCC_PROGRAM, {"--binary", "--output", folder.filePath("tree"),
                                            folder.filePath("list.qrc")});
        if (status != 0 || !QResource::registerResource(folder.filePath("tree")))
            qFatal("can't add the resource");
    }

    ~extra_resource() { QResource::unregisterResource(folder.filePath("tree")); }

    extra_resource(const extra_resource &) = delete;
    extra_resource &operator=(const extra_resource &) = delete;

private:
    QTemporaryDir folder;
};

}  // namespace

/// The help button of the real window.
class test_help_command : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup();
    void opens_the_page_in_the_browser_data();
    void opens_the_page_in_the_browser();
    void follows_the_stored_language_immediately();
    void replaces_an_older_page();
    void page_of_a_language_without_one_is_empty();
    void page_ends_at_a_zero_byte();
    void link_can_lead_to_the_folder_of_the_program();
    void shows_no_message_if_it_cant_write();
    void shows_no_message_without_a_browser();
    void works_in_any_temporary_folder();
    void file_outlives_the_window();

private:
    fake_tool_window app;
};

void test_help_command::cleanup()
{
    app.end();
    for (const char *language : {"en", "de", "fr", "zz"})
        QFile::remove(help_path(language));
}

void test_help_command::opens_the_page_in_the_browser_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("language");
    // clang-format off
    QTest::newRow("English")     << "en"      << "en";
    QTest::newRow("German")      << "de"      << "de";
    QTest::newRow("none stored") << QString() << "en";
    // clang-format on
}

void test_help_command::opens_the_page_in_the_browser()
{
    QFETCH(QString, stored);
    QFETCH(QString, language);
    if (!stored.isNull())
        QSettings().setValue("lang", stored);
    const QStringList keys = QSettings().allKeys();
    const opened_urls browser;
    const modal_watch dialogs;
    click(app.window->button_help);
    QCOMPARE(browser.urls, QList<QUrl>({help_url(language)}));
    QCOMPARE(bytes_of(help_path(language)),
             bytes_of(QString(":/help/index_%1.html").arg(language)));
    QCOMPARE(QDir(QDir::tempPath()).entryList({"kelvra_help_*"}).size(), 1);
    QCOMPARE(dialogs.classes, QStringList());
    QCOMPARE(QSettings().allKeys(), keys);
}

void test_help_command::follows_the_stored_language_immediately()
{
    const opened_urls browser;
    click(app.window->button_help);
    const box_answers answers({box_reply::yes});
    pick_languages(*app.window, {german_row});
    click(app.window->button_help);
    QCOMPARE(browser.urls, QList<QUrl>({help_url("en"), help_url("de")}));
    QVERIFY(bytes_of(help_path("de")).contains("<title>Hilfe - Kelvra</title>"));
    QCOMPARE(bytes_of(help_path("en")), bytes_of(":/help/index_en.html"));
}

void test_help_command::replaces_an_older_page()
{
    const QByteArray page = bytes_of(":/help/index_en.html");
    make_file(help_path("en"), QByteArray(2 * page.size(), 'x'));
    const opened_urls browser;
    for (int call = 0; call < 2; ++call) {
        click(app.window->button_help);
        QCOMPARE(bytes_of(help_path("en")), page);
    }
    QCOMPARE(browser.urls.size(), 2);
}

void test_help_command::page_of_a_language_without_one_is_empty()
{
    QSettings().setValue("lang", "fr");
    make_file(help_path("fr"), "une page");
    const opened_urls browser;
    const modal_watch dialogs;
    click(app.window->button_help);
    QVERIFY(QFile::exists(help_path("fr")));
    QCOMPARE(bytes_of(help_path("fr")), QByteArray());
    QCOMPARE(browser.urls, QList<QUrl>({help_url("fr")}));
    QCOMPARE(dialogs.classes, QStringList());
}

/// The page is UTF-8 whatever the system's encoding, and is written as it was read: without a byte
/// order mark, and with its own line ends.
void test_help_command::page_ends_at_a_zero_byte()
{
    const locale_codec codec("ISO-8859-1");
    const QByteArray page = "<p>ä € 𝄞</p>\r\n<p>ü</p>\n";
    const extra_resource resource("help/index_zz.html", page + '\0' + "more");
    QSettings().setValue("lang", "zz");
    const opened_urls browser;
    click(app.window->button_help);
    QCOMPARE(bytes_of(help_path("zz")), page);
}

void test_help_command::link_can_lead_to_the_folder_of_the_program()
{
    const extra_resource resource("help/index_zz.html",
                                  "<a href=\"program:help/page.pdf\">program:</a>");
    QSettings().setValue("lang", "zz");
    const opened_urls browser;
    click(app.window->button_help);
    const QString page = QString::fromUtf8(bytes_of(help_path("zz")));
    const QUrl address(page.section('"', 1, 1), QUrl::StrictMode);
    QCOMPARE(address.toLocalFile(), QCoreApplication::applicationDirPath() + "/help/page.pdf");
    QVERIFY(page.endsWith("\">program:</a>"));
}

/// A folder in the place of the file can't be written by anybody.
void test_help_command::shows_no_message_if_it_cant_write()
{
    QVERIFY(QDir().mkdir(help_path("en")));
    const opened_urls browser;
    const modal_watch dialogs;
    click(app.window->button_help);
    QCoreApplication::processEvents();
    QVERIFY(QDir().rmdir(help_path("en")));
    QCOMPARE(browser.urls, QList<QUrl>({help_url("en")}));
    QCOMPARE(dialogs.classes, QStringList());
}

void test_help_command::shows_no_message_without_a_browser()
{
    const modal_watch dialogs;
    click(app.window->button_help);
    QCoreApplication::processEvents();
    QCOMPARE(bytes_of(help_path("en")), bytes_of(":/help/index_en.html"));
    QCOMPARE(dialogs.classes, QStringList());
}

void test_help_command::works_in_any_temporary_folder()
{
    const QTemporaryDir parent;
    const QString folder = parent.filePath("für 50% von allen");
    QVERIFY(QDir().mkdir(folder));
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(folder));
    const opened_urls browser;
    click(app.window->button_help);
    qputenv("TMPDIR", before);
    QCOMPARE(browser.urls.size(), 1);
    QVERIFY(browser.urls.first().isValid());
    QCOMPARE(bytes_of(browser.urls.first().toLocalFile()), bytes_of(":/help/index_en.html"));
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList("kelvra_help_en.html"));
}

void test_help_command::file_outlives_the_window()
{
    const opened_urls browser;
    click(app.window->button_help);
    close_window(app.window);
    QVERIFY(QFile::exists(help_path("en")));
    app.window = open_window();
}

KELVRA_PROGRAM_TEST_MAIN(test_help_command)
#include "test_help_command.moc"
