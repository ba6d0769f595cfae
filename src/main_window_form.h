// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QString>

class QGridLayout;
class QMainWindow;
class QTableView;
class QVBoxLayout;
class QWidget;
class datetime_format;
class drop_files_widget;
class time_adjustment;

namespace orv
{
class button_dark;
}

/// The layout and style of the main window, and its widgets except the buttons. The window owns
/// them; their object names are the names of the fields.
struct main_window_form {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    static constexpr int square_button_px = 46;
    static constexpr int wide_button_px = 120;

    /// Builds everything inside `window`.
    void build(QMainWindow *window);

    /// Make buttons without a parent; the functions below give them one.
    static orv::button_dark *make_small_button(const QString &tooltip, const QString &icon);
    static orv::button_dark *make_header_button(const QString &tooltip, int width_px,
                                                const QString &icon);

    /// Lay out the buttons of the strip, the header and the drop area. Requires: each is called
    /// only once.
    void lay_out_strip(QWidget *settings, QWidget *about, QWidget *help);
    void lay_out_header(QWidget *fix_time, QWidget *undo);
    void lay_out_controls(QWidget *load_images, QWidget *reset);

    /// Shows the picture of the drop area.
    /// @param language  "en" or "de": other languages have no picture
    void show_drop_picture(const QString &language);

    /// Styles the table's header and scroll bars.
    void style_table();

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
