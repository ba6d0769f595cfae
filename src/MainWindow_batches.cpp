// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"

#include "core/batch_plan.h"
#include "exif_cache.h"
#include "orv/button_dark.h"
#include "orv/exiftool.h"
#include "orv/message_box.h"
#include "table_data_model.h"

#include <QCoreApplication>
#include <QDateTime>

/// A row of the model.
struct MainWindow::photo_row {
    QString path;
    QDateTime old_time;  ///< invalid for a photo without a recording time
    QDateTime new_time;  ///< invalid in the same case
};

namespace
{

/// Borrowed from the cache; valid until the next load or reset.
photo_tags cached_tags(const QString &path)
{
    const auto cache = exif_cache::instance();
    return {cache->raw_tags_of(path), cache->record_of(path)};
}

}  // namespace

void MainWindow::on_button_fix_time_clicked()
{
    if (!model->alter_timezone && !ask_about_warnings())
        return;
    undo_map.clear();
    button_undo->setEnabled(false);
    progress.start(progress_fix, model->rowCount());
    const QStringList failed_files = fix_all_rows();
    progress.end();
    if (!failed_files.isEmpty() && !ask_to_keep_changes(failed_files))
        on_button_undo_clicked();
    button_undo->setEnabled(!undo_map.isEmpty());
    on_button_reset_clicked();
}

void MainWindow::on_button_undo_clicked()
{
    // The user can start a fix between two files, which clears the map, so the loop needs a copy.
    const QMap<QString, QList<undo_entry>> batch = undo_map;
    progress.start(progress_fix, batch.size());
    int done = 0;
    for (auto file = batch.begin(); file != batch.end(); ++file) {
        orv::exiftool::instance()->write_tags(file.key(), undo_tags(file.value()));
        progress.step(++done, batch.size());
        QCoreApplication::processEvents();
    }
    progress.end();
    undo_map.clear();
    button_undo->setEnabled(false);
}

QList<undo_entry> MainWindow::capture_undo_entries(QString path)
{
    return undo_entries(cached_tags(path));
}

MainWindow::photo_row MainWindow::read_row(int row) const
{
    const auto value = [this, row](int column) {
        return model->index(row, column).data(Qt::UserRole);
    };
    return {value(table_data_model::name_column).toString(),
            value(table_data_model::recording_time_column).toDateTime(),
            value(table_data_model::new_recording_time_column).toDateTime()};
}

/// Counts the photos that a fix without a zone would harm, and asks about them; true to continue.
bool MainWindow::ask_about_warnings()
{
    int early_count = 0;
    int without_zone_count = 0;
    for (int row = 0; row < model->rowCount(); ++row) {
        const photo_row photo = read_row(row);
        if (is_before_file_time_limit(photo.new_time))
            ++early_count;
        if (photo.old_time.isValid() && photo.new_time.isValid() &&
            lacks_zone(cached_tags(photo.path)))
            ++without_zone_count;
    }
    const QString zone_warning =
        tr("%1 files do not have any timezone information set and you have not specified a "
           "timezone to use.\n"
           "If you continue your computers local timezone will be used.\n\n"
           "Warning: Adding the timezone to an image can not be undone.")
            .arg(without_zone_count);
    const QString early_warning =
        tr("%1 files would be assigned a recording time prior to the 1st of January 1972 "
           "00:00:00.\n"
           "The files system time can't be altered to times before this point.\n"
           "If you continue the files date/time according to your operating system might not be "
           "correct (i.e. displayed as a date in the future or simply stuck at the 1st of January "
           "1972).\n"
           "The EXIF timestamps can handle this situation and dates prior to the 1st of January "
           "1972 00:00:00 will be saved correctly.")
            .arg(early_count);
    return (without_zone_count == 0 || ask_to_continue(zone_warning)) &&
           (early_count == 0 || ask_to_continue(early_warning));
}

bool MainWindow::ask_to_continue(const QString &warning)
{
    return orv::message_box::question(centralWidget(), tr("Continue?"), warning, tr("Continue"),
                                      tr("Abort"), 0) != QMessageBox::No;
}

/// Returns the paths of the photos that couldn't be written. The number of rows is read again each
/// time, since the events between two rows can clear the table.
QStringList MainWindow::fix_all_rows()
{
    QStringList failed_files;
    for (int row = 0; row < model->rowCount(); ++row) {
        progress.set_steps(model->rowCount());
        const photo_row photo = read_row(row);
        const bool has_times = photo.old_time.isValid() && photo.new_time.isValid();
        if (has_times && !fix_photo(photo))
            failed_files << photo.path;
        progress.step(row + 1, model->rowCount());
        QCoreApplication::processEvents();
    }
    return failed_files;
}

bool MainWindow::fix_photo(const photo_row &photo)
{
    const QList<undo_entry> entries = capture_undo_entries(photo.path);
    const tag_map record = exif_cache::instance()->record_copy(photo.path);
    const tag_map tags = fix_tags({cached_tags(photo.path).raw_tags, record}, photo.new_time,
                                  model->alter_timezone, model->timezone);
    if (!orv::exiftool::instance()->write_tags(photo.path, tags))
        return false;
    undo_map[photo.path] = entries;
    return true;
}

bool MainWindow::ask_to_keep_changes(const QStringList &failed_files)
{
    const QString text = tr("The following %1 files could not be fixed:\n%2\n\n Do you want to "
                            "keep the changes in the other files")
                             .arg(QString::number(failed_files.size()), failed_files.join("\n"));
    return orv::message_box::question(centralWidget(), tr("Continue?"), text, tr("Keep changes"),
                                      tr("Undo Changes"), 0) != QMessageBox::No;
}
