// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "dense_pictures.h"
#include "orv/dialog_about.h"
#include "program_test_main.h"

#include <QStyle>

/// The pictures of style sheets on a screen with a fractional number of device pixels per pixel.
class test_smooth_pictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void picture_of_the_window_is_smooth_data();
    void picture_of_the_window_is_smooth();
    void header_of_the_about_dialog_is_smooth_data();
    void header_of_the_about_dialog_is_smooth();
};

namespace
{

/// The lowest ratio, at which the dense pictures are shrunk most.
constexpr double screen_ratio = 1.25;
constexpr double ratios[] = {1.25, 1.5, 1.75};

/// A picture over black in an area of this size, smoothed as a painter does it.
QImage smooth_picture(const QString &name, Qt::Alignment alignment, QSize size, qreal ratio)
{
    const QImage picture = dense_picture(":/images/" + name + "@2x.png");
    const QSize picture_size = picture.size() / dense_ratio;
    const QRect place =
        QStyle::alignedRect(Qt::LeftToRight, alignment, picture_size, QRect(QPoint(), size));
    QImage image = canvas(size, ratio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place.topLeft(), picture);
    painter.end();
    return image.convertToFormat(QImage::Format_RGB32);
}

/// Whether the widget shows the picture smoothed as a painter does it. A row or column of which the
/// widget has only a part of a device pixel isn't compared.
void check_picture(QWidget &widget, const QString &name, Qt::Alignment alignment, qreal ratio)
{
    const auto whole_pixels = [&widget, ratio](const QImage &image) {
        return image.copy(0, 0, int(widget.width() * ratio), int(widget.height() * ratio));
    };
    QCOMPARE(whole_pixels(painted(widget, ratio)),
             whole_pixels(smooth_picture(name, alignment, widget.size(), ratio)));
}

}  // namespace

void test_smooth_pictures::initTestCase()
{
    QCOMPARE(qApp->devicePixelRatio(), screen_ratio);
}

void test_smooth_pictures::picture_of_the_window_is_smooth_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : ratios) {
        const auto row = [ratio](const char *name, Qt::Alignment alignment) {
            QTest::addRow("%s at %g", name, ratio) << QString(name) << alignment << ratio;
        };
        row("head_medium_dark_without_shadow", Qt::AlignLeft | Qt::AlignTop);
        row("logo_small", Qt::AlignLeft | Qt::AlignTop);
        row("drop_images_here_en", Qt::AlignHCenter | Qt::AlignBottom);
    }
}

void test_smooth_pictures::picture_of_the_window_is_smooth()
{
    QFETCH(QString, name);
    QFETCH(Qt::Alignment, alignment);
    QFETCH(qreal, ratio);
    MainWindow window(nullptr);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    check_picture(*widget_with(window, "images/" + name + ".png"), name, alignment, ratio);
}

void test_smooth_pictures::header_of_the_about_dialog_is_smooth_data()
{
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : ratios)
        QTest::addRow("at %g", ratio) << ratio;
}

void test_smooth_pictures::header_of_the_about_dialog_is_smooth()
{
    QFETCH(qreal, ratio);
    orv::dialog_about dialog(nullptr, true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    check_picture(*widget_with(dialog, "images/Head.png"), "Head", Qt::AlignLeft | Qt::AlignTop,
                  ratio);
}

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", QByteArray::number(screen_ratio));
    return run_program_test<test_smooth_pictures>(argc, argv);
}
#include "test_smooth_pictures.moc"
