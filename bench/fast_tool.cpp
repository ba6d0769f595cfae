// SPDX-License-Identifier: GPL-3.0-or-later
//
// Replaces the metadata tool in measurements where the tool's time would hide the program's.
// Answers each request immediately; a read gets 150 tags like those of a camera. The recording
// times of successive reads are spread over two weeks, in no order.

#include <iostream>
#include <string>

namespace
{

constexpr int tag_count = 150;
constexpr int seconds_per_photo = 120;
constexpr unsigned spread_seconds = 14 * 24 * 3600;

const char *const named_tags[] = {
    "-ExifTool:ExifToolVersion=12.57",
    "-System:Directory=/home/user/Pictures/2017 Summer trip/camera",
    "-System:FileSize=4.2 MB",
    "-System:FileModifyDate=2017:05:03 12:00:00+02:00",
    "-System:FileAccessDate=2017:05:04 18:31:09+02:00",
    "-System:FileInodeChangeDate=2017:05:04 18:31:08+02:00",
    "-System:FilePermissions=-rw-r--r--",
    "-File:FileType=JPEG",
    "-File:MIMEType=image/jpeg",
    "-File:ImageWidth=4000",
    "-File:ImageHeight=3000",
    "-IFD0:Make=CAMERA WORKS CORPORATION",
    "-IFD0:Model=CAMERA WORKS COMPACT 400",
    "-IFD0:ModifyDate=2017:05:03 12:00:00",
    "-ExifIFD:ExposureTime=1/250",
    "-ExifIFD:CreateDate=2017:05:03 12:00:00",
    "-ExifIFD:LensModel=Zoom lens 24-105 mm f/4 stabilised",
    "-IPTC:DateCreated=2017:05:03",
    "-IPTC:TimeCreated=12:00:00+02:00",
    "-GPS:GPSLatitude=52 deg 31' 12.03\" N",
};

std::string two_digits(unsigned number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

/// Goes through the two weeks in steps that wrap around, so that the times are in no order.
std::string recording_time(unsigned photo)
{
    constexpr unsigned scattered = 7919;
    const unsigned second =
        photo * scattered % (spread_seconds / seconds_per_photo) * seconds_per_photo +
        photo % seconds_per_photo;
    const unsigned day = 1 + second / (24 * 3600);
    return "2017:05:" + two_digits(day) + " " + two_digits(second / 3600 % 24) + ":" +
           two_digits(second / 60 % 60) + ":" + two_digits(second % 60);
}

std::string common_tags()
{
    std::string lines;
    int count = 1;
    for (const char *tag : named_tags) {
        lines += std::string(tag) + "\n";
        ++count;
    }
    for (; count < tag_count; ++count) {
        const std::string number = std::to_string(count);
        lines += "-Camera:CustomFunction" + number + "=" +
                 (count % 3 == 0 ? "Evaluative metering " + number : number) + "\n";
    }
    return lines;
}

}  // namespace

int main()
{
    const std::string tags = common_tags();
    unsigned photo = 0;
    bool writes = false;
    for (std::string line; std::getline(std::cin, line);) {
        if (line == "-overwrite_original_in_place")
            writes = true;
        if (line == "False")
            return 0;
        if (line != "-execute")
            continue;
        if (writes)
            std::cout << "    1 image files updated\n";
        else
            std::cout << "-ExifIFD:DateTimeOriginal=" << recording_time(photo++) << "\n" << tags;
        std::cout << "{ready}\n" << std::flush;
        writes = false;
    }
}
