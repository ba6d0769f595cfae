// SPDX-License-Identifier: GPL-3.0-or-later

#include "drop_files_widget.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace
{

QStringList local_names(const QMimeData &data)
{
    QStringList names;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            names << url.toLocalFile();
    }
    return names;
}

}  // namespace

drop_files_widget::drop_files_widget(QWidget *parent) : QWidget(parent) {}

void drop_files_widget::dragEnterEvent(QDragEnterEvent *e)
{
    if (e->mimeData()->hasFormat("text/uri-list"))
        e->acceptProposedAction();
}

void drop_files_widget::dropEvent(QDropEvent *e)
{
    emit files_dropped(files_and_folder_contents(local_names(*e->mimeData())));
    e->acceptProposedAction();
}
