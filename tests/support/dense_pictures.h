// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>

/// Device pixels per pixel of the program in a picture NAME@2x.
constexpr int dense_ratio = 2;

/// A black image of this size in the program's pixels, with `ratio` device pixels to each.
inline QImage canvas(QSize size, qreal ratio)
{
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    return image;
}

inline QImage dense_picture(const QString &path)
{
    QImage picture(path);
    picture.setDevicePixelRatio(dense_ratio);
    return picture;
}

/// The widget without its children, painted over black.
inline QImage painted(QWidget &widget, qreal ratio)
{
    QImage image = canvas(widget.size(), ratio);
    widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image.convertToFormat(QImage::Format_RGB32);
}

/// The widget whose own style sheet names a picture.
inline QWidget *widget_with(const QWidget &window, const QString &picture)
{
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (widget->styleSheet().contains(picture))
            return widget;
    }
    qFatal("no widget shows %s", qPrintable(picture));
}
