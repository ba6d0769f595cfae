// SPDX-License-Identifier: GPL-3.0-or-later

#include "isolated_program.h"
#include "private_home.h"
#include "program_test_main.h"
#include "running_program.h"
#include "scoped_variable.h"
#include "scripted_tool.h"

#include <QDir>
#include <QDirIterator>
#include <QSettings>

#include <csignal>
#include <memory>

namespace
{

QStringList files_below(const QString &folder)
{
    QStringList files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext())
        files << all.next();
    return files;
}

QStringList settings_files()
{
    return files_below(qEnvironmentVariable("XDG_CONFIG_HOME")) +
           files_below(qEnvironmentVariable("HOME"));
}

/// Unlike `clear_settings`, this leaves no empty settings file.
void remove_settings_files()
{
    for (const QString &path : settings_files())
        QFile::remove(path);
}

}  // namespace

class test_program : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void closing_the_window_ends_it_cleanly();
    void result_of_the_event_loop_is_the_exit_status();
    void sets_up_identity_and_style();
    void leaves_the_time_zone_to_the_environment();
    void has_no_options_of_its_own_data();
    void has_no_options_of_its_own();
    void uses_the_systems_language_data();
    void uses_the_systems_language();
    void stored_language_wins_data();
    void stored_language_wins();
    void starts_no_tool_before_the_first_photo();
    void file_open_event_loads_the_photo();
    void file_open_event_is_handled_as_soon_as_the_window_shows();
    void file_open_event_is_lost_on_a_hidden_window();
    void tool_is_told_to_quit_after_the_window_closes();
    void quitting_for_a_new_language_ends_it_cleanly();
    void new_language_applies_at_the_next_start();
    void program_continues_in_the_old_language();
    void needs_no_network_library();
    void signal_ends_it_with_a_report_data();
    void signal_ends_it_with_a_report();
    void other_signal_has_no_report();

private:
    /// The photo that the stand-in knows.
    QString photo() const { return tool->path() + "/photo.jpg"; }

    std::unique_ptr<scripted_tool> tool;
    std::unique_ptr<isolated_program> folder;
};

void test_program::init()
{
    remove_settings_files();
    tool = std::make_unique<scripted_tool>();
    tool->set_tags("photo.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    QFile file(photo());
    QVERIFY(file.open(QIODevice::WriteOnly));
    folder = std::make_unique<isolated_program>(KELVRA_PROGRAM);
    folder->use_stand_in();
}

void test_program::closing_the_window_ends_it_cleanly()
{
    running_program program(folder->program_path(), "close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.output, QByteArray("shown\n"));
    QCOMPARE(program.errors, QByteArray());
    QCOMPARE(settings_files(), QStringList());
}

void test_program::result_of_the_event_loop_is_the_exit_status()
{
    running_program program(folder->program_path(), "exit 7");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 7);
}

void test_program::sets_up_identity_and_style()
{
    running_program program(folder->program_path(), "report;close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.printed("organisation"), QStringList("Vorrin"));
    QCOMPARE(program.printed("application"), QStringList("Kelvra"));
    QCOMPARE(program.printed("version"), QStringList("2.0.2"));
    QCOMPARE(program.printed("high dpi"), QStringList("1"));
    QCOMPARE(program.printed("high dpi pictures"), QStringList("1"));
    QCOMPARE(program.printed("OpenGL left out"), QStringList("1"));
    QCOMPARE(program.printed("icons"), QStringList("orv"));
    QCOMPARE(program.printed("sizes of the window's icon"), QStringList("7"));
    QCOMPARE(program.printed("style"), QStringList("orv::proxy_style"));
    QCOMPARE(program.printed("wake-up delay"), QStringList("2000"));
}

void test_program::leaves_the_time_zone_to_the_environment()
{
    const scoped_variable zone("TZ", "Asia/Tokyo");
    running_program program(folder->program_path(), "report;close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.printed("time zone"), QStringList("Asia/Tokyo"));

    qunsetenv("TZ");
    running_program unnamed(folder->program_path(), "report;close");
    QVERIFY(unnamed.wait_until_ended());
    QCOMPARE(unnamed.printed("time zone"), QStringList(""));
}

void test_program::has_no_options_of_its_own_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("help") << "--help";
    QTest::newRow("version") << "--version";
    QTest::newRow("photo") << "/usr/share/photo.jpg";
}

void test_program::has_no_options_of_its_own()
{
    QFETCH(QString, argument);
    running_program program(folder->program_path(), "rows;close", {argument});
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.output, QByteArray("shown\nrows: 0\n"));
    QCOMPARE(tool->process_ids().size(), 0);
}

void test_program::uses_the_systems_language_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("german");
    QTest::newRow("Germany") << "de_DE.UTF-8" << true;
    QTest::newRow("Austria") << "de_AT.UTF-8" << true;
    QTest::newRow("German without a country") << "de" << true;
    QTest::newRow("American") << "en_US.UTF-8" << false;
    QTest::newRow("French has no catalogue") << "fr_FR.UTF-8" << false;
    QTest::newRow("Swiss German is a language of its own") << "gsw_CH.UTF-8" << false;
    QTest::newRow("none") << "C.UTF-8" << false;
}

