// SPDX-License-Identifier: GPL-3.0-or-later

#include "captured_errors.h"
#include "captured_output.h"
#include "exif_cache.h"
#include "private_home.h"
#include "program_test_main.h"
#include "tool_lines.h"
#include "window_actions.h"

#include <QTemporaryDir>

#include <filesystem>

/// The window without the metadata tool beside the program.
class test_missing_tool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void first_photo_reports_the_missing_tool();
    void files_become_rows_without_a_time();
    void fix_has_nothing_to_write();
    void shift_and_clearing_work();

private:
    QString make_photo(const QString &name);

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<MainWindow> window;
};

void test_missing_tool::init()
{
    QVERIFY(!QFile::exists(QCoreApplication::applicationDirPath() + "/exiftool.exe"));
    clear_settings();
    folder = std::make_unique<QTemporaryDir>();
    window = open_window();
}

void test_missing_tool::cleanup()
{
    close_window(window);
    folder.reset();
}

QString test_missing_tool::make_photo(const QString &name)
{
    const QString path = folder->filePath(name);
    make_file(path, "bytes of a photo");
    return path;
}

/// The tool is reported missing once, and only on the standard streams.
void test_missing_tool::first_photo_reports_the_missing_tool()
{
    const std::filesystem::path folder = QCoreApplication::applicationDirPath().toStdString();
    const std::filesystem::path tool = folder / "exiftool.exe";
    const QString path = make_photo("a.jpg");
    const box_answers answers;
    const captured_output output;
    captured_errors errors;
    drop_photos(*window, {path, make_photo("b.jpg")});
    drop_photos(*window, {make_photo("c.jpg")});
    QCOMPARE(output.text(), tool_lines::not_started);
    QCOMPARE(errors.text(), tool_lines::missing(QString::fromStdString(tool.string())));
    QCOMPARE(answers.boxes.size(), 0);
}

void test_missing_tool::files_become_rows_without_a_time()
{
    const box_answers answers;
    drop_photos(*window, {make_photo("a.jpg"), make_photo("b.jpg")});
    type_shift(*window, "hour", "1");
    QCOMPARE(shown_names(*window), QStringList({"a.jpg", "b.jpg"}));
    QCOMPARE(shown_column(*window, table_data_model::recording_time_column),
             QStringList({"-", "-"}));
    QCOMPARE(shown_column(*window, table_data_model::new_recording_time_column),
             QStringList({"-", "-"}));
    QCOMPARE(answers.boxes.size(), 0);
}

void test_missing_tool::fix_has_nothing_to_write()
{
    const QString path = make_photo("a.jpg");
    drop_photos(*window, {path});
    type_shift(*window, "timezone", "1");
    const box_answers answers;
    const progress_watch progress(*window->progress_fix);
    click(window->button_fix_time);
    QCOMPARE(answers.boxes.size(), 0);
    QCOMPARE(progress.values, QList<int>({0, 1}));
    QCOMPARE(window->model->rowCount(), 0);
    QVERIFY(exif_cache::instance()->records.empty());
    QVERIFY(!window->button_undo->isEnabled());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("bytes of a photo"));
}

void test_missing_tool::shift_and_clearing_work()
{
    drop_photos(*window, {make_photo("a.jpg")});
    type_shift(*window, "month", "-3");
    QCOMPARE(window->model->month, -3);
    click(window->button_reset);
    QCOMPARE(window->model->rowCount(), 0);
    QCOMPARE(shift_texts(*window), empty_shift);
    QVERIFY(window->isVisible());
}

KELVRA_PROGRAM_TEST_MAIN(test_missing_tool)
#include "test_missing_tool.moc"
