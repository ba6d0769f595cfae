// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"
#include "real_tool_window.h"

#include <QTextCodec>

#include <unistd.h>

namespace
{

/// Not valid UTF-8.
const char raw_name[] = "/\xe4.jpg";

/// While it exists, file names are in this encoding, as they are under another locale.
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
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void file_is_fixed_and_restored_under_any_name_data();
    void file_is_fixed_and_restored_under_any_name();
    void folder_may_have_any_name_too();
    void names_that_differ_in_their_case_are_two_files();
    void name_outside_the_encoding_gives_nothing();
    void name_in_another_encoding_than_the_tools_is_fixed();

private:
    void rename_and_load(const QString &name);

    real_tool_window app;
};

/// Made under a plain name, so that the test's own tool isn't affected by `name`.
void test_file_names::rename_and_load(const QString &name)
{
    const QString plain = app.make_dated_photo("plain.jpg");
    QVERIFY(QFile::rename(plain, app.path_of(name)));
    drop_photos(*app.window, {app.path_of(name)});
}

void test_file_names::file_is_fixed_and_restored_under_any_name_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("spaces") << "a b  c.jpg";
    QTest::newRow("umlauts") << "Grüße äöü ß.jpg";
    QTest::newRow("letters of other scripts") << "写真 фото.jpg";
    QTest::newRow("outside the basic plane") << "\U0001F4F7.jpg";
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
    QTest::newRow("shell characters") << "$HOME `a` ;&|<>.jpg";
    QTest::newRow("backslash") << "a\\n.jpg";
    QTest::newRow("tab") << "a\tb.jpg";
    QTest::newRow("leading space") << " a.jpg";
    QTest::newRow("trailing space") << "a.jpg ";
    QTest::newRow("leading dot") << ".a.jpg";
    QTest::newRow("no extension") << "a";
    QTest::newRow("marker of the tool") << "{ready}";
    QTest::newRow("200 characters") << QString(196, 'x') + ".jpg";
}

void test_file_names::file_is_fixed_and_restored_under_any_name()
{
    QFETCH(QString, name);
    rename_and_load(name);
    QCOMPARE(shown_names(*app.window), QStringList{name});
    QCOMPARE(shown_column(*app.window, table_data_model::recording_time_column),
             QStringList{"03.05.2017 - 12:00:00"});
    const auto time = [this, name] {
        QFile::copy(app.path_of(name), app.path_of("copy.jpg"));
        const QString value = app.recording_time("copy.jpg");
        QFile::remove(app.path_of("copy.jpg"));
        return value;
    };

    type_shift(*app.window, "hour", "1");
    const box_answers answers;
    click(app.window->button_fix_time);
    QCOMPARE(time(), QString("2017:05:03 13:00:00"));
    click(app.window->button_undo);
    QCOMPARE(time(), QString("2017:05:03 12:00:00"));
    QCOMPARE(answers.texts(), QStringList());
    QCOMPARE(app.names(), QStringList{name});
}

void test_file_names::folder_may_have_any_name_too()
{
    const QString folder = "-100%1 = #Grüße";
    QVERIFY(QDir(app.folder->path()).mkdir(folder));
    rename_and_load(folder + "/a.jpg");
    type_shift(*app.window, "hour", "1");
    click(app.window->button_fix_time);
    QCOMPARE(app.recording_time(folder + "/a.jpg"), QString("2017:05:03 13:00:00"));
}

void test_file_names::names_that_differ_in_their_case_are_two_files()
{
    drop_photos(*app.window, {app.make_dated_photo("a.jpg"), app.make_dated_photo("A.jpg")});
    type_shift(*app.window, "hour", "1");
    click(app.window->button_fix_time);
    QCOMPARE(app.recording_time("a.jpg"), QString("2017:05:03 13:00:00"));
    QCOMPARE(app.recording_time("A.jpg"), QString("2017:05:03 13:00:00"));
}

/// No QString can hold such a name, so there is no way to reach the file.
void test_file_names::name_outside_the_encoding_gives_nothing()
{
    const QByteArray raw_path = QFile::encodeName(app.folder->path()) + raw_name;
    QCOMPARE(link(QFile::encodeName(app.make_dated_photo("a.jpg")), raw_path), 0);
    drop_photos(*app.window, {app.folder->path(), QFile::decodeName(raw_path)});
    QMimeData data;
    data.setUrls({QUrl::fromEncoded("file://" + raw_path.toPercentEncoding("/"))});
    QVERIFY(drop_on(*app.window->ui->widget_dropper, data));
    QCOMPARE(shown_names(*app.window), QStringList{"a.jpg"});
    QCOMPARE(access(raw_path, F_OK), 0);
}

/// The tool knows nothing about encodings: it uses the bytes that it gets as the file's name.
void test_file_names::name_in_another_encoding_than_the_tools_is_fixed()
{
    const QByteArray raw_path = QFile::encodeName(app.folder->path()) + raw_name;
    const QString plain = app.make_dated_photo("a.jpg");
    QCOMPARE(rename(QFile::encodeName(plain), raw_path), 0);
    const name_encoding encoding("ISO-8859-1");
    drop_photos(*app.window, {app.folder->path()});
    QCOMPARE(shown_names(*app.window), QStringList{"\u00e4.jpg"});
    type_shift(*app.window, "hour", "1");
    const box_answers answers;
    for (orv::button_dark *button : {app.window->button_fix_time, app.window->button_undo}) {
        const bool fixes = button == app.window->button_fix_time;
        click(button);
        QCOMPARE(rename(raw_path, QFile::encodeName(plain)), 0);
        QCOMPARE(app.recording_time("a.jpg"), QString("2017:05:03 1%1:00:00").arg(fixes ? 3 : 2));
        QCOMPARE(app.names(), QStringList{"a.jpg"});
        QCOMPARE(rename(QFile::encodeName(plain), raw_path), 0);
    }
    QCOMPARE(answers.texts(), QStringList());
}

KELVRA_PROGRAM_TEST_MAIN(test_file_names)
#include "test_file_names.moc"
