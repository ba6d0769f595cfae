// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button.h"
#include "widget_test_main.h"

#include <QAbstractEventDispatcher>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QWindow>

#include <memory>

using orv::button;
using making = std::unique_ptr<button> (*)(QWidget *);

Q_DECLARE_METATYPE(making)
Q_DECLARE_METATYPE(Qt::MouseButton)

namespace
{

constexpr int flash_ms = 200;
constexpr char calm_sheet[] = "border:none;margin:2px 2px 2px 2px;";
constexpr char flash_sheet[] = "border:2px solid rgb(222,222,222);margin:0px 0px 0px 0px;";

const QColor frame_colour(222, 222, 222);

/// The timers that wait to end a flash, the oldest first. Single-shot timers are children of the
/// event dispatcher.
QObjectList pending_flashes()
{
    auto *dispatcher = QAbstractEventDispatcher::instance();
    QObjectList pending;
    for (QObject *child : dispatcher->children()) {
        const auto timers = dispatcher->registeredTimers(child);
        if (!timers.isEmpty() && timers.first().interval == flash_ms)
            pending << child;
    }
    return pending;
}

/// Makes a timer fire now.
void run_out(QObject *timer)
{
    QTimerEvent event(
        QAbstractEventDispatcher::instance()->registeredTimers(timer).first().timerId);
    QCoreApplication::sendEvent(timer, &event);
}

/// A button in the middle of a visible window.
struct shown_button {
    explicit shown_button(std::unique_ptr<button> made) : owned(std::move(made)), flash(*owned)
    {
        window.resize(200, 120);
        flash.setParent(&window);
        flash.setGeometry(50, 40, 80, 40);
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("the window is not shown");
    }

    shown_button() : shown_button(std::make_unique<button>("text", nullptr)) {}

    explicit shown_button(const QRect &rect) : shown_button(std::make_unique<button>(nullptr, rect))
    {
    }

    /// Positions are relative to the window, which also gets the events.
    void press(QPoint place, Qt::MouseButton which = Qt::LeftButton)
    {
        QTest::mousePress(window.windowHandle(), which, {}, place);
    }

    void release(QPoint place, Qt::MouseButton which = Qt::LeftButton)
    {
        QTest::mouseRelease(window.windowHandle(), which, {}, place);
    }

    void click()
    {
        press(middle);
        release(middle);
    }

    QImage picture() { return flash.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    const QPoint middle = {90, 60};
    QWidget window;
    std::unique_ptr<button> owned;
    button &flash;
};

/// Counts how often a widget is painted.
class paint_counter : public QObject
{
public:
    explicit paint_counter(QWidget &watched) { watched.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int paints = 0;
};

std::unique_ptr<button> with_text(QWidget *parent)
{
    return std::make_unique<button>("text", parent);
}

std::unique_ptr<button> without_rectangle(QWidget *parent)
{
    return std::make_unique<button>(parent, QRect());
}

/// A picture with the rectangle of a flash painted on it.
QImage framed(QImage picture, const QRect &rect)
{
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(frame_colour, 2));
    painter.drawRect(rect);
    return picture;
}

}  // namespace

class test_button : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void starts_without_a_flash_data();
    void starts_without_a_flash();
    void rectangle_shrinks_at_the_left_and_the_top();
    void sheet_changes_for_the_flash_and_is_restored_data();
    void sheet_changes_for_the_flash_and_is_restored();
    void flash_lasts_a_fifth_of_a_second();
    void other_declarations_of_the_sheet_are_kept();
    void flash_shows_a_frame_up_to_the_edge();
    void valid_rectangle_keeps_the_sheet_data();
    void valid_rectangle_keeps_the_sheet();
    void rectangle_is_painted_while_it_flashes();
    void invalid_rectangle_is_not_painted();
    void both_ends_of_the_flash_are_painted_on_screen();
    void release_counts_wherever_it_happens_data();
    void release_counts_wherever_it_happens();
    void release_counts_for_each_mouse_button_data();
    void release_counts_for_each_mouse_button();
    void signals_come_in_order_data();
    void signals_come_in_order();
    void flash_shows_already_when_the_signals_come();
    void stays_down_after_the_release();
    void second_click_does_not_prolong_the_flash();
    void click_while_it_flashes_keeps_the_sheet();
    void flash_can_be_ended_by_the_slots_name();
    void takes_no_focus();
};

