// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_dark.h"
#include "outside_run.h"
#include "test_main.h"

#include <QPainter>
#include <QTemporaryDir>

#include <cstring>

using highlighter = orv::button_dark::img_highlighter;
using pixel_rows = QList<QList<QRgb>>;
Q_DECLARE_METATYPE(pixel_rows)

namespace
{

constexpr QRgb green = qRgb(0, 200, 0);
constexpr QRgb red = qRgb(200, 0, 0);
constexpr QRgb frame_grey = qRgb(129, 136, 133);

orv::pixel_argb colour(QRgb rgb)
{
    return {static_cast<std::uint8_t>(qBlue(rgb)), static_cast<std::uint8_t>(qGreen(rgb)),
            static_cast<std::uint8_t>(qRed(rgb)), static_cast<std::uint8_t>(qAlpha(rgb))};
}

pixel_rows rows_of(const QImage *image)
{
    pixel_rows rows;
    for (int y = 0; y < image->height(); ++y) {
        rows << QList<QRgb>();
        for (int x = 0; x < image->width(); ++x)
            rows.last() << image->pixel(x, y);
    }
    return rows;
}

QImage image_of(const pixel_rows &rows)
{
    QImage image(rows.first().size(), rows.size(), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, rows[y][x]);
    }
    return image;
}

/// What the button's icon paints, on a transparent ground.
QImage painted_icon(orv::button_dark &button)
{
    QImage canvas(button.size(), QImage::Format_ARGB32);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    button.paint_callback_ex(painter, &button);
    return canvas;
}

/// The smallest rectangle around all pixels of the colour.
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
    void colour_is_a_pixel_in_memory();
    void record_starts_empty();
    void rebuild_without_a_path_does_nothing();
    void flat_icon_keeps_only_the_alpha();
    void tinted_icon_moves_its_colours_data();
    void tinted_icon_moves_its_colours();
    void missing_picture_shows_nothing();
    void missing_picture_takes_the_place_of_a_good_one();
    void icon_stands_where_it_was_put_data();
    void icon_stands_where_it_was_put();
    void icon_larger_than_the_button_hangs_over_rounded_to_zero();
    void state_picks_the_colour_data();
    void state_picks_the_colour();
    void mouse_makes_the_icon_hot();
    void disabled_icon_has_half_the_alpha();
    void frame_shows_on_a_checked_button_data();
    void frame_shows_on_a_checked_button();
    void checked_icon_takes_turns_with_the_other();
    void checked_icon_alone_leaves_the_unchecked_button_bare();
    void icon_set_behind_a_checked_one_replaces_both();
    void checked_icon_takes_the_checked_sheet_out_of_use();
    void tinted_setters_tint_their_own_icon();
    void foreign_button_ends_the_program();

private:
    /// A picture file of one colour.
    QString plain_picture(QSize size, QRgb rgb = qRgb(1, 2, 3));
    QString picture(const QImage &image);

    QTemporaryDir folder;
    int pictures = 0;
};

QString test_button_icon::plain_picture(QSize size, QRgb rgb)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(rgb);
    return picture(image);
}

QString test_button_icon::picture(const QImage &image)
{
    const QString path = folder.filePath(QString("%1.png").arg(++pictures));
    if (!image.save(path))
        qFatal("can't write %s", qPrintable(path));
    return path;
}

void test_button_icon::colour_is_a_pixel_in_memory()
{
    const auto pixel = [](orv::pixel_argb argb) {
        quint32 value = 0;
        static_assert(sizeof argb == sizeof value);
        std::memcpy(&value, &argb, sizeof value);
        return value;
    };
    QCOMPARE(pixel({}), 0xFF000000U);
    QCOMPARE(pixel({0x11, 0x22, 0x33, 0x44}), 0x44332211U);
}

void test_button_icon::record_starts_empty()
{
    const highlighter icon;
    QCOMPARE(icon.path, QString());
    QVERIFY(!icon.image_normal && !icon.image_hot && !icon.image_disabled);
    QCOMPARE(icon.image_width, 0);
    QVERIFY(!icon.tinted);
}

void test_button_icon::rebuild_without_a_path_does_nothing()
{
    highlighter icon;
    icon.rebuild();
    QVERIFY(!icon.image_normal && !icon.image_hot && !icon.image_disabled);

    icon.path = plain_picture({4, 3});
    icon.rebuild();
    QCOMPARE(icon.image_normal->size(), QSize(4, 3));
    icon.path.clear();
    icon.rebuild();
    QCOMPARE(icon.image_normal->size(), QSize(4, 3));
    QCOMPARE(icon.image_width, 4);
}

