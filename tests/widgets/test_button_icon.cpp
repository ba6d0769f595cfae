// SPDX-License-Identifier: GPL-3.0-or-later

#include "isolated_program.h"
#include "orv/button_dark.h"
#include "picture_folder.h"
#include "widget_test_main.h"

#include <QPainter>

namespace
{

constexpr QRgb green = qRgb(0, 200, 0);
constexpr QRgb red = qRgb(200, 0, 0);
constexpr QRgb frame_grey = qRgb(129, 136, 133);

/// What the button's icon paints on a transparent background.
QImage painted_icon(orv::button_dark &button)
{
    QImage canvas(button.size(), QImage::Format_ARGB32);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    button.paint_callback_ex(painter, &button);
    return canvas;
}

/// The smallest rectangle that contains all pixels of the colour.
QRect place_of(QRgb rgb, const QImage &picture)
{
    QRect place;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == rgb)
                place |= QRect(x, y, 1, 1);
        }
    }
    return place;
}

}  // namespace

class test_button_icon : public QObject
{
    Q_OBJECT

private slots:
    void missing_picture_shows_nothing();
    void missing_picture_replaces_a_good_one();
    void icon_is_where_it_was_put_data();
    void icon_is_where_it_was_put();
    void offset_of_an_icon_larger_than_the_button_is_rounded_to_zero();
    void state_picks_the_colour_data();
    void state_picks_the_colour();
    void mouse_makes_the_icon_hot();
    void disabled_icon_has_half_the_alpha();
    void frame_shows_on_a_checked_button_data();
    void frame_shows_on_a_checked_button();
    void checked_icon_alternates_with_the_other();
    void checked_icon_alone_leaves_the_unchecked_button_empty();
    void icon_set_after_a_checked_one_replaces_both();
    void checked_icon_disables_the_checked_sheet();
    void tinted_setters_tint_their_own_icon();
    void foreign_button_ends_the_program();

private:
    picture_folder folder;
};

void test_button_icon::missing_picture_shows_nothing()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.set_icon(folder.missing_picture(), -1, -1, {}, {});
    QVERIFY(button.icon.image_normal->isNull());
    QVERIFY(button.icon.image_hot->isNull());
    QVERIFY(button.icon.image_disabled->isNull());
    QCOMPARE(button.icon.image_width, 0);
    QImage nothing(20, 20, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    QCOMPARE(painted_icon(button), nothing);
}

void test_button_icon::missing_picture_replaces_a_good_one()
{
    orv::button_dark button(nullptr);
    button.set_icon(folder.plain_picture({4, 4}), -1, -1, {}, {});
    button.set_tinted_icon(folder.missing_picture(), -1, -1, {}, {});
    QVERIFY(button.icon.image_normal->isNull());
    QCOMPARE(button.icon.image_width, 0);
}

void test_button_icon::icon_is_where_it_was_put_data()
{
    QTest::addColumn<QSize>("icon_size");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QRect>("place");
    // clang-format off
    QTest::newRow("centred, the odd pixel at the end") << QSize(16, 16) << QPoint(-1, -1)
                                                   << QRect(3, 3, 16, 16);
    QTest::newRow("at a place") << QSize(16, 16) << QPoint(5, 1) << QRect(5, 1, 16, 16);
    QTest::newRow("at the corner") << QSize(4, 4) << QPoint(0, 0) << QRect(0, 0, 4, 4);
    QTest::newRow("centred horizontally only") << QSize(5, 6) << QPoint(-1, 2) << QRect(9, 2, 5, 6);
    QTest::newRow("centred vertically only") << QSize(5, 6) << QPoint(2, -1) << QRect(2, 8, 5, 6);
    QTest::newRow("-2 is a place") << QSize(5, 6) << QPoint(-2, 0) << QRect(0, 0, 3, 6);
    // clang-format on
}

void test_button_icon::icon_is_where_it_was_put()
{
    QFETCH(QSize, icon_size);
    QFETCH(QPoint, position);
    QFETCH(QRect, place);
    orv::button_dark button(nullptr);
    button.setFixedSize(23, 23);
    button.set_icon(folder.plain_picture(icon_size), position.x(), position.y(), colour(red),
                    colour(green));
    QCOMPARE(place_of(green, button.grab().toImage()), place);
}

