// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDrag>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <QtTest>

#include <functional>

/// A small window of another program, from which files can be dragged with the mouse.
class drag_source : public QWidget
{
public:
    /// @param paths  the files that are dragged from here
    explicit drag_source(const QStringList &paths) : paths(paths)
    {
        setWindowTitle("Files");
        setFixedSize(100, 60);
        move(0, 0);
        show();
        if (!QTest::qWaitForWindowExposed(this))
            qFatal("the window to drag from doesn't show");
    }

    /// Drags the files to a place on the screen and drops them there once `is_time` returns true,
    /// or after a few seconds. Returns after the drop, whether it was accepted or not.
    void drag_to(
        QPoint place, const std::function<bool()> &is_time = [] { return true; })
    {
        const int before = drags;
        QTimer poll;
        QElapsedTimer waited;
        connect(&poll, &QTimer::timeout, this, [&] {
            const bool is_there = mouse.state() == QProcess::NotRunning;
            if (!is_there || !(is_time() || waited.hasExpired(patience_ms)))
                return;
            poll.stop();
            mouse.start("xdotool", {"mouseup", "1"});
        });
        mouse.start("xdotool", begin_of_drag() + moves_to(place));
        waited.start();
        poll.start(poll_ms);
        QTRY_COMPARE_WITH_TIMEOUT(drags, before + 1, 2 * patience_ms);
        QTRY_COMPARE(mouse.state(), QProcess::NotRunning);
    }

    int drags = 0;       ///< finished drags
    bool taken = false;  ///< whether the last drag was accepted

    /// What the mouse cursor says about a drop at its position.
    static bool cursor_refuses() { return has_cursor(Qt::ForbiddenCursor); }
    static bool cursor_takes() { return has_cursor(Qt::DragCopyCursor); }

protected:
    /// Returns when the button is released.
    void mousePressEvent(QMouseEvent * /*event*/) override
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls << QUrl::fromLocalFile(path);
        auto *data = new QMimeData;
        data->setUrls(urls);
        auto *drag = new QDrag(this);
        drag->setMimeData(data);
        taken = drag->exec(Qt::CopyAction) == Qt::CopyAction;
        ++drags;
    }

private:
    static constexpr int poll_ms = 20;
    static constexpr int patience_ms = 5000;

    static bool has_cursor(Qt::CursorShape shape)
    {
        const QCursor *cursor = QGuiApplication::overrideCursor();
        return cursor && cursor->shape() == shape;
    }

    QStringList begin_of_drag() const
    {
        const QPoint middle = mapToGlobal(rect().center());
        return moves_to(middle) + QStringList{"mousedown", "1"} + moves_to(middle + QPoint(30, 0));
    }

    /// In two steps, since moving to where the mouse already is doesn't count as a move.
    static QStringList moves_to(QPoint place)
    {
        const auto move_to = [](QPoint at) {
            return QStringList{"mousemove", QString::number(at.x()), QString::number(at.y()),
                               "sleep", "0.1"};
        };
        return move_to(place - QPoint(2, 0)) + move_to(place);
    }

    const QStringList paths;
    QProcess mouse;  ///< moves the mouse for the user while the drag blocks
};
