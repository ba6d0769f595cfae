// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/folder_files.h"

#include <QStringList>
#include <QWidget>

/// The area where files and folders can be dropped.
class drop_files_widget : public QWidget
{
    Q_OBJECT

public:
    explicit drop_files_widget(QWidget *parent);

signals:
    /// Sent for each drop, with its local files and the files directly in its folders; with an
    /// empty list if there are none.
    void files_dropped(QStringList filenames);

protected:
    void dragEnterEvent(QDragEnterEvent *e) override;
    void dropEvent(QDropEvent *e) override;
};
