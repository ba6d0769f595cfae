// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch_progress.h"

#include "orv/exiftool.h"
#include "orv/progress_dialog.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QWindow>

namespace
{

constexpr int expose_limit_ms = 1000;
constexpr int expose_poll_ms = 1;
constexpr int settle_limit_ms = 50;

/// Until the window system has shown the dialog, and it is painted and all that it uncovered:
/// during a request that couldn't be. The window manager takes the time that it needs, and a
/// minimised program isn't shown at all.
void wait_until_painted(const QWidget &dialog)
{
    QElapsedTimer waited;
    waited.start();
    while (!dialog.windowHandle()->isExposed() && !dialog.parentWidget()->isMinimized() &&
           !waited.hasExpired(expose_limit_ms)) {
        QThread::msleep(expose_poll_ms);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, settle_limit_ms);
}

}  // namespace

batch_progress::batch_progress()
{
    orv::exiftool::set_request_sent([this] { paint_collected(); });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (collects)
                    paint_collected();
            });
}

batch_progress::~batch_progress()
{
    orv::exiftool::set_request_sent(nullptr);
}

void batch_progress::watch(QWidget *window)
{
    windows << window;
    window->installEventFilter(this);
}

void batch_progress::start(orv::progress_dialog *dialog, int steps)
{
    paint_collected();
    batches << batch{dialog, 0, steps};
    dialog->setRange(0, steps);
    dialog->setValue(0);
    QCoreApplication::processEvents();
    if (steps > 0 && dialog->isVisible())
        wait_until_painted(*dialog);
}

void batch_progress::step(int done, int steps)
{
    if (collects)
        paint_collected();
    collects = done < steps;
    batch &innermost = batches.last();
    innermost.done = done;
    innermost.steps = steps;
    innermost.dialog->setRange(0, steps);
    innermost.dialog->setValue(done);
}

void batch_progress::end()
{
    paint_collected();
    const batch ended = batches.takeLast();
    ended.dialog->reset();
    const bool is_inside = !batches.isEmpty() && batches.last().dialog == ended.dialog;
    if (is_inside && batches.last().done < batches.last().steps)
        show(batches.last());
}

bool batch_progress::eventFilter(QObject *watched, QEvent *event)
{
    return (collects && event->type() == QEvent::UpdateRequest) ||
           QObject::eventFilter(watched, event);
}

void batch_progress::show(const batch &shown)
{
    shown.dialog->setRange(0, shown.steps);
    shown.dialog->setValue(shown.done);
    shown.dialog->show();
    wait_until_painted(*shown.dialog);
}

/// Windows without anything to paint do nothing.
void batch_progress::paint_collected()
{
    collects = false;
    for (QWidget *window : qAsConst(windows)) {
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(window, &request);
    }
}
