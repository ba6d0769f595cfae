// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class MainWindow;
class QGridLayout;
class QTableView;
class QVBoxLayout;
class QWidget;
class datetime_format;
class drop_files_widget;
class time_adjustment;

/// The widgets of the main window but for its buttons. The window owns them; their object names are
/// those of the fields here.
struct main_window_form {
    /// Builds everything inside of `window`.
    void build(MainWindow *window);

    QWidget *centralWidget = nullptr;
    QGridLayout *gridLayout = nullptr;
    QWidget *widget_logo = nullptr;
    QWidget *widget_info = nullptr;
    QWidget *widget_content = nullptr;
    QGridLayout *gridLayout_2 = nullptr;
    drop_files_widget *widget_dropper = nullptr;
    QVBoxLayout *verticalLayout = nullptr;
    QWidget *widget = nullptr;
    QVBoxLayout *verticalLayout_2 = nullptr;
    QWidget *dropper_controls = nullptr;
    datetime_format *widget_datetime_format = nullptr;
    QTableView *tableView = nullptr;
    time_adjustment *widget_time_adjust = nullptr;

private:
    void build_bands();
    void build_drop_area();
    void build_panels();
    void build_table();
};
