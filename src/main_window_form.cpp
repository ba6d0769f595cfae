// SPDX-License-Identifier: GPL-3.0-or-later

#include "main_window_form.h"

#include "datetime_format.h"
#include "drop_files_widget.h"
#include "form_parts.h"
#include "orv/button_dark.h"
#include "orv/picture_widget.h"
#include "orv/skin_scroll_bars.h"
#include "photo_table.h"
#include "time_adjustment.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMainWindow>
#include <QSpacerItem>
#include <QStyle>
#include <QStyleFactory>
#include <QTableView>
#include <QVBoxLayout>

namespace
{

constexpr int header_height_px = 66;
constexpr int header_indent_px = 300;
constexpr int spacing_px = 4;

constexpr QSize small_button_size(23, 22);
constexpr int header_button_height_px = 46;
constexpr QSize logo_size(216, 48);

constexpr orv::pixel_argb hot_icon_colour = {240, 240, 240, 255};
constexpr orv::pixel_argb normal_icon_colour = {133, 136, 129, 255};

constexpr char window_sheet[] = "color: rgb(198,213,210);";
constexpr char info_sheet[] = "background-color: rgb(47,47,47);";
constexpr char content_sheet[] = "background-color: rgb(0,0,0);";
constexpr char controls_sheet[] = "background: none;";

constexpr char panel_sheet[] =
    "background-color: rgb(47,47,47);\nborder-style:solid;\nborder-width:3px;\n"
    "border-image:url(:/gui/panel/border.png) 3 stretch;";

constexpr char table_sheet[] =
    "QTableView {\nalternate-background-color: rgb(68, 68, 68);\n"
    "background-color: rgb(38, 38, 38);\n}\n"
    "QTableView::item {\npadding-left: 1em;\nborder: 0px;\nborder-right: 1px solid black;\n}";

constexpr char header_sheet[] =
    "#header {background-image: url(:/images/head_medium_dark_without_shadow.png);}";

constexpr char logo_sheet[] = "background-image: url(:images/logo_small.png);";

constexpr char drop_picture_sheet[] =
    "background-color: black;background-image: url(:/images/drop_images_here_%1.png);"
    "background-repeat: none;background-position: bottom center;";

constexpr char table_header_sheet[] =
    "QHeaderView::section {border-width: 3;border-style: solid;"
    "border-image:url(:/gui/panel/border.png) 3 stretch;padding-left: 1em;}";

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

void main_window_form::build(QMainWindow *window)
{
    window->setObjectName("MainWindow");
    window->resize(800, 700);
    window->setMinimumSize(800, 600);
    window->setStyleSheet(window_sheet);
    window->setWindowTitle(tr("Kelvra"));

    centralWidget = add_widget(window, "centralWidget");
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHorizontalStretch(1);
    centralWidget->setSizePolicy(policy);
    build_bands();
    build_drop_area();
    build_panels();
    build_table();
    window->setCentralWidget(centralWidget);
}

orv::button_dark *main_window_form::make_small_button(const QString &tooltip, const QString &icon)
{
    return make_button(tooltip, small_button_size, icon);
}

orv::button_dark *main_window_form::make_header_button(const QString &tooltip, int width_px,
                                                       const QString &icon)
{
    orv::button_dark *button = make_button(tooltip, {width_px, header_button_height_px}, icon);
    button->set_skin("header");
    return button;
}

void main_window_form::lay_out_strip(QWidget *settings, QWidget *about, QWidget *help)
{
    QHBoxLayout *strip = make_row({10, 4, 10, 4}, spacing_px);
    strip->addWidget(settings);
    strip->addStretch(1);
    strip->addWidget(about);
    strip->addWidget(help);
    widget_info->setLayout(strip);
}

void main_window_form::lay_out_header(QWidget *fix_time, QWidget *undo)
{
    auto *logo = new orv::picture_widget;
    logo->setFixedSize(logo_size);
    logo->setStyleSheet(logo_sheet);

    auto *header = new orv::picture_widget;
    header->setObjectName("header");
    header->setStyleSheet(header_sheet);
    QHBoxLayout *row = make_row({0, 5, 20, 5}, spacing_px);
    row->addSpacing(header_indent_px);
    row->addWidget(fix_time);
    row->addWidget(undo);
    row->addStretch(1);
    row->addWidget(logo);
    header->setLayout(row);

    QHBoxLayout *frame = make_row({0, 0, 0, 0}, 0);
    frame->addWidget(header);
    widget_logo->setLayout(frame);
    widget_logo->setFixedHeight(header_height_px);
}

void main_window_form::lay_out_controls(QWidget *load_images, QWidget *reset)
{
    QHBoxLayout *controls = make_row({12, 0, 12, 0}, spacing_px);
    controls->addStretch(1);
    controls->addWidget(load_images);
    controls->addWidget(reset);
    controls->addStretch(1);
    dropper_controls->setLayout(controls);
}

void main_window_form::show_drop_picture(const QString &language)
{
    widget->setStyleSheet(QString(drop_picture_sheet).arg(language));
}

void main_window_form::style_table()
{
    QHeaderView *header = tableView->horizontalHeader();
    QStyle *header_style = QStyleFactory::create("fusion");
    header_style->setParent(header);
    header->setStyle(header_style);
    header->setStyleSheet(table_header_sheet);
    tableView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    orv::skin_scroll_bars(tableView);
}

void main_window_form::build_bands()
{
    gridLayout = add_tight_grid(centralWidget, "gridLayout");

    widget_logo = add_widget(centralWidget, "widget_logo");
    widget_logo->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    widget_logo->setMinimumHeight(97);
    gridLayout->addWidget(widget_logo, 2, 0);

    widget_info = add_widget(centralWidget, "widget_info");
    widget_info->setMinimumHeight(10);
    widget_info->setStyleSheet(info_sheet);
    gridLayout->addWidget(widget_info, 1, 0);

    widget_content = add_widget(centralWidget, "widget_content");
    widget_content->setStyleSheet(content_sheet);
    gridLayout->addWidget(widget_content, 3, 0);
    gridLayout_2 = add_tight_grid(widget_content, "gridLayout_2");
}

void main_window_form::build_drop_area()
{
    widget_dropper = add_widget<drop_files_widget>(widget_content, "widget_dropper");
    widget_dropper->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    widget_dropper->setMinimumSize(300, 215);
    widget_dropper->setAcceptDrops(true);
    gridLayout_2->addWidget(widget_dropper, 0, 1, 4, 1);
    verticalLayout = new QVBoxLayout(widget_dropper);
    verticalLayout->setObjectName("verticalLayout");
    verticalLayout->setSpacing(0);
    verticalLayout->setContentsMargins(0, 0, 0, 40);

    widget = add_widget<orv::picture_widget>(widget_dropper, "widget");
    verticalLayout->addWidget(widget);
    verticalLayout_2 = new QVBoxLayout(widget);
    verticalLayout_2->setObjectName("verticalLayout_2");
    verticalLayout_2->setSpacing(6);
    verticalLayout_2->setContentsMargins(11, 11, 11, 11);

    verticalLayout_2->addItem(new QSpacerItem(20, 20, QSizePolicy::Minimum, QSizePolicy::Fixed));
    dropper_controls = add_widget(widget, "dropper_controls");
    dropper_controls->setStyleSheet(controls_sheet);
    verticalLayout_2->addWidget(dropper_controls);
    verticalLayout_2->addItem(
        new QSpacerItem(20, 40, QSizePolicy::Minimum, QSizePolicy::Expanding));
}

/// The Tab key moves through the fields first, then through the formats: in the order of creation,
/// since the panels take no focus themselves. The style sheet set here replaces the one that each
/// panel sets on itself.
void main_window_form::build_panels()
{
    widget_time_adjust = add_widget<time_adjustment>(widget_content, "widget_time_adjust");
    widget_time_adjust->setMinimumHeight(71);
    widget_time_adjust->setStyleSheet(panel_sheet);
    gridLayout_2->addWidget(widget_time_adjust, 1, 2);

    widget_datetime_format = add_widget<datetime_format>(widget_content, "widget_datetime_format");
    widget_datetime_format->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    widget_datetime_format->setMinimumHeight(144);
    widget_datetime_format->setStyleSheet(panel_sheet);
    gridLayout_2->addWidget(widget_datetime_format, 2, 2);
}

void main_window_form::build_table()
{
    tableView = add_widget<photo_table>(widget_content, "tableView");
    tableView->setFocusPolicy(Qt::NoFocus);
    tableView->setStyleSheet(table_sheet);
    tableView->setFrameShape(QFrame::NoFrame);
    tableView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    tableView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tableView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tableView->setTabKeyNavigation(false);
    tableView->setProperty("showDropIndicator", false);
    tableView->setAlternatingRowColors(true);
    tableView->setSelectionMode(QAbstractItemView::NoSelection);
    tableView->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    tableView->setShowGrid(false);
    tableView->setSortingEnabled(true);
    tableView->setWordWrap(false);
    tableView->setCornerButtonEnabled(false);
    tableView->verticalHeader()->setVisible(false);
    gridLayout_2->addWidget(tableView, 4, 1, 1, 2);
}
