// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>

class QWidget;

namespace orv
{
class progress_dialog;
}  // namespace orv

/// Shows the progress of a batch and decides when its windows are painted.
///
/// Lives on the GUI thread; only one exists at a time. Painting after each step, before the next
/// request, would keep the metadata tool idle. After a step, therefore, the repaint requests of the
/// watched windows are held back until the next request has been sent to the tool. The windows are
/// then painted while the tool works, and show the exact state while the program waits for it. A
/// step that isn't followed by a request is painted at the start of the next step; the last step
/// isn't held back. Nothing is held back while the program waits for events. Areas that the window
/// system exposes are painted whenever events are processed.
class batch_progress : public QObject
{
    Q_OBJECT

public:
    batch_progress();
    ~batch_progress() override;

    batch_progress(const batch_progress &) = delete;
    batch_progress &operator=(const batch_progress &) = delete;

    /// Decides from now on when this window is painted. Requires: the window, which is borrowed,
    /// outlives the last batch.
    void watch(QWidget *window);

    /// Shows the dialog of a batch with no step done, and processes events once, including user
    /// input. Then waits until the dialog is painted, but no longer than a second; meanwhile all
    /// events except user input are processed. A batch can start while another runs. Requires: it
    /// ends before the other one.
    void start(orv::progress_dialog *dialog, int steps);

    /// Shows the number of steps if it has changed, without waiting for the next step.
    void set_steps(int steps);

    /// Shows that `done` of `steps` steps are done; the number of steps may have changed.
    void step(int done, int steps);

    /// Ends the innermost batch and hides its dialog, which hides on its own only when all steps
    /// are done: not in a batch without steps, or in one that ends early because the table was
    /// cleared. If an outer batch that isn't done shares the dialog, the dialog shows that batch
    /// again.
    void end();

    /// Blocks repaint requests while they are held back; each window remembers on its own what it
    /// has to paint.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct batch {
        orv::progress_dialog *dialog;
        int done;
        int steps;
    };

    static void show(const batch &shown);
    void paint_collected();

    QList<QWidget *> windows;  ///< the watched ones
    QList<batch> batches;      ///< the running ones, each inside the one before it
    bool collects = false;
};
