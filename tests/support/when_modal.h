// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

/// Answers a modal dialog that the next call will open, since that call blocks until it is closed.
///
/// Armed before the call: polls for the active modal widget and hands it to `answer`, once; if it
/// is still open after that, or if it is of another class, it is closed. Whoever arms it checks
/// `answered()` behind the call.
template <class Dialog>
class when_modal
{
public:
    explicit when_modal(std::function<void(Dialog &)> answer) : answer(std::move(answer))
    {
        QObject::connect(&poll, &QTimer::timeout, &poll, [this] { look(); });
        poll.start(poll_ms);
    }

    bool answered() const { return done; }

private:
    static constexpr int poll_ms = 10;

    void look()
    {
        QWidget *widget = QApplication::activeModalWidget();
        if (!widget)
            return;
        poll.stop();
        if (auto *dialog = qobject_cast<Dialog *>(widget)) {
            done = true;
            answer(*dialog);
            if (!dialog->isVisible())
                return;
        }
        widget->close();
    }

    std::function<void(Dialog &)> answer;
    QTimer poll;
    bool done = false;
};
