// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

/// Answers the modal dialog that the next call opens, since that call blocks until the dialog is
/// closed.
///
/// Create it before the call. It polls for the active modal widget and passes it to `answer` once.
/// If the dialog is still open after that, or is of another class, it is closed. Check `answered()`
/// after the call.
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
