// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>

class QWidget;

namespace orv
{
class progress_dialog;
}  // namespace orv

/// Shows how far a batch is, and chooses the moment at which its windows are painted.
///
/// Lives on the GUI thread, one at a time. Painting after each step, before the next request, would
/// keep the metadata tool idle. So from a step on the repaint requests of the watched windows are
/// collected, and delivered as soon as the next request has gone down to the tool: they are painted
/// while it works, and show the exact state for as long as the program waits. A step that isn't
/// followed by a request is painted at the start of the next one, the last step at once. Nothing is
/// collected while the program waits for events. What the window system exposes is painted whenever
/// events are served.
class batch_progress : public QObject
{
    Q_OBJECT

public:
    batch_progress();
    ~batch_progress() override;

    batch_progress(const batch_progress &) = delete;
    batch_progress &operator=(const batch_progress &) = delete;

    /// Chooses when this window is painted; borrowed, it must outlive the last batch.
    void watch(QWidget *window);

    /// Shows the dialog of a batch with no step done, and serves events once, the user's included.
    /// Returns when the dialog is painted, or a second later if it can't be; until then all events
    /// but the user's are served. A batch can start while another runs, and ends before it.
    void start(orv::progress_dialog *dialog, int steps);

    /// Shows the number of steps where that has changed, before the next one is done.
    void set_steps(int steps);

    /// Shows that `done` of `steps` are done; the number of steps may have changed.
    void step(int done, int steps);

    /// Hides the dialog: a batch without a step, or one that an emptied table ends, never reaches
    /// the value that hides it. A batch outside of this one that shares the dialog and isn't done
    /// gets it back.
    void end();

    /// Keeps the repaint requests from the windows while it collects: each window remembers by
    /// itself what is to be painted.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct batch {
        orv::progress_dialog *dialog;
        int done;
        int steps;
    };

    static void show(const batch &shown);
    void paint_collected();

    QList<QWidget *> windows;  ///< those watched
    QList<batch> batches;      ///< those that run, each inside of the one before
    bool collects = false;
};
