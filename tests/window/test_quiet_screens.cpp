// SPDX-License-Identifier: GPL-3.0-or-later

#include "captured_errors.h"
#include "message_collector.h"
#include "orv/button.h"
#include "orv/button_custom.h"
#include "orv/button_dark.h"
#include "orv/button_html.h"
#include "orv/checkbox.h"
#include "orv/combobox.h"
#include "orv/lineedit.h"
#include "orv/message_box.h"
#include "orv/panel.h"
#include "orv/radio.h"
#include "orv/skin_scroll_bars.h"
#include "program_screens.h"
#include "program_test_main.h"
#include "qor/qt/properties.h"
#include "qor/qt/widget_fold.h"
#include "startup/program_setup.h"
#include "when_modal.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include <functional>

using qor::qt::widget_fold;

namespace
{

/// What the platform without a display always reports about itself.
constexpr char platform_gap[] = "This plugin does not support ";

/// What Qt reported while `step` ran.
QStringList messages_of(const std::function<void()> &step)
{
    const message_collector collector;
    step();
    QStringList messages = collector.messages();
    for (int i = messages.size() - 1; i >= 0; --i) {
        if (messages[i].startsWith(platform_gap))
            messages.removeAt(i);
    }
    return messages;
}

void visit_nothing(QWidget &) {}

/// Shows and paints the widget, first as it is, then disabled.
void paint(QWidget &widget)
{
    widget.show();
    if (!QTest::qWaitForWindowExposed(&widget) || widget.grab().isNull())
        qFatal("the widget doesn't show");
    widget.setEnabled(false);
    QCoreApplication::processEvents();
    (void)widget.grab();
}

template <class Button>
void paint_button(Button &button)
{
    paint(button);
    button.setEnabled(true);
    button.setCheckable(true);
    button.setChecked(true);
    (void)button.grab();
    click(&button);
    (void)button.grab();
}

void paint_button_dark()
{
    orv::button_dark button("text", nullptr);
    button.set_tinted_icon(":/images/icon_undo.png", -1, -1, {}, {});
    button.set_tinted_checked_icon(":/images/icon_help.png", -1, -1, {}, {});
    button.set_text_align("left");
    button.set_flags(true, true, true);
    paint_button(button);
}

void paint_flash_button()
{
    orv::button button("text", nullptr);
    paint_button(button);
    button.deaktivate_highlight();
    (void)button.grab();
}

void paint_flash_button_of_a_rectangle()
{
    orv::button button(nullptr, QRect(2, 2, 20, 20));
    paint_button(button);
}

void paint_button_html()
{
    orv::button_html button("<b>rich</b> text", nullptr);
    paint_button(button);
}

void paint_empty_button_html()
{
    orv::button_html button(nullptr);
    paint_button(button);
}

void paint_button_custom()
{
    orv::button_custom button(nullptr, [](QPainter &painter) { painter.drawLine(0, 0, 9, 9); });
    paint_button(button);
}

void paint_checkbox()
{
    orv::checkbox box("text");
    paint_button(box);
}

void paint_radio()
{
    orv::radio button("text");
    button.setStyleSheet(orv::radio::sheet);
    paint_button(button);
}

void paint_lineedit()
{
    orv::lineedit edit("text");
    edit.setStyleSheet(orv::lineedit::sheet);
    edit.selectAll();
    paint(edit);
}

/// The box has more rows than its list shows at once.
void paint_combobox()
{
    orv::combobox box;
    box.setStyleSheet(orv::combobox::sheet);
    for (int row = 0; row < 100; ++row)
        box.addItem("text");
    box.show();
    box.showPopup();
    (void)box.view()->window()->grab();
    box.hidePopup();
    paint(box);
}

void paint_panel(const QString &suffix)
{
    orv::panel panel;
    panel.set_up(new QLabel("text"), suffix);
    paint(panel);
}

void paint_whole_panel()
{
    paint_panel(QString());
}

void paint_topless_panel()
{
    paint_panel("_topless");
}

void paint_scroll_bars()
{
    QScrollArea area;
    orv::skin_scroll_bars(&area);
    area.setWidget(new QLabel(QString(1000, 'x') + QString(100, '\n')));
    paint(area);
}

void paint_message_boxes()
{
    using box = orv::message_box;
    for (const auto icon : {box::NoIcon, box::Information, box::Warning, box::Critical}) {
        const when_modal<box> user([](box &shown) { (void)shown.grab(); });
        box::show_box(nullptr, icon, "title", "text", box::Ok | box::Cancel, 0);
    }
    const when_modal<box> user([](box &shown) { (void)shown.grab(); });
    box::question(nullptr, "title", "text", "yes", "no", "cancel", box::Cancel);
}

/// A section can only be made by a click within a layout of the kit.
void paint_widget_fold()
{
    QWidget window;
    auto *top = new qor::qt::layout(&window, 1, false);
    auto *panel = new QWidget(&window);
    auto *rows = new qor::qt::layout(panel, 1, false);
    auto *maker = new QPushButton("make", panel);
    widget_fold *section = nullptr;
    top->add(panel, {}, {qor::qt::properties::row_height(150)});
    const auto make_section = [&] {
        section = new widget_fold("title", nullptr, 0, 25);
        rows->add(section, {}, {qor::qt::properties::row_height(90)});
        section->content_layout->add(new QLabel("text"), {}, {});
        section->show();
    };
    rows->add(maker, make_section, {qor::qt::properties::row_height(30)});
    window.resize(400, 300);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        qFatal("the window doesn't show");
    click(maker);
    click(section->button);
    (void)window.grab();
    click(section->button);
    paint(window);
}

void set_broken_sheet(QWidget &widget)
{
    widget.setStyleSheet("QWidget { color: red");
}

void set_unknown_property(QWidget &widget)
{
    widget.setStyleSheet("QWidget { colour: red; }");
}

void set_missing_picture(QWidget &widget)
{
    widget.setStyleSheet("QWidget { background-image: url(:/none.png); }");
}

void add_second_layout(QWidget &widget)
{
    const QVBoxLayout first(&widget);
    const QVBoxLayout second(&widget);
}

void paint_on_nothing(QWidget &widget)
{
    QPainter painter(&widget);
}

}  // namespace