void test_program::uses_the_systems_language()
{
    QFETCH(QString, locale);
    QFETCH(bool, german);
    running_program program(folder->program_path(), "report;close", {}, locale);
    QVERIFY(program.wait_until_ended());
    const QStringList tool_tips = program.printed("tool tip");
    QCOMPARE(tool_tips.contains("Bilder Laden"), german);
    QCOMPARE(tool_tips.contains("Load images"), !german);
    QCOMPARE(program.printed("Qt's text"), QStringList(german ? "Abbrechen" : "Cancel"));
    QCOMPARE(settings_files(), QStringList());
}

void test_program::stored_language_wins_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("german");
    // clang-format off
    QTest::newRow("German on an English system")     << "de" << "en_US.UTF-8" << true;
    QTest::newRow("English on a German system")      << "en" << "de_DE.UTF-8" << false;
    QTest::newRow("no catalogue on a German system") << "fr" << "de_DE.UTF-8" << false;
    QTest::newRow("empty counts as missing")         << ""   << "de_DE.UTF-8" << true;
    // clang-format on
}

void test_program::stored_language_wins()
{
    QFETCH(QString, stored);
    QFETCH(QString, locale);
    QFETCH(bool, german);
    QSettings settings;
    settings.setValue("lang", stored);
    settings.sync();
    running_program program(folder->program_path(), "report;close", {}, locale);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.printed("tool tip").contains("Bilder Laden"), german);
    QCOMPARE(program.printed("tool tip").contains("Load images"), !german);
    settings.sync();
    QCOMPARE(settings.value("lang").toString(), stored);
    QCOMPARE(settings.allKeys(), QStringList("lang"));
}

