// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_screens.h"

#include "dialog_settings.h"
#include "orv/clickable_label.h"
#include "orv/combobox.h"
#include "orv/dialog_3rd_part_lib_info.h"
#include "orv/dialog_about.h"
#include "orv/message_box.h"
#include "report_keys.h"
#include "when_modal.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QHelpEvent>
#include <QSettings>
#include <QTableView>

namespace
{

/// Loads photos for each kind of row, and enters a shift.
void fill_window(fake_tool_window &app)
{
    const QString dated =
        app.make_photo("IMG_2041.JPG", {"ExifIFD:DateTimeOriginal=2026:08:14 15:10:21"});
    const QString with_zone = app.make_photo(
        "P1080317 - Grüße.JPG", {"ExifIFD:DateTimeOriginal=2026:08:14 13:10:48",
                                 "IPTC:DateCreated=2026:08:14", "IPTC:TimeCreated=13:10:48+05:45"});
    drop_photos(*app.window, {dated, with_zone, app.make_photo("Map.JPG", {})});
    type_shift(*app.window, "hour", "1");
    type_shift(*app.window, "minute", "30");
    type_shift(*app.window, "timezone", "2");
}

void open_empty_window(fake_tool_window &app, const screen_visit &visit)
{
    visit(*app.window);
}

void open_filled_window(fake_tool_window &app, const screen_visit &visit)
{
    fill_window(app);
    visit(*app.window);
}

void open_resized_window(fake_tool_window &app, QSize size, const screen_visit &visit)
{
    fill_window(app);
    app.window->resize(size);
    if (!QTest::qWaitFor([&] { return app.window->size() == size; }))
        qFatal("the window doesn't take the size");
    visit(*app.window);
}

void open_small_window(fake_tool_window &app, const screen_visit &visit)
{
    open_resized_window(app, app.window->minimumSize(), visit);
}

void open_large_window(fake_tool_window &app, const screen_visit &visit)
{
    open_resized_window(app, {1920, 1080}, visit);
}

void open_sorted_window(fake_tool_window &app, const screen_visit &visit)
{
    fill_window(app);
    app.window->ui->tableView->sortByColumn(table_data_model::recording_time_column,
                                            Qt::DescendingOrder);
    visit(*app.window);
}

/// Moves it repeatedly, since a window manager may still move the window.
bool move_mouse_over(QWidget *button)
{
    return QTest::qWaitFor([button] {
        QTest::mouseMove(button->window(), {1, 1});
        QTest::mouseMove(button);
        return button->underMouse();
    });
}

void open_hovered_button(fake_tool_window &app, const screen_visit &visit)
{
    if (!move_mouse_over(app.window->button_fix_time))
        qFatal("the mouse isn't over the button");
    visit(*app.window->button_fix_time);
    QTest::mouseMove(app.window.get(), {1, 1});
}

void open_pressed_button(fake_tool_window &app, const screen_visit &visit)
{
    QTest::mousePress(app.window->button_reset, Qt::LeftButton);
    visit(*app.window->button_reset);
    QTest::mouseRelease(app.window->button_reset, Qt::LeftButton);
}

void open_disabled_button(fake_tool_window &app, const screen_visit &visit)
{
    if (!app.window->button_undo->isEnabled())
        visit(*app.window->button_undo);
}

QWidget *shown_tip()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->inherits("QTipLabel"))
            return widget;
    }
    return nullptr;
}

void open_tip(QWidget *widget, const screen_visit &visit)
{
    const QPoint middle = widget->rect().center();
    QHelpEvent help(QEvent::ToolTip, middle, widget->mapToGlobal(middle));
    QCoreApplication::sendEvent(widget, &help);
    if (QWidget *tip = shown_tip()) {
        visit(*tip);
        tip->close();
    }
}

void open_tip_of_a_button(fake_tool_window &app, const screen_visit &visit)
{
    open_tip(app.window->button_fix_time, visit);
}

void open_tip_of_the_shift(fake_tool_window &app, const screen_visit &visit)
{
    open_tip(shift_field(*app.window, "hour"), visit);
}

void open_settings(fake_tool_window &app, const screen_visit &visit)
{
    const when_modal<dialog_settings> user([&visit](dialog_settings &dialog) { visit(dialog); });
    click(app.window->button_settings);
}

void open_languages(fake_tool_window &app, const screen_visit &visit)
{
    const when_modal<dialog_settings> user([&visit](dialog_settings &dialog) {
        auto *box = dialog.findChild<orv::combobox *>();
        click(box);
        visit(*box->view()->window());
        box->hidePopup();
    });
    click(app.window->button_settings);
}