/// The timers outlive their buttons.
void test_button::cleanup()
{
    for (QObject *timer : pending_flashes())
        run_out(timer);
    QVERIFY(pending_flashes().isEmpty());
}

void test_button::starts_without_a_flash_data()
{
    QTest::addColumn<making>("make");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("with a text") << making(with_text) << "text" << QRect();
    QTest::newRow("with a rectangle") << making([](QWidget *parent) {
        return std::make_unique<button>(parent, QRect(0, 0, 9, 9));
    }) << "" << QRect(QPoint(4, 4), QPoint(9, 9));
}

void test_button::starts_without_a_flash()
{
    QFETCH(making, make);
    QFETCH(QString, text);
    QFETCH(QRect, rect);
    QWidget parent;
    const auto made = make(&parent);
    QCOMPARE(made->parentWidget(), &parent);
    QCOMPARE(made->text(), text);
    QCOMPARE(made->styleSheet(), QString(calm_sheet));
    QCOMPARE(made->focusPolicy(), Qt::NoFocus);
    QVERIFY(!made->highlight);
    QCOMPARE(made->highlight_rect, rect);
    QCOMPARE(made->metaObject()->className(), "orv::button");
}

void test_button::rectangle_shrinks_at_the_left_and_the_top()
{
    const button made(nullptr, QRect(QPoint(10, 20), QPoint(50, 70)));
    QCOMPARE(made.highlight_rect.topLeft(), QPoint(14, 24));
    QCOMPARE(made.highlight_rect.bottomRight(), QPoint(51, 71));
}

void test_button::sheet_changes_for_the_flash_and_is_restored_data()
{
    QTest::addColumn<making>("make");
    QTest::newRow("with a text") << making(with_text);
    QTest::newRow("without a rectangle") << making(without_rectangle);
}

void test_button::sheet_changes_for_the_flash_and_is_restored()
{
    QFETCH(making, make);
    shown_button shown(make(nullptr));
    for (int i = 0; i < 2; ++i) {
        shown.press(shown.middle);
        QVERIFY(!shown.flash.highlight);
        QCOMPARE(shown.flash.styleSheet(), QString(calm_sheet));
        shown.release(shown.middle);
        QVERIFY(shown.flash.highlight);
        QCOMPARE(shown.flash.styleSheet(), QString(flash_sheet));
        QTRY_VERIFY(!shown.flash.highlight);
        QCOMPARE(shown.flash.styleSheet(), QString(calm_sheet));
    }
}

void test_button::flash_lasts_a_fifth_of_a_second()
{
    shown_button shown;
    QVERIFY(pending_flashes().isEmpty());
    shown.press(shown.middle);
    QVERIFY(pending_flashes().isEmpty());
    shown.release(shown.middle);
    QCOMPARE(pending_flashes().size(), 1);
    QTRY_VERIFY(!shown.flash.highlight);
    QVERIFY(pending_flashes().isEmpty());
}

void test_button::other_declarations_of_the_sheet_are_kept()
{
    shown_button shown;
    shown.flash.setStyleSheet("color:red;margin:7px;padding:1px;");
    shown.click();
    QCOMPARE(shown.flash.styleSheet(), QString("color:red;margin:0px 0px 0px 0px;padding:1px;"
                                               "border:2px solid rgb(222,222,222);"));
    QTRY_VERIFY(!shown.flash.highlight);
    QCOMPARE(shown.flash.styleSheet(),
             QString("color:red;margin:2px 2px 2px 2px;padding:1px;border:none;"));
}

void test_button::flash_shows_a_frame_up_to_the_edge()
{
    shown_button shown;
    shown.click();
    const QImage flashing = shown.picture();
    QTRY_VERIFY(!shown.flash.highlight);
    const QImage calm = shown.picture();
    for (const QPoint &place : {QPoint(0, 20), QPoint(1, 20), QPoint(78, 20), QPoint(79, 20),
                                QPoint(40, 0), QPoint(40, 1), QPoint(40, 38), QPoint(40, 39)}) {
        QCOMPARE(flashing.pixelColor(place), frame_colour);
        QVERIFY(calm.pixelColor(place) != frame_colour);
    }
}

