// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QStringList>
#include <QTimer>
#include <QWidget>

/// While it exists, closes the modal dialogs that open and records their classes: for a step that
/// must open none, or for dialogs that the test doesn't wait for.
class modal_watch
{
public:
    modal_watch()
    {
        QObject::connect(&poll, &QTimer::timeout, &poll, [this] { look(); });
        poll.start(poll_ms);
    }

    QStringList classes;

private:
    static constexpr int poll_ms = 5;

    void look()
    {
        QWidget *widget = QApplication::activeModalWidget();
        if (!widget)
            return;
        classes << widget->metaObject()->className();
        widget->close();
    }

    QTimer poll;
};