void test_button_icon::flat_icon_keeps_only_the_alpha()
{
    const pixel_rows source = {{qRgba(10, 20, 30, 255), qRgba(40, 50, 60, 128)},
                               {qRgba(70, 80, 90, 1), qRgba(0, 0, 0, 0)}};
    highlighter icon;
    icon.normal_colour = {133, 136, 129, 7};
    icon.hot_colour = {240, 241, 242, 9};
    icon.path = picture(image_of(source));
    icon.rebuild();
    const pixel_rows normal = {{qRgba(129, 136, 133, 255), qRgba(129, 136, 133, 128)},
                               {qRgba(129, 136, 133, 1), qRgba(129, 136, 133, 0)}};
    const pixel_rows hot = {{qRgba(242, 241, 240, 255), qRgba(242, 241, 240, 128)},
                            {qRgba(242, 241, 240, 1), qRgba(242, 241, 240, 0)}};
    const pixel_rows disabled = {{qRgba(129, 136, 133, 127), qRgba(129, 136, 133, 64)},
                                 {qRgba(129, 136, 133, 0), qRgba(129, 136, 133, 0)}};
    QCOMPARE(rows_of(icon.image_normal), normal);
    QCOMPARE(rows_of(icon.image_hot), hot);
    QCOMPARE(rows_of(icon.image_disabled), disabled);
    QCOMPARE(icon.image_width, 2);
}

void test_button_icon::tinted_icon_moves_its_colours_data()
{
    QTest::addColumn<QRgb>("normal");
    QTest::addColumn<QRgb>("hot");
    QTest::addColumn<pixel_rows>("source");
    QTest::addColumn<pixel_rows>("hot_pixels");
    // clang-format off
    QTest::newRow("the normal colour becomes the hot one, the rest goes along")
        << qRgb(100, 100, 100) << qRgb(110, 90, 105)
        << pixel_rows{{qRgb(50, 60, 70), qRgb(100, 100, 100), qRgb(120, 130, 140)}}
        << pixel_rows{{qRgb(60, 50, 75), qRgb(110, 90, 105), qRgb(130, 120, 145)}};
    QTest::newRow("without that colour the closest one does")
        << qRgb(100, 100, 100) << qRgb(200, 200, 200)
        << pixel_rows{{qRgb(10, 10, 10), qRgb(90, 105, 100)}, {qRgb(130, 130, 130), qRgb(0, 0, 0)}}
        << pixel_rows{{qRgb(120, 105, 110), qRgb(200, 200, 200)},
                      {qRgb(240, 225, 230), qRgb(110, 95, 100)}};
    QTest::newRow("closest by its red")
        << qRgb(40, 100, 100) << qRgb(140, 100, 100)
        << pixel_rows{{qRgb(20, 100, 100), qRgb(50, 100, 100), qRgb(10, 100, 100)}}
        << pixel_rows{{qRgb(110, 100, 100), qRgb(140, 100, 100), qRgb(100, 100, 100)}};
    QTest::newRow("closest by its green")
        << qRgb(100, 40, 100) << qRgb(100, 140, 100)
        << pixel_rows{{qRgb(100, 20, 100), qRgb(100, 50, 100), qRgb(100, 10, 100)}}
        << pixel_rows{{qRgb(100, 110, 100), qRgb(100, 140, 100), qRgb(100, 100, 100)}};
    QTest::newRow("closest by its blue")
        << qRgb(100, 100, 40) << qRgb(100, 100, 140)
        << pixel_rows{{qRgb(100, 100, 20), qRgb(100, 100, 50), qRgb(100, 100, 10)}}
        << pixel_rows{{qRgb(100, 100, 110), qRgb(100, 100, 140), qRgb(100, 100, 100)}};
    QTest::newRow("the first of two equally close ones")
        << qRgb(100, 100, 100) << qRgb(100, 100, 100)
        << pixel_rows{{qRgb(101, 100, 100), qRgb(99, 100, 100)}}
        << pixel_rows{{qRgb(100, 100, 100), qRgb(98, 100, 100)}};
    QTest::newRow("each channel stops at its ends")
        << qRgb(100, 100, 100) << qRgb(0, 255, 100)
        << pixel_rows{{qRgb(100, 100, 100), qRgb(99, 101, 7)}}
        << pixel_rows{{qRgb(0, 255, 100), qRgb(0, 255, 7)}};
    QTest::newRow("alpha stays and doesn't count as distance")
        << qRgb(100, 100, 100) << qRgb(120, 100, 100)
        << pixel_rows{{qRgba(100, 100, 100, 3), qRgba(90, 100, 100, 255)}}
        << pixel_rows{{qRgba(120, 100, 100, 3), qRgba(110, 100, 100, 255)}};
    QTest::newRow("a picture at the greatest distance is measured from black")
        << qRgb(0, 0, 0) << qRgb(10, 0, 0)
        << pixel_rows{{qRgb(255, 255, 255)}}
        << pixel_rows{{qRgb(255, 255, 255)}};
    QTest::newRow("one step closer it counts")
        << qRgb(0, 0, 0) << qRgb(10, 0, 0)
        << pixel_rows{{qRgb(255, 255, 254)}}
        << pixel_rows{{qRgb(10, 0, 0)}};
    // clang-format on
}

