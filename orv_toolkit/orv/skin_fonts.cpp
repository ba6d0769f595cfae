// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/skin_fonts.h"

namespace orv
{

namespace
{

constexpr int text_point_size = 9;
constexpr int heading_point_size = 11;

}  // namespace

QFont text_font()
{
    return {"FreeSans", text_point_size};
}

QFont heading_font()
{
    return {"FreeSansBold", heading_point_size, QFont::Bold};
}

}  // namespace orv
