#include "real_road.h"
#include "test_main.h"

class test_file_names : public QObject
{
    Q_OBJECT

private slots:
    void init() { road.start(); }
    void cleanup() { road.end(); }

    void file_is_fixed_and_put_back_under_any_name_data();
    void file_is_fixed_and_put_back_under_any_name();
    void folder_may_have_any_name_too();
    void names_that_differ_in_their_case_are_two_files();

private:
    void rename_and_load(const QString &name);

    real_road road;
};

/// Made under a plain name, so that the test's own tool has no say in it.
void test_file_names::rename_and_load(const QString &name)
{
    const QString plain = road.make_dated_photo("plain.jpg");
    QVERIFY(QFile::rename(plain, road.path_of(name)));
    drop_photos(*road.window, {road.path_of(name)});
}

void test_file_names::file_is_fixed_and_put_back_under_any_name_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << "a b  c.jpg";
    QTest::newRow("umlauts") << "Grüße äöü ß.jpg";
    QTest::newRow("letters of other scripts") << "写真 фото.jpg";
    QTest::newRow("outside of the basic plane") << "\U0001F4F7.jpg";
    QTest::newRow("combining mark") << "a\u0308.jpg";
    QTest::newRow("percent signs") << "100% %d %f.jpg";
    QTest::newRow("placeholders") << "%1 %2 %99.jpg";
    QTest::newRow("double quotes") << "\"a\".jpg";
    QTest::newRow("single quotes") << "it's 'a'.jpg";
    QTest::newRow("leading dash") << "-a.jpg";
    QTest::newRow("name of an option") << "-execute.jpg";
    QTest::newRow("leading at sign") << "@a.jpg";
    QTest::newRow("leading hash") << "#a.jpg";
    QTest::newRow("hash within") << "a#1.jpg";
    QTest::newRow("equals sign") << "a=b.jpg";
    QTest::newRow("tag assignment") << "-Title=b.jpg";
    QTest::newRow("wild cards") << "a*?[b].jpg";
    QTest::newRow("signs of the shell") << "$HOME `a` ;&|<>.jpg";
    QTest::newRow("backslash") << "a\\n.jpg";
    QTest::newRow("tabulator") << "a\tb.jpg";
    QTest::newRow("leading blank") << " a.jpg";
    QTest::newRow("trailing blank") << "a.jpg ";
    QTest::newRow("leading dot") << ".a.jpg";
    QTest::newRow("no extension") << "a";
    QTest::newRow("marker of the tool") << "{ready}";
    QTest::newRow("200 characters") << QString(196, 'x') + ".jpg";
}

void test_file_names::file_is_fixed_and_put_back_under_any_name()
{
    QFETCH(QString, name);
    rename_and_load(name);
    QCOMPARE(shown_names(*road.window), QStringList{name});
    QCOMPARE(shown_column(*road.window, table_data_model::recording_time_column),
             QStringList{"03.05.2017 - 12:00:00"});
    const auto time = [this, name] {
        QFile::copy(road.path_of(name), road.path_of("copy.jpg"));
        const QString value = road.recording_time("copy.jpg");
        QFile::remove(road.path_of("copy.jpg"));
        return value;
    };

    type_shift(*road.window, "hour", "1");
    const box_answers answers;
    click(road.window->button_fix_time);
    QCOMPARE(time(), QString("2017:05:03 13:00:00"));
    click(road.window->button_undo);
    QCOMPARE(time(), QString("2017:05:03 12:00:00"));
    QCOMPARE(answers.texts(), QStringList());
    QCOMPARE(road.names(), QStringList{name});
}

void test_file_names::folder_may_have_any_name_too()
{
    const QString folder = "-100%1 = #Grüße";
    QVERIFY(QDir(road.folder->path()).mkdir(folder));
    rename_and_load(folder + "/a.jpg");
    type_shift(*road.window, "hour", "1");
    click(road.window->button_fix_time);
    QCOMPARE(road.recording_time(folder + "/a.jpg"), QString("2017:05:03 13:00:00"));
}

void test_file_names::names_that_differ_in_their_case_are_two_files()
{
    drop_photos(*road.window, {road.make_dated_photo("a.jpg"), road.make_dated_photo("A.jpg")});
    type_shift(*road.window, "hour", "1");
    click(road.window->button_fix_time);
    QCOMPARE(road.recording_time("a.jpg"), QString("2017:05:03 13:00:00"));
    QCOMPARE(road.recording_time("A.jpg"), QString("2017:05:03 13:00:00"));
}

KELVRA_TEST_MAIN(test_file_names)
#include "test_file_names.moc"
