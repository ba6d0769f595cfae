// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

namespace orv
{

/// A colour in the byte order of a 32-bit ARGB pixel on a little-endian machine.
struct pixel_argb {
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t alpha = 255;
};

}  // namespace orv