/// Picks the language that isn't current.
void pick_other_language(dialog_settings &dialog)
{
    auto *box = dialog.findChild<orv::combobox *>();
    QTest::keyClick(box, box->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
}

void open_language_question(fake_tool_window &app, const screen_visit &visit)
{
    std::unique_ptr<when_modal<orv::message_box>> question;
    const when_modal<dialog_settings> user([&](dialog_settings &dialog) {
        pick_other_language(dialog);
        dialog.close();
        question = std::make_unique<when_modal<orv::message_box>>([&](orv::message_box &box) {
            visit(box);
            click(box.button(QMessageBox::Yes));
        });
    });
    click(app.window->button_settings);
}

void open_about(fake_tool_window &app, const screen_visit &visit)
{
    const when_modal<orv::dialog_about> user(
        [&visit](orv::dialog_about &dialog) { visit(dialog); });
    click(app.window->button_about);
}

void open_libraries(fake_tool_window &app, const screen_visit &visit)
{
    using library_dialog = orv::dialog_3rd_part_lib_info;
    const when_modal<orv::dialog_about> user([&visit](orv::dialog_about &dialog) {
        const when_modal<library_dialog> reader([&visit](library_dialog &list) { visit(list); });
        click(dialog.findChild<orv::clickable_label *>());
    });
    click(app.window->button_about);
}

void open_report(fake_tool_window &app, const screen_visit &visit)
{
    const when_modal<orv::message_box> user([&visit](orv::message_box &box) { visit(box); });
    press_keys(app.window.get(), Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
}

void open_file_dialog(fake_tool_window &app, const screen_visit &visit)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const when_modal<QFileDialog> user([&visit](QFileDialog &dialog) { visit(dialog); });
    click(app.window->button_load_images);
}

/// Visits the dialog when the batch reaches its end, where it is always painted.
void watch_end(progress_watch &watch, orv::progress_dialog *dialog, int steps,
               const screen_visit &visit)
{
    watch.at(steps, [dialog, &visit] {
        if (dialog->isVisible())
            visit(*dialog);
    });
}

void open_load_progress(fake_tool_window &app, const screen_visit &visit)
{
    progress_watch watch(*app.window->progress_load);
    watch_end(watch, app.window->progress_load, 2, visit);
    drop_photos(*app.window, {app.make_photo("a.jpg", {}), app.make_photo("b.jpg", {})});
}

void open_fix_progress(fake_tool_window &app, const screen_visit &visit)
{
    const QStringList tags = {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"};
    drop_photos(*app.window, {app.make_photo("a.jpg", tags), app.make_photo("b.jpg", tags)});
    progress_watch watch(*app.window->progress_fix);
    watch_end(watch, app.window->progress_fix, 2, visit);
    click(app.window->button_fix_time);
}

void open_box_of_a_fix(fake_tool_window &app, const screen_visit &visit)
{
    const when_modal<orv::message_box> user([&visit](orv::message_box &box) { visit(box); });
    click(app.window->button_fix_time);
}

void open_zone_warning(fake_tool_window &app, const screen_visit &visit)
{
    app.load_photo("a.jpg",
                   {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00", "IPTC:DateCreated=2017:05:03"});
    open_box_of_a_fix(app, visit);
}

void open_early_warning(fake_tool_window &app, const screen_visit &visit)
{
    app.load_dated_photo("a.jpg", "1971:12:31 23:59:59");
    open_box_of_a_fix(app, visit);
}

/// Runs a fix in which none of these photos can be written.
void open_box_of_failures(fake_tool_window &app, const QStringList &names,
                          const screen_visit &visit)
{
    QStringList paths;
    for (const QString &name : names) {
        paths << app.make_photo(name, {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
        app.tool.refuse_writes(name);
    }
    drop_photos(*app.window, paths);
    open_box_of_a_fix(app, visit);
}

void open_failure_box(fake_tool_window &app, const screen_visit &visit)
{
    open_box_of_failures(app, {"P1080318.JPG", "P1080320 - Grüße aus dem Urlaub.JPG"}, visit);
}

/// More names than the screen has lines, one of them wider than the screen.
void open_large_failure_box(fake_tool_window &app, const screen_visit &visit)
{
    QStringList names(QString(200, 'x') + ".JPG");
    for (int number = 100; number < 200; ++number)
        names << QString("P1080%1 - Grüße aus dem Urlaub.JPG").arg(number);
    open_box_of_failures(app, names, visit);
}

}  // namespace

const std::vector<program_screen> program_screens = {
    {"empty window", open_empty_window},
    {"window with photos", open_filled_window},
    {"window at its smallest", open_small_window},
    {"window on a large screen", open_large_window},
    {"window sorted by time", open_sorted_window},
    {"hovered button", open_hovered_button},
    {"pressed button", open_pressed_button},
    {"disabled button", open_disabled_button},
    {"tool tip of a button", open_tip_of_a_button},
    {"tool tip of the shift", open_tip_of_the_shift},
    {"settings", open_settings},
    {"languages", open_languages},
    {"language question", open_language_question},
    {"about", open_about},
    {"libraries", open_libraries},
    {"report", open_report},
    {"file dialog", open_file_dialog},
    {"load progress", open_load_progress},
    {"fix progress", open_fix_progress},
    {"zone warning", open_zone_warning},
    {"early warning", open_early_warning},
    {"failure box", open_failure_box},
    {"large failure box", open_large_failure_box},
};

void add_screen_rows(const QString &left_out)
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<program_screen>("screen");
    for (const char *language : {"en", "de"}) {
        for (const program_screen &screen : program_screens) {
            if (screen.name != left_out)
                QTest::newRow(qPrintable(QString("%1, %2").arg(language, screen.name)))
                    << language << screen;
        }
    }
}

void open_screen(const program_screen &screen, fake_tool_window &app, const screen_visit &visit)
{
    bool came_up = false;
    screen.open(app, [&](QWidget &shown) {
        came_up = QTest::qWaitForWindowExposed(shown.window()) && !shown.grab().isNull();
        visit(shown);
    });
    if (!came_up)
        qFatal("no %s came up", screen.name);
}

language_run::language_run(fake_tool_window &new_app, const QString &language) : app(new_app)
{
    app.start();
    QSettings().setValue("lang", language);
    if (language == "de")
        catalogues = std::make_unique<german_catalogues>();
    close_window(app.window);
    app.window = open_window();
    app.tool.forget();
}
