// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/tag_catalogue.h"

#include <iterator>

namespace orv
{

namespace
{

// Plain literals: for a list of 8830 strings the compiler would build each one on the stack first.
constexpr const char *catalogue_names[] = {
#include "orv/tag_catalogue_names.inc"
};

}  // namespace

const std::vector<std::string> tag_catalogue(std::begin(catalogue_names),
                                             std::end(catalogue_names));

// clang-format off
const std::set<std::string> supported_extensions = {
    "3g2", "3gp", "3gp2", "3gpp", "aax", "ai", "ait", "apng", "arw", "ciff", "cr2", "crw", "cs1",
    "dcp", "dng", "dr4", "dvb", "eps", "eps2", "eps3", "epsf", "erf", "exif", "exv", "f4a", "f4b",
    "f4p", "f4v", "fff", "flif", "gif", "hdp", "icc", "icm", "iiq", "ind", "indd", "indt", "inx",
    "j2k", "jng", "jp2", "jpe", "jpeg", "jpf", "jpg", "jpm", "jpx", "jxr", "m4a", "m4b", "m4p",
    "m4v", "mef", "mie", "mng", "mos", "mov", "mp4", "mpo", "mqv", "mrw", "nef", "nrw", "orf",
    "pbm", "pdf", "pef", "pgm", "png", "ppm", "ps", "ps2", "ps3", "psb", "psd", "psdt", "qt", "raf",
    "raw", "rw2", "rwl", "sr2", "srw", "thm", "tif", "tiff", "vrd", "wdp", "x3f", "xmp"};
// clang-format on

const std::vector<std::string> file_date_tags = {"FileAccessDate", "FileCreateDate",
                                                 "FileModifyDate"};

}  // namespace orv
