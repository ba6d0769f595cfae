// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"

#include "datetime_format.h"
#include "drop_files_widget.h"
#include "exif_cache.h"
#include "language_setting.h"
#include "main_window_form.h"
#include "orv/button_dark.h"
#include "orv/picture_widget.h"
#include "orv/progress_dialog.h"
#include "orv/skin_fonts.h"
#include "orv/skin_scroll_bars.h"
#include "program_setup.h"
#include "qor/free_memory.h"
#include "table_data_model.h"
#include "time_adjustment.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStyle>
#include <QStyleFactory>
#include <QTableView>

namespace
{

constexpr int header_height_px = 66;
constexpr int header_indent_px = 300;
constexpr int spacing_px = 4;

constexpr QSize small_button_size(23, 22);
constexpr QSize fix_button_size(120, 46);
constexpr QSize undo_button_size(46, 46);
constexpr QSize logo_size(216, 48);

constexpr orv::pixel_argb hot_icon_colour = {240, 240, 240, 255};
constexpr orv::pixel_argb normal_icon_colour = {133, 136, 129, 255};

constexpr char header_sheet[] =
    "#header {background-image: url(:/images/head_medium_dark_without_shadow.png);}";
constexpr char logo_sheet[] = "background-image: url(:images/logo_small.png);";
constexpr char drop_picture_sheet[] =
    "background-color: black;background-image: url(:/images/drop_images_here_%1.png);"
    "background-repeat: none;background-position: bottom center;";
constexpr char table_header_sheet[] =
    "QHeaderView::section {border-width: 3;border-style: solid;"
    "border-image:url(:/gui/panel/border.png) 3 stretch;padding-left: 1em;}";

void set_program_font()
{
    add_fonts();
    QApplication::setFont(orv::text_font());
}

orv::button_dark *make_button(const QString &tooltip, QSize size, const QString &icon)
{
    auto *button = new orv::button_dark(nullptr);
    button->setFixedSize(size);
    button->setToolTip(tooltip);
    button->setAccessibleName(tooltip);
    button->set_icon(icon, -1, -1, hot_icon_colour, normal_icon_colour);
    return button;
}

QHBoxLayout *make_row(const QMargins &margins, int spacing)
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(margins);
    row->setSpacing(spacing);
    return row;
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

void MainWindow::on_button_reset_clicked()
{
    model->clear();
    ui->widget_time_adjust->reset();
    exif_cache::instance()->records.clear();
    exif_cache::instance()->raw_tags.clear();
    qor::return_free_memory();
}

void MainWindow::build_header()
{
    make_buttons();
    lay_out_strip();
    lay_out_header();
    lay_out_controls();
    ui->widget->setStyleSheet(QString(drop_picture_sheet).arg(language_setting(language_key)));
    ui->widget_time_adjust->set_tooltips(tr("Change the timestamps of the photos by this value "
                                            "(positive and negative values can be used)"));
}

void MainWindow::make_buttons()
{
    button_settings = make_button(tr("Change application settings"), small_button_size,
                                  ":/images/icon_settings.png");
    button_about = make_button(tr("Show information about the application"), small_button_size,
                               ":/images/icon_about.png");
    button_help = make_button(tr("Show documentation, shortcuts and usage information"),
                              small_button_size, ":/images/icon_help.png");
    button_fix_time = make_button(tr("Apply changes to the timestamps of the images"),
                                  fix_button_size, ":/images/icon_fix_time.png");
    button_fix_time->set_skin("header");
    button_undo = make_button(tr("Undo the last set of timestamp changes"), undo_button_size,
                              ":/images/icon_undo.png");
    button_undo->set_skin("header");
    button_undo->setEnabled(false);
    button_load_images =
        make_button(tr("Load images"), small_button_size, ":/images/icon_open.png");
    button_reset = make_button(tr("Clear list of loaded images"), small_button_size,
                               ":/images/icon_undo_small.png");
}

void MainWindow::lay_out_strip()
{
    QHBoxLayout *strip = make_row({10, 4, 10, 4}, spacing_px);
    strip->addWidget(button_settings);
    strip->addStretch(1);
    strip->addWidget(button_about);
    strip->addWidget(button_help);
    ui->widget_info->setLayout(strip);
}

void MainWindow::lay_out_header()
{
    auto *logo = new orv::picture_widget;
    logo->setFixedSize(logo_size);
    logo->setStyleSheet(logo_sheet);

    auto *header = new orv::picture_widget;
    header->setObjectName("header");
    header->setStyleSheet(header_sheet);
    QHBoxLayout *row = make_row({0, 5, 20, 5}, spacing_px);
    row->addSpacing(header_indent_px);
    row->addWidget(button_fix_time);
    row->addWidget(button_undo);
    row->addStretch(1);
    row->addWidget(logo);
    header->setLayout(row);

    QHBoxLayout *frame = make_row({0, 0, 0, 0}, 0);
    frame->addWidget(header);
    ui->widget_logo->setLayout(frame);
    ui->widget_logo->setFixedHeight(header_height_px);
}

void MainWindow::lay_out_controls()
{
    QHBoxLayout *controls = make_row({12, 0, 12, 0}, spacing_px);
    controls->addStretch(1);
    controls->addWidget(button_load_images);
    controls->addWidget(button_reset);
    controls->addStretch(1);
    ui->dropper_controls->setLayout(controls);
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
    QStyle *header_style = QStyleFactory::create("fusion");
    header_style->setParent(header);
    header->setStyle(header_style);
    header->setStyleSheet(table_header_sheet);

    ui->tableView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    orv::skin_scroll_bars(ui->tableView);
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