void test_button::valid_rectangle_keeps_the_sheet_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("valid");
    QTest::newRow("a rectangle") << QRect(QPoint(4, 5), QPoint(30, 20)) << true;
    QTest::newRow("a single pixel") << QRect(QPoint(4, 5), QPoint(4, 5)) << true;
    QTest::newRow("a rectangle left of the button")
        << QRect(QPoint(-30, -20), QPoint(-4, -5)) << true;
    QTest::newRow("null rectangle") << QRect(QPoint(0, 0), QPoint(-1, -1)) << false;
    QTest::newRow("left greater than right") << QRect(QPoint(5, 4), QPoint(4, 20)) << false;
    QTest::newRow("top greater than bottom") << QRect(QPoint(4, 5), QPoint(20, 4)) << false;
}

void test_button::valid_rectangle_keeps_the_sheet()
{
    QFETCH(QRect, rect);
    QFETCH(bool, valid);
    shown_button shown;
    shown.flash.highlight_rect = rect;
    shown.flash.setStyleSheet("border:5px solid red;");
    shown.click();
    QVERIFY(shown.flash.highlight);
    QCOMPARE(shown.flash.styleSheet(),
             QString(valid ? "border:5px solid red;"
                           : "border:2px solid rgb(222,222,222);margin:0px 0px 0px 0px;"));
    QTRY_VERIFY(!shown.flash.highlight);
    QCOMPARE(shown.flash.styleSheet(),
             QString(valid ? "border:5px solid red;" : "border:none;margin:2px 2px 2px 2px;"));
}

void test_button::rectangle_is_painted_while_it_flashes()
{
    shown_button shown(QRect(0, 0, 70, 30));
    shown.flash.setText("text");
    shown.click();
    QVERIFY(shown.flash.highlight);
    const QImage flashing = shown.picture();
    QTRY_VERIFY(!shown.flash.highlight);
    const QImage calm = shown.picture();
    QCOMPARE(flashing, framed(calm, QRect(QPoint(4, 4), QPoint(70, 30))));
    for (const QPoint &place : {QPoint(3, 15), QPoint(4, 15), QPoint(70, 15), QPoint(71, 15),
                                QPoint(40, 3), QPoint(40, 4), QPoint(40, 30), QPoint(40, 31)}) {
        QCOMPARE(flashing.pixelColor(place), frame_colour);
        QVERIFY(calm.pixelColor(place) != frame_colour);
    }
    QCOMPARE(flashing.pixelColor(2, 15), calm.pixelColor(2, 15));
    QCOMPARE(flashing.pixelColor(5, 15), calm.pixelColor(5, 15));
}

void test_button::invalid_rectangle_is_not_painted()
{
    shown_button shown;
    shown.flash.highlight_rect = QRect(QPoint(40, 10), QPoint(20, 30));
    const QImage calm = shown.picture();
    shown.flash.highlight = true;
    QCOMPARE(shown.picture(), calm);
}

void test_button::both_ends_of_the_flash_are_painted_on_screen()
{
    shown_button shown(QRect(0, 0, 70, 30));
    shown.press(shown.middle);
    QCoreApplication::processEvents();
    paint_counter counter(shown.flash);
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
    shown.release(shown.middle);
    QTRY_VERIFY(counter.paints > 0);
    QVERIFY(shown.flash.highlight);
    counter.paints = 0;
    QTRY_VERIFY(!shown.flash.highlight);
    QTRY_VERIFY(counter.paints > 0);
}

void test_button::release_counts_wherever_it_happens_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("on the button") << QPoint(60, 50);
    QTest::newRow("beside the button") << QPoint(10, 10);
    QTest::newRow("outside of the window") << QPoint(-300, -200);
}

void test_button::release_counts_wherever_it_happens()
{
    QFETCH(QPoint, place);
    shown_button shown;
    QSignalSpy clicked(&shown.flash, &button::clicked);
    shown.press(shown.middle);
    QTest::mouseMove(shown.window.windowHandle(), place);
    QCOMPARE(clicked.size(), 0);
    shown.release(place);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(shown.flash.highlight);
}

