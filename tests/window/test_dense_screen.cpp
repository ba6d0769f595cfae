// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "dense_pictures.h"
#include "main_window_form.h"
#include "orv/button_dark.h"
#include "orv/dialog_about.h"
#include "orv/radio.h"
#include "program_test_main.h"

#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QTemporaryDir>

/// The pictures on a screen with two device pixels per pixel.
class test_dense_screen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void icon_of_a_button_is_its_dense_variant();
    void icon_is_painted_pixel_for_pixel();
    void icon_without_a_variant_keeps_its_size();
    void variant_of_any_name_has_the_size_of_its_picture();
    void icon_is_smoothed_where_a_screen_has_fewer_pixels();
    void picture_of_the_window_is_dense_data();
    void picture_of_the_window_is_dense();
    void indicator_of_a_radio_button_is_dense();
    void header_of_the_about_dialog_is_dense();
    void logo_of_the_about_dialog_is_dense();
    void icon_of_a_message_box_is_dense();
};

namespace
{

constexpr orv::pixel_argb white = {255, 255, 255, 255};

/// A picture over black, the background of all widgets painted here.
QImage over_black(const QString &path)
{
    const QImage picture = dense_picture(path);
    QImage image = canvas(picture.size() / dense_ratio, dense_ratio);
    QPainter(&image).drawImage(0, 0, picture);
    return image.convertToFormat(QImage::Format_RGB32);
}

/// Whether `image` shows `part` at `corner`, as far as the image reaches.
bool shows_at(const QPoint &corner, const QImage &image, const QImage &part)
{
    const QRect place = QRect(corner, part.size()) & image.rect();
    return image.copy(place) == part.copy(QRect(QPoint(), place.size()));
}

bool shows_anywhere(const QImage &image, const QImage &part)
{
    for (int y = 0; y <= image.height() - part.height(); ++y) {
        for (int x = 0; x <= image.width() - part.width(); ++x) {
            if (shows_at({x, y}, image, part))
                return true;
        }
    }
    return false;
}

/// Columns that are opaque and transparent in turn.
QImage stripes(QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (int x = 0; x < size.width(); x += 2)
        painter.fillRect(x, 0, 1, size.height(), Qt::white);
    return image;
}

}  // namespace

void test_dense_screen::initTestCase()
{
    QCOMPARE(qApp->devicePixelRatio(), qreal(dense_ratio));
    install_style();
    install_icons();
}

void test_dense_screen::icon_of_a_button_is_its_dense_variant()
{
    orv::button_dark button(nullptr);
    button.set_icon(":/images/icon_open.png", -1, -1, white, white);
    const QImage alpha = dense_picture(":/images/icon_open@2x.png");
    QCOMPARE(button.icon.image_normal->convertToFormat(QImage::Format_Alpha8),
             alpha.convertToFormat(QImage::Format_Alpha8));
    QCOMPARE(button.icon.image_hot->size(), QSize(26, 24));
    QCOMPARE(button.icon.image_disabled->size(), QSize(26, 24));
    QCOMPARE(button.icon.image_width, 13);
}

void test_dense_screen::icon_is_painted_pixel_for_pixel()
{
    orv::button_dark button(nullptr);
    button.setFixedSize(23, 22);
    button.set_icon(":/images/icon_open.png", -1, -1, white, white);
    QImage painted_icon = canvas(button.size(), dense_ratio);
    {
        QPainter painter(&painted_icon);
        button.paint_callback_ex(painter, &button);
    }
    QImage expected = canvas(button.size(), dense_ratio);
    QPainter(&expected).drawImage(5, 5, *button.icon.image_normal);
    QCOMPARE(painted_icon, expected);
}

void test_dense_screen::icon_without_a_variant_keeps_its_size()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("plain.png");
    QVERIFY(stripes({5, 7}).save(path));
    orv::button_dark button(nullptr);
    button.set_icon(path, -1, -1, white, white);
    QCOMPARE(button.icon.image_normal->size(), QSize(5, 7));
    QCOMPARE(button.icon.image_width, 5);
}

