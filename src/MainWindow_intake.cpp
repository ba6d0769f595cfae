// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"

#include "folder_files.h"
#include "main_window_form.h"
#include "orv/progress_dialog.h"
#include "orv/tag_catalogue.h"
#include "table_data_model.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileOpenEvent>
#include <QHeaderView>
#include <QSettings>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QTableView>

namespace
{

constexpr char last_load_path_key[] = "last_load_path";
constexpr int repaint_limit_ms = 50;
constexpr int frame_length_ms = 200;

/// The patterns of all the files that the metadata tool opens, a blank behind each.
QString supported_patterns()
{
    QString patterns;
    for (const std::string &extension : orv::supported_extensions)
        patterns += QString("*.%1 ").arg(QString::fromStdString(extension));
    return patterns;
}

}  // namespace

bool MainWindow::event(QEvent *e)
{
    if (e->type() != QEvent::FileOpen)
        return QMainWindow::event(e);
    load_files(files_and_folder_contents({static_cast<QFileOpenEvent *>(e)->file()}));
    return true;
}

void MainWindow::load_files(QStringList filenames)
{
    start_progress(progress_load, filenames.size());
    // Painting the table for each row would cost as much time as the tool takes for a file. It
    // isn't laid out for each either: the sort at the end does that once.
    ui->tableView->setUpdatesEnabled(false);
    const QSignalBlocker rows_wait(ui->tableView->verticalHeader());
    int loaded = 0;
    for (const QString &file : qAsConst(filenames)) {
        model->add_file(file, true);
        step_progress(progress_load, ++loaded);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, repaint_limit_ms);
    }
    progress_load->reset();
    ui->tableView->setUpdatesEnabled(true);
    model->resort();
}

void MainWindow::on_button_load_images_clicked()
{
    const QStringList files =
        QFileDialog::getOpenFileNames(this, tr("Select files"), last_load_path,
                                      tr("Supported Files(%1)").arg(supported_patterns()));
    if (files.isEmpty())
        return;
    last_load_path = QFileInfo(files.first()).absolutePath();
    write_last_load_path();
    load_files(files);
}

void MainWindow::read_last_load_path()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    last_load_path = QSettings().value(last_load_path_key, pictures).toString();
}

void MainWindow::write_last_load_path()
{
    QSettings().setValue(last_load_path_key, last_load_path);
}

void MainWindow::start_progress(orv::progress_dialog *dialog, int steps)
{
    dialog->setUpdatesEnabled(true);
    dialog->setRange(0, steps);
    dialog->setValue(0);
    QCoreApplication::processEvents();
    progress_frame.invalidate();
}

void MainWindow::step_progress(orv::progress_dialog *dialog, int value)
{
    const bool frame_is_due = !progress_frame.isValid() ||
                              progress_frame.hasExpired(frame_length_ms) ||
                              value == dialog->maximum();
    dialog->setUpdatesEnabled(frame_is_due);
    dialog->setValue(value);
    if (frame_is_due)
        progress_frame.start();
}
