// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

/// Collects what is painted of a widget during its lifetime.
class painted_part : public QObject
{
public:
    explicit painted_part(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return QObject::eventFilter(watched, event);
    }

    QRegion region;
};