void test_dense_screen::variant_of_any_name_has_the_size_of_its_picture()
{
    const QTemporaryDir folder;
    QVERIFY(stripes({5, 7}).save(folder.filePath("with.a.dot.png")));
    QVERIFY(stripes({10, 14}).save(folder.filePath("with.a.dot@2x.png")));
    orv::button_dark button(nullptr);
    button.set_icon(folder.filePath("with.a.dot.png"), -1, -1, white, white);
    QCOMPARE(button.icon.image_normal->size(), QSize(10, 14));
    QCOMPARE(button.icon.image_width, 5);
}

/// The window may be on another screen than the dense one.
void test_dense_screen::icon_is_smoothed_where_a_screen_has_fewer_pixels()
{
    const QTemporaryDir folder;
    QVERIFY(stripes({10, 10}).save(folder.filePath("stripes.png")));
    QVERIFY(stripes({20, 20}).save(folder.filePath("stripes@2x.png")));
    orv::button_dark button(nullptr);
    button.setFixedSize(10, 10);
    button.setStyleSheet("border: none; background: black;");
    button.set_icon(folder.filePath("stripes.png"), 0, 0, white, white);
    QImage shown(10, 10, QImage::Format_RGB32);
    button.render(&shown);
    const int grey = qGray(shown.pixel(5, 5));
    QVERIFY2(grey > 64 && grey < 192, qPrintable(QString::number(grey)));
}

void test_dense_screen::picture_of_the_window_is_dense_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"logo_small", "head_medium_dark_without_shadow", "drop_images_here_en"})
        QTest::newRow(name) << name;
}

void test_dense_screen::picture_of_the_window_is_dense()
{
    QFETCH(QString, name);
    MainWindow window(nullptr);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QImage picture = over_black(":/images/" + name + "@2x.png");
    QWidget *widget = widget_with(window, "images/" + name + ".png");
    const QImage shown = painted(*widget, dense_ratio);
    picture = picture.copy(QRect(QPoint(), shown.size().boundedTo(picture.size())));
    QVERIFY(shows_anywhere(shown, picture));
}

void test_dense_screen::indicator_of_a_radio_button_is_dense()
{
    orv::radio button("");
    button.setStyleSheet(QString("QRadioButton{background:black;}") + orv::radio::sheet);
    button.setChecked(true);
    button.resize(40, 30);
    QVERIFY(shows_anywhere(painted(button, dense_ratio), over_black(":/gui/radio/checked@2x.png")));
}

void test_dense_screen::header_of_the_about_dialog_is_dense()
{
    orv::dialog_about dialog(nullptr, true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QImage shown = painted(*widget_with(dialog, "images/Head.png"), dense_ratio);
    QVERIFY(shows_at({0, 0}, shown, over_black(":/images/Head@2x.png")));
}

void test_dense_screen::logo_of_the_about_dialog_is_dense()
{
    const orv::dialog_about dialog(nullptr, true);
    QImage logo;
    for (const auto *label : dialog.findChildren<QLabel *>()) {
        const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
        if (!pixmap.isNull())
            logo = pixmap.toImage();
    }
    const QImage picture = dense_picture(":/images/logo@2x.png");
    QCOMPARE(logo, QPixmap::fromImage(picture).toImage());
}

/// Its size depends on the screen's dots per inch, so only the pixels are compared.
void test_dense_screen::icon_of_a_message_box_is_dense()
{
    const QMessageBox box(QMessageBox::Question, "Title", "Text");
    QImage icon = box.iconPixmap().toImage();
    icon.setDevicePixelRatio(dense_ratio);
    const QImage picture = dense_picture(":/icons/orv/48x48@2/dialog-question.png");
    QCOMPARE(icon, QPixmap::fromImage(picture).toImage());
}

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", QByteArray::number(dense_ratio));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    return run_program_test<test_dense_screen>(argc, argv);
}
#include "test_dense_screen.moc"
