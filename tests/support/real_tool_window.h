// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "file_bytes.h"
#include "private_home.h"
#include "sample_photos.h"
#include "window_actions.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>

/// A main window that uses the real tool, with photos that are real files.
class real_tool_window
{
public:
    void start()
    {
        clear_settings();
        folder = std::make_unique<QTemporaryDir>();
        window = open_window();
    }

    void end()
    {
        close_window(window);
        folder.reset();
    }

    QString path_of(const QString &name) const { return folder->filePath(name); }

    /// A photo of the format that its name says. The file's own date is one that no test uses.
    QString make_photo(const QString &name, const QStringList &tags) const
    {
        const QString path = path_of(name);
        if (name.endsWith(".png"))
            make_png(path, tags);
        else if (name.endsWith(".tif"))
            make_tiff(path, tags);
        else
            make_jpeg(path, tags);
        set_tags(path, {"System:FileModifyDate=2018:01:02 03:04:05+00:00"});
        return path;
    }

    QString make_dated_photo(const QString &name) const
    {
        return make_photo(name, {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"});
    }

    QString recording_time(const QString &name) const
    {
        return tag_of(path_of(name), "ExifIFD:DateTimeOriginal");
    }

    /// Everything in the folder, including hidden files.
    QStringList names() const
    {
        return QDir(folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<MainWindow> window;
};

/// What identifies a file to the file system.
inline ino_t inode_of(const QString &path)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path), &status) != 0)
        qFatal("no file at %s", qPrintable(path));
    return status.st_ino;
}
