// SPDX-License-Identifier: GPL-3.0-or-later

#include "watched_program.h"

#include "window_road.h"

namespace
{

bool screen_shows(expected_screens &expected, const QImage &progress)
{
    const QString window = window_with_title("Kelvra");
    const QString dialog = window_with_title("Please Wait");
    if (window.isEmpty() || dialog.isEmpty())
        return false;
    const QRect window_place = place_of(window);
    const QRect dialog_place = place_of(dialog);
    const QImage window_picture = expected.main_window(window_place.size());
    const QRegion hidden = QRegion(expected.place_of_caret()) +
                           with_frame(dialog_place).translated(-window_place.topLeft());
    return same_pixels(picture_of(window_place), window_picture, hidden) &&
           same_pixels(picture_of(dialog_place), progress);
}

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
    run = std::make_unique<outside_run>(KELVRA_PROGRAM);
    run->use_stand_in();
    program = std::make_unique<running_program>(run->program_path(), steps);
}

bool watched_program::waits_at(int request) const
{
    return QTest::qWaitFor([&] { return tool.holds(request); });
}

bool watched_program::shows(expected_screens &expected, const QImage &progress) const
{
    if (within_a_second([&] { return screen_shows(expected, progress); }))
        return true;
    keep_pictures(expected.main_window(place_of(main_window()).size()));
    return false;
}

QStringList watched_program::read_paths() const
{
    QStringList paths;
    for (const QByteArray &request : tool.requests())
        paths << QString::fromUtf8(request).section('\n', -3, -3);
    return paths;
}
