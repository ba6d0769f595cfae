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
/// Lives on the GUI thread. The batches (load, fix, undo) run inside of the click that starts them
/// and block it, a request to the metadata tool for each file. The window is painted while the tool
/// works; between two files events are served, during a fix or an undo the user's too.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent);
    ~MainWindow() override;

    /// Loads the file or the folder of a QFileOpenEvent; all else goes to QMainWindow.
    bool event(QEvent *e) override;

    /// What an undo of a fix of this loaded file needs. Reads `exif_cache` alone.
    QList<undo_entry> capture_undo_entries(QString path);

    main_window_form *ui = nullptr;                 ///< owned
    table_data_model *model = nullptr;              ///< lives to the end of the process
    orv::progress_dialog *progress_fix = nullptr;   ///< child of this; for fix and undo
    orv::progress_dialog *progress_load = nullptr;  ///< child of this

    /// The last batch of fixes by path: the files that it wrote, and what they held before. Emptied
    /// when a fix starts and when an undo has run; never stored.
    QMap<QString, QList<undo_entry>> undo_map;
    QString last_load_path;  ///< the folder in which the file dialog opens

    orv::button_dark *button_fix_time = nullptr;
    orv::button_dark *button_undo = nullptr;  ///< enabled while `undo_map` has a file
    orv::button_dark *button_settings = nullptr;
    orv::button_dark *button_help = nullptr;
    orv::button_dark *button_about = nullptr;
    orv::button_dark *button_load_images = nullptr;
    orv::button_dark *button_reset = nullptr;

public slots:
    /// Adds the files to the table, in this order, and sorts it; any that can't be read become rows
    /// without a time.
    void load_files(QStringList filenames);

    /// Asks for files and loads them. The folder of the first one is remembered.
    void on_button_load_images_clicked();

    /// Empties table, `exif_cache` and the entered shift; the last batch can still be undone.
    void on_button_reset_clicked();

    /// Writes the new recording time into all date tags of each photo in the table, after warnings
    /// where they apply; reports the files that failed, and empties the screen.
    void on_button_fix_time_clicked();

    /// Writes back what the last batch of fixes changed; a file that can't be written is passed
    /// over.
    void on_button_undo_clicked();

    /// Lets the user pick the language. After a change asks whether to go on in the old one, which
    /// stays until the next start, or to quit.
    void on_button_settings_clicked();

    /// Shows what program this is, over the middle of the window where the screen has the room.
    void on_button_about_clicked();

    /// Hands the help page of the stored language to the system's browser, as a file in the
    /// temporary folder that stays there. Failures are passed over in silence.
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

    batch_progress progress;  ///< of load, fix and undo
};
