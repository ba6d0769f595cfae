// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"

#include "core/folder_files.h"
#include "drop_files_widget.h"
#include "exif_cache.h"
#include "main_window_form.h"
#include "orv/tag_catalogue.h"
#include "qor/free_memory.h"
#include "table_data_model.h"
#include "time_adjustment.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileOpenEvent>
#include <QSettings>
#include <QStandardPaths>

namespace
{

constexpr char last_load_path_key[] = "last_load_path";
constexpr int repaint_limit_ms = 50;

/// The patterns of all the files that the metadata tool opens, each followed by a space.
QString supported_patterns()
{
    QString patterns;
    for (const std::string &extension : orv::supported_extensions)
        patterns += QString("*.%1 ").arg(QString::fromStdString(extension));
    return patterns;
}

/// Makes the drop area refuse drops while this object exists. The window system delivers drops even
/// while user input is held back, and a load inside another would take over its progress dialog.
class drops_refused : public QObject
{
public:
    explicit drops_refused(QWidget &area) : area(area), accepted_before(area.acceptDrops())
    {
        area.setAcceptDrops(false);
        area.installEventFilter(this);
    }
    ~drops_refused() override { area.setAcceptDrops(accepted_before); }

    drops_refused(const drops_refused &) = delete;
    drops_refused &operator=(const drops_refused &) = delete;

    /// A drag that entered before the load still delivers its drop event.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return event->type() == QEvent::Drop || QObject::eventFilter(watched, event);
    }

private:
    QWidget &area;
    bool accepted_before;
};

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
    const drops_refused refusal(*ui->widget_dropper);
    const int count = filenames.size();
    progress.start(progress_load, count);
    int loaded = 0;
    for (const QString &file : qAsConst(filenames)) {
        model->add_file(file, true);
        progress.step(++loaded, count);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, repaint_limit_ms);
    }
    progress.end();
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

void MainWindow::on_button_reset_clicked()
{
    model->clear();
    ui->widget_time_adjust->reset();
    exif_cache::instance()->records.clear();
    exif_cache::instance()->raw_tags.clear();
    qor::return_free_memory();
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