void test_button::release_counts_for_each_mouse_button_data()
{
    QTest::addColumn<Qt::MouseButton>("which");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void test_button::release_counts_for_each_mouse_button()
{
    QFETCH(Qt::MouseButton, which);
    shown_button shown;
    QSignalSpy clicked(&shown.flash, &button::clicked);
    shown.press(shown.middle, which);
    QCOMPARE(clicked.size(), 0);
    shown.release(shown.middle, which);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(shown.flash.highlight);
}

void test_button::signals_come_in_order_data()
{
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<bool>("checked");
    QTest::newRow("plain") << false << false;
    QTest::newRow("checkable is not checked by it") << true << false;
    QTest::newRow("checked stays checked") << true << true;
}

void test_button::signals_come_in_order()
{
    QFETCH(bool, checkable);
    QFETCH(bool, checked);
    shown_button shown;
    shown.flash.setCheckable(checkable);
    shown.flash.setChecked(checked);
    QStringList sent;
    const auto note = [&](const char *name, bool value) {
        sent << QString(name) + (value ? " true" : " false");
    };
    connect(&shown.flash, &button::pressed, this, [&] { sent << "pressed"; });
    connect(&shown.flash, &button::clicked, this, [&](bool value) { note("clicked", value); });
    connect(&shown.flash, &button::released, this, [&] { sent << "released"; });
    connect(&shown.flash, &button::toggled, this, [&](bool value) { note("toggled", value); });
    shown.press(shown.middle);
    QCOMPARE(sent, QStringList{"pressed"});
    shown.release(shown.middle);
    QCOMPARE(sent, QStringList({"pressed", "clicked false", "released",
                                checked ? "toggled true" : "toggled false"}));
    QCOMPARE(shown.flash.isChecked(), checked);
}

void test_button::flash_shows_already_when_the_signals_come()
{
    shown_button shown;
    bool highlighted = false;
    QString sheet;
    int timers = 0;
    connect(&shown.flash, &button::clicked, this, [&] {
        highlighted = shown.flash.highlight;
        sheet = shown.flash.styleSheet();
        timers = pending_flashes().size();
    });
    shown.click();
    QVERIFY(highlighted);
    QCOMPARE(sheet, QString(flash_sheet));
    QCOMPARE(timers, 1);
}

void test_button::stays_down_after_the_release()
{
    shown_button shown;
    QVERIFY(!shown.flash.isDown());
    shown.click();
    QVERIFY(shown.flash.isDown());
    QTRY_VERIFY(!shown.flash.highlight);
    QVERIFY(shown.flash.isDown());
}

void test_button::second_click_does_not_prolong_the_flash()
{
    shown_button shown;
    shown.click();
    shown.click();
    const QObjectList timers = pending_flashes();
    QCOMPARE(timers.size(), 2);
    run_out(timers.first());
    QVERIFY(!shown.flash.highlight);
    QCOMPARE(shown.flash.styleSheet(), QString(calm_sheet));
    QCOMPARE(pending_flashes(), timers.mid(1));
    // The second timer now ends a different flash.
    shown.flash.highlight = true;
    QTRY_VERIFY(!shown.flash.highlight);
    QCOMPARE(shown.flash.styleSheet(), QString(calm_sheet));
}

void test_button::click_while_it_flashes_keeps_the_sheet()
{
    shown_button shown;
    shown.click();
    shown.click();
    QCOMPARE(shown.flash.styleSheet(), QString(flash_sheet));
    QTRY_VERIFY(!shown.flash.highlight);
    QCOMPARE(shown.flash.styleSheet(), QString(calm_sheet));
}

void test_button::flash_can_be_ended_by_the_slots_name()
{
    shown_button shown;
    shown.click();
    QVERIFY(QMetaObject::invokeMethod(&shown.flash, "deaktivate_highlight"));
    QVERIFY(!shown.flash.highlight);
    QCOMPARE(shown.flash.styleSheet(), QString(calm_sheet));
}

void test_button::takes_no_focus()
{
    shown_button shown;
    QLineEdit field(&shown.window);
    field.show();
    shown.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&shown.window));
    field.setFocus();
    QVERIFY(field.hasFocus());
    shown.click();
    QVERIFY(shown.flash.highlight);
    QVERIFY(field.hasFocus());
    QTest::keyClick(&field, Qt::Key_Tab);
    QVERIFY(!shown.flash.hasFocus());
}

KELVRA_WIDGET_TEST_MAIN(test_button)
#include "test_button.moc"
