// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"

#include <QDir>

/// Paths that only Windows has.
class test_windows_paths : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void dropped_path_reaches_the_tool_with_slashes_data();
    void dropped_path_reaches_the_tool_with_slashes();
    void dropped_folder_with_a_long_path_is_loaded();

private:
    fake_tool_window app;
};

void test_windows_paths::dropped_path_reaches_the_tool_with_slashes_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "a.jpg";
    QTest::newRow("blank and umlaut") << "Jörg Müller/ä b.jpg";
    QTest::newRow("several alphabets") << "Ж 日本 😀.jpg";
}

void test_windows_paths::dropped_path_reaches_the_tool_with_slashes()
{
    QFETCH(QString, name);
    QDir(app.folder->path()).mkdir("Jörg Müller");
    const QString path = app.make_photo(name, {});
    const QString native_path = QDir::toNativeSeparators(path);
    QCOMPARE(native_path.mid(1, 2), QString(":\\"));
    drop_photos(*app.window, {native_path});
    QVERIFY2(app.tool.input().contains("\n" + path.toUtf8() + "\n"), app.tool.input());
}

/// Windows itself has a limit of 260 characters.
void test_windows_paths::dropped_folder_with_a_long_path_is_loaded()
{
    const QString long_folder =
        QString(100, 'x') + "/" + QString(100, 'y') + "/" + QString(100, 'z');
    QVERIFY(QDir(app.folder->path()).mkpath(long_folder));
    app.make_photo(long_folder + "/a.jpg", {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    drop_photos(*app.window, {app.path_of(long_folder)});
    QCOMPARE(app.window->model->rowCount(), 1);
    QVERIFY(app.tool.input().contains("\n" + app.path_of(long_folder + "/a.jpg").toUtf8() + "\n"));
}

KELVRA_PROGRAM_TEST_MAIN(test_windows_paths)
#include "test_windows_paths.moc"
