// SPDX-License-Identifier: GPL-3.0-or-later

#include "watched_program.h"

#include "window_actions.h"

namespace
{

/// The longest time that a file dialog with many files needs to open under a sanitizer.
constexpr int longest_wait_ms = 60000;

}  // namespace

QString watched_program::make_photos(const QString &name, int count)
{
    const QString path = folder.filePath(name);
    QDir().mkpath(path);
    for (int photo = 0; photo < count; ++photo) {
        const QString photo_name = QString("%1_%2.JPG").arg(name).arg(photo, 3, 10, QChar('0'));
        make_file(path + '/' + photo_name);
        tool.set_tags(photo_name, dated_tags);
    }
    return path;
}

void watched_program::start(const QString &steps)
{
    run = std::make_unique<isolated_program>(KELVRA_PROGRAM);
    run->use_stand_in();
    program = std::make_unique<running_program>(run->program_path(), steps);
}

bool watched_program::waits_at(int request) const
{
    return QTest::qWaitFor([&] { return tool.holds(request); }, longest_wait_ms);
}

bool watched_program::shows(expected_screens &expected, const QImage &progress) const
{
    const QRect window_place = place_of(main_window());
    const QRect dialog_place = place_of(window_with_title("Please Wait"));
    const QImage window_picture = expected.main_window(window_place.size());
    const QRegion hidden = QRegion(expected.place_of_caret()) +
                           with_frame(dialog_place).translated(-window_place.topLeft());
    const auto is_shown = [&] {
        return same_pixels(picture_of(window_place), window_picture, hidden) &&
               same_pixels(picture_of(dialog_place), progress);
    };
    if (within_a_second(is_shown))
        return true;
    keep_pictures(window_picture);
    return false;
}

QStringList watched_program::read_paths() const
{
    QStringList paths;
    for (const QByteArray &request : tool.requests())
        paths << QString::fromUtf8(request).section('\n', -3, -3);
    return paths;
}
