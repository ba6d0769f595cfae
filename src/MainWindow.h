// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "batch_progress.h"
#include "core/undo_entry.h"

#include <QList>
#include <QMainWindow>
#include <QMap>
#include <QString>
#include <QStringList>

class table_data_model;
struct main_window_form;

namespace orv
{
class button_dark;
class progress_dialog;
}  // namespace orv

/// The program's window: builds the screen and turns clicks into commands.
///
/// Lives on the GUI thread. A batch (load, fix, undo) runs inside the click that starts it and
/// blocks the thread; each file costs one request to the metadata tool. The window is painted while
/// the tool works. Events are processed between two files; during a fix or an undo that includes
/// user input.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent);
    ~MainWindow() override;

    /// Loads the file or folder of a QFileOpenEvent; passes all other events to QMainWindow.
    bool event(QEvent *e) override;

    /// The entries needed to undo a fix of this file; reads only `exif_cache`. Requires: the file
    /// is loaded.
    QList<undo_entry> capture_undo_entries(QString path);

    main_window_form *ui = nullptr;                 ///< owned
    table_data_model *model = nullptr;              ///< lives until the process ends
    orv::progress_dialog *progress_fix = nullptr;   ///< child of this; for fix and undo
    orv::progress_dialog *progress_load = nullptr;  ///< child of this

    /// The last batch of fixes: for the path of each file that it wrote, the values that the file's
    /// tags had before. Cleared when a fix starts and after an undo; never saved to disk.
    QMap<QString, QList<undo_entry>> undo_map;
    QString last_load_path;  ///< the folder in which the file dialog opens

    orv::button_dark *button_fix_time = nullptr;
    orv::button_dark *button_undo = nullptr;  ///< enabled when a batch has left files in `undo_map`
    orv::button_dark *button_settings = nullptr;
    orv::button_dark *button_help = nullptr;
    orv::button_dark *button_about = nullptr;
    orv::button_dark *button_load_images = nullptr;
    orv::button_dark *button_reset = nullptr;

public slots:
    /// Adds the files to the table in this order, then sorts it. A file that can't be read becomes
    /// a row without a time.
    void load_files(QStringList filenames);

    /// Opens a file dialog and loads the chosen files. Remembers the folder of the first one.
    void on_button_load_images_clicked();

    /// Clears the table, `exif_cache` and the entered shift; the last batch can still be undone.
    void on_button_reset_clicked();

    /// Shows any warnings that apply, then writes the new recording time into all date tags of each
    /// photo in the table. Reports the files that failed, then does the same as the reset button.
    void on_button_fix_time_clicked();

    /// Restores what the last batch of fixes changed. Note: a file that can't be written is skipped
    /// without a message.
    void on_button_undo_clicked();

    /// Lets the user choose the language. After a change, asks whether to quit or to continue in
    /// the old language, which stays in use until the next start.
    void on_button_settings_clicked();

    /// Opens the about dialog, centred over the window if it then fits on the screen.
    void on_button_about_clicked();

    /// Opens the help page in the stored language in the system's browser. Failures are ignored.
    /// Note: the page is written to a file in the temporary folder and left there.
    void on_button_help_clicked();

private:
    struct photo_row;

    void build_header();
    void make_buttons();
    void setup_table();
    void connect_drop();
    void make_fix_progress();
    void make_load_progress();
    orv::progress_dialog *make_progress(const QString &label);
    void connect_controls();
    void make_report_shortcut();

    void read_last_load_path();
    void write_last_load_path();

    photo_row read_row(int row) const;
    bool ask_about_warnings();
    bool ask_to_continue(const QString &warning);
    QStringList fix_all_rows();
    bool fix_photo(const photo_row &photo);
    bool ask_to_keep_changes(const QStringList &failed_files);

    bool ask_to_continue_working();

    batch_progress progress;  ///< shared by load, fix and undo
};
