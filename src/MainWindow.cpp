// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"

#include "datetime_format.h"
#include "drop_files_widget.h"
#include "main_window_form.h"
#include "orv/button_dark.h"
#include "orv/progress_dialog.h"
#include "orv/skin_fonts.h"
#include "startup/language_setting.h"
#include "startup/program_setup.h"
#include "table_data_model.h"
#include "time_adjustment.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>

namespace
{

void set_program_font()
{
    add_fonts();
    QApplication::setFont(orv::text_font());
}

}  // namespace

MainWindow::MainWindow(QWidget *parent) : QMainWindow(parent), ui(new main_window_form)
{
    set_program_font();
    ui->build(this);
    build_header();
    setup_table();
    connect_drop();
    progress.watch(this);
    make_fix_progress();
    make_load_progress();
    connect_controls();
    make_report_shortcut();
    read_last_load_path();
    ui->widget_time_adjust->focus_first_field();
}

MainWindow::~MainWindow()
{
    delete ui;
}

void MainWindow::build_header()
{
    make_buttons();
    ui->lay_out_strip(button_settings, button_about, button_help);
    ui->lay_out_header(button_fix_time, button_undo);
    ui->lay_out_controls(button_load_images, button_reset);
    ui->show_drop_picture(language_setting(language_key));
    ui->widget_time_adjust->set_tooltips(tr("Change the timestamps of the photos by this value "
                                            "(positive and negative values can be used)"));
}

void MainWindow::make_buttons()
{
    using form = main_window_form;
    button_settings =
        form::make_small_button(tr("Change application settings"), ":/images/icon_settings.png");
    button_about = form::make_small_button(tr("Show information about the application"),
                                           ":/images/icon_about.png");
    button_help = form::make_small_button(tr("Show documentation, shortcuts and usage information"),
                                          ":/images/icon_help.png");
    button_fix_time = form::make_header_button(tr("Apply changes to the timestamps of the images"),
                                               form::wide_button_px, ":/images/icon_fix_time.png");
    button_undo = form::make_header_button(tr("Undo the last set of timestamp changes"),
                                           form::square_button_px, ":/images/icon_undo.png");
    button_undo->setEnabled(false);
    button_load_images = form::make_small_button(tr("Load images"), ":/images/icon_open.png");
    button_reset =
        form::make_small_button(tr("Clear list of loaded images"), ":/images/icon_undo_small.png");
}

void MainWindow::setup_table()
{
    model = new table_data_model(nullptr);
    ui->tableView->setModel(model);
    ui->tableView->resizeColumnsToContents();

    QHeaderView *header = ui->tableView->horizontalHeader();
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setSectionResizeMode(table_data_model::name_column, QHeaderView::Fixed);
    header->setSectionResizeMode(table_data_model::recording_time_column, QHeaderView::Stretch);
    header->setSectionResizeMode(table_data_model::new_recording_time_column, QHeaderView::Stretch);
    ui->style_table();
    connect(
        model, &table_data_model::sort_order_override, header,
        [header](int column, Qt::SortOrder order) { header->setSortIndicator(column, order); },
        Qt::DirectConnection);
    header->setSortIndicator(table_data_model::name_column, Qt::AscendingOrder);
}

void MainWindow::connect_drop()
{
    connect(ui->widget_dropper, &drop_files_widget::files_dropped, this, &MainWindow::load_files);
}

void MainWindow::make_fix_progress()
{
    progress_fix = make_progress(tr("Fixing time"));
}

void MainWindow::make_load_progress()
{
    progress_load = make_progress(tr("Loading files"));
}

orv::progress_dialog *MainWindow::make_progress(const QString &label)
{
    auto *dialog = new orv::progress_dialog(this);
    dialog->set_up(tr("Please Wait"), label, tr("%v of %m"));
    progress.watch(dialog);
    return dialog;
}

void MainWindow::connect_controls()
{
    connect(ui->widget_datetime_format, &datetime_format::format_changed, model,
            &table_data_model::datetime_format_changed);
    model->datetime_format_changed(ui->widget_datetime_format->format_string());
    connect(ui->widget_time_adjust, &time_adjustment::time_offset_changed, model,
            &table_data_model::datetime_offset_changed);
    connect(button_settings, &QPushButton::clicked, this, &MainWindow::on_button_settings_clicked);
    connect(button_about, &QPushButton::clicked, this, &MainWindow::on_button_about_clicked);
    connect(button_help, &QPushButton::clicked, this, &MainWindow::on_button_help_clicked);
    connect(button_fix_time, &QPushButton::clicked, this, &MainWindow::on_button_fix_time_clicked);
    connect(button_undo, &QPushButton::clicked, this, &MainWindow::on_button_undo_clicked);
    connect(button_load_images, &QPushButton::clicked, this,
            &MainWindow::on_button_load_images_clicked);
    connect(button_reset, &QPushButton::clicked, this, &MainWindow::on_button_reset_clicked);
}