void test_button_icon::tinted_icon_moves_its_colours()
{
    QFETCH(QRgb, normal);
    QFETCH(QRgb, hot);
    QFETCH(pixel_rows, source);
    QFETCH(pixel_rows, hot_pixels);
    highlighter icon;
    icon.tinted = true;
    icon.normal_colour = colour(normal);
    icon.hot_colour = colour(hot);
    icon.path = picture(image_of(source));
    icon.rebuild();
    pixel_rows half_transparent = source;
    for (QList<QRgb> &row : half_transparent) {
        for (QRgb &rgb : row)
            rgb = qRgba(qRed(rgb), qGreen(rgb), qBlue(rgb), qAlpha(rgb) / 2);
    }
    QCOMPARE(rows_of(icon.image_normal), source);
    QCOMPARE(rows_of(icon.image_hot), hot_pixels);
    QCOMPARE(rows_of(icon.image_disabled), half_transparent);
}

void test_button_icon::missing_picture_shows_nothing()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.set_icon(folder.filePath("missing.png"), -1, -1, {}, {});
    QVERIFY(button.icon.image_normal->isNull());
    QVERIFY(button.icon.image_hot->isNull());
    QVERIFY(button.icon.image_disabled->isNull());
    QCOMPARE(button.icon.image_width, 0);
    QImage nothing(20, 20, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    QCOMPARE(painted_icon(button), nothing);
}

void test_button_icon::missing_picture_takes_the_place_of_a_good_one()
{
    orv::button_dark button(nullptr);
    button.set_icon(plain_picture({4, 4}), -1, -1, {}, {});
    button.set_tinted_icon(folder.filePath("missing.png"), -1, -1, {}, {});
    QVERIFY(button.icon.image_normal->isNull());
    QCOMPARE(button.icon.image_width, 0);
}

void test_button_icon::icon_stands_where_it_was_put_data()
{
    QTest::addColumn<QSize>("icon_size");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QRect>("place");
    // clang-format off
    QTest::newRow("centred, the odd pixel behind") << QSize(16, 16) << QPoint(-1, -1)
                                                   << QRect(3, 3, 16, 16);
    QTest::newRow("at a place") << QSize(16, 16) << QPoint(5, 1) << QRect(5, 1, 16, 16);
    QTest::newRow("at the corner") << QSize(4, 4) << QPoint(0, 0) << QRect(0, 0, 4, 4);
    QTest::newRow("centred across alone") << QSize(5, 6) << QPoint(-1, 2) << QRect(9, 2, 5, 6);
    QTest::newRow("centred down alone") << QSize(5, 6) << QPoint(2, -1) << QRect(2, 8, 5, 6);
    QTest::newRow("-2 is a place") << QSize(5, 6) << QPoint(-2, 0) << QRect(0, 0, 3, 6);
    // clang-format on
}

void test_button_icon::icon_stands_where_it_was_put()
{
    QFETCH(QSize, icon_size);
    QFETCH(QPoint, position);
    QFETCH(QRect, place);
    orv::button_dark button(nullptr);
    button.setFixedSize(23, 23);
    button.set_icon(plain_picture(icon_size), position.x(), position.y(), colour(red),
                    colour(green));
    QCOMPARE(place_of(green, button.grab().toImage()), place);
}