void test_button_icon::offset_of_an_icon_larger_than_the_button_is_rounded_to_zero()
{
    QImage image(26, 26, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setPixel(10, 12, qRgb(1, 2, 3));
    orv::button_dark button(nullptr);
    button.setFixedSize(23, 23);
    button.set_icon(folder.picture(image), -1, -1, colour(red), colour(green));
    QCOMPARE(place_of(green, painted_icon(button)), QRect(9, 11, 1, 1));
}

void test_button_icon::state_picks_the_colour_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("under_mouse");
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("hot_when_checked");
    QTest::addColumn<QRgb>("expected");
    const QRgb half_green = qRgba(0, 200, 0, 127);
    // clang-format off
    QTest::newRow("at rest") << true << false << false << false << true << green;
    QTest::newRow("under the mouse") << true << true << false << false << true << red;
    QTest::newRow("unchecked") << true << false << true << false << true << green;
    QTest::newRow("checked") << true << false << true << true << true << red;
    QTest::newRow("checked, but not hot when checked") << true << false << true << true << false << green;
    QTest::newRow("checked, not hot, under the mouse") << true << true << true << true << false
                                                       << red;
    QTest::newRow("disabled") << false << false << false << false << true << half_green;
    QTest::newRow("disabled under the mouse") << false << true << false << false << true
                                              << half_green;
    QTest::newRow("disabled and checked") << false << false << true << true << true << half_green;
    // clang-format on
}

void test_button_icon::state_picks_the_colour()
{
    QFETCH(bool, enabled);
    QFETCH(bool, under_mouse);
    QFETCH(bool, checkable);
    QFETCH(bool, checked);
    QFETCH(bool, hot_when_checked);
    QFETCH(QRgb, expected);
    orv::button_dark button(nullptr);
    button.resize(8, 8);
    button.set_icon(folder.plain_picture({8, 8}), 0, 0, colour(red), colour(green));
    button.set_flags(false, true, hot_when_checked);
    button.setEnabled(enabled);
    button.setCheckable(checkable);
    button.setChecked(checked);
    button.setAttribute(Qt::WA_UnderMouse, under_mouse);
    QCOMPARE(painted_icon(button).pixel(4, 4), expected);
}

void test_button_icon::mouse_makes_the_icon_hot()
{
    QWidget window;
    window.resize(100, 100);
    orv::button_dark button(&window);
    button.setGeometry(0, 0, 30, 30);
    button.set_icon(folder.plain_picture({8, 8}), -1, -1, colour(red), colour(green));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::mouseMove(&window, {80, 80});
    QTRY_COMPARE(place_of(green, button.grab().toImage()), QRect(11, 11, 8, 8));
    QTest::mouseMove(&window, {15, 15});
    QTRY_COMPARE(place_of(red, button.grab().toImage()), QRect(11, 11, 8, 8));
    QTest::mouseMove(&window, {80, 80});
    QTRY_COMPARE(place_of(green, button.grab().toImage()), QRect(11, 11, 8, 8));
}

void test_button_icon::disabled_icon_has_half_the_alpha()
{
    orv::button_dark button(nullptr);
    button.setFixedSize(23, 23);
    button.setEnabled(false);
    const QImage face = button.grab().toImage();
    button.set_icon(folder.plain_picture({16, 16}), -1, -1, colour(red), colour(green));
    const QColor ground = face.pixelColor(10, 10);
    const QColor shown = button.grab().toImage().pixelColor(10, 10);
    const auto mixed = [](int icon, int below) { return (icon * 127 + below * 128) / 255; };
    QVERIFY(qAbs(shown.red() - mixed(0, ground.red())) <= 1);
    QVERIFY(qAbs(shown.green() - mixed(200, ground.green())) <= 1);
    QVERIFY(qAbs(shown.blue() - mixed(0, ground.blue())) <= 1);
}

void test_button_icon::frame_shows_on_a_checked_button_data()
{
    QTest::addColumn<bool>("draw_frame");
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("framed");
    QTest::newRow("checked") << true << true << true << true;
    QTest::newRow("unchecked") << true << true << false << false;
    QTest::newRow("not checkable") << true << false << false << false;
    QTest::newRow("checked, but without the frame flag") << false << true << true << false;
}

void test_button_icon::frame_shows_on_a_checked_button()
{
    QFETCH(bool, draw_frame);
    QFETCH(bool, checkable);
    QFETCH(bool, checked);
    QFETCH(bool, framed);
    orv::button_dark button(nullptr);
    button.resize(20, 12);
    button.set_icon(folder.plain_picture({4, 4}), -1, -1, colour(red), colour(green));
    button.set_flags(draw_frame, true, true);
    button.setCheckable(checkable);
    button.setChecked(checked);
    const QImage picture = painted_icon(button);
    for (const QPoint &point : {QPoint(0, 6), QPoint(19, 6), QPoint(10, 0), QPoint(10, 11)})
        QCOMPARE(picture.pixel(point), framed ? frame_grey : qRgba(0, 0, 0, 0));
    QCOMPARE(qAlpha(picture.pixel(1, 6)), 0);
}

