// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/folder_files.h"

#include <QStringList>
#include <QWidget>

/// The area on which files and folders can be dropped.
class drop_files_widget : public QWidget
{
    Q_OBJECT

public:
    explicit drop_files_widget(QWidget *parent);

signals:
    /// Sent for each drop, with the local files in it and those of its folders' first level; with
    /// an empty list where there are none.
    void files_dropped(QStringList filenames);

protected:
    void dragEnterEvent(QDragEnterEvent *e) override;
    void dropEvent(QDropEvent *e) override;
};
