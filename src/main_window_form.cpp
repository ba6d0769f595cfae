// SPDX-License-Identifier: GPL-3.0-or-later

#include "main_window_form.h"

#include "MainWindow.h"
#include "datetime_format.h"
#include "drop_files_widget.h"
#include "orv/picture_widget.h"
#include "photo_table.h"
#include "time_adjustment.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QSpacerItem>
#include <QTableView>
#include <QVBoxLayout>

namespace
{

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

template <class Widget>
Widget *add_widget(QWidget *parent, const char *name)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(name);
    return widget;
}

QGridLayout *add_tight_grid(QWidget *widget, const char *name)
{
    auto *grid = new QGridLayout(widget);
    grid->setObjectName(name);
    grid->setSpacing(0);
    grid->setContentsMargins(0, 0, 0, 0);
    return grid;
}

}  // namespace

void main_window_form::build(MainWindow *window)
{
    window->setObjectName("MainWindow");
    window->resize(800, 700);
    window->setMinimumSize(800, 600);
    window->setStyleSheet(window_sheet);
    window->setWindowTitle(MainWindow::tr("Kelvra"));

    centralWidget = add_widget<QWidget>(window, "centralWidget");
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHorizontalStretch(1);
    centralWidget->setSizePolicy(policy);
    build_bands();
    build_drop_area();
    build_panels();
    build_table();
    window->setCentralWidget(centralWidget);
}

void main_window_form::build_bands()
{
    gridLayout = add_tight_grid(centralWidget, "gridLayout");

    widget_logo = add_widget<QWidget>(centralWidget, "widget_logo");
    widget_logo->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    widget_logo->setMinimumHeight(97);
    gridLayout->addWidget(widget_logo, 2, 0);

    widget_info = add_widget<QWidget>(centralWidget, "widget_info");
    widget_info->setMinimumHeight(10);
    widget_info->setStyleSheet(info_sheet);
    gridLayout->addWidget(widget_info, 1, 0);

    widget_content = add_widget<QWidget>(centralWidget, "widget_content");
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
    dropper_controls = add_widget<QWidget>(widget, "dropper_controls");
    dropper_controls->setStyleSheet(controls_sheet);
    verticalLayout_2->addWidget(dropper_controls);
    verticalLayout_2->addItem(
        new QSpacerItem(20, 40, QSizePolicy::Minimum, QSizePolicy::Expanding));
}

/// The tab key goes through the fields first, then through the formats: in the order in which they
/// are made, since the panels take no focus themselves. The window's sheet for the panels replaces
/// the one that each panel gives itself.
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
