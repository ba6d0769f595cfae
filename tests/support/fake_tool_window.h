// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "private_home.h"
#include "scripted_tool.h"
#include "window_actions.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

/// A main window that uses the scripted stand-in. To the stand-in, photos are only names.
class fake_tool_window
{
public:
    void start()
    {
        clear_settings();
        QDir(tool.path() + "/failing").removeRecursively();
        QDir(tool.path()).mkdir("failing");
        folder = std::make_unique<QTemporaryDir>();
        window = open_window();
        tool.forget();
    }

    void end()
    {
        close_window(window);
        folder.reset();
    }

    QString path_of(const QString &name) const { return folder->filePath(name); }

    /// Makes a file for which the stand-in will report these tags, and returns its path. The
    /// stand-in knows the file by its name, whatever the folder.
    QString make_photo(const QString &name, const QStringList &tags)
    {
        make_file(path_of(name));
        tool.set_tags(QFileInfo(name).fileName(), tags);
        return path_of(name);
    }

    void load_photo(const QString &name, const QStringList &tags)
    {
        drop_photos(*window, {make_photo(name, tags)});
    }

    /// Loads a photo that has a recording time and no other tag.
    void load_dated_photo(const QString &name, const QString &time = "2017:05:03 12:00:00")
    {
        load_photo(name, {"ExifIFD:DateTimeOriginal=" + time});
    }

    /// Loads a photo and fixes it: everything is written and no question is asked.
    void fix_dated_photo(const QString &name)
    {
        load_dated_photo(name);
        click(window->button_fix_time);
    }

    /// The lines after the options of each write since the last `tool.forget()`, by file name.
    QList<QPair<QString, QStringList>> writes() const
    {
        QList<QPair<QString, QStringList>> all;
        for (const QByteArray &request : tool.requests()) {
            const QStringList lines = QString::fromUtf8(request).split('\n');
            if (lines.value(2) == "-overwrite_original_in_place")
                all << qMakePair(lines[1].section('/', -1), lines.mid(4, lines.size() - 6));
        }
        return all;
    }

    QStringList written_names() const
    {
        QStringList names;
        for (const auto &write : writes())
            names << write.first;
        return names;
    }

    scripted_tool tool;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<MainWindow> window;
};
