// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "MainWindow.h"
#include "exif_cache.h"
#include "orv/button_dark.h"
#include "orv/progress_dialog.h"
#include "table_data_model.h"

#include <QImage>
#include <QProgressBar>

/// What the program's window looks like with given photos. It is painted in this process and never
/// shown.
class expected_screens
{
public:
    expected_screens()
    {
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show();
    }

    /// Lists photos in this order, each with the recording time of `dated_tags`.
    void set_photos(const QStringList &paths)
    {
        window.on_button_reset_clicked();
        for (const QString &path : paths) {
            tag_map &record = exif_cache::instance()->records[path.toStdString()];
            record = {{"rec_year", "2017"}, {"rec_month", "05"},  {"rec_day", "03"},
                      {"rec_hour", "12"},   {"rec_minute", "00"}, {"rec_second", "00"}};
        }
        window.model->files = paths;
        window.model->datetime_format_changed(window.model->display_format);
    }

    void set_undo_enabled(bool enabled) { window.button_undo->setEnabled(enabled); }

    QImage main_window(QSize size)
    {
        window.resize(size);
        return window.grab().toImage();
    }

    /// The field of the main window whose caret blinks while the window is active.
    QRect place_of_caret() const
    {
        const auto *field = window.findChild<QWidget *>("lineedit_year");
        return {field->mapTo(&window, QPoint()), field->size()};
    }

    QImage load_progress(int done, int steps)
    {
        return progress(*window.progress_load, done, steps);
    }
    QImage fix_progress(int done, int steps) { return progress(*window.progress_fix, done, steps); }

private:
    static QImage progress(orv::progress_dialog &dialog, int done, int steps)
    {
        auto *bar = dialog.findChild<QProgressBar *>();
        bar->setRange(0, steps);
        bar->setValue(done);
        return dialog.grab().toImage();
    }

    MainWindow window{nullptr};
};

/// The tags that a tool reports for a photo like the expected ones.
inline const QStringList dated_tags = {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"};
