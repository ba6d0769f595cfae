// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/pixel_argb.h"

#include <QImage>
#include <QTemporaryDir>

inline orv::pixel_argb colour(QRgb rgb)
{
    return {static_cast<std::uint8_t>(qBlue(rgb)), static_cast<std::uint8_t>(qGreen(rgb)),
            static_cast<std::uint8_t>(qRed(rgb)), static_cast<std::uint8_t>(qAlpha(rgb))};
}

/// Picture files made by a test.
class picture_folder
{
public:
    QString picture(const QImage &image)
    {
        const QString path = folder.filePath(QString("%1.png").arg(++pictures));
        if (!image.save(path))
            qFatal("can't write %s", qPrintable(path));
        return path;
    }

    /// A picture of one colour.
    QString plain_picture(QSize size, QRgb rgb = qRgb(1, 2, 3))
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(rgb);
        return picture(image);
    }

    QString missing_picture() const { return folder.filePath("missing.png"); }

private:
    QTemporaryDir folder;
    int pictures = 0;
};
