// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/tag_map.h"

#include <cstddef>
#include <string>

/// The tags in which a photo keeps its recording time: the first one or, if it is missing, the
/// second.
inline constexpr char exif_recording_tag[] = "ExifIFD:DateTimeOriginal";
inline constexpr char ifd0_recording_tag[] = "IFD0:DateTimeOriginal";

/// The text stored under a key; empty if the key is missing. Borrowed from `tags`.
const std::string &value_of(const tag_map &tags, const std::string &key);

/// The index at which the zone of a time such as "12:34:56+02:00" begins: that of its last "+" or,
/// if there is none, of its last "-"; `std::string::npos` if it has neither sign.
std::size_t zone_start(const std::string &time);
