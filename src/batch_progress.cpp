// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch_progress.h"

#include "orv/exiftool.h"
#include "orv/progress_dialog.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>

namespace
{

constexpr int paint_limit_ms = 1000;
constexpr int poll_ms = 1;
constexpr int uncovered_wait_ms = 50;

void serve_window_system()
{
    QThread::msleep(poll_ms);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// Waits until the dialog is on the screen and painted. That can't happen during a request, when no
/// events are processed, and the window manager may take its time. Areas that were uncovered before
/// the dialog came up are exposed before it, so they are painted too. A minimised program doesn't
/// show its windows at all.
void wait_until_painted(const QWidget &dialog)
{
    QElapsedTimer waited;
    waited.start();
    while (!dialog.testAttribute(Qt::WA_Mapped) && !dialog.parentWidget()->isMinimized() &&
           !waited.hasExpired(paint_limit_ms))
        serve_window_system();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, uncovered_wait_ms);
}

/// Waits until the areas that a hidden dialog has uncovered are painted. The time is fixed, since
/// nothing signals that the window system has reported all of them.
void wait_until_uncovered()
{
    QElapsedTimer waited;
    waited.start();
    while (!waited.hasExpired(uncovered_wait_ms))
        serve_window_system();
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

void batch_progress::set_steps(int steps)
{
    batch &innermost = batches.last();
    if (innermost.steps == steps)
        return;
    paint_collected();
    innermost.steps = steps;
    show(innermost);
}

void batch_progress::step(int done, int steps)
{
    if (collects)
        paint_collected();
    collects = done < steps;
    batch &innermost = batches.last();
    innermost.done = done;
    innermost.steps = steps;
    const bool was_visible = innermost.dialog->isVisible();
    innermost.dialog->setRange(0, steps);
    innermost.dialog->setValue(done);
    if (innermost.dialog->isVisible() && !was_visible)
        wait_until_painted(*innermost.dialog);
}

void batch_progress::end()
{
    paint_collected();
    const batch ended = batches.takeLast();
    ended.dialog->reset();
    const auto outer = std::find_if(batches.rbegin(), batches.rend(), [&ended](const batch &other) {
        return other.dialog == ended.dialog;
    });
    if (outer != batches.rend() && outer->done < outer->steps)
        show(*outer);
    else if (!batches.isEmpty())
        wait_until_uncovered();
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

/// A window with nothing to paint ignores the request.
void batch_progress::paint_collected()
{
    collects = false;
    for (QWidget *window : qAsConst(windows)) {
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(window, &request);
    }
}