void test_button_icon::checked_icon_alternates_with_the_other()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.setCheckable(true);
    button.set_icon(folder.plain_picture({4, 4}), 1, 1, colour(red), colour(green));
    const QRgb blue = qRgb(0, 0, 200);
    const QRgb yellow = qRgb(200, 200, 0);
    button.set_checked_icon(folder.plain_picture({6, 6}), 2, 3, colour(blue), colour(yellow));
    QCOMPARE(place_of(green, painted_icon(button)), QRect(2, 3, 4, 4));
    button.setChecked(true);
    QCOMPARE(place_of(blue, painted_icon(button)), QRect(2, 3, 6, 6));
    QCOMPARE(place_of(red, painted_icon(button)), QRect());
    button.set_flags(false, false, false);
    QCOMPARE(place_of(yellow, painted_icon(button)), QRect(2, 3, 6, 6));
}

void test_button_icon::checked_icon_alone_leaves_the_unchecked_button_empty()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.setCheckable(true);
    button.set_checked_icon(folder.plain_picture({4, 4}), -1, -1, colour(red), colour(green));
    QImage nothing(20, 20, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    QCOMPARE(painted_icon(button), nothing);
    button.setChecked(true);
    QCOMPARE(place_of(red, painted_icon(button)), QRect(8, 8, 4, 4));
}

void test_button_icon::icon_set_after_a_checked_one_replaces_both()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.setCheckable(true);
    button.setChecked(true);
    const QRgb blue = qRgb(0, 0, 200);
    button.set_checked_icon(folder.plain_picture({6, 6}), -1, -1, colour(blue), colour(blue));
    button.set_icon(folder.plain_picture({4, 4}), -1, -1, colour(red), colour(green));
    const QImage picture = painted_icon(button);
    QCOMPARE(place_of(blue, picture), QRect());
    QCOMPARE(place_of(red, picture), QRect(8, 8, 4, 4));
}

void test_button_icon::checked_icon_disables_the_checked_sheet()
{
    orv::button_dark button(nullptr);
    const QString whole_sheet = button.styleSheet();
    button.set_checked_icon(folder.plain_picture({4, 4}), -1, -1, {}, {});
    QVERIFY(!button.use_checked_sheet);
    QCOMPARE(button.styleSheet(), whole_sheet);
    button.set_skin("dark");
    QVERIFY(!button.styleSheet().contains("::checked"));
    button.set_flags(false, true, true);
    QCOMPARE(button.styleSheet(), whole_sheet);
}

void test_button_icon::tinted_setters_tint_their_own_icon()
{
    const QString path = folder.plain_picture({2, 2}, qRgb(10, 20, 30));
    orv::button_dark button(nullptr);
    button.set_tinted_icon(path, -1, -1, colour(red), colour(green));
    QVERIFY(button.icon.tinted);
    QVERIFY(!button.checked_icon.tinted);
    QCOMPARE(button.icon.image_normal->pixel(0, 0), qRgb(10, 20, 30));
    QCOMPARE(button.icon.image_hot->pixel(0, 0), red);
    button.set_tinted_checked_icon(path, -1, -1, colour(green), colour(red));
    QVERIFY(button.checked_icon.tinted);
    QCOMPARE(button.checked_icon.image_normal->pixel(0, 0), qRgb(10, 20, 30));
    QCOMPARE(button.checked_icon.image_hot->pixel(0, 0), green);
    QVERIFY(!button.use_checked_sheet);
    button.set_icon(path, -1, -1, colour(red), colour(green));
    QCOMPARE(button.icon.image_normal->pixel(0, 0), qRgb(10, 20, 30));
}

void test_button_icon::foreign_button_ends_the_program()
{
    const program_result result = isolated_program(CRASH_PROBE_PROGRAM).run({"icon"});
    QVERIFY(!result.timed_out);
    QCOMPARE(result.status, failed_status);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors,
             QByteArray("assert \"bd\" failed at ../orv_toolkit/orv/button_dark:211 in "
                        "orv::button_dark::img_highlighter::get_custom_paint_ex(int, "
                        "int)::<lambda(QPainter&, QPushButton*)>\n"
                        "Stacktrace is empty\n\n\n"));
}

KELVRA_WIDGET_TEST_MAIN(test_button_icon)
#include "test_button_icon.moc"
