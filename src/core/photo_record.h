// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/tag_map.h"

#include <cstddef>
#include <string>

/// Where a photo keeps its recording time: here, or else in the tag below.
inline constexpr char exif_recording_tag[] = "ExifIFD:DateTimeOriginal";
inline constexpr char ifd0_recording_tag[] = "IFD0:DateTimeOriginal";

/// The text under a key, empty without it. Borrowed from `tags`.
const std::string &value_of(const tag_map &tags, const std::string &key);

/// Where the zone of a time such as "12:34:56+02:00" begins: at its last "+" or, without any, at
/// its last "-"; `std::string::npos` without either.
std::size_t zone_start(const std::string &time);
