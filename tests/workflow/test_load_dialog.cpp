// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"
#include "when_modal.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QSettings>
#include <QStandardPaths>

namespace
{

const char key[] = "last_load_path";

const QString filter =
    "Supported Files(*.3g2 *.3gp *.3gp2 *.3gpp *.aax *.ai *.ait *.apng *.arw *.ciff *.cr2 *.crw "
    "*.cs1 *.dcp *.dng *.dr4 *.dvb *.eps *.eps2 *.eps3 *.epsf *.erf *.exif *.exv *.f4a *.f4b *.f4p "
    "*.f4v *.fff *.flif *.gif *.hdp *.icc *.icm *.iiq *.ind *.indd *.indt *.inx *.j2k *.jng *.jp2 "
    "*.jpe *.jpeg *.jpf *.jpg *.jpm *.jpx *.jxr *.m4a *.m4b *.m4p *.m4v *.mef *.mie *.mng *.mos "
    "*.mov *.mp4 *.mpo *.mqv *.mrw *.nef *.nrw *.orf *.pbm *.pdf *.pef *.pgm *.png *.ppm *.ps "
    "*.ps2 *.ps3 *.psb *.psd *.psdt *.qt *.raf *.raw *.rw2 *.rwl *.sr2 *.srw *.thm *.tif *.tiff "
    "*.vrd *.wdp *.x3f *.xmp )";

void choose(QFileDialog &dialog, const QStringList &paths)
{
    auto *edit = dialog.findChild<QLineEdit *>("fileNameEdit");
    auto *buttons = dialog.findChild<QDialogButtonBox *>();
    QVERIFY(edit);
    QVERIFY(buttons);
    edit->setText('"' + paths.join("\" \"") + '"');
    QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
}

}  // namespace

/// The load button and the file dialog that it opens.
class test_load_dialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init() { app.start(); }
    void cleanup() { app.end(); }

    void dialog_offers_the_supported_files();
    void chosen_files_become_rows();
    void file_outside_the_filter_can_be_typed();
    void folder_of_the_first_file_is_remembered();
    void folder_is_stored_before_the_files_are_read();
    void cancel_changes_nothing_data();
    void cancel_changes_nothing();
    void dialog_opens_in_the_remembered_folder();
    void folder_defaults_to_the_pictures();
    void stored_folder_is_read_at_the_start();
    void folder_is_read_once();

private:
    fake_tool_window app;
};

void test_load_dialog::dialog_offers_the_supported_files()
{
    const when_modal<QFileDialog> dialog([this](QFileDialog &box) {
        QCOMPARE(box.windowTitle(), QString("Select files"));
        QCOMPARE(box.nameFilters(), QStringList{filter});
        QCOMPARE(box.fileMode(), QFileDialog::ExistingFiles);
        QCOMPARE(box.acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(box.parentWidget(), app.window.get());
        box.reject();
    });
    click(app.window->button_load_images);
    QVERIFY(dialog.answered());
}

void test_load_dialog::chosen_files_become_rows()
{
    const QStringList paths = {app.make_photo("a b.jpg", {}), app.make_photo("c.png", {})};
    const when_modal<QFileDialog> dialog([&](QFileDialog &box) { choose(box, paths); });
    const progress_watch progress(*app.window->progress_load);
    click(app.window->button_load_images);
    QVERIFY(dialog.answered());
    QCOMPARE(app.window->model->files, paths);
    QCOMPARE(progress.values, QList<int>({0, 1, 2}));
}

void test_load_dialog::file_outside_the_filter_can_be_typed()
{
    const QStringList paths = {app.make_photo("notes.txt", {})};
    const when_modal<QFileDialog> dialog([&](QFileDialog &box) { choose(box, paths); });
    click(app.window->button_load_images);
    QCOMPARE(app.window->model->files, paths);
}

void test_load_dialog::folder_of_the_first_file_is_remembered()
{
    QDir(app.folder->path()).mkdir("first");
    QDir(app.folder->path()).mkdir("second");
    const QStringList paths = {app.make_photo("first/b.jpg", {}),
                               app.make_photo("second/a.jpg", {})};
    const when_modal<QFileDialog> dialog([&](QFileDialog &box) { choose(box, paths); });
    click(app.window->button_load_images);
    QCOMPARE(app.window->model->rowCount(), 2);
    QCOMPARE(app.window->last_load_path, app.path_of("first"));
    QCOMPARE(QSettings().value(key).toString(), app.path_of("first"));
}

void test_load_dialog::folder_is_stored_before_the_files_are_read()
{
    const QString path = app.make_photo("a.jpg", {});
    QStringList stored;
    progress_watch progress(*app.window->progress_load);
    progress.at(0, [&] { stored << QSettings().value(key).toString(); });
    const when_modal<QFileDialog> dialog([&](QFileDialog &box) { choose(box, {path}); });
    click(app.window->button_load_images);
    QCOMPARE(stored, QStringList{app.folder->path()});
}

void test_load_dialog::cancel_changes_nothing_data()
{
    QTest::addColumn<bool>("by_button");
    QTest::newRow("Cancel") << true;
    QTest::newRow("window frame") << false;
}

void test_load_dialog::cancel_changes_nothing()
{
    QFETCH(bool, by_button);
    app.load_dated_photo("a.jpg");
    const QString folder = app.window->last_load_path;
    app.tool.forget();
    const progress_watch progress(*app.window->progress_load);
    const when_modal<QFileDialog> dialog([by_button](QFileDialog &box) {
        box.setDirectory("/");
        auto *buttons = box.findChild<QDialogButtonBox *>();
        QVERIFY(buttons);
        if (by_button)
            click(buttons->button(QDialogButtonBox::Cancel));
        else
            box.close();
    });
    click(app.window->button_load_images);
    QVERIFY(dialog.answered());
    QCOMPARE(app.window->last_load_path, folder);
    QVERIFY(!QSettings().contains(key));
    QCOMPARE(shown_names(*app.window), QStringList{"a.jpg"});
    QCOMPARE(progress.values, QList<int>());
    QCOMPARE(app.tool.input(), QByteArray());
}

void test_load_dialog::dialog_opens_in_the_remembered_folder()
{
    const QString path = app.make_photo("a.jpg", {});
    const when_modal<QFileDialog> first([&](QFileDialog &box) { choose(box, {path}); });
    click(app.window->button_load_images);
    QString opened_in;
    const when_modal<QFileDialog> second([&](QFileDialog &box) {
        opened_in = box.directory().absolutePath();
        box.reject();
    });
    click(app.window->button_load_images);
    QCOMPARE(opened_in, app.folder->path());
}

void test_load_dialog::folder_defaults_to_the_pictures()
{
    QCOMPARE(app.window->last_load_path,
             QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    QVERIFY(!app.window->last_load_path.isEmpty());
    QVERIFY(!QSettings().contains(key));
}

void test_load_dialog::stored_folder_is_read_at_the_start()
{
    QSettings().setValue(key, app.folder->path());
    close_window(app.window);
    app.window = open_window();
    QCOMPARE(app.window->last_load_path, app.folder->path());
}

void test_load_dialog::folder_is_read_once()
{
    QSettings().setValue(key, app.folder->path());
    QString opened_in;
    const when_modal<QFileDialog> dialog([&](QFileDialog &box) {
        opened_in = box.directory().absolutePath();
        box.reject();
    });
    click(app.window->button_load_images);
    QVERIFY(dialog.answered());
    QVERIFY(opened_in != app.folder->path());
}

KELVRA_PROGRAM_TEST_MAIN(test_load_dialog)
#include "test_load_dialog.moc"
