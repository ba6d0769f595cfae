#include "orv/button_dark.h"
#include "orv/dialog_about.h"
#include "test_main.h"

#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QTemporaryDir>

/// The pictures on a screen with two pixels to the dot.
class test_dense_screen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void icon_of_a_button_is_its_dense_variant();
    void icon_is_painted_pixel_for_pixel();
    void icon_without_a_variant_keeps_its_size();
    void background_of_a_sheet_is_dense_data();
    void background_of_a_sheet_is_dense();
    void indicator_of_a_sheet_is_dense();
    void logo_of_the_about_dialog_is_dense();
    void icon_of_a_message_box_is_dense();
};

namespace
{

constexpr int density = 2;
constexpr orv::pixel_argb grey = {133, 136, 129, 255};

QImage canvas(QSize dots)
{
    QImage image(dots * density, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(density);
    image.fill(Qt::black);
    return image;
}

QImage dense_picture(const QString &path)
{
    QImage picture(path);
    picture.setDevicePixelRatio(density);
    return picture;
}

/// A picture over black, as the widgets here show it.
QImage over_black(const QString &path)
{
    const QImage picture = dense_picture(path);
    QImage image = canvas(picture.size() / density);
    QPainter(&image).drawImage(0, 0, picture);
    return image.convertToFormat(QImage::Format_RGB32);
}

/// A widget over black as it is shown.
QImage shown(QWidget &widget)
{
    QImage image = canvas(widget.size());
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image.convertToFormat(QImage::Format_RGB32);
}

}  // namespace

void test_dense_screen::initTestCase()
{
    QCOMPARE(qApp->devicePixelRatio(), qreal(density));
}

void test_dense_screen::icon_of_a_button_is_its_dense_variant()
{
    orv::button_dark button(nullptr);
    button.set_icon(":/images/icon_open.png", -1, -1, grey, grey);
    QCOMPARE(button.icon.image_normal->convertToFormat(QImage::Format_Alpha8),
             QImage(":/images/icon_open@2x.png").convertToFormat(QImage::Format_Alpha8));
    QCOMPARE(button.icon.image_hot->size(), QSize(26, 24));
    QCOMPARE(button.icon.image_disabled->size(), QSize(26, 24));
    QCOMPARE(button.icon.image_width, 13);
}

void test_dense_screen::icon_is_painted_pixel_for_pixel()
{
    orv::button_dark button(nullptr);
    button.setFixedSize(23, 22);
    button.set_icon(":/images/icon_open.png", -1, -1, grey, grey);
    QImage painted = canvas(button.size());
    {
        QPainter painter(&painted);
        button.paint_callback_ex(painter, &button);
    }
    QImage expected = canvas(button.size());
    QPainter(&expected).drawImage(5, 5, *button.icon.image_normal);
    QCOMPARE(painted, expected);
}

void test_dense_screen::icon_without_a_variant_keeps_its_size()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("plain.picture.png");
    QImage picture(5, 7, QImage::Format_ARGB32);
    picture.fill(Qt::white);
    QVERIFY(picture.save(path));
    orv::button_dark button(nullptr);
    button.set_icon(path, -1, -1, grey, grey);
    QCOMPARE(button.icon.image_normal->size(), QSize(5, 7));
    QCOMPARE(button.icon.image_width, 5);
}

void test_dense_screen::background_of_a_sheet_is_dense_data()
{
    QTest::addColumn<QString>("path");
    for (const char *name : {"logo_small", "Head", "head_medium_dark_without_shadow",
                             "drop_images_here_en", "drop_images_here_de"})
        QTest::newRow(name) << QString(":/images/%1.png").arg(name);
}

void test_dense_screen::background_of_a_sheet_is_dense()
{
    QFETCH(QString, path);
    QWidget widget;
    widget.setFixedSize(QImage(path).size());
    widget.setStyleSheet(QString("background-color: black; background-image: url(%1);").arg(path));
    QCOMPARE(shown(widget), over_black(QString(path).replace(".png", "@2x.png")));
}

void test_dense_screen::indicator_of_a_sheet_is_dense()
{
    const QIcon icon(":/gui/radio/checked.png");
    const QPixmap pixmap = icon.pixmap(QSize(13, 13));
    const QImage picture = dense_picture(":/gui/radio/checked@2x.png");
    QCOMPARE(pixmap.toImage(), QPixmap::fromImage(picture).toImage());
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

void test_dense_screen::icon_of_a_message_box_is_dense()
{
    install_icons();
    const QPixmap pixmap = QIcon::fromTheme("dialog-question").pixmap(QSize(48, 48));
    const QImage picture = dense_picture(":/icons/orv/48x48@2/dialog-question.png");
    QCOMPARE(pixmap.toImage(), QPixmap::fromImage(picture).toImage());
}

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", QByteArray::number(density));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    return run_test<test_dense_screen>(argc, argv);
}
#include "test_dense_screen.moc"
