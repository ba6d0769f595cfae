// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_dark.h"
#include "picture_folder.h"
#include "widget_test_main.h"

#include <cstring>

using highlighter = orv::button_dark::img_highlighter;
using pixel_rows = QList<QList<QRgb>>;
Q_DECLARE_METATYPE(pixel_rows)

namespace
{

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

}  // namespace

class test_img_highlighter : public QObject
{
    Q_OBJECT

private slots:
    void colour_is_a_pixel_in_memory();
    void record_starts_empty();
    void rebuild_without_a_path_does_nothing();
    void flat_icon_keeps_only_the_alpha();
    void tinted_icon_moves_its_colours_data();
    void tinted_icon_moves_its_colours();

private:
    picture_folder folder;
};

void test_img_highlighter::colour_is_a_pixel_in_memory()
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

void test_img_highlighter::record_starts_empty()
{
    const highlighter icon;
    QCOMPARE(icon.path, QString());
    QVERIFY(!icon.image_normal && !icon.image_hot && !icon.image_disabled);
    QCOMPARE(icon.image_width, 0);
    QVERIFY(!icon.tinted);
}

void test_img_highlighter::rebuild_without_a_path_does_nothing()
{
    highlighter icon;
    icon.rebuild();
    QVERIFY(!icon.image_normal && !icon.image_hot && !icon.image_disabled);

    icon.path = folder.plain_picture({4, 3});
    icon.rebuild();
    QCOMPARE(icon.image_normal->size(), QSize(4, 3));
    icon.path.clear();
    icon.rebuild();
    QCOMPARE(icon.image_normal->size(), QSize(4, 3));
    QCOMPARE(icon.image_width, 4);
}

void test_img_highlighter::flat_icon_keeps_only_the_alpha()
{
    const pixel_rows source = {{qRgba(10, 20, 30, 255), qRgba(40, 50, 60, 128)},
                               {qRgba(70, 80, 90, 1), qRgba(0, 0, 0, 0)}};
    highlighter icon;
    icon.normal_colour = {133, 136, 129, 7};
    icon.hot_colour = {240, 241, 242, 9};
    icon.path = folder.picture(image_of(source));
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

void test_img_highlighter::tinted_icon_moves_its_colours_data()
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
    QTest::newRow("closest by red")
        << qRgb(40, 100, 100) << qRgb(140, 100, 100)
        << pixel_rows{{qRgb(20, 100, 100), qRgb(50, 100, 100), qRgb(10, 100, 100)}}
        << pixel_rows{{qRgb(110, 100, 100), qRgb(140, 100, 100), qRgb(100, 100, 100)}};
    QTest::newRow("closest by green")
        << qRgb(100, 40, 100) << qRgb(100, 140, 100)
        << pixel_rows{{qRgb(100, 20, 100), qRgb(100, 50, 100), qRgb(100, 10, 100)}}
        << pixel_rows{{qRgb(100, 110, 100), qRgb(100, 140, 100), qRgb(100, 100, 100)}};
    QTest::newRow("closest by blue")
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

void test_img_highlighter::tinted_icon_moves_its_colours()
{
    QFETCH(QRgb, normal);
    QFETCH(QRgb, hot);
    QFETCH(pixel_rows, source);
    QFETCH(pixel_rows, hot_pixels);
    highlighter icon;
    icon.tinted = true;
    icon.normal_colour = colour(normal);
    icon.hot_colour = colour(hot);
    icon.path = folder.picture(image_of(source));
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

KELVRA_WIDGET_TEST_MAIN(test_img_highlighter)
#include "test_img_highlighter.moc"
