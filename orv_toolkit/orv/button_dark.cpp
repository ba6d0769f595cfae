// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_dark.h"

#include "qor/assertion.h"

#include <QApplication>
#include <QButtonGroup>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace orv
{

namespace
{

constexpr char face_sheet[] =
    "QPushButton{border-style:none;border-width:3px;"
    "border-image:url(:/gui/button/%1_normal.png) 3 stretch;text-align:%2;}"
    "QPushButton::pressed{border-style:none;border-width:3px;"
    "border-image:url(:/gui/button/%1_pressed.png) 3 stretch;}"
    "QPushButton::hover{color:#f0f0f0;}"
    "QPushButton::disabled{color:rgba(129,136,133,50%);}"
    "QToolTip{border:1px solid rgb(99,99,99);background-image:none;"
    "background-color:rgb(47,47,47);}";

constexpr char checked_face_sheet[] = "QPushButton::checked{border-style:none;border-width:3px;"
                                      "border-image:url(:/gui/button/%1_pressed.png) 3 stretch;}";

constexpr double frame_width_px = 2.0;
const QColor frame_colour(129, 136, 133, 255);

/// The picture at a path in the resolution of the screens: the variant NAME@2x, with two device
/// pixels per pixel, if it exists and a screen has more than one.
QImage picture_for_screen(const QString &path)
{
    const QFileInfo file(path);
    const QString dense_path =
        QString("%1/%2@2x.%3").arg(file.path(), file.completeBaseName(), file.suffix());
    const bool is_dense = qApp->devicePixelRatio() > 1 && QFile::exists(dense_path);
    QImage picture(is_dense ? dense_path : path);
    picture.setDevicePixelRatio(is_dense ? 2 : 1);
    return picture;
}

void load_picture(QImage *&image, const QString &path)
{
    delete image;
    image = new QImage(picture_for_screen(path).convertToFormat(QImage::Format_ARGB32));
}

/// In device-independent pixels.
QSize shown_size(const QImage &image)
{
    return image.size() / image.devicePixelRatio();
}

/// Calls `change(pixel)` for each pixel. Requires: the format of the picture is ARGB32.
template <class Change>
void for_each_pixel(QImage &image, Change change)
{
    for (int y = 0; y < image.height(); ++y) {
        auto *pixels = reinterpret_cast<pixel_argb *>(image.scanLine(y));
        std::for_each(pixels, pixels + image.width(), change);
    }
}

void fill_colour(QImage &image, pixel_argb colour)
{
    for_each_pixel(image, [colour](pixel_argb &pixel) {
        pixel = {colour.blue, colour.green, colour.red, pixel.alpha};
    });
}

void halve_alpha(QImage &image)
{
    for_each_pixel(image, [](pixel_argb &pixel) {
        pixel.alpha = static_cast<std::uint8_t>(pixel.alpha >> 1);
    });
}

int distance(pixel_argb a, pixel_argb b)
{
    return std::abs(a.blue - b.blue) + std::abs(a.green - b.green) + std::abs(a.red - b.red);
}

/// The pixel closest to `colour`, or the first of several; opaque black if all are at the greatest
/// possible distance.
pixel_argb closest_pixel(QImage &image, pixel_argb colour)
{
    pixel_argb closest;
    int smallest_distance = 3 * 255;
    for_each_pixel(image, [&](pixel_argb pixel) {
        const int pixel_distance = distance(pixel, colour);
        if (pixel_distance < smallest_distance) {
            smallest_distance = pixel_distance;
            closest = pixel;
        }
    });
    return closest;
}

std::uint8_t moved(std::uint8_t channel, int delta)
{
    return static_cast<std::uint8_t>(std::clamp(channel + delta, 0, 255));
}

/// Where something of the length `inner` starts when it is centred in `outer`.
int centred(int outer, int inner)
{
    return (outer - inner) / 2;
}

void draw_frame(QPainter &painter, const QRect &rect)
{
    painter.setPen(QPen(frame_colour, frame_width_px));
    painter.drawRect(rect);
}

}  // namespace

button_dark::img_highlighter::~img_highlighter()
{
    delete image_normal;
    delete image_hot;
    delete image_disabled;
}

void button_dark::img_highlighter::show(const QString &new_path, pixel_argb hot, pixel_argb normal)
{
    hot_colour = hot;
    normal_colour = normal;
    rebuild();
    path = new_path;
    rebuild();
}

void button_dark::img_highlighter::rebuild()
{
    if (path.isEmpty())
        return;
    load_picture(image_normal, path);
    load_picture(image_hot, path);
    load_picture(image_disabled, path);
    if (tinted)
        tint();
    else
        recolour();
    halve_alpha(*image_disabled);
    image_width = shown_size(*image_normal).width();
}

button_dark::img_highlighter::paint_function
button_dark::img_highlighter::get_custom_paint_ex(int x, int y)
{
    return [this, x, y](QPainter &painter, QPushButton *button) {
        const auto *bd = qobject_cast<button_dark *>(button);
        if (!bd)  // the line number that reports use, as in `trace_scope`
            qor::assertion_failed("bd", "../orv_toolkit/orv/button_dark", 211,
                                  "orv::button_dark::img_highlighter::get_custom_paint_ex(int, "
                                  "int)::<lambda(QPainter&, QPushButton*)>");
        if (const QImage *image = image_for(*bd)) {
            const QSize size = shown_size(*image_normal);
            const int left = x == -1 ? centred(bd->width(), size.width()) : x;
            const int top = y == -1 ? centred(bd->height(), size.height()) : y;
            painter.drawImage(left, top, *image);
        }
        if (bd->draw_frame_when_checked && bd->isCheckable() && bd->isChecked())
            draw_frame(painter, bd->rect());
    };
}

/// Null before a picture is loaded.
const QImage *button_dark::img_highlighter::image_for(const button_dark &button) const
{
    if (!button.isEnabled())
        return image_disabled;
    const bool checked = button.isCheckable() && button.isChecked();
    const bool hot = button.underMouse() || (button.hot_when_checked && checked);
    return hot ? image_hot : image_normal;
}

void button_dark::img_highlighter::recolour()
{
    fill_colour(*image_normal, normal_colour);
    fill_colour(*image_hot, hot_colour);
    fill_colour(*image_disabled, normal_colour);
}

void button_dark::img_highlighter::tint()
{
    const pixel_argb reference = closest_pixel(*image_normal, normal_colour);
    const int blue = hot_colour.blue - reference.blue;
    const int green = hot_colour.green - reference.green;
    const int red = hot_colour.red - reference.red;
    for_each_pixel(*image_hot, [=](pixel_argb &pixel) {
        pixel = {moved(pixel.blue, blue), moved(pixel.green, green), moved(pixel.red, red),
                 pixel.alpha};
    });
}

button_dark::button_dark(QWidget *parent) : button_dark(QString(), parent) {}

button_dark::button_dark(QString text, QWidget *parent)
    : QPushButton(text, parent), sheet_template(face_sheet), sheet_checked(checked_face_sheet)
{
    rebuild_sheet();
    setFocusPolicy(Qt::NoFocus);
}

void button_dark::set_skin(QString name)
{
    skin = std::move(name);
    rebuild_sheet();
}

void button_dark::set_text_align(QString align)
{
    text_align = std::move(align);
    rebuild_sheet();
}

void button_dark::fit_width(int left, int right)
{
    setFixedWidth(left + icon.image_width + right);
}

void button_dark::set_flags(bool draw_frame, bool use_checked, bool hot_checked)
{
    draw_frame_when_checked = draw_frame;
    use_checked_sheet = use_checked;
    hot_when_checked = hot_checked;
    rebuild_sheet();
}

void button_dark::set_icon(QString path, int x, int y, pixel_argb hot, pixel_argb normal)
{
    icon.show(path, hot, normal);
    paint_callback_ex = icon.get_custom_paint_ex(x, y);
}

void button_dark::set_tinted_icon(QString path, int x, int y, pixel_argb hot, pixel_argb normal)
{
    icon.tinted = true;
    set_icon(std::move(path), x, y, hot, normal);
}

void button_dark::set_checked_icon(QString path, int x, int y, pixel_argb hot, pixel_argb normal)
{
    checked_icon.show(path, hot, normal);
    use_checked_sheet = false;
    const auto paint_checked = checked_icon.get_custom_paint_ex(x, y);
    const auto paint_unchecked = icon.get_custom_paint_ex(x, y);
    paint_callback_ex = [paint_checked, paint_unchecked](QPainter &painter, QPushButton *button) {
        (button->isChecked() ? paint_checked : paint_unchecked)(painter, button);
    };
}

void button_dark::set_tinted_checked_icon(QString path, int x, int y, pixel_argb hot,
                                          pixel_argb normal)
{
    checked_icon.tinted = true;
    set_checked_icon(std::move(path), x, y, hot, normal);
}

void button_dark::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (paint_callback_ex)
        paint_callback_ex(painter, this);
    if (paint_callback)
        paint_callback(painter);
}

void button_dark::mouseReleaseEvent(QMouseEvent *event)
{
    if (!unchecks_on_click()) {
        QPushButton::mouseReleaseEvent(event);
        return;
    }
    QButtonGroup *buttons = group();
    buttons->setExclusive(false);
    QPushButton::mouseReleaseEvent(event);
    setChecked(false);
    buttons->setExclusive(true);
}

void button_dark::rebuild_sheet()
{
    QString sheet = sheet_template;
    if (use_checked_sheet)
        sheet += sheet_checked;
    // Two calls, not one: a "%2" in the name of a skin is replaced by the alignment too.
    sheet = sheet.arg(skin);
    setStyleSheet(sheet.arg(text_align));
}

bool button_dark::unchecks_on_click() const
{
    const QButtonGroup *buttons = group();
    return buttons && buttons->exclusive() && allow_uncheck && buttons->checkedButton() == this &&
           isChecked();
}

}  // namespace orv
