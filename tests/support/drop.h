// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStringList>
#include <QUrl>
#include <QWidget>

/// Sends a drag with `data` to the widget's own handlers, as the window system would: a drag-enter
/// and, if the widget accepts it, a drop. Returns whether the drag was accepted.
inline bool drop_on(QWidget &widget, const QMimeData &data)
{
    const QPoint place = widget.rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    static_cast<QObject &>(widget).event(&enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject &>(widget).event(&drop);
    return true;
}

inline bool drop_on(QWidget &widget, const QStringList &paths)
{
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls << QUrl::fromLocalFile(path);
    QMimeData data;
    data.setUrls(urls);
    return drop_on(widget, data);
}