void test_button_icon::icon_larger_than_the_button_hangs_over_rounded_to_zero()
{
    QImage image(26, 26, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setPixel(10, 12, qRgb(1, 2, 3));
    orv::button_dark button(nullptr);
    button.setFixedSize(23, 23);
    button.set_icon(picture(image), -1, -1, colour(red), colour(green));
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
    QTest::newRow("checked, but that isn't hot") << true << false << true << true << false << green;
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
    button.set_icon(plain_picture({8, 8}), 0, 0, colour(red), colour(green));
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
    button.set_icon(plain_picture({8, 8}), -1, -1, colour(red), colour(green));
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
    button.set_icon(plain_picture({16, 16}), -1, -1, colour(red), colour(green));
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
    QTest::newRow("checked, but no frame is wanted") << false << true << true << false;
}

void test_button_icon::frame_shows_on_a_checked_button()
{
    QFETCH(bool, draw_frame);
    QFETCH(bool, checkable);
    QFETCH(bool, checked);
    QFETCH(bool, framed);
    orv::button_dark button(nullptr);
    button.resize(20, 12);
    button.set_icon(plain_picture({4, 4}), -1, -1, colour(red), colour(green));
    button.set_flags(draw_frame, true, true);
    button.setCheckable(checkable);
    button.setChecked(checked);
    const QImage picture = painted_icon(button);
    for (const QPoint &point : {QPoint(0, 6), QPoint(19, 6), QPoint(10, 0), QPoint(10, 11)})
        QCOMPARE(picture.pixel(point), framed ? frame_grey : qRgba(0, 0, 0, 0));
    QCOMPARE(qAlpha(picture.pixel(1, 6)), 0);
}

void test_button_icon::checked_icon_takes_turns_with_the_other()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.setCheckable(true);
    button.set_icon(plain_picture({4, 4}), 1, 1, colour(red), colour(green));
    const QRgb blue = qRgb(0, 0, 200);
    const QRgb yellow = qRgb(200, 200, 0);
    button.set_checked_icon(plain_picture({6, 6}), 2, 3, colour(blue), colour(yellow));
    QCOMPARE(place_of(green, painted_icon(button)), QRect(2, 3, 4, 4));
    button.setChecked(true);
    QCOMPARE(place_of(blue, painted_icon(button)), QRect(2, 3, 6, 6));
    QCOMPARE(place_of(red, painted_icon(button)), QRect());
    button.set_flags(false, false, false);
    QCOMPARE(place_of(yellow, painted_icon(button)), QRect(2, 3, 6, 6));
}

void test_button_icon::checked_icon_alone_leaves_the_unchecked_button_bare()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.setCheckable(true);
    button.set_checked_icon(plain_picture({4, 4}), -1, -1, colour(red), colour(green));
    QImage nothing(20, 20, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    QCOMPARE(painted_icon(button), nothing);
    button.setChecked(true);
    QCOMPARE(place_of(red, painted_icon(button)), QRect(8, 8, 4, 4));
}

void test_button_icon::icon_set_behind_a_checked_one_replaces_both()
{
    orv::button_dark button(nullptr);
    button.resize(20, 20);
    button.setCheckable(true);
    button.setChecked(true);
    const QRgb blue = qRgb(0, 0, 200);
    button.set_checked_icon(plain_picture({6, 6}), -1, -1, colour(blue), colour(blue));
    button.set_icon(plain_picture({4, 4}), -1, -1, colour(red), colour(green));
    const QImage picture = painted_icon(button);
    QCOMPARE(place_of(blue, picture), QRect());
    QCOMPARE(place_of(red, picture), QRect(8, 8, 4, 4));
}

void test_button_icon::checked_icon_takes_the_checked_sheet_out_of_use()
{
    orv::button_dark button(nullptr);
    const QString whole_sheet = button.styleSheet();
    button.set_checked_icon(plain_picture({4, 4}), -1, -1, {}, {});
    QVERIFY(!button.use_checked_sheet);
    QCOMPARE(button.styleSheet(), whole_sheet);
    button.set_skin("dark");
    QVERIFY(!button.styleSheet().contains("::checked"));
    button.set_flags(false, true, true);
    QCOMPARE(button.styleSheet(), whole_sheet);
}

void test_button_icon::tinted_setters_tint_their_own_icon()
{
    const QString path = plain_picture({2, 2}, qRgb(10, 20, 30));
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
    const outside_result result = outside_run(CRASH_PROBE_PROGRAM).run({"icon"});
    QVERIFY(!result.timed_out);
    QCOMPARE(result.status, 255);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors,
             QByteArray("assert \"bd\" failed at ../orv_toolkit/orv/button_dark:211 in "
                        "orv::button_dark::img_highlighter::get_custom_paint_ex(int, "
                        "int)::<lambda(QPainter&, QPushButton*)>\n"
                        "Stacktrace is empty\n\n\n"));
}

KELVRA_TEST_MAIN(test_button_icon)
#include "test_button_icon.moc"
