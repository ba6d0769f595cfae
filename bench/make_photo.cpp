// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes a JPEG file of approximately the given size; its picture is noise.
//
// usage: make_photo FILE KILOBYTES

#include "readings.h"

#include <QImage>

#include <cmath>
#include <cstdlib>
#include <random>

namespace
{

constexpr int quality = 90;
constexpr double bytes_per_pixel = 0.795;  ///< of grey noise at this quality

QImage noise(int side_px)
{
    std::minstd_rand random;
    QImage image(side_px, side_px, QImage::Format_Grayscale8);
    for (int y = 0; y < side_px; ++y) {
        for (int x = 0; x < side_px; ++x)
            image.scanLine(y)[x] = static_cast<uchar>(random() >> 8);
    }
    return image;
}

}  // namespace

int main(int argc, char **argv)
{
    const double kilobytes = argc == 3 ? std::atof(argv[2]) : 0.0;
    if (kilobytes < 1.0)
        give_up("usage: make_photo FILE KILOBYTES");
    const double pixels = kilobytes * 1000.0 / bytes_per_pixel;
    if (!noise(static_cast<int>(std::sqrt(pixels))).save(argv[1], "JPG", quality))
        give_up("can't write the photo");
}