using widget_step = void (*)(QWidget &);
using kit_step = void (*)();

Q_DECLARE_METATYPE(widget_step)
Q_DECLARE_METATYPE(kit_step)

/// On no screen does Qt, or a library below it, report a problem.
class test_quiet_screens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void complaint_of_qt_is_noticed_data();
    void complaint_of_qt_is_noticed();
    void complaint_of_a_library_is_noticed();
    void screen_is_quiet_data() { add_screen_rows(); }
    void screen_is_quiet();
    void widget_of_the_toolkit_is_quiet_data();
    void widget_of_the_toolkit_is_quiet();
    void screens_write_nothing_to_the_standard_error();

private:
    fake_tool_window app;
};

void test_quiet_screens::initTestCase()
{
    install_style();
    install_icons();
}

void test_quiet_screens::complaint_of_qt_is_noticed_data()
{
    QTest::addColumn<widget_step>("step");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char *name, widget_step step, const char *complaint) {
        QTest::newRow(name) << step << complaint;
    };
    row("broken sheet", set_broken_sheet, "Could not parse stylesheet of object QWidget");
    row("unknown property", set_unknown_property, "Unknown property colour");
    row("missing picture", set_missing_picture, "Could not create pixmap from :");
    row("second layout", add_second_layout, "QLayout: Attempting to add QLayout");
    row("painting outside of a paint event", paint_on_nothing, "QWidget::paintEngine");
}

/// Shows that this test notices what Qt reports.
void test_quiet_screens::complaint_of_qt_is_noticed()
{
    QFETCH(widget_step, step);
    QFETCH(QString, complaint);
    const QStringList messages = messages_of([step] {
        QWidget widget;
        step(widget);
        paint(widget);
    });
    QVERIFY(!messages.isEmpty());
    QVERIFY2(messages.first().startsWith(complaint), qPrintable(messages.first()));
}

void test_quiet_screens::complaint_of_a_library_is_noticed()
{
    captured_errors errors;
    std::fputs("library: no such file\n", stderr);
    QCOMPARE(errors.text(), QByteArray("library: no such file\n"));
}

void test_quiet_screens::screen_is_quiet()
{
    QFETCH(QString, language);
    QFETCH(program_screen, screen);
    const QStringList messages = messages_of([&] {
        const language_run run(app, language);
        open_screen(screen, app, visit_nothing);
    });
    QCOMPARE(messages.join('\n'), QString());
}

void test_quiet_screens::widget_of_the_toolkit_is_quiet_data()
{
    QTest::addColumn<kit_step>("paint");
    const auto row = [](const char *name, kit_step paint) { QTest::newRow(name) << paint; };
    row("button_dark", paint_button_dark);
    row("button", paint_flash_button);
    row("button with a rectangle", paint_flash_button_of_a_rectangle);
    row("button_html", paint_button_html);
    row("button_html without a text", paint_empty_button_html);
    row("button_custom", paint_button_custom);
    row("checkbox", paint_checkbox);
    row("radio", paint_radio);
    row("lineedit", paint_lineedit);
    row("combobox", paint_combobox);
    row("panel", paint_whole_panel);
    row("topless panel", paint_topless_panel);
    row("scroll bars", paint_scroll_bars);
    row("message boxes", paint_message_boxes);
    row("widget_fold", paint_widget_fold);
}

void test_quiet_screens::widget_of_the_toolkit_is_quiet()
{
    QFETCH(kit_step, paint);
    QCOMPARE(messages_of(paint).join('\n'), QString());
}

/// Runs last, since it captures standard error: a crash shows its output in the tests before.
void test_quiet_screens::screens_write_nothing_to_the_standard_error()
{
    captured_errors errors;
    for (const program_screen &screen : program_screens) {
        const message_collector collector;
        const language_run run(app, "en");
        open_screen(screen, app, visit_nothing);
    }
    QCOMPARE(errors.text(), QByteArray());
}

KELVRA_PROGRAM_TEST_MAIN(test_quiet_screens)
#include "test_quiet_screens.moc"