void test_program::starts_no_tool_before_the_first_photo()
{
    running_program program(folder->program_path(), "rows;close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.printed("rows"), QStringList("0"));
    QCOMPARE(tool->process_ids().size(), 0);
}

void test_program::file_open_event_loads_the_photo()
{
    running_program program(folder->program_path(), "open " + photo() + ";rows;close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.printed("rows"), QStringList("1"));
    QCOMPARE(tool->process_ids().size(), 1);
}

void test_program::file_open_event_is_handled_as_soon_as_the_window_shows()
{
    running_program program(folder->program_path(), "showing open " + photo() + ";rows;close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.printed("rows"), QStringList("1"));
}

void test_program::file_open_event_is_lost_on_a_hidden_window()
{
    running_program program(folder->program_path(), "hide;open " + photo() + ";rows;exit 0");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.printed("rows"), QStringList("0"));
    QCOMPARE(tool->process_ids().size(), 0);
}

void test_program::tool_is_told_to_quit_after_the_window_closes()
{
    tool->script("quit", {"touch quit"});
    running_program program(folder->program_path(), "open " + photo() + ";close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.output, QByteArray("shown\n"));
    QCOMPARE(tool->input(), "-G1\n\n" + photo().toUtf8() + "\n-execute\n-stay_open\nFalse\n");
    QVERIFY(tool->has_touched("quit"));
}

void test_program::quitting_for_a_new_language_ends_it_cleanly()
{
    tool->script("quit", {"touch quit"});
    running_program program(folder->program_path(), "open " + photo() + ";settings de No");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.output, QByteArray("shown\nquestion: Application language changed\n"));
    QVERIFY(tool->input().endsWith("\n-execute\n-stay_open\nFalse\n"));
    QVERIFY(tool->has_touched("quit"));
    QSettings settings;
    settings.sync();
    QCOMPARE(settings.allKeys(), QStringList("lang"));
    QFile file(settings.fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("lang=de\n"));
}

void test_program::new_language_applies_at_the_next_start()
{
    running_program first(folder->program_path(), "report;settings de No");
    QVERIFY(first.wait_until_ended());
    QVERIFY(first.printed("tool tip").contains("Load images"));
    running_program second(folder->program_path(), "report;settings en No");
    QVERIFY(second.wait_until_ended());
    QVERIFY(second.printed("tool tip").contains("Bilder Laden"));
    QCOMPARE(second.printed("Qt's text"), QStringList("Abbrechen"));
    QCOMPARE(second.printed("question"), QStringList("Anwendungssprache geändert"));
    running_program third(folder->program_path(), "report;close", {}, "de_DE.UTF-8");
    QVERIFY(third.wait_until_ended());
    QVERIFY(third.printed("tool tip").contains("Load images"));
}

void test_program::program_continues_in_the_old_language()
{
    running_program program(folder->program_path(),
                            "settings de Yes;open " + photo() + ";rows;report;close");
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.printed("question"), QStringList("Application language changed"));
    QCOMPARE(program.printed("rows"), QStringList("1"));
    QVERIFY(program.printed("tool tip").contains("Load images"));
    QVERIFY(!program.printed("tool tip").contains("Bilder Laden"));
    QSettings settings;
    settings.sync();
    QCOMPARE(settings.value("lang").toString(), QString("de"));
}

void test_program::needs_no_network_library()
{
    QFile program(KELVRA_PROGRAM);
    QVERIFY(program.open(QIODevice::ReadOnly));
    const QByteArray bytes = program.readAll();
    QVERIFY(bytes.contains("libQt5Widgets.so"));
    QVERIFY(!bytes.contains("libQt5Network"));
}

void test_program::signal_ends_it_with_a_report_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("ended by the system") << SIGTERM << QByteArray("SIGTERM");
    QTest::newRow("ended at the keyboard") << SIGINT << QByteArray("SIGINT");
    QTest::newRow("wild pointer") << SIGSEGV << QByteArray("SIGSEGV");
    QTest::newRow("abort") << SIGABRT << QByteArray("SIGABRT");
}

void test_program::signal_ends_it_with_a_report()
{
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    running_program program(folder->program_path());
    QVERIFY(program.wait_until_shown());
    program.receive(number);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QCOMPARE(program.errors,
             "ERROR: received signal " + name + "\n" + "Stacktrace is empty\n" + "\n");
    QCOMPARE(program.output, QByteArray("shown\n"));
    QCOMPARE(settings_files(), QStringList());
}

void test_program::other_signal_has_no_report()
{
    running_program program(folder->program_path());
    QVERIFY(program.wait_until_shown());
    program.receive(SIGHUP);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), -1);
    QCOMPARE(program.errors, QByteArray());
}

KELVRA_PROGRAM_TEST_MAIN(test_program)
#include "test_program.moc"
