// SPDX-License-Identifier: GPL-3.0-or-later

#include "real_road.h"
#include "test_main.h"

#include <QTextCodec>

#include <unistd.h>

namespace
{

/// No UTF-8.
const char raw_name[] = "/\xe4.jpg";

/// The names of files are in this encoding while this lives, as they are under another locale.
class name_encoding
{
public:
    explicit name_encoding(const char *encoding) : before(QTextCodec::codecForLocale())
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(encoding));
    }
    ~name_encoding() { QTextCodec::setCodecForLocale(before); }
    name_encoding(const name_encoding &) = delete;
    name_encoding &operator=(const name_encoding &) = delete;

private:
    QTextCodec *before;
};

}  // namespace

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
    void name_outside_of_the_encoding_gives_nothing();
    void name_in_another_encoding_than_the_tools_is_fixed();

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

/// No text of Qt stands for such a name, so there is no way to the file.
void test_file_names::name_outside_of_the_encoding_gives_nothing()
{
    const QByteArray raw_path = QFile::encodeName(road.folder->path()) + raw_name;
    QCOMPARE(link(QFile::encodeName(road.make_dated_photo("a.jpg")), raw_path), 0);
    drop_photos(*road.window, {road.folder->path(), QFile::decodeName(raw_path)});
    QMimeData data;
    data.setUrls({QUrl::fromEncoded("file://" + raw_path.toPercentEncoding("/"))});
    QVERIFY(drop_on(*road.window->ui->widget_dropper, data));
    QCOMPARE(shown_names(*road.window), QStringList{"a.jpg"});
    QCOMPARE(access(raw_path, F_OK), 0);
}

/// The tool knows nothing of encodings: it takes the bytes that it gets for the file's name.
void test_file_names::name_in_another_encoding_than_the_tools_is_fixed()
{
    const QByteArray raw_path = QFile::encodeName(road.folder->path()) + raw_name;
    const QString plain = road.make_dated_photo("a.jpg");
    QCOMPARE(rename(QFile::encodeName(plain), raw_path), 0);
    const name_encoding encoding("ISO-8859-1");
    drop_photos(*road.window, {road.folder->path()});
    QCOMPARE(shown_names(*road.window), QStringList{"\u00e4.jpg"});
    type_shift(*road.window, "hour", "1");
    const box_answers answers;
    for (orv::button_dark *button : {road.window->button_fix_time, road.window->button_undo}) {
        const bool fixes = button == road.window->button_fix_time;
        click(button);
        QCOMPARE(rename(raw_path, QFile::encodeName(plain)), 0);
        QCOMPARE(road.recording_time("a.jpg"), QString("2017:05:03 1%1:00:00").arg(fixes ? 3 : 2));
        QCOMPARE(road.names(), QStringList{"a.jpg"});
        QCOMPARE(rename(QFile::encodeName(plain), raw_path), 0);
    }
    QCOMPARE(answers.texts(), QStringList());
}

KELVRA_TEST_MAIN(test_file_names)
#include "test_file_names.moc"
